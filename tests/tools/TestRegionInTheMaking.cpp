#include "DistanceFixture.h"
#include "LmCVSequence.h"
#include "RegionFixture.h"
#include "TestFont.h"

#include <QToolButton>

#include <memory>

/// What happens to an outline in the making when something else comes in between.
class TestRegionInTheMaking : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<RegionFixture>(); }
    void cleanup() { theFixture.reset(); }

    void escapeEndsTheOutlineAndThenTheTool();
    void escapeLeavesNoLoneNode();
    void escapeWithTheButtonDownDropsThatPress();
    void escapeInTheClosingPressDropsIt();
    void otherToolInTheClosingPressDropsIt();
    void escapeInAStrokeDropsTheStroke();
    void escapeBetweenStrokesFreesTheMouse();
    void undoOfTheCreationEndsTheOutline();
    void undoWithTheButtonDownLeavesWholeNodes();
    void deletedObjectIsForgotten();
    void deletedObjectTakesTheRubberLineAlong();
    void otherToolLeavesTheOutlineAsItStands();
    void otherButtonLeavesTheOutlineAsItStands();
    void itemThatGoesWithItsCanvasIsForgotten();
    void loadingInBetweenLeavesTheOutline();

private:
    std::unique_ptr<RegionFixture> theFixture;
};

void TestRegionInTheMaking::escapeEndsTheOutlineAndThenTheTool()
{
    RegionFixture& f = *theFixture;
    f.clickAll({QPoint(20, 20), QPoint(100, 20)});
    const int steps = f.theStack.count();
    f.key(Qt::Key_Escape);
    QVERIFY(f.theTool.theFinished);
    QVERIFY(!f.theTool.theRegion);
    QCOMPARE(f.theEditor.theCurrentManipulator, &f.theTool);
    QCOMPARE(f.anchors(1).size(), 2);
    QCOMPARE(f.theStack.count(), steps);
    QVERIFY(f.recordIsItem(1));
    f.key(Qt::Key_Escape);
    QVERIFY(!f.theEditor.theCurrentManipulator);
}

void TestRegionInTheMaking::escapeLeavesNoLoneNode()
{
    RegionFixture& f = *theFixture;
    f.click(QPoint(20, 20));
    f.key(Qt::Key_Escape);
    QCOMPARE(f.recordCount(), 0);
    QCOMPARE(f.itemCount(), 0);
    f.theStack.undo();
    QCOMPARE(f.anchors(1).size(), 1);
}

void TestRegionInTheMaking::escapeWithTheButtonDownDropsThatPress()
{
    RegionFixture& f = *theFixture;
    f.clickAll({QPoint(20, 20), QPoint(100, 20)});
    const int steps = f.theStack.count();
    f.press(QPoint(100, 90));
    f.move(QPoint(120, 110));
    f.key(Qt::Key_Escape);
    QCOMPARE(f.anchors(1), (QList<QPoint>{QPoint(20, 20), QPoint(100, 20)}));
    f.move(QPoint(140, 140));
    f.release(QPoint(140, 140));
    QCOMPARE(f.anchors(1).size(), 2);
    QCOMPARE(f.theStack.count(), steps);
    QVERIFY(f.recordIsItem(1));
}

void TestRegionInTheMaking::escapeInTheClosingPressDropsIt()
{
    RegionFixture& f = *theFixture;
    f.clickAll({QPoint(20, 20), QPoint(100, 20), QPoint(100, 90)});
    const int steps = f.theStack.count();
    f.press(QPoint(20, 20));
    f.move(QPoint(10, 40));
    QVERIFY(f.item(1)->theClosed);
    f.key(Qt::Key_Escape);
    QVERIFY(!f.item(1)->theClosed);
    QVERIFY(f.recordIsItem(1));
    QCOMPARE(f.theEditor.theCurrentManipulator, &f.theTool);
    f.release(QPoint(10, 40));
    QCOMPARE(f.theStack.count(), steps);
    QVERIFY(f.recordIsItem(1));
}

