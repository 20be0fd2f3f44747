#include "LmCvRegion.h"
#include "PointMath.h"
#include "SegmentGeometry.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

// Whether a point lies in the square whose edges, of the given side, begin around aCentre at -aSide / 2, both
// cut to whole pixels.
bool squareHolds(const QPoint& aCentre, double aSide, const QPoint& aPoint)
{
    const auto holds = [aSide](int aMiddle, int aValue) {
        const qint64 distance = aValue - qint64(aMiddle + aSide * -0.5);
        return distance >= 0 && distance < qint64(aSide);
    };
    return holds(aCentre.x(), aPoint.x()) && holds(aCentre.y(), aPoint.y());
}

// Whether all points of a curve with these controls, rounded, lie strictly on one side of the endless line
// through two points. The curve stays between its controls and rounding moves it by half a pixel; the margin
// of a whole pixel covers that and the rounding here. Never true for two equal points.
bool isBeside(const std::array<QPoint, 4>& aControls, const QPoint& aStart, const QPoint& aEnd)
{
    const double a = double(aEnd.y()) - aStart.y();
    const double b = double(aStart.x()) - aEnd.x();
    const double margin = std::abs(a) + std::abs(b);
    int before = 0;
    int behind = 0;
    for (const QPoint& control : aControls) {
        const double side = a * (double(control.x()) - aStart.x()) + b * (double(control.y()) - aStart.y());
        before += side < -margin;
        behind += side > margin;
    }
    return before == 4 || behind == 4;
}

} // namespace

int LmCvRegion::pointOnNode(const QPoint& aPos) const
{
    constexpr float kReach = kDefNodeRadius * kDefNodeRadius;
    for (int i = 0; i < nodeCount(); ++i) {
        const QPoint anchor = pointAt(i, LmBezierPoint::kAnchor);
        const double dx = double(aPos.x()) - anchor.x();
        const double dy = double(aPos.y()) - anchor.y();
        if (dx * dx + dy * dy <= double(kReach))
            return i;
    }
    return -1;
}

int LmCvRegion::pointOnControl(const QPoint& aPos, LmNodeState::Dragged& aDragged) const
{
    if (!theShowNodes || !theHandlesEnabled)
        return -1;
    for (int i = 0; i < nodeCount(); ++i) {
        if (!theNodeStates.at(i).selected)
            continue;
        for (const auto dragged : {LmNodeState::kDraggedLeftCtrl, LmNodeState::kDraggedRightCtrl}) {
            if (squareHolds(pointAt(i, LmBezierPoint::Point(dragged)), theNodeDiameter, aPos)) {
                aDragged = dragged;
                return i;
            }
        }
    }
    aDragged = LmNodeState::kDraggedNone;
    return -1;
}

bool LmCvRegion::linesIntersect(QPoint a, QPoint b, QPoint c, QPoint d, QPoint& aOut)
{
    return SegmentGeometry::intersect(a, b, c, d, aOut);
}

std::array<QPoint, 4> LmCvRegion::segmentControls(int aSegment) const
{
    const bool closing = aSegment == kClosingSegment;
    const int from = closing ? nodeCount() - 1 : aSegment;
    const int to = closing ? 0 : aSegment + 1;
    return {pointAt(from, LmBezierPoint::kAnchor), pointAt(from, LmBezierPoint::kRightCtrl),
            pointAt(to, LmBezierPoint::kLeftCtrl), pointAt(to, LmBezierPoint::kAnchor)};
}

bool LmCvRegion::isSegmentIntersects(int aSegment, const QPoint& aStart, const QPoint& aEnd) const
{
    const bool exists =
        aSegment == kClosingSegment ? nodeCount() > 0 : aSegment >= 0 && aSegment < nodeCount() - 1;
    if (!exists)
        return false;
    const std::array<QPoint, 4> controls = segmentControls(aSegment);
    if (isBeside(controls, aStart, aEnd))
        return false;
    const Q3PointArray line = Q3PointArray(QPolygon(controls.begin(), controls.end())).cubicBezier();
    QPoint crossing;
    for (qsizetype i = 1; i < line.size(); ++i)
        if (linesIntersect(aStart, aEnd, line.at(i - 1), line.at(i), crossing))
            return true;
    return false;
}

bool LmCvRegion::isSegmentContainsRect(int aSegment, QRect& aRect) const
{
    return isSegmentIntersects(aSegment, aRect.topLeft(), aRect.bottomRight()) ||
           isSegmentIntersects(aSegment, aRect.topRight(), aRect.bottomLeft());
}

bool LmCvRegion::isPointOnObject(const QPoint& aPoint, int& aSegment, int aTolerance)
{
    const HitSquare hit(aPoint, aTolerance);
    QRect square(hit.theTopLeft, hit.theBottomRight);
    const QPoint rayStart(0, 0);
    int crossings = 0;
    for (int i = 0; i < nodeCount() - 1; ++i) {
        if (isSegmentContainsRect(i, square)) {
            aSegment = i;
            return true;
        }
        if (theClosed && isSegmentIntersects(i, rayStart, aPoint))
            ++crossings;
    }
    if (!theClosed)
        return false;
    if (isSegmentContainsRect(kClosingSegment, square))
        return true;
    if (isSegmentIntersects(kClosingSegment, rayStart, aPoint))
        ++crossings;
    return crossings % 2 == 1;
}

bool LmCvRegion::isRectContainsObject(const QRect& aRect)
{
    // Every second point is enough of a sample: anchors and controls take turns.
    for (qsizetype i = 1; i < thePoints.size(); i += 2)
        if (!aRect.contains(thePoints.at(i)))
            return false;
    return true;
}

void LmCvRegion::selectNodes(const QPoint& aCorner, const QSize& aSize)
{
    if (!theShowNodes)
        return;
    const QPoint opposite = PointMath::sum(aCorner, QPoint(aSize.width(), aSize.height()));
    const auto [left, right] = std::minmax({aCorner.x(), opposite.x()});
    const auto [top, bottom] = std::minmax({aCorner.y(), opposite.y()});
    const QRect band(QPoint(left, top), QPoint(right, bottom));
    invalidate();
    for (int i = 0; i < nodeCount(); ++i)
        theNodeStates[i].selected = band.contains(pointAt(i, LmBezierPoint::kAnchor));
    changeChunks();
}
