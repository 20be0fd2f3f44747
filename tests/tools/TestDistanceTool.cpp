#include "DistanceFixture.h"
#include "LmAppSettings.h"
#include "TestFont.h"

#include <QMouseEvent>

#include <memory>

namespace {

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

class TestDistanceTool : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<DistanceFixture>(); }
    void cleanup() { theFixture.reset(); }

    void dragMakesAnItemAndARecord();
    void drawingWorksInAllDirections_data();
    void drawingWorksInAllDirections();
    void newItemIsTheCurrentOne();
    void newItemTakesColourStepAndZoom();
    void labelShowsTheLiveValueWhileDrawing();
    void labelReadsTheRecordAfterTheRelease();
    void shiftSnapsTheEndBeingDrawn();
    void clickMakesALineOfLengthZero();
    void rightButtonDrawsAsWell();
    void pressWhileDrawingLeavesTheEarlierItem();
    void moveAndReleaseWithoutPressAreNotTaken();
    void selectionArrowDrawsNothing();
    void drawingIsOneUndoStep();
    void indexIsTheGreatestPlusOne();

private:
    std::unique_ptr<DistanceFixture> theFixture;
};

void TestDistanceTool::dragMakesAnItemAndARecord()
{
    DistanceFixture& f = *theFixture;
    f.drag(QPoint(20, 30), QPoint(121, 80));
    QCOMPARE(f.itemCount(), 1); // the tool's own command makes no second item
    QCOMPARE(f.theTool.theCvObjects.keys(), QList<int>{1});
    QVERIFY(f.theTool.theCurrent == nullptr);
    QVERIFY(!f.theTool.theSelfChange);
    QCOMPARE(f.item(1)->theStart, QPoint(20, 30));
    QCOMPARE(f.item(1)->theEnd, QPoint(121, 80));
    QVERIFY(f.item(1)->isVisible());
    // The middle (70.5, 55) rounds to (71, 55); the origin is (40, 30).
    QCOMPARE(f.pos(1), QPoint(111, 85));
    QCOMPARE(f.ep(1), QPoint(50, 25));
    QCOMPARE(f.stored(1102, 1, DistanceFixture::kVis), QVariant(true));
    QCOMPARE(f.stored(1102, 1, DistanceFixture::kCol), QVariant(QColor(Qt::red)));
    QCOMPARE(f.stored(1102, 1, DistanceFixture::kDispv), QVariant(QString()));
    QVERIFY(!f.record(1)->theAnimated);
}

void TestDistanceTool::drawingWorksInAllDirections_data()
{
    QTest::addColumn<QPoint>("end");
    QTest::addColumn<QPoint>("pos");
    QTest::addColumn<QPoint>("ep");
    // From (100, 100), that is (140, 130) in the image.
    QTest::newRow("right") << QPoint(160, 100) << QPoint(170, 130) << QPoint(30, 0);
    QTest::newRow("left") << QPoint(40, 100) << QPoint(110, 130) << QPoint(-30, 0);
    QTest::newRow("up") << QPoint(100, 40) << QPoint(140, 100) << QPoint(0, -30);
    QTest::newRow("down") << QPoint(100, 160) << QPoint(140, 160) << QPoint(0, 30);
    // Odd extents: 64.5 and 149.5 round up, so the vector to the end is longer to the upper left by one.
    QTest::newRow("odd, left and up") << QPoint(29, 29) << QPoint(105, 95) << QPoint(-36, -36);
    QTest::newRow("odd, right and down") << QPoint(199, 199) << QPoint(190, 180) << QPoint(49, 49);
}

void TestDistanceTool::drawingWorksInAllDirections()
{
    QFETCH(QPoint, end);
    QFETCH(QPoint, pos);
    QFETCH(QPoint, ep);
    theFixture->drag(QPoint(100, 100), end);
    QCOMPARE(theFixture->pos(1), pos);
    QCOMPARE(theFixture->ep(1), ep);
    QCOMPARE(theFixture->item(1)->theEnd, end);
}

