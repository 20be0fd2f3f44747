#include "LmCvAngle.h"
#include "Q3Canvas.h"
#include "TestFont.h"

#include <QRandomGenerator>
#include <QTransform>

#include <cmath>
#include <limits>

namespace {

constexpr int kMin = std::numeric_limits<int>::min();
constexpr int kMax = std::numeric_limits<int>::max();
constexpr quint32 kSeed = 11;
const QPoint theMiddle(200, 200);

// Twice the area; positive for a polygon that runs clockwise on the screen.
qint64 signedArea(const QPolygon& aPolygon)
{
    qint64 sum = 0;
    for (qsizetype i = 0; i < aPolygon.size(); ++i) {
        const QPoint& from = aPolygon.at(i);
        const QPoint& to = aPolygon.at((i + 1) % aPolygon.size());
        sum += qint64(from.x()) * to.y() - qint64(to.x()) * from.y();
    }
    return sum;
}

qint64 side(const QPoint& aFrom, const QPoint& aTo, const QPoint& aPoint)
{
    return qint64(aTo.x() - aFrom.x()) * (aPoint.y() - aFrom.y()) -
           qint64(aTo.y() - aFrom.y()) * (aPoint.x() - aFrom.x());
}

bool hasCrossingEdges(const QPolygon& aPolygon)
{
    const auto corner = [&aPolygon](qsizetype i) { return aPolygon.at(i % aPolygon.size()); };
    const auto parts = [](qint64 a, qint64 b) { return (a < 0 && b > 0) || (a > 0 && b < 0); };
    for (qsizetype i = 0; i < aPolygon.size(); ++i)
        for (qsizetype j = i + 2; j < aPolygon.size(); ++j)
            if (parts(side(corner(i), corner(i + 1), corner(j)),
                      side(corner(i), corner(i + 1), corner(j + 1))) &&
                parts(side(corner(j), corner(j + 1), corner(i)),
                      side(corner(j), corner(j + 1), corner(i + 1))))
                return true;
    return false;
}

} // namespace

class TestAngleArea : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { delete theItem; }

    void areaOfAnAngleUpToRight();
    void directionZeroFallsInTheLastSector();
    void directionBelowASixteenthCountsAsZero();
    void armsInOneSectorComeClockwise_data();
    void armsInOneSectorComeClockwise();
    void eachArmComesBehindItsStation_data();
    void eachArmComesBehindItsStation();
    void wideLabelIsTakenInSideways();
    void tallLabelBelongsToTheBounds();
    void areaHasElevenPointsRunsClockwiseAndIsSimple();
    void extremeCoordinatesDoNoHarm();

private:
    void set(const QPoint& aWay1, const QPoint& aWay2)
    {
        theItem->setPoints(theMiddle, theMiddle + aWay1, theMiddle + aWay2);
    }
    QPolygon area() const { return theItem->areaPoints(); }

    Q3Canvas theCanvas{1000, 1000};
    LmCvAngle* theItem = nullptr;
};

void TestAngleArea::init()
{
    theItem = new LmCvAngle(nullptr, &theCanvas, QStringLiteral("3"), nullptr);
    QVERIFY(theItem->theLabelRect.width() < 60); // no wider than the arc
}

void TestAngleArea::areaOfAnAngleUpToRight()
{
    set(QPoint(0, -128), QPoint(128, -128));
    QVERIFY(theItem->theNormal1 == QPoint(-10, 0));
    const QPoint normal2(-7, -7); // 7.07 each, up and to the left of the arm
    QCOMPARE(theItem->theNormal2, normal2);
    const QPoint end2(328, 72);
    QCOMPARE(area(), QPolygon({{231, 231},
                               {169, 231}, // lower right, lower left
                               {169, 169},
                               {190, 72},
                               {200, 72},
                               {210, 72}, // upper left, out and back
                               {231, 169},
                               end2 + normal2,
                               end2,
                               end2 - normal2,
                               {231, 200}}));
}

