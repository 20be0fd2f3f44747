#include "CmdChangeObject.h"
#include "CounterFixture.h"
#include "LmAppSettings.h"
#include "LmKernelObjectDataDescr.h"
#include "TestFont.h"

#include <QFont>

#include <memory>

/// What a counter's record holds, and its way there and back.
class TestCounterKernel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<CounterFixture>(); }
    void cleanup() { theFixture.reset(); }

    void newCounterIsStoredComplete();
    void twoImagePointsPerMark();
    void regionOfInterestIsAddedAndTakenAway();
    void fontIsTheRecordsOnlyWhenReadBack();
    void changeWritesAllButTheValueOnTheLabel();
    void nameIsClippedToItsFirstCharacter();
    void positionsAreCutToWholePixels();
    void emptyOrUnknownCounterIsNotStored();
    void undoOfAMarkRestoresPolygonAndMarks();
    void redoBringsTheMarkBack();
    void undoOfTheFirstMarkRemovesTheCounter();
    void undoTextsNameTheAction();
    void hintTellsTheNextClick();
    void ownCommandMakesNoSecondMarks();

private:
    std::unique_ptr<CounterFixture> theFixture;
};

void TestCounterKernel::newCounterIsStoredComplete()
{
    CounterFixture& f = *theFixture;
    LmCvManipulator::theLastUsedValueName = QStringLiteral("Count");
    LmAppSettings::theGridColor = QColor(Qt::magenta);
    f.click(QPoint(50, 60));
    QCOMPARE(f.stored(f.kType, 1, f.kVis), QVariant(true));
    QCOMPARE(f.stored(f.kType, 1, f.kCol), QVariant(QColor(Qt::magenta)));
    QCOMPARE(f.stored(f.kType, 1, f.kDispv), QVariant(QString()));
    QCOMPARE(f.points(1), QPolygon({QPoint(110, 70), QPoint(90, 90)}));
    QCOMPARE(f.name(1), QStringLiteral("1"));
    QCOMPARE(f.stored(f.kType, 1, f.kFont).value<QFont>(), QFont(QStringLiteral("MS Shell Dlg"), 10));
    QVERIFY(!f.record(1)->theAnimated);
    QVERIFY(f.record(1)->getKeyframedFrames().isEmpty());
}

void TestCounterKernel::twoImagePointsPerMark()
{
    CounterFixture& f = *theFixture;
    f.click(QPoint(50, 60));
    f.click(QPoint(150, 61));
    f.mark(1, 1)->setStartPoint(QPoint(200, 101));
    f.theTool.updateKernelCounter(1, false);
    QCOMPARE(f.points(1), QPolygon({QPoint(110, 70), QPoint(90, 90), QPoint(240, 131), QPoint(190, 91)}));
}

void TestCounterKernel::regionOfInterestIsAddedAndTakenAway()
{
    CounterFixture& f = *theFixture;
    f.theImage.setQRoi(QRect(7, 11, 300, 200));
    f.click(QPoint(50, 60));
    QCOMPARE(f.points(1), QPolygon({QPoint(77, 51), QPoint(57, 71)}));
    f.theImage.setQRoi(QRect(17, 31, 300, 200));
    f.theKernel.announceObjectChanged(f.kType, 1);
    QCOMPARE(f.tips(1), QList<QPoint>{QPoint(40, 40)});
    QCOMPARE(QPointF(f.mark(1, 0)->x(), f.mark(1, 0)->y()), QPointF(60, 20));
}

