#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmCvSelection.h"
#include "ModalAnswer.h"
#include "TestFont.h"
#include "WindowFixture.h"

#include <QColorDialog>
#include <QMenu>

/// The context menu of an item, of a group and of the empty canvas.
class TestItemMenu : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void menuOffersWhatTheFlagsAllow();
    void rightClickMakesTheItemCurrent();
    void labelShowsTheChosenValue();
    void valueThatIsShownAlreadyLeavesNoStep();
    void noValueLeavesOnlyTheNumber();
    void colourIsSetAsOneStep();
    void cancelledColourLeavesNoStep();
    void hiddenItemComesBackWithShowAll();
    void deleteRemovesTheItemAndUndoBringsItBack();
    void groupIsColouredHiddenAndDeletedInOneStepEach();
    void itemOutsideTheGroupHasItsOwnMenu();
    void canvasMenuOffersWhatNeedsNoItem();
    void entryForAnItemThatHasGoneDoesNothing();

private:
    static LmCvObject* item(WindowFixture& aFixture, int aIdx)
    {
        return aFixture.distanceTool()->getCvObject(aIdx);
    }
    static ModalAnswer::Answer pickColor(const QColor& aColor);
    static QMenu* groupMenu(WindowFixture& aFixture);
};

// The middle of the first distance; all of them are 200 pixels long.
static const QPoint kMiddle(200, 100);

static void drawFirst(WindowFixture& aFixture)
{
    QCOMPARE(aFixture.draw(kMiddle - QPoint(100, 0), kMiddle + QPoint(100, 0)), 1);
}

static void drawSecond(WindowFixture& aFixture)
{
    QCOMPARE(aFixture.draw(QPoint(100, 200), QPoint(300, 200)), 2);
}

ModalAnswer::Answer TestItemMenu::pickColor(const QColor& aColor)
{
    return [aColor](QWidget* aDialog) {
        auto* dialog = qobject_cast<QColorDialog*>(aDialog);
        QVERIFY(dialog);
        dialog->setCurrentColor(aColor);
        QTest::keyClick(dialog, Qt::Key_Return);
    };
}

/// Selects everything and opens the menu on the first distance.
QMenu* TestItemMenu::groupMenu(WindowFixture& aFixture)
{
    aFixture.key(Qt::Key_A, Qt::ControlModifier);
    return aFixture.contextMenu(kMiddle);
}

void TestItemMenu::menuOffersWhatTheFlagsAllow()
{
    WindowFixture fixture;
    drawFirst(fixture);
    QCOMPARE(fixture.distanceTool()->getCvObjectFlags(item(fixture, 1)), 732);
    QMenu* menu = fixture.contextMenu(kMiddle);
    QVERIFY(menu);
    for (const char* offered :
         {"Set Color...", "Hide", "Delete", "Value on the Label", "Animated", "Copy Path"})
        QVERIFY2(WindowFixture::find(*menu, QLatin1String(offered)), offered);
    for (const char* absent : {"Properties...", "Show", "Fit to Window"})
        QVERIFY2(!WindowFixture::find(*menu, QLatin1String(absent)), absent);
    const QAction* values = WindowFixture::find(*menu, QStringLiteral("Value on the Label"));
    for (const QString& name : fixture.distanceTool()->theValueNames)
        QVERIFY(WindowFixture::find(*values->menu(), name));
    QVERIFY(WindowFixture::find(*values->menu(), fixture.distanceTool()->theValueNames[0])->isChecked());
    menu->close();
}

void TestItemMenu::rightClickMakesTheItemCurrent()
{
    WindowFixture fixture;
    drawFirst(fixture);
    drawSecond(fixture);
    QCOMPARE(fixture.editor().theCurrentTrack, item(fixture, 2));
    QMenu* menu = fixture.contextMenu(kMiddle);
    QVERIFY(menu);
    QCOMPARE(fixture.editor().theCurrentTrack, item(fixture, 1));
    menu->close();
}

