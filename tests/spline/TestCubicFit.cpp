// The entries of the fit: what they refuse, what they make of few samples, tolerance and end tangents.

#include "FitChecker.h"
#include "SplineOptymizeInternal.h"
#include "TestFont.h"

#include <limits>

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
const Point2D kFree = SplineOptymizeInternal::theUnconstrainedTangent;
const std::vector<Point2D> kCorner = {{0, 0}, {10, 0}, {20, 0}, {30, 0}, {30, 10}, {30, 20}, {30, 30}};

bool sameCubics(const std::vector<Point2D>& a, const std::vector<Point2D>& b, int aCount)
{
    return std::equal(a.begin(), a.begin() + 4 * aCount, b.begin(), sameNumbers);
}

std::vector<Point2D> roomFor(const std::vector<Point2D>& aSamples)
{
    return std::vector<Point2D>(4 * aSamples.size());
}

} // namespace

class TestCubicFit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wrongArgumentsAreRefused();
    void negativeErrorIsRefused();
    void onePointMakesNoSegment();
    void equalPointsMakeNoSegment();
    void pathWithoutLengthMakesNoSegment();
    void twoSamplesMakeAStraightCubic();
    void twoSamplesKeepTheirTangents();
    void twoSamplesWithoutADistanceGetNoHandles();
    void errorZeroStillAcceptsTheLeastTolerance();
    void laterNanSampleIsDropped();
    void oneSegmentThatDoesNotFitIsAFailure();
    void tangentNearZeroIsFree();
    void constEntryKeepsTheLeftTangent();

private:
    int full(const std::vector<Point2D>& aSamples, const Point2D& aLeft, const Point2D& aRight, double aError,
             unsigned aMaxSegments)
    {
        theOut.assign(4 * aMaxSegments, {});
        return theMaths.bezierFitCubicFull(theOut.data(), nullptr, aSamples.data(), int(aSamples.size()),
                                           aLeft, aRight, aError, aMaxSegments);
    }

    SplineOptymizeInternal theMaths;
    std::vector<Point2D> theOut;
};

void TestCubicFit::wrongArgumentsAreRefused()
{
    const Point2D* samples = kCorner.data();
    std::vector<Point2D> out = roomFor(kCorner);
    QCOMPARE(theMaths.bezierFitCubicFull(nullptr, nullptr, samples, 7, kFree, kFree, 0.5, 7), -1);
    QCOMPARE(theMaths.bezierFitCubicFull(out.data(), nullptr, nullptr, 7, kFree, kFree, 0.5, 7), -1);
    QCOMPARE(theMaths.bezierFitCubicFull(out.data(), nullptr, samples, 0, kFree, kFree, 0.5, 7), -1);
    QCOMPARE(theMaths.bezierFitCubicFull(out.data(), nullptr, samples, 1, kFree, kFree, 0.5, 0), -1);
    QCOMPARE(theMaths.bezierFitCubicConst(nullptr, samples, 7, kFree, 0.5, 7), -1);
    QCOMPARE(theMaths.bezierFitCubicConst(out.data(), nullptr, 7, kFree, 0.5, 7), -1);
    QCOMPARE(theMaths.bezierFitCubicConst(out.data(), samples, 0, kFree, 0.5, 7), -1);
    QCOMPARE(theMaths.bezierFitCubicConst(out.data(), samples, -3, kFree, 0.5, 7), -1);
    QCOMPARE(theMaths.bezierFitCubicConst(out.data(), samples, 7, kFree, 0.5, 0), -1);
    QCOMPARE(theMaths.bezierFitCubicR(nullptr, samples, 7, 0.5, 7), -1);
    QCOMPARE(theMaths.bezierFitCubicR(out.data(), nullptr, 7, 0.5, 7), -1);
    QCOMPARE(theMaths.bezierFitCubicR(out.data(), samples, 0, 0.5, 7), -1);
    QCOMPARE(theMaths.bezierFitCubic(nullptr, samples, 7, 0.5), -1);
    QCOMPARE(theMaths.bezierFitCubic(out.data(), nullptr, 7, 0.5), -1);
    QCOMPARE(theMaths.bezierFitCubic(out.data(), samples, 0, 0.5), -1);
    const unsigned tooMany = 1U << 25;
    for (const int length : {1, 7}) {
        QCOMPARE(theMaths.bezierFitCubicConst(out.data(), samples, length, kFree, 0.5, tooMany), -1);
        QCOMPARE(theMaths.bezierFitCubicR(out.data(), samples, length, 0.5, tooMany), -1);
        QVERIFY(theMaths.bezierFitCubicConst(out.data(), samples, length, kFree, 0.5, tooMany - 1) >= 0);
    }
}

