#include "LmCvEditor.h"
#include "MeasureFixture.h"
#include "TestFont.h"

#include <QContextMenuEvent>
#include <QDockWidget>
#include <QGridLayout>
#include <QSignalSpy>
#include <QSplitter>
#include <QTabBar>
#include <QToolButton>

#include <memory>

/// The form of the measurement window, its dock and its tabs.
class TestMeasureForm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void formHasTabsAboveTheTableAndTheExportButtonBelow();
    void formWithANameKeepsIt();
    void exportButtonShowsAPictogram();
    void dockStandsAboveInTheMainWindow();
    void dockOfAToolWithoutMainWindowIsAlone();
    void placeholderTabNeverShows();
    void objectTableTakesWholeRowsAndMovableColumns();
    void toolHasNoButtonAndNoType();
    void connectionsAllExist();
    void realToolsHaveTabsInTheOrderOfTheKernel();
    void onlyMeasuredToolsHaveTabsAndRows();
    void tabHasTheIconOfItsTypeName();
    void calculationTableHasTheNamesOfItsToolAndFourRows();
    void calculationTablesStartEmpty();
    void blankColumnTakesTheSpareWidth();
    void everyTypeNameOfAToolHasATab();
    void menuOfTheTableConcernsTheCurrentRow();
    void rightClickInAnEmptyTableAsksForNoMenu();
    void menuIsAskedForOverTheCellsOnly();
};

namespace {

/// Sends the request for a menu as the platform does, to the widget under the pointer.
void askForMenu(QWidget* aWidget, const QPoint& aPos)
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, aPos, aWidget->mapToGlobal(aPos));
    QApplication::sendEvent(aWidget, &event);
}

} // namespace

void TestMeasureForm::formHasTabsAboveTheTableAndTheExportButtonBelow()
{
    const LmKsMeasureWidget form(nullptr, nullptr, {});
    QCOMPARE(form.objectName(), QStringLiteral("LmKsMeasureWidgetData"));
    QCOMPARE(form.windowTitle(), QStringLiteral("LmKsMeasureWidgetData"));
    QCOMPARE(form.size(), QSize(600, 374));
    QCOMPARE(form.layout(), static_cast<QLayout*>(form.gridLayout));
    QCOMPARE(form.gridLayout->spacing(), 0);
    QCOMPARE(form.gridLayout->contentsMargins(), QMargins());
    QCOMPARE(form.gridLayout->itemAtPosition(1, 0)->widget(), static_cast<QWidget*>(form.theTbExport));
    const QSpacerItem* spacer = form.gridLayout->itemAtPosition(1, 1)->spacerItem();
    QVERIFY(spacer);
    QCOMPARE(spacer->sizeHint(), QSize(520, 20));
    QCOMPARE(spacer->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum));
    QCOMPARE(form.gridLayout->itemAtPosition(0, 0)->widget(), static_cast<QWidget*>(form.splitter1));
    QCOMPARE(form.gridLayout->itemAtPosition(0, 1)->widget(), static_cast<QWidget*>(form.splitter1));

    QCOMPARE(form.splitter1->orientation(), Qt::Vertical);
    QCOMPARE(form.splitter1->widget(0), static_cast<QWidget*>(form.theTabType));
    QCOMPARE(form.splitter1->widget(1), static_cast<QWidget*>(form.theTable));
    QCOMPARE(form.theTabType->sizePolicy().horizontalPolicy(), QSizePolicy::Minimum);
    QCOMPARE(form.theTabType->sizePolicy().verticalPolicy(), QSizePolicy::Maximum);
    QCOMPARE(form.theTabType->maximumSize(), QSize(32767, 32767));
    QCOMPARE(form.theTabType->count(), 1);
    QCOMPARE(form.theTabType->widget(0), form.tab);
    QCOMPARE(form.theTabType->tabText(0), QStringLiteral("Tab 1"));
    QCOMPARE(form.theTable->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(form.theTable->sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(form.theTable->sizePolicy().verticalStretch(), 1);
    QCOMPARE(form.theTable->numRows(), 0);
    QCOMPARE(form.theTable->numCols(), 0);
}

void TestMeasureForm::formWithANameKeepsIt()
{
    const LmKsMeasureWidget form(nullptr, "other", {});
    QCOMPARE(form.objectName(), QStringLiteral("other"));
}

void TestMeasureForm::exportButtonShowsAPictogram()
{
    const LmKsMeasureWidget form(nullptr, nullptr, {});
    const QToolButton& button = *form.theTbExport;
    QCOMPARE(button.minimumSize(), QSize(25, 25));
    QVERIFY(button.text().isEmpty());
    QCOMPARE(button.toolTip(), QStringLiteral("Export data to a spreadsheet"));
    QCOMPARE(button.whatsThis(), QStringLiteral("Saves data from the table in a text file. The file can be "
                                                "imported into most spreadsheet programs."));
    const QPixmap pixmap = button.icon().pixmap(QSize(20, 20));
    QCOMPARE(pixmap.size(), QSize(20, 20));
    const QImage picture = pixmap.toImage();
    QVERIFY(picture.hasAlphaChannel());
    int drawn = 0;
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 20; ++x)
            drawn += qAlpha(picture.pixel(x, y)) > 128;
    QVERIFY(drawn > 20);
    QVERIFY(drawn < 400);
}

