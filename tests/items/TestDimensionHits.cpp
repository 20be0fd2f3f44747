#include "ItemMouse.h"
#include "LmCvDimension.h"
#include "Q3Canvas.h"
#include "TestFont.h"

/// What a press on a dimension takes.
class TestDimensionHits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { delete theItem; }

    void toleranceOfHandlesIsASquaredDistance_data();
    void toleranceOfHandlesIsASquaredDistance();
    void firstHandleInReachIsTaken();
    void missedHandleGivesIndexZero();
    void segmentIsHitByTheSquaresDiagonals_data();
    void segmentIsHitByTheSquaresDiagonals();
    void hitTellsTheSegment();
    void missGivesTheCountOfSegments();
    void segmentWithoutLengthIsHitAlongTheSquaresDiagonals();
    void pressOnAHandleKeepsTheOtherEndStill_data();
    void pressOnAHandleKeepsTheOtherEndStill();
    void handlesAreTakenWhetherActiveOrNot();
    void pressOnTheExtensionBeyondAnEndTakesTheHandle();
    void pressOnASegmentTakesIt();
    void missedPressIsIgnored();
    void moveAfterAMissedPressMovesNothing();
    void hiddenItemTakesNoPress();

private:
    bool press(const QPoint& aPoint) { return pressOn(*theItem, aPoint); }
    bool move(const QPoint& aPoint, Qt::KeyboardModifiers aModifiers = {})
    {
        return moveOn(*theItem, aPoint, aModifiers);
    }

    Q3Canvas theCanvas{1000, 1000};
    LmCvDimension* theItem = nullptr;
};

// Handles at (96, 100), (304, 100), (200, 146) and (200, 254).
void TestDimensionHits::init()
{
    theItem = new LmCvDimension(nullptr, &theCanvas, QStringLiteral("1"), nullptr);
    theItem->setPoints(Q3PointArray()
                       << QPoint(100, 100) << QPoint(300, 100) << QPoint(200, 150) << QPoint(200, 250));
    theItem->show();
    QCOMPARE(theItem->theCtrlPoints[3], QPoint(200, 254));
    QCOMPARE(theItem->theSelSize, 8);
}

void TestDimensionHits::toleranceOfHandlesIsASquaredDistance_data()
{
    QTest::addColumn<QPoint>("way");
    QTest::addColumn<int>("tolerance");
    QTest::addColumn<bool>("hit");
    QTest::newRow("3 with 9") << QPoint(3, 0) << 9 << true;
    QTest::newRow("4 with 9") << QPoint(0, 4) << 9 << false;
    QTest::newRow("3 and 1 with 9") << QPoint(-3, 1) << 9 << false;
    QTest::newRow("3 with 8") << QPoint(0, -3) << 8 << false;
    QTest::newRow("2 and 2 with 8") << QPoint(2, -2) << 8 << true;
    QTest::newRow("none with 0") << QPoint(0, 0) << 0 << true;
    QTest::newRow("1 with 0") << QPoint(1, 0) << 0 << false;
}

void TestDimensionHits::toleranceOfHandlesIsASquaredDistance()
{
    QFETCH(QPoint, way);
    QFETCH(int, tolerance);
    QFETCH(bool, hit);
    int index = -1;
    QCOMPARE(theItem->isPointOnCtrl(QPoint(200, 254) + way, index, tolerance), hit);
    QCOMPARE(index, hit ? 3 : 0);
}

void TestDimensionHits::firstHandleInReachIsTaken()
{
    theItem->setPoints(Q3PointArray()
                       << QPoint(10, 10) << QPoint(10, 60) << QPoint(60, 64) << QPoint(14, 64));
    QCOMPARE(theItem->theCtrlPoints[1], theItem->theCtrlPoints[3]);
    int index = -1;
    QVERIFY(theItem->isPointOnCtrl(QPoint(10, 64), index, 8));
    QCOMPARE(index, 1);
}

void TestDimensionHits::missedHandleGivesIndexZero()
{
    int index = 7;
    QVERIFY(!theItem->isPointOnCtrl(QPoint(200, 200), index, 8));
    QCOMPARE(index, 0);
}

void TestDimensionHits::segmentIsHitByTheSquaresDiagonals_data()
{
    QTest::addColumn<int>("tolerance");
    QTest::addColumn<int>("above"); // farthest hit above the line
    QTest::addColumn<int>("below");
    // A square of 8 reaches 4 before its middle and 3 behind it.
    QTest::newRow("even 8") << 8 << 3 << 4;
    QTest::newRow("odd 7") << 7 << 3 << 3;
    QTest::newRow("even 4") << 4 << 1 << 2;
}

void TestDimensionHits::segmentIsHitByTheSquaresDiagonals()
{
    QFETCH(int, tolerance);
    QFETCH(int, above);
    QFETCH(int, below);
    int segment = 7;
    for (int way = -above; way <= below; ++way)
        QVERIFY(theItem->isPointOnObject(QPoint(160, 100 + way), segment, tolerance));
    QVERIFY(!theItem->isPointOnObject(QPoint(160, 100 - above - 1), segment, tolerance));
    QVERIFY(!theItem->isPointOnObject(QPoint(160, 100 + below + 1), segment, tolerance));
}