void TestAngleArea::directionZeroFallsInTheLastSector()
{
    set(QPoint(128, 0), QPoint(0, 128));
    QCOMPARE(theItem->theStartAngle, 0.0);
    QCOMPARE(area(), QPolygon({{231, 231},
                               {210, 328},
                               {200, 328},
                               {190, 328}, // the second arm down
                               {169, 231},
                               {169, 169},
                               {231, 169},
                               {231, 200},
                               {328, 190},
                               {328, 200},
                               {328, 210}}));
    // Beside another arm in the last sector the direction 0 counts as the full turn, so it comes first.
    set(QPoint(128, 0), QPoint(128, 64));
    QCOMPARE(area().indexOf(QPoint(328, 200)), 6);
    QCOMPARE(area().indexOf(QPoint(328, 264)), 9);
    set(QPoint(128, 64), QPoint(128, 0));
    QCOMPARE(area().indexOf(QPoint(328, 200)), 6);
    QCOMPARE(area().indexOf(QPoint(328, 264)), 9);
    set(QPoint(128, 0), QPoint(64, 0));
    QCOMPARE(area().indexOf(QPoint(328, 200)), 6);
    QCOMPARE(area().indexOf(QPoint(264, 200)), 9);
}

void TestAngleArea::directionBelowASixteenthCountsAsZero()
{
    set(QPoint(10000, -1), QPoint(0, 128)); // 0.0057 degrees
    QVERIFY(theItem->theStartAngle > 0.0);
    QCOMPARE(area().indexOf(theItem->theEnd1), 9); // behind the last station
    set(QPoint(10000, -20), QPoint(0, 128));       // 0.114 degrees: one sixteenth
    QCOMPARE(area().indexOf(theItem->theEnd1), 8); // before it
    QCOMPARE(area().size(), 11);
}

void TestAngleArea::armsInOneSectorComeClockwise_data()
{
    QTest::addColumn<QPoint>("first");
    QTest::addColumn<QPoint>("second");
    // In clockwise order.
    QTest::newRow("above") << QPoint(-30, -120) << QPoint(40, -120);
    QTest::newRow("right, upper half") << QPoint(120, -80) << QPoint(120, -10);
    QTest::newRow("right, lower half") << QPoint(120, 10) << QPoint(120, 80);
    QTest::newRow("below") << QPoint(40, 120) << QPoint(-30, 120);
    QTest::newRow("left") << QPoint(-120, 30) << QPoint(-120, -40);
}

void TestAngleArea::armsInOneSectorComeClockwise()
{
    QFETCH(QPoint, first);
    QFETCH(QPoint, second);
    set(first, second);
    const QPolygon area1 = area();
    QCOMPARE(area1.size(), 11);
    const qsizetype place = area1.indexOf(theMiddle + first);
    QCOMPARE(area1.indexOf(theMiddle + second), place + 3);
    QVERIFY(!hasCrossingEdges(area1));
    // Whichever arm it is.
    set(second, first);
    QCOMPARE(area(), area1);
}

void TestAngleArea::eachArmComesBehindItsStation_data()
{
    QTest::addColumn<QPoint>("way");
    QTest::addColumn<int>("station");
    // A diagonal's direction is 44.77 less or more than the level: it still belongs to the right or left.
    QTest::newRow("right") << QPoint(100, 0) << 4;
    QTest::newRow("rising to the right") << QPoint(100, -100) << 3;
    QTest::newRow("just steeper") << QPoint(100, -102) << 2;
    QTest::newRow("up") << QPoint(0, -100) << 2;
    QTest::newRow("rising to the left, steep") << QPoint(-100, -102) << 2;
    QTest::newRow("rising to the left") << QPoint(-100, -100) << 1;
    QTest::newRow("left") << QPoint(-100, 0) << 1;
    QTest::newRow("falling to the left") << QPoint(-100, 100) << 1;
    QTest::newRow("falling to the left, steep") << QPoint(-100, 102) << 0;
    QTest::newRow("down") << QPoint(0, 100) << 0;
    QTest::newRow("falling to the right, steep") << QPoint(100, 102) << 0;
    QTest::newRow("falling to the right") << QPoint(100, 100) << 4;
}

void TestAngleArea::eachArmComesBehindItsStation()
{
    QFETCH(QPoint, way);
    QFETCH(int, station);
    const QPoint stations[] = {{231, 231}, {169, 231}, {169, 169}, {231, 169}, {231, 200}};
    set(way, way);
    const QPolygon points = area();
    QCOMPARE(points.size(), 11);
    QCOMPARE(points.indexOf(stations[station]), station);
    QCOMPARE(points.at(station + 1), theItem->theEnd1 + theItem->theNormal1);
    QCOMPARE(points.at(station + 2), theItem->theEnd1);
    QCOMPARE(points.at(station + 3), theItem->theEnd1 - theItem->theNormal1);
    QCOMPARE(points.at(station + 4), theItem->theEnd2 + theItem->theNormal2);
}

