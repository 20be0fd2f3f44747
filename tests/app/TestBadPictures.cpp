#include "LmImage.h"
#include "MadeFiles.h"
#include "PictureChecks.h"
#include "PictureFile.h"
#include "Sentence.h"
#include "TestFont.h"
#include "TestSamples.h"

#include <QTemporaryDir>

#include <sys/stat.h>

/// Files that are no pictures to measure on: each is refused with one sentence, quickly, and writes nothing
/// else.
class TestBadPictures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void missingFileIsRefused();
    void folderIsRefused();
    void pipeIsRefusedWithoutWaiting();
    void emptyFileIsRefused();
    void jpegOfItsHeaderOnlyIsRefused();
    void cutFileIsRefused_data();
    void cutFileIsRefused();
    void unknownKindIsRefused_data();
    void unknownKindIsRefused();
    void absurdlyLargePictureIsRefusedBeforeDecoding_data();
    void absurdlyLargePictureIsRefusedBeforeDecoding();
    void floatingPointPixelsAreRefused();
    void pageThatIsGoneLaterIsGray();
    void damagedPageIsGrayAndTheOthersAreThere();

private:
    /// The message for the file, which must not open.
    QString refusal(const QString& aPath);
    QString refusalOf(const QByteArray& aBytes);

    QTemporaryDir theFolder;
};

QString TestBadPictures::refusal(const QString& aPath)
{
    QString error;
    if (PictureFile::open(aPath, error))
        return QStringLiteral("it was opened");
    const QString fault = sentenceFault(error);
    return fault.isEmpty() ? error : fault;
}

QString TestBadPictures::refusalOf(const QByteArray& aBytes)
{
    const QString path = theFolder.filePath(QStringLiteral("bad.png"));
    MadeFiles::write(path, aBytes);
    return refusal(path);
}

void TestBadPictures::missingFileIsRefused()
{
    const QString path = theFolder.filePath(QStringLiteral("nowhere.png"));
    const QString error = refusal(path);
    QVERIFY2(error.contains(QStringLiteral("is not there")) && error.contains(path), qPrintable(error));
}

void TestBadPictures::folderIsRefused()
{
    const QString error = refusal(theFolder.path());
    QVERIFY2(error.contains(QStringLiteral("is a folder")), qPrintable(error));
}

void TestBadPictures::pipeIsRefusedWithoutWaiting()
{
    const QString path = theFolder.filePath(QStringLiteral("pipe.png"));
    QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    const QString error = refusal(path);
    QVERIFY2(error.contains(QStringLiteral("not a plain file")), qPrintable(error));
}

void TestBadPictures::emptyFileIsRefused()
{
    const QString error = refusalOf(QByteArray());
    QVERIFY2(error.contains(QStringLiteral("is empty")), qPrintable(error));
}

void TestBadPictures::jpegOfItsHeaderOnlyIsRefused()
{
    const QString sample = sharedSample(QStringLiteral("truncated.jpg"));
    const QByteArray whole = MadeFiles::encoded(madePicture(100, 100), "jpeg");
    const QString error =
        sample.isEmpty() ? refusalOf(whole.left(whole.indexOf("\xff\xda"))) : refusal(sample);
    QVERIFY2(error.contains(QStringLiteral("is cut off")), qPrintable(error));
}

void TestBadPictures::cutFileIsRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QImage picture = madePicture(80, 60);
    for (const char* format : {"png", "jpeg", "tiff", "bmp", "webp", "ppm"}) {
        const QByteArray whole = MadeFiles::encoded(picture, format);
        for (int percent : {5, 30, 60, 95})
            QTest::addRow("%s at %d percent", format, percent) << whole.left(whole.size() * percent / 100);
        // A PNG file without its last bytes still has all its pixels; the others miss some, or their end.
        if (qstrcmp(format, "png") != 0)
            QTest::addRow("%s without its end", format) << whole.left(whole.size() - 2);
    }
    const QByteArray pages = MadeFiles::tiff({picture});
    QTest::newRow("tiff without its directory") << pages.left(pages.size() / 2);
}

