#include "SegmentGeometry.h"
#include "TestFont.h"

#include <QRandomGenerator>

#include <cmath>
#include <limits>

namespace {

constexpr int kMin = std::numeric_limits<int>::min();
constexpr int kMax = std::numeric_limits<int>::max();
constexpr quint32 kSeed = 20240817;

QPoint randomPoint(QRandomGenerator& aRandom, int aReach)
{
    return QPoint(aRandom.bounded(-aReach, aReach + 1), aRandom.bounded(-aReach, aReach + 1));
}

} // namespace

class TestSnapping : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void snapsToTheWorkedExamples_data();
    void snapsToTheWorkedExamples();
    void snappingAgreesWithASlowRule();
    void anchorItselfStays();
    void snappingAtTheEndsOfTheIntRange();
};

void TestSnapping::snapsToTheWorkedExamples_data()
{
    QTest::addColumn<QPoint>("way");
    QTest::addColumn<QPoint>("snapped");
    const auto row = [](const char* aName, QPoint aWay, QPoint aSnapped) {
        QTest::newRow(aName) << aWay << aSnapped;
    };
    // Steps around the thresholds: tan 72 = 3.077684 lies between 317 / 103 = 3.077670 and 277 / 90
    // = 3.077778.
    row("right of up, past 72", {90, -277}, {0, -277});
    row("right of up, short of 72", {103, -317}, {317, -317});
    row("left of up, past 72", {-90, -277}, {0, -277});
    row("left of up, short of 72", {-103, -317}, {-317, -317});
    row("right of down, past 72", {90, 277}, {0, 277});
    row("right of down, short of 72", {103, 317}, {317, 317});
    row("left of down, past 72", {-90, 277}, {0, 277});
    row("left of down, short of 72", {-103, 317}, {-317, 317});
    // The same steps for 18 degrees, with the coordinates exchanged.
    row("right, below 18", {277, 90}, {277, 0});
    row("right, past 18", {317, 103}, {317, 317});
    row("right, above -18", {277, -90}, {277, 0});
    row("right, past -18", {317, -103}, {317, -317});
    row("left, below 18", {-277, 90}, {-277, 0});
    row("left, past 18", {-317, 103}, {-317, 317});
    row("left, above -18", {-277, -90}, {-277, 0});
    row("left, past -18", {-317, -103}, {-317, -317});
    // From 45 degrees on the mouse's y counts, below it its x.
    row("45 right down", {50, 50}, {50, 50});
    row("45 left down", {-50, 50}, {-50, 50});
    row("45 right up", {50, -50}, {50, -50});
    row("45 left up", {-50, -50}, {-50, -50});
    row("steeper, right down", {50, 51}, {51, 51});
    row("flatter, right down", {51, 50}, {51, 51});
    row("steeper, left down", {-50, 53}, {-53, 53});
    row("flatter, left down", {-53, 50}, {-53, 53});
    row("steeper, right up", {50, -53}, {53, -53});
    row("flatter, right up", {53, -50}, {53, -53});
    row("steeper, left up", {-50, -53}, {-53, -53});
    row("flatter, left up", {-53, -50}, {-53, -53});
    // An even division at 22.5 and 67.5 degrees would take these for horizontal and vertical.
    row("20 degrees is oblique", {94, 34}, {94, 94});
    row("70 degrees is oblique", {34, 94}, {94, 94});
    row("straight right", {9, 0}, {9, 0});
    row("straight left", {-9, 0}, {-9, 0});
    row("straight up", {0, -9}, {0, -9});
    row("straight down", {0, 9}, {0, 9});
}

void TestSnapping::snapsToTheWorkedExamples()
{
    QFETCH(QPoint, way);
    QFETCH(QPoint, snapped);
    for (const QPoint& anchor : {QPoint(0, 0), QPoint(1000, -333), QPoint(-5, 7)})
        QCOMPARE(SegmentGeometry::snapped(anchor, anchor + way), anchor + snapped);
}

void TestSnapping::snappingAgreesWithASlowRule()
{
    // The same rule told by tangents of the slope instead of its arc sine.
    const long double tan18 = std::tan(18.0L * std::acos(-1.0L) / 180.0L);
    const long double tan72 = 1.0L / tan18;
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    for (int i = 0; i < 20000; ++i) {
        const QPoint anchor = randomPoint(random, 5000);
        const QPoint way = randomPoint(random, i % 2 ? 3000 : 12);
        if (way.isNull())
            continue;
        const int flat = std::abs(way.x());
        const int high = std::abs(way.y());
        QPoint expected(way.x() < 0 ? -1 : 1, way.y() < 0 ? -1 : 1);
        expected *= std::max(flat, high);
        if (high > tan72 * flat)
            expected = QPoint(0, way.y());
        else if (high < tan18 * flat)
            expected = QPoint(way.x(), 0);
        QCOMPARE(SegmentGeometry::snapped(anchor, anchor + way) - anchor, expected);
    }
}

void TestSnapping::anchorItselfStays()
{
    for (const QPoint& point : {QPoint(0, 0), QPoint(12, -7), QPoint(kMin, kMax)})
        QCOMPARE(SegmentGeometry::snapped(point, point), point);
}

void TestSnapping::snappingAtTheEndsOfTheIntRange()
{
    const QPoint low(kMin, kMin);
    QCOMPARE(SegmentGeometry::snapped(low, QPoint(kMax, kMax)), QPoint(kMax, kMax));
    QCOMPARE(SegmentGeometry::snapped(low, QPoint(kMax, 0)), QPoint(kMax, kMax));
    QCOMPARE(SegmentGeometry::snapped(low, QPoint(kMax, kMin + 5)), QPoint(kMax, kMin));
    QCOMPARE(SegmentGeometry::snapped(low, QPoint(kMin + 5, kMax)), QPoint(kMin, kMax));
    // The diagonal would leave the range: it ends there.
    QCOMPARE(SegmentGeometry::snapped(QPoint(0, kMin), QPoint(2, kMax)).x(), 0);
    QCOMPARE(SegmentGeometry::snapped(QPoint(0, 0), QPoint(kMin, kMax)), QPoint(kMin, kMax));
    QCOMPARE(SegmentGeometry::snapped(QPoint(0, kMin), QPoint(kMax, kMax)), QPoint(kMax, kMax));
}

MEASURE_TEST_MAIN(TestSnapping)
#include "TestSnapping.moc"
