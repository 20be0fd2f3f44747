#include "LmCvAngle.h"

#include "ArmDirection.h"
#include "ArrowHead.h"
#include "CanvasEvent.h"
#include "PointMath.h"
#include "SegmentGeometry.h"
#include "TurnedLabel.h"

#include <QMouseEvent>
#include <QPainter>

#include <cmath>

namespace {

constexpr int kLabelGap = 4; // pixels between vertex and label

// Not the exact 57.2958: the arc ends up to half a degree beside steep arms (a vertical arm has the direction
// 89.5), and the sector in which a press takes the angle ends with it. The pointer's direction is exact, see
// isPointInSector.
constexpr double kArmDegreesPerRadian = 57.0;

struct Arm
{
    Arm(const QPoint& aVertex, const QPoint& aEnd, double aArrowLength)
        : theDirection(ArmDirection::of(aVertex, aEnd, kArmDegreesPerRadian, 180.0))
    {
        const double dx = double(aEnd.x()) - aVertex.x();
        const double dy = double(aEnd.y()) - aVertex.y();
        theLength = std::sqrt(dx * dx + dy * dy);
        if (theLength == 0.0)
            return;
        const double k = aArrowLength / theLength;
        const double ux = dx * k;
        const double uy = dy * k;
        theHead = ArrowHead(ux, uy);
        theNormal = PointMath::cut(uy, -ux);
    }

    double theDirection;
    double theLength = 0.0;
    ArrowHead theHead;
    QPoint theNormal;
};

} // namespace

LmCvAngle::LmCvAngle(LmCvManipulator* aTool, Q3Canvas* aCanvas, const QString& aLabel, Q3CanvasView* aView)
    : LmCvLineObject(aTool, aCanvas, aLabel, aView)
{
    LmCvAngle::updateLabel();
}

LmCvAngle::~LmCvAngle() = default;

void LmCvAngle::setPoints(const QPoint& aVertex, const QPoint& aEnd1, const QPoint& aEnd2)
{
    const Arm first(aVertex, aEnd1, theArrowLength);
    const Arm second(aVertex, aEnd2, theArrowLength);
    invalidate();
    theVertex = aVertex;
    theEnd1 = aEnd1;
    theEnd2 = aEnd2;
    theLength1 = first.theLength;
    theLength2 = second.theLength;
    theWing1a = first.theHead.theWing1;
    theWing1b = first.theHead.theWing2;
    theWing2a = second.theHead.theWing1;
    theWing2b = second.theHead.theWing2;
    theNormal1 = first.theNormal;
    theNormal2 = second.theNormal;
    const QPoint radius(kArcRadius, kArcRadius);
    theArcRect = QRect(PointMath::difference(theVertex, radius), PointMath::sum(theVertex, radius));
    placeLabel();
    theStartAngle = first.theDirection;
    theEndAngle = second.theDirection;
    update();
}

void LmCvAngle::placeLabel()
{
    const QPoint vertex = PointMath::nearby(theVertex);
    theLabelRect.moveCenter(QPoint(vertex.x(), vertex.y() + kLabelGap + theLabelRect.height() / 2));
}

void LmCvAngle::updateLabel()
{
    invalidate();
    theLabelRect = TurnedLabel::boxOf(labelText(), theFont);
    placeLabel();
    update();
}

void LmCvAngle::adjustScale(const QMatrix& aMatrix)
{
    invalidate();
    theArrowLength = takeScale(aMatrix).theArrowLength;
    update();
    setPoints(theVertex, theEnd1, theEnd2);
    updateLabel();
}

double LmCvAngle::getAngle() const
{
    const double sweep = theEndAngle - theStartAngle;
    return theEndAngle > theStartAngle ? sweep - 360.0 : sweep;
}

void LmCvAngle::drawShape(QPainter& aPainter)
{
    aPainter.save();
    aPainter.setPen(linePen());
    aPainter.drawLine(theVertex, theEnd1);
    aPainter.drawLine(theVertex, theEnd2);
    aPainter.setPen(theThinPen);
    drawArc(aPainter);
    drawHeads(aPainter);
    label().drawUpright(aPainter);
    aPainter.restore();
}

void LmCvAngle::drawArc(QPainter& aPainter) const
{
    const int start = PointMath::cut(theStartAngle * kArcUnitsPerDegree);
    int span = PointMath::cut(kArcUnitsPerDegree * theEndAngle - kArcUnitsPerDegree * theStartAngle);
    if (theEndAngle > theStartAngle)
        span -= kFullArc; // clockwise from the first arm to the second
    aPainter.drawArc(QRectF(theArcRect), start, span);
}

void LmCvAngle::drawHeads(QPainter& aPainter) const
{
    ArrowHead first;
    first.theWing1 = theWing1a;
    first.theWing2 = theWing1b;
    ArrowHead second;
    second.theWing1 = theWing2a;
    second.theWing2 = theWing2b;
    aPainter.setBrush(headBrush());
    first.turnedRound().draw(aPainter, theEnd1);
    second.turnedRound().draw(aPainter, theEnd2);
}

bool LmCvAngle::isRectContainsObject(const QRect& aRect)
{
    return aRect.contains(theVertex) && aRect.contains(theEnd1) && aRect.contains(theEnd2);
}

void LmCvAngle::mousePressEvent(QMouseEvent* aEvent, QPoint& aPoint)
{
    theMoving = false;
    theDragging = false;
    if (!isVisible()) {
        aEvent->ignore();
        return;
    }
    int node = kVertex;
    if (isPointOnArrow(aPoint, theDragPoint, theSelSize)) {
        theDragNode = theDragPoint == theEnd1 ? kEnd1 : kEnd2;
        theDragging = true;
        startEdit(aEvent);
    } else if (isPointOnStart(aPoint)) {
        theDragNode = kVertex;
        theDragging = true;
        startEdit(aEvent);
    } else if (isPointOnObject(aPoint, node, theSelSize)) {
        theDragNode = kVertex;
        theDragPoint = aPoint;
        theMoving = true;
        startEdit(aEvent);
    } else {
        aEvent->ignore();
    }
}

void LmCvAngle::mouseMoveEvent(QMouseEvent* aEvent, QPoint& aPoint)
{
    if (theMoving) {
        moveObjectBy(PointMath::difference(aPoint, theDragPoint));
        theDragPoint = aPoint;
        aEvent->accept();
        return;
    }
    if (!theDragging)
        return;
    // The vertex too is snapped about the vertex: about where it stands by now, step by step.
    if (CanvasEvent::holds(*aEvent, Qt::ShiftModifier))
        aPoint = SegmentGeometry::snapped(theVertex, aPoint);
    if (theDragNode == kEnd1)
        setPoints(theVertex, aPoint, theEnd2);
    else if (theDragNode == kEnd2)
        setPoints(theVertex, theEnd1, aPoint);
    else
        setPoints(aPoint, theEnd1, theEnd2);
    theNodesChanged = true;
    aEvent->accept();
}

void LmCvAngle::mouseReleaseEvent(QMouseEvent* aEvent, QPoint&)
{
    if (theMoving || theDragging)
        finishEdit(aEvent);
}

void LmCvAngle::moveObjectBy(const QPoint& aDelta)
{
    using PointMath::sum;
    setPoints(sum(theVertex, aDelta), sum(theEnd1, aDelta), sum(theEnd2, aDelta));
    theNodesChanged = true;
}
