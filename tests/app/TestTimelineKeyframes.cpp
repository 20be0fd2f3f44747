#include "LmCvEditor.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "LmKernelObjectDataDescr.h"
#include "TestFont.h"
#include "TimelineView.h"
#include "TimelineWindow.h"

#include <QAction>
#include <QMenu>
#include <QUndoStack>
#include <QtTest>

namespace {

using Frames = QList<long long>;

QAction& action(TimelineWindow& aFixture, const char* aName)
{
    return *aFixture.window().findChild<QAction*>(QLatin1String(aName));
}

} // namespace

/// The keyframes of the current object on the time line, changed with mouse and keyboard.
class TestTimelineKeyframes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void editOfAnAnimatedObjectAppearsAsAKeyframe();
    void keyframeIsDraggedToAnotherFrame();
    void draggedKeyframeReplacesTheOneItMeets();
    void severalAreDraggedTogetherAndStayInside();
    void pressWithoutAWayIsNoStep();
    void escapeDropsADrag();
    void bandAndModifiersSelect();
    void deleteTakesTheSelectedKeyframesAndNotTheObject();
    void copiedKeyframesArePastedAtThePosition();
    void keyframesGoToAnotherObjectOfTheType();
    void pastedKeyframesBehindTheEndAreLeftOut();
    void keyframeIsSetWhereTheObjectIs();
    void neighbouringKeyframesAreReached();
    void withoutACurrentObjectNothingCanBeDone();
    void keyframesBehindTheEndAreKept();
    void whatChangesNothingLeavesTheRedoList();
    void undoInTheMiddleOfADragEndsIt();
    void menuOfTheLineOffersWhatIsPossible();
    void everyStepIsUndoneAndDoneAgain();
};

void TestTimelineKeyframes::editOfAnAnimatedObjectAppearsAsAKeyframe()
{
    TimelineWindow f;
    f.drawMoving({5});
    QCOMPARE(f.keyframes(), (Frames{0, 5}));
    QCOMPARE(f.middleAt(0), 200);
    QCOMPARE(f.middleAt(5), 205);
    f.clickLine(f.line().keyframePlace(5));
    QCOMPARE(f.line().selectedFrames(), QList<int>{5});
    f.clickLine(f.line().keyframePlace(7));
    QVERIFY(f.line().selectedFrames().isEmpty());
}

void TestTimelineKeyframes::keyframeIsDraggedToAnotherFrame()
{
    TimelineWindow f;
    f.drawMoving({4});
    const int steps = f.stack().count();
    f.pull(f.line().keyframePlace(4), f.line().keyframePlace(8));
    QCOMPARE(f.keyframes(), (Frames{0, 8}));
    QCOMPARE(f.middleAt(8), 204);
    QCOMPARE(f.middleAt(4), 202);
    QCOMPARE(f.stack().count(), steps + 1);
    QCOMPARE(f.stack().undoText(), QStringLiteral("Move keyframes of Distance 1"));
    QCOMPARE(f.line().selectedFrames(), QList<int>{8});
    f.stack().undo();
    QCOMPARE(f.keyframes(), (Frames{0, 4}));
}

void TestTimelineKeyframes::draggedKeyframeReplacesTheOneItMeets()
{
    TimelineWindow f;
    f.drawMoving({4, 9});
    f.pull(f.line().keyframePlace(4), f.line().keyframePlace(9));
    QCOMPARE(f.keyframes(), (Frames{0, 9}));
    QCOMPARE(f.middleAt(9), 204);
    f.stack().undo();
    QCOMPARE(f.keyframes(), (Frames{0, 4, 9}));
    QCOMPARE(f.middleAt(9), 209);
}

