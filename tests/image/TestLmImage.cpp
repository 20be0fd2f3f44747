#include "LmImage.h"

#include "TestFont.h"

#include <climits>
#include <vector>

class TestLmImage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ownRowsBeginAtMultiplesOfTheAlignment_data();
    void ownRowsBeginAtMultiplesOfTheAlignment();
    void ownPictureIsBlack();
    void foreignDataIsUsedInPlace();
    void wrongSizesGiveAnEmptyImage_data();
    void wrongSizesGiveAnEmptyImage();
    void regionIsTheWholePictureAtFirst();
    void regionIsClippedToThePicture_data();
    void regionIsClippedToThePicture();
    void pixelsAreReadAtImageCoordinatesWhateverTheRegion();
    void grayPixelGivesItsValueThreeTimes();
    void alphaIsSkipped();
    void outsideThePictureAllIsZero();
};

void TestLmImage::ownRowsBeginAtMultiplesOfTheAlignment_data()
{
    QTest::addColumn<int>("channels");
    QTest::addColumn<unsigned int>("align");
    QTest::addColumn<int>("bytesPerLine");
    QTest::newRow("gray, 4") << 1 << 4u << 8;
    QTest::newRow("colour, 4") << 3 << 4u << 16;
    QTest::newRow("with alpha, 4") << 4 << 4u << 20;
    QTest::newRow("colour, 1") << 3 << 1u << 15;
    QTest::newRow("0 counts as 1") << 3 << 0u << 15;
    QTest::newRow("no power of two") << 3 << 7u << 21;
}

void TestLmImage::ownRowsBeginAtMultiplesOfTheAlignment()
{
    QFETCH(int, channels);
    QFETCH(unsigned int, align);
    LmImage image(5, 3, channels, nullptr, align);
    QTEST(image.bytesPerLine(), "bytesPerLine");
    QCOMPARE(image.size(), QSize(5, 3));
    QCOMPARE(image.channels(), channels);
    QCOMPARE(image.theImageSize, 15);
    QCOMPARE(image.row(2) - image.row(0), 2 * image.bytesPerLine());
}

void TestLmImage::ownPictureIsBlack()
{
    const LmImage image(5, 3, 3, nullptr, 4);
    for (int y = 0; y < 3; ++y)
        for (int i = 0; i < image.bytesPerLine(); ++i)
            QCOMPARE(int(image.row(y)[i]), 0);
}

void TestLmImage::foreignDataIsUsedInPlace()
{
    std::vector<unsigned char> data(3 * 8, 7);
    LmImage image(2, 3, 3, data.data(), 4);
    QCOMPARE(image.bytesPerLine(), 8);
    QVERIFY(image.row(0) == data.data());
    image.row(1)[3] = 200;
    QCOMPARE(int(data[8 + 3]), 200);
}

void TestLmImage::wrongSizesGiveAnEmptyImage_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("channels");
    QTest::addColumn<unsigned int>("align");
    QTest::newRow("no width") << 0 << 3 << 3 << 4u;
    QTest::newRow("negative height") << 3 << -1 << 3 << 4u;
    QTest::newRow("two channels") << 3 << 3 << 2 << 4u;
    QTest::newRow("no channel") << 3 << 3 << 0 << 4u;
    QTest::newRow("a row of more than 2 GB") << INT_MAX << 1 << 4 << 1u;
    QTest::newRow("an alignment of 4 GB") << 1 << 1 << 1 << UINT_MAX;
    QTest::newRow("more pixels than an int counts") << 65536 << 65536 << 1 << 1u;
    QTest::newRow("all at the limit") << INT_MAX << INT_MAX << 4 << UINT_MAX;
}

void TestLmImage::wrongSizesGiveAnEmptyImage()
{
    QFETCH(int, width);
    QFETCH(int, height);
    QFETCH(int, channels);
    QFETCH(unsigned int, align);
    LmImage image(width, height, channels, nullptr, align);
    QCOMPARE(image.size(), QSize(0, 0));
    QCOMPARE(image.theImageSize, 0);
    image.setQRoi(QRect(0, 0, 5, 5));
    QCOMPARE(image.theRoiWidth, 0);
    unsigned char red = 1, green = 1, blue = 1;
    image.getDataAt(0, 0, red, green, blue, 0);
    QCOMPARE(red + green + blue, 0);
}

