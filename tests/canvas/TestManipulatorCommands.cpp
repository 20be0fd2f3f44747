#include "CmdRemoveObject.h"
#include "EditorFixture.h"
#include "LmKernelObjectData.h"
#include "TestFont.h"

namespace {

LmKSKernelData& kernel()
{
    return *LmKSKernelData::getInstance();
}

} // namespace

class TestManipulatorCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void removalShownAndColorGoThroughUndoableCommands();
    void hiddenItemIsNoLongerCurrentOrSelected();
    void animationIsSwitchedByACommand();
    void firstKeyframeIsThePlaceThatTheObjectHas();
    void whatTheRecordSaysAlreadyLeavesTheRedoHistory();
    void foreignItemGivesNoCommand();
    void withoutUndoStackNothingHappens();
    void undoTextsNameTheObject();
};

void TestManipulatorCommands::removalShownAndColorGoThroughUndoableCommands()
{
    EditorFixture f;
    f.theTool.create(QPoint(10, 10));
    f.theTool.setColorCvObject(f.theTool.item(1), Qt::green);
    QCOMPARE(f.theTool.item(1)->getColor(), QColor(Qt::green));
    f.theTool.showCvObject(f.theTool.item(1), false);
    QVERIFY(!f.theTool.item(1)->isVisible());
    f.theTool.removeCvObject(f.theTool.item(1));
    QVERIFY(!f.theTool.item(1) && f.theEditor.cvItems().isEmpty());
    QCOMPARE(f.theStack.count(), 4);

    f.theStack.undo();
    QVERIFY(f.theTool.item(1));
    f.theStack.undo();
    QVERIFY(f.theTool.item(1)->isVisible());
    f.theStack.undo();
    QCOMPARE(f.theTool.item(1)->getColor(), QColor(Qt::red));
}

void TestManipulatorCommands::hiddenItemIsNoLongerCurrentOrSelected()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(10, 10));
    f.theEditor.activateItem(item);
    f.theEditor.selection().toggle(item);
    f.theTool.showCvObject(item, false);
    QVERIFY(!f.theEditor.theCurrentTrack && !item->isActive());
    QVERIFY(f.theEditor.selection().items().isEmpty() && !item->isSelected());
}

void TestManipulatorCommands::animationIsSwitchedByACommand()
{
    EditorFixture f;
    f.theTool.create(QPoint(10, 10));
    f.theTool.changeAnimationCvObject(f.theTool.item(1), true, false, false);
    QVERIFY(f.theTool.record(1)->theAnimated);
    f.theStack.undo();
    QVERIFY(!f.theTool.record(1)->theAnimated);
}

void TestManipulatorCommands::firstKeyframeIsThePlaceThatTheObjectHas()
{
    EditorFixture f;
    f.theTool.create(QPoint(10, 10));
    LmKSKernelData::getInstance()->theCurrentFrame = 3;
    f.theTool.changeAnimationCvObject(f.theTool.item(1), true, false, false);
    QCOMPARE(f.theTool.record(1)->getKeyframedFrames(), QList<long long>{3});
    QCOMPARE(f.theStack.undoText(), QStringLiteral("Animate Probe 1"));
    f.theStack.undo();
    QVERIFY(f.theTool.record(1)->getKeyframedFrames().isEmpty());
    f.theStack.redo();

    f.theTool.changeAnimationCvObject(f.theTool.item(1), false, false, false);
    LmKSKernelData::getInstance()->theCurrentFrame = 5;
    f.theTool.changeAnimationCvObject(f.theTool.item(1), true, false, false);
    QCOMPARE(f.theTool.record(1)->getKeyframedFrames(), QList<long long>{3});
    LmKSKernelData::getInstance()->theCurrentFrame = 0;
}

void TestManipulatorCommands::whatTheRecordSaysAlreadyLeavesTheRedoHistory()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(10, 10));
    f.theTool.setColorCvObject(item, Qt::green);
    f.theStack.undo();
    QVERIFY(f.theStack.canRedo());
    f.theTool.setColorCvObject(item, Qt::red);
    QVERIFY(f.theStack.canRedo());
    f.theTool.showCvObject(item, true);
    QVERIFY(f.theStack.canRedo());
    f.theTool.changeAnimationCvObject(item, false, false, false);
    QVERIFY(f.theStack.canRedo());
    f.theStack.redo();
    QCOMPARE(item->getColor(), QColor(Qt::green));
    f.theTool.changeAnimationCvObject(item, true, false, false);
    f.theTool.showCvObject(item, false);
    QCOMPARE(f.theStack.count(), 4);
}

void TestManipulatorCommands::foreignItemGivesNoCommand()
{
    EditorFixture f;
    ProbeItem foreign(&f.theTool, f.theEditor.canvas(), QStringLiteral("1"), &f.theEditor);
    f.theTool.removeCvObject(&foreign);
    f.theTool.setColorCvObject(&foreign, Qt::green);
    f.theTool.showCvObject(&foreign, true);
    f.theTool.changeAnimationCvObject(&foreign, true, false, false);
    f.theTool.removeCvObject(nullptr);
    QCOMPARE(f.theStack.count(), 0);
}

void TestManipulatorCommands::withoutUndoStackNothingHappens()
{
    EditorFixture f;
    f.theTool.create(QPoint(10, 10));
    f.theTool.setUndoStack(nullptr);
    f.theTool.removeCvObject(f.theTool.item(1));
    f.theTool.pushOwn(new CmdRemoveObject(ProbeTool::kType, 1));
    QVERIFY(f.theTool.item(1) && f.theTool.record(1));
}

void TestManipulatorCommands::undoTextsNameTheObject()
{
    EditorFixture f;
    QCOMPARE(kernel().objectText(ProbeTool::kType, 3), QStringLiteral("Probe 3"));
}

MEASURE_TEST_MAIN(TestManipulatorCommands)
#include "TestManipulatorCommands.moc"
