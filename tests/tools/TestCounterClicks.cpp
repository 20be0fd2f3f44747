#include "CounterFixture.h"
#include "LmAppSettings.h"
#include "LmCvDistance.h"
#include "TestFont.h"

#include <memory>

/// One mark a click: which counter gets it, how it is numbered, and which click takes one away again.
class TestCounterClicks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<CounterFixture>(); }
    void cleanup() { theFixture.reset(); }

    void firstClickMakesCounterOne();
    void newMarkStandsUpAndToTheRightOfThePoint();
    void furtherClicksAddToTheCurrentCounter();
    void clickWithNoMarkCurrentBeginsANewCounter();
    void clickAddsToTheCounterOfTheCurrentMark();
    void gapBelowTheGreatestIndexIsNotFilled();
    void newMarkTakesThePlaceOfTheCurrentOne();
    void newMarkTakesTheColorOfItsCounter();
    void newMarkTakesCalibrationAndZoom();
    void clickOnAMarkOfTheCurrentCounterTakesItAway();
    void clickOnTheCurrentMarkMakesTheOneBeforeCurrent();
    void clickOnTheCurrentFirstMarkMakesTheSecondCurrent();
    void clickOnTheOnlyMarkRemovesTheCounter();
    void clickOnAMarkOfAnotherCounterAddsOne();
    void clickOnAnyMarkWithNoneCurrentBeginsACounter();
    void withoutTheCheckNothingIsTakenAway();
    void tenthCounterIsCalledOne();
    void pressTellsThePointAndTakesTheEvent();
    void foreignCurrentItemIsNoCounter();

private:
    std::unique_ptr<CounterFixture> theFixture;
};

void TestCounterClicks::firstClickMakesCounterOne()
{
    CounterFixture& f = *theFixture;
    f.click(QPoint(50, 60));
    QCOMPARE(f.theTool.theCounters.keys(), QList<int>{1});
    QCOMPARE(f.texts(1), QStringList{QStringLiteral("1 #1")});
    QCOMPARE(f.tips(1), QList<QPoint>{QPoint(50, 60)});
    QVERIFY(f.theTool.theCvObjects.isEmpty());
    QCOMPARE(f.recordCount(), 1);
    QVERIFY(f.recordIsMarks(1));
    QCOMPARE(f.theStack.count(), 1);
    QCOMPARE(f.theTool.theLastPress, QPoint(50, 60));
}

void TestCounterClicks::newMarkStandsUpAndToTheRightOfThePoint()
{
    CounterFixture& f = *theFixture;
    QCOMPARE(f.theTool.createCounterElement(QPoint(100, 120), true), 1);
    const LmCvArrow* mark = f.mark(1, 0);
    QCOMPARE(f.theTool.theCreatedArrow, mark);
    QCOMPARE(mark->rtti(), 1105);
    QCOMPARE(mark->theLabel, QStringLiteral("Counter"));
    QCOMPARE(QPointF(mark->x(), mark->y()), QPointF(120, 100));
    QCOMPARE(mark->theEndPoint, QPoint(100, 120));
    QCOMPARE(mark->theTextRect.bottom(), 100);
    QCOMPARE(mark->theTextRect.left(), 120 - mark->theTextRect.width() / 2);
    QVERIFY(mark->isVisible());
    QCOMPARE(mark->theManipulator, &f.theTool);
    QCOMPARE(mark->theFont.family(), QStringLiteral("Lucida Grande"));
}

void TestCounterClicks::furtherClicksAddToTheCurrentCounter()
{
    CounterFixture& f = *theFixture;
    for (const QPoint& point : {QPoint(50, 60), QPoint(150, 60), QPoint(50, 160)})
        f.click(point);
    QCOMPARE(f.theTool.theCounters.size(), 1);
    QCOMPARE(f.texts(1), (QStringList{"1 #1", "1 #2", "1 #3"}));
    QCOMPARE(f.tips(1), (QList<QPoint>{QPoint(50, 60), QPoint(150, 60), QPoint(50, 160)}));
    QVERIFY(f.recordIsMarks(1));
    QCOMPARE(f.theStack.count(), 3);
}

void TestCounterClicks::clickWithNoMarkCurrentBeginsANewCounter()
{
    CounterFixture& f = *theFixture;
    f.click(QPoint(50, 60));
    f.click(QPoint(150, 60));
    f.theEditor.activateItem(nullptr);
    f.click(QPoint(50, 160));
    QCOMPARE(f.theTool.theCounters.keys(), (QList<int>{1, 2}));
    QCOMPARE(f.texts(2), QStringList{QStringLiteral("2 #1")});
    f.click(QPoint(150, 160));
    f.click(QPoint(250, 160));
    QCOMPARE(f.texts(2), (QStringList{"2 #1", "2 #2", "2 #3"}));
    QCOMPARE(f.texts(1).size(), 2);
}

