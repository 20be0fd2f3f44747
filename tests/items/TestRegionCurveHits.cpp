#include "RegionFixture.h"

class TestRegionCurveHits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void curveIsHitOnePixelAway();
    void toleranceIsASquaresSide();
    void hitNamesItsSegment();
    void insideOfAClosedOutlineIsHit();
    void closingSegmentIsHitWithoutAName();
    void closingSegmentExistsBeforeItIsShown();
    void segmentThatIsNoneIsNotHit();
    void touchingTheEndIsAHit();
    void squareIsHitByEitherDiagonal();
    void outlineWithoutSegmentsIsNotHit();
    void hitsEqualThePlainComputation_data();
    void hitsEqualThePlainComputation();
    void clicksEqualThePlainComputation();

private:
    static constexpr quint32 kSeed = 20240613;
};

namespace {

// The answers without any short cut.
struct PlainRegion
{
    explicit PlainRegion(const LmCvRegion& aItem) : thePoints(aItem.thePoints), theClosed(aItem.theClosed) {}

    bool meets(int aSegment, const QPoint& aStart, const QPoint& aEnd) const
    {
        const int count = int(thePoints.size());
        const int from = aSegment < 0 ? count - 2 : 3 * aSegment + 1;
        Q3PointArray controls;
        for (int k = 0; k < 4; ++k)
            controls << thePoints.at((from + k) % count);
        const Q3PointArray line = controls.cubicBezier();
        QPoint crossing;
        bool met = false;
        for (int k = 1; k < line.size(); ++k)
            met = met || LmCvRegion::linesIntersect(aStart, aEnd, line.at(k - 1), line.at(k), crossing);
        return met;
    }

    bool meetsRect(int aSegment, const QRect& aRect) const
    {
        return meets(aSegment, aRect.topLeft(), aRect.bottomRight()) ||
               meets(aSegment, aRect.topRight(), aRect.bottomLeft());
    }

    // -1 for the closing segment or the inside, -2 for no hit.
    int hit(const QPoint& aPoint, int aTolerance) const
    {
        const QRect square(aPoint - QPoint(aTolerance / 2, aTolerance / 2), QSize(aTolerance, aTolerance));
        const int segments = int(thePoints.size()) / 3 - 1;
        for (int i = 0; i < segments; ++i)
            if (meetsRect(i, square))
                return i;
        if (!theClosed)
            return -2;
        int crossings = 0;
        for (int i = -1; i < segments; ++i)
            crossings += meets(i, QPoint(0, 0), aPoint);
        return meetsRect(-1, square) || crossings % 2 == 1 ? -1 : -2;
    }

    Q3PointArray thePoints;
    bool theClosed;
};

void addSquare(RegionFixture& aFixture)
{
    for (const QPoint& corner : {QPoint(100, 100), QPoint(200, 100), QPoint(200, 200), QPoint(100, 200)})
        aFixture.add(corner);
}

} // namespace

void TestRegionCurveHits::curveIsHitOnePixelAway()
{
    RegionFixture f;
    f.add(QPoint(100, 100));
    f.add(QPoint(200, 100));
    int segment = 9;
    for (int y = 95; y <= 105; ++y) {
        // The square of 4 reaches 2 up and 1 down.
        QCOMPARE(f.theItem->isPointOnObject(QPoint(150, y), segment, 4), y >= 99 && y <= 102);
        QCOMPARE(f.press(QPoint(150, y)), y >= 99 && y <= 102);
    }
    RegionFixture upright;
    upright.add(QPoint(100, 100));
    upright.add(QPoint(100, 200));
    for (int x = 95; x <= 105; ++x) {
        QCOMPARE(upright.theItem->isPointOnObject(QPoint(x, 150), segment, 4), x >= 99 && x <= 102);
        QCOMPARE(upright.press(QPoint(x, 150)), x >= 99 && x <= 102);
    }
}

void TestRegionCurveHits::toleranceIsASquaresSide()
{
    RegionFixture f;
    f.add(QPoint(100, 100));
    f.add(QPoint(200, 100));
    int segment = 0;
    for (int tolerance = 1; tolerance <= 9; ++tolerance)
        for (int y = 90; y <= 110; ++y) {
            const int top = y - tolerance / 2;
            QCOMPARE(f.theItem->isPointOnObject(QPoint(150, y), segment, tolerance),
                     top <= 100 && top + tolerance - 1 >= 100);
        }
}

