#include "AngleFixture.h"
#include "LmAppSettings.h"
#include "TestFont.h"

#include <QMouseEvent>
#include <QSet>
#include <QSignalSpy>

#include <memory>

namespace {

const QPoint theVertex(100, 150);
const QPoint theRight(180, 150);
const QPoint theUp(100, 70);

// For what the editor doesn't send: straight to the tool, ignored until it is accepted.
struct Mouse : QMouseEvent
{
    Mouse(Type aType, const QPoint& aPoint, Qt::MouseButton aButton = Qt::LeftButton)
        : QMouseEvent(aType, aPoint, aPoint, aButton, aButton, Qt::NoModifier)
    {
        ignore();
    }
};

} // namespace

/// Drawing an angle in two strokes.
class TestAngleTool : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<AngleFixture>(); }
    void cleanup() { theFixture.reset(); }

    void firstStrokePlacesBothArms();
    void secondStrokePlacesTheFirstArm();
    void endOfTheSecondStrokeMakesTheRecord();
    void clickWithoutADragLeavesTheArmsAtTenByTen();
    void secondPressChangesNothingByItself();
    void secondStrokeKeepsTheMouseOverOtherItems();
    void shiftSnapsBothStrokesAboutTheVertex();
    void labelShowsTheLiveValueInBothStrokes();
    void newItemTakesColourZoomAndIndex();
    void rightButtonDrawsAsWell();
    void moveAndReleaseWithoutPressAreNotTaken();
    void selectionArrowDrawsNothing();
    void drawingIsOneUndoStep();
    void eachStageHasItsHint();

private:
    LmCvAngle& current() { return *theFixture->theTool.theCurrent; }
    QList<QPoint> currentPoints() { return AngleFixture::pointsOf(current()); }

    std::unique_ptr<AngleFixture> theFixture;
};

void TestAngleTool::firstStrokePlacesBothArms()
{
    AngleFixture& f = *theFixture;
    f.press(theVertex);
    QVERIFY(f.theTool.theCurrent);
    QCOMPARE(currentPoints(), (QList<QPoint>{theVertex, QPoint(110, 160), QPoint(110, 160)}));
    QVERIFY(current().isVisible());
    QVERIFY(current().isActive());
    QCOMPARE(f.theEditor.theCurrentTrack, f.theTool.theCurrent);
    f.move(QPoint(150, 120));
    QCOMPARE(currentPoints(), (QList<QPoint>{theVertex, QPoint(150, 120), QPoint(150, 120)}));
    f.move(theRight);
    QCOMPARE(f.theTool.theStage, 0);
    QVERIFY(!f.theEditor.mouseGrabber());
    f.release(theRight);
    QCOMPARE(f.theTool.theStage, 1);
    QCOMPARE(f.theEditor.mouseGrabber(), &f.theTool);
    QCOMPARE(currentPoints(), (QList<QPoint>{theVertex, theRight, theRight}));
    QCOMPARE(f.theStack.count(), 0);
    QVERIFY(f.theTool.theCvObjects.isEmpty());
}

void TestAngleTool::secondStrokePlacesTheFirstArm()
{
    AngleFixture& f = *theFixture;
    f.startDrawing(theVertex, theRight);
    f.hover(QPoint(120, 60));
    QCOMPARE(currentPoints(), (QList<QPoint>{theVertex, QPoint(120, 60), theRight}));
    f.hover(theUp);
    QCOMPARE(currentPoints(), (QList<QPoint>{theVertex, theUp, theRight}));
    f.press(theUp);
    f.move(QPoint(90, 60)); // the arm follows until the button is let go
    QCOMPARE(currentPoints(), (QList<QPoint>{theVertex, QPoint(90, 60), theRight}));
    f.release(QPoint(90, 60));
    QCOMPARE(f.canvasPoints(1), (QList<QPoint>{theVertex, QPoint(90, 60), theRight}));
}

void TestAngleTool::endOfTheSecondStrokeMakesTheRecord()
{
    AngleFixture& f = *theFixture;
    f.draw(theVertex, theUp, theRight);
    QCOMPARE(f.itemCount(), 1); // the tool's own command makes no second item
    QCOMPARE(f.theTool.theCvObjects.keys(), QList<int>{1});
    QVERIFY(!f.theTool.theCurrent);
    QCOMPARE(f.theTool.theStage, 0);
    QVERIFY(!f.theEditor.mouseGrabber());
    QVERIFY(!f.theTool.theSelfChange);
    // The origin is (40, 30); nothing is rounded.
    QCOMPARE(f.storedPoints(1), (QList<QPoint>{QPoint(140, 180), QPoint(0, -80), QPoint(80, 0)}));
    QCOMPARE(f.stored(1106, 1, AngleFixture::kVis), QVariant(true));
    QCOMPARE(f.stored(1106, 1, AngleFixture::kCol), QVariant(QColor(Qt::red)));
    QCOMPARE(f.stored(1106, 1, AngleFixture::kDispv), QVariant(QString()));
    QVERIFY(!f.record(1)->theAnimated);
    // The pointer is free again.
    f.hover(QPoint(10, 10));
    QCOMPARE(f.canvasPoints(1), (QList<QPoint>{theVertex, theUp, theRight}));
}

