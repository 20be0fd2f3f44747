#include "RegionFixture.h"

class TestRegionNodes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newRegionIsEmptyAndOpen();
    void nodeOutOfRangeIsInvalidAndChangesNothing();
    void nodeComesWithItsPointsAndSynchro();
    void indexThatNoNodeHasAppends_data();
    void indexThatNoNodeHasAppends();
    void indexZeroPrepends();
    void nodeIsInsertedBetweenOthers();
    void selectedNewNodeIsTheOnlySelectedOne();
    void plainNewNodeLeavesTheSelection();
    void draggedNewNodeBecomesTheCurrentOne();
    void withoutHandlesNoNewHandleIsDragged();
    void withoutHandlesANewAnchorIsDragged();
    void replacedNodeKeepsItsState();
    void selectionNeedsVisibleNodes();
    void deselectionSparesOneNode();
    void relativeHandlesGoThereAndBack();
    void indexOutOfRangeWritesNowhere();
};

namespace {

LmNodeState stateWith(bool aSelected, LmNodeState::Dragged aDragged)
{
    LmNodeState state;
    state.selected = aSelected;
    state.dragged = aDragged;
    return state;
}

} // namespace

void TestRegionNodes::newRegionIsEmptyAndOpen()
{
    RegionFixture f;
    const LmCvRegion& item = *f.theItem;
    QCOMPARE(item.rtti(), 1103);
    QVERIFY(item.thePoints.isEmpty() && item.theNodeStates.isEmpty());
    QCOMPARE(item.theCurrentNode, -1);
    QCOMPARE(f.theItem->getCreatedNode(), -1);
    QCOMPARE(item.thePressPos, QPoint(0, 0));
    QCOMPARE(item.theLastPos, QPoint(0, 0));
    QCOMPARE(item.theFont.pointSize(), LmCvObject::kDefaultFntSize);
    QCOMPARE(item.theFontSize, LmCvObject::kDefaultFntSize);
    QVERIFY(!f.theItem->isNodesChanged());
    QVERIFY(item.theHandlesEnabled && item.theShowNodes && !item.theClosed);
    QCOMPARE(item.theLabelRect, QRect(QPoint(0, 0), QPoint(-1, -1)));
    QCOMPARE(item.theNodeDiameter, 6.0);
    QCOMPARE(item.theNodeRadius, 3.0);
}

void TestRegionNodes::nodeOutOfRangeIsInvalidAndChangesNothing()
{
    RegionFixture f;
    f.addThree();
    f.state(2).synchro = LmBezierPoint::kSynchroMirror;
    const Q3PointArray before = f.theItem->thePoints;
    for (const unsigned index : {3U, 4U, 1000U, unsigned(kMax), unsigned(-1), 1431655766U}) {
        const LmBezierPoint node = f.theItem->getNode(index);
        QVERIFY(!node.theValid && !node.theRelativeHandles);
        QCOMPARE(node.theSynchro, LmBezierPoint::kSynchroDirection);
        QCOMPARE(QPolygon(node), QPolygon(3));
    }
    QCOMPARE(f.theItem->thePoints, before);
    QCOMPARE(f.theItem->nodeCount(), 3);
    QVERIFY(!f.theItem->isNodesChanged());
}

void TestRegionNodes::nodeComesWithItsPointsAndSynchro()
{
    RegionFixture f;
    f.addThree();
    f.theItem->setNodeSynchro(1, LmBezierPoint::kSynchroMirror);
    const LmBezierPoint node = f.theItem->getNode(1);
    QVERIFY(node.theValid && !node.theRelativeHandles);
    QCOMPARE(node.theSynchro, LmBezierPoint::kSynchroMirror);
    QCOMPARE(QPolygon(node), QPolygon({QPoint(180, 145), QPoint(200, 150), QPoint(220, 155)}));
    QCOMPARE(f.theItem->getNode(0).theSynchro, LmBezierPoint::kSynchroDirection);
}

void TestRegionNodes::indexThatNoNodeHasAppends_data()
{
    QTest::addColumn<int>("index");
    for (const int index : {-1, 3, 4, 1000, kMax, kMin, 1431655766})
        QTest::newRow(QByteArray::number(index).constData()) << index;
}

void TestRegionNodes::indexThatNoNodeHasAppends()
{
    QFETCH(int, index);
    RegionFixture f;
    f.addThree();
    f.theItem->addNode(RegionFixture::node(QPoint(5, 6)), index,
                       stateWith(false, LmNodeState::kDraggedAnchor));
    QCOMPARE(f.theItem->nodeCount(), 4);
    QVERIFY(f.isWhole());
    QCOMPARE(f.anchor(3), QPoint(5, 6));
    QCOMPARE(f.anchor(2), QPoint(300, 120));
    QCOMPARE(f.theItem->theCurrentNode, 3);
    QVERIFY(f.theItem->isNodesChanged());
}

