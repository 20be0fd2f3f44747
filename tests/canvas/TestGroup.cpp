#include "EditorFixture.h"
#include "LmKernelObjectData.h"
#include "TestFont.h"

#include <QSignalSpy>

class TestGroup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clickElsewhereLeavesTheGroup();
    void clickOnAGroupMemberLeavesTheGroupForIt();
    void deleteKeyRemovesTheGroupAsOneStep();
    void deleteWithoutTargetsDoesNothing();
    void singleTargetMakesNoMacro();
    void colorIsOneStepAndSkipsItemsThatHaveIt();
    void hideAndShowAllAreOneStep();
    void showAllReachesItemsThatNoCommandShows();
    void arrowKeysMoveByOneStepEach();
    void arrowKeysAreTheToolsWhileOneIsActive();
    void itemThatGoesLeavesTheGroup();
    void selectAllTakesVisibleItemsOnly();
    void tenThousandAreRemovedAsOneStep();
};

namespace {

/// Three items in a row at x 50, 100 and 150; their middles are 10 further.
void makeThree(EditorFixture& aFixture)
{
    for (const int x : {50, 100, 150})
        aFixture.theTool.create(QPoint(x, 50));
    aFixture.theStack.clear();
}

const QPoint kFirst(60, 60);
const QPoint kThird(160, 60);

} // namespace

void TestGroup::clickElsewhereLeavesTheGroup()
{
    EditorFixture f;
    makeThree(f);
    f.drag(QPoint(40, 40), QPoint(130, 90));
    f.click(kThird);
    QVERIFY(f.theEditor.selection().items().isEmpty());
    QCOMPARE(f.theEditor.theCurrentTrack, f.theTool.item(3));
    f.drag(QPoint(40, 40), QPoint(130, 90));
    f.click(QPoint(250, 250));
    QVERIFY(f.theEditor.selection().items().isEmpty());
    QVERIFY(!f.theEditor.theCurrentTrack);
}

void TestGroup::clickOnAGroupMemberLeavesTheGroupForIt()
{
    EditorFixture f;
    makeThree(f);
    f.drag(QPoint(40, 40), QPoint(130, 90));
    f.press(kFirst);
    f.move(kFirst + QPoint(2, 0));
    f.release(kFirst + QPoint(2, 0));
    QVERIFY(f.theEditor.selection().items().isEmpty());
    QCOMPARE(f.theEditor.theCurrentTrack, f.theTool.item(1));
    QCOMPARE(f.theTool.item(1)->theCorner, QPoint(50, 50));
    QCOMPARE(f.theStack.count(), 0);
}

void TestGroup::deleteKeyRemovesTheGroupAsOneStep()
{
    EditorFixture f;
    makeThree(f);
    f.drag(QPoint(40, 40), QPoint(130, 90));
    QSignalSpy changed(&f.theEditor, &LmCvEditor::signalSelectionChanged);
    QTest::keyClick(f.theEditor.viewport(), Qt::Key_Delete);
    QCOMPARE(f.theEditor.cvItems(), QList<LmCvObject*>{f.theTool.item(3)});
    QCOMPARE(f.theStack.count(), 1);
    QCOMPARE(f.theStack.undoText(), QStringLiteral("Delete 2 objects"));
    QCOMPARE(changed.count(), 1);
    f.theStack.undo();
    QCOMPARE(f.theEditor.cvItems().size(), 3);
}

void TestGroup::deleteWithoutTargetsDoesNothing()
{
    EditorFixture f;
    makeThree(f);
    QTest::keyClick(f.theEditor.viewport(), Qt::Key_Delete);
    f.theEditor.slotDeleteSelected();
    QCOMPARE(f.theEditor.cvItems().size(), 3);
    QCOMPARE(f.theStack.count(), 0);
}

void TestGroup::singleTargetMakesNoMacro()
{
    EditorFixture f;
    makeThree(f);
    f.click(kFirst);
    QTest::keyClick(f.theEditor.viewport(), Qt::Key_Delete);
    QCOMPARE(f.theStack.count(), 1);
    QCOMPARE(f.theStack.command(0)->childCount(), 0);
    QVERIFY(!f.theTool.item(1));
}

void TestGroup::colorIsOneStepAndSkipsItemsThatHaveIt()
{
    EditorFixture f;
    makeThree(f);
    f.theTool.setColorCvObject(f.theTool.item(2), Qt::green);
    f.theStack.clear();
    f.theEditor.selection().selectAll();
    f.theEditor.selection().setColor(Qt::green);
    QCOMPARE(f.theStack.count(), 1);
    QCOMPARE(f.theStack.command(0)->childCount(), 2);
    QCOMPARE(f.theTool.item(1)->getColor(), QColor(Qt::green));
    f.theEditor.selection().setColor(Qt::green);
    QCOMPARE(f.theStack.count(), 1);
    f.theStack.undo();
    QCOMPARE(f.theTool.item(1)->getColor(), QColor(Qt::red));
    QCOMPARE(f.theTool.item(2)->getColor(), QColor(Qt::green));
}

