#include "ItemMouse.h"
#include "LmCvDimension.h"
#include "Q3Canvas.h"
#include "TestFont.h"

/// Drags of segments and of their ends.
class TestDimensionDrag : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { delete theItem; }

    void dragOfASegmentMovesOnlyThatSegment();
    void labelStaysOnTheSegmentOfItsValue();
    void dragOfAnEndKeepsTheOtherOne_data();
    void dragOfAnEndKeepsTheOtherOne();
    void dragOntoTheOtherEndLeavesALengthOfOne();
    void shiftTurnsThirtyDegreesIntoFortyFive();
    void shiftSnapsToAxesAndDiagonals_data();
    void shiftSnapsToAxesAndDiagonals();
    void shiftOnTheOtherEndStillLeavesALengthOfOne();
    void shiftDoesNotSnapASegment();
    void moveWithoutPressLeavesTheEventAlone();
    void releaseEndsADragOnly();
    void flagsStayUntilTheNextPress();
    void endThatHasGoneMeanwhileIsNotMoved();

private:
    bool press(const QPoint& aPoint) { return pressOn(*theItem, aPoint); }
    bool move(const QPoint& aPoint, Qt::KeyboardModifiers aModifiers = {})
    {
        return moveOn(*theItem, aPoint, aModifiers);
    }
    bool release(const QPoint& aPoint) { return releaseOn(*theItem, aPoint); }

    Q3Canvas theCanvas{1000, 1000};
    LmCvDimension* theItem = nullptr;
};

// Handles at (96, 100), (304, 100), (200, 146) and (200, 254).
void TestDimensionDrag::init()
{
    theItem = new LmCvDimension(nullptr, &theCanvas, QStringLiteral("1"), nullptr);
    theItem->setPoints(Q3PointArray()
                       << QPoint(100, 100) << QPoint(300, 100) << QPoint(200, 150) << QPoint(200, 250));
    theItem->show();
}

void TestDimensionDrag::dragOfASegmentMovesOnlyThatSegment()
{
    QVERIFY(press(QPoint(201, 200)));
    QVERIFY(move(QPoint(211, 195)));
    QCOMPARE(theItem->theDragPoint, QPoint(211, 195));
    QVERIFY(move(QPoint(221, 197)));
    QCOMPARE(QPolygon(theItem->thePoints),
             QPolygon({QPoint(100, 100), QPoint(300, 100), QPoint(220, 147), QPoint(220, 247)}));
    QVERIFY(theItem->isNodesChanged());
}

void TestDimensionDrag::labelStaysOnTheSegmentOfItsValue()
{
    theItem->setDisplayValue(QStringLiteral("W1: 100.00"));
    QVERIFY(press(QPoint(160, 100)));
    QVERIFY(move(QPoint(160, 130)));
    QCOMPARE(theItem->theLabelRect.center().x(), 200);
    QCOMPARE(theItem->theLabelRect.bottom(), 200);
    QVERIFY(press(QPoint(200, 220)));
    QVERIFY(move(QPoint(240, 220)));
    QCOMPARE(theItem->theLabelRect.center().x(), 240);
    QCOMPARE(theItem->theLabelRect.bottom(), 200);
}

void TestDimensionDrag::dragOfAnEndKeepsTheOtherOne_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < 4; ++i)
        QTest::addRow("point %d", i) << i;
}

void TestDimensionDrag::dragOfAnEndKeepsTheOtherOne()
{
    QFETCH(int, index);
    Q3PointArray expected = theItem->thePoints;
    expected[index] = QPoint(123, 217);
    QVERIFY(press(theItem->theCtrlPoints[index]));
    QVERIFY(move(QPoint(400, 300)));
    QVERIFY(move(QPoint(123, 217)));
    QCOMPARE(theItem->thePoints, expected);
    QVERIFY(theItem->isNodesChanged());
}

void TestDimensionDrag::dragOntoTheOtherEndLeavesALengthOfOne()
{
    QVERIFY(press(QPoint(200, 146)));
    QVERIFY(move(QPoint(200, 250)));
    QCOMPARE(theItem->thePoints[2], QPoint(201, 250));
    QCOMPARE(theItem->thePoints[3], QPoint(200, 250));
    QCOMPARE(theItem->theCtrlPoints[2], QPoint(205, 250));
    QVERIFY(move(QPoint(200, 251)));
    QCOMPARE(theItem->thePoints[2], QPoint(200, 251));
}

