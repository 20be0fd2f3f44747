#include "RegionFixture.h"

class TestRegionMouse : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pressOnANodeSelectsItAlone();
    void pressOnASelectedNodeKeepsTheGroup();
    void nodeComesBeforeAHandleAtItsPlace();
    void shiftTogglesANode();
    void altRestartsTheHandlesOfANode();
    void altOnASelectedNodeDeselectsTheOthers();
    void altIsAPlainPressWithoutHandles();
    void rightPressOnANodeDeselectsAll();
    void middlePressOnANodeIsLeftAlone();
    void pressOnAHandleDragsIt();
    void pressOnAHandleDeselectsTheOtherNodes();
    void pressedMirrorFallsBackToDirection();
    void altBreaksTheHandlesApart();
    void handlesTakeTheLeftButtonOnly();
    void insideOfAClosedOutlineGrabsIt();
    void insideOfAnOpenOutlineIsIgnored();
    void hiddenRegionIgnoresThePress();
    void pressForgetsTheFormerChange();
    void positionsOfThePressAreKept();
};

void TestRegionMouse::pressOnANodeSelectsItAlone()
{
    RegionFixture f;
    f.addThree();
    f.theItem->setNodeSelected(0, true);
    f.theItem->setNodeSelected(2, true);
    QVERIFY(f.press(QPoint(201, 151)));
    QCOMPARE(f.selected(), QList<int>{1});
    QCOMPARE(f.state(1).dragged, LmNodeState::kDraggedAnchor);
    QCOMPARE(f.theItem->theCurrentNode, 1);
    QVERIFY(!f.theItem->isNodesChanged());
}

void TestRegionMouse::pressOnASelectedNodeKeepsTheGroup()
{
    RegionFixture f;
    f.addThree();
    f.theItem->setNodeSelected(0, true);
    f.theItem->setNodeSelected(1, true);
    QVERIFY(f.press(QPoint(200, 150)));
    QCOMPARE(f.selected(), (QList<int>{0, 1}));
    QCOMPARE(f.state(1).dragged, LmNodeState::kDraggedAnchor);
    QCOMPARE(f.theItem->theCurrentNode, 1);
}

void TestRegionMouse::nodeComesBeforeAHandleAtItsPlace()
{
    RegionFixture f;
    f.add(QPoint(100, 100), QPoint(-10, 0), QPoint(100, 50));
    f.add(QPoint(200, 150));
    f.theItem->setNodeSelected(0, true);
    auto dragged = LmNodeState::kDraggedNone;
    QCOMPARE(f.theItem->pointOnControl(QPoint(200, 150), dragged), 0);
    QVERIFY(f.press(QPoint(200, 150)));
    QCOMPARE(f.theItem->theCurrentNode, 1);
    QCOMPARE(f.state(1).dragged, LmNodeState::kDraggedAnchor);
    QCOMPARE(f.selected(), QList<int>{1});
}

void TestRegionMouse::shiftTogglesANode()
{
    RegionFixture f;
    f.addThree();
    f.theItem->setNodeSelected(0, true);
    QVERIFY(f.press(QPoint(200, 150), Qt::ShiftModifier));
    QCOMPARE(f.selected(), (QList<int>{0, 1}));
    QCOMPARE(f.state(1).dragged, LmNodeState::kDraggedAnchor);
    QCOMPARE(f.theItem->theCurrentNode, 1);
    QVERIFY(f.press(QPoint(200, 150), Qt::ShiftModifier | Qt::AltModifier)); // Shift is asked first
    QCOMPARE(f.selected(), QList<int>{0});
    QCOMPARE(f.state(1).dragged, LmNodeState::kDraggedNone);
    QCOMPARE(f.theItem->theCurrentNode, -1);
    QCOMPARE(f.left(1), QPoint(180, 145));
}

void TestRegionMouse::altRestartsTheHandlesOfANode()
{
    RegionFixture f;
    f.addThree();
    f.theItem->setNodeSelected(0, true);
    QVERIFY(f.press(QPoint(200, 150), Qt::AltModifier));
    QCOMPARE(f.selected(), QList<int>{1});
    QCOMPARE(f.left(1), QPoint(200, 150));
    QCOMPARE(f.right(1), QPoint(200, 150));
    QCOMPARE(f.state(1).synchro, LmBezierPoint::kSynchroMirror);
    QCOMPARE(f.state(1).dragged, LmNodeState::kDraggedRightCtrl);
    QCOMPARE(f.theItem->theCurrentNode, 1);
    QVERIFY(f.theItem->isNodesChanged());
    QVERIFY(f.move(QPoint(207, 146)));
    QCOMPARE(f.right(1), QPoint(207, 146));
    QCOMPARE(f.left(1), QPoint(193, 154));
}

