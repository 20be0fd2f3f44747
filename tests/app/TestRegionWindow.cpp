#include "BenchState.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "RegionWindow.h"
#include "TestFont.h"

#include <QMenu>
#include <QToolButton>

/// Regions drawn and edited by the mouse and keys of a person in the window.
class TestRegionWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void penDrawsHandlesAndClosesTheOutline();
    void pencilDrawsAStrokeAndARightClickCloses();
    void nodeAndHandleOfAFinishedRegionArePulled();
    void regionIsDraggedByItsInside();
    void deleteTakesTheSelectedNodeAndThenTheObject_data();
    void deleteTakesTheSelectedNodeAndThenTheObject();
    void deleteOfAllNodesTakesTheObject();
    void groupWithADistanceIsDeletedAsOneStep();
    void escLeavesTheOutlineAndThenTheTool_data();
    void escLeavesTheOutlineAndThenTheTool();
    void escOfALoneNodeLeavesNothing();
    void undoAndRedoWalkThroughAWholeOutline();
    void undoStepsSayWhatTheyDo();
    void labelShowsTheValueWhileARegionIsDrawn();
};

static const QList<QPoint> kTriangle{{100, 80}, {260, 80}, {180, 220}};
static const QPoint kInside(180, 120);

void TestRegionWindow::penDrawsHandlesAndClosesTheOutline()
{
    RegionWindow f;
    f.pickPen();
    f.click(QPoint(60, 60));
    f.drag(QPoint(200, 60), QPoint(230, 80));
    f.click(QPoint(200, 200));
    f.click(QPoint(60, 60));
    QCOMPARE(f.regionCount(), 1);
    QVERIFY(f.isClosed(1));
    QCOMPARE(f.anchors(1), (QList<QPoint>{{60, 60}, {200, 60}, {200, 200}}));
    const QPolygon points = f.points(1);
    QCOMPARE(points[5], QPoint(230, 80)); // what was pulled,
    QCOMPARE(points[3], QPoint(170, 40)); // and its reflection
    QCOMPARE(points[6], QPoint(200, 200));
    QCOMPARE(f.itemNodeCount(1), 3);
    QVERIFY(!f.editor().mouseGrabber());
}

void TestRegionWindow::pencilDrawsAStrokeAndARightClickCloses()
{
    RegionWindow f;
    f.pickPencil();
    f.stroke({{60, 60}, {70, 60}, {80, 62}, {90, 70}, {92, 90}});
    QCOMPARE(f.regionCount(), 1);
    QCOMPARE(f.anchors(1), (QList<QPoint>{{60, 60}, {70, 60}, {80, 62}, {90, 70}, {92, 90}}));
    QVERIFY(!f.isClosed(1));
    QCOMPARE(f.editor().mouseGrabber(), f.regionTool());
    QVERIFY(!f.contextMenu(QPoint(70, 100))); // the tool's, so that no menu opens
    QVERIFY(f.isClosed(1));
    QCOMPARE(f.anchors(1).size(), 5);
    QVERIFY(!f.editor().mouseGrabber());
    QMenu* menu = f.contextMenu(QPoint(300, 250));
    QVERIFY(menu);
    menu->close();
}

void TestRegionWindow::nodeAndHandleOfAFinishedRegionArePulled()
{
    RegionWindow f;
    QCOMPARE(f.drawClosed(kTriangle), 1);
    const int steps = f.stack().count();
    f.drag(kTriangle[1], QPoint(300, 60));
    QCOMPARE(f.anchors(1), (QList<QPoint>{kTriangle[0], {300, 60}, kTriangle[2]}));
    QCOMPARE(f.stack().count(), steps + 1);
    // Alt pulls a new pair of handles out of the node.
    f.drag(QPoint(300, 60), QPoint(300, 100), Qt::AltModifier);
    QCOMPARE(f.points(1)[5], QPoint(300, 100));
    QCOMPARE(f.points(1)[3], QPoint(300, 20));
    // The handle alone, and only its partner's direction follows.
    f.drag(QPoint(300, 100), QPoint(330, 60));
    QCOMPARE(f.points(1)[4], QPoint(300, 60));
    QCOMPARE(f.points(1)[5], QPoint(330, 60));
    QCOMPARE(f.points(1)[3], QPoint(260, 60));
    QCOMPARE(f.stack().count(), steps + 3);
    for (int i = 0; i < 3; ++i)
        f.stack().undo();
    QCOMPARE(f.anchors(1), kTriangle);
}

