#include "Drawn.h"
#include "LmCvEditor.h"
#include "LmCvObject.h"
#include "MeasureWindow.h"
#include "MenuTool.h"
#include "PopupAnswer.h"
#include "Q3Table.h"
#include "TestFont.h"

#include <QToolButton>

/// What the menu of the measurement table offers and does, used with mouse and keys.
class TestMeasureMenu : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void entriesFollowTheFlags_data();
    void entriesFollowTheFlags();
    void everyToolHasItsEntries();
    void hideAndShowChangeTheObjectOfTheRow();
    void hideAndShowStandThereWhateverIsShown();
    void showAllShowsEveryObject();
    void deleteRemovesTheObjectInOneStep();
    void propertiesGetTheItemAndThePlaceOnTheScreen();
    void customActionsGetTheirOwnNumbers();
    void dismissedMenuIsAnUnknownAction();
    void dismissedMenuChangesNothing();

private:
    static constexpr int kAll = 1 + 4 + 8 + 16 + 32;
};

void TestMeasureMenu::entriesFollowTheFlags_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<QStringList>("expected");
    const QString color = QStringLiteral("Set color");
    const QString hide = QStringLiteral("Hide");
    const QString show = QStringLiteral("Show");
    const QString all = QStringLiteral("Show all");
    const QString properties = QStringLiteral("Properties");
    const QString remove = QStringLiteral("Delete");
    const QString line = QStringLiteral("---");
    const QString wash = QStringLiteral("Wash it");
    const QString dry = QStringLiteral("Dry it");
    QTest::newRow("none") << 0 << QStringList{all};
    QTest::newRow("color") << 4 << QStringList{color, all};
    QTest::newRow("visibility") << 8 << QStringList{hide, show, all};
    QTest::newRow("properties") << 1 << QStringList{all, properties};
    QTest::newRow("delete") << 16 << QStringList{all, line, remove};
    QTest::newRow("custom actions") << 32 << QStringList{all, line, wash, dry};
    QTest::newRow("all") << kAll
                         << QStringList{color, hide, show, all, properties, line, remove, line, wash, dry};
    QTest::newRow("distance, angle and dimension")
        << 732 << QStringList{color, hide, show, all, line, remove};
    QTest::newRow("region") << 988 << QStringList{color, hide, show, all, line, remove};
    QTest::newRow("counter") << 804 << QStringList{color, all, line, wash, dry};
    QTest::newRow("base class") << 157 << QStringList{color, hide, show, all, properties, line, remove};
}

void TestMeasureMenu::entriesFollowTheFlags()
{
    QFETCH(int, flags);
    QFETCH(QStringList, expected);
    MeasureWindow fixture;
    MenuTool tool(fixture, flags);
    tool.theActions = {{QStringLiteral("Wash it"), 0}, {QStringLiteral("Dry it"), 5}};
    tool.create(QPoint(40, 40));
    QCOMPARE(fixture.rowKey(0), QStringLiteral("Probe 1"));
    QCOMPARE(fixture.menuEntries(0), expected);
}

void TestMeasureMenu::everyToolHasItsEntries()
{
    const QStringList expected{QStringLiteral("Set color"), QStringLiteral("Hide"), QStringLiteral("Show"),
                               QStringLiteral("Show all"),  QStringLiteral("---"),  QStringLiteral("Delete")};
    const QMap<QString, int> flags{{QStringLiteral("Region"), 988},
                                   {QStringLiteral("Distance"), 732},
                                   {QStringLiteral("Dimension"), 732},
                                   {QStringLiteral("Angle"), 732}};
    MeasureWindow fixture;
    QStringList seen;
    for (LmCvManipulator* tool : fixture.bench().tools()) {
        const QString name = tool->getObjectTypeNames().value(0);
        if (!flags.contains(name))
            continue;
        QCOMPARE(tool->getCvObjectFlags(nullptr), flags[name]);
        QTest::mouseClick(tool->theToolButton, Qt::LeftButton);
        // Enough for each: an angle has its second side, a region its first node closed by a click.
        fixture.drag(QPoint(60, 60), QPoint(200, 60));
        fixture.move(QPoint(200, 160));
        fixture.click(QPoint(200, 160));
        fixture.click(QPoint(60, 60));
        fixture.pickArrow();
        const int row = fixture.rowOf(name + QStringLiteral(" 1"));
        QVERIFY2(row >= 0, qPrintable(name));
        QCOMPARE(fixture.menuEntries(row), expected);
        seen << name;
        fixture.stack().clear();
        const QList<LmCvObject*> items = fixture.editor().cvItems();
        for (LmCvObject* item : items)
            item->theManipulator->removeCvObject(item);
        QCOMPARE(fixture.table().numRows(), 0);
    }
    QCOMPARE(QSet<QString>(seen.begin(), seen.end()), QSet<QString>(flags.keyBegin(), flags.keyEnd()));
}

