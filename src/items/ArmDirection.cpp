#include "ArmDirection.h"

#include <cmath>

double ArmDirection::of(const QPoint& aFrom, const QPoint& aTo, double aPerRadian, double aHalfTurn)
{
    const double dx = double(aTo.x()) - aFrom.x();
    const double dy = double(aTo.y()) - aFrom.y();
    if (dx == 0.0 && dy == 0.0)
        return 0.0;
    const double slope = std::asin(dy / std::sqrt(dx * dx + dy * dy)) * -aPerRadian;
    if (dx < 0.0)
        return aHalfTurn - slope;
    return slope < 0.0 ? slope + 2.0 * aHalfTurn : slope;
}
