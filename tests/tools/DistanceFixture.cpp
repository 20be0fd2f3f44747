#include "DistanceFixture.h"

LmCvDistance* DistanceFixture::item(int aIdx) const
{
    LmCvObject* found = theTool.theCvObjects.value(aIdx);
    if (!found)
        qFatal("there is no distance %d on the canvas", aIdx);
    return static_cast<LmCvDistance*>(found);
}

LmKernelObjectData* DistanceFixture::record(int aIdx) const
{
    LmKernelObjectData* found = theKernel.getObject(kType, aIdx);
    if (!found)
        qFatal("there is no record of distance %d", aIdx);
    return found;
}

void DistanceFixture::setKeyframe(int aIdx, long long aFrame, const QPoint& aPos, const QPoint& aEp)
{
    record(aIdx)->storeValue(kPos, aFrame, aPos);
    record(aIdx)->storeValue(kEp, aFrame, aEp);
}