void TestAngleTool::clickWithoutADragLeavesTheArmsAtTenByTen()
{
    AngleFixture& f = *theFixture;
    f.click(theVertex);
    QCOMPARE(f.theTool.theStage, 1);
    QCOMPARE(currentPoints(), (QList<QPoint>{theVertex, QPoint(110, 160), QPoint(110, 160)}));
    f.hover(theUp);
    f.click(theUp);
    QCOMPARE(f.storedPoints(1), (QList<QPoint>{QPoint(140, 180), QPoint(0, -80), QPoint(10, 10)}));
    // Two clicks at one place: two arms that coincide.
    f.click(QPoint(250, 150));
    f.click(QPoint(250, 150));
    QCOMPARE(f.storedPoints(2), (QList<QPoint>{QPoint(290, 180), QPoint(10, 10), QPoint(10, 10)}));
}

void TestAngleTool::secondPressChangesNothingByItself()
{
    AngleFixture& f = *theFixture;
    f.startDrawing(theVertex, theRight);
    f.hover(theUp);
    const LmCvAngle* item = f.theTool.theCurrent;
    Mouse press(QEvent::MouseButtonPress, QPoint(20, 20));
    f.theTool.mousePressEvent(&press);
    QVERIFY(press.isAccepted());
    QCOMPARE(f.theTool.theCurrent, item);
    QCOMPARE(f.theTool.theStage, 1);
    QCOMPARE(f.theTool.thePressPoint, theVertex);
    QCOMPARE(currentPoints(), (QList<QPoint>{theVertex, theUp, theRight}));
    QCOMPARE(f.itemCount(), 1);
    QCOMPARE(f.theStack.count(), 0);
}

void TestAngleTool::secondStrokeKeepsTheMouseOverOtherItems()
{
    AngleFixture& f = *theFixture;
    f.draw(theVertex, theUp, theRight);
    f.startDrawing(QPoint(200, 50), QPoint(260, 50));
    f.hover(theUp); // the head of the first angle
    f.click(theUp);
    QCOMPARE(f.canvasPoints(2), (QList<QPoint>{QPoint(200, 50), theUp, QPoint(260, 50)}));
    QCOMPARE(f.canvasPoints(1), (QList<QPoint>{theVertex, theUp, theRight}));
    QCOMPARE(f.theStack.count(), 2);
}

void TestAngleTool::shiftSnapsBothStrokesAboutTheVertex()
{
    AngleFixture& f = *theFixture;
    f.drag(theVertex, QPoint(180, 158), Qt::ShiftModifier); // 5.7 degrees
    QCOMPARE(current().theEnd2, theRight);
    f.hover(QPoint(105, 70), Qt::ShiftModifier); // 86 degrees
    QCOMPARE(current().theEnd1, theUp);
    f.hover(QPoint(50, 103), Qt::ShiftModifier); // 43 degrees: 50 to the left, so 50 up
    QCOMPARE(current().theEnd1, QPoint(50, 100));
    f.hover(QPoint(50, 103));
    QCOMPARE(current().theEnd1, QPoint(50, 103));
    QCOMPARE(current().theEnd2, theRight);
}

void TestAngleTool::labelShowsTheLiveValueInBothStrokes()
{
    AngleFixture& f = *theFixture;
    LmCvManipulator::theLastUsedValueName = QStringLiteral("Angle");
    f.calibrate(100.0, QStringLiteral("mm")); // plays no part
    f.press(theVertex);
    QCOMPARE(current().theDisplayValue, QString());
    f.move(theRight);
    QCOMPARE(current().theDisplayValue, QStringLiteral("0.00°"));
    f.release(theRight);
    f.hover(theUp);
    QCOMPARE(current().theDisplayValue, QStringLiteral("90.00°"));
    f.hover(QPoint(100, 230));
    QCOMPARE(current().theDisplayValue, QStringLiteral("270.00°"));
    f.hover(QPoint(150, 100));
    f.click(QPoint(150, 100));
    QCOMPARE(f.item(1)->labelText(), QStringLiteral(" 1 <45.00°> "));
    QCOMPARE(f.stored(1106, 1, AngleFixture::kDispv), QVariant(QStringLiteral("Angle")));
}

