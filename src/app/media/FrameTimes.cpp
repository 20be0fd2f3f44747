#include "FrameTimes.h"

#include <algorithm>
#include <cmath>
#include <utility>

FrameTimes::FrameTimes(std::vector<double> aSeconds, double aTick, double aLastDuration)
    : theSeconds(std::move(aSeconds)), theLastDuration(aLastDuration), theConstant(areDistancesEqual(aTick))
{
    if (theLastDuration <= 0.0)
        theLastDuration = meanDistance();
}

double FrameTimes::at(int aFrame) const
{
    return isEmpty() ? 0.0 : theSeconds[size_t(std::clamp(aFrame, 0, count() - 1))];
}

int FrameTimes::frameAt(double aSeconds) const
{
    const auto later = std::upper_bound(theSeconds.begin(), theSeconds.end(), aSeconds);
    return std::max(0, int(later - theSeconds.begin()) - 1);
}

double FrameTimes::end() const
{
    return isEmpty() ? 0.0 : theSeconds.back() + theLastDuration;
}

double FrameTimes::meanRate() const
{
    const double distance = meanDistance();
    return distance > 0.0 ? 1.0 / distance : 0.0;
}

double FrameTimes::meanDistance() const
{
    return count() < 2 ? 0.0 : (theSeconds.back() - theSeconds.front()) / (count() - 1);
}

bool FrameTimes::areDistancesEqual(double aTick) const
{
    // Two rounded stamps are at most a tick nearer or farther than they should be. Ticks as long as a frame
    // aren't rounded at all: there a tick more is a missing frame.
    constexpr double kCoarse = 0.25;
    constexpr double kSlack = 1.01;
    constexpr double kExact = 1e-6;
    const double mean = meanDistance();
    const double allowed = aTick <= kCoarse * mean ? std::max(kSlack * aTick, kExact * mean) : kExact * mean;
    for (size_t i = 1; i < theSeconds.size(); ++i)
        if (std::abs(theSeconds[i] - theSeconds[i - 1] - mean) > allowed)
            return false;
    return true;
}
