#include "LmCVSequence.h"

#include <algorithm>
#include <climits>
#include <cmath>

namespace {

// Sums of products of coordinates: exact for any number of points at any place.
__extension__ typedef __int128 Wide;

/// aNumerator / aDenominator, halves away from zero, held within the numbers of a coordinate's difference.
qint64 roundedQuotient(Wide aNumerator, Wide aDenominator)
{
    if (aDenominator < 0) {
        aNumerator = -aNumerator;
        aDenominator = -aDenominator;
    }
    const Wide magnitude = aNumerator < 0 ? -aNumerator : aNumerator;
    const Wide rounded = std::min<Wide>((2 * magnitude + aDenominator) / (2 * aDenominator), UINT_MAX);
    return aNumerator < 0 ? -qint64(rounded) : qint64(rounded);
}

QPoint moved(QPoint aPoint, qint64 aDx, qint64 aDy)
{
    const auto held = [](qint64 aValue) { return int(std::clamp<qint64>(aValue, INT_MIN, INT_MAX)); };
    return QPoint(held(aPoint.x() + aDx), held(aPoint.y() + aDy));
}

/// By corners alone, as the width of a rectangle can be too great for an int.
bool isBetween(QPoint aPoint, const QRect& aRect)
{
    return aPoint.x() >= aRect.left() && aPoint.x() <= aRect.right() && aPoint.y() >= aRect.top() &&
           aPoint.y() <= aRect.bottom();
}

/// Sums over the outline, taken relative to its first point, so that they don't depend on where it lies.
struct OutlineSums
{
    explicit OutlineSums(const QList<QPoint>& aPoints)
    {
        const QPoint first = aPoints.isEmpty() ? QPoint() : aPoints.first();
        for (qsizetype i = 0; i < aPoints.size(); ++i) {
            const QPoint here = aPoints[i];
            const QPoint next = aPoints[i + 1 < aPoints.size() ? i + 1 : 0];
            const Wide x = Wide(here.x()) - first.x(), y = Wide(here.y()) - first.y();
            const Wide nextX = Wide(next.x()) - first.x(), nextY = Wide(next.y()) - first.y();
            const Wide cross = x * nextY - nextX * y;
            theTwiceArea += cross;
            theMomentX += (x + nextX) * cross;
            theMomentY += (y + nextY) * cross;
            theSumX += x;
            theSumY += y;
        }
    }

    Wide theTwiceArea = 0; // signed
    Wide theMomentX = 0;   // six times the first moment of the area
    Wide theMomentY = 0;
    Wide theSumX = 0;
    Wide theSumY = 0;
};

} // namespace

LmCVSequence::LmCVSequence(int aCount, int) : theCount(std::max(aCount, 0)), thePoints(theCount) {}

void LmCVSequence::putPoint(int aIndex, int aX, int aY)
{
    if (aIndex >= 0 && aIndex < thePoints.size())
        thePoints[aIndex] = QPoint(aX, aY);
}

void LmCVSequence::getPoint(int aIndex, int& aX, int& aY) const
{
    if (aIndex < 0 || aIndex >= thePoints.size())
        return;
    aX = thePoints[aIndex].x();
    aY = thePoints[aIndex].y();
}

double LmCVSequence::calculateArea() const
{
    return std::abs(double(OutlineSums(thePoints).theTwiceArea)) / 2.0;
}

double LmCVSequence::calculatePerimeter(bool aClosed) const
{
    const auto distance = [](QPoint aFrom, QPoint aTo) {
        return std::hypot(double(aTo.x()) - aFrom.x(), double(aTo.y()) - aFrom.y());
    };
    double length = 0.0;
    for (qsizetype i = 1; i < thePoints.size(); ++i)
        length += distance(thePoints[i - 1], thePoints[i]);
    if (aClosed && thePoints.size() > 1)
        length += distance(thePoints.last(), thePoints.first());
    return length;
}

QPoint LmCVSequence::calculateCoG() const
{
    if (thePoints.isEmpty())
        return QPoint();
    const OutlineSums sums(thePoints);
    if (sums.theTwiceArea != 0) {
        const QPoint centre =
            moved(thePoints.first(), roundedQuotient(sums.theMomentX, 3 * sums.theTwiceArea),
                  roundedQuotient(sums.theMomentY, 3 * sums.theTwiceArea));
        // The parts of a crossed outline can nearly cancel out, which would throw the quotient far away.
        if (isBetween(centre, calculateBoundingRect()))
            return centre;
    }
    const Wide count = thePoints.size();
    return moved(thePoints.first(), roundedQuotient(sums.theSumX, count),
                 roundedQuotient(sums.theSumY, count));
}

QRect LmCVSequence::calculateBoundingRect() const
{
    if (thePoints.isEmpty())
        return QRect();
    QPoint least = thePoints.first();
    QPoint greatest = least;
    for (const QPoint& point : thePoints) {
        least = QPoint(std::min(least.x(), point.x()), std::min(least.y(), point.y()));
        greatest = QPoint(std::max(greatest.x(), point.x()), std::max(greatest.y(), point.y()));
    }
    return QRect(least, greatest);
}
