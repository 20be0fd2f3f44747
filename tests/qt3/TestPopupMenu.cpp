#include "Q3PopupMenu.h"
#include "TestFont.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTimer>

class TestPopupMenu : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void slotChosen() { ++theChosen; }

private Q_SLOTS:
    void entriesAreFoundByTheirNumbers();
    void freeNumbersNeverMeetChosenOnes();
    void entryIsChangedByItsNumber();
    void unknownNumberDoesNothing();
    void removedEntryIsGone();
    void clearedMenuTakesNewEntries();
    void choosingCallsTheSlotAndTellsTheNumber();
    void clickLeavesTheCheckMarkToItsReceiver();
    void clickedEntryIsTheAnswer();
    void dismissedMenuAnswersNothing();
    void entryOfASubmenuIsTheAnswer();

private:
    int theChosen = 0;
};

void TestPopupMenu::entriesAreFoundByTheirNumbers()
{
    Q3PopupMenu menu;
    QCOMPARE(menu.insertItem(QStringLiteral("Delete"), 3), 3);
    QCOMPARE(menu.insertItem(QIcon(), QStringLiteral("Hide"), 1), 1);
    QCOMPARE(menu.text(3), QStringLiteral("Delete"));
    QCOMPARE(menu.text(1), QStringLiteral("Hide"));
    QCOMPARE(menu.count(), 2);
    QCOMPARE(menu.findIdForAction(menu.actions().at(0)), 3);
    QCOMPARE(menu.findIdForAction(nullptr), -1);
    QCOMPARE(menu.findIdForAction(menu.addAction(QStringLiteral("Foreign"))), -1);
}

void TestPopupMenu::freeNumbersNeverMeetChosenOnes()
{
    Q3PopupMenu menu;
    menu.insertItem(QStringLiteral("Zero"), 0);
    const int separator = menu.insertSeparator();
    const int free = menu.insertItem(QStringLiteral("Free"));
    for (int id = 1; id < 10; ++id)
        QVERIFY(id != separator && id != free);
    QVERIFY(separator != free);
    QVERIFY(separator != -1 && free != -1);
    QCOMPARE(menu.text(free), QStringLiteral("Free"));
}

void TestPopupMenu::entryIsChangedByItsNumber()
{
    Q3PopupMenu menu;
    menu.insertItem(QStringLiteral("One"), 1);
    menu.insertItem(QStringLiteral("Two"), 2);
    QVERIFY(menu.isItemEnabled(2));
    QVERIFY(!menu.isItemChecked(2));
    menu.setItemEnabled(2, false);
    menu.setItemChecked(2, true);
    menu.changeItem(2, QStringLiteral("Changed"));
    QVERIFY(!menu.isItemEnabled(2));
    QVERIFY(menu.isItemChecked(2));
    QCOMPARE(menu.text(2), QStringLiteral("Changed"));
    QVERIFY(menu.isItemEnabled(1));
    QVERIFY(!menu.isItemChecked(1));
    QCOMPARE(menu.text(1), QStringLiteral("One"));
}

void TestPopupMenu::unknownNumberDoesNothing()
{
    Q3PopupMenu menu;
    menu.insertItem(QStringLiteral("One"), 1);
    menu.addAction(QStringLiteral("Foreign"));
    for (const int id : {7, -1}) {
        menu.setItemEnabled(id, false);
        menu.setItemChecked(id, true);
        menu.changeItem(id, QStringLiteral("Wrong"));
        menu.removeItem(id);
        QVERIFY(menu.text(id).isNull());
        QVERIFY(!menu.isItemEnabled(id));
    }
    QCOMPARE(menu.count(), 2);
    QCOMPARE(menu.actions().at(1)->text(), QStringLiteral("Foreign"));
    QVERIFY(menu.actions().at(1)->isEnabled());
}

