#include "Document.h"
#include "FindWindow.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "Q3Table.h"
#include "TestFont.h"

#include <QAction>
#include <QMenu>
#include <QToolButton>
#include <QUndoStack>

namespace {

const QList<QPoint> kThings = {QPoint(60, 80), QPoint(160, 90), QPoint(260, 100)};

} // namespace

/// Counting as a person does it.
class TestCounterWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clicksCountThings();
    void eachClickIsOneNamedStep();
    void clickOnAMarkTakesItAway();
    void clickOnTheTipOfAMarkTakesItAway();
    void clickOnTheLastMarkTakesTheCounter();
    void clickWithoutACurrentMarkBeginsACounter();
    void clickOnAnotherCountersMarkAddsOneThere();
    void dragOfALabelMovesTheMark();
    void dragOfATipMovesTheTipAlone();
    void jitterOfAClickIsNoDrag();
    void escInADragBringsTheMarkBack();
    void undoLetsTheCounterGrowAgain();
    void arrowSelectsAMarkAndDeleteTakesIt();
    void menuHidesShowsAndRemovesTheCounter();
    void menuOffersNoValueForTheLabel();
    void hintTellsWhatTheNextClickDoes();
    void marksAreCountedAboveOtherObjects();
    void rowOfTheTableActsOnTheFirstMark();
    void savedCountersComeBack();
    void noPictureTakesNoMarks();

private:
    static QString hintOf(FindWindow& aWindow) { return aWindow.hint(); }
};

void TestCounterWindow::clicksCountThings()
{
    FindWindow w;
    w.count(kThings);
    QCOMPARE(w.counterCount(), 1);
    QCOMPARE(w.tips(1), kThings);
    QCOMPARE(w.editor().cvItems().size(), 3);
    for (int i = 0; i < kThings.size(); ++i)
        QCOMPARE(w.marks(1)[2 * i], kThings[i] + QPoint(20, -20));
}

void TestCounterWindow::eachClickIsOneNamedStep()
{
    FindWindow w;
    w.count(kThings);
    QCOMPARE(w.stack().count(), 3);
    const QStringList texts = w.undoTexts();
    QVERIFY2(texts[0].contains(QStringLiteral("Counter 1")), qPrintable(texts[0]));
    QVERIFY2(texts[1].contains(QStringLiteral("Counter 1")), qPrintable(texts[1]));
    QVERIFY(texts[0] != texts[1]);
    w.stack().undo();
    QCOMPARE(w.tips(1), kThings.first(2));
    w.stack().undo();
    w.stack().undo();
    QCOMPARE(w.counterCount(), 0);
    QVERIFY(w.editor().cvItems().isEmpty());
    w.stack().setIndex(3);
    QCOMPARE(w.tips(1), kThings);
    QCOMPARE(w.editor().cvItems().size(), 3);
}

void TestCounterWindow::clickOnAMarkTakesItAway()
{
    FindWindow w;
    w.count(kThings);
    w.click(w.labelOf(1, 1));
    QCOMPARE(w.tips(1), (QList<QPoint>{kThings[0], kThings[2]}));
    QCOMPARE(w.editor().cvItems().size(), 2);
    w.stack().undo();
    QCOMPARE(w.tips(1), kThings);
}

void TestCounterWindow::clickOnTheTipOfAMarkTakesItAway()
{
    FindWindow w;
    w.count(kThings);
    w.click(kThings[0]);
    QCOMPARE(w.tips(1), (QList<QPoint>{kThings[1], kThings[2]}));
}

void TestCounterWindow::clickOnTheLastMarkTakesTheCounter()
{
    FindWindow w;
    w.count({kThings[0]});
    w.click(w.labelOf(1, 0));
    QCOMPARE(w.counterCount(), 0);
    QVERIFY(w.editor().cvItems().isEmpty());
    QCOMPARE(w.stack().count(), 2);
    w.stack().undo();
    QCOMPARE(w.tips(1), QList<QPoint>{kThings[0]});
}

