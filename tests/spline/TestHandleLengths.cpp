// The steps of the fit one by one: end tangents and the lengths of the handles along them.

#include "SplineOptymizeInternal.h"
#include "TestFont.h"

#include <algorithm>

namespace {

bool near(const Point2D& a, const Point2D& b, double aTolerance = 1e-12)
{
    return lenPower(a - b) <= aTolerance;
}

bool sameCubic(const Point2D (&a)[4], const Point2D (&b)[4])
{
    return std::equal(a, a + 4, b);
}

} // namespace

class TestHandleLengths : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tangentLeadsToTheFirstSampleBeyondTheTolerance();
    void tangentWithoutSuchASampleLeadsToTheLastOne();
    void tangentOfCoincidentPointsStaysUnconstrained();
    void centreTangentRunsBackwards();
    void lengthsSolvedFromTheSamples();
    void singularSystemGetsEqualLengths();
    void tooShortLengthBecomesAThirdOfTheChord();
    void handleLengthLimitIsAbsolute();
    void oneControlPointIsSolvedAlone();
    void onlyAFreeLeftEndIsRefined();
    void refinedControlOnItsAnchorKeepsTheTangent();

private:
    SplineOptymizeInternal theMaths;
};

void TestHandleLengths::tangentLeadsToTheFirstSampleBeyondTheTolerance()
{
    const Point2D samples[] = {{0, 0}, {0, 1}, {2, 0}, {30, 40}, {30, 48}, {32, 48}, {32, 47}};
    QVERIFY(theMaths.estimateLeftTangent(samples, 7) == Point2D(0, 1));
    QVERIFY(theMaths.estimateLeftTangent(samples, 7, 0.0) == Point2D(0, 1));
    QVERIFY(theMaths.estimateLeftTangent(samples, 7, 1.0) == Point2D(1, 0)); // exactly as far is not beyond
    QVERIFY(theMaths.estimateLeftTangent(samples, 7, 4.0) == Point2D(0.6, 0.8));
    QVERIFY(theMaths.estimateRightTangent(samples, 7) == Point2D(0, 1));
    QVERIFY(theMaths.estimateRightTangent(samples, 7, 0.5) == Point2D(0, 1));
    QVERIFY(theMaths.estimateRightTangent(samples, 7, 1.0) == unitVector({-2, 1}));
    QVERIFY(theMaths.estimateRightTangent(samples, 7, 5.0) == unitVector({-2, -7}));
}

void TestHandleLengths::tangentWithoutSuchASampleLeadsToTheLastOne()
{
    const Point2D samples[] = {{0, 0}, {0, 1}, {3, 4}};
    QVERIFY(theMaths.estimateLeftTangent(samples, 3, 25.0) == Point2D(0.6, 0.8));
    QVERIFY(theMaths.estimateRightTangent(samples, 3, 25.0) == Point2D(-0.6, -0.8));
    // Where that one is the end itself, the neighbour decides.
    const Point2D loop[] = {{0, 0}, {0, 1}, {1, 0}, {0, 0}};
    QVERIFY(theMaths.estimateLeftTangent(loop, 4, 25.0) == Point2D(0, 1));
    QVERIFY(theMaths.estimateRightTangent(loop, 4, 25.0) == Point2D(1, 0));
}

void TestHandleLengths::tangentOfCoincidentPointsStaysUnconstrained()
{
    const Point2D samples[] = {{5, 5}, {5, 5}, {5, 5}};
    for (const Point2D& tangent :
         {theMaths.estimateLeftTangent(samples, 3), theMaths.estimateLeftTangent(samples, 3, 1.0),
          theMaths.estimateRightTangent(samples, 3), theMaths.estimateRightTangent(samples, 3, 1.0),
          theMaths.estimateCenterTangent(samples, 1, 3)}) {
        QVERIFY(tangent == SplineOptymizeInternal::theUnconstrainedTangent);
        QVERIFY(isZero(tangent, 1e-6));
    }
}

