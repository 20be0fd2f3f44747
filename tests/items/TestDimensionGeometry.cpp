#include "LmCvDimension.h"
#include "Q3Canvas.h"
#include "TestFont.h"

#include <QFontMetrics>

#include <cmath>

class TestDimensionGeometry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theItem = new LmCvDimension(nullptr, &theCanvas, QStringLiteral("3"), nullptr); }
    void cleanup() { delete theItem; }

    void startsWithTheStatedValues();
    void handlesStandBeyondTheEnds_data();
    void handlesStandBeyondTheEnds();
    void eachSegmentHasItsOwnHandles();
    void segmentWithoutLengthHasItsHandlesOnItsPoints();
    void lastPointWithoutASecondMakesNoSegment();
    void handlesKeepTheirDistanceAtEveryZoom();
    void zoomChangesSizes_data();
    void zoomChangesSizes();
    void oneSegmentMovesAlone();
    void moveOfNoSegmentDoesNothing_data();
    void moveOfNoSegmentDoesNothing();
    void moveShiftsAllPoints();
    void rectangleHoldsTheItemEdgesIncluded();
    void rectangleHoldsNoItemWithoutPoints();
    void parallelLinesIntersect();

private:
    Q3Canvas theCanvas{1000, 1000};
    LmCvDimension* theItem = nullptr;
};

static const Q3PointArray kTwoSegments(QList<QPoint>{{100, 100}, {200, 100}, {50, 60}, {80, 100}});

void TestDimensionGeometry::startsWithTheStatedValues()
{
    QCOMPARE(LmCvDimension::kCapSize, 20);
    QCOMPARE(LmCvDimension::kCtrlRad, 4);
    QCOMPARE(theItem->rtti(), 1112);
    QCOMPARE(theItem->theDragPoint, QPoint(0, 0));
    QCOMPARE(theItem->theSegIdx, -1);
    QVERIFY(!theItem->theDragging && !theItem->theNodesChanged && !theItem->theEditDone);
    QVERIFY(theItem->thePoints.isEmpty());
    QVERIFY(theItem->theCtrlPoints.isEmpty());
    QCOMPARE(theItem->theCtrlRad, 4.0);
    QCOMPARE(theItem->theCapSize, 20.0);
    QCOMPARE(theItem->theFont.family(), QStringLiteral("Lucida Grande"));
    QCOMPARE(theItem->theFont.pointSize(), LmCvObject::kDefaultFntSize);
    QCOMPARE(theItem->theSelSize, LmCvObject::kDefaultSelSize);
    QVERIFY(theItem->theLabelRect.isNull()); // no label before the first points or text
    QVERIFY(!theItem->isNodesChanged());
}

void TestDimensionGeometry::handlesStandBeyondTheEnds_data()
{
    QTest::addColumn<QPoint>("end"); // from (500, 400)
    QTest::addColumn<QPoint>("beyond");
    QTest::newRow("right") << QPoint(600, 400) << QPoint(4, 0);
    QTest::newRow("left") << QPoint(400, 400) << QPoint(-4, 0);
    QTest::newRow("up") << QPoint(500, 200) << QPoint(0, -4);
    QTest::newRow("short") << QPoint(501, 400) << QPoint(4, 0);
    // 30, 40, 50: 4 pixels are (2.4, 3.2), cut toward zero on either side.
    QTest::newRow("right and down") << QPoint(530, 440) << QPoint(2, 3);
    QTest::newRow("left and up") << QPoint(470, 360) << QPoint(-2, -3);
    QTest::newRow("diagonal") << QPoint(600, 300) << QPoint(2, -2); // 2.83
    // 49 times the quotient of 4 and 49 is a rounding error short of 4, and the cut takes the whole pixel.
    QTest::newRow("49") << QPoint(549, 400) << QPoint(3, 0);
    QTest::newRow("48") << QPoint(548, 400) << QPoint(4, 0);
}