void TestRegionMouse::altOnASelectedNodeDeselectsTheOthers()
{
    RegionFixture f;
    f.addThree();
    for (int i = 0; i < 3; ++i)
        f.theItem->setNodeSelected(unsigned(i), true);
    QVERIFY(f.press(QPoint(200, 150), Qt::AltModifier));
    QCOMPARE(f.selected(), QList<int>{1});
}

void TestRegionMouse::altIsAPlainPressWithoutHandles()
{
    RegionFixture f;
    f.addThree();
    f.theItem->theHandlesEnabled = false;
    QVERIFY(f.press(QPoint(200, 150), Qt::AltModifier));
    QCOMPARE(f.selected(), QList<int>{1});
    QCOMPARE(f.state(1).dragged, LmNodeState::kDraggedAnchor);
    QCOMPARE(f.state(1).synchro, LmBezierPoint::kSynchroDirection);
    QCOMPARE(f.left(1), QPoint(180, 145));
    QVERIFY(!f.theItem->isNodesChanged());
}

void TestRegionMouse::rightPressOnANodeDeselectsAll()
{
    RegionFixture f;
    f.addThree();
    f.theItem->setNodeSelected(0, true);
    f.theItem->setNodeSelected(1, true);
    QVERIFY(f.press(QPoint(200, 150), {}, Qt::RightButton));
    QVERIFY(f.selected().isEmpty());
    QCOMPARE(f.theItem->theCurrentNode, -1);
}

void TestRegionMouse::middlePressOnANodeIsLeftAlone()
{
    RegionFixture f;
    f.addThree();
    f.theItem->setNodeSelected(0, true);
    for (const bool accepted : {true, false}) {
        QPoint point(200, 150);
        Mouse event(QEvent::MouseButtonPress, point, {}, Qt::MiddleButton);
        event.setAccepted(accepted);
        f.theItem->mousePressEvent(&event, point);
        QCOMPARE(event.isAccepted(), accepted);
    }
    QCOMPARE(f.selected(), QList<int>{0});
    QCOMPARE(f.theItem->theCurrentNode, -1);
}

void TestRegionMouse::pressOnAHandleDragsIt()
{
    RegionFixture f;
    f.addThree();
    f.theItem->setNodeSelected(1, true);
    QVERIFY(f.press(QPoint(179, 144)));
    QCOMPARE(f.theItem->theCurrentNode, 1);
    QCOMPARE(f.state(1).dragged, LmNodeState::kDraggedLeftCtrl);
    QVERIFY(f.press(QPoint(220, 155)));
    QCOMPARE(f.state(1).dragged, LmNodeState::kDraggedRightCtrl);
    QVERIFY(!f.theItem->isNodesChanged());
}

void TestRegionMouse::pressOnAHandleDeselectsTheOtherNodes()
{
    RegionFixture f;
    f.addThree();
    f.theItem->selectNodes(QPoint(0, 0), QSize(900, 700));
    QVERIFY(f.press(QPoint(180, 145)));
    QCOMPARE(f.selected(), QList<int>{1});
}

void TestRegionMouse::pressedMirrorFallsBackToDirection()
{
    RegionFixture f;
    f.addThree();
    f.theItem->setNodeSelected(1, true);
    f.theItem->setNodeSynchro(1, LmBezierPoint::kSynchroMirror);
    QVERIFY(f.press(QPoint(180, 145)));
    QCOMPARE(f.state(1).synchro, LmBezierPoint::kSynchroDirection);
    QVERIFY(f.move(QPoint(160, 145)));
    f.release(QPoint(160, 145));
    QCOMPARE(f.left(1), QPoint(160, 145));
    // Away from (-40, -5), as long as (20, 5) is: 20.6.
    QCOMPARE(f.right(1), QPoint(220, 153));
    QVERIFY(f.press(QPoint(160, 145)));
    QCOMPARE(f.state(1).synchro, LmBezierPoint::kSynchroDirection);
}

