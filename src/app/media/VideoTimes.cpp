#include "VideoTimes.h"

#include "VideoIndex.h"

#include <algorithm>

namespace {

using Stamp = qint64 VideoPacket::*;

/// The frames' stamps of one sort; empty if one is missing. Their own order may not be that of the frames,
/// where they count packets, but there are as many and each frame gets its own.
std::vector<double> sortedTimes(const VideoIndex& aIndex, Stamp aStamp, double aTick)
{
    std::vector<double> times;
    for (int frame = 0; frame < aIndex.frameCount(); ++frame) {
        const qint64 stamp = aIndex.packet(aIndex.serialOf(frame)).*aStamp;
        if (stamp == VideoPacket::kNone)
            return {};
        times.push_back(double(stamp) * aTick);
    }
    std::sort(times.begin(), times.end());
    return times;
}

/// Puts times between two frames that have some, at equal distances.
void fillBetween(std::vector<double>& aTimes, int aFrom, int aTo)
{
    const double first = aTimes[size_t(aFrom)];
    const double distance = (aTimes[size_t(aTo)] - first) / (aTo - aFrom);
    for (int frame = aFrom + 1; frame < aTo; ++frame)
        aTimes[size_t(frame)] = first + (frame - aFrom) * distance;
}

/// Keeps the stamps that ascend, and gives the frames without one times by their neighbours or, at the ends,
/// by the usual distance.
std::vector<double> mendedTimes(const VideoIndex& aIndex, double aTick, double aFrameTime)
{
    std::vector<double> times(size_t(aIndex.frameCount()), 0.0);
    int last = -1;
    for (int frame = 0; frame < aIndex.frameCount(); ++frame) {
        const qint64 stamp = aIndex.packet(aIndex.serialOf(frame)).theShown;
        if (stamp == VideoPacket::kNone || (last >= 0 && double(stamp) * aTick < times[size_t(last)]))
            continue;
        times[size_t(frame)] = double(stamp) * aTick;
        if (last >= 0)
            fillBetween(times, last, frame);
        for (int before = frame - 1; last < 0 && before >= 0; --before)
            times[size_t(before)] = times[size_t(before) + 1] - aFrameTime;
        last = frame;
    }
    for (int frame = last + 1; frame < aIndex.frameCount(); ++frame)
        times[size_t(frame)] = frame == 0 ? 0.0 : times[size_t(frame) - 1] + aFrameTime;
    return times;
}

} // namespace

FrameTimes VideoTimes::of(const VideoIndex& aIndex, double aTick, double aFrameTime)
{
    constexpr double kUsualTime = 0.04; // where nothing at all is known
    std::vector<double> times = sortedTimes(aIndex, &VideoPacket::theShown, aTick);
    if (times.empty())
        times = sortedTimes(aIndex, &VideoPacket::theDecoded, aTick);
    if (times.empty())
        times = mendedTimes(aIndex, aTick, aFrameTime > 0.0 ? aFrameTime : kUsualTime);
    const int last = aIndex.frameCount() - 1;
    const double lastDuration =
        last < 0 ? 0.0 : double(aIndex.packet(aIndex.serialOf(last)).theDuration) * aTick;
    return FrameTimes(std::move(times), aTick, lastDuration > 0.0 || last > 0 ? lastDuration : aFrameTime);
}
