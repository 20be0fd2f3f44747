#include "ZnCvSplineTryShape.h"

#include "OutlineNodes.h"
#include "PointMath.h"
#include "Turn.h"

#include <algorithm>
#include <limits>
#include <memory>

namespace {

constexpr int kFewestNodes = 3; // two nodes enclose nothing

/// Collects the points of an outline of corners: nodes without handles.
class CornerList
{
public:
    void append(const QPoint& aCorner) { thePoints << aCorner << aCorner << aCorner; }
    const Q3PointArray& points() const { return thePoints; }

private:
    Q3PointArray thePoints;
};

using Rows = std::unique_ptr<double[][2]>;

Rows anchorRows(const LmCvRegion& aRegion, int aCount)
{
    Rows rows = std::make_unique<double[][2]>(std::size_t(aCount));
    for (int i = 0; i < aCount; ++i) {
        const QPoint anchor = OutlineNodes::anchor(aRegion, i);
        rows[std::size_t(i)][0] = anchor.x();
        rows[std::size_t(i)][1] = anchor.y();
    }
    return rows;
}

/// Turns the clean shape from its frame around the origin to where the stroke lies.
Q3PointArray turnedBack(const Q3PointArray& aPoints, double aAngle, double aCentreX, double aCentreY)
{
    const Turn back(-aAngle);
    Q3PointArray turned = aPoints;
    for (QPoint& point : turned)
        point =
            PointMath::cut(back.x(point.x(), point.y()) + aCentreX, back.y(point.x(), point.y()) + aCentreY);
    return turned;
}

} // namespace

int ZnCvSplineTryShape::tryAssignShape(LmCvRegion* aRegion)
{
    if (!aRegion || aRegion->nodeCount() < kFewestNodes)
        return kNoShape;
    const int count = recreateSpline(aRegion, aRegion->nodeCount());
    if (!checkIfClose(aRegion, count))
        return kNoShape;

    const Rows rows = anchorRows(*aRegion, count);
    double centreX = 0.0;
    double centreY = 0.0;
    const double angle = findBBoxAngle(rows.get(), unsigned(count), centreX, centreY);
    const int shape = findShape(rows.get(), unsigned(count), angle, aRegion);
    if (shape == kNoShape)
        return kNoShape;
    aRegion->setPoints(QPoint(0, 0), turnedBack(aRegion->thePoints, angle, centreX, centreY),
                       Q3ValueVector<LmNodeState>(aRegion->nodeCount()));
    return shape;
}

int ZnCvSplineTryShape::recreateSpline(LmCvRegion* aRegion, int aNodeCount)
{
    CornerList corners;
    for (int i = 0; i < aNodeCount - 1; ++i) {
        Q3PointArray segment;
        segment << OutlineNodes::anchor(*aRegion, i)
                << OutlineNodes::point(*aRegion, i, LmBezierPoint::kRightCtrl)
                << OutlineNodes::point(*aRegion, i + 1, LmBezierPoint::kLeftCtrl)
                << OutlineNodes::anchor(*aRegion, i + 1);
        const Q3PointArray line = segment.cubicBezier();
        // The last point is the first one of the next segment.
        std::for_each(line.cbegin(), line.cend() - 1, [&](const QPoint& aPoint) { corners.append(aPoint); });
    }
    corners.append(OutlineNodes::anchor(*aRegion, aNodeCount - 1));
    // A closed outline comes back to its start in a straight line, whatever handles its closing segment has.
    if (aRegion->theClosed)
        corners.append(OutlineNodes::anchor(*aRegion, 0));
    OutlineNodes::replace(*aRegion, corners.points());
    return aRegion->nodeCount();
}

int ZnCvSplineTryShape::findShape(double (*aPoints)[2], unsigned aCount, double aAngle, LmCvRegion* aRegion)
{
    const Turn turn(aAngle);
    double minX = std::numeric_limits<double>::max();
    double maxX = std::numeric_limits<double>::lowest();
    double minY = minX;
    double maxY = maxX;
    for (unsigned i = 0; i < aCount; ++i) {
        const double x = turn.x(aPoints[i][0], aPoints[i][1]);
        const double y = turn.y(aPoints[i][0], aPoints[i][1]);
        aPoints[i][0] = x;
        aPoints[i][1] = y;
        minX = std::min(minX, x);
        maxX = std::max(maxX, x);
        minY = std::min(minY, y);
        maxY = std::max(maxY, y);
    }
    const QPoint centre = PointMath::cut((minX + maxX) * 0.5, 0.5 * (maxY + minY));
    // In float precision: rounded a little up or down, a side decides whether an edge lands on the pixel
    // before or behind.
    const double width = double(float(maxX - minX));
    const double height = double(float(maxY - minY));

    // An ellipse passes for a rounded rectangle too and that one for a rectangle, so the roundest comes
    // first.
    if (testIfEllipse(aPoints, aCount, minX, maxX, minY, maxY, 0.25)) {
        getEllipse(centre, width, height, aRegion);
        return kEllipse;
    }
    if (testIfRoundedRectangle(aPoints, aCount, minX, maxX, minY, maxY, 0.2)) {
        getRoundedRectangle(centre, width, height, aRegion);
        return kRoundedRectangle;
    }
    if (testIfRectangle(aPoints, aCount, minX, maxX, minY, maxY, 0.2)) {
        getRectangle(centre, width, height, aRegion);
        return kRectangle;
    }
    return kNoShape;
}
