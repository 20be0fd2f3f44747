#include "EditorFixture.h"
#include "TestFont.h"

#include <QSignalSpy>

#include <utility>

class TestGroupDrag : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void groupMovesAsOneStep();
    void groupDraggedBackToItsStartMakesNoStep();
    void hiddenGroupLeavesTheCurrentItemInItsPlace();
    void escapeBringsTheGroupBack();
    void escapeSparesMembersThatWentWhileOthersCameBack();
    void memberThatGoesDuringTheMoveLeavesTheRestMoving();
};

namespace {

/// Three items in a row at x 50, 100 and 150; their middles are 10 further.
void makeThree(EditorFixture& aFixture)
{
    for (const int x : {50, 100, 150})
        aFixture.theTool.create(QPoint(x, 50));
    aFixture.theStack.clear();
}

/// Keeps its items in a list of its own and can only make all of them anew.
class RemakingTool : public ProbeTool
{
public:
    RemakingTool() : ProbeTool(nullptr, ProbeTool::kType + 2) {}

    void make(const QPoint& aCorner)
    {
        auto* item = new ProbeItem(this, theCvEditor->canvas(), QString(), theCvEditor);
        item->place(aCorner);
        item->show();
        theItems.append(item);
    }
    void recreateCanvasObjects(QPoint, long long, bool) override
    {
        ++theRemakings;
        const QList<QPoint> corners = theCorners;
        qDeleteAll(std::exchange(theItems, {}));
        for (const QPoint& corner : corners)
            make(corner);
    }

    QList<QPoint> theCorners;
    QList<ProbeItem*> theItems; // owned by the canvas
    int theRemakings = 0;
};

const QPoint kFirst(60, 60);
const QPoint kThird(160, 60);

} // namespace

void TestGroupDrag::groupMovesAsOneStep()
{
    EditorFixture f;
    makeThree(f);
    f.drag(QPoint(40, 40), QPoint(130, 90));
    QSignalSpy changed(&f.theEditor, &LmCvEditor::signalCanvasObjectChanged);
    f.drag(kFirst, kFirst + QPoint(30, 70));
    QCOMPARE(changed.count(), 2);
    QCOMPARE(f.theTool.recordedPos(1), QPoint(80, 120));
    QCOMPARE(f.theTool.recordedPos(2), QPoint(130, 120));
    QCOMPARE(f.theTool.recordedPos(3), QPoint(150, 50));
    QCOMPARE(f.theStack.count(), 1);
    QCOMPARE(f.theStack.undoText(), QStringLiteral("Move 2 objects"));
    QCOMPARE(f.theEditor.selection().items().size(), 2);
    f.theStack.undo();
    QCOMPARE(f.theTool.item(1)->theCorner, QPoint(50, 50));
    QCOMPARE(f.theTool.item(2)->theCorner, QPoint(100, 50));
    f.theStack.redo();
    QCOMPARE(f.theTool.item(2)->theCorner, QPoint(130, 120));
}

void TestGroupDrag::groupDraggedBackToItsStartMakesNoStep()
{
    EditorFixture f;
    makeThree(f);
    f.drag(QPoint(40, 40), QPoint(130, 90));
    f.press(kFirst);
    f.move(kFirst + QPoint(30, 70));
    QCOMPARE(f.theTool.item(2)->theCorner, QPoint(130, 120));
    f.move(kFirst);
    f.release(kFirst);
    QCOMPARE(f.theTool.item(1)->theCorner, QPoint(50, 50));
    QCOMPARE(f.theTool.item(2)->theCorner, QPoint(100, 50));
    QCOMPARE(f.theStack.count(), 0);
    f.drag(kFirst, kFirst + QPoint(0, 20));
    QCOMPARE(f.theStack.count(), 1);
}