void TestCounterWindow::clickWithoutACurrentMarkBeginsACounter()
{
    FindWindow w;
    w.count(kThings);
    w.pickArrow();
    w.click(QPoint(30, 250));
    QVERIFY(!w.editor().theCurrentTrack);
    w.count({QPoint(100, 200)});
    QCOMPARE(w.counterCount(), 2);
    QCOMPARE(w.markCount(1), 3);
    QCOMPARE(w.tips(2), QList<QPoint>{QPoint(100, 200)});
}

void TestCounterWindow::clickOnAnotherCountersMarkAddsOneThere()
{
    FindWindow w;
    w.count({kThings[0]});
    w.pickArrow();
    w.click(QPoint(30, 250));
    w.count({kThings[1]});
    const QPoint label = w.labelOf(1, 0);
    w.click(label);
    QCOMPARE(w.markCount(1), 1);
    QCOMPARE(w.tips(2), (QList<QPoint>{kThings[1], label}));
}

void TestCounterWindow::dragOfALabelMovesTheMark()
{
    FindWindow w;
    w.count(kThings);
    const QPoint label = w.labelOf(1, 1);
    w.drag(label, label + QPoint(30, 40));
    QCOMPARE(w.markCount(1), 3);
    QCOMPARE(w.tips(1)[1], kThings[1] + QPoint(30, 40));
    QCOMPARE(w.marks(1)[2], kThings[1] + QPoint(50, 20));
    QCOMPARE(w.stack().count(), 4);
    w.stack().undo();
    QCOMPARE(w.tips(1), kThings);
    QVERIFY(w.markAt(label));
}

void TestCounterWindow::dragOfATipMovesTheTipAlone()
{
    FindWindow w;
    w.count(kThings);
    const QPoint anchor = w.marks(1)[2];
    w.drag(kThings[1], kThings[1] + QPoint(-30, 20));
    QCOMPARE(w.marks(1)[2], anchor);
    QCOMPARE(w.tips(1)[1], kThings[1] + QPoint(-30, 20));
    QCOMPARE(w.markCount(1), 3);
}

void TestCounterWindow::jitterOfAClickIsNoDrag()
{
    FindWindow w;
    w.count(kThings);
    const QPoint label = w.labelOf(1, 2);
    w.press(label);
    w.move(label + QPoint(1, 1));
    w.release(label + QPoint(1, 1));
    QCOMPARE(w.tips(1), kThings.first(2));
}

void TestCounterWindow::escInADragBringsTheMarkBack()
{
    FindWindow w;
    w.count(kThings);
    const QPoint label = w.labelOf(1, 1);
    w.press(label);
    w.move(label + QPoint(30, 40));
    w.key(Qt::Key_Escape);
    w.release(label + QPoint(30, 40));
    QCOMPARE(w.tips(1), kThings);
    QCOMPARE(w.stack().count(), 3);
    QVERIFY(w.markAt(label));
    QVERIFY(!w.markAt(label + QPoint(30, 40)));
}

void TestCounterWindow::undoLetsTheCounterGrowAgain()
{
    FindWindow w;
    w.count(kThings);
    w.stack().undo();
    // No mark is current after an undo, so the next click would begin a counter; a mark is taken first.
    w.pickArrow();
    w.click(w.labelOf(1, 0));
    w.count({QPoint(320, 200)});
    QCOMPARE(w.counterCount(), 1);
    QCOMPARE(w.tips(1), (QList<QPoint>{kThings[0], kThings[1], QPoint(320, 200)}));
}

void TestCounterWindow::arrowSelectsAMarkAndDeleteTakesIt()
{
    FindWindow w;
    w.count(kThings);
    w.pickArrow();
    w.click(w.labelOf(1, 0));
    QVERIFY(w.editor().theCurrentTrack);
    w.key(Qt::Key_Delete);
    QCOMPARE(w.tips(1), kThings.last(2));
    QCOMPARE(w.stack().count(), 4);
}

