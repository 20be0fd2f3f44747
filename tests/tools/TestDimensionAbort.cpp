#include "DimensionFixture.h"
#include "LmCvSelection.h"
#include "TestFont.h"

#include <QMouseEvent>

#include <functional>
#include <memory>

using Leaving = std::function<void(DimensionFixture&)>;
Q_DECLARE_METATYPE(Leaving)

/// Drawings that don't come to their end in the usual way leave no half object.
class TestDimensionAbort : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { theFixture.reset(); }

    void abortedHeightVanishes_data();
    void abortedHeightVanishes();
    void abortedWidthLeavesTheRecordsItem_data();
    void abortedWidthLeavesTheRecordsItem();
    void abortWithoutDrawingHasNothingToEnd();
    void itemThatGoesEndsItsDrawing_data();
    void itemThatGoesEndsItsDrawing();
    void undoOfAWidthWhileTheNextIsDrawn();
    void redoOfAWidthWhileAnotherIsDrawn();
    void recordThatFillsUpEndsTheDrawing();
    void recordThatEmptiesEndsTheDrawing();
    void undoAfterTheLastMoveStoresNothing();
    void undoWhileAHeightIsDrawnGivesTheFreeIndex();

private:
    std::unique_ptr<DimensionFixture> theFixture;
};

// A height from (20, 20) to (20, 120) and a width from (60, 40) to (160, 40), which stands on the label.
void TestDimensionAbort::init()
{
    theFixture = std::make_unique<DimensionFixture>();
    theFixture->drag(QPoint(20, 20), QPoint(20, 120));
    theFixture->altDrag(QPoint(60, 40), QPoint(160, 40));
    theFixture->show(1, QStringLiteral("Width1"));
    QCOMPARE(theFixture->theStack.count(), 3);
}

static void addLeavings()
{
    QTest::addColumn<Leaving>("leave");
    QTest::newRow("Esc") << Leaving([](DimensionFixture& f) { f.key(Qt::Key_Escape); });
    QTest::newRow("arrow") << Leaving(
        [](DimensionFixture& f) { f.theEditor.setCurrentManipulator(nullptr); });
    // The release went astray, as into a dialog; the same button goes down again. It begins a height, which
    // is ended in its turn.
    QTest::newRow("second press") << Leaving([](DimensionFixture& f) {
        f.press(QPoint(250, 200));
        f.key(Qt::Key_Escape);
    });
}

void TestDimensionAbort::abortedHeightVanishes_data()
{
    addLeavings();
}

void TestDimensionAbort::abortedHeightVanishes()
{
    QFETCH(Leaving, leave);
    DimensionFixture& f = *theFixture;
    f.press(QPoint(200, 30));
    f.move(QPoint(280, 90));
    QCOMPARE(f.itemCount(), 2);
    leave(f);
    QCOMPARE(f.itemCount(), 1);
    QVERIFY(!f.theTool.theCurrent);
    QVERIFY(!f.theEditor.theCurrentTrack);
    f.move(QPoint(290, 99));
    f.release(QPoint(290, 99));
    QCOMPARE(f.itemCount(), 1);
    QCOMPARE(f.theStack.count(), 3);
    f.theEditor.setCurrentManipulator(&f.theTool); // the tool goes on as before
    f.drag(QPoint(200, 30), QPoint(280, 90));
    QCOMPARE(f.theTool.theCvObjects.keys(), (QList<int>{1, 2}));
}

void TestDimensionAbort::abortedWidthLeavesTheRecordsItem_data()
{
    addLeavings();
}

void TestDimensionAbort::abortedWidthLeavesTheRecordsItem()
{
    QFETCH(Leaving, leave);
    DimensionFixture& f = *theFixture;
    LmCvDimension* item = f.item(1);
    const Q3PointArray points = item->thePoints;
    f.press(QPoint(60, 80), Qt::AltModifier);
    f.move(QPoint(160, 80), Qt::AltModifier);
    QCOMPARE(item->thePoints.size(), 6);
    leave(f);
    QCOMPARE(f.itemCount(), 1);
    QCOMPARE(f.item(1), item);
    QCOMPARE(item->thePoints, points);
    QCOMPARE(item->theDisplayValue, QStringLiteral("W1: 100.00"));
    QVERIFY(!f.theTool.theCurrent);
    f.move(QPoint(170, 80), Qt::AltModifier);
    f.release(QPoint(170, 80), Qt::AltModifier);
    QCOMPARE(f.theStack.count(), 3);
    QCOMPARE(item->thePoints, points);
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.theEditor.activateItem(item);
    f.altDrag(QPoint(60, 80), QPoint(160, 80));
    QCOMPARE(f.points(1).size(), 6);
}

void TestDimensionAbort::abortWithoutDrawingHasNothingToEnd()
{
    DimensionFixture& f = *theFixture;
    QVERIFY(!f.theTool.abortAction());
    QCOMPARE(f.itemCount(), 1);
    f.press(QPoint(200, 30));
    QVERIFY(f.theTool.abortAction());
    QVERIFY(!f.theTool.abortAction());
    QCOMPARE(f.itemCount(), 1);
    QVERIFY(f.hasRecord(1));
}

void TestDimensionAbort::itemThatGoesEndsItsDrawing_data()
{
    QTest::addColumn<Leaving>("leave");
    QTest::newRow("Delete") << Leaving([](DimensionFixture& f) { f.theEditor.slotDeleteSelected(); });
    QTest::newRow("undo") << Leaving([](DimensionFixture& f) { f.theStack.setIndex(0); });
    QTest::newRow("removed") << Leaving([](DimensionFixture& f) { delete f.theKernel.takeObject(1112, 1); });
    QTest::newRow("cleared") << Leaving([](DimensionFixture& f) {
        f.theTool.theCvObjects.clear();
        qDeleteAll(f.theEditor.canvas()->allItems());
    });
}

