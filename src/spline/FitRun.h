#ifndef FITRUN_H
#define FITRUN_H

#include "SplineOptymizeInternal.h"

#include <vector>

/// One fit of clean samples with all its splits. The right halves of split pieces wait in a list: a stroke
/// may split at nearly every sample, and calls nested that deep would not fit on the stack. All pieces share
/// one parameter array.
class FitRun
{
public:
    /// A stretch of the samples that is to become segments.
    struct Piece
    {
        const Point2D* theSamples; // the caller's
        unsigned theLength;
        Point2D theLeft;     // tangent at its start
        Point2D theRight;    // tangent at its end
        unsigned theBudget;  // segments that it may take, never 0
        int theFirstSegment; // where its segments and its splits are written
    };

    /// aSplitPoints may be null.
    FitRun(Point2D* aOut, int* aSplitPoints, double aError);

    /// The number of segments of the whole, or -1 when the budget is spent.
    int run(const Piece& aWhole);

private:
    enum Outcome { kNothing, kFitted, kMustSplit, kFailed };

    /// A piece whose left half is being fitted.
    struct Pending
    {
        Piece thePiece;
        unsigned theSplit;
        Point2D theTangent; // at the start of its right half
    };

    Outcome fit(Piece& aPiece);
    double fitCubic(const Piece& aPiece);
    double passOnce(const Piece& aPiece);
    bool freeHookedEnd(Piece& aPiece);
    Outcome placeSplit(const Piece& aPiece, bool aIsHook);
    Piece takeLeftHalf(const Piece& aPiece);
    Piece takeRightHalf();
    void writePair(const Piece& aPiece);
    Point2D* cubicOf(const Piece& aPiece) { return theOut + 4 * std::ptrdiff_t(aPiece.theFirstSegment); }

    SplineOptymizeInternal theMaths;
    Point2D* theOut;     // the caller's
    int* theSplitPoints; // the caller's, or null
    double theError;
    double theTolerance;
    int theCount = 0; // segments so far
    std::vector<double> theParams;
    std::vector<Pending> thePending;

    // Of the piece in hand, once it must be split.
    unsigned theSplit = 0;
    Point2D theRightOfLeftHalf;
    Point2D theLeftOfRightHalf;
};

#endif
