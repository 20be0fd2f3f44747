// Recognition and thinning of thousands of strokes, held against a plain second computation and against what
// every stroke may expect.

#include "OutlineFixture.h"
#include "PlainOutline.h"
#include "PlainShape.h"
#include "PointMath.h"
#include "ShapeStrokes.h"
#include "TestFont.h"
#include "Watched.h"
#include "ZnCvSplineOptymize.h"
#include "ZnCvSplineTryShape.h"

#include <algorithm>
#include <array>

namespace {

constexpr quint32 kSeed = 5303;
constexpr int kStrokes = Watched::rounds(6000);

ShapeStrokes::Kind kindOf(int aIndex)
{
    return ShapeStrokes::Kind(aIndex % ShapeStrokes::kKindCount);
}

// Some strokes have been edited since they were drawn: handles pulled, states changed, closed.
void edit(OutlineFixture& aOutline, QRandomGenerator& aRandom)
{
    LmCvRegion& region = *aOutline.theRegion;
    for (int i = 0; i < region.nodeCount(); ++i) {
        region.theNodeStates[i].selected = aRandom.bounded(2) == 0;
        region.theNodeStates[i].synchro = LmBezierPoint::Synchro(aRandom.bounded(3));
        const QPoint pull(aRandom.bounded(-9, 10), aRandom.bounded(-9, 10));
        region.thePoints[3 * i] = PointMath::sum(region.thePoints.at(3 * i), pull);
        region.thePoints[3 * i + 2] = PointMath::difference(region.thePoints.at(3 * i + 2), pull);
    }
    region.theClosed = aRandom.bounded(2) == 0;
}

void drawRandom(OutlineFixture& aOutline, int aIndex, QRandomGenerator& aRandom)
{
    const int count = aRandom.bounded(4) == 0 ? aRandom.bounded(12) : aRandom.bounded(10, 160);
    aOutline.draw(ShapeStrokes::make(kindOf(aIndex), count, aRandom));
    if (aRandom.bounded(3) == 0)
        edit(aOutline, aRandom);
}

bool sameStates(const LmCvRegion& a, const LmCvRegion& b)
{
    return std::equal(a.theNodeStates.cbegin(), a.theNodeStates.cend(), b.theNodeStates.cbegin(),
                      b.theNodeStates.cend(), [](const LmNodeState& aFirst, const LmNodeState& aSecond) {
                          return aFirst.selected == aSecond.selected && aFirst.synchro == aSecond.synchro &&
                                 aFirst.dragged == aSecond.dragged;
                      });
}

QByteArray context(int aIndex)
{
    return QByteArray("stroke ") + QByteArray::number(aIndex);
}

} // namespace

class TestShapeProperties : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void recognitionEqualsThePlainComputation();
    void recognisedShapesLieNearTheStroke();
    void openStrokesAreNeverShapes();
    void longStrokesAreComparedInRunsAsInPairs();
    void thinningEqualsTheRemovalOfOneNodeAfterTheOther();
    void smoothedStrokesKeepTheirEnds();
};

void TestShapeProperties::recognitionEqualsThePlainComputation()
{
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    std::array<int, 4> found{};
    for (int i = 0; i < kStrokes; ++i) {
        OutlineFixture outline;
        drawRandom(outline, i, random);
        const PlainShape::Recognised expected = PlainShape::recognised(*outline.theRegion);
        const bool closed = outline.theRegion->theClosed;
        const int shape = ZnCvSplineTryShape::tryAssignShape(outline.theRegion);
        QVERIFY2(shape == expected.theShape, context(i));
        QVERIFY2(outline.points() == expected.theNodes, context(i));
        QVERIFY2(outline.isWhole(), context(i));
        QVERIFY2(outline.theRegion->theClosed == closed, context(i));
        ++found[std::size_t(shape)];
    }
    qInfo("none %d, ellipses %d, rectangles %d, rounded rectangles %d", found[0], found[1], found[2],
          found[3]);
    for (const int count : found)
        QVERIFY(count > 20);
}

