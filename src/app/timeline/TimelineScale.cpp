#include "TimelineScale.h"

#include <algorithm>
#include <cmath>

void TimelineScale::setExtent(int aWidth, int aMargin, int aFrameCount)
{
    if (aFrameCount != theFrameCount)
        theFitting = true;
    theWidth = aWidth;
    theMargin = aMargin;
    theFrameCount = std::max(1, aFrameCount);
    limit();
}

double TimelineScale::fittingScale() const
{
    const double room = std::max(1, theWidth - 2 * theMargin);
    return std::min(kWidestFrame, room / std::max(1, theFrameCount - 1));
}

void TimelineScale::limit()
{
    const double fitting = fittingScale();
    if (theFitting)
        thePixelsPerFrame = fitting;
    thePixelsPerFrame = std::clamp(thePixelsPerFrame, fitting, kWidestFrame);
    theFirst = std::clamp(theFirst, 0.0, std::max(0.0, theFrameCount - 1 - shownFrames()));
}

double TimelineScale::shownFrames() const
{
    return std::max(1, theWidth - 2 * theMargin) / thePixelsPerFrame;
}

void TimelineScale::zoom(double aFactor, double aX)
{
    const double held = theFirst + (aX - theMargin) / thePixelsPerFrame;
    thePixelsPerFrame = std::clamp(thePixelsPerFrame * aFactor, fittingScale(), kWidestFrame);
    theFitting = thePixelsPerFrame <= fittingScale();
    theFirst = held - (aX - theMargin) / thePixelsPerFrame;
    limit();
}

void TimelineScale::scrollTo(double aFirstFrame)
{
    theFirst = aFirstFrame;
    limit();
}

void TimelineScale::reveal(int aFrame)
{
    if (aFrame < theFirst)
        scrollTo(aFrame);
    else if (aFrame > theFirst + shownFrames())
        scrollTo(aFrame - shownFrames());
}

double TimelineScale::xOf(int aFrame) const
{
    return theMargin + (aFrame - theFirst) * thePixelsPerFrame;
}

int TimelineScale::frameAt(double aX) const
{
    const double frame = theFirst + (aX - theMargin) / thePixelsPerFrame;
    return int(std::clamp(std::round(frame), 0.0, double(theFrameCount - 1)));
}

int TimelineScale::tickStep(double aLeastPixels) const
{
    int decade = 1;
    for (;; decade *= 10)
        for (const int factor : {1, 2, 5})
            if (factor * decade * thePixelsPerFrame >= aLeastPixels || decade >= 100'000'000)
                return factor * decade;
}