void TestCounterClicks::clickAddsToTheCounterOfTheCurrentMark()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({2, 1});
    f.theEditor.activateItem(f.mark(1, 0));
    f.click(QPoint(200, 200));
    QCOMPARE(f.texts(1), (QStringList{"1 #1", "1 #2", "1 #3"}));
    QCOMPARE(f.tips(1).last(), QPoint(200, 200));
    QCOMPARE(f.texts(2).size(), 1);
    QCOMPARE(f.current(), f.mark(1, 2));
}

void TestCounterClicks::gapBelowTheGreatestIndexIsNotFilled()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({1, 1, 1});
    f.theTool.removeCounter(f.mark(2, 0));
    f.theEditor.activateItem(nullptr);
    QCOMPARE(f.theTool.createCounterElement(QPoint(200, 200), true), 4);
    f.theTool.removeCounter(f.mark(4, 0));
    f.theTool.removeCounter(f.mark(3, 0));
    QCOMPARE(f.theTool.createCounterElement(QPoint(200, 200), true), 2);
}

void TestCounterClicks::newMarkTakesThePlaceOfTheCurrentOne()
{
    CounterFixture& f = *theFixture;
    f.click(QPoint(50, 60));
    QCOMPARE(f.current(), f.mark(1, 0));
    QVERIFY(f.mark(1, 0)->isActive());
    f.click(QPoint(150, 60));
    QCOMPARE(f.current(), f.mark(1, 1));
    QVERIFY(f.mark(1, 1)->isActive());
    QVERIFY(!f.mark(1, 0)->isActive());
}

void TestCounterClicks::newMarkTakesTheColorOfItsCounter()
{
    CounterFixture& f = *theFixture;
    LmAppSettings::theGridColor = QColor(Qt::cyan);
    f.click(QPoint(50, 60));
    QCOMPARE(f.mark(1, 0)->getColor(), QColor(Qt::cyan));
    f.theTool.setColorCvObject(f.mark(1, 0), QColor(Qt::blue));
    LmAppSettings::theGridColor = QColor(Qt::yellow);
    f.click(QPoint(150, 60));
    QCOMPARE(f.mark(1, 1)->getColor(), QColor(Qt::blue));
    f.theEditor.activateItem(nullptr);
    f.click(QPoint(150, 160));
    QCOMPARE(f.mark(2, 0)->getColor(), QColor(Qt::yellow));
    QCOMPARE(f.stored(f.kType, 2, f.kCol).value<QColor>(), QColor(Qt::yellow));
}

void TestCounterClicks::newMarkTakesCalibrationAndZoom()
{
    CounterFixture& f = *theFixture;
    f.calibrate(100.0, QStringLiteral("mm")); // 400 pixels
    f.theEditor.setZoom(0.5);
    f.click(QPoint(50, 60));
    QCOMPARE(f.mark(1, 0)->theStep, 4.0);
    QCOMPARE(f.mark(1, 0)->theUnit, QStringLiteral("mm"));
    QCOMPARE(f.mark(1, 0)->theHeadLength, 20.0);
    QCOMPARE(f.mark(1, 0)->theFont.pointSizeF(), 24.0);
}

void TestCounterClicks::clickOnAMarkOfTheCurrentCounterTakesItAway()
{
    CounterFixture& f = *theFixture;
    for (const QPoint& point : {QPoint(50, 60), QPoint(150, 60), QPoint(50, 160)})
        f.click(point);
    const LmCvArrow* third = f.mark(1, 2);
    f.click(QPoint(150, 60)); // the tip of mark 2
    QCOMPARE(f.texts(1), (QStringList{"1 #1", "1 #2"}));
    QCOMPARE(f.tips(1), (QList<QPoint>{QPoint(50, 60), QPoint(50, 160)}));
    QCOMPARE(f.mark(1, 1), third);
    QCOMPARE(f.current(), third); // it was current and stays it
    QVERIFY(f.recordIsMarks(1));
    QCOMPARE(f.itemCount(), 2);
    QCOMPARE(f.theTool.createCounterElement(QPoint(70, 33), true), -1); // the label of mark 1
    QCOMPARE(f.texts(1), QStringList{QStringLiteral("1 #1")});
    QCOMPARE(f.tips(1), QList<QPoint>{QPoint(50, 160)});
}

void TestCounterClicks::clickOnTheCurrentMarkMakesTheOneBeforeCurrent()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({3});
    f.theTool.createCounterElement(f.tips(1).at(2), true);
    QCOMPARE(f.current(), f.mark(1, 1));
    QVERIFY(f.mark(1, 1)->isActive());
    QVERIFY(!f.mark(1, 0)->isActive());
}

