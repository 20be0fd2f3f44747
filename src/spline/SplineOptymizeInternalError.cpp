// How far a cubic lies from its samples, and how far it bulges between them.

#include "BezierTerms.h"
#include "SplineOptymizeInternal.h"

double SplineOptymizeInternal::computeHook(const Point2D& a, const Point2D& b, double aU,
                                           const Point2D* aCubic, double aTolerance)
{
    const double distance = lenPower(0.5 * (a + b) - BezierTerms::cubicPoint(aCubic, aU));
    if (aTolerance > distance)
        return 0.0;
    return distance / (aTolerance + lenPower(b - a));
}

double SplineOptymizeInternal::computeMaxErrorRatio(const Point2D* aSamples, const double* aParams,
                                                    unsigned aLength, const Point2D* aCubic,
                                                    double aTolerance, unsigned* aSplitPoint)
{
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
        const double middle = 0.5 * (aParams[i - 1] + aParams[i]);
        const double hook = computeHook(previous, current, middle, aCubic, aTolerance);
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
