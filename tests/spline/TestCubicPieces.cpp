// The steps of the fit one by one: clean samples, points of a curve, parameters, error measure.

#include "PlainFit.h"
#include "SplineOptymizeInternal.h"
#include "TestFont.h"

#include <QRandomGenerator>

#include <csignal>
#include <limits>

#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kHuge = std::numeric_limits<double>::max();
const Point2D kArch[4] = {{0, 0}, {0, 8}, {4, 8}, {4, 0}};

bool near(const Point2D& a, const Point2D& b, double aTolerance = 1e-12)
{
    return lenPower(a - b) <= aTolerance;
}

/// The point of a curve by repeated halving of the way between controls, in the widest numbers.
Point2D deCasteljau(unsigned aDegree, const Point2D* aControls, double aT)
{
    long double x[4];
    long double y[4];
    for (unsigned i = 0; i <= aDegree; ++i) {
        x[i] = static_cast<long double>(aControls[i].x);
        y[i] = static_cast<long double>(aControls[i].y);
    }
    for (unsigned level = aDegree; level > 0; --level) {
        for (unsigned i = 0; i < level; ++i) {
            x[i] += (x[i + 1] - x[i]) * static_cast<long double>(aT);
            y[i] += (y[i + 1] - y[i]) * static_cast<long double>(aT);
        }
    }
    return {double(x[0]), double(y[0])};
}

} // namespace

class TestCubicPieces : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pointOfACurveOfEachDegree();
    void squaredLength();
    void laterNansAndRepeatedSamplesAreDropped();
    void nanInTheFirstSampleNeverReturns();
    void parametersFollowTheLengthOfChords();
    void parametersWithoutLengthStayZero();
    void parametersOfEndlessLengthAreEven();
    void newtonStepFindsTheNearestPoint();
    void newtonStepFromAFarthestPoint();
    void newtonStepNeverWorsensTheDistance();
    void lengthOfThreeReparameterizesOnlyTheMiddle();
    void hookBelowTheToleranceIsNone();
    void errorRatioTellsTheWorstSample();
    void errorRatioOfAHookIsNegative();
    void exactFitLeavesTheSplitPoint();

private:
    SplineOptymizeInternal theMaths;
};

void TestCubicPieces::pointOfACurveOfEachDegree()
{
    QRandomGenerator random(20240607);
    for (int round = 0; round < 4000; ++round) {
        const unsigned degree = unsigned(round % 4);
        Point2D controls[4];
        for (Point2D& control : controls)
            control = {random.generateDouble() * 200.0 - 100.0, random.generateDouble() * 200.0 - 100.0};
        const double t = round < 4 ? 0.0 : round < 8 ? 1.0 : random.generateDouble();
        const Point2D point = theMaths.bezierPnt(degree, controls, t);
        QVERIFY(near(point, deCasteljau(degree, controls, t)));
        QVERIFY(point == PlainFit::bezier(degree, controls, t));
    }
    QVERIFY(theMaths.bezierPnt(3, kArch, 0.0) == kArch[0]);
    QVERIFY(theMaths.bezierPnt(3, kArch, 1.0) == kArch[3]);
    QVERIFY(theMaths.bezierPnt(3, kArch, 0.5) == Point2D(2, 6));
    QVERIFY(theMaths.bezierPnt(2, kArch, 0.5) == Point2D(1, 6));
    QVERIFY(theMaths.bezierPnt(1, kArch, 0.25) == Point2D(0, 2));
    QVERIFY(theMaths.bezierPnt(0, kArch + 1, 0.3) == Point2D(0, 8));
}

void TestCubicPieces::squaredLength()
{
    QCOMPARE(theMaths.lensq({3.0, -4.0}), 25.0);
    QCOMPARE(theMaths.lensq({}), 0.0);
}

