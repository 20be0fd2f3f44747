#ifndef VIDEOPROGRESS_H
#define VIDEOPROGRESS_H

#include "MediaSource.h"

#include <QElapsedTimer>

/// Tells the progress of a long walk through a video at its start and again and again in short intervals, in
/// steps so fine that it can be seen, and stopped, in the longest file on the slowest disk.
class VideoProgress
{
public:
    explicit VideoProgress(const MediaSource::Progress& aProgress) : theProgress(aProgress) {}

    /// aPortion is from 0 to 1. False if the user stops it.
    bool report(double aPortion)
    {
        constexpr qint64 kInterval = 50; // milliseconds
        constexpr int kSteps = 1'000'000;
        if (!theProgress || (theLast.isValid() && theLast.elapsed() < kInterval))
            return true;
        const bool goesOn = theProgress(int(aPortion * kSteps), kSteps);
        theLast.start();
        return goesOn;
    }

private:
    const MediaSource::Progress& theProgress;
    QElapsedTimer theLast; // since it was told
};

#endif
