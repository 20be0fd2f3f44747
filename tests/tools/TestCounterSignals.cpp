#include "CounterFixture.h"
#include "LmKernelObjectDataDescr.h"
#include "TestFont.h"

#include <memory>

/// Records that come from the kernel, as after undo and loading, and their colours and visibility.
class TestCounterSignals : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<CounterFixture>(); }
    void cleanup() { theFixture.reset(); }

    void createdRecordMakesItsMarks();
    void hiddenRecordMakesHiddenMarks();
    void knownIndexIsNotMadeTwice();
    void changedRecordMakesTheMarksAnew();
    void unknownIndexIsNotChanged();
    void oddPolygonMakesNoHalfMark();
    void valueThatIsNoPolygonMakesNoMarks();
    void unknownFontDoesNoHarm();
    void removedRecordTakesItsMarks();
    void visibilityGoesToAllMarks();
    void colorGoesToAllMarks();
    void otherTypesAndOwnChangesAreLeftAlone();
    void changesOfARecordThatIsGoneDoNoHarm();

private:
    std::unique_ptr<CounterFixture> theFixture;
};

void TestCounterSignals::createdRecordMakesItsMarks()
{
    CounterFixture& f = *theFixture;
    f.calibrate(100.0, QStringLiteral("mm"));
    f.theEditor.setZoom(0.5);
    f.insertRecord(3, {QPoint(90, 90), QPoint(190, 190)});
    QCOMPARE(f.texts(3), (QStringList{"7 #1", "7 #2"}));
    QCOMPARE(f.tips(3), (QList<QPoint>{QPoint(50, 60), QPoint(150, 160)}));
    for (LmCvArrow* mark : f.marks(3)) {
        QCOMPARE(QPoint(int(mark->x()), int(mark->y())), mark->theEndPoint + QPoint(20, -20));
        QCOMPARE(mark->getColor(), QColor(Qt::green));
        QCOMPARE(mark->theFont.family(), QStringLiteral("DejaVu Sans"));
        QCOMPARE(mark->theFont.pointSizeF(), 28.0);
        QCOMPARE(mark->theHeadLength, 20.0);
        QCOMPARE(mark->theStep, 4.0);
        QCOMPARE(mark->theUnit, QStringLiteral("mm"));
        QCOMPARE(mark->theLabel, QStringLiteral("Counter"));
        QVERIFY(mark->isVisible());
    }
    QVERIFY(!f.current());
    QCOMPARE(f.theStack.count(), 0);
}

void TestCounterSignals::hiddenRecordMakesHiddenMarks()
{
    CounterFixture& f = *theFixture;
    f.insertRecord(3, {QPoint(90, 90), QPoint(190, 190)}, false);
    QCOMPARE(f.marks(3).size(), 2);
    for (const LmCvArrow* mark : f.marks(3))
        QVERIFY(!mark->isVisible());
}

void TestCounterSignals::knownIndexIsNotMadeTwice()
{
    CounterFixture& f = *theFixture;
    f.insertRecord(3, {QPoint(90, 90)});
    const LmCvArrow* mark = f.mark(3, 0);
    f.theTool.slotObjectCreatedInKernel(f.kType, 3, f.record(3));
    QCOMPARE(f.mark(3, 0), mark);
    QCOMPARE(f.itemCount(), 1);
}

void TestCounterSignals::changedRecordMakesTheMarksAnew()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({2});
    f.theEditor.activateItem(f.mark(1, 1));
    LmParamKeyframeVector values = f.theKernel.getDataDescriptor(f.kType)->createKeyframeVector();
    values.setValue(
        f.kPos, QVariant::fromValue<QPolygon>(QPolygon({QPoint(100, 100), QPoint(101, 150), QPoint(60, 60),
                                                        QPoint(200, 200), QPoint(70, 50), QPoint(80, 90)})));
    f.record(1)->update(values);
    f.theKernel.announceObjectChanged(f.kType, 1);
    QCOMPARE(f.tips(1), (QList<QPoint>{QPoint(61, 120), QPoint(160, 170), QPoint(40, 60)}));
    QCOMPARE(f.texts(1), (QStringList{"1 #1", "1 #2", "1 #3"}));
    QVERIFY(!f.current());
    QCOMPARE(f.itemCount(), 3);
    QVERIFY(f.recordIsMarks(1));
}

void TestCounterSignals::unknownIndexIsNotChanged()
{
    CounterFixture& f = *theFixture;
    f.insertRecord(3, {QPoint(90, 90)});
    f.theTool.slotObjectChangedInKernel(f.kType, 8, f.record(3));
    QCOMPARE(f.theTool.theCounters.keys(), QList<int>{3});
}

void TestCounterSignals::oddPolygonMakesNoHalfMark()
{
    CounterFixture& f = *theFixture;
    f.insertRecord(3, {QPoint(90, 90), QPoint(190, 190)});
    LmParamKeyframeVector values = f.theKernel.getDataDescriptor(f.kType)->createKeyframeVector();
    for (const int size : {3, 1, 5, 0}) {
        QPolygon odd;
        for (int i = 0; i < size; ++i)
            odd << QPoint(50 + 10 * i, 60);
        values.setValue(f.kPos, QVariant::fromValue<QPolygon>(odd));
        f.record(3)->update(values);
        f.theKernel.announceObjectChanged(f.kType, 3);
        QCOMPARE(f.marks(3).size(), size / 2);
        QCOMPARE(f.itemCount(), size / 2);
        f.theTool.updateKernelCounter(3, false);
        QCOMPARE(f.points(3).size(), size == 1 ? 1 : size / 2 * 2); // no mark, nothing written
    }
}

