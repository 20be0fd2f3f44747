#include "MeasureFixture.h"
#include "TestFont.h"

namespace {

FakeTool::Cells cells(const QStringList& aNames, double aValue)
{
    FakeTool::Cells made;
    for (const QString& name : aNames)
        made[name] = {aValue, QString()};
    return made;
}

} // namespace

/// What becomes of columns that the user moves, the blank one too.
class TestMeasureMoves : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void movedColumnKeepsItsCellsAndGetsLaterValues();
    void newNamesComeInFrontOfTheBlankColumnAfterAMove();
    void movedColumnsGoByThemselvesWhenTheyAreEmpty();
    void draggedBlankColumnStaysAndAFurtherOneComes();
    void secondCreationAfterADraggedBlankColumnRelabelsFromTheLeft();
    void blankColumnThatGotCellsIsEmptyAgainAfterTheNextCreation();
    void dragOfAHeadingMovesTheColumn();
};

void TestMeasureMoves::movedColumnKeepsItsCellsAndGetsLaterValues()
{
    MeasureFixture f;
    f.load({&f.theDistance});
    f.drawDistance(QPoint(20, 20), QPoint(60, 50));
    f.moveColumn(QStringLiteral("Distance"), 2);
    QCOMPARE(f.columns(), (QStringList{"DX", "DY", "Distance", "Angle", " "}));
    QCOMPARE(f.theMeasure->theColumnNames, f.columns());
    QCOMPARE(f.row(0).mid(0, 3), (QStringList{"40", "30", "50"}));
    f.calibrate(200, QStringLiteral("mm")); // 2 pixels are 1 mm
    QCOMPARE(f.row(0).mid(0, 3), (QStringList{"20 mm", "15 mm", "25 mm"}));
    f.moveColumn(QStringLiteral("Angle"), 0);
    f.drawDistance(QPoint(100, 100), QPoint(180, 160));
    QCOMPARE(f.row(1).mid(1, 3), (QStringList{"40 mm", "30 mm", "50 mm"}));
    QCOMPARE(f.cell(QStringLiteral("Distance 2"), QStringLiteral("DX")), QStringLiteral("40 mm"));
}

void TestMeasureMoves::newNamesComeInFrontOfTheBlankColumnAfterAMove()
{
    FakeTool first(1901, QStringLiteral("First"), {"A", "B"});
    FakeTool second(1902, QStringLiteral("Second"), {"C"});
    MeasureFixture f;
    f.load({&first, &second});
    FakeTool::Cells both = cells({"A"}, 1);
    both[QStringLiteral("B")] = {2, QString()};
    first.create(both);
    f.moveColumn(QStringLiteral("B"), 0);
    second.create(cells({"C"}, 3));
    QCOMPARE(f.columns(), (QStringList{"B", "A", "C", " "}));
    QCOMPARE(f.row(0), (QStringList{"2", "1", "", ""}));
    QCOMPARE(f.row(1), (QStringList{"", "", "3", ""}));
}

void TestMeasureMoves::movedColumnsGoByThemselvesWhenTheyAreEmpty()
{
    FakeTool first(1901, QStringLiteral("First"), {"A", "B"});
    FakeTool second(1902, QStringLiteral("Second"), {"C"});
    MeasureFixture f;
    f.load({&first, &second});
    first.create(cells({"A", "B"}, 1));
    second.create(cells({"C"}, 3));
    f.moveColumn(QStringLiteral("C"), 1);
    f.moveColumn(QStringLiteral("A"), 2);
    QCOMPARE(f.columns(), (QStringList{"C", "B", "A", " "}));
    first.remove(1);
    QCOMPARE(f.columns(), (QStringList{"C", " "}));
    QCOMPARE(f.row(0), (QStringList{"3", ""}));
    QCOMPARE(f.theMeasure->theColumnNames, f.columns());
}

