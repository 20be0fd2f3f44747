#include "LmImage.h"
#include "LmImageProcessor.h"
#include "RegionMeasures.h"
#include "RegionShapes.h"
#include "TestFont.h"

#include <QRandomGenerator>

#include <cmath>
#include <limits>

using RegionShapes::corners;
using RegionShapes::rectangle;

namespace {

constexpr quint32 kSeed = 4504;
constexpr int kLeast = std::numeric_limits<int>::min();
constexpr int kGreatest = std::numeric_limits<int>::max();
const QPoint kNowhere(0, 0);

void setPixel(LmImage& aImage, int aX, int aY, std::initializer_list<int> aValues)
{
    unsigned char* pixel = aImage.row(aY) + aX * aImage.channels();
    for (const int value : aValues)
        *pixel++ = static_cast<unsigned char>(value);
}

void paint(LmImage& aImage, const QRect& aRect, std::initializer_list<int> aValues)
{
    for (int y = aRect.top(); y <= aRect.bottom(); ++y)
        for (int x = aRect.left(); x <= aRect.right(); ++x)
            setPixel(aImage, x, y, aValues);
}

QRect wholeOf(const LmImage& aImage)
{
    return QRect(QPoint(0, 0), aImage.size());
}

void paintRandomly(LmImage& aImage, QRandomGenerator& aRandom)
{
    for (int y = 0; y < aImage.height(); ++y)
        for (int i = 0; i < aImage.width() * aImage.channels(); ++i)
            aImage.row(y)[i] = static_cast<unsigned char>(aRandom.bounded(256));
}

/// The mean over the whole box of a region in the image, cut out and measured step by step.
double meanOfBox(LmImage& aImage, const QPolygon& aPoints, const QPoint& aPos, int aChannel)
{
    LmImageProcessor* processor = LmImageProcessor::getInstance(nullptr);
    QPolygon polygon = processor->divideBezierCurve(aPoints, 10, true);
    polygon.translate(aPos);
    const QRect box = polygon.boundingRect();
    polygon.translate(-box.topLeft());
    LmCVSequence sequence(int(polygon.size()), 8);
    for (int i = 0; i < polygon.size(); ++i)
        sequence.putPoint(i, polygon[i].x(), polygon[i].y());
    LmImage crop(box.width(), box.height(), aImage.channels(), nullptr, 4);
    aImage.setQRoi(box);
    processor->copy(&aImage, &crop);
    aImage.setQRoi(QRect());
    LmImage gray(box.width(), box.height(), 1, nullptr, 4);
    processor->RGBtoHLS(&crop, nullptr);
    processor->copyChannel(&crop, aChannel, &gray, 0);
    unsigned int table[256];
    double mean = -1.0;
    processor->createHistogram(table, &mean, &gray, &sequence, 100000, 256);
    return mean / 2.55;
}

} // namespace

class TestRegionImageMeans : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whiteRegionOnAGrayImageIsHundredPercent();
    void coloursAreAveragedInTheOutlineOnly();
    void saturationOfAGrayImageIsItsLightness();
    void alphaHasNoPartInTheMean();
    void regionInTheImageIsMeasuredInItsBox();
    void partOutsideDoesNotCount();
    void regionLargerThanTheImageIsTheWholeImage();
    void meanOfCornersAtTheEndsOfTheIntRange();
    void meanOfOneNodeIsItsPixel();
    void withoutNodesTheMeanIsZero();
    void regionOutsideHasNoMean_data();
    void regionOutsideHasNoMean();
    void openRegionHasNoMean();
    void withoutAnImageTheMeanIsZero();
    void regionOfInterestComesBackAsItWas();

private:
    LmImage theImage{60, 40, 3, nullptr, 4};
};

void TestRegionImageMeans::whiteRegionOnAGrayImageIsHundredPercent()
{
    LmImage gray(60, 40, 1, nullptr, 4);
    paint(gray, QRect(10, 10, 20, 15), {255});
    const RegionMeasures measures(rectangle(QRect(0, 0, 20, 15)), true, QPoint(10, 10));
    QCOMPARE(measures.imageMean(&gray, RegionMeasures::kLightness), 100.0);
    QCOMPARE(measures.imageMean(&gray, RegionMeasures::kSaturation), 100.0);
}

