#include "CameraPixels.h"

#include "LmImage.h"
#include "PicturePixels.h"

#include <QImage>
#include <QTransform>
#include <QVideoFrame>

extern "C" {
#include <libavutil/frame.h>
#include <libavutil/imgutils.h>
}

namespace {

/// Keeps the pixels of a frame in reach.
class MappedFrame
{
public:
    explicit MappedFrame(const QVideoFrame& aFrame)
        : theFrame(aFrame), theMapped(theFrame.map(QVideoFrame::ReadOnly))
    {
    }
    ~MappedFrame()
    {
        if (theMapped)
            theFrame.unmap();
    }
    Q_DISABLE_COPY_MOVE(MappedFrame)

    bool isMapped() const { return theMapped; }
    QVideoFrame& frame() { return theFrame; }

private:
    QVideoFrame theFrame;
    bool theMapped;
};

struct FreeFrame
{
    void operator()(AVFrame* aFrame) const { av_frame_free(&aFrame); }
};

/// The formats that have brightness and colour apart.
AVPixelFormat planesFormat(QVideoFrameFormat::PixelFormat aFormat)
{
    switch (aFormat) {
    case QVideoFrameFormat::Format_YUV420P:
    case QVideoFrameFormat::Format_YV12:
        return AV_PIX_FMT_YUV420P;
    case QVideoFrameFormat::Format_YUV422P:
        return AV_PIX_FMT_YUV422P;
    case QVideoFrameFormat::Format_UYVY:
        return AV_PIX_FMT_UYVY422;
    case QVideoFrameFormat::Format_YUYV:
        return AV_PIX_FMT_YUYV422;
    case QVideoFrameFormat::Format_NV12:
        return AV_PIX_FMT_NV12;
    case QVideoFrameFormat::Format_NV21:
        return AV_PIX_FMT_NV21;
    case QVideoFrameFormat::Format_P010:
        return AV_PIX_FMT_P010LE;
    default:
        return AV_PIX_FMT_NONE;
    }
}

AVColorSpace colorSpaceOf(const QVideoFrameFormat& aFormat)
{
    switch (aFormat.colorSpace()) {
    case QVideoFrameFormat::ColorSpace_BT709:
        return AVCOL_SPC_BT709;
    case QVideoFrameFormat::ColorSpace_BT2020:
        return AVCOL_SPC_BT2020_NCL;
    default: // what cameras send that tell nothing, whatever their resolution
        return AVCOL_SPC_SMPTE170M;
    }
}

std::unique_ptr<LmImage> opaque(const QImage& aPicture)
{
    if (aPicture.isNull())
        return nullptr;
    return PicturePixels::toLmImage(
        aPicture.hasAlphaChannel() ? aPicture.convertToFormat(QImage::Format_RGB888) : aPicture);
}

/// Rows from the bottom up, the way in which the camera is held, and then a mirror.
std::unique_ptr<LmImage> upright(std::unique_ptr<LmImage> aImage, const QVideoFrame& aFrame)
{
    const QVideoFrameFormat format = aFrame.surfaceFormat();
    const bool isUpsideDown = format.scanLineDirection() == QVideoFrameFormat::BottomToTop;
    const bool isMirrored = aFrame.mirrored() != format.isMirrored();
    const int degrees = int(aFrame.rotationAngle());
    if (!aImage || (!isUpsideDown && !isMirrored && degrees == 0))
        return aImage;
    const QImage sent(aImage->row(0), aImage->width(), aImage->height(), aImage->bytesPerLine(),
                      aImage->channels() == 1 ? QImage::Format_Grayscale8 : QImage::Format_RGB888);
    const QImage turned = sent.mirrored(false, isUpsideDown).transformed(QTransform().rotate(degrees));
    return PicturePixels::toLmImage(turned.mirrored(isMirrored, false));
}

} // namespace

std::unique_ptr<LmImage> CameraPixels::convert(const QVideoFrame& aFrame)
{
    MappedFrame mapped(aFrame);
    if (!mapped.isMapped() || aFrame.size().isEmpty())
        return nullptr;
    return upright(convertPixels(mapped.frame()), aFrame);
}

std::unique_ptr<LmImage> CameraPixels::convertPixels(QVideoFrame& aFrame)
{
    if (aFrame.pixelFormat() == QVideoFrameFormat::Format_Jpeg)
        return opaque(QImage::fromData(aFrame.bits(0), aFrame.mappedBytes(0), "JPEG"));
    if (const AVPixelFormat format = planesFormat(aFrame.pixelFormat()); format != AV_PIX_FMT_NONE)
        return fromPlanes(aFrame, format);
    const QImage::Format format = QVideoFrameFormat::imageFormatFromPixelFormat(aFrame.pixelFormat());
    if (format == QImage::Format_Invalid)
        return nullptr;
    return opaque(QImage(aFrame.bits(0), aFrame.width(), aFrame.height(), aFrame.bytesPerLine(0), format));
}

std::unique_ptr<LmImage> CameraPixels::fromPlanes(QVideoFrame& aFrame, int aFormat)
{
    const std::unique_ptr<AVFrame, FreeFrame> planes(av_frame_alloc());
    if (!planes)
        throw std::bad_alloc();
    planes->format = aFormat;
    planes->width = aFrame.width();
    planes->height = aFrame.height();
    planes->colorspace = colorSpaceOf(aFrame.surfaceFormat());
    const bool isFull = aFrame.surfaceFormat().colorRange() == QVideoFrameFormat::ColorRange_Full;
    planes->color_range = isFull ? AVCOL_RANGE_JPEG : AVCOL_RANGE_MPEG;
    for (int plane = 0; plane < aFrame.planeCount(); ++plane) {
        planes->data[plane] = aFrame.bits(plane);
        planes->linesize[plane] = aFrame.bytesPerLine(plane);
        // Frames are known whose rows are described as too short.
        if (planes->linesize[plane] < av_image_get_linesize(AVPixelFormat(aFormat), aFrame.width(), plane))
            return nullptr;
    }
    // Its owner is the mapped frame; without one the pixels would be copied.
    planes->buf[0] = av_buffer_create(
        aFrame.bits(0), size_t(aFrame.mappedBytes(0)), [](void*, uint8_t*) {}, nullptr,
        AV_BUFFER_FLAG_READONLY);
    if (aFrame.pixelFormat() == QVideoFrameFormat::Format_YV12)
        std::swap(planes->data[1], planes->data[2]);
    return thePlanes.convert(*planes, aFrame.size(), VideoPixels::kAccurate);
}
