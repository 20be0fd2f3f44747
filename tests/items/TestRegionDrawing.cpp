#include "RegionFixture.h"

class TestRegionDrawing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void firstClickMakesOneNode_data();
    void firstClickMakesOneNode();
    void appendedNodeIsTheLast();
    void nodeAtTheFrontIsTheFirst();
    void draggingPullsMirroredHandles_data();
    void draggingPullsMirroredHandles();
    void clickOnTheFirstNodeClosesTheOutline();
    void clickOnTheLastNodeClosesFromTheFront();
    void clickOnTheNearEndClosesNothing();
    void closingClickPullsTheFarHandleAtOnce();
    void closingNeedsTheNodesReach();
    void singleNodeClosesOnItself_data();
    void singleNodeClosesOnItself();
    void closedOutlineGetsFurtherNodes();
    void emptyOutlineIsNotClosedFromTheFront();
    void pencilStepsDragNothing();
    void pencilClosesToo();
    void labelStandsOnceThereIsANode();
};

namespace {

void click(RegionFixture& aFixture, QPoint aPoint, bool aAppend = true)
{
    aFixture.theItem->enterDrawMode(aPoint, aAppend);
}

void drawThree(RegionFixture& aFixture)
{
    for (const QPoint& point : {QPoint(100, 100), QPoint(200, 150), QPoint(300, 120)})
        click(aFixture, point);
    aFixture.theItem->theNodesChanged = false;
}

} // namespace

void TestRegionDrawing::firstClickMakesOneNode_data()
{
    QTest::addColumn<bool>("append");
    QTest::addColumn<LmNodeState::Dragged>("dragged");
    QTest::newRow("append") << true << LmNodeState::kDraggedRightCtrl;
    QTest::newRow("front") << false << LmNodeState::kDraggedLeftCtrl;
}

void TestRegionDrawing::firstClickMakesOneNode()
{
    QFETCH(bool, append);
    QFETCH(LmNodeState::Dragged, dragged);
    RegionFixture f;
    click(f, QPoint(40, 50), append);
    QCOMPARE(QPolygon(f.theItem->thePoints), QPolygon({QPoint(40, 50), QPoint(40, 50), QPoint(40, 50)}));
    QCOMPARE(f.selected(), QList<int>{0});
    QCOMPARE(f.state(0).synchro, LmBezierPoint::kSynchroMirror);
    QCOMPARE(f.state(0).dragged, dragged);
    QCOMPARE(f.theItem->theCurrentNode, 0);
    QCOMPARE(f.theItem->theLastPos, QPoint(40, 50));
    QVERIFY(f.theItem->isNodesChanged());
    QVERIFY(!f.theItem->theClosed);
}

void TestRegionDrawing::appendedNodeIsTheLast()
{
    RegionFixture f;
    drawThree(f);
    QCOMPARE(f.theItem->nodeCount(), 3);
    QCOMPARE(f.anchor(2), QPoint(300, 120));
    QCOMPARE(f.selected(), QList<int>{2});
    QCOMPARE(f.theItem->theCurrentNode, 2);
    QCOMPARE(f.state(1).dragged, LmNodeState::kDraggedNone);
}

void TestRegionDrawing::nodeAtTheFrontIsTheFirst()
{
    RegionFixture f;
    drawThree(f);
    click(f, QPoint(50, 60), false);
    QCOMPARE(f.theItem->nodeCount(), 4);
    QCOMPARE(f.anchor(0), QPoint(50, 60));
    QCOMPARE(f.anchor(3), QPoint(300, 120));
    QCOMPARE(f.selected(), QList<int>{0});
    QCOMPARE(f.theItem->theCurrentNode, 0);
    QCOMPARE(f.state(0).dragged, LmNodeState::kDraggedLeftCtrl);
}

void TestRegionDrawing::draggingPullsMirroredHandles_data()
{
    firstClickMakesOneNode_data();
}

void TestRegionDrawing::draggingPullsMirroredHandles()
{
    QFETCH(bool, append);
    RegionFixture f;
    drawThree(f);
    click(f, QPoint(400, 200), append);
    const int node = append ? 3 : 0;
    QVERIFY(f.move(QPoint(410, 205)));
    QVERIFY(f.move(QPoint(420, 215)));
    const QPoint pulled(420, 215);
    const QPoint mirrored(380, 185);
    QCOMPARE(f.right(node), append ? pulled : mirrored);
    QCOMPARE(f.left(node), append ? mirrored : pulled);
    QCOMPARE(f.anchor(node), QPoint(400, 200));
}

void TestRegionDrawing::clickOnTheFirstNodeClosesTheOutline()
{
    RegionFixture f;
    drawThree(f);
    click(f, QPoint(100, 100));
    QCOMPARE(f.theItem->thePoints.size(), 9);
    QVERIFY(f.isWhole());
    QVERIFY(f.theItem->theClosed && f.theItem->isNodesChanged());
    QCOMPARE(f.selected(), QList<int>{0});
    QCOMPARE(f.state(0).dragged, LmNodeState::kDraggedLeftCtrl);
    QCOMPARE(f.state(0).synchro, LmBezierPoint::kSynchroDirection);
    QCOMPARE(f.theItem->theCurrentNode, 0);
    QCOMPARE(f.theItem->theLastPos, QPoint(100, 100));
    QCOMPARE(f.state(2).dragged, LmNodeState::kDraggedNone);
}