// Callers hand in whole coordinates; who doesn't is to see it at once.
void TestCubicPieces::nanInTheFirstSampleNeverReturns()
{
    const pid_t child = fork();
    if (child == 0) {
        std::signal(SIGALRM, SIG_DFL);
        const itimerval fifthOfASecond{{0, 0}, {0, 200000}};
        setitimer(ITIMER_REAL, &fifthOfASecond, nullptr);
        const Point2D source[] = {{1, kNan}, {2, 2}};
        Point2D target[2];
        theMaths.copyWithoutNansOrAdjacentDuplicates(source, 2, target);
        _exit(0);
    }
    QVERIFY(child > 0);
    int status = 0;
    QCOMPARE(waitpid(child, &status, 0), child);
    QVERIFY(WIFSIGNALED(status));
    QCOMPARE(WTERMSIG(status), SIGALRM);
}

void TestCubicPieces::laterNansAndRepeatedSamplesAreDropped()
{
    const Point2D source[] = {{1, 1},    {1, 1}, {kNan, 2}, {1, 1},   {2, kNan}, {2, 2},
                              {2, kNan}, {2, 2}, {1, 1},    {0.0, 3}, {-0.0, 3}};
    const unsigned length = std::size(source);
    Point2D target[length];
    QCOMPARE(theMaths.copyWithoutNansOrAdjacentDuplicates(source, length, target), 4);
    QVERIFY(target[0] == Point2D(1, 1) && target[1] == Point2D(2, 2));
    QVERIFY(target[2] == Point2D(1, 1) && target[3] == Point2D(0, 3));
    QVERIFY(target[4] == Point2D());
    Point2D untouched(7, 7);
    QCOMPARE(theMaths.copyWithoutNansOrAdjacentDuplicates(source, 0, &untouched), 0);
    QVERIFY(untouched == Point2D(7, 7));
    QCOMPARE(theMaths.copyWithoutNansOrAdjacentDuplicates(source, 1, &untouched), 1);
    QVERIFY(untouched == Point2D(1, 1));
}

void TestCubicPieces::parametersFollowTheLengthOfChords()
{
    const Point2D samples[] = {{0, 0}, {3, 4}, {3, 4}, {9, 12}, {9, 7}};
    double params[5] = {-1, -1, -1, -1, -1};
    theMaths.chordLengthParameterize(samples, params, 5);
    const double expected[] = {0.0, 0.25, 0.25, 0.75, 1.0};
    for (int i = 0; i < 5; ++i)
        QCOMPARE(params[i], expected[i]);
    // Each entry is divided by the total: 1/3, not one of its neighbours.
    theMaths.chordLengthParameterize(samples, params, 4);
    QCOMPARE(params[1], 5.0 / 15.0);
}

void TestCubicPieces::parametersWithoutLengthStayZero()
{
    const Point2D samples[] = {{5, 5}, {5, 5}, {5, 5}};
    double params[3] = {-1, -1, -1};
    theMaths.chordLengthParameterize(samples, params, 1);
    QCOMPARE(params[0], -1.0);
    theMaths.chordLengthParameterize(samples, params, 3);
    for (const double param : params)
        QCOMPARE(param, 0.0);
}

void TestCubicPieces::parametersOfEndlessLengthAreEven()
{
    const Point2D far[] = {{-kHuge, 0}, {kHuge, 0}, {0, 0}, {1, 0}, {2, 0}};
    const Point2D lost[] = {{0, 0}, {kNan, 0}, {0, 0}, {1, 0}, {2, 0}};
    for (const Point2D* samples : {far, lost}) {
        double params[5] = {-1, -1, -1, -1, -1};
        theMaths.chordLengthParameterize(samples, params, 5);
        for (int i = 0; i < 5; ++i)
            QCOMPARE(params[i], i / 4.0);
    }
}

