#include "SegmentGeometry.h"

#include "PointMath.h"

#include <cmath>

namespace {

// Products of three int coordinates need up to 98 bits.
__extension__ typedef __int128 Wide;

// The line a * x + b * y + c = 0 through two points.
struct Line
{
    Line(const QPoint& aFrom, const QPoint& aTo)
        : theA(Wide(aTo.y()) - aFrom.y()), theB(Wide(aFrom.x()) - aTo.x()),
          theC(Wide(aTo.x()) * aFrom.y() - Wide(aFrom.x()) * aTo.y())
    {
    }
    Wide at(const QPoint& aPoint) const { return theA * aPoint.x() + theB * aPoint.y() + theC; }
    bool hasOnOneSide(const QPoint& aFirst, const QPoint& aSecond) const
    {
        const Wide first = at(aFirst);
        const Wide second = at(aSecond);
        return first != 0 && second != 0 && (first < 0) == (second < 0);
    }

    Wide theA;
    Wide theB;
    Wide theC;
};

int roundedQuotient(Wide aNumerator, Wide aDenominator)
{
    const Wide offset = (aDenominator < 0 ? -aDenominator : aDenominator) / 2;
    return int((aNumerator < 0 ? aNumerator - offset : aNumerator + offset) / aDenominator);
}

} // namespace

bool SegmentGeometry::intersect(const QPoint& a, const QPoint& b, const QPoint& c, const QPoint& d,
                                QPoint& aOut)
{
    const Line first(a, b);
    if (first.hasOnOneSide(c, d))
        return false;
    const Line second(c, d);
    if (second.hasOnOneSide(a, b))
        return false;

    const Wide denominator = first.theA * second.theB - second.theA * first.theB;
    if (denominator == 0) {
        aOut = QPoint(int((Wide(b.x()) - a.x()) / 2), int((Wide(b.y()) - a.y()) / 2));
        return true;
    }
    aOut = QPoint(roundedQuotient(first.theB * second.theC - second.theB * first.theC, denominator),
                  roundedQuotient(second.theA * first.theC - first.theA * second.theC, denominator));
    return true;
}

QPoint SegmentGeometry::snapped(const QPoint& aAnchor, const QPoint& aPoint)
{
    constexpr double kDegreesPerRadian = 57.295779513260925;
    constexpr double kAxisHalfWidth = 18.0; // degrees; an even division would be 22.5

    const qint64 dx = qint64(aPoint.x()) - aAnchor.x();
    const qint64 dy = qint64(aPoint.y()) - aAnchor.y();
    const double angle =
        std::asin(double(dy) / std::sqrt(double(dx) * double(dx) + double(dy) * double(dy))) *
        kDegreesPerRadian; // not a number on the anchor

    const auto withX = [&](qint64 aDx) {
        return QPoint(PointMath::saturated(aAnchor.x() + aDx), aPoint.y());
    };
    const auto withY = [&](qint64 aDy) {
        return QPoint(aPoint.x(), PointMath::saturated(aAnchor.y() + aDy));
    };

    if (angle > 90.0 - kAxisHalfWidth || angle < kAxisHalfWidth - 90.0)
        return withX(0);
    if (-kAxisHalfWidth < angle && angle < kAxisHalfWidth)
        return withY(0);
    if (angle >= 45.0)
        return withX(dx > 0 ? dy : -dy);
    if (angle <= -45.0)
        return withX(dx > 0 ? -dy : dy);
    if ((angle > 0.0 && dx > 0) || (angle <= 0.0 && dx <= 0))
        return withY(dx);
    return withY(-dx);
}

HitSquare::HitSquare(const QPoint& aCentre, int aTol)
    : theTopLeft(PointMath::difference(aCentre, QPoint(aTol / 2, aTol / 2))),
      theBottomRight(PointMath::sum(theTopLeft, QPoint(aTol - 1, aTol - 1)))
{
}

bool HitSquare::firstDiagonalMeets(const QPoint& aStart, const QPoint& aEnd) const
{
    QPoint crossing;
    return SegmentGeometry::intersect(aStart, aEnd, theTopLeft, theBottomRight, crossing);
}

bool HitSquare::secondDiagonalMeets(const QPoint& aStart, const QPoint& aEnd) const
{
    QPoint crossing;
    return SegmentGeometry::intersect(aStart, aEnd, QPoint(theTopLeft.x(), theBottomRight.y()),
                                      QPoint(theBottomRight.x(), theTopLeft.y()), crossing);
}

bool HitSquare::anyDiagonalMeets(const QPoint& aStart, const QPoint& aEnd) const
{
    return firstDiagonalMeets(aStart, aEnd) || secondDiagonalMeets(aStart, aEnd);
}
