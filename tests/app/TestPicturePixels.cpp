#include "LmImage.h"
#include "MadeFiles.h"
#include "PictureChecks.h"
#include "TestFont.h"
#include "TestSamples.h"

#include <QRgba64>
#include <QTemporaryDir>

/// What becomes of the many kinds of pixels.
class TestPicturePixels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void gray16KeepsItsUpperByte();
    void color16KeepsItsUpperBytes();
    void tiff16KeepsItsUpperByte();
    void paletteOfGraysStaysGray();
    void paletteOfColorsBecomesRgb();
    void bitsBecomeBlackAndWhite();
    void transparencyIsAFourthChannel();
    void grayStaysOneChannel();

private:
    QTemporaryDir theFolder;
};

namespace {

QImage gray16Picture(int aWidth, int aHeight)
{
    QImage picture(aWidth, aHeight, QImage::Format_Grayscale16);
    for (int y = 0; y < aHeight; ++y)
        for (int x = 0; x < aWidth; ++x)
            reinterpret_cast<quint16*>(picture.scanLine(y))[x] = quint16((x * 521 + y * 7919) % 65536);
    return picture;
}

} // namespace

void TestPicturePixels::gray16KeepsItsUpperByte()
{
    const QImage picture = gray16Picture(90, 40);
    const auto image = openedImage(
        MadeFiles::writeIn(theFolder, QStringLiteral("deep.png"), MadeFiles::encoded(picture, "png")));
    QVERIFY(image);
    QCOMPARE(image->channels(), 1);
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 90; ++x)
            QCOMPARE(int(image->row(y)[x]), ((x * 521 + y * 7919) % 65536) >> 8);
}

void TestPicturePixels::color16KeepsItsUpperBytes()
{
    QImage picture(16, 16, QImage::Format_RGBX64);
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 16; ++x)
            reinterpret_cast<QRgba64*>(picture.scanLine(y))[x] =
                qRgba64(quint16(x * 4096 + 255), quint16(y * 4096 + 255), 0x80ff, 0xffff);
    const auto image = openedImage(
        MadeFiles::writeIn(theFolder, QStringLiteral("deep.png"), MadeFiles::encoded(picture, "png")));
    QVERIFY(image);
    QCOMPARE(image->channels(), 3);
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 16; ++x)
            QCOMPARE(pixel(*image, x, y), QColor(x * 16, y * 16, 0x80));
}

void TestPicturePixels::tiff16KeepsItsUpperByte()
{
    QString path = sharedSample(QStringLiteral("chessboard_GRAY_U16.tif"));
    if (path.isEmpty())
        path = MadeFiles::writeIn(theFolder, QStringLiteral("deep.tif"),
                                  MadeFiles::tiff({gray16Picture(200, 200)}));
    const QImage raw(path);
    QCOMPARE(raw.format(), QImage::Format_Grayscale16);
    const auto image = openedImage(path);
    QVERIFY(image);
    QCOMPARE(image->size(), QSize(200, 200));
    QCOMPARE(image->channels(), 1);
    for (int y = 0; y < 200; ++y)
        for (int x = 0; x < 200; ++x)
            QCOMPARE(int(image->row(y)[x]), reinterpret_cast<const quint16*>(raw.constScanLine(y))[x] >> 8);
}

void TestPicturePixels::paletteOfGraysStaysGray()
{
    QImage picture(256, 2, QImage::Format_Indexed8);
    QList<QRgb> colors;
    for (int i = 0; i < 256; ++i)
        colors << qRgb(255 - i, 255 - i, 255 - i);
    picture.setColorTable(colors);
    for (int x = 0; x < 256; ++x)
        for (int y = 0; y < 2; ++y)
            picture.setPixel(x, y, uint(x));
    const auto image = openedImage(
        MadeFiles::writeIn(theFolder, QStringLiteral("gray.bmp"), MadeFiles::encoded(picture, "bmp")));
    QVERIFY(image);
    QCOMPARE(image->channels(), 1);
    for (int x = 0; x < 256; ++x)
        QCOMPARE(int(image->row(1)[x]), 255 - x);
}

void TestPicturePixels::paletteOfColorsBecomesRgb()
{
    QImage picture(3, 1, QImage::Format_Indexed8);
    picture.setColorTable({qRgb(255, 0, 0), qRgb(0, 255, 0), qRgb(0, 0, 255)});
    for (int x = 0; x < 3; ++x)
        picture.setPixel(x, 0, uint(x));
    const auto image = openedImage(
        MadeFiles::writeIn(theFolder, QStringLiteral("palette.png"), MadeFiles::encoded(picture, "png")));
    QVERIFY(image);
    QCOMPARE(image->channels(), 3);
    QCOMPARE(difference(*image, picture), QString());
}

void TestPicturePixels::bitsBecomeBlackAndWhite()
{
    QImage picture(11, 2, QImage::Format_Mono);
    picture.setColorTable({qRgb(255, 255, 255), qRgb(0, 0, 0)});
    picture.fill(0);
    picture.setPixel(9, 1, 1);
    const auto image = openedImage(
        MadeFiles::writeIn(theFolder, QStringLiteral("bits.png"), MadeFiles::encoded(picture, "png")));
    QVERIFY(image);
    QCOMPARE(image->channels(), 1);
    QCOMPARE(int(image->row(1)[9]), 0);
    QCOMPARE(int(image->row(1)[8]), 255);
}

void TestPicturePixels::transparencyIsAFourthChannel()
{
    QImage picture(2, 1, QImage::Format_ARGB32);
    picture.setPixel(0, 0, qRgba(10, 20, 30, 40));
    picture.setPixel(1, 0, qRgba(50, 60, 70, 255));
    const auto image = openedImage(
        MadeFiles::writeIn(theFolder, QStringLiteral("clear.png"), MadeFiles::encoded(picture, "png")));
    QVERIFY(image);
    QCOMPARE(image->channels(), 4);
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(image->row(0)), 8),
             QByteArray("\x0a\x14\x1e\x28\x32\x3c\x46\xff", 8));
}

void TestPicturePixels::grayStaysOneChannel()
{
    QString path = sharedSample(QStringLiteral("coins.png"));
    if (path.isEmpty())
        path = MadeFiles::writeIn(
            theFolder, QStringLiteral("coins.png"),
            MadeFiles::encoded(madePicture(384, 303).convertToFormat(QImage::Format_Grayscale8), "png"));
    const QImage picture(path);
    const auto image = openedImage(path);
    QVERIFY(image);
    QCOMPARE(image->size(), QSize(384, 303));
    QCOMPARE(image->channels(), 1);
    QCOMPARE(difference(*image, picture), QString());
}

MEASURE_TEST_MAIN(TestPicturePixels)
#include "TestPicturePixels.moc"
