#ifndef VIDEOHANDLES_H
#define VIDEOHANDLES_H

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

#include <memory>

/// Owners of what the decoding library hands out. Included by sources only.
namespace VideoHandles {

struct Release
{
    void operator()(AVFormatContext* aFormat) const { avformat_close_input(&aFormat); }
    void operator()(AVCodecContext* aContext) const { avcodec_free_context(&aContext); }
    void operator()(AVCodecParserContext* aParser) const { av_parser_close(aParser); }
    void operator()(AVPacket* aPacket) const { av_packet_free(&aPacket); }
    void operator()(AVFrame* aFrame) const { av_frame_free(&aFrame); }
};

using Format = std::unique_ptr<AVFormatContext, Release>;
using Context = std::unique_ptr<AVCodecContext, Release>;
using Parser = std::unique_ptr<AVCodecParserContext, Release>;
using Packet = std::unique_ptr<AVPacket, Release>;
using Frame = std::unique_ptr<AVFrame, Release>;

} // namespace VideoHandles

#endif
