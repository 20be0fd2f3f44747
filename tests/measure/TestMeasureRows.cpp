#include "LmCvObject.h"
#include "MeasureFixture.h"
#include "TestFont.h"

#include <QSignalSpy>

/// The rows of the object table: how they follow creations, changes and removals.
class TestMeasureRows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowsStandInTheOrderOfCreation();
    void newRowIsSelectedAndItsTabShows();
    void valueIsCutToTwoDecimalsWithItsUnit();
    void changeRewritesItsRowOnly();
    void changeLeavesTheTabAlone();
    void recalculatingToolRewritesAllItsRows();
    void otherToolAsksOnlyForTheChangedObject();
    void removedMiddleRowSelectsTheOneThatTookItsPlace();
    void removedLastRowSelectsTheNewLastOne();
    void removalOfTheOnlyRowLeavesNoSelectionAndNoCurrentItem();
    void removalCountsInTheStatisticsAtOnce();
    void removalWithoutARowChangesNothing();
    void undoneRemovalComesBackAtTheEnd();
    void equalRowKeysFindTheFirstRow();
    void unknownTypeIsIgnored();
    void rowIsFoundByTypeIndexAndToolOrByItem();
};

void TestMeasureRows::rowsStandInTheOrderOfCreation()
{
    MeasureFixture f;
    f.load({&f.theDistance, &f.theAngle});
    f.drawDistance(QPoint(20, 20), QPoint(60, 50));
    f.drawAngle(QPoint(100, 120), QPoint(180, 120), QPoint(100, 60));
    f.drawDistance(QPoint(200, 20), QPoint(260, 20));
    QCOMPARE(f.rowKeys(), (QStringList{"Distance 1", "Angle 1", "Distance 2"}));
    QCOMPARE(f.cell(QStringLiteral("Distance 2"), QStringLiteral("DX")), QStringLiteral("60"));
}

void TestMeasureRows::newRowIsSelectedAndItsTabShows()
{
    MeasureFixture f;
    f.load({&f.theDistance, &f.theAngle});
    f.drawAngle(QPoint(100, 120), QPoint(180, 120), QPoint(100, 60));
    QCOMPARE(f.selectedRow(), 0);
    QCOMPARE(f.currentTab(), QStringLiteral("Angle"));
    f.drawDistance(QPoint(20, 20), QPoint(60, 50));
    QCOMPARE(f.selectedRow(), 1);
    QCOMPARE(f.table().currentRow(), 1);
    QCOMPARE(f.currentTab(), QStringLiteral("Distance"));
    QVERIFY(!f.table().signalsBlocked());
}

void TestMeasureRows::valueIsCutToTwoDecimalsWithItsUnit()
{
    FakeTool tool(1901, QStringLiteral("Probe"), {"A", "B", "C", "D"});
    MeasureFixture f;
    f.load({&tool});
    tool.create({{"A", {12.3456, ""}}, {"B", {12.3456, "mm"}}, {"C", {1234567, "mm"}}, {"D", {12, ""}}});
    QCOMPARE(f.row(0), (QStringList{"12.34", "12.34 mm", "1234567 mm", "12", ""}));
}

void TestMeasureRows::changeRewritesItsRowOnly()
{
    FakeTool tool(1901, QStringLiteral("Probe"), {"A"});
    MeasureFixture f;
    f.load({&tool});
    tool.create(QStringLiteral("A"), 1);
    tool.create(QStringLiteral("A"), 2);
    tool.theCells[1][QStringLiteral("A")] = {9, QString()}; // nobody tells of it
    tool.change(2, QStringLiteral("A"), 5, QStringLiteral("mm"));
    QCOMPARE(f.row(0).first(), QStringLiteral("1"));
    QCOMPARE(f.row(1).first(), QStringLiteral("5 mm"));
    QCOMPARE(f.statistics(QStringLiteral("Probe"), QStringLiteral("A")).first(), QStringLiteral("3 mm"));
    tool.change(2, QStringLiteral("A"), QVariant());
    QCOMPARE(f.row(1).first(), QString());
}

void TestMeasureRows::changeLeavesTheTabAlone()
{
    MeasureFixture f;
    f.load({&f.theDistance, &f.theAngle});
    f.drawDistance(QPoint(20, 20), QPoint(60, 50));
    f.tabs().setCurrentIndex(1);
    f.theKernel.announceObjectChanged(f.theDistance.theObjectType, 1);
    QCOMPARE(f.currentTab(), QStringLiteral("Angle"));
}

