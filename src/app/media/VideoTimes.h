#ifndef VIDEOTIMES_H
#define VIDEOTIMES_H

#include "FrameTimes.h"

#include <QtGlobal>

class VideoIndex;
struct VideoPacket;

/// When the frames of a video are shown: by their stamps as far as there are any.
class VideoTimes
{
public:
    /// aTick is the length of a tick of the stamps in seconds, aFrameTime the usual time between two frames,
    /// 0 if unknown.
    VideoTimes(const VideoIndex& aIndex, double aTick, double aFrameTime);

    FrameTimes times() const;
    /// The first frame where the stamps start anew, as where two recordings were joined, and the times were
    /// counted on; 0 if there is none.
    int restart() const { return theRestart; }

private:
    bool takeStamps(const VideoIndex& aIndex, qint64 VideoPacket::*aStamp, int aMostMissing);
    void countOn();
    std::vector<int> knownFrames() const;
    double usualDistance(const std::vector<int>& aFrames) const;
    void fillGaps();
    void fillBetween(int aFrom, int aTo);

    double theTick;
    double theFrameTime;
    double theLastDuration = 0.0;
    std::vector<double> theSeconds; // of the frames; not a number where nothing is known
    int theRestart = 0;
};

#endif
