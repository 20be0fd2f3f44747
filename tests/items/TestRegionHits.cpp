#include "RegionFixture.h"

class TestRegionHits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anchorIsHitWithinThreePixels();
    void lowerNodeIsHitFirst();
    void anchorsReachDoesNotFollowTheZoom();
    void handleIsHitWithinItsSquare();
    void handlesOfUnselectedNodesAreNotHit();
    void leftHandleAndLowerNodeComeFirst();
    void withoutHandlesTheAnswerIsLeftAlone();
    void handleSquareKeepsItsSizeOnTheScreen_data();
    void handleSquareKeepsItsSizeOnTheScreen();
    void farHandlesAreHitToo();
    void rectContainsEverySecondPoint();
    void rectIsTestedAgainstTheAnchorOfASingleNode();
    void bandSelectsTheAnchorsInside_data();
    void bandSelectsTheAnchorsInside();
    void bandLeavesDraggedPartsAndHiddenNodes();
};

void TestRegionHits::anchorIsHitWithinThreePixels()
{
    RegionFixture f;
    QCOMPARE(f.theItem->pointOnNode(QPoint(0, 0)), -1);
    f.add(QPoint(100, 100), QPoint(-50, 0), QPoint(50, 0));
    for (int dx = -5; dx <= 5; ++dx)
        for (int dy = -5; dy <= 5; ++dy)
            QCOMPARE(f.theItem->pointOnNode(QPoint(100 + dx, 100 + dy)), dx * dx + dy * dy <= 9 ? 0 : -1);
    QCOMPARE(f.theItem->pointOnNode(QPoint(50, 100)), -1); // a handle is no node
    f.theItem->setNodesShown(false);                       // the pencil closes on hidden nodes
    QCOMPARE(f.theItem->pointOnNode(QPoint(103, 100)), 0);
    QCOMPARE(f.theItem->pointOnNode(QPoint(kMin, kMax)), -1);
    f.theItem->moveObjectBy(QPoint(kMax, kMax));
    QCOMPARE(f.theItem->pointOnNode(QPoint(kMax - 3, kMax)), 0);
    QCOMPARE(f.theItem->pointOnNode(QPoint(kMin, kMin)), -1);
}

void TestRegionHits::lowerNodeIsHitFirst()
{
    RegionFixture f;
    f.add(QPoint(300, 300));
    f.add(QPoint(103, 100));
    f.add(QPoint(100, 100));
    QCOMPARE(f.theItem->pointOnNode(QPoint(100, 100)), 1);
    QCOMPARE(f.theItem->pointOnNode(QPoint(99, 100)), 2);
}

void TestRegionHits::anchorsReachDoesNotFollowTheZoom()
{
    RegionFixture f;
    f.add(QPoint(100, 100));
    for (const double zoom : {0.5, 1.0, 4.0}) {
        f.theItem->adjustScale(QTransform::fromScale(zoom, zoom));
        QCOMPARE(f.theItem->pointOnNode(QPoint(103, 100)), 0);
        QCOMPARE(f.theItem->pointOnNode(QPoint(104, 100)), -1);
    }
}

void TestRegionHits::handleIsHitWithinItsSquare()
{
    RegionFixture f;
    f.add(QPoint(100, 100), QPoint(-50, 0), QPoint(50, 10));
    f.theItem->setNodeSelected(0, true);
    for (int dx = -5; dx <= 5; ++dx)
        for (int dy = -5; dy <= 5; ++dy) {
            // Six pixels wide, three of them before the handle.
            const bool inside = dx >= -3 && dx <= 2 && dy >= -3 && dy <= 2;
            for (const auto handle : {LmNodeState::kDraggedLeftCtrl, LmNodeState::kDraggedRightCtrl}) {
                auto dragged = LmNodeState::kDraggedAnchor;
                const QPoint centre = handle == LmNodeState::kDraggedLeftCtrl ? f.left(0) : f.right(0);
                QCOMPARE(f.theItem->pointOnControl(centre + QPoint(dx, dy), dragged), inside ? 0 : -1);
                QCOMPARE(dragged, inside ? handle : LmNodeState::kDraggedNone);
            }
        }
}