void TestMeasureRows::recalculatingToolRewritesAllItsRows()
{
    FakeTool tool(1901, QStringLiteral("Probe"), {"X", "Share"});
    tool.theIsCounting = true;
    tool.theRecalc = true;
    MeasureFixture f;
    f.load({&tool});
    // The origin is at 40.
    tool.create({}, QPoint(60, 10));
    QCOMPARE(f.row(0), (QStringList{"100", "100 of all", ""}));
    tool.create({}, QPoint(260, 10));
    QCOMPARE(f.row(0), (QStringList{"100", "25 of all", ""}));
    QCOMPARE(f.row(1), (QStringList{"300", "75 of all", ""}));
    QCOMPARE(f.statistics(QStringLiteral("Probe"), QStringLiteral("Share")),
             (QStringList{"50 of", "25 of", "75 of", "25 of"}));
    tool.moveTo(2, QPoint(60, 10));
    QCOMPARE(f.row(0)[1], QStringLiteral("50 of all"));
    QCOMPARE(f.row(1)[1], QStringLiteral("50 of all"));
    tool.remove(1);
    QCOMPARE(f.rowKeys(), QStringList{"Probe 2"});
    QCOMPARE(f.row(0), (QStringList{"100", "100 of all", ""}));
}

void TestMeasureRows::otherToolAsksOnlyForTheChangedObject()
{
    FakeTool tool(1901, QStringLiteral("Probe"), {"A"});
    MeasureFixture f;
    f.load({&tool});
    for (int i = 0; i < 5; ++i)
        tool.create(QStringLiteral("A"), i);
    tool.theQuestions = 0;
    tool.change(3, QStringLiteral("A"), 7);
    QCOMPARE(tool.theQuestions, 1);
    tool.remove(3);
    QCOMPARE(tool.theQuestions, 1);
    tool.theRecalc = true;
    tool.change(2, QStringLiteral("A"), 7);
    QCOMPARE(tool.theQuestions, 1 + 4);
}

void TestMeasureRows::removedMiddleRowSelectsTheOneThatTookItsPlace()
{
    MeasureFixture f;
    f.load({&f.theDistance, &f.theAngle});
    f.drawDistance(QPoint(20, 20), QPoint(60, 50));
    f.drawDistance(QPoint(20, 100), QPoint(80, 100));
    f.drawAngle(QPoint(150, 120), QPoint(230, 120), QPoint(150, 60));
    f.tabs().setCurrentIndex(0);
    f.theDistance.removeCvObject(f.theDistance.getCvObject(2));
    QCOMPARE(f.rowKeys(), (QStringList{"Distance 1", "Angle 1"}));
    QCOMPARE(f.selectedRow(), 1);
    QCOMPARE(f.theEditor.theCurrentTrack, f.theAngle.getCvObject(1));
    QVERIFY(f.theAngle.getCvObject(1)->isActive());
    QCOMPARE(f.currentTab(), QStringLiteral("Angle"));
    QVERIFY(!f.theMeasure->theRowKeys.contains(QStringLiteral("Distance 2")));
}

void TestMeasureRows::removedLastRowSelectsTheNewLastOne()
{
    MeasureFixture f;
    f.load({&f.theDistance});
    for (int i = 0; i < 3; ++i)
        f.drawDistance(QPoint(20, 20 + 40 * i), QPoint(80, 20 + 40 * i));
    f.table().selectRow(0);
    f.theDistance.removeCvObject(f.theDistance.getCvObject(3));
    QCOMPARE(f.selectedRow(), 1);
    QCOMPARE(f.theEditor.theCurrentTrack, f.theDistance.getCvObject(2));
    QVERIFY(f.theDistance.getCvObject(2)->isActive());
    QVERIFY(!f.theDistance.getCvObject(1)->isActive());
}

void TestMeasureRows::removalOfTheOnlyRowLeavesNoSelectionAndNoCurrentItem()
{
    MeasureFixture f;
    f.load({&f.theDistance});
    f.drawDistance(QPoint(20, 20), QPoint(80, 20));
    QSignalSpy current(&f.theEditor, SIGNAL(signalCurrentObjectChanged(LmCvObject*)));
    QSignalSpy told(&f.table(), SIGNAL(currentChanged(int, int)));
    f.theStack.undo();
    QCOMPARE(f.table().numRows(), 0);
    QCOMPARE(f.selectedRow(), -1);
    QCOMPARE(told.count(), 0);
    QVERIFY(!f.theEditor.theCurrentTrack);
    QCOMPARE(current.count(), 1); // only that its item went
    QVERIFY(!f.theMeasure->theSelfChange);
}

void TestMeasureRows::removalCountsInTheStatisticsAtOnce()
{
    FakeTool tool(1901, QStringLiteral("Probe"), {"A"});
    MeasureFixture f;
    f.load({&tool});
    tool.create(QStringLiteral("A"), 1);
    tool.create(QStringLiteral("A"), 3);
    QStringList mean;
    connect(&f.theKernel, &LmKSKernelData::signalObjectBeforeRemove, &tool, [&] {
        mean << f.statistics(QStringLiteral("Probe"), QStringLiteral("A")).first();
        QVERIFY(f.theKernel.getObject(1901, 2));
    });
    tool.remove(2);
    QCOMPARE(mean, QStringList{"1 "});
}