void TestRegionCurveHits::hitNamesItsSegment()
{
    RegionFixture f;
    addSquare(f);
    int segment = 9;
    QVERIFY(f.theItem->isPointOnObject(QPoint(150, 100), segment, 4));
    QCOMPARE(segment, 0);
    QVERIFY(f.theItem->isPointOnObject(QPoint(200, 150), segment, 4));
    QCOMPARE(segment, 1);
    QVERIFY(f.theItem->isPointOnObject(QPoint(150, 200), segment, 4));
    QCOMPARE(segment, 2);
    QVERIFY(!f.theItem->isPointOnObject(QPoint(100, 150), segment, 4)); // open on the left
    QVERIFY(!f.theItem->isPointOnObject(QPoint(150, 150), segment, 4));
    QCOMPARE(segment, 2);
}

void TestRegionCurveHits::insideOfAClosedOutlineIsHit()
{
    RegionFixture f;
    addSquare(f);
    f.theItem->setClosed(true);
    int segment = 9;
    QVERIFY(f.theItem->isPointOnObject(QPoint(150, 130), segment, 4));
    QVERIFY(f.theItem->isPointOnObject(QPoint(120, 180), segment, 4));
    QCOMPARE(segment, 9);
    for (const QPoint& outside : {QPoint(90, 30), QPoint(210, 130), QPoint(150, 90), QPoint(220, 290)})
        QVERIFY(!f.theItem->isPointOnObject(outside, segment, 4));
}

void TestRegionCurveHits::closingSegmentIsHitWithoutAName()
{
    RegionFixture f;
    addSquare(f);
    f.theItem->setClosed(true);
    int segment = 9;
    QVERIFY(f.theItem->isPointOnObject(QPoint(99, 150), segment, 4)); // outside, the square touches
    QCOMPARE(segment, 9);
    QVERIFY(!f.theItem->isPointOnObject(QPoint(97, 150), segment, 4));
}

void TestRegionCurveHits::closingSegmentExistsBeforeItIsShown()
{
    RegionFixture f;
    f.add(QPoint(100, 100), QPoint(-40, 0), QPoint(0, 0));
    f.add(QPoint(100, 200), QPoint(0, 0), QPoint(-40, 0));
    // From the last anchor by its right and the first one's left handle: 3/4 of the handles' way to the left.
    QVERIFY(f.theItem->isSegmentIntersects(LmCvRegion::kClosingSegment, QPoint(60, 150), QPoint(75, 150)));
    QVERIFY(!f.theItem->isSegmentIntersects(LmCvRegion::kClosingSegment, QPoint(80, 150), QPoint(110, 150)));
    QVERIFY(f.theItem->isSegmentIntersects(0, QPoint(80, 150), QPoint(110, 150)));
}

void TestRegionCurveHits::segmentThatIsNoneIsNotHit()
{
    RegionFixture f;
    const QPoint start(-1000, -1000);
    const QPoint end(1000, 1000);
    for (const int segment : {-2, -1, 0, 1, kMin, kMax})
        QVERIFY(!f.theItem->isSegmentIntersects(segment, start, end));
    f.add(QPoint(100, 100));
    for (const int segment : {-2, 0, 1, kMin, kMax})
        QVERIFY(!f.theItem->isSegmentIntersects(segment, start, end));
    QVERIFY(f.theItem->isSegmentIntersects(-1, start, end));
    f.add(QPoint(200, 200));
    for (const int segment : {-2, 1, 2, kMin, kMax, 1431655766})
        QVERIFY(!f.theItem->isSegmentIntersects(segment, start, end));
    QVERIFY(f.theItem->isSegmentIntersects(0, start, end));
}

void TestRegionCurveHits::touchingTheEndIsAHit()
{
    RegionFixture f;
    f.add(QPoint(100, 100));
    f.add(QPoint(200, 100));
    QVERIFY(f.theItem->isSegmentIntersects(0, QPoint(100, 50), QPoint(100, 100)));
    QVERIFY(f.theItem->isSegmentIntersects(0, QPoint(200, 100), QPoint(250, 150)));
    QVERIFY(!f.theItem->isSegmentIntersects(0, QPoint(100, 50), QPoint(100, 99)));
    QVERIFY(!f.theItem->isSegmentIntersects(0, QPoint(201, 50), QPoint(201, 150)));
}

