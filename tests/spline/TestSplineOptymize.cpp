// Smoothing of strokes: which are fitted and how segments become nodes.

#include "LmCvRegion.h"
#include "OutlineFixture.h"
#include "SplineOptymizeInternal.h"
#include "TestFont.h"
#include "ZnCvSplineOptymize.h"

#include <limits>

namespace {

constexpr float kError = 0.5F;
constexpr float kDistance = 5.0F;
const QByteArray kNotFound("[SplineOptymize::optymizeSpline] Segment not found!\n");
const QByteArray kFailed("[SplineOptymize::optymizeSpline] Error during optymize!\n");

/// aCount samples in a row.
QList<QPoint> straight(const QPoint& aStart, const QPoint& aStep, int aCount)
{
    QList<QPoint> stroke;
    for (int i = 0; i < aCount; ++i)
        stroke << aStart + aStep * i;
    return stroke;
}

/// Two humps of a sine, below and above y = 0, that no single segment fits.
QList<QPoint> wave(const QPoint& aStart)
{
    QList<QPoint> stroke;
    for (int i = 0; i <= 60; ++i)
        stroke << aStart + QPoint(6 * i, qRound(80.0 * std::sin(2.0 * M_PI * i / 40.0)));
    return stroke;
}

std::vector<Point2D> fitted(const QList<QPoint>& aStroke, int& aSegments)
{
    std::vector<Point2D> samples;
    for (const QPoint& anchor : aStroke)
        samples.push_back({double(anchor.x()), double(anchor.y())});
    std::vector<Point2D> cubics(4 * samples.size());
    aSegments = SplineOptymizeInternal().bezierFitCubicConst(cubics.data(), samples.data(),
                                                             int(samples.size()), Point2D(0.0, 0.0),
                                                             double(kError), unsigned(samples.size()));
    return cubics;
}

QPoint truncated(const Point2D& aPoint)
{
    return QPoint(int(std::trunc(aPoint.x)), int(std::trunc(aPoint.y)));
}

} // namespace

class TestSplineOptymize : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noRegionGivesNoSegments();
    void emptyRegionStaysEmpty();
    void regionOfThreeNodesIsThinnedButNotFitted();
    void regionThinnedToThreeNodesIsNotFitted();
    void equalAnchorsGiveNoSegment();
    void refusedFitLeavesTheThinnedOutline();
    void strokeOfOneSegmentGetsItsLastNodeAtTheOrigin();
    void segmentsBecomeNodesWithHandles();
    void fittedCoordinatesAreCutTowardZero();
    void fittedRegionIsFreshlyEditable();
    void closedRegionIsFittedFromItsFirstToItsLastNode();
    void strokeOverTheWholeCoordinateRangeIsFitted();
};

void TestSplineOptymize::noRegionGivesNoSegments()
{
    PrintedText printed;
    const int result = ZnCvSplineOptymize::optymizeSpline(nullptr, kError, kDistance);
    QCOMPARE(printed.text(), QByteArray());
    QCOMPARE(result, 0);
}

void TestSplineOptymize::emptyRegionStaysEmpty()
{
    OutlineFixture outline;
    QCOMPARE(ZnCvSplineOptymize::optymizeSpline(outline.theRegion, kError, kDistance), 0);
    QVERIFY(outline.points().isEmpty());
}

void TestSplineOptymize::regionOfThreeNodesIsThinnedButNotFitted()
{
    OutlineFixture outline;
    outline.draw({{100, 100}, {102, 100}, {104, 100}});
    PrintedText printed;
    const int result = ZnCvSplineOptymize::optymizeSpline(outline.theRegion, kError, kDistance);
    QCOMPARE(printed.text(), QByteArray());
    QCOMPARE(result, 0);
    QCOMPARE(outline.anchors(), (QList<QPoint>{{100, 100}, {104, 100}}));
    QVERIFY(!outline.theRegion->theHandlesEnabled);

    outline.draw({{100, 100}, {150, 130}, {204, 100}});
    QCOMPARE(ZnCvSplineOptymize::optymizeSpline(outline.theRegion, kError, kDistance), 0);
    QCOMPARE(outline.anchors().size(), 3);
}

