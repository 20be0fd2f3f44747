#ifndef VIDEOPIXELS_H
#define VIDEOPIXELS_H

#include <QSize>

#include <memory>

struct AVFrame;
struct AVStream;
class LmImage;
class VideoScaler;

/// Turns decoded frames into images: one channel for gray ones, red, green and blue for all others.
class VideoPixels
{
public:
    enum Quality { kAccurate, kQuick };

    VideoPixels();
    ~VideoPixels();
    Q_DISABLE_COPY_MOVE(VideoPixels)

    /// How a camera was held, of which only quarter turns and mirroring count.
    void setOrientation(const AVStream& aStream);
    /// The size of a frame of this size as it is shown.
    QSize shownSize(const QSize& aFrameSize) const;
    /// An image of the size aShown; a frame of another size is cut, or filled up with gray. Null if it has
    /// pixels of an unknown kind; may throw std::bad_alloc.
    std::unique_ptr<LmImage> convert(const AVFrame& aFrame, const QSize& aShown, Quality aQuality);

private:
    static void copyUpright(const VideoScaler& aPixels, const QSize& aSize, LmImage& aImage);
    void copyTurned(const VideoScaler& aPixels, const QSize& aSize, LmImage& aImage) const;

    std::unique_ptr<VideoScaler> theAccurate;
    std::unique_ptr<VideoScaler> theQuick;
    // Where a step to the right and a step down in the frame lead in the image.
    int theRightX = 1;
    int theRightY = 0;
    int theDownX = 0;
    int theDownY = 1;
};

#endif
