// End tangents and the lengths of the handles along them.

#include "BezierTerms.h"
#include "SplineOptymizeInternal.h"

namespace {

// The shortest handle that a solution may have. An absolute length on purpose: a short stroke gets no shorter
// handles than a long one.
constexpr double kShortestHandle = 1e-6;

/// The least-squares system for the lengths of the two handles.
struct LengthSystem
{
    double c00 = 0.0;
    double c01 = 0.0;
    double c11 = 0.0;
    double x0 = 0.0;
    double x1 = 0.0;
};

LengthSystem sumLengthSystem(const Point2D* aSamples, const double* aParams, unsigned aLength,
                             const Point2D& aLeftTangent, const Point2D& aRightTangent)
{
    const Point2D start = aSamples[0];
    const Point2D end = aSamples[aLength - 1];
    LengthSystem sums;
    for (unsigned i = 0; i < aLength; ++i) {
        const BezierTerms::Weights weight(aParams[i]);
        const double* b = weight.b;
        const Point2D a1 = b[1] * aLeftTangent;
        const Point2D a2 = b[2] * aRightTangent;
        sums.c00 += dot(a1, a1);
        sums.c01 += dot(a1, a2);
        sums.c11 += dot(a2, a2);
        const Point2D shortfall = aSamples[i] - (b[0] + b[1]) * start - (b[2] + b[3]) * end;
        sums.x0 += dot(a1, shortfall);
        sums.x1 += dot(a2, shortfall);
    }
    return sums;
}

/// Solves for both lengths; false where the samples say nothing about them. A singular system is solved with
/// equal lengths.
bool solve(const LengthSystem& aSums, double& aLeft, double& aRight)
{
    const double det = aSums.c00 * aSums.c11 - aSums.c01 * aSums.c01;
    if (det != 0.0) {
        aLeft = (aSums.x0 * aSums.c11 - aSums.x1 * aSums.c01) / det;
        aRight = (aSums.c00 * aSums.x1 - aSums.x0 * aSums.c01) / det;
    } else if (aSums.c00 + aSums.c01 != 0.0) {
        aLeft = aRight = aSums.x0 / (aSums.c00 + aSums.c01);
    } else if (aSums.c11 + aSums.c01 != 0.0) {
        aLeft = aRight = aSums.x1 / (aSums.c11 + aSums.c01);
    } else {
        return false;
    }
    // Lengths that are no numbers stay: the error of such a cubic is none either, and the fit is accepted.
    return !(aLeft < kShortestHandle || aRight < kShortestHandle);
}

} // namespace

Point2D SplineOptymizeInternal::estimateLeftTangent(const Point2D* aSamples, unsigned aLength)
{
    return aLength < 2 ? theUnconstrainedTangent : unitVector(aSamples[1] - aSamples[0]);
}

Point2D SplineOptymizeInternal::estimateLeftTangent(const Point2D* aSamples, unsigned aLength,
                                                    double aSquaredTolerance)
{
    Point2D t;
    for (unsigned i = 1; i < aLength; ++i) {
        t = aSamples[i] - aSamples[0];
        if (dot(t, t) > aSquaredTolerance)
            return unitVector(t);
    }
    return dot(t, t) == 0.0 ? estimateLeftTangent(aSamples, aLength) : unitVector(t);
}

Point2D SplineOptymizeInternal::estimateRightTangent(const Point2D* aSamples, unsigned aLength)
{
    return aLength < 2 ? theUnconstrainedTangent : unitVector(aSamples[aLength - 2] - aSamples[aLength - 1]);
}

Point2D SplineOptymizeInternal::estimateRightTangent(const Point2D* aSamples, unsigned aLength,
                                                     double aSquaredTolerance)
{
    Point2D t;
    for (unsigned i = aLength; i-- > 1;) {
        t = aSamples[i - 1] - aSamples[aLength - 1];
        if (dot(t, t) > aSquaredTolerance)
            return unitVector(t);
    }
    return dot(t, t) == 0.0 ? estimateRightTangent(aSamples, aLength) : unitVector(t);
}

Point2D SplineOptymizeInternal::estimateCenterTangent(const Point2D* aSamples, unsigned aCentre,
                                                      unsigned /*aLength*/)
{
    const Point2D previous = aSamples[aCentre - 1];
    const Point2D next = aSamples[aCentre + 1];
    // A stroke that turns back on itself passes its tip square.
    if (next == previous)
        return unitVector(rot90(aSamples[aCentre] - previous));
    return unitVector(previous - next);
}

void SplineOptymizeInternal::estimateBi(Point2D* aCubic, unsigned aIndex, const Point2D* aSamples,
                                        const double* aParams, unsigned aLength)
{
    if (aIndex != 1 && aIndex != 2)
        return;
    const unsigned other = 3 - aIndex;
    Point2D numerator;
    double denominator = 0.0;
    for (unsigned i = 0; i < aLength; ++i) {
        const BezierTerms::Weights weight(aParams[i]);
        const double* b = weight.b;
        numerator = numerator + b[aIndex] * (b[0] * aCubic[0] + b[other] * aCubic[other] + b[3] * aCubic[3] -
                                             aSamples[i]);
        denominator -= b[aIndex] * b[aIndex];
    }
    if (denominator != 0.0)
        aCubic[aIndex] = numerator / denominator;
    else
        aCubic[aIndex] = (double(other) * aCubic[0] + double(aIndex) * aCubic[3]) / 3.0;
}

void SplineOptymizeInternal::estimateLengths(Point2D* aCubic, const Point2D* aSamples, const double* aParams,
                                             unsigned aLength, const Point2D& aLeftTangent,
                                             const Point2D& aRightTangent)
{
    aCubic[0] = aSamples[0];
    aCubic[3] = aSamples[aLength - 1];
    double left = 0.0;
    double right = 0.0;
    if (!solve(sumLengthSystem(aSamples, aParams, aLength, aLeftTangent, aRightTangent), left, right))
        left = right = lenPower(aSamples[aLength - 1] - aSamples[0]) / 3.0;
    aCubic[1] = left * aLeftTangent + aCubic[0];
    aCubic[2] = right * aRightTangent + aCubic[3];
}

void SplineOptymizeInternal::generateBezier(Point2D* aCubic, const Point2D* aSamples, const double* aParams,
                                            unsigned aLength, const Point2D& aLeftTangent,
                                            const Point2D& aRightTangent, double aSquaredTolerance)
{
    const bool leftFree = BezierTerms::isFree(aLeftTangent);
    const bool rightFree = BezierTerms::isFree(aRightTangent);
    Point2D left = leftFree ? estimateLeftTangent(aSamples, aLength, aSquaredTolerance) : aLeftTangent;
    const Point2D right =
        rightFree ? estimateRightTangent(aSamples, aLength, aSquaredTolerance) : aRightTangent;
    estimateLengths(aCubic, aSamples, aParams, aLength, left, right);
    // Only a free left end is turned towards a better control point. The right end keeps its first estimate.
    if (!leftFree)
        return;
    estimateBi(aCubic, 1, aSamples, aParams, aLength);
    if (aCubic[1] != aCubic[0])
        left = unitVector(aCubic[1] - aCubic[0]);
    estimateLengths(aCubic, aSamples, aParams, aLength, left, right);
}