void TestCounterClicks::clickOnTheCurrentFirstMarkMakesTheSecondCurrent()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({3});
    LmCvArrow* second = f.mark(1, 1);
    f.theEditor.activateItem(f.mark(1, 0));
    QSignalSpy currents(&f.theEditor, &LmCvEditor::signalCurrentObjectChanged);
    f.theTool.createCounterElement(f.tips(1).at(0), true);
    QCOMPARE(f.mark(1, 0), second);
    QCOMPARE(f.current(), second);
    QVERIFY(second->isActive());
    QCOMPARE(second->theText, QStringLiteral("1 #1"));
    QCOMPARE(currents.size(), 1);
}

void TestCounterClicks::clickOnTheOnlyMarkRemovesTheCounter()
{
    CounterFixture& f = *theFixture;
    f.click(QPoint(50, 60));
    f.click(QPoint(50, 60));
    QVERIFY(f.theTool.theCounters.isEmpty());
    QCOMPARE(f.itemCount(), 0);
    QCOMPARE(f.recordCount(), 0);
    QVERIFY(!f.current());
    QCOMPARE(f.theStack.count(), 2); // one command took the record away
    f.theStack.undo();
    QCOMPARE(f.recordCount(), 1);
    QCOMPARE(f.texts(1), QStringList{QStringLiteral("1 #1")});
}

void TestCounterClicks::clickOnAMarkOfAnotherCounterAddsOne()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({1, 1});
    const QPoint tip = f.tips(1).first();
    QCOMPARE(f.theTool.createCounterElement(tip, true), 2);
    QCOMPARE(f.texts(2), (QStringList{"2 #1", "2 #2"}));
    QCOMPARE(f.tips(2).last(), tip);
    QCOMPARE(f.texts(1), QStringList{QStringLiteral("1 #1")});
    QCOMPARE(f.current(), f.mark(2, 1));
}

void TestCounterClicks::clickOnAnyMarkWithNoneCurrentBeginsACounter()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({1});
    f.theEditor.activateItem(nullptr);
    f.click(f.tips(1).first());
    QCOMPARE(f.theTool.theCounters.keys(), (QList<int>{1, 2}));
    QCOMPARE(f.texts(1).size(), 1);
}

void TestCounterClicks::withoutTheCheckNothingIsTakenAway()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({1});
    QCOMPARE(f.theTool.createCounterElement(f.tips(1).first(), false), 1);
    QCOMPARE(f.texts(1), (QStringList{"1 #1", "1 #2"}));
}

void TestCounterClicks::tenthCounterIsCalledOne()
{
    CounterFixture& f = *theFixture;
    f.insertRecord(9, {QPoint(90, 90)});
    QStringList heard;
    connect(&f.theEditor, &LmCvEditor::signalCurrentObjectChanged, this,
            [&heard](LmCvObject* aItem) { heard.append(static_cast<LmCvArrow*>(aItem)->theText); });
    f.click(QPoint(150, 160));
    QCOMPARE(heard, QStringList{QStringLiteral("10 #1")}); // before it is stored
    QCOMPARE(f.texts(10), QStringList{QStringLiteral("1 #1")});
    QCOMPARE(f.name(10), QStringLiteral("1"));
    f.click(QPoint(250, 160));
    QCOMPARE(heard.last(), QStringLiteral("10 #2"));
    QCOMPARE(f.texts(10), (QStringList{"1 #1", "1 #2"}));
}

void TestCounterClicks::pressTellsThePointAndTakesTheEvent()
{
    CounterFixture& f = *theFixture;
    const auto send = [&f](QEvent::Type aType, const QPoint& aPoint, auto aHandler) {
        QMouseEvent event(aType, aPoint, aPoint, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        event.ignore();
        (f.theTool.*aHandler)(&event);
        return event.isAccepted();
    };
    QVERIFY(send(QEvent::MouseButtonPress, QPoint(30, 40), &LmCvManipulator::mousePressEvent));
    QCOMPARE(f.theTool.theLastPress, QPoint(30, 40));
    QCOMPARE(f.texts(1).size(), 1);
    send(QEvent::MouseMove, QPoint(130, 140), &LmCvManipulator::mouseMoveEvent);
    send(QEvent::MouseButtonRelease, QPoint(130, 140), &LmCvManipulator::mouseReleaseEvent);
    QCOMPARE(f.theTool.theLastPress, QPoint(30, 40));
    QCOMPARE(f.tips(1), QList<QPoint>{QPoint(30, 40)});
    QCOMPARE(f.theStack.count(), 1);
}

void TestCounterClicks::foreignCurrentItemIsNoCounter()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({1});
    auto* distance = new LmCvDistance(nullptr, f.theEditor.canvas(), QStringLiteral("1"), &f.theEditor);
    f.theEditor.activateItem(distance);
    QCOMPARE(f.theTool.createCounterElement(QPoint(200, 200), true), 2);
    QVERIFY(!distance->isActive());
    QCOMPARE(f.current(), f.mark(2, 0));
}

MEASURE_TEST_MAIN(TestCounterClicks)
#include "TestCounterClicks.moc"
