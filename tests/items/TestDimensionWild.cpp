#include "ItemMouse.h"
#include "ItemPicture.h"
#include "LmCvDimension.h"
#include "Q3Canvas.h"
#include "TestFont.h"

#include <QRandomGenerator>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int kMin = std::numeric_limits<int>::min();
constexpr int kMax = std::numeric_limits<int>::max();
constexpr quint32 kSeed = 4711;

// A part of the vector's length along it (or across, turned clockwise on the screen), by its direction.
struct Along
{
    Along(const QPoint& aStart, const QPoint& aEnd, double aLength)
    {
        const long double dx = static_cast<long double>(aEnd.x()) - aStart.x();
        const long double dy = static_cast<long double>(aEnd.y()) - aStart.y();
        const long double direction = std::atan2(dy, dx);
        const auto length = static_cast<long double>(aLength);
        theX = length * std::cos(direction);
        theY = length * std::sin(direction);
    }
    long double theX;
    long double theY;
};

// Both ways of computing may fall to different sides of a step; closer to one than this they aren't compared.
constexpr long double kDoubt = 1e-6L;

bool isDoubtful(long double aValue)
{
    return std::abs(aValue - std::round(aValue)) < kDoubt;
}

bool isCutOf(int aWhole, long double aValue)
{
    return isDoubtful(aValue) ? std::abs(aWhole - std::round(aValue)) <= 1 : aWhole == std::trunc(aValue);
}

} // namespace

/// Random and extreme dimensions.
class TestDimensionWild : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        theItem = new LmCvDimension(nullptr, &theCanvas, QStringLiteral("1"), nullptr);
        theItem->show();
    }
    void cleanup() { delete theItem; }

    void handlesAndAreaAgreeWithAnotherFormula();
    void endsOfTheIntRangeDoNoHarm();
    void dragsToTheEndsOfTheIntRangeDoNoHarm();

private:
    bool agrees(const Q3PointArray& aPoints);

    Q3Canvas theCanvas{1000, 1000};
    LmCvDimension* theItem = nullptr;
};

bool TestDimensionWild::agrees(const Q3PointArray& aPoints)
{
    long double leastX = 32000;
    long double leastY = 32000;
    long double mostX = 0;
    long double mostY = 0;
    const auto takeIn = [&](long double aX, long double aY) {
        leastX = std::min(leastX, aX);
        leastY = std::min(leastY, aY);
        mostX = std::max(mostX, aX);
        mostY = std::max(mostY, aY);
    };
    for (int i = 0; i + 1 < aPoints.size(); i += 2) {
        const QPoint start = aPoints[i];
        const QPoint end = aPoints[i + 1];
        if (start == end) {
            if (theItem->theCtrlPoints[i] != start || theItem->theCtrlPoints[i + 1] != end)
                return false;
            continue;
        }
        const Along beyond(start, end, 4.0);
        const QPoint way = theItem->theCtrlPoints[i + 1] - end;
        if (start - theItem->theCtrlPoints[i] != way || !isCutOf(way.x(), beyond.theX) ||
            !isCutOf(way.y(), beyond.theY))
            return false;
        const Along handle(start, end, 2.0 * theItem->theCtrlRad);
        takeIn(start.x() - handle.theX, start.y() - handle.theY);
        takeIn(end.x() + handle.theX, end.y() + handle.theY);
        const Along tick(start, end, theItem->theCapSize);
        for (const QPoint& point : {start, end}) {
            takeIn(point.x() - tick.theY, point.y() + tick.theX);
            takeIn(point.x() + tick.theY, point.y() - tick.theX);
        }
    }
    // Whole pixels against exact numbers: each side may be rounded by half a pixel.
    const Q3PointArray area = theItem->areaPoints();
    const auto isNear = [](int aWhole, long double aExact) {
        return std::abs(aWhole - aExact) <= 0.5L + kDoubt;
    };
    return isNear(area[0].x(), leastX) && isNear(area[0].y(), leastY) && isNear(area[2].x(), mostX) &&
           isNear(area[2].y(), mostY);
}