void TestRegionHits::handlesOfUnselectedNodesAreNotHit()
{
    RegionFixture f;
    f.addThree();
    f.theItem->setNodeSelected(1, true);
    auto dragged = LmNodeState::kDraggedAnchor;
    QCOMPARE(f.theItem->pointOnControl(f.left(0), dragged), -1);
    QCOMPARE(dragged, LmNodeState::kDraggedNone);
    QCOMPARE(f.theItem->pointOnControl(f.right(1), dragged), 1);
    QCOMPARE(dragged, LmNodeState::kDraggedRightCtrl);
}

void TestRegionHits::leftHandleAndLowerNodeComeFirst()
{
    RegionFixture f;
    f.add(QPoint(100, 100), QPoint(10, 0), QPoint(10, 0));
    f.add(QPoint(110, 110), QPoint(0, -10), QPoint(0, -10));
    f.theItem->setNodeSelected(0, true);
    f.theItem->setNodeSelected(1, true);
    auto dragged = LmNodeState::kDraggedNone;
    QCOMPARE(f.theItem->pointOnControl(QPoint(110, 100), dragged), 0);
    QCOMPARE(dragged, LmNodeState::kDraggedLeftCtrl);
    f.theItem->setNodeSelected(0, false);
    QCOMPARE(f.theItem->pointOnControl(QPoint(110, 100), dragged), 1);
    QCOMPARE(dragged, LmNodeState::kDraggedLeftCtrl);
}

void TestRegionHits::withoutHandlesTheAnswerIsLeftAlone()
{
    RegionFixture f;
    f.add(QPoint(100, 100), QPoint(-50, 0), QPoint(50, 0));
    f.theItem->setNodeSelected(0, true);
    for (const bool shown : {true, false}) {
        f.theItem->theShowNodes = shown;
        f.theItem->theHandlesEnabled = !shown;
        auto dragged = LmNodeState::kDraggedAnchor;
        QCOMPARE(f.theItem->pointOnControl(QPoint(50, 100), dragged), -1);
        QCOMPARE(dragged, LmNodeState::kDraggedAnchor);
    }
}

void TestRegionHits::handleSquareKeepsItsSizeOnTheScreen_data()
{
    QTest::addColumn<double>("zoom");
    QTest::addColumn<double>("diameter");
    QTest::addColumn<int>("centre");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::newRow("half") << 0.5 << 12.0 << 50 << 44 << 55;
    QTest::newRow("plain") << 1.0 << 6.0 << 50 << 47 << 52;
    QTest::newRow("four") << 4.0 << 6.0 << 50 << 47 << 52;
    // 8 pixels from 50 - 4.2857 = 45.7, cut.
    QTest::newRow("0.7") << 0.7 << 6.0 / 0.7 << 50 << 45 << 52;
    // Left of the picture the cut goes the other way: -2 - 4.2857 = -6.29.
    QTest::newRow("0.7 outside") << 0.7 << 6.0 / 0.7 << -2 << -6 << 1;
    QTest::newRow("fifth") << 0.2 << 30.0 << 50 << 35 << 64;
}

void TestRegionHits::handleSquareKeepsItsSizeOnTheScreen()
{
    QFETCH(double, zoom);
    QFETCH(double, diameter);
    QFETCH(int, centre);
    QFETCH(int, first);
    QFETCH(int, last);
    RegionFixture f;
    f.add(QPoint(400, 400), QPoint(centre - 400, 0));
    f.theItem->setNodeSelected(0, true);
    f.theItem->adjustScale(QTransform::fromScale(zoom, zoom));
    QCOMPARE(f.theItem->theNodeDiameter, diameter);
    QCOMPARE(f.theItem->theNodeRadius, diameter / 2.0);
    auto dragged = LmNodeState::kDraggedNone;
    for (int x = centre - 40; x <= centre + 40; ++x)
        QCOMPARE(f.theItem->pointOnControl(QPoint(x, 400), dragged), x >= first && x <= last ? 0 : -1);
}

