#include "MeasureFixture.h"
#include "TestFont.h"

/// The columns of the object table: how the value names of the tools are merged and go again.
class TestMeasureColumns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void firstObjectBringsTheNamesOfItsToolAndTheBlankColumn();
    void secondToolAddsItsOwnNamesBehindTheFirst();
    void sharedNamesHaveOneColumn();
    void emptyAndRepeatedNamesMakeNoColumn();
    void objectWithoutNameBringsColumnsButNoRow();
    void lastObjectOfTheOnlyToolWithAColumnTakesItAway();
    void removedObjectThatFillsNothingMoreLeavesTheColumns();
    void lastRowTakesAllValueColumns();
    void columnWithoutAnyValueGoesWithTheNextRemoval();
    void columnsComeBackWithTheNextObject();
    void blankColumnTakesTheSpareWidth();

private:
    static FakeTool::Cells cells(const QStringList& aNames, double aValue);
};

FakeTool::Cells TestMeasureColumns::cells(const QStringList& aNames, double aValue)
{
    FakeTool::Cells made;
    for (const QString& name : aNames)
        made[name] = {aValue, QString()};
    return made;
}

void TestMeasureColumns::firstObjectBringsTheNamesOfItsToolAndTheBlankColumn()
{
    MeasureFixture f;
    f.load({&f.theDistance});
    QCOMPARE(f.table().numCols(), 0);
    QVERIFY(f.theMeasure->theColumnNames.isEmpty());
    f.drawDistance(QPoint(20, 20), QPoint(60, 50));
    QCOMPARE(f.columns(), (QStringList{"Distance", "DX", "DY", "Angle", " "}));
    QCOMPARE(f.theMeasure->theColumnNames, f.columns());
    QCOMPARE(f.rowKeys(), QStringList{"Distance 1"});
    QCOMPARE(f.theMeasure->theRowKeys.value(QStringLiteral("Distance 1")),
             qMakePair(f.theDistance.theObjectType, 1));
    QCOMPARE(f.row(0).mid(0, 3), (QStringList{"50", "40", "30"}));
    QCOMPARE(f.row(0).last(), QString());
}

void TestMeasureColumns::secondToolAddsItsOwnNamesBehindTheFirst()
{
    MeasureFixture f;
    f.load({&f.theRegion, &f.theDistance, &f.theDimension, &f.theAngle});
    f.drawDistance(QPoint(20, 20), QPoint(60, 50));
    const QStringList before = f.row(0);
    f.drawDimension(QPoint(200, 20), 60, {30});
    const QStringList dimension{"Height", "Width1", "Width2", "Width3", "Avg. Width"};
    QCOMPARE(f.columns(), QStringList({"Distance", "DX", "DY", "Angle"}) + dimension + QStringList(" "));
    QCOMPARE(f.row(0).mid(0, 4), before.mid(0, 4));
    QVERIFY(f.row(0).mid(4).join(QString()).isEmpty());
    QVERIFY(f.row(1).mid(0, 4).join(QString()).isEmpty());
    QCOMPARE(f.row(1).mid(4), (QStringList{"60", "30", "0", "0", "30", ""}));
    // "Angle" is a value of distances too.
    f.drawAngle(QPoint(100, 120), QPoint(180, 120), QPoint(100, 60));
    QCOMPARE(f.columns().count(QStringLiteral("Angle")), 1);
    QCOMPARE(f.rowKeys(), (QStringList{"Distance 1", "Dimension 1", "Angle 1"}));
    f.drawSquare(QPoint(20, 100), 40);
    QVERIFY(f.columns().indexOf(QStringLiteral("Area")) > f.columns().indexOf(QStringLiteral("Avg. Width")));
    QCOMPARE(f.columns().last(), QStringLiteral(" "));
    QCOMPARE(f.cell(QStringLiteral("Distance 1"), QStringLiteral("Area")), QString());
}

void TestMeasureColumns::sharedNamesHaveOneColumn()
{
    FakeTool first(1901, QStringLiteral("First"), {"A", "B"});
    FakeTool second(1902, QStringLiteral("Second"), {"C", "B", "D"});
    MeasureFixture f;
    f.load({&first, &second});
    first.create(cells({"A", "B"}, 1));
    second.create(cells({"B", "C", "D"}, 2));
    QCOMPARE(f.columns(), (QStringList{"A", "B", "C", "D", " "}));
    QCOMPARE(f.row(0), (QStringList{"1", "1", "", "", ""}));
    QCOMPARE(f.row(1), (QStringList{"", "2", "2", "2", ""}));
    first.create(cells({"A", "B"}, 3));
    QCOMPARE(f.columns(), (QStringList{"A", "B", "C", "D", " "}));
}

void TestMeasureColumns::emptyAndRepeatedNamesMakeNoColumn()
{
    FakeTool tool(1901, QStringLiteral("Probe"), {"", "A", "A", "", "B"});
    MeasureFixture f;
    f.load({&tool});
    tool.create(cells({"A", "B"}, 1));
    QCOMPARE(f.columns(), (QStringList{"A", "B", " "}));
    QCOMPARE(f.row(0), (QStringList{"1", "1", ""}));
}

