#include "LmImageProcessor.h"

#include "LmImage.h"
#include "TestFont.h"

#include <QRandomGenerator>

namespace {

int theLogged = 0;

void countMessage(const QString& aText)
{
    if (!aText.isEmpty())
        ++theLogged;
}

/// Fills every row with numbers that no two neighbours share.
void fill(LmImage& aImage)
{
    for (int y = 0; y < aImage.height(); ++y)
        for (int i = 0; i < aImage.width() * aImage.channels(); ++i)
            aImage.row(y)[i] = static_cast<unsigned char>(1 + (y * 41 + i * 7) % 255);
}

int valueAt(const LmImage& aImage, int aX, int aY, int aChannel)
{
    return aImage.row(aY)[aX * aImage.channels() + aChannel];
}

} // namespace

class TestLmImageProcessor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thereIsOneProcessor();
    void copyTakesTheRegionAndNothingElse();
    void copyIntoARegionLeavesTheRestAlone();
    void copyOfUnequalImagesDoesNothing();
    void copyChannelTakesOneChannel();
    void copyChannelOfAMissingChannelDoesNothing();
    void grayIsTheRoundedLumaOfEveryColour();
    void grayOfAGrayImageIsItsCopy();
    void grayGoesToTheCornerOfALargerRegion();
    void grayIntoASmallerRegionDoesNothing();
    void grayIntoAColourImageDoesNothing();
    void nullImagesAreRefusedAndLogged();

private:
    LmImageProcessor* theProcessor = LmImageProcessor::getInstance(nullptr);
};

void TestLmImageProcessor::thereIsOneProcessor()
{
    QVERIFY(theProcessor);
    QVERIFY(LmImageProcessor::getInstance(nullptr) == theProcessor);
}

void TestLmImageProcessor::copyTakesTheRegionAndNothingElse()
{
    LmImage source(9, 7, 3, nullptr, 4);
    fill(source);
    source.setQRoi(QRect(2, 3, 4, 2));
    LmImage crop(4, 2, 3, nullptr, 16);
    QVERIFY(theProcessor->copy(&source, &crop));
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 4; ++x)
            for (int channel = 0; channel < 3; ++channel)
                QCOMPARE(valueAt(crop, x, y, channel), valueAt(source, x + 2, y + 3, channel));
}

void TestLmImageProcessor::copyIntoARegionLeavesTheRestAlone()
{
    LmImage source(2, 2, 1, nullptr, 1);
    fill(source);
    LmImage target(5, 5, 1, nullptr, 1);
    target.setQRoi(QRect(1, 2, 2, 2));
    QVERIFY(theProcessor->copy(&source, &target));
    for (int y = 0; y < 5; ++y)
        for (int x = 0; x < 5; ++x) {
            const bool inside = target.qRoi().contains(x, y);
            QCOMPARE(valueAt(target, x, y, 0), inside ? valueAt(source, x - 1, y - 2, 0) : 0);
        }
}

void TestLmImageProcessor::copyOfUnequalImagesDoesNothing()
{
    LmImage source(4, 4, 3, nullptr, 4);
    fill(source);
    LmImage smaller(3, 4, 3, nullptr, 4);
    LmImage gray(4, 4, 1, nullptr, 4);
    LmImage empty(0, 0, 3, nullptr, 4);
    QVERIFY(!theProcessor->copy(&source, &smaller));
    QVERIFY(!theProcessor->copy(&source, &gray));
    QVERIFY(!theProcessor->copy(&empty, &empty));
    QCOMPARE(valueAt(smaller, 0, 0, 0), 0);
    QCOMPARE(valueAt(gray, 0, 0, 0), 0);
}

void TestLmImageProcessor::copyChannelTakesOneChannel()
{
    LmImage source(6, 4, 4, nullptr, 4);
    fill(source);
    source.setQRoi(QRect(1, 1, 3, 2));
    LmImage target(3, 2, 3, nullptr, 4);
    QVERIFY(theProcessor->copyChannel(&source, 3, &target, 1));
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 3; ++x) {
            QCOMPARE(valueAt(target, x, y, 1), valueAt(source, x + 1, y + 1, 3));
            QCOMPARE(valueAt(target, x, y, 0), 0);
            QCOMPARE(valueAt(target, x, y, 2), 0);
        }
}

void TestLmImageProcessor::copyChannelOfAMissingChannelDoesNothing()
{
    LmImage source(3, 3, 3, nullptr, 4);
    fill(source);
    LmImage target(3, 3, 1, nullptr, 4);
    QVERIFY(!theProcessor->copyChannel(&source, 3, &target, 0));
    QVERIFY(!theProcessor->copyChannel(&source, -1, &target, 0));
    QVERIFY(!theProcessor->copyChannel(&source, 0, &target, 1));
    QCOMPARE(valueAt(target, 0, 0, 0), 0);
}

