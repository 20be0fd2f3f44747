// The three questions that tell shapes apart, asked about points in a known box.

#include "TestFont.h"
#include "ZnCvSplineTryShape.h"

#include <QList>
#include <QPointF>
#include <QRectF>
#include <QtMath>

#include <limits>
#include <vector>

namespace {

using Question = bool (*)(double (*)[2], unsigned, double, double, double, double, double);

bool ask(Question aQuestion, const QList<QPointF>& aPoints, const QRectF& aBox, double aTolerance)
{
    std::vector<double> numbers;
    for (const QPointF& point : aPoints)
        numbers.insert(numbers.end(), {point.x(), point.y()});
    numbers.resize(numbers.size() + 2); // so that there is a first row
    return aQuestion(reinterpret_cast<double(*)[2]>(numbers.data()), unsigned(aPoints.size()), aBox.left(),
                     aBox.right(), aBox.top(), aBox.bottom(), aTolerance);
}

const QRectF kSquare(QPointF(0.0, 0.0), QPointF(100.0, 100.0));
/// One point in the middle of each side of the square.
const QList<QPointF> kSides{{50.0, 0.0}, {50.0, 100.0}, {0.0, 50.0}, {100.0, 50.0}};

bool isRectangle(const QList<QPointF>& aPoints, const QRectF& aBox = kSquare)
{
    return ask(ZnCvSplineTryShape::testIfRectangle, aPoints, aBox, 0.2);
}

bool isRounded(const QList<QPointF>& aPoints, const QRectF& aBox = kSquare)
{
    return ask(ZnCvSplineTryShape::testIfRoundedRectangle, aPoints, aBox, 0.2);
}

bool isEllipse(const QList<QPointF>& aPoints, const QRectF& aBox, double aTolerance = 0.25)
{
    return ask(ZnCvSplineTryShape::testIfEllipse, aPoints, aBox, aTolerance);
}

/// A box of 200 x 200 around the origin: the radius is 100.
const QRectF kRound(QPointF(-100.0, -100.0), QPointF(100.0, 100.0));
const QList<QPointF> kRoundSides{{0.0, -100.0}, {0.0, 100.0}, {-100.0, 0.0}, {100.0, 0.0}};

} // namespace

class TestShapeTests : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noPointsAreNoShape();
    void rectangleNeedsAllFourSides();
    void rectangleHasAnEmptyMiddle();
    void bandEdgesBelongToTheBands();
    void cornersCountForTopAndBottomOnly();
    void sidesAreJudgedInTheSquaredBox_data();
    void sidesAreJudgedInTheSquaredBox();
    void flatStrokeIsNoShape_data();
    void flatStrokeIsNoShape();
    void roundedRectangleHasEmptyCorners();
    void cornerSquareEdgesBelongToTheCorner();
    void roundedRectangleIsARectangleFirst();
    void ellipseReachesFartherInThanOut_data();
    void ellipseReachesFartherInThanOut();
    void ellipseIsJudgedInTheSquaredBox();
    void ellipseToleranceMovesItsBands();
    void ellipseSidesHaveAToleranceOfTheirOwn();
    void ellipseNeedsAllFourSides();
    void numbersBeyondAllBoundsAreHarmless();
};

void TestShapeTests::noPointsAreNoShape()
{
    QVERIFY(!isRectangle({}));
    QVERIFY(!isRounded({}));
    QVERIFY(!isEllipse({}, kRound));
}

void TestShapeTests::rectangleNeedsAllFourSides()
{
    QVERIFY(isRectangle(kSides));
    for (int i = 0; i < 4; ++i) {
        QList<QPointF> three = kSides;
        three.removeAt(i);
        QVERIFY(!isRectangle(three));
    }
}

void TestShapeTests::rectangleHasAnEmptyMiddle()
{
    QVERIFY(!isRectangle(kSides + QList<QPointF>{{50.0, 50.0}}));
    QVERIFY(!isRectangle(kSides + QList<QPointF>{{20.5, 79.5}}));
    // A point outside the box belongs nowhere and spoils nothing.
    QVERIFY(isRectangle(kSides + QList<QPointF>{{150.0, 150.0}}));
}

void TestShapeTests::bandEdgesBelongToTheBands()
{
    // 20 pixels wide; the middle's edges are the bands' and those come first.
    QVERIFY(isRectangle({{50.0, 20.0}, {50.0, 80.0}, {20.0, 50.0}, {80.0, 50.0}}));
    QVERIFY(!isRectangle(kSides + QList<QPointF>{{50.0, 20.001}}));
    QVERIFY(!isRectangle(kSides + QList<QPointF>{{50.0, 79.999}}));
    QVERIFY(!isRectangle(kSides + QList<QPointF>{{20.001, 50.0}}));
    QVERIFY(!isRectangle(kSides + QList<QPointF>{{79.999, 50.0}}));
}

