#include "ItemMouse.h"
#include "LmCvDistance.h"
#include "Q3Canvas.h"
#include "TestFont.h"

class TestDistanceHits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { delete theItem; }

    void lineIsHitByTheSquaresDiagonals_data();
    void lineIsHitByTheSquaresDiagonals();
    void hitOnTheLineHasNodeZero();
    void startIsHitByEachFlankWithOneDiagonal();
    void endIsHitByItsSecondFlankAlone();
    void itemWithoutLengthIsHitAlongTheSquaresDiagonals();
    void pressOnTheStartKeepsTheEndStill();
    void pressOnTheEndKeepsTheStartStill();
    void arrowHeadComesBeforeTheLine();
    void pressBesideTheEndsFirstFlankTakesTheLine();
    void pressOnTheLineMovesIt();
    void missedPressIsIgnored();
    void hiddenItemTakesNoPress();
    void moveWithoutPressChangesNothing();
    void releaseEndsAnEditOnly();
    void flagsStayUntilTheNextPress();
    void shiftSnapsTheDraggedEnd();
    void shiftDoesNotSnapTheWholeLine();
    void clickLeavesTheNodesUnchanged();

private:
    bool press(QPoint aPoint) { return pressOn(*theItem, aPoint); }
    bool move(QPoint aPoint, Qt::KeyboardModifiers aModifiers = {})
    {
        return moveOn(*theItem, aPoint, aModifiers);
    }
    bool release(QPoint aPoint) { return releaseOn(*theItem, aPoint); }

    Q3Canvas theCanvas{1000, 1000};
    LmCvDistance* theItem = nullptr;
};

// A line to the right with the wings (9, 3) and (9, -3) at its start.
void TestDistanceHits::init()
{
    theItem = new LmCvDistance(nullptr, &theCanvas, QStringLiteral("1"), nullptr);
    theItem->setPoints(QPoint(100, 100), QPoint(228, 100));
    theItem->show();
    QCOMPARE(theItem->theWing1, QPoint(9, 3));
    QCOMPARE(theItem->theWing2, QPoint(9, -3));
    QCOMPARE(theItem->theSelSize, 8);
}

void TestDistanceHits::lineIsHitByTheSquaresDiagonals_data()
{
    QTest::addColumn<int>("tolerance");
    QTest::addColumn<int>("above"); // farthest hit above the line
    QTest::addColumn<int>("below");
    // A square of 8 reaches 4 before its middle and 3 behind it: a point 3 above the line touches it with its
    // lower edge, a point 4 below with its upper one.
    QTest::newRow("even 8") << 8 << 3 << 4;
    QTest::newRow("odd 7") << 7 << 3 << 3;
    QTest::newRow("even 4") << 4 << 1 << 2;
    QTest::newRow("odd 5") << 5 << 2 << 2;
}

void TestDistanceHits::lineIsHitByTheSquaresDiagonals()
{
    QFETCH(int, tolerance);
    QFETCH(int, above);
    QFETCH(int, below);
    int node = 7;
    QVERIFY(theItem->isPointOnObject(QPoint(160, 100 - above), node, tolerance));
    QVERIFY(!theItem->isPointOnObject(QPoint(160, 100 - above - 1), node, tolerance));
    QVERIFY(theItem->isPointOnObject(QPoint(160, 100 + below), node, tolerance));
    QVERIFY(!theItem->isPointOnObject(QPoint(160, 100 + below + 1), node, tolerance));
}

void TestDistanceHits::hitOnTheLineHasNodeZero()
{
    int node = 7;
    QVERIFY(theItem->isPointOnObject(QPoint(160, 100), node, 8));
    QCOMPARE(node, 0);
    node = 7;
    QVERIFY(!theItem->isPointOnObject(QPoint(160, 300), node, 8));
    QCOMPARE(node, 0);
}

void TestDistanceHits::startIsHitByEachFlankWithOneDiagonal()
{
    QPoint end(-1, -1);
    // Both tests with squares of side 3: one pixel around the middle. The tip of the first flank is (109,
    // 103); the first diagonal of the square around (110, 104) ends there, the second passes it by.
    QVERIFY(theItem->isPointOnArrow(QPoint(110, 104), end, 3));
    QCOMPARE(end, QPoint(100, 100));
    // The second diagonal around (110, 102) ends at (109, 103) too, but isn't tested with the first flank.
    QVERIFY(!theItem->isPointOnArrow(QPoint(110, 102), end, 3));
    // For the second flank, (109, 97), the second diagonal counts and the first one doesn't.
    end = QPoint(-1, -1);
    QVERIFY(theItem->isPointOnArrow(QPoint(110, 96), end, 3));
    QCOMPARE(end, QPoint(100, 100));
    QVERIFY(!theItem->isPointOnArrow(QPoint(110, 98), end, 3));
}

