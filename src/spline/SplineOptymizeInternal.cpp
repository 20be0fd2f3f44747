#include "SplineOptymizeInternal.h"

#include "BezierTerms.h"

const Point2D SplineOptymizeInternal::theUnconstrainedTangent;

namespace {

bool hasNan(const Point2D& aPoint)
{
    return std::isnan(aPoint.x) || std::isnan(aPoint.y);
}

// The search for the first valid sample never leaves the first one: a stroke that begins nowhere has no fit
// to return. The volatile read keeps the compiler from taking the wait for unreachable.
void waitForValidStart(const Point2D* aStart)
{
    const volatile double* x = &aStart->x;
    const volatile double* y = &aStart->y;
    while (std::isnan(*x) || std::isnan(*y)) {
    }
}

/// The control points of a cubic's first and second derivative.
struct Derivatives
{
    explicit Derivatives(const Point2D* aCubic)
    {
        for (int i = 0; i < 3; ++i)
            theFirst[i] = 3.0 * (aCubic[i + 1] - aCubic[i]);
        for (int i = 0; i < 2; ++i)
            theSecond[i] = 2.0 * (theFirst[i + 1] - theFirst[i]);
    }

    Point2D theFirst[3];
    Point2D theSecond[2];
};

/// Newton's step, kept within [0, 1].
double newtonStep(const Derivatives& aDerivatives, const Point2D& aDiff, double aU)
{
    const Point2D slope = BezierTerms::quadraticPoint(aDerivatives.theFirst, aU);
    const Point2D bend = BezierTerms::linePoint(aDerivatives.theSecond, aU);
    const double numerator = dot(aDiff, slope);
    const double denominator = dot(slope, slope) + dot(aDiff, bend);
    double improved = aU;
    if (denominator > 0.0)
        improved = aU - numerator / denominator;
    // Near a farthest point Newton's step would lead there, so it is a short one the other way. The two
    // lengths differ, which keeps parameters from going back and forth.
    else if (numerator > 0.0)
        improved = aU * 0.98 - 0.01;
    else if (numerator < 0.0)
        improved = aU * 0.98 + 0.031;

    if (!std::isfinite(improved))
        return aU;
    if (improved < 0.0)
        return 0.0;
    return improved > 1.0 ? 1.0 : improved;
}

double improvedParam(const Point2D* aCubic, const Derivatives& aDerivatives, const Point2D& aSample,
                     double aU)
{
    const Point2D diff = BezierTerms::cubicPoint(aCubic, aU) - aSample;
    const double diffSq = BezierTerms::lensq(diff);
    double improved = newtonStep(aDerivatives, diff, aU);
    // Back to where it came from in eighths, until the sample is no farther away than before. Written as a
    // negation, because a distance without a number ends the search as well.
    for (double proportion = 0.125;; proportion += 0.125) {
        if (!(BezierTerms::lensq(BezierTerms::cubicPoint(aCubic, improved) - aSample) > diffSq))
            return improved;
        if (proportion > 1.0)
            return aU;
        improved = improved * (1.0 - proportion) + proportion * aU;
    }
}

} // namespace

double SplineOptymizeInternal::lensq(const Point2D& aPoint)
{
    return BezierTerms::lensq(aPoint);
}

int SplineOptymizeInternal::copyWithoutNansOrAdjacentDuplicates(const Point2D* aSource, unsigned aLength,
                                                                Point2D* aTarget)
{
    if (aLength == 0)
        return 0;
    waitForValidStart(aSource);
    aTarget[0] = aSource[0];
    unsigned written = 1;
    for (unsigned i = 1; i < aLength; ++i) {
        const Point2D sample = aSource[i];
        if (sample != aTarget[written - 1] && !hasNan(sample))
            aTarget[written++] = sample;
    }
    return int(written);
}

Point2D SplineOptymizeInternal::bezierPnt(unsigned aDegree, const Point2D* aControls, double aT)
{
    static const int pascal[4][4] = {{1, 0, 0, 0}, {1, 1, 0, 0}, {1, 2, 1, 0}, {1, 3, 3, 1}};
    const double s = 1.0 - aT;
    double sPower[4] = {1.0, s, s * s, s * s * s};
    double tPower[4] = {1.0, aT, aT * aT, aT * aT * aT};
    Point2D point = sPower[aDegree] * aControls[0];
    for (unsigned i = 1; i <= aDegree; ++i)
        point = point + double(pascal[aDegree][i]) * sPower[aDegree - i] * tPower[i] * aControls[i];
    return point;
}

void SplineOptymizeInternal::chordLengthParameterize(const Point2D* aSamples, double* aParams,
                                                     unsigned aLength)
{
    if (aLength < 2)
        return;
    aParams[0] = 0.0;
    for (unsigned i = 1; i < aLength; ++i)
        aParams[i] = aParams[i - 1] + lenPower(aSamples[i] - aSamples[i - 1]);
    const double total = aParams[aLength - 1];
    if (total == 0.0)
        return;
    // Lengths beyond the range of numbers still leave the samples their order.
    const bool finite = std::isfinite(total);
    for (unsigned i = 1; i < aLength; ++i)
        aParams[i] = finite ? aParams[i] / total : double(i) / double(aLength - 1);
    aParams[aLength - 1] = 1.0;
}

double SplineOptymizeInternal::newtonRaphsonRootFind(const Point2D* aCubic, const Point2D& aSample, double aU)
{
    return improvedParam(aCubic, Derivatives(aCubic), aSample, aU);
}

void SplineOptymizeInternal::reparameterize(const Point2D* aSamples, unsigned aLength, double* aParams,
                                            const Point2D* aCubic)
{
    const Derivatives derivatives(aCubic);
    for (unsigned i = 1; i + 1 < aLength; ++i)
        aParams[i] = improvedParam(aCubic, derivatives, aSamples[i], aParams[i]);
}