void TestCubicPieces::newtonStepFindsTheNearestPoint()
{
    const Point2D line[4] = {{0, 0}, {1, 0}, {2, 0}, {3, 0}};
    QVERIFY(std::abs(theMaths.newtonRaphsonRootFind(line, {1.5, 4.0}, 0.4) - 0.5) < 1e-15);
    QCOMPARE(theMaths.newtonRaphsonRootFind(line, {9.0, 0.0}, 0.4), 1.0);
    QCOMPARE(theMaths.newtonRaphsonRootFind(line, {-9.0, 0.0}, 0.4), 0.0);
    // No slope at all, and a sample without a place: the parameter stays.
    const Point2D dot[4] = {{1, 1}, {1, 1}, {1, 1}, {1, 1}};
    QCOMPARE(theMaths.newtonRaphsonRootFind(dot, {5.0, 5.0}, 0.4), 0.4);
    QCOMPARE(theMaths.newtonRaphsonRootFind(line, {kNan, 0.0}, 0.4), 0.4);
}

void TestCubicPieces::newtonStepFromAFarthestPoint()
{
    // At the top of the arch with the sample far below it the distance is greatest, and the denominator
    // negative.
    const double up = 0.5 * 0.98 + 0.031;
    const double down = 0.5 * 0.98 - 0.01;
    QCOMPARE(theMaths.newtonRaphsonRootFind(kArch, {2.1, -50.0}, 0.5), up);
    QCOMPARE(theMaths.newtonRaphsonRootFind(kArch, {1.9, -50.0}, 0.5), down);
    QCOMPARE(theMaths.newtonRaphsonRootFind(kArch, {2.0, -50.0}, 0.5), 0.5);
    // The denominator is 6 * 6 - 0.75 * 48 = 0.
    QCOMPARE(theMaths.newtonRaphsonRootFind(kArch, {2.1, 5.25}, 0.5), up);
    QCOMPARE(theMaths.newtonRaphsonRootFind(kArch, {1.9, 5.25}, 0.5), down);
}

void TestCubicPieces::newtonStepNeverWorsensTheDistance()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    const auto number = [&random] { return random.generateDouble() * 20.0 - 10.0; };
    int stepped = 0;
    for (int round = 0; round < 50000; ++round) {
        const Point2D cubic[4] = {
            {number(), number()}, {number(), number()}, {number(), number()}, {number(), number()}};
        const Point2D sample(number(), number());
        const double u = random.generateDouble();
        const double improved = theMaths.newtonRaphsonRootFind(cubic, sample, u);
        QVERIFY(improved >= 0.0 && improved <= 1.0);
        QVERIFY(theMaths.lensq(theMaths.bezierPnt(3, cubic, improved) - sample) <=
                theMaths.lensq(theMaths.bezierPnt(3, cubic, u) - sample));
        QVERIFY(improved == PlainFit::newton(cubic, sample, u));
        stepped += int(improved != u);
    }
    QVERIFY(stepped > 45000);
}

void TestCubicPieces::lengthOfThreeReparameterizesOnlyTheMiddle()
{
    const Point2D samples[] = {{1, 1}, {2, 6}, {5, 5}};
    double params[] = {0.125, 0.375, 0.875};
    theMaths.reparameterize(samples, 3, params, kArch);
    QCOMPARE(params[0], 0.125);
    QCOMPARE(params[1], theMaths.newtonRaphsonRootFind(kArch, samples[1], 0.375));
    QVERIFY(params[1] != 0.375);
    QCOMPARE(params[2], 0.875);
    for (const unsigned length : {0U, 1U, 2U}) {
        double same[] = {0.125, 0.375, 0.875};
        theMaths.reparameterize(samples, length, same, kArch);
        QVERIFY(same[0] == 0.125 && same[1] == 0.375 && same[2] == 0.875);
    }
}

