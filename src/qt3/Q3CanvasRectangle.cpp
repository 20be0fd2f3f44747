#include "Q3CanvasRectangle.h"

#include "CanvasPlane.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

Q3CanvasRectangle::Q3CanvasRectangle(Q3Canvas* aCanvas) : Q3CanvasRectangle(0, 0, 0, 0, aCanvas) {}

Q3CanvasRectangle::Q3CanvasRectangle(const QRect& aRect, Q3Canvas* aCanvas)
    : Q3CanvasRectangle(aRect.x(), aRect.y(), aRect.width(), aRect.height(), aCanvas)
{
}

Q3CanvasRectangle::Q3CanvasRectangle(int aX, int aY, int aWidth, int aHeight, Q3Canvas* aCanvas)
    : Q3CanvasPolygonalItem(aCanvas), theSize(aWidth, aHeight)
{
    move(aX, aY);
}

Q3CanvasRectangle::~Q3CanvasRectangle() = default;

void Q3CanvasRectangle::setSize(int aWidth, int aHeight)
{
    if (theSize == QSize(aWidth, aHeight))
        return;
    invalidate();
    theSize = QSize(aWidth, aHeight);
    update();
}

QRect Q3CanvasRectangle::rect() const
{
    return QRect(CanvasPlane::point(x(), y()), theSize);
}

Q3PointArray Q3CanvasRectangle::areaPoints() const
{
    if (theSize.isEmpty())
        return {};
    const QPointF corner(CanvasPlane::point(x(), y()));
    const double reach = pen().style() == Qt::NoPen ? 0.0 : std::ceil(pen().widthF() / 2.0);
    const QPoint first = CanvasPlane::point(corner.x() - reach, corner.y() - reach);
    const QPoint last =
        CanvasPlane::point(corner.x() + width() - 1.0 + reach, corner.y() + height() - 1.0 + reach);
    return QPolygon{first, QPoint(last.x(), first.y()), last, QPoint(first.x(), last.y())};
}

void Q3CanvasRectangle::drawShape(QPainter& aPainter)
{
    if (theSize.isEmpty())
        return;
    // A pen runs along the pixels of the border, a bare brush fills them.
    const bool bare = pen().style() == Qt::NoPen;
    const QPoint corner = CanvasPlane::point(x(), y());
    aPainter.drawRect(corner.x(), corner.y(), bare ? width() : width() - 1, bare ? height() : height() - 1);
}
