// Where the fit splits: budget, common tangents, hooks.

#include "FitChecker.h"
#include "SplineOptymizeInternal.h"
#include "TestFont.h"

namespace {

const Point2D kFree = SplineOptymizeInternal::theUnconstrainedTangent;

bool sameCubics(const std::vector<Point2D>& a, const std::vector<Point2D>& b, int aCount)
{
    return std::equal(a.begin(), a.begin() + 4 * aCount, b.begin(), sameNumbers);
}

} // namespace

class TestFitSplits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void budgetCountsAllSegments();
    void cornerIsMetByTwoSegments();
    void hookAtTheFirstSampleCostsNoBudget();
    void hookInsideSplitsWithoutTangent();
    void smoothStrokeKeepsItsDirectionAtSplits();

private:
    int full(const std::vector<Point2D>& aSamples, const Point2D& aLeft, const Point2D& aRight, double aError,
             unsigned aMaxSegments)
    {
        theOut.assign(4 * aMaxSegments, {});
        theSplits.assign(aMaxSegments, -7);
        return theMaths.bezierFitCubicFull(theOut.data(), theSplits.data(), aSamples.data(),
                                           int(aSamples.size()), aLeft, aRight, aError, aMaxSegments);
    }

    SplineOptymizeInternal theMaths;
    std::vector<Point2D> theOut;
    std::vector<int> theSplits;
};

void TestFitSplits::budgetCountsAllSegments()
{
    std::vector<Point2D> stairs;
    Point2D corner;
    for (int i = 0; i < 12; ++i) {
        const Point2D step = i % 2 == 0 ? Point2D(10, 0) : Point2D(0, 10);
        for (int k = 0; k < 4; ++k) {
            stairs.push_back(corner);
            corner = corner + step;
        }
    }
    const int needed = full(stairs, kFree, kFree, 0.5, 48);
    QVERIFY(needed >= 12);
    const std::vector<Point2D> best = theOut;
    QCOMPARE(full(stairs, kFree, kFree, 0.5, unsigned(needed)), needed);
    QVERIFY(sameCubics(best, theOut, needed));
    for (int budget = 1; budget < needed; ++budget)
        QCOMPARE(full(stairs, kFree, kFree, 0.5, unsigned(budget)), -1);
}

void TestFitSplits::cornerIsMetByTwoSegments()
{
    const std::vector<Point2D> corner = {{0, 0}, {10, 0}, {20, 0}, {30, 0}, {30, 10}, {30, 20}, {30, 30}};
    QCOMPARE(full(corner, kFree, kFree, 0.5, 7), 2);
    QCOMPARE(theSplits[0], 3);
    QVERIFY(theOut[0] == corner[0] && theOut[3] == corner[3]);
    QVERIFY(theOut[4] == corner[3] && theOut[7] == corner[6]);
}

void TestFitSplits::hookAtTheFirstSampleCostsNoBudget()
{
    const std::vector<Point2D> samples = {{5, 5}, {7, 5}, {12, 0}, {8, 5}};
    const Point2D up(0, 1);
    // With the tangent given the worst of the first cubic is a bulge right behind the first sample.
    double params[4];
    Point2D cubic[4];
    unsigned split = 99;
    theMaths.chordLengthParameterize(samples.data(), params, 4);
    theMaths.generateBezier(cubic, samples.data(), params, 4, up, kFree, 0.5);
    theMaths.reparameterize(samples.data(), 4, params, cubic);
    const double tolerance = std::sqrt(0.5 + 1e-9);
    QVERIFY(theMaths.computeMaxErrorRatio(samples.data(), params, 4, cubic, tolerance, &split) < -1.0);
    QCOMPARE(split, 0U);

    QCOMPARE(full(samples, up, kFree, 0.5, 1), 1);
    const std::vector<Point2D> restarted = theOut;
    QCOMPARE(full(samples, kFree, kFree, 0.5, 1), 1);
    QVERIFY(sameCubics(restarted, theOut, 1));
    PlainFit plain;
    QCOMPARE(plain.full(samples, up, kFree, 0.5, 1), 1);
    QCOMPARE(plain.theRestarts, 1);
}

void TestFitSplits::hookInsideSplitsWithoutTangent()
{
    // Handles end where the next segment's begin, at an angle that no common tangent would allow.
    const std::vector<Point2D> samples = {{0, 0}, {100, 0}, {100, 3}, {0, 3}, {0, 6}, {100, 6}};
    FitCase fit;
    fit.theSamples = samples;
    fit.theMaxSegments = 6;
    FitChecker checker(fit);
    QCOMPARE(checker.problem(), QString());
    QVERIFY(checker.count() > 1);
    int corners = 0;
    const std::vector<Point2D>& out = checker.plain().theSegments;
    for (std::size_t k = 4; k < out.size(); k += 4) {
        const Point2D arriving = unitVector(out[k - 1] - out[k - 2]);
        const Point2D leaving = unitVector(out[k + 1] - out[k]);
        corners += int(dot(arriving, leaving) < 0.999);
    }
    QVERIFY(corners > 0);
}

void TestFitSplits::smoothStrokeKeepsItsDirectionAtSplits()
{
    // A smooth stroke has a common tangent where segments meet: that of the neighbours of the sample.
    std::vector<Point2D> wave;
    for (int i = 0; i < 80; ++i)
        wave.push_back({5.0 * i, 60.0 * std::sin(0.2 * i)});
    const int count = full(wave, kFree, kFree, 0.05, 80);
    QVERIFY(count > 2);
    PlainFit plain;
    QCOMPARE(plain.full(wave, kFree, kFree, 0.05, 80), count);
    for (int k = 1; k < count; ++k) {
        const PlainFit::Joint& joint = plain.theJoints[std::size_t(k - 1)];
        const unsigned index = joint.theCallStart + joint.theSplit;
        const Point2D along = unitVector(wave[index + 1] - wave[index - 1]);
        const Point2D* joined = theOut.data() + 4 * k;
        QVERIFY(dot(unitVector(joined[-1] - joined[-2]), along) > 1.0 - 1e-12);
        QVERIFY(dot(unitVector(joined[1] - joined[0]), along) > 1.0 - 1e-12);
    }
}

MEASURE_TEST_MAIN(TestFitSplits)
#include "TestFitSplits.moc"
