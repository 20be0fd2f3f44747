#include "CanvasPlane.h"

#include <QPolygon>

#include <algorithm>
#include <cmath>

namespace {

int clampedCoordinate(int aValue)
{
    return std::clamp(aValue, -CanvasPlane::kFarthest, CanvasPlane::kFarthest);
}

} // namespace

int CanvasPlane::coordinate(double aValue)
{
    if (std::isnan(aValue))
        return 0;
    return qRound(std::clamp(aValue, -double(kFarthest), double(kFarthest)));
}

QPoint CanvasPlane::point(double aX, double aY)
{
    return QPoint(coordinate(aX), coordinate(aY));
}

QRect CanvasPlane::clamped(const QRect& aRect)
{
    if (aRect.right() < aRect.left() || aRect.bottom() < aRect.top())
        return QRect();
    return QRect(QPoint(clampedCoordinate(aRect.left()), clampedCoordinate(aRect.top())),
                 QPoint(clampedCoordinate(aRect.right()), clampedCoordinate(aRect.bottom())));
}

QRect CanvasPlane::alignedOut(const QRectF& aRect)
{
    const QPoint first = point(std::floor(aRect.left()), std::floor(aRect.top()));
    const QPoint behind = point(std::ceil(aRect.right()), std::ceil(aRect.bottom()));
    return clamped(QRect(first, behind - QPoint(1, 1)));
}

QRect CanvasPlane::boundsOf(const QPolygon& aPolygon)
{
    if (aPolygon.isEmpty())
        return QRect();
    QPoint least = aPolygon.first();
    QPoint most = least;
    for (const QPoint& corner : aPolygon) {
        least = QPoint(std::min(least.x(), corner.x()), std::min(least.y(), corner.y()));
        most = QPoint(std::max(most.x(), corner.x()), std::max(most.y(), corner.y()));
    }
    return clamped(QRect(least, most));
}

QRectF CanvasPlane::exact(const QRect& aRect)
{
    return QRectF(QPointF(aRect.left(), aRect.top()), QPointF(aRect.right() + 1.0, aRect.bottom() + 1.0));
}
