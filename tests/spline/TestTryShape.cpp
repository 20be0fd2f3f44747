// Strokes that become shapes, and what becomes of those that don't.

#include "HandStrokes.h"
#include "OutlineFixture.h"
#include "ShapeStrokes.h"
#include "TestFont.h"
#include "ZnCvSplineOptymize.h"
#include "ZnCvSplineTryShape.h"

#include <QLineF>

#include <limits>

namespace {

/// The longest way from a place to the nearest anchor.
double farthestFrom(const QList<QPointF>& aPlaces, const QList<QPoint>& aAnchors)
{
    double farthest = 0.0;
    for (const QPointF& place : aPlaces) {
        double nearest = std::numeric_limits<double>::max();
        for (const QPoint& anchor : aAnchors)
            nearest = std::min(nearest, QLineF(place, anchor).length());
        farthest = std::max(farthest, nearest);
    }
    return farthest;
}

QList<QPointF> cornersOf(const ShapeStrokes::Frame& aFrame)
{
    const double x = 0.5 * aFrame.theSize.width();
    const double y = 0.5 * aFrame.theSize.height();
    return {aFrame.map({-x, -y}), aFrame.map({x, -y}), aFrame.map({x, y}), aFrame.map({-x, y})};
}

QList<QPointF> sideMiddlesOf(const ShapeStrokes::Frame& aFrame)
{
    const double x = 0.5 * aFrame.theSize.width();
    const double y = 0.5 * aFrame.theSize.height();
    return {aFrame.map({-x, 0.0}), aFrame.map({0.0, -y}), aFrame.map({x, 0.0}), aFrame.map({0.0, y})};
}

// Whole pixels of the centre, the edges and the turned points: each may lose one in either direction.
constexpr double kTruncations = 3.0 * M_SQRT2;

} // namespace

class TestTryShape : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void twoNodesAreLeftUntouched();
    void noRegionIsNoShape();
    void drawnCircleIsAnEllipse();
    void drawnEllipsesLandOnTheStroke_data();
    void drawnEllipsesLandOnTheStroke();
    void drawnSquareComesBackAtItsAngle_data();
    void drawnSquareComesBackAtItsAngle();
    void squareAtACoarseStepIsJudgedInAnotherFrame();
    void drawnRoundedRectangleKeepsItsFrame();
    void ellipseOfAHand();
    void rectangleOfAHand();
    void roundedRectangleOfAHand();
    void waveOfAHandIsSmoothedInstead();
    void openStrokeStaysAPolyline();
    void flatStrokeIsNoShape();
    void shapeHasFreshNodesAndItsLabel();
};

void TestTryShape::twoNodesAreLeftUntouched()
{
    OutlineFixture outline;
    const QList<QPoint> points{{90, 80}, {100, 100}, {140, 120}, {150, 60}, {200, 100}, {210, 110}};
    outline.setNodes(points);
    outline.theRegion->theHandlesEnabled = false;
    QCOMPARE(ZnCvSplineTryShape::tryAssignShape(outline.theRegion), 0);
    QCOMPARE(outline.points(), points);
    QVERIFY(!outline.theRegion->theHandlesEnabled);
    OutlineFixture empty;
    QCOMPARE(ZnCvSplineTryShape::tryAssignShape(empty.theRegion), 0);
    QVERIFY(empty.points().isEmpty());
}

void TestTryShape::noRegionIsNoShape()
{
    QCOMPARE(ZnCvSplineTryShape::tryAssignShape(nullptr), 0);
}

void TestTryShape::drawnCircleIsAnEllipse()
{
    for (const double diameter : {12.0, 40.0, 155.0, 700.0}) {
        OutlineFixture outline;
        outline.draw(ShapeStrokes::ellipse({QPointF(400.0, 400.0), QSizeF(diameter, diameter)}, 90));
        QCOMPARE(ZnCvSplineTryShape::tryAssignShape(outline.theRegion), 1);
        QCOMPARE(outline.theRegion->nodeCount(), 4);
        // Whatever turn was found, the four nodes lie on the circle, a quarter of the way round apart.
        for (int i = 0; i < 4; ++i) {
            const QPoint anchor = outline.anchors().at(i);
            QVERIFY(std::abs(QLineF(QPointF(400.0, 400.0), anchor).length() - 0.5 * diameter) < kTruncations);
            QVERIFY(std::abs(QLineF(anchor, outline.anchors().at((i + 1) % 4)).length() -
                             diameter * M_SQRT1_2) < 2.0 * kTruncations);
        }
    }
}

