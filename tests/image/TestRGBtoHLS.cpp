#include "LmImage.h"
#include "LmImageProcessor.h"
#include "TestFont.h"

#include <QRandomGenerator>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr quint32 kSeed = 4502;

struct Hls
{
    double theHue; // a full turn is 256
    double theLightness;
    double theSaturation;
};

/// The double hexcone model on 0 to 255, unrounded.
Hls hlsOf(int aRed, int aGreen, int aBlue)
{
    const double red = aRed / 255.0;
    const double green = aGreen / 255.0;
    const double blue = aBlue / 255.0;
    const double greatest = std::max({red, green, blue});
    const double least = std::min({red, green, blue});
    const double span = greatest - least;
    const double lightness = (greatest + least) / 2.0;
    if (span == 0.0)
        return {0.0, 255.0 * lightness, 0.0};
    const double saturation = lightness < 0.5 ? span / (greatest + least) : span / (2.0 - greatest - least);
    double degrees = 0.0;
    if (greatest == red)
        degrees = 60.0 * (green - blue) / span;
    else if (greatest == green)
        degrees = 120.0 + 60.0 * (blue - red) / span;
    else
        degrees = 240.0 + 60.0 * (red - green) / span;
    if (degrees < 0.0)
        degrees += 360.0;
    return {degrees * 256.0 / 360.0, 255.0 * lightness, 255.0 * saturation};
}

void fillRandomly(LmImage& aImage, QRandomGenerator& aRandom)
{
    for (int y = 0; y < aImage.height(); ++y)
        for (int i = 0; i < aImage.width() * aImage.channels(); ++i)
            aImage.row(y)[i] = static_cast<unsigned char>(aRandom.bounded(256));
}

std::vector<unsigned char> bytesOf(const LmImage& aImage)
{
    std::vector<unsigned char> bytes;
    for (int y = 0; y < aImage.height(); ++y)
        bytes.insert(bytes.end(), aImage.row(y), aImage.row(y) + aImage.width() * aImage.channels());
    return bytes;
}

unsigned char* pixel(LmImage& aImage, int aX, int aY)
{
    return aImage.row(aY) + aX * aImage.channels();
}

// Half a step of rounding, and what single precision loses on the way.
constexpr double kRounding = 0.5 + 1e-3;

bool isHls(const unsigned char* aHls, const unsigned char* aRgb)
{
    const Hls exact = hlsOf(aRgb[0], aRgb[1], aRgb[2]);
    // 255.5 and more rounds to the full turn, which has no place in a byte.
    const double hue = std::min(exact.theHue, 255.0);
    return std::abs(aHls[0] - hue) <= kRounding && std::abs(aHls[1] - exact.theLightness) <= kRounding &&
           std::abs(aHls[2] - exact.theSaturation) <= kRounding;
}

} // namespace

class TestRGBtoHLS : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void knownColours_data();
    void knownColours();
    void everyColourIsTheRoundedOne_data();
    void everyColourIsTheRoundedOne();
    void equalPixelsGiveEqualResultsInEveryColumn();
    void inPlaceIsTheSameAsIntoAnotherImage();
    void alphaStays();
    void onlyTheRegionChanges();
    void imagesOfManyStripsAreConvertedWhole();
    void imagesThatDoNotFitAreLeftAlone();

private:
    LmImageProcessor* theProcessor = LmImageProcessor::getInstance(nullptr);
};

