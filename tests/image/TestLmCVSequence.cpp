#include "LmCVSequence.h"

#include "TestFont.h"

#include <QRandomGenerator>

#include <climits>
#include <cmath>

namespace {

LmCVSequence sequence(const QList<QPoint>& aPoints, QPoint aMove = QPoint())
{
    LmCVSequence result(int(aPoints.size()), 8);
    for (int i = 0; i < aPoints.size(); ++i)
        result.putPoint(i, aPoints[i].x() + aMove.x(), aPoints[i].y() + aMove.y());
    return result;
}

} // namespace

class TestLmCVSequence : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newSequenceHoldsPointsAtZero();
    void pointsOutsideTheSequenceAreIgnored();
    void copyIsIndependent();
    void areaIsTheSameInBothDirections();
    void areaOfFewerThanThreePointsIsZero();
    void perimeterCountsTheClosingEdgeOnlyIfClosed();
    void perimeterOfOnePointIsZero();
    void centreOfATriangleIsThatOfItsArea();
    void centreDoesNotFollowCrowdedPoints();
    void centreWithoutAreaIsTheMeanOfThePoints();
    void halvesGoAwayFromTheFirstPoint();
    void centreMovesAlongWithThePoints();
    void centreOfACrossedOutlineStaysNearIt();
    void centreOfNoPointsIsTheOrigin();
    void measuresStandTheGreatestCoordinates();
    void boundingRectangleHoldsAllPixels();
};

void TestLmCVSequence::newSequenceHoldsPointsAtZero()
{
    const LmCVSequence points(3, 8);
    QCOMPARE(points.theCount, 3);
    int x = 5, y = 5;
    points.getPoint(2, x, y);
    QCOMPARE(QPoint(x, y), QPoint(0, 0));
    QCOMPARE(LmCVSequence(-4, 8).theCount, 0);
}

void TestLmCVSequence::pointsOutsideTheSequenceAreIgnored()
{
    LmCVSequence points(2, 8);
    points.putPoint(-1, 9, 9);
    points.putPoint(2, 9, 9);
    int x = 5, y = 6;
    points.getPoint(2, x, y);
    points.getPoint(-1, x, y);
    QCOMPARE(QPoint(x, y), QPoint(5, 6));
    QCOMPARE(points.calculateBoundingRect(), QRect(0, 0, 1, 1));
}

void TestLmCVSequence::copyIsIndependent()
{
    LmCVSequence points = sequence({{1, 2}, {3, 4}});
    points.theOffsetX = 7;
    points.theCoG = QPoint(1, 1);
    const LmCVSequence copy = points;
    points.putPoint(0, 50, 50);
    int x = 0, y = 0;
    copy.getPoint(0, x, y);
    QCOMPARE(QPoint(x, y), QPoint(1, 2));
    QCOMPARE(copy.theOffsetX, 7);
    QCOMPARE(copy.theCoG, QPoint(1, 1));
    QCOMPARE(copy.theCount, 2);
}

void TestLmCVSequence::areaIsTheSameInBothDirections()
{
    // A rectangle of 4 by 3 with a triangle of 4 by 3 on top: 12 + 6.
    const QList<QPoint> house = {{0, 0}, {4, 0}, {4, 3}, {2, 6}, {0, 3}};
    const QList<QPoint> back(house.crbegin(), house.crend());
    QCOMPARE(sequence(house).calculateArea(), 18.0);
    QCOMPARE(sequence(back).calculateArea(), 18.0);
    QCOMPARE(sequence({{0, 0}, {1, 0}, {0, 1}}).calculateArea(), 0.5);
}

void TestLmCVSequence::areaOfFewerThanThreePointsIsZero()
{
    QCOMPARE(sequence({}).calculateArea(), 0.0);
    QCOMPARE(sequence({{5, 5}}).calculateArea(), 0.0);
    QCOMPARE(sequence({{5, 5}, {9, 1}}).calculateArea(), 0.0);
}

void TestLmCVSequence::perimeterCountsTheClosingEdgeOnlyIfClosed()
{
    const LmCVSequence triangle = sequence({{0, 0}, {3, 0}, {3, 4}});
    QCOMPARE(triangle.calculatePerimeter(false), 7.0);
    QCOMPARE(triangle.calculatePerimeter(true), 12.0);
}

void TestLmCVSequence::perimeterOfOnePointIsZero()
{
    QCOMPARE(sequence({{3, 4}}).calculatePerimeter(true), 0.0);
    QCOMPARE(sequence({}).calculatePerimeter(true), 0.0);
}

