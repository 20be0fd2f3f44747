#include "LmBezierPoint.h"

#include "PointMath.h"

LmBezierPoint::LmBezierPoint(bool aValid, bool aRelative, Synchro aSynchro)
    : Q3PointArray(kPointCount), theSynchro(aSynchro), theValid(aValid), theRelativeHandles(aRelative)
{
}

LmBezierPoint::LmBezierPoint(const Q3PointArray& aPoints) : Q3PointArray(aPoints), theValid(true) {}

void LmBezierPoint::setRelativeHandles(bool aRelative)
{
    if (aRelative == theRelativeHandles)
        return;
    theRelativeHandles = aRelative;
    if (size() < kPointCount)
        return;
    const QPoint anchor = at(kAnchor);
    for (const Point handle : {kLeftCtrl, kRightCtrl}) {
        QPoint& point = (*this)[handle];
        point = aRelative ? PointMath::difference(point, anchor) : PointMath::sum(point, anchor);
    }
}