void TestRegionWindow::regionIsDraggedByItsInside()
{
    RegionWindow f;
    QCOMPARE(f.drawClosed(kTriangle), 1);
    const QPolygon before = f.points(1);
    const int steps = f.stack().count();
    f.drag(kInside, kInside + QPoint(40, 30));
    QCOMPARE(f.points(1), before.translated(40, 30));
    QCOMPARE(f.stack().count(), steps + 1);
    f.drag(QPoint(20, 20), QPoint(60, 50)); // beside it: a rubber band
    QCOMPARE(f.stack().count(), steps + 1);
    f.stack().undo();
    QCOMPARE(f.points(1), before);
}

void TestRegionWindow::deleteTakesTheSelectedNodeAndThenTheObject_data()
{
    QTest::addColumn<bool>("withPen");
    QTest::newRow("arrow") << false;
    QTest::newRow("pen") << true;
}

void TestRegionWindow::deleteTakesTheSelectedNodeAndThenTheObject()
{
    QFETCH(bool, withPen);
    RegionWindow f;
    QCOMPARE(f.drawClosed({{100, 80}, {260, 80}, {260, 200}, {100, 200}}), 1);
    if (withPen)
        f.pickPen();
    const int steps = f.stack().count();
    f.click(QPoint(260, 200));
    QCOMPARE(f.stack().count(), steps);
    f.key(Qt::Key_Delete);
    QCOMPARE(f.anchors(1), (QList<QPoint>{{100, 80}, {260, 80}, {100, 200}}));
    QVERIFY(f.isClosed(1));
    QCOMPARE(f.stack().count(), steps + 1);
    f.key(Qt::Key_Delete);
    QCOMPARE(f.regionCount(), 0);
    QCOMPARE(f.stack().count(), steps + 2);
    f.stack().undo();
    f.stack().undo();
    QCOMPARE(f.anchors(1).size(), 4);
    QCOMPARE(f.itemNodeCount(1), 4);
}

void TestRegionWindow::deleteOfAllNodesTakesTheObject()
{
    RegionWindow f;
    QCOMPARE(f.drawClosed(kTriangle), 1);
    f.click(kTriangle[0]);
    f.click(kTriangle[1], Qt::ShiftModifier);
    f.click(kTriangle[2], Qt::ShiftModifier);
    QCOMPARE(f.item(1)->getSelectedNodes().size(), 3);
    f.key(Qt::Key_Delete);
    QCOMPARE(f.regionCount(), 0);
    f.stack().undo();
    QCOMPARE(f.anchors(1), kTriangle);
}

void TestRegionWindow::groupWithADistanceIsDeletedAsOneStep()
{
    RegionWindow f;
    QCOMPARE(f.drawClosed(kTriangle), 1);
    QCOMPARE(f.draw(QPoint(40, 260), QPoint(340, 260)), 1);
    const int steps = f.stack().count();
    f.key(Qt::Key_A, Qt::ControlModifier);
    f.key(Qt::Key_Delete);
    QCOMPARE(f.regionCount() + f.distanceCount(), 0);
    QCOMPARE(f.stack().count(), steps + 1);
    f.stack().undo();
    QCOMPARE(f.regionCount(), 1);
    QCOMPARE(f.distanceCount(), 1);
}

