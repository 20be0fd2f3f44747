#include "VideoDecoder.h"

#include "VideoFile.h"
#include "VideoThreads.h"

#include <algorithm>
#include <utility>

bool VideoDecoder::open(const AVCodecParameters& aParameters, int aReorderDepth)
{
    const AVCodec* codec = avcodec_find_decoder(aParameters.codec_id);
    theContext.reset(codec ? avcodec_alloc_context3(codec) : nullptr);
    if (!theContext || avcodec_parameters_to_context(theContext.get(), &aParameters) < 0)
        return false;
    theContext->has_b_frames = std::clamp(aReorderDepth, theContext->has_b_frames,
                                          std::max(theContext->has_b_frames, kDeepestReorder));
    theContext->thread_count = VideoThreads::count();
    theContext->thread_type = FF_THREAD_FRAME | FF_THREAD_SLICE;
    theContext->max_pixels = VideoFile::kMaxPixels;
    theContext->err_recognition |= AV_EF_CRCCHECK;
    return avcodec_open2(theContext.get(), codec, nullptr) >= 0;
}

void VideoDecoder::flush()
{
    avcodec_flush_buffers(theContext.get());
    theFailed = false;
}

bool VideoDecoder::send(AVPacket& aPacket, int aSerial)
{
    aPacket.pts = aSerial;
    aPacket.dts = AV_NOPTS_VALUE;
    // Frames that aren't shown are sorted out by their serials.
    aPacket.flags &= ~AV_PKT_FLAG_DISCARD;
    const int result = avcodec_send_packet(theContext.get(), &aPacket);
    av_packet_unref(&aPacket);
    return result >= 0;
}

void VideoDecoder::drain()
{
    avcodec_send_packet(theContext.get(), nullptr);
}

bool VideoDecoder::receive(AVFrame& aFrame)
{
    // A decoder with several threads tells the errors of all packets that it holds one after the other.
    for (int error = 0; error <= theContext->thread_count; ++error) {
        const int result = avcodec_receive_frame(theContext.get(), &aFrame);
        if (result >= 0)
            return true;
        if (result == AVERROR(EAGAIN) || result == AVERROR_EOF)
            return false;
        theFailed = true;
    }
    return false;
}

bool VideoDecoder::takeFailure()
{
    return std::exchange(theFailed, false);
}

void VideoDecoder::skipUnneeded(bool aSkip)
{
    theContext->skip_frame = aSkip ? AVDISCARD_NONREF : AVDISCARD_DEFAULT;
}
