#ifndef MEDIA_H
#define MEDIA_H

#include "MediaSource.h"

#include <QObject>
#include <QRect>

class LmCvEditor;

/// The picture or video on the screen: owns the image of its frame, tells the kernel of it and shows it in
/// the editor.
class Media : public QObject
{
    Q_OBJECT

public:
    Media(LmCvEditor& aEditor, QObject* aParent);
    /// Takes the image back from the kernel. The editor may be gone by then.
    ~Media() override;

    /// Shows the first frame of a picture or video.
    bool open(const QString& aPath, QString& aError,
              const MediaSource::Progress& aProgress = MediaSource::Progress());
    /// Shows the first frame of a source that is open already.
    bool open(std::unique_ptr<MediaSource> aSource, QString& aError);
    /// Stands in for a picture that can't be found: an empty one of its size and frames, under its name.
    void openPlaceholder(const QString& aPath, QSize aSize, int aFrameCount = 1);
    /// Puts the picture in the place of the empty one, at the same frame. One of another size is refused.
    bool replacePlaceholder(const QString& aPath, QString& aError,
                            const MediaSource::Progress& aProgress = MediaSource::Progress());
    /// Shows a frame (0 is the first) and stands there; a frame that can't be read leaves the present one and
    /// gives false.
    bool showFrame(int aFrame, QString& aError);
    /// Reads a frame without showing it, limited like the others; null, with one sentence in aError, if it
    /// can't be read or isn't there.
    std::unique_ptr<LmImage> readFrame(int aFrame, QString& aError);
    /// Shows an image of the source while it plays.
    void showPlayed(std::unique_ptr<LmImage> aImage, int aFrame);

    /// Shows another image in the place of the present one, of the same size, and tells nobody: not the time
    /// for that while the mouse holds something.
    void exchangeImage(std::unique_ptr<LmImage> aImage);
    /// Shows the next image of a camera on the present frame, of the same size.
    void showLive(std::unique_ptr<LmImage> aImage);
    /// Shows an image of a camera that has changed its resolution. The region and what the tools hold are
    /// scaled by the ratio of the widths; what was being drawn ends.
    void showResized(std::unique_ptr<LmImage> aImage);
    /// The source has another number of frames now, of which the last ones may be in no file. The present
    /// frame is aFrame from now on; it isn't shown yet.
    void followSource(int aFrame, int aKeptFrames);

    /// Limits all frames to a part of the picture, in image coordinates; a null rectangle takes the limit
    /// away. Objects keep their places on the picture.
    void setRegion(const QRect& aRegion);
    /// Null while the whole picture is shown.
    QRect region() const { return theRegion; }

    bool isOpen() const { return theImage != nullptr; }
    bool isPlaceholder() const { return isOpen() && !theSource; }
    const QString& path() const { return thePath; }
    int frameCount() const { return theFrameCount; }
    /// Without those that exist only as long as the source is open.
    int keptFrameCount() const { return theKeptFrames; }
    int frame() const { return theFrame; }
    /// Empty for pictures.
    const FrameTimes& times() const;
    /// Null for a placeholder. Whoever reads from it in another thread stops at aboutToRead() and
    /// aboutToLeave().
    MediaSource* source() const { return theSource.get(); }
    const LmImage* image() const { return theImage.get(); }
    LmCvEditor& editor() const { return theEditor; }
    /// Red, green and blue at image coordinates as text for the status bar, empty outside.
    QString colorText(const QPoint& aImagePoint) const;

Q_SIGNALS:
    /// A frame is about to be read from the source, which may be in use by another thread until now.
    void aboutToRead();
    /// The present source is about to go.
    void aboutToLeave();
    void opened();
    /// The source that is open has another number of frames now.
    void frameCountChanged();
    void resolutionChanged(const QSize& aFormer, const QSize& aPresent);
    void frameShown(int aFrame);
    /// There is another image, perhaps on the same frame.
    void imageChanged();
    void regionChanged();
    /// Something about the picture that is shown, which the user should know: one sentence.
    void flawFound(const QString& aSentence);

private:
    void take(std::unique_ptr<MediaSource> aSource, std::unique_ptr<LmImage> aImage, int aFrame);
    void announce(const QString& aPath, int aFrameCount);
    void show(std::unique_ptr<LmImage> aImage, int aFrame, bool aPlaying);
    void placeObjects();

    LmCvEditor& theEditor;
    std::unique_ptr<MediaSource> theSource; // null for a placeholder
    std::unique_ptr<LmImage> theImage;      // the kernel's current image
    QString thePath;
    int theFrameCount = 0;
    int theKeptFrames = 0;
    int theFrame = 0;
    QRect theRegion; // image; inside the picture
};

#endif
