#include "HistogramFixture.h"
#include "TestFont.h"

#include <cmath>
#include <limits>
#include <memory>

namespace {

using Result = HistogramFixture::Result;

constexpr int kLimit = HistogramFixture::kLimit;
constexpr int kBins = HistogramFixture::kBins;
constexpr int kLeast = std::numeric_limits<int>::min();
constexpr int kGreatest = std::numeric_limits<int>::max();

} // namespace

class TestCreateHistogram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<HistogramFixture>(); }

    void rectangleCountsItsBorder();
    void limitHasNoEffect();
    void binsShareTheValues_data();
    void binsShareTheValues();
    void meanIsExactAboveTheLimit();
    void whatIsNotWantedMayBeNull();
    void wrongImagesAndOutlinesGiveZeros();

private:
    std::unique_ptr<HistogramFixture> theFixture;
};

void TestCreateHistogram::rectangleCountsItsBorder()
{
    const QPolygon polygon({QPoint(10, 5), QPoint(19, 5), QPoint(19, 12), QPoint(10, 12)});
    const Result result = theFixture->histogram(polygon);
    QVERIFY(result.theAnswer);
    QCOMPARE(result.pixels(), 80U);
    double sum = 0.0;
    for (int y = 5; y <= 12; ++y)
        for (int x = 10; x <= 19; ++x)
            sum += theFixture->theGray.row(y)[x];
    QCOMPARE(result.theMean, sum / 80.0);
}

void TestCreateHistogram::limitHasNoEffect()
{
    const LmCVSequence outline =
        HistogramFixture::sequenceOf(QPolygon({QPoint(3, 4), QPoint(40, 9), QPoint(51, 44)}));
    const Result expected = theFixture->histogram(outline);
    QVERIFY(expected.pixels() > 100U);
    for (const int limit : {1, 0, -1, kLeast, kGreatest}) {
        const Result result = theFixture->histogram(outline, limit);
        QCOMPARE(result.theTable, expected.theTable);
        QCOMPARE(result.theMean, expected.theMean);
    }
}

void TestCreateHistogram::binsShareTheValues_data()
{
    QTest::addColumn<int>("bins");
    for (const int bins : {1, 2, 16, 100, 255, 256, 300, 512})
        QTest::addRow("%d", bins) << bins;
}

void TestCreateHistogram::binsShareTheValues()
{
    QFETCH(int, bins);
    LmImage ramp(256, 3, 1, nullptr, 4);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 256; ++x)
            ramp.row(y)[x] = static_cast<unsigned char>(x);
    std::vector<unsigned int> table(size_t(bins) + 1, 99U);
    double mean = 0.0;
    const LmCVSequence all =
        HistogramFixture::sequenceOf(QPolygon({QPoint(0, 0), QPoint(255, 0), QPoint(255, 2), QPoint(0, 2)}));
    QVERIFY(LmImageProcessor::getInstance(nullptr)->createHistogram(table.data(), &mean, &ramp, &all, kLimit,
                                                                    bins));
    for (int bin = 0; bin < bins; ++bin) {
        unsigned int expected = 0;
        for (int value = 0; value < 256; ++value)
            if (int(std::floor(value / 256.0 * bins)) == bin)
                expected += 3;
        QCOMPARE(table[size_t(bin)], expected);
    }
    QCOMPARE(table.back(), 99U);
    QCOMPARE(mean, 127.5);
}

void TestCreateHistogram::meanIsExactAboveTheLimit()
{
    LmImage large(1001, 701, 1, nullptr, 4);
    quint64 sum = 0;
    for (int y = 0; y < large.height(); ++y)
        for (int x = 0; x < large.width(); ++x) {
            large.row(y)[x] = static_cast<unsigned char>((x * 31 + y * 17) % 251);
            sum += large.row(y)[x];
        }
    const LmCVSequence all = HistogramFixture::sequenceOf(
        QPolygon({QPoint(0, 0), QPoint(1000, 0), QPoint(1000, 700), QPoint(0, 700)}));
    const Result result = HistogramFixture::histogram(&large, &all);
    QCOMPARE(result.pixels(), 1001U * 701U);
    QCOMPARE(result.theMean, double(sum) / (1001.0 * 701.0));
}

void TestCreateHistogram::whatIsNotWantedMayBeNull()
{
    LmImageProcessor* processor = LmImageProcessor::getInstance(nullptr);
    const LmCVSequence outline =
        HistogramFixture::sequenceOf(QPolygon({QPoint(3, 4), QPoint(40, 9), QPoint(51, 44)}));
    const Result expected = theFixture->histogram(outline);
    Result result;
    QVERIFY(
        processor->createHistogram(nullptr, &result.theMean, &theFixture->theGray, &outline, kLimit, kBins));
    QCOMPARE(result.theMean, expected.theMean);
    QVERIFY(processor->createHistogram(result.theTable.data(), nullptr, &theFixture->theGray, &outline,
                                       kLimit, kBins));
    QCOMPARE(result.theTable, expected.theTable);
}

void TestCreateHistogram::wrongImagesAndOutlinesGiveZeros()
{
    LmImageProcessor* processor = LmImageProcessor::getInstance(nullptr);
    const LmCVSequence outline =
        HistogramFixture::sequenceOf(QPolygon({QPoint(0, 0), QPoint(9, 0), QPoint(9, 9)}));
    LmImage colour(8, 8, 3, nullptr, 4);
    LmImage empty(0, 0, 1, nullptr, 4);
    const std::vector<unsigned int> zeros(kBins, 0U);
    for (const LmImage* image : {static_cast<const LmImage*>(&colour), static_cast<const LmImage*>(&empty),
                                 static_cast<const LmImage*>(nullptr)}) {
        Result result;
        QVERIFY(!processor->createHistogram(result.theTable.data(), &result.theMean, image, &outline, kLimit,
                                            kBins));
        QCOMPARE(result.theTable, zeros);
        QCOMPARE(result.theMean, 0.0);
    }
    Result result;
    QVERIFY(!processor->createHistogram(result.theTable.data(), &result.theMean, &theFixture->theGray,
                                        nullptr, kLimit, kBins));
    QCOMPARE(result.theTable, zeros);
    for (const int bins : {0, -1, kLeast}) {
        Result noBins;
        QVERIFY(!processor->createHistogram(noBins.theTable.data(), &noBins.theMean, &theFixture->theGray,
                                            &outline, kLimit, bins));
        QCOMPARE(noBins.theTable[0], 77U);
        QCOMPARE(noBins.theMean, 0.0);
    }
    theFixture->theGray.setQRoi(QRect(500, 500, 5, 5)); // a region without pixels is no error
    const Result nothing = theFixture->histogram(outline);
    QVERIFY(nothing.theAnswer);
    QCOMPARE(nothing.theTable, zeros);
    QCOMPARE(nothing.theMean, 0.0);
}

MEASURE_TEST_MAIN(TestCreateHistogram)
#include "TestCreateHistogram.moc"