void TestRegionInTheMaking::otherToolInTheClosingPressDropsIt()
{
    RegionFixture& f = *theFixture;
    f.pickPencil();
    f.stroke({QPoint(20, 20), QPoint(60, 20), QPoint(60, 60)});
    f.press(QPoint(20, 20));
    QVERIFY(f.item(1)->theClosed);
    f.theEditor.setCurrentManipulator(nullptr);
    QVERIFY(!f.item(1)->theClosed);
    QVERIFY(f.recordIsItem(1));
}

void TestRegionInTheMaking::escapeInAStrokeDropsTheStroke()
{
    RegionFixture& f = *theFixture;
    f.pickPencil();
    f.stroke({QPoint(20, 20), QPoint(60, 20)});
    f.press(QPoint(60, 60));
    f.move(QPoint(90, 60));
    f.key(Qt::Key_Escape);
    QCOMPARE(f.anchors(1), (QList<QPoint>{QPoint(20, 20), QPoint(60, 20)}));
    QVERIFY(f.item(1)->theShowNodes);
    QVERIFY(f.recordIsItem(1));
    f.release(QPoint(90, 60));
    QVERIFY(!f.theTool.theRubberLine);
}

void TestRegionInTheMaking::escapeBetweenStrokesFreesTheMouse()
{
    RegionFixture& f = *theFixture;
    f.pickPencil();
    f.stroke({QPoint(20, 20), QPoint(60, 20)});
    f.key(Qt::Key_Escape);
    QVERIFY(!f.theEditor.mouseGrabber());
    QVERIFY(!f.theTool.theRubberLine);
    QCOMPARE(f.itemCount(), 1);
    QCOMPARE(f.theEditor.canvas()->allItems().size(), 1);
    f.stroke({QPoint(150, 150), QPoint(190, 150)});
    QCOMPARE(f.recordCount(), 2);
}

void TestRegionInTheMaking::undoOfTheCreationEndsTheOutline()
{
    RegionFixture& f = *theFixture;
    f.click(QPoint(20, 20));
    f.theStack.undo(); // what the release sent
    f.theStack.undo();
    QVERIFY(!f.theTool.theRegion);
    QVERIFY(f.theTool.theFinished);
    f.click(QPoint(100, 100));
    QCOMPARE(f.anchors(1), QList<QPoint>{QPoint(100, 100)});
}

void TestRegionInTheMaking::undoWithTheButtonDownLeavesWholeNodes()
{
    RegionFixture& f = *theFixture;
    f.clickAll({QPoint(20, 20), QPoint(100, 20), QPoint(100, 90)});
    f.press(QPoint(40, 90));
    f.theStack.undo(); // puts two nodes in the place of four
    QCOMPARE(f.anchors(1), (QList<QPoint>{QPoint(20, 20), QPoint(100, 20)}));
    f.move(QPoint(60, 110));
    f.release(QPoint(60, 110));
    QCOMPARE(f.item(1)->thePoints.size(), 3 * f.item(1)->nodeCount());
    QVERIFY(f.recordIsItem(1));
    f.click(QPoint(70, 70));
    QCOMPARE(f.anchors(1), (QList<QPoint>{QPoint(20, 20), QPoint(100, 20), QPoint(70, 70)}));
}

void TestRegionInTheMaking::deletedObjectIsForgotten()
{
    RegionFixture& f = *theFixture;
    f.clickAll({QPoint(20, 20), QPoint(100, 20)});
    f.item(1)->deselectAllNodes(-1);
    f.key(Qt::Key_Delete);
    QVERIFY(!f.theTool.theRegion);
    QVERIFY(f.theTool.theFinished);
    f.move(QPoint(50, 50));
    f.clickAll({QPoint(50, 50), QPoint(90, 50)});
    QCOMPARE(f.recordCount(), 1);
    QCOMPARE(f.anchors(1).size(), 2);
}

