#include "LmCVSequence.h"
#include "LmImageProcessor.h"
#include "TestFont.h"

#include <QPolygon>
#include <QRandomGenerator>

#include <cmath>
#include <limits>

namespace {

constexpr quint32 kSeed = 4501;
constexpr int kLeast = std::numeric_limits<int>::min();
constexpr int kGreatest = std::numeric_limits<int>::max();

__extension__ typedef __int128 Wide;

/// A node without handles.
QPolygon corner(const QPoint& aAnchor)
{
    return QPolygon({aAnchor, aAnchor, aAnchor});
}

LmCVSequence sequenceOf(const QPolygon& aPolygon)
{
    LmCVSequence sequence(int(aPolygon.size()), 8);
    for (int i = 0; i < aPolygon.size(); ++i)
        sequence.putPoint(i, aPolygon[i].x(), aPolygon[i].y());
    return sequence;
}

/// One coordinate of a sample by repeated division of the control polygon, in whole numbers.
int sampled(int a, int b, int c, int d, int aStep, int aParts)
{
    Wide values[] = {a, b, c, d};
    for (int count = 3; count > 0; --count)
        for (int i = 0; i < count; ++i)
            values[i] = values[i] * (aParts - aStep) + values[i + 1] * aStep;
    const Wide whole = Wide(aParts) * aParts * aParts;
    const Wide magnitude = values[0] < 0 ? -values[0] : values[0];
    const Wide rounded = (2 * magnitude + whole) / (2 * whole);
    return int(values[0] < 0 ? -rounded : rounded);
}

/// The polygon by the plain computation.
QPolygon divided(const QPolygon& aPoints, int aParts, bool aClosed)
{
    const int nodes = int(aPoints.size()) / 3;
    QPolygon result;
    if (nodes > 0)
        result << aPoints[1];
    for (int i = 0; i < (aClosed ? nodes : nodes - 1); ++i) {
        const int next = (i + 1) % nodes;
        const QPoint points[] = {aPoints[3 * i + 1], aPoints[3 * i + 2], aPoints[3 * next],
                                 aPoints[3 * next + 1]};
        for (int step = 1; step <= aParts; ++step)
            result << QPoint(
                sampled(points[0].x(), points[1].x(), points[2].x(), points[3].x(), step, aParts),
                sampled(points[0].y(), points[1].y(), points[2].y(), points[3].y(), step, aParts));
    }
    if (aClosed && nodes > 0)
        result.removeLast();
    return result;
}

} // namespace

class TestDivideBezierCurve : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void straightSegmentIsCutByTheSpeedOfItsCurve();
    void segmentsShareTheirEndPoints();
    void closedOutlineEndsBeforeItsFirstAnchor();
    void closedCornersMeasureAsTheirPolygon();
    void closedAndRepeatedFirstAnchorMeasureTheSame();
    void halvesRoundAwayFromZero();
    void circleIsCloseToItsArea();
    void randomOutlinesAgreeWithTheDividedControlPolygon_data();
    void randomOutlinesAgreeWithTheDividedControlPolygon();
    void endsOfTheIntRangeStayInIt();
    void noNodesGiveNoPoints();
    void oneOpenNodeIsItsAnchor();
    void oneClosedNodeIsTheLoopOfItsHandles();
    void pointsThatMakeNoNodeCountAsNone();
    void fewerThanOnePartCountsAsOne();

private:
    QPolygon divide(const QPolygon& aPoints, int aParts, bool aClosed)
    {
        return LmImageProcessor::getInstance(nullptr)->divideBezierCurve(aPoints, aParts, aClosed);
    }
};

void TestDivideBezierCurve::straightSegmentIsCutByTheSpeedOfItsCurve()
{
    // Without handles a cubic runs as 3t^2 - 2t^3: 0, 28, 104, 216, 352, 500, 648 ... thousandths.
    const QPolygon polygon = divide(corner(QPoint(0, 0)) + corner(QPoint(1000, -2000)), 10, false);
    const int thousandths[] = {0, 28, 104, 216, 352, 500, 648, 784, 896, 972, 1000};
    QCOMPARE(polygon.size(), 11);
    for (int i = 0; i <= 10; ++i)
        QCOMPARE(polygon[i], QPoint(thousandths[i], -2 * thousandths[i]));
}