void TestMeasureColumns::objectWithoutNameBringsColumnsButNoRow()
{
    FakeTool tool(1901, QString(), {"A", "B"});
    tool.theTypeNames = QStringList{"Probe"};
    MeasureFixture f;
    f.load({&tool});
    tool.create(cells({"A"}, 1));
    QCOMPARE(f.columns(), (QStringList{"A", "B", " "}));
    QCOMPARE(f.table().numRows(), 0);
    QVERIFY(f.theMeasure->theRowKeys.isEmpty());
    QVERIFY(!f.table().signalsBlocked());
    QCOMPARE(f.theMeasure->findRowInTable(1901, 1, &tool), -1);
    tool.change(1, QStringLiteral("A"), 2);
    tool.remove(1);
    QCOMPARE(f.columns(), QStringList{" "});
}

void TestMeasureColumns::lastObjectOfTheOnlyToolWithAColumnTakesItAway()
{
    FakeTool first(1901, QStringLiteral("First"), {"A", "B"});
    FakeTool second(1902, QStringLiteral("Second"), {"B", "C"});
    MeasureFixture f;
    f.load({&first, &second});
    first.create(cells({"A", "B"}, 1));
    first.create(cells({"A", "B"}, 2));
    second.create(cells({"B", "C"}, 3));
    first.remove(1);
    QCOMPARE(f.columns(), (QStringList{"A", "B", "C", " "}));
    first.remove(2);
    QCOMPARE(f.columns(), (QStringList{"B", "C", " "}));
    QCOMPARE(f.theMeasure->theColumnNames, f.columns());
    QCOMPARE(f.row(0), (QStringList{"3", "3", ""}));
}

void TestMeasureColumns::removedObjectThatFillsNothingMoreLeavesTheColumns()
{
    FakeTool tool(1901, QStringLiteral("Probe"), {"A", "B"});
    MeasureFixture f;
    f.load({&tool});
    tool.create(cells({"A", "B"}, 1));
    tool.create(cells({"A"}, 2));
    tool.remove(2);
    QCOMPARE(f.columns(), (QStringList{"A", "B", " "}));
}

void TestMeasureColumns::lastRowTakesAllValueColumns()
{
    MeasureFixture f;
    f.load({&f.theDistance});
    f.drawDistance(QPoint(20, 20), QPoint(60, 50));
    f.theStack.undo();
    QCOMPARE(f.table().numRows(), 0);
    QCOMPARE(f.columns(), QStringList{" "});
    QCOMPARE(f.theMeasure->theColumnNames, QStringList{" "});
    QVERIFY(f.theMeasure->theRowKeys.isEmpty());
}

void TestMeasureColumns::columnWithoutAnyValueGoesWithTheNextRemoval()
{
    FakeTool tool(1901, QStringLiteral("Probe"), {"A", "B", "C"});
    MeasureFixture f;
    f.load({&tool});
    tool.create(cells({"A", "C"}, 1));
    tool.create(cells({"A", "C"}, 2));
    QCOMPARE(f.columns(), (QStringList{"A", "B", "C", " "}));
    tool.remove(1);
    QCOMPARE(f.columns(), (QStringList{"A", "C", " "}));
    QCOMPARE(f.row(0), (QStringList{"2", "2", ""}));
    // Values that no column shows any more aren't shown at a change; the next object brings the column back.
    tool.change(2, QStringLiteral("B"), 5);
    QCOMPARE(f.columns(), (QStringList{"A", "C", " "}));
    tool.create(cells({"B"}, 7));
    QCOMPARE(f.columns(), (QStringList{"A", "C", "B", " "}));
    QCOMPARE(f.row(1), (QStringList{"", "", "7", ""}));
}

void TestMeasureColumns::columnsComeBackWithTheNextObject()
{
    MeasureFixture f;
    f.load({&f.theDistance});
    f.drawDistance(QPoint(20, 20), QPoint(60, 50));
    f.theStack.undo();
    f.theStack.redo();
    QCOMPARE(f.columns(), (QStringList{"Distance", "DX", "DY", "Angle", " "}));
    QCOMPARE(f.row(0).first(), QStringLiteral("50"));
}

void TestMeasureColumns::blankColumnTakesTheSpareWidth()
{
    FakeTool tool(1901, QStringLiteral("Probe"), {"A", "B"});
    FakeTool second(1902, QStringLiteral("Second"), {"C"});
    MeasureFixture f;
    f.load({&tool, &second});
    f.showWindow();
    tool.create(cells({"A"}, 1));
    second.create(cells({"C"}, 1));
    const Q3Header& header = *f.table().horizontalHeader();
    int others = 0;
    for (int position = 0; position < 3; ++position) {
        QCOMPARE(header.sectionResizeMode(header.mapToSection(position)), QHeaderView::Interactive);
        others += header.sectionSize(header.mapToSection(position));
    }
    QCOMPARE(header.sectionSize(header.mapToSection(3)), f.table().viewport()->width() - others);
    QCOMPARE(others, 3 * header.defaultSectionSize());
}

MEASURE_TEST_MAIN(TestMeasureColumns)
#include "TestMeasureColumns.moc"
