#include "FitRun.h"

#include "BezierTerms.h"

using BezierTerms::isFree;

namespace {

// A distance of at most that many tolerances promises that better parameters will do. Beyond, and for any
// bulge between samples, further passes are wasted.
constexpr double kNearlyFitted = 3.0;
constexpr int kFurtherPasses = 4;
// Keeps the tolerance above 0, so that rounding alone never fails a fit.
constexpr double kLeastError = 1e-9;

} // namespace

FitRun::FitRun(Point2D* aOut, int* aSplitPoints, double aError)
    : theOut(aOut), theSplitPoints(aSplitPoints), theError(aError),
      theTolerance(std::sqrt(aError + kLeastError))
{
}

int FitRun::run(const Piece& aWhole)
{
    theParams.resize(aWhole.theLength);
    Piece piece = aWhole;
    for (;;) {
        switch (fit(piece)) {
        case kFailed:
            return -1;
        case kMustSplit:
            piece = takeLeftHalf(piece);
            continue;
        case kFitted:
            ++theCount;
            break;
        case kNothing:
            break;
        }
        if (thePending.empty())
            return theCount;
        piece = takeRightHalf();
    }
}

FitRun::Outcome FitRun::fit(Piece& aPiece)
{
    if (aPiece.theLength == 1)
        return kNothing;
    if (aPiece.theLength == 2) {
        writePair(aPiece);
        return kFitted;
    }
    for (;;) {
        theMaths.chordLengthParameterize(aPiece.theSamples, theParams.data(), aPiece.theLength);
        if (theParams[aPiece.theLength - 1] == 0.0)
            return kNothing;
        const double ratio = fitCubic(aPiece);
        if (std::fabs(ratio) <= 1.0)
            return kFitted;
        const bool isHook = ratio < 0.0;
        if (isHook && freeHookedEnd(aPiece))
            continue;
        return placeSplit(aPiece, isHook);
    }
}

/// The last ratio of as many passes as are worth it. The window is tested once: a pass that leaves it is
/// followed by the remaining ones all the same.
double FitRun::fitCubic(const Piece& aPiece)
{
    double ratio = passOnce(aPiece);
    if (!(ratio >= 0.0 && ratio <= kNearlyFitted))
        return ratio;
    for (int i = 0; i < kFurtherPasses && !(std::fabs(ratio) <= 1.0); ++i)
        ratio = passOnce(aPiece);
    return ratio;
}

double FitRun::passOnce(const Piece& aPiece)
{
    Point2D* cubic = cubicOf(aPiece);
    double* params = theParams.data();
    theMaths.generateBezier(cubic, aPiece.theSamples, params, aPiece.theLength, aPiece.theLeft,
                            aPiece.theRight, theError);
    theMaths.reparameterize(aPiece.theSamples, aPiece.theLength, params, cubic);
    return theMaths.computeMaxErrorRatio(aPiece.theSamples, params, aPiece.theLength, cubic, theTolerance,
                                         &theSplit);
}

/// A hook at an end comes from the tangent given there: without it the piece is fitted anew, at no cost to
/// its budget. An end that is free already moves the split one sample inwards.
bool FitRun::freeHookedEnd(Piece& aPiece)
{
    if (theSplit == 0) {
        if (!isFree(aPiece.theLeft)) {
            aPiece.theLeft = SplineOptymizeInternal::theUnconstrainedTangent;
            return true;
        }
        theSplit = 1;
    }
    if (theSplit == aPiece.theLength - 1) {
        if (!isFree(aPiece.theRight)) {
            aPiece.theRight = SplineOptymizeInternal::theUnconstrainedTangent;
            return true;
        }
        theSplit = aPiece.theLength - 2;
    }
    return false;
}

FitRun::Outcome FitRun::placeSplit(const Piece& aPiece, bool aIsHook)
{
    if (aPiece.theBudget == 1)
        return kFailed;
    if (theSplit == 0 || theSplit >= aPiece.theLength - 1)
        return kFailed; // never for a distance, which is 0 or no number at both ends
    if (aIsHook) {
        theRightOfLeftHalf = theLeftOfRightHalf = SplineOptymizeInternal::theUnconstrainedTangent;
    } else {
        theRightOfLeftHalf = theMaths.estimateCenterTangent(aPiece.theSamples, theSplit, aPiece.theLength);
        theLeftOfRightHalf = -theRightOfLeftHalf;
    }
    return kMustSplit;
}

FitRun::Piece FitRun::takeLeftHalf(const Piece& aPiece)
{
    thePending.push_back({aPiece, theSplit, theLeftOfRightHalf});
    return {aPiece.theSamples,  theSplit + 1,         aPiece.theLeft,
            theRightOfLeftHalf, aPiece.theBudget - 1, aPiece.theFirstSegment};
}

/// The right half of the innermost piece whose left half is done: its segments follow those of the left half
/// and it has what they left of the budget.
FitRun::Piece FitRun::takeRightHalf()
{
    const Pending pending = thePending.back();
    thePending.pop_back();
    const Piece& whole = pending.thePiece;
    const int leftCount = theCount - whole.theFirstSegment;
    if (theSplitPoints && leftCount > 0)
        theSplitPoints[theCount - 1] = int(pending.theSplit);
    return {whole.theSamples + pending.theSplit,
            whole.theLength - pending.theSplit,
            pending.theTangent,
            whole.theRight,
            whole.theBudget - unsigned(leftCount),
            theCount};
}

void FitRun::writePair(const Piece& aPiece)
{
    Point2D* cubic = cubicOf(aPiece);
    const Point2D start = aPiece.theSamples[0];
    const Point2D end = aPiece.theSamples[1];
    const double third = lenPower(end - start) / 3.0;
    cubic[0] = cubic[1] = start;
    cubic[2] = cubic[3] = end;
    if (std::isnan(third))
        return;
    cubic[1] = isFree(aPiece.theLeft) ? (2.0 * start + end) / 3.0 : start + third * aPiece.theLeft;
    cubic[2] = isFree(aPiece.theRight) ? (start + 2.0 * end) / 3.0 : end + third * aPiece.theRight;
}
