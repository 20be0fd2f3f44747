// Points and vectors of the fit: arithmetic, lengths and the vector that counts as infinitely long.

#include "Point2D.h"
#include "TestFont.h"

#include <limits>

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

} // namespace

class TestPoint2D : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newPointIsTheOrigin();
    void nanMakesPointsDifferent();
    void arithmeticGoesByCoordinate();
    void lengthIsNotItsSquare();
    void zeroWithinTheEpsilonOnBothAxes();
    void quarterTurnIsCounterClockwise();
    void normalizedVectorHasLengthOne();
    void originAndNanStayWhenNormalized();
    void vectorOfTheLargestLengthBecomesItsSigns();
    void vectorOfTheLargestLengthWithoutSuchACoordinateKeepsItsDirection();
    void unitVectorLeavesItsArgument();
};

void TestPoint2D::newPointIsTheOrigin()
{
    const Point2D fresh;
    QVERIFY(fresh.x == 0.0 && fresh.y == 0.0);
}

void TestPoint2D::nanMakesPointsDifferent()
{
    const Point2D plain(1.0, 2.0);
    QVERIFY(plain == Point2D(1.0, 2.0));
    QVERIFY(!(plain != Point2D(1.0, 2.0)));
    QVERIFY(Point2D(0.0, -0.0) == Point2D(-0.0, 0.0));
    for (const Point2D& other :
         {Point2D(1.5, 2.0), Point2D(1.0, 2.5), Point2D(kNan, 2.0), Point2D(1.0, kNan)}) {
        QVERIFY(!(plain == other) && !(other == plain));
        QVERIFY(plain != other && other != plain);
    }
    const Point2D lost(kNan, kNan);
    QVERIFY(lost != lost && !(lost == lost));
}

void TestPoint2D::arithmeticGoesByCoordinate()
{
    const Point2D a(3.0, -4.0);
    const Point2D b(0.5, 8.0);
    QVERIFY(a + b == Point2D(3.5, 4.0));
    QVERIFY(a - b == Point2D(2.5, -12.0));
    QVERIFY(-a == Point2D(-3.0, 4.0));
    QVERIFY(2.0 * a == Point2D(6.0, -8.0));
    QVERIFY(a / 4.0 == Point2D(0.75, -1.0));
    QCOMPARE(dot(a, b), -30.5);
}

void TestPoint2D::lengthIsNotItsSquare()
{
    QCOMPARE(lenPower({3.0, -4.0}), 5.0);
    // Where a square would be infinite or 0.
    QCOMPARE(lenPower({3e200, 4e200}), 5e200);
    QVERIFY(lenPower({3e-200, 4e-200}) > 4.9e-200);
    QCOMPARE(lenPower({-kInfinity, 1.0}), kInfinity);
    QVERIFY(std::isnan(lenPower({kNan, 1.0})));
}

void TestPoint2D::zeroWithinTheEpsilonOnBothAxes()
{
    QVERIFY(isZero({0.0, 0.0}, 0.0));
    QVERIFY(isZero({1e-6, -1e-6}, 1e-6));
    QVERIFY(isZero({1e-7, -1e-7}, 1e-6));
    QVERIFY(!isZero({1.000001e-6, 0.0}, 1e-6));
    QVERIFY(!isZero({0.0, -1.000001e-6}, 1e-6));
    QVERIFY(!isZero({kNan, 0.0}, 1e-6));
    QVERIFY(!isZero({0.0, kNan}, 1e-6));
}

void TestPoint2D::quarterTurnIsCounterClockwise()
{
    QVERIFY(rot90({1.0, 0.0}) == Point2D(0.0, 1.0));
    QVERIFY(rot90({2.0, 3.0}) == Point2D(-3.0, 2.0));
}

void TestPoint2D::normalizedVectorHasLengthOne()
{
    Point2D vector(3.0, -4.0);
    vector.normalize();
    QVERIFY(vector == Point2D(0.6, -0.8));
    for (const double scale : {5e-324, 1e-310, 1e-20, 1.0, 1e20, 1e99, 9e99, 1.1e100, 1e300}) {
        vector = Point2D(scale, -scale);
        vector.normalize();
        QVERIFY(std::abs(lenPower(vector) - 1.0) < 0.5); // of the smallest number only the direction is left
        if (scale > 1e-300)
            QVERIFY(std::abs(lenPower(vector) - 1.0) < 1e-15);
        QVERIFY(vector.x == -vector.y && vector.x > 0.0);
    }
    vector = Point2D(kInfinity, 1.0);
    vector.normalize();
    QVERIFY(std::isnan(vector.x) && vector.y == 0.0);
}

void TestPoint2D::originAndNanStayWhenNormalized()
{
    Point2D vector(0.0, -0.0);
    vector.normalize();
    QVERIFY(vector == Point2D(0.0, 0.0) && std::signbit(vector.y));
    vector = Point2D(kNan, 7.0);
    vector.normalize();
    QVERIFY(std::isnan(vector.x) && vector.y == 7.0);
    vector = Point2D(7.0, kNan);
    vector.normalize();
    QVERIFY(vector.x == 7.0 && std::isnan(vector.y));
}

void TestPoint2D::vectorOfTheLargestLengthBecomesItsSigns()
{
    const double longest = 1e+100;
    QVERIFY(unitVector({longest, 0.0}) == Point2D(1.0, 0.0));
    QVERIFY(unitVector({0.0, -longest}) == Point2D(0.0, -1.0));
    // The other coordinate is lost, also where dividing would have kept it.
    const Point2D slanted(-longest, 1e80);
    QCOMPARE(lenPower(slanted), longest);
    QVERIFY(unitVector(slanted) == Point2D(-1.0, 0.0));
    // Both coordinates of that size make another length, and the plain division.
    const Point2D diagonal = unitVector({longest, longest});
    QVERIFY(diagonal.x == longest / lenPower({longest, longest}) && diagonal.y == diagonal.x);
}

void TestPoint2D::vectorOfTheLargestLengthWithoutSuchACoordinateKeepsItsDirection()
{
    const double longest = 1e+100;
    Point2D vector(0.6 * longest, 0.8 * longest);
    while (lenPower(vector) < longest)
        vector.y = std::nextafter(vector.y, kInfinity);
    while (lenPower(vector) > longest)
        vector.y = std::nextafter(vector.y, 0.0);
    QVERIFY(lenPower(vector) == longest);
    const Point2D unit = unitVector(vector);
    QVERIFY(std::abs(unit.x - 0.6) < 1e-15 && std::abs(unit.y - 0.8) < 1e-15);
}

void TestPoint2D::unitVectorLeavesItsArgument()
{
    const Point2D vector(0.0, 12.0);
    QVERIFY(unitVector(vector) == Point2D(0.0, 1.0));
    QVERIFY(vector == Point2D(0.0, 12.0));
}

MEASURE_TEST_MAIN(TestPoint2D)
#include "TestPoint2D.moc"
