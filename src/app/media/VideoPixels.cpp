#include "VideoPixels.h"

#include "LmImage.h"
#include "PicturePixels.h"
#include "VideoHandles.h"
#include "VideoScaler.h"
#include "VideoThreads.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace {

constexpr unsigned int kRowAlign = 4;

int signOf(int32_t aValue)
{
    return aValue > 0 ? 1 : aValue < 0 ? -1 : 0;
}

} // namespace

VideoPixels::VideoPixels()
    : theAccurate(std::make_unique<VideoScaler>(true, VideoThreads::count())),
      theQuick(std::make_unique<VideoScaler>(false, VideoThreads::count()))
{
}

VideoPixels::~VideoPixels() = default;

void VideoPixels::setOrientation(const AVStream& aStream)
{
    const auto* matrix = reinterpret_cast<const int32_t*>(
        av_stream_get_side_data(&aStream, AV_PKT_DATA_DISPLAYMATRIX, nullptr));
    if (!matrix)
        return;
    const bool isUpright = matrix[0] != 0 && matrix[4] != 0 && matrix[1] == 0 && matrix[3] == 0;
    const bool isTurned = matrix[0] == 0 && matrix[4] == 0 && matrix[1] != 0 && matrix[3] != 0;
    if (!isUpright && !isTurned)
        return;
    theRightX = signOf(matrix[0]);
    theRightY = signOf(matrix[1]);
    theDownX = signOf(matrix[3]);
    theDownY = signOf(matrix[4]);
}

QSize VideoPixels::shownSize(const QSize& aFrameSize) const
{
    return theRightX != 0 ? aFrameSize : aFrameSize.transposed();
}

std::unique_ptr<LmImage> VideoPixels::convert(const AVFrame& aFrame, const QSize& aShown, Quality aQuality)
{
    VideoScaler& scaler = aQuality == kAccurate ? *theAccurate : *theQuick;
    if (!scaler.convert(aFrame))
        return nullptr;
    const QSize frameSize(aFrame.width, aFrame.height);
    auto image = shownSize(frameSize) == aShown
                     ? std::make_unique<LmImage>(aShown.width(), aShown.height(), scaler.channels(), nullptr,
                                                 kRowAlign)
                     : PicturePixels::empty(aShown, scaler.channels());
    if (image->size() != aShown)
        throw std::bad_alloc();
    const bool isPlain = theRightX == 1 && theDownY == 1;
    if (isPlain)
        copyUpright(scaler, frameSize, *image);
    else
        copyTurned(scaler, frameSize, *image);
    return image;
}

void VideoPixels::copyUpright(const VideoScaler& aPixels, const QSize& aSize, LmImage& aImage)
{
    const size_t bytes = size_t(std::min(aSize.width(), aImage.width())) * size_t(aImage.channels());
    for (int y = 0; y < std::min(aSize.height(), aImage.height()); ++y)
        std::memcpy(aImage.row(y), aPixels.row(y), bytes);
}

void VideoPixels::copyTurned(const VideoScaler& aPixels, const QSize& aSize, LmImage& aImage) const
{
    const QSize shown = shownSize(aSize);
    const int channels = aImage.channels();
    // The corner where the frame's first pixel comes to lie.
    const int startX = theRightX + theDownX < 0 ? shown.width() - 1 : 0;
    const int startY = theRightY + theDownY < 0 ? shown.height() - 1 : 0;
    for (int y = 0; y < std::min(shown.height(), aImage.height()); ++y) {
        unsigned char* target = aImage.row(y);
        for (int x = 0; x < std::min(shown.width(), aImage.width()); ++x, target += channels) {
            // The turn back, from the image to the frame.
            const int across = (x - startX) * theRightX + (y - startY) * theRightY;
            const int down = (x - startX) * theDownX + (y - startY) * theDownY;
            std::memcpy(target, aPixels.row(down) + across * channels, size_t(channels));
        }
    }
}