void TestDistanceTool::newItemIsTheCurrentOne()
{
    DistanceFixture& f = *theFixture;
    f.drag(QPoint(20, 30), QPoint(120, 30));
    QCOMPARE(f.theEditor.theCurrentTrack, f.item(1));
    QVERIFY(f.item(1)->isActive());
    f.press(QPoint(20, 90));
    QVERIFY(!f.item(1)->isActive());
    QVERIFY(f.theTool.theCurrent);
    QVERIFY(f.theTool.theCurrent->isActive());
    QCOMPARE(f.theEditor.theCurrentTrack, f.theTool.theCurrent);
    f.release(QPoint(20, 90));
}

void TestDistanceTool::newItemTakesColourStepAndZoom()
{
    DistanceFixture& f = *theFixture;
    LmAppSettings::theGridColor = QColor(10, 200, 30);
    f.calibrate(50.0, QStringLiteral("mm"));
    f.theEditor.setZoom(0.5);
    f.drag(QPoint(20, 30), QPoint(120, 30));
    LmCvDistance* item = f.item(1);
    QCOMPARE(item->getColor(), QColor(10, 200, 30));
    QCOMPARE(f.stored(1102, 1, DistanceFixture::kCol), QVariant(QColor(10, 200, 30)));
    QCOMPARE(item->theStep, 8.0);
    QCOMPARE(item->theUnit, QStringLiteral("mm"));
    QCOMPARE(item->theArrowLength, 20.0);
    QCOMPARE(item->theLabel, QStringLiteral("1"));
}

void TestDistanceTool::labelShowsTheLiveValueWhileDrawing()
{
    DistanceFixture& f = *theFixture;
    LmCvManipulator::theLastUsedValueName = QStringLiteral("DX");
    f.calibrate(100.0, QStringLiteral("mm")); // 4 pixels each
    f.press(QPoint(20, 30));
    QCOMPARE(f.theTool.theCurrent->theDisplayValue, QString());
    f.move(QPoint(30, 60));
    QCOMPARE(f.theTool.theCurrent->theDisplayValue, QStringLiteral("2.50mm"));
    f.move(QPoint(41, 60));
    QCOMPARE(f.theTool.theCurrent->theDisplayValue, QStringLiteral("5.25mm"));
    QCOMPARE(f.theTool.theCurrent->labelText(), QStringLiteral(" 1 <5.25mm> "));
    QCOMPARE(f.theStack.count(), 0);
    f.release(QPoint(41, 60));
}

void TestDistanceTool::labelReadsTheRecordAfterTheRelease()
{
    DistanceFixture& f = *theFixture;
    LmCvManipulator::theLastUsedValueName = QStringLiteral("DX");
    f.drag(QPoint(20, 30), QPoint(41, 30));
    // 21 pixels on the canvas; the record has the middle 31 and 10 to each side.
    QCOMPARE(f.item(1)->theDisplayValue, QStringLiteral("20.00"));
    QCOMPARE(f.stored(1102, 1, DistanceFixture::kDispv), QVariant(QStringLiteral("DX")));
}

void TestDistanceTool::shiftSnapsTheEndBeingDrawn()
{
    DistanceFixture& f = *theFixture;
    f.drag(QPoint(20, 30), QPoint(120, 40), Qt::ShiftModifier); // 5.7 degrees
    QCOMPARE(f.item(1)->theEnd, QPoint(120, 30));
    f.drag(QPoint(20, 100), QPoint(100, 170), Qt::ShiftModifier); // 41 degrees: 80 to the right
    QCOMPARE(f.item(2)->theEnd, QPoint(100, 180));
    f.drag(QPoint(220, 30), QPoint(300, 40)); // the counter-case
    QCOMPARE(f.item(3)->theEnd, QPoint(300, 40));
}

void TestDistanceTool::clickMakesALineOfLengthZero()
{
    DistanceFixture& f = *theFixture;
    LmCvManipulator::theLastUsedValueName = QStringLiteral("Distance");
    f.click(QPoint(50, 60));
    QCOMPARE(f.itemCount(), 1);
    QCOMPARE(f.pos(1), QPoint(90, 90));
    QCOMPARE(f.ep(1), QPoint(0, 0));
    QCOMPARE(f.item(1)->theLength, 0.0);
    QCOMPARE(f.item(1)->theDisplayValue, QStringLiteral("0.00"));
}

