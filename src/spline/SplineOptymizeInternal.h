#ifndef SPLINEOPTYMIZEINTERNAL_H
#define SPLINEOPTYMIZEINTERNAL_H

#include "Point2D.h"

/// Fits a short chain of cubic Bezier segments to a polyline: chord-length parameters, least-squares handle
/// lengths, Newton's improvement of the parameters and a recursive split at the worst sample. After P. J.
/// Schneider, "An Algorithm for Automatically Fitting Digitized Curves", Graphics Gems, 1990, with free end
/// tangents and a measure that also sees bulges between samples.
///
/// A cubic is four consecutive points. Parameters are numbers in [0, 1], one per sample. End tangents are
/// unit vectors that point into the curve from both ends; one within 1e-6 of (0, 0) leaves its end free. The
/// class has no state.
class SplineOptymizeInternal
{
public:
    static const Point2D theUnconstrainedTangent; // (0, 0)

    // The three entries. aError is a squared tolerance. aOut has room for four points per segment of
    // aMaxSegments, the segments are written one behind the other, and each begins where the last one ends.
    // Result: the number of segments; 0 for fewer than two distinct samples; -1 for wrong arguments or when
    // aMaxSegments don't suffice, and then aOut holds nothing of use. The first sample must not be NaN; later
    // NaN samples and repeated ones are dropped.
    int bezierFitCubicConst(Point2D* aOut, const Point2D* aSamples, int aLength, const Point2D& aLeftTangent,
                            double aError, unsigned aMaxSegments);
    int bezierFitCubicR(Point2D* aOut, const Point2D* aSamples, int aLength, double aError,
                        unsigned aMaxSegments);
    int bezierFitCubic(Point2D* aOut, const Point2D* aSamples, int aLength, double aError);

    /// The fit of clean samples. aSplitPoints, if given, gets the sample index of each split, counted in the
    /// array of the call that made it.
    int bezierFitCubicFull(Point2D* aOut, int* aSplitPoints, const Point2D* aSamples, int aLength,
                           const Point2D& aLeftTangent, const Point2D& aRightTangent, double aError,
                           unsigned aMaxSegments);

    double lensq(const Point2D& aPoint);
    /// The number of points written. A NaN in the first point never returns.
    int copyWithoutNansOrAdjacentDuplicates(const Point2D* aSource, unsigned aLength, Point2D* aTarget);
    /// The point of a curve of degree 3 at most.
    Point2D bezierPnt(unsigned aDegree, const Point2D* aControls, double aT);
    void chordLengthParameterize(const Point2D* aSamples, double* aParams, unsigned aLength);
    double computeHook(const Point2D& a, const Point2D& b, double aU, const Point2D* aCubic,
                       double aTolerance);
    /// The largest distance of a sample in tolerances, or, where a bulge between two samples is the worse
    /// one, its ratio with a negative sign. The split point is written only where something is worse than 0;
    /// it is the greatest unsigned number where a ratio is no number.
    double computeMaxErrorRatio(const Point2D* aSamples, const double* aParams, unsigned aLength,
                                const Point2D* aCubic, double aTolerance, unsigned* aSplitPoint);
    void estimateBi(Point2D* aCubic, unsigned aIndex, const Point2D* aSamples, const double* aParams,
                    unsigned aLength);
    void estimateLengths(Point2D* aCubic, const Point2D* aSamples, const double* aParams, unsigned aLength,
                         const Point2D& aLeftTangent, const Point2D& aRightTangent);
    double newtonRaphsonRootFind(const Point2D* aCubic, const Point2D& aSample, double aU);
    void reparameterize(const Point2D* aSamples, unsigned aLength, double* aParams, const Point2D* aCubic);
    // Tangents towards the neighbour, or towards the first sample beyond the tolerance. The one in the centre
    // points backwards.
    Point2D estimateLeftTangent(const Point2D* aSamples, unsigned aLength);
    Point2D estimateLeftTangent(const Point2D* aSamples, unsigned aLength, double aSquaredTolerance);
    Point2D estimateRightTangent(const Point2D* aSamples, unsigned aLength);
    Point2D estimateRightTangent(const Point2D* aSamples, unsigned aLength, double aSquaredTolerance);
    Point2D estimateCenterTangent(const Point2D* aSamples, unsigned aCentre, unsigned aLength);
    void generateBezier(Point2D* aCubic, const Point2D* aSamples, const double* aParams, unsigned aLength,
                        const Point2D& aLeftTangent, const Point2D& aRightTangent, double aSquaredTolerance);
};

#endif