void TestMeasureMoves::draggedBlankColumnStaysAndAFurtherOneComes()
{
    FakeTool tool(1901, QStringLiteral("Probe"), {"A", "B"});
    MeasureFixture f;
    f.load({&tool});
    tool.create(cells({"A", "B"}, 1));
    f.moveColumn(QStringLiteral(" "), 1);
    QCOMPARE(f.theMeasure->theColumnNames, (QStringList{"A", " ", "B"}));
    QCOMPARE(f.row(0), (QStringList{"1", "", "1"}));
    tool.change(1, QStringLiteral("B"), 2);
    QCOMPARE(f.row(0), (QStringList{"1", "", "2"}));
    tool.create(cells({"A", "B"}, 3));
    QCOMPARE(f.columns(), (QStringList{"A", " ", "B", " "}));
    QCOMPARE(f.theMeasure->theColumnNames, f.columns());
    QCOMPARE(f.row(1), (QStringList{"3", "", "3", ""}));
}

void TestMeasureMoves::secondCreationAfterADraggedBlankColumnRelabelsFromTheLeft()
{
    FakeTool tool(1901, QStringLiteral("Probe"), {"A", "B"});
    MeasureFixture f;
    f.load({&tool});
    tool.create(cells({"A", "B"}, 1));
    f.moveColumn(QStringLiteral(" "), 1);
    tool.create(cells({"A", "B"}, 2));
    tool.create(cells({"A", "B"}, 3));
    // All blank names go from the list and one column from the table: the headings move to the left over the
    // cells that are there, and later values are right again.
    QCOMPARE(f.columns(), (QStringList{"A", "B", " "}));
    QCOMPARE(f.row(0), (QStringList{"1", "", "1"}));
    QCOMPARE(f.row(1), (QStringList{"2", "", "2"}));
    QCOMPARE(f.row(2), (QStringList{"3", "3", ""}));
    tool.change(1, QStringLiteral("A"), 5);
    QCOMPARE(f.row(0), (QStringList{"5", "1", ""}));
}

void TestMeasureMoves::blankColumnThatGotCellsIsEmptyAgainAfterTheNextCreation()
{
    FakeTool tool(1901, QStringLiteral("Probe"), {"A", "B"});
    MeasureFixture f;
    f.load({&tool});
    tool.create(cells({"A", "B"}, 1));
    f.moveColumn(QStringLiteral(" "), 1);
    tool.create(cells({"A", "B"}, 2));
    tool.create(cells({"A", "B"}, 3));
    QCOMPARE(f.row(0).last(), QStringLiteral("1"));
    tool.create(cells({"A", "B"}, 4));
    QCOMPARE(f.columns(), (QStringList{"A", "B", " "}));
    for (int row = 0; row < 4; ++row)
        QCOMPARE(f.row(row).last(), QString());
}

void TestMeasureMoves::dragOfAHeadingMovesTheColumn()
{
    FakeTool tool(1901, QStringLiteral("Probe"), {"A", "B", "C"});
    MeasureFixture f;
    f.load({&tool});
    f.showWindow();
    FakeTool::Cells values = cells({"A"}, 1);
    values[QStringLiteral("B")] = {2, QString()};
    values[QStringLiteral("C")] = {3, QString()};
    tool.create(values);
    const Q3Header& header = *f.table().horizontalHeader();
    const auto middleOf = [&](int aPosition) {
        const int section = header.mapToSection(aPosition);
        return QPoint(header.sectionViewportPosition(section) + header.sectionSize(section) / 2,
                      header.height() / 2);
    };
    const QPoint from = middleOf(0);
    const QPoint to = middleOf(2) + QPoint(header.sectionSize(2) / 4, 0);
    QTest::mousePress(header.viewport(), Qt::LeftButton, {}, from);
    QTest::mouseMove(header.viewport(), from + (to - from) / 2);
    QTest::mouseMove(header.viewport(), to);
    QTest::mouseRelease(header.viewport(), Qt::LeftButton, {}, to);
    QCOMPARE(f.columns(), (QStringList{"B", "C", "A", " "}));
    QCOMPARE(f.theMeasure->theColumnNames, f.columns());
    QCOMPARE(f.row(0), (QStringList{"2", "3", "1", ""}));
}

MEASURE_TEST_MAIN(TestMeasureMoves)
#include "TestMeasureMoves.moc"
