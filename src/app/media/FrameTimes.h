#ifndef FRAMETIMES_H
#define FRAMETIMES_H

#include <vector>

/// When the frames of a video are shown: seconds as its container gives them, ascending. The first needn't be
/// 0, and two frames may have the same time. Empty for pictures, whose frames have no time.
class FrameTimes
{
public:
    FrameTimes() = default;
    /// aTick is the resolution of the container's time stamps in seconds, aLastDuration how long the last
    /// frame stays; 0 where that isn't known, and the mean distance then stands for it.
    FrameTimes(std::vector<double> aSeconds, double aTick, double aLastDuration);

    bool isEmpty() const { return theSeconds.empty(); }
    int count() const { return int(theSeconds.size()); }
    /// Of the nearest frame for one that isn't there; 0 if empty.
    double at(int aFrame) const;
    /// The frame that is on the screen at the time: the last that isn't later, the first before all; 0 if
    /// empty.
    int frameAt(double aSeconds) const;
    /// When the last frame ends.
    double end() const;
    /// Frames per second from the first to the last frame; 0 for fewer than two times.
    double meanRate() const;
    /// Whether the distances are equal but for the rounding of the stamps.
    bool isConstant() const { return theConstant; }

private:
    double meanDistance() const;
    bool areDistancesEqual(double aTick) const;

    std::vector<double> theSeconds;
    double theLastDuration = 0.0;
    bool theConstant = true;
};

#endif