void TestDimensionHits::hitTellsTheSegment()
{
    int segment = 7;
    QVERIFY(theItem->isPointOnObject(QPoint(150, 100), segment, 8));
    QCOMPARE(segment, 0);
    QVERIFY(theItem->isPointOnObject(QPoint(200, 200), segment, 8));
    QCOMPARE(segment, 1);
    theItem->moveDimBy(1, QPoint(0, -100)); // they cross now, and the first one counts
    QVERIFY(theItem->isPointOnObject(QPoint(200, 100), segment, 8));
    QCOMPARE(segment, 0);
}

void TestDimensionHits::missGivesTheCountOfSegments()
{
    int segment = -7;
    QVERIFY(!theItem->isPointOnObject(QPoint(400, 400), segment, 8));
    QCOMPARE(segment, 2);
    theItem->setPoints(Q3PointArray());
    QVERIFY(!theItem->isPointOnObject(QPoint(400, 400), segment, 8));
    QCOMPARE(segment, 0);
}

void TestDimensionHits::segmentWithoutLengthIsHitAlongTheSquaresDiagonals()
{
    theItem->setPoints(Q3PointArray() << QPoint(100, 100) << QPoint(100, 100));
    int segment = 7;
    QVERIFY(theItem->isPointOnObject(QPoint(100, 100), segment, 8));
    QCOMPARE(segment, 0);
    QVERIFY(!theItem->isPointOnObject(QPoint(110, 100), segment, 8));
    // It meets every line that runs through it, however far away the line ends.
    QVERIFY(theItem->isPointOnObject(QPoint(110, 110), segment, 8));
    QVERIFY(!theItem->isPointOnObject(QPoint(110, 111), segment, 8));
}

void TestDimensionHits::pressOnAHandleKeepsTheOtherEndStill_data()
{
    QTest::addColumn<int>("handle");
    QTest::addColumn<QPoint>("still");
    QTest::newRow("first") << 0 << QPoint(300, 100);
    QTest::newRow("second") << 1 << QPoint(100, 100);
    QTest::newRow("third") << 2 << QPoint(200, 250);
    QTest::newRow("fourth") << 3 << QPoint(200, 150);
}

void TestDimensionHits::pressOnAHandleKeepsTheOtherEndStill()
{
    QFETCH(int, handle);
    theItem->theNodesChanged = theItem->theEditDone = true;
    QVERIFY(press(theItem->theCtrlPoints[handle]));
    QCOMPARE(theItem->theCtrlIdx, handle);
    QTEST(theItem->theDragPoint, "still");
    QVERIFY(theItem->theDragging);
    QCOMPARE(theItem->theSegIdx, -1);
    QVERIFY(!theItem->theNodesChanged && !theItem->theEditDone);
}

void TestDimensionHits::handlesAreTakenWhetherActiveOrNot()
{
    for (const bool active : {false, true}) {
        theItem->setActive(active);
        QVERIFY(press(QPoint(96, 100)));
        QVERIFY(theItem->theDragging);
    }
}

void TestDimensionHits::pressOnTheExtensionBeyondAnEndTakesTheHandle()
{
    // Six pixels beyond the end and two from the handle; the square's diagonals don't reach the segment.
    int segment = 0;
    QVERIFY(!theItem->isPointOnObject(QPoint(306, 100), segment, 8));
    QVERIFY(press(QPoint(306, 100)));
    QVERIFY(theItem->theDragging);
    QCOMPARE(theItem->theCtrlIdx, 1);
    QVERIFY(!press(QPoint(307, 100))); // three from the handle are too far
    // Where both are in reach the handle wins.
    theItem->setPoints(Q3PointArray() << QPoint(100, 100) << QPoint(200, 200));
    QVERIFY(theItem->isPointOnObject(QPoint(201, 201), segment, 8));
    QVERIFY(press(QPoint(201, 201)));
    QVERIFY(theItem->theDragging);
    QCOMPARE(theItem->theSegIdx, -1);
}

void TestDimensionHits::pressOnASegmentTakesIt()
{
    theItem->theNodesChanged = theItem->theEditDone = true;
    QVERIFY(press(QPoint(201, 200)));
    QCOMPARE(theItem->theSegIdx, 1);
    QVERIFY(!theItem->theDragging);
    QCOMPARE(theItem->theDragPoint, QPoint(201, 200));
    QVERIFY(!theItem->theNodesChanged && !theItem->theEditDone);
}

void TestDimensionHits::missedPressIsIgnored()
{
    QVERIFY(press(QPoint(96, 100)));
    QVERIFY(!press(QPoint(400, 400)));
    QVERIFY(!theItem->theDragging);
}

// A missed press leaves the count of segments as the index, which no segment has.
void TestDimensionHits::moveAfterAMissedPressMovesNothing()
{
    const Q3PointArray points = theItem->thePoints;
    QVERIFY(!press(QPoint(400, 400)));
    QCOMPARE(theItem->theSegIdx, 2);
    QVERIFY(move(QPoint(410, 400)));
    QCOMPARE(theItem->thePoints, points);
}

void TestDimensionHits::hiddenItemTakesNoPress()
{
    QVERIFY(press(QPoint(96, 100)));
    theItem->hide();
    for (const QPoint& point : {QPoint(96, 100), QPoint(160, 100), QPoint(200, 200)}) {
        QVERIFY(!press(point));
        QVERIFY(!theItem->theDragging);
        QCOMPARE(theItem->theSegIdx, -1);
        QVERIFY(!move(point + QPoint(9, 9)));
    }
    theItem->show();
    QVERIFY(press(QPoint(160, 100)));
}

MEASURE_TEST_MAIN(TestDimensionHits)
#include "TestDimensionHits.moc"
