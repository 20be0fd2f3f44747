#include "MeasureFixture.h"
#include "TestFont.h"

/// The tables of statistics, by numbers worked out by hand. They are made of the texts of the object table.
class TestStatistics : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noObjectLeavesAllCellsEmpty();
    void oneObjectHasNoDeviation();
    void twoValuesWithTheirUnit();
    void deviationIsThatOfThePopulation();
    void cutValuesAreCountedAndNotExactOnes();
    void maximumOfNegativeNumbersIsZero();
    void minimumOfHugeNumbersIsTheGreatestOf32Bits();
    void exponentIsLostWithTheCut_data();
    void exponentIsLostWithTheCut();
    void textThatIsNoNumberIsLeftOut();
    void valueThatIsNoNumberSpoilsTheMean();
    void laterRowOverridesTheUnit();
    void unitKeepsItsFirstWord();
    void blankStandsAlsoBeforeAnEmptyUnit();
    void sharedColumnCountsTheRowsOfTheTypeOnly();
    void typeNameOfTwoWordsCountsNothing();
    void dimensionWithoutThirdWidthCountsZero();
    void nameThatNoObjectFillsIsEmpty();
    void movedColumnKeepsItsStatistics();
    void columnDraggedBehindTheBlankOneIsNotRefreshed();
    void movedObjectColumnIsStillCounted();
    void lastObjectColumnIsNotCountedAfterTheBlankOne();
    void anyTableCanBeFilledFromTheRows();
    void manyRowsSayWhatTheySaidWhenTheyWereCounted();

private:
    /// The statistics of one value over objects with these values.
    static QStringList of(const QList<FakeTool::Cell>& aCells);
};

QStringList TestStatistics::of(const QList<FakeTool::Cell>& aCells)
{
    FakeTool tool(1901, QStringLiteral("Probe"), {"A"});
    MeasureFixture f;
    f.load({&tool});
    for (const FakeTool::Cell& cell : aCells)
        tool.create(QStringLiteral("A"), cell.theValue, cell.theUnit);
    return f.statistics(QStringLiteral("Probe"), QStringLiteral("A"));
}

void TestStatistics::noObjectLeavesAllCellsEmpty()
{
    MeasureFixture f;
    f.load({&f.theDistance});
    f.drawDistance(QPoint(20, 20), QPoint(60, 50));
    const Q3Table& calc = f.calcTable(QStringLiteral("Distance"));
    for (int row = 0; row < 4; ++row)
        for (int position = 0; position < 4; ++position)
            QVERIFY(!calc.text(row, position).isEmpty());
    f.theStack.undo();
    for (int row = 0; row < 4; ++row)
        QVERIFY(f.row(calc, row).join(QString()).isEmpty());
}

void TestStatistics::oneObjectHasNoDeviation()
{
    QCOMPARE(of({{7.25, "mm"}}), (QStringList{"7.25 mm", "7.25 mm", "7.25 mm", "0 mm"}));
}

void TestStatistics::twoValuesWithTheirUnit()
{
    QCOMPARE(of({{12.34, "mm"}, {12.36, "mm"}}),
             (QStringList{"12.35 mm", "12.34 mm", "12.36 mm", "0.01 mm"}));
}

// The mean of 2, 4, 4, 4, 5, 5, 7, 9 is 5 and their squares are 32 / 8; by n - 1 it would be 2.13.
void TestStatistics::deviationIsThatOfThePopulation()
{
    QList<FakeTool::Cell> cells;
    for (const int value : {2, 4, 4, 4, 5, 5, 7, 9})
        cells << FakeTool::Cell{value, QString()};
    QCOMPARE(of(cells), (QStringList{"5 ", "2 ", "9 ", "2 "}));
}

// Exact values would give means of 1.0045 and 2.504.
void TestStatistics::cutValuesAreCountedAndNotExactOnes()
{
    QCOMPARE(of({{0.999, ""}, {1.01, ""}}), (QStringList{"1 ", "0.99 ", "1.01 ", "0.01 "}));
    QCOMPARE(of({{2.999, ""}, {2.009, ""}}), (QStringList{"2.49 ", "2 ", "2.99 ", "0.49 "}));
}

void TestStatistics::maximumOfNegativeNumbersIsZero()
{
    QCOMPARE(of({{-1, "m"}, {-3, "m"}}), (QStringList{"-2 m", "-3 m", "0 m", "1 m"}));
}

// 4294967295 as six digits is 4.29497e+09.
void TestStatistics::minimumOfHugeNumbersIsTheGreatestOf32Bits()
{
    QCOMPARE(of({{5000000000LL, ""}, {7000000000LL, ""}}),
             (QStringList{"6e+09 ", "4.29 ", "7e+09 ", "1e+09 "}));
}