void TestMeasureForm::dockStandsAboveInTheMainWindow()
{
    MeasureFixture f;
    const auto* dock = f.theWindow.findChild<QDockWidget*>(QStringLiteral("Measurements"));
    QVERIFY(dock);
    QCOMPARE(dock->windowTitle(), QStringLiteral("Measurements"));
    QCOMPARE(dock->widget(), static_cast<QWidget*>(f.theMeasure->theMeasureWidget));
    QCOMPARE(dock->allowedAreas(), Qt::TopDockWidgetArea | Qt::BottomDockWidgetArea);
    QCOMPARE(f.theWindow.dockWidgetArea(const_cast<QDockWidget*>(dock)), Qt::TopDockWidgetArea);
    QCOMPARE(dock->sizePolicy(), QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum));
}

void TestMeasureForm::dockOfAToolWithoutMainWindowIsAlone()
{
    QPointer<QWidget> dock;
    {
        const LmCvManipMeasure tool(nullptr);
        auto* made = qobject_cast<QDockWidget*>(tool.theMeasureWidget->parentWidget());
        QVERIFY(made);
        QVERIFY(!made->parent());
        QCOMPARE(made->geometry(), QRect(337, 455, 577, 351));
        dock = made;
    }
    QVERIFY(dock); // the tool leaves it to others
    delete dock;
}

void TestMeasureForm::placeholderTabNeverShows()
{
    MeasureFixture f;
    QCOMPARE(f.tabs().count(), 0);
    f.loadSilently({&f.theDistance});
    QCOMPARE(f.tabs().count(), 0);
    f.theKernel.announceManipulatorsLoaded();
    QCOMPARE(f.tabs().count(), 1);
    QCOMPARE(f.tabs().tabText(0), QStringLiteral("Distance"));
}

void TestMeasureForm::objectTableTakesWholeRowsAndMovableColumns()
{
    MeasureFixture f;
    QCOMPARE(f.table().editTriggers(), QAbstractItemView::NoEditTriggers);
    QCOMPARE(f.table().selectionBehavior(), QAbstractItemView::SelectRows);
    QCOMPARE(static_cast<QTableView&>(f.table()).selectionMode(), QAbstractItemView::SingleSelection);
    QVERIFY(f.table().horizontalHeader()->sectionsMovable());
}

void TestMeasureForm::toolHasNoButtonAndNoType()
{
    MeasureFixture f;
    f.theMeasure->theToolButton = new QToolButton;
    const QPointer<QToolButton> button(f.theMeasure->theToolButton);
    f.load({});
    QVERIFY(f.theMeasure->theInitDone);
    QVERIFY(!f.theMeasure->theToolButton);
    QVERIFY(!button);
    QVERIFY(f.theKernel.getCvManipulatorList().isEmpty());
    QCOMPARE(f.theMeasure->getCvObjectFlags(nullptr), 157);
}

// A connect that fails tells it as a warning.
void TestMeasureForm::connectionsAllExist()
{
    static QStringList warnings;
    warnings.clear();
    const QtMessageHandler former =
        qInstallMessageHandler([](QtMsgType aType, const QMessageLogContext&, const QString& aText) {
            if (aType == QtWarningMsg)
                warnings << aText;
        });
    {
        MeasureFixture f;
        f.load({});
    }
    qInstallMessageHandler(former);
    QVERIFY2(warnings.filter(QStringLiteral("QObject::")).isEmpty(),
             qPrintable(warnings.join(QLatin1Char('\n'))));
}

void TestMeasureForm::realToolsHaveTabsInTheOrderOfTheKernel()
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

