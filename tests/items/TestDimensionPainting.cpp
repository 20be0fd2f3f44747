#include "ItemPicture.h"
#include "LmCvDimension.h"
#include "Q3Canvas.h"
#include "TestFont.h"

class TestDimensionPainting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { delete theItem; }

    void plainItemHasThinLinesAndNoHandles();
    void selectedItemHasThickLinesAndNoHandles();
    void activeItemHasThickLinesAndHandles();
    void ticksStandAcrossTheirSegment_data();
    void ticksStandAcrossTheirSegment();
    void ticksOfHalvesLeanAsTheyAreRounded();
    void ticksAndHandlesKeepTheirScreenSizeBelowZoomOne();
    void ticksAndHandlesGrowWithTheZoomAboveOne();
    void labelHasTheLineColourAndTheTextPen();
    void labelLiesAlongTheSegmentOfItsValue();
    void labelOfAnUprightSegmentReadsAlongIt_data();
    void labelOfAnUprightSegmentReadsAlongIt();
    void segmentWithoutLengthIsADot();
    void itemWithoutSegmentsDrawsNothing();
    void painterIsLeftAsItWas();

private:
    void set(const QList<QPoint>& aPoints) { theItem->setPoints(Q3PointArray(aPoints)); }

    Q3Canvas theCanvas{400, 400};
    LmCvDimension* theItem = nullptr;
};

static int drawnInColumn(const QImage& aPicture, int aX)
{
    return drawnIn(aPicture, QRect(aX, 0, 1, aPicture.height()));
}

// The label stands about (200, 100).
void TestDimensionPainting::init()
{
    theItem = new LmCvDimension(nullptr, &theCanvas, QStringLiteral("8"), nullptr);
    theItem->setColor(kBlue);
    set({{100, 100}, {300, 100}});
    theItem->updateLabel();
    theItem->show();
}

void TestDimensionPainting::plainItemHasThinLinesAndNoHandles()
{
    const QImage picture = painted(*theItem);
    QCOMPARE(drawnInColumn(picture, 150), 1);
    QCOMPARE(picture.pixelColor(150, 100), kBlue);
    for (const int x : {100, 300}) {
        QCOMPARE(drawnInColumn(picture, x), 41); // a tick of 20 to each side
        QCOMPARE(picture.pixelColor(x, 80), kBlue);
        QCOMPARE(picture.pixelColor(x, 120), kBlue);
    }
    QCOMPARE(drawnIn(picture, QRect(0, 0, 100, 400)), 0);
    QCOMPARE(drawnIn(picture, QRect(301, 0, 99, 400)), 0);
}

void TestDimensionPainting::selectedItemHasThickLinesAndNoHandles()
{
    theItem->setSelected(true);
    const QImage picture = painted(*theItem);
    QCOMPARE(drawnInColumn(picture, 150), 2);
    QCOMPARE(countOf(kWhite, picture, QRect(0, 0, 150, 400)), 0);
}

void TestDimensionPainting::activeItemHasThickLinesAndHandles()
{
    theItem->setActive(true);
    const QImage picture = painted(*theItem);
    QCOMPARE(drawnInColumn(picture, 150), 2);
    // Circles of radius 4 about (96, 100) and (304, 100), which cover the ticks and the ends.
    QCOMPARE(picture.pixelColor(96, 100), kWhite);
    QCOMPARE(picture.pixelColor(92, 100), kBlue); // outline
    QCOMPARE(picture.pixelColor(91, 100), kBack);
    QCOMPARE(picture.pixelColor(98, 102), kWhite);
    QCOMPARE(picture.pixelColor(304, 100), kWhite);
    QCOMPARE(picture.pixelColor(308, 100), kBlue);
    QCOMPARE(picture.pixelColor(309, 100), kBack);
    QCOMPARE(picture.pixelColor(92, 96), kBack); // a circle has no corners
}

void TestDimensionPainting::ticksStandAcrossTheirSegment_data()
{
    QTest::addColumn<QPoint>("end"); // from (200, 300)
    QTest::addColumn<QPoint>("tick");
    QTest::newRow("right") << QPoint(300, 300) << QPoint(0, 20);
    QTest::newRow("up") << QPoint(200, 200) << QPoint(20, 0);
    QTest::newRow("3 to 4") << QPoint(230, 340) << QPoint(-16, 12);
    QTest::newRow("4 to -3") << QPoint(240, 270) << QPoint(12, 16);
}

