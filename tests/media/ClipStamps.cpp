#include "ClipStamps.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <algorithm>

std::vector<double> ClipStamps::read(const QString& aPath, bool aDecoded)
{
    std::vector<double> times;
    AVFormatContext* format = nullptr;
    if (avformat_open_input(&format, qUtf8Printable(aPath), nullptr, nullptr) < 0)
        return times;
    AVPacket* packet = av_packet_alloc();
    if (avformat_find_stream_info(format, nullptr) >= 0)
        while (av_read_frame(format, packet) >= 0) {
            const int64_t stamp = aDecoded ? packet->dts : packet->pts;
            if (!(packet->flags & AV_PKT_FLAG_DISCARD) && stamp != AV_NOPTS_VALUE)
                times.push_back(double(stamp) * av_q2d(format->streams[packet->stream_index]->time_base));
            av_packet_unref(packet);
        }
    av_packet_free(&packet);
    avformat_close_input(&format);
    std::sort(times.begin(), times.end());
    return times;
}