void TestMeasureForm::onlyMeasuredToolsHaveTabsAndRows()
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

void TestMeasureForm::tabHasTheIconOfItsTypeName()
{
    FakeTool tool(1901, QStringLiteral("Probe"), {QStringLiteral("A")});
    QPixmap red(16, 16);
    red.fill(Qt::red);
    tool.theIcons[QStringLiteral("Probe")] = QIcon(red);
    MeasureFixture f;
    f.load({&tool});
    QCOMPARE(f.tabs().tabIcon(0).cacheKey(), tool.theIcons[QStringLiteral("Probe")].cacheKey());
}

void TestMeasureForm::calculationTableHasTheNamesOfItsToolAndFourRows()
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

void TestMeasureForm::calculationTablesStartEmpty()
{
    MeasureFixture f;
    f.load({&f.theDistance});
    for (int row = 0; row < 4; ++row)
        QVERIFY(f.row(f.calcTable(QStringLiteral("Distance")), row).join(QString()).isEmpty());
}

void TestMeasureForm::blankColumnTakesTheSpareWidth()
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

void TestMeasureForm::everyTypeNameOfAToolHasATab()
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

void TestMeasureForm::menuOfTheTableConcernsTheCurrentRow()
{
    MeasureFixture f;
    FakeTool tool(1901, QStringLiteral("Probe"), {QStringLiteral("A")});
    f.load({&tool});
    f.showWindow();
    for (int i = 0; i < 3; ++i)
        tool.create(QStringLiteral("A"), i);
    f.table().selectRow(1);
    // The window's own answer would open the menu.
    LmKsMeasureWidget* form = f.theMeasure->theMeasureWidget;
    QVERIFY(disconnect(form, SIGNAL(signalContextMenu(const QPoint&, const int)), f.theMeasure, nullptr));
    QSignalSpy asked(form, SIGNAL(signalContextMenu(const QPoint&, const int)));
    const QPoint first(5, f.table().rowViewportPosition(0) + 5);
    askForMenu(f.table().clipper(), first);
    QCOMPARE(asked.count(), 1);
    QCOMPARE(asked[0][0].toPoint(), f.table().clipper()->mapToGlobal(first));
    QCOMPARE(asked[0][1].toInt(), 1);
}

void TestMeasureForm::rightClickInAnEmptyTableAsksForNoMenu()
{
    MeasureFixture f;
    FakeTool tool(1901, QStringLiteral("Probe"), {QStringLiteral("A")});
    f.load({&tool});
    f.showWindow();
    QSignalSpy asked(f.theMeasure->theMeasureWidget, SIGNAL(signalContextMenu(const QPoint&, const int)));
    askForMenu(f.table().clipper(), QPoint(5, 5));
    QCOMPARE(asked.count(), 0);
    tool.create(QStringLiteral("A"), 1);
    tool.remove(1);
    askForMenu(f.table().clipper(), QPoint(5, 5));
    QCOMPARE(asked.count(), 0);
}

void TestMeasureForm::menuIsAskedForOverTheCellsOnly()
{
    MeasureFixture f;
    FakeTool tool(1901, QStringLiteral("Probe"), {QStringLiteral("A")});
    f.load({&tool});
    f.showWindow();
    tool.create(QStringLiteral("A"), 1);
    LmKsMeasureWidget* form = f.theMeasure->theMeasureWidget;
    QVERIFY(disconnect(form, SIGNAL(signalContextMenu(const QPoint&, const int)), f.theMeasure, nullptr));
    QSignalSpy asked(form, SIGNAL(signalContextMenu(const QPoint&, const int)));
    const QList<QWidget*> others{f.table().horizontalHeader()->viewport(),
                                 f.table().verticalHeader()->viewport(),
                                 f.calcTable(QStringLiteral("Probe")).clipper(), form->theTbExport};
    for (QWidget* other : others) {
        askForMenu(other, QPoint(2, 2));
        QCOMPARE(asked.count(), 0);
    }
    const QWidget* cells = f.table().clipper();
    askForMenu(f.table().clipper(), QPoint(cells->width() - 1, cells->height() - 1));
    QCOMPARE(asked.count(), 1);
    askForMenu(f.table().clipper(), QPoint(cells->width(), 0));
    askForMenu(f.table().clipper(), QPoint(0, cells->height()));
    QCOMPARE(asked.count(), 1);
}

MEASURE_TEST_MAIN(TestMeasureForm)
#include "TestMeasureForm.moc"
