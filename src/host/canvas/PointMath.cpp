#include "PointMath.h"

#include <algorithm>
#include <limits>

namespace {

int clamped(qint64 aValue, qint64 aLow, qint64 aHigh)
{
    return int(std::clamp(aValue, aLow, aHigh));
}

} // namespace

int PointMath::saturated(qint64 aValue)
{
    return clamped(aValue, std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
}

QPoint PointMath::sum(const QPoint& aPoint, const QPoint& aVector)
{
    return QPoint(saturated(qint64(aPoint.x()) + aVector.x()), saturated(qint64(aPoint.y()) + aVector.y()));
}

QPoint PointMath::difference(const QPoint& aTo, const QPoint& aFrom)
{
    return QPoint(saturated(qint64(aTo.x()) - aFrom.x()), saturated(qint64(aTo.y()) - aFrom.y()));
}

QPoint PointMath::middle(const QPoint& aStart, const QPoint& aEnd)
{
    return QPoint(qRound((double(aStart.x()) + aEnd.x()) * 0.5),
                  qRound((double(aStart.y()) + aEnd.y()) * 0.5));
}

int PointMath::cut(double aValue)
{
    constexpr int kLeast = std::numeric_limits<int>::min();
    constexpr int kMost = std::numeric_limits<int>::max();
    if (aValue >= double(kMost))
        return kMost;
    if (aValue <= double(kLeast))
        return kLeast;
    return aValue == aValue ? int(aValue) : 0;
}

QPoint PointMath::cut(double aX, double aY)
{
    return QPoint(cut(aX), cut(aY));
}

QPoint PointMath::nearby(const QPoint& aPoint)
{
    constexpr int kReach = 1 << 29;
    return QPoint(clamped(aPoint.x(), -kReach, kReach), clamped(aPoint.y(), -kReach, kReach));
}
