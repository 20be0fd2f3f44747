#include "LmImage.h"
#include "MadeFiles.h"
#include "PictureChecks.h"
#include "PictureFile.h"
#include "Sentence.h"
#include "TestFont.h"
#include "TestSamples.h"

#include <QImageReader>
#include <QPainter>
#include <QTemporaryDir>

/// Good pictures of every kind, read to their pixels.
class TestPictureFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void losslessFormatsKeepEveryPixel_data();
    void losslessFormatsKeepEveryPixel();
    void lossyFormatsOpen_data();
    void lossyFormatsOpen();
    void kindFollowsContentNotName();
    void orientationOfTheCameraIsApplied();
    void bytesBehindTheEndOfAJpegDoNoHarm();
    void pagesAreFrames();
    void pagesMayDifferInSize();
    void pageTooLongForTheOthersIsCut();
    void pageOutsideTheFileIsRefused();
    void framesOfAnAnimationAreFrames();
    void firstPageCanBeReadAgain();
    void suffixesHoldThePromisedKinds();

private:
    QTemporaryDir theFolder;
};

namespace {

/// A GIF of two frames of 2 x 2 pixels, the first in colour 0 (red), the second in colour 1 (blue).
QByteArray gifOfTwoFrames()
{
    const QByteArray head("GIF89a\x02\0\x02\0\x80\0\0\xff\0\0\0\0\xff", 19);
    const QByteArray place("\x2c\0\0\0\0\x02\0\x02\0\0", 10);
    // Codes of three bits from the lowest on: clear (4), four pixels, end (5).
    const auto frame = [&](int aColor) {
        quint32 codes = 0;
        const int values[] = {4, aColor, aColor, 4, aColor, aColor, 5};
        for (int i = 0; i < 7; ++i)
            codes |= quint32(values[i]) << (3 * i);
        QByteArray data("\x02\x03", 2);
        for (int i = 0; i < 3; ++i)
            data.append(char((codes >> (8 * i)) & 0xff));
        return place + data + QByteArray(1, '\0');
    };
    return head + frame(0) + frame(1) + QByteArray("\x3b");
}

} // namespace

void TestPictureFile::losslessFormatsKeepEveryPixel_data()
{
    QTest::addColumn<QByteArray>("format");
    for (const char* format : {"png", "tiff", "bmp", "ppm"})
        QTest::newRow(format) << QByteArray(format);
}

void TestPictureFile::losslessFormatsKeepEveryPixel()
{
    QFETCH(QByteArray, format);
    const QImage picture = madePicture(70, 50);
    const auto image = openedImage(
        MadeFiles::writeIn(theFolder, QStringLiteral("lossless"), MadeFiles::encoded(picture, format)));
    QVERIFY(image);
    QCOMPARE(image->channels(), 3);
    QCOMPARE(difference(*image, picture), QString());
}

void TestPictureFile::lossyFormatsOpen_data()
{
    QTest::addColumn<QByteArray>("format");
    QTest::newRow("jpeg") << QByteArray("jpeg");
    QTest::newRow("webp") << QByteArray("webp");
}

void TestPictureFile::lossyFormatsOpen()
{
    QFETCH(QByteArray, format);
    QImage picture(64, 48, QImage::Format_RGB32);
    picture.fill(QColor(200, 100, 50));
    const auto image = openedImage(
        MadeFiles::writeIn(theFolder, QStringLiteral("lossy"), MadeFiles::encoded(picture, format)));
    QVERIFY(image);
    QCOMPARE(image->size(), picture.size());
    QCOMPARE(image->channels(), 3);
    const QColor middle = pixel(*image, 32, 24);
    QVERIFY2(qAbs(middle.red() - 200) < 8 && qAbs(middle.green() - 100) < 8 && qAbs(middle.blue() - 50) < 8,
             qPrintable(middle.name()));
}

void TestPictureFile::kindFollowsContentNotName()
{
    const QImage picture = madePicture(20, 10);
    const auto image = openedImage(
        MadeFiles::writeIn(theFolder, QStringLiteral("liar.jpg"), MadeFiles::encoded(picture, "png")));
    QVERIFY(image);
    QCOMPARE(difference(*image, picture), QString());
}

void TestPictureFile::orientationOfTheCameraIsApplied()
{
    QImage picture(64, 32, QImage::Format_RGB32);
    picture.fill(Qt::white);
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 16; ++x)
            picture.setPixelColor(x, y, Qt::black);
    const auto plain = openedImage(
        MadeFiles::writeIn(theFolder, QStringLiteral("a.jpg"), MadeFiles::turnedJpeg(picture, 1)));
    const auto turned = openedImage(
        MadeFiles::writeIn(theFolder, QStringLiteral("b.jpg"), MadeFiles::turnedJpeg(picture, 6)));
    QVERIFY(plain && turned);
    QCOMPARE(plain->size(), QSize(64, 32));
    QVERIFY(pixel(*plain, 4, 4).lightness() < 40);
    // Turned to the right: what was the upper left corner is the upper right one.
    QCOMPARE(turned->size(), QSize(32, 64));
    QVERIFY(pixel(*turned, 27, 4).lightness() < 40);
    QVERIFY(pixel(*turned, 4, 4).lightness() > 215);
}

