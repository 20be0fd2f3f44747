#include "RegionFixture.h"

class TestRegionDrag : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void draggedNodeTakesItsHandlesAlong();
    void selectedNodesMoveTogether();
    void deselectedCurrentNodeMovesNothing();
    void shiftSnapsAHandle();
    void shiftDoesNotSnapAnAnchor();
    void handleDragLeavesTheLabel();
    void anchorDragTakesTheLabelAlong();
    void hiddenRegionIgnoresTheMove();
    void nodeOutOfActionIgnoresTheMove();
    void nodeThatIsGoneIgnoresTheMove();
    void releaseEndsTheAction();
    void releaseOfAHiddenRegionKeepsTheNode();
    void draggedPartOutlivesTheRelease();
    void endsOfTheIntRangeStayInside();
};

void TestRegionDrag::draggedNodeTakesItsHandlesAlong()
{
    RegionFixture f;
    f.addThree();
    QVERIFY(f.press(QPoint(201, 151)));
    QVERIFY(f.move(QPoint(206, 149)));
    QVERIFY(f.move(QPoint(211, 148)));
    QCOMPARE(f.anchor(1), QPoint(210, 147));
    QCOMPARE(f.left(1), QPoint(190, 142));
    QCOMPARE(f.right(1), QPoint(230, 152));
    QCOMPARE(f.anchor(0), QPoint(100, 100));
    QVERIFY(f.theItem->isNodesChanged());
}

void TestRegionDrag::selectedNodesMoveTogether()
{
    RegionFixture f;
    f.addThree();
    f.add(QPoint(500, 500));
    const QPolygon before = f.theItem->thePoints;
    for (int i = 0; i < 3; ++i)
        f.theItem->setNodeSelected(unsigned(i), true);
    QVERIFY(f.press(QPoint(200, 150)));
    QVERIFY(f.move(QPoint(190, 160)));
    QCOMPARE(QPolygon(f.theItem->thePoints.mid(0, 9)), QPolygon(before.mid(0, 9)).translated(-10, 10));
    QCOMPARE(f.anchor(3), QPoint(500, 500));
}

void TestRegionDrag::deselectedCurrentNodeMovesNothing()
{
    RegionFixture f;
    f.addThree();
    QVERIFY(f.press(QPoint(200, 150)));
    f.theItem->setNodeSelected(1, false);
    f.theItem->theNodesChanged = false;
    const Q3PointArray before = f.theItem->thePoints;
    QVERIFY(f.move(QPoint(210, 160)));
    QCOMPARE(f.theItem->thePoints, before);
    QVERIFY(!f.theItem->isNodesChanged());
}

void TestRegionDrag::shiftSnapsAHandle()
{
    RegionFixture f;
    f.add(QPoint(100, 100), QPoint(-20, 0), QPoint(20, 0));
    f.theItem->setNodeSelected(0, true);
    QVERIFY(f.press(QPoint(120, 100), Qt::AltModifier));
    QPoint point(150, 110); // 11 degrees
    QVERIFY(f.move(point, Qt::ShiftModifier));
    QCOMPARE(point, QPoint(150, 100)); // goes back to the editor
    QCOMPARE(f.right(0), QPoint(150, 100));
    QCOMPARE(f.theItem->theLastPos, QPoint(150, 100));
    point = QPoint(150, 140); // 38.7 degrees: 50 to the right, so 50 down
    QVERIFY(f.move(point, Qt::ShiftModifier));
    QCOMPARE(f.right(0), QPoint(150, 150));
    QVERIFY(f.move(QPoint(151, 111)));
    QCOMPARE(f.right(0), QPoint(151, 111));
    QCOMPARE(f.left(0), QPoint(80, 100));
    f.release(QPoint(151, 111));
    QVERIFY(f.press(QPoint(80, 100), Qt::AltModifier));
    point = QPoint(60, 104);
    QVERIFY(f.move(point, Qt::ShiftModifier));
    QCOMPARE(point, QPoint(60, 100));
    QCOMPARE(f.left(0), QPoint(60, 100));
}

void TestRegionDrag::shiftDoesNotSnapAnAnchor()
{
    RegionFixture f;
    f.addThree();
    QVERIFY(f.press(QPoint(200, 150)));
    QPoint point(250, 153);
    QVERIFY(f.move(point, Qt::ShiftModifier));
    QCOMPARE(point, QPoint(250, 153));
    QCOMPARE(f.anchor(1), QPoint(250, 153));
    f.release(point);
    point = QPoint(260, 155);
    QVERIFY(f.move(point, Qt::ShiftModifier)); // nor the whole outline
    QCOMPARE(f.anchor(1), QPoint(260, 155));
}

void TestRegionDrag::handleDragLeavesTheLabel()
{
    RegionFixture f;
    f.addThree();
    f.theItem->theLabelRect = QRect(1, 2, 3, 4);
    f.theItem->setNodeSelected(0, true);
    QVERIFY(f.press(QPoint(90, 100)));
    QVERIFY(f.move(QPoint(80, 130)));
    QCOMPARE(f.theItem->theLabelRect, QRect(1, 2, 3, 4));
}