void TestCounterKernel::fontIsTheRecordsOnlyWhenReadBack()
{
    CounterFixture& f = *theFixture;
    f.click(QPoint(50, 60));
    f.click(QPoint(150, 60));
    QCOMPARE(f.mark(1, 0)->theFont.family(), QStringLiteral("Lucida Grande"));
    QCOMPARE(f.mark(1, 0)->thePointSize, 12);
    f.theStack.undo();
    QCOMPARE(f.mark(1, 0)->theFont.family(), QStringLiteral("MS Shell Dlg"));
    QCOMPARE(f.mark(1, 0)->thePointSize, 10);
    // A record from elsewhere may have any font; a change writes the usual one.
    f.insertRecord(4, {QPoint(90, 90), QPoint(190, 190)});
    QCOMPARE(f.mark(4, 1)->theFont, QFont(QStringLiteral("DejaVu Sans"), 14));
    f.theTool.updateKernelCounter(4, false);
    QCOMPARE(f.stored(f.kType, 4, f.kFont).value<QFont>(), QFont(QStringLiteral("MS Shell Dlg"), 10));
    QCOMPARE(f.mark(4, 1)->theFont, QFont(QStringLiteral("DejaVu Sans"), 14));
}

void TestCounterKernel::changeWritesAllButTheValueOnTheLabel()
{
    CounterFixture& f = *theFixture;
    f.insertRecord(4, {QPoint(90, 90), QPoint(190, 190)}, false, QStringLiteral("xyz"));
    LmParamKeyframeVector shown = f.theKernel.getDataDescriptor(f.kType)->createKeyframeVector();
    shown.setValue(f.kDispv, QStringLiteral("Count"));
    f.record(4)->update(shown);
    f.mark(4, 0)->setColor(QColor(Qt::blue));
    f.mark(4, 0)->setEndPoint(QPoint(1, 2));
    f.theTool.updateKernelCounter(4, false);
    QCOMPARE(f.stored(f.kType, 4, f.kVis), QVariant(true));
    QCOMPARE(f.stored(f.kType, 4, f.kCol), QVariant(QColor(Qt::blue)));
    QCOMPARE(f.stored(f.kType, 4, f.kDispv), QVariant(QStringLiteral("Count")));
    QCOMPARE(f.points(4)[1], QPoint(41, 32));
    QCOMPARE(f.name(4), QStringLiteral("x"));
    f.theStack.undo();
    QCOMPARE(f.stored(f.kType, 4, f.kVis), QVariant(false));
    QCOMPARE(f.name(4), QStringLiteral("xyz"));
    QCOMPARE(f.stored(f.kType, 4, f.kFont).value<QFont>(), QFont(QStringLiteral("DejaVu Sans"), 14));
}

void TestCounterKernel::nameIsClippedToItsFirstCharacter()
{
    CounterFixture& f = *theFixture;
    f.insertRecord(4, {QPoint(90, 90), QPoint(190, 190)}, true, QStringLiteral("12"));
    QCOMPARE(f.texts(4), (QStringList{"12 #1", "12 #2"}));
    f.theTool.updateKernelCounter(4, false);
    QCOMPARE(f.texts(4), (QStringList{"1 #1", "1 #2"}));
    QCOMPARE(f.name(4), QStringLiteral("1"));
    f.theStack.undo();
    QCOMPARE(f.texts(4), (QStringList{"12 #1", "12 #2"}));
}

void TestCounterKernel::positionsAreCutToWholePixels()
{
    CounterFixture& f = *theFixture;
    f.click(QPoint(50, 60));
    f.mark(1, 0)->move(70.9, -3.9);
    f.theTool.updateKernelCounter(1, false);
    QCOMPARE(f.points(1)[0], QPoint(110, 27));
}

void TestCounterKernel::emptyOrUnknownCounterIsNotStored()
{
    CounterFixture& f = *theFixture;
    f.insertRecord(4, {});
    QVERIFY(f.theTool.theCounters.contains(4));
    f.theTool.updateKernelCounter(4, false);
    f.theTool.updateKernelCounter(5, false);
    f.theTool.updateKernelCounter(5, true);
    QCOMPARE(f.theStack.count(), 0);
    QCOMPARE(f.recordCount(), 1);
}