void TestCubicFit::negativeErrorIsRefused()
{
    std::vector<Point2D> out = roomFor(kCorner);
    for (const double error : {-1e-300, -0.5}) {
        QCOMPARE(full(kCorner, kFree, kFree, error, 7), -1);
        QCOMPARE(theMaths.bezierFitCubicConst(out.data(), kCorner.data(), 7, kFree, error, 7), -1);
        QCOMPARE(theMaths.bezierFitCubicR(out.data(), kCorner.data(), 2, error, 7), -1);
        QCOMPARE(theMaths.bezierFitCubic(out.data(), kCorner.data(), 2, error), -1);
    }
    QVERIFY(full(kCorner, kFree, kFree, -0.0, 7) > 0);
}

void TestCubicFit::onePointMakesNoSegment()
{
    const Point2D point(3, 4);
    Point2D out[4];
    QCOMPARE(theMaths.bezierFitCubicConst(out, &point, 1, kFree, 0.5, 1), 0);
    QCOMPARE(theMaths.bezierFitCubicR(out, &point, 1, 0.5, 1), 0);
    QCOMPARE(theMaths.bezierFitCubic(out, &point, 1, 0.5), 0);
    QCOMPARE(full({point}, kFree, kFree, 0.5, 1), 0);
    // Nothing is asked of the budget or the error any more.
    QCOMPARE(theMaths.bezierFitCubicConst(out, &point, 1, kFree, -0.5, 0), 0);
}

void TestCubicFit::equalPointsMakeNoSegment()
{
    const std::vector<Point2D> points(9, Point2D(3, 4));
    std::vector<Point2D> out = roomFor(points);
    QCOMPARE(theMaths.bezierFitCubicConst(out.data(), points.data(), 9, kFree, 0.5, 9), 0);
    QCOMPARE(theMaths.bezierFitCubicR(out.data(), points.data(), 9, 0.5, 9), 0);
    QCOMPARE(theMaths.bezierFitCubic(out.data(), points.data(), 9, 0.5), 0);
}

void TestCubicFit::pathWithoutLengthMakesNoSegment()
{
    // The full fit takes samples as they are.
    QCOMPARE(full(std::vector<Point2D>(5, Point2D(3, 4)), kFree, kFree, 0.5, 5), 0);
    // Also where a split leaves such a path: no split point belongs to it.
    const std::vector<Point2D> late = {{3, 2}, {3, 2}, {3, 2}, {8, 0}, {7, 0}, {6, 5}};
    theOut.assign(24, {});
    int splits[8];
    std::fill_n(splits, 8, -7);
    const int count =
        theMaths.bezierFitCubicFull(theOut.data(), splits + 1, late.data(), 6, kFree, kFree, 0.01, 6);
    QCOMPARE(count, 3);
    QVERIFY(theOut[0] == late.front() && theOut[11] == late.back());
    QVERIFY(splits[0] == -7 && splits[1] > 0 && splits[2] > 0 && splits[3] == -7);
}

void TestCubicFit::twoSamplesMakeAStraightCubic()
{
    const std::vector<Point2D> pair = {{3, 6}, {12, -6}};
    QCOMPARE(full(pair, kFree, kFree, 0.0, 1), 1);
    QVERIFY(theOut[0] == pair[0] && theOut[3] == pair[1]);
    QVERIFY(theOut[1] == Point2D(6, 2) && theOut[2] == Point2D(9, -2));
    Point2D out[4];
    QCOMPARE(theMaths.bezierFitCubicR(out, pair.data(), 2, 0.5, 9), 1);
    QVERIFY(std::equal(out, out + 4, theOut.begin(), sameNumbers));
    QCOMPARE(theMaths.bezierFitCubic(out, pair.data(), 2, 0.5), 1);
    QVERIFY(std::equal(out, out + 4, theOut.begin(), sameNumbers));
}

void TestCubicFit::twoSamplesKeepTheirTangents()
{
    const std::vector<Point2D> pair = {{3, 6}, {12, -6}}; // 15 apart
    QCOMPARE(full(pair, {0, 1}, kFree, 0.0, 1), 1);
    QVERIFY(theOut[1] == Point2D(3, 11) && theOut[2] == Point2D(9, -2));
    QCOMPARE(full(pair, kFree, {-0.6, 0.8}, 0.0, 1), 1);
    QVERIFY(theOut[1] == Point2D(6, 2) && theOut[2] == Point2D(9, -2));
    QCOMPARE(full(pair, {-1, 0}, {0, -1}, 0.0, 1), 1);
    QVERIFY(theOut[1] == Point2D(-2, 6) && theOut[2] == Point2D(12, -11));
}

