// The search for the turn with the least bounding box.

#include "ShapeStrokes.h"
#include "TestFont.h"
#include "ZnCvSplineTryShape.h"

#include <QtMath>

#include <vector>

namespace {

/// Rows of points as the search takes them.
class Rows
{
public:
    explicit Rows(const QList<QPointF>& aPoints) : theRows(std::size_t(aPoints.size()))
    {
        for (std::size_t i = 0; i < theRows.size(); ++i)
            theRows[i] = {{aPoints.at(int(i)).x(), aPoints.at(int(i)).y()}};
    }

    double angle()
    {
        return ZnCvSplineTryShape::findBBoxAngle(reinterpret_cast<double(*)[2]>(theRows.data()),
                                                 unsigned(theRows.size()), theCentreX, theCentreY);
    }

    double theCentreX = 7.0;
    double theCentreY = 7.0;

    struct Row
    {
        double theXy[2];
    };
    std::vector<Row> theRows;
};

/// The corners of a rectangle of 200 x 80 around (300, 200), turned clockwise on the screen.
QList<QPointF> cornersTurned(double aDegrees)
{
    const ShapeStrokes::Frame frame{QPointF(300.0, 200.0), QSizeF(200.0, 80.0), aDegrees};
    return {frame.map({-100.0, -40.0}), frame.map({100.0, -40.0}), frame.map({100.0, 40.0}),
            frame.map({-100.0, 40.0})};
}

} // namespace

class TestShapeBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pointsAreMovedToTheirMean();
    void noPointsHaveNoTurn();
    void straightRectangleIsNotTurned();
    void fineSearchFindsDegrees_data();
    void fineSearchFindsDegrees();
    void unimprovedCoarseStepComesBackAsItsNumber_data();
    void unimprovedCoarseStepComesBackAsItsNumber();
    void coarseSearchStopsAtEightyDegrees();
    void equalBoxesKeepTheFirst();
    void onePointHasNoTurn();
    void pointsAreTurnedByTenDigitsOfPi();
};

void TestShapeBox::pointsAreMovedToTheirMean()
{
    Rows rows({{10.0, 1.0}, {20.0, 2.0}, {60.0, 9.0}});
    rows.angle();
    QCOMPARE(rows.theCentreX, 30.0);
    QCOMPARE(rows.theCentreY, 4.0);
    // The mean, which isn't the middle of the box; and not turned.
    QCOMPARE(rows.theRows[0].theXy[0], -20.0);
    QCOMPARE(rows.theRows[0].theXy[1], -3.0);
    QCOMPARE(rows.theRows[2].theXy[0], 30.0);
    QCOMPARE(rows.theRows[2].theXy[1], 5.0);
}

void TestShapeBox::noPointsHaveNoTurn()
{
    Rows rows({});
    QCOMPARE(rows.angle(), 0.0);
    QCOMPARE(rows.theCentreX, 0.0);
    QCOMPARE(rows.theCentreY, 0.0);
}

void TestShapeBox::straightRectangleIsNotTurned()
{
    QCOMPARE(Rows(cornersTurned(0.0)).angle(), 0.0);
}

void TestShapeBox::fineSearchFindsDegrees_data()
{
    QTest::addColumn<double>("turn");
    QTest::addColumn<double>("angle");
    for (const int turn : {1, 2, 3, 4, 6, 9, 12, 27, 33, 44, 46, 58, 71, 79, 81, 84})
        QTest::addRow("%d", turn) << double(turn) << double(turn);
    QTest::newRow("-1") << -1.0 << -1.0;
    QTest::newRow("-3") << -3.0 << -3.0;
    QTest::newRow("33.4") << 33.4 << 33.0;
    QTest::newRow("33.6") << 33.6 << 34.0;
    QTest::newRow("a quarter farther") << 123.0 << 33.0;
}

void TestShapeBox::fineSearchFindsDegrees()
{
    QFETCH(double, turn);
    QFETCH(double, angle);
    QCOMPARE(Rows(cornersTurned(turn)).angle(), angle);
}

void TestShapeBox::unimprovedCoarseStepComesBackAsItsNumber_data()
{
    QTest::addColumn<int>("step");
    for (int step = 0; step <= 16; ++step)
        QTest::addRow("%d degrees", 5 * step) << step;
}

void TestShapeBox::unimprovedCoarseStepComesBackAsItsNumber()
{
    QFETCH(int, step);
    QCOMPARE(Rows(cornersTurned(5.0 * step)).angle(), double(step));
}

void TestShapeBox::coarseSearchStopsAtEightyDegrees()
{
    // A step at 85 would be the best for a turn of 86 and lead to it; without one, 0 is the best.
    QCOMPARE(Rows(cornersTurned(86.0)).angle(), -4.0);
    // At 85 itself a step would come back as its number, 17.
    const double angle = Rows(cornersTurned(85.0)).angle();
    QVERIFY(angle == 85.0 || angle == -5.0);
}

void TestShapeBox::equalBoxesKeepTheFirst()
{
    // Points on a line through the origin along an axis: no box has an area below 0.
    QCOMPARE(Rows({{-10.0, 0.0}, {0.0, 0.0}, {10.0, 0.0}}).angle(), 0.0);
}

void TestShapeBox::onePointHasNoTurn()
{
    Rows rows({{12.5, -3.0}});
    QCOMPARE(rows.angle(), 0.0);
    QCOMPARE(rows.theCentreX, 12.5);
    QCOMPARE(rows.theCentreY, -3.0);
}

void TestShapeBox::pointsAreTurnedByTenDigitsOfPi()
{
    // Far out the digits show; three points in a row are no shape, so there is no region to fill.
    Rows rows({{1e12, 0.0}, {2e12, 0.0}, {3e12, 1e12}});
    QCOMPARE(
        ZnCvSplineTryShape::findShape(reinterpret_cast<double(*)[2]>(rows.theRows.data()), 3, 60.0, nullptr),
        0);
    const double radians = 60.0 * 3.1415926536 / 180.0;
    QVERIFY(rows.theRows[0].theXy[0] == std::cos(radians) * 1e12);
    QVERIFY(rows.theRows[0].theXy[1] == -std::sin(radians) * 1e12);
    QVERIFY(rows.theRows[2].theXy[0] == std::cos(radians) * 3e12 + std::sin(radians) * 1e12);
    QVERIFY(rows.theRows[2].theXy[1] == std::cos(radians) * 1e12 - std::sin(radians) * 3e12);
    QVERIFY(std::cos(radians) * 1e12 != std::cos(60.0 * M_PI / 180.0) * 1e12);
}

MEASURE_TEST_MAIN(TestShapeBox)
#include "TestShapeBox.moc"
