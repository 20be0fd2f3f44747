#include "LmCvObject.h"
#include "MeasureFixture.h"
#include "TestFont.h"

#include <QSignalSpy>

/// The current object in the table and on the canvas, whichever of the two the user takes it in.
class TestMeasureSelection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clickedRowIsCurrentOnTheCanvas();
    void rowOfTheTableDoesNotComeBackFromTheCanvas();
    void arrowKeyGoesThroughTheObjects();
    void clickedItemIsSelectedInTheTable();
    void itemWithoutRowClearsTheSelection();
    void clickBesideAllItemsClearsTheSelection();
    void clickOnTheRowBringsADeselectedItemBack();
    void foreignRowsAndMissingItemsChangeNothing();
    void tabFollowsTheRowOnlyWhereThereIsOne();
    void editsOfTheTableTellNobody();
    void removedRowMakesItsNeighbourCurrent();

private:
    static void clickRow(MeasureFixture& aFixture, int aRow);
    /// Two distances and an angle; the angle is current.
    static void drawThree(MeasureFixture& aFixture);
};

void TestMeasureSelection::clickRow(MeasureFixture& aFixture, int aRow)
{
    const Q3Table& table = aFixture.table();
    const QPoint pos(5, table.rowViewportPosition(aRow) + table.rowHeight(aRow) / 2);
    QVERIFY(table.clipper()->rect().contains(pos));
    QTest::mouseClick(table.clipper(), Qt::LeftButton, {}, pos);
}

void TestMeasureSelection::drawThree(MeasureFixture& aFixture)
{
    aFixture.load({&aFixture.theDistance, &aFixture.theAngle});
    aFixture.showWindow();
    aFixture.drawDistance(QPoint(20, 20), QPoint(60, 20));
    aFixture.drawDistance(QPoint(20, 60), QPoint(60, 60));
    aFixture.drawAngle(QPoint(100, 120), QPoint(180, 120), QPoint(100, 60));
    aFixture.theEditor.setCurrentManipulator(nullptr);
    QCOMPARE(aFixture.table().numRows(), 3);
}

void TestMeasureSelection::clickedRowIsCurrentOnTheCanvas()
{
    MeasureFixture f;
    drawThree(f);
    LmCvObject* angle = f.theAngle.getCvObject(1);
    QCOMPARE(f.theEditor.theCurrentTrack, angle);
    clickRow(f, 1);
    LmCvObject* distance = f.theDistance.getCvObject(2);
    QCOMPARE(f.theEditor.theCurrentTrack, distance);
    QVERIFY(distance->isActive());
    QVERIFY(!angle->isActive());
    QCOMPARE(f.selectedRow(), 1);
    QCOMPARE(f.currentTab(), QStringLiteral("Distance"));
    QVERIFY(!f.theMeasure->theSelfChange);
}

void TestMeasureSelection::rowOfTheTableDoesNotComeBackFromTheCanvas()
{
    MeasureFixture f;
    drawThree(f);
    QSignalSpy told(&f.table(), SIGNAL(currentChanged(int, int)));
    QList<bool> selfChanges;
    connect(&f.theEditor, &LmCvEditor::signalCurrentObjectChanged, f.theMeasure,
            [&] { selfChanges << f.theMeasure->theSelfChange; });
    clickRow(f, 0);
    QCOMPARE(told.count(), 1);
    QCOMPARE(selfChanges, QList<bool>{true});
    // The answer of the canvas alone would put the current cell into the first column.
    f.table().setCurrentCell(1, 2);
    QCOMPARE(f.table().currentColumn(), 2);
    f.theMeasure->slotCanvasObjectCurrent(f.theDistance.getCvObject(2));
    QCOMPARE(f.table().currentColumn(), 0);
    f.theMeasure->theSelfChange = true;
    f.theMeasure->slotCanvasObjectCurrent(f.theDistance.getCvObject(1));
    QCOMPARE(f.table().currentRow(), 1);
    f.theMeasure->slotCanvasObjectCurrent(nullptr);
    QCOMPARE(f.selectedRow(), 1);
    f.theMeasure->theSelfChange = false;
}

void TestMeasureSelection::arrowKeyGoesThroughTheObjects()
{
    MeasureFixture f;
    drawThree(f);
    clickRow(f, 0);
    QTest::keyClick(&f.table(), Qt::Key_Down);
    QCOMPARE(f.selectedRow(), 1);
    QCOMPARE(f.theEditor.theCurrentTrack, f.theDistance.getCvObject(2));
    QTest::keyClick(&f.table(), Qt::Key_Down);
    QCOMPARE(f.theEditor.theCurrentTrack, f.theAngle.getCvObject(1));
    QCOMPARE(f.currentTab(), QStringLiteral("Angle"));
}

void TestMeasureSelection::clickedItemIsSelectedInTheTable()
{
    MeasureFixture f;
    drawThree(f);
    QSignalSpy told(&f.table(), SIGNAL(currentChanged(int, int)));
    f.click(QPoint(40, 20));
    QCOMPARE(f.theEditor.theCurrentTrack, f.theDistance.getCvObject(1));
    QCOMPARE(f.selectedRow(), 0);
    QCOMPARE(f.table().currentRow(), 0);
    QCOMPARE(f.table().currentColumn(), 0);
    QCOMPARE(f.currentTab(), QStringLiteral("Distance"));
    QCOMPARE(told.count(), 0);
    QVERIFY(!f.table().signalsBlocked());
}

