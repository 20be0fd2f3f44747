#include "DistanceFixture.h"
#include "TestFont.h"

#include <limits>
#include <memory>

class TestDistanceFrames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { theFixture.reset(); }

    void animatedObjectFollowsTheFrames_data();
    void animatedObjectFollowsTheFrames();
    void plainObjectDoesNotFollowTheFrames();
    void animatedViewSetsPlainObjectsAgain();
    void viewSignalSwitchesTheAnimatedView();
    void otherFrameThanTheCurrentLeavesTheLabels();
    void originIsTheCallers();
    void editOfAnAnimatedObjectIsAKeyframe();
    void undoOfAKeyframeBringsTheWayBack();
    void editOfAPlainObjectIsTheDefault();
    void regionOfInterestMovesTheCanvas();
    void twiceTheWidthDoublesTheDefaults();
    void oddRatioRounds();
    void coordinatesBeyondTheRangeStopAtItsEnds();
    void resolutionIsNoUndoStep();
    void resolutionKeepsTheKeyframes();
    void resolutionShowsTheDefaults();

private:
    void animate();

    std::unique_ptr<DistanceFixture> theFixture;
};

// A line from (20, 50) to (148, 50): record (124, 80) and (64, 0).
void TestDistanceFrames::init()
{
    theFixture = std::make_unique<DistanceFixture>();
    LmCvManipulator::theLastUsedValueName = QStringLiteral("DX");
    theFixture->drag(QPoint(20, 50), QPoint(148, 50));
}

// From frame 0 to 10 the middle goes 100 to the right and the half length from 10 to 30.
void TestDistanceFrames::animate()
{
    theFixture->record(1)->theAnimated = true;
    theFixture->setKeyframe(1, 0, QPoint(100, 100), QPoint(10, 0));
    theFixture->setKeyframe(1, 10, QPoint(200, 100), QPoint(30, 0));
}

void TestDistanceFrames::animatedObjectFollowsTheFrames_data()
{
    QTest::addColumn<bool>("playing");
    QTest::newRow("stopped") << false;
    QTest::newRow("playing") << true;
}

void TestDistanceFrames::animatedObjectFollowsTheFrames()
{
    QFETCH(bool, playing);
    DistanceFixture& f = *theFixture;
    animate();
    f.theKernel.showFrame(0, playing);
    QCOMPARE(f.item(1)->theStart, QPoint(50, 70)); // (60, 70) less 10
    QCOMPARE(f.item(1)->theEnd, QPoint(70, 70));
    QCOMPARE(f.item(1)->theDisplayValue, QStringLiteral("20.00"));
    f.theKernel.showFrame(5, playing);
    QCOMPARE(f.item(1)->theStart, QPoint(90, 70)); // (110, 70) less 20
    QCOMPARE(f.item(1)->theEnd, QPoint(130, 70));
    QCOMPARE(f.item(1)->theDisplayValue, QStringLiteral("40.00"));
    f.theKernel.showFrame(99, playing);
    QCOMPARE(f.item(1)->theEnd, QPoint(190, 70));
    QCOMPARE(f.theStack.count(), 1);
}

void TestDistanceFrames::plainObjectDoesNotFollowTheFrames()
{
    DistanceFixture& f = *theFixture;
    f.item(1)->setPoints(QPoint(1, 2), QPoint(3, 4));
    f.theKernel.showFrame(5, false);
    f.theKernel.showFrame(6, true);
    QCOMPARE(f.item(1)->theStart, QPoint(1, 2));
}

void TestDistanceFrames::animatedViewSetsPlainObjectsAgain()
{
    DistanceFixture& f = *theFixture;
    LmCvManipulator::theCurrentViewAnimated = true;
    f.item(1)->setPoints(QPoint(1, 2), QPoint(3, 4));
    for (const int frame : {5, 6}) {
        f.theKernel.showFrame(frame, false);
        QCOMPARE(f.item(1)->theStart, QPoint(20, 50));
        QCOMPARE(f.item(1)->theEnd, QPoint(148, 50));
    }
}

void TestDistanceFrames::viewSignalSwitchesTheAnimatedView()
{
    DistanceFixture& f = *theFixture;
    f.theKernel.announceCurrentView(0, 1);
    QVERIFY(LmCvManipulator::theCurrentViewAnimated);
    f.item(1)->setPoints(QPoint(1, 2), QPoint(3, 4));
    f.theKernel.showFrame(5, false);
    QCOMPARE(f.item(1)->theStart, QPoint(20, 50));
    f.theKernel.announceCurrentView(0, 0);
    QVERIFY(!LmCvManipulator::theCurrentViewAnimated);
}