void TestAngleTool::newItemTakesColourZoomAndIndex()
{
    AngleFixture& f = *theFixture;
    LmAppSettings::theGridColor = QColor(10, 200, 30);
    f.calibrate(50.0, QStringLiteral("mm"));
    f.theEditor.setZoom(0.5);
    f.draw(theVertex, theUp, theRight);
    f.draw(QPoint(220, 150), QPoint(220, 70), QPoint(300, 150));
    QCOMPARE(f.theTool.theCvObjects.keys(), (QList<int>{1, 2}));
    LmCvAngle* item = f.item(2);
    QCOMPARE(item->getColor(), QColor(10, 200, 30));
    QCOMPARE(f.stored(1106, 2, AngleFixture::kCol), QVariant(QColor(10, 200, 30)));
    QCOMPARE(item->theStep, 8.0);
    QCOMPARE(item->theUnit, QStringLiteral("mm"));
    QCOMPARE(item->theArrowLength, 20.0);
    QCOMPARE(item->theLabel, QStringLiteral("2"));
    QVERIFY(item->isActive() && !f.item(1)->isActive());
}

void TestAngleTool::rightButtonDrawsAsWell()
{
    AngleFixture& f = *theFixture;
    const auto send = [&f](QEvent::Type aType, const QPoint& aPoint) {
        Mouse event(aType, aPoint, Qt::RightButton);
        if (aType == QEvent::MouseButtonPress)
            f.theTool.mousePressEvent(&event);
        else if (aType == QEvent::MouseMove)
            f.theTool.mouseMoveEvent(&event);
        else
            f.theTool.mouseReleaseEvent(&event);
        return event.isAccepted();
    };
    QVERIFY(send(QEvent::MouseButtonPress, theVertex));
    QVERIFY(send(QEvent::MouseMove, theRight));
    QVERIFY(send(QEvent::MouseButtonRelease, theRight));
    QVERIFY(send(QEvent::MouseMove, theUp));
    QVERIFY(send(QEvent::MouseButtonPress, theUp));
    QVERIFY(send(QEvent::MouseButtonRelease, theUp));
    QCOMPARE(f.canvasPoints(1), (QList<QPoint>{theVertex, theUp, theRight}));
}

void TestAngleTool::moveAndReleaseWithoutPressAreNotTaken()
{
    AngleFixture& f = *theFixture;
    Mouse move(QEvent::MouseMove, theVertex);
    move.accept();
    f.theTool.mouseMoveEvent(&move);
    QVERIFY(!move.isAccepted());
    for (const bool accepted : {true, false}) {
        Mouse release(QEvent::MouseButtonRelease, theVertex);
        release.setAccepted(accepted);
        f.theTool.mouseReleaseEvent(&release);
        QCOMPARE(release.isAccepted(), accepted);
    }
    QCOMPARE(f.theTool.theStage, 0);
    QVERIFY(!f.theEditor.mouseGrabber());
}

void TestAngleTool::selectionArrowDrawsNothing()
{
    AngleFixture& f = *theFixture;
    f.theEditor.setCurrentManipulator(nullptr);
    f.draw(theVertex, theUp, theRight);
    QCOMPARE(f.itemCount(), 0);
    QCOMPARE(f.theStack.count(), 0);
}

void TestAngleTool::drawingIsOneUndoStep()
{
    AngleFixture& f = *theFixture;
    f.draw(theVertex, theUp, theRight);
    QCOMPARE(f.theStack.count(), 1);
    QVERIFY2(f.theStack.text(0).contains(QStringLiteral("Angle 1")), qPrintable(f.theStack.text(0)));
    f.theStack.undo();
    QCOMPARE(f.itemCount(), 0);
    QVERIFY(!f.hasRecord(1));
    f.theStack.redo();
    QCOMPARE(f.canvasPoints(1), (QList<QPoint>{theVertex, theUp, theRight}));
}

void TestAngleTool::eachStageHasItsHint()
{
    AngleFixture& f = *theFixture;
    const QSignalSpy told(&f.theTool, &LmCvManipulator::signalHintChanged);
    const QString idle = f.theTool.hint();
    QVERIFY2(idle.contains(QStringLiteral("vertex")), qPrintable(idle));
    f.press(theVertex);
    QCOMPARE(told.size(), 1);
    const QString first = f.theTool.hint();
    QVERIFY2(first.contains(QStringLiteral("Release")), qPrintable(first));
    f.move(theRight);
    QCOMPARE(told.size(), 1);
    f.release(theRight);
    QCOMPARE(told.size(), 2);
    const QString second = f.theTool.hint();
    QVERIFY2(second.contains(QStringLiteral("other arm")), qPrintable(second));
    f.click(theUp);
    QCOMPARE(told.size(), 3);
    QCOMPARE(f.theTool.hint(), idle);
    QCOMPARE((QSet<QString>{idle, first, second}.size()), 3);
}

MEASURE_TEST_MAIN(TestAngleTool)
#include "TestAngleTool.moc"