void TestDimensionAbort::itemThatGoesEndsItsDrawing()
{
    QFETCH(Leaving, leave);
    DimensionFixture& f = *theFixture;
    f.press(QPoint(60, 80), Qt::AltModifier);
    f.move(QPoint(160, 80), Qt::AltModifier);
    leave(f);
    QVERIFY(!f.theTool.theCurrent);
    QCOMPARE(f.itemCount(), 0);
    const int count = f.theStack.count();
    f.move(QPoint(170, 80), Qt::AltModifier);
    f.release(QPoint(170, 80), Qt::AltModifier);
    QCOMPARE(f.itemCount(), 0);
    QCOMPARE(f.theStack.count(), count);
    QVERIFY(!f.theTool.abortAction());
}

void TestDimensionAbort::undoOfAWidthWhileTheNextIsDrawn()
{
    DimensionFixture& f = *theFixture;
    f.press(QPoint(60, 80), Qt::AltModifier);
    f.move(QPoint(160, 80), Qt::AltModifier);
    QCOMPARE(f.theTool.theNewSegment, 2);
    f.theStack.undo(); // the shown value
    f.theStack.undo(); // the width
    QCOMPARE(f.item(1)->thePoints.size(), 2);
    f.move(QPoint(170, 80), Qt::AltModifier);
    f.release(QPoint(170, 80), Qt::AltModifier);
    // The new one is the first width now.
    QCOMPARE(f.points(1), QPolygon({QPoint(60, 50), QPoint(60, 150), QPoint(100, 110), QPoint(210, 110)}));
}

void TestDimensionAbort::redoOfAWidthWhileAnotherIsDrawn()
{
    DimensionFixture& f = *theFixture;
    f.theStack.undo();
    f.theStack.undo();
    f.press(QPoint(60, 80), Qt::AltModifier);
    f.move(QPoint(160, 80), Qt::AltModifier);
    f.theStack.redo(); // the first width comes back
    f.move(QPoint(170, 80), Qt::AltModifier);
    f.release(QPoint(170, 80), Qt::AltModifier);
    QCOMPARE(f.points(1), QPolygon({QPoint(60, 50), QPoint(60, 150), QPoint(100, 70), QPoint(200, 70),
                                    QPoint(100, 110), QPoint(210, 110)}));
}

void TestDimensionAbort::recordThatFillsUpEndsTheDrawing()
{
    DimensionFixture& f = *theFixture;
    f.altDrag(QPoint(60, 100), QPoint(160, 100));
    f.altDrag(QPoint(60, 140), QPoint(160, 140));
    const QPolygon full = f.points(1);
    QCOMPARE(full.size(), 8);
    f.theStack.undo();
    f.press(QPoint(60, 80), Qt::AltModifier);
    f.move(QPoint(160, 80), Qt::AltModifier);
    f.theStack.redo();
    f.move(QPoint(170, 80), Qt::AltModifier);
    QVERIFY(!f.theTool.theCurrent);
    f.release(QPoint(170, 80), Qt::AltModifier);
    QCOMPARE(f.points(1), full);
    QCOMPARE(f.item(1)->thePoints.size(), 8);
    QCOMPARE(f.itemCount(), 1);
}

void TestDimensionAbort::recordThatEmptiesEndsTheDrawing()
{
    DimensionFixture& f = *theFixture;
    f.press(QPoint(60, 80), Qt::AltModifier);
    f.move(QPoint(160, 80), Qt::AltModifier);
    f.storePoints(1, -1, QPolygon());
    Q_EMIT f.theKernel.signalObjectChanged(1112, 1, f.record(1));
    f.move(QPoint(170, 80), Qt::AltModifier);
    QVERIFY(!f.theTool.theCurrent);
    QCOMPARE(f.itemCount(), 1); // the object is still there
    f.release(QPoint(170, 80), Qt::AltModifier);
    QCOMPARE(f.theTool.theCvObjects.keys(), QList<int>{1});
    QCOMPARE(f.theStack.count(), 3);
}

void TestDimensionAbort::undoAfterTheLastMoveStoresNothing()
{
    DimensionFixture& f = *theFixture;
    f.press(QPoint(60, 80), Qt::AltModifier);
    f.move(QPoint(160, 80), Qt::AltModifier);
    f.theStack.undo(); // the shown value, which brings the item back to its record
    QCOMPARE(f.item(1)->thePoints.size(), 4);
    f.release(QPoint(160, 80), Qt::AltModifier);
    QCOMPARE(f.points(1).size(), 4);
    QVERIFY(f.theStack.canRedo());
}

void TestDimensionAbort::undoWhileAHeightIsDrawnGivesTheFreeIndex()
{
    DimensionFixture& f = *theFixture;
    f.press(QPoint(200, 90));
    f.move(QPoint(250, 90));
    QCOMPARE(f.theTool.theCurrent->theLabel, QStringLiteral("2"));
    f.theStack.setIndex(0);
    f.move(QPoint(280, 90));
    f.release(QPoint(280, 90));
    QCOMPARE(f.theTool.theCvObjects.keys(), QList<int>{1});
    QCOMPARE(f.item(1)->theLabel, QStringLiteral("1"));
    QCOMPARE(f.points(1), QPolygon({QPoint(240, 120), QPoint(320, 120)}));
}

MEASURE_TEST_MAIN(TestDimensionAbort)
#include "TestDimensionAbort.moc"
