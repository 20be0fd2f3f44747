#include "CounterFixture.h"
#include "LmCvSelection.h"
#include "TestFont.h"

#include <memory>

/// Marks under the mouse in the editor: drags, Esc, groups.
class TestCounterEditing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { theFixture.reset(); }

    void dragOfAMarkRewritesTheWholePolygon();
    void dragOfATipMovesTheTipAlone();
    void dragMakesTheMarkCurrent();
    void dragWithTheSelectionArrowReachesTheKernel();
    void undoOfADragBringsTheMarkBack();
    void escapeInADragRestoresTheMark();
    void escapeInADragKeepsTheCounter();
    void escapeEndsTheCounterAndThenTheTool();
    void leavingTheToolKeepsTheCurrentMark();
    void groupOfMarksMovesAsOneStep();
    void groupOfMarksIsRemovedAsOneStep();
    void groupOfMarksIsColoredAsOneStep();
    void escapeInAGroupDragRestoresAllMarks();
    void hiddenMarksTakeNoClick();

private:
    std::unique_ptr<CounterFixture> theFixture;
};

// Marks at (50, 60), (150, 60) and (50, 160).
void TestCounterEditing::init()
{
    theFixture = std::make_unique<CounterFixture>();
    for (const QPoint& point : {QPoint(50, 60), QPoint(150, 60), QPoint(50, 160)})
        theFixture->click(point);
}

void TestCounterEditing::dragOfAMarkRewritesTheWholePolygon()
{
    CounterFixture& f = *theFixture;
    const QPolygon before = f.points(1);
    f.mark(1, 2)->setEndPoint(QPoint(60, 170)); // moved without a word until now
    const QPoint label = f.mark(1, 0)->theTextRect.center();
    f.drag(label, label + QPoint(30, 40));
    QPolygon expected = before;
    expected[0] += QPoint(30, 40);
    expected[1] += QPoint(30, 40);
    expected[5] = QPoint(100, 200);
    QCOMPARE(f.points(1), expected);
    QCOMPARE(f.theStack.count(), 4);
    QCOMPARE(f.undoText(), QStringLiteral("Move a mark of Counter 1"));
}

void TestCounterEditing::dragOfATipMovesTheTipAlone()
{
    CounterFixture& f = *theFixture;
    QPolygon expected = f.points(1);
    f.drag(QPoint(150, 60), QPoint(180, 90));
    expected[3] = QPoint(220, 120);
    QCOMPARE(f.points(1), expected);
    QCOMPARE(f.marks(1).size(), 3);
}

void TestCounterEditing::dragMakesTheMarkCurrent()
{
    CounterFixture& f = *theFixture;
    f.drag(QPoint(150, 60), QPoint(180, 90));
    QCOMPARE(f.current(), f.mark(1, 1));
    QVERIFY(f.mark(1, 1)->isActive());
    QVERIFY(!f.mark(1, 2)->isActive());
}

void TestCounterEditing::dragWithTheSelectionArrowReachesTheKernel()
{
    CounterFixture& f = *theFixture;
    f.theEditor.setCurrentManipulator(nullptr);
    f.drag(QPoint(150, 60), QPoint(180, 90));
    QCOMPARE(f.tips(1).at(1), QPoint(180, 90));
    QVERIFY(f.recordIsMarks(1));
    QCOMPARE(f.theStack.count(), 4);
    f.click(QPoint(50, 60)); // with the arrow a click selects
    QCOMPARE(f.marks(1).size(), 3);
    QCOMPARE(f.current(), f.mark(1, 0));
}

void TestCounterEditing::undoOfADragBringsTheMarkBack()
{
    CounterFixture& f = *theFixture;
    const QList<QPoint> tips = f.tips(1);
    f.drag(QPoint(150, 60), QPoint(180, 90));
    f.theStack.undo();
    QCOMPARE(f.tips(1), tips);
    QVERIFY(f.recordIsMarks(1));
    QVERIFY(!f.current());
    f.theStack.redo();
    QCOMPARE(f.tips(1).at(1), QPoint(180, 90));
}

void TestCounterEditing::escapeInADragRestoresTheMark()
{
    CounterFixture& f = *theFixture;
    const QList<QPoint> tips = f.tips(1);
    for (const bool withTool : {true, false}) {
        if (!withTool)
            f.theEditor.setCurrentManipulator(nullptr);
        const QPoint label = f.mark(1, 1)->theTextRect.center();
        f.press(label);
        f.move(label + QPoint(10, 10));
        f.move(label + QPoint(30, 40));
        QCOMPARE(f.tips(1).at(1), tips.at(1) + QPoint(30, 40));
        f.key(Qt::Key_Escape);
        QCOMPARE(f.tips(1), tips);
        QVERIFY(f.recordIsMarks(1));
        f.move(label + QPoint(50, 60));
        f.release(label + QPoint(50, 60));
        QCOMPARE(f.tips(1), tips);
        QCOMPARE(f.theStack.count(), 3);
        QCOMPARE(f.itemCount(), 3);
    }
}

