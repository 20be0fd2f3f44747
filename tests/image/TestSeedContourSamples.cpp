#include "LmImageProcessor.h"

#include "SamplePictures.h"
#include "TestFont.h"

#include <array>
#include <cmath>

namespace {

/// What a drag of the mouse asks for: the colours under some of its positions, from the first one.
struct Drag
{
    Drag(const LmImage& aImage, const QList<QPoint>& aPositions) : theSeed(aPositions.first())
    {
        std::array<unsigned char, 3> seed{};
        aImage.getDataAt(theSeed.x(), theSeed.y(), seed[0], seed[1], seed[2], 0);
        for (const QPoint& position : aPositions) {
            std::array<unsigned char, 3> here{};
            aImage.getDataAt(position.x(), position.y(), here[0], here[1], here[2], 0);
            for (size_t i = 0; i < 3; ++i) {
                theLower[i] = std::max(theLower[i], seed[i] - here[i]);
                theUpper[i] = std::max(theUpper[i], here[i] - seed[i]);
            }
        }
    }

    LmCVSequence find(const LmImage& aImage) const
    {
        LmCVSequence contour(0, 8);
        if (!LmImageProcessor::getInstance(nullptr)->findContourAt(contour, &aImage, theSeed, theLower.data(),
                                                                   theUpper.data()))
            qFatal("the search refused a seed");
        return contour;
    }

    QPoint theSeed;
    std::array<int, 3> theLower{1, 1, 1}; // a click allows one on each side
    std::array<int, 3> theUpper{1, 1, 1};
};

QList<QPoint> positions(const QPointF& aFrom, const QPointF& aTo, int aCount)
{
    QList<QPoint> result;
    for (int i = 0; i < aCount; ++i) {
        const QPointF at = aFrom + (aTo - aFrom) * i / (aCount - 1);
        result.append(QPoint(int(at.x()), int(at.y())));
    }
    return result;
}

} // namespace

class TestSeedContourSamples : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aShortDragOverACoinFindsIt();
    void aDragOverTheCoffeeFindsItsSurface();
};

void TestSeedContourSamples::aShortDragOverACoinFindsIt()
{
    const auto coins = SamplePictures::load(QStringLiteral("coins.png"), 1);
    QVERIFY(coins);
    QRandomGenerator random(1);
    constexpr int kDrags = 20;
    int good = 0;
    int leaks = 0;
    int coinsWell = 0;
    for (size_t i = 0; i < SamplePictures::kCoins.size(); ++i) {
        const MeasuredEllipse& coin = SamplePictures::kCoins[i];
        int here = 0;
        for (int drag = 0; drag < kDrags; ++drag) {
            const double turn = random.bounded(6.2832);
            const double length = 10.0 + random.bounded(10.0);
            const int samples = 3 + random.bounded(8);
            const double across = random.bounded(1.0) - 0.5;
            const double down = random.bounded(1.0) - 0.5;
            const QPointF middle(coin.theX + 0.6 * across * coin.theRadiusX,
                                 coin.theY + 0.6 * down * coin.theRadiusY);
            const QPointF half(length / 2.0 * std::cos(turn), length / 2.0 * std::sin(turn));
            const LmCVSequence contour =
                Drag(*coins, positions(middle - half, middle + half, samples)).find(*coins);
            here += SamplePictures::overlap(contour, coin, *coins).theJoint >= 0.8 ? 1 : 0;
            leaks += SamplePictures::pixelCount(contour, *coins) > 1.5 * coin.area() ? 1 : 0;
        }
        qInfo("coin %d: %d of %d drags", int(i) + 1, here, kDrags);
        good += here;
        coinsWell += 2 * here > kDrags ? 1 : 0;
    }
    qInfo("%d of %d drags, %d leaks, most drags of %d coins", good, 24 * kDrags, leaks, coinsWell);
    QVERIFY(good >= 24 * kDrags * 8 / 10);
    QVERIFY(leaks <= 24 * kDrags * 3 / 100);
    QVERIFY(coinsWell >= 22);
}

void TestSeedContourSamples::aDragOverTheCoffeeFindsItsSurface()
{
    const auto coffee = SamplePictures::load(QStringLiteral("coffee.png"), 3);
    QVERIFY(coffee);
    struct
    {
        QPointF theFrom;
        QPointF theTo;
        double theLeastShare; // of the surface, whose light changes from one end to the other
    } const drags[] = {
        {{240, 160}, {258, 164}, 0.35}, {{290, 165}, {305, 160}, 0.35}, {{270, 150}, {270, 135}, 0.35},
        {{330, 150}, {345, 145}, 0.45}, {{286, 160}, {286, 140}, 0.35},
    };
    for (const auto& drag : drags) {
        const LmCVSequence contour = Drag(*coffee, positions(drag.theFrom, drag.theTo, 8)).find(*coffee);
        const Overlap surface = SamplePictures::overlap(contour, SamplePictures::kCoffee, *coffee);
        const int pixels = SamplePictures::pixelCount(contour, *coffee);
        const double inside = surface.theCovered * SamplePictures::kCoffee.area() / pixels;
        qInfo("%d pixels, %.2f of the surface, %.2f of them in it", pixels, surface.theCovered, inside);
        QVERIFY(inside > 0.95); // not the cup
        QVERIFY(surface.theCovered > drag.theLeastShare);
    }
}

MEASURE_TEST_MAIN(TestSeedContourSamples)
#include "TestSeedContourSamples.moc"
