#include "VideoScaler.h"

extern "C" {
#include <libavutil/opt.h>
#include <libavutil/pixdesc.h>
}

#include <algorithm>
#include <new>
#include <tuple>

namespace {

// The converter writes whole vectors, beyond the end of a row and behind the last one.
constexpr int kVector = 64;
// Its quick ways work on so many columns at a time, and leave those at the edge out where a row has no room.
constexpr int kBlock = 16;

/// The old names of formats that tell the range of their values by the name.
AVPixelFormat plainFormat(int aFormat)
{
    switch (aFormat) {
    case AV_PIX_FMT_YUVJ420P:
        return AV_PIX_FMT_YUV420P;
    case AV_PIX_FMT_YUVJ422P:
        return AV_PIX_FMT_YUV422P;
    case AV_PIX_FMT_YUVJ444P:
        return AV_PIX_FMT_YUV444P;
    case AV_PIX_FMT_YUVJ440P:
        return AV_PIX_FMT_YUV440P;
    case AV_PIX_FMT_YUVJ411P:
        return AV_PIX_FMT_YUV411P;
    default:
        return AVPixelFormat(aFormat);
    }
}

bool isGray(AVPixelFormat aFormat)
{
    const AVPixFmtDescriptor* format = av_pix_fmt_desc_get(aFormat);
    return format && format->nb_components == 1 && !(format->flags & AV_PIX_FMT_FLAG_PAL);
}

int matrixOf(const AVFrame& aFrame)
{
    // From here on videos are of high definition, which has another matrix where nothing is told.
    constexpr int kHighDefinition = 720;
    switch (aFrame.colorspace) {
    case AVCOL_SPC_BT709:
        return SWS_CS_ITU709;
    case AVCOL_SPC_FCC:
        return SWS_CS_FCC;
    case AVCOL_SPC_BT470BG:
    case AVCOL_SPC_SMPTE170M:
        return SWS_CS_ITU601;
    case AVCOL_SPC_SMPTE240M:
        return SWS_CS_SMPTE240M;
    case AVCOL_SPC_BT2020_NCL:
    case AVCOL_SPC_BT2020_CL:
        return SWS_CS_BT2020;
    default:
        return aFrame.height >= kHighDefinition ? SWS_CS_ITU709 : SWS_CS_ITU601;
    }
}

/// In 1/256 of a pixel; the left column of a pair is where the usual codecs take the colour.
int chromaAcross(AVChromaLocation aLocation)
{
    const bool isMiddle =
        aLocation == AVCHROMA_LOC_CENTER || aLocation == AVCHROMA_LOC_TOP || aLocation == AVCHROMA_LOC_BOTTOM;
    return isMiddle ? 128 : 0;
}

int chromaDown(AVChromaLocation aLocation)
{
    if (aLocation == AVCHROMA_LOC_TOPLEFT || aLocation == AVCHROMA_LOC_TOP)
        return 0;
    return aLocation == AVCHROMA_LOC_BOTTOMLEFT || aLocation == AVCHROMA_LOC_BOTTOM ? 256 : 128;
}

} // namespace

bool VideoScaler::Kind::operator==(const Kind& aOther) const
{
    const auto all = [](const Kind& aKind) {
        return std::tie(aKind.theFormat, aKind.theWidth, aKind.theHeight, aKind.theFullRange, aKind.theMatrix,
                        aKind.theChroma);
    };
    return all(*this) == all(aOther);
}

VideoScaler::Kind VideoScaler::kindOf(const AVFrame& aFrame)
{
    Kind kind;
    kind.theFormat = plainFormat(aFrame.format);
    kind.theWidth = aFrame.width;
    kind.theHeight = aFrame.height;
    const bool isToldFull = aFrame.color_range == AVCOL_RANGE_JPEG || kind.theFormat != aFrame.format;
    kind.theFullRange =
        isToldFull || (isGray(kind.theFormat) && aFrame.color_range == AVCOL_RANGE_UNSPECIFIED);
    kind.theMatrix = matrixOf(aFrame);
    kind.theChroma = aFrame.chroma_location;
    return kind;
}