void TestStatistics::exponentIsLostWithTheCut_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("mean");
    QTest::newRow("a million and more") << QVariant(1234568) << "1.23 ";
    QTest::newRow("a million") << QVariant(1000000) << "1e+06 ";
    QTest::newRow("below a million") << QVariant(999999) << "999999 ";
    QTest::newRow("six digits") << QVariant(1234.56) << "1234.56 ";
    QTest::newRow("seven digits") << QVariant(12345.67) << "12345.7 ";
    QTest::newRow("whole") << QVariant(12) << "12 ";
    QTest::newRow("tiny, given as a text") << QVariant(QStringLiteral("0.01")) << "0.01 ";
}

void TestStatistics::exponentIsLostWithTheCut()
{
    QFETCH(QVariant, value);
    QTEST(of({{value, ""}}).first(), "mean");
}

void TestStatistics::textThatIsNoNumberIsLeftOut()
{
    QCOMPARE(of({{4, "mm"}, {"none", "cm"}}), (QStringList{"4 cm", "4 cm", "4 cm", "0 cm"}));
    QCOMPARE(of({{"none", "cm"}}), (QStringList{"", "", "", ""}));
    QCOMPARE(of({{4, "mm"}, {QVariant(), ""}}).first(), QStringLiteral("4 mm"));
}

void TestStatistics::valueThatIsNoNumberSpoilsTheMean()
{
    const QStringList texts = of({{4.0, "mm"}, {qQNaN(), "mm"}});
    QCOMPARE(texts, (QStringList{"nan mm", "4 mm", "4 mm", "nan mm"}));
}

void TestStatistics::laterRowOverridesTheUnit()
{
    QCOMPARE(of({{1, "mm"}, {3, "cm"}}).first(), QStringLiteral("2 cm"));
    QCOMPARE(of({{1, "mm"}, {3, ""}}).first(), QStringLiteral("2 "));
}

void TestStatistics::unitKeepsItsFirstWord()
{
    QCOMPARE(of({{1, "sq. mm"}}).first(), QStringLiteral("1 sq."));
}

void TestStatistics::blankStandsAlsoBeforeAnEmptyUnit()
{
    QCOMPARE(of({{1.5, ""}}), (QStringList{"1.5 ", "1.5 ", "1.5 ", "0 "}));
}

void TestStatistics::sharedColumnCountsTheRowsOfTheTypeOnly()
{
    FakeTool first(1901, QStringLiteral("Probe"), {"A"});
    FakeTool second(1902, QStringLiteral("Probes"), {"A"});
    MeasureFixture f;
    f.load({&first, &second});
    first.create(QStringLiteral("A"), 2, QStringLiteral("mm"));
    second.create(QStringLiteral("A"), 10, QStringLiteral("cm"));
    first.create(QStringLiteral("A"), 4, QStringLiteral("mm"));
    QCOMPARE(f.statistics(QStringLiteral("Probe"), QStringLiteral("A")),
             (QStringList{"3 mm", "2 mm", "4 mm", "1 mm"}));
    QCOMPARE(f.statistics(QStringLiteral("Probes"), QStringLiteral("A")).first(), QStringLiteral("10 cm"));
}

// The first word of the row key decides.
void TestStatistics::typeNameOfTwoWordsCountsNothing()
{
    FakeTool tool(1901, QStringLiteral("Big Probe"), {"A"});
    FakeTool big(1902, QStringLiteral("Big"), {"A"});
    MeasureFixture f;
    f.load({&tool, &big});
    tool.create(QStringLiteral("A"), 2);
    QCOMPARE(f.statistics(QStringLiteral("Big Probe"), QStringLiteral("A")).first(), QString());
    big.create(QStringLiteral("A"), 4);
    QCOMPARE(f.statistics(QStringLiteral("Big"), QStringLiteral("A")).first(), QStringLiteral("3 "));
}

void TestStatistics::dimensionWithoutThirdWidthCountsZero()
{
    MeasureFixture f;
    f.load({&f.theDimension});
    f.calibrate(400, QStringLiteral("px"));
    f.drawDimension(QPoint(20, 20), 80, {20, 30});
    QCOMPARE(f.cell(QStringLiteral("Dimension 1"), QStringLiteral("Width3")), QStringLiteral("0 px"));
    f.drawDimension(QPoint(150, 20), 80, {20, 30, 40});
    QCOMPARE(f.statistics(QStringLiteral("Dimension"), QStringLiteral("Width3")),
             (QStringList{"20 px", "0 px", "40 px", "20 px"}));
}

void TestStatistics::nameThatNoObjectFillsIsEmpty()
{
    FakeTool tool(1901, QStringLiteral("Probe"), {"A", "B"});
    MeasureFixture f;
    f.load({&tool});
    tool.create(QStringLiteral("A"), 2);
    QCOMPARE(f.statistics(QStringLiteral("Probe"), QStringLiteral("B")), (QStringList{"", "", "", ""}));
}

