#include "AutoCreateFixture.h"
#include "LmCvManipCounter.h"
#include "ModalAnswer.h"
#include "Q3CanvasRectangle.h"
#include "TestFont.h"

#include <QElapsedTimer>
#include <QMouseEvent>
#include <QPen>
#include <QSignalSpy>

#include <memory>

namespace {

constexpr int kCounterPoints = 3; // parameter of a counter's record
constexpr int kPatience = 500;    // ms, more than any search here takes

/// Works for so long; milliseconds.
void waste(int aTime)
{
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < aTime)
        QThread::yieldCurrentThread();
}

} // namespace

/// All things within a rubber rectangle.
class TestAutoCreateGroup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<AutoCreateFixture>(); }
    void cleanup() { theFixture.reset(); }

    void wayOfTenPixelsSearchesOneThing();
    void shortDragDrawsNothing();
    void rectangleIsBlackWithWhiteDashes();
    void rectangleHoldsBothPixelsAtItsFirstMoveOnly();
    void rectangleGoesInAllDirections_data();
    void rectangleGoesInAllDirections();
    void everythingInTheRectangleIsMadeInOneStep();
    void thingsOutsideTheRectangleAreLeft();
    void foundThingsStandWhereTheyAreSeen();
    void rectangleIsGoneAfterTheSearch();
    void searchThatFindsNothingPushesNoStep();
    void rectangleOutsideThePictureFindsNothing();
    void rectangleBeyondTheRegionOfInterestIsCutThere();
    void toolThatHasGoneLeavesTheRectangle();
    void toolThatGoesInTheMiddleEndsTheStep();
    void switchingToSingleKeepsTheRectangleOut();
    void escTakesTheRectangleAway();
    void otherToolTakesTheRectangleAway();
    void cancelledCreationLeavesNothingBehind();
    void cancelledCountingLeavesTheCounterAsItWas();
    void flatRectangleFindsNothing();
    void withoutAPictureNoRectangleIsDrawn();
    void forgottenRectangleIsGoneAtTheNextPress();
    void editorThatGoesTakesTheRectangleAlong();
    void foundThingsAreReported();
    void grayPictureIsSearched();

private:
    void paintFour();
    void rubber(const QPoint& aFrom, const QPoint& aTo) { theFixture->drag(aFrom, aTo); }

    std::unique_ptr<AutoCreateFixture> theFixture;
};

// Squares of 12 pixels on a dark ground, in two rows; image coordinates.
void TestAutoCreateGroup::paintFour()
{
    AutoCreateFixture& f = *theFixture;
    f.paint(QRect(0, 0, 400, 300), 30, 30, 30);
    for (const QPoint& corner : {QPoint(100, 100), QPoint(160, 100), QPoint(100, 160), QPoint(160, 160)})
        f.paint(QRect(corner, QSize(12, 12)), 200, 190, 180);
    f.choose("Thing");
    f.chooseGroup();
}

void TestAutoCreateGroup::wayOfTenPixelsSearchesOneThing()
{
    paintFour();
    AutoCreateFixture& f = *theFixture;
    f.press(QPoint(61, 71));
    f.move(QPoint(71, 71));
    QVERIFY(!f.theAuto.theOuterRubber);
    f.release(QPoint(71, 71));
    QCOMPARE(f.theMaker.theCreated, QList<QRect>{QRect(60, 70, 12, 12)});
}

void TestAutoCreateGroup::shortDragDrawsNothing()
{
    paintFour();
    AutoCreateFixture& f = *theFixture;
    f.press(QPoint(61, 71));
    f.move(QPoint(64, 74));
    QVERIFY(!f.theAuto.theOuterRubber);
    // Nor does it take in colours.
    f.paint(QRect(105, 105, 2, 2), 100, 100, 100);
    f.move(QPoint(65, 75));
    QCOMPARE(f.theAuto.theMinColour[0], f.theAuto.theSeedColour[0]);
    f.release(QPoint(65, 75));
}