void TestRegionMouse::altBreaksTheHandlesApart()
{
    for (const auto synchro : {LmBezierPoint::kSynchroMirror, LmBezierPoint::kSynchroDirection}) {
        RegionFixture f;
        f.addThree();
        f.theItem->setNodeSelected(1, true);
        f.theItem->setNodeSynchro(1, synchro);
        QVERIFY(f.press(QPoint(220, 155), Qt::AltModifier));
        QCOMPARE(f.state(1).synchro, LmBezierPoint::kSynchroNone);
        QVERIFY(f.move(QPoint(230, 190)));
        QCOMPARE(f.right(1), QPoint(230, 190));
        QCOMPARE(f.left(1), QPoint(180, 145));
    }
}

void TestRegionMouse::handlesTakeTheLeftButtonOnly()
{
    RegionFixture f;
    f.addThree();
    f.theItem->setNodeSelected(1, true);
    f.theItem->setNodeSynchro(1, LmBezierPoint::kSynchroMirror);
    for (const auto button : {Qt::RightButton, Qt::MiddleButton}) {
        for (const bool accepted : {true, false}) {
            QPoint point(180, 145);
            Mouse event(QEvent::MouseButtonPress, point, {}, button);
            event.setAccepted(accepted);
            f.theItem->mousePressEvent(&event, point);
            QCOMPARE(event.isAccepted(), accepted);
        }
    }
    QCOMPARE(f.theItem->theCurrentNode, -1);
    QCOMPARE(f.state(1).synchro, LmBezierPoint::kSynchroMirror);
    QCOMPARE(f.selected(), QList<int>{1});
}

void TestRegionMouse::insideOfAClosedOutlineGrabsIt()
{
    RegionFixture f;
    for (const QPoint& corner : {QPoint(100, 100), QPoint(200, 100), QPoint(200, 200), QPoint(100, 200)})
        f.add(corner);
    f.theItem->setClosed(true);
    f.theItem->setNodeSelected(0, true);
    f.theItem->theCurrentNode = 2;
    QVERIFY(f.press(QPoint(150, 130)));
    QCOMPARE(f.theItem->theCurrentNode, -1);
    QVERIFY(f.selected().isEmpty());
    const QPolygon before = f.theItem->thePoints;
    QVERIFY(f.move(QPoint(157, 128)));
    QCOMPARE(QPolygon(f.theItem->thePoints), before.translated(7, -2));
    QVERIFY(f.theItem->isNodesChanged());
}

void TestRegionMouse::insideOfAnOpenOutlineIsIgnored()
{
    RegionFixture f;
    for (const QPoint& corner : {QPoint(100, 100), QPoint(200, 100), QPoint(200, 200), QPoint(100, 200)})
        f.add(corner);
    f.theItem->setNodeSelected(0, true);
    QVERIFY(!f.press(QPoint(150, 130)));
    QCOMPARE(f.selected(), QList<int>{0});
    QVERIFY(f.press(QPoint(150, 101)));
    QVERIFY(f.selected().isEmpty());
}

void TestRegionMouse::hiddenRegionIgnoresThePress()
{
    RegionFixture f;
    f.addThree();
    f.theItem->hide();
    f.theItem->theNodesChanged = true;
    QPoint point(200, 150);
    Mouse event(QEvent::MouseButtonPress, point);
    event.accept();
    f.theItem->mousePressEvent(&event, point);
    QVERIFY(!event.isAccepted());
    QVERIFY(!f.theItem->isNodesChanged());
    QVERIFY(f.selected().isEmpty());
    QCOMPARE(f.theItem->thePressPos, QPoint(0, 0));
}

void TestRegionMouse::pressForgetsTheFormerChange()
{
    RegionFixture f;
    f.addThree();
    f.theItem->theNodesChanged = true;
    QVERIFY(!f.press(QPoint(700, 700)));
    QVERIFY(!f.theItem->isNodesChanged());
}

void TestRegionMouse::positionsOfThePressAreKept()
{
    RegionFixture f;
    f.addThree();
    QVERIFY(!f.press(QPoint(700, 600)));
    QCOMPARE(f.theItem->thePressPos, QPoint(700, 600));
    QCOMPARE(f.theItem->theLastPos, QPoint(700, 600));
    QVERIFY(f.press(QPoint(201, 151)));
    QVERIFY(f.move(QPoint(205, 155)));
    QCOMPARE(f.theItem->thePressPos, QPoint(201, 151));
    QCOMPARE(f.theItem->theLastPos, QPoint(205, 155));
}

MEASURE_TEST_MAIN(TestRegionMouse)
#include "TestRegionMouse.moc"
