#include "ItemMouse.h"
#include "LmCvArrow.h"
#include "Q3Canvas.h"
#include "Q3CanvasView.h"
#include "TestFont.h"

#include <utility>

/// Tip and label of a mark under the mouse.
class TestArrowDrag : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { delete theItem; }

    void pressOnTheTipDragsTheTipAlone();
    void tailFollowsTheTipAroundTheLabel();
    void pressOnTheLabelDragsTheWholeMark();
    void pressOnTheShaftDragsTheWholeMark();
    void pressOnTheFarBarbIsNoPressOnTheTip();
    void tipComesBeforeTheShaft();
    void missedPressIsIgnored();
    void hiddenMarkTakesNoPress();
    void tipIsNoHandleWhileTheArrowIsNotShown();
    void moveWithoutPressChangesNothing();
    void releaseEndsADragOnly();
    void clickLeavesTheMarkUnchanged();
    void movingFlagsStayUntilTheNextPress();
    void hitSquareGrowsBelowZoomOne();
    void whoeverCountsChangesSeesThemAll();

private:
    Q3Canvas theCanvas{1000, 1000};
    Q3CanvasView theView{&theCanvas};
    LmCvArrow* theItem = nullptr;
};

// Label left 80, top 84, right 120, bottom 100; the arrow from (122, 92) to (222, 92) with the back corners
// (213, 89) and, behind the second barb, (213, 95).
void TestArrowDrag::init()
{
    theItem = new LmCvArrow(nullptr, &theCanvas, QStringLiteral("Counter"), &theView);
    theItem->setStartPoint(QPoint(100, 100));
    theItem->theTextRect = QRect(QPoint(80, 84), QPoint(120, 100));
    theItem->setEndPoint(QPoint(222, 92));
    theItem->show();
    QCOMPARE(theItem->theSelSize, 8);
}

void TestArrowDrag::pressOnTheTipDragsTheTipAlone()
{
    theItem->theNodesChanged = true;
    theItem->theDragFinished = true;
    QVERIFY(pressOn(*theItem, QPoint(221, 93)));
    QVERIFY(theItem->theMovingTip && !theItem->theMovingLabel);
    QVERIFY(!theItem->theNodesChanged && !theItem->theDragFinished);
    QCOMPARE(theItem->theLastPos, QPoint(222, 92)); // the tip, not the mouse
    QCOMPARE(theItem->theEndPoint, QPoint(222, 92));
    QVERIFY(moveOn(*theItem, QPoint(180, 220)));
    QCOMPARE(theItem->theEndPoint, QPoint(180, 220));
    QCOMPARE(theItem->theTailPoint, QPoint(100, 100));
    QCOMPARE(theItem->theTextRect, QRect(QPoint(80, 84), QPoint(120, 100)));
    QVERIFY(theItem->isNodesChanged());
    QVERIFY(releaseOn(*theItem, QPoint(180, 220)));
    QVERIFY(theItem->theDragFinished);
}

void TestArrowDrag::tailFollowsTheTipAroundTheLabel()
{
    QVERIFY(pressOn(*theItem, QPoint(222, 92)));
    moveOn(*theItem, QPoint(100, 20));
    QCOMPARE(theItem->theTailPoint, QPoint(100, 84));
    moveOn(*theItem, QPoint(10, 90));
    QCOMPARE(theItem->theTailPoint, QPoint(78, 92));
    moveOn(*theItem, QPoint(10, 190));
    QCOMPARE(theItem->theTailPoint, QPoint(100, 100));
}

void TestArrowDrag::pressOnTheLabelDragsTheWholeMark()
{
    QVERIFY(pressOn(*theItem, QPoint(90, 90)));
    QVERIFY(theItem->theMovingLabel && !theItem->theMovingTip);
    QCOMPARE(theItem->theLastPos, QPoint(90, 90));
    QVERIFY(moveOn(*theItem, QPoint(95, 80)));
    QVERIFY(moveOn(*theItem, QPoint(60, 130)));
    QCOMPARE(theItem->theLastPos, QPoint(60, 130));
    QCOMPARE(theItem->theTextRect, QRect(QPoint(50, 124), QPoint(90, 140)));
    QCOMPARE(QPointF(theItem->x(), theItem->y()), QPointF(70, 140));
    QCOMPARE(theItem->theEndPoint, QPoint(192, 132));
    QCOMPARE(theItem->theTailPoint, QPoint(92, 132));
    QVERIFY(theItem->isNodesChanged());
    QVERIFY(releaseOn(*theItem, QPoint(60, 130)));
}

void TestArrowDrag::pressOnTheShaftDragsTheWholeMark()
{
    QVERIFY(pressOn(*theItem, QPoint(160, 94)));
    QVERIFY(moveOn(*theItem, QPoint(163, 98)));
    QCOMPARE(theItem->theEndPoint, QPoint(225, 96));
    QCOMPARE(theItem->theTextRect.topLeft(), QPoint(83, 88));
}

void TestArrowDrag::pressOnTheFarBarbIsNoPressOnTheTip()
{
    theItem->theSelSize = 3;
    QVERIFY(!pressOn(*theItem, QPoint(213, 89))); // misses the near barb and the shaft
    theItem->theSelSize = 8;
    QVERIFY(pressOn(*theItem, QPoint(211, 89))); // meets the shaft
    QVERIFY(theItem->theMovingLabel && !theItem->theMovingTip);
    QVERIFY(pressOn(*theItem, QPoint(218, 91))); // so near to the tip that it meets both
    QVERIFY(theItem->theMovingTip && !theItem->theMovingLabel);
}