void TestHandleLengths::centreTangentRunsBackwards()
{
    const Point2D samples[] = {{0, 0}, {9, 9}, {6, 8}, {9, 9}};
    QVERIFY(theMaths.estimateCenterTangent(samples, 1, 4) == Point2D(-0.6, -0.8));
    // At a tip the stroke passes square to the way there: from (9, 9) to (6, 8), turned left.
    QVERIFY(theMaths.estimateCenterTangent(samples, 2, 4) == unitVector({1, -3}));
}

void TestHandleLengths::lengthsSolvedFromTheSamples()
{
    // Samples of a known cubic at known parameters give its handles back.
    const Point2D known[4] = {{1, 2}, {4, 6}, {10, 8}, {10, 3}};
    const double params[] = {0.0, 0.1, 0.35, 0.5, 0.8, 1.0};
    Point2D samples[6];
    for (int i = 0; i < 6; ++i)
        samples[i] = theMaths.bezierPnt(3, known, params[i]);
    Point2D cubic[4];
    theMaths.estimateLengths(cubic, samples, params, 6, {0.6, 0.8}, {0, 1});
    for (int i = 0; i < 4; ++i)
        QVERIFY(near(cubic[i], known[i], 1e-11));
}

void TestHandleLengths::singularSystemGetsEqualLengths()
{
    // Only the middle sample counts: its inner weights are 3/8, the shortfall is (0, 3).
    const Point2D samples[] = {{0, 0}, {2, 3}, {4, 0}};
    const double params[] = {0.0, 0.5, 1.0};
    Point2D cubic[4];
    theMaths.estimateLengths(cubic, samples, params, 3, {0, 1}, {0, 1}); // (9/8) / (18/64)
    QVERIFY(cubic[0] == samples[0] && cubic[3] == samples[2]);
    QVERIFY(cubic[1] == Point2D(0, 4) && cubic[2] == Point2D(4, 4));
    theMaths.estimateLengths(cubic, samples, params, 3, {0, 1}, {0, 0}); // (9/8) / (9/64)
    QVERIFY(cubic[1] == Point2D(0, 8) && cubic[2] == Point2D(4, 0));
    theMaths.estimateLengths(cubic, samples, params, 3, {0, 0}, {0, 1});
    QVERIFY(cubic[1] == Point2D(0, 0) && cubic[2] == Point2D(4, 8));
    theMaths.estimateLengths(cubic, samples, params, 3, {0, 0}, {0, 0}); // nothing to solve
    QVERIFY(cubic[1] == Point2D(0, 0) && cubic[2] == Point2D(4, 0));
    theMaths.estimateLengths(cubic, samples, params, 3, {0, 1},
                             {0, -1}); // C00 + C01 is 0, and so is C11 + C01
    QVERIFY(cubic[1] == Point2D(0, 4.0 / 3.0) && cubic[2] == Point2D(4, -4.0 / 3.0));
}

void TestHandleLengths::tooShortLengthBecomesAThirdOfTheChord()
{
    const Point2D below[] = {{0, 0}, {2, -3}, {4, 0}};
    const double params[] = {0.0, 0.5, 1.0};
    Point2D cubic[4];
    theMaths.estimateLengths(cubic, below, params, 3, {0, 1}, {0, 1});
    QVERIFY(cubic[1] == Point2D(0, 4.0 / 3.0) && cubic[2] == Point2D(4, 4.0 / 3.0));
    // One bad length takes the other with it: handles along the line, one of them backwards.
    const Point2D line[] = {{0, 0}, {1, 0}, {2, 0}, {4, 0}, {9, 0}};
    const double even[] = {0.0, 0.25, 0.5, 0.75, 1.0};
    theMaths.estimateLengths(cubic, line, even, 5, {-1, 0}, {-1, 0});
    QVERIFY(cubic[1] == Point2D(-3, 0) && cubic[2] == Point2D(6, 0));
}

void TestHandleLengths::handleLengthLimitIsAbsolute()
{
    // The same shape at two sizes: the small one would have handles of 8e-7.
    const double params[] = {0.0, 0.5, 1.0};
    for (const double scale : {1.0, 2e-7}) {
        const Point2D samples[] = {{0, 0}, {2 * scale, 3 * scale}, {4 * scale, 0}};
        Point2D cubic[4];
        theMaths.estimateLengths(cubic, samples, params, 3, {0, 1}, {0, 1});
        const double expected = scale == 1.0 ? 4.0 : 4.0 * scale / 3.0;
        QVERIFY(near(cubic[1], {0, expected}, 1e-15 * scale));
    }
}

