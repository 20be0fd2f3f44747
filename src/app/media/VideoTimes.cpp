#include "VideoTimes.h"

#include "VideoDecoder.h"
#include "VideoIndex.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();
constexpr double kUsualTime = 0.04; // seconds, where nothing at all is known

} // namespace

VideoTimes::VideoTimes(const VideoIndex& aIndex, double aTick, double aFrameTime)
    : theIndex(aIndex), theTick(aTick), theFrameTime(aFrameTime)
{
    // Where a few stamps are missing their neighbours tell more than the order of decoding does. Where many
    // are, as in AVI files, the others were guessed from that order too.
    const int few = theIndex.frameCount() / 10;
    if (!takeStamps(&VideoPacket::theShown, few) && !takeStamps(&VideoPacket::theDecoded, 0))
        takeStamps(&VideoPacket::theShown, theIndex.frameCount());
    countOn();
    const bool isWhole =
        std::none_of(theSeconds.begin(), theSeconds.end(), [](double aTime) { return std::isnan(aTime); });
    // The stamps' own order may not be that of the frames, where they count packets, but there are as many
    // and each frame gets its own.
    if (isWhole)
        std::sort(theSeconds.begin(), theSeconds.end());
    else
        fillGaps();
}

/// False if more frames than that have no stamp of the sort.
bool VideoTimes::takeStamps(qint64 VideoPacket::*aStamp, int aMostMissing)
{
    theSeconds.clear();
    for (int frame = 0; frame < theIndex.frameCount(); ++frame) {
        const qint64 stamp = theIndex.packet(theIndex.serialOf(frame)).*aStamp;
        theSeconds.push_back(stamp == VideoPacket::kNone ? kUnknown : double(stamp) * theTick);
    }
    return std::count_if(theSeconds.begin(), theSeconds.end(),
                         [](double aTime) { return std::isnan(aTime); }) <= aMostMissing;
}

/// Lets times that fall back farther than the order of decoding could explain go on from the ones before.
void VideoTimes::countOn()
{
    const double distance = theFrameTime > 0.0 ? theFrameTime : kUsualTime;
    double latest = -std::numeric_limits<double>::infinity();
    double shift = 0.0;
    for (int frame = 0; frame < int(theSeconds.size()); ++frame) {
        double& time = theSeconds[size_t(frame)];
        if (std::isnan(time))
            continue;
        time += shift;
        if (time < latest - VideoDecoder::kDeepestReorder * distance) {
            shift += latest + distance - time;
            time = latest + distance;
            theRestart = theRestart > 0 ? theRestart : frame;
        }
        latest = std::max(latest, time);
    }
}

/// Keeps the times that ascend, and gives the frames without one times by their neighbours or, at the ends,
/// by the usual distance.
void VideoTimes::fillGaps()
{
    const double distance = theFrameTime > 0.0 ? theFrameTime : kUsualTime;
    const int count = int(theSeconds.size());
    int last = -1;
    for (int frame = 0; frame < count; ++frame) {
        const double time = theSeconds[size_t(frame)];
        if (std::isnan(time) || (last >= 0 && time < theSeconds[size_t(last)]))
            continue;
        if (last >= 0)
            fillBetween(last, frame);
        for (int before = frame - 1; last < 0 && before >= 0; --before)
            theSeconds[size_t(before)] = theSeconds[size_t(before) + 1] - distance;
        last = frame;
    }
    for (int frame = last + 1; frame < count; ++frame)
        theSeconds[size_t(frame)] = frame == 0 ? 0.0 : theSeconds[size_t(frame) - 1] + distance;
}

/// Puts times between two frames that have some, at equal distances.
void VideoTimes::fillBetween(int aFrom, int aTo)
{
    const double first = theSeconds[size_t(aFrom)];
    const double distance = (theSeconds[size_t(aTo)] - first) / (aTo - aFrom);
    for (int frame = aFrom + 1; frame < aTo; ++frame)
        theSeconds[size_t(frame)] = first + (frame - aFrom) * distance;
}

FrameTimes VideoTimes::times() const
{
    const int last = theIndex.frameCount() - 1;
    const double lastDuration =
        last < 0 ? 0.0 : double(theIndex.packet(theIndex.serialOf(last)).theDuration) * theTick;
    return FrameTimes(theSeconds, theTick, lastDuration > 0.0 || last > 0 ? lastDuration : theFrameTime);
}
