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

/// The form of the measurement window, its dock and when it asks for a menu.
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