void TestCounterWindow::menuHidesShowsAndRemovesTheCounter()
{
    FindWindow w;
    w.count(kThings);
    w.pickArrow();
    QMenu* menu = w.contextMenu(w.labelOf(1, 1));
    QVERIFY(menu);
    QVERIFY(w.choose(*menu, QStringLiteral("Hide whole counter")));
    const QList<LmCvObject*> items = w.editor().cvItems();
    QCOMPARE(items.size(), 3);
    for (const LmCvObject* item : items)
        QVERIFY(!item->isVisible());
    w.stack().undo();
    QVERIFY(w.markAt(w.labelOf(1, 0)));
    w.stack().redo();
    w.editor().slotShowAllCvItems();
    QVERIFY(w.markAt(w.labelOf(1, 0)) && w.markAt(w.labelOf(1, 2)));
    menu = w.contextMenu(w.labelOf(1, 2));
    QVERIFY(menu);
    QVERIFY(w.choose(*menu, QStringLiteral("Remove whole counter")));
    QCOMPARE(w.counterCount(), 0);
    w.stack().undo();
    QCOMPARE(w.tips(1), kThings);
}

// A share changes with every mark of any counter, and marks show their numbers.
void TestCounterWindow::menuOffersNoValueForTheLabel()
{
    FindWindow w;
    w.count(kThings);
    w.pickArrow();
    QMenu* menu = w.contextMenu(w.labelOf(1, 1));
    QVERIFY(menu);
    QCOMPARE(menu->actions().first()->text(), QStringLiteral("Counter 1"));
    QVERIFY(WindowFixture::find(*menu, QStringLiteral("Set Color...")));
    QVERIFY(!WindowFixture::find(*menu, QStringLiteral("Value on the Label")));
    menu->close();
}

void TestCounterWindow::hintTellsWhatTheNextClickDoes()
{
    FindWindow w;
    w.pickCounter();
    const QString first = w.hint();
    QCOMPARE(first, w.counterTool()->hint());
    w.click(kThings[0]);
    QVERIFY(w.hint() != first);
    QVERIFY2(w.hint().contains(QStringLiteral("1")), qPrintable(w.hint()));
    w.pickArrow();
    w.click(QPoint(30, 250));
    w.pickCounter();
    QCOMPARE(w.hint(), first);
}

void TestCounterWindow::marksAreCountedAboveOtherObjects()
{
    FindWindow w;
    w.draw(QPoint(40, 100), QPoint(200, 100));
    w.count({QPoint(120, 100)});
    QCOMPARE(w.counterCount(), 1);
    QCOMPARE(w.distanceCount(), 1);
    QCOMPARE(w.tips(1), QList<QPoint>{QPoint(120, 100)});
}

void TestCounterWindow::rowOfTheTableActsOnTheFirstMark()
{
    FindWindow w;
    w.count(kThings);
    w.pickArrow();
    w.click(QPoint(30, 250));
    QVERIFY(!w.editor().theCurrentTrack);
    auto* table = w.window().findChild<Q3Table*>(QStringLiteral("theTable"));
    QVERIFY(table);
    QCOMPARE(table->numRows(), 1);
    QCOMPARE(table->text(0, 0), QStringLiteral("3 pcs"));
    table->setCurrentCell(0, 1);
    QVERIFY(w.editor().theCurrentTrack == w.counterTool()->getCvObject(1));
    QVERIFY(w.editor().theCurrentTrack == w.markAt(w.labelOf(1, 0)));
}

void TestCounterWindow::savedCountersComeBack()
{
    FindWindow w;
    w.count(kThings);
    w.pickArrow();
    w.click(QPoint(30, 250));
    w.count({QPoint(100, 200)});
    const QString file = w.path(QStringLiteral("counted.mtp"));
    QString error;
    QVERIFY2(w.bench().document().save(file, error), qPrintable(error));
    w.restart();
    w.open(file);
    QCOMPARE(w.counterCount(), 2);
    QCOMPARE(w.tips(1), kThings);
    QCOMPARE(w.tips(2), QList<QPoint>{QPoint(100, 200)});
    QCOMPARE(w.editor().cvItems().size(), 4);
}

void TestCounterWindow::noPictureTakesNoMarks()
{
    FindWindow w(FindWindow::kEmpty);
    QVERIFY(!w.counterTool()->theToolButton->isEnabled());
    w.click(QPoint(30, 30));
    QCOMPARE(w.counterCount(), 0);
}

MEASURE_TEST_MAIN(TestCounterWindow)
#include "TestCounterWindow.moc"
