// Many thousand strokes of all kinds, each held against every promise of the fit.

#include "FitChecker.h"
#include "FitStrokes.h"
#include "SplineOptymizeInternal.h"
#include "TestFont.h"
#include "Watched.h"

#include <QThread>

#include <functional>
#include <limits>
#include <memory>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kHuge = std::numeric_limits<double>::max();
constexpr double kTiny = std::numeric_limits<double>::denorm_min();

quint32 freshSeed()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    return seed;
}

std::vector<Point2D> cleaned(const std::vector<Point2D>& aSamples)
{
    SplineOptymizeInternal maths;
    std::vector<Point2D> samples(aSamples.size());
    samples.resize(std::size_t(maths.copyWithoutNansOrAdjacentDuplicates(
        aSamples.data(), unsigned(aSamples.size()), samples.data())));
    return samples;
}

template <typename T, std::size_t N>
T oneOf(const T (&aChoices)[N], QRandomGenerator& aRandom)
{
    return aChoices[aRandom.bounded(int(N))];
}

/// Mostly free, sometimes a direction of its own, now and then one that is free by a hair.
Point2D randomTangent(QRandomGenerator& aRandom)
{
    const int choice = aRandom.bounded(6);
    if (choice > 1)
        return {};
    if (choice == 1)
        return {1e-7, -1e-7};
    const double angle = aRandom.generateDouble() * 6.3;
    return {std::cos(angle), std::sin(angle)};
}

void runWithStack(unsigned aBytes, const std::function<void()>& aWork)
{
    const std::unique_ptr<QThread> worker(QThread::create(aWork));
    worker->setStackSize(aBytes);
    worker->start();
    worker->wait();
}

FitCase randomCase(const std::vector<Point2D>& aStroke, QRandomGenerator& aRandom)
{
    FitCase fit;
    fit.theSamples = cleaned(aStroke);
    fit.theLeft = randomTangent(aRandom);
    fit.theRight = randomTangent(aRandom);
    const double errors[] = {0.0, 0.01, 0.5, 4.0, 100.0};
    fit.theError = oneOf(errors, aRandom);
    const unsigned length = unsigned(fit.theSamples.size());
    const unsigned budgets[] = {length, length, length - 1, 1, 2, 1 + unsigned(aRandom.bounded(int(length)))};
    fit.theMaxSegments = std::max(1U, oneOf(budgets, aRandom));
    return fit;
}

} // namespace

class TestFitProperties : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void strokesOfEveryKindKeepAllPromises_data();
    void strokesOfEveryKindKeepAllPromises();
    void coordinatesAtTheEndsOfTheRangeOfNumbers();
    void entriesAgreeWithTheFullFit();
    void longStrokeIsThatOfThePlainFit();
    void oneSplitPerSampleNeedsNoDeepStack();
};

void TestFitProperties::strokesOfEveryKindKeepAllPromises_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("circles with noise") << int(FitStrokes::kNoisyCircle);
    QTest::newRow("cusps") << int(FitStrokes::kCusps);
    QTest::newRow("loops") << int(FitStrokes::kLoops);
    QTest::newRow("straight runs with repeats") << int(FitStrokes::kStraightWithRepeats);
    QTest::newRow("a hand") << int(FitStrokes::kHand);
    QTest::newRow("noise") << int(FitStrokes::kNoise);
    QTest::newRow("spirals") << int(FitStrokes::kSpiral);
    QTest::newRow("rectangles") << int(FitStrokes::kRectangle);
    QTest::newRow("zigzags") << int(FitStrokes::kZigzag);
}

void TestFitProperties::strokesOfEveryKindKeepAllPromises()
{
    QFETCH(int, kind);
    QRandomGenerator random(freshSeed());
    const double scales[] = {1.0, 1.0, 1.0, 1e-3, 1e-9, 1e-160, 1e6, 1e15, 1e60};
    int fitted = 0;
    int failed = 0;
    for (int round = 0; round < Watched::rounds(2000); ++round) {
        const auto stroke = FitStrokes::make(FitStrokes::Kind(kind), 2 + random.bounded(70), random);
        const FitCase fit = randomCase(FitStrokes::scaled(stroke, oneOf(scales, random)), random);
        if (fit.theSamples.size() < 2)
            continue;
        FitChecker checker(fit);
        const QString problem = checker.problem();
        QVERIFY2(problem.isEmpty(), qPrintable(QString("round %1: %2").arg(round).arg(problem)));
        ++(checker.count() < 0 ? failed : fitted);
    }
    QVERIFY(fitted > Watched::rounds(800));
    QVERIFY(failed > Watched::rounds(40) || kind == FitStrokes::kStraightWithRepeats);
}

