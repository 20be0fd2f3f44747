#ifndef PLAINFIT_H
#define PLAINFIT_H

#include "Point2D.h"

#include <vector>

/// The fit written down a second time, slowly and with calls that nest, to hold the quick one against bit by
/// bit. Shares nothing with it but the points.
class PlainFit
{
public:
    /// Where a call split its samples.
    struct Joint
    {
        unsigned theCallStart; // its first sample
        unsigned theCallLength;
        unsigned theSplit; // counted from theCallStart
    };

    /// The samples of one segment and the parameters with which it was accepted, none for two samples.
    struct Leaf
    {
        unsigned theStart;
        unsigned theLength;
        std::vector<double> theParams;
    };

    std::vector<Point2D> theSegments; // four points each
    std::vector<Joint> theJoints;     // between segments
    std::vector<Leaf> theLeaves;      // one per segment
    int theDeepest = 0;               // nested calls
    int theRestarts = 0;              // without a tangent that made a hook

    /// As bezierFitCubicFull for samples without repeated ones, with the outputs in the members.
    int full(const std::vector<Point2D>& aSamples, Point2D aLeft, Point2D aRight, double aError,
             unsigned aMaxSegments);

    // Alone for the tests of single steps.
    static Point2D bezier(unsigned aDegree, const Point2D* aControls, double aT);
    static double newton(const Point2D* aCubic, Point2D aSample, double aU);

private:
    struct Job
    {
        std::vector<Point2D> d;
        Point2D left;
        Point2D right;
        unsigned budget;
        unsigned start; // of its samples among all
        int depth;
    };

    int fit(const Job& aJob);
    int split(const Job& aJob, double aRatio, unsigned aSplit);
    int accept(const Job& aJob, const Point2D* aCubic, const std::vector<double>& aParams);

    double theError = 0.0;
};

#endif