void TestStatistics::movedColumnKeepsItsStatistics()
{
    MeasureFixture f;
    f.load({&f.theDistance});
    f.drawDistance(QPoint(20, 20), QPoint(60, 50));
    Q3Table& calc = f.calcTable(QStringLiteral("Distance"));
    MeasureFixture::moveColumn(calc, QStringLiteral("DY"), 0);
    QCOMPARE(f.columns(calc), (QStringList{"DY", "Distance", "DX", "Angle", " "}));
    QCOMPARE(f.row(calc, 0).mid(0, 3), (QStringList{"30 ", "50 ", "40 "}));
    f.drawDistance(QPoint(100, 100), QPoint(180, 160));
    QCOMPARE(f.row(calc, 0).mid(0, 3), (QStringList{"45 ", "75 ", "60 "}));
    QCOMPARE(f.row(calc, 0).last(), QString());
}

// The column at the right end is taken for the blank one.
void TestStatistics::columnDraggedBehindTheBlankOneIsNotRefreshed()
{
    FakeTool tool(1901, QStringLiteral("Probe"), {"A", "B"});
    MeasureFixture f;
    f.load({&tool});
    tool.create({{"A", {2, ""}}, {"B", {3, ""}}});
    Q3Table& calc = f.calcTable(QStringLiteral("Probe"));
    MeasureFixture::moveColumn(calc, QStringLiteral("A"), 2);
    tool.create({{"A", {4, ""}}, {"B", {5, ""}}});
    QCOMPARE(f.columns(calc), (QStringList{"B", " ", "A"}));
    QCOMPARE(f.row(calc, 0), (QStringList{"4 ", "", "2 "}));
    MeasureFixture::moveColumn(calc, QStringLiteral("A"), 0);
    tool.change(1, QStringLiteral("A"), 6);
    QCOMPARE(f.row(calc, 0), (QStringList{"5 ", "4 ", ""}));
}

void TestStatistics::movedObjectColumnIsStillCounted()
{
    FakeTool tool(1901, QStringLiteral("Probe"), {"A", "B"});
    MeasureFixture f;
    f.load({&tool});
    tool.create({{"A", {2, ""}}, {"B", {3, ""}}});
    f.moveColumn(QStringLiteral("B"), 0);
    tool.create({{"A", {4, ""}}, {"B", {5, ""}}});
    QCOMPARE(f.statistics(QStringLiteral("Probe"), QStringLiteral("A")).first(), QStringLiteral("3 "));
    QCOMPARE(f.statistics(QStringLiteral("Probe"), QStringLiteral("B")).first(), QStringLiteral("4 "));
}

void TestStatistics::lastObjectColumnIsNotCountedAfterTheBlankOne()
{
    FakeTool tool(1901, QStringLiteral("Probe"), {"A", "B"});
    MeasureFixture f;
    f.load({&tool});
    tool.create({{"A", {2, ""}}, {"B", {3, ""}}});
    f.moveColumn(QStringLiteral(" "), 0);
    tool.change(1, QStringLiteral("A"), 7);
    QCOMPARE(f.statistics(QStringLiteral("Probe"), QStringLiteral("A")).first(), QStringLiteral("7 "));
    QCOMPARE(f.statistics(QStringLiteral("Probe"), QStringLiteral("B")).first(), QString());
}

void TestStatistics::anyTableCanBeFilledFromTheRows()
{
    FakeTool tool(1901, QStringLiteral("Probe"), {"A"});
    MeasureFixture f;
    f.load({&tool});
    tool.create(QStringLiteral("A"), 2, QStringLiteral("mm"));
    Q3Table own;
    own.setNumCols(3);
    own.setColumnLabels({"unknown", "A", "A"});
    own.setNumRows(4);
    own.setText(0, 0, QStringLiteral("old"));
    own.setText(0, 2, QStringLiteral("old"));
    f.theMeasure->updateDataInCalcTable(&own, nullptr, QStringLiteral("Probe"));
    QCOMPARE(f.row(own, 0), (QStringList{"", "2 mm", "old"}));
    f.theMeasure->updateDataInCalcTable(&own, nullptr, QStringLiteral("Nothing"));
    QCOMPARE(f.row(own, 0), (QStringList{"", "", "old"}));
}

// With so many rows the statistics are made when they are read. 1 to n have the mean (n + 1) / 2 and the
// deviation sqrt((n * n - 1) / 12).
void TestStatistics::manyRowsSayWhatTheySaidWhenTheyWereCounted()
{
    FakeTool tool(1901, QStringLiteral("Probe"), {"A"});
    MeasureFixture f;
    f.load({&tool});
    const auto shown = [&f] { return f.statistics(QStringLiteral("Probe"), QStringLiteral("A")); };
    for (int number = 1; number <= 150; ++number)
        tool.create(QStringLiteral("A"), double(number), QStringLiteral("mm"));
    QCOMPARE(shown(), (QStringList{"75.5 mm", "1 mm", "150 mm", "43.30 mm"}));
    tool.create(QStringLiteral("A"), 151.0, QStringLiteral("mm"));
    // Behind the blank column the values don't count any more, but nothing has asked for a new count.
    f.moveColumn(QStringLiteral("A"), 1);
    QCOMPARE(shown(), (QStringList{"76 mm", "1 mm", "151 mm", "43.58 mm"}));
}

MEASURE_TEST_MAIN(TestStatistics)
#include "TestStatistics.moc"
