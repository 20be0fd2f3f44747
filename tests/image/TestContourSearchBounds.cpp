#include "LmImageProcessor.h"

#include "LmCVSequence.h"
#include "LmImage.h"
#include "TestFont.h"

#include <QScopeGuard>

#include <vector>

namespace {

/// Gray ground with bright squares of the given sides, in a row.
void drawSquares(LmImage& aImage, const std::vector<int>& aSides)
{
    for (int y = 0; y < aImage.height(); ++y)
        std::fill_n(aImage.row(y), aImage.width(), static_cast<unsigned char>(90));
    int left = 10;
    for (const int side : aSides) {
        for (int y = 10; y < 10 + side; ++y)
            std::fill_n(aImage.row(y) + left, side, static_cast<unsigned char>(200));
        left += side + 10;
    }
}

QList<QPoint> pointsOf(const LmCVSequence& aSequence)
{
    QList<QPoint> points(aSequence.theCount);
    for (int i = 0; i < aSequence.theCount; ++i)
        aSequence.getPoint(i, points[i].rx(), points[i].ry());
    return points;
}

} // namespace

class TestContourSearchBounds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bothBoundsOfTheAreaAreIncluded();
    void outlinesAreThePolygonsThroughTheBorderPixels();
    void outlinesComeFromTopToBottomThenLeftToRight();
    void pointsAreRelativeToTheRegionsCorner();
    void whatLiesOutsideTheRegionHasNoSay();
    void theListIsClearedFirst();
    void wrongImagesAreRefused();
    void aCancelledSearchFindsNothing();
    void flatRegionsHaveNothing();
    void regionsOfAnyShapeStayInsideTheirBuffer_data();
    void regionsOfAnyShapeStayInsideTheirBuffer();
    void wideRowsAreSearched();

private:
    int countBetween(const LmImage& aImage, int aLeast, int aMost);

    LmImageProcessor* theProcessor = LmImageProcessor::getInstance(nullptr);
    QLinkedList<LmCVSequence> theFound;
};

int TestContourSearchBounds::countBetween(const LmImage& aImage, int aLeast, int aMost)
{
    if (!theProcessor->findContourSeq(theFound, &aImage, aLeast, aMost, false, false))
        qFatal("the search refused an image");
    return theFound.size();
}

void TestContourSearchBounds::bothBoundsOfTheAreaAreIncluded()
{
    LmImage image(200, 60, 1, nullptr, 4);
    drawSquares(image, {3, 5, 8, 20});
    QCOMPARE(countBetween(image, 0, 10000), 4);
    QCOMPARE(countBetween(image, 25, 64), 2);
    QCOMPARE(countBetween(image, 26, 64), 1);
    QCOMPARE(countBetween(image, 25, 63), 1);
    QCOMPARE(countBetween(image, 65, 399), 0);
    QCOMPARE(countBetween(image, 400, 400), 1);
    QCOMPARE(countBetween(image, 64, 25), 0);
}

void TestContourSearchBounds::outlinesAreThePolygonsThroughTheBorderPixels()
{
    LmImage image(60, 60, 1, nullptr, 4);
    drawSquares(image, {8});
    QCOMPARE(countBetween(image, 1, 1000), 1);
    const LmCVSequence& outline = theFound.first();
    QCOMPARE(outline.theCount, 4); // nothing between the corners
    const QList<QPoint> points = pointsOf(outline);
    for (const QPoint& corner : {QPoint(10, 10), QPoint(17, 10), QPoint(17, 17), QPoint(10, 17)})
        QVERIFY(points.contains(corner));
    QCOMPARE(outline.calculateArea(), 49.0);
    QCOMPARE(outline.theCoG, outline.calculateCoG());
    QCOMPARE(outline.theOffsetX, 0);
    QCOMPARE(outline.theOffsetY, 0);
    QCOMPARE(points.first(), QPoint(10, 10)); // the topmost, then leftmost
}

