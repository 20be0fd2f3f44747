#include "FitChecker.h"

#include "SplineOptymizeInternal.h"

namespace {

constexpr std::size_t kGuard = 2; // entries behind the room that the fit was given
constexpr double kGuardValue = 12345.5;
constexpr int kSplitFill = -7;

bool sameBits(double a, double b)
{
    if (std::isnan(a) || std::isnan(b))
        return std::isnan(a) && std::isnan(b);
    return a == b && std::signbit(a) == std::signbit(b);
}

} // namespace

bool sameNumbers(const Point2D& a, const Point2D& b)
{
    return sameBits(a.x, b.x) && sameBits(a.y, b.y);
}

FitChecker::FitChecker(const FitCase& aCase) : theCase(aCase) {}

void FitChecker::run(std::vector<Point2D>& aOut, std::vector<int>& aSplits, double aFill)
{
    const std::size_t room = theCase.theMaxSegments;
    aOut.assign(4 * room, Point2D(aFill, aFill));
    aOut.insert(aOut.end(), kGuard, Point2D(kGuardValue, kGuardValue));
    aSplits.assign(room + kGuard, kSplitFill);
    SplineOptymizeInternal maths;
    theCount = maths.bezierFitCubicFull(aOut.data(), aSplits.data(), theCase.theSamples.data(),
                                        int(theCase.theSamples.size()), theCase.theLeft, theCase.theRight,
                                        theCase.theError, theCase.theMaxSegments);
}

QString FitChecker::problem()
{
    std::vector<Point2D> otherOut;
    std::vector<int> otherSplits;
    run(otherOut, otherSplits, -99.0);
    const int otherCount = theCount;
    run(theOut, theSplits, 1e300);
    const std::size_t written = theCount < 0 ? 0 : 4 * std::size_t(theCount);
    if (otherCount != theCount ||
        !std::equal(theOut.begin(), theOut.begin() + std::ptrdiff_t(written), otherOut.begin(), sameNumbers))
        return "two runs differ";
    thePlainCount = thePlain.full(theCase.theSamples, theCase.theLeft, theCase.theRight, theCase.theError,
                                  theCase.theMaxSegments);
    for (const QString& found : {problemWithCount(), problemWithPlainFit()}) {
        if (!found.isEmpty())
            return found;
    }
    if (theCount < 0)
        return {};
    for (const QString& found : {problemWithJoints(), problemWithSplits()}) {
        if (!found.isEmpty())
            return found;
    }
    for (int i = 0; i < theCount; ++i) {
        const QString found = problemWithSegment(i);
        if (!found.isEmpty())
            return found;
    }
    return {};
}

QString FitChecker::problemWithCount() const
{
    const std::size_t length = theCase.theSamples.size();
    if (theCount == 0 || theCount < -1)
        return QString("%1 segments of %2 samples").arg(theCount).arg(length);
    if (theCount > int(theCase.theMaxSegments))
        return "more segments than allowed";
    if (theCount >= int(length))
        return "more segments than gaps between samples";
    if (theCount < 0 && theCase.theMaxSegments + 1 >= length)
        return "failed with a segment to spare for every gap";
    for (std::size_t i = theOut.size() - kGuard; i < theOut.size(); ++i) {
        if (theOut[i] != Point2D(kGuardValue, kGuardValue))
            return "wrote behind its room";
    }
    return {};
}

QString FitChecker::problemWithPlainFit() const
{
    if (thePlainCount != theCount)
        return QString("%1 segments, plainly %2").arg(theCount).arg(thePlainCount);
    if (theCount < 0)
        return {};
    for (std::size_t i = 0; i < thePlain.theSegments.size(); ++i) {
        if (!sameNumbers(theOut[i], thePlain.theSegments[i]))
            return QString("point %1 is not that of the plain fit").arg(i);
    }
    return {};
}

QString FitChecker::problemWithJoints() const
{
    const std::vector<Point2D>& samples = theCase.theSamples;
    if (!sameNumbers(theOut[0], samples.front()))
        return "doesn't begin at the first sample";
    if (!sameNumbers(theOut[4 * std::size_t(theCount) - 1], samples.back()))
        return "doesn't end at the last sample";
    for (std::size_t k = 0; k + 1 < std::size_t(theCount); ++k) {
        const PlainFit::Joint& joint = thePlain.theJoints[k];
        const Point2D sample = samples[joint.theCallStart + joint.theSplit];
        if (!sameNumbers(theOut[4 * k + 3], sample) || !sameNumbers(theOut[4 * k + 4], sample))
            return QString("segments %1 and %2 don't meet at their sample").arg(k).arg(k + 1);
    }
    return {};
}

QString FitChecker::problemWithSplits() const
{
    unsigned last = 0;
    for (std::size_t k = 0; k + 1 < std::size_t(theCount); ++k) {
        const PlainFit::Joint& joint = thePlain.theJoints[k];
        if (theSplits[k] != int(joint.theSplit))
            return QString("split point %1 is %2").arg(k).arg(theSplits[k]);
        if (joint.theSplit == 0 || joint.theSplit + 1 >= joint.theCallLength)
            return "a split at an end";
        if (joint.theCallStart + joint.theSplit <= last)
            return "split points don't increase";
        last = joint.theCallStart + joint.theSplit;
    }
    for (std::size_t k = std::size_t(theCount) - 1; k < theSplits.size(); ++k) {
        if (theSplits[k] != kSplitFill)
            return "a split point behind the last split";
    }
    return {};
}

QString FitChecker::problemWithSegment(int aIndex) const
{
    const PlainFit::Leaf& leaf = thePlain.theLeaves[std::size_t(aIndex)];
    const Point2D* cubic = theOut.data() + 4 * aIndex;
    for (int i = 0; i < 4; ++i) {
        if (isModest() && !(std::isfinite(cubic[i].x) && std::isfinite(cubic[i].y)))
            return QString("segment %1 is nowhere").arg(aIndex);
    }
    if (leaf.theLength == 2)
        return {};
    SplineOptymizeInternal maths;
    const double tolerance = std::sqrt(theCase.theError + 1e-9);
    const Point2D* samples = theCase.theSamples.data() + leaf.theStart;
    unsigned unused = 0;
    const double ratio =
        maths.computeMaxErrorRatio(samples, leaf.theParams.data(), leaf.theLength, cubic, tolerance, &unused);
    if (!(std::fabs(ratio) <= 1.0))
        return QString("segment %1 has the error ratio %2").arg(aIndex).arg(ratio);
    for (unsigned i = 0; isModest() && i < leaf.theLength; ++i) {
        const double distance = lenPower(maths.bezierPnt(3, cubic, leaf.theParams[i]) - samples[i]);
        if (!(distance <= tolerance * (1.0 + 1e-9)))
            return QString("segment %1 leaves a sample by %2").arg(aIndex).arg(distance);
    }
    return {};
}

/// Whether products of four coordinates stay in the range of numbers.
bool FitChecker::isModest() const
{
    for (const Point2D& sample : theCase.theSamples) {
        if (!(std::fabs(sample.x) < 1e70 && std::fabs(sample.y) < 1e70))
            return false;
    }
    return true;
}