void TestGroup::showAllReachesItemsThatNoCommandShows()
{
    EditorFixture f;
    makeThree(f);
    ProbeItem toolless(nullptr, f.theEditor.canvas(), QStringLiteral("1"), &f.theEditor);
    f.theOtherTool.setUndoStack(nullptr);
    ProbeItem stackless(&f.theOtherTool, f.theEditor.canvas(), QStringLiteral("1"), &f.theEditor);
    toolless.hide();
    stackless.hide();
    f.theTool.item(1)->hide(); // its record says nothing of that
    f.theEditor.slotShowAllCvItems();
    QVERIFY(toolless.isVisible());
    QVERIFY(stackless.isVisible());
    QVERIFY(f.theTool.item(1)->isVisible());
    QCOMPARE(f.theStack.count(), 0);
}

void TestGroup::hideAndShowAllAreOneStep()
{
    EditorFixture f;
    makeThree(f);
    f.drag(QPoint(40, 40), QPoint(130, 90));
    QSignalSpy changed(&f.theEditor, &LmCvEditor::signalSelectionChanged);
    f.theEditor.selection().show(false);
    QVERIFY(!f.theTool.item(1)->isVisible() && !f.theTool.item(2)->isVisible());
    QVERIFY(f.theTool.item(3)->isVisible());
    QCOMPARE(f.theStack.count(), 1);
    QCOMPARE(changed.count(), 1);
    f.theEditor.slotShowAllCvItems();
    QVERIFY(f.theTool.item(1)->isVisible() && f.theTool.item(2)->isVisible());
    QCOMPARE(f.theStack.count(), 2);
    QCOMPARE(f.theStack.undoText(), QStringLiteral("Show 2 objects"));
    f.theEditor.slotShowAllCvItems();
    QCOMPARE(f.theStack.count(), 2);
    f.theStack.undo();
    QVERIFY(!f.theTool.item(1)->isVisible() && !f.theTool.item(2)->isVisible());
}

void TestGroup::arrowKeysMoveByOneStepEach()
{
    EditorFixture f;
    makeThree(f);
    f.click(kFirst);
    QTest::keyClick(f.theEditor.viewport(), Qt::Key_Right);
    QCOMPARE(f.theTool.recordedPos(1), QPoint(51, 50));
    QTest::keyClick(f.theEditor.viewport(), Qt::Key_Up, Qt::ShiftModifier);
    QCOMPARE(f.theTool.recordedPos(1), QPoint(51, 40));
    QCOMPARE(f.theStack.count(), 2);
    f.theEditor.selection().selectAll();
    QTest::keyClick(f.theEditor.viewport(), Qt::Key_Left);
    QCOMPARE(f.theTool.recordedPos(3), QPoint(149, 50));
    QCOMPARE(f.theStack.count(), 3);
}

void TestGroup::arrowKeysAreTheToolsWhileOneIsActive()
{
    EditorFixture f;
    makeThree(f);
    f.click(kFirst);
    f.theEditor.setCurrentManipulator(&f.theTool);
    QTest::keyClick(f.theEditor.viewport(), Qt::Key_Right);
    QCOMPARE(f.theTool.recordedPos(1), QPoint(50, 50));
    QVERIFY(!f.theTool.theEvents.isEmpty());
}

void TestGroup::itemThatGoesLeavesTheGroup()
{
    EditorFixture f;
    makeThree(f);
    f.theEditor.selection().selectAll();
    f.theTool.removeCvObject(f.theTool.item(2));
    QCOMPARE(f.theEditor.selection().items().size(), 2);
    f.drag(kFirst, kFirst + QPoint(10, 0));
    QCOMPARE(f.theTool.recordedPos(3), QPoint(160, 50));
}

void TestGroup::selectAllTakesVisibleItemsOnly()
{
    EditorFixture f;
    makeThree(f);
    f.theTool.item(2)->hide();
    f.theEditor.selection().selectAll();
    QCOMPARE(f.theEditor.selection().items().size(), 2);
    QVERIFY(!f.theEditor.selection().contains(f.theTool.item(2)));
}

void TestGroup::tenThousandAreRemovedAsOneStep()
{
    constexpr int kMany = 10000;
    EditorFixture f;
    for (int i = 0; i < kMany; ++i)
        f.theTool.create(QPoint(i % 350, i / 40));
    f.theStack.clear();
    f.theEditor.selection().selectAll();
    QCOMPARE(f.theEditor.selection().items().size(), kMany);
    f.theEditor.slotDeleteSelected();
    QVERIFY(f.theEditor.cvItems().isEmpty());
    QCOMPARE(f.theStack.count(), 1);
}

MEASURE_TEST_MAIN(TestGroup)
#include "TestGroup.moc"
