#ifndef VIDEOPROGRESS_H
#define VIDEOPROGRESS_H

#include "MediaSource.h"

/// Tells the progress of a long walk through a video in whole percents, each once.
class VideoProgress
{
public:
    explicit VideoProgress(const MediaSource::Progress& aProgress) : theProgress(aProgress) {}

    /// False if the user stops it.
    bool report(double aPortion)
    {
        const int percent = int(aPortion * kAll);
        if (!theProgress || percent <= theLast)
            return true;
        theLast = percent;
        return theProgress(percent, kAll);
    }

private:
    static constexpr int kAll = 100;

    const MediaSource::Progress& theProgress;
    int theLast = -1;
};

#endif