void TestTryShape::drawnEllipsesLandOnTheStroke_data()
{
    QTest::addColumn<double>("turn");
    for (const double turn : {0.0, 4.0, 23.0, 48.0, 84.0})
        QTest::addRow("%g degrees", turn) << turn;
}

void TestTryShape::drawnEllipsesLandOnTheStroke()
{
    QFETCH(double, turn);
    const ShapeStrokes::Frame frame{QPointF(420.0, 350.0), QSizeF(320.0, 120.0), turn};
    OutlineFixture outline;
    outline.draw(ShapeStrokes::ellipse(frame, 150));
    QCOMPARE(ZnCvSplineTryShape::tryAssignShape(outline.theRegion), 1);
    // A degree more or less moves the ends of the long axis by 3 pixels.
    QVERIFY(farthestFrom(sideMiddlesOf(frame), outline.anchors()) < kTruncations + 160.0 * 0.018);
}

void TestTryShape::drawnSquareComesBackAtItsAngle_data()
{
    QTest::addColumn<double>("turn");
    QTest::addColumn<QSizeF>("size");
    for (const double turn : {0.0, 3.0, 12.0, 29.0, 31.0, 32.0, 33.0, 44.0, 58.0, 77.0}) {
        QTest::addRow("square, %g degrees", turn) << turn << QSizeF(200.0, 200.0);
        QTest::addRow("rectangle, %g degrees", turn) << turn << QSizeF(300.0, 120.0);
    }
}

void TestTryShape::drawnSquareComesBackAtItsAngle()
{
    QFETCH(double, turn);
    QFETCH(QSizeF, size);
    const ShapeStrokes::Frame frame{QPointF(450.0, 380.0), size, turn};
    OutlineFixture outline;
    // Sides are a multiple of the step, so that the corners are among the samples.
    outline.draw(ShapeStrokes::rectangle(frame, int(size.width() + size.height()) / 2 + 1));
    QCOMPARE(ZnCvSplineTryShape::tryAssignShape(outline.theRegion), 2);
    QCOMPARE(outline.theRegion->nodeCount(), 4);
    QVERIFY(farthestFrom(cornersOf(frame), outline.anchors()) < kTruncations);
    QCOMPARE(outline.points(), withoutHandles(outline.anchors()));
}

void TestTryShape::squareAtACoarseStepIsJudgedInAnotherFrame()
{
    // At 30 degrees, the sixth coarse step, no degree around is better: the frame is turned by 6 degrees.
    // There the square stands 24 degrees aslant, and its corners are not where a rectangle has them, but in
    // an ellipse's ring. The clean shape is the ellipse in that frame's box, as wide and high as 200 * (sin
    // 24 + cos 24).
    const ShapeStrokes::Frame frame{QPointF(450.0, 380.0), QSizeF(200.0, 200.0), 30.0};
    OutlineFixture outline;
    outline.draw(ShapeStrokes::rectangle(frame, 201));
    QCOMPARE(ZnCvSplineTryShape::tryAssignShape(outline.theRegion), 1);
    const double side = 200.0 * (std::sin(24.0 * M_PI / 180.0) + std::cos(24.0 * M_PI / 180.0));
    const ShapeStrokes::Frame found{frame.theCentre, QSizeF(side, side), 6.0};
    QVERIFY(farthestFrom(sideMiddlesOf(found), outline.anchors()) < kTruncations);
}

void TestTryShape::drawnRoundedRectangleKeepsItsFrame()
{
    for (const double turn : {0.0, 14.0, 33.0, 62.0}) {
        const ShapeStrokes::Frame frame{QPointF(420.0, 390.0), QSizeF(320.0, 200.0), turn};
        OutlineFixture outline;
        outline.draw(ShapeStrokes::roundedRectangle(frame, 40.0, 261));
        QCOMPARE(ZnCvSplineTryShape::tryAssignShape(outline.theRegion), 3);
        QCOMPARE(outline.theRegion->nodeCount(), 8);
        // Corners are a fifth of the short side round, here just as round as drawn.
        const QList<QPointF> ends{frame.map({-120.0, -100.0}), frame.map({120.0, -100.0}),
                                  frame.map({160.0, -60.0}),   frame.map({160.0, 60.0}),
                                  frame.map({120.0, 100.0}),   frame.map({-120.0, 100.0}),
                                  frame.map({-160.0, 60.0}),   frame.map({-160.0, -60.0})};
        for (int i = 0; i < 8; ++i)
            QVERIFY(QLineF(ends.at(i), outline.anchors().at(i)).length() < kTruncations + 1.0);
    }
}

