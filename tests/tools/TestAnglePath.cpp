#include "AngleFixture.h"
#include "CmdSwitchAnimation.h"
#include "TestFont.h"

#include <memory>

using Path = QLinkedList<LmParamKeyframe>;

namespace {

const QPoint theVertex(100, 150);
const QPoint theUp(100, 70);     // the first end
const QPoint theRight(180, 150); // the second end
const QPoint onLabel(theVertex + QPoint(0, 12));
const QPoint onArc(theVertex + QPoint(12, -12));
const QPoint onArm(140, 150);
const QPoint nowhere(20, 20);

LmParamKeyframe at(long long aFrame, int aX, int aY)
{
    return LmParamKeyframe(aFrame, QPoint(aX, aY));
}

} // namespace

/// Copying the paths of an angle's vertex and ends, and following copied ones.
class TestAnglePath : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { theFixture.reset(); }

    void copiesThePathOfTheVertex_data();
    void copiesThePathOfTheVertex();
    void copiesThePathOfTheOtherEnd_data();
    void copiesThePathOfTheOtherEnd();
    void copyTakesTheVertexBetweenItsKeyframes();
    void copySkipsKeyframesWithoutAValue();
    void copyOfAnEndNeedsTwoKeyframes();
    void missedCopyKeepsTheClipboard();
    void copyUsesItsOwnTolerances();
    void unknownItemsAreLeftAlone();
    void pasteFillsTheListsOfItsTarget_data();
    void pasteFillsTheListsOfItsTarget();
    void pasteOnTheVertexReadsTheEndsAtEachFrame();
    void headComesBeforeTheLabel();
    void pasteIsOneUndoStepAndAnimates();
    void pasteOnAnAnimatedAngleHasNoSwitch();
    void emptyClipboardLeavesOnlyTheSwitch_data();
    void emptyClipboardLeavesOnlyTheSwitch();

private:
    void copy(const QPoint& aPoint) { theFixture->theTool.copyAnimKeyframes(theFixture->item(1), aPoint); }
    void paste(const QPoint& aPoint) { theFixture->theTool.pasteAnimKeyframes(theFixture->item(1), aPoint); }
    Path path(int aParam) { return theFixture->record(1)->getAnimationKeyframes(aParam); }
    void animate();

    std::unique_ptr<AngleFixture> theFixture;
    Path& theClipboard = LmCvManipulator::theClipboardKeyframes;
};

// The record: (140, 180), (0, -80), (80, 0).
void TestAnglePath::init()
{
    theFixture = std::make_unique<AngleFixture>();
    theFixture->draw(theVertex, theUp, theRight);
    theClipboard = Path{at(1, 1, 1)};
}

// Stays still on the canvas, so that its parts are where they were drawn.
void TestAnglePath::animate()
{
    theFixture->setKeyframe(1, 0, QPoint(100, 100), QPoint(0, -10), QPoint(10, 5));
    theFixture->setKeyframe(1, 10, QPoint(200, 120), QPoint(-5, -20), QPoint(30, -7));
}

void TestAnglePath::copiesThePathOfTheVertex_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::newRow("inside the arc") << onArc;
    QTest::newRow("arm") << onArm;
    QTest::newRow("label") << onLabel;
}

void TestAnglePath::copiesThePathOfTheVertex()
{
    QFETCH(QPoint, point);
    animate();
    copy(point);
    QCOMPARE(theClipboard, (Path{at(0, 100, 100), at(10, 200, 120)}));
    QCOMPARE(theFixture->theStack.count(), 1);
}

void TestAnglePath::copiesThePathOfTheOtherEnd_data()
{
    QTest::addColumn<QPoint>("head");
    QTest::addColumn<QPoint>("at0");
    QTest::addColumn<QPoint>("at10");
    QTest::newRow("head of the first arm") << theUp << QPoint(110, 105) << QPoint(230, 113);
    QTest::newRow("head of the second arm") << theRight << QPoint(100, 90) << QPoint(195, 100);
}

void TestAnglePath::copiesThePathOfTheOtherEnd()
{
    QFETCH(QPoint, head);
    QFETCH(QPoint, at0);
    QFETCH(QPoint, at10);
    animate();
    copy(head);
    QCOMPARE(theClipboard, (Path{LmParamKeyframe(0, at0), LmParamKeyframe(10, at10)}));
}