void TestArrowDrag::tipComesBeforeTheShaft()
{
    int node = 0;
    QVERIFY(theItem->isPointOnObject(QPoint(216, 94), node, 8));
    QVERIFY(pressOn(*theItem, QPoint(216, 94)));
    QVERIFY(theItem->theMovingTip);
}

void TestArrowDrag::missedPressIsIgnored()
{
    QVERIFY(pressOn(*theItem, QPoint(90, 90)));
    QVERIFY(releaseOn(*theItem, QPoint(90, 90)));
    QVERIFY(!pressOn(*theItem, QPoint(90, 140)));
    QVERIFY(!theItem->theMovingLabel && !theItem->theMovingTip);
    QVERIFY(theItem->theDragFinished); // of the drag before
}

void TestArrowDrag::hiddenMarkTakesNoPress()
{
    QVERIFY(pressOn(*theItem, QPoint(90, 90)));
    theItem->hide();
    QVERIFY(!pressOn(*theItem, QPoint(90, 90)));
    QVERIFY(!pressOn(*theItem, QPoint(222, 92)));
    QVERIFY(!theItem->theMovingLabel && !theItem->theMovingTip);
}

void TestArrowDrag::tipIsNoHandleWhileTheArrowIsNotShown()
{
    theItem->theParts = 2;
    QVERIFY(!pressOn(*theItem, QPoint(222, 92)));
    QVERIFY(pressOn(*theItem, QPoint(90, 90)));
    QVERIFY(theItem->theMovingLabel);
}

void TestArrowDrag::moveWithoutPressChangesNothing()
{
    QVERIFY(!moveOn(*theItem, QPoint(50, 50)));
    QCOMPARE(theItem->theEndPoint, QPoint(222, 92));
    QCOMPARE(theItem->theTextRect.topLeft(), QPoint(80, 84));
    QVERIFY(!theItem->isNodesChanged());
}

void TestArrowDrag::releaseEndsADragOnly()
{
    QVERIFY(!releaseOn(*theItem, QPoint(90, 90)));
    QVERIFY(!theItem->theDragFinished);
}

void TestArrowDrag::clickLeavesTheMarkUnchanged()
{
    for (const QPoint& point : {QPoint(90, 90), QPoint(222, 92), QPoint(160, 92)}) {
        QVERIFY(pressOn(*theItem, point));
        QVERIFY(releaseOn(*theItem, point));
        QVERIFY(!theItem->isNodesChanged());
        QCOMPARE(theItem->theEndPoint, QPoint(222, 92));
    }
}

void TestArrowDrag::movingFlagsStayUntilTheNextPress()
{
    QVERIFY(pressOn(*theItem, QPoint(222, 92)));
    QVERIFY(releaseOn(*theItem, QPoint(222, 92)));
    QVERIFY(theItem->theMovingTip);
    QVERIFY(pressOn(*theItem, QPoint(90, 90)));
    QVERIFY(!theItem->theMovingTip && theItem->theMovingLabel);
}

void TestArrowDrag::hitSquareGrowsBelowZoomOne()
{
    theItem->theParts = 1;
    QVERIFY(!pressOn(*theItem, QPoint(160, 99)));
    theItem->adjustScale(QTransform::fromScale(0.5, 0.5)); // a square of 16
    theItem->theTextRect = QRect(QPoint(80, 84), QPoint(120, 100));
    theItem->setEndPoint(QPoint(222, 92));
    QVERIFY(pressOn(*theItem, QPoint(160, 99)));
    QVERIFY(!pressOn(*theItem, QPoint(160, 101)));
}

void TestArrowDrag::whoeverCountsChangesSeesThemAll()
{
    quint64 known = LmCvArrow::changeCount();
    const auto hasChanged = [&known] {
        const quint64 before = std::exchange(known, LmCvArrow::changeCount());
        return known != before;
    };
    QVERIFY(!hasChanged());
    theItem->setText(QStringLiteral("1 #1"));
    QVERIFY(hasChanged());
    theItem->setStartPoint(QPoint(100, 100));
    QVERIFY(hasChanged());
    theItem->setEndPoint(QPoint(222, 92));
    QVERIFY(hasChanged());
    theItem->setFont(QFont(QStringLiteral("MS Shell Dlg"), 10));
    QVERIFY(hasChanged());
    theItem->adjustScale(QTransform());
    QVERIFY(hasChanged());
    QVERIFY(pressOn(*theItem, theItem->theTextRect.center()));
    QVERIFY(hasChanged());
    moveOn(*theItem, QPoint(300, 300));
    QVERIFY(hasChanged());
    theItem->moveObjectBy(QPoint(1, 1));
    QVERIFY(hasChanged());
    theItem->move(7.0, 8.0);
    QVERIFY(hasChanged());
    theItem->hide();
    QVERIFY(hasChanged());
    theItem->setColor(QColor(Qt::blue));
    QVERIFY(hasChanged());
    theItem->setStep(2.0, QStringLiteral("mm"));
    QVERIFY(hasChanged());
    // Being current or in a group belongs to the person at the mouse.
    theItem->setActive(true);
    theItem->setSelected(true);
    QVERIFY(!hasChanged());
}

MEASURE_TEST_MAIN(TestArrowDrag)
#include "TestArrowDrag.moc"