void TestPictureFile::bytesBehindTheEndOfAJpegDoNoHarm()
{
    const QByteArray jpeg = MadeFiles::encoded(madePicture(40, 30), "jpeg") + QByteArray(1000, '\0');
    QVERIFY(openedImage(MadeFiles::writeIn(theFolder, QStringLiteral("padded.jpg"), jpeg)));
}

void TestPictureFile::pagesAreFrames()
{
    QString path = sharedSample(QStringLiteral("multipage.tif"));
    if (path.isEmpty()) {
        const QImage page = madePicture(10, 15).convertToFormat(QImage::Format_Grayscale8);
        path = MadeFiles::writeIn(theFolder, QStringLiteral("pages.tif"),
                                  MadeFiles::tiff({page, page.mirrored()}));
    }
    QString error;
    const auto file = PictureFile::open(path, error);
    QVERIFY2(file, qPrintable(error));
    QCOMPARE(file->frameCount(), 2);
    for (int page = 0; page < 2; ++page) {
        const auto image = file->readFrame(page, error);
        QVERIFY2(image, qPrintable(error));
        QCOMPARE(image->size(), QSize(10, 15));
        QCOMPARE(image->channels(), 1);
        QImageReader reader(path);
        QVERIFY(reader.jumpToImage(page));
        QCOMPARE(difference(*image, reader.read()), QString());
    }
}

void TestPictureFile::pagesMayDifferInSize()
{
    const QImage first = madePicture(30, 20);
    const QImage second = madePicture(12, 50).convertToFormat(QImage::Format_Grayscale8);
    const QString path =
        MadeFiles::writeIn(theFolder, QStringLiteral("sizes.tif"), MadeFiles::tiff({first, second}));
    QString error;
    const auto file = PictureFile::open(path, error);
    QVERIFY2(file, qPrintable(error));
    QVERIFY2(file->remark().contains(QStringLiteral("differ in size")), qPrintable(file->remark()));
    for (const int page : {0, 1, 0}) {
        const auto image = file->readFrame(page, error);
        QVERIFY2(image && error.isEmpty(), qPrintable(error));
        QCOMPARE(image->size(), QSize(30, 50));
        QImage wanted(image->size(), QImage::Format_RGB888);
        wanted.fill(QColor(0x80, 0x80, 0x80));
        QPainter(&wanted).drawImage(0, 0, page == 0 ? first : second);
        QCOMPARE(difference(*image, wanted), QString());
    }
}

/// A canvas for both would not fit into memory.
void TestPictureFile::pageTooLongForTheOthersIsCut()
{
    const QImage wide = madePicture(60000, 1);
    const QImage high = madePicture(1, 60000);
    const QString path =
        MadeFiles::writeIn(theFolder, QStringLiteral("long.tif"), MadeFiles::tiff({wide, high}));
    QString error;
    const auto file = PictureFile::open(path, error);
    QVERIFY2(file, qPrintable(error));
    for (const int page : {0, 1})
        QCOMPARE(file->readFrame(page, error)->size(), wide.size());
}

void TestPictureFile::pageOutsideTheFileIsRefused()
{
    const QString path = MadeFiles::writeIn(theFolder, QStringLiteral("one.png"),
                                            MadeFiles::encoded(madePicture(4, 4), "png"));
    QString error;
    const auto file = PictureFile::open(path, error);
    QVERIFY(file);
    for (int page : {-1, 1, 1000000}) {
        QVERIFY(!file->readFrame(page, error));
        QCOMPARE(sentenceFault(error), QString());
    }
}

void TestPictureFile::framesOfAnAnimationAreFrames()
{
    const QString path = MadeFiles::writeIn(theFolder, QStringLiteral("moving.gif"), gifOfTwoFrames());
    QString error;
    const auto file = PictureFile::open(path, error);
    QVERIFY2(file, qPrintable(error));
    QCOMPARE(file->frameCount(), 2);
    const auto second = file->readFrame(1, error);
    QVERIFY2(second, qPrintable(error));
    QCOMPARE(pixel(*second, 1, 1), QColor(Qt::blue));
    QCOMPARE(pixel(*file->readFrame(0, error), 1, 1), QColor(Qt::red));
}

void TestPictureFile::firstPageCanBeReadAgain()
{
    const QImage picture = madePicture(9, 9);
    const QString path =
        MadeFiles::writeIn(theFolder, QStringLiteral("again.png"), MadeFiles::encoded(picture, "png"));
    QString error;
    const auto file = PictureFile::open(path, error);
    QVERIFY(file);
    for (int time = 0; time < 3; ++time) {
        const auto image = file->readFrame(0, error);
        QVERIFY2(image, qPrintable(error));
        QCOMPARE(difference(*image, picture), QString());
    }
}

void TestPictureFile::suffixesHoldThePromisedKinds()
{
    const QStringList suffixes = PictureFile::suffixes();
    for (const char* suffix : {"png", "jpg", "jpeg", "tif", "tiff", "bmp", "webp"})
        QVERIFY2(suffixes.contains(QLatin1String(suffix)), suffix);
    QVERIFY(!suffixes.contains(QStringLiteral("svg")));
}

MEASURE_TEST_MAIN(TestPictureFile)
#include "TestPictureFile.moc"