void TestDistanceHits::endIsHitByItsSecondFlankAlone()
{
    // The end's flanks reach (219, 97) by the first wing and (219, 103) by the second.
    QPoint end(-1, -1);
    QVERIFY(theItem->isPointOnArrow(QPoint(218, 102), end, 3)); // first diagonal
    QCOMPARE(end, QPoint(228, 100));
    end = QPoint(-1, -1);
    QVERIFY(theItem->isPointOnArrow(QPoint(218, 104), end, 3)); // second diagonal
    QCOMPARE(end, QPoint(228, 100));
    end = QPoint(-1, -1);
    QVERIFY(!theItem->isPointOnArrow(QPoint(219, 97), end, 3));
    QVERIFY(!theItem->isPointOnArrow(QPoint(222, 97), end, 3));
    QCOMPARE(end, QPoint(-1, -1));
}

void TestDistanceHits::itemWithoutLengthIsHitAlongTheSquaresDiagonals()
{
    theItem->setPoints(QPoint(100, 100), QPoint(100, 100));
    QPoint end(-1, -1);
    QVERIFY(theItem->isPointOnArrow(QPoint(100, 100), end, 8));
    QCOMPARE(end, QPoint(100, 100));
    int node = 0;
    QVERIFY(!theItem->isPointOnArrow(QPoint(110, 100), end, 8));
    QVERIFY(!theItem->isPointOnObject(QPoint(110, 100), node, 8));
    // A segment of length zero meets every segment on whose straight line it lies, however far away. The
    // first diagonal of a square around (110, 110) lies so, the second of an odd one around (110, 90).
    end = QPoint(-1, -1);
    QVERIFY(theItem->isPointOnArrow(QPoint(110, 110), end, 8));
    QCOMPARE(end, QPoint(100, 100));
    QVERIFY(theItem->isPointOnObject(QPoint(110, 110), node, 8));
    QVERIFY(!theItem->isPointOnArrow(QPoint(110, 111), end, 8));
    QVERIFY(!theItem->isPointOnArrow(QPoint(110, 90), end, 8));
    QVERIFY(theItem->isPointOnArrow(QPoint(110, 90), end, 7));
    QVERIFY(theItem->isPointOnObject(QPoint(110, 90), node, 7));
}

void TestDistanceHits::pressOnTheStartKeepsTheEndStill()
{
    QVERIFY(press(QPoint(100, 100)));
    QVERIFY(theItem->theDragging);
    QVERIFY(!theItem->theMoving);
    QCOMPARE(theItem->theDragPoint, QPoint(228, 100));
    QVERIFY(move(QPoint(90, 40)));
    QCOMPARE(theItem->theStart, QPoint(90, 40));
    QCOMPARE(theItem->theEnd, QPoint(228, 100));
    QVERIFY(theItem->isNodesChanged());
    QVERIFY(move(QPoint(80, 30)));
    QCOMPARE(theItem->theStart, QPoint(80, 30));
    QCOMPARE(theItem->theEnd, QPoint(228, 100));
}

void TestDistanceHits::pressOnTheEndKeepsTheStartStill()
{
    QVERIFY(press(QPoint(228, 100)));
    QVERIFY(theItem->theDragging);
    QCOMPARE(theItem->theDragPoint, QPoint(100, 100));
    QVERIFY(move(QPoint(300, 150)));
    QCOMPARE(theItem->theStart, QPoint(100, 100));
    QCOMPARE(theItem->theEnd, QPoint(300, 150));
}

void TestDistanceHits::arrowHeadComesBeforeTheLine()
{
    // On the line and on the start's flanks at once.
    int node = 0;
    QVERIFY(theItem->isPointOnObject(QPoint(105, 100), node, 8));
    QVERIFY(press(QPoint(105, 100)));
    QVERIFY(theItem->theDragging);
    QVERIFY(!theItem->theMoving);
}

void TestDistanceHits::pressBesideTheEndsFirstFlankTakesTheLine()
{
    // Around (219, 97) lies the end's first flank; the line still touches the hit square, the second flank
    // doesn't.
    QVERIFY(press(QPoint(219, 97)));
    QVERIFY(theItem->theMoving);
    QVERIFY(!theItem->theDragging);
    // The same place beside the second flank takes the end.
    QVERIFY(press(QPoint(219, 103)));
    QVERIFY(theItem->theDragging);
    QVERIFY(!theItem->theMoving);
}

