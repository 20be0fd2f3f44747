#include "CounterFixture.h"
#include "LmCvDistance.h"
#include "TestFont.h"

#include <QSignalSpy>

#include <memory>

class TestCounterFinding : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<CounterFixture>(); }
    void cleanup() { theFixture.reset(); }

    void markLeadsToItsCounter();
    void greatestIndexIsFoundForAnyMark();
    void indexOfOtherItemsIsNone();
    void firstMarkStandsForTheCounter();
    void markIsFoundAtItsParts();
    void earlierMarkIsFoundFirst();
    void missTellsTheLastPosition();
    void clickInLineWithADistantShaftTakesItsMark();

private:
    std::unique_ptr<CounterFixture> theFixture;
};

void TestCounterFinding::markLeadsToItsCounter()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({3, 1});
    int count = -5;
    int maxIdx = -5;
    int pos = -5;
    QCOMPARE(f.theTool.findCounterIndex(f.mark(1, 2), count, maxIdx, &pos), 1);
    QCOMPARE(count, 3);
    QCOMPARE(maxIdx, 2);
    QCOMPARE(pos, 2);
    QCOMPARE(f.theTool.findCounterIndex(f.mark(2, 0), count, maxIdx, nullptr), 2);
    QCOMPARE(count, 1);
    QCOMPARE(f.theTool.getObjectIdx(f.mark(1, 1)), 1);
    QCOMPARE(f.theTool.getObjectIdx(f.mark(2, 0)), 2);
}

void TestCounterFinding::greatestIndexIsFoundForAnyMark()
{
    CounterFixture& f = *theFixture;
    int count = -5;
    int maxIdx = -5;
    int pos = -5;
    QCOMPARE(f.theTool.findCounterIndex(nullptr, count, maxIdx, &pos), -1);
    QCOMPARE(maxIdx, 0);
    f.makeCounters({1});
    f.insertRecord(12, {QPoint(90, 90)});
    QCOMPARE(f.theTool.findCounterIndex(f.mark(1, 0), count, maxIdx, &pos), 1);
    QCOMPARE(maxIdx, 12);
    pos = -5;
    QCOMPARE(f.theTool.findCounterIndex(nullptr, count, maxIdx, &pos), -1);
    QCOMPARE(count, 0);
    QCOMPARE(maxIdx, 12);
    QCOMPARE(pos, -5);
}

void TestCounterFinding::indexOfOtherItemsIsNone()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({1});
    LmCvDistance distance(nullptr, f.theEditor.canvas(), QStringLiteral("1"), &f.theEditor);
    LmCvArrow stranger(nullptr, f.theEditor.canvas(), QStringLiteral("1"), &f.theEditor);
    QCOMPARE(f.theTool.getObjectIdx(&distance), -1);
    QCOMPARE(f.theTool.getObjectIdx(&stranger), -1);
    QCOMPARE(f.theTool.getObjectIdx(nullptr), -1);
    f.theTool.removeCvObject(&distance);
    f.theTool.removeCvObject(&stranger);
    f.theTool.removeCvObject(nullptr);
    f.theTool.removeCounter(&stranger);
    f.theTool.removeCounter(nullptr);
    f.theTool.setColorCvObject(&distance, QColor(Qt::blue));
    f.theTool.showCvObject(&stranger, false);
    f.theTool.slotCanvasObjectChanged(&distance);
    f.theTool.slotCanvasObjectChanged(&stranger);
    f.theTool.slotCanvasObjectChanged(nullptr);
    QCOMPARE(f.theStack.count(), 1);
    QCOMPARE(f.texts(1).size(), 1);
}

void TestCounterFinding::firstMarkStandsForTheCounter()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({3});
    QCOMPARE(f.theTool.getCvObject(1), f.mark(1, 0));
    QVERIFY(!f.theTool.getCvObject(2));
    QVERIFY(!f.theTool.getCvObject(-1));
}