void TestShapeProperties::recognisedShapesLieNearTheStroke()
{
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    int shapes = 0;
    for (int i = 0; i < kStrokes; ++i) {
        OutlineFixture outline;
        const QList<QPoint> stroke = ShapeStrokes::make(kindOf(i), random.bounded(20, 160), random);
        if (kindOf(i) == ShapeStrokes::kHuge)
            continue;
        outline.draw(stroke);
        const int shape = ZnCvSplineTryShape::tryAssignShape(outline.theRegion);
        if (shape == ZnCvSplineTryShape::kNoShape)
            continue;
        ++shapes;
        QVERIFY2(outline.theRegion->nodeCount() == (shape == ZnCvSplineTryShape::kRoundedRectangle ? 8 : 4),
                 context(i));
        QVERIFY2(outline.hasFreshStates() && outline.theRegion->theHandlesEnabled, context(i));
        // The frame's box holds the stroke, so all of it lies inside the circle around the box.
        const QRect around = QPolygon(stroke).boundingRect();
        const int reach = int(std::hypot(around.width(), around.height())) / 2 + 3;
        for (const QPoint& anchor : outline.anchors())
            QVERIFY2(around.adjusted(-reach, -reach, reach, reach).contains(anchor), context(i));
        const QPoint shift = QPolygon(outline.anchors()).boundingRect().center() - around.center();
        QVERIFY2(shift.manhattanLength() <= 4 + (around.width() + around.height()) / 8, context(i));
    }
    QVERIFY(shapes > Watched::rounds(300));
}

void TestShapeProperties::openStrokesAreNeverShapes()
{
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    int open = 0;
    for (int i = 0; i < kStrokes; ++i) {
        OutlineFixture outline;
        // Three quarters of the way round at most, and too large for the ends to meet over the gap.
        QList<QPoint> stroke = ShapeStrokes::make(kindOf(i), random.bounded(30, 160), random);
        stroke = stroke.mid(0, stroke.size() * 3 / 4);
        outline.draw(stroke);
        if (PlainOutline::areEndsClose(outline.points()))
            continue;
        ++open;
        QCOMPARE(ZnCvSplineTryShape::tryAssignShape(outline.theRegion), 0);
        QVERIFY2(outline.anchors() == stroke, context(i));
    }
    QVERIFY(open > kStrokes / 4);
}

void TestShapeProperties::longStrokesAreComparedInRunsAsInPairs()
{
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    std::array<int, 2> found{};
    for (int i = 0; i < Watched::rounds(600); ++i) {
        // Two stretches that may come near each other only far from both ends of the stroke.
        const int count = random.bounded(600, 2600);
        const QPoint shift(random.bounded(-2500, 2500), random.bounded(-60, 60));
        const QPoint way(random.bounded(3, 12), random.bounded(-3, 4));
        QList<QPoint> stroke(count);
        for (int j = 0; j < count; ++j) {
            const QPoint wobble(random.bounded(-2, 3), random.bounded(-2, 3));
            stroke[j] = j < count / 2 ? way * j + wobble : way * (count - j) + shift + wobble;
        }
        OutlineFixture outline;
        outline.draw(stroke);
        const bool close = ZnCvSplineTryShape::checkIfClose(outline.theRegion, count);
        QVERIFY2(close == PlainOutline::areEndsClose(outline.points()), context(i));
        ++found[close ? 1 : 0];
    }
    qInfo("open %d, close %d", found[0], found[1]);
    QVERIFY(found[0] > 50 && found[1] > 50);
}