void TestSplineOptymize::regionThinnedToThreeNodesIsNotFitted()
{
    OutlineFixture outline;
    outline.draw({{100, 100}, {102, 100}, {104, 100}, {200, 140}});
    QCOMPARE(ZnCvSplineOptymize::optymizeSpline(outline.theRegion, kError, kDistance), 0);
    QCOMPARE(outline.anchors(), (QList<QPoint>{{100, 100}, {104, 100}, {200, 140}}));

    outline.draw({{100, 100}, {130, 100}, {160, 130}, {200, 140}});
    QVERIFY(ZnCvSplineOptymize::optymizeSpline(outline.theRegion, kError, kDistance) > 0);
}

void TestSplineOptymize::equalAnchorsGiveNoSegment()
{
    // Steps 2 to 5 take one out each; step 6 asks for a seventh node of six and finds the origin far away.
    OutlineFixture outline;
    outline.draw(QList<QPoint>(10, QPoint(300, 300)));
    PrintedText printed;
    const int result = ZnCvSplineOptymize::optymizeSpline(outline.theRegion, kError, kDistance);
    QCOMPARE(printed.text(), kNotFound);
    QCOMPARE(result, 0);
    QCOMPARE(outline.anchors(), QList<QPoint>(6, QPoint(300, 300)));
}

void TestSplineOptymize::refusedFitLeavesTheThinnedOutline()
{
    OutlineFixture outline;
    outline.draw(QList<QPoint>{{300, 300}, {301, 300}} + wave(QPoint(302, 300)));
    outline.theRegion->theNodesChanged = false;
    PrintedText printed;
    const int result = ZnCvSplineOptymize::optymizeSpline(outline.theRegion, -1.0F, kDistance);
    QCOMPARE(printed.text(), kFailed);
    QVERIFY(result < 0);
    QCOMPARE(outline.anchors(), (QList<QPoint>{{300, 300}} + wave(QPoint(302, 300))));
    QVERIFY(!outline.theRegion->theHandlesEnabled);
    QVERIFY(!outline.theRegion->theNodesChanged);
}

void TestSplineOptymize::strokeOfOneSegmentGetsItsLastNodeAtTheOrigin()
{
    const QList<QPoint> stroke = straight(QPoint(200, 300), QPoint(10, 5), 12);
    int segments = 0;
    const std::vector<Point2D> cubics = fitted(stroke, segments);
    QCOMPARE(segments, 1);

    OutlineFixture outline;
    outline.draw(stroke);
    PrintedText printed;
    const int result = ZnCvSplineOptymize::optymizeSpline(outline.theRegion, kError, kDistance);
    QCOMPARE(printed.text(), QByteArray());
    QCOMPARE(result, 1);
    QCOMPARE(outline.points(),
             (QList<QPoint>{{200, 300}, {200, 300}, truncated(cubics[1]), {0, 0}, {0, 0}, {0, 0}}));
    // The handle points along the stroke.
    QVERIFY(outline.points().at(2).x() > 220 && outline.points().at(2).y() > 310);
}

void TestSplineOptymize::segmentsBecomeNodesWithHandles()
{
    const QList<QPoint> stroke = wave(QPoint(200, 300));
    int segments = 0;
    const std::vector<Point2D> cubics = fitted(stroke, segments);
    QVERIFY(segments >= 2);

    OutlineFixture outline;
    outline.draw(stroke);
    QCOMPARE(ZnCvSplineOptymize::optymizeSpline(outline.theRegion, kError, kDistance), segments);
    QCOMPARE(outline.theRegion->nodeCount(), segments + 1);
    QVERIFY(outline.isWhole());
    const QList<QPoint> points = outline.points();
    QCOMPARE(points.at(0), stroke.first());
    QCOMPARE(points.at(1), stroke.first());
    QCOMPARE(points.at(points.size() - 2), stroke.last());
    QCOMPARE(points.last(), stroke.last());
    // Each segment's four points stand one behind the other, from an anchor to the next.
    for (int s = 0; s < segments; ++s)
        for (int i = 0; i < 4; ++i)
            QCOMPARE(points.at(3 * s + 1 + i), truncated(cubics[std::size_t(4 * s + i)]));
}

