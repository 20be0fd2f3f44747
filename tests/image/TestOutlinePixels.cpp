#include "HistogramFixture.h"
#include "TestFont.h"

#include <cmath>
#include <limits>
#include <memory>

namespace {

using Result = HistogramFixture::Result;

constexpr int kLeast = std::numeric_limits<int>::min();
constexpr int kGreatest = std::numeric_limits<int>::max();

/// floor(n / d + 1 / 2).
qint64 nearest(qint64 aNumerator, qint64 aDenominator)
{
    if (aDenominator < 0) {
        aNumerator = -aNumerator;
        aDenominator = -aDenominator;
    }
    const qint64 twice = 2 * aNumerator + aDenominator;
    const qint64 whole = twice / (2 * aDenominator);
    return whole * 2 * aDenominator > twice ? whole - 1 : whole;
}

bool isBetween(int aValue, int aOne, int aOther)
{
    return aValue >= std::min(aOne, aOther) && aValue <= std::max(aOne, aOther);
}

/// Whether the edge runs through the pixel: nearest to it in its column, or in its row for a steep edge.
bool isOnEdge(const QPoint& aPixel, const QPoint& aFrom, const QPoint& aTo)
{
    const qint64 dx = aTo.x() - aFrom.x();
    const qint64 dy = aTo.y() - aFrom.y();
    if (!isBetween(aPixel.x(), aFrom.x(), aTo.x()) || !isBetween(aPixel.y(), aFrom.y(), aTo.y()))
        return false;
    if (dx == 0 || dy == 0)
        return true;
    if (std::abs(dx) >= std::abs(dy))
        return aPixel.y() == aFrom.y() + nearest(dy * (aPixel.x() - aFrom.x()), dx);
    return aPixel.x() == aFrom.x() + nearest(dx * (aPixel.y() - aFrom.y()), dy);
}

/// How often the outline winds around the pixel, by a ray to the left.
int windingAround(const QPoint& aPixel, const QPolygon& aPolygon)
{
    int winding = 0;
    for (int i = 0; i < aPolygon.size(); ++i) {
        const QPoint from = aPolygon[i];
        const QPoint to = aPolygon[(i + 1) % aPolygon.size()];
        if ((from.y() <= aPixel.y()) == (to.y() <= aPixel.y()))
            continue;
        const qint64 side = qint64(to.x() - from.x()) * (aPixel.y() - from.y()) -
                            qint64(aPixel.x() - from.x()) * (to.y() - from.y());
        const bool downward = to.y() > from.y();
        if (downward ? side <= 0 : side >= 0)
            winding += downward ? 1 : -1;
    }
    return winding;
}

bool isInOutline(const QPoint& aPixel, const QPolygon& aPolygon)
{
    for (int i = 0; i < aPolygon.size(); ++i)
        if (isOnEdge(aPixel, aPolygon[i], aPolygon[(i + 1) % aPolygon.size()]))
            return true;
    return windingAround(aPixel, aPolygon) != 0;
}

/// The same counts by asking for every pixel of the region.
Result counted(const LmImage& aGray, const QPolygon& aPolygon)
{
    Result result;
    result.theTable.assign(HistogramFixture::kBins, 0U);
    double sum = 0.0;
    for (int y = 0; y < aGray.theRoiHeight; ++y)
        for (int x = 0; x < aGray.theRoiWidth; ++x)
            if (isInOutline(QPoint(x, y), aPolygon)) {
                const unsigned char value = aGray.row(y + aGray.theRoiY)[x + aGray.theRoiX];
                ++result.theTable[value];
                sum += value;
            }
    result.theMean = result.pixels() > 0 ? sum / result.pixels() : 0.0;
    return result;
}

} // namespace