void TestDimensionGeometry::handlesStandBeyondTheEnds()
{
    QFETCH(QPoint, end);
    QFETCH(QPoint, beyond);
    const QPoint start(500, 400);
    theItem->setPoints(Q3PointArray() << start << end);
    QCOMPARE(theItem->theCtrlPoints.size(), 2);
    QCOMPARE(theItem->theCtrlPoints[0], start - beyond);
    QCOMPARE(theItem->theCtrlPoints[1], end + beyond);
}

void TestDimensionGeometry::eachSegmentHasItsOwnHandles()
{
    theItem->setPoints(kTwoSegments);
    QCOMPARE(theItem->thePoints, kTwoSegments);
    QCOMPARE(QPolygon(theItem->theCtrlPoints),
             QPolygon({QPoint(96, 100), QPoint(204, 100), QPoint(48, 57), QPoint(82, 103)}));
    theItem->setPoints(Q3PointArray() << QPoint(0, 0) << QPoint(0, 8));
    QCOMPARE(QPolygon(theItem->theCtrlPoints), QPolygon({QPoint(0, -4), QPoint(0, 12)}));
    theItem->setPoints(Q3PointArray());
    QVERIFY(theItem->theCtrlPoints.isEmpty());
}

void TestDimensionGeometry::segmentWithoutLengthHasItsHandlesOnItsPoints()
{
    theItem->setPoints(Q3PointArray() << QPoint(70, 80) << QPoint(70, 80));
    QCOMPARE(QPolygon(theItem->theCtrlPoints), QPolygon({QPoint(70, 80), QPoint(70, 80)}));
}

void TestDimensionGeometry::lastPointWithoutASecondMakesNoSegment()
{
    theItem->setPoints(Q3PointArray() << QPoint(100, 100) << QPoint(200, 100) << QPoint(500, 500));
    QCOMPARE(theItem->theCtrlPoints.size(), 3);
    QCOMPARE(theItem->theCtrlPoints[2], QPoint(500, 500));
    int segment = 0;
    QVERIFY(!theItem->isPointOnObject(QPoint(500, 500), segment, 8));
    QCOMPARE(segment, 1);
}

void TestDimensionGeometry::handlesKeepTheirDistanceAtEveryZoom()
{
    theItem->setPoints(kTwoSegments);
    const Q3PointArray handles = theItem->theCtrlPoints;
    for (const double zoom : {0.25, 4.0}) {
        theItem->adjustScale(QTransform::fromScale(zoom, zoom));
        QCOMPARE(theItem->theCtrlPoints, handles);
        theItem->setPoints(kTwoSegments);
        QCOMPARE(theItem->theCtrlPoints, handles);
    }
}

void TestDimensionGeometry::zoomChangesSizes_data()
{
    QTest::addColumn<double>("zoom");
    QTest::addColumn<double>("penWidth");
    QTest::addColumn<double>("radius");
    QTest::addColumn<double>("tick");
    QTest::addColumn<int>("selSize");
    QTest::newRow("0.5") << 0.5 << 4.0 << 8.0 << 40.0 << 16;
    QTest::newRow("0.3") << 0.3 << 2.0 / 0.3 << 4.0 / 0.3 << 20.0 / 0.3 << 26;
    QTest::newRow("1") << 1.0 << 2.0 << 4.0 << 20.0 << 8;
    QTest::newRow("4") << 4.0 << 0.5 << 4.0 << 20.0 << 8;
}