void TestPopupMenu::removedEntryIsGone()
{
    Q3PopupMenu menu;
    auto* inner = new Q3PopupMenu(&menu);
    menu.insertItem(QStringLiteral("One"), 1);
    menu.insertItem(QStringLiteral("More"), inner, 2);
    const QPointer<QAction> plain = menu.actions().at(0);
    const QPointer<QAction> opener = inner->menuAction();
    menu.removeItem(2);
    QCOMPARE(menu.count(), 1);
    QVERIFY(opener); // the submenu's own
    menu.removeItem(1);
    QVERIFY(!plain);
    QCOMPARE(menu.count(), 0);
    QVERIFY(menu.text(1).isNull());
}

void TestPopupMenu::clearedMenuTakesNewEntries()
{
    Q3PopupMenu menu;
    menu.insertItem(QStringLiteral("One"), 1);
    menu.clear();
    QCOMPARE(menu.count(), 0);
    menu.insertItem(QStringLiteral("Again"), 1);
    QCOMPARE(menu.text(1), QStringLiteral("Again"));
}

void TestPopupMenu::choosingCallsTheSlotAndTellsTheNumber()
{
    Q3PopupMenu menu;
    theChosen = 0;
    const int id = menu.insertItem(QStringLiteral("Act"), this, SLOT(slotChosen()));
    menu.insertItem(QStringLiteral("Other"), 5);
    QSignalSpy activated(&menu, &Q3PopupMenu::activated);
    menu.actions().at(1)->trigger();
    QCOMPARE(theChosen, 0);
    menu.actions().at(0)->trigger();
    QCOMPARE(theChosen, 1);
    QCOMPARE(activated, (QList<QVariantList>{{5}, {id}}));
}

void TestPopupMenu::clickLeavesTheCheckMarkToItsReceiver()
{
    Q3PopupMenu menu;
    menu.insertItem(QStringLiteral("Grid"), 1);
    menu.setItemChecked(1, true);
    menu.actions().at(0)->trigger();
    QVERIFY(menu.isItemChecked(1));
    connect(&menu, &Q3PopupMenu::activated, &menu,
            [&menu](int aId) { menu.setItemChecked(aId, !menu.isItemChecked(aId)); });
    menu.actions().at(0)->trigger();
    QVERIFY(!menu.isItemChecked(1));
}

void TestPopupMenu::clickedEntryIsTheAnswer()
{
    Q3PopupMenu menu;
    menu.insertItem(QStringLiteral("One"), 1);
    menu.insertItem(QStringLiteral("Two"), 2);
    QTimer::singleShot(0, &menu, [&menu] {
        const QRect entry = menu.actionGeometry(menu.actions().at(1));
        QTest::mouseMove(&menu, entry.center());
        QTest::mouseClick(&menu, Qt::LeftButton, {}, entry.center());
    });
    QCOMPARE(menu.execAt(QPoint(100, 100)), 2);
}

void TestPopupMenu::dismissedMenuAnswersNothing()
{
    Q3PopupMenu menu;
    menu.insertItem(QStringLiteral("One"), 1);
    QTimer::singleShot(0, &menu, [&menu] { QTest::keyClick(&menu, Qt::Key_Escape); });
    QCOMPARE(menu.execAt(QPoint(100, 100)), -1);
}

void TestPopupMenu::entryOfASubmenuIsTheAnswer()
{
    Q3PopupMenu menu;
    Q3PopupMenu inner;
    menu.insertItem(QStringLiteral("More"), &inner, 1);
    QCOMPARE(inner.title(), QStringLiteral("More"));
    inner.insertItem(QStringLiteral("Deep"), 12);
    QTimer::singleShot(0, &menu, [&menu, &inner] {
        QTest::keyClick(&menu, Qt::Key_Down);
        QTest::keyClick(&menu, Qt::Key_Right);
        QTest::keyClick(&inner, Qt::Key_Return);
    });
    QCOMPARE(menu.execAt(QPoint(100, 100)), 12);
}

MEASURE_TEST_MAIN(TestPopupMenu)
#include "TestPopupMenu.moc"
