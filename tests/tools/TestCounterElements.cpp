#include "CounterFixture.h"
#include "LmCvDistance.h"
#include "LmCvSelection.h"
#include "TestFont.h"

#include <memory>

/// What is done to a mark or to a whole counter.
class TestCounterElements : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<CounterFixture>(); }
    void cleanup() { theFixture.reset(); }

    void removingAMarkClosesTheGap();
    void removingTheLastMarkRemovesTheCounter();
    void removingKeepsTheCurrentMarkOfAnotherCounter();
    void wholeCounterIsRemovedByOneCommand();
    void renumberingTakesTheFirstCharacterForAName();
    void colorGoesToTheWholeCounterWithoutItsAlpha();
    void colorThatItHasIsNoStep();
    void hidingTakesTheWholeCounterAndReleasesItsMark();
    void hidingByAnotherMarkKeepsTheCurrentOne();
    void showingAlsoReleasesTheCurrentMark();
    void hiddenMarksLeaveTheGroup();
    void customActionsActOnTheWholeCounter();
    void unknownActionsAndItemsDoNothing();

private:
    std::unique_ptr<CounterFixture> theFixture;
};

void TestCounterElements::removingAMarkClosesTheGap()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({4});
    const QList<QPoint> tips = f.tips(1);
    f.theTool.removeCvObject(f.mark(1, 1));
    QCOMPARE(f.texts(1), (QStringList{"1 #1", "1 #2", "1 #3"}));
    QCOMPARE(f.tips(1), (QList<QPoint>{tips[0], tips[2], tips[3]}));
    QVERIFY(f.recordIsMarks(1));
    QCOMPARE(f.theStack.count(), 5);
    f.theTool.removeCvObject(f.mark(1, 0)); // the first, whose text names the counter
    QCOMPARE(f.texts(1), (QStringList{"1 #1", "1 #2"}));
    QCOMPARE(f.tips(1), (QList<QPoint>{tips[2], tips[3]}));
    f.theStack.undo();
    f.theStack.undo();
    QCOMPARE(f.tips(1), tips);
    QCOMPARE(f.texts(1).last(), QStringLiteral("1 #4"));
}

void TestCounterElements::removingTheLastMarkRemovesTheCounter()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({1, 1});
    f.theTool.removeCvObject(f.mark(2, 0));
    QCOMPARE(f.theTool.theCounters.keys(), QList<int>{1});
    QVERIFY(!f.hasRecord(2));
    QVERIFY(!f.current());
    f.theStack.undo();
    QVERIFY(f.hasRecord(2));
    QCOMPARE(f.texts(2), QStringList{QStringLiteral("2 #1")});
    f.theStack.redo();
    QVERIFY(!f.hasRecord(2));
    QCOMPARE(f.itemCount(), 1);
}

void TestCounterElements::removingKeepsTheCurrentMarkOfAnotherCounter()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({2, 2});
    f.theTool.removeCvObject(f.mark(1, 0));
    QCOMPARE(f.current(), f.mark(2, 1));
    QVERIFY(f.mark(2, 1)->isActive());
    QVERIFY(!f.mark(1, 0)->isActive());
}

void TestCounterElements::wholeCounterIsRemovedByOneCommand()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({3, 4});
    const int before = f.theStack.count();
    f.theTool.removeCounter(f.mark(2, 1));
    QCOMPARE(f.theStack.count(), before + 1);
    QCOMPARE(f.theTool.theCounters.keys(), QList<int>{1});
    QCOMPARE(f.itemCount(), 3);
    QVERIFY(!f.hasRecord(2));
    QVERIFY(!f.current());
    QVERIFY(!f.theTool.theCreatedArrow);
    f.theStack.undo();
    QCOMPARE(f.texts(2).size(), 4);
    QVERIFY(f.recordIsMarks(2));
}

void TestCounterElements::renumberingTakesTheFirstCharacterForAName()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({3});
    f.mark(1, 0)->setText(QStringLiteral("Cells"));
    f.mark(1, 2)->setText(QString());
    f.theTool.renumberCanvasCounter(1);
    QCOMPARE(f.texts(1), (QStringList{"C #1", "C #2", "C #3"}));
    f.theTool.renumberCanvasCounter(5);
    QCOMPARE(f.theStack.count(), 3); // nothing is stored by it
}

