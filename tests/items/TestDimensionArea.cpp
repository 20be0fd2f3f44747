#include "ItemPicture.h"
#include "LmCvDimension.h"
#include "Q3Canvas.h"
#include "TestFont.h"

#include <QRandomGenerator>

#include <algorithm>

/// The repaint region of a dimension.
class TestDimensionArea : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theItem = new LmCvDimension(nullptr, &theCanvas, QStringLiteral("3"), nullptr); }
    void cleanup() { delete theItem; }

    void areaIsARectangleAroundHandlesAndTicks_data();
    void areaIsARectangleAroundHandlesAndTicks();
    void areaGrowsWithHandlesAndTicks();
    void halvesAreRoundedUp();
    void cornersBeginAtTheUpperLeft();
    void areaWithoutSegmentsIsCrossedOver();
    void segmentWithoutLengthIsSkipped();
    void areaReachesBackToTheCanvasEdge();
    void areaReachesInFromFarOut();
    void labelIsNoPartOfTheArea();
    void everythingIsDrawnWithinTheArea();

private:
    void set(const QList<QPoint>& aPoints) { theItem->setPoints(Q3PointArray(aPoints)); }
    QRect area() const
    {
        const Q3PointArray corners = theItem->areaPoints();
        return QRect(corners.value(0), corners.value(2));
    }

    Q3Canvas theCanvas{1000, 1000};
    LmCvDimension* theItem = nullptr;
};

void TestDimensionArea::areaIsARectangleAroundHandlesAndTicks_data()
{
    QTest::addColumn<QList<QPoint>>("points");
    QTest::addColumn<QPoint>("least");
    QTest::addColumn<QPoint>("most");
    // Twice the radius of 4 beyond the ends, ticks of 20 to both sides.
    QTest::newRow("level") << QList<QPoint>{{100, 100}, {300, 100}} << QPoint(92, 80) << QPoint(308, 120);
    QTest::newRow("upright") << QList<QPoint>{{200, 250}, {200, 150}} << QPoint(180, 142) << QPoint(220, 258);
    QTest::newRow("both") << QList<QPoint>{{100, 100}, {300, 100}, {200, 250}, {200, 150}} << QPoint(92, 80)
                          << QPoint(308, 258);
    // 30, 40, 50: (4.8, 6.4) along it give (5, 6), the ticks are (-16, 12), and they reach farther.
    QTest::newRow("oblique") << QList<QPoint>{{500, 500}, {530, 540}} << QPoint(484, 488) << QPoint(546, 552);
    // 40, 9, 41: (7.80, 1.76) give (8, 2), the ticks are (-4.39, 19.51), that is (-4, 20).
    QTest::newRow("flat") << QList<QPoint>{{500, 500}, {540, 509}} << QPoint(492, 480) << QPoint(548, 529);
}

void TestDimensionArea::areaIsARectangleAroundHandlesAndTicks()
{
    QFETCH(QList<QPoint>, points);
    QFETCH(QPoint, least);
    QFETCH(QPoint, most);
    set(points);
    QCOMPARE(area(), QRect(least, most));
    QCOMPARE(theItem->boundingRect(), QRect(least, most));
}

void TestDimensionArea::areaGrowsWithHandlesAndTicks()
{
    set({{100, 100}, {300, 100}});
    theItem->adjustScale(QTransform::fromScale(0.5, 0.5));
    QCOMPARE(area(), QRect(QPoint(84, 60), QPoint(316, 140)));
    theItem->adjustScale(QTransform::fromScale(3.0, 3.0));
    QCOMPARE(area(), QRect(QPoint(92, 80), QPoint(308, 120)));
}

void TestDimensionArea::halvesAreRoundedUp()
{
    theItem->theCapSize = 12.5;
    theItem->theCtrlRad = 2.25;
    set({{100, 100}, {200, 100}}); // 4.5 and 12.5
    QCOMPARE(area(), QRect(QPoint(95, 87), QPoint(205, 113)));
    set({{200, 100}, {100, 100}}); // -4.5 and -12.5
    QCOMPARE(area(), QRect(QPoint(96, 88), QPoint(204, 112)));
}

void TestDimensionArea::cornersBeginAtTheUpperLeft()
{
    set({{100, 100}, {300, 100}});
    QCOMPARE(QPolygon(theItem->areaPoints()),
             QPolygon({QPoint(92, 80), QPoint(308, 80), QPoint(308, 120), QPoint(92, 120)}));
}

void TestDimensionArea::areaWithoutSegmentsIsCrossedOver()
{
    QCOMPARE(QPolygon(theItem->areaPoints()),
             QPolygon({QPoint(32000, 32000), QPoint(0, 32000), QPoint(0, 0), QPoint(32000, 0)}));
}

void TestDimensionArea::segmentWithoutLengthIsSkipped()
{
    set({{600, 700}, {600, 700}});
    QCOMPARE(area(), QRect(QPoint(32000, 32000), QPoint(0, 0)));
    set({{600, 700}, {600, 700}, {100, 100}, {300, 100}});
    QCOMPARE(area(), QRect(QPoint(92, 80), QPoint(308, 120)));
}

void TestDimensionArea::areaReachesBackToTheCanvasEdge()
{
    set({{-300, -200}, {-250, -200}});
    QCOMPARE(area(), QRect(QPoint(-308, -220), QPoint(0, 0)));
}

void TestDimensionArea::areaReachesInFromFarOut()
{
    set({{40000, 33000}, {40100, 33000}});
    QCOMPARE(area(), QRect(QPoint(32000, 32000), QPoint(40108, 33020)));
}

void TestDimensionArea::labelIsNoPartOfTheArea()
{
    set({{500, 100}, {510, 100}});
    const QRect before = area();
    theItem->setDisplayValue(QStringLiteral("H: 123456789.00mm"));
    QVERIFY(theItem->theLabelRect.width() > before.width());
    QCOMPARE(area(), before);
}

void TestDimensionArea::everythingIsDrawnWithinTheArea()
{
    constexpr quint32 kSeed = 4711;
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    theItem->setColor(kBlue);
    theItem->setActive(true);
    const auto place = [&random] { return QPoint(random.bounded(50, 350), random.bounded(50, 350)); };
    for (int i = 0; i < 60; ++i) {
        // The label lies above the long first segment, within the reach of its ticks.
        set({{100, 200}, {300, 200}, place(), place(), place(), place(), place(), place()});
        theItem->updateLabel();
        const QImage picture = painted(*theItem);
        const QRect reach = area().adjusted(-1, -1, 1, 1) & picture.rect(); // half the pen's width
        QVERIFY(drawnIn(picture, reach) > 0);
        QCOMPARE(drawnIn(picture, picture.rect()), drawnIn(picture, reach));
    }
}

MEASURE_TEST_MAIN(TestDimensionArea)
#include "TestDimensionArea.moc"
