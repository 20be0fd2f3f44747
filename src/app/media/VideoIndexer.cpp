#include "VideoIndexer.h"

#include "VideoIndex.h"
#include "VideoInput.h"
#include "VideoProgress.h"

#include <algorithm>

namespace {

/// Codecs whose packets may be single fields, of which a decoder weaves one frame of two.
bool mayHaveFields(AVCodecID aCodec)
{
    return aCodec == AV_CODEC_ID_H264 || aCodec == AV_CODEC_ID_MPEG2VIDEO || aCodec == AV_CODEC_ID_VC1 ||
           aCodec == AV_CODEC_ID_CAVS;
}

bool isInterlaced(AVFieldOrder aOrder)
{
    return aOrder != AV_FIELD_UNKNOWN && aOrder != AV_FIELD_PROGRESSIVE;
}

/// Packets that only say that the picture before stays, or that hold one to be shown later.
bool mayShowNothing(AVCodecID aCodec, const AVPacket& aPacket)
{
    constexpr int kNothingCoded = 8; // bytes, fewer than any coded picture has
    constexpr uint8_t kVp8Shown = 0x10;
    if (aCodec == AV_CODEC_ID_MPEG4)
        return aPacket.size < kNothingCoded;
    return aCodec == AV_CODEC_ID_VP8 && !(aPacket.data[0] & kVp8Shown);
}

/// Whether every packet stands for itself, so that frames are shown in the order of decoding.
bool isIntraOnly(AVCodecID aCodec)
{
    const AVCodecDescriptor* descriptor = avcodec_descriptor_get(aCodec);
    return descriptor && (descriptor->props & AV_CODEC_PROP_INTRA_ONLY);
}

} // namespace

VideoIndexer::VideoIndexer(VideoInput& aInput, VideoIndex& aIndex)
    : theInput(aInput), theIndex(aIndex), theContext(avcodec_alloc_context3(nullptr)),
      theParser(av_parser_init(aInput.stream().codecpar->codec_id))
{
    if (theContext)
        avcodec_parameters_to_context(theContext.get(), theInput.stream().codecpar);
    if (theParser)
        theParser->flags |= PARSER_FLAG_COMPLETE_FRAMES;
}

bool VideoIndexer::run(const MediaSource::Progress& aProgress)
{
    const VideoHandles::Packet packet(av_packet_alloc());
    VideoProgress progress(aProgress);
    // The other streams are read as well: what of them is missing tells that the file is cut off.
    while (packet && theInput.readAny(*packet)) {
        noteEnd(*packet);
        if (theInput.isOfVideo(*packet) && packet->size > 0)
            add(*packet);
        if (!progress.report(theInput.portion()))
            return false;
    }
    theIndex.finish();
    return true;
}

void VideoIndexer::add(const AVPacket& aPacket)
{
    VideoPacket packet = VideoInput::describe(aPacket);
    if (packet.theShown == VideoPacket::kNone && isIntraOnly(theContext->codec_id))
        packet.theShown = packet.theDecoded;
    theIndex.add(packet);
    size_t size = 0;
    if (const uint8_t* setup = av_packet_get_side_data(&aPacket, AV_PKT_DATA_NEW_EXTRADATA, &size))
        theIndex.changeSetup(QByteArray(reinterpret_cast<const char*>(setup), qsizetype(size)));
    thePlain = thePlain && !mayShowNothing(theContext->codec_id, aPacket) && isWholeFrame(aPacket);
}

bool VideoIndexer::isWholeFrame(const AVPacket& aPacket)
{
    if (!mayHaveFields(theContext->codec_id))
        return true;
    if (!theParser)
        return false;
    uint8_t* data = nullptr;
    int size = 0;
    av_parser_parse2(theParser.get(), theContext.get(), &data, &size, aPacket.data, aPacket.size, aPacket.pts,
                     aPacket.dts, aPacket.pos);
    if (theParser->picture_structure == AV_PICTURE_STRUCTURE_UNKNOWN)
        return !isInterlaced(theInput.stream().codecpar->field_order);
    return theParser->picture_structure == AV_PICTURE_STRUCTURE_FRAME;
}

void VideoIndexer::noteEnd(const AVPacket& aPacket)
{
    const int64_t stamp = aPacket.pts != AV_NOPTS_VALUE ? aPacket.pts : aPacket.dts;
    if (stamp == AV_NOPTS_VALUE)
        return;
    const AVStream* stream = theInput.format().streams[aPacket.stream_index];
    theEnd = std::max(theEnd, (double(stamp) + double(aPacket.duration)) * av_q2d(stream->time_base));
}