void TestDistanceFrames::otherFrameThanTheCurrentLeavesTheLabels()
{
    DistanceFixture& f = *theFixture;
    animate();
    f.theKernel.showFrame(0, false);
    QCOMPARE(f.item(1)->theDisplayValue, QStringLiteral("20.00"));
    f.item(1)->setDisplayValue(QStringLiteral("kept"));
    for (const long long frame : {10LL, -1LL}) {
        f.theTool.recreateCanvasObjects(f.theKernel.origin(), frame, true);
        QCOMPARE(f.item(1)->theDisplayValue, QStringLiteral("kept"));
    }
    QCOMPARE(f.item(1)->theEnd, QPoint(148, 50)); // the default
    f.theKernel.theCurrentFrame = 10;
    f.theTool.recreateCanvasObjects(f.theKernel.origin(), 10, true);
    QCOMPARE(f.item(1)->theDisplayValue, QStringLiteral("60.00"));
}

void TestDistanceFrames::originIsTheCallers()
{
    DistanceFixture& f = *theFixture;
    f.theTool.recreateCanvasObjects(QPoint(100, 70), 0, false);
    QCOMPARE(f.item(1)->theStart, QPoint(20, 50)); // plain and not asked for
    f.theTool.recreateCanvasObjects(QPoint(100, 70), 0, true);
    QCOMPARE(f.item(1)->theStart, QPoint(-40, 10));
    QCOMPARE(f.item(1)->theEnd, QPoint(88, 10));
}

void TestDistanceFrames::editOfAnAnimatedObjectIsAKeyframe()
{
    DistanceFixture& f = *theFixture;
    animate();
    f.theKernel.showFrame(5, false); // (90, 70) to (130, 70)
    f.drag(QPoint(130, 70), QPoint(150, 90));
    QCOMPARE(f.record(1)->getKeyframedFrames(), (QList<long long>{0, 5, 10}));
    QCOMPARE(f.record(1)->getKeyframe(DistanceFixture::kPos, 5).getValue(), QVariant(QPoint(160, 110)));
    QCOMPARE(f.record(1)->getKeyframe(DistanceFixture::kEp, 5).getValue(), QVariant(QPoint(30, 10)));
    QCOMPARE(f.pos(1), QPoint(124, 80));
    QCOMPARE(f.ep(1), QPoint(64, 0));
    QCOMPARE(f.item(1)->theDisplayValue, QStringLiteral("60.00"));
}

void TestDistanceFrames::undoOfAKeyframeBringsTheWayBack()
{
    DistanceFixture& f = *theFixture;
    animate();
    f.theKernel.showFrame(5, false);
    f.drag(QPoint(130, 70), QPoint(150, 90));
    f.theStack.undo();
    QCOMPARE(f.record(1)->getKeyframedFrames(), (QList<long long>{0, 10}));
    QCOMPARE(f.item(1)->theEnd, QPoint(130, 70));
    f.theStack.redo();
    QCOMPARE(f.item(1)->theEnd, QPoint(150, 90));
}

void TestDistanceFrames::editOfAPlainObjectIsTheDefault()
{
    DistanceFixture& f = *theFixture;
    f.theKernel.showFrame(5, false);
    f.drag(QPoint(148, 50), QPoint(180, 90));
    QVERIFY(f.record(1)->getKeyframedFrames().isEmpty());
    QCOMPARE(f.pos(1), QPoint(140, 100));
}

void TestDistanceFrames::regionOfInterestMovesTheCanvas()
{
    DistanceFixture& f = *theFixture;
    LmCvManipulator::theCurrentViewAnimated = true;
    f.theImage.setQRoi(QRect(10, 20, 300, 200));
    f.theKernel.showFrame(0, false);
    // The same place of the image, (60, 80) to (188, 80), seen from (10, 20).
    QCOMPARE(f.item(1)->theStart, QPoint(50, 60));
    QCOMPARE(f.item(1)->theEnd, QPoint(178, 60));
    f.drag(QPoint(178, 60), QPoint(198, 60));
    QCOMPARE(f.pos(1), QPoint(134, 80));
    f.theStack.undo();
    QCOMPARE(f.pos(1), QPoint(124, 80));
    QCOMPARE(f.item(1)->theEnd, QPoint(178, 60));
}