void TestRegionInTheMaking::deletedObjectTakesTheRubberLineAlong()
{
    RegionFixture& f = *theFixture;
    f.pickPencil();
    f.stroke({QPoint(20, 20), QPoint(60, 20)});
    QVERIFY(f.theTool.theRubberLine);
    f.theTool.removeCvObject(f.item(1));
    QVERIFY(!f.theTool.theRubberLine);
    QVERIFY(!f.theEditor.mouseGrabber());
    QCOMPARE(f.theEditor.canvas()->allItems().size(), 0);
}

void TestRegionInTheMaking::otherToolLeavesTheOutlineAsItStands()
{
    RegionFixture& f = *theFixture;
    LmCvManipDist distance(nullptr);
    distance.setUndoStack(&f.theStack);
    distance.setCvEditor(&f.theEditor);
    distance.initManipulator(&f.theToolBar);
    f.pickPencil();
    f.stroke({QPoint(20, 20), QPoint(60, 20)});
    distance.theToolButton->setChecked(true);
    QVERIFY(!f.theTool.thePencilButton->isChecked());
    QVERIFY(!f.theTool.theRegion);
    QVERIFY(f.theTool.theFinished);
    QVERIFY(!f.theTool.theRubberLine);
    QCOMPARE(f.anchors(1).size(), 2);
    QVERIFY(f.recordIsItem(1));
    f.drag(QPoint(100, 100), QPoint(150, 150));
    QCOMPARE(f.theKernel.getObjectsOfType(1102).size(), 1);
    f.pickPencil();
    QVERIFY(!distance.theToolButton->isChecked());
    f.theStack.clear();
    f.theEditor.setCurrentManipulator(&f.theTool);
}

void TestRegionInTheMaking::otherButtonLeavesTheOutlineAsItStands()
{
    RegionFixture& f = *theFixture;
    f.click(QPoint(20, 20));
    f.pickPencil();
    QVERIFY(!f.theTool.theRegion);
    QCOMPARE(f.anchors(1).size(), 1); // also a lone node
    f.pickPen();
    f.click(QPoint(150, 150));
    QCOMPARE(f.recordCount(), 2);
}

void TestRegionInTheMaking::itemThatGoesWithItsCanvasIsForgotten()
{
    theFixture.reset(); // a type has one tool
    ToolFixture f;
    LmCvManipRegion tool(nullptr);
    {
        LmCvEditor editor;
        editor.imageCanvas()->showImage(&f.theImage);
        editor.resize(500, 400);
        tool.setUndoStack(&f.theStack);
        tool.setCvEditor(&editor);
        tool.initManipulator(&f.theToolBar);
        tool.thePencilButton->setChecked(true);
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(20, 20), QPointF(20, 20), Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        tool.mousePressEvent(&press);
        QMouseEvent release(QEvent::MouseButtonRelease, QPointF(20, 20), QPointF(20, 20), Qt::LeftButton,
                            Qt::NoButton, Qt::NoModifier);
        tool.mouseReleaseEvent(&release);
        QVERIFY(tool.theRegion);
        QVERIFY(tool.theRubberLine);
        tool.theCvObjects.clear(); // the host clears its records before the editor goes
    }
    QVERIFY(!tool.theRegion);
    QVERIFY(!tool.theRubberLine);
    f.theStack.clear();
}

void TestRegionInTheMaking::loadingInBetweenLeavesTheOutline()
{
    RegionFixture& f = *theFixture;
    f.clickAll({QPoint(20, 20), QPoint(100, 20)});
    LmCVSequence contour(3, 8);
    contour.putPoint(1, 50, 0);
    contour.putPoint(2, 0, 50);
    QCOMPARE(f.theTool.createObjectFromContour(contour, QString()), 2);
    f.click(QPoint(100, 90));
    QCOMPARE(f.anchors(1).size(), 3);
    QCOMPARE(f.anchors(2).size(), 3);
    QVERIFY(f.recordIsItem(1));
}

MEASURE_TEST_MAIN(TestRegionInTheMaking)
#include "TestRegionInTheMaking.moc"