class TestOutlinePixels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<HistogramFixture>(); }

    void onePointIsOnePixel();
    void outlineWithoutAreaIsItsLine();
    void crossedPartsCountOnce();
    void partsWoundTwiceCountOnce();
    void reversedOutlineCountsTheSame();
    void randomOutlinesAgreeWithAskingEveryPixel();
    void regionOfInterestIsTheField();
    void offsetOfTheOutlineIsAdded();
    void outlinePartlyOutsideCountsItsInnerPart();
    void outlineOutsideCountsNothing();
    void endsOfTheIntRangeCoverTheWholeImage();
    void hugeTriangleCutsTheImageExactly();

private:
    std::unique_ptr<HistogramFixture> theFixture;
};

void TestOutlinePixels::onePointIsOnePixel()
{
    theFixture->theGray.row(7)[3] = 201;
    for (const int count : {1, 2, 10}) {
        const Result result = theFixture->histogram(QPolygon(count, QPoint(3, 7)));
        QCOMPARE(result.pixels(), 1U);
        QCOMPARE(result.theTable[201], 1U);
        QCOMPARE(result.theMean, 201.0);
    }
}

void TestOutlinePixels::outlineWithoutAreaIsItsLine()
{
    const QPoint from(20, 20);
    const QPoint ways[] = {QPoint(9, 0),  QPoint(0, 9), QPoint(9, 9),
                           QPoint(-9, 9), QPoint(9, 4), QPoint(-4, -9)};
    for (const QPoint& way : ways) {
        const Result result = theFixture->histogram(QPolygon({from, from + way}));
        QCOMPARE(result.pixels(), 10U); // one for each step of the longer extent
        QCOMPARE(result.theTable, counted(theFixture->theGray, QPolygon({from, from + way})).theTable);
    }
}

void TestOutlinePixels::crossedPartsCountOnce()
{
    // Two triangles that meet at (20, 20); the column through it belongs to both.
    const QPolygon bow({QPoint(10, 10), QPoint(30, 30), QPoint(30, 10), QPoint(10, 30)});
    const Result result = theFixture->histogram(bow);
    unsigned int expected = 0;
    for (int x = 10; x <= 30; ++x)
        expected += unsigned(2 * std::abs(x - 20) + 1);
    QCOMPARE(result.pixels(), expected);
}

void TestOutlinePixels::partsWoundTwiceCountOnce()
{
    const QPolygon square({QPoint(10, 10), QPoint(20, 10), QPoint(20, 20), QPoint(10, 20)});
    const Result once = theFixture->histogram(square);
    const Result twice = theFixture->histogram(QPolygon(square + square));
    QCOMPARE(once.pixels(), 121U);
    QCOMPARE(twice.theTable, once.theTable);
}

void TestOutlinePixels::reversedOutlineCountsTheSame()
{
    QPolygon polygon({QPoint(3, 4), QPoint(40, 9), QPoint(51, 44), QPoint(22, 17), QPoint(8, 37)});
    const Result forward = theFixture->histogram(polygon);
    std::reverse(polygon.begin(), polygon.end());
    QVERIFY(forward.pixels() > 100U);
    QCOMPARE(theFixture->histogram(polygon).theTable, forward.theTable);
}

void TestOutlinePixels::randomOutlinesAgreeWithAskingEveryPixel()
{
    qInfo("seed %u", HistogramFixture::kSeed);
    QRandomGenerator random(HistogramFixture::kSeed);
    for (int i = 0; i < 1500; ++i) {
        // Small ones, ones as large as the image and ones that leave it on all sides.
        const int reach = i % 3 == 0 ? 12 : i % 3 == 1 ? 60 : 400;
        QPolygon polygon;
        for (int count = random.bounded(1, 9); count > 0; --count)
            polygon << QPoint(32 + random.bounded(-reach, reach + 1) / 2,
                              24 + random.bounded(-reach, reach + 1) / 2);
        const Result result = theFixture->histogram(polygon);
        const Result expected = counted(theFixture->theGray, polygon);
        QCOMPARE(result.theTable, expected.theTable);
        QCOMPARE(result.theMean, expected.theMean);
    }
}

