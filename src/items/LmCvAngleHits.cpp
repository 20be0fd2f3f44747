// The side of LmCvAngle that tells where it is: hit tests and the area for repaints.
#include "LmCvAngle.h"

#include "ArmDirection.h"
#include "CanvasPlane.h"
#include "PointMath.h"
#include "SegmentGeometry.h"

#include <cmath>

namespace {

// The pointer's direction is the true one. The arms' directions use a shorter factor, and the two are to stay
// apart: what is felt follows the pointer, between the arc's ends as they are drawn.
constexpr double kPointerDegreesPerRadian = 57.29577951308232;

// What the walk around the arc passes from one station to the next, in sixteenths of a degree: directions
// over theLower up to theUpper.
struct Side
{
    bool holds(int aDirection) const { return aDirection > theLower && aDirection <= theUpper; }

    int theUpper;
    int theLower;
};

constexpr int kStationCount = 5;
constexpr Side kSides[kStationCount] = {
    {5040, 3600},               // lower side
    {3600, 2160},               // left side
    {2160, 720},                // upper side
    {720, 0},                   // upper half of the right side
    {LmCvAngle::kFullArc, 5040} // lower half of the right side, with the way straight to the right
};

} // namespace

bool LmCvAngle::isPointInSector(const QPoint& aPoint) const
{
    const double dx = double(aPoint.x()) - theVertex.x();
    const double dy = double(aPoint.y()) - theVertex.y();
    const double distance = std::sqrt(dx * dx + dy * dy);
    // The vertex itself has no direction; there the arms are hit.
    if (distance == 0.0 || distance >= kArcRadius)
        return false;
    const double direction = ArmDirection::of(theVertex, aPoint, kPointerDegreesPerRadian, 180.0);
    if (theStartAngle > theEndAngle)
        return theEndAngle < direction && direction < theStartAngle;
    return direction < theStartAngle || direction > theEndAngle;
}

bool LmCvAngle::isPointOnObject(const QPoint& aPoint, int& aNode, int aTol)
{
    aNode = kVertex;
    if (isPointInSector(aPoint))
        return true;
    // The second arm counts only where it crosses the first diagonal: beside a second arm that falls to the
    // right as steeply as that diagonal a press goes to what lies underneath.
    const HitSquare square(aPoint, aTol);
    return square.anyDiagonalMeets(theVertex, theEnd1) || square.firstDiagonalMeets(theVertex, theEnd2);
}

bool LmCvAngle::isPointOnArrow(const QPoint& aPoint, QPoint& aEnd, int aTol) const
{
    // One flank a head is enough to take the end by, and leaves more of the arm to take the whole by.
    const HitSquare square(aPoint, aTol);
    if (square.anyDiagonalMeets(theEnd1, PointMath::difference(theEnd1, theWing1b))) {
        aEnd = theEnd1;
        return true;
    }
    if (square.anyDiagonalMeets(theEnd2, PointMath::difference(theEnd2, theWing2b))) {
        aEnd = theEnd2;
        return true;
    }
    return false;
}

bool LmCvAngle::isPointOnStart(const QPoint& aPoint) const
{
    return theLabelRect.contains(aPoint);
}

QRect LmCvAngle::boundingRect() const
{
    return LmCvLineObject::boundingRect() | CanvasPlane::clamped(theLabelRect);
}

// The lower right corner one pixel outside the arc's square, the others clockwise, the middle of the right
// side; moved outward to the label's edges.
QPolygon LmCvAngle::stations() const
{
    using PointMath::saturated;
    const int top = saturated(qint64(theArcRect.top()) - 1);
    const int bottom = saturated(qint64(theArcRect.bottom()) + 1);
    const int middle = int((qint64(theArcRect.top()) + theArcRect.bottom()) / 2);
    const int left = qMin(saturated(qint64(theArcRect.left()) - 1), theLabelRect.left());
    const int right = qMax(saturated(qint64(theArcRect.right()) + 1), theLabelRect.right());
    return QPolygon({QPoint(right, bottom), QPoint(left, bottom), QPoint(left, top), QPoint(right, top),
                     QPoint(right, middle)});
}

Q3PointArray LmCvAngle::areaPoints() const
{
    const QPolygon corners = stations();
    int first = PointMath::cut(theStartAngle * kArcUnitsPerDegree);
    int second = PointMath::cut(theEndAngle * kArcUnitsPerDegree);
    Q3PointArray area;
    const auto addArm = [&area](const QPoint& aEnd, const QPoint& aNormal) {
        area << PointMath::sum(aEnd, aNormal) << aEnd << PointMath::difference(aEnd, aNormal);
    };
    for (int i = 0; i < kStationCount; ++i) {
        // The last side runs down from a full turn: there the direction 0 is its begin.
        if (i == kStationCount - 1) {
            first = first == 0 ? kFullArc : first;
            second = second == 0 ? kFullArc : second;
        }
        const Side& side = kSides[i];
        area << corners.at(i);
        if (first < second && side.holds(second))
            addArm(theEnd2, theNormal2);
        if (side.holds(first))
            addArm(theEnd1, theNormal1);
        if (first >= second && side.holds(second))
            addArm(theEnd2, theNormal2);
    }
    return area;
}
