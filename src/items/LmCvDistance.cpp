#include "LmCvDistance.h"

#include "ArrowHead.h"
#include "CanvasEvent.h"
#include "PointMath.h"
#include "SegmentGeometry.h"
#include "TurnedLabel.h"

#include <QMouseEvent>
#include <QPainter>

#include <cmath>

namespace {

constexpr double kShortLine = 30.0; // pixels; a shorter line has its arrow heads outside its ends
constexpr int kLabelRaise = 2;      // pixels between line and label after a change of the label's text

} // namespace

LmCvDistance::LmCvDistance(LmCvManipulator* aTool, Q3Canvas* aCanvas, const QString& aLabel,
                           Q3CanvasView* aView)
    : LmCvLineObject(aTool, aCanvas, aLabel, aView)
{
    LmCvDistance::updateLabel();
}

LmCvDistance::~LmCvDistance() = default;

void LmCvDistance::setPoints(const QPoint& aStart, const QPoint& aEnd)
{
    invalidate();
    theStart = aStart;
    theEnd = aEnd;
    const double dx = double(aEnd.x()) - aStart.x();
    const double dy = double(aEnd.y()) - aStart.y();
    theLength = std::sqrt(dx * dx + dy * dy);
    if (theLength == 0.0) {
        theWing1 = theWing2 = QPoint(0, 0);
        update();
        return;
    }

    const double k = theArrowLength / theLength;
    const double ux = dx * k;
    const double uy = dy * k;
    const ArrowHead inward(ux, uy);
    const ArrowHead head = hasOutwardHeads() ? inward.turnedRound() : inward;
    theWing1 = head.theWing1;
    theWing2 = head.theWing2;
    theNormal = PointMath::cut(2 * uy, -2 * ux);
    theBack = PointMath::cut(-ux, -uy);
    // The label comes to lie on the line, two pixels lower than updateLabel puts it: a moved label jumps onto
    // the line and lifts off again with the next text.
    TurnedLabel::place(theLabelRect, PointMath::middle(theStart, theEnd), 0);
    update();
}

void LmCvDistance::updateLabel()
{
    invalidate();
    theLabelRect = TurnedLabel::boxOf(labelText(), theFont);
    TurnedLabel::place(theLabelRect, PointMath::middle(theStart, theEnd), kLabelRaise);
    update();
}

void LmCvDistance::adjustScale(const QMatrix& aMatrix)
{
    invalidate();
    theArrowLength = takeScale(aMatrix).theArrowLength;
    update();
    setPoints(theStart, theEnd);
    updateLabel();
}

bool LmCvDistance::hasOutwardHeads() const
{
    return theLength < kShortLine;
}

void LmCvDistance::drawShape(QPainter& aPainter)
{
    aPainter.save();
    aPainter.setPen(linePen());
    const QLine line(theStart, theEnd);
    aPainter.drawLines(&line, 1);
    drawHeads(aPainter);
    label().draw(aPainter, PointMath::middle(theStart, theEnd), TurnedLabel::angleOf(theStart, theEnd));
    aPainter.restore();
}

void LmCvDistance::drawHeads(QPainter& aPainter) const
{
    ArrowHead head;
    head.theWing1 = theWing1;
    head.theWing2 = theWing2;
    aPainter.setPen(theThinPen);
    aPainter.setBrush(headBrush());
    head.draw(aPainter, theStart);
    head.turnedRound().draw(aPainter, theEnd);
}

// How far the area's ends are moved inward along the line; a negative way reaches beyond the ends.
QPoint LmCvDistance::endShift() const
{
    const double dx = double(theEnd.x()) - theStart.x();
    const double dy = double(theEnd.y()) - theStart.y();
    const int labelWidth = theLabelRect.right() - theLabelRect.left() + 1;
    const double k = labelWidth / theLength;
    const double labelX = std::floor(dx * k + 0.5);
    const double labelY = std::floor(dy * k + 0.5);

    QPoint shift;
    double reachX = dx;
    double reachY = dy;
    if (hasOutwardHeads()) {
        shift = theBack;
        reachX -= qRound(2.0 * theBack.x());
        reachY -= qRound(2.0 * theBack.y());
    }
    if (reachX * reachX + reachY * reachY < labelX * labelX + labelY * labelY)
        shift = QPoint(qRound((dx - labelX) * 0.5), qRound((dy - labelY) * 0.5));
    return shift;
}

