#include "CameraPixels.h"

#include "LmImage.h"
#include "PicturePixels.h"

#include <QImage>
#include <QVideoFrame>

extern "C" {
#include <libavutil/frame.h>
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

/// The formats that have brightness and colour apart, or brightness alone.
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
    case QVideoFrameFormat::Format_Y8:
        return AV_PIX_FMT_GRAY8;
    case QVideoFrameFormat::Format_Y16:
        return AV_PIX_FMT_GRAY16LE;
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

} // namespace

std::unique_ptr<LmImage> CameraPixels::convert(const QVideoFrame& aFrame)
{
    MappedFrame mapped(aFrame);
    if (!mapped.isMapped() || aFrame.size().isEmpty())
        return nullptr;
    QVideoFrame& frame = mapped.frame();
    if (frame.pixelFormat() == QVideoFrameFormat::Format_Jpeg)
        return opaque(QImage::fromData(frame.bits(0), frame.mappedBytes(0), "JPEG"));
    if (const AVPixelFormat format = planesFormat(frame.pixelFormat()); format != AV_PIX_FMT_NONE)
        return fromPlanes(frame, format);
    const QImage::Format format = QVideoFrameFormat::imageFormatFromPixelFormat(frame.pixelFormat());
    if (format == QImage::Format_Invalid)
        return nullptr;
    return opaque(QImage(frame.bits(0), frame.width(), frame.height(), frame.bytesPerLine(0), format));
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
    const bool isGray = aFormat == AV_PIX_FMT_GRAY8 || aFormat == AV_PIX_FMT_GRAY16LE;
    planes->color_range = isFull || isGray ? AVCOL_RANGE_JPEG : AVCOL_RANGE_MPEG;
    for (int plane = 0; plane < aFrame.planeCount(); ++plane) {
        planes->data[plane] = aFrame.bits(plane);
        planes->linesize[plane] = aFrame.bytesPerLine(plane);
    }
    if (aFrame.pixelFormat() == QVideoFrameFormat::Format_YV12)
        std::swap(planes->data[1], planes->data[2]);
    return thePlanes.convert(*planes, aFrame.size(), VideoPixels::kAccurate);
}
