#include "LmCvDistance.h"
#include "Q3Canvas.h"
#include "TestFont.h"

#include <QLineF>
#include <QRandomGenerator>

#include <cmath>
#include <limits>

namespace {

constexpr int kMin = std::numeric_limits<int>::min();
constexpr int kMax = std::numeric_limits<int>::max();
constexpr quint32 kSeed = 4711;

} // namespace

class TestDistanceArea : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theItem = new LmCvDistance(nullptr, &theCanvas, QStringLiteral("3"), nullptr); }
    void cleanup() { delete theItem; }

    void areaOfALongLine();
    void areaOfAShortLineReachesBeyondItsHeads();
    void areaReachesAsFarAsALongLabel();
    void areaOfAShortSteepLineWithALongLabel();
    void areaOfLengthZeroHoldsPointAndLabel();
    void areaIsSymmetricAboutTheMiddle();
    void extremeCoordinatesDoNoHarm();

private:
    Q3Canvas theCanvas{1000, 1000};
    LmCvDistance* theItem = nullptr;
};

void TestDistanceArea::areaOfALongLine()
{
    // The normal of a line to the right is 20 up.
    theItem->setPoints(QPoint(100, 100), QPoint(612, 100));
    QCOMPARE(QPolygon(theItem->areaPoints()),
             QPolygon({QPoint(100, 80), QPoint(100, 120), QPoint(612, 120), QPoint(612, 80)}));
}

void TestDistanceArea::areaOfAShortLineReachesBeyondItsHeads()
{
    // 16 pixels long, ten more at each end make 36: with a label of no more width the heads decide.
    theItem->setPoints(QPoint(100, 100), QPoint(100, 116));
    theItem->theLabelRect.setWidth(36);
    QCOMPARE(QPolygon(theItem->areaPoints()),
             QPolygon({QPoint(120, 90), QPoint(80, 90), QPoint(80, 126), QPoint(120, 126)}));
    // One more, and the label reaches further: half of 16 - 37 is -10.5, rounded away from zero.
    theItem->theLabelRect.setWidth(37);
    QCOMPARE(QPolygon(theItem->areaPoints()),
             QPolygon({QPoint(120, 89), QPoint(80, 89), QPoint(80, 127), QPoint(120, 127)}));
}

void TestDistanceArea::areaReachesAsFarAsALongLabel()
{
    theItem->setPoints(QPoint(100, 100), QPoint(164, 100));
    theItem->theLabelRect.setWidth(64);
    QCOMPARE(theItem->areaPoints().boundingRect().left(), 100);
    theItem->theLabelRect.setWidth(100); // 36 more than the line, half of it at each end
    const QPolygon area = theItem->areaPoints();
    QCOMPARE(area, QPolygon({QPoint(82, 80), QPoint(82, 120), QPoint(182, 120), QPoint(182, 80)}));
}

void TestDistanceArea::areaOfAShortSteepLineWithALongLabel()
{
    // 3, 4, 5 times 2: length 10, a label of 55 gives the label vector (33, 44); (6 - 33) / 2 = -13.5 and
    // (8 - 44) / 2 = -18.
    theItem->setPoints(QPoint(100, 100), QPoint(106, 108));
    theItem->theLabelRect.setWidth(55);
    const QPoint shift(-14, -18);
    const QPoint normal = theItem->theNormal;
    QCOMPARE(QPolygon(theItem->areaPoints()),
             QPolygon({QPoint(100, 100) + shift + normal, QPoint(100, 100) + shift - normal,
                       QPoint(106, 108) - shift - normal, QPoint(106, 108) - shift + normal}));
}

void TestDistanceArea::areaOfLengthZeroHoldsPointAndLabel()
{
    theItem->setPoints(QPoint(300, 300), QPoint(300, 300));
    const QRect area = theItem->areaPoints().boundingRect();
    QVERIFY(area.contains(QPoint(300, 300)));
    QVERIFY(area.contains(theItem->theLabelRect));
}

void TestDistanceArea::areaIsSymmetricAboutTheMiddle()
{
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    theItem->setDisplayValue(QStringLiteral("123.45mm"));
    for (int i = 0; i < 1000; ++i) {
        const QPoint start(random.bounded(500), random.bounded(500));
        const QPoint end(random.bounded(500), random.bounded(500));
        if (start == end)
            continue;
        theItem->setPoints(start, end);
        const QPolygon area = theItem->areaPoints();
        QCOMPARE(area.size(), 4);
        QCOMPARE(area[0] + area[2], start + end);
        QCOMPARE(area[1] + area[3], start + end);
        // The label, turned along the line, lies between the ends of the area.
        QVERIFY(QLineF(area[0], area[3]).length() > theItem->theLabelRect.width() - 2.0);
        QVERIFY(std::abs(QLineF(area[0], area[1]).length() - 40.0) < 3.0);
    }
}

void TestDistanceArea::extremeCoordinatesDoNoHarm()
{
    const QPoint corners[] = {{kMin, kMin}, {kMax, kMax}, {kMin, kMax}, {0, 0}, {kMax, 0}, {kMin + 1, kMin}};
    for (const QPoint& start : corners) {
        for (const QPoint& end : corners) {
            theItem->setPoints(start, end);
            theItem->updateLabel();
            QCOMPARE(theItem->theStart, start);
            QCOMPARE(theItem->theEnd, end);
            const double width = double(end.x()) - start.x();
            const double height = double(end.y()) - start.y();
            QCOMPARE(theItem->theLength, std::hypot(width, height));
            QVERIFY(theItem->areaPoints().size() >= 4);
            QPoint hit;
            int node = -1;
            QCOMPARE(theItem->isPointOnObject(start, node, 8) || start == end, true);
            QCOMPARE(node, 0);
            theItem->isPointOnArrow(end, hit, 8);
            theItem->moveObjectBy(QPoint(kMax, kMin));
            theItem->adjustScale(QTransform::fromScale(0.01, 0.01));
        }
    }
}

MEASURE_TEST_MAIN(TestDistanceArea)
#include "TestDistanceArea.moc"