void TestOutlinePixels::regionOfInterestIsTheField()
{
    theFixture->theGray.setQRoi(QRect(20, 10, 30, 25));
    const QPolygon polygon({QPoint(-5, -5), QPoint(12, 3), QPoint(40, 20), QPoint(4, 60)});
    const Result result = theFixture->histogram(polygon);
    const Result expected = counted(theFixture->theGray, polygon);
    QVERIFY(expected.pixels() > 100U);
    QCOMPARE(result.theTable, expected.theTable);
    QCOMPARE(result.theMean, expected.theMean);
}

void TestOutlinePixels::offsetOfTheOutlineIsAdded()
{
    const QPolygon polygon({QPoint(0, 0), QPoint(12, 3), QPoint(7, 20)});
    LmCVSequence outline = HistogramFixture::sequenceOf(polygon);
    outline.theOffsetX = 31;
    outline.theOffsetY = -4;
    QCOMPARE(theFixture->histogram(outline).theTable,
             counted(theFixture->theGray, polygon.translated(31, -4)).theTable);
}

void TestOutlinePixels::outlinePartlyOutsideCountsItsInnerPart()
{
    const QPolygon polygon({QPoint(-100, -100), QPoint(9, -100), QPoint(9, 4), QPoint(-100, 4)});
    QCOMPARE(theFixture->histogram(polygon).pixels(), 50U);
    const QPolygon around({QPoint(-9, -9), QPoint(100, -9), QPoint(100, 100), QPoint(-9, 100)});
    QCOMPARE(theFixture->histogram(around).pixels(), 64U * 48U);
}

void TestOutlinePixels::outlineOutsideCountsNothing()
{
    const QPolygon square({QPoint(0, 0), QPoint(9, 0), QPoint(9, 9), QPoint(0, 9)});
    const QPoint places[] = {QPoint(-10, 10), QPoint(64, 10), QPoint(10, -10), QPoint(10, 48),
                             QPoint(-99, 99)};
    for (const QPoint& place : places) {
        const Result result = theFixture->histogram(square.translated(place));
        QVERIFY(result.theAnswer);
        QCOMPARE(result.pixels(), 0U);
        QCOMPARE(result.theMean, 0.0);
    }
    const Result empty = theFixture->histogram(LmCVSequence(0, 8));
    QVERIFY(empty.theAnswer);
    QCOMPARE(empty.pixels(), 0U);
    QCOMPARE(empty.theMean, 0.0);
}

void TestOutlinePixels::endsOfTheIntRangeCoverTheWholeImage()
{
    LmCVSequence outline =
        HistogramFixture::sequenceOf(QPolygon({QPoint(kLeast, kLeast), QPoint(kGreatest, kLeast),
                                               QPoint(kGreatest, kGreatest), QPoint(kLeast, kGreatest)}));
    QCOMPARE(theFixture->histogram(outline).pixels(), 64U * 48U);
    outline.theOffsetX = kGreatest; // still from -1 to the right
    outline.theOffsetY = kLeast;    // still down to -1
    QCOMPARE(theFixture->histogram(outline).pixels(), 0U);
    outline.theOffsetY = kGreatest;
    QCOMPARE(theFixture->histogram(outline).pixels(), 64U * 48U);
}

void TestOutlinePixels::hugeTriangleCutsTheImageExactly()
{
    // Its long edge is the diagonal x = y + 1 from one end of the range to the other.
    const QPolygon triangle(
        {QPoint(kLeast + 1, kLeast), QPoint(kGreatest, kGreatest - 1), QPoint(kLeast + 1, kGreatest - 1)});
    const Result result = theFixture->histogram(triangle);
    unsigned int expected = 0;
    for (int y = 0; y < 48; ++y)
        expected += unsigned(y + 2);
    QCOMPARE(result.pixels(), expected);
}

MEASURE_TEST_MAIN(TestOutlinePixels)
#include "TestOutlinePixels.moc"
