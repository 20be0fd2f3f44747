// Which nodes of a crowded stroke go.

#include "OutlineFixture.h"
#include "TestFont.h"
#include "ZnCvSplineOptymize.h"

#include <limits>

namespace {

constexpr float kDistance = 5.0F;

/// The anchors behind the thinning; the fit fails for its negative tolerance and leaves them.
QList<QPoint> thinned(const QList<QPoint>& aStroke, float aDistance = kDistance)
{
    OutlineFixture outline;
    outline.draw(aStroke);
    PrintedText printed;
    ZnCvSplineOptymize::optymizeSpline(outline.theRegion, -1.0F, aDistance);
    return outline.anchors();
}

} // namespace

class TestStrokeThinning : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void regionOfTwoNodesIsNotEvenThinned();
    void nodesExactlyAtTheDistanceAreClose();
    void distancesAreComparedAsFloats();
    void nodeInTheGapOfARemovalIsNotAskedItself();
    void walkPastTheEndComparesWithTheOrigin();
    void walkWithoutRemovalsKeepsAnEndAtTheOrigin();
    void stepsPastTheEndLeaveTheRegionUnharmed();
    void keptNodesKeepHandlesAndStates();
    void endsOfTheCoordinateRangeAreHarmless();
};

void TestStrokeThinning::regionOfTwoNodesIsNotEvenThinned()
{
    QCOMPARE(thinned({{300, 300}, {300, 300}}).size(), 2);
    QCOMPARE(thinned({{300, 300}, {300, 300}, {300, 300}}).size(), 2);
}

void TestStrokeThinning::nodesExactlyAtTheDistanceAreClose()
{
    QCOMPARE(thinned({{100, 100}, {900, 700}, {102, 103}}).size(), 2);
    QCOMPARE(thinned({{100, 100}, {900, 700}, {97, 98}}).size(), 2);
    QCOMPARE(thinned({{100, 100}, {900, 700}, {103, 103}}).size(), 3);
    QCOMPARE(thinned({{100, 100}, {900, 700}, {100, 100}}, 0.0F).size(), 2);
    QCOMPARE(thinned({{100, 100}, {900, 700}, {100, 100}}, -0.5F).size(), 3);
}

void TestStrokeThinning::distancesAreComparedAsFloats()
{
    // 2^24 + 1 has no float of its own and counts as 2^24.
    constexpr int kWhole = 1 << 24;
    QCOMPARE(thinned({{0, 500}, {900, 700}, {kWhole + 1, 500}}, float(kWhole)).size(), 2);
    QCOMPARE(thinned({{0, 500}, {900, 700}, {kWhole + 2, 500}}, float(kWhole)).size(), 3);
}

void TestStrokeThinning::nodeInTheGapOfARemovalIsNotAskedItself()
{
    // Step 2 takes out 302, step 3 looks at 304 and 308 and takes out 306; 304 lies between 300 and 308 then
    // and stays though it was closer to 300 than the limit. Steps 4 and 5 are past the nodes.
    QCOMPARE(thinned({{300, 500}, {302, 500}, {304, 500}, {306, 500}, {308, 500}, {310, 500}}),
             (QList<QPoint>{{300, 500}, {304, 500}, {308, 500}, {310, 500}}));
}

void TestStrokeThinning::walkPastTheEndComparesWithTheOrigin()
{
    // After one removal the last step asks for a fifth node of four and gets (0, 0), 2 pixels from (1, 1).
    QCOMPARE(thinned({{100, 0}, {102, 0}, {104, 0}, {1, 1}, {9, 9}}),
             (QList<QPoint>{{100, 0}, {104, 0}, {1, 1}}));
    // 6 pixels from it the last node stays.
    QCOMPARE(thinned({{100, 0}, {102, 0}, {104, 0}, {3, 3}, {9, 9}}).size(), 4);
}

void TestStrokeThinning::walkWithoutRemovalsKeepsAnEndAtTheOrigin()
{
    const QList<QPoint> stroke{{100, 0}, {108, 0}, {116, 0}, {1, 1}, {9, 9}};
    QCOMPARE(thinned(stroke), stroke);
}

void TestStrokeThinning::stepsPastTheEndLeaveTheRegionUnharmed()
{
    // All nodes at the origin are close to each other and to what lies past the end. Each step takes one out
    // as long as there is one between: of 10 nodes 5 go by step 6, then node i - 1 isn't there any more.
    OutlineFixture outline;
    outline.draw(QList<QPoint>(10, QPoint(0, 0)));
    PrintedText printed;
    const int result = ZnCvSplineOptymize::optymizeSpline(outline.theRegion, 0.5F, kDistance);
    QVERIFY(printed.text().contains("Segment not found!"));
    QCOMPARE(result, 0);
    QCOMPARE(outline.anchors(), QList<QPoint>(5, QPoint(0, 0)));
    QVERIFY(outline.isWhole());
}

void TestStrokeThinning::keptNodesKeepHandlesAndStates()
{
    OutlineFixture outline;
    outline.setNodes({{1, 2},
                      {100, 100},
                      {3, 4}, //
                      {5, 6},
                      {102, 100},
                      {7, 8}, //
                      {9, 10},
                      {104, 100},
                      {11, 12}, //
                      {13, 14},
                      {300, 300},
                      {15, 16}});
    outline.theRegion->theNodeStates[0].selected = true;
    outline.theRegion->theNodeStates[1].selected = true;
    outline.theRegion->theNodeStates[2].synchro = LmBezierPoint::kSynchroMirror;
    outline.theRegion->theNodeStates[3].dragged = LmNodeState::kDraggedAnchor;
    outline.theRegion->theCurrentNode = 3;
    QCOMPARE(ZnCvSplineOptymize::optymizeSpline(outline.theRegion, 0.5F, kDistance), 0);
    QCOMPARE(outline.points(),
             (QList<QPoint>{
                 {1, 2}, {100, 100}, {3, 4}, {9, 10}, {104, 100}, {11, 12}, {13, 14}, {300, 300}, {15, 16}}));
    QVERIFY(outline.theRegion->theNodeStates.at(0).selected);
    QVERIFY(!outline.theRegion->theNodeStates.at(1).selected);
    QCOMPARE(outline.theRegion->theNodeStates.at(1).synchro, LmBezierPoint::kSynchroMirror);
    QCOMPARE(outline.theRegion->theNodeStates.at(2).dragged, LmNodeState::kDraggedAnchor);
    QCOMPARE(outline.theRegion->theCurrentNode, 3);
}

void TestStrokeThinning::endsOfTheCoordinateRangeAreHarmless()
{
    constexpr int kLeast = std::numeric_limits<int>::min();
    constexpr int kMost = std::numeric_limits<int>::max();
    const QList<QPoint> stroke{{kLeast, kLeast}, {kMost, kMost}, {kLeast, kMost}, {kMost, kLeast},
                               {0, 0},           {kLeast, 0},    {kMost, kMost},  {kLeast, kLeast}};
    // No distance is beyond the greatest int, so that one as the limit takes out all that can go.
    QCOMPARE(thinned(stroke, float(kMost)).size(), 4);
    QCOMPARE(thinned(stroke), stroke);
}

MEASURE_TEST_MAIN(TestStrokeThinning)
#include "TestStrokeThinning.moc"