void TestTimelineKeyframes::severalAreDraggedTogetherAndStayInside()
{
    TimelineWindow f;
    f.drawMoving({4, 9});
    f.clickLine(f.line().keyframePlace(4));
    f.clickLine(f.line().keyframePlace(9), Qt::ShiftModifier);
    f.pull(f.line().keyframePlace(9), f.line().keyframePlace(9) + QPoint(600, 0));
    QCOMPARE(f.keyframes(), (Frames{0, 6, 11}));
    QCOMPARE(f.line().selectedFrames(), (QList<int>{6, 11}));
    f.pull(f.line().keyframePlace(6), f.line().keyframePlace(6) - QPoint(600, 0));
    QCOMPARE(f.keyframes(), (Frames{0, 5}));
    QCOMPARE(f.middleAt(0), 204);
}

void TestTimelineKeyframes::pressWithoutAWayIsNoStep()
{
    TimelineWindow f;
    f.drawMoving({4});
    const int steps = f.stack().count();
    f.pull(f.line().keyframePlace(4), f.line().keyframePlace(4) + QPoint(2, 0));
    QCOMPARE(f.stack().count(), steps);
    QCOMPARE(f.keyframes(), (Frames{0, 4}));
}

void TestTimelineKeyframes::escapeDropsADrag()
{
    TimelineWindow f;
    f.drawMoving({4});
    QWidget* viewport = f.line().viewport();
    QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, f.line().keyframePlace(4));
    QTest::mouseMove(viewport, f.line().keyframePlace(6));
    f.lineKey(Qt::Key_Escape);
    QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, f.line().keyframePlace(6));
    QCOMPARE(f.keyframes(), (Frames{0, 4}));
    QCOMPARE(f.line().selectedFrames(), QList<int>{4});
    f.lineKey(Qt::Key_Escape);
    QVERIFY(f.line().selectedFrames().isEmpty());
}