void TestDimensionPainting::ticksStandAcrossTheirSegment()
{
    QFETCH(QPoint, end);
    QFETCH(QPoint, tick);
    const QPoint start(200, 300);
    // The label goes to a second segment far away.
    set({start, end, {10, 50}, {90, 50}});
    theItem->setDisplayValue(QStringLiteral("W1:"));
    const QImage picture = painted(*theItem);
    for (const QPoint& point : {start, end}) {
        for (const int side : {-1, 1}) {
            QCOMPARE(picture.pixelColor(point + side * tick), kBlue);
            QCOMPARE(picture.pixelColor(point + side * tick / 2), kBlue);
            const QPointF beyond = QPointF(point) + 1.15 * side * QPointF(tick);
            QCOMPARE(picture.pixelColor(beyond.toPoint()), kBack);
        }
    }
}

void TestDimensionPainting::ticksOfHalvesLeanAsTheyAreRounded()
{
    // Half a pixel more across a segment to the right, half a pixel less across one to the left.
    theItem->theCapSize = 12.5;
    const QImage right = painted(*theItem);
    QCOMPARE(drawnInColumn(right, 100), 27);
    set({{300, 100}, {100, 100}});
    QCOMPARE(drawnInColumn(painted(*theItem), 100), 25);
    // Across an upright one the sides are the other way round: less below, more above.
    set({{200, 100}, {200, 300}});
    QCOMPARE(drawnIn(painted(*theItem), QRect(0, 300, 400, 1)), 25);
    set({{200, 300}, {200, 100}});
    QCOMPARE(drawnIn(painted(*theItem), QRect(0, 300, 400, 1)), 27);
}

void TestDimensionPainting::ticksAndHandlesKeepTheirScreenSizeBelowZoomOne()
{
    theItem->setActive(true);
    const QTransform view = QTransform::fromScale(0.5, 0.5);
    theItem->adjustScale(view);
    const QImage picture = painted(*theItem, view);
    QCOMPARE(drawnInColumn(picture, 70), 2); // the line's pen
    // The end is at (150, 50) on the screen, the handle's centre 2 beyond it.
    QCOMPARE(picture.pixelColor(152, 50), kWhite);
    QCOMPARE(picture.pixelColor(156, 50), kBlue);
    QCOMPARE(picture.pixelColor(157, 50), kBack);
    QCOMPARE(picture.pixelColor(150, 31), kBlue);
    QCOMPARE(picture.pixelColor(150, 27), kBack);
}

void TestDimensionPainting::ticksAndHandlesGrowWithTheZoomAboveOne()
{
    theItem->setActive(true);
    set({{20, 100}, {180, 100}});
    const QTransform view = QTransform::fromScale(2.0, 2.0);
    theItem->adjustScale(view);
    const QImage picture = painted(*theItem, view);
    QCOMPARE(drawnInColumn(picture, 70), 2);
    // The end is at (360, 200) on the screen.
    QCOMPARE(picture.pixelColor(360, 162), kBlue);
    QCOMPARE(picture.pixelColor(360, 157), kBack);
    QCOMPARE(picture.pixelColor(374, 200), kWhite);
    QCOMPARE(picture.pixelColor(379, 200), kBack);
}

void TestDimensionPainting::labelHasTheLineColourAndTheTextPen()
{
    theItem->setDisplayValue(QStringLiteral("H: 888.88"));
    const QRect box = theItem->theLabelRect;
    QImage picture = painted(*theItem);
    QCOMPARE(picture.pixelColor(box.topLeft() + QPoint(1, 1)), kBlue);
    QCOMPARE(picture.pixelColor(box.bottomRight() - QPoint(1, 1)), kBlue);
    QCOMPARE(picture.pixelColor(box.center().x(), box.top() - 3), kBack);
    QVERIFY(countOf(kWhite, picture, box) > 10);
    theItem->theTextPen = QPen(Qt::green);
    picture = painted(*theItem);
    QCOMPARE(countOf(kWhite, picture, box), 0);
    QVERIFY(countOf(QColor(Qt::green), picture, box) > 10);
}

