// How far a cubic lies from its samples, and how far it bulges between them.

#include "BezierTerms.h"
#include "SplineOptymizeInternal.h"

namespace {

/// A square below which a length is certainly less than aTolerance, however its root is rounded; 0 where
/// squares leave the range of numbers. Nearly all bulges are that small, and a root costs as much as the rest
/// of a sample.
double surelyWithinSq(double aTolerance)
{
    return aTolerance > 1e-140 && aTolerance < 1e140 ? 0.999999 * aTolerance * aTolerance : 0.0;
}

double hookBetween(const Point2D& a, const Point2D& b, const Point2D& aMiddle, double aTolerance,
                   double aSurelyWithinSq)
{
    const Point2D bulge = 0.5 * (a + b) - aMiddle;
    if (BezierTerms::lensq(bulge) < aSurelyWithinSq)
        return 0.0;
    const double distance = lenPower(bulge);
    return aTolerance > distance ? 0.0 : distance / (aTolerance + lenPower(b - a));
}

} // namespace

double SplineOptymizeInternal::computeHook(const Point2D& a, const Point2D& b, double aU,
                                           const Point2D* aCubic, double aTolerance)
{
    return hookBetween(a, b, BezierTerms::cubicPoint(aCubic, aU), aTolerance, surelyWithinSq(aTolerance));
}

double SplineOptymizeInternal::computeMaxErrorRatio(const Point2D* aSamples, const double* aParams,
                                                    unsigned aLength, const Point2D* aCubic,
                                                    double aTolerance, unsigned* aSplitPoint)
{
    const double withinSq = surelyWithinSq(aTolerance);
    Point2D previous = aCubic[0];
    double largestDistSq = 0.0;
    double largestHook = 0.0;
    unsigned hookIndex = 0;
    for (unsigned i = 1; i < aLength; ++i) {
        const Point2D current = BezierTerms::cubicPoint(aCubic, aParams[i]);
        const double distSq = BezierTerms::lensq(current - aSamples[i]);
        if (distSq > largestDistSq) {
            largestDistSq = distSq;
            *aSplitPoint = i;
        }
        const Point2D middle = BezierTerms::cubicPoint(aCubic, 0.5 * (aParams[i - 1] + aParams[i]));
        const double hook = hookBetween(previous, current, middle, aTolerance, withinSq);
        if (hook > largestHook) {
            largestHook = hook;
            hookIndex = i;
        }
        previous = current;
    }
    const double distRatio = std::sqrt(largestDistSq) / aTolerance;
    if (distRatio >= largestHook)
        return distRatio;
    *aSplitPoint = hookIndex - 1;
    return -largestHook;
}
