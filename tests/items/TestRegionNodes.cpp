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
    void removedNodeLeavesItsPlaceToTheNext();
    void removalOutOfRangeDoesNothing();
    void selectedNodesAreRemoved_data();
    void selectedNodesAreRemoved();
    void replacedNodeKeepsItsState();
    void selectionNeedsVisibleNodes();
    void deselectionSparesOneNode();
    void pointsAreTakenWithTheirOffset();
    void pointsAreCopies();
    void badPointsKeepWholeNodesOnly_data();
    void badPointsKeepWholeNodesOnly();
    void replacedNodesHaveHandlesAgain();
    void polygonHasStraightSegments();
    void wholeOutlineMovesWithItsLabel();
    void closingIsAChange();
    void hiddenNodesHaveNoHandles();
    void relativeHandlesGoThereAndBack();
    void indexOutOfRangeWritesNowhere();
};

namespace {

Q3ValueVector<LmNodeState> statesOf(qsizetype aCount)
{
    Q3ValueVector<LmNodeState> states;
    states.resize(aCount);
    return states;
}

void addThree(RegionFixture& aFixture)
{
    aFixture.add(QPoint(100, 100), QPoint(-10, 0), QPoint(10, 5));
    aFixture.add(QPoint(200, 150), QPoint(-20, -5), QPoint(20, 5));
    aFixture.add(QPoint(300, 120), QPoint(-30, 0), QPoint(30, 0));
}

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
    addThree(f);
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
    addThree(f);
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
    addThree(f);
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
    addThree(f);
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
    addThree(f);
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
        addThree(f);
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
    addThree(f);
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
    addThree(f);
    f.theItem->addNode(RegionFixture::node(QPoint(5, 6), QPoint(3, 3)), 2,
                       stateWith(false, LmNodeState::kDraggedLeftCtrl));
    QCOMPARE(f.theItem->theCurrentNode, 2);
    QCOMPARE(f.theItem->theLastPos, QPoint(5, 6));
}