void TestItemMenu::labelShowsTheChosenValue()
{
    WindowFixture fixture;
    drawFirst(fixture);
    const QString before = item(fixture, 1)->labelText();
    const int count = fixture.stack().count();
    QMenu* menu = fixture.contextMenu(kMiddle);
    QVERIFY(menu);
    QVERIFY(fixture.choose(*menu, QStringLiteral("DY")));
    QCOMPARE(fixture.value(1, QStringLiteral("dispv")).toString(), QStringLiteral("DY"));
    QVERIFY(item(fixture, 1)->labelText().contains(QStringLiteral("<0.00")));
    QCOMPARE(fixture.stack().count(), count + 1);
    fixture.stack().undo();
    QCOMPARE(item(fixture, 1)->labelText(), before);
    fixture.stack().redo();
    QCOMPARE(fixture.value(1, QStringLiteral("dispv")).toString(), QStringLiteral("DY"));
}

void TestItemMenu::valueThatIsShownAlreadyLeavesNoStep()
{
    WindowFixture fixture;
    drawFirst(fixture);
    const int count = fixture.stack().count();
    QMenu* menu = fixture.contextMenu(kMiddle);
    QVERIFY(menu);
    QVERIFY(fixture.choose(*menu, QStringLiteral("Distance")));
    QCOMPARE(fixture.stack().count(), count);
}

void TestItemMenu::noValueLeavesOnlyTheNumber()
{
    WindowFixture fixture;
    drawFirst(fixture);
    QMenu* menu = fixture.contextMenu(kMiddle);
    QVERIFY(menu);
    QVERIFY(fixture.choose(*menu, QStringLiteral("None")));
    QCOMPARE(fixture.value(1, QStringLiteral("dispv")).toString(), QString());
    QCOMPARE(item(fixture, 1)->labelText(), QStringLiteral(" 1 "));
}

void TestItemMenu::colourIsSetAsOneStep()
{
    WindowFixture fixture;
    drawFirst(fixture);
    const QColor before = item(fixture, 1)->getColor();
    const QColor chosen(1, 2, 200);
    QMenu* menu = fixture.contextMenu(kMiddle);
    QVERIFY(menu);
    {
        const ModalAnswer answer(pickColor(chosen));
        QVERIFY(fixture.choose(*menu, QStringLiteral("Set Color...")));
    }
    QCOMPARE(fixture.value(1, QStringLiteral("col")).value<QColor>(), chosen);
    QCOMPARE(item(fixture, 1)->getColor(), chosen);
    fixture.stack().undo();
    QCOMPARE(item(fixture, 1)->getColor(), before);
}

void TestItemMenu::cancelledColourLeavesNoStep()
{
    WindowFixture fixture;
    drawFirst(fixture);
    const int count = fixture.stack().count();
    QMenu* menu = fixture.contextMenu(kMiddle);
    QVERIFY(menu);
    const ModalAnswer answer(ModalAnswer::cancel());
    QVERIFY(fixture.choose(*menu, QStringLiteral("Set Color...")));
    QCOMPARE(fixture.stack().count(), count);
}

void TestItemMenu::hiddenItemComesBackWithShowAll()
{
    WindowFixture fixture;
    drawFirst(fixture);
    QMenu* menu = fixture.contextMenu(kMiddle);
    QVERIFY(menu);
    QVERIFY(fixture.choose(*menu, QStringLiteral("Hide")));
    QCOMPARE(fixture.value(1, QStringLiteral("vis")).toBool(), false);
    QVERIFY(!item(fixture, 1)->isVisible());
    menu = fixture.contextMenu(kMiddle);
    QVERIFY(menu);
    QVERIFY(fixture.choose(*menu, QStringLiteral("Show All Objects")));
    QCOMPARE(fixture.value(1, QStringLiteral("vis")).toBool(), true);
    QVERIFY(item(fixture, 1)->isVisible());
}