void TestAngleArea::wideLabelIsTakenInSideways()
{
    set(QPoint(0, -128), QPoint(128, 0));
    const auto cornersAt = [this](int aLeft, int aRight) {
        theItem->theLabelRect.setLeft(aLeft);
        theItem->theLabelRect.setRight(aRight);
        const QPolygon points = area();
        const QPolygon corners({points.at(0), points.at(1), points.at(2), points.at(6), points.at(7)});
        return corners;
    };
    QCOMPARE(cornersAt(169, 231), QPolygon({{231, 231}, {169, 231}, {169, 169}, {231, 169}, {231, 200}}));
    QCOMPARE(cornersAt(160, 231), QPolygon({{231, 231}, {160, 231}, {160, 169}, {231, 169}, {231, 200}}));
    QCOMPARE(cornersAt(180, 245), QPolygon({{245, 231}, {169, 231}, {169, 169}, {245, 169}, {245, 200}}));
}

void TestAngleArea::tallLabelBelongsToTheBounds()
{
    set(QPoint(0, -128), QPoint(128, 0));
    QCOMPARE(theItem->boundingRect(), area().boundingRect());
    theItem->adjustScale(QTransform::fromScale(0.1, 0.1));
    QVERIFY(theItem->theLabelRect.bottom() > 231);
    QCOMPARE(area().at(0).y(), 231);
    QVERIFY(theItem->boundingRect().contains(theItem->theLabelRect));
    QVERIFY(theItem->boundingRect().contains(area().boundingRect()));
}

void TestAngleArea::areaHasElevenPointsRunsClockwiseAndIsSimple()
{
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    const auto way = [&random] { return QPoint(random.bounded(-200, 201), random.bounded(-200, 201)); };
    int wellApart = 0;
    for (int i = 0; i < 5000; ++i) {
        const QPoint way1 = way();
        const QPoint way2 = way();
        set(way1, way2);
        const QPolygon points = area();
        QCOMPARE(points.size(), 11);
        QVERIFY(points.contains(theItem->theEnd1));
        QVERIFY(points.contains(theItem->theEnd2));
        QVERIFY(theItem->boundingRect().contains(theItem->theArcRect));
        // Out of the arc's square and with room between the heads.
        const double apart = std::abs(std::remainder(theItem->theStartAngle - theItem->theEndAngle, 360.0));
        if (theItem->theLength1 < 70.0 || theItem->theLength2 < 70.0 || apart < 30.0)
            continue;
        ++wellApart;
        QVERIFY(signedArea(points) > 0);
        QVERIFY(!hasCrossingEdges(points));
    }
    QVERIFY(wellApart > 1000);
}

void TestAngleArea::extremeCoordinatesDoNoHarm()
{
    const QPoint corners[] = {{kMin, kMin}, {kMax, kMax}, {kMin, kMax}, {0, 0}, {kMax, 0}, {kMin + 1, kMin}};
    for (const QPoint& vertex : corners) {
        for (const QPoint& end1 : corners) {
            for (const QPoint& end2 : corners) {
                theItem->setPoints(vertex, end1, end2);
                theItem->updateLabel();
                QCOMPARE(theItem->theEnd2, end2);
                QCOMPARE(theItem->theLength1,
                         std::hypot(double(end1.x()) - vertex.x(), double(end1.y()) - vertex.y()));
                for (const double degrees : {theItem->theStartAngle, theItem->theEndAngle})
                    QVERIFY(degrees >= 0.0 && degrees < 360.0);
                QVERIFY(theItem->getAngle() <= 0.0 && theItem->getAngle() > -360.0);
                QCOMPARE(area().size(), 11);
                QVERIFY(theItem->boundingRect().isValid());
                int node = -1;
                QPoint hit;
                QVERIFY(theItem->isPointOnObject(vertex, node, 8) || vertex == end1);
                QCOMPARE(node, 0);
                theItem->isPointOnArrow(end2, hit, 8);
                theItem->isPointOnStart(vertex);
                theItem->moveObjectBy(QPoint(kMax, kMin));
                theItem->adjustScale(QTransform::fromScale(0.01, 0.01));
                theItem->adjustScale(QTransform());
            }
        }
    }
}

MEASURE_TEST_MAIN(TestAngleArea)
#include "TestAngleArea.moc"
