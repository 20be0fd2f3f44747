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
    : theTick(aTick), theFrameTime(aFrameTime)
{
    // Where a few stamps are missing their neighbours tell more than the order of decoding does. Where many
    // are, as in AVI files, the others were guessed from that order too.
    const int few = aIndex.frameCount() / 10;
    if (!takeStamps(aIndex, &VideoPacket::theShown, few) && !takeStamps(aIndex, &VideoPacket::theDecoded, 0))
        takeStamps(aIndex, &VideoPacket::theShown, aIndex.frameCount());
    const int last = aIndex.frameCount() - 1;
    if (last >= 0)
        theLastDuration = double(aIndex.packet(aIndex.serialOf(last)).theDuration) * theTick;
    if (theLastDuration <= 0.0 && last <= 0)
        theLastDuration = theFrameTime;
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
bool VideoTimes::takeStamps(const VideoIndex& aIndex, qint64 VideoPacket::*aStamp, int aMostMissing)
{
    theSeconds.clear();
    for (int frame = 0; frame < aIndex.frameCount(); ++frame) {
        const qint64 stamp = aIndex.packet(aIndex.serialOf(frame)).*aStamp;
        theSeconds.push_back(stamp == VideoPacket::kNone ? kUnknown : double(stamp) * theTick);
    }
    return std::count_if(theSeconds.begin(), theSeconds.end(),
                         [](double aTime) { return std::isnan(aTime); }) <= aMostMissing;
}

/// Drops single times far from those around them, and lets times that fall back farther than the order of
/// decoding could explain go on from the ones before.
void VideoTimes::countOn()
{
    const std::vector<int> frames = knownFrames();
    const double distance = std::max(theFrameTime, usualDistance(frames));
    const double far = VideoDecoder::kDeepestReorder * distance;
    double latest = 0.0;
    double shift = 0.0;
    for (size_t i = 0; i < frames.size(); ++i) {
        double& time = theSeconds[size_t(frames[i])];
        time += shift;
        const bool isFar = i > 0 && std::abs(time - latest) > far;
        if (isFar && i + 1 < frames.size() &&
            std::abs(theSeconds[size_t(frames[i + 1])] + shift - latest) <= far) {
            time = kUnknown;
            continue;
        }
        if (isFar && time < latest) {
            shift += latest + distance - time;
            time = latest + distance;
            theRestart = theRestart > 0 ? theRestart : frames[i];
        }
        latest = i > 0 ? std::max(latest, time) : time;
    }
}

std::vector<int> VideoTimes::knownFrames() const
{
    std::vector<int> frames;
    for (int frame = 0; frame < int(theSeconds.size()); ++frame)
        if (!std::isnan(theSeconds[size_t(frame)]))
            frames.push_back(frame);
    return frames;
}

/// Between two frames, whatever single wrong times there are.
double VideoTimes::usualDistance(const std::vector<int>& aFrames) const
{
    std::vector<double> distances;
    for (size_t i = 1; i < aFrames.size(); ++i)
        distances.push_back(std::abs(theSeconds[size_t(aFrames[i])] - theSeconds[size_t(aFrames[i - 1])]));
    if (distances.empty())
        return kUsualTime;
    const auto middle = distances.begin() + ptrdiff_t(distances.size() / 2);
    std::nth_element(distances.begin(), middle, distances.end());
    return *middle > 0.0 ? *middle : kUsualTime;
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
    return FrameTimes(theSeconds, theTick, theLastDuration);
}