void TestMeasureRows::removalWithoutARowChangesNothing()
{
    FakeTool tool(1901, QStringLiteral("Probe"), {"A"});
    MeasureFixture f;
    f.load({&tool});
    tool.create(QStringLiteral("A"), 1);
    f.table().clearSelection(true);
    f.theMeasure->slotObjectBeforeRemoveInKernel(1901, 7);
    QCOMPARE(f.rowKeys(), QStringList{"Probe 1"});
    QCOMPARE(f.selectedRow(), -1);
    f.theMeasure->slotObjectChangedInKernel(1901, 7, f.theKernel.getObject(1901, 1));
    QCOMPARE(f.row(0), (QStringList{"1", ""}));
}

void TestMeasureRows::undoneRemovalComesBackAtTheEnd()
{
    FakeTool tool(1901, QStringLiteral("Probe"), {"A"});
    MeasureFixture f;
    f.load({&tool});
    for (int i = 0; i < 3; ++i)
        tool.create(QStringLiteral("A"), i);
    tool.remove(1);
    f.theStack.undo();
    QCOMPARE(f.rowKeys(), (QStringList{"Probe 2", "Probe 3", "Probe 1"}));
    QCOMPARE(f.row(2), (QStringList{"0", ""}));
    QCOMPARE(f.selectedRow(), 2);
}

void TestMeasureRows::equalRowKeysFindTheFirstRow()
{
    FakeTool first(1901, QStringLiteral("Same"), {"A"});
    FakeTool second(1902, QStringLiteral("Same"), {"A"});
    MeasureFixture f;
    f.load({&first, &second});
    first.create(QStringLiteral("A"), 1);
    second.create(QStringLiteral("A"), 2);
    QCOMPARE(f.rowKeys(), (QStringList{"Same 1", "Same 1"}));
    QCOMPARE(f.theMeasure->theRowKeys.value(QStringLiteral("Same 1")), qMakePair(1902, 1));
    second.change(1, QStringLiteral("A"), 5);
    QCOMPARE(f.row(0).first(), QStringLiteral("5"));
    QCOMPARE(f.row(1).first(), QStringLiteral("2"));
    first.remove(1);
    QCOMPARE(f.row(0).first(), QStringLiteral("2"));
    QVERIFY(f.theMeasure->theRowKeys.isEmpty());
    second.change(1, QStringLiteral("A"), 6);
    QCOMPARE(f.row(0).first(), QStringLiteral("6"));
}

void TestMeasureRows::unknownTypeIsIgnored()
{
    FakeTool tool(1901, QStringLiteral("Probe"), {"A"});
    MeasureFixture f;
    f.load({&tool});
    tool.create(QStringLiteral("A"), 1);
    const LmKernelObjectData* record = f.theKernel.getObject(1901, 1);
    f.theMeasure->slotObjectCreatedInKernel(4711, 1, record);
    f.theMeasure->slotObjectChangedInKernel(4711, 1, record);
    f.theMeasure->slotObjectBeforeRemoveInKernel(4711, 1);
    f.theMeasure->slotObjectRemovedInKernel(4711, 1);
    QCOMPARE(f.rowKeys(), QStringList{"Probe 1"});
    QCOMPARE(f.columns(), (QStringList{"A", " "}));
    QCOMPARE(f.row(0), (QStringList{"1", ""}));
}

void TestMeasureRows::rowIsFoundByTypeIndexAndToolOrByItem()
{
    FakeTool tool(1901, QStringLiteral("Probe"), {"A"});
    MeasureFixture f;
    f.load({&tool});
    tool.create(QStringLiteral("A"), 1);
    tool.create(QStringLiteral("A"), 2);
    QCOMPARE(f.theMeasure->findRowInTable(1901, 2, &tool), 1);
    QCOMPARE(f.theMeasure->findRowInTable(4711, 2, &tool), 1); // the type isn't looked at
    QCOMPARE(f.theMeasure->findRowInTable(1901, 3, &tool), -1);
    QCOMPARE(f.theMeasure->findRowInTable(1901, 2, nullptr), -1);
    LmCvObject* item = tool.getCvObject(2);
    QCOMPARE(f.theMeasure->findRowInTable(item), 1);
    item->theManipulator = nullptr;
    QCOMPARE(f.theMeasure->findRowInTable(item), -1);
    item->theManipulator = &tool;
    tool.theName = QString();
    QCOMPARE(f.theMeasure->findRowInTable(item), -1);
    tool.theName = QStringLiteral("Probe");
    tool.theCvObjects.remove(2);
    QCOMPARE(f.theMeasure->findRowInTable(item), -1);
    tool.theCvObjects.insert(2, item);
}

MEASURE_TEST_MAIN(TestMeasureRows)
#include "TestMeasureRows.moc"