void TestDistanceFrames::twiceTheWidthDoublesTheDefaults()
{
    DistanceFixture& f = *theFixture;
    f.drag(QPoint(20, 100),
           QPoint(61, 151)); // (41, 126) and (20, 25) after rounding; the image adds (40, 30)
    QCOMPARE(f.pos(2), QPoint(81, 156));
    f.theKernel.announceResolution(QSize(400, 300), QSize(800, 300)); // the heights play no part
    QCOMPARE(f.pos(1), QPoint(248, 160));
    QCOMPARE(f.ep(1), QPoint(128, 0));
    QCOMPARE(f.pos(2), QPoint(162, 312));
    QCOMPARE(f.ep(2), QPoint(40, 50));
    QCOMPARE(f.item(1)->theStart, QPoint(80, 130));
    QCOMPARE(f.item(1)->theEnd, QPoint(336, 130));
    QCOMPARE(f.stored(1102, 1, DistanceFixture::kDispv), QVariant(QStringLiteral("DX")));
    QCOMPARE(f.item(1)->theDisplayValue, QStringLiteral("128.00")); // until the next frame
}

void TestDistanceFrames::oddRatioRounds()
{
    DistanceFixture& f = *theFixture;
    f.record(1)->storeValue(DistanceFixture::kPos, -1, QPoint(111, 85));
    f.record(1)->storeValue(DistanceFixture::kEp, -1, QPoint(-41, 1));
    f.theKernel.announceResolution(QSize(400, 300), QSize(600, 450));
    QCOMPARE(f.pos(1), QPoint(167, 128)); // 166.5 and 127.5
    QCOMPARE(f.ep(1), QPoint(-62, 2));    // -61.5 and 1.5
}

void TestDistanceFrames::coordinatesBeyondTheRangeStopAtItsEnds()
{
    using Range = std::numeric_limits<int>;
    DistanceFixture& f = *theFixture;
    f.record(1)->storeValue(DistanceFixture::kPos, -1, QPoint(Range::max(), Range::min()));
    f.record(1)->storeValue(DistanceFixture::kEp, -1, QPoint(Range::max() / 2 + 1, Range::min() / 2 - 1));
    f.theKernel.announceResolution(QSize(400, 300), QSize(800, 600));
    QCOMPARE(f.pos(1), QPoint(Range::max(), Range::min()));
    QCOMPARE(f.ep(1), QPoint(Range::max(), Range::min()));
    f.theKernel.announceResolution(QSize(800, 600), QSize(400, 300));
    QCOMPARE(f.pos(1), QPoint(1073741824, -1073741824)); // half of 2147483647, rounded, and of -2147483648
    f.theKernel.announceResolution(QSize(1, 1), QSize(Range::max(), 1));
    QCOMPARE(f.ep(1), QPoint(Range::max(), Range::min()));
    // The ends themselves are reached, not passed by a rounding.
    f.theKernel.announceResolution(QSize(400, 300), QSize(400, 300));
    QCOMPARE(f.pos(1), QPoint(Range::max(), Range::min()));
}

void TestDistanceFrames::resolutionIsNoUndoStep()
{
    DistanceFixture& f = *theFixture;
    f.theKernel.announceResolution(QSize(400, 300), QSize(800, 600));
    QCOMPARE(f.theStack.count(), 1);
    f.theKernel.announceResolution(QSize(0, 0), QSize(800, 600)); // no ratio, no change
    QCOMPARE(f.pos(1), QPoint(248, 160));
}

void TestDistanceFrames::resolutionKeepsTheKeyframes()
{
    DistanceFixture& f = *theFixture;
    animate();
    f.theKernel.announceResolution(QSize(400, 300), QSize(800, 600));
    QCOMPARE(f.pos(1), QPoint(248, 160));
    QCOMPARE(f.record(1)->getKeyframe(DistanceFixture::kPos, 10).getValue(), QVariant(QPoint(200, 100)));
}

void TestDistanceFrames::resolutionShowsTheDefaults()
{
    DistanceFixture& f = *theFixture;
    animate();
    f.theKernel.showFrame(10, false);
    QCOMPARE(f.item(1)->theEnd, QPoint(190, 70));
    f.theKernel.announceResolution(QSize(400, 300), QSize(800, 600));
    QCOMPARE(f.item(1)->theEnd, QPoint(336, 130));
    f.theKernel.showFrame(10, false); // the next frame puts it back
    QCOMPARE(f.item(1)->theEnd, QPoint(190, 70));
}

MEASURE_TEST_MAIN(TestDistanceFrames)
#include "TestDistanceFrames.moc"