void TestRegionWindow::escLeavesTheOutlineAndThenTheTool_data()
{
    QTest::addColumn<bool>("withPencil");
    QTest::newRow("pen") << false;
    QTest::newRow("pencil") << true;
}

void TestRegionWindow::escLeavesTheOutlineAndThenTheTool()
{
    QFETCH(bool, withPencil);
    RegionWindow f;
    QToolButton* button = withPencil ? f.pencilButton() : f.penButton();
    QTest::mouseClick(button, Qt::LeftButton);
    f.clickAll({{60, 60}, {200, 60}, {200, 200}});
    f.key(Qt::Key_Escape);
    QVERIFY(f.isOnly(button));
    QVERIFY(!f.editor().mouseGrabber());
    QCOMPARE(f.anchors(1).size(), 3);
    f.click(QPoint(300, 250)); // begins another one
    QCOMPARE(f.regionCount(), 2);
    f.key(Qt::Key_Escape);
    QCOMPARE(f.regionCount(), 1); // a lone node is no outline
    f.key(Qt::Key_Escape);
    QVERIFY(!f.editor().theCurrentManipulator);
    QVERIFY(f.isOnly(nullptr));
    const int steps = f.stack().count();
    f.click(QPoint(300, 250));
    QCOMPARE(f.stack().count(), steps);
}

void TestRegionWindow::escOfALoneNodeLeavesNothing()
{
    RegionWindow f;
    f.pickPen();
    f.click(QPoint(60, 60));
    QCOMPARE(f.regionCount(), 1);
    f.key(Qt::Key_Escape);
    QCOMPARE(f.regionCount(), 0);
    QVERIFY(f.editor().cvItems().isEmpty());
    QVERIFY(f.isOnly(f.penButton()));
}

void TestRegionWindow::undoAndRedoWalkThroughAWholeOutline()
{
    RegionWindow f;
    QCOMPARE(f.drawClosed(kTriangle), 1);
    f.drag(kInside, kInside + QPoint(10, 5));
    QStringList states;
    for (; f.stack().canUndo(); f.stack().undo())
        states.prepend(recordsText());
    QCOMPARE(f.regionCount(), 0);
    QVERIFY(f.editor().cvItems().isEmpty());
    for (const QString& state : std::as_const(states)) {
        f.stack().redo();
        QCOMPARE(recordsText(), state);
        QCOMPARE(f.itemNodeCount(1), f.anchors(1).size());
    }
    QVERIFY(!f.stack().canRedo());
}

void TestRegionWindow::undoStepsSayWhatTheyDo()
{
    RegionWindow f;
    f.pickPen();
    f.click(kTriangle[0]);
    QCOMPARE(f.undoTexts().first(), QStringLiteral("Create object"));
    f.clickAll({kTriangle[1], kTriangle[2], kTriangle[0]});
    f.pickArrow();
    for (const QString& text : f.undoTexts().mid(1))
        QCOMPARE(text, QStringLiteral("Change Region 1"));
    f.click(kInside); // leaves the node that was clicked last
    f.key(Qt::Key_Delete);
    QCOMPARE(f.undoTexts().last(), QStringLiteral("Delete Region 1"));
}

void TestRegionWindow::labelShowsTheValueWhileARegionIsDrawn()
{
    RegionWindow f;
    QCOMPARE(f.drawClosed({{100, 80}, {199, 80}, {199, 129}, {100, 129}}), 1);
    // "Width" is the first value name: both border pixels count.
    QCOMPARE(f.item(1)->labelText(), QStringLiteral(" 1 <100.00> "));
    f.drag(QPoint(199, 80), QPoint(219, 80));
    QCOMPARE(f.item(1)->labelText(), QStringLiteral(" 1 <120.00> "));
    f.stack().undo();
    QCOMPARE(f.item(1)->labelText(), QStringLiteral(" 1 <100.00> "));
}

MEASURE_TEST_MAIN(TestRegionWindow)
#include "TestRegionWindow.moc"
