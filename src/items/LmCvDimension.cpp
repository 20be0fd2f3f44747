#include "LmCvDimension.h"

#include "CanvasEvent.h"
#include "PointMath.h"
#include "SegmentGeometry.h"
#include "TurnedLabel.h"

#include <QMouseEvent>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kHandleGap = 4.0; // canvas pixels at every zoom, whatever the handles' radius
constexpr int kLabelRaise = 2;     // pixels between line and label after a change of the label's text

} // namespace

LmCvDimension::LmCvDimension(LmCvManipulator* aTool, Q3Canvas* aCanvas, const QString& aLabel,
                             Q3CanvasView* aView)
    : LmCvLineObject(aTool, aCanvas, aLabel, aView)
{
}

LmCvDimension::~LmCvDimension() = default;

LmCvDimension::Segment::Segment(const QPoint& aStart, const QPoint& aEnd)
    : theStart(aStart), theEnd(aEnd), theDx(double(aEnd.x()) - aStart.x()),
      theDy(double(aEnd.y()) - aStart.y()), theLength(std::sqrt(theDx * theDx + theDy * theDy))
{
}

LmCvDimension::Segment LmCvDimension::segment(int aIndex) const
{
    return {thePoints.value(2 * aIndex), thePoints.value(2 * aIndex + 1)};
}

// The text of the value tells which segment it belongs to: W2: 12.50mm stands along segment 2. Only the text
// counts, so that the average 12.50mm stands along segment 2 as well.
int LmCvDimension::labelSegment() const
{
    bool isNumber = false;
    const int index = theDisplayValue.mid(1, 1).toInt(&isNumber);
    return isNumber && index < segmentCount() ? index : 0;
}

void LmCvDimension::placeLabel(int aRaise)
{
    const Segment along = segment(labelSegment());
    TurnedLabel::place(theLabelRect, PointMath::middle(along.theStart, along.theEnd), aRaise);
}

void LmCvDimension::setPoints(const Q3PointArray& aPoints)
{
    invalidate();
    thePoints = aPoints;
    // The label comes to lie on the line, two pixels lower than updateLabel puts it: a moved label jumps onto
    // the line and lifts off again with the next text.
    placeLabel(0);
    // A segment without length has no direction: its handles stay on its points.
    theCtrlPoints = thePoints;
    for (int i = 0; i < segmentCount(); ++i) {
        const Segment line = segment(i);
        if (line.theLength == 0.0)
            continue;
        const double k = kHandleGap / line.theLength;
        const QPoint beyond = PointMath::cut(line.theDx * k, line.theDy * k);
        theCtrlPoints[2 * i] = PointMath::difference(line.theStart, beyond);
        theCtrlPoints[2 * i + 1] = PointMath::sum(line.theEnd, beyond);
    }
    changeChunks();
}

void LmCvDimension::moveDimBy(int aSegment, const QPoint& aDelta)
{
    if (aSegment < 0 || aSegment >= segmentCount())
        return;
    Q3PointArray points = thePoints;
    for (const int i : {2 * aSegment, 2 * aSegment + 1})
        points[i] = PointMath::sum(points[i], aDelta);
    setPoints(points);
    theNodesChanged = true;
}

void LmCvDimension::moveObjectBy(const QPoint& aDelta)
{
    Q3PointArray points = thePoints;
    for (QPoint& point : points)
        point = PointMath::sum(point, aDelta);
    setPoints(points);
    theNodesChanged = true;
}

void LmCvDimension::adjustScale(const QMatrix& aMatrix)
{
    invalidate();
    const double zoom = takeScale(aMatrix).theZoom;
    theCtrlRad = kCtrlRad / zoom;
    theCapSize = kCapSize / zoom;
    changeChunks();
    updateLabel();
}

void LmCvDimension::updateLabel()
{
    invalidate();
    theLabelRect = TurnedLabel::boxOf(labelText(), theFont);
    placeLabel(kLabelRaise);
    changeChunks();
}

bool LmCvDimension::isPointOnCtrl(const QPoint& aPoint, int& aIndex, int aTol) const
{
    aIndex = 0;
    for (int i = 0; i < theCtrlPoints.size(); ++i) {
        const double dx = double(theCtrlPoints[i].x()) - aPoint.x();
        const double dy = double(theCtrlPoints[i].y()) - aPoint.y();
        if (dx * dx + dy * dy <= aTol) {
            aIndex = i;
            return true;
        }
    }
    return false;
}

bool LmCvDimension::isPointOnObject(const QPoint& aPoint, int& aSegment, int aTol)
{
    const HitSquare square(aPoint, aTol);
    for (aSegment = 0; aSegment < segmentCount(); ++aSegment)
        if (square.anyDiagonalMeets(thePoints[2 * aSegment], thePoints[2 * aSegment + 1]))
            return true;
    // The index is no segment now, but not negative either: whoever goes on with it is stopped by the bound
    // of moveDimBy.
    return false;
}

// The points' bounding rectangle lies within exactly when all of them do.
bool LmCvDimension::isRectContainsObject(const QRect& aRect)
{
    return !thePoints.isEmpty() && std::all_of(thePoints.cbegin(), thePoints.cend(),
                                               [&](const QPoint& aPoint) { return aRect.contains(aPoint); });
}

void LmCvDimension::mousePressEvent(QMouseEvent* aEvent, QPoint& aPoint)
{
    theSegIdx = -1;
    theDragging = false;
    if (!isVisible()) {
        aEvent->ignore();
        return;
    }
    theCtrlIdx = -1;
    // Handles take the press also while they aren't shown: the ends of any dimension can be dragged at once.
    if (isPointOnCtrl(aPoint, theCtrlIdx, theSelSize)) {
        theDragPoint = thePoints.value(theCtrlIdx % 2 == 1 ? theCtrlIdx - 1 : theCtrlIdx + 1);
        theDragging = true;
        startEdit(aEvent);
    } else if (isPointOnObject(aPoint, theSegIdx, theSelSize)) {
        theDragPoint = aPoint;
        startEdit(aEvent);
    } else {
        aEvent->ignore();
    }
}

void LmCvDimension::mouseMoveEvent(QMouseEvent* aEvent, QPoint& aPoint)
{
    if (theSegIdx >= 0) {
        moveDimBy(theSegIdx, PointMath::difference(aPoint, theDragPoint));
        theNodesChanged = true;
        theDragPoint = aPoint;
        aEvent->accept();
    } else if (theDragging) {
        dragHandle(aEvent, aPoint);
        aEvent->accept();
    }
}

void LmCvDimension::dragHandle(QMouseEvent* aEvent, QPoint& aPoint)
{
    if (CanvasEvent::holds(*aEvent, Qt::ShiftModifier))
        aPoint = SegmentGeometry::snapped(theDragPoint, aPoint);
    // Undo may have taken the segment away since the press.
    if (theCtrlIdx >= thePoints.size())
        return;
    // A segment of length 0 would have no direction for its handles.
    if (aPoint == theDragPoint)
        aPoint = PointMath::sum(aPoint, QPoint(1, 0));
    Q3PointArray points = thePoints;
    points[theCtrlIdx] = aPoint;
    setPoints(points);
    theNodesChanged = true;
}

void LmCvDimension::mouseReleaseEvent(QMouseEvent* aEvent, QPoint&)
{
    if (theSegIdx >= 0 || theDragging)
        finishEdit(aEvent);
}