void TestCounterKernel::undoOfAMarkRestoresPolygonAndMarks()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({3});
    const QPolygon two = f.points(1).first(4);
    f.theStack.undo();
    QCOMPARE(f.points(1), two);
    QCOMPARE(f.texts(1), (QStringList{"1 #1", "1 #2"}));
    QVERIFY(f.recordIsMarks(1));
    QCOMPARE(f.itemCount(), 2);
    QVERIFY(!f.current());
    for (LmCvArrow* mark : f.marks(1))
        QVERIFY(mark->isVisible() && !mark->isActive());
    // The current one is released whichever it is, also where it stays.
    f.theEditor.activateItem(f.mark(1, 0));
    f.theStack.undo();
    QVERIFY(!f.current());
    QVERIFY(!f.mark(1, 0)->isActive());
    QCOMPARE(f.itemCount(), 1);
}

void TestCounterKernel::redoBringsTheMarkBack()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({3});
    const QList<QPoint> tips = f.tips(1);
    for (int i = 0; i < 3; ++i)
        f.theStack.undo();
    QVERIFY(f.theTool.theCounters.isEmpty());
    QCOMPARE(f.itemCount(), 0);
    for (int i = 0; i < 3; ++i)
        f.theStack.redo();
    QCOMPARE(f.tips(1), tips);
    QCOMPARE(f.texts(1), (QStringList{"1 #1", "1 #2", "1 #3"}));
    QVERIFY(f.recordIsMarks(1));
}

void TestCounterKernel::undoOfTheFirstMarkRemovesTheCounter()
{
    CounterFixture& f = *theFixture;
    f.click(QPoint(50, 60));
    f.theStack.undo();
    QVERIFY(f.theTool.theCounters.isEmpty());
    QVERIFY(!f.current());
    f.click(QPoint(150, 60));
    QCOMPARE(f.theTool.theCounters.keys(), QList<int>{1});
}

void TestCounterKernel::undoTextsNameTheAction()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({1, 1});
    QCOMPARE(f.undoText(), QStringLiteral("Create Counter 2"));
    f.theTool.createCounterElement(QPoint(200, 200), true);
    QCOMPARE(f.undoText(), QStringLiteral("Add a mark to Counter 2"));
    f.theTool.slotCanvasObjectChanged(f.mark(2, 0));
    QCOMPARE(f.undoText(), QStringLiteral("Move a mark of Counter 2"));
    f.theTool.removeCvObject(f.mark(2, 0));
    QCOMPARE(f.undoText(), QStringLiteral("Remove a mark from Counter 2"));
    f.theTool.removeCvObject(f.mark(2, 0));
    QCOMPARE(f.undoText(), QStringLiteral("Delete Counter 2"));
}

void TestCounterKernel::hintTellsTheNextClick()
{
    CounterFixture& f = *theFixture;
    QSignalSpy hints(&f.theTool, &LmCvManipulator::signalHintChanged);
    QVERIFY(f.theTool.hint().startsWith(QStringLiteral("Click to begin a new counter")));
    f.click(QPoint(50, 60));
    QVERIFY(f.theTool.hint().startsWith(QStringLiteral("Click to add a mark to counter 1,")));
    QCOMPARE(hints.size(), 1);
    f.click(QPoint(150, 60));
    QCOMPARE(hints.size(), 1);
    f.theEditor.activateItem(nullptr);
    QCOMPARE(hints.size(), 2);
    QVERIFY(f.theTool.hint().startsWith(QStringLiteral("Click to begin")));
    f.theEditor.activateItem(f.mark(1, 0));
    QCOMPARE(hints.size(), 3);
    f.theStack.undo();
    QCOMPARE(hints.size(), 4);
    QVERIFY(f.theTool.hint().startsWith(QStringLiteral("Click to begin")));
}

void TestCounterKernel::ownCommandMakesNoSecondMarks()
{
    CounterFixture& f = *theFixture;
    f.click(QPoint(50, 60));
    const LmCvArrow* first = f.mark(1, 0);
    f.click(QPoint(150, 60));
    QCOMPARE(f.mark(1, 0), first);
    QCOMPARE(f.itemCount(), 2);
    QVERIFY(!f.theTool.theSelfChange);
}

MEASURE_TEST_MAIN(TestCounterKernel)
#include "TestCounterKernel.moc"
