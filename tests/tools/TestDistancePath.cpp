#include "CmdSwitchAnimation.h"
#include "PathFixture.h"
#include "TestFont.h"

#include <memory>

/// Copying the path of a distance.
class TestDistancePath : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<PathFixture>(); }
    void cleanup() { theFixture.reset(); }

    void copiesThePathOfTheMiddle();
    void copiesThePathOfAnEnd_data();
    void copiesThePathOfAnEnd();
    void copiesThePathOfAnEndThatStandsStillForNow_data() { copiesThePathOfAnEnd_data(); }
    void copiesThePathOfAnEndThatStandsStillForNow();
    void copyTakesTheMiddleBetweenItsKeyframes();
    void copySkipsKeyframesWithoutAValue();
    void copyOfAnEndNeedsTwoKeyframes();
    void missedCopyKeepsTheClipboard();
    void copyOfAForeignOrUnknownItemDoesNothing();
    void copyUsesItsOwnTolerances();

private:
    void copy(const QPoint& aPoint) { theFixture->theTool.copyAnimKeyframes(theFixture->item(1), aPoint); }

    std::unique_ptr<PathFixture> theFixture;
    Path& theClipboard = LmCvManipulator::theClipboardKeyframes;
};

void TestDistancePath::copiesThePathOfTheMiddle()
{
    theFixture->animate(true);
    copy(theLine);
    QCOMPARE(theClipboard, (Path{at(0, 100, 100), at(10, 200, 120)}));
    QCOMPARE(theFixture->theStack.count(), 1);
}

void TestDistancePath::copiesThePathOfAnEnd_data()
{
    QTest::addColumn<bool>("atStart");
    QTest::newRow("start") << true;
    QTest::newRow("end") << false;
}

void TestDistancePath::copiesThePathOfAnEnd()
{
    QFETCH(bool, atStart);
    theFixture->animate(true);
    copy(atStart ? theStartHead : theEndHead);
    QCOMPARE(theClipboard,
             atStart ? (Path{at(0, 90, 95), at(10, 170, 127)}) : (Path{at(0, 110, 105), at(10, 230, 113)}));
}

void TestDistancePath::copiesThePathOfAnEndThatStandsStillForNow()
{
    QFETCH(bool, atStart);
    theFixture->animate(true);
    LmKernelObjectData* record = theFixture->record(1);
    record->storeValue(DistanceFixture::kEp, 5, QPoint(1, 2)); // the middle is at (150, 110) then
    theFixture->theStack.push(new CmdSwitchAnimation(DistanceFixture::kType, 1, false));
    QVERIFY(!record->theAnimated);
    QCOMPARE(theFixture->item(1)->theStart, theStartHead); // drawn from the defaults
    copy(atStart ? theStartHead : theEndHead);
    QCOMPARE(theClipboard, atStart ? (Path{at(0, 90, 95), at(5, 149, 108), at(10, 170, 127)})
                                   : (Path{at(0, 110, 105), at(5, 151, 112), at(10, 230, 113)}));
    const Path whileStill = theClipboard;
    theFixture->theStack.undo();
    QVERIFY(record->theAnimated);
    const LmCvDistance* item = theFixture->item(1);
    copy(atStart ? item->theStart : item->theEnd);
    QCOMPARE(theClipboard, whileStill);
}

void TestDistancePath::copyTakesTheMiddleBetweenItsKeyframes()
{
    theFixture->animate(false);
    LmKernelObjectData* record = theFixture->record(1);
    record->storeValue(DistanceFixture::kEp, 5, QPoint(10, 5));
    record->storeValue(DistanceFixture::kEp, 20, QPoint(1, 1));
    copy(theEndHead);
    // At 5 the middle is (150, 110), behind 10 it stays.
    QCOMPARE(theClipboard, (Path{at(5, 160, 115), at(20, 201, 121)}));
}

void TestDistancePath::copySkipsKeyframesWithoutAValue()
{
    theFixture->animate(true);
    LmKernelObjectData* record = theFixture->record(1);
    record->getAnimationKeyframes(DistanceFixture::kPos).append(LmParamKeyframe(15, QVariant()));
    record->getAnimationKeyframes(DistanceFixture::kEp).prepend(LmParamKeyframe(0, QVariant()));
    copy(theLine);
    QCOMPARE(theClipboard, (Path{at(0, 100, 100), at(10, 200, 120)}));
    record->getAnimationKeyframes(DistanceFixture::kPos).removeLast();
    copy(theEndHead);
    QCOMPARE(theClipboard, (Path{at(0, 110, 105), at(10, 230, 113)}));
}

void TestDistancePath::copyOfAnEndNeedsTwoKeyframes()
{
    theFixture->record(1)->theAnimated = true;
    theFixture->setKeyframe(1, 4, QPoint(100, 100), QPoint(10, 5));
    copy(theEndHead);
    QVERIFY(theClipboard.isEmpty());
    copy(theLine);
    QCOMPARE(theClipboard, Path{at(4, 100, 100)});
    copy(theStartHead);
    QVERIFY(theClipboard.isEmpty());
}

void TestDistancePath::missedCopyKeepsTheClipboard()
{
    theFixture->animate(true);
    copy(QPoint(84, 150));
    QCOMPARE(theClipboard, Path{at(1, 1, 1)});
}

void TestDistancePath::copyOfAForeignOrUnknownItemDoesNothing()
{
    theFixture->animate(true);
    DistanceFixture& f = *theFixture;
    LmCvDistance unknown(&f.theTool, f.theEditor.canvas(), QStringLiteral("1"), &f.theEditor);
    unknown.setPoints(theStartHead, theEndHead);
    f.theTool.copyAnimKeyframes(&unknown, theLine);
    struct Foreign : LmCvDistance
    {
        using LmCvDistance::LmCvDistance;
        int rtti() const override { return 1106; }
    };
    Foreign foreign(&f.theTool, f.theEditor.canvas(), QStringLiteral("1"), &f.theEditor);
    foreign.setPoints(theStartHead, theEndHead);
    f.theTool.copyAnimKeyframes(&foreign, theLine);
    f.theTool.copyAnimKeyframes(nullptr, theLine);
    QCOMPARE(theClipboard, Path{at(1, 1, 1)});
}

void TestDistancePath::copyUsesItsOwnTolerances()
{
    theFixture->animate(true);
    // A square of 4 reaches 2 before its middle and 1 behind it. One of 8 reaches 4 before it, so that around
    // (33, 57) it just touches the tip (29, 53) of the start's first flank.
    theFixture->item(1)->theSelSize = 100; // of the mouse, not of copying
    copy(QPoint(84, 48));
    copy(QPoint(34, 58));
    QCOMPARE(theClipboard, Path{at(1, 1, 1)});
    theFixture->item(1)->theSelSize = 1;
    copy(QPoint(84, 49));
    QCOMPARE(theClipboard.first(), at(0, 100, 100));
    copy(QPoint(33, 57));
    QCOMPARE(theClipboard.first(), at(0, 90, 95));
}

MEASURE_TEST_MAIN(TestDistancePath)
#include "TestDistancePath.moc"