void TestHandleLengths::oneControlPointIsSolvedAlone()
{
    const Point2D sample(2, 3);
    const double half = 0.5;
    // (d - P0 / 8 - 3/8 of the other control - P3 / 8) / (3/8)
    Point2D cubic[4] = {{0, 0}, {9, 9}, {4, 0}, {4, 0}};
    theMaths.estimateBi(cubic, 1, &sample, &half, 1);
    QVERIFY(cubic[1] == Point2D(0, 8));
    QVERIFY(cubic[2] == Point2D(4, 0));
    theMaths.estimateBi(cubic, 2, &sample, &half, 1);
    QVERIFY(cubic[2] == Point2D(4, 0));
    for (const unsigned index : {0U, 3U, 4U}) {
        Point2D same[4] = {{1, 2}, {3, 4}, {5, 6}, {7, 8}};
        theMaths.estimateBi(same, index, &sample, &half, 1);
        for (int i = 0; i < 4; ++i)
            QVERIFY(same[i] == Point2D(2 * i + 1, 2 * i + 2));
    }
    // Nothing to solve: no samples, or none between the ends.
    const double end = 1.0;
    for (const unsigned count : {0U, 1U}) {
        Point2D line[4] = {{0, 0}, {9, 9}, {9, 9}, {6, 3}};
        theMaths.estimateBi(line, 1, &sample, &end, count);
        QVERIFY(line[1] == Point2D(2, 1));
        theMaths.estimateBi(line, 2, &sample, &end, count);
        QVERIFY(line[2] == Point2D(4, 2));
    }
}

void TestHandleLengths::onlyAFreeLeftEndIsRefined()
{
    const Point2D samples[] = {{0, 0}, {2, 0}, {5, 2}, {7, 6}, {7, 9}};
    double params[5];
    theMaths.chordLengthParameterize(samples, params, 5);
    const Point2D left = theMaths.estimateLeftTangent(samples, 5, 0.5);
    const Point2D right = theMaths.estimateRightTangent(samples, 5, 0.5);
    Point2D given[4];
    theMaths.generateBezier(given, samples, params, 5, left, right, 0.5);
    Point2D plain[4];
    theMaths.estimateLengths(plain, samples, params, 5, left, right);
    QVERIFY(sameCubic(given, plain));
    Point2D rightFree[4];
    theMaths.generateBezier(rightFree, samples, params, 5, left, {}, 0.5);
    QVERIFY(sameCubic(rightFree, plain));
    Point2D leftFree[4];
    theMaths.generateBezier(leftFree, samples, params, 5, {}, right, 0.5);
    theMaths.estimateBi(plain, 1, samples, params, 5);
    theMaths.estimateLengths(plain, samples, params, 5, unitVector(plain[1] - plain[0]), right);
    QVERIFY(sameCubic(leftFree, plain));
    QVERIFY(leftFree[1] != given[1]);
    QVERIFY(near(unitVector(leftFree[2] - leftFree[3]), right));
}

void TestHandleLengths::refinedControlOnItsAnchorKeepsTheTangent()
{
    // Along a line with a middle that puts the solved control point on the first anchor.
    const Point2D samples[] = {{0, 0}, {1.5, 0}, {4, 0}};
    const double params[] = {0.0, 0.5, 1.0};
    Point2D solved[4] = {{0, 0}, {9, 9}, {4.0 - 4.0 / 3.0, 0}, {4, 0}};
    theMaths.estimateBi(solved, 1, samples, params, 3);
    QVERIFY(solved[1] == Point2D(0, 0));
    Point2D cubic[4];
    theMaths.generateBezier(cubic, samples, params, 3, {}, {-1, 0}, 0.5);
    QVERIFY(cubic[1] == Point2D(4.0 / 3.0, 0));
}

MEASURE_TEST_MAIN(TestHandleLengths)
#include "TestHandleLengths.moc"