void TestLmImage::regionIsTheWholePictureAtFirst()
{
    const LmImage image(5, 3, 3, nullptr, 4);
    QCOMPARE(image.qRoi(), QRect(0, 0, 5, 3));
}

void TestLmImage::regionIsClippedToThePicture_data()
{
    const QRect whole(0, 0, 20, 10);
    QTest::addColumn<QRect>("asked");
    QTest::addColumn<QRect>("region");
    QTest::newRow("inside") << QRect(3, 4, 5, 6) << QRect(3, 4, 5, 6);
    QTest::newRow("over the right lower corner") << QRect(15, 8, 50, 50) << QRect(15, 8, 5, 2);
    QTest::newRow("over the left upper corner") << QRect(-5, -5, 8, 9) << QRect(0, 0, 3, 4);
    QTest::newRow("around everything") << QRect(QPoint(INT_MIN, INT_MIN), QPoint(INT_MAX, INT_MAX)) << whole;
    QTest::newRow("null gives the whole") << QRect() << whole;
    QTest::newRow("empty gives the whole") << QRect(3, 3, 0, 5) << whole;
    QTest::newRow("beside the picture") << QRect(20, 0, 5, 5) << QRect(0, 0, 0, 0);
}

void TestLmImage::regionIsClippedToThePicture()
{
    QFETCH(QRect, asked);
    LmImage image(20, 10, 1, nullptr, 4);
    image.setQRoi(QRect(1, 1, 1, 1));
    image.setQRoi(asked);
    QTEST(image.qRoi(), "region");
}

void TestLmImage::pixelsAreReadAtImageCoordinatesWhateverTheRegion()
{
    LmImage image(4, 4, 3, nullptr, 4);
    unsigned char* pixel = image.row(2) + 3 * 3;
    pixel[0] = 10;
    pixel[1] = 20;
    pixel[2] = 30;
    image.setQRoi(QRect(1, 1, 2, 2));
    unsigned char red = 0, green = 0, blue = 0;
    image.getDataAt(3, 2, red, green, blue, 0);
    QCOMPARE(int(red), 10);
    QCOMPARE(int(green), 20);
    QCOMPARE(int(blue), 30);
}

void TestLmImage::grayPixelGivesItsValueThreeTimes()
{
    LmImage image(4, 4, 1, nullptr, 4);
    image.row(1)[2] = 99;
    unsigned char red = 0, green = 0, blue = 0;
    image.getDataAt(2, 1, red, green, blue, 0);
    QCOMPARE(int(red), 99);
    QCOMPARE(int(green), 99);
    QCOMPARE(int(blue), 99);
}

void TestLmImage::alphaIsSkipped()
{
    LmImage image(2, 1, 4, nullptr, 4);
    const unsigned char pixels[8] = {1, 2, 3, 255, 4, 5, 6, 255};
    std::copy(pixels, pixels + 8, image.row(0));
    unsigned char red = 0, green = 0, blue = 0;
    image.getDataAt(1, 0, red, green, blue, 0);
    QCOMPARE(int(red), 4);
    QCOMPARE(int(green), 5);
    QCOMPARE(int(blue), 6);
}

void TestLmImage::outsideThePictureAllIsZero()
{
    LmImage image(4, 3, 3, nullptr, 4);
    for (int y = 0; y < 3; ++y)
        std::fill(image.row(y), image.row(y) + image.bytesPerLine(), 77);
    const QPoint outside[] = {{-1, 0}, {0, -1}, {4, 0}, {0, 3}, {INT_MIN, INT_MIN}, {INT_MAX, INT_MAX}};
    for (const QPoint& point : outside) {
        unsigned char red = 1, green = 1, blue = 1;
        image.getDataAt(point.x(), point.y(), red, green, blue, 0);
        QCOMPARE(red + green + blue, 0);
    }
    unsigned char red = 0, green = 0, blue = 0;
    image.getDataAt(3, 2, red, green, blue, 0);
    QCOMPARE(red + green + blue, 3 * 77);
}

MEASURE_TEST_MAIN(TestLmImage)
#include "TestLmImage.moc"