void TestAnglePath::copyTakesTheVertexBetweenItsKeyframes()
{
    LmKernelObjectData* record = theFixture->record(1);
    record->storeValue(AngleFixture::kPos, 0, QPoint(100, 100));
    record->storeValue(AngleFixture::kPos, 10, QPoint(200, 120));
    record->storeValue(AngleFixture::kEp2, 5, QPoint(10, 5));
    record->storeValue(AngleFixture::kEp2, 20, QPoint(1, 1));
    copy(theUp);
    QCOMPARE(theClipboard, (Path{at(5, 160, 115), at(20, 201, 121)}));
}

void TestAnglePath::copySkipsKeyframesWithoutAValue()
{
    animate();
    LmKernelObjectData* record = theFixture->record(1);
    record->getAnimationKeyframes(AngleFixture::kPos).append(LmParamKeyframe(15, QVariant()));
    copy(onArc);
    QCOMPARE(theClipboard, (Path{at(0, 100, 100), at(10, 200, 120)}));
    record->getAnimationKeyframes(AngleFixture::kPos).removeLast();
    record->getAnimationKeyframes(AngleFixture::kEp1).append(LmParamKeyframe(15, QVariant()));
    copy(theRight);
    QCOMPARE(theClipboard, (Path{at(0, 100, 90), at(10, 195, 100)}));
}

void TestAnglePath::copyOfAnEndNeedsTwoKeyframes()
{
    theFixture->setKeyframe(1, 4, QPoint(100, 100), QPoint(10, 5), QPoint(3, 3));
    copy(theUp);
    QVERIFY(theClipboard.isEmpty());
    copy(onLabel);
    QCOMPARE(theClipboard, Path{at(4, 100, 100)});
    // It is the other arm's list that counts.
    theFixture->record(1)->storeValue(AngleFixture::kEp1, 9, QPoint(0, 0));
    copy(theUp);
    QVERIFY(theClipboard.isEmpty());
    copy(theRight);
    QCOMPARE(theClipboard.size(), 2);
}

void TestAnglePath::missedCopyKeepsTheClipboard()
{
    animate();
    copy(nowhere);
    QCOMPARE(theClipboard, Path{at(1, 1, 1)});
}

void TestAnglePath::copyUsesItsOwnTolerances()
{
    animate();
    // A square of 4 reaches 2 before its middle and 1 behind it; one of 8 takes in 4 below the head's tip.
    theFixture->item(1)->theSelSize = 100;
    copy(onArm + QPoint(0, 3));
    copy(onArm - QPoint(0, 2));
    QCOMPARE(theClipboard, Path{at(1, 1, 1)});
    theFixture->item(1)->theSelSize = 1;
    copy(onArm + QPoint(0, 2));
    QCOMPARE(theClipboard.first(), at(0, 100, 100));
    copy(QPoint(174, 156)); // 4 below the middle of the second arm's second flank
    QCOMPARE(theClipboard.first(), at(0, 100, 90));
}

void TestAnglePath::unknownItemsAreLeftAlone()
{
    animate();
    AngleFixture& f = *theFixture;
    LmCvAngle unknown(&f.theTool, f.theEditor.canvas(), QStringLiteral("1"), &f.theEditor);
    unknown.setPoints(theVertex, theUp, theRight);
    for (const LmCvObject* object :
         {static_cast<const LmCvObject*>(nullptr), static_cast<const LmCvObject*>(&unknown)}) {
        f.theTool.copyAnimKeyframes(object, onArc);
        f.theTool.pasteAnimKeyframes(object, onArc);
    }
    QCOMPARE(theClipboard, Path{at(1, 1, 1)});
    QCOMPARE(f.theStack.count(), 1);
}

void TestAnglePath::pasteFillsTheListsOfItsTarget_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<QList<Path>>("paths"); // of "pos", "ep1", "ep2"
    const Path moved{at(3, 150, 200), at(7, 10, 20)};
    // The vertex is at (140, 180) in the image, the ends at (140, 100) and (220, 180).
    QTest::newRow("label: the vertex, the ends stay")
        << onLabel
        << QList<Path>{moved, Path{at(3, -10, -100), at(7, 130, 80)}, Path{at(3, 70, -20), at(7, 210, 160)}};
    QTest::newRow("first head") << theUp
                                << QList<Path>{Path(), Path{at(3, 10, 20), at(7, -130, -160)}, Path()};
    QTest::newRow("second head") << theRight
                                 << QList<Path>{Path(), Path(), Path{at(3, 10, 20), at(7, -130, -160)}};
    QTest::newRow("arc: the whole") << onArc << QList<Path>{moved, Path(), Path()};
    QTest::newRow("arm: the whole") << onArm << QList<Path>{moved, Path(), Path()};
    QTest::newRow("anywhere else: the whole") << nowhere << QList<Path>{moved, Path(), Path()};
}