void TestContourSearchBounds::outlinesComeFromTopToBottomThenLeftToRight()
{
    LmImage image(200, 200, 1, nullptr, 4);
    drawSquares(image, {});
    // Bright and dark ones, so that both kinds are merged.
    const QPoint places[] = {{150, 20}, {30, 60}, {90, 60}, {150, 60}, {20, 100}, {60, 101}, {100, 140}};
    for (int i = 0; i < 7; ++i)
        for (int y = 0; y < 9; ++y)
            std::fill_n(image.row(places[i].y() + y) + places[i].x(), 9,
                        static_cast<unsigned char>(i % 2 ? 10 : 170));
    QCOMPARE(countBetween(image, 1, 1000), 7);
    int next = 0;
    for (const LmCVSequence& outline : std::as_const(theFound))
        QCOMPARE(pointsOf(outline).first(), places[next++]);
}

void TestContourSearchBounds::pointsAreRelativeToTheRegionsCorner()
{
    LmImage image(100, 80, 1, nullptr, 4);
    drawSquares(image, {12});
    QCOMPARE(countBetween(image, 1, 1000), 1);
    const QList<QPoint> whole = pointsOf(theFound.first());
    const QPoint centre = theFound.first().theCoG;
    image.setQRoi(QRect(5, 4, 60, 50));
    QCOMPARE(countBetween(image, 1, 1000), 1);
    const LmCVSequence& outline = theFound.first();
    QCOMPARE(QPoint(outline.theOffsetX, outline.theOffsetY), QPoint(5, 4));
    QCOMPARE(outline.theCoG, centre - QPoint(5, 4));
    const QList<QPoint> points = pointsOf(outline);
    QCOMPARE(points.size(), whole.size());
    for (qsizetype i = 0; i < points.size(); ++i)
        QCOMPARE(points[i] + QPoint(5, 4), whole[i]);
}

void TestContourSearchBounds::whatLiesOutsideTheRegionHasNoSay()
{
    LmImage image(200, 80, 1, nullptr, 4);
    drawSquares(image, {12});
    image.setQRoi(QRect(4, 4, 50, 50));
    QCOMPARE(countBetween(image, 1, 1000), 1);
    const QList<QPoint> before = pointsOf(theFound.first());
    QRandomGenerator random(7);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (!image.qRoi().contains(x, y))
                image.row(y)[x] = static_cast<unsigned char>(random.bounded(256));
    QCOMPARE(countBetween(image, 1, 1000), 1);
    QCOMPARE(pointsOf(theFound.first()), before);
}

void TestContourSearchBounds::theListIsClearedFirst()
{
    LmImage image(60, 60, 1, nullptr, 4);
    drawSquares(image, {8});
    theFound.append(LmCVSequence(3, 8));
    QCOMPARE(countBetween(image, 1, 1000), 1);
    QCOMPARE(theFound.first().theCount, 4);
    QVERIFY(!theProcessor->findContourSeq(theFound, nullptr, 1, 1000, false, false));
    QVERIFY(theFound.isEmpty());
}

void TestContourSearchBounds::wrongImagesAreRefused()
{
    LmImage colour(20, 20, 3, nullptr, 4);
    LmImage clear(20, 20, 4, nullptr, 4);
    LmImage nothing(0, 0, 1, nullptr, 4);
    LmImage outside(20, 20, 1, nullptr, 4);
    outside.setQRoi(QRect(30, 30, 5, 5));
    for (const LmImage* image : {&colour, &clear, &nothing, &outside}) {
        QVERIFY(!theProcessor->findContourSeq(theFound, image, 1, 1000, false, false));
        QVERIFY(theFound.isEmpty());
    }
}