void TestLmCVSequence::centreOfATriangleIsThatOfItsArea()
{
    QCOMPARE(sequence({{0, 0}, {9, 0}, {0, 6}}).calculateCoG(), QPoint(3, 2));
    QCOMPARE(sequence({{0, 6}, {9, 0}, {0, 0}}).calculateCoG(), QPoint(3, 2));
}

void TestLmCVSequence::centreDoesNotFollowCrowdedPoints()
{
    // A square of 10 with many points on its left side: its middle is (5, 5), the mean of its points far to
    // the left.
    const LmCVSequence square =
        sequence({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 9}, {0, 8}, {0, 7}, {0, 6}, {0, 5}});
    QCOMPARE(square.calculateCoG(), QPoint(5, 5));
}

void TestLmCVSequence::centreWithoutAreaIsTheMeanOfThePoints()
{
    QCOMPARE(sequence({{7, 9}}).calculateCoG(), QPoint(7, 9));
    QCOMPARE(sequence({{0, 0}, {4, 8}}).calculateCoG(), QPoint(2, 4));
    QCOMPARE(sequence({{0, 0}, {0, 0}, {9, 0}}).calculateCoG(), QPoint(3, 0));
}

void TestLmCVSequence::halvesGoAwayFromTheFirstPoint()
{
    QCOMPARE(sequence({{0, 0}, {1, 3}}).calculateCoG(), QPoint(1, 2));
    QCOMPARE(sequence({{0, 0}, {-1, -3}}).calculateCoG(), QPoint(-1, -2));
    QCOMPARE(sequence({{0, 0}, {5, 0}, {5, 3}, {0, 3}}).calculateCoG(), QPoint(3, 2));
}

void TestLmCVSequence::centreMovesAlongWithThePoints()
{
    const unsigned int seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    for (int round = 0; round < 500; ++round) {
        QList<QPoint> points;
        const int count = random.bounded(1, 12);
        for (int i = 0; i < count; ++i)
            points.append(QPoint(random.bounded(-50, 50), random.bounded(-50, 50)));
        const QPoint move(random.bounded(-1000000, 1000000), random.bounded(-1000000, 1000000));
        QCOMPARE(sequence(points, move).calculateCoG(), sequence(points).calculateCoG() + move);
        QCOMPARE(sequence(points, move).calculateArea(), sequence(points).calculateArea());
    }
}

void TestLmCVSequence::centreOfACrossedOutlineStaysNearIt()
{
    // Two triangles that run in opposite directions and nearly cancel out: the plain quotient would lie at x
    // = -30.
    const LmCVSequence bow = sequence({{0, 0}, {10, 10}, {10, 0}, {0, 11}});
    QCOMPARE(bow.calculateArea(), 5.0);
    QCOMPARE(bow.calculateCoG(), QPoint(5, 5)); // the mean of the points, (5, 5.25)
}

void TestLmCVSequence::centreOfNoPointsIsTheOrigin()
{
    QCOMPARE(sequence({}).calculateCoG(), QPoint(0, 0));
}

void TestLmCVSequence::measuresStandTheGreatestCoordinates()
{
    const LmCVSequence all =
        sequence({{INT_MIN, INT_MIN}, {INT_MAX, INT_MIN}, {INT_MAX, INT_MAX}, {INT_MIN, INT_MAX}});
    const double side = double(INT_MAX) - double(INT_MIN);
    QCOMPARE(all.calculateArea(), side * side);
    QCOMPARE(all.calculatePerimeter(true), 4.0 * side);
    // Half of 2^32 - 1 is rounded up from the first corner.
    QCOMPARE(all.calculateCoG(), QPoint(0, 0));
    QCOMPARE(all.calculateBoundingRect().topLeft(), QPoint(INT_MIN, INT_MIN));
    QCOMPARE(all.calculateBoundingRect().bottomRight(), QPoint(INT_MAX, INT_MAX));
    QCOMPARE(sequence({{INT_MAX, INT_MAX}, {INT_MAX, INT_MAX}}).calculateCoG(), QPoint(INT_MAX, INT_MAX));
}

void TestLmCVSequence::boundingRectangleHoldsAllPixels()
{
    QCOMPARE(sequence({{3, -2}, {-1, 5}, {0, 0}}).calculateBoundingRect(),
             QRect(QPoint(-1, -2), QPoint(3, 5)));
    QCOMPARE(sequence({{3, 4}}).calculateBoundingRect(), QRect(3, 4, 1, 1));
    QVERIFY(sequence({}).calculateBoundingRect().isNull());
}

MEASURE_TEST_MAIN(TestLmCVSequence)
#include "TestLmCVSequence.moc"