void TestRegionCurveHits::squareIsHitByEitherDiagonal()
{
    RegionFixture f;
    f.add(QPoint(100, 100));
    f.add(QPoint(200, 100));
    QRect rect(QPoint(95, 90), QPoint(105, 100)); // the first diagonal ends on the line
    QVERIFY(f.theItem->isSegmentContainsRect(0, rect));
    rect = QRect(QPoint(195, 90), QPoint(205, 100)); // the second one does
    QVERIFY(f.theItem->isSegmentContainsRect(0, rect));
    rect = QRect(QPoint(195, 90), QPoint(205, 99));
    QVERIFY(!f.theItem->isSegmentContainsRect(0, rect));
}

void TestRegionCurveHits::outlineWithoutSegmentsIsNotHit()
{
    RegionFixture f;
    int segment = 9;
    for (const bool closed : {false, true}) {
        f.theItem->theClosed = closed;
        QVERIFY(!f.theItem->isPointOnObject(QPoint(0, 0), segment, 4));
        QVERIFY(!f.theItem->isPointOnObject(QPoint(kMax, kMin), segment, 4));
    }
    f.add(QPoint(100, 100));
    f.theItem->theClosed = false;
    QVERIFY(!f.theItem->isPointOnObject(QPoint(100, 100), segment, 4));
    QCOMPARE(segment, 9);
}

void TestRegionCurveHits::hitsEqualThePlainComputation_data()
{
    QTest::addColumn<int>("reach");
    for (const int reach : {1, 3, 12, 200, 5000, 1 << 24, kMax})
        QTest::newRow(QByteArray::number(reach).constData()) << reach;
}

// Queries that pass by, touch, run along a piece or are points; curves down to a single point.
void TestRegionCurveHits::hitsEqualThePlainComputation()
{
    QFETCH(int, reach);
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed + quint32(reach));
    int hits = 0;
    for (int i = 0; i < 250; ++i) {
        RegionFixture f;
        Q3PointArray points;
        for (int k = 0; k < 6; ++k)
            points << (k > 0 && random.bounded(4) == 0 ? points.constLast() : randomPoint(random, reach));
        f.theItem->replaceNodes(points, {});
        const PlainRegion plain(*f.theItem);
        const Q3PointArray flat = Q3PointArray(points.mid(1)).cubicBezier();
        const auto query = [&] {
            switch (random.bounded(3)) {
            case 0:
                return flat.at(random.bounded(int(flat.size())));
            case 1:
                return points.at(random.bounded(6));
            default:
                return randomPoint(random, reach);
            }
        };
        for (int k = 0; k < 20; ++k) {
            const QPoint start = query();
            const QPoint end = random.bounded(8) == 0 ? start : query();
            for (const int segment : {0, -1}) {
                const bool expected = plain.meets(segment, start, end);
                QCOMPARE(f.theItem->isSegmentIntersects(segment, start, end), expected);
                hits += expected;
            }
        }
    }
    QVERIFY(hits > 800 && hits < 9200); // of 10,000: both answers were asked for
}

void TestRegionCurveHits::clicksEqualThePlainComputation()
{
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    int hits = 0;
    int inside = 0;
    for (int i = 0; i < 300; ++i) {
        RegionFixture f;
        const int nodes = 1 + random.bounded(7);
        Q3PointArray points;
        for (int k = 0; k < 3 * nodes; ++k)
            points << (k > 0 && random.bounded(4) == 0 ? points.constLast() : randomPoint(random, 150));
        f.theItem->replaceNodes(points, {});
        f.theItem->theClosed = random.bounded(2) == 0;
        const PlainRegion plain(*f.theItem);
        for (int k = 0; k < 30; ++k) {
            const QPoint point = randomPoint(random, 160);
            const int tolerance = 1 + random.bounded(12);
            int segment = -1;
            const bool hit = f.theItem->isPointOnObject(point, segment, tolerance);
            QCOMPARE(hit ? segment : -2, plain.hit(point, tolerance));
            hits += hit && segment >= 0;
            inside += hit && segment < 0;
        }
    }
    QVERIFY(hits > 300 && inside > 300);
}

MEASURE_TEST_MAIN(TestRegionCurveHits)
#include "TestRegionCurveHits.moc"
