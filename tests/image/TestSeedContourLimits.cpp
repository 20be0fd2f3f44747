#include "LmImageProcessor.h"

#include "FlatPicture.h"
#include "TestFont.h"

#include <cmath>

using namespace FlatPicture;

/// What belongs to the area around a seed.
class TestSeedContourLimits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cornersDoNotConnect();
    void limitsHoldForEveryChannelToTheLetter();
    void alphaHasNoSay();
    void grayCountsInAllChannels();
    void slopesAreFollowedAsFarAsTheLimitsGo();
    void noiseMakesNoHolesAndNoFringes();
    void twoNoisyThingsStayApart();

private:
    bool find(const LmImage& aImage, QPoint aSeed, const Limits& aLower, const Limits& aUpper)
    {
        return theProcessor->findContourAt(theContour, &aImage, aSeed, aLower.data(), aUpper.data());
    }

    LmImageProcessor* theProcessor = LmImageProcessor::getInstance(nullptr);
    LmCVSequence theContour{0, 8};
};

void TestSeedContourLimits::cornersDoNotConnect()
{
    const auto image = draw(QSize(20, 20), 3, [](int aX, int aY) {
        return (aX >= 4 && aX < 8 && aY >= 4 && aY < 8) || (aX >= 8 && aX < 12 && aY >= 8 && aY < 12);
    });
    QVERIFY(find(*image, QPoint(5, 5), kOne, kOne));
    QCOMPARE(theContour.calculateBoundingRect(), QRect(4, 4, 4, 4));
    QCOMPARE(theContour.theCount, 4);
}

void TestSeedContourLimits::limitsHoldForEveryChannelToTheLetter()
{
    for (int channel = 0; channel < 3; ++channel)
        for (const int difference : {-7, -6, 5, 6}) {
            LmImage image(12, 5, 3, nullptr, 4);
            for (int y = 0; y < 5; ++y)
                for (int i = 0; i < 36; ++i)
                    image.row(y)[i] = 100;
            for (int y = 0; y < 5; ++y)
                for (int x = 6; x < 12; ++x)
                    image.row(y)[3 * x + channel] = static_cast<unsigned char>(100 + difference);
            QVERIFY(find(image, QPoint(2, 2), Limits{6, 6, 6}, Limits{5, 5, 5}));
            const bool within = difference >= -6 && difference <= 5;
            QCOMPARE(theContour.calculateBoundingRect(), QRect(0, 0, within ? 12 : 6, 5));
            // Wide limits of the other channels don't help.
            Limits lower{255, 255, 255};
            Limits upper{255, 255, 255};
            lower[size_t(channel)] = 6;
            upper[size_t(channel)] = 5;
            QVERIFY(find(image, QPoint(2, 2), lower, upper));
            QCOMPARE(theContour.calculateBoundingRect(), QRect(0, 0, within ? 12 : 6, 5));
        }
}

void TestSeedContourLimits::alphaHasNoSay()
{
    const auto image = draw(QSize(40, 30), 4, [](int aX, int) { return aX < 20; });
    QVERIFY(find(*image, QPoint(3, 3), Limits{0, 0, 0}, Limits{0, 0, 0}));
    QCOMPARE(theContour.calculateBoundingRect(), QRect(0, 0, 20, 30));
}

void TestSeedContourLimits::grayCountsInAllChannels()
{
    LmImage image(12, 5, 1, nullptr, 4);
    for (int y = 0; y < 5; ++y)
        for (int x = 0; x < 12; ++x)
            image.row(y)[x] = x < 6 ? 100 : 110;
    QVERIFY(find(image, QPoint(2, 2), kOne, Limits{10, 10, 10}));
    QCOMPARE(theContour.calculateBoundingRect(), QRect(0, 0, 12, 5));
    // The narrowest of the three holds.
    for (const Limits& upper : {Limits{9, 10, 10}, Limits{10, 9, 10}, Limits{10, 10, 9}}) {
        QVERIFY(find(image, QPoint(2, 2), kOne, upper));
        QCOMPARE(theContour.calculateBoundingRect(), QRect(0, 0, 6, 5));
    }
}

void TestSeedContourLimits::slopesAreFollowedAsFarAsTheLimitsGo()
{
    LmImage image(200, 40, 1, nullptr, 4);
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 200; ++x)
            image.row(y)[x] = static_cast<unsigned char>(20 + x);
    QVERIFY(find(image, QPoint(100, 20), Limits{30, 30, 30}, Limits{10, 10, 10}));
    QCOMPARE(theContour.calculateBoundingRect(), QRect(70, 0, 41, 40));
}

void TestSeedContourLimits::noiseMakesNoHolesAndNoFringes()
{
    const unsigned int seed = 4712;
    QRandomGenerator random(seed);
    LmImage image(120, 120, 1, nullptr, 4);
    int things = 0;
    const auto isThing = [](int aX, int aY) { return std::hypot(aX - 60, aY - 60) <= 40.0; };
    for (int y = 0; y < 120; ++y)
        for (int x = 0; x < 120; ++x) {
            things += isThing(x, y) ? 1 : 0;
            image.row(y)[x] =
                static_cast<unsigned char>((isThing(x, y) ? 170 : 70) + random.bounded(-30, 31));
        }
    image.row(60)[60] = 170;
    // A quarter of the thing's pixels lie beyond the limits.
    QVERIFY(find(image, QPoint(60, 60), Limits{22, 22, 22}, Limits{22, 22, 22}));
    const std::vector<bool> area = pixelsOf(theContour, image);
    int both = 0;
    int pixels = 0;
    for (int y = 0; y < 120; ++y)
        for (int x = 0; x < 120; ++x) {
            pixels += area[size_t(y * 120 + x)] ? 1 : 0;
            both += area[size_t(y * 120 + x)] && isThing(x, y) ? 1 : 0;
        }
    const double overlap = double(both) / (things + pixels - both);
    qInfo("overlap %.3f", overlap);
    QVERIFY(overlap > 0.95);
}

void TestSeedContourLimits::twoNoisyThingsStayApart()
{
    QRandomGenerator random(4713);
    LmImage image(120, 60, 1, nullptr, 4);
    for (int y = 0; y < 60; ++y)
        for (int x = 0; x < 120; ++x) {
            const bool thing = y >= 10 && y < 50 && ((x >= 10 && x < 58) || (x >= 61 && x < 110));
            image.row(y)[x] = static_cast<unsigned char>((thing ? 170 : 70) + random.bounded(-12, 13));
        }
    image.row(30)[30] = 170;
    // Limits that hold the noise leave no pores, so the gap of three pixels stays one.
    QVERIFY(find(image, QPoint(30, 30), Limits{12, 12, 12}, Limits{12, 12, 12}));
    QCOMPARE(theContour.calculateBoundingRect(), QRect(10, 10, 48, 40));
}

MEASURE_TEST_MAIN(TestSeedContourLimits)
#include "TestSeedContourLimits.moc"