void TestCounterFinding::markIsFoundAtItsParts()
{
    CounterFixture& f = *theFixture;
    f.theTool.createCounterElement(QPoint(40, 60), false);
    f.theTool.createCounterElement(QPoint(140, 160), false);
    LmCvArrow* mark = f.mark(1, 1);
    int idx = -5;
    int pos = -5;
    // Tip, shaft and label.
    for (const QPoint& point : {QPoint(140, 160), QPoint(150, 150), mark->theTextRect.center()}) {
        QCOMPARE(f.theTool.findCounterElementAt(point, idx, pos), mark);
        QCOMPARE(idx, 1);
        QCOMPARE(pos, 1);
    }
    // The back corner behind the second barb is hit with a square of 6, the shaft with one of 4.
    const QPoint corner = mark->theEndPoint - mark->theBarb2;
    QCOMPARE(corner, QPoint(144, 151));
    int node = 0;
    QPoint tip;
    const QPoint beside(141, 152);
    QVERIFY(!mark->isPointOnObject(beside, node, 4));
    QVERIFY(mark->isPointOnArrow(beside, tip, 6));
    QVERIFY(!mark->isPointOnArrow(beside, tip, 4));
    QCOMPARE(f.theTool.findCounterElementAt(beside, idx, pos), mark);
}

void TestCounterFinding::earlierMarkIsFoundFirst()
{
    CounterFixture& f = *theFixture;
    for (int counter = 1; counter <= 2; ++counter) {
        f.theEditor.activateItem(nullptr);
        for (int i = 0; i < 2; ++i)
            f.theTool.createCounterElement(QPoint(140, 160), false);
    }
    int idx = -5;
    int pos = -5;
    QCOMPARE(f.theTool.findCounterElementAt(QPoint(140, 160), idx, pos), f.mark(1, 0));
    QCOMPARE(idx, 1);
    QCOMPARE(pos, 0);
    f.theTool.removeCounter(f.mark(1, 0));
    QCOMPARE(f.theTool.findCounterElementAt(QPoint(140, 160), idx, pos), f.mark(2, 0));
    QCOMPARE(idx, 2);
}

void TestCounterFinding::missTellsTheLastPosition()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({3, 2});
    int idx = -5;
    int pos = -5;
    QVERIFY(!f.theTool.findCounterElementAt(QPoint(300, 200), idx, pos));
    QCOMPARE(idx, -1);
    QCOMPARE(pos, 1);
}

// The shaft of a clicked mark runs up to the right at 45 degrees. The item takes any point whose square has
// its diagonal on that line; the square goes from 2 pixels before the point to 1 behind it.
void TestCounterFinding::clickInLineWithADistantShaftTakesItsMark()
{
    CounterFixture& f = *theFixture;
    const QPoint tip(60, 200);
    f.theTool.createCounterElement(tip, true);
    f.theTool.createCounterElement(tip + QPoint(30, 20), true);
    QSignalSpy reports(&f.theTool, &LmCvManipulator::signalReport);
    int idx = 5;
    int pos = 5;
    const QPoint besideLine = tip + QPoint(120, -120);
    QVERIFY(!f.theTool.findCounterElementAt(besideLine, idx, pos));
    const QPoint inLine = besideLine + QPoint(1, 0);
    QVERIFY(f.theTool.findCounterElementAt(inLine, idx, pos) == f.mark(1, 0));
    QCOMPARE(f.theTool.createCounterElement(inLine, true), -1);
    QCOMPARE(f.tips(1), QList<QPoint>{tip + QPoint(30, 20)});
    // Nothing that was counted goes unseen.
    QCOMPARE(reports.size(), 1);
    QVERIFY(reports[0][0].toString().contains(QStringLiteral("Mark 1 of counter 1")));
}

MEASURE_TEST_MAIN(TestCounterFinding)
#include "TestCounterFinding.moc"
