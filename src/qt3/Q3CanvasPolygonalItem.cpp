#include "Q3CanvasPolygonalItem.h"

#include "CanvasPlane.h"
#include "Q3Canvas.h"

#include <QPainter>

namespace {

constexpr int kFieldSize = 64;

int fieldStart(int aCoordinate)
{
    const int rest = aCoordinate % kFieldSize;
    return aCoordinate - (rest < 0 ? rest + kFieldSize : rest);
}

} // namespace

Q3CanvasPolygonalItem::Q3CanvasPolygonalItem(Q3Canvas* aCanvas)
    : Q3CanvasItem(aCanvas), thePolygonPen(QBrush(Qt::black), 0)
{
}

Q3CanvasPolygonalItem::~Q3CanvasPolygonalItem() = default;

bool Q3CanvasPolygonalItem::collidesWith(const Q3CanvasItem* aOther) const
{
    if (const auto* polygonal = dynamic_cast<const Q3CanvasPolygonalItem*>(aOther))
        return collidesWith(polygonal);
    return aOther && boundingRect().intersects(aOther->boundingRect());
}

bool Q3CanvasPolygonalItem::collidesWith(const Q3CanvasPolygonalItem* aOther) const
{
    if (!aOther || !boundingRect().intersects(aOther->boundingRect()))
        return false;
    return areaPoints().intersects(aOther->areaPoints());
}

void Q3CanvasPolygonalItem::draw(QPainter& aPainter)
{
    aPainter.setPen(thePolygonPen);
    aPainter.setBrush(theBrush);
    drawShape(aPainter);
}

QRect Q3CanvasPolygonalItem::boundingRect() const
{
    return CanvasPlane::boundsOf(areaPoints());
}

Q3PointArray Q3CanvasPolygonalItem::chunks() const
{
    Q3PointArray corners;
    const QRect area = canvas() ? boundingRect() & canvas()->rect() : QRect();
    for (int y = fieldStart(area.top()); y <= area.bottom(); y += kFieldSize)
        for (int x = fieldStart(area.left()); x <= area.right(); x += kFieldSize)
            corners << QPoint(x, y);
    return corners;
}

void Q3CanvasPolygonalItem::addToChunks()
{
    update();
}

void Q3CanvasPolygonalItem::removeFromChunks()
{
    if (canvas())
        canvas()->setArea(this, QRect());
    theValid = false;
}

void Q3CanvasPolygonalItem::changeChunks()
{
    update();
}

void Q3CanvasPolygonalItem::setPen(QPen aPen)
{
    if (aPen == thePolygonPen)
        return;
    invalidate();
    thePolygonPen = std::move(aPen);
    update();
}

void Q3CanvasPolygonalItem::setBrush(QBrush aBrush)
{
    if (aBrush == theBrush)
        return;
    invalidate();
    theBrush = std::move(aBrush);
    update();
}

Q3PointArray Q3CanvasPolygonalItem::areaPointsAdvanced() const
{
    Q3PointArray points = areaPoints();
    if (!isAnimated())
        return points;
    const QPoint step =
        CanvasPlane::point(x() + xVelocity(), y() + yVelocity()) - CanvasPlane::point(x(), y());
    for (QPoint& corner : points)
        corner = CanvasPlane::point(double(corner.x()) + step.x(), double(corner.y()) + step.y());
    return points;
}

void Q3CanvasPolygonalItem::invalidate()
{
    if (!theValid)
        return;
    theValid = false;
    if (canvas())
        canvas()->markSlot(this);
}

void Q3CanvasPolygonalItem::update()
{
    theValid = true;
    if (canvas())
        canvas()->setArea(this, isVisible() ? boundingRect() : QRect());
}

void Q3CanvasPolygonalItem::markChanged()
{
    invalidate();
}

void Q3CanvasPolygonalItem::areaChanged()
{
    update();
}