void TestRegionDrag::anchorDragTakesTheLabelAlong()
{
    RegionFixture f;
    f.addThree();
    QVERIFY(f.press(QPoint(100, 100)));
    QVERIFY(f.move(QPoint(130, 160)));
    QCOMPARE(f.theItem->theLabelRect.center(), QPoint(130, 145));
}

void TestRegionDrag::hiddenRegionIgnoresTheMove()
{
    RegionFixture f;
    f.addThree();
    QVERIFY(f.press(QPoint(200, 150)));
    f.theItem->hide();
    const Q3PointArray before = f.theItem->thePoints;
    QVERIFY(!f.move(QPoint(210, 160)));
    QCOMPARE(f.theItem->thePoints, before);
    QCOMPARE(f.theItem->theLastPos, QPoint(200, 150));
}

void TestRegionDrag::nodeOutOfActionIgnoresTheMove()
{
    RegionFixture f;
    f.addThree();
    f.theItem->theCurrentNode = 1;
    const Q3PointArray before = f.theItem->thePoints;
    QVERIFY(!f.move(QPoint(210, 160)));
    QCOMPARE(f.theItem->thePoints, before);
    QCOMPARE(f.theItem->theLastPos, QPoint(210, 160));
    QVERIFY(!f.theItem->isNodesChanged());
}

void TestRegionDrag::nodeThatIsGoneIgnoresTheMove()
{
    RegionFixture f;
    f.addThree();
    QVERIFY(f.press(QPoint(300, 120)));
    f.theItem->setPoints(QPoint(0, 0), Q3PointArray(QPolygon(6)), {});
    for (const Qt::KeyboardModifier modifier : {Qt::NoModifier, Qt::ShiftModifier}) {
        QPoint point(310, 130);
        QVERIFY(!f.move(point, modifier));
        QCOMPARE(f.theItem->thePoints, Q3PointArray(QPolygon(6)));
    }
    f.theItem->setPoints(QPoint(0, 0), {}, {});
    QVERIFY(!f.move(QPoint(320, 130)));
    f.release(QPoint(320, 130));
    QCOMPARE(f.theItem->theCurrentNode, -1);
}

void TestRegionDrag::releaseEndsTheAction()
{
    RegionFixture f;
    f.addThree();
    QVERIFY(f.press(QPoint(200, 150)));
    QVERIFY(f.move(QPoint(210, 160)));
    QVERIFY(f.theItem->isNodesChanged());
    f.theItem->theCreatedNode = 4;
    f.release(QPoint(210, 160));
    QCOMPARE(f.theItem->theCurrentNode, -1);
    QCOMPARE(f.theItem->getCreatedNode(), -1);
    QVERIFY(!f.theItem->isNodesChanged());
    QCOMPARE(f.selected(), QList<int>{1});
}

void TestRegionDrag::releaseOfAHiddenRegionKeepsTheNode()
{
    RegionFixture f;
    f.addThree();
    QVERIFY(f.press(QPoint(200, 150)));
    f.theItem->hide();
    f.theItem->theNodesChanged = true;
    f.theItem->theCreatedNode = 4;
    f.release(QPoint(210, 160));
    QCOMPARE(f.theItem->theCurrentNode, 1);
    QCOMPARE(f.theItem->getCreatedNode(), -1);
    QVERIFY(!f.theItem->isNodesChanged());
}

void TestRegionDrag::draggedPartOutlivesTheRelease()
{
    RegionFixture f;
    f.addThree();
    QVERIFY(f.press(QPoint(200, 150)));
    f.release(QPoint(200, 150));
    QCOMPARE(f.state(1).dragged, LmNodeState::kDraggedAnchor);
    QVERIFY(f.press(QPoint(300, 120)));
    QCOMPARE(f.state(1).dragged, LmNodeState::kDraggedNone);
}

void TestRegionDrag::endsOfTheIntRangeStayInside()
{
    const QPoint corners[] = {{kMin, kMin}, {kMax, kMax}, {kMin, kMax}, {kMax, kMin}, {0, 0}};
    for (const QPoint& from : corners)
        for (const QPoint& to : corners)
            for (const Qt::KeyboardModifiers modifiers :
                 {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::AltModifier | Qt::ShiftModifier)}) {
                RegionFixture f;
                LmBezierPoint node(true, false, LmBezierPoint::kSynchroMirror);
                node.fill(from);
                f.theItem->addNode(node, -1, LmNodeState());
                f.theItem->addNode(node, -1, LmNodeState());
                f.theItem->setClosed(true);
                QVERIFY(f.press(from, modifiers & Qt::AltModifier));
                QPoint point = to;
                QVERIFY(f.move(point, modifiers));
                QVERIFY(f.isWhole());
                f.release(point);
                QPoint drawn = to;
                f.theItem->enterDrawMode(drawn, true);
                f.theItem->enterDrawMode(drawn, false);
                f.theItem->moveObjectBy(from);
                QCOMPARE(f.theItem->nodeCount(), 4);
                QCOMPARE(f.theItem->areaPoints().size(), 4);
            }
}

MEASURE_TEST_MAIN(TestRegionDrag)
#include "TestRegionDrag.moc"
