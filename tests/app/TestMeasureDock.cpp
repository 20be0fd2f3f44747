#include "LmAppSettings.h"
#include "MeasureWindow.h"
#include "ModalAnswer.h"
#include "Q3Table.h"
#include "TestFont.h"

#include <QAction>
#include <QDockWidget>
#include <QMenu>
#include <QSplitter>
#include <QTabWidget>

/// The measurement dock in the window: its place, its shortcut, its room, and what is kept over a restart.
class TestMeasureDock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void standsAtTheBottomAtFirst();
    void placeAndVisibilityAreKept_data();
    void placeAndVisibilityAreKept();
    void floatingDockComesBackFloating();
    void shortcutHidesAndShowsIt();
    void viewMenuNamesIt();
    void statisticsAndObjectsAreBothReadable();
    void windowCanBeMadeNarrow();
    void lastExportIsKept();
};

void TestMeasureDock::standsAtTheBottomAtFirst()
{
    MeasureWindow fixture;
    QCOMPARE(fixture.window().dockWidgetArea(&fixture.dock()), Qt::BottomDockWidgetArea);
    QVERIFY(fixture.dock().isVisible());
    QCOMPARE(fixture.dock().windowTitle(), QStringLiteral("Measurements"));
}

void TestMeasureDock::placeAndVisibilityAreKept_data()
{
    QTest::addColumn<Qt::DockWidgetArea>("area");
    QTest::addColumn<bool>("shown");
    QTest::newRow("bottom") << Qt::BottomDockWidgetArea << true;
    QTest::newRow("bottom, hidden") << Qt::BottomDockWidgetArea << false;
    QTest::newRow("top") << Qt::TopDockWidgetArea << true;
    QTest::newRow("top, hidden") << Qt::TopDockWidgetArea << false;
}

void TestMeasureDock::placeAndVisibilityAreKept()
{
    QFETCH(Qt::DockWidgetArea, area);
    QFETCH(bool, shown);
    MeasureWindow fixture;
    fixture.window().addDockWidget(area, &fixture.dock());
    fixture.dock().setVisible(shown);
    fixture.stack().clear();
    QVERIFY(fixture.window().close());
    for (int start = 0; start < 2; ++start) {
        fixture.restart();
        QCOMPARE(fixture.window().dockWidgetArea(&fixture.dock()), area);
        QCOMPARE(fixture.dock().isVisible(), shown);
        QVERIFY(fixture.window().close());
    }
}

void TestMeasureDock::floatingDockComesBackFloating()
{
    MeasureWindow fixture;
    fixture.dock().setFloating(true);
    QVERIFY(fixture.window().close());
    fixture.restart();
    QVERIFY(fixture.dock().isFloating());
    QVERIFY(fixture.dock().isVisible());
}

void TestMeasureDock::shortcutHidesAndShowsIt()
{
    MeasureWindow fixture;
    fixture.key(Qt::Key_T, Qt::ControlModifier);
    QVERIFY(!fixture.dock().isVisible());
    fixture.key(Qt::Key_T, Qt::ControlModifier);
    QVERIFY(fixture.dock().isVisible());
}

void TestMeasureDock::viewMenuNamesIt()
{
    MeasureWindow fixture;
    QAction* action = fixture.dock().toggleViewAction();
    QVERIFY(fixture.actions().theViewMenu->actions().contains(action));
    QCOMPARE(action->text(), QStringLiteral("Measurements"));
    QCOMPARE(action->shortcut(), QKeySequence(QStringLiteral("Ctrl+T")));
    QVERIFY(!action->statusTip().isEmpty());
}

void TestMeasureDock::statisticsAndObjectsAreBothReadable()
{
    MeasureWindow fixture;
    fixture.addThree();
    QCoreApplication::processEvents(); // the layout
    const auto* tabs = fixture.dock().findChild<QTabWidget*>();
    const auto* statistics = qobject_cast<Q3Table*>(tabs->currentWidget());
    QVERIFY(statistics);
    for (const Q3Table* table : {statistics, static_cast<const Q3Table*>(&fixture.table())})
        for (int row = 0; row < table->numRows(); ++row)
            QVERIFY(table->viewport()->rect().contains(table->visualRect(table->model()->index(row, 0))));
    // The picture is the main thing.
    QVERIFY(fixture.window().centralWidget()->height() > fixture.window().height() / 3);
}

void TestMeasureDock::windowCanBeMadeNarrow()
{
    MeasureWindow fixture;
    fixture.addThree();
    fixture.window().resize(1500, 800);
    QCoreApplication::processEvents();
    QVERIFY(fixture.window().minimumSizeHint().width() < 700);
    QVERIFY(fixture.window().minimumSizeHint().height() < 600);
}

void TestMeasureDock::lastExportIsKept()
{
    MeasureWindow fixture;
    QVERIFY(LmAppSettings::theLastExcelFile.endsWith(QStringLiteral("/measurements.txt")));
    const QString path = fixture.path(QStringLiteral("last.txt"));
    const ModalAnswer answer(ModalAnswer::chooseFile(path));
    fixture.clickExport();
    QVERIFY(answer.isDone());
    QVERIFY(fixture.window().close());
    LmAppSettings::theLastExcelFile.clear();
    fixture.restart();
    QCOMPARE(LmAppSettings::theLastExcelFile, path);
}

MEASURE_TEST_MAIN(TestMeasureDock)
#include "TestMeasureDock.moc"
