#include "Point2D.h"

namespace {

// Stands for "infinitely long". A finite number, so that such a vector still has a direction.
constexpr double kInf = 1e+100;
constexpr double kHalfRoot = 0.7071067811865476; // sqrt(1/2), a coordinate of the unit diagonal

double signOfInfinite(double aCoordinate)
{
    if (aCoordinate == kInf)
        return 1.0;
    return aCoordinate == -kInf ? -1.0 : 0.0;
}

} // namespace

void Point2D::normalize()
{
    const double length = lenPower(*this);
    if (length == 0.0 || std::isnan(length))
        return;
    if (length != kInf) {
        *this = *this / length;
        return;
    }
    const Point2D signs(signOfInfinite(x), signOfInfinite(y));
    const int infinite = int(signs.x != 0.0) + int(signs.y != 0.0);
    switch (infinite) {
    case 0: {
        const Point2D shorter = 0.25 * *this;
        *this = shorter / lenPower(shorter);
        break;
    }
    case 1:
        *this = signs;
        break;
    case 2:
        *this = kHalfRoot * signs;
        break;
    }
}

Point2D unitVector(const Point2D& aPoint)
{
    Point2D unit = aPoint;
    unit.normalize();
    return unit;
}