void TestDivideBezierCurve::segmentsShareTheirEndPoints()
{
    const QPolygon nodes = corner(QPoint(5, 5)) + corner(QPoint(50, 5)) + corner(QPoint(50, 80));
    const QPolygon polygon = divide(nodes, 10, false);
    QCOMPARE(polygon.size(), 21);
    QCOMPARE(polygon[0], QPoint(5, 5));
    QCOMPARE(polygon[10], QPoint(50, 5));
    QCOMPARE(polygon[20], QPoint(50, 80));
    QVERIFY(polygon[11] != polygon[10]);
}

void TestDivideBezierCurve::closedOutlineEndsBeforeItsFirstAnchor()
{
    const QPolygon nodes = corner(QPoint(0, 0)) + corner(QPoint(1000, 0)) + corner(QPoint(0, 1000));
    const QPolygon polygon = divide(nodes, 10, true);
    QCOMPARE(polygon.size(), 30);
    QCOMPARE(polygon[20], QPoint(0, 1000));
    QCOMPARE(polygon.last(), QPoint(0, 28));
    QCOMPARE(divide(nodes, 10, false), QPolygon(polygon.first(21)));
}

void TestDivideBezierCurve::closedCornersMeasureAsTheirPolygon()
{
    const QPolygon nodes =
        corner(QPoint(0, 0)) + corner(QPoint(99, 0)) + corner(QPoint(99, 49)) + corner(QPoint(0, 49));
    const QPolygon polygon = divide(nodes, 10, true);
    const LmCVSequence sequence = sequenceOf(polygon);
    QCOMPARE(sequence.calculateArea(), 99.0 * 49.0);
    QCOMPARE(sequence.calculatePerimeter(true), 2.0 * (99.0 + 49.0));
    QCOMPARE(polygon.boundingRect(), QRect(0, 0, 100, 50));
}

void TestDivideBezierCurve::closedAndRepeatedFirstAnchorMeasureTheSame()
{
    const QPolygon nodes({QPoint(-30, 40), QPoint(0, 0), QPoint(30, -40), QPoint(90, -20), QPoint(100, 10),
                          QPoint(110, 70), QPoint(60, 120), QPoint(40, 100), QPoint(20, 80)});
    const QPolygon polygon = divide(nodes, 10, true);
    const LmCVSequence once = sequenceOf(polygon);
    const LmCVSequence twice = sequenceOf(QPolygon(polygon + QPolygon({polygon.first()})));
    QVERIFY(once.calculateArea() > 0.0);
    QCOMPARE(once.calculateArea(), twice.calculateArea());
    QCOMPARE(once.calculatePerimeter(true), twice.calculatePerimeter(true));
    QCOMPARE(once.calculateBoundingRect(), twice.calculateBoundingRect());
    QVERIFY(once.calculatePerimeter(false) < twice.calculatePerimeter(false));
}

void TestDivideBezierCurve::halvesRoundAwayFromZero()
{
    // In the middle of two parts a segment without handles is half way.
    const QPolygon polygon = divide(corner(QPoint(0, 0)) + corner(QPoint(3, -3)), 2, false);
    QCOMPARE(polygon, QPolygon({QPoint(0, 0), QPoint(2, -2), QPoint(3, -3)}));
    const QPolygon down = divide(corner(QPoint(-4, 0)) + corner(QPoint(-3, 1)), 2, false);
    QCOMPARE(down[1], QPoint(-4, 1));
}

void TestDivideBezierCurve::circleIsCloseToItsArea()
{
    constexpr int kRadius = 10000;
    const int handle = qRound(kRadius * 4.0 / 3.0 * (std::sqrt(2.0) - 1.0));
    QPolygon nodes;
    const QPoint axes[] = {QPoint(1, 0), QPoint(0, 1), QPoint(-1, 0), QPoint(0, -1)};
    for (int i = 0; i < 4; ++i) {
        const QPoint anchor = axes[i] * kRadius;
        const QPoint along = axes[(i + 1) % 4] * handle;
        nodes << anchor - along << anchor << anchor + along;
    }
    const LmCVSequence circle = sequenceOf(divide(nodes, 10, true));
    // A polygon of 40 even corners has 1 - (2 pi / 40)^2 / 6 of the circle's area, and a quarter of that
    // loss is its loss of length.
    const double angle = 2.0 * M_PI / 40.0;
    const double area = M_PI * kRadius * kRadius;
    const double length = 2.0 * M_PI * kRadius;
    QVERIFY(std::abs(circle.calculateArea() / area - (1.0 - angle * angle / 6.0)) < 0.0005);
    QVERIFY(std::abs(circle.calculatePerimeter(true) / length - (1.0 - angle * angle / 24.0)) < 0.0005);
    QCOMPARE(circle.calculateBoundingRect(), QRect(QPoint(-kRadius, -kRadius), QPoint(kRadius, kRadius)));
}