void TestCounterElements::colorGoesToTheWholeCounterWithoutItsAlpha()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({2, 1});
    const int before = f.theStack.count();
    f.theTool.setColorCvObject(f.mark(1, 1), QColor(10, 20, 30, 40));
    QCOMPARE(f.theStack.count(), before + 1);
    QCOMPARE(f.stored(f.kType, 1, f.kCol).value<QColor>(), QColor(10, 20, 30));
    for (LmCvArrow* mark : f.marks(1))
        QCOMPARE(mark->getColor().rgb(), QColor(10, 20, 30).rgb());
    QCOMPARE(f.mark(2, 0)->getColor(), QColor(Qt::red));
    f.theStack.undo();
    for (LmCvArrow* mark : f.marks(1))
        QCOMPARE(mark->getColor(), QColor(Qt::red));
    f.theStack.redo();
    for (LmCvArrow* mark : f.marks(1))
        QCOMPARE(mark->getColor(), QColor(10, 20, 30));
}

void TestCounterElements::colorThatItHasIsNoStep()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({2});
    f.theTool.setColorCvObject(f.mark(1, 1), QColor(Qt::red));
    QCOMPARE(f.theStack.count(), 2);
}

void TestCounterElements::hidingTakesTheWholeCounterAndReleasesItsMark()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({3});
    const int before = f.theStack.count();
    QCOMPARE(f.current(), f.mark(1, 2));
    f.theTool.showCvObject(f.mark(1, 2), false);
    QVERIFY(!f.current());
    for (LmCvArrow* mark : f.marks(1)) {
        QVERIFY(!mark->isVisible());
        QVERIFY(!mark->isActive());
    }
    QVERIFY(!f.stored(f.kType, 1, f.kVis).toBool());
    QCOMPARE(f.theStack.count(), before + 1);
    f.theTool.showCvObject(f.mark(1, 0), false);
    QCOMPARE(f.theStack.count(), before + 1); // hidden already
    f.theStack.undo();
    for (const LmCvArrow* mark : f.marks(1))
        QVERIFY(mark->isVisible());
    f.theStack.redo();
    for (const LmCvArrow* mark : f.marks(1))
        QVERIFY(!mark->isVisible());
}

void TestCounterElements::hidingByAnotherMarkKeepsTheCurrentOne()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({3});
    f.theTool.showCvObject(f.mark(1, 0), false);
    QCOMPARE(f.current(), f.mark(1, 2));
}

void TestCounterElements::showingAlsoReleasesTheCurrentMark()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({2});
    f.theTool.showCvObject(f.mark(1, 1), true);
    QVERIFY(!f.current());
    QCOMPARE(f.theStack.count(), 2);
}

void TestCounterElements::hiddenMarksLeaveTheGroup()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({2, 1});
    f.theEditor.selection().selectAll();
    QCOMPARE(f.theEditor.selection().items().size(), 3);
    f.theTool.showCvObject(f.mark(1, 0), false);
    QCOMPARE(f.theEditor.selection().items(), QList<LmCvObject*>{f.mark(2, 0)});
    QVERIFY(!f.mark(1, 0)->isSelected() && !f.mark(1, 1)->isSelected());
}

void TestCounterElements::customActionsActOnTheWholeCounter()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({2, 2});
    f.theTool.actionOnCvObject(f.mark(1, 1), QPoint(5, 5), 1);
    QVERIFY(!f.mark(1, 0)->isVisible() && !f.mark(1, 1)->isVisible());
    f.theTool.actionOnCvObject(f.mark(1, 1), QPoint(5, 5), 2);
    QVERIFY(f.mark(1, 0)->isVisible() && f.mark(1, 1)->isVisible());
    QVERIFY(f.stored(f.kType, 1, f.kVis).toBool());
    f.theTool.actionOnCvObject(f.mark(1, 1), QPoint(5, 5), 0);
    QCOMPARE(f.theTool.theCounters.keys(), QList<int>{2});
}

void TestCounterElements::unknownActionsAndItemsDoNothing()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({2});
    LmCvDistance distance(nullptr, f.theEditor.canvas(), QStringLiteral("1"), &f.theEditor);
    for (const int action : {-9, -1, 3, 8})
        f.theTool.actionOnCvObject(f.mark(1, 0), QPoint(), action);
    for (const int action : {0, 1, 2}) {
        f.theTool.actionOnCvObject(&distance, QPoint(), action);
        f.theTool.actionOnCvObject(nullptr, QPoint(), action);
    }
    QCOMPARE(f.theStack.count(), 2);
    QCOMPARE(f.texts(1).size(), 2);
    QVERIFY(f.mark(1, 0)->isVisible());
}

MEASURE_TEST_MAIN(TestCounterElements)
#include "TestCounterElements.moc"