void TestDistanceTool::rightButtonDrawsAsWell()
{
    DistanceFixture& f = *theFixture;
    Mouse press(QEvent::MouseButtonPress, QPoint(20, 30), Qt::RightButton);
    f.theTool.mousePressEvent(&press);
    QVERIFY(press.isAccepted());
    Mouse move(QEvent::MouseMove, QPoint(80, 30), Qt::RightButton);
    f.theTool.mouseMoveEvent(&move);
    QVERIFY(move.isAccepted());
    Mouse release(QEvent::MouseButtonRelease, QPoint(80, 30), Qt::RightButton);
    f.theTool.mouseReleaseEvent(&release);
    QVERIFY(release.isAccepted());
    QCOMPARE(f.ep(1), QPoint(30, 0));
}

void TestDistanceTool::pressWhileDrawingLeavesTheEarlierItem()
{
    DistanceFixture& f = *theFixture;
    Mouse first(QEvent::MouseButtonPress, QPoint(20, 30));
    f.theTool.mousePressEvent(&first);
    LmCvDistance* earlier = f.theTool.theCurrent;
    Mouse second(QEvent::MouseButtonPress, QPoint(90, 90));
    f.theTool.mousePressEvent(&second);
    QVERIFY(f.theTool.theCurrent != earlier);
    QCOMPARE(f.itemCount(), 2);
    Mouse release(QEvent::MouseButtonRelease, QPoint(90, 90));
    f.theTool.mouseReleaseEvent(&release);
    QCOMPARE(f.theTool.theCvObjects.size(), 1);
    QVERIFY(f.item(1) != earlier);
    QVERIFY(earlier->isVisible());
}

void TestDistanceTool::moveAndReleaseWithoutPressAreNotTaken()
{
    DistanceFixture& f = *theFixture;
    Mouse move(QEvent::MouseMove, QPoint(20, 30));
    move.accept();
    f.theTool.mouseMoveEvent(&move);
    QVERIFY(!move.isAccepted());
    for (const bool accepted : {true, false}) {
        Mouse release(QEvent::MouseButtonRelease, QPoint(20, 30));
        release.setAccepted(accepted);
        f.theTool.mouseReleaseEvent(&release);
        QCOMPARE(release.isAccepted(), accepted);
    }
    QCOMPARE(f.theStack.count(), 0);
}

void TestDistanceTool::selectionArrowDrawsNothing()
{
    DistanceFixture& f = *theFixture;
    f.theEditor.setCurrentManipulator(nullptr);
    f.drag(QPoint(20, 30), QPoint(120, 80));
    QCOMPARE(f.itemCount(), 0);
    QCOMPARE(f.theStack.count(), 0);
}

void TestDistanceTool::drawingIsOneUndoStep()
{
    DistanceFixture& f = *theFixture;
    f.drag(QPoint(20, 30), QPoint(120, 80));
    QCOMPARE(f.theStack.count(), 1);
    QVERIFY2(f.theStack.text(0).contains(QStringLiteral("Distance 1")), qPrintable(f.theStack.text(0)));
    f.theStack.undo();
    QCOMPARE(f.itemCount(), 0);
    QVERIFY(!f.hasRecord(1));
    f.theStack.redo();
    QCOMPARE(f.itemCount(), 1);
    QVERIFY(f.hasRecord(1));
}

void TestDistanceTool::indexIsTheGreatestPlusOne()
{
    DistanceFixture& f = *theFixture;
    const auto draw = [&f](int aY) { f.drag(QPoint(20, aY), QPoint(120, aY)); };
    draw(20);
    draw(60);
    draw(100);
    QCOMPARE(f.theTool.theCvObjects.keys(), (QList<int>{1, 2, 3}));
    f.theTool.removeCvObject(f.item(3));
    draw(140);
    QCOMPARE(f.theTool.theCvObjects.keys(), (QList<int>{1, 2, 3}));
    f.theTool.removeCvObject(f.item(1));
    draw(180);
    QCOMPARE(f.theTool.theCvObjects.keys(), (QList<int>{2, 3, 4}));
    QCOMPARE(f.item(4)->theLabel, QStringLiteral("4"));
    QCOMPARE(f.theKernel.getObjectsOfType(1102).keys(), (QList<int>{2, 3, 4}));
}

MEASURE_TEST_MAIN(TestDistanceTool)
#include "TestDistanceTool.moc"
