#include "FrameTimes.h"

#include "TestFont.h"

#include <QtTest>

#include <cmath>

namespace {

/// The times of frames at a rate, rounded to a tick as a container stores them.
FrameTimes roundedTimes(int aCount, double aRate, double aTick)
{
    std::vector<double> seconds;
    for (int frame = 0; frame < aCount; ++frame)
        seconds.push_back(std::round(frame / aRate / aTick) * aTick);
    return FrameTimes(seconds, aTick, 0.0);
}

} // namespace

class TestFrameTimes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutTimesAllIsZero();
    void frameAtIsTheLastThatIsNotLater();
    void ofTwoFramesAtOneTimeTheSecondIsShown();
    void lastFrameStaysForTheMeanDistanceIfNothingElseIsKnown();
    void rateCountsDistancesAndNotFrames();
    void roundedStampsOfAConstantRateAreConstant();
    void oneLateFrameMakesTheRateVariable();
    void missingFrameIsSeenAlsoWhereATickIsAFrame();
};

void TestFrameTimes::withoutTimesAllIsZero()
{
    const FrameTimes times;
    QVERIFY(times.isEmpty());
    QCOMPARE(times.count(), 0);
    QCOMPARE(times.at(3), 0.0);
    QCOMPARE(times.frameAt(2.0), 0);
    QCOMPARE(times.end(), 0.0);
    QCOMPARE(times.meanRate(), 0.0);
}

void TestFrameTimes::frameAtIsTheLastThatIsNotLater()
{
    const FrameTimes times({1.0, 1.5, 3.0}, 0.001, 0.5);
    QCOMPARE(times.frameAt(0.2), 0);
    QCOMPARE(times.frameAt(1.0), 0);
    QCOMPARE(times.frameAt(1.499), 0);
    QCOMPARE(times.frameAt(1.5), 1);
    QCOMPARE(times.frameAt(2.999), 1);
    QCOMPARE(times.frameAt(99.0), 2);
    QCOMPARE(times.end(), 3.5);
}

void TestFrameTimes::ofTwoFramesAtOneTimeTheSecondIsShown()
{
    const FrameTimes times({0.0, 1.0, 1.0, 2.0}, 0.001, 1.0);
    QCOMPARE(times.frameAt(1.0), 2);
    QCOMPARE(times.at(1), times.at(2));
}

void TestFrameTimes::lastFrameStaysForTheMeanDistanceIfNothingElseIsKnown()
{
    const FrameTimes times({0.0, 1.0, 4.0}, 0.001, 0.0);
    QCOMPARE(times.end(), 6.0);
}

void TestFrameTimes::rateCountsDistancesAndNotFrames()
{
    const FrameTimes times({2.0, 2.04, 2.08, 2.12, 2.16}, 0.001, 0.04);
    QVERIFY(qAbs(times.meanRate() - 25.0) < 1e-9);
    QCOMPARE(FrameTimes({5.0}, 0.001, 0.0).meanRate(), 0.0);
}

void TestFrameTimes::roundedStampsOfAConstantRateAreConstant()
{
    QVERIFY(roundedTimes(2000, 30000.0 / 1001.0, 0.001).isConstant());
    QVERIFY(roundedTimes(500, 59.94, 0.001).isConstant());
    QVERIFY(roundedTimes(500, 25.0, 0.04).isConstant());
}

void TestFrameTimes::oneLateFrameMakesTheRateVariable()
{
    std::vector<double> seconds;
    for (int frame = 0; frame < 100; ++frame)
        seconds.push_back(frame * 0.04 + (frame == 50 ? 0.01 : 0.0));
    QVERIFY(!FrameTimes(seconds, 0.001, 0.04).isConstant());
}

void TestFrameTimes::missingFrameIsSeenAlsoWhereATickIsAFrame()
{
    std::vector<double> seconds;
    for (int frame = 0; frame < 100; ++frame)
        if (frame != 50)
            seconds.push_back(frame * 0.04);
    QVERIFY(!FrameTimes(seconds, 0.04, 0.04).isConstant());
}

MEASURE_TEST_MAIN(TestFrameTimes)
#include "TestFrameTimes.moc"