void TestDivideBezierCurve::randomOutlinesAgreeWithTheDividedControlPolygon_data()
{
    QTest::addColumn<int>("parts");
    for (const int parts : {1, 2, 3, 7, 10, 64, 128})
        QTest::addRow("%d parts", parts) << parts;
}

void TestDivideBezierCurve::randomOutlinesAgreeWithTheDividedControlPolygon()
{
    QFETCH(int, parts);
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    for (int i = 0; i < 400; ++i) {
        const bool huge = i % 2 != 0; // from one end of the range of int to the other
        const auto coordinate = [&] { return huge ? int(random.generate()) : random.bounded(-300, 300); };
        QPolygon nodes;
        for (int count = random.bounded(0, 20); count > 0; --count) {
            const int x = coordinate();
            nodes << QPoint(x, coordinate());
        }
        for (const bool closed : {false, true})
            QCOMPARE(divide(nodes, parts, closed), divided(nodes, parts, closed));
    }
}

void TestDivideBezierCurve::endsOfTheIntRangeStayInIt()
{
    const QPolygon nodes = corner(QPoint(kLeast, kGreatest)) + corner(QPoint(kGreatest, kLeast)) +
                           corner(QPoint(kGreatest, kGreatest)) + corner(QPoint(kLeast, kLeast));
    QCOMPARE(divide(nodes, 10, true), divided(nodes, 10, true));
    const QPolygon still = corner(QPoint(kLeast, kGreatest)) + corner(QPoint(kLeast, kGreatest));
    for (const int parts : {10, 1000, 9999}) {
        const QPolygon samples = divide(still, parts, true);
        QCOMPARE(samples.size(), 2 * parts);
        for (const QPoint& point : samples)
            QCOMPARE(point, QPoint(kLeast, kGreatest));
    }
}

void TestDivideBezierCurve::noNodesGiveNoPoints()
{
    QVERIFY(divide(QPolygon(), 10, false).isEmpty());
    QVERIFY(divide(QPolygon(), 10, true).isEmpty());
}

void TestDivideBezierCurve::oneOpenNodeIsItsAnchor()
{
    QCOMPARE(divide(QPolygon({QPoint(0, 0), QPoint(7, -8), QPoint(9, 9)}), 10, false),
             QPolygon({QPoint(7, -8)}));
}

void TestDivideBezierCurve::oneClosedNodeIsTheLoopOfItsHandles()
{
    const QPolygon node({QPoint(-300, 300), QPoint(0, 0), QPoint(300, 300)});
    const QPolygon loop = divide(node, 10, true);
    QCOMPARE(loop, divided(node, 10, true));
    QCOMPARE(loop.size(), 10);
    QCOMPARE(loop[5], QPoint(0, 225)); // half way: three quarters of the handles' height
    const QPolygon point = divide(corner(QPoint(3, 4)), 10, true);
    QCOMPARE(point, QPolygon(10, QPoint(3, 4)));
}

void TestDivideBezierCurve::pointsThatMakeNoNodeCountAsNone()
{
    const QPolygon nodes = corner(QPoint(1, 2)) + corner(QPoint(30, 40));
    for (const bool closed : {false, true}) {
        QPolygon more = nodes;
        for (int i = 0; i < 2; ++i) {
            more << QPoint(500, 500);
            QCOMPARE(divide(more, 10, closed), divide(nodes, 10, closed));
        }
        QVERIFY(divide(QPolygon({QPoint(1, 1), QPoint(2, 2)}), 10, closed).isEmpty());
    }
}

void TestDivideBezierCurve::fewerThanOnePartCountsAsOne()
{
    const QPolygon nodes = corner(QPoint(1, 2)) + corner(QPoint(30, 40)) + corner(QPoint(5, 60));
    const QPolygon anchors({QPoint(1, 2), QPoint(30, 40), QPoint(5, 60)});
    for (const int parts : {1, 0, -1, kLeast})
        for (const bool closed : {false, true})
            QCOMPARE(divide(nodes, parts, closed), anchors);
}

MEASURE_TEST_MAIN(TestDivideBezierCurve)
#include "TestDivideBezierCurve.moc"
