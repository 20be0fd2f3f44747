#include "Q3CanvasLine.h"

#include "CanvasPlane.h"

#include <QPainter>

#include <cmath>

Q3CanvasLine::Q3CanvasLine(Q3Canvas* aCanvas) : Q3CanvasPolygonalItem(aCanvas) {}

Q3CanvasLine::~Q3CanvasLine() = default;

void Q3CanvasLine::setPoints(int aX1, int aY1, int aX2, int aY2)
{
    invalidate();
    theOrigin = CanvasPlane::point(x(), y());
    theLineStart = CanvasPlane::point(aX1, aY1);
    theLineEnd = CanvasPlane::point(aX2, aY2);
    update();
}

QPoint Q3CanvasLine::moved(const QPoint& aPoint) const
{
    return aPoint + CanvasPlane::point(x(), y()) - theOrigin;
}

Q3PointArray Q3CanvasLine::areaPoints() const
{
    const QPointF start = startPoint();
    const QPointF end = endPoint();
    const QPointF way = end - start;
    const double length = std::hypot(way.x(), way.y());
    const double reach = std::ceil(pen().widthF() / 2.0) + 1.0;
    const QPointF along = length > 0.0 ? way * (reach / length) : QPointF(reach, 0.0);
    const QPointF across(-along.y(), along.x());
    Q3PointArray corners;
    for (const QPointF& corner :
         {start - along + across, start - along - across, end + along - across, end + along + across})
        corners << CanvasPlane::point(corner.x(), corner.y());
    return corners;
}

void Q3CanvasLine::drawShape(QPainter& aPainter)
{
    aPainter.drawLine(startPoint(), endPoint());
}