void TestRegionHits::farHandlesAreHitToo()
{
    RegionFixture f;
    for (const QPoint& corner : {QPoint(kMax, kMax), QPoint(kMin, kMin), QPoint(kMin, kMax)}) {
        LmBezierPoint node(true, false, LmBezierPoint::kSynchroNone);
        node.fill(corner);
        f.theItem->replaceNodes(node, {});
        f.theItem->setNodeSelected(0, true);
        auto dragged = LmNodeState::kDraggedNone;
        QCOMPARE(f.theItem->pointOnControl(corner, dragged), 0);
        QCOMPARE(f.theItem->pointOnControl(QPoint(0, 0), dragged), -1);
        QCOMPARE(f.theItem->pointOnControl(QPoint(-1 - corner.x(), corner.y()), dragged), -1);
    }
}

void TestRegionHits::rectContainsEverySecondPoint()
{
    RegionFixture f;
    QVERIFY(f.theItem->isRectContainsObject(QRect()));
    for (int i = 0; i < 3; ++i)
        f.add(QPoint(100 + 10 * i, 100));
    const QRect band(QPoint(90, 90), QPoint(130, 110));
    QVERIFY(f.theItem->isRectContainsObject(band));
    for (int i = 0; i < 9; ++i) {
        const QPoint before = f.theItem->thePoints.at(i);
        f.theItem->thePoints[i] = QPoint(500, 500);
        QCOMPARE(f.theItem->isRectContainsObject(band), i % 2 == 0);
        f.theItem->thePoints[i] = before;
    }
}

void TestRegionHits::rectIsTestedAgainstTheAnchorOfASingleNode()
{
    RegionFixture f;
    f.add(QPoint(100, 100), QPoint(-50, 0), QPoint(50, 0));
    QVERIFY(f.theItem->isRectContainsObject(QRect(99, 99, 3, 3)));
    QVERIFY(f.theItem->isRectContainsObject(QRect(100, 100, 1, 1)));
    QVERIFY(!f.theItem->isRectContainsObject(QRect(40, 90, 60, 20)));
}

void TestRegionHits::bandSelectsTheAnchorsInside_data()
{
    QTest::addColumn<QPoint>("corner");
    QTest::addColumn<QSize>("extent");
    QTest::addColumn<QList<int>>("nodes");
    const QList<int> two{0, 1};
    QTest::newRow("down right") << QPoint(100, 100) << QSize(100, 50) << two;
    QTest::newRow("up left") << QPoint(200, 150) << QSize(-100, -50) << two;
    QTest::newRow("up right") << QPoint(100, 150) << QSize(100, -50) << two;
    QTest::newRow("down left") << QPoint(200, 100) << QSize(-100, 50) << two;
    QTest::newRow("one pixel less") << QPoint(100, 100) << QSize(99, 50) << QList<int>{0};
    QTest::newRow("point") << QPoint(200, 150) << QSize(0, 0) << QList<int>{1};
    QTest::newRow("nothing") << QPoint(0, 0) << QSize(50, 50) << QList<int>{};
    QTest::newRow("handles alone") << QPoint(260, 110) << QSize(20, 20) << QList<int>{};
    QTest::newRow("all") << QPoint(-10, -10) << QSize(kMax, kMax) << QList<int>{0, 1, 2};
    QTest::newRow("all from the end") << QPoint(kMax, kMax) << QSize(kMin, kMin) << QList<int>{0, 1, 2};
}

void TestRegionHits::bandSelectsTheAnchorsInside()
{
    QFETCH(QPoint, corner);
    QFETCH(QSize, extent);
    QFETCH(QList<int>, nodes);
    RegionFixture f;
    f.addThree();
    f.theItem->setNodeSelected(2, true); // a band selects anew
    f.theItem->selectNodes(corner, extent);
    QCOMPARE(f.selected(), nodes);
}

void TestRegionHits::bandLeavesDraggedPartsAndHiddenNodes()
{
    RegionFixture f;
    f.addThree();
    f.state(0).dragged = LmNodeState::kDraggedLeftCtrl;
    f.theItem->selectNodes(QPoint(0, 0), QSize(150, 150));
    QCOMPARE(f.state(0).dragged, LmNodeState::kDraggedLeftCtrl);
    QCOMPARE(f.selected(), QList<int>{0});
    f.theItem->theShowNodes = false;
    f.theItem->selectNodes(QPoint(0, 0), QSize(1000, 1000));
    QCOMPARE(f.selected(), QList<int>{0});
}

MEASURE_TEST_MAIN(TestRegionHits)
#include "TestRegionHits.moc"