void TestFitProperties::coordinatesAtTheEndsOfTheRangeOfNumbers()
{
    QRandomGenerator random(freshSeed());
    const double extremes[] = {kInfinity, -kInfinity, kHuge, -kHuge, 1e154, -1e154,
                               1e100,     1e78,       kTiny, -kTiny, 0.0};
    const double errors[] = {0.0, 0.5, 1e100, 1e300, kHuge, kInfinity, kTiny};
    for (int round = 0; round < Watched::rounds(6000); ++round) {
        auto stroke = FitStrokes::make(FitStrokes::kHand, 2 + random.bounded(20), random);
        const bool many = random.bounded(2) == 0;
        for (Point2D& sample : stroke) {
            if (random.bounded(many ? 2 : 10) == 0)
                sample.x = oneOf(extremes, random);
            if (random.bounded(many ? 2 : 10) == 0)
                sample.y = oneOf(extremes, random);
        }
        FitCase fit = randomCase(stroke, random);
        if (fit.theSamples.size() < 2)
            continue;
        fit.theError = oneOf(errors, random);
        const QString problem = FitChecker(fit).problem();
        QVERIFY2(problem.isEmpty(), qPrintable(QString("round %1: %2").arg(round).arg(problem)));
    }
}

void TestFitProperties::entriesAgreeWithTheFullFit()
{
    QRandomGenerator random(freshSeed());
    SplineOptymizeInternal maths;
    for (int round = 0; round < Watched::rounds(1000); ++round) {
        const int kind = random.bounded(int(FitStrokes::kKindCount));
        auto stroke = FitStrokes::make(FitStrokes::Kind(kind), 2 + random.bounded(60), random);
        for (std::size_t i = 1; i < stroke.size(); ++i) {
            if (random.bounded(4) == 0)
                stroke[i] = random.bounded(2) ? stroke[i - 1] : Point2D(std::nan(""), 3.0);
        }
        const FitCase fit = randomCase(stroke, random);
        PlainFit plain;
        const int length = int(stroke.size());
        std::vector<Point2D> out(4 * stroke.size());
        const bool pair = fit.theSamples.size() >= 2;
        const int expected =
            pair ? plain.full(fit.theSamples, fit.theLeft, {}, fit.theError, fit.theMaxSegments) : 0;
        QCOMPARE(maths.bezierFitCubicConst(out.data(), stroke.data(), length, fit.theLeft, fit.theError,
                                           fit.theMaxSegments),
                 expected);
        QVERIFY(expected < 0 ||
                std::equal(plain.theSegments.begin(), plain.theSegments.end(), out.begin(), sameNumbers));
        const int expectedFree =
            pair ? plain.full(fit.theSamples, {}, {}, fit.theError, fit.theMaxSegments) : 0;
        QCOMPARE(maths.bezierFitCubicR(out.data(), stroke.data(), length, fit.theError, fit.theMaxSegments),
                 expectedFree);
        QVERIFY(expectedFree < 0 ||
                std::equal(plain.theSegments.begin(), plain.theSegments.end(), out.begin(), sameNumbers));
        const int expectedOne = pair ? plain.full(fit.theSamples, {}, {}, fit.theError, 1) : 0;
        QCOMPARE(maths.bezierFitCubic(out.data(), stroke.data(), length, fit.theError), expectedOne);
        QVERIFY(expectedOne <= 0 ||
                std::equal(plain.theSegments.begin(), plain.theSegments.end(), out.begin(), sameNumbers));
    }
}

void TestFitProperties::longStrokeIsThatOfThePlainFit()
{
    QRandomGenerator random(freshSeed());
    FitCase fit;
    fit.theSamples = cleaned(FitStrokes::make(FitStrokes::kHand, 10000, random));
    fit.theMaxSegments = unsigned(fit.theSamples.size());
    FitChecker checker(fit);
    QCOMPARE(checker.problem(), QString());
    QVERIFY(checker.count() > 200 && checker.count() < 5000);
}

void TestFitProperties::oneSplitPerSampleNeedsNoDeepStack()
{
    // Far wider than long: each split takes a few samples off one end. The plain fit nests its calls.
    FitCase fit;
    for (int i = 0; i < 2000; ++i)
        fit.theSamples.push_back({double(i % 2) * 1e9, double(i)});
    fit.theMaxSegments = 2000;
    FitChecker checker(fit);
    QString problem;
    runWithStack(256 * 1024 * 1024, [&] { problem = checker.problem(); });
    QCOMPARE(problem, QString());
    QVERIFY(checker.plain().theDeepest > 900);

    // A quarter of a kilobyte for each of the nested splits would be too much.
    std::vector<Point2D> out(4 * fit.theSamples.size());
    int count = 0;
    runWithStack(128 * 1024, [&] {
        SplineOptymizeInternal maths;
        count = maths.bezierFitCubicR(out.data(), fit.theSamples.data(), 2000, 0.5, 2000);
    });
    QCOMPARE(count, checker.count());
}

MEASURE_TEST_MAIN(TestFitProperties)
#include "TestFitProperties.moc"
