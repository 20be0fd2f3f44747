#include "DistanceFixture.h"

void DistanceFixture::setKeyframe(int aIdx, long long aFrame, const QPoint& aPos, const QPoint& aEp)
{
    record(aIdx)->storeValue(kPos, aFrame, aPos);
    record(aIdx)->storeValue(kEp, aFrame, aEp);
}
