#include "CmdRemoveObject.h"
#include "EditorFixture.h"
#include "TestFont.h"

#include <QSignalSpy>

class TestItemRouting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Items.
    void itemIsDraggedAndReportedOnce();
    void clickOnAnItemMakesItCurrentAndChangesNothing();
    void moveWithinACanvasPixelChangesNothing();
    void withAToolOnlyItsOwnItemsCount();
    void controlTakesAnItemOfAnotherTool();
    void controlBeginsANewObjectOnTopOfAnOwnOne();
    void currentItemComesBeforeTheOneOnTop();
    void itemThatIgnoresThePressIsPassedOver();
    void hiddenItemTakesNoPress();
    void farItemsAreNotAsked();
    void toleranceGrowsBelowZoomOne();
    void itemThatGoesDuringItsDragEndsIt();

    // Watchers.
    void watchersClickIsItsPress();
    void watchersLongerWayDragsTheItem();
    void watcherThatIsNotCurrentSeesNoClick();
    void watcherLeftWithinItsPressGetsNoRelease();
};

namespace {

/// Goes back to the selection arrow with each press.
class LeavingTool : public ProbeTool
{
public:
    LeavingTool() : ProbeTool(nullptr, ProbeTool::kType + 2) {}

    void mousePressEvent(QMouseEvent* aEvent) override
    {
        ProbeTool::mousePressEvent(aEvent);
        theCvEditor->setCurrentManipulator(nullptr);
    }
};

} // namespace

void TestItemRouting::itemIsDraggedAndReportedOnce()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    QSignalSpy changed(&f.theEditor, &LmCvEditor::signalCanvasObjectChanged);
    f.drag(QPoint(60, 60), QPoint(90, 75));
    QCOMPARE(item->theCorner, QPoint(80, 65));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().value<LmCvObject*>(), item);
    QCOMPARE(f.theTool.recordedPos(1), QPoint(80, 65));
    QCOMPARE(f.theStack.count(), 2);
    f.theStack.undo();
    QCOMPARE(item->theCorner, QPoint(50, 50));
}

void TestItemRouting::clickOnAnItemMakesItCurrentAndChangesNothing()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    QSignalSpy changed(&f.theEditor, &LmCvEditor::signalCanvasObjectChanged);
    f.click(QPoint(60, 60));
    QCOMPARE(f.theEditor.theCurrentTrack, item);
    QVERIFY(item->isActive());
    QCOMPARE(changed.count(), 0);
    QCOMPARE(f.theStack.count(), 1);
    QCOMPARE(item->theReleases, 1);
    f.click(EditorFixture::kEmpty);
    QVERIFY(!f.theEditor.theCurrentTrack);
    QVERIFY(!item->isActive());
}

void TestItemRouting::moveWithinACanvasPixelChangesNothing()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    f.theEditor.setZoom(8.0);
    f.theEditor.ensureVisible(QPoint(60, 60));
    const QPoint middle = f.toViewport(QPoint(60, 60));
    QTest::mousePress(f.theEditor.viewport(), Qt::LeftButton, Qt::NoModifier, middle);
    QTest::mouseMove(f.theEditor.viewport(), middle + QPoint(2, 1));
    QTest::mouseRelease(f.theEditor.viewport(), Qt::LeftButton, Qt::NoModifier, middle + QPoint(2, 1));
    QCOMPARE(item->thePresses, 1);
    QCOMPARE(item->theMoves, 0);
    QCOMPARE(f.theStack.count(), 1);
}

void TestItemRouting::withAToolOnlyItsOwnItemsCount()
{
    EditorFixture f;
    ProbeItem* own = f.theTool.create(QPoint(50, 50));
    ProbeItem* foreign = f.theOtherTool.create(QPoint(150, 50));
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.click(QPoint(160, 60));
    QCOMPARE(foreign->thePresses, 0);
    QCOMPARE(f.theTool.theEvents.first(), ProbeTool::noted("press", QPoint(160, 60)));
    f.theTool.theEvents.clear();
    f.click(QPoint(60, 60));
    QCOMPARE(own->thePresses, 1);
    QVERIFY(f.theTool.theEvents.isEmpty());

    f.theEditor.setCurrentManipulator(nullptr);
    f.click(QPoint(160, 60));
    QCOMPARE(foreign->thePresses, 1);
}

void TestItemRouting::controlTakesAnItemOfAnotherTool()
{
    EditorFixture f;
    ProbeItem* foreign = f.theOtherTool.create(QPoint(150, 50));
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.drag(QPoint(160, 60), QPoint(180, 60), Qt::ControlModifier);
    QCOMPARE(foreign->theCorner, QPoint(170, 50));
    QCOMPARE(f.theEditor.theCurrentTrack, foreign);
    QVERIFY(f.theTool.theEvents.isEmpty());
}

void TestItemRouting::controlBeginsANewObjectOnTopOfAnOwnOne()
{
    EditorFixture f;
    ProbeItem* own = f.theTool.create(QPoint(50, 50));
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.click(QPoint(60, 60), Qt::ControlModifier);
    QCOMPARE(own->thePresses, 0);
    QCOMPARE(f.theTool.theEvents.first(), ProbeTool::noted("press", QPoint(60, 60)));
}

