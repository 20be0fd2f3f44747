#ifndef DISTANCEFIXTURE_H
#define DISTANCEFIXTURE_H

#include "LmCvDistance.h"
#include "LmCvManipDist.h"
#include "LmParamKeyframeVector.h"
#include "ObjectFixture.h"

class DistanceFixture : public ObjectFixture<LmCvManipDist, LmCvDistance>
{
public:
    enum Param { kVis, kCol, kDispv, kPos, kEp };

    QPoint pos(int aIdx) const { return storedPoint(aIdx, kPos); }
    QPoint ep(int aIdx) const { return storedPoint(aIdx, kEp); }

    /// Writes a keyframe of the line into a record, image coordinates.
    void setKeyframe(int aIdx, long long aFrame, const QPoint& aPos, const QPoint& aEp);
};

#endif