void TestShapeTests::cornersCountForTopAndBottomOnly()
{
    const QList<QPointF> corners{{0.0, 0.0}, {100.0, 0.0}, {100.0, 100.0}, {0.0, 100.0}};
    QVERIFY(!isRectangle(corners));
    QVERIFY(isRectangle(corners + QList<QPointF>{{0.0, 50.0}, {100.0, 50.0}}));
    QVERIFY(!isRectangle(corners + QList<QPointF>{{50.0, 0.0}, {50.0, 100.0}}));
    // The highest point of the left band that isn't the top's.
    QVERIFY(!isRectangle(corners + QList<QPointF>{{0.0, 20.0}, {100.0, 50.0}}));
    QVERIFY(isRectangle(corners + QList<QPointF>{{0.0, 20.001}, {100.0, 50.0}}));
}

void TestShapeTests::sidesAreJudgedInTheSquaredBox_data()
{
    QTest::addColumn<QSizeF>("size");
    QTest::newRow("wide") << QSizeF(400.0, 100.0);
    QTest::newRow("high") << QSizeF(50.0, 300.0);
    QTest::newRow("square") << QSizeF(120.0, 120.0);
    QTest::newRow("tiny") << QSizeF(1e-3, 2e-3);
    QTest::newRow("large") << QSizeF(4e9, 1e9);
}

void TestShapeTests::sidesAreJudgedInTheSquaredBox()
{
    QFETCH(QSizeF, size);
    // A fifth of each extent is the band, in both directions. Away from the origin, as edges are scaled too.
    const QRectF box(QPointF(1.5 * size.width(), -0.5 * size.height()), size);
    const auto at = [&box](double aX, double aY) {
        return QPointF(box.left() + aX * box.width(), box.top() + aY * box.height());
    };
    const QList<QPointF> sides{at(0.5, 0.19), at(0.5, 0.81), at(0.19, 0.5), at(0.81, 0.5)};
    QVERIFY(isRectangle(sides, box));
    for (const QPointF& inner : {at(0.5, 0.21), at(0.5, 0.79), at(0.21, 0.5), at(0.79, 0.5)})
        QVERIFY(!isRectangle(sides + QList<QPointF>{inner}, box));
    // The corners are a fifth of the band wide.
    QVERIFY(isRounded(sides + QList<QPointF>{at(0.041, 0.0), at(0.0, 0.041)}, box));
    QVERIFY(!isRounded(sides + QList<QPointF>{at(0.039, 0.039)}, box));
}

void TestShapeTests::flatStrokeIsNoShape_data()
{
    QTest::addColumn<QRectF>("box");
    QTest::newRow("no height") << QRectF(QPointF(-50.0, 0.0), QPointF(50.0, 0.0));
    QTest::newRow("no height, below the origin") << QRectF(QPointF(-50.0, 7.0), QPointF(50.0, 7.0));
    QTest::newRow("no width") << QRectF(QPointF(0.0, -50.0), QPointF(0.0, 50.0));
    QTest::newRow("no width, beside the origin") << QRectF(QPointF(-3.0, -50.0), QPointF(-3.0, 50.0));
    QTest::newRow("a point") << QRectF(QPointF(0.0, 0.0), QPointF(0.0, 0.0));
    QTest::newRow("a point elsewhere") << QRectF(QPointF(4.0, 4.0), QPointF(4.0, 4.0));
}

void TestShapeTests::flatStrokeIsNoShape()
{
    QFETCH(QRectF, box);
    const QList<QPointF> points{box.topLeft(), box.center(), box.bottomRight(), box.center(), box.topLeft()};
    QVERIFY(!isEllipse(points, box));
    QVERIFY(!isRounded(points, box));
    QVERIFY(!isRectangle(points, box));
}

void TestShapeTests::roundedRectangleHasEmptyCorners()
{
    QVERIFY(isRounded(kSides));
    for (const QPointF& corner :
         {QPointF(1.0, 1.0), QPointF(99.0, 1.0), QPointF(99.0, 99.0), QPointF(1.0, 99.0)}) {
        QVERIFY(!isRounded(kSides + QList<QPointF>{corner}));
        QVERIFY(isRectangle(kSides + QList<QPointF>{corner}));
    }
}

void TestShapeTests::cornerSquareEdgesBelongToTheCorner()
{
    // 100 * 0.2 * 0.2 = 4 pixels.
    QVERIFY(!isRounded(kSides + QList<QPointF>{{4.0, 4.0}}));
    QVERIFY(!isRounded(kSides + QList<QPointF>{{96.0, 4.0}}));
    QVERIFY(!isRounded(kSides + QList<QPointF>{{96.0, 96.0}}));
    QVERIFY(!isRounded(kSides + QList<QPointF>{{4.0, 96.0}}));
    QVERIFY(isRounded(kSides + QList<QPointF>{{4.001, 4.0}, {96.0, 4.001}, {95.999, 96.0}, {4.0, 95.999}}));
}