void TestAnglePath::pasteFillsTheListsOfItsTarget()
{
    QFETCH(QPoint, point);
    QFETCH(QList<Path>, paths);
    theClipboard = Path{at(3, 150, 200), at(7, 10, 20)};
    paste(point);
    int filled = 0;
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(path(AngleFixture::kPos + i), paths[i]);
        filled += paths[i].isEmpty() ? 0 : 1;
    }
    QCOMPARE(theFixture->theStack.count(), 2);
    QCOMPARE(theFixture->theStack.text(1), QStringLiteral("Setting animation"));
    QCOMPARE(theFixture->theStack.command(1)->childCount(), filled + 1);
    QVERIFY(theFixture->record(1)->theAnimated);
}

void TestAnglePath::pasteOnTheVertexReadsTheEndsAtEachFrame()
{
    animate();
    theClipboard = Path{at(0, 0, 0), at(5, 30, 11)};
    paste(onLabel);
    // The ends: (100, 90) and (110, 105) at 0; at 5 the vertex is (150, 110), the vectors (-2.5, -15) and
    // (20, -1).
    const QPoint ep1At5 = path(AngleFixture::kEp1).last().getValue().toPoint();
    QCOMPARE(path(AngleFixture::kEp1).first(), at(0, 100, 90));
    QVERIFY(ep1At5 == QPoint(117, 84) || ep1At5 == QPoint(118, 84)); // half a pixel is rounded
    QCOMPARE(path(AngleFixture::kEp2), (Path{at(0, 110, 105), at(5, 140, 98)}));
    QCOMPARE(path(AngleFixture::kPos), theClipboard);
}

void TestAnglePath::headComesBeforeTheLabel()
{
    AngleFixture& f = *theFixture;
    f.item(1)->setPoints(theVertex, theUp, onLabel);
    QVERIFY(f.item(1)->isPointOnStart(onLabel));
    paste(onLabel);
    QCOMPARE(path(AngleFixture::kEp2).size(), 1);
    QVERIFY(path(AngleFixture::kPos).isEmpty());
}

void TestAnglePath::pasteIsOneUndoStepAndAnimates()
{
    AngleFixture& f = *theFixture;
    theClipboard = Path{at(0, 150, 200)};
    paste(onLabel);
    // The canvas follows by the kernel's signals.
    QCOMPARE(f.canvasPoints(1), (QList<QPoint>{QPoint(110, 170), theUp, theRight}));
    f.theStack.undo();
    QVERIFY(!f.record(1)->theAnimated);
    for (const int param : {AngleFixture::kPos, AngleFixture::kEp1, AngleFixture::kEp2})
        QVERIFY(path(param).isEmpty());
    QCOMPARE(f.canvasPoints(1), (QList<QPoint>{theVertex, theUp, theRight}));
    f.theStack.redo();
    QCOMPARE(f.canvasPoints(1), (QList<QPoint>{QPoint(110, 170), theUp, theRight}));
}

void TestAnglePath::pasteOnAnAnimatedAngleHasNoSwitch()
{
    theFixture->theStack.push(new CmdSwitchAnimation(1106, 1, true));
    theClipboard = Path{at(3, 100, 100)};
    paste(theUp);
    QCOMPARE(theFixture->theStack.command(2)->childCount(), 1);
    QVERIFY(theFixture->record(1)->theAnimated);
}

void TestAnglePath::emptyClipboardLeavesOnlyTheSwitch_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::newRow("label") << onLabel;
    QTest::newRow("head") << theUp;
    QTest::newRow("arc") << onArc;
}

void TestAnglePath::emptyClipboardLeavesOnlyTheSwitch()
{
    QFETCH(QPoint, point);
    animate();
    theClipboard.clear();
    paste(point);
    QCOMPARE(theFixture->theStack.count(), 2);
    QCOMPARE(theFixture->theStack.command(1)->childCount(), 1);
    QVERIFY(theFixture->record(1)->theAnimated);
    for (const int param : {AngleFixture::kPos, AngleFixture::kEp1, AngleFixture::kEp2})
        QCOMPARE(path(param).size(), 2);
    theFixture->theStack.undo();
    QVERIFY(!theFixture->record(1)->theAnimated);
}

MEASURE_TEST_MAIN(TestAnglePath)
#include "TestAnglePath.moc"