void TestRegionNodes::withoutHandlesNoNewHandleIsDragged()
{
    for (const auto dragged : {LmNodeState::kDraggedRightCtrl, LmNodeState::kDraggedLeftCtrl}) {
        RegionFixture f;
        addThree(f);
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

void TestRegionNodes::removedNodeLeavesItsPlaceToTheNext()
{
    RegionFixture f;
    addThree(f);
    f.state(2).selected = true;
    f.theItem->theCurrentNode = 2;
    f.theItem->removeNode(1);
    QCOMPARE(f.theItem->nodeCount(), 2);
    QVERIFY(f.isWhole());
    QCOMPARE(f.anchor(0), QPoint(100, 100));
    QCOMPARE(f.anchor(1), QPoint(300, 120));
    QCOMPARE(f.right(1), QPoint(330, 120));
    QCOMPARE(f.selected(), QList<int>{1});
    QCOMPARE(f.theItem->theCurrentNode, 2);
    QVERIFY(!f.theItem->isNodesChanged());
}

void TestRegionNodes::removalOutOfRangeDoesNothing()
{
    RegionFixture f;
    addThree(f);
    for (const unsigned index : {3U, unsigned(kMax), unsigned(-1), 1431655766U})
        f.theItem->removeNode(index);
    QCOMPARE(f.theItem->nodeCount(), 3);
    QVERIFY(f.isWhole());
}

void TestRegionNodes::selectedNodesAreRemoved_data()
{
    QTest::addColumn<QList<int>>("doomed");
    QTest::newRow("none") << QList<int>{};
    QTest::newRow("first") << QList<int>{0};
    QTest::newRow("last") << QList<int>{4};
    QTest::newRow("neighbours") << QList<int>{1, 2};
    QTest::newRow("every second") << QList<int>{0, 2, 4};
    QTest::newRow("all") << QList<int>{0, 1, 2, 3, 4};
}

void TestRegionNodes::selectedNodesAreRemoved()
{
    QFETCH(QList<int>, doomed);
    RegionFixture f;
    QList<QPoint> kept;
    for (int i = 0; i < 5; ++i) {
        f.add(QPoint(10 * i, i), QPoint(-1, i), QPoint(1, i));
        f.state(i).synchro = LmBezierPoint::Synchro(i % 3);
        f.state(i).selected = doomed.contains(i);
        if (!doomed.contains(i))
            kept << QPoint(10 * i, i);
    }
    f.theItem->removeSelectedNodes();
    QVERIFY(f.isWhole());
    QCOMPARE(f.theItem->nodeCount(), int(kept.size()));
    for (int i = 0; i < kept.size(); ++i) {
        const int before = kept.at(i).y();
        QCOMPARE(f.anchor(i), kept.at(i));
        QCOMPARE(f.left(i), kept.at(i) + QPoint(-1, before));
        QCOMPARE(f.right(i), kept.at(i) + QPoint(1, before));
        QCOMPARE(f.state(i).synchro, LmBezierPoint::Synchro(before % 3));
    }
    QVERIFY(f.selected().isEmpty());
}

void TestRegionNodes::replacedNodeKeepsItsState()
{
    RegionFixture f;
    addThree(f);
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
    addThree(f);
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
    addThree(f);
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

void TestRegionNodes::pointsAreTakenWithTheirOffset()
{
    RegionFixture f;
    Q3PointArray points;
    points << QPoint(-5, 0) << QPoint(0, 0) << QPoint(5, 0) << QPoint(15, 1) << QPoint(20, 1)
           << QPoint(25, 1);
    Q3ValueVector<LmNodeState> states = statesOf(2);
    states[1].synchro = LmBezierPoint::kSynchroMirror;
    f.theItem->setPoints(QPoint(100, 200), points, states);
    QCOMPARE(QPolygon(f.theItem->thePoints), QPolygon(points).translated(100, 200));
    QCOMPARE(f.state(1).synchro, LmBezierPoint::kSynchroMirror);
    QCOMPARE(f.theItem->x(), 100.0);
    QCOMPARE(f.theItem->y(), 200.0);
    QVERIFY(!f.theItem->isNodesChanged());
    QCOMPARE(f.theItem->theLabelRect.center().x(), 100);
    // The flag stays as it is, also where it is set.
    f.theItem->theNodesChanged = true;
    f.theItem->setPoints(QPoint(101, 200), points, states);
    QVERIFY(f.theItem->isNodesChanged());
    QCOMPARE(f.anchor(0), QPoint(101, 200));
    QCOMPARE(f.theItem->x(), 101.0);
}

void TestRegionNodes::pointsAreCopies()
{
    RegionFixture f;
    Q3PointArray points(6);
    const Q3ValueVector<LmNodeState> states = statesOf(2);
    f.theItem->setPoints(QPoint(0, 0), points, states);
    f.theItem->moveObjectBy(QPoint(3, 4));
    f.theItem->setNodeSelected(0, true);
    QCOMPARE(QPolygon(points), QPolygon(6));
    QVERIFY(!states.at(0).selected);
    points[1] = QPoint(77, 77);
    QCOMPARE(f.anchor(0), QPoint(3, 4));
}

void TestRegionNodes::badPointsKeepWholeNodesOnly_data()
{
    QTest::addColumn<int>("points");
    QTest::addColumn<int>("states");
    QTest::addColumn<int>("nodes");
    QTest::newRow("nothing") << 0 << 0 << 0;
    QTest::newRow("states alone") << 0 << 4 << 0;
    QTest::newRow("two points") << 2 << 1 << 0;
    QTest::newRow("eight points") << 8 << 2 << 2;
    QTest::newRow("too few states") << 9 << 1 << 3;
    QTest::newRow("too many states") << 6 << 5 << 2;
}

void TestRegionNodes::badPointsKeepWholeNodesOnly()
{
    QFETCH(int, points);
    QFETCH(int, states);
    QFETCH(int, nodes);
    Q3ValueVector<LmNodeState> given = statesOf(states);
    for (LmNodeState& state : given)
        state.synchro = LmBezierPoint::kSynchroMirror;
    for (const bool replaced : {false, true}) {
        RegionFixture f;
        addThree(f);
        if (replaced)
            f.theItem->replaceNodes(Q3PointArray(QPolygon(points)), given);
        else
            f.theItem->setPoints(QPoint(0, 0), Q3PointArray(QPolygon(points)), given);
        QCOMPARE(f.theItem->nodeCount(), nodes);
        QVERIFY(f.isWhole());
        for (int i = 0; i < nodes; ++i)
            QCOMPARE(f.state(i).synchro,
                     i < states ? LmBezierPoint::kSynchroMirror : LmBezierPoint::kSynchroDirection);
    }
}

void TestRegionNodes::replacedNodesHaveHandlesAgain()
{
    RegionFixture f;
    addThree(f);
    f.theItem->setNodesShown(false);
    f.theItem->theNodesChanged = false;
    Q3PointArray points(6);
    points[1] = QPoint(400, 300);
    f.theItem->replaceNodes(points, statesOf(2));
    QCOMPARE(f.theItem->thePoints, points);
    QVERIFY(f.theItem->theHandlesEnabled);
    QVERIFY(!f.theItem->theShowNodes);
    QVERIFY(!f.theItem->isNodesChanged());
    QCOMPARE(f.theItem->theLabelRect.center().x(), 400);
}

void TestRegionNodes::polygonHasStraightSegments()
{
    RegionFixture f;
    addThree(f);
    f.theItem->makePolygon();
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(f.left(i), f.anchor(i));
        QCOMPARE(f.right(i), f.anchor(i));
    }
    QCOMPARE(f.anchor(1), QPoint(200, 150));
}

void TestRegionNodes::wholeOutlineMovesWithItsLabel()
{
    RegionFixture f;
    addThree(f);
    f.theItem->updateLabel();
    const QPolygon before = f.theItem->thePoints;
    const QRect label = f.theItem->theLabelRect;
    f.theItem->moveObjectBy(QPoint(7, -3));
    QCOMPARE(QPolygon(f.theItem->thePoints), before.translated(7, -3));
    QCOMPARE(f.theItem->theLabelRect, label.translated(7, -3));
    QVERIFY(f.theItem->isNodesChanged());
}

void TestRegionNodes::closingIsAChange()
{
    RegionFixture f;
    addThree(f);
    f.theItem->setClosed(true);
    QVERIFY(f.theItem->theClosed && f.theItem->isNodesChanged());
    f.theItem->theNodesChanged = false;
    f.theItem->setClosed(false);
    QVERIFY(!f.theItem->theClosed && f.theItem->isNodesChanged());
}

void TestRegionNodes::hiddenNodesHaveNoHandles()
{
    RegionFixture f;
    addThree(f);
    for (const bool shown : {false, true}) {
        f.theItem->setNodesShown(shown);
        QCOMPARE(f.theItem->theShowNodes, shown);
        QCOMPARE(f.theItem->theHandlesEnabled, shown);
    }
    QVERIFY(!f.theItem->isNodesChanged());
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
    addThree(f);
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
