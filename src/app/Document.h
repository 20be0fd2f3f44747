#ifndef DOCUMENT_H
#define DOCUMENT_H

#include <QObject>
#include <QString>

#include <functional>
#include <memory>

class Media;
class MediaSource;
class QUndoStack;
class QWidget;
struct ProjectContent;

/// The work at hand: a picture with its objects and calibrations, and the project file they are kept in.
///
/// Every operation either succeeds as a whole or leaves everything as it was and gives one sentence in
/// aError.
class Document : public QObject
{
    Q_OBJECT

public:
    Document(Media& aMedia, QUndoStack& aStack, QObject* aParent);

    /// Opens a project or a picture, whichever the file is. An open picture replaces all objects and
    /// calibrations.
    bool open(const QString& aPath, QString& aError);
    bool openPicture(const QString& aPath, QString& aError);
    /// Opens a source that belongs to no file yet, under a name of its own.
    bool openLive(std::unique_ptr<MediaSource> aSource, const QString& aName, QString& aError);
    /// A project whose picture can't be shown opens with an empty picture of its size; isPictureMissing() is
    /// then true, and aError tells why although the project is open.
    bool openProject(const QString& aPath, QString& aError);
    /// Puts the picture that was missing in its place; the objects stay. One of another size is refused. With
    /// another number of frames the result is true, and aError tells so.
    bool locatePicture(const QString& aPath, QString& aError);
    bool save(const QString& aPath, QString& aError);
    /// Called before a project is saved, to make a file of what is shown; false with one sentence in aError
    /// stops the saving.
    void setKeeper(const std::function<bool(QString& aError)>& aKeeper) { theKeeper = aKeeper; }
    /// What the steps of the undo stack and the project file stand for is gone: the work counts as changed,
    /// and with aForgetsProject the next saving asks for a file.
    void startAnew(bool aForgetsProject);

    bool isPictureMissing() const;
    bool isModified() const;
    const QString& projectPath() const { return theProjectPath; }
    /// What the window's title shows: the project's name, or the picture's before it is saved.
    QString displayName() const;
    /// Widget for the progress dialog of long loads; null without a window.
    void setProgressParent(QWidget* aParent) { theProgressParent = aParent; }

Q_SIGNALS:
    void changed(); // another project or picture, or another name

private:
    bool readProject(const QString& aPath, ProjectContent& aContent, QString& aError);
    /// Takes all objects and calibrations away, after which nothing can be undone.
    void clearObjects();
    /// Tells how far the reading of a long video is, and lets it be stopped.
    bool openMedia(const QString& aPath, QString& aError);
    void openPictureOf(const ProjectContent& aContent, QString& aError);
    /// What of the picture isn't as it was when the project was saved; empty if all is.
    QString difference(const QSize& aSize, int aFrameCount) const;
    void setCalibrations(const ProjectContent& aContent);
    void constructObjects(const ProjectContent& aContent);

    Media& theMedia;
    QUndoStack& theStack;
    QWidget* theProgressParent = nullptr; // not owned
    std::function<bool(QString& aError)> theKeeper;
    QString theProjectPath;
    QString theLiveName;              // of a source that belongs to no file yet
    bool thePictureRelocated = false; // an unsaved change that no command holds
};

#endif