void TestShapeProperties::thinningEqualsTheRemovalOfOneNodeAfterTheOther()
{
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    int thinned = 0;
    for (int i = 0; i < kStrokes; ++i) {
        OutlineFixture outline;
        drawRandom(outline, i, random);
        // Near the origin the end of the walk matters.
        if (random.bounded(2) == 0 && outline.theRegion->nodeCount() > 0 && kindOf(i) != ShapeStrokes::kHuge)
            outline.theRegion->moveObjectBy(-outline.anchors().last());
        OutlineFixture plain;
        plain.setNodes(outline.points());
        plain.theRegion->theNodeStates = outline.theRegion->theNodeStates;
        outline.theRegion->theCurrentNode = plain.theRegion->theCurrentNode = 2;
        outline.theRegion->theHandlesEnabled = plain.theRegion->theHandlesEnabled = random.bounded(2) == 0;
        outline.theRegion->theNodesChanged = plain.theRegion->theNodesChanged = random.bounded(2) == 0;
        const float distance = float(random.bounded(80));
        const int before = outline.theRegion->nodeCount();

        PlainOutline::thin(*plain.theRegion, distance);
        // The fit refuses a negative tolerance, so only the thinning is left to see.
        PrintedText printed;
        const int result = ZnCvSplineOptymize::optymizeSpline(outline.theRegion, -1.0F, distance);
        QCOMPARE(printed.text().isEmpty(), result == 0);
        QCOMPARE(result, plain.theRegion->nodeCount() > 3 ? -1 : 0);
        QVERIFY2(outline.points() == plain.points(), context(i));
        QVERIFY2(sameStates(*outline.theRegion, *plain.theRegion), context(i));
        QVERIFY2(outline.isWhole(), context(i));
        QCOMPARE(outline.theRegion->theCurrentNode, plain.theRegion->theCurrentNode);
        QCOMPARE(outline.theRegion->theHandlesEnabled, plain.theRegion->theHandlesEnabled);
        QCOMPARE(outline.theRegion->theNodesChanged, plain.theRegion->theNodesChanged);
        QCOMPARE(outline.theRegion->theLabelRect, plain.theRegion->theLabelRect);
        QCOMPARE(outline.theRegion->boundingRect(), plain.theRegion->boundingRect());
        thinned += outline.theRegion->nodeCount() < before ? 1 : 0;
    }
    QVERIFY(thinned > kStrokes / 3);
}

void TestShapeProperties::smoothedStrokesKeepTheirEnds()
{
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    int fitted = 0;
    for (int i = 0; i < kStrokes; ++i) {
        OutlineFixture outline;
        const QList<QPoint> stroke = ShapeStrokes::make(kindOf(i), random.bounded(2, 160), random);
        outline.draw(stroke);
        OutlineFixture plain;
        plain.draw(stroke);
        PlainOutline::thin(*plain.theRegion, 5.0F);
        PrintedText printed;
        const int segments = ZnCvSplineOptymize::optymizeSpline(outline.theRegion, 0.5F, 5.0F);
        const QByteArray text = printed.text();
        QVERIFY2(outline.isWhole(), context(i));
        if (segments <= 0) {
            QVERIFY2(outline.points() == plain.points(), context(i));
            QCOMPARE(!text.isEmpty(), plain.theRegion->nodeCount() > 3);
            continue;
        }
        ++fitted;
        QVERIFY(text.isEmpty());
        QCOMPARE(outline.theRegion->nodeCount(), segments + 1);
        QVERIFY2(segments < plain.theRegion->nodeCount(), context(i));
        QVERIFY2(outline.anchors().first() == plain.anchors().first(), context(i));
        // The last sample is lost only with a stroke of one segment.
        QVERIFY2(outline.anchors().last() == (segments == 1 ? QPoint(0, 0) : plain.anchors().last()),
                 context(i));
        QVERIFY2(outline.hasFreshStates() && outline.theRegion->theHandlesEnabled, context(i));
    }
    QVERIFY(fitted > kStrokes / 2);
}

MEASURE_TEST_MAIN(TestShapeProperties)
#include "TestShapeProperties.moc"
