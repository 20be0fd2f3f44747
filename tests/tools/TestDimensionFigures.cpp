#include "DimensionFixture.h"
#include "TestFont.h"

#include <QRandomGenerator>

#include <cmath>
#include <limits>
#include <memory>

/// The figures of heights, widths and their average.
class TestDimensionFigures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<DimensionFixture>(); }
    void cleanup() { theFixture.reset(); }

    void heightAloneReadsZeroForAllWidths();
    void averageOfOneWidthIsThatWidth();
    void widthsGoByTheirNumbers();
    void averageRunsBetweenTheMeanEnds_data();
    void averageRunsBetweenTheMeanEnds();
    void hugePointsGiveFiniteValues();
    void valuesAgreeWithAnotherFormula();

private:
    std::unique_ptr<DimensionFixture> theFixture;
};

void TestDimensionFigures::heightAloneReadsZeroForAllWidths()
{
    theFixture->drag(QPoint(20, 20), QPoint(80, 100)); // 60, 80, 100
    QCOMPARE(theFixture->fromRecord(kHeight), QVariant(100.0));
    for (int i = 1; i <= 3; ++i) {
        QCOMPARE(theFixture->fromRecord(width(i)), QVariant(0.0));
        QCOMPARE(theFixture->live(width(i)), QVariant(0.0));
    }
    QCOMPARE(theFixture->fromRecord(kAverage), QVariant(0.0));
    QCOMPARE(theFixture->live(kLiveAverage), QVariant(0.0));
    theFixture->calibrate(100.0, QStringLiteral("mm"));
    QCOMPARE(theFixture->fromRecord(kAverage), QVariant(0.0)); // whatever the step
    QCOMPARE(theFixture->theUnit, QStringLiteral("mm"));
    QCOMPARE(theFixture->fromRecord(width(2)), QVariant(0.0));
    QCOMPARE(theFixture->theUnit, QStringLiteral("mm"));
}

void TestDimensionFigures::averageOfOneWidthIsThatWidth()
{
    theFixture->drawLevel(100, {});
    theFixture->altDrag(QPoint(60, 40), QPoint(97, 51));
    QCOMPARE(theFixture->fromRecord(width(1)), QVariant(std::sqrt(37.0 * 37.0 + 11.0 * 11.0)));
    QCOMPARE(theFixture->fromRecord(kAverage), theFixture->fromRecord(width(1)));
    QCOMPARE(theFixture->live(kLiveAverage), theFixture->live(width(1)));
}

void TestDimensionFigures::widthsGoByTheirNumbers()
{
    theFixture->drawLevel(90, {30, 50, 70});
    QCOMPARE(theFixture->fromRecord(kHeight), QVariant(90.0));
    for (int i = 1; i <= 3; ++i)
        QCOMPARE(theFixture->fromRecord(width(i)), QVariant(10.0 + 20.0 * i));
    QCOMPARE(theFixture->fromRecord(kAverage), QVariant(50.0));
}

void TestDimensionFigures::averageRunsBetweenTheMeanEnds_data()
{
    QTest::addColumn<QPolygon>("widths");
    QTest::addColumn<double>("average");
    QTest::newRow("opposite directions cancel out")
        << QPolygon({QPoint(0, 0), QPoint(40, 0), QPoint(40, 50), QPoint(0, 50)}) << 0.0;
    QTest::newRow("across each other") << QPolygon({QPoint(0, 0), QPoint(60, 0), QPoint(0, 0), QPoint(0, 80)})
                                       << 50.0; // (30, 40) and not 70
    // 31 / 2 is cut to 15, 9 / 2 to 4 and -9 / 2 to -4: from (0, 4) to (15, -4).
    QTest::newRow("means are cut") << QPolygon({QPoint(0, 0), QPoint(10, 0), QPoint(0, 9), QPoint(21, -9)})
                                   << 17.0;
    // Toward zero on both sides: -31 / 2 is -15, and the first ends' -1 / 2 is 0.
    QTest::newRow("means are cut toward zero")
        << QPolygon({QPoint(-1, 0), QPoint(-10, 0), QPoint(0, 0), QPoint(-21, 0)}) << 15.0;
    QTest::newRow("three") << QPolygon({QPoint(0, 0), QPoint(10, 0), QPoint(0, 0), QPoint(10, 0),
                                        QPoint(0, 0), QPoint(12, 0)})
                           << 10.0; // 32 / 3
}