bool VideoScaler::convert(const AVFrame& aFrame)
{
    const Kind kind = kindOf(aFrame);
    if ((!theContext || !(kind == theKind)) && !setUp(kind))
        return false;
    return sws_scale_frame(theContext.get(), theTarget.get(), &aFrame) >= 0;
}

bool VideoScaler::setUp(const Kind& aKind)
{
    if (!sws_isSupportedInput(aKind.theFormat))
        return false;
    theChannels = isGray(aKind.theFormat) ? 1 : 3;
    if (!setUpContext(aKind)) {
        theContext.reset();
        return false;
    }
    setUpTarget(aKind);
    theKind = aKind;
    return true;
}

bool VideoScaler::setUpContext(const Kind& aKind)
{
    // Measured colours shall not depend on the shortcuts of the converter, nor the chroma of a pixel on where
    // it stands in its pair.
    constexpr int kExact = SWS_ACCURATE_RND | SWS_FULL_CHR_H_INT | SWS_FULL_CHR_H_INP | SWS_BICUBIC;
    constexpr int kOne = 1 << 16;       // contrast and saturation
    constexpr int kRowsPerThread = 128; // fewer aren't worth waking one up
    theContext.reset(sws_alloc_context());
    SwsContext* context = theContext.get();
    if (!context)
        return false;
    const auto set = [context](const char* aName, int aValue) { av_opt_set_int(context, aName, aValue, 0); };
    set("srcw", aKind.theWidth);
    set("srch", aKind.theHeight);
    set("src_format", aKind.theFormat);
    set("src_range", aKind.theFullRange);
    set("dstw", aKind.theWidth);
    set("dsth", aKind.theHeight);
    set("dst_format", theChannels == 1 ? AV_PIX_FMT_GRAY8 : AV_PIX_FMT_RGB24);
    set("dst_range", 1);
    set("sws_flags", theAccurate ? kExact : SWS_FAST_BILINEAR);
    set("threads", std::clamp(aKind.theHeight / kRowsPerThread, 1, theMostThreads));
    if (theAccurate) {
        set("src_h_chr_pos", chromaAcross(aKind.theChroma));
        set("src_v_chr_pos", chromaDown(aKind.theChroma));
    }
    if (sws_init_context(context, nullptr, nullptr) < 0)
        return false;
    // Only now are there the parts of the threads, which the matrix has to reach. Of the same matrix on both
    // sides nothing is converted between grays.
    const int* matrix = sws_getCoefficients(aKind.theMatrix);
    sws_setColorspaceDetails(context, matrix, aKind.theFullRange, matrix, 1, 0, kOne, kOne);
    return true;
}

/// Rows with room behind each, so that no thread writes into the first row of the next one.
void VideoScaler::setUpTarget(const Kind& aKind)
{
    const int columns = (aKind.theWidth + kBlock - 1) / kBlock * kBlock;
    const int bytesPerRow = (columns * theChannels + kVector) / kVector * kVector;
    theTarget.reset(av_frame_alloc());
    if (!theTarget)
        throw std::bad_alloc();
    theTarget->format = theChannels == 1 ? AV_PIX_FMT_GRAY8 : AV_PIX_FMT_RGB24;
    theTarget->width = aKind.theWidth;
    theTarget->height = aKind.theHeight;
    theTarget->linesize[0] = bytesPerRow;
    theTarget->buf[0] = av_buffer_alloc(size_t(bytesPerRow) * size_t(aKind.theHeight) + kVector);
    if (!theTarget->buf[0]) {
        theContext.reset();
        throw std::bad_alloc();
    }
    theTarget->data[0] = theTarget->buf[0]->data;
}