void TestLmImageProcessor::grayIsTheRoundedLumaOfEveryColour()
{
    LmImage source(256, 256, 3, nullptr, 4);
    LmImage gray(256, 256, 1, nullptr, 4);
    const unsigned int seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    for (int y = 0; y < 256; ++y)
        for (int i = 0; i < 3 * 256; ++i)
            source.row(y)[i] = static_cast<unsigned char>(random.bounded(256));
    const unsigned char corners[] = {255, 255, 255, 0, 0, 0, 255, 0, 0, 0, 255, 0, 0, 0, 255};
    std::copy(std::begin(corners), std::end(corners), source.row(0));
    QVERIFY(theProcessor->RGBtoGrayscale(&source, &gray));
    const int expected[] = {255, 0, 76, 150, 29}; // 76.245, 149.685 and 29.07 for the pure colours
    for (int x = 0; x < 5; ++x)
        QCOMPARE(valueAt(gray, x, 0, 0), expected[x]);
    for (int y = 0; y < 256; ++y)
        for (int x = 0; x < 256; ++x) {
            const double exact = 0.299 * valueAt(source, x, y, 0) + 0.587 * valueAt(source, x, y, 1) +
                                 0.114 * valueAt(source, x, y, 2);
            // A rounded number lies within half a step of the exact one, give or take what 0.299 loses as a
            // double.
            QVERIFY(std::abs(valueAt(gray, x, y, 0) - exact) <= 0.5 + 1e-9);
        }
}

void TestLmImageProcessor::grayOfAGrayImageIsItsCopy()
{
    LmImage source(4, 4, 1, nullptr, 4);
    fill(source);
    LmImage gray(4, 4, 1, nullptr, 1);
    QVERIFY(theProcessor->RGBtoGrayscale(&source, &gray));
    QCOMPARE(valueAt(gray, 3, 3, 0), valueAt(source, 3, 3, 0));
}

void TestLmImageProcessor::grayGoesToTheCornerOfALargerRegion()
{
    for (const int channels : {1, 3, 4}) {
        LmImage source(6, 5, channels, nullptr, 4);
        fill(source);
        source.setQRoi(QRect(2, 1, 3, 2));
        LmImage sameSize(3, 2, 1, nullptr, 4);
        QVERIFY(theProcessor->RGBtoGrayscale(&source, &sameSize));
        QVERIFY(valueAt(sameSize, 0, 0, 0) != 0);
        LmImage whole(6, 5, 1, nullptr, 4);
        whole.setQRoi(QRect(1, 1, 5, 4));
        QVERIFY(theProcessor->RGBtoGrayscale(&source, &whole));
        for (int y = 0; y < 5; ++y)
            for (int x = 0; x < 6; ++x) {
                const bool inside = QRect(1, 1, 3, 2).contains(x, y);
                QCOMPARE(valueAt(whole, x, y, 0), inside ? valueAt(sameSize, x - 1, y - 1, 0) : 0);
            }
    }
}

void TestLmImageProcessor::grayIntoASmallerRegionDoesNothing()
{
    for (const int channels : {1, 3, 4}) {
        LmImage source(6, 5, channels, nullptr, 4);
        fill(source);
        LmImage target(6, 5, 1, nullptr, 4);
        for (const QRect& region : {QRect(0, 0, 5, 5), QRect(0, 0, 6, 4)}) {
            target.setQRoi(region);
            QVERIFY(!theProcessor->RGBtoGrayscale(&source, &target));
        }
        QCOMPARE(valueAt(target, 0, 0, 0), 0);
    }
}

void TestLmImageProcessor::grayIntoAColourImageDoesNothing()
{
    LmImage source(4, 4, 3, nullptr, 4);
    fill(source);
    LmImage target(4, 4, 3, nullptr, 4);
    QVERIFY(!theProcessor->RGBtoGrayscale(&source, &target));
    QCOMPARE(valueAt(target, 0, 0, 0), 0);
}

void TestLmImageProcessor::nullImagesAreRefusedAndLogged()
{
    LmImage image(4, 4, 3, nullptr, 4);
    QVERIFY(!theProcessor->copy(nullptr, &image));
    QCOMPARE(theLogged, 0); // nobody listens yet
    QVERIFY(LmImageProcessor::getInstance(countMessage) == theProcessor);
    QVERIFY(!theProcessor->copy(&image, nullptr));
    QVERIFY(!theProcessor->copyChannel(nullptr, 0, &image, 0));
    QVERIFY(!theProcessor->RGBtoGrayscale(nullptr, nullptr));
    QCOMPARE(theLogged, 3);
    QVERIFY(theProcessor->copy(&image, &image));
    QCOMPARE(theLogged, 3);
}

MEASURE_TEST_MAIN(TestLmImageProcessor)
#include "TestLmImageProcessor.moc"
