#include "LmImage.h"
#include "MediaFile.h"
#include "PictureFolder.h"
#include "TestFont.h"

#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

/// A folder of pictures as frames.
class TestPictureFolder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void numbersInNamesCountAsNumbers();
    void folderIsOpenedLikeAFile();
    void eachFrameHasItsOwnFile();
    void otherSizesAndOtherFilesStayOut();
    void turnedPictureHasTheSizeThatIsShown();
    void pictureThatIsGoneIsGrayAndTold();
    void pictureThatWasReplacedByALargerOneIsTold();
    void frameOutsideIsRefused();
    void folderWithoutPicturesIsRefused();
    void stoppedOpeningGivesNothing();

private:
    /// Saves a gray picture; its gray is its mark.
    void save(const QString& aName, int aGray, const QSize& aSize = QSize(40, 30)) const;
    std::unique_ptr<MediaSource> open();
    /// The gray of a frame, or -1.
    int gray(MediaSource& aSource, int aFrame);

    std::unique_ptr<QTemporaryDir> theFolder;
    QString theError;
};

void TestPictureFolder::init()
{
    theFolder = std::make_unique<QTemporaryDir>();
    theError.clear();
}

void TestPictureFolder::save(const QString& aName, int aGray, const QSize& aSize) const
{
    QImage picture(aSize, QImage::Format_Grayscale8);
    picture.fill(aGray);
    QVERIFY(picture.save(theFolder->filePath(aName)));
}

std::unique_ptr<MediaSource> TestPictureFolder::open()
{
    return MediaFile::open(theFolder->path(), theError);
}

int TestPictureFolder::gray(MediaSource& aSource, int aFrame)
{
    const std::unique_ptr<LmImage> image = aSource.readFrame(aFrame, theError);
    return image ? *image->row(0) : -1;
}

void TestPictureFolder::numbersInNamesCountAsNumbers()
{
    save(QStringLiteral("a10.png"), 10);
    save(QStringLiteral("a9.png"), 9);
    save(QStringLiteral("a100.bmp"), 100);
    const std::unique_ptr<MediaSource> source = open();
    QVERIFY2(source, qPrintable(theError));
    QCOMPARE(source->frameCount(), 3);
    QCOMPARE(gray(*source, 0), 9);
    QCOMPARE(gray(*source, 1), 10);
    QCOMPARE(gray(*source, 2), 100);
    QCOMPARE(gray(*source, 0), 9);
}

void TestPictureFolder::folderIsOpenedLikeAFile()
{
    save(QStringLiteral("1.png"), 7);
    const std::unique_ptr<MediaSource> source = open();
    QVERIFY(source);
    QCOMPARE(source->path(), QDir(theFolder->path()).absolutePath());
    QVERIFY(source->times().isEmpty());
    QVERIFY(source->remark().isEmpty());
}

void TestPictureFolder::eachFrameHasItsOwnFile()
{
    save(QStringLiteral("a10.png"), 10);
    save(QStringLiteral("a9.png"), 9);
    const QDir folder(QDir(theFolder->path()).absolutePath());
    const std::unique_ptr<MediaSource> source = open();
    QVERIFY(source);
    QCOMPARE(source->framePath(0), folder.filePath(QStringLiteral("a9.png")));
    QCOMPARE(source->framePath(1), folder.filePath(QStringLiteral("a10.png")));
    QCOMPARE(source->framePath(2), QString());
    const std::unique_ptr<MediaSource> file = MediaFile::open(source->framePath(1), theError);
    QVERIFY2(file, qPrintable(theError));
    QCOMPARE(file->framePath(0), file->path());
    for (const int frame : {-1, 1})
        QCOMPARE(file->framePath(frame), QString());
}

void TestPictureFolder::otherSizesAndOtherFilesStayOut()
{
    save(QStringLiteral("1.png"), 1);
    save(QStringLiteral("2.png"), 2, QSize(41, 30));
    save(QStringLiteral("3.png"), 3);
    QFile text(theFolder->filePath(QStringLiteral("4.png")));
    QVERIFY(text.open(QIODevice::WriteOnly) && text.write("no picture") > 0);
    text.close();
    QFile notes(theFolder->filePath(QStringLiteral("notes.txt")));
    QVERIFY(notes.open(QIODevice::WriteOnly));
    const std::unique_ptr<MediaSource> source = open();
    QVERIFY(source);
    QCOMPARE(source->frameCount(), 2);
    QCOMPARE(gray(*source, 1), 3);
    QVERIFY2(source->remark().startsWith(QStringLiteral("2 picture(s)")), qPrintable(source->remark()));
}

void TestPictureFolder::turnedPictureHasTheSizeThatIsShown()
{
    save(QStringLiteral("1.png"), 1, QSize(30, 40));
    QImage lying(40, 30, QImage::Format_RGB32);
    lying.fill(Qt::white);
    QVERIFY(lying.save(theFolder->filePath(QStringLiteral("2.tif"))));
    const std::unique_ptr<MediaSource> source = open();
    QVERIFY(source);
    QCOMPARE(source->frameCount(), 1); // the second one isn't turned
}

void TestPictureFolder::pictureThatIsGoneIsGrayAndTold()
{
    save(QStringLiteral("1.png"), 1);
    save(QStringLiteral("2.png"), 2);
    const std::unique_ptr<MediaSource> source = open();
    QVERIFY(QFile::remove(theFolder->filePath(QStringLiteral("2.png"))));
    QCOMPARE(gray(*source, 1), 0x80);
    QVERIFY2(theError.contains(QStringLiteral("2.png")), qPrintable(theError));
    QCOMPARE(gray(*source, 0), 1);
    QVERIFY(theError.isEmpty());
}

void TestPictureFolder::pictureThatWasReplacedByALargerOneIsTold()
{
    save(QStringLiteral("1.png"), 1);
    save(QStringLiteral("2.png"), 2);
    const std::unique_ptr<MediaSource> source = open();
    save(QStringLiteral("2.png"), 2, QSize(50, 30));
    QCOMPARE(gray(*source, 1), 0x80);
    QVERIFY2(theError.contains(QStringLiteral("another size")), qPrintable(theError));
}

void TestPictureFolder::frameOutsideIsRefused()
{
    save(QStringLiteral("1.png"), 1);
    const std::unique_ptr<MediaSource> source = open();
    for (const int frame : {-1, 1}) {
        QCOMPARE(gray(*source, frame), -1);
        QVERIFY(!theError.isEmpty());
    }
}

void TestPictureFolder::folderWithoutPicturesIsRefused()
{
    QVERIFY(!open());
    QVERIFY2(theError.contains(QStringLiteral("holds no pictures")), qPrintable(theError));
}

void TestPictureFolder::stoppedOpeningGivesNothing()
{
    save(QStringLiteral("1.png"), 1);
    save(QStringLiteral("2.png"), 2);
    const auto stop = [](int aDone, int aCount) { return aDone == 0 && aCount == 2; };
    QVERIFY(!MediaFile::open(theFolder->path(), theError, stop));
    QVERIFY2(theError.contains(QStringLiteral("you stopped it")), qPrintable(theError));
}

MEASURE_TEST_MAIN(TestPictureFolder)
#include "TestPictureFolder.moc"
