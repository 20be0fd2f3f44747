// The clean shapes, point by point.

#include "OutlineFixture.h"
#include "TestFont.h"
#include "ZnCvSplineTryShape.h"

#include <limits>

namespace {

using Builder = void (*)(QPoint, double, double, LmCvRegion*);

QList<QPoint> built(Builder aBuilder, QPoint aCentre, double aWidth, double aHeight)
{
    OutlineFixture outline;
    aBuilder(aCentre, aWidth, aHeight, outline.theRegion);
    return outline.points();
}

} // namespace

class TestShapeBuilders : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rectangleRunsClockwiseFromItsTopLeft();
    void rectangleIsCutTowardZero();
    void ellipseRunsFromItsLeftOverItsBottom();
    void ellipseIsCutTowardZeroAndKeepsItsCentre();
    void roundedRectangleRunsClockwiseFromItsTop();
    void roundedRectangleIsCutTwice();
    void everyBuilderLeavesAFreshOutline_data();
    void everyBuilderLeavesAFreshOutline();
    void shapesBeyondTheCoordinateRangeStayAtItsEnds_data();
    void shapesBeyondTheCoordinateRangeStayAtItsEnds();
};

void TestShapeBuilders::rectangleRunsClockwiseFromItsTopLeft()
{
    QCOMPARE(built(ZnCvSplineTryShape::getRectangle, QPoint(100, 200), 60.0, 20.0),
             withoutHandles({{70, 190}, {130, 190}, {130, 210}, {70, 210}}));
}

void TestShapeBuilders::rectangleIsCutTowardZero()
{
    // From -7.5 to 7.5 and from -12.25 to 8.25.
    QCOMPARE(built(ZnCvSplineTryShape::getRectangle, QPoint(0, -2), 15.0, 20.5),
             withoutHandles({{-7, -12}, {7, -12}, {7, 8}, {-7, 8}}));
    QCOMPARE(built(ZnCvSplineTryShape::getRectangle, QPoint(-100, -100), 1.9, 1.9),
             withoutHandles({{-100, -100}, {-99, -100}, {-99, -99}, {-100, -99}}));
}

void TestShapeBuilders::ellipseRunsFromItsLeftOverItsBottom()
{
    // 0.275 * 200 = 55, 0.275 * 80 = 22
    QCOMPARE(built(ZnCvSplineTryShape::getEllipse, QPoint(300, 400), 200.0, 80.0),
             (QList<QPoint>{{200, 378},
                            {200, 400},
                            {200, 422}, //
                            {245, 440},
                            {300, 440},
                            {355, 440}, //
                            {400, 422},
                            {400, 400},
                            {400, 378}, //
                            {355, 360},
                            {300, 360},
                            {245, 360}}));
}

void TestShapeBuilders::ellipseIsCutTowardZeroAndKeepsItsCentre()
{
    // Half of 11 is 5.5, of 31 15.5; 0.275 * 11 = 3.025, 0.275 * 31 = 8.525.
    QCOMPARE(built(ZnCvSplineTryShape::getEllipse, QPoint(-1, 3), 11.0, 31.0), (QList<QPoint>{{-6, -5},
                                                                                              {-6, 3},
                                                                                              {-6, 11}, //
                                                                                              {-4, 18},
                                                                                              {-1, 18},
                                                                                              {2, 18}, //
                                                                                              {4, 11},
                                                                                              {4, 3},
                                                                                              {4, -5}, //
                                                                                              {2, -12},
                                                                                              {-1, -12},
                                                                                              {-4, -12}}));
}

void TestShapeBuilders::roundedRectangleRunsClockwiseFromItsTop()
{
    // The radius is 0.2 * 100 = 20, the handles are 10 long.
    QCOMPARE(built(ZnCvSplineTryShape::getRoundedRectangle, QPoint(400, 300), 200.0, 100.0),
             (QList<QPoint>{{310, 250}, {320, 250}, {330, 250}, //
                            {470, 250}, {480, 250}, {490, 250}, //
                            {500, 260}, {500, 270}, {500, 280}, //
                            {500, 320}, {500, 330}, {500, 340}, //
                            {490, 350}, {480, 350}, {470, 350}, //
                            {330, 350}, {320, 350}, {310, 350}, //
                            {300, 340}, {300, 330}, {300, 320}, //
                            {300, 280}, {300, 270}, {300, 260}}));
}

