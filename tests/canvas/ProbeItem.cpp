#include "ProbeItem.h"

#include <QMouseEvent>
#include <QPainter>

void ProbeItem::place(const QPoint& aCorner)
{
    invalidate();
    theCorner = aCorner;
    update();
}

Q3PointArray ProbeItem::areaPoints() const
{
    return Q3PointArray(QPolygon(square(), true));
}

QLinkedList<int> ProbeItem::getSelectedNodes()
{
    QLinkedList<int> nodes;
    if (theNodeSelected)
        nodes.append(0);
    return nodes;
}

void ProbeItem::adjustScale(const QMatrix& aMatrix)
{
    theScale = aMatrix.m11();
    scaleTo(aMatrix);
}

bool ProbeItem::isPointOnObject(const QPoint& aPoint, int& aNode, int aTol)
{
    ++theHitQuestions;
    aNode = 0;
    const int reach = aTol / 2;
    return square().adjusted(-reach, -reach, reach, reach).contains(aPoint);
}

bool ProbeItem::isRectContainsObject(const QRect& aRect)
{
    return aRect.contains(square());
}

void ProbeItem::mousePressEvent(QMouseEvent* aEvent, QPoint& aPoint)
{
    ++thePresses;
    thePressPoint = aPoint;
    theMoving = false;
    int node = 0;
    if (!isVisible() || theRefusesPress || !isPointOnObject(aPoint, node, 0)) {
        aEvent->ignore();
        return;
    }
    if (aEvent->modifiers().testFlag(Qt::ShiftModifier) &&
        QRect(theCorner, QSize(kNodeSide, kNodeSide)).contains(aPoint))
        theNodeSelected = !theNodeSelected;
    theMoving = true;
    theNodesChanged = false;
    theLastPoint = aPoint;
    aEvent->accept();
}

void ProbeItem::mouseReleaseEvent(QMouseEvent* aEvent, QPoint&)
{
    ++theReleases;
    theMoving = false;
    theNodesChanged = false;
    aEvent->accept();
}

void ProbeItem::mouseMoveEvent(QMouseEvent* aEvent, QPoint& aPoint)
{
    ++theMoves;
    if (!theMoving)
        return;
    moveObjectBy(aPoint - theLastPoint);
    theLastPoint = aPoint;
    aEvent->accept();
}

void ProbeItem::moveObjectBy(const QPoint& aDelta)
{
    place(theCorner + aDelta);
    theNodesChanged = true;
}

void ProbeItem::selectNodes(const QPoint& aCorner, const QSize& aSize)
{
    theNodeRect = QRect(aCorner, aCorner + QPoint(aSize.width(), aSize.height()));
}

void ProbeItem::drawShape(QPainter& aPainter)
{
    aPainter.fillRect(square(), currentPen().color());
}