void TestRGBtoHLS::knownColours_data()
{
    QTest::addColumn<QList<int>>("rgb");
    QTest::addColumn<QList<int>>("hls");
    QTest::newRow("black") << QList<int>{0, 0, 0} << QList<int>{0, 0, 0};
    QTest::newRow("white") << QList<int>{255, 255, 255} << QList<int>{0, 255, 0};
    QTest::newRow("gray") << QList<int>{77, 77, 77} << QList<int>{0, 77, 0};
    QTest::newRow("red") << QList<int>{254, 0, 0} << QList<int>{0, 127, 255};
    QTest::newRow("green, 120 degrees") << QList<int>{0, 254, 0} << QList<int>{85, 127, 255};
    QTest::newRow("blue, 240 degrees") << QList<int>{0, 0, 254} << QList<int>{171, 127, 255};
    QTest::newRow("dull cyan, 180 degrees") << QList<int>{50, 152, 152} << QList<int>{128, 101, 129};
    QTest::newRow("light red") << QList<int>{255, 155, 155} << QList<int>{0, 205, 255};
}

void TestRGBtoHLS::knownColours()
{
    QFETCH(QList<int>, rgb);
    QFETCH(QList<int>, hls);
    LmImage image(1, 1, 3, nullptr, 4);
    for (int i = 0; i < 3; ++i)
        image.row(0)[i] = static_cast<unsigned char>(rgb[i]);
    QVERIFY(theProcessor->RGBtoHLS(&image, nullptr));
    for (int i = 0; i < 3; ++i)
        QCOMPARE(int(image.row(0)[i]), hls[i]);
}

void TestRGBtoHLS::everyColourIsTheRoundedOne_data()
{
    QTest::addColumn<int>("channels");
    QTest::newRow("3 channels") << 3;
    QTest::newRow("4 channels") << 4;
}

void TestRGBtoHLS::everyColourIsTheRoundedOne()
{
    QFETCH(int, channels);
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    LmImage source(509, 331, channels, nullptr, 4);
    fillRandomly(source, random);
    LmImage target(509, 331, channels, nullptr, 4);
    QVERIFY(theProcessor->RGBtoHLS(&source, &target));
    for (int y = 0; y < source.height(); ++y)
        for (int x = 0; x < source.width(); ++x)
            QVERIFY(isHls(pixel(target, x, y), pixel(source, x, y)));
}

void TestRGBtoHLS::equalPixelsGiveEqualResultsInEveryColumn()
{
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    // Pixels behind the last whole block of a row are worked out apart.
    LmImage image(67, 5000, 3, nullptr, 4);
    for (int y = 0; y < image.height(); ++y) {
        const unsigned char colour[] = {static_cast<unsigned char>(random.bounded(256)),
                                        static_cast<unsigned char>(random.bounded(256)),
                                        static_cast<unsigned char>(random.bounded(256))};
        for (int x = 0; x < image.width(); ++x)
            std::copy(colour, colour + 3, pixel(image, x, y));
    }
    QVERIFY(theProcessor->RGBtoHLS(&image, nullptr));
    for (int y = 0; y < image.height(); ++y)
        for (int x = 1; x < image.width(); ++x)
            for (int channel = 0; channel < 3; ++channel)
                QCOMPARE(pixel(image, x, y)[channel], pixel(image, 0, y)[channel]);
}

void TestRGBtoHLS::inPlaceIsTheSameAsIntoAnotherImage()
{
    qInfo("seed %u", kSeed);
    for (const int channels : {3, 4}) {
        QRandomGenerator random(kSeed);
        LmImage source(61, 40, channels, nullptr, 4);
        fillRandomly(source, random);
        const std::vector<unsigned char> before = bytesOf(source);
        LmImage target(61, 40, channels, nullptr, 16);
        QVERIFY(theProcessor->RGBtoHLS(&source, &target));
        QVERIFY(bytesOf(source) == before);
        QVERIFY(bytesOf(target) != before);
        QVERIFY(theProcessor->RGBtoHLS(&source, nullptr));
        QVERIFY(bytesOf(source) == bytesOf(target));
    }
}

