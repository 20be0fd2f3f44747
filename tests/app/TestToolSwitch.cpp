#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "TestFont.h"
#include "WindowFixture.h"

#include <QAction>
#include <QMenu>
#include <QSettings>
#include <QToolButton>

/// How a person takes a tool in the hand and puts it down, by button, menu and key.
class TestToolSwitch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void toolDrawsADistanceAndTheArrowDoesNot();
    void toolIsPickedByItsButtonItsMenuEntryAndItsKey();
    void pressingTheButtonOfTheToolInTheHandPutsItDown();
    void escGoesBackToTheArrow();
    void newObjectShowsTheValueChosenLast();
    void valueNameOfAnotherLanguageIsNotUsed();
    void toolGetsItsOwnValueNameBack();
};

void TestToolSwitch::toolDrawsADistanceAndTheArrowDoesNot()
{
    WindowFixture fixture;
    fixture.drag(QPoint(50, 50), QPoint(150, 90));
    QCOMPARE(fixture.distanceCount(), 0);
    fixture.pickDistance();
    fixture.drag(QPoint(50, 50), QPoint(150, 90));
    QCOMPARE(fixture.distanceCount(), 1);
    QCOMPARE(fixture.value(1, QStringLiteral("pos")).toPoint(), QPoint(100, 70));
    QCOMPARE(fixture.value(1, QStringLiteral("ep")).toPoint(), QPoint(50, 20));
    QCOMPARE(fixture.value(1, QStringLiteral("dispv")).toString(),
             fixture.distanceTool()->theValueNames.constFirst());
}

void TestToolSwitch::toolIsPickedByItsButtonItsMenuEntryAndItsKey()
{
    WindowFixture fixture;
    LmCvManipulator* tool = fixture.distanceTool();
    QAction* entry = WindowFixture::find(*fixture.actions().theToolsMenu, tool->theToolButton->toolTip());
    QVERIFY(entry);
    fixture.pickDistance();
    QCOMPARE(fixture.editor().theCurrentManipulator, tool);
    QVERIFY(entry->isChecked());
    QVERIFY(!fixture.actions().theArrow->isChecked());

    fixture.pickArrow();
    QVERIFY(!fixture.editor().theCurrentManipulator);
    QVERIFY(!tool->theToolButton->isChecked());
    QVERIFY(!entry->isChecked());

    fixture.key(entry->shortcut()[0].key());
    QCOMPARE(fixture.editor().theCurrentManipulator, tool);
    QVERIFY(tool->theToolButton->isChecked());
    entry->trigger();
    QVERIFY(!fixture.editor().theCurrentManipulator);
    entry->trigger();
    QCOMPARE(fixture.editor().theCurrentManipulator, tool);
    QVERIFY(entry->isChecked());
}

void TestToolSwitch::pressingTheButtonOfTheToolInTheHandPutsItDown()
{
    WindowFixture fixture;
    QToolButton* button = fixture.distanceTool()->theToolButton;
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(button->isChecked());
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(!button->isChecked());
    QVERIFY(fixture.actions().theArrow->isChecked());
    fixture.pickArrow();
    QVERIFY(fixture.actions().theArrow->isChecked());
}

void TestToolSwitch::escGoesBackToTheArrow()
{
    WindowFixture fixture;
    fixture.pickDistance();
    fixture.key(Qt::Key_Escape);
    QVERIFY(!fixture.editor().theCurrentManipulator);
    QVERIFY(fixture.actions().theArrow->isChecked());
    QVERIFY(!fixture.distanceTool()->theToolButton->isChecked());
}

/// Chooses a value for the label of distance 1 by its context menu.
static void chooseValue(WindowFixture& aFixture, const QString& aName)
{
    QMenu* menu = aFixture.contextMenu(aFixture.value(1, QStringLiteral("pos")).toPoint());
    QVERIFY(menu);
    QVERIFY(aFixture.choose(*menu, aName));
}

void TestToolSwitch::newObjectShowsTheValueChosenLast()
{
    WindowFixture fixture;
    const QString second = fixture.distanceTool()->theValueNames[1];
    QCOMPARE(fixture.draw(QPoint(100, 100), QPoint(300, 100)), 1);
    chooseValue(fixture, second);
    QCOMPARE(fixture.draw(QPoint(100, 200), QPoint(300, 200)), 2);
    QCOMPARE(fixture.value(2, QStringLiteral("dispv")).toString(), second);
    fixture.restart();
    QVERIFY(fixture.window().openAtStart(fixture.picturePath()));
    QCOMPARE(fixture.draw(QPoint(100, 200), QPoint(300, 200)), 1);
    QCOMPARE(fixture.value(1, QStringLiteral("dispv")).toString(), second);
}

void TestToolSwitch::valueNameOfAnotherLanguageIsNotUsed()
{
    WindowFixture fixture;
    QSettings().setValue(QStringLiteral("valueName/1102"), QStringLiteral("Entfernung"));
    QCOMPARE(fixture.draw(QPoint(100, 100), QPoint(300, 100)), 1);
    QCOMPARE(fixture.value(1, QStringLiteral("dispv")).toString(), fixture.distanceTool()->theValueNames[0]);
}

void TestToolSwitch::toolGetsItsOwnValueNameBack()
{
    WindowFixture fixture;
    fixture.pickDistance();
    fixture.pickArrow();
    LmCvManipulator::theLastUsedValueName = QStringLiteral("of another tool");
    fixture.pickDistance();
    QCOMPARE(LmCvManipulator::theLastUsedValueName, fixture.distanceTool()->theValueNames[0]);
}

MEASURE_TEST_MAIN(TestToolSwitch)
#include "TestToolSwitch.moc"