void TestMeasureSelection::itemWithoutRowClearsTheSelection()
{
    FakeTool tool(1901, QStringLiteral("Other"), {"A"});
    tool.theFlags = 157;
    MeasureFixture f;
    f.load({&f.theDistance, &tool});
    f.drawDistance(QPoint(20, 20), QPoint(60, 20));
    tool.create({}, QPoint(100, 100));
    QCOMPARE(f.selectedRow(), 0);
    f.theEditor.activateItem(tool.getCvObject(1));
    QCOMPARE(f.selectedRow(), -1);
    QCOMPARE(f.currentTab(), QStringLiteral("Distance"));
}

void TestMeasureSelection::clickBesideAllItemsClearsTheSelection()
{
    MeasureFixture f;
    drawThree(f);
    QCOMPARE(f.selectedRow(), 2);
    f.click(QPoint(300, 200));
    QVERIFY(!f.theEditor.theCurrentTrack);
    QCOMPARE(f.selectedRow(), -1);
    QCOMPARE(f.table().numRows(), 3);
}

void TestMeasureSelection::clickOnTheRowBringsADeselectedItemBack()
{
    MeasureFixture f;
    drawThree(f);
    f.click(QPoint(300, 200));
    clickRow(f, 2);
    QCOMPARE(f.theEditor.theCurrentTrack, f.theAngle.getCvObject(1));
    QVERIFY(f.theAngle.getCvObject(1)->isActive());
    QCOMPARE(f.selectedRow(), 2);
}

void TestMeasureSelection::foreignRowsAndMissingItemsChangeNothing()
{
    MeasureFixture f;
    drawThree(f);
    LmCvObject* current = f.theEditor.theCurrentTrack;
    f.theMeasure->slotTableCurrentChanged(-1, 0);
    f.theMeasure->slotTableCurrentChanged(3, 0);
    QCOMPARE(f.theEditor.theCurrentTrack, current);
    LmCvObject* item = f.theDistance.theCvObjects.take(1);
    f.theMeasure->slotTableCurrentChanged(0, 0);
    QCOMPARE(f.theEditor.theCurrentTrack, current);
    f.theDistance.theCvObjects.insert(1, item);
    const auto key = f.theMeasure->theRowKeys.take(QStringLiteral("Distance 1"));
    f.theMeasure->slotTableCurrentChanged(0, 0);
    QCOMPARE(f.theEditor.theCurrentTrack, current);
    f.theMeasure->theRowKeys.insert(QStringLiteral("Distance 1"), {4711, 1});
    f.theMeasure->slotTableCurrentChanged(0, 0);
    QCOMPARE(f.theEditor.theCurrentTrack, current);
    f.theMeasure->theRowKeys.insert(QStringLiteral("Distance 1"), key);
    f.theMeasure->slotTableCurrentChanged(0, 0);
    QCOMPARE(f.theEditor.theCurrentTrack, item);
}

void TestMeasureSelection::tabFollowsTheRowOnlyWhereThereIsOne()
{
    MeasureFixture f;
    drawThree(f);
    f.theMeasure->theCalcTables.remove(QStringLiteral("Distance"));
    clickRow(f, 0);
    QCOMPARE(f.theEditor.theCurrentTrack, f.theDistance.getCvObject(1));
    QCOMPARE(f.currentTab(), QStringLiteral("Angle"));
    f.theEditor.activateItem(f.theDistance.getCvObject(2));
    QCOMPARE(f.selectedRow(), 1);
    QCOMPARE(f.currentTab(), QStringLiteral("Angle"));
}

void TestMeasureSelection::editsOfTheTableTellNobody()
{
    MeasureFixture f;
    drawThree(f);
    QSignalSpy told(&f.table(), SIGNAL(currentChanged(int, int)));
    f.drawDistance(QPoint(20, 100), QPoint(60, 100));
    QCOMPARE(f.table().currentRow(), 3);
    f.theStack.undo();
    f.theStack.redo();
    f.calibrate(100, QStringLiteral("mm"));
    for (const QList<QVariant>& arguments : qAsConst(told))
        QCOMPARE(arguments[0].toInt(), 2); // of the row that undo selects
}

void TestMeasureSelection::removedRowMakesItsNeighbourCurrent()
{
    MeasureFixture f;
    drawThree(f);
    f.theEditor.activateItem(f.theDistance.getCvObject(1));
    f.theEditor.slotDeleteSelected();
    QCOMPARE(f.rowKeys(), (QStringList{"Distance 2", "Angle 1"}));
    QCOMPARE(f.selectedRow(), 0);
    QCOMPARE(f.theEditor.theCurrentTrack, f.theDistance.getCvObject(2));
    f.theEditor.slotDeleteSelected();
    QCOMPARE(f.theEditor.theCurrentTrack, f.theAngle.getCvObject(1));
    QCOMPARE(f.currentTab(), QStringLiteral("Angle"));
}

MEASURE_TEST_MAIN(TestMeasureSelection)
#include "TestMeasureSelection.moc"