void TestCubicFit::twoSamplesWithoutADistanceGetNoHandles()
{
    const double huge = std::numeric_limits<double>::infinity();
    const std::vector<Point2D> pair = {{huge, 1}, {huge, 2}};
    QCOMPARE(full(pair, {0, 1}, kFree, 0.5, 1), 1);
    QVERIFY(theOut[1] == pair[0] && theOut[2] == pair[1]);
}

void TestCubicFit::errorZeroStillAcceptsTheLeastTolerance()
{
    // A line that swings to both sides by less or by more than sqrt(1e-9) = 3.16e-5.
    for (const double swing : {2.9e-5, 3.5e-5}) {
        std::vector<Point2D> line;
        for (int i = 0; i < 40; ++i) {
            const bool calm = i < 8 || i >= 32;
            line.push_back({10.0 * i, calm ? 0.0 : i % 2 ? swing : -swing});
        }
        std::vector<Point2D> out = roomFor(line);
        QCOMPARE(theMaths.bezierFitCubic(out.data(), line.data(), 40, 0.0), swing < 3e-5 ? 1 : -1);
    }
}

void TestCubicFit::laterNanSampleIsDropped()
{
    std::vector<Point2D> dirty = kCorner;
    dirty.insert(dirty.begin() + 1, {kNan, 5});
    dirty.insert(dirty.begin() + 4, {5, kNan});
    dirty.push_back({kNan, kNan});
    std::vector<Point2D> out = roomFor(dirty);
    const int count = theMaths.bezierFitCubicR(out.data(), dirty.data(), int(dirty.size()), 0.5, 10);
    QCOMPARE(count, full(kCorner, kFree, kFree, 0.5, 10));
    QVERIFY(count > 0 && sameCubics(out, theOut, count));
}

void TestCubicFit::oneSegmentThatDoesNotFitIsAFailure()
{
    std::vector<Point2D> out = roomFor(kCorner);
    QCOMPARE(theMaths.bezierFitCubic(out.data(), kCorner.data(), 7, 0.5), -1);
    QCOMPARE(theMaths.bezierFitCubicConst(out.data(), kCorner.data(), 7, kFree, 0.5, 1), -1);
    QCOMPARE(theMaths.bezierFitCubic(out.data(), kCorner.data(), 7, 100.0), 1);
}

void TestCubicFit::tangentNearZeroIsFree()
{
    QCOMPARE(full(kCorner, kFree, kFree, 0.5, 7), 2);
    const std::vector<Point2D> expected = theOut;
    const Point2D almost(1e-7, -1e-7);
    QCOMPARE(full(kCorner, kFree, almost, 0.5, 7), 2);
    QVERIFY(sameCubics(expected, theOut, 2));
    QCOMPARE(full(kCorner, almost, kFree, 0.5, 7), 2);
    QVERIFY(sameCubics(expected, theOut, 2));
    const std::vector<Point2D> pair = {{0, 0}, {3, 6}};
    QCOMPARE(full(pair, almost, almost, 0.5, 1), 1);
    QVERIFY(theOut[1] == Point2D(1, 2) && theOut[2] == Point2D(2, 4));
    // Beyond the limit it counts, whatever its length.
    QCOMPARE(full(pair, {1e-5, 0}, kFree, 0.5, 1), 1);
    QVERIFY(theOut[1] != Point2D(1, 2));
}

void TestCubicFit::constEntryKeepsTheLeftTangent()
{
    const std::vector<Point2D> arch = {{0, 0}, {2, 5}, {5, 8}, {9, 9}, {13, 8}, {16, 5}, {18, 0}};
    std::vector<Point2D> out = roomFor(arch);
    const Point2D up(0, 1);
    QCOMPARE(theMaths.bezierFitCubicConst(out.data(), arch.data(), 7, up, 1.0, 1), 1);
    QVERIFY(out[1].x == 0.0 && out[1].y > 1.0);
    QCOMPARE(theMaths.bezierFitCubicR(out.data(), arch.data(), 7, 1.0, 1), 1);
    QVERIFY(out[1].x > 0.1);
    // And it goes with the first segment of many.
    const int count = theMaths.bezierFitCubicConst(out.data(), arch.data(), 7, {0.6, 0.8}, 1e-6, 7);
    QVERIFY(count > 1);
    QVERIFY(std::abs(dot(unitVector(out[1] - out[0]), {0.6, 0.8}) - 1.0) < 1e-12);
}

MEASURE_TEST_MAIN(TestCubicFit)
#include "TestCubicFit.moc"
