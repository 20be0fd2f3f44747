#ifndef FILECOMMANDS_H
#define FILECOMMANDS_H

#include <QObject>
#include <QString>

class QMimeData;
class QWidget;
class RecentFiles;
class Workbench;

/// Opening, saving and exporting as the user asks for it, with the dialogs that belong to it. Before the work
/// at hand is replaced or lost, the user is asked what shall become of it.
class FileCommands : public QObject
{
    Q_OBJECT

public:
    FileCommands(Workbench& aBench, RecentFiles& aRecent, QWidget& aWindow);

    /// Opens a picture, a video, a folder of pictures or a project; false if the user kept the present work
    /// or if it couldn't be opened.
    bool open(const QString& aPath);
    /// True if the present work may go: it is saved already, was saved now, or the user gives it up.
    bool mayLeaveWork();
    /// The first local file that is dragged; empty if there is none.
    static QString draggedFile(const QMimeData* aData);
    /// Whether exported pictures have a scale bar.
    void setScaleBar(bool aOn) { theScaleBar = aOn; }

public Q_SLOTS:
    void askOpen();
    void askOpenFolder();
    bool save();
    bool saveAs();
    void exportPicture();
    void locatePicture();

private:
    bool saveTo(const QString& aPath);
    void offerToLocate(const QString& aReason);
    QString proposedPath(const QString& aSuffix) const;
    QString lastFolder() const;
    void keepFolder(const QString& aPath) const;

    Workbench& theBench;
    RecentFiles& theRecent;
    QWidget& theWindow;
    bool theScaleBar = false;
};

#endif