void TestSplineOptymize::fittedCoordinatesAreCutTowardZero()
{
    const QList<QPoint> stroke = wave(QPoint(-180, 0));
    int segments = 0;
    const std::vector<Point2D> cubics = fitted(stroke, segments);
    OutlineFixture outline;
    outline.draw(stroke);
    QCOMPARE(ZnCvSplineOptymize::optymizeSpline(outline.theRegion, kError, kDistance), segments);
    int negative = 0;
    int notRounded = 0;
    for (int s = 0; s < segments; ++s)
        for (int i = 1; i < 3; ++i) {
            const Point2D exact = cubics[std::size_t(4 * s + i)];
            const QPoint handle = outline.points().at(3 * s + 1 + i);
            QCOMPARE(handle, truncated(exact));
            negative += exact.x < 0.0 && exact.x != std::trunc(exact.x) ? 1 : 0;
            notRounded += handle.x() != qRound(exact.x) ? 1 : 0;
        }
    QVERIFY(negative > 0 && notRounded > 0);
}

void TestSplineOptymize::fittedRegionIsFreshlyEditable()
{
    OutlineFixture outline;
    outline.draw(wave(QPoint(200, 300)));
    for (LmNodeState& state : outline.theRegion->theNodeStates)
        state = {true, LmBezierPoint::kSynchroNone, LmNodeState::kDraggedRightCtrl};
    outline.theRegion->theCurrentNode = 4;
    outline.theRegion->theNodesChanged = true;
    outline.theRegion->theLabelRect = QRect();
    QVERIFY(ZnCvSplineOptymize::optymizeSpline(outline.theRegion, kError, kDistance) > 1);
    QVERIFY(outline.hasFreshStates());
    QVERIFY(outline.theRegion->theHandlesEnabled);
    QVERIFY(outline.theRegion->theLabelRect.isValid());
    QCOMPARE(outline.theRegion->theCurrentNode, 4);
    QVERIFY(outline.theRegion->theNodesChanged);
}

void TestSplineOptymize::closedRegionIsFittedFromItsFirstToItsLastNode()
{
    OutlineFixture open;
    open.draw(wave(QPoint(200, 300)));
    OutlineFixture closed;
    closed.draw(wave(QPoint(200, 300)));
    closed.theRegion->theClosed = true;
    QCOMPARE(ZnCvSplineOptymize::optymizeSpline(closed.theRegion, kError, kDistance),
             ZnCvSplineOptymize::optymizeSpline(open.theRegion, kError, kDistance));
    QCOMPARE(closed.points(), open.points());
    QVERIFY(closed.theRegion->theClosed);
}

void TestSplineOptymize::strokeOverTheWholeCoordinateRangeIsFitted()
{
    constexpr int kLeast = std::numeric_limits<int>::min();
    constexpr int kMost = std::numeric_limits<int>::max();
    const QList<QPoint> stroke{{kLeast, kLeast}, {kMost, kMost}, {kLeast, kMost}, {kMost, kLeast},
                               {0, 0},           {kLeast, 0},    {kMost, kMost},  {kLeast, kLeast}};
    OutlineFixture outline;
    outline.draw(stroke);
    QVERIFY(ZnCvSplineOptymize::optymizeSpline(outline.theRegion, kError, kDistance) > 0);
    QVERIFY(outline.isWhole());
    QCOMPARE(outline.anchors().first(), stroke.first());
    QCOMPARE(outline.anchors().last(), stroke.last());
}

MEASURE_TEST_MAIN(TestSplineOptymize)
#include "TestSplineOptymize.moc"