void TestTimelineKeyframes::bandAndModifiersSelect()
{
    TimelineWindow f;
    f.drawMoving({3, 6, 9});
    const QPoint below(0, 10);
    f.pull(f.line().keyframePlace(2) + below, f.line().keyframePlace(7) + below);
    QCOMPARE(f.line().selectedFrames(), (QList<int>{3, 6}));
    f.clickLine(f.line().keyframePlace(6), Qt::ControlModifier);
    QCOMPARE(f.line().selectedFrames(), QList<int>{3});
    f.lineKey(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(f.line().selectedFrames(), (QList<int>{0, 3, 6, 9}));
}

void TestTimelineKeyframes::deleteTakesTheSelectedKeyframesAndNotTheObject()
{
    TimelineWindow f;
    f.drawMoving({3, 6});
    f.clickLine(f.line().keyframePlace(3));
    f.lineKey(Qt::Key_Delete);
    QCOMPARE(f.keyframes(), (Frames{0, 6}));
    QCOMPARE(f.distanceCount(), 1);
    QCOMPARE(f.stack().undoText(), QStringLiteral("Delete keyframes of Distance 1"));
    const int steps = f.stack().count();
    f.lineKey(Qt::Key_Delete); // nothing is selected any more
    QCOMPARE(f.stack().count(), steps);
    f.editor().setFocus();
    f.key(Qt::Key_Delete);
    QCOMPARE(f.distanceCount(), 0);
}

void TestTimelineKeyframes::copiedKeyframesArePastedAtThePosition()
{
    TimelineWindow f;
    f.drawMoving({2, 4});
    f.clickLine(f.line().keyframePlace(2));
    f.clickLine(f.line().keyframePlace(4), Qt::ControlModifier);
    f.lineKey(Qt::Key_C, Qt::ControlModifier);
    f.goTo(7);
    f.lineKey(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(f.keyframes(), (Frames{0, 2, 4, 7, 9}));
    QCOMPARE(f.middleAt(7), 202);
    QCOMPARE(f.middleAt(9), 204);
    QCOMPARE(f.line().selectedFrames(), (QList<int>{7, 9}));
    QCOMPARE(f.stack().undoText(), QStringLiteral("Paste keyframes to Distance 1"));
}

void TestTimelineKeyframes::keyframesGoToAnotherObjectOfTheType()
{
    TimelineWindow f;
    f.drawMoving({5});
    f.lineKey(Qt::Key_A, Qt::ControlModifier);
    f.lineKey(Qt::Key_C, Qt::ControlModifier);
    f.goTo(0);
    QCOMPARE(f.draw(QPoint(50, 250), QPoint(350, 250)), 2);
    QVERIFY(f.line().selectedFrames().isEmpty());
    QVERIFY(!f.distance(2)->theAnimated);
    f.lineKey(Qt::Key_V, Qt::ControlModifier);
    QVERIFY(f.distance(2)->theAnimated);
    QCOMPARE(f.keyframes(2), (Frames{0, 5}));
    f.stack().undo();
    QVERIFY(!f.distance(2)->theAnimated);
    QVERIFY(f.keyframes(2).isEmpty());
}

void TestTimelineKeyframes::pastedKeyframesBehindTheEndAreLeftOut()
{
    TimelineWindow f;
    f.drawMoving({5});
    f.lineKey(Qt::Key_A, Qt::ControlModifier);
    f.lineKey(Qt::Key_C, Qt::ControlModifier);
    f.goTo(TimelineWindow::kPages - 3);
    f.lineKey(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(f.keyframes(), (Frames{0, 5, TimelineWindow::kPages - 3}));
}

void TestTimelineKeyframes::keyframeIsSetWhereTheObjectIs()
{
    TimelineWindow f;
    f.drawMoving({10});
    f.goTo(5);
    f.key(Qt::Key_K, Qt::ControlModifier);
    QCOMPARE(f.keyframes(), (Frames{0, 5, 10}));
    QCOMPARE(f.middleAt(5), 205);
    QCOMPARE(f.stack().undoText(), QStringLiteral("Set keyframe of Distance 1"));
    const int steps = f.stack().count();
    f.key(Qt::Key_K, Qt::ControlModifier);
    QCOMPARE(f.stack().count(), steps);
}

void TestTimelineKeyframes::neighbouringKeyframesAreReached()
{
    TimelineWindow f;
    f.drawMoving({3, 8});
    f.goTo(5);
    f.key(Qt::Key_PageDown, Qt::ControlModifier);
    QCOMPARE(f.kernel().theCurrentFrame, 8U);
    QVERIFY(!action(f, "next-keyframe").isEnabled());
    f.key(Qt::Key_PageUp, Qt::ControlModifier);
    QCOMPARE(f.kernel().theCurrentFrame, 3U);
    f.key(Qt::Key_PageUp, Qt::ControlModifier);
    QCOMPARE(f.kernel().theCurrentFrame, 0U);
    QVERIFY(!action(f, "previous-keyframe").isEnabled());
}

void TestTimelineKeyframes::withoutACurrentObjectNothingCanBeDone()
{
    TimelineWindow f;
    for (const char* name : {"animate-object", "set-keyframe", "previous-keyframe", "next-keyframe",
                             "delete-keyframes", "copy-keyframes", "paste-keyframes", "select-keyframes"})
        QVERIFY2(!action(f, name).isEnabled(), name);
    QVERIFY(action(f, "play").isEnabled() && action(f, "animate-view").isEnabled());
    f.drawMoving({3});
    QVERIFY(action(f, "animate-object").isChecked());
    f.pickArrow();
    f.click(QPoint(20, 280));
    f.editor().activateItem(nullptr);
    QVERIFY(!action(f, "animate-object").isEnabled());
    QVERIFY(!action(f, "animate-object").isChecked());
}

void TestTimelineKeyframes::keyframesBehindTheEndAreKept()
{
    TimelineWindow f;
    f.drawMoving({5});
    LmKernelObjectData* data = f.kernel().getObject(1102, 1);
    const int pos = f.kernel().getDataDescriptor(1102)->indexOf(QStringLiteral("pos"));
    const long long farAway = (1LL << 32) + 1;
    data->storeValue(pos, 40, QPoint(0, 0));
    data->storeValue(pos, farAway, QPoint(0, 0));
    f.goTo(8);
    f.key(Qt::Key_K, Qt::ControlModifier);
    QCOMPARE(f.keyframes(), (Frames{0, 5, 8, 40, farAway}));
    QVERIFY(!action(f, "next-keyframe").isEnabled());
    f.line().selectAll();
    QCOMPARE(f.line().selectedFrames(), (QList<int>{0, 5, 8}));
    f.pull(f.line().keyframePlace(8), f.line().keyframePlace(10));
    QCOMPARE(f.keyframes(), (Frames{2, 7, 10, 40, farAway}));
}

void TestTimelineKeyframes::whatChangesNothingLeavesTheRedoList()
{
    TimelineWindow f;
    f.drawMoving({5});
    f.stack().undo();
    QVERIFY(f.stack().canRedo());
    f.goTo(0);
    f.key(Qt::Key_K, Qt::ControlModifier); // the keyframe is there already
    f.pull(f.line().keyframePlace(0), f.line().keyframePlace(0) - QPoint(100, 0));
    QVERIFY(f.stack().canRedo());
    f.stack().redo();
    QCOMPARE(f.keyframes(), (Frames{0, 5}));
}

void TestTimelineKeyframes::undoInTheMiddleOfADragEndsIt()
{
    TimelineWindow f;
    f.drawMoving({4, 8});
    f.line().selectAll();
    QWidget* viewport = f.line().viewport();
    QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, f.line().keyframePlace(4));
    f.stack().undo();
    f.pull(f.line().keyframePlace(11) + QPoint(0, 40), f.line().keyframePlace(11) + QPoint(0, 40));
    QCOMPARE(f.keyframes(), (Frames{0, 4}));
    QVERIFY(f.stack().canRedo());
}

void TestTimelineKeyframes::menuOfTheLineOffersWhatIsPossible()
{
    TimelineWindow f;
    f.drawMoving({3});
    const QPoint place = f.line().keyframePlace(3);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, f.line().viewport()->mapToGlobal(place));
    QApplication::sendEvent(f.line().viewport(), &event);
    auto* menu = f.window().findChild<QMenu*>(QStringLiteral("keyframeMenu"));
    QVERIFY(menu);
    QCOMPARE(f.line().selectedFrames(), QList<int>{3});
    QVERIFY(WindowFixture::find(*menu, QStringLiteral("Delete Keyframes"))->isEnabled());
    QVERIFY(!WindowFixture::find(*menu, QStringLiteral("Paste Keyframes"))->isEnabled());
    f.goTo(7);
    QVERIFY(f.choose(*menu, QStringLiteral("Go to Frame 4")));
    QCOMPARE(f.kernel().theCurrentFrame, 3U);
}

void TestTimelineKeyframes::everyStepIsUndoneAndDoneAgain()
{
    TimelineWindow f;
    f.drawMoving({4, 9});
    f.clickLine(f.line().keyframePlace(4));
    f.lineKey(Qt::Key_C, Qt::ControlModifier);
    f.pull(f.line().keyframePlace(4), f.line().keyframePlace(6));
    f.goTo(2);
    f.lineKey(Qt::Key_V, Qt::ControlModifier);
    f.lineKey(Qt::Key_Delete);
    action(f, "animate-object").trigger();
    QList<Frames> states;
    while (f.stack().index() > 1) {
        states.prepend(f.keyframes());
        f.stack().undo();
    }
    QVERIFY(f.keyframes().isEmpty());
    for (const Frames& state : states) {
        f.stack().redo();
        QCOMPARE(f.keyframes(), state);
    }
    QVERIFY(!f.distance(1)->theAnimated);
}

MEASURE_TEST_MAIN(TestTimelineKeyframes)
#include "TestTimelineKeyframes.moc"
