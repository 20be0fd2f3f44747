// What of an arrow the mouse hits and drags.
#include "LmCvArrow.h"

#include "PointMath.h"
#include "SegmentGeometry.h"

#include <QMouseEvent>

bool LmCvArrow::linesIntersect(QPoint a, QPoint b, QPoint c, QPoint d, QPoint& aOut)
{
    return SegmentGeometry::intersect(a, b, c, d, aOut);
}

bool LmCvArrow::isPointOnObject(const QPoint& aPoint, int& aNode, int aTol)
{
    aNode = 0;
    if ((theParts & kShaft) && HitSquare(aPoint, aTol).anyDiagonalMeets(theTailPoint, theEndPoint))
        return true;
    return theTextRect.contains(aPoint);
}

bool LmCvArrow::isPointOnArrow(const QPoint& aPoint, QPoint& aOut, int aTol) const
{
    const QPoint corner = PointMath::difference(theEndPoint, theBarb2);
    if (!HitSquare(aPoint, aTol).anyDiagonalMeets(theEndPoint, corner))
        return false;
    aOut = theEndPoint;
    return true;
}

bool LmCvArrow::isRectContainsObject(const QRect& aRect)
{
    const bool hasShaft = theParts & kShaft;
    const bool hasText = theParts & kText;
    if (hasShaft && !(aRect.contains(theTailPoint) && aRect.contains(theEndPoint)))
        return false;
    if (hasText && !aRect.contains(theTextRect))
        return false;
    return hasShaft || hasText;
}

void LmCvArrow::mousePressEvent(QMouseEvent* aEvent, QPoint& aPoint)
{
    theMovingLabel = false;
    theMovingTip = false;
    ++theChangeCount;
    if (!isVisible()) {
        aEvent->ignore();
        return;
    }
    int node = 0;
    if ((theParts & kShaft) && isPointOnArrow(aPoint, theLastPos, theSelSize)) {
        theMovingTip = true;
        startDrag(aEvent);
    } else if (isPointOnObject(aPoint, node, theSelSize)) {
        theLastPos = aPoint;
        theMovingLabel = true;
        startDrag(aEvent);
    } else {
        aEvent->ignore();
    }
}

void LmCvArrow::startDrag(QMouseEvent* aEvent)
{
    theNodesChanged = false;
    theDragFinished = false;
    aEvent->accept();
}

void LmCvArrow::mouseMoveEvent(QMouseEvent* aEvent, QPoint& aPoint)
{
    if (theMovingLabel) {
        moveObjectBy(PointMath::difference(aPoint, theLastPos));
        theLastPos = aPoint;
        aEvent->accept();
    } else if (theMovingTip) {
        setEndPoint(aPoint);
        theNodesChanged = true;
        aEvent->accept();
    }
}

void LmCvArrow::mouseReleaseEvent(QMouseEvent* aEvent, QPoint&)
{
    if (!theMovingLabel && !theMovingTip)
        return;
    theDragFinished = true;
    aEvent->accept();
}

void LmCvArrow::moveObjectBy(const QPoint& aDelta)
{
    invalidate();
    theTextRect.moveTopLeft(PointMath::nearby(PointMath::sum(theTextRect.topLeft(), aDelta)));
    theTailPoint = PointMath::sum(theTailPoint, aDelta);
    update();
    moveBy(aDelta.x(), aDelta.y());
    setEndPoint(PointMath::sum(theEndPoint, aDelta));
    theNodesChanged = true;
}