void TestDimensionGeometry::zoomChangesSizes()
{
    QFETCH(double, zoom);
    theItem->setPoints(kTwoSegments);
    theItem->updateLabel();
    const QRect label = theItem->theLabelRect;
    theItem->adjustScale(QTransform::fromScale(zoom, zoom));
    QTEST(theItem->thePen.widthF(), "penWidth");
    QCOMPARE(theItem->theThinPen.widthF(), 0.0);
    QTEST(theItem->theCtrlRad, "radius");
    QTEST(theItem->theCapSize, "tick");
    QTEST(theItem->theSelSize, "selSize");
    QVERIFY(std::abs(theItem->theFont.pointSizeF() - LmCvObject::kDefaultFntSize / qMin(zoom, 1.0)) < 0.01);
    // The label was built again, so that it stands two pixels above its line.
    QCOMPARE(theItem->theLabelRect.width() > label.width(), zoom < 1.0);
    QCOMPARE(theItem->theLabelRect.bottom(), 98);
    theItem->adjustScale(QTransform());
    QCOMPARE(theItem->theCapSize, 20.0);
    QCOMPARE(theItem->theLabelRect, label);
}

void TestDimensionGeometry::oneSegmentMovesAlone()
{
    theItem->setPoints(kTwoSegments);
    theItem->moveDimBy(1, QPoint(-7, 5));
    QCOMPARE(QPolygon(theItem->thePoints),
             QPolygon({QPoint(100, 100), QPoint(200, 100), QPoint(43, 65), QPoint(73, 105)}));
    QCOMPARE(theItem->theCtrlPoints[2], QPoint(41, 62));
    QVERIFY(theItem->isNodesChanged());
}

void TestDimensionGeometry::moveOfNoSegmentDoesNothing_data()
{
    QTest::addColumn<int>("segment");
    QTest::newRow("negative") << -1;
    QTest::newRow("the count of segments") << 2;
    QTest::newRow("far behind") << std::numeric_limits<int>::max();
}

void TestDimensionGeometry::moveOfNoSegmentDoesNothing()
{
    QFETCH(int, segment);
    theItem->setPoints(kTwoSegments);
    theItem->moveDimBy(segment, QPoint(-7, 5));
    QCOMPARE(theItem->thePoints, kTwoSegments);
    QVERIFY(!theItem->isNodesChanged());
}

void TestDimensionGeometry::moveShiftsAllPoints()
{
    theItem->setPoints(kTwoSegments);
    theItem->moveObjectBy(QPoint(-7, 5));
    QCOMPARE(QPolygon(theItem->thePoints), kTwoSegments.translated(-7, 5));
    QCOMPARE(theItem->theCtrlPoints[0], QPoint(89, 105));
    QVERIFY(theItem->isNodesChanged());
}

void TestDimensionGeometry::rectangleHoldsTheItemEdgesIncluded()
{
    theItem->setPoints(kTwoSegments);
    const QPoint least(50, 60);
    const QPoint most(200, 100);
    QVERIFY(theItem->isRectContainsObject(QRect(least, most)));
    QVERIFY(!theItem->isRectContainsObject(QRect(least + QPoint(1, 0), most)));
    QVERIFY(!theItem->isRectContainsObject(QRect(least + QPoint(0, 1), most)));
    QVERIFY(!theItem->isRectContainsObject(QRect(least, most - QPoint(1, 0))));
    QVERIFY(!theItem->isRectContainsObject(QRect(least, most - QPoint(0, 1))));
}

void TestDimensionGeometry::rectangleHoldsNoItemWithoutPoints()
{
    QVERIFY(!theItem->isRectContainsObject(QRect(-1000, -1000, 2000, 2000)));
}

void TestDimensionGeometry::parallelLinesIntersect()
{
    QPoint crossing;
    QVERIFY(LmCvDimension::linesIntersect({0, 0}, {10, 10}, {20, 20}, {30, 30}, crossing));
    QVERIFY(!LmCvDimension::linesIntersect({0, 0}, {10, 10}, {20, 21}, {30, 31}, crossing));
    QVERIFY(LmCvDimension::linesIntersect({0, 0}, {10, 10}, {0, 10}, {10, 0}, crossing));
    QCOMPARE(crossing, QPoint(5, 5));
}

MEASURE_TEST_MAIN(TestDimensionGeometry)
#include "TestDimensionGeometry.moc"
