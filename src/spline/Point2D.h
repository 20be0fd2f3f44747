#ifndef POINT2D_H
#define POINT2D_H

#include <cmath>

/// A point or vector of two doubles, (0, 0) when new.
struct Point2D
{
    constexpr Point2D() = default;
    constexpr Point2D(double aX, double aY) : x(aX), y(aY) {}

    /// Scales the vector to length 1. One of length 0 or NaN stays as it is.
    void normalize();

    double x = 0.0;
    double y = 0.0;
};

// The operators stand in the header because the fit calls them hundreds of times for each sample.

/// Exact comparison; a NaN in either point makes them different.
inline bool operator==(const Point2D& a, const Point2D& b)
{
    return a.x == b.x && a.y == b.y;
}

inline bool operator!=(const Point2D& a, const Point2D& b)
{
    return !(a == b);
}

inline Point2D operator*(double aFactor, const Point2D& aPoint)
{
    return {aFactor * aPoint.x, aFactor * aPoint.y};
}

inline Point2D operator/(const Point2D& aPoint, double aDivisor)
{
    return {aPoint.x / aDivisor, aPoint.y / aDivisor};
}

inline Point2D operator+(const Point2D& a, const Point2D& b)
{
    return {a.x + b.x, a.y + b.y};
}

inline Point2D operator-(const Point2D& a, const Point2D& b)
{
    return {a.x - b.x, a.y - b.y};
}

inline Point2D operator-(const Point2D& aPoint)
{
    return {-aPoint.x, -aPoint.y};
}

/// The Euclidean length.
inline double lenPower(const Point2D& aPoint)
{
    return std::hypot(aPoint.x, aPoint.y);
}

/// Whether both coordinates are within aEpsilon of 0.
inline bool isZero(const Point2D& aPoint, double aEpsilon)
{
    return aEpsilon >= std::fabs(aPoint.x) && aEpsilon >= std::fabs(aPoint.y);
}

inline double dot(const Point2D& a, const Point2D& b)
{
    return a.x * b.x + a.y * b.y;
}

/// (-y, x).
inline Point2D rot90(const Point2D& aPoint)
{
    return {-aPoint.y, aPoint.x};
}

Point2D unitVector(const Point2D& aPoint);

#endif
