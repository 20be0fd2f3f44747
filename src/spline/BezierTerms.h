#ifndef BEZIERTERMS_H
#define BEZIERTERMS_H

#include "Point2D.h"

/// The sums behind a cubic, written out in one place. Their order of rounding is part of every fit: no term
/// may be regrouped.
namespace BezierTerms {

/// Whether a tangent, both coordinates within 1e-6 of 0, leaves its end free.
inline bool isFree(const Point2D& aTangent)
{
    return isZero(aTangent, 1e-6);
}

inline double lensq(const Point2D& aPoint)
{
    return dot(aPoint, aPoint);
}

/// The point of a cubic: each term is its binomial, the power of 1 - t, the power of t and the control point,
/// multiplied in this order.
inline Point2D cubicPoint(const Point2D* aControls, double aT)
{
    const double s = 1.0 - aT;
    const double s2 = s * s;
    const double s3 = s2 * s;
    const double t2 = aT * aT;
    const double t3 = t2 * aT;
    return s3 * aControls[0] + 3.0 * s2 * aT * aControls[1] + 3.0 * s * t2 * aControls[2] + t3 * aControls[3];
}

inline Point2D quadraticPoint(const Point2D* aControls, double aT)
{
    const double s = 1.0 - aT;
    return s * s * aControls[0] + 2.0 * s * aT * aControls[1] + aT * aT * aControls[2];
}

inline Point2D linePoint(const Point2D* aControls, double aT)
{
    return (1.0 - aT) * aControls[0] + aT * aControls[1];
}

/// The weights of the four control points at a parameter, powers multiplied out from the left.
struct Weights
{
    explicit Weights(double aU)
    {
        const double s = 1.0 - aU;
        b[0] = s * s * s;
        b[1] = 3.0 * aU * s * s;
        b[2] = 3.0 * aU * aU * s;
        b[3] = aU * aU * aU;
    }

    double b[4];
};

} // namespace BezierTerms

#endif