void TestRGBtoHLS::alphaStays()
{
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    LmImage source(33, 21, 4, nullptr, 4);
    fillRandomly(source, random);
    LmImage target(33, 21, 4, nullptr, 4);
    const std::vector<unsigned char> before = bytesOf(source);
    QVERIFY(theProcessor->RGBtoHLS(&source, &target));
    QVERIFY(theProcessor->RGBtoHLS(&source, nullptr));
    for (int y = 0; y < source.height(); ++y)
        for (int x = 0; x < source.width(); ++x) {
            const unsigned char alpha = before[4 * (size_t(y) * size_t(source.width()) + size_t(x)) + 3];
            QCOMPARE(pixel(source, x, y)[3], alpha);
            QCOMPARE(pixel(target, x, y)[3], alpha);
        }
}

void TestRGBtoHLS::onlyTheRegionChanges()
{
    qInfo("seed %u", kSeed);
    for (const int channels : {3, 4}) {
        QRandomGenerator random(kSeed);
        LmImage image(40, 30, channels, nullptr, 4);
        fillRandomly(image, random);
        const std::vector<unsigned char> before = bytesOf(image);
        image.setQRoi(QRect(7, 5, 20, 11));
        QVERIFY(theProcessor->RGBtoHLS(&image, nullptr));
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) {
                const unsigned char* former = before.data() + channels * (y * image.width() + x);
                if (image.qRoi().contains(x, y))
                    QVERIFY(isHls(pixel(image, x, y), former));
                else
                    QVERIFY(std::equal(former, former + channels, pixel(image, x, y)));
            }
    }
}

void TestRGBtoHLS::imagesOfManyStripsAreConvertedWhole()
{
    qInfo("seed %u", kSeed);
    const QSize sizes[] = {QSize(1500, 700), QSize(600000, 2), QSize(1, 300001)};
    for (const QSize& size : sizes) {
        QRandomGenerator random(kSeed);
        LmImage source(size.width(), size.height(), 3, nullptr, 4);
        fillRandomly(source, random);
        LmImage target(size.width(), size.height(), 3, nullptr, 4);
        QVERIFY(theProcessor->RGBtoHLS(&source, &target));
        for (int y = 0; y < source.height(); ++y)
            for (int x = 0; x < source.width(); ++x)
                if (!isHls(pixel(target, x, y), pixel(source, x, y)))
                    QFAIL(qPrintable(QStringLiteral("wrong at %1, %2").arg(x).arg(y)));
    }
}

void TestRGBtoHLS::imagesThatDoNotFitAreLeftAlone()
{
    LmImage image(4, 4, 3, nullptr, 4);
    std::fill_n(image.row(0), 12, static_cast<unsigned char>(9));
    const std::vector<unsigned char> before = bytesOf(image);
    LmImage gray(4, 4, 1, nullptr, 4);
    LmImage four(4, 4, 4, nullptr, 4);
    LmImage smaller(4, 3, 3, nullptr, 4);
    LmImage empty(0, 0, 3, nullptr, 4);
    QVERIFY(!theProcessor->RGBtoHLS(&gray, nullptr));
    QVERIFY(!theProcessor->RGBtoHLS(&gray, &gray));
    QVERIFY(!theProcessor->RGBtoHLS(&image, &gray));
    QVERIFY(!theProcessor->RGBtoHLS(&image, &four));
    QVERIFY(!theProcessor->RGBtoHLS(&image, &smaller));
    QVERIFY(!theProcessor->RGBtoHLS(&smaller, &image));
    QVERIFY(!theProcessor->RGBtoHLS(&empty, nullptr));
    QVERIFY(!theProcessor->RGBtoHLS(nullptr, nullptr));
    QVERIFY(!theProcessor->RGBtoHLS(nullptr, &image));
    image.setQRoi(QRect(50, 50, 2, 2));
    QVERIFY(!theProcessor->RGBtoHLS(&image, nullptr));
    QVERIFY(bytesOf(image) == before);
    for (const LmImage* untouched : {&gray, &four, &smaller})
        for (const unsigned char byte : bytesOf(*untouched))
            QCOMPARE(int(byte), 0);
}

MEASURE_TEST_MAIN(TestRGBtoHLS)
#include "TestRGBtoHLS.moc"