void TestRegionNodes::indexZeroPrepends()
{
    RegionFixture f;
    f.addThree();
    for (int i = 0; i < 3; ++i)
        f.state(i).synchro = LmBezierPoint::Synchro(i);
    const Q3PointArray before = f.theItem->thePoints;
    f.theItem->addNode(RegionFixture::node(QPoint(5, 6), QPoint(-1, 0), QPoint(0, 2)), 0, LmNodeState());
    QCOMPARE(QPolygon(f.theItem->thePoints.mid(3)), QPolygon(before));
    QCOMPARE(QPolygon(f.theItem->thePoints.mid(0, 3)), QPolygon({QPoint(4, 6), QPoint(5, 6), QPoint(5, 8)}));
    for (int i = 0; i < 3; ++i)
        QCOMPARE(f.state(i + 1).synchro, LmBezierPoint::Synchro(i));
}

void TestRegionNodes::nodeIsInsertedBetweenOthers()
{
    RegionFixture f;
    f.addThree();
    f.theItem->addNode(RegionFixture::node(QPoint(5, 6)), 1, stateWith(true, LmNodeState::kDraggedNone));
    QCOMPARE(f.anchor(0), QPoint(100, 100));
    QCOMPARE(f.anchor(1), QPoint(5, 6));
    QCOMPARE(f.anchor(2), QPoint(200, 150));
    QCOMPARE(f.selected(), QList<int>{1});
    QCOMPARE(f.theItem->theCurrentNode, -1);
}

void TestRegionNodes::selectedNewNodeIsTheOnlySelectedOne()
{
    for (const bool shown : {true, false}) {
        RegionFixture f;
        f.addThree();
        for (int i = 0; i < 3; ++i)
            f.state(i) = stateWith(true, LmNodeState::kDraggedAnchor);
        f.theItem->setNodesShown(shown);
        f.theItem->addNode(RegionFixture::node(QPoint(5, 6)), 1,
                           stateWith(true, LmNodeState::kDraggedAnchor));
        QCOMPARE(f.selected(), QList<int>{1});
        QCOMPARE(f.state(1).dragged, LmNodeState::kDraggedAnchor);
        for (const int other : {0, 2, 3})
            QCOMPARE(f.state(other).dragged, LmNodeState::kDraggedNone);
    }
}

void TestRegionNodes::plainNewNodeLeavesTheSelection()
{
    RegionFixture f;
    f.addThree();
    f.state(0) = stateWith(true, LmNodeState::kDraggedAnchor);
    f.state(2).selected = true;
    f.theItem->addNode(RegionFixture::node(QPoint(5, 6)), 1, LmNodeState());
    QCOMPARE(f.selected(), (QList<int>{0, 3}));
    QCOMPARE(f.state(0).dragged, LmNodeState::kDraggedAnchor);
    QCOMPARE(f.theItem->theCurrentNode, -1);
    QCOMPARE(f.theItem->theLastPos, QPoint(0, 0));
}

void TestRegionNodes::draggedNewNodeBecomesTheCurrentOne()
{
    RegionFixture f;
    f.addThree();
    f.theItem->addNode(RegionFixture::node(QPoint(5, 6), QPoint(3, 3)), 2,
                       stateWith(false, LmNodeState::kDraggedLeftCtrl));
    QCOMPARE(f.theItem->theCurrentNode, 2);
    QCOMPARE(f.theItem->theLastPos, QPoint(5, 6));
}

void TestRegionNodes::withoutHandlesNoNewHandleIsDragged()
{
    for (const auto dragged : {LmNodeState::kDraggedRightCtrl, LmNodeState::kDraggedLeftCtrl}) {
        RegionFixture f;
        f.addThree();
        f.theItem->theHandlesEnabled = false;
        f.theItem->theLastPos = QPoint(11, 12);
        f.theItem->addNode(RegionFixture::node(QPoint(5, 6)), -1, stateWith(true, dragged));
        QCOMPARE(f.theItem->theCurrentNode, -1);
        QCOMPARE(f.theItem->theLastPos, QPoint(11, 12));
        QCOMPARE(f.state(3).dragged, LmNodeState::kDraggedNone);
        QCOMPARE(f.selected(), QList<int>{3});
    }
}

void TestRegionNodes::withoutHandlesANewAnchorIsDragged()
{
    RegionFixture f;
    f.theItem->theHandlesEnabled = false;
    f.theItem->addNode(RegionFixture::node(QPoint(5, 6)), -1, stateWith(true, LmNodeState::kDraggedAnchor));
    QCOMPARE(f.theItem->theCurrentNode, 0);
    QCOMPARE(f.theItem->theLastPos, QPoint(5, 6));
    QCOMPARE(f.state(0).dragged, LmNodeState::kDraggedAnchor);
}

