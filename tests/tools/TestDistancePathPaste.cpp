#include "CmdSwitchAnimation.h"
#include "PathFixture.h"
#include "TestFont.h"

#include <memory>

/// Letting a distance follow a path.
class TestDistancePathPaste : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<PathFixture>(); }
    void cleanup() { theFixture.reset(); }

    void pasteOnTheLineMovesTheMiddle();
    void pasteOnAnAnimatedLineHasOneCommand();
    void pasteOnAnEndKeepsTheOther_data();
    void pasteOnAnEndKeepsTheOther();
    void pasteReadsTheTargetAtEachFrame();
    void pasteReadsTheKeptKeyframesOfATargetThatStandsStill();
    void pasteOfAnEmptyClipboardOnTheLine();
    void pasteOfAnEmptyClipboardOnAnEnd();
    void pasteIsOneUndoStep();
    void missedPasteDoesNothing();
    void pasteOnAForeignOrUnknownItemDoesNothing();
    void pasteUsesItsOwnTolerances();

private:
    Path path(int aParam) { return theFixture->record(1)->getAnimationKeyframes(aParam); }
    void paste(const QPoint& aPoint) { theFixture->theTool.pasteAnimKeyframes(theFixture->item(1), aPoint); }

    std::unique_ptr<PathFixture> theFixture;
    Path& theClipboard = LmCvManipulator::theClipboardKeyframes;
};

void TestDistancePathPaste::pasteOnTheLineMovesTheMiddle()
{
    theClipboard = Path{at(0, 100, 100), at(10, 140, 120)};
    paste(theLine);
    QCOMPARE(path(DistanceFixture::kPos), theClipboard);
    QVERIFY(path(DistanceFixture::kEp).isEmpty());
    QVERIFY(theFixture->record(1)->theAnimated);
    // The canvas follows by the kernel's signals: (60, 70) with 64 to each side.
    QCOMPARE(theFixture->item(1)->theStart, QPoint(-4, 70));
    QCOMPARE(theFixture->item(1)->theEnd, QPoint(124, 70));
    QCOMPARE(theFixture->theStack.count(), 2);
    QCOMPARE(theFixture->theStack.text(1), QStringLiteral("Setting animation"));
    QCOMPARE(theFixture->theStack.command(1)->childCount(), 2);
}

void TestDistancePathPaste::pasteOnAnAnimatedLineHasOneCommand()
{
    theFixture->animate(true);
    theClipboard = Path{at(3, 100, 100)};
    paste(theLine);
    QCOMPARE(theFixture->theStack.command(1)->childCount(), 1);
    QVERIFY(theFixture->record(1)->theAnimated);
    QCOMPARE(path(DistanceFixture::kPos), theClipboard);
    QCOMPARE(path(DistanceFixture::kEp).size(), 2);
}

void TestDistancePathPaste::pasteOnAnEndKeepsTheOther_data()
{
    QTest::addColumn<bool>("atStart");
    QTest::addColumn<QPoint>("moved");
    QTest::addColumn<QPoint>("pos");
    QTest::addColumn<QPoint>("ep");
    // The start is (60, 80) and the end (188, 80) in the image.
    QTest::newRow("start, even") << true << QPoint(100, 100) << QPoint(144, 90) << QPoint(44, -10);
    QTest::newRow("start, odd") << true << QPoint(101, 101) << QPoint(145, 91) << QPoint(43, -11);
    QTest::newRow("start, below 0") << true << QPoint(-189, -81) << QPoint(-1, -1) << QPoint(189, 81);
    QTest::newRow("end, even") << false << QPoint(100, 100) << QPoint(80, 90) << QPoint(20, 10);
    QTest::newRow("end, odd") << false << QPoint(101, 101) << QPoint(81, 91) << QPoint(20, 10);
    QTest::newRow("end, below 0") << false << QPoint(-61, -81) << QPoint(-1, -1) << QPoint(-60, -80);
    QTest::newRow("crosswise") << false << QPoint(61, 79) << QPoint(61, 80) << QPoint(0, -1);
}

void TestDistancePathPaste::pasteOnAnEndKeepsTheOther()
{
    QFETCH(bool, atStart);
    QFETCH(QPoint, moved);
    QFETCH(QPoint, pos);
    QFETCH(QPoint, ep);
    theClipboard = Path{LmParamKeyframe(7, moved)};
    paste(atStart ? theStartHead : theEndHead);
    QCOMPARE(path(DistanceFixture::kPos), Path{LmParamKeyframe(7, pos)});
    QCOMPARE(path(DistanceFixture::kEp), Path{LmParamKeyframe(7, ep)});
    QVERIFY(theFixture->record(1)->theAnimated);
    QCOMPARE(theFixture->theStack.command(1)->childCount(), 3);
    QCOMPARE(theFixture->theStack.text(1), QStringLiteral("Setting animation"));
}