void TestDimensionWild::handlesAndAreaAgreeWithAnotherFormula()
{
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    for (int i = 0; i < 4000; ++i) {
        const int reach = 1 << random.bounded(1, 22);
        Q3PointArray points;
        for (int left = random.bounded(1, 5) * 2; left > 0; --left)
            points << QPoint(random.bounded(-reach, reach), random.bounded(-reach, reach));
        const double zoom = std::exp2(random.bounded(-5, 3));
        theItem->adjustScale(QTransform::fromScale(zoom, zoom));
        theItem->setPoints(points);
        QVERIFY2(agrees(points), qPrintable(QStringLiteral("round %1").arg(i)));
    }
}

void TestDimensionWild::endsOfTheIntRangeDoNoHarm()
{
    const QPoint corners[] = {{kMin, kMin}, {kMax, kMax}, {kMin, kMax}, {0, 0}, {kMax, 0}, {kMin + 1, kMin}};
    for (const QPoint& start : corners) {
        for (const QPoint& end : corners) {
            theItem->adjustScale(QTransform());
            const Q3PointArray points(QList<QPoint>{start, end, end, end, end, start});
            theItem->setPoints(points);
            theItem->setDisplayValue(QStringLiteral("W2: 1.00"));
            QCOMPARE(theItem->thePoints, points);
            int segment = -1;
            QVERIFY(theItem->isPointOnObject(end, segment, 8) || segment == 3);
            QVERIFY(theItem->isPointOnCtrl(theItem->theCtrlPoints[1], segment, 8));
            QCOMPARE(theItem->areaPoints().size(), 4);
            theItem->setActive(true);
            painted(*theItem);
            theItem->moveObjectBy(QPoint(kMax, kMin));
            theItem->moveDimBy(1, QPoint(kMin, kMin));
            theItem->adjustScale(QTransform::fromScale(0.02, 0.02));
            QCOMPARE(theItem->areaPoints().size(), 4);
            painted(*theItem, QTransform::fromScale(0.02, 0.02));
        }
    }
    // The painter goes on as before.
    theItem->adjustScale(QTransform());
    theItem->setColor(kBlue);
    theItem->setPoints(Q3PointArray() << QPoint(40, 100) << QPoint(360, 100));
    QCOMPARE(painted(*theItem).pixelColor(70, 100), kBlue);
}

void TestDimensionWild::dragsToTheEndsOfTheIntRangeDoNoHarm()
{
    for (const QPoint& far : {QPoint(kMin, kMin), QPoint(kMax, kMax), QPoint(kMin, kMax)}) {
        for (const QPoint& from : {QPoint(96, 100), QPoint(150, 100)}) {
            theItem->setPoints(Q3PointArray() << QPoint(100, 100) << QPoint(200, 100));
            QVERIFY(pressOn(*theItem, from));
            QVERIFY(moveOn(*theItem, far, Qt::ShiftModifier));
            QVERIFY(moveOn(*theItem, far));
            QVERIFY(theItem->thePoints[0] != QPoint(100, 100));
            QVERIFY(moveOn(*theItem, QPoint(0, 0)));
            QVERIFY(releaseOn(*theItem, QPoint(0, 0)));
        }
    }
    // At the end of the range there is no room for a length of one.
    theItem->setPoints(Q3PointArray() << QPoint(kMax - 100, 0) << QPoint(kMax, 0));
    QVERIFY(pressOn(*theItem, QPoint(kMax - 104, 0)));
    QVERIFY(moveOn(*theItem, QPoint(kMax, 0)));
    QCOMPARE(theItem->thePoints[0], QPoint(kMax, 0));
}

MEASURE_TEST_MAIN(TestDimensionWild)
#include "TestDimensionWild.moc"