void TestRegionNodes::replacedNodeKeepsItsState()
{
    RegionFixture f;
    f.addThree();
    f.state(1) = stateWith(true, LmNodeState::kDraggedLeftCtrl);
    LmBezierPoint node = RegionFixture::node(QPoint(5, 6), QPoint(1, 1), QPoint(2, 2));
    node.theSynchro = LmBezierPoint::kSynchroMirror;
    node.theRelativeHandles = true; // points are taken as they stand
    f.theItem->setNode(1, node);
    QCOMPARE(QPolygon(f.theItem->getNode(1)), QPolygon(node));
    QVERIFY(f.state(1).selected);
    QCOMPARE(f.state(1).synchro, LmBezierPoint::kSynchroDirection);
    QCOMPARE(f.state(1).dragged, LmNodeState::kDraggedLeftCtrl);
    QCOMPARE(f.anchor(0), QPoint(100, 100));
    QCOMPARE(f.anchor(2), QPoint(300, 120));
}

void TestRegionNodes::selectionNeedsVisibleNodes()
{
    RegionFixture f;
    f.addThree();
    f.theItem->setNodeSelected(1, true);
    QCOMPARE(f.selected(), QList<int>{1});
    f.theItem->theShowNodes = false;
    f.theItem->setNodeSelected(0, true);
    f.theItem->setNodeSelected(1, false);
    QCOMPARE(f.selected(), QList<int>{1});
    f.theItem->theShowNodes = true;
    f.theItem->setNodeSelected(1, false);
    QVERIFY(f.selected().isEmpty());
}

void TestRegionNodes::deselectionSparesOneNode()
{
    RegionFixture f;
    f.addThree();
    const auto all = [&f] {
        for (int i = 0; i < 3; ++i)
            f.state(i) = stateWith(true, LmNodeState::kDraggedRightCtrl);
    };
    all();
    f.theItem->deselectAllNodes(1);
    QCOMPARE(f.selected(), QList<int>{1});
    QCOMPARE(f.state(1).dragged, LmNodeState::kDraggedRightCtrl);
    QCOMPARE(f.state(0).dragged, LmNodeState::kDraggedNone);
    QCOMPARE(f.state(2).dragged, LmNodeState::kDraggedNone);
    all();
    f.theItem->deselectAllNodes(-1);
    QVERIFY(f.selected().isEmpty());
    QCOMPARE(f.state(1).dragged, LmNodeState::kDraggedNone);
}

void TestRegionNodes::relativeHandlesGoThereAndBack()
{
    LmBezierPoint node = RegionFixture::node(QPoint(50, 60), QPoint(-3, 4), QPoint(5, 6));
    const QPolygon absolute = node;
    node.setRelativeHandles(false);
    QCOMPARE(QPolygon(node), absolute);
    node.setRelativeHandles(true);
    QVERIFY(node.theRelativeHandles);
    QCOMPARE(QPolygon(node), QPolygon({QPoint(-3, 4), QPoint(50, 60), QPoint(5, 6)}));
    node.setRelativeHandles(true);
    QCOMPARE(node.at(0), QPoint(-3, 4));
    node[2] = QPoint(0, 0); // how a tool puts one handle back on the anchor
    node.setRelativeHandles(false);
    QCOMPARE(QPolygon(node), QPolygon({QPoint(47, 64), QPoint(50, 60), QPoint(50, 60)}));
}

void TestRegionNodes::indexOutOfRangeWritesNowhere()
{
    RegionFixture f;
    f.addThree();
    const Q3PointArray before = f.theItem->thePoints;
    for (const unsigned index : {3U, 4U, unsigned(kMax), unsigned(-1), 1431655766U}) {
        f.theItem->setNode(index, RegionFixture::node(QPoint(1, 1)));
        f.theItem->setNodeLeftCtrl(index, QPoint(1, 1), false);
        f.theItem->setNodeRightCtrl(index, QPoint(1, 1), true);
        f.theItem->setNodeSelected(index, true);
        f.theItem->setNodeSynchro(index, LmBezierPoint::kSynchroMirror);
    }
    QCOMPARE(f.theItem->thePoints, before);
    QVERIFY(f.selected().isEmpty());
    for (int i = 0; i < 3; ++i)
        QCOMPARE(f.state(i).synchro, LmBezierPoint::kSynchroDirection);
    QVERIFY(!f.theItem->isNodesChanged());
    RegionFixture empty;
    empty.theItem->setNodeLeftCtrl(0, QPoint(1, 1), false);
    empty.theItem->setNodeRightCtrl(0, QPoint(1, 1), false);
    empty.theItem->removeNode(0);
    empty.theItem->removeSelectedNodes();
    QVERIFY(empty.theItem->thePoints.isEmpty() && empty.isWhole());
}

MEASURE_TEST_MAIN(TestRegionNodes)
#include "TestRegionNodes.moc"