void TestRegionImageMeans::coloursAreAveragedInTheOutlineOnly()
{
    paint(theImage, wholeOf(theImage), {255, 255, 255});
    // Lightness 100 of 255 and saturation 120 / 200 = 0.6; below that gray of lightness 51.
    paint(theImage, QRect(10, 10, 20, 5), {160, 40, 40});
    paint(theImage, QRect(10, 15, 20, 15), {51, 51, 51});
    const RegionMeasures upper(rectangle(QRect(0, 0, 20, 5)), true, QPoint(10, 10));
    QCOMPARE(upper.imageMean(&theImage, RegionMeasures::kLightness), 100.0 / 2.55);
    QCOMPARE(upper.imageMean(&theImage, RegionMeasures::kSaturation), 60.0);
    const RegionMeasures both(rectangle(QRect(0, 0, 20, 20)), true, QPoint(10, 10));
    QCOMPARE(both.imageMean(&theImage, RegionMeasures::kLightness), (100.0 + 3.0 * 51.0) / 4.0 / 2.55);
    QCOMPARE(both.imageMean(&theImage, RegionMeasures::kSaturation), 15.0);
    // One column and one row more of white.
    const RegionMeasures more(rectangle(QRect(0, 0, 21, 21)), true, QPoint(10, 10));
    QCOMPARE(more.imageMean(&theImage, RegionMeasures::kLightness),
             (100.0 * 100.0 + 300.0 * 51.0 + 41.0 * 255.0) / 441.0 / 2.55);
}

void TestRegionImageMeans::saturationOfAGrayImageIsItsLightness()
{
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    LmImage gray(60, 40, 1, nullptr, 4);
    paintRandomly(gray, random);
    double sum = 0.0;
    for (int y = 3; y < 20; ++y)
        for (int x = 5; x < 45; ++x)
            sum += gray.row(y)[x];
    const RegionMeasures measures(rectangle(QRect(5, 3, 40, 17)), true, kNowhere);
    const double lightness = measures.imageMean(&gray, RegionMeasures::kLightness);
    QVERIFY(std::abs(lightness - sum / (40.0 * 17.0) / 2.55) < 1e-9);
    QCOMPARE(measures.imageMean(&gray, RegionMeasures::kSaturation), lightness);
}

void TestRegionImageMeans::alphaHasNoPartInTheMean()
{
    LmImage image(30, 30, 4, nullptr, 4);
    paint(image, wholeOf(image), {204, 204, 204, 17});
    const RegionMeasures measures(rectangle(QRect(3, 3, 20, 20)), true, kNowhere);
    QCOMPARE(measures.imageMean(&image, RegionMeasures::kLightness), 80.0);
    QCOMPARE(measures.imageMean(&image, RegionMeasures::kSaturation), 0.0);
}

void TestRegionImageMeans::regionInTheImageIsMeasuredInItsBox()
{
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    paintRandomly(theImage, random);
    for (int i = 0; i < 200; ++i) {
        QPolygon points;
        for (int count = 3 * random.bounded(1, 8); count > 0; --count) {
            const int x = random.bounded(-20, 20);
            points << QPoint(x, random.bounded(-19, 20));
        }
        const QPoint pos(random.bounded(20, 40), 20);
        const RegionMeasures measures(points, true, pos);
        QCOMPARE(measures.imageMean(&theImage, RegionMeasures::kLightness),
                 meanOfBox(theImage, points, pos, 1));
        QCOMPARE(measures.imageMean(&theImage, RegionMeasures::kSaturation),
                 meanOfBox(theImage, points, pos, 2));
    }
}

void TestRegionImageMeans::partOutsideDoesNotCount()
{
    paint(theImage, wholeOf(theImage), {51, 51, 51});
    paint(theImage, QRect(0, 0, 10, 40), {255, 255, 255});
    // 20 columns in the image, half of them white, and many outside.
    const RegionMeasures left(rectangle(QRect(-500, 5, 520, 10)), true, kNowhere);
    QCOMPARE(left.width(0.0), 520.0);
    QCOMPARE(left.imageMean(&theImage, RegionMeasures::kLightness), 60.0);
    const RegionMeasures corner(rectangle(QRect(0, 0, 1000, 1000)), true, QPoint(55, 35));
    QCOMPARE(corner.imageMean(&theImage, RegionMeasures::kLightness), 20.0);
}

void TestRegionImageMeans::regionLargerThanTheImageIsTheWholeImage()
{
    paint(theImage, wholeOf(theImage), {255, 255, 255});
    paint(theImage, QRect(0, 0, 15, 40), {0, 0, 0});
    const RegionMeasures measures(rectangle(QRect(-1000000, -1000000, 2000000, 2000000)), true, kNowhere);
    QCOMPARE(measures.imageMean(&theImage, RegionMeasures::kLightness), 75.0);
}