void TestShapeTests::roundedRectangleIsARectangleFirst()
{
    QVERIFY(!isRounded(kSides + QList<QPointF>{{50.0, 50.0}}));
    QVERIFY(!isRounded({{50.0, 0.0}, {50.0, 100.0}, {0.0, 50.0}}));
}

void TestShapeTests::ellipseReachesFartherInThanOut_data()
{
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<bool>("ellipse");
    // 62.5 to 125 of the radius 100: 3, 4, 5 times 12.5 and 25.
    QTest::newRow("at the lower bound") << QPointF(37.5, -50.0) << true;
    QTest::newRow("below the lower bound") << QPointF(37.5, -49.99) << false;
    QTest::newRow("at the upper bound") << QPointF(75.0, 100.0) << true;
    QTest::newRow("above the upper bound") << QPointF(75.01, 100.0) << false;
    QTest::newRow("at a corner of the box") << QPointF(100.0, 100.0) << false;
}

void TestShapeTests::ellipseReachesFartherInThanOut()
{
    QFETCH(QPointF, point);
    QFETCH(bool, ellipse);
    QVERIFY(isEllipse(kRoundSides, kRound));
    QCOMPARE(isEllipse(kRoundSides + QList<QPointF>{point}, kRound), ellipse);
}

void TestShapeTests::ellipseIsJudgedInTheSquaredBox()
{
    for (const QSizeF& size : {QSizeF(400.0, 50.0), QSizeF(30.0, 300.0)}) {
        const QRectF box(QPointF(40.0, -1000.0), size);
        QList<QPointF> points;
        for (int degrees = 0; degrees < 360; degrees += 5)
            points << box.center() +
                          QPointF(0.5 * size.width() * std::cos(qDegreesToRadians(double(degrees))),
                                  0.5 * size.height() * std::sin(qDegreesToRadians(double(degrees))));
        QVERIFY(isEllipse(points, box));
        QVERIFY(!isEllipse(points + QList<QPointF>{box.topLeft()}, box));
        QVERIFY(!isEllipse(points + QList<QPointF>{box.center()}, box));
    }
}

void TestShapeTests::ellipseToleranceMovesItsBands()
{
    // 0.1: from 85 to 110.
    QVERIFY(isEllipse(kRoundSides + QList<QPointF>{{51.0, 68.0}, {66.0, 88.0}}, kRound, 0.1));
    QVERIFY(!isEllipse(kRoundSides + QList<QPointF>{{50.99, 68.0}}, kRound, 0.1));
    QVERIFY(!isEllipse(kRoundSides + QList<QPointF>{{66.01, 88.0}}, kRound, 0.1));
}

void TestShapeTests::ellipseSidesHaveAToleranceOfTheirOwn()
{
    // 63.6 from the centre is in the ring, but in the middle for sides a quarter of the box deep.
    const QList<QPointF> points = kRoundSides + QList<QPointF>{{45.0, 45.0}};
    QVERIFY(!ask(ZnCvSplineTryShape::testIfRectangle, points, kRound, 0.25));
    QVERIFY(isEllipse(points, kRound, 0.25));
    // The middle of the sides' own reaches 30 pixels from the centre: with bands wide open it decides.
    QVERIFY(isEllipse(kRoundSides + QList<QPointF>{{30.0, 30.0}}, kRound, 0.6));
    QVERIFY(!isEllipse(kRoundSides + QList<QPointF>{{29.0, 29.0}}, kRound, 0.6));
}

void TestShapeTests::ellipseNeedsAllFourSides()
{
    for (int i = 0; i < 4; ++i) {
        QList<QPointF> three = kRoundSides;
        three.removeAt(i);
        QVERIFY(!isEllipse(three, kRound));
    }
}

void TestShapeTests::numbersBeyondAllBoundsAreHarmless()
{
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
    constexpr double kMost = std::numeric_limits<double>::max();
    const QRectF lost(QPointF(kNan, kNan), QPointF(kNan, kNan));
    const QRectF everywhere(QPointF(-kMost, -kMost), QPointF(kMost, kMost));
    for (const QRectF& box : {lost, everywhere}) {
        QVERIFY(!isRectangle(kSides, box));
        QVERIFY(!isRounded(kSides, box));
        QVERIFY(!isEllipse(kSides, box));
    }
}

MEASURE_TEST_MAIN(TestShapeTests)
#include "TestShapeTests.moc"
