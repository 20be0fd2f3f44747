#include "RegionMeasures.h"
#include "RegionShapes.h"
#include "TestFont.h"

#include <cmath>
#include <limits>

using RegionShapes::corners;
using RegionShapes::rectangle;

namespace {

constexpr int kLeast = std::numeric_limits<int>::min();
constexpr int kGreatest = std::numeric_limits<int>::max();
const QPoint kNowhere(0, 0);

} // namespace

class TestRegionMeasures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void extentsCountBothBorderPixels();
    void openRegionHasItsLengthOnly();
    void stepDividesLengthsOnceAndAreasTwice();
    void placeDoesNotMatterToTheOutline();
    void handlesBendTheOutline();
    void oneNodeIsOnePixel();
    void oneOpenNodeHasNoLength();
    void noNodesMeasureNothing();
    void cornersAtTheEndsOfTheIntRange();
};

void TestRegionMeasures::extentsCountBothBorderPixels()
{
    const RegionMeasures measures(rectangle(QRect(0, 0, 100, 50)), true, QPoint(7, 8));
    for (const double step : {0.0, 1.0}) {
        QCOMPARE(measures.width(step), 100.0);
        QCOMPARE(measures.height(step), 50.0);
        QCOMPARE(measures.area(step), 99.0 * 49.0);
        QCOMPARE(measures.length(step), 2.0 * (99.0 + 49.0));
    }
}

void TestRegionMeasures::openRegionHasItsLengthOnly()
{
    const RegionMeasures measures(rectangle(QRect(0, 0, 100, 50)), false, kNowhere);
    QCOMPARE(measures.length(0.0), 99.0 + 49.0 + 99.0);
    QCOMPARE(measures.width(0.0), 0.0);
    QCOMPARE(measures.height(0.0), 0.0);
    QCOMPARE(measures.area(0.0), 0.0);
}

void TestRegionMeasures::stepDividesLengthsOnceAndAreasTwice()
{
    const RegionMeasures measures(rectangle(QRect(0, 0, 101, 51)), true, kNowhere);
    QCOMPARE(measures.width(2.0), 50.5);
    QCOMPARE(measures.height(2.0), 25.5);
    QCOMPARE(measures.length(2.0), 150.0);
    QCOMPARE(measures.area(2.0), 1250.0);
}

void TestRegionMeasures::placeDoesNotMatterToTheOutline()
{
    // Multiples of 250, whose samples are whole pixels.
    const QPolygon points = corners(QPolygon({QPoint(0, 0), QPoint(750, 1000), QPoint(-750, 1000)}));
    for (const QPoint& pos : {kNowhere, QPoint(500, -300), QPoint(kGreatest, kLeast)}) {
        const RegionMeasures measures(points, true, pos);
        QCOMPARE(measures.area(0.0), 750000.0);
        QCOMPARE(measures.width(0.0), 1501.0);
        QCOMPARE(measures.height(0.0), 1001.0);
        QCOMPARE(measures.length(0.0), 1250.0 + 1250.0 + 1500.0);
    }
}

void TestRegionMeasures::handlesBendTheOutline()
{
    // A half circle below its diameter, from one cubic with a third of 4 r to each side; 20 pieces lose less
    // than one percent.
    constexpr int kRadius = 3000;
    const QPoint down(0, 4 * kRadius / 3);
    const QPoint left(-kRadius, 0);
    const QPoint right(kRadius, 0);
    const RegionMeasures measures(QPolygon({right, right, right + down, left + down, left, left}), true,
                                  kNowhere);
    QCOMPARE(measures.width(0.0), 2.0 * kRadius + 1.0);
    QCOMPARE(measures.height(0.0), kRadius + 1.0);
    QVERIFY(std::abs(measures.area(0.0) / (M_PI * kRadius * kRadius / 2.0) - 1.0) < 0.03);
    QVERIFY(std::abs(measures.length(0.0) / (kRadius * (M_PI + 2.0)) - 1.0) < 0.03);
}

void TestRegionMeasures::oneNodeIsOnePixel()
{
    const RegionMeasures measures(corners(QPolygon({QPoint(2, -1)})), true, QPoint(10, 10));
    QCOMPARE(measures.width(0.0), 1.0);
    QCOMPARE(measures.height(0.0), 1.0);
    QCOMPARE(measures.length(0.0), 0.0);
    QCOMPARE(measures.area(0.0), 0.0);
}

void TestRegionMeasures::oneOpenNodeHasNoLength()
{
    const RegionMeasures measures(QPolygon({QPoint(-50, 0), QPoint(0, 0), QPoint(50, 9)}), false, kNowhere);
    QCOMPARE(measures.length(0.0), 0.0);
    QCOMPARE(measures.width(0.0), 0.0);
}

void TestRegionMeasures::noNodesMeasureNothing()
{
    for (const QPolygon& points : {QPolygon(), QPolygon({QPoint(5, 5), QPoint(9, 9)})})
        for (const bool closed : {false, true})
            for (const double step : {0.0, 2.0}) {
                const RegionMeasures measures(points, closed, QPoint(20, 20));
                QCOMPARE(measures.width(step), 0.0);
                QCOMPARE(measures.height(step), 0.0);
                QCOMPARE(measures.length(step), 0.0);
                QCOMPARE(measures.area(step), 0.0);
            }
}

void TestRegionMeasures::cornersAtTheEndsOfTheIntRange()
{
    const QPolygon points = rectangle(QRect(QPoint(kLeast, kLeast), QPoint(kGreatest, kGreatest)));
    constexpr double kExtent = 4294967296.0;
    for (const QPoint& pos : {kNowhere, QPoint(kGreatest, kLeast)}) {
        const RegionMeasures measures(points, true, pos);
        QCOMPARE(measures.width(0.0), kExtent);
        QCOMPARE(measures.height(0.0), kExtent);
        QCOMPARE(measures.area(0.0), (kExtent - 1.0) * (kExtent - 1.0));
        QCOMPARE(measures.length(0.0), 4.0 * (kExtent - 1.0));
    }
}

MEASURE_TEST_MAIN(TestRegionMeasures)
#include "TestRegionMeasures.moc"