void TestDistanceHits::pressOnTheLineMovesIt()
{
    QVERIFY(press(QPoint(160, 101)));
    QVERIFY(theItem->theMoving);
    QVERIFY(!theItem->theDragging);
    QCOMPARE(theItem->theDragPoint, QPoint(160, 101));
    QVERIFY(!theItem->isNodesChanged());
    QVERIFY(move(QPoint(165, 111)));
    QCOMPARE(theItem->theStart, QPoint(105, 110));
    QCOMPARE(theItem->theEnd, QPoint(233, 110));
    QCOMPARE(theItem->theDragPoint, QPoint(165, 111));
    QVERIFY(theItem->isNodesChanged());
    QVERIFY(move(QPoint(164, 110)));
    QCOMPARE(theItem->theStart, QPoint(104, 109));
}

void TestDistanceHits::missedPressIsIgnored()
{
    QVERIFY(press(QPoint(160, 100)));
    QVERIFY(!press(QPoint(160, 300)));
    QVERIFY(!theItem->theMoving);
    QVERIFY(!theItem->theDragging);
    QVERIFY(!move(QPoint(160, 310)));
    QCOMPARE(theItem->theStart, QPoint(100, 100));
}

void TestDistanceHits::hiddenItemTakesNoPress()
{
    QVERIFY(press(QPoint(160, 100)));
    theItem->hide();
    for (const QPoint& point : {QPoint(160, 100), QPoint(100, 100), QPoint(228, 100)}) {
        QVERIFY(!press(point));
        QVERIFY(!theItem->theMoving);
        QVERIFY(!theItem->theDragging);
    }
}

void TestDistanceHits::moveWithoutPressChangesNothing()
{
    Mouse event(QEvent::MouseMove, QPoint(160, 100));
    QPoint point(160, 100);
    for (const bool accepted : {true, false}) {
        event.setAccepted(accepted);
        theItem->mouseMoveEvent(&event, point);
        QCOMPARE(event.isAccepted(), accepted);
    }
    QCOMPARE(theItem->theStart, QPoint(100, 100));
    QVERIFY(!theItem->isNodesChanged());
}

void TestDistanceHits::releaseEndsAnEditOnly()
{
    QVERIFY(!release(QPoint(160, 100)));
    QVERIFY(!theItem->theEditDone);
    QVERIFY(press(QPoint(160, 100)));
    QVERIFY(release(QPoint(160, 100)));
    QVERIFY(theItem->theEditDone);
    QVERIFY(press(QPoint(100, 100)));
    QVERIFY(!theItem->theEditDone);
    QVERIFY(release(QPoint(100, 100)));
    QVERIFY(theItem->theEditDone);
}

void TestDistanceHits::flagsStayUntilTheNextPress()
{
    press(QPoint(160, 100));
    move(QPoint(165, 100));
    release(QPoint(165, 100));
    QVERIFY(theItem->theMoving);
    QVERIFY(theItem->isNodesChanged());
    QVERIFY(press(QPoint(165, 100)));
    QVERIFY(!theItem->isNodesChanged());
}

void TestDistanceHits::shiftSnapsTheDraggedEnd()
{
    QVERIFY(press(QPoint(228, 100)));
    QPoint point(300, 110); // 2.9 degrees from the end that stands still
    Mouse event(QEvent::MouseMove, point, Qt::ShiftModifier);
    theItem->mouseMoveEvent(&event, point);
    QCOMPARE(theItem->theEnd, QPoint(300, 100));
    QCOMPARE(point, QPoint(300, 100));                  // the corrected point goes back to the editor
    QVERIFY(move(QPoint(200, 190), Qt::ShiftModifier)); // 42 degrees: 100 to the right, so 100 down
    QCOMPARE(theItem->theEnd, QPoint(200, 200));
    QVERIFY(move(QPoint(200, 190)));
    QCOMPARE(theItem->theEnd, QPoint(200, 190));
    QCOMPARE(theItem->theStart, QPoint(100, 100));
}

void TestDistanceHits::shiftDoesNotSnapTheWholeLine()
{
    QVERIFY(press(QPoint(160, 100)));
    QVERIFY(move(QPoint(260, 103), Qt::ShiftModifier));
    QCOMPARE(theItem->theStart, QPoint(200, 103));
}

void TestDistanceHits::clickLeavesTheNodesUnchanged()
{
    theItem->moveObjectBy(QPoint(0, 0));
    QVERIFY(theItem->isNodesChanged());
    press(QPoint(160, 100));
    release(QPoint(160, 100));
    QVERIFY(!theItem->isNodesChanged());
}

MEASURE_TEST_MAIN(TestDistanceHits)
#include "TestDistanceHits.moc"