void TestDimensionDrag::shiftTurnsThirtyDegreesIntoFortyFive()
{
    // 173 to the right and 100 down from the end that stands still: 30.03 degrees.
    QVERIFY(press(QPoint(304, 100)));
    QPoint point(273, 200);
    Mouse event(QEvent::MouseMove, point, Qt::ShiftModifier);
    theItem->mouseMoveEvent(&event, point);
    QCOMPARE(theItem->thePoints[1], QPoint(273, 273));
    QCOMPARE(point, QPoint(273, 273)); // the editor goes on with the corrected point
    QVERIFY(move(QPoint(273, 200)));
    QCOMPARE(theItem->thePoints[1], QPoint(273, 200));
}

void TestDimensionDrag::shiftSnapsToAxesAndDiagonals_data()
{
    QTest::addColumn<QPoint>("way"); // from the end that stands still
    QTest::addColumn<QPoint>("snapped");
    QTest::newRow("17 degrees") << QPoint(96, 29) << QPoint(96, 0);
    QTest::newRow("-17 degrees, left") << QPoint(-96, -29) << QPoint(-96, 0);
    QTest::newRow("19 degrees") << QPoint(95, 33) << QPoint(95, 95);
    QTest::newRow("73 degrees") << QPoint(29, 95) << QPoint(0, 95);
    QTest::newRow("71 degrees") << QPoint(33, 95) << QPoint(95, 95);
    QTest::newRow("60 degrees, left and up") << QPoint(-50, -87) << QPoint(-87, -87);
    QTest::newRow("60 degrees, right and up") << QPoint(50, -87) << QPoint(87, -87);
    QTest::newRow("30 degrees, left and down") << QPoint(-87, 50) << QPoint(-87, 87);
    QTest::newRow("30 degrees, left and up") << QPoint(-87, -50) << QPoint(-87, -87);
}

void TestDimensionDrag::shiftSnapsToAxesAndDiagonals()
{
    QFETCH(QPoint, way);
    QFETCH(QPoint, snapped);
    QVERIFY(press(QPoint(200, 254)));
    QVERIFY(move(QPoint(200, 150) + way, Qt::ShiftModifier));
    QCOMPARE(theItem->thePoints[3], QPoint(200, 150) + snapped);
}

void TestDimensionDrag::shiftOnTheOtherEndStillLeavesALengthOfOne()
{
    QVERIFY(press(QPoint(200, 254)));
    QVERIFY(move(QPoint(200, 150), Qt::ShiftModifier));
    QCOMPARE(theItem->thePoints[3], QPoint(201, 150));
}

void TestDimensionDrag::shiftDoesNotSnapASegment()
{
    QVERIFY(press(QPoint(160, 100)));
    QVERIFY(move(QPoint(260, 103), Qt::ShiftModifier));
    QCOMPARE(theItem->thePoints[0], QPoint(200, 103));
}

void TestDimensionDrag::moveWithoutPressLeavesTheEventAlone()
{
    const Q3PointArray points = theItem->thePoints;
    QPoint point(160, 100);
    Mouse event(QEvent::MouseMove, point);
    for (const bool accepted : {true, false}) {
        event.setAccepted(accepted);
        theItem->mouseMoveEvent(&event, point);
        QCOMPARE(event.isAccepted(), accepted);
    }
    QCOMPARE(theItem->thePoints, points);
    QVERIFY(!theItem->isNodesChanged());
}

void TestDimensionDrag::releaseEndsADragOnly()
{
    QVERIFY(!release(QPoint(160, 100)));
    QVERIFY(!theItem->theEditDone);
    for (const QPoint& point : {QPoint(160, 100), QPoint(96, 100)}) {
        QVERIFY(press(point));
        QVERIFY(!theItem->theEditDone);
        QVERIFY(release(point));
        QVERIFY(theItem->theEditDone);
        QVERIFY(!theItem->isNodesChanged()); // a click
    }
}

void TestDimensionDrag::flagsStayUntilTheNextPress()
{
    press(QPoint(96, 100));
    move(QPoint(90, 90));
    release(QPoint(90, 90));
    QVERIFY(theItem->theDragging);
    QVERIFY(theItem->isNodesChanged());
    QVERIFY(press(QPoint(200, 200)));
    QVERIFY(!theItem->theDragging);
    QVERIFY(!theItem->isNodesChanged());
    QCOMPARE(theItem->theSegIdx, 1);
}

void TestDimensionDrag::endThatHasGoneMeanwhileIsNotMoved()
{
    QVERIFY(press(QPoint(200, 254)));
    const Q3PointArray left(theItem->thePoints.mid(0, 2)); // as an undo leaves it
    theItem->setPoints(left);
    QVERIFY(move(QPoint(220, 254)));
    QCOMPARE(theItem->thePoints, left);
    QVERIFY(!theItem->isNodesChanged());
}

MEASURE_TEST_MAIN(TestDimensionDrag)
#include "TestDimensionDrag.moc"