void TestDistancePathPaste::pasteReadsTheTargetAtEachFrame()
{
    theFixture->animate(true); // at 5: (150, 110) and (20, -1)
    theClipboard = Path{at(0, 0, 0), at(5, 30, 11)};
    paste(theEndHead);
    // At 0 the start is (90, 95), at 5 it is (130, 111).
    QCOMPARE(path(DistanceFixture::kPos), (Path{at(0, 45, 48), at(5, 80, 61)}));
    QCOMPARE(path(DistanceFixture::kEp), (Path{at(0, -45, -48), at(5, -50, -50)}));
    QCOMPARE(theFixture->theStack.command(1)->childCount(), 2);
}

void TestDistancePathPaste::pasteReadsTheKeptKeyframesOfATargetThatStandsStill()
{
    theFixture->animate(true);
    theFixture->theStack.push(new CmdSwitchAnimation(DistanceFixture::kType, 1, false));
    theClipboard = Path{at(0, 0, 0), at(5, 30, 11)};
    paste(theEndHead);
    // As above: the paste animates the object again, and the other end goes on along its own path.
    QCOMPARE(path(DistanceFixture::kPos), (Path{at(0, 45, 48), at(5, 80, 61)}));
    QCOMPARE(path(DistanceFixture::kEp), (Path{at(0, -45, -48), at(5, -50, -50)}));
    QVERIFY(theFixture->record(1)->theAnimated);
}

void TestDistancePathPaste::pasteOfAnEmptyClipboardOnTheLine()
{
    theFixture->animate(true);
    theClipboard.clear();
    paste(theLine);
    QCOMPARE(theFixture->theStack.count(), 2);
    QVERIFY(path(DistanceFixture::kPos).isEmpty());
    QCOMPARE(path(DistanceFixture::kEp).size(), 2);
    theFixture->theStack.undo();
    QCOMPARE(path(DistanceFixture::kPos).size(), 2);
}

void TestDistancePathPaste::pasteOfAnEmptyClipboardOnAnEnd()
{
    theFixture->animate(true);
    theClipboard.clear();
    paste(theStartHead);
    QCOMPARE(theFixture->theStack.count(), 2);
    QVERIFY(path(DistanceFixture::kPos).isEmpty());
    QVERIFY(path(DistanceFixture::kEp).isEmpty());
    QVERIFY(theFixture->record(1)->theAnimated);
}

void TestDistancePathPaste::pasteIsOneUndoStep()
{
    theClipboard = Path{at(0, 100, 100)};
    paste(theEndHead);
    QCOMPARE(theFixture->theStack.count(), 2);
    theFixture->theStack.undo();
    QVERIFY(!theFixture->record(1)->theAnimated);
    QVERIFY(path(DistanceFixture::kPos).isEmpty());
    QVERIFY(path(DistanceFixture::kEp).isEmpty());
    QCOMPARE(theFixture->item(1)->theStart, theStartHead);
    QCOMPARE(theFixture->item(1)->theEnd, theEndHead);
    theFixture->theStack.redo();
    QVERIFY(theFixture->record(1)->theAnimated);
    QCOMPARE(theFixture->item(1)->theEnd, QPoint(60, 70)); // (100, 100) in the image
}

void TestDistancePathPaste::missedPasteDoesNothing()
{
    theClipboard = Path{at(0, 100, 100)};
    paste(QPoint(84, 150));
    QCOMPARE(theFixture->theStack.count(), 1);
    QVERIFY(!theFixture->record(1)->theAnimated);
}

void TestDistancePathPaste::pasteOnAForeignOrUnknownItemDoesNothing()
{
    DistanceFixture& f = *theFixture;
    LmCvDistance unknown(&f.theTool, f.theEditor.canvas(), QStringLiteral("1"), &f.theEditor);
    unknown.setPoints(theStartHead, theEndHead);
    f.theTool.pasteAnimKeyframes(&unknown, theLine);
    f.theTool.pasteAnimKeyframes(nullptr, theLine);
    QCOMPARE(f.theStack.count(), 1);
    f.theTool.pasteAnimKeyframes(f.item(1), theLine);
    QCOMPARE(f.theStack.count(), 2);
}

void TestDistancePathPaste::pasteUsesItsOwnTolerances()
{
    theFixture->item(1)->theSelSize = 100;
    paste(QPoint(84, 48));
    paste(QPoint(34, 58));
    QCOMPARE(theFixture->theStack.count(), 1);
    theFixture->item(1)->theSelSize = 1;
    paste(QPoint(84, 49));
    QCOMPARE(theFixture->theStack.count(), 2);
    QVERIFY(path(DistanceFixture::kEp).isEmpty());
    theFixture->theStack.undo();
    paste(QPoint(33, 57));
    QCOMPARE(path(DistanceFixture::kEp).size(), 1);
}

MEASURE_TEST_MAIN(TestDistancePathPaste)
#include "TestDistancePathPaste.moc"
