#include "ClipStamps.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <algorithm>
#include <functional>

namespace {

void forEachPacket(const QString& aPath, const std::function<void(const AVPacket&, const AVStream&)>& aTell)
{
    AVFormatContext* format = nullptr;
    if (avformat_open_input(&format, qUtf8Printable(aPath), nullptr, nullptr) < 0)
        return;
    AVPacket* packet = av_packet_alloc();
    if (avformat_find_stream_info(format, nullptr) >= 0)
        while (av_read_frame(format, packet) >= 0) {
            aTell(*packet, *format->streams[packet->stream_index]);
            av_packet_unref(packet);
        }
    av_packet_free(&packet);
    avformat_close_input(&format);
}

} // namespace

std::vector<double> ClipStamps::read(const QString& aPath, bool aDecoded)
{
    std::vector<double> times;
    forEachPacket(aPath, [&](const AVPacket& aPacket, const AVStream& aStream) {
        const int64_t stamp = aDecoded ? aPacket.dts : aPacket.pts;
        if (!(aPacket.flags & AV_PKT_FLAG_DISCARD) && stamp != AV_NOPTS_VALUE)
            times.push_back(double(stamp) * av_q2d(aStream.time_base));
    });
    std::sort(times.begin(), times.end());
    return times;
}

std::vector<std::pair<qint64, int>> ClipStamps::places(const QString& aPath)
{
    std::vector<std::pair<qint64, int>> places;
    forEachPacket(aPath, [&](const AVPacket& aPacket, const AVStream&) {
        places.emplace_back(aPacket.pos, aPacket.size);
    });
    return places;
}
