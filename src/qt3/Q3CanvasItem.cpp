#include "Q3CanvasItem.h"

#include "CanvasPlane.h"
#include "Q3Canvas.h"

#include <cmath>

Q3CanvasItem::Q3CanvasItem(Q3Canvas* aCanvas) : theCanvas(aCanvas)
{
    if (theCanvas)
        theCanvas->addItem(this);
}

Q3CanvasItem::~Q3CanvasItem()
{
    if (theCanvas)
        theCanvas->removeItem(this);
}

void Q3CanvasItem::setZ(double aZ)
{
    // Without an order among all numbers there is no drawing order.
    if (std::isnan(aZ) || aZ == theZ)
        return;
    theZ = aZ;
    if (theCanvas)
        theCanvas->zChanged(this);
}

void Q3CanvasItem::move(double aX, double aY)
{
    if (aX == theX && aY == theY)
        return;
    moveBy(aX - theX, aY - theY);
    if (aX == theX && aY == theY)
        return;
    // The sum was rounded; the position is the one that was asked for.
    theX = aX;
    theY = aY;
    areaChanged();
}

void Q3CanvasItem::moveBy(double aDx, double aDy)
{
    if (aDx == 0.0 && aDy == 0.0)
        return;
    markChanged();
    theX += aDx;
    theY += aDy;
    areaChanged();
}

void Q3CanvasItem::setAnimated(bool aOn)
{
    theAnimated = aOn;
}

void Q3CanvasItem::setVelocity(double aDx, double aDy)
{
    theXVelocity = aDx;
    theYVelocity = aDy;
}

void Q3CanvasItem::advance(int aStage)
{
    if (aStage == 1 && theAnimated)
        moveBy(theXVelocity, theYVelocity);
}

void Q3CanvasItem::setCanvas(Q3Canvas* aCanvas)
{
    if (aCanvas == theCanvas)
        return;
    if (theCanvas)
        theCanvas->removeItem(this);
    theCanvas = aCanvas;
    if (!theCanvas)
        return;
    theCanvas->addItem(this);
    areaChanged();
}

void Q3CanvasItem::setVisible(bool aOn)
{
    setFlag(theVisible, aOn);
}

void Q3CanvasItem::setSelected(bool aOn)
{
    setFlag(theSelected, aOn);
}

void Q3CanvasItem::setEnabled(bool aOn)
{
    setFlag(theEnabled, aOn);
}

void Q3CanvasItem::setActive(bool aOn)
{
    setFlag(theActiveFlag, aOn);
}

void Q3CanvasItem::setFlag(bool& aFlag, bool aOn)
{
    if (aFlag == aOn)
        return;
    markChanged();
    aFlag = aOn;
    areaChanged();
}

QRect Q3CanvasItem::boundingRectAdvanced() const
{
    const QRect now = boundingRect();
    if (now.isNull() || !theAnimated)
        return now;
    const QPoint step =
        CanvasPlane::point(theX + theXVelocity, theY + theYVelocity) - CanvasPlane::point(theX, theY);
    return CanvasPlane::clamped(CanvasPlane::clamped(now).translated(step));
}