void TestMeasureMenu::hideAndShowChangeTheObjectOfTheRow()
{
    MeasureWindow fixture;
    fixture.addThree();
    const int steps = fixture.stack().count();
    {
        const PopupAnswer answer({PopupAnswer::click(QStringLiteral("Hide"))});
        fixture.rightPress(1);
        QVERIFY(answer.isDone());
    }
    QVERIFY(fixture.isShown(1) && !fixture.isShown(2) && fixture.isShown(3));
    QCOMPARE(fixture.stack().count(), steps + 1);
    QCOMPARE(fixture.table().numRows(), 3);
    {
        const PopupAnswer answer({PopupAnswer::choose(QStringLiteral("Show"))});
        fixture.rightPress(1);
        QVERIFY(answer.isDone());
    }
    QVERIFY(fixture.isShown(2));
    QCOMPARE(fixture.stack().count(), steps + 2);
    fixture.stack().undo();
    QVERIFY(!fixture.isShown(2));
}

void TestMeasureMenu::hideAndShowStandThereWhateverIsShown()
{
    MeasureWindow fixture;
    fixture.addThree();
    const QStringList before = fixture.menuEntries(1);
    fixture.distanceTool()->showCvObject(fixture.distanceTool()->getCvObject(2), false);
    QVERIFY(!fixture.isShown(2));
    QCOMPARE(fixture.menuEntries(1), before);
}

void TestMeasureMenu::showAllShowsEveryObject()
{
    MeasureWindow fixture;
    fixture.addThree();
    for (const int idx : {1, 3})
        fixture.distanceTool()->showCvObject(fixture.distanceTool()->getCvObject(idx), false);
    QVERIFY(!fixture.isShown(1) && !fixture.isShown(3));
    const PopupAnswer answer({PopupAnswer::click(QStringLiteral("Show all"))});
    fixture.rightPress(1);
    QVERIFY(answer.isDone());
    QVERIFY(fixture.isShown(1) && fixture.isShown(2) && fixture.isShown(3));
}

void TestMeasureMenu::deleteRemovesTheObjectInOneStep()
{
    MeasureWindow fixture;
    fixture.addThree();
    const int steps = fixture.stack().count();
    const PopupAnswer answer({PopupAnswer::choose(QStringLiteral("Delete"))});
    fixture.rightPress(1);
    QVERIFY(answer.isDone());
    QVERIFY(fixture.distance(1) && !fixture.distance(2) && fixture.distance(3));
    QCOMPARE(fixture.table().numRows(), 2);
    QCOMPARE(fixture.stack().count(), steps + 1);
    fixture.stack().undo();
    QVERIFY(fixture.distance(2));
    QCOMPARE(fixture.table().numRows(), 3);
}

void TestMeasureMenu::propertiesGetTheItemAndThePlaceOnTheScreen()
{
    MeasureWindow fixture;
    MenuTool tool(fixture, kAll);
    tool.create(QPoint(40, 40));
    tool.create(QPoint(80, 40));
    const PopupAnswer answer({PopupAnswer::click(QStringLiteral("Properties"))});
    fixture.rightPress(1);
    QVERIFY(answer.isDone());
    QCOMPARE(tool.theCalls, QStringList{QStringLiteral("edit 2 at ") + fixture.placeText(1)});
}

void TestMeasureMenu::customActionsGetTheirOwnNumbers()
{
    MeasureWindow fixture;
    MenuTool tool(fixture, kAll);
    tool.theActions = {{QStringLiteral("Wash it"), 0}, {QStringLiteral("Dry it"), 5}};
    tool.create(QPoint(40, 40));
    const QString place = QStringLiteral(" on 1 at ") + fixture.placeText(0);
    {
        const PopupAnswer answer({PopupAnswer::click(QStringLiteral("Dry it"))});
        fixture.rightPress(0);
        QVERIFY(answer.isDone());
    }
    {
        const PopupAnswer answer({PopupAnswer::choose(QStringLiteral("Wash it"))});
        fixture.rightPress(0);
        QVERIFY(answer.isDone());
    }
    QCOMPARE(tool.theCalls,
             (QStringList{QStringLiteral("action 5") + place, QStringLiteral("action 0") + place}));
}

void TestMeasureMenu::dismissedMenuIsAnUnknownAction()
{
    MeasureWindow fixture;
    MenuTool tool(fixture, kAll);
    tool.create(QPoint(40, 40));
    const PopupAnswer answer({PopupAnswer::escape()});
    fixture.rightPress(0);
    QVERIFY(answer.isDone());
    QCOMPARE(tool.theCalls, QStringList{QStringLiteral("action -9 on 1 at ") + fixture.placeText(0)});
}

void TestMeasureMenu::dismissedMenuChangesNothing()
{
    MeasureWindow fixture;
    fixture.addThree();
    const int steps = fixture.stack().count();
    const QColor before = fixture.color(2);
    const PopupAnswer answer({PopupAnswer::escape()});
    fixture.rightPress(1);
    QVERIFY(answer.isDone());
    QCOMPARE(fixture.stack().count(), steps);
    QCOMPARE(fixture.color(2), before);
    QVERIFY(fixture.isShown(2));
}

MEASURE_TEST_MAIN(TestMeasureMenu)
#include "TestMeasureMenu.moc"