void TestCounterEditing::escapeInADragKeepsTheCounter()
{
    CounterFixture& f = *theFixture;
    f.press(f.mark(1, 1)->theTextRect.center());
    QVERIFY(f.current());
    QVERIFY(!f.theTool.abortAction()); // the mark under the mouse comes first
    f.key(Qt::Key_Escape);
    QCOMPARE(f.theEditor.theCurrentManipulator, &f.theTool);
    f.release(QPoint(0, 0));
    QCOMPARE(f.marks(1).size(), 3);
}

void TestCounterEditing::escapeEndsTheCounterAndThenTheTool()
{
    CounterFixture& f = *theFixture;
    f.key(Qt::Key_Escape);
    QVERIFY(!f.current());
    QVERIFY(!f.mark(1, 2)->isActive());
    QCOMPARE(f.theEditor.theCurrentManipulator, &f.theTool);
    f.click(QPoint(150, 160));
    QCOMPARE(f.texts(2), QStringList{QStringLiteral("2 #1")});
    f.key(Qt::Key_Escape);
    f.key(Qt::Key_Escape);
    QVERIFY(!f.theEditor.theCurrentManipulator);
    QCOMPARE(f.itemCount(), 4);
}

void TestCounterEditing::leavingTheToolKeepsTheCurrentMark()
{
    CounterFixture& f = *theFixture;
    f.theEditor.setCurrentManipulator(nullptr);
    QCOMPARE(f.current(), f.mark(1, 2));
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.click(QPoint(150, 160));
    QCOMPARE(f.marks(1).size(), 4);
}

void TestCounterEditing::groupOfMarksMovesAsOneStep()
{
    CounterFixture& f = *theFixture;
    const QList<QPoint> tips = f.tips(1);
    f.theEditor.setCurrentManipulator(nullptr);
    f.theEditor.selection().selectAll();
    const QPoint label = f.mark(1, 1)->theTextRect.center();
    f.drag(label, label + QPoint(10, 20));
    QCOMPARE(f.theStack.count(), 4);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(f.tips(1).at(i), tips.at(i) + QPoint(10, 20));
    QVERIFY(f.recordIsMarks(1));
    f.theStack.undo();
    QCOMPARE(f.tips(1), tips);
    QVERIFY(f.recordIsMarks(1));
}

void TestCounterEditing::groupOfMarksIsRemovedAsOneStep()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({2});
    f.theEditor.setCurrentManipulator(nullptr);
    const int before = f.theStack.count();
    f.theEditor.selection().selectAll();
    f.theEditor.selection().toggle(f.mark(1, 1)); // all but this one
    f.key(Qt::Key_Delete);
    QCOMPARE(f.theStack.count(), before + 1);
    QCOMPARE(f.texts(1), QStringList{QStringLiteral("1 #1")});
    QCOMPARE(f.tips(1), QList<QPoint>{QPoint(150, 60)});
    QVERIFY(!f.hasRecord(2));
    f.theStack.undo();
    QCOMPARE(f.tips(1), (QList<QPoint>{QPoint(50, 60), QPoint(150, 60), QPoint(50, 160)}));
    QCOMPARE(f.texts(2), (QStringList{"2 #1", "2 #2"}));
    QVERIFY(f.recordIsMarks(1) && f.recordIsMarks(2));
}

void TestCounterEditing::groupOfMarksIsColoredAsOneStep()
{
    CounterFixture& f = *theFixture;
    f.theEditor.selection().selectAll();
    f.theEditor.selection().setColor(QColor(Qt::blue));
    QCOMPARE(f.theStack.count(), 4);
    for (LmCvArrow* mark : f.marks(1))
        QCOMPARE(mark->getColor(), QColor(Qt::blue));
    f.theStack.undo();
    for (LmCvArrow* mark : f.marks(1))
        QCOMPARE(mark->getColor(), QColor(Qt::red));
    QCOMPARE(f.stored(f.kType, 1, f.kCol).value<QColor>(), QColor(Qt::red));
}

void TestCounterEditing::escapeInAGroupDragRestoresAllMarks()
{
    CounterFixture& f = *theFixture;
    const QList<QPoint> tips = f.tips(1);
    f.theEditor.setCurrentManipulator(nullptr);
    f.theEditor.selection().selectAll();
    const QPoint label = f.mark(1, 1)->theTextRect.center();
    f.press(label);
    f.move(label + QPoint(10, 20));
    f.move(label + QPoint(20, 20));
    QCOMPARE(f.tips(1).at(0), tips.at(0) + QPoint(20, 20));
    f.key(Qt::Key_Escape);
    QCOMPARE(f.tips(1), tips);
    QVERIFY(f.theEditor.selection().items().isEmpty());
    f.release(label);
    QCOMPARE(f.theStack.count(), 3);
}

void TestCounterEditing::hiddenMarksTakeNoClick()
{
    CounterFixture& f = *theFixture;
    f.theTool.showCvObject(f.mark(1, 2), false);
    f.click(QPoint(150, 60));
    QCOMPARE(f.texts(1).size(), 3);
    QCOMPARE(f.texts(2), QStringList{QStringLiteral("2 #1")});
    QCOMPARE(f.tips(2), QList<QPoint>{QPoint(150, 60)});
}

MEASURE_TEST_MAIN(TestCounterEditing)
#include "TestCounterEditing.moc"
