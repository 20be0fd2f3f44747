#ifndef POINT2D_H
#define POINT2D_H

/// A point or vector of two doubles, (0, 0) when new.
struct Point2D
{
    Point2D() = default;
    Point2D(double aX, double aY) : x(aX), y(aY) {}

    /// Scales the vector to length 1. One of length 0 or NaN stays as it is.
    void normalize();

    double x = 0.0;
    double y = 0.0;
};

/// Exact comparison; a NaN in either point makes them different.
bool operator==(const Point2D& a, const Point2D& b);
bool operator!=(const Point2D& a, const Point2D& b);
Point2D operator*(double aFactor, const Point2D& aPoint);
Point2D operator/(const Point2D& aPoint, double aDivisor);
Point2D operator+(const Point2D& a, const Point2D& b);
Point2D operator-(const Point2D& a, const Point2D& b);
Point2D operator-(const Point2D& aPoint);

/// The Euclidean length.
double lenPower(const Point2D& aPoint);
/// Whether both coordinates are within aEpsilon of 0.
bool isZero(const Point2D& aPoint, double aEpsilon);
double dot(const Point2D& a, const Point2D& b);
/// (-y, x).
Point2D rot90(const Point2D& aPoint);
Point2D unitVector(const Point2D& aPoint);

#endif