void TestAutoCreateGroup::rectangleIsBlackWithWhiteDashes()
{
    paintFour();
    AutoCreateFixture& f = *theFixture;
    f.press(QPoint(50, 60));
    f.move(QPoint(90, 80));
    const Q3CanvasRectangle* outer = f.theAuto.theOuterRubber;
    const Q3CanvasRectangle* inner = f.theAuto.theInnerRubber;
    QVERIFY(outer && inner && outer->isVisible() && inner->isVisible());
    QCOMPARE(outer->pen(), QPen(QColor("black"), 0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    QCOMPARE(inner->pen(), QPen(QColor("white"), 0, Qt::DashLine, Qt::SquareCap, Qt::BevelJoin));
    QCOMPARE(outer->z(), 0.0);
    QCOMPARE(inner->z(), 1.0);
    f.release(QPoint(90, 80));
}

void TestAutoCreateGroup::rectangleHoldsBothPixelsAtItsFirstMoveOnly()
{
    paintFour();
    AutoCreateFixture& f = *theFixture;
    f.press(QPoint(50, 60));
    f.move(QPoint(90, 80));
    for (const Q3CanvasRectangle* rubber : {f.theAuto.theOuterRubber, f.theAuto.theInnerRubber})
        QCOMPARE(rubber->rect(), QRect(50, 60, 41, 21));
    f.move(QPoint(100, 90));
    for (const Q3CanvasRectangle* rubber : {f.theAuto.theOuterRubber, f.theAuto.theInnerRubber})
        QCOMPARE(rubber->rect(), QRect(50, 60, 50, 30));
    // Too near for a rectangle: it stays as it was.
    f.move(QPoint(52, 61));
    QCOMPARE(f.theAuto.theOuterRubber->rect(), QRect(50, 60, 50, 30));
    f.release(QPoint(52, 61));
}

void TestAutoCreateGroup::rectangleGoesInAllDirections_data()
{
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<QRect>("first");
    QTest::addColumn<QRect>("later");
    QTest::newRow("right down") << QPoint(140, 130) << QRect(120, 120, 21, 11) << QRect(120, 120, 20, 10);
    QTest::newRow("left down") << QPoint(100, 130) << QRect(100, 120, 21, 11) << QRect(100, 120, 20, 10);
    QTest::newRow("left up") << QPoint(100, 110) << QRect(100, 110, 21, 11) << QRect(100, 110, 20, 10);
    QTest::newRow("right up") << QPoint(140, 110) << QRect(120, 110, 21, 11) << QRect(120, 110, 20, 10);
}

void TestAutoCreateGroup::rectangleGoesInAllDirections()
{
    QFETCH(QPoint, to);
    QFETCH(QRect, first);
    QFETCH(QRect, later);
    AutoCreateFixture& f = *theFixture;
    f.chooseGroup();
    f.press(QPoint(120, 120));
    f.move(to);
    QCOMPARE(f.theAuto.theOuterRubber->rect(), first);
    f.move(to);
    QCOMPARE(f.theAuto.theOuterRubber->rect(), later);
    f.release(to);
}

void TestAutoCreateGroup::everythingInTheRectangleIsMadeInOneStep()
{
    paintFour();
    AutoCreateFixture& f = *theFixture;
    f.choose("Region");
    rubber(QPoint(40, 50), QPoint(160, 180));
    QCOMPARE(f.recordCount(), 4);
    QCOMPARE(f.theStack.count(), 1);
    QCOMPARE(f.theStack.text(0), QStringLiteral("Create objects"));
    f.theStack.undo();
    QCOMPARE(f.recordCount(), 0);
    f.theStack.redo();
    QCOMPARE(f.recordCount(), 4);
    for (int idx = 1; idx <= 4; ++idx)
        QVERIFY(f.recordIsItem(idx));
}

void TestAutoCreateGroup::thingsOutsideTheRectangleAreLeft()
{
    paintFour();
    rubber(QPoint(40, 50), QPoint(160, 100)); // the upper row
    QCOMPARE(theFixture->theMaker.theCreated, (QList<QRect>{QRect(60, 70, 12, 12), QRect(120, 70, 12, 12)}));
    QCOMPARE(theFixture->theMaker.theCreatedNames, (QStringList{"Thing", "Thing"}));
}

void TestAutoCreateGroup::foundThingsStandWhereTheyAreSeen()
{
    paintFour();
    AutoCreateFixture& f = *theFixture;
    f.theImage.setQRoi(QRect()); // the same picture, now seen from its own corner
    rubber(QPoint(80, 80), QPoint(210, 140));
    QCOMPARE(f.theMaker.theCreated, (QList<QRect>{QRect(100, 100, 12, 12), QRect(160, 100, 12, 12)}));
}

void TestAutoCreateGroup::rectangleIsGoneAfterTheSearch()
{
    paintFour();
    AutoCreateFixture& f = *theFixture;
    const qsizetype items = f.theEditor.canvas()->allItems().size();
    rubber(QPoint(40, 50), QPoint(160, 180));
    QVERIFY(!f.theAuto.theOuterRubber && !f.theAuto.theInnerRubber);
    QCOMPARE(f.theEditor.canvas()->allItems().size(), items);
}

void TestAutoCreateGroup::searchThatFindsNothingPushesNoStep()
{
    AutoCreateFixture& f = *theFixture;
    f.chooseGroup();
    QSignalSpy reports(&f.theAuto, &LmCvManipulator::signalReport);
    rubber(QPoint(40, 50), QPoint(160, 180)); // the picture is black
    QCOMPARE(f.theStack.count(), 0);
    QCOMPARE(reports.size(), 1);
}

void TestAutoCreateGroup::rectangleOutsideThePictureFindsNothing()
{
    paintFour();
    AutoCreateFixture& f = *theFixture;
    f.press(QPoint(10, 10));
    f.theAuto.thePressPos = QPoint(-300, -300);
    f.move(QPoint(-20, -20));
    f.release(QPoint(-20, -20));
    f.press(QPoint(10, 10));
    f.theAuto.thePressPos = QPoint(2000, 2000);
    f.move(QPoint(2500, 2400));
    f.release(QPoint(2500, 2400));
    QVERIFY(f.theMaker.theCreated.isEmpty());
    QCOMPARE(f.theStack.count(), 0);
}

// What lies beyond isn't shown, so nothing of it may be found.
void TestAutoCreateGroup::rectangleBeyondTheRegionOfInterestIsCutThere()
{
    paintFour();
    AutoCreateFixture& f = *theFixture;
    f.theImage.setQRoi(QRect(90, 90, 50, 50)); // one of the four
    f.press(QPoint(5, 5));
    f.theAuto.thePressPos = QPoint(-40, -40);
    f.move(QPoint(390, 290));
    f.release(QPoint(390, 290));
    QCOMPARE(f.theMaker.theCreated, QList<QRect>{QRect(10, 10, 12, 12)});
}

void TestAutoCreateGroup::toolThatHasGoneLeavesTheRectangle()
{
    paintFour();
    AutoCreateFixture& f = *theFixture;
    f.theKernel.unregisterManipulator(&f.theMaker);
    rubber(QPoint(40, 50), QPoint(160, 180));
    QVERIFY(f.theAuto.theOuterRubber && f.theAuto.theInnerRubber);
    QVERIFY(f.theMaker.theCreated.isEmpty());
    QCOMPARE(f.theStack.count(), 0);
}

void TestAutoCreateGroup::toolThatGoesInTheMiddleEndsTheStep()
{
    paintFour();
    AutoCreateFixture& f = *theFixture;
    auto maker = std::make_unique<MakerTool>(QStringList{"Passing"});
    maker->theObjectType = 1951;
    QVERIFY(f.theKernel.registerObjectType(maker.get(), 1951));
    f.theAuto.theNameToType.insert("Passing", 1951);
    f.theAuto.theCurrentTypeName = "Passing";
    f.theAuto.thePatience = 0;
    int calls = 0;
    maker->theOnCreate = [&] {
        ++calls;
        QTimer::singleShot(0, &f.theAuto, [&maker] { maker.reset(); });
        waste(120);
    };
    rubber(QPoint(40, 50), QPoint(160, 180));
    QVERIFY(!maker);
    QCOMPARE(calls, 1);
    QCOMPARE(f.theStack.count(), 1);
    // There is nobody to take what the next search finds.
    rubber(QPoint(40, 50), QPoint(160, 180));
    QVERIFY(f.theAuto.theOuterRubber);
}

void TestAutoCreateGroup::switchingToSingleKeepsTheRectangleOut()
{
    paintFour();
    AutoCreateFixture& f = *theFixture;
    f.press(QPoint(61, 71));
    f.move(QPoint(160, 180));
    QVERIFY(f.theAuto.theOuterRubber);
    f.theAuto.slotMenuItemActivated(0);
    f.release(QPoint(160, 180));
    // The release runs the search of the single mode.
    QCOMPARE(f.theMaker.theCreated, QList<QRect>{QRect(60, 70, 12, 12)});
}

void TestAutoCreateGroup::escTakesTheRectangleAway()
{
    paintFour();
    AutoCreateFixture& f = *theFixture;
    f.press(QPoint(40, 50));
    f.move(QPoint(160, 180));
    f.key(Qt::Key_Escape);
    QVERIFY(!f.theAuto.theOuterRubber && !f.theAuto.theInnerRubber);
    f.release(QPoint(160, 180));
    QVERIFY(f.theMaker.theCreated.isEmpty());
    QCOMPARE(f.theEditor.theCurrentManipulator, static_cast<LmCvManipulator*>(&f.theAuto));
}

void TestAutoCreateGroup::otherToolTakesTheRectangleAway()
{
    paintFour();
    AutoCreateFixture& f = *theFixture;
    f.press(QPoint(40, 50));
    f.move(QPoint(160, 180));
    f.theEditor.setCurrentManipulator(&f.theTool);
    QVERIFY(!f.theAuto.theOuterRubber && !f.theAuto.theInnerRubber);
}

// What was made before the dialog could be cancelled goes again, and nothing of it can be redone.
void TestAutoCreateGroup::cancelledCreationLeavesNothingBehind()
{
    paintFour();
    AutoCreateFixture& f = *theFixture;
    f.theAuto.theGroupMode = false;
    f.choose("Region");
    f.click(QPoint(65, 75));
    f.theStack.setClean();
    f.chooseGroup();
    f.theAuto.thePatience = kPatience;
    connect(&f.theKernel, &LmKSKernelData::signalObjectCreated, &f.theAuto, [] { waste(kPatience); });
    QSignalSpy created(&f.theKernel, &LmKSKernelData::signalObjectCreated);
    ModalAnswer answer(ModalAnswer::cancel());
    rubber(QPoint(40, 50), QPoint(160, 180));
    QVERIFY(answer.isDone());
    QVERIFY(created.size() > 0 && created.size() < 4);
    QCOMPARE(f.recordCount(), 1);
    QCOMPARE(f.itemCount(), 1);
    QCOMPARE(f.theStack.count(), 1);
    QVERIFY(!f.theStack.canRedo());
    QVERIFY(f.theStack.isClean());
    QVERIFY(f.theEditor.theCurrentTrack == f.item(1));
    QVERIFY(!QGuiApplication::overrideCursor());
}

void TestAutoCreateGroup::cancelledCountingLeavesTheCounterAsItWas()
{
    paintFour();
    AutoCreateFixture& f = *theFixture;
    LmCvManipCounter counter(nullptr);
    f.start(counter);
    f.click(QPoint(200, 200));
    const QVariant before = f.stored(counter.theObjectType, 1, kCounterPoints);
    f.theEditor.setCurrentManipulator(&f.theAuto);
    f.theAuto.theNameToType.insert("Counter", counter.theObjectType);
    f.theAuto.theCurrentTypeName = "Counter";
    f.theAuto.thePatience = kPatience;
    const auto wasting =
        connect(&f.theKernel, &LmKSKernelData::signalObjectChanged, &f.theAuto, [] { waste(kPatience); });
    ModalAnswer answer(ModalAnswer::cancel());
    rubber(QPoint(40, 50), QPoint(160, 180));
    disconnect(wasting);
    QVERIFY(answer.isDone());
    QCOMPARE(f.stored(counter.theObjectType, 1, kCounterPoints), before);
    QCOMPARE(counter.theCounters.value(1).size(), 1);
    QVERIFY(f.theEditor.theCurrentTrack == counter.getCvObject(1));
    // The next search goes on with it.
    rubber(QPoint(40, 50), QPoint(160, 180));
    QCOMPARE(counter.theCounters.value(1).size(), 5);
    f.theStack.setIndex(0);
    QVERIFY(counter.theCounters.isEmpty());
    f.theStack.clear();
}

// At the second move the height is that of the way, 0.
void TestAutoCreateGroup::flatRectangleFindsNothing()
{
    paintFour();
    AutoCreateFixture& f = *theFixture;
    QSignalSpy reports(&f.theAuto, &LmCvManipulator::signalReport);
    f.press(QPoint(40, 75));
    f.move(QPoint(100, 75));
    f.move(QPoint(160, 75));
    QCOMPARE(f.theAuto.theOuterRubber->rect(), QRect(40, 75, 120, 0));
    f.release(QPoint(160, 75));
    QVERIFY(f.theMaker.theCreated.isEmpty());
    QCOMPARE(reports.size(), 1);
}

void TestAutoCreateGroup::withoutAPictureNoRectangleIsDrawn()
{
    paintFour();
    AutoCreateFixture& f = *theFixture;
    f.theKernel.theCurrentImage = nullptr;
    f.press(QPoint(40, 50));
    f.move(QPoint(160, 180));
    QVERIFY(!f.theAuto.theOuterRubber && !f.theAuto.theInnerRubber);
    f.release(QPoint(160, 180));
    QCOMPARE(f.theStack.count(), 0);
}

void TestAutoCreateGroup::forgottenRectangleIsGoneAtTheNextPress()
{
    paintFour();
    AutoCreateFixture& f = *theFixture;
    const QString name = f.theAuto.theCurrentTypeName;
    f.theAuto.theCurrentTypeName = "Gone";
    rubber(QPoint(40, 50), QPoint(160, 180));
    QVERIFY(f.theAuto.theOuterRubber);
    f.theAuto.theCurrentTypeName = name;
    f.click(QPoint(65, 75));
    QVERIFY(!f.theAuto.theOuterRubber);
    QCOMPARE(f.theMaker.theCreated, QList<QRect>{QRect(60, 70, 12, 12)});
}

void TestAutoCreateGroup::editorThatGoesTakesTheRectangleAlong()
{
    AutoCreateFixture& f = *theFixture;
    LmCvManipAutoCreate tool(nullptr);
    {
        LmCvEditor editor;
        tool.setCvEditor(&editor);
        tool.theGroupMode = true;
        tool.thePressPos = QPoint(10, 10);
        QMouseEvent move(QEvent::MouseMove, QPointF(60, 60), QPointF(60, 60), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        tool.mouseMoveEvent(&move);
        QVERIFY(tool.theOuterRubber);
    }
    QVERIFY(!tool.theOuterRubber && !tool.theInnerRubber);
    tool.setCvEditor(&f.theEditor);
    QVERIFY(!tool.abortAction());
}

void TestAutoCreateGroup::foundThingsAreReported()
{
    paintFour();
    AutoCreateFixture& f = *theFixture;
    QSignalSpy reports(&f.theAuto, &LmCvManipulator::signalReport);
    rubber(QPoint(40, 50), QPoint(160, 180));
    QCOMPARE(reports.size(), 1);
    QVERIFY(reports[0][0].toString().contains(QStringLiteral("4")));
}

void TestAutoCreateGroup::grayPictureIsSearched()
{
    AutoCreateFixture& f = *theFixture;
    LmImage image(120, 90, 1, nullptr, 4);
    for (int y = 30; y < 42; ++y)
        for (int x = 40; x < 60; ++x)
            image.row(y)[x] = 180;
    f.theKernel.theCurrentImage = &image;
    f.choose("Thing");
    f.chooseGroup();
    rubber(QPoint(10, 10), QPoint(110, 80));
    f.theKernel.theCurrentImage = nullptr;
    QCOMPARE(f.theMaker.theCreated, QList<QRect>{QRect(40, 30, 20, 12)});
}

MEASURE_TEST_MAIN(TestAutoCreateGroup)
#include "TestAutoCreateGroup.moc"
