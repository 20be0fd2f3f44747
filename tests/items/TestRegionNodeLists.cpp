#include "RegionFixture.h"

class TestRegionNodeLists : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void removedNodeLeavesItsPlaceToTheNext();
    void removalOutOfRangeDoesNothing();
    void selectedNodesAreRemoved_data();
    void selectedNodesAreRemoved();
    void pointsAreTakenWithTheirOffset();
    void pointsAreCopies();
    void badPointsKeepWholeNodesOnly_data();
    void badPointsKeepWholeNodesOnly();
    void replacedNodesHaveHandlesAgain();
    void polygonHasStraightSegments();
    void wholeOutlineMovesWithItsLabel();
    void closingIsAChange();
    void hiddenNodesHaveNoHandles();
};

namespace {

Q3ValueVector<LmNodeState> statesOf(qsizetype aCount)
{
    Q3ValueVector<LmNodeState> states;
    states.resize(aCount);
    return states;
}

} // namespace

void TestRegionNodeLists::removedNodeLeavesItsPlaceToTheNext()
{
    RegionFixture f;
    f.addThree();
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

void TestRegionNodeLists::removalOutOfRangeDoesNothing()
{
    RegionFixture f;
    f.addThree();
    for (const unsigned index : {3U, unsigned(kMax), unsigned(-1), 1431655766U})
        f.theItem->removeNode(index);
    QCOMPARE(f.theItem->nodeCount(), 3);
    QVERIFY(f.isWhole());
}

void TestRegionNodeLists::selectedNodesAreRemoved_data()
{
    QTest::addColumn<QList<int>>("doomed");
    QTest::newRow("none") << QList<int>{};
    QTest::newRow("first") << QList<int>{0};
    QTest::newRow("last") << QList<int>{4};
    QTest::newRow("neighbours") << QList<int>{1, 2};
    QTest::newRow("every second") << QList<int>{0, 2, 4};
    QTest::newRow("all") << QList<int>{0, 1, 2, 3, 4};
}

void TestRegionNodeLists::selectedNodesAreRemoved()
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

void TestRegionNodeLists::pointsAreTakenWithTheirOffset()
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

void TestRegionNodeLists::pointsAreCopies()
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

void TestRegionNodeLists::badPointsKeepWholeNodesOnly_data()
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

void TestRegionNodeLists::badPointsKeepWholeNodesOnly()
{
    QFETCH(int, points);
    QFETCH(int, states);
    QFETCH(int, nodes);
    Q3ValueVector<LmNodeState> given = statesOf(states);
    for (LmNodeState& state : given)
        state.synchro = LmBezierPoint::kSynchroMirror;
    for (const bool replaced : {false, true}) {
        RegionFixture f;
        f.addThree();
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

void TestRegionNodeLists::replacedNodesHaveHandlesAgain()
{
    RegionFixture f;
    f.addThree();
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

void TestRegionNodeLists::polygonHasStraightSegments()
{
    RegionFixture f;
    f.addThree();
    f.theItem->makePolygon();
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(f.left(i), f.anchor(i));
        QCOMPARE(f.right(i), f.anchor(i));
    }
    QCOMPARE(f.anchor(1), QPoint(200, 150));
}

void TestRegionNodeLists::wholeOutlineMovesWithItsLabel()
{
    RegionFixture f;
    f.addThree();
    f.theItem->updateLabel();
    const QPolygon before = f.theItem->thePoints;
    const QRect label = f.theItem->theLabelRect;
    f.theItem->moveObjectBy(QPoint(7, -3));
    QCOMPARE(QPolygon(f.theItem->thePoints), before.translated(7, -3));
    QCOMPARE(f.theItem->theLabelRect, label.translated(7, -3));
    QVERIFY(f.theItem->isNodesChanged());
}

void TestRegionNodeLists::closingIsAChange()
{
    RegionFixture f;
    f.addThree();
    f.theItem->setClosed(true);
    QVERIFY(f.theItem->theClosed && f.theItem->isNodesChanged());
    f.theItem->theNodesChanged = false;
    f.theItem->setClosed(false);
    QVERIFY(!f.theItem->theClosed && f.theItem->isNodesChanged());
}

void TestRegionNodeLists::hiddenNodesHaveNoHandles()
{
    RegionFixture f;
    f.addThree();
    for (const bool shown : {false, true}) {
        f.theItem->setNodesShown(shown);
        QCOMPARE(f.theItem->theShowNodes, shown);
        QCOMPARE(f.theItem->theHandlesEnabled, shown);
    }
    QVERIFY(!f.theItem->isNodesChanged());
}

MEASURE_TEST_MAIN(TestRegionNodeLists)
#include "TestRegionNodeLists.moc"
