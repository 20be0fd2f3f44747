#include "MeasureFixture.h"
#include "TestFont.h"

/// The tabs of the measurement window and their tables.
class TestMeasureTabs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void realToolsHaveTabsInTheOrderOfTheKernel();
    void onlyMeasuredToolsHaveTabsAndRows();
    void tabHasTheIconOfItsTypeName();
    void calculationTableHasTheNamesOfItsToolAndFourRows();
    void calculationTablesStartEmpty();
    void blankColumnTakesTheSpareWidth();
    void everyTypeNameOfAToolHasATab();
};

void TestMeasureTabs::realToolsHaveTabsInTheOrderOfTheKernel()
{
    MeasureFixture f;
    f.load({&f.theRegion, &f.theDistance, &f.theDimension, &f.theAngle});
    QStringList names;
    for (int tab = 0; tab < f.tabs().count(); ++tab) {
        names << f.tabs().tabText(tab);
        QCOMPARE(f.tabs().widget(tab),
                 static_cast<QWidget*>(f.theMeasure->theCalcTables.value(names.last())));
    }
    QCOMPARE(names, (QStringList{"Region", "Distance", "Dimension", "Angle"}));
    QCOMPARE(f.theMeasure->theCalcTables.size(), 4);
}

void TestMeasureTabs::onlyMeasuredToolsHaveTabsAndRows()
{
    FakeTool measured(1901, QStringLiteral("Counter"), {QStringLiteral("Number")});
    measured.theFlags = 804;
    FakeTool other(1902, QStringLiteral("Auto"), {QStringLiteral("Other")});
    other.theFlags = 157;
    MeasureFixture f;
    f.load({&other, &measured});
    QCOMPARE(f.tabs().count(), 1);
    QCOMPARE(f.tabs().tabText(0), QStringLiteral("Counter"));
    other.create(QStringLiteral("Other"), 1);
    QCOMPARE(f.table().numRows(), 0);
    QCOMPARE(f.table().numCols(), 0);
    measured.create(QStringLiteral("Number"), 2);
    other.change(1, QStringLiteral("Other"), 2);
    QCOMPARE(f.rowKeys(), QStringList{"Counter 1"});
    QCOMPARE(f.columns(), (QStringList{"Number", " "}));
    other.remove(1);
    QCOMPARE(f.rowKeys(), QStringList{"Counter 1"});
    QCOMPARE(other.theQuestions, 0);
    QVERIFY(other.theNullFlagQuestions > 0);
}

void TestMeasureTabs::tabHasTheIconOfItsTypeName()
{
    FakeTool tool(1901, QStringLiteral("Probe"), {QStringLiteral("A")});
    QPixmap red(16, 16);
    red.fill(Qt::red);
    tool.theIcons[QStringLiteral("Probe")] = QIcon(red);
    MeasureFixture f;
    f.load({&tool});
    QCOMPARE(f.tabs().tabIcon(0).cacheKey(), tool.theIcons[QStringLiteral("Probe")].cacheKey());
}

void TestMeasureTabs::calculationTableHasTheNamesOfItsToolAndFourRows()
{
    MeasureFixture f;
    f.load({&f.theDistance});
    const Q3Table& calc = f.calcTable(QStringLiteral("Distance"));
    QCOMPARE(MeasureFixture::columns(calc), (QStringList{"Distance", "DX", "DY", "Angle", " "}));
    QCOMPARE(f.theDistance.theValueNames, (QStringList{"Distance", "DX", "DY", "Angle"}));
    QStringList rows;
    for (int row = 0; row < calc.numRows(); ++row)
        rows << calc.verticalHeader()->label(row);
    QCOMPARE(rows, (QStringList{"Average", "Min", "Max", "Std dev."}));
    QCOMPARE(calc.editTriggers(), QAbstractItemView::NoEditTriggers);
    QCOMPARE(calc.selectionBehavior(), QAbstractItemView::SelectRows);
    QCOMPARE(static_cast<const QTableView&>(calc).selectionMode(), QAbstractItemView::SingleSelection);
    QVERIFY(calc.horizontalHeader()->sectionsMovable());
    for (int row = 0; row < 4; ++row)
        QVERIFY(calc.verticalHeader()->sectionResizeMode(row) != QHeaderView::Stretch);
}

void TestMeasureTabs::calculationTablesStartEmpty()
{
    MeasureFixture f;
    f.load({&f.theDistance});
    for (int row = 0; row < 4; ++row)
        QVERIFY(f.row(f.calcTable(QStringLiteral("Distance")), row).join(QString()).isEmpty());
}

void TestMeasureTabs::blankColumnTakesTheSpareWidth()
{
    MeasureFixture f;
    f.load({&f.theDistance});
    f.theWindow.resize(900, 500);
    f.theWindow.show();
    const Q3Table& calc = f.calcTable(QStringLiteral("Distance"));
    const Q3Header& header = *calc.horizontalHeader();
    QList<int> widths;
    for (int section = 0; section < 4; ++section)
        widths << header.sectionSize(section);
    const int blank = header.sectionSize(4);
    QCOMPARE(header.length(), calc.viewport()->width());
    f.theWindow.resize(1100, 500);
    QCoreApplication::processEvents();
    for (int section = 0; section < 4; ++section)
        QCOMPARE(header.sectionSize(section), widths[section]);
    QCOMPARE(header.sectionSize(4), blank + 200);
    QCOMPARE(header.length(), calc.viewport()->width());
}

void TestMeasureTabs::everyTypeNameOfAToolHasATab()
{
    FakeTool tool(1901, QStringLiteral("Two"), {QStringLiteral("A")});
    tool.theTypeNames = QStringList{"One", "Two"};
    MeasureFixture f;
    f.load({&tool});
    QCOMPARE(f.tabs().count(), 2);
    QCOMPARE(f.tabs().tabText(0), QStringLiteral("One"));
    tool.create(QStringLiteral("A"), 1);
    QCOMPARE(f.currentTab(), QStringLiteral("Two"));
    QCOMPARE(f.statistics(QStringLiteral("Two"), QStringLiteral("A")).first(), QStringLiteral("1 "));
    QCOMPARE(f.statistics(QStringLiteral("One"), QStringLiteral("A")).first(), QString());
}

MEASURE_TEST_MAIN(TestMeasureTabs)
#include "TestMeasureTabs.moc"