void TestDimensionFigures::averageRunsBetweenTheMeanEnds()
{
    QFETCH(QPolygon, widths);
    QFETCH(double, average);
    theFixture->drawLevel(100, {});
    const QPolygon points = QPolygon({QPoint(500, 500), QPoint(500, 900)}) + widths;
    theFixture->storePoints(1, -1, points);
    QCOMPARE(theFixture->fromRecord(kAverage), QVariant(average));
    theFixture->item(1)->setPoints(Q3PointArray(points));
    QCOMPARE(theFixture->live(kLiveAverage), QVariant(average));
}

void TestDimensionFigures::hugePointsGiveFiniteValues()
{
    constexpr int kMin = std::numeric_limits<int>::min();
    constexpr int kMax = std::numeric_limits<int>::max();
    theFixture->drawLevel(90, {});
    const QPolygon points({QPoint(kMin, kMin), QPoint(kMax, kMax), QPoint(kMin, 0), QPoint(kMax, 0),
                           QPoint(kMin, 0), QPoint(kMax, 0), QPoint(kMin, 0), QPoint(kMax, 0)});
    theFixture->storePoints(1, -1, points);
    theFixture->item(1)->setPoints(Q3PointArray(points));
    QCOMPARE(theFixture->fromRecord(kHeight).toDouble(), 4294967295.0 * std::sqrt(2.0));
    QCOMPARE(theFixture->fromRecord(width(3)), QVariant(4294967295.0));
    QCOMPARE(theFixture->fromRecord(kAverage), QVariant(4294967295.0));
    QCOMPARE(theFixture->live(kLiveAverage), QVariant(4294967295.0));
}

void TestDimensionFigures::valuesAgreeWithAnotherFormula()
{
    constexpr quint32 kSeed = 4711;
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    theFixture->drawLevel(90, {});
    theFixture->calibrate(160.0, QStringLiteral("mm")); // 2.5 pixels each
    for (int i = 0; i < 500; ++i) {
        const int widths = random.bounded(0, 4);
        QPolygon points;
        for (int left = 2 * widths + 2; left > 0; --left)
            points << QPoint(random.bounded(-500, 500), random.bounded(-500, 500));
        theFixture->storePoints(1, -1, points);
        const auto length = [](const QPoint& aFrom, const QPoint& aTo) {
            return double(std::hypot(static_cast<long double>(aTo.x() - aFrom.x()),
                                     static_cast<long double>(aTo.y() - aFrom.y())) /
                          2.5L);
        };
        QPoint firsts;
        QPoint seconds;
        QCOMPARE(theFixture->fromRecord(kHeight).toDouble(), length(points[0], points[1]));
        for (int k = 1; k <= 3; ++k) {
            const bool there = k <= widths;
            QCOMPARE(theFixture->fromRecord(width(k)).toDouble(),
                     there ? length(points[2 * k], points[2 * k + 1]) : 0.0);
            firsts += there ? points[2 * k] : QPoint();
            seconds += there ? points[2 * k + 1] : QPoint();
        }
        const auto mean = [widths](const QPoint& aSum) {
            return QPoint(aSum.x() / widths, aSum.y() / widths);
        };
        QCOMPARE(theFixture->fromRecord(kAverage).toDouble(),
                 widths > 0 ? length(mean(firsts), mean(seconds)) : 0.0);
    }
}

MEASURE_TEST_MAIN(TestDimensionFigures)
#include "TestDimensionFigures.moc"