// Strokes of a hand have no exact frame: a few pixels from bowed sides and a few from the turn.
constexpr double kHandAccuracy = 10.0;

void TestTryShape::ellipseOfAHand()
{
    OutlineFixture outline;
    outline.draw(HandStrokes::kEllipse);
    QCOMPARE(ZnCvSplineTryShape::tryAssignShape(outline.theRegion), 1);
    const ShapeStrokes::Frame frame{QPointF(320.0, 260.0), QSizeF(190.0, 130.0), 17.0};
    QVERIFY(farthestFrom(sideMiddlesOf(frame), outline.anchors()) < kHandAccuracy);
}

void TestTryShape::rectangleOfAHand()
{
    OutlineFixture outline;
    outline.draw(HandStrokes::kRectangle);
    QCOMPARE(ZnCvSplineTryShape::tryAssignShape(outline.theRegion), 2);
    const ShapeStrokes::Frame frame{QPointF(410.0, 330.0), QSizeF(170.0, 110.0), -8.0};
    QVERIFY(farthestFrom(cornersOf(frame), outline.anchors()) < kHandAccuracy);
}

void TestTryShape::roundedRectangleOfAHand()
{
    OutlineFixture outline;
    outline.draw(HandStrokes::kRoundedRectangle);
    QCOMPARE(ZnCvSplineTryShape::tryAssignShape(outline.theRegion), 3);
    const ShapeStrokes::Frame frame{QPointF(300.0, 420.0), QSizeF(180.0, 120.0), 6.0};
    QVERIFY(farthestFrom({frame.map({-66.0, -60.0}), frame.map({66.0, 60.0}), frame.map({90.0, -36.0}),
                          frame.map({-90.0, 36.0})},
                         outline.anchors()) < kHandAccuracy);
}

void TestTryShape::waveOfAHandIsSmoothedInstead()
{
    OutlineFixture outline;
    outline.draw(HandStrokes::kWave);
    QCOMPARE(ZnCvSplineTryShape::tryAssignShape(outline.theRegion), 0);
    QCOMPARE(outline.anchors(), HandStrokes::kWave);
    const int segments = ZnCvSplineOptymize::optymizeSpline(outline.theRegion, 0.5F, 5.0F);
    QVERIFY(segments > 2 && segments < HandStrokes::kWave.size() / 2);
    QCOMPARE(outline.anchors().first(), HandStrokes::kWave.first());
    QCOMPARE(outline.anchors().last(), HandStrokes::kWave.last());
}

void TestTryShape::openStrokeStaysAPolyline()
{
    OutlineFixture outline;
    const QList<QPoint> stroke =
        ShapeStrokes::ellipse({QPointF(400.0, 400.0), QSizeF(400.0, 300.0)}, 100).mid(0, 80);
    outline.draw(stroke);
    QCOMPARE(ZnCvSplineTryShape::tryAssignShape(outline.theRegion), 0);
    QCOMPARE(outline.points(), withoutHandles(stroke));
    QVERIFY(outline.theRegion->theHandlesEnabled);
}

void TestTryShape::flatStrokeIsNoShape()
{
    for (const QPoint& way : {QPoint(10, 0), QPoint(0, 10), QPoint(0, 0)}) {
        QList<QPoint> stroke;
        for (int i = 0; i <= 40; ++i)
            stroke << QPoint(300, 300) + way * (i <= 20 ? i : 40 - i);
        OutlineFixture outline;
        outline.draw(stroke);
        QCOMPARE(ZnCvSplineTryShape::tryAssignShape(outline.theRegion), 0);
        QCOMPARE(outline.anchors(), stroke);
    }
}

void TestTryShape::shapeHasFreshNodesAndItsLabel()
{
    OutlineFixture outline;
    outline.draw(HandStrokes::kRoundedRectangle);
    for (LmNodeState& state : outline.theRegion->theNodeStates)
        state = {true, LmBezierPoint::kSynchroMirror, LmNodeState::kDraggedAnchor};
    outline.theRegion->theLabelRect = QRect();
    QCOMPARE(ZnCvSplineTryShape::tryAssignShape(outline.theRegion), 3);
    QVERIFY(outline.isWhole() && outline.hasFreshStates());
    QVERIFY(outline.theRegion->theHandlesEnabled);
    QCOMPARE(outline.theRegion->theLabelRect.center().x(), outline.anchors().first().x());
    // Whether it is closed now is the caller's to say.
    QVERIFY(!outline.theRegion->theClosed);
}

MEASURE_TEST_MAIN(TestTryShape)
#include "TestTryShape.moc"