void TestCounterSignals::valueThatIsNoPolygonMakesNoMarks()
{
    CounterFixture& f = *theFixture;
    f.insertRecord(3, {QPoint(90, 90), QPoint(190, 190)});
    f.record(3)->storeValue(f.kPos, -1, QStringLiteral("no points"));
    f.theKernel.announceObjectChanged(f.kType, 3);
    QCOMPARE(f.marks(3).size(), 0);
    QCOMPARE(f.itemCount(), 0);
    QVERIFY(!f.theTool.getCvObject(3));
    f.theKernel.announceObjectShow(f.kType, 3, false);
    f.theKernel.announceObjectColor(f.kType, 3, QColor(Qt::blue));
    delete f.theKernel.takeObject(f.kType, 3);
    QVERIFY(f.theTool.theCounters.isEmpty());
}

void TestCounterSignals::unknownFontDoesNoHarm()
{
    CounterFixture& f = *theFixture;
    f.insertRecord(3, {QPoint(90, 90)});
    LmParamKeyframeVector values = f.theKernel.getDataDescriptor(f.kType)->createKeyframeVector();
    values.setValue(f.kFont, QFont(QStringLiteral("no such font at all"), 11));
    f.record(3)->update(values);
    f.theKernel.announceObjectChanged(f.kType, 3);
    QCOMPARE(f.mark(3, 0)->theFont.family(), QStringLiteral("no such font at all"));
    QVERIFY(f.mark(3, 0)->theTextRect.width() > 10);
    f.theEditor.grab();
}

void TestCounterSignals::removedRecordTakesItsMarks()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({2, 3});
    const std::unique_ptr<LmKernelObjectData> taken(f.theKernel.takeObject(f.kType, 2));
    QCOMPARE(f.theTool.theCounters.keys(), QList<int>{1});
    QVERIFY(!f.current());
    QCOMPARE(f.itemCount(), 2);
    f.theTool.slotObjectRemovedInKernel(f.kType, 7);
    QCOMPARE(f.itemCount(), 2);
}

void TestCounterSignals::visibilityGoesToAllMarks()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({2, 2});
    f.theKernel.announceObjectShow(f.kType, 1, false);
    for (const LmCvArrow* mark : f.marks(1))
        QVERIFY(!mark->isVisible());
    for (const LmCvArrow* mark : f.marks(2))
        QVERIFY(mark->isVisible());
    f.theKernel.announceObjectShow(f.kType, 1, true);
    for (const LmCvArrow* mark : f.marks(1))
        QVERIFY(mark->isVisible());
    f.theKernel.announceObjectShow(f.kType, 9, true);
}

void TestCounterSignals::colorGoesToAllMarks()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({2, 2});
    f.theKernel.announceObjectColor(f.kType, 1, QColor(Qt::blue));
    for (LmCvArrow* mark : f.marks(1))
        QCOMPARE(mark->getColor(), QColor(Qt::blue));
    for (LmCvArrow* mark : f.marks(2))
        QCOMPARE(mark->getColor(), QColor(Qt::red));
    f.theKernel.announceObjectColor(f.kType, 9, QColor(Qt::blue));
}

void TestCounterSignals::otherTypesAndOwnChangesAreLeftAlone()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({2});
    const QList<LmCvArrow*> before = f.marks(1);
    f.record(1)->storeValue(f.kPos, -1, QVariant::fromValue<QPolygon>(QPolygon()));
    const auto send = [&f](int aType) {
        f.theTool.slotObjectChangedInKernel(aType, 1, f.record(1));
        f.theTool.slotObjectCreatedInKernel(aType, 5, f.record(1));
        f.theTool.slotObjectShowInKernel(aType, 1, false);
        f.theTool.slotObjectColorChangedInKernel(aType, 1, QColor(Qt::blue));
        f.theTool.slotObjectRemovedInKernel(aType, 1);
    };
    send(1105); // the marks' own number is no object type
    f.theTool.theSelfChange = true;
    send(f.kType);
    LmCvManipulator::theCurrentViewAnimated = true;
    f.theKernel.showFrame(2, false);
    f.theTool.theSelfChange = false;
    QCOMPARE(f.theTool.theCounters.keys(), QList<int>{1});
    QCOMPARE(f.marks(1), before);
    for (LmCvArrow* mark : f.marks(1)) {
        QVERIFY(mark->isVisible());
        QCOMPARE(mark->getColor(), QColor(Qt::red));
    }
}

void TestCounterSignals::changesOfARecordThatIsGoneDoNoHarm()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({2});
    // Taken behind the tool's back, as by a listener in the middle of a signal.
    f.theTool.theSelfChange = true;
    const std::unique_ptr<LmKernelObjectData> taken(f.theKernel.takeObject(f.kType, 1));
    f.theTool.theSelfChange = false;
    QCOMPARE(f.marks(1).size(), 2);
    f.theTool.recreateCanvasObjects(QPoint(), 0, true);
    f.theKernel.announceResolution(QSize(800, 600), QSize(400, 300));
    f.theTool.slotCanvasObjectChanged(f.mark(1, 0));
    f.theTool.showCvObject(f.mark(1, 0), false);
    f.theTool.setColorCvObject(f.mark(1, 0), QColor(Qt::blue));
    f.theTool.removeCvObject(f.mark(1, 0));
    QCOMPARE(f.marks(1).size(), 1);
    QVERIFY(!f.hasRecord(1));
}

MEASURE_TEST_MAIN(TestCounterSignals)
#include "TestCounterSignals.moc"