void TestContourSearchBounds::aCancelledSearchFindsNothing()
{
    LmImage image(60, 60, 1, nullptr, 4);
    drawSquares(image, {8});
    std::atomic_bool cancel = false;
    QVERIFY(theProcessor->findContourSeq(theFound, &image, 1, 1000, false, false, &cancel));
    QCOMPARE(theFound.size(), 1);
    cancel = true;
    QVERIFY(!theProcessor->findContourSeq(theFound, &image, 1, 1000, false, false, &cancel));
    QVERIFY(theFound.isEmpty());
}

void TestContourSearchBounds::flatRegionsHaveNothing()
{
    for (const int value : {0, 90, 255}) {
        LmImage image(64, 48, 1, nullptr, 4);
        for (int y = 0; y < image.height(); ++y)
            std::fill_n(image.row(y), image.width(), static_cast<unsigned char>(value));
        QCOMPARE(countBetween(image, 0, 100000), 0);
        // One step of gray is no object either.
        std::fill_n(image.row(20) + 20, 10, static_cast<unsigned char>(value == 255 ? 254 : value + 1));
        QCOMPARE(countBetween(image, 0, 100000), 0);
    }
}

void TestContourSearchBounds::regionsOfAnyShapeStayInsideTheirBuffer_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QRect>("region");
    const auto add = [](QSize aSize, QRect aRegion) {
        QTest::addRow("%dx%d, region %d,%d %dx%d", aSize.width(), aSize.height(), aRegion.x(), aRegion.y(),
                      aRegion.width(), aRegion.height())
            << aSize << aRegion;
    };
    for (const QSize& size : {QSize(1, 1), QSize(2, 1), QSize(1, 2), QSize(2, 2), QSize(3, 3), QSize(97, 1),
                              QSize(1, 97), QSize(500, 3), QSize(3, 500), QSize(33, 21)})
        add(size, QRect(QPoint(0, 0), size));
    add(QSize(50, 40), QRect(49, 39, 1, 1));
    add(QSize(50, 40), QRect(0, 39, 50, 1));
    add(QSize(50, 40), QRect(49, 0, 1, 40));
    add(QSize(401, 303), QRect(200, 150, 201, 153));
}

void TestContourSearchBounds::regionsOfAnyShapeStayInsideTheirBuffer()
{
    QFETCH(QSize, size);
    QFETCH(QRect, region);
    const unsigned int seed = QRandomGenerator::global()->generate();
    const auto tellSeed = qScopeGuard([seed] {
        if (QTest::currentTestFailed())
            qInfo("seed %u", seed);
    });
    QRandomGenerator random(seed);
    for (const int align : {1, 4, 16}) {
        // A buffer of the caller that ends with the last row's last byte: the sanitizer sees each byte
        // beyond.
        const size_t step = size_t((size.width() + align - 1) / align * align);
        std::vector<unsigned char> bytes(step * size_t(size.height()));
        for (unsigned char& byte : bytes)
            byte =
                static_cast<unsigned char>(random.bounded(4) ? 40 + random.bounded(8) : random.bounded(256));
        const std::vector<unsigned char> before = bytes;
        LmImage image(size.width(), size.height(), 1, bytes.data(), unsigned(align));
        image.setQRoi(region);
        QVERIFY(theProcessor->findContourSeq(theFound, &image, 0, 1000000, false, false));
        for (const LmCVSequence& outline : std::as_const(theFound))
            QVERIFY(QRect(QPoint(0, 0), region.size()).contains(outline.calculateBoundingRect()));
        QVERIFY(bytes == before);
    }
}

void TestContourSearchBounds::wideRowsAreSearched()
{
    LmImage image(16384, 70, 1, nullptr, 4);
    std::vector<int> sides(500, 20);
    drawSquares(image, sides);
    QCOMPARE(countBetween(image, 400, 400), 500);
    QCOMPARE(countBetween(image, 1, 1000000), 500);
}

MEASURE_TEST_MAIN(TestContourSearchBounds)
#include "TestContourSearchBounds.moc"