void TestBadPictures::cutFileIsRefused()
{
    QFETCH(QByteArray, bytes);
    const QString error = refusalOf(bytes);
    QVERIFY2(error.startsWith(QStringLiteral("The picture ")), qPrintable(error));
}

void TestBadPictures::unknownKindIsRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("text") << QByteArray("This is a letter and no picture.\n");
    QTest::newRow("zeros") << QByteArray(5000, '\0');
    QTest::newRow("drawing") << QByteArray(
        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\"/>");
    QTest::newRow("program") << QByteArray("\x7f"
                                           "ELF\x02\x01\x01\0",
                                           8) +
                                    QByteArray(500, 'x');
    QTest::newRow("one byte") << QByteArray("P");
}

void TestBadPictures::unknownKindIsRefused()
{
    QFETCH(QByteArray, bytes);
    const QString error = refusalOf(bytes);
    QVERIFY2(error.contains(QStringLiteral("of an unknown kind")), qPrintable(error));
}

void TestBadPictures::absurdlyLargePictureIsRefusedBeforeDecoding_data()
{
    QTest::addColumn<quint32>("width");
    QTest::addColumn<quint32>("height");
    QTest::newRow("both ways") << 100000u << 100000u;
    QTest::newRow("one row over") << 20000u << 20001u;
    QTest::newRow("more than an int of pixels") << 900000u << 900000u;
}

void TestBadPictures::absurdlyLargePictureIsRefusedBeforeDecoding()
{
    QFETCH(quint32, width);
    QFETCH(quint32, height);
    const QString error = refusalOf(MadeFiles::pngHeader(width, height));
    QVERIFY2(error.contains(QStringLiteral("too large with %1 x %2 pixels").arg(width).arg(height)),
             qPrintable(error));
}

void TestBadPictures::floatingPointPixelsAreRefused()
{
    const QString sample = sharedSample(QStringLiteral("multipage_rgb.tif"));
    const QString error = sample.isEmpty() ? refusalOf(MadeFiles::floatTiff(10, 10)) : refusal(sample);
    QVERIFY2(error.contains(QStringLiteral("of a kind that can't be shown")), qPrintable(error));
}

void TestBadPictures::pageThatIsGoneLaterIsGray()
{
    const QString path = theFolder.filePath(QStringLiteral("going.tif"));
    MadeFiles::write(path, MadeFiles::tiff({madePicture(8, 8), madePicture(8, 8)}));
    QString error;
    const auto file = PictureFile::open(path, error);
    QVERIFY(file);
    QVERIFY(QFile::remove(path));
    const auto page = file->readFrame(1, error);
    QVERIFY(page && page->size() == QSize(8, 8));
    QCOMPARE(pixel(*page, 4, 4), QColor(0x80, 0x80, 0x80));
    QCOMPARE(sentenceFault(error), QString());
    QVERIFY2(error.contains(QStringLiteral("is not there")), qPrintable(error));
}

void TestBadPictures::damagedPageIsGrayAndTheOthersAreThere()
{
    const QString path = theFolder.filePath(QStringLiteral("damaged.tif"));
    MadeFiles::write(
        path, MadeFiles::withDamagedPage({madePicture(8, 8), madePicture(8, 8), madePicture(8, 8)}, 1));
    QString error;
    const auto file = PictureFile::open(path, error);
    QVERIFY2(file, qPrintable(error));
    QCOMPARE(file->frameCount(), 3);
    for (const int page : {0, 2}) {
        QCOMPARE(difference(*file->readFrame(page, error), madePicture(8, 8)), QString());
        QCOMPARE(error, QString());
    }
    const auto damaged = file->readFrame(1, error);
    QVERIFY(damaged && damaged->size() == QSize(8, 8));
    QCOMPARE(pixel(*damaged, 4, 4), QColor(0x80, 0x80, 0x80));
    QCOMPARE(sentenceFault(error), QString());
    QVERIFY2(error.contains(QStringLiteral("damaged")), qPrintable(error));
}

MEASURE_TEST_MAIN(TestBadPictures)
#include "TestBadPictures.moc"