void TestCubicPieces::hookBelowTheToleranceIsNone()
{
    const Point2D dot[4] = {{2, 3}, {2, 3}, {2, 3}, {2, 3}}; // 3 off the middle of (0, 0) to (4, 0)
    QCOMPARE(theMaths.computeHook({0, 0}, {4, 0}, 0.5, dot, 3.5), 0.0);
    QCOMPARE(theMaths.computeHook({0, 0}, {4, 0}, 0.5, dot, 3.0), 3.0 / 7.0);
    QCOMPARE(theMaths.computeHook({0, 0}, {4, 0}, 0.5, dot, std::nextafter(3.0, 4.0)), 0.0);
    QCOMPARE(theMaths.computeHook({0, 0}, {4, 0}, 0.5, dot, 1.0), 3.0 / 5.0);
    // Where squares of lengths leave the range of numbers.
    for (const double scale : {1e-200, 1e-160, 1e160, 1e200}) {
        const Point2D far[4] = {scale * dot[0], scale * dot[1], scale * dot[2], scale * dot[3]};
        const Point2D b(4 * scale, 0);
        QCOMPARE(theMaths.computeHook({0, 0}, b, 0.5, far, 3.5 * scale), 0.0);
        QCOMPARE(theMaths.computeHook({0, 0}, b, 0.5, far, 3.001 * scale), 0.0);
        QVERIFY(std::abs(theMaths.computeHook({0, 0}, b, 0.5, far, 2.999 * scale) - 3.0 / 6.999) < 1e-12);
    }
    // Both halves of this square of a length vanish, the square of the tolerance doesn't.
    const Point2D least(1.556e-162, 1.556e-162);
    const Point2D there[4] = {least, least, least, least};
    QVERIFY(theMaths.computeHook({}, {}, 0.5, there, 2.2e-162) >= 1.0);
}

void TestCubicPieces::errorRatioTellsTheWorstSample()
{
    const Point2D line[4] = {{0, 0}, {1, 0}, {2, 0}, {3, 0}};
    const Point2D samples[] = {{0, 7}, {0.75, 1}, {1.5, -2}, {2.25, 2}, {3, 0}};
    const double params[] = {0.0, 0.25, 0.5, 0.75, 1.0};
    unsigned split = 99;
    // The first of two equally far ones; the first sample isn't measured.
    QCOMPARE(theMaths.computeMaxErrorRatio(samples, params, 5, line, 0.5, &split), 4.0);
    QCOMPARE(split, 2U);
}

void TestCubicPieces::errorRatioOfAHookIsNegative()
{
    // Both samples are met; the arch rises 6 above the middle between them.
    const Point2D ends[] = {{0, 0}, {4, 0}};
    const double params[] = {0.0, 1.0};
    unsigned split = 99;
    QCOMPARE(theMaths.computeMaxErrorRatio(ends, params, 2, kArch, 0.5, &split), -6.0 / 4.5);
    QCOMPARE(split, 0U);
    // The bulge behind the second sample is the greater one.
    const Point2D three[] = {{0, 0}, theMaths.bezierPnt(3, kArch, 0.125), {4, 0}};
    const double late[] = {0.0, 0.125, 1.0};
    QVERIFY(theMaths.computeMaxErrorRatio(three, late, 3, kArch, 0.5, &split) < 0.0);
    QCOMPARE(split, 1U);
    // A distance that is no less goes before.
    const Point2D off[] = {{0, 0}, {4, 2}};
    QCOMPARE(theMaths.computeMaxErrorRatio(off, params, 2, kArch, 0.5, &split), 4.0);
    QCOMPARE(split, 1U);
}

void TestCubicPieces::exactFitLeavesTheSplitPoint()
{
    const Point2D line[4] = {{0, 0}, {1, 0}, {2, 0}, {3, 0}};
    const Point2D samples[] = {{0, 70}, {1.5, 0}, {3, 0}}; // the first one isn't measured
    const double params[] = {0.0, 0.5, 1.0};
    unsigned split = 99;
    QCOMPARE(theMaths.computeMaxErrorRatio(samples, params, 3, line, 0.5, &split), 0.0);
    QCOMPARE(split, 99U);
}

MEASURE_TEST_MAIN(TestCubicPieces)
#include "TestCubicPieces.moc"
