#include "LmImageProcessor.h"

#include "FlatPicture.h"
#include "TestFont.h"

#include <QScopeGuard>

#include <cmath>

using namespace FlatPicture;

class TestSeedContour : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void flatShapesAreExactToThePixel_data();
    void flatShapesAreExactToThePixel();
    void randomPatternsAreExactToThePixel();
    void theAreaEndsAtTheRegion();
    void theSeedIsAlwaysInTheArea();
    void wrongSeedsAndImagesAreRefused();
    void aCancelledFloodChangesNothing();
    void smallImagesStayInsideTheirBuffer_data();
    void smallImagesStayInsideTheirBuffer();
    void wideRowsAreFlooded();

private:
    bool find(const LmImage& aImage, QPoint aSeed, const Limits& aLower, const Limits& aUpper)
    {
        return theProcessor->findContourAt(theContour, &aImage, aSeed, aLower.data(), aUpper.data());
    }

    LmImageProcessor* theProcessor = LmImageProcessor::getInstance(nullptr);
    LmCVSequence theContour{0, 8};
};

void TestSeedContour::flatShapesAreExactToThePixel_data()
{
    using Shape = std::function<bool(int, int)>;
    QTest::addColumn<Shape>("isThing");
    QTest::addColumn<QPoint>("seed");
    const auto row = [](const char* aName, QPoint aSeed, const Shape& aShape) {
        QTest::newRow(aName) << aShape << aSeed;
    };
    row("pixel", {30, 30}, [](int aX, int aY) { return aX == 30 && aY == 30; });
    row("rectangle", {20, 20}, [](int aX, int aY) { return aX >= 11 && aX < 48 && aY >= 9 && aY < 31; });
    row("disc", {40, 30}, [](int aX, int aY) { return std::hypot(aX - 40, aY - 30) <= 21.3; });
    row("line of one pixel", {30, 30}, [](int aX, int aY) { return aY == 30 && aX > 4 && aX < 71; });
    row("upright line of one pixel", {30, 30}, [](int aX, int aY) { return aX == 30 && aY > 4 && aY < 55; });
    row("line of two pixels", {30, 30},
        [](int aX, int aY) { return (aY == 30 || aY == 31) && aX > 4 && aX < 71; });
    row("steps", {30, 30}, [](int aX, int aY) { return aX == aY || aX == aY + 1; });
    row("ring", {40, 10},
        [](int aX, int aY) { return std::abs(std::hypot(aX - 40, aY - 30) - 20.0) <= 1.5; });
    row("comb", {40, 50},
        [](int aX, int aY) { return aX > 5 && aX < 70 && (aY >= 48 ? aY < 53 : aY > 8 && aX % 2); });
    row("disc with a tail", {40, 30},
        [](int aX, int aY) { return std::hypot(aX - 40, aY - 30) <= 15.0 || (aY == 30 && aX > 40); });
    row("gap of one pixel", {20, 30},
        [](int aX, int aY) { return aY > 10 && aY < 50 && aX > 10 && aX < 70 && aX != 40; });
    row("all", {40, 30}, [](int, int) { return true; });
}

void TestSeedContour::flatShapesAreExactToThePixel()
{
    using Shape = std::function<bool(int, int)>;
    QFETCH(Shape, isThing);
    QFETCH(QPoint, seed);
    for (const int channels : {1, 3, 4})
        for (const Limits& limits : {kOne, Limits{30, 30, 30}}) {
            const auto image = draw(QSize(80, 60), channels, isThing);
            QVERIFY(find(*image, seed, limits, limits));
            QVERIFY(pixelsOf(theContour, *image) == filledFlood(*image, seed, isThing));
            QCOMPARE(theContour.theCoG, theContour.calculateCoG());
        }
}

void TestSeedContour::randomPatternsAreExactToThePixel()
{
    const unsigned int seed = QRandomGenerator::global()->generate();
    const auto tellSeed = qScopeGuard([seed] {
        if (QTest::currentTestFailed())
            qInfo("seed %u", seed);
    });
    QRandomGenerator random(seed);
    for (int round = 0; round < 60; ++round) {
        const QSize size(1 + random.bounded(40), 1 + random.bounded(40));
        const int share = 40 + random.bounded(50);
        std::vector<bool> things(size_t(size.width() * size.height()));
        for (size_t i = 0; i < things.size(); ++i)
            things[i] = random.bounded(100) < share;
        const QPoint start(random.bounded(size.width()), random.bounded(size.height()));
        const bool wanted = things[size_t(start.y() * size.width() + start.x())];
        const auto image =
            draw(size, 1, [&](int aX, int aY) { return things[size_t(aY * size.width() + aX)]; });
        const QPoint corner(random.bounded(start.x() + 1), random.bounded(start.y() + 1));
        image->setQRoi(QRect(corner, QPoint(start.x() + random.bounded(20), start.y() + random.bounded(20))));
        QVERIFY(find(*image, start, kOne, kOne));
        const auto isSame = [&](int aX, int aY) { return things[size_t(aY * size.width() + aX)] == wanted; };
        QVERIFY(pixelsOf(theContour, *image) == filledFlood(*image, start, isSame));
        QCOMPARE(QPoint(theContour.theOffsetX, theContour.theOffsetY), corner);
    }
}

