#include "TestFont.h"
#include "TimelineScale.h"

#include <QtTest>

/// Where frames stand on the time line. A line of 220 pixels with margins of 10 shows 101 frames two pixels
/// apart.
class TestTimelineScale : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void allFramesFitAtFirst();
    void framesOutsideAreTheNearestInside();
    void fewFramesAreNoWiderThanTheWidest();
    void singleFrameStandsAtTheMargin();
    void zoomHoldsTheFrameUnderThePointer();
    void zoomEndsAtTheWidestFrameAndAtTheWhole();
    void revealMovesAsLittleAsNeeded();
    void otherWidthKeepsTheWholeFitted();
    void otherSequenceIsShownWhole();
    void ticksAreRound_data();
    void ticksAreRound();
};

static TimelineScale scale()
{
    TimelineScale scale;
    scale.setExtent(220, 10, 101);
    return scale;
}

void TestTimelineScale::allFramesFitAtFirst()
{
    const TimelineScale line = scale();
    QCOMPARE(line.pixelsPerFrame(), 2.0);
    QCOMPARE(line.xOf(0), 10.0);
    QCOMPARE(line.xOf(100), 210.0);
    QCOMPARE(line.frameAt(60.9), 25);
    QCOMPARE(line.frameAt(61.1), 26);
}

void TestTimelineScale::framesOutsideAreTheNearestInside()
{
    const TimelineScale line = scale();
    QCOMPARE(line.frameAt(-500.0), 0);
    QCOMPARE(line.frameAt(1e6), 100);
}

void TestTimelineScale::fewFramesAreNoWiderThanTheWidest()
{
    TimelineScale line;
    line.setExtent(1020, 10, 3);
    QCOMPARE(line.pixelsPerFrame(), TimelineScale::kWidestFrame);
    QCOMPARE(line.xOf(2), 10.0 + 2.0 * TimelineScale::kWidestFrame);
    QCOMPARE(line.frameAt(1000.0), 2);
}

void TestTimelineScale::singleFrameStandsAtTheMargin()
{
    TimelineScale line;
    for (const int frames : {0, 1}) {
        line.setExtent(220, 10, frames);
        QCOMPARE(line.frameCount(), 1);
        QCOMPARE(line.xOf(0), 10.0);
        QCOMPARE(line.frameAt(200.0), 0);
    }
    line.setExtent(0, 10, 5);
    QVERIFY(line.pixelsPerFrame() > 0.0);
    QCOMPARE(line.frameAt(0.0), 0);
}

void TestTimelineScale::zoomHoldsTheFrameUnderThePointer()
{
    TimelineScale line = scale();
    const double x = line.xOf(50);
    line.zoom(4.0, x);
    QCOMPARE(line.pixelsPerFrame(), 8.0);
    QCOMPARE(line.xOf(50), x);
    QCOMPARE(line.shownFrames(), 25.0);
    QCOMPARE(line.firstShown(), 37.5);
}

void TestTimelineScale::zoomEndsAtTheWidestFrameAndAtTheWhole()
{
    TimelineScale line = scale();
    line.zoom(1000.0, 10.0);
    QCOMPARE(line.pixelsPerFrame(), TimelineScale::kWidestFrame);
    QCOMPARE(line.firstShown(), 0.0);
    line.zoom(1e-6, 100.0);
    QCOMPARE(line.pixelsPerFrame(), 2.0);
    QCOMPARE(line.xOf(100), 210.0);
}

void TestTimelineScale::revealMovesAsLittleAsNeeded()
{
    TimelineScale line = scale();
    line.zoom(4.0, line.xOf(0)); // 25 frames are shown
    line.reveal(20);
    QCOMPARE(line.firstShown(), 0.0);
    line.reveal(40);
    QCOMPARE(line.firstShown(), 15.0);
    line.reveal(10);
    QCOMPARE(line.firstShown(), 10.0);
    line.scrollTo(1000.0);
    QCOMPARE(line.firstShown(), 75.0);
}

void TestTimelineScale::otherWidthKeepsTheWholeFitted()
{
    TimelineScale line = scale();
    line.setExtent(420, 10, 101);
    QCOMPARE(line.pixelsPerFrame(), 4.0);
    line.zoom(2.0, 10.0);
    line.setExtent(220, 10, 101);
    QCOMPARE(line.pixelsPerFrame(), 8.0);
}

void TestTimelineScale::otherSequenceIsShownWhole()
{
    TimelineScale line = scale();
    line.zoom(4.0, 100.0);
    line.setExtent(220, 10, 201);
    QCOMPARE(line.pixelsPerFrame(), 1.0);
    QCOMPARE(line.firstShown(), 0.0);
}

void TestTimelineScale::ticksAreRound_data()
{
    QTest::addColumn<double>("leastPixels");
    QTest::addColumn<int>("step");
    QTest::newRow("every frame") << 2.0 << 1;
    QTest::newRow("two") << 2.1 << 2;
    QTest::newRow("five") << 9.0 << 5;
    QTest::newRow("ten") << 10.5 << 10;
    QTest::newRow("fifty") << 60.0 << 50;
    QTest::newRow("hundred") << 101.0 << 100;
}

void TestTimelineScale::ticksAreRound()
{
    QFETCH(double, leastPixels);
    QTEST(scale().tickStep(leastPixels), "step");
}

MEASURE_TEST_MAIN(TestTimelineScale)
#include "TestTimelineScale.moc"
