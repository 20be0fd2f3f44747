#ifndef PATHFIXTURE_H
#define PATHFIXTURE_H

#include "DistanceFixture.h"

using Path = QLinkedList<LmParamKeyframe>;

const QPoint theStartHead(20, 50);
const QPoint theEndHead(148, 50);
const QPoint theLine(84, 50);

inline LmParamKeyframe at(long long aFrame, int aX, int aY)
{
    return LmParamKeyframe(aFrame, QPoint(aX, aY));
}

/// A line from (20, 50) to (148, 50), so that its record is (124, 80) and (64, 0), and a clipboard of one
/// keyframe.
struct PathFixture : DistanceFixture
{
    PathFixture()
    {
        drag(theStartHead, theEndHead);
        LmCvManipulator::theClipboardKeyframes = Path{at(1, 1, 1)};
    }

    /// Keyframes of the middle at 0 and 10, of the vector to the end only if asked for.
    void animate(bool aEnds)
    {
        LmKernelObjectData* data = record(1);
        data->theAnimated = true;
        data->storeValue(kPos, 0, QPoint(100, 100));
        data->storeValue(kPos, 10, QPoint(200, 120));
        if (!aEnds)
            return;
        data->storeValue(kEp, 0, QPoint(10, 5));
        data->storeValue(kEp, 10, QPoint(30, -7));
    }
};

#endif