void TestGroupDrag::hiddenGroupLeavesTheCurrentItemInItsPlace()
{
    EditorFixture f;
    makeThree(f);
    f.click(kThird);
    f.drag(QPoint(40, 40), QPoint(130, 90));
    QCOMPARE(f.theEditor.theCurrentTrack, f.theTool.item(3));
    f.press(kFirst);
    f.move(kFirst + QPoint(30, 70));
    f.theTool.showCvObject(f.theTool.item(1), false);
    f.theTool.showCvObject(f.theTool.item(2), false);
    f.move(kFirst + QPoint(40, 70));
    f.release(kFirst + QPoint(40, 70));
    QCOMPARE(f.theTool.item(3)->theCorner, QPoint(150, 50));
    QCOMPARE(f.theTool.recordedPos(3), QPoint(150, 50));
    QCOMPARE(f.theEditor.theCurrentTrack, f.theTool.item(3));
}

void TestGroupDrag::escapeBringsTheGroupBack()
{
    EditorFixture f;
    makeThree(f);
    f.drag(QPoint(40, 40), QPoint(130, 90));
    f.press(kFirst);
    f.move(kFirst + QPoint(30, 70));
    QCOMPARE(f.theTool.item(2)->theCorner, QPoint(130, 120));
    QTest::keyClick(f.theEditor.viewport(), Qt::Key_Escape);
    f.release(kFirst + QPoint(30, 70));
    QCOMPARE(f.theTool.item(1)->theCorner, QPoint(50, 50));
    QCOMPARE(f.theTool.item(2)->theCorner, QPoint(100, 50));
    QCOMPARE(f.theStack.count(), 0);
}

void TestGroupDrag::escapeSparesMembersThatWentWhileOthersCameBack()
{
    EditorFixture f;
    RemakingTool tool;
    tool.setCvEditor(&f.theEditor);
    tool.initManipulator(&f.theBar);
    tool.theCorners = {QPoint(50, 50), QPoint(100, 50)};
    for (const QPoint& corner : tool.theCorners)
        tool.make(corner);
    f.drag(QPoint(40, 40), QPoint(130, 90));
    QCOMPARE(f.theEditor.selection().items().size(), 2);
    f.press(kFirst);
    f.move(kFirst + QPoint(30, 70));
    QCOMPARE(tool.theItems[1]->theCorner, QPoint(130, 120));
    QTest::keyClick(f.theEditor.viewport(), Qt::Key_Escape);
    f.release(kFirst + QPoint(30, 70));
    QCOMPARE(tool.theRemakings, 1);
    QCOMPARE(tool.theItems[0]->theCorner, QPoint(50, 50));
    QCOMPARE(tool.theItems[1]->theCorner, QPoint(100, 50));
    qDeleteAll(tool.theItems);
}

void TestGroupDrag::memberThatGoesDuringTheMoveLeavesTheRestMoving()
{
    EditorFixture f;
    makeThree(f);
    f.click(kThird); // current, and no member: it must not take the group's place
    f.drag(QPoint(40, 40), QPoint(130, 90));
    f.press(kFirst);
    f.move(kFirst + QPoint(30, 70));
    f.theTool.removeCvObject(f.theTool.item(1));
    f.move(kFirst + QPoint(40, 70));
    f.release(kFirst + QPoint(40, 70));
    QCOMPARE(f.theTool.recordedPos(2), QPoint(140, 120));
    QCOMPARE(f.theTool.recordedPos(3), QPoint(150, 50));

    f.drag(QPoint(130, 110), QPoint(170, 150));
    QCOMPARE(f.theEditor.selection().items().size(), 1);
    f.click(kThird, Qt::ShiftModifier);
    f.press(kThird);
    f.move(kThird + QPoint(0, 40));
    f.theTool.removeCvObject(f.theTool.item(2));
    f.theTool.removeCvObject(f.theTool.item(3));
    f.move(kThird + QPoint(0, 80));
    f.release(kThird + QPoint(0, 80));
    QVERIFY(f.theEditor.cvItems().isEmpty());
}

MEASURE_TEST_MAIN(TestGroupDrag)
#include "TestGroupDrag.moc"