Q3PointArray LmCvDistance::areaPoints() const
{
    using PointMath::difference;
    using PointMath::sum;
    Q3PointArray corners;
    if (theLength == 0.0) {
        // Without a direction the label may lie to any side, and its last place counts.
        const int reach = int(2 * theArrowLength);
        const QPoint centre = PointMath::nearby(theStart);
        const QRect around(centre - QPoint(reach, reach), centre + QPoint(reach, reach));
        return QPolygon(around | theLabelRect, true);
    }
    const QPoint shift = endShift();
    const QPoint start = sum(theStart, shift);
    const QPoint end = difference(theEnd, shift);
    corners << sum(start, theNormal) << difference(start, theNormal) << difference(end, theNormal)
            << sum(end, theNormal);
    return corners;
}

bool LmCvDistance::isPointOnObject(const QPoint& aPoint, int& aNode, int aTol)
{
    aNode = 0;
    return HitSquare(aPoint, aTol).anyDiagonalMeets(theStart, theEnd);
}

bool LmCvDistance::isPointOnArrow(const QPoint& aPoint, QPoint& aEnd, int aTol) const
{
    const HitSquare square(aPoint, aTol);
    if (square.firstDiagonalMeets(theStart, PointMath::sum(theStart, theWing1)) ||
        square.secondDiagonalMeets(theStart, PointMath::sum(theStart, theWing2))) {
        aEnd = theStart;
        return true;
    }
    if (square.anyDiagonalMeets(theEnd, PointMath::difference(theEnd, theWing2))) {
        aEnd = theEnd;
        return true;
    }
    return false;
}

bool LmCvDistance::isRectContainsObject(const QRect& aRect)
{
    return aRect.contains(theStart) && aRect.contains(theEnd);
}

void LmCvDistance::mousePressEvent(QMouseEvent* aEvent, QPoint& aPoint)
{
    theMoving = false;
    theDragging = false;
    if (!isVisible()) {
        aEvent->ignore();
        return;
    }
    int node = 0;
    if (isPointOnArrow(aPoint, theDragPoint, theSelSize)) {
        theDragPoint = theDragPoint == theStart ? theEnd : theStart;
        theDragging = true;
        startEdit(aEvent);
    } else if (isPointOnObject(aPoint, node, theSelSize)) {
        theDragPoint = aPoint;
        theMoving = true;
        startEdit(aEvent);
    } else {
        aEvent->ignore();
    }
}

void LmCvDistance::mouseMoveEvent(QMouseEvent* aEvent, QPoint& aPoint)
{
    if (theMoving) {
        moveObjectBy(PointMath::difference(aPoint, theDragPoint));
        theDragPoint = aPoint;
        aEvent->accept();
        return;
    }
    if (!theDragging)
        return;
    if (CanvasEvent::holds(*aEvent, Qt::ShiftModifier))
        aPoint = SegmentGeometry::snapped(theDragPoint, aPoint);
    if (theDragPoint == theStart)
        setPoints(theDragPoint, aPoint);
    else
        setPoints(aPoint, theDragPoint);
    theNodesChanged = true;
    aEvent->accept();
}

void LmCvDistance::mouseReleaseEvent(QMouseEvent* aEvent, QPoint&)
{
    if (theMoving || theDragging)
        finishEdit(aEvent);
}

void LmCvDistance::moveObjectBy(const QPoint& aDelta)
{
    setPoints(PointMath::sum(theStart, aDelta), PointMath::sum(theEnd, aDelta));
    theNodesChanged = true;
}
