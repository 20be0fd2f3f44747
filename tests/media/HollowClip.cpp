#include "HollowClip.h"

#include "ClipMuxer.h"

#include <algorithm>

bool HollowClip::write(const QString& aPath, const QSize& aSize)
{
    constexpr int kNothing = 500; // bytes of no frame
    ClipMuxer muxer(aPath, QString());
    if (!muxer.stream())
        return false;
    AVCodecParameters* parameters = muxer.stream()->codecpar;
    parameters->codec_type = AVMEDIA_TYPE_VIDEO;
    parameters->codec_id = AV_CODEC_ID_MPEG4;
    parameters->width = aSize.width();
    parameters->height = aSize.height();
    muxer.stream()->time_base = {1, 25};
    AVPacket* packet = av_packet_alloc();
    bool isGood = packet && av_new_packet(packet, kNothing) >= 0 && muxer.begin({});
    if (isGood) {
        std::fill_n(packet->data, kNothing, uint8_t(0));
        packet->pts = packet->dts = 0;
        packet->flags = AV_PKT_FLAG_KEY;
        isGood = muxer.write(*packet, {1, 25}) && muxer.end();
    }
    av_packet_free(&packet);
    return isGood;
}