void TestItemRouting::currentItemComesBeforeTheOneOnTop()
{
    EditorFixture f;
    ProbeItem* below = f.theTool.create(QPoint(50, 50));
    ProbeItem* above = f.theTool.create(QPoint(55, 55));
    QCOMPARE(f.theEditor.itemAt(QPoint(60, 60)), above);
    f.theEditor.activateItem(below);
    QCOMPARE(f.theEditor.itemAt(QPoint(60, 60)), below);
    f.click(QPoint(60, 60));
    QCOMPARE(below->thePresses, 1);
    QCOMPARE(above->thePresses, 0);
}

void TestItemRouting::itemThatIgnoresThePressIsPassedOver()
{
    EditorFixture f;
    ProbeItem* below = f.theTool.create(QPoint(50, 50));
    ProbeItem* above = f.theTool.create(QPoint(55, 55));
    above->theRefusesPress = true;
    f.drag(QPoint(60, 60), QPoint(80, 60));
    QCOMPARE(below->theCorner, QPoint(70, 50));
    QCOMPARE(above->theCorner, QPoint(55, 55));
    QCOMPARE(f.theEditor.theCurrentTrack, below);
}

void TestItemRouting::hiddenItemTakesNoPress()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    f.theTool.showCvObject(item, false);
    f.click(QPoint(60, 60));
    QCOMPARE(item->thePresses, 0);
    QVERIFY(!f.theEditor.itemAt(QPoint(60, 60)));
    f.theTool.showCvObject(item, true);
    f.click(QPoint(60, 60));
    QCOMPARE(item->thePresses, 1);
}

void TestItemRouting::farItemsAreNotAsked()
{
    EditorFixture f;
    ProbeItem* near = f.theTool.create(QPoint(50, 50));
    ProbeItem* far = f.theTool.create(QPoint(200, 200));
    QCOMPARE(f.theEditor.itemAt(QPoint(60, 60)), near);
    QCOMPARE(near->theHitQuestions, 1);
    QCOMPARE(far->theHitQuestions, 0);
    f.click(QPoint(60, 60));
    QCOMPARE(far->thePresses, 0);
}

void TestItemRouting::toleranceGrowsBelowZoomOne()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    const QPoint beside(50 - 7, 60); // beyond half of 8, within half of 16
    QVERIFY(!f.theEditor.itemAt(beside));
    f.theEditor.setZoom(0.5);
    QCOMPARE(f.theEditor.itemAt(beside), item);
    f.theEditor.setZoom(4.0);
    QVERIFY(!f.theEditor.itemAt(beside));
    QCOMPARE(f.theEditor.itemAt(QPoint(50 - 4, 60)), item);
}

void TestItemRouting::itemThatGoesDuringItsDragEndsIt()
{
    EditorFixture f;
    f.theTool.create(QPoint(50, 50));
    f.press(QPoint(60, 60));
    f.move(QPoint(70, 60));
    QSignalSpy changed(&f.theEditor, &LmCvEditor::signalCanvasObjectChanged);
    f.theStack.push(new CmdRemoveObject(ProbeTool::kType, 1));
    QVERIFY(!f.theEditor.theCurrentTrack);
    f.move(QPoint(80, 60));
    f.release(QPoint(80, 60));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(f.theStack.count(), 2);
}

void TestItemRouting::watchersClickIsItsPress()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    f.theEditor.theItemWatchers.append(&f.theTool);
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.press(QPoint(60, 60));
    QVERIFY(f.theTool.theEvents.isEmpty());
    f.move(QPoint(62, 60)); // 2 pixels are still a click
    f.release(QPoint(62, 60));
    QCOMPARE(f.theTool.theEvents, (QStringList{ProbeTool::noted("press", QPoint(60, 60)),
                                               ProbeTool::noted("release", QPoint(62, 60))}));
    QCOMPARE(item->theCorner, QPoint(50, 50));
    QVERIFY(!f.theEditor.theCurrentTrack);
    QVERIFY(!item->theMoving);
    QCOMPARE(f.theStack.count(), 1);
}

void TestItemRouting::watchersLongerWayDragsTheItem()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    f.theEditor.theItemWatchers.append(&f.theTool);
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.press(QPoint(60, 60));
    f.move(QPoint(63, 60)); // 3 pixels are a drag
    f.release(QPoint(63, 60));
    QVERIFY(f.theTool.theEvents.isEmpty());
    QCOMPARE(item->theCorner, QPoint(53, 50));
    QCOMPARE(f.theEditor.theCurrentTrack, item);
    QCOMPARE(f.theTool.recordedPos(1), QPoint(53, 50));
}

void TestItemRouting::watcherThatIsNotCurrentSeesNoClick()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    f.theEditor.theItemWatchers.append(&f.theOtherTool);
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.click(QPoint(60, 60));
    QVERIFY(f.theOtherTool.theEvents.isEmpty());
    QCOMPARE(f.theEditor.theCurrentTrack, item);
}

void TestItemRouting::watcherLeftWithinItsPressGetsNoRelease()
{
    EditorFixture f;
    LeavingTool tool;
    tool.setUndoStack(&f.theStack);
    tool.setCvEditor(&f.theEditor);
    tool.initManipulator(&f.theBar);
    tool.create(QPoint(50, 50));
    f.theEditor.theItemWatchers.append(&tool);
    f.theEditor.setCurrentManipulator(&tool);
    f.click(QPoint(60, 60));
    QCOMPARE(tool.theEvents, QStringList(ProbeTool::noted("press", QPoint(60, 60))));
    QVERIFY(!f.theEditor.theCurrentManipulator);
    f.theStack.clear();
}

MEASURE_TEST_MAIN(TestItemRouting)
#include "TestItemRouting.moc"
