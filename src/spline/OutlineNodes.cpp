#include "OutlineNodes.h"

#include "PointMath.h"

#include <cstdlib>

QPoint OutlineNodes::point(const LmCvRegion& aRegion, int aNode, LmBezierPoint::Point aPoint)
{
    if (aNode < 0 || aNode >= aRegion.nodeCount())
        return QPoint(0, 0);
    return aRegion.thePoints.at(LmBezierPoint::kPointCount * aNode + aPoint);
}

int OutlineNodes::manhattanLength(const QPoint& aFrom, const QPoint& aTo)
{
    const qint64 dx = qint64(aTo.x()) - aFrom.x();
    const qint64 dy = qint64(aTo.y()) - aFrom.y();
    return PointMath::saturated(std::abs(dx) + std::abs(dy));
}

void OutlineNodes::replace(LmCvRegion& aRegion, const Q3PointArray& aPoints)
{
    aRegion.replaceNodes(aPoints, Q3ValueVector<LmNodeState>(aPoints.size() / LmBezierPoint::kPointCount));
}
