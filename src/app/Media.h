#ifndef MEDIA_H
#define MEDIA_H

#include <QObject>
#include <QSize>
#include <QString>

#include <memory>

class LmCvEditor;
class LmImage;
class PictureFile;

/// The picture on the screen: owns its image, tells the kernel of it and shows its frames in the editor.
class Media : public QObject
{
    Q_OBJECT

public:
    Media(LmCvEditor& aEditor, QObject* aParent);
    /// Takes the image back from the kernel. The editor may be gone by then.
    ~Media() override;

    /// Shows the first frame of a picture.
    bool open(const QString& aPath, QString& aError);
    /// Stands in for a picture that can't be found: an empty one of its size and frames, under its name.
    void openPlaceholder(const QString& aPath, QSize aSize, int aFrameCount = 1);
    /// Puts the picture in the place of the empty one, at the same frame. One of another size is refused.
    bool replacePlaceholder(const QString& aPath, QString& aError);
    /// Shows a frame (0 is the first); a frame that can't be read leaves the present one and gives false.
    bool showFrame(int aFrame, QString& aError);

    bool isOpen() const { return theImage != nullptr; }
    bool isPlaceholder() const { return isOpen() && !thePicture; }
    const QString& path() const { return thePath; }
    int frameCount() const { return theFrameCount; }
    int frame() const { return theFrame; }
    const LmImage* image() const { return theImage.get(); }
    LmCvEditor& editor() const { return theEditor; }
    /// Red, green and blue at image coordinates as text for the status bar, empty outside.
    QString colorText(const QPoint& aImagePoint) const;

Q_SIGNALS:
    void opened();
    void frameShown(int aFrame);

private:
    void take(std::unique_ptr<PictureFile> aPicture, std::unique_ptr<LmImage> aImage, int aFrame);
    void announce(const QString& aPath, int aFrameCount);
    void show(std::unique_ptr<LmImage> aImage, int aFrame);

    LmCvEditor& theEditor;
    std::unique_ptr<PictureFile> thePicture; // null for a placeholder
    std::unique_ptr<LmImage> theImage;       // the kernel's current image
    QString thePath;
    int theFrameCount = 0;
    int theFrame = 0;
};

#endif
