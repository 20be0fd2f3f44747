#include "LmCvEditor.h"
#include "MeasureWindow.h"
#include "MenuTool.h"
#include "PopupAnswer.h"
#include "Q3Table.h"
#include "TestFont.h"

#include <QContextMenuEvent>
#include <QDockWidget>
#include <QMenu>
#include <QTabWidget>
#include <QToolButton>

/// Where the measurement table has a menu, and for which object.
class TestMeasureMenuPlace : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void firstEntryOpensUnderThePointer();
    void menuIsAboutTheCurrentRowWhereverThePointerIs();
    void pressOnARowMakesItTheCurrentOne();
    void emptyTableHasNoMenu();
    void nothingButTheCellsHasAMenu();
    void rowWithoutAnObjectHasNoMenu();
    void objectWithoutAnItemHasNoMenu();
    void objectWhoseToolIsGoneHasNoMenu();

private:
    static constexpr int kAll = 1 + 4 + 8 + 16 + 32;
};

// Asks for the menu of a widget near its upper left corner.
static void askInCorner(QWidget* aWidget)
{
    const QPoint inside(5, 5);
    QContextMenuEvent event(QContextMenuEvent::Mouse, inside, aWidget->mapToGlobal(inside));
    QApplication::sendEvent(aWidget, &event);
}

void TestMeasureMenuPlace::firstEntryOpensUnderThePointer()
{
    MeasureWindow fixture;
    fixture.addThree();
    const QPoint place = fixture.table().clipper()->mapToGlobal(fixture.cellPlace(0));
    const PopupAnswer answer({[place](QWidget* aPopup) {
        const auto* menu = qobject_cast<QMenu*>(aPopup);
        QVERIFY(menu);
        const QRect first = menu->actionGeometry(menu->actions().value(0));
        QVERIFY(first.adjusted(-1, -1, 1, 1).contains(menu->mapFromGlobal(place)));
        QTest::keyClick(aPopup, Qt::Key_Escape);
    }});
    fixture.rightPress(0);
    QVERIFY(answer.isDone());
}

void TestMeasureMenuPlace::menuIsAboutTheCurrentRowWhereverThePointerIs()
{
    MeasureWindow fixture;
    fixture.addThree();
    const PopupAnswer answer({PopupAnswer::click(QStringLiteral("Hide"))});
    fixture.askForMenu(2);
    QVERIFY(answer.isDone());
    QVERIFY(fixture.isShown(1) && !fixture.isShown(2) && fixture.isShown(3));
}

void TestMeasureMenuPlace::pressOnARowMakesItTheCurrentOne()
{
    MeasureWindow fixture;
    fixture.addThree();
    QVERIFY(!fixture.menuEntries(2).isEmpty());
    QCOMPARE(fixture.table().currentRow(), 2);
    QCOMPARE(fixture.editor().theCurrentTrack, fixture.distanceTool()->getCvObject(3));
    const PopupAnswer answer({PopupAnswer::click(QStringLiteral("Hide"))});
    fixture.rightPress(2);
    QVERIFY(answer.isDone());
    QVERIFY(fixture.isShown(2) && !fixture.isShown(3));
}

void TestMeasureMenuPlace::emptyTableHasNoMenu()
{
    MeasureWindow fixture;
    {
        const PopupAnswer none;
        askInCorner(fixture.table().clipper());
    }
    // The same place has one when there is a row.
    fixture.addThree();
    QCoreApplication::processEvents(); // the layout
    const PopupAnswer answer({PopupAnswer::escape()});
    askInCorner(fixture.table().clipper());
    QVERIFY(answer.isDone());
}

void TestMeasureMenuPlace::nothingButTheCellsHasAMenu()
{
    MeasureWindow fixture;
    fixture.addThree();
    const PopupAnswer none;
    QWidget* places[] = {fixture.table().horizontalHeader()->viewport(),
                         fixture.table().verticalHeader()->viewport(),
                         fixture.dock().findChild<QTabWidget*>()->currentWidget(),
                         fixture.dock().findChild<QToolButton*>(QStringLiteral("theTbExport"))};
    for (QWidget* place : places) {
        askInCorner(place);
        QVERIFY(!QApplication::activePopupWidget());
    }
}

void TestMeasureMenuPlace::rowWithoutAnObjectHasNoMenu()
{
    MeasureWindow fixture;
    fixture.addThree();
    fixture.table().verticalHeader()->setLabel(1, QStringLiteral("Distance 77"));
    const PopupAnswer none;
    fixture.askForMenu(1);
    QVERIFY(!QApplication::activePopupWidget());
}

void TestMeasureMenuPlace::objectWithoutAnItemHasNoMenu()
{
    MeasureWindow fixture;
    MenuTool tool(fixture, kAll);
    tool.create(QPoint(40, 40));
    tool.theCvObjects.clear();
    const PopupAnswer none;
    fixture.askForMenu(0);
    QVERIFY(!QApplication::activePopupWidget());
    QCOMPARE(tool.theCalls, QStringList());
}

void TestMeasureMenuPlace::objectWhoseToolIsGoneHasNoMenu()
{
    MeasureWindow fixture;
    {
        MenuTool tool(fixture, kAll);
        tool.create(QPoint(40, 40));
    }
    QCOMPARE(fixture.table().numRows(), 1);
    const PopupAnswer none;
    fixture.askForMenu(0);
    QVERIFY(!QApplication::activePopupWidget());
}

MEASURE_TEST_MAIN(TestMeasureMenuPlace)
#include "TestMeasureMenuPlace.moc"