void TestShapeBuilders::roundedRectangleIsCutTwice()
{
    // Radius 6.2, handles 3.1. Edges: -25.5 to 25.5, -15.5 to 15.5; inner lines -19.3, 19.3, -9.3, 9.3.
    // Handles are measured from the lines that were cut: -19 - 3.1 = -22.1, not -22.4.
    QCOMPARE(built(ZnCvSplineTryShape::getRoundedRectangle, QPoint(0, 0), 51.0, 31.0),
             (QList<QPoint>{{-22, -15}, {-19, -15}, {-15, -15}, //
                            {15, -15},  {19, -15},  {22, -15},  //
                            {25, -12},  {25, -9},   {25, -5},   //
                            {25, 5},    {25, 9},    {25, 12},   //
                            {22, 15},   {19, 15},   {15, 15},   //
                            {-15, 15},  {-19, 15},  {-22, 15},  //
                            {-25, 12},  {-25, 9},   {-25, 5},   //
                            {-25, -5},  {-25, -9},  {-25, -12}}));
}

void TestShapeBuilders::everyBuilderLeavesAFreshOutline_data()
{
    QTest::addColumn<int>("builder");
    QTest::addColumn<int>("nodes");
    QTest::newRow("ellipse") << 0 << 4;
    QTest::newRow("rectangle") << 1 << 4;
    QTest::newRow("rounded rectangle") << 2 << 8;
}

namespace {

constexpr Builder kBuilders[] = {ZnCvSplineTryShape::getEllipse, ZnCvSplineTryShape::getRectangle,
                                 ZnCvSplineTryShape::getRoundedRectangle};

} // namespace

void TestShapeBuilders::everyBuilderLeavesAFreshOutline()
{
    QFETCH(int, builder);
    QFETCH(int, nodes);
    OutlineFixture outline;
    outline.draw({{1, 1}, {2, 2}, {3, 3}});
    outline.theRegion->theNodeStates[0] = {true, LmBezierPoint::kSynchroMirror, LmNodeState::kDraggedAnchor};
    outline.theRegion->theNodesChanged = true;
    const QRect label = outline.theRegion->theLabelRect;
    kBuilders[builder](QPoint(300, 300), 100.0, 60.0, outline.theRegion);
    QCOMPARE(outline.theRegion->nodeCount(), nodes);
    QVERIFY(outline.isWhole());
    QVERIFY(outline.hasFreshStates());
    QVERIFY(outline.theRegion->theHandlesEnabled);
    QVERIFY(!outline.theRegion->theClosed);
    QVERIFY(outline.theRegion->theNodesChanged);
    QVERIFY(outline.theRegion->theLabelRect != label);
    QVERIFY(outline.theRegion->boundingRect().contains(QPoint(300, 271)));
}

void TestShapeBuilders::shapesBeyondTheCoordinateRangeStayAtItsEnds_data()
{
    everyBuilderLeavesAFreshOutline_data();
}

void TestShapeBuilders::shapesBeyondTheCoordinateRangeStayAtItsEnds()
{
    QFETCH(int, builder);
    QFETCH(int, nodes);
    constexpr int kLeast = std::numeric_limits<int>::min();
    constexpr int kMost = std::numeric_limits<int>::max();
    const QRect ends = QPolygon(built(kBuilders[builder], QPoint(kMost, kLeast), 1e12, 1e12)).boundingRect();
    QCOMPARE(ends.topLeft(), QPoint(kLeast, kLeast));
    QCOMPARE(ends.bottomRight(), QPoint(kMost, kMost));
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
    const QList<QPoint> lost = built(kBuilders[builder], QPoint(0, 0), kNan, kNan);
    QCOMPARE(lost, QList<QPoint>(3 * nodes, QPoint(0, 0)));
}

MEASURE_TEST_MAIN(TestShapeBuilders)
#include "TestShapeBuilders.moc"