void TestSeedContour::theAreaEndsAtTheRegion()
{
    const auto image =
        draw(QSize(80, 60), 3, [](int aX, int aY) { return std::hypot(aX - 40, aY - 30) <= 20.0; });
    image->setQRoi(QRect(30, 20, 60, 15)); // held within the image
    QVERIFY(find(*image, QPoint(40, 30), kOne, kOne));
    QCOMPARE(QPoint(theContour.theOffsetX, theContour.theOffsetY), QPoint(30, 20));
    QCOMPARE(theContour.calculateBoundingRect().translated(30, 20), QRect(30, 20, 31, 15));
}

void TestSeedContour::theSeedIsAlwaysInTheArea()
{
    const unsigned int seed = QRandomGenerator::global()->generate();
    const auto tellSeed = qScopeGuard([seed] {
        if (QTest::currentTestFailed())
            qInfo("seed %u", seed);
    });
    QRandomGenerator random(seed);
    for (int round = 0; round < 200; ++round) {
        const int channels = round % 2 ? 3 : 1;
        LmImage image(1 + random.bounded(60), 1 + random.bounded(60), channels, nullptr, 4);
        for (int y = 0; y < image.height(); ++y)
            for (int i = 0; i < image.width() * channels; ++i)
                image.row(y)[i] = static_cast<unsigned char>(random.bounded(256));
        const QPoint at(random.bounded(image.width()), random.bounded(image.height()));
        const int limit = random.bounded(120);
        QVERIFY(find(image, at, Limits{limit, limit, limit}, Limits{limit, limit, limit}));
        QVERIFY(pixelsOf(theContour, image)[size_t(at.y() * image.width() + at.x())]);
        QVERIFY(QRect(QPoint(0, 0), image.size()).contains(theContour.calculateBoundingRect()));
    }
}

void TestSeedContour::wrongSeedsAndImagesAreRefused()
{
    LmImage image(20, 10, 3, nullptr, 4);
    image.setQRoi(QRect(5, 2, 10, 6));
    LmImage empty(0, 0, 3, nullptr, 4);
    theContour = LmCVSequence(7, 8);
    QVERIFY(!theProcessor->findContourAt(theContour, nullptr, QPoint(6, 3), kOne.data(), kOne.data()));
    QVERIFY(!find(empty, QPoint(0, 0), kOne, kOne));
    for (const QPoint& outside :
         {QPoint(4, 3), QPoint(15, 3), QPoint(6, 1), QPoint(6, 8), QPoint(-1, -1), QPoint(100, 5)})
        QVERIFY(!find(image, outside, kOne, kOne));
    QCOMPARE(theContour.theCount, 7); // left alone
    for (const QPoint& corner : {QPoint(5, 2), QPoint(14, 2), QPoint(5, 7), QPoint(14, 7)}) {
        QVERIFY(find(image, corner, kOne, kOne));
        QCOMPARE(theContour.calculateBoundingRect(), QRect(0, 0, 10, 6));
    }
}

void TestSeedContour::aCancelledFloodChangesNothing()
{
    LmImage image(20, 10, 1, nullptr, 4);
    theContour = LmCVSequence(7, 8);
    const std::atomic_bool cancel = true;
    QVERIFY(
        !theProcessor->findContourAt(theContour, &image, QPoint(3, 3), kOne.data(), kOne.data(), &cancel));
    QCOMPARE(theContour.theCount, 7);
}

void TestSeedContour::smallImagesStayInsideTheirBuffer_data()
{
    QTest::addColumn<QSize>("size");
    for (const QSize& size :
         {QSize(1, 1), QSize(2, 1), QSize(1, 2), QSize(1, 50), QSize(50, 1), QSize(7, 5), QSize(31, 33)})
        QTest::addRow("%dx%d", size.width(), size.height()) << size;
}

void TestSeedContour::smallImagesStayInsideTheirBuffer()
{
    QFETCH(QSize, size);
    QRandomGenerator random(99);
    for (const int channels : {1, 3, 4})
        for (const int align : {1, 4}) {
            const size_t step = size_t((size.width() * channels + align - 1) / align * align);
            std::vector<unsigned char> bytes(step * size_t(size.height()));
            for (unsigned char& byte : bytes)
                byte = static_cast<unsigned char>(random.bounded(256));
            const std::vector<unsigned char> before = bytes;
            LmImage image(size.width(), size.height(), channels, bytes.data(), unsigned(align));
            for (const QPoint& at : {QPoint(0, 0), QPoint(size.width() - 1, 0), QPoint(0, size.height() - 1),
                                     QPoint(size.width() - 1, size.height() - 1)})
                for (const int limit : {0, 90, 1000}) {
                    QVERIFY(find(image, at, Limits{limit, limit, limit}, Limits{limit, limit, limit}));
                    QVERIFY(theContour.theCount > 0);
                    if (limit == 1000)
                        QCOMPARE(theContour.calculateBoundingRect(), QRect(QPoint(0, 0), size));
                }
            QVERIFY(bytes == before);
        }
}

void TestSeedContour::wideRowsAreFlooded()
{
    const auto image = draw(QSize(16384, 9), 4, [](int aX, int aY) { return aY == 4 && aX > 2; });
    QVERIFY(find(*image, QPoint(16383, 4), kOne, kOne));
    QCOMPARE(theContour.calculateBoundingRect(), QRect(3, 4, 16381, 1));
    QCOMPARE(theContour.theCount, 2);
}

MEASURE_TEST_MAIN(TestSeedContour)
#include "TestSeedContour.moc"
