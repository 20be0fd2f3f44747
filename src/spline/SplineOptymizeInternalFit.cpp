// The entries of the fit.

#include "FitRun.h"
#include "SplineOptymizeInternal.h"

namespace {

constexpr unsigned kTooManySegments = 1U << 25;

int fitCleaned(Point2D* aOut, const Point2D* aSamples, int aLength, const Point2D& aLeftTangent,
               double aError, unsigned aMaxSegments)
{
    if (!aOut || !aSamples || aLength <= 0 || aMaxSegments >= kTooManySegments)
        return -1;
    SplineOptymizeInternal maths;
    std::vector<Point2D> samples{std::size_t(aLength)};
    const int length = maths.copyWithoutNansOrAdjacentDuplicates(aSamples, unsigned(aLength), samples.data());
    if (length < 2)
        return 0;
    return maths.bezierFitCubicFull(aOut, nullptr, samples.data(), length, aLeftTangent,
                                    SplineOptymizeInternal::theUnconstrainedTangent, aError, aMaxSegments);
}

} // namespace

int SplineOptymizeInternal::bezierFitCubicFull(Point2D* aOut, int* aSplitPoints, const Point2D* aSamples,
                                               int aLength, const Point2D& aLeftTangent,
                                               const Point2D& aRightTangent, double aError,
                                               unsigned aMaxSegments)
{
    if (!aOut || !aSamples || aLength < 1 || aMaxSegments == 0 || aError < 0.0)
        return -1;
    FitRun run(aOut, aSplitPoints, aError);
    return run.run({aSamples, unsigned(aLength), aLeftTangent, aRightTangent, aMaxSegments, 0});
}

int SplineOptymizeInternal::bezierFitCubicConst(Point2D* aOut, const Point2D* aSamples, int aLength,
                                                const Point2D& aLeftTangent, double aError,
                                                unsigned aMaxSegments)
{
    return fitCleaned(aOut, aSamples, aLength, aLeftTangent, aError, aMaxSegments);
}

int SplineOptymizeInternal::bezierFitCubicR(Point2D* aOut, const Point2D* aSamples, int aLength,
                                            double aError, unsigned aMaxSegments)
{
    return fitCleaned(aOut, aSamples, aLength, theUnconstrainedTangent, aError, aMaxSegments);
}

int SplineOptymizeInternal::bezierFitCubic(Point2D* aOut, const Point2D* aSamples, int aLength, double aError)
{
    return bezierFitCubicR(aOut, aSamples, aLength, aError, 1);
}