void TestDimensionPainting::labelLiesAlongTheSegmentOfItsValue()
{
    set({{50, 100}, {350, 100}, {50, 300}, {350, 300}});
    const QPoint above(200, 92);
    const QPoint aboveSecond(200, 292);
    theItem->setDisplayValue(QStringLiteral("H: 300.00"));
    QImage picture = painted(*theItem);
    QVERIFY(picture.pixelColor(above) != kBack);
    QCOMPARE(picture.pixelColor(aboveSecond), kBack);
    theItem->setDisplayValue(QStringLiteral("W1: 300.00"));
    picture = painted(*theItem);
    QCOMPARE(picture.pixelColor(above), kBack);
    QVERIFY(picture.pixelColor(aboveSecond) != kBack);
}

void TestDimensionPainting::labelOfAnUprightSegmentReadsAlongIt_data()
{
    QTest::addColumn<QPoint>("start");
    QTest::addColumn<QPoint>("end");
    QTest::addColumn<int>("side"); // of the line on which the label stands
    // Downwards the text is turned by 90 degrees and its head points right, upwards by -90.
    QTest::newRow("down") << QPoint(200, 50) << QPoint(200, 350) << 1;
    QTest::newRow("up") << QPoint(200, 350) << QPoint(200, 50) << -1;
}

void TestDimensionPainting::labelOfAnUprightSegmentReadsAlongIt()
{
    QFETCH(QPoint, start);
    QFETCH(QPoint, end);
    QFETCH(int, side);
    set({start, end});
    theItem->setDisplayValue(QStringLiteral("H: 300.00"));
    const QImage picture = painted(*theItem);
    const int half = theItem->theLabelRect.width() / 2;
    for (const int along : {-half + 3, 0, half - 3})
        QVERIFY(picture.pixelColor(200 + 8 * side, 200 + along) != kBack);
    for (const int along : {-half - 3, half + 3})
        QCOMPARE(picture.pixelColor(200 + 8 * side, 200 + along), kBack);
    QCOMPARE(picture.pixelColor(200 - 8 * side, 200), kBack);
}

void TestDimensionPainting::segmentWithoutLengthIsADot()
{
    set({{100, 300}, {100, 300}});
    theItem->updateLabel();
    const QRect box = theItem->theLabelRect;
    const QImage picture = painted(*theItem);
    // No ticks, and a level label above it.
    QCOMPARE(drawnInColumn(picture, 100) - drawnIn(picture, QRect(100, box.top() - 1, 1, box.height() + 2)),
             1);
    QCOMPARE(picture.pixelColor(100, 300), kBlue);
    QCOMPARE(picture.pixelColor(box.topLeft() + QPoint(1, 1)), kBlue);
    QCOMPARE(picture.pixelColor(box.topRight() + QPoint(-1, 1)), kBlue);
}

void TestDimensionPainting::itemWithoutSegmentsDrawsNothing()
{
    theItem->setActive(true);
    for (const QList<QPoint>& points : {QList<QPoint>{}, QList<QPoint>{{100, 100}}}) {
        set(points);
        const QImage picture = painted(*theItem);
        QCOMPARE(drawnIn(picture, picture.rect()), 0);
    }
}

void TestDimensionPainting::painterIsLeftAsItWas()
{
    QImage picture(400, 400, QImage::Format_RGB32);
    QPainter painter(&picture);
    painter.setPen(QPen(Qt::yellow, 3));
    painter.setBrush(Qt::cyan);
    painter.setWorldTransform(QTransform(1.5, 0, 0, 1.5, 7, -3));
    const QFont font = painter.font();
    for (const bool active : {false, true}) {
        theItem->setActive(active);
        theItem->drawShape(painter);
        QCOMPARE(painter.pen(), QPen(Qt::yellow, 3));
        QCOMPARE(painter.brush(), QBrush(Qt::cyan));
        QCOMPARE(painter.font(), font);
        QCOMPARE(painter.worldTransform(), QTransform(1.5, 0, 0, 1.5, 7, -3));
    }
}

MEASURE_TEST_MAIN(TestDimensionPainting)
#include "TestDimensionPainting.moc"