void TestRegionImageMeans::meanOfCornersAtTheEndsOfTheIntRange()
{
    paint(theImage, wholeOf(theImage), {255, 255, 255});
    paint(theImage, QRect(0, 0, 60, 20), {51, 51, 51});
    const QPolygon points = rectangle(QRect(QPoint(kLeast, kLeast), QPoint(kGreatest, kGreatest)));
    const auto meanAt = [&](const QPoint& aPos) {
        return RegionMeasures(points, true, aPos).imageMean(&theImage, RegionMeasures::kLightness);
    };
    QCOMPARE(meanAt(kNowhere), 60.0);
    QCOMPARE(meanAt(QPoint(kGreatest, kGreatest)), 60.0);
    QCOMPARE(meanAt(QPoint(kLeast, kLeast)), 0.0); // it ends at -1
    // One lower, its last row is the image's first.
    QCOMPARE(meanAt(QPoint(0, kLeast + 1)), 20.0);
}

void TestRegionImageMeans::meanOfOneNodeIsItsPixel()
{
    paint(theImage, wholeOf(theImage), {0, 0, 0});
    setPixel(theImage, 12, 9, {51, 51, 51});
    const RegionMeasures measures(corners(QPolygon({QPoint(2, -1)})), true, QPoint(10, 10));
    QCOMPARE(measures.imageMean(&theImage, RegionMeasures::kLightness), 20.0);
}

void TestRegionImageMeans::withoutNodesTheMeanIsZero()
{
    paint(theImage, wholeOf(theImage), {255, 255, 255});
    for (const QPolygon& points : {QPolygon(), QPolygon({QPoint(5, 5), QPoint(9, 9)})}) {
        const RegionMeasures measures(points, true, QPoint(20, 20));
        QCOMPARE(measures.imageMean(&theImage, RegionMeasures::kLightness), 0.0);
    }
}

void TestRegionImageMeans::regionOutsideHasNoMean_data()
{
    QTest::addColumn<QPoint>("pos");
    QTest::newRow("left") << QPoint(-20, 10);
    QTest::newRow("right") << QPoint(60, 10);
    QTest::newRow("above") << QPoint(10, -20);
    QTest::newRow("below") << QPoint(10, 40);
    QTest::newRow("far") << QPoint(kGreatest, kLeast);
}

void TestRegionImageMeans::regionOutsideHasNoMean()
{
    QFETCH(QPoint, pos);
    paint(theImage, wholeOf(theImage), {255, 255, 255});
    const RegionMeasures measures(rectangle(QRect(0, 0, 20, 20)), true, pos);
    QCOMPARE(measures.imageMean(&theImage, RegionMeasures::kLightness), 0.0);
    QCOMPARE(measures.width(0.0), 20.0);
}

void TestRegionImageMeans::openRegionHasNoMean()
{
    paint(theImage, wholeOf(theImage), {255, 255, 255});
    const RegionMeasures measures(rectangle(QRect(0, 0, 20, 20)), false, QPoint(5, 5));
    QCOMPARE(measures.imageMean(&theImage, RegionMeasures::kLightness), 0.0);
}

void TestRegionImageMeans::withoutAnImageTheMeanIsZero()
{
    LmImage empty(0, 0, 3, nullptr, 4);
    const RegionMeasures measures(rectangle(QRect(-5, -5, 20, 20)), true, kNowhere);
    QCOMPARE(measures.imageMean(nullptr, RegionMeasures::kLightness), 0.0);
    QCOMPARE(measures.imageMean(&empty, RegionMeasures::kSaturation), 0.0);
}

void TestRegionImageMeans::regionOfInterestComesBackAsItWas()
{
    paint(theImage, wholeOf(theImage), {51, 51, 51});
    paint(theImage, QRect(40, 20, 20, 20), {255, 255, 255});
    const RegionMeasures measures(rectangle(QRect(0, 0, 10, 10)), true, QPoint(45, 25));
    for (const QRect& region : {QRect(), QRect(3, 4, 20, 11), QRect(500, 500, 3, 3)}) {
        theImage.setQRoi(region);
        const QRect before = theImage.qRoi();
        QCOMPARE(measures.imageMean(&theImage, RegionMeasures::kLightness), 100.0);
        QCOMPARE(theImage.qRoi(), before);
    }
    theImage.setQRoi(QRect());
}

MEASURE_TEST_MAIN(TestRegionImageMeans)
#include "TestRegionImageMeans.moc"
