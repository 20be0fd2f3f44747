#ifndef OUTLINENODES_H
#define OUTLINENODES_H

#include "LmCvRegion.h"

/// What fitting and recognition share of reading and writing an outline's nodes.
namespace OutlineNodes {

/// One point of a node; (0, 0) for a node that isn't there, as getNode has it.
QPoint point(const LmCvRegion& aRegion, int aNode, LmBezierPoint::Point aPoint);
inline QPoint anchor(const LmCvRegion& aRegion, int aNode)
{
    return point(aRegion, aNode, LmBezierPoint::kAnchor);
}

/// |dx| + |dy|, at most the greatest int.
int manhattanLength(const QPoint& aFrom, const QPoint& aTo);

/// Puts nodes with these points, three each, and with fresh states in place of all.
void replace(LmCvRegion& aRegion, const Q3PointArray& aPoints);

} // namespace OutlineNodes

#endif
