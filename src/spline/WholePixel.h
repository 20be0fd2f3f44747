#ifndef WHOLEPIXEL_H
#define WHOLEPIXEL_H

#include <QPoint>

#include <limits>

/// Computed coordinates become whole pixels by dropping the fraction, toward zero on either side of it.
namespace WholePixel {

/// Numbers beyond the int range stay at its end; what is no number becomes 0.
inline int cut(double aValue)
{
    constexpr int kLeast = std::numeric_limits<int>::min();
    constexpr int kMost = std::numeric_limits<int>::max();
    if (aValue >= double(kMost))
        return kMost;
    if (aValue <= double(kLeast))
        return kLeast;
    return aValue == aValue ? int(aValue) : 0;
}

inline QPoint cut(double aX, double aY)
{
    return QPoint(cut(aX), cut(aY));
}

} // namespace WholePixel

#endif