void TestItemMenu::deleteRemovesTheItemAndUndoBringsItBack()
{
    WindowFixture fixture;
    drawFirst(fixture);
    QMenu* menu = fixture.contextMenu(kMiddle);
    QVERIFY(menu);
    QVERIFY(fixture.choose(*menu, QStringLiteral("Delete")));
    QCOMPARE(fixture.distanceCount(), 0);
    fixture.stack().undo();
    QCOMPARE(fixture.distanceCount(), 1);
}

void TestItemMenu::groupIsColouredHiddenAndDeletedInOneStepEach()
{
    WindowFixture fixture;
    drawFirst(fixture);
    drawSecond(fixture);
    const QColor chosen(1, 2, 200);
    int count = fixture.stack().count();
    {
        QMenu* menu = groupMenu(fixture);
        QVERIFY(menu);
        const ModalAnswer answer(pickColor(chosen));
        QVERIFY(fixture.choose(*menu, QStringLiteral("Set Color...")));
    }
    QCOMPARE(fixture.value(1, QStringLiteral("col")).value<QColor>(), chosen);
    QCOMPARE(fixture.value(2, QStringLiteral("col")).value<QColor>(), chosen);
    QCOMPARE(fixture.stack().count(), ++count);

    QMenu* menu = groupMenu(fixture);
    QVERIFY(menu);
    QVERIFY(fixture.choose(*menu, QStringLiteral("Hide")));
    QVERIFY(!item(fixture, 1)->isVisible() && !item(fixture, 2)->isVisible());
    QCOMPARE(fixture.stack().count(), ++count);
    fixture.stack().undo();
    QVERIFY(item(fixture, 1)->isVisible() && item(fixture, 2)->isVisible());

    menu = groupMenu(fixture);
    QVERIFY(menu);
    QVERIFY(fixture.choose(*menu, QStringLiteral("Delete")));
    QCOMPARE(fixture.distanceCount(), 0);
    QCOMPARE(fixture.stack().count(), count);
    fixture.stack().undo();
    QCOMPARE(fixture.distanceCount(), 2);
}

void TestItemMenu::itemOutsideTheGroupHasItsOwnMenu()
{
    WindowFixture fixture;
    drawFirst(fixture);
    drawSecond(fixture);
    QCOMPARE(fixture.draw(QPoint(100, 250), QPoint(300, 250)), 3);
    fixture.editor().selection().toggle(item(fixture, 2));
    fixture.editor().selection().toggle(item(fixture, 3));
    QMenu* menu = fixture.contextMenu(kMiddle);
    QVERIFY(menu);
    QVERIFY(fixture.choose(*menu, QStringLiteral("Delete")));
    QVERIFY(!fixture.distance(1));
    QVERIFY(fixture.distance(2) && fixture.distance(3));
}

void TestItemMenu::canvasMenuOffersWhatNeedsNoItem()
{
    WindowFixture fixture;
    drawFirst(fixture);
    QMenu* menu = fixture.contextMenu(QPoint(200, 200));
    QVERIFY(menu);
    QVERIFY(!WindowFixture::find(*menu, QStringLiteral("Delete")));
    QVERIFY(WindowFixture::find(*menu, QStringLiteral("Fit to Window")));
    QVERIFY(fixture.choose(*menu, QStringLiteral("Select All")));
    QVERIFY(fixture.editor().selection().contains(item(fixture, 1)));
}

void TestItemMenu::entryForAnItemThatHasGoneDoesNothing()
{
    WindowFixture fixture;
    drawFirst(fixture);
    QMenu* menu = fixture.contextMenu(kMiddle);
    QVERIFY(menu);
    fixture.stack().undo();
    QCOMPARE(fixture.distanceCount(), 0);
    const int index = fixture.stack().index();
    QVERIFY(fixture.choose(*menu, QStringLiteral("Delete")));
    QCOMPARE(fixture.stack().index(), index);
}

MEASURE_TEST_MAIN(TestItemMenu)
#include "TestItemMenu.moc"
