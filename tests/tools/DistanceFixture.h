#ifndef DISTANCEFIXTURE_H
#define DISTANCEFIXTURE_H

#include "LmCvDistance.h"
#include "LmCvManipDist.h"
#include "LmParamKeyframeVector.h"
#include "ToolFixture.h"

/// A Distance tool, started and current. Canvas point + (40, 30) is the image point.
class DistanceFixture : public ToolFixture
{
public:
    static constexpr int kType = 1102;
    enum Param { kVis, kCol, kDispv, kPos, kEp };

    DistanceFixture() { start(theTool); }
    // The tool goes before editor and stack; commands that are out of the kernel own their records.
    ~DistanceFixture() { theStack.clear(); }

    // Both end the program with a message where there is none.
    LmCvDistance* item(int aIdx) const;
    LmKernelObjectData* record(int aIdx) const;
    bool hasRecord(int aIdx) const { return theKernel.getObject(kType, aIdx) != nullptr; }
    QPoint pos(int aIdx) const { return stored(kType, aIdx, kPos).toPoint(); }
    QPoint ep(int aIdx) const { return stored(kType, aIdx, kEp).toPoint(); }

    /// Writes a keyframe of the line into a record, image coordinates.
    void setKeyframe(int aIdx, long long aFrame, const QPoint& aPos, const QPoint& aEp);

    LmCvManipDist theTool{nullptr};
};

#endif