void TestRegionDrawing::clickOnTheLastNodeClosesFromTheFront()
{
    RegionFixture f;
    drawThree(f);
    click(f, QPoint(300, 120), false);
    QCOMPARE(f.theItem->thePoints.size(), 9);
    QVERIFY(f.theItem->theClosed);
    QCOMPARE(f.selected(), QList<int>{2});
    QCOMPARE(f.state(2).dragged, LmNodeState::kDraggedRightCtrl);
    QCOMPARE(f.state(2).synchro, LmBezierPoint::kSynchroDirection);
    QCOMPARE(f.theItem->theCurrentNode, 2);
}

void TestRegionDrawing::clickOnTheNearEndClosesNothing()
{
    for (const bool append : {true, false}) {
        RegionFixture f;
        drawThree(f);
        click(f, append ? QPoint(300, 120) : QPoint(100, 100), append);
        QCOMPARE(f.theItem->nodeCount(), 4);
        QVERIFY(!f.theItem->theClosed);
    }
}

void TestRegionDrawing::closingClickPullsTheFarHandleAtOnce()
{
    RegionFixture f;
    drawThree(f);
    QVERIFY(f.move(QPoint(310, 120))); // pulls the last node's handles
    f.release(QPoint(310, 120));
    f.theItem->thePoints[2] = QPoint(105, 100); // the first one's right handle, 5 long
    click(f, QPoint(100, 102));
    QCOMPARE(f.left(0), QPoint(100, 102));
    QCOMPARE(f.anchor(0), QPoint(100, 100));
    QCOMPARE(f.right(0), QPoint(100, 95));
    // The mouse goes on pulling it.
    QVERIFY(f.move(QPoint(90, 102)));
    QCOMPARE(f.left(0), QPoint(90, 102));
}

void TestRegionDrawing::closingNeedsTheNodesReach()
{
    RegionFixture f;
    drawThree(f);
    click(f, QPoint(103, 101)); // 10 is above 9
    QVERIFY(!f.theItem->theClosed);
    click(f, QPoint(103, 100));
    QVERIFY(f.theItem->theClosed);
    QCOMPARE(f.theItem->nodeCount(), 4);
}

void TestRegionDrawing::singleNodeClosesOnItself_data()
{
    QTest::addColumn<bool>("append");
    QTest::newRow("append") << true;
    QTest::newRow("front") << false;
}

void TestRegionDrawing::singleNodeClosesOnItself()
{
    QFETCH(bool, append);
    RegionFixture f;
    click(f, QPoint(40, 50), append);
    click(f, QPoint(40, 50), append);
    QCOMPARE(f.theItem->nodeCount(), 1);
    QVERIFY(f.theItem->theClosed);
    QCOMPARE(f.theItem->theCurrentNode, 0);
    QCOMPARE(f.state(0).dragged, append ? LmNodeState::kDraggedLeftCtrl : LmNodeState::kDraggedRightCtrl);
}

void TestRegionDrawing::closedOutlineGetsFurtherNodes()
{
    RegionFixture f;
    drawThree(f);
    f.theItem->theClosed = true;
    click(f, QPoint(100, 100));
    QCOMPARE(f.theItem->nodeCount(), 4);
    QCOMPARE(f.anchor(3), QPoint(100, 100));
    click(f, QPoint(100, 100), false);
    QCOMPARE(f.theItem->nodeCount(), 5);
    QVERIFY(f.theItem->theClosed);
}

void TestRegionDrawing::emptyOutlineIsNotClosedFromTheFront()
{
    RegionFixture f;
    click(f, QPoint(0, 0), false);
    QCOMPARE(f.theItem->nodeCount(), 1);
    QVERIFY(!f.theItem->theClosed);
}

void TestRegionDrawing::pencilStepsDragNothing()
{
    RegionFixture f;
    f.theItem->setNodesShown(false);
    drawThree(f);
    QCOMPARE(f.theItem->theCurrentNode, -1);
    QCOMPARE(f.theItem->theLastPos, QPoint(0, 0));
    for (int i = 0; i < 3; ++i)
        QCOMPARE(f.state(i).dragged, LmNodeState::kDraggedNone);
    QCOMPARE(f.selected(), QList<int>{2});
}

void TestRegionDrawing::pencilClosesToo()
{
    RegionFixture f;
    f.theItem->setNodesShown(false);
    drawThree(f);
    click(f, QPoint(101, 101));
    QVERIFY(f.theItem->theClosed);
    QCOMPARE(f.theItem->nodeCount(), 3);
}

void TestRegionDrawing::labelStandsOnceThereIsANode()
{
    RegionFixture f;
    QVERIFY(f.theItem->theLabelRect.isNull());
    f.theItem->updateLabel();
    QVERIFY(f.theItem->theLabelRect.isNull());
    click(f, QPoint(400, 300));
    QCOMPARE(f.theItem->theLabelRect.center(), QPoint(400, 285));
    click(f, QPoint(500, 400), false);
    QCOMPARE(f.theItem->theLabelRect.center(), QPoint(500, 385));
}

MEASURE_TEST_MAIN(TestRegionDrawing)
#include "TestRegionDrawing.moc"
