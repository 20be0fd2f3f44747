#include "MediaFile.h"
#include "VideoFile.h"

#include "ClipFiles.h"
#include "ClipNumber.h"
#include "ClipWriter.h"
#include "HollowClip.h"
#include "LmImage.h"
#include "TestFont.h"
#include "TestSamples.h"
#include "VideoProgress.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace {

/// A second of silence.
QByteArray sound()
{
    constexpr char kHeader[] =
        "RIFF\x64\x1f\0\0WAVEfmt \x10\0\0\0\1\0\1\0\x40\x1f\0\0\x40\x1f\0\0\1\0\x8\0data\x40\x1f\0";
    return QByteArray(kHeader, sizeof kHeader) + QByteArray(8000, char(0x80));
}

ClipOptions smallClip()
{
    ClipOptions options;
    options.codec = QStringLiteral("libx264");
    options.size = QSize(96, 64);
    options.count = 120;
    options.texture = true;
    return options;
}

} // namespace

class TestBadVideos : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void whatIsNoVideoIsRefusedInASentence_data();
    void whatIsNoVideoIsRefusedInASentence();
    void missingFileAndFolderAreTold();
    void nameDoesNotMatter();
    void videoWithoutItsIndexIsRefused();
    void videoOfOneFrameIsOne();
    void videoWithoutFramesIsRefused();
    void hugeVideoIsRefused();
    void frameOutsideIsRefused();
    void stoppedOpeningGivesNothing();
    void progressAscends();
    void progressIsToldInIntervals();

private:
    QString path(const QString& aName) const { return theFolder.filePath(aName); }
    QString clip(const QString& aName, const ClipOptions& aOptions);
    QString refusal(const QString& aPath);

    QTemporaryDir theFolder;
};

void TestBadVideos::initTestCase()
{
    QVERIFY2(ClipWriter::hasEncoder(QStringLiteral("libx264")), "the clips need the encoder libx264");
    QVERIFY(theFolder.isValid());
}

/// The path of a clip that was written, or an empty one.
QString TestBadVideos::clip(const QString& aName, const ClipOptions& aOptions)
{
    return ClipWriter::write(path(aName), aOptions) ? path(aName) : QString();
}

QString TestBadVideos::refusal(const QString& aPath)
{
    QString error;
    return MediaFile::open(aPath, error) ? QStringLiteral("it was opened") : error;
}

void TestBadVideos::whatIsNoVideoIsRefusedInASentence_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    const auto unknown = QStringLiteral("of an unknown kind; open a picture");
    QTest::newRow("text") << QByteArray("This is a letter and no video.\n").repeated(100) << unknown;
    QTest::newRow("zeros") << QByteArray(50000, '\0') << unknown;
    QTest::newRow("one byte") << QByteArray("x") << unknown;
    QTest::newRow("empty") << QByteArray() << QStringLiteral("is empty");
    QTest::newRow("sound") << sound() << QStringLiteral("holds no moving pictures");
    QTest::newRow("playlist") << QByteArray("#EXTM3U\n#EXT-X-VERSION:3\n#EXT-X-TARGETDURATION:2\n#EXTINF:2,\n"
                                            "whole.mp4\n#EXT-X-ENDLIST\n")
                              << unknown;
    QTest::newRow("script") << QByteArray("ffconcat version 1.0\nfile 'whole.mp4'\n") << unknown;
    QTest::newRow("subtitles") << QByteArray("1\n00:00:01,000 --> 00:00:02,000\nHello\n\n") << unknown;
}

void TestBadVideos::whatIsNoVideoIsRefusedInASentence()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    QVERIFY(!clip(QStringLiteral("whole.mp4"), smallClip()).isEmpty()); // what a list could lead to
    QVERIFY(ClipFiles::write(path(QStringLiteral("bad.mp4")), bytes));
    const QString error = refusal(path(QStringLiteral("bad.mp4")));
    QVERIFY2(error.contains(reason) && ClipFiles::isSentence(error), qPrintable(error));
}

void TestBadVideos::missingFileAndFolderAreTold()
{
    QString error = refusal(path(QStringLiteral("nowhere.mp4")));
    QVERIFY2(error.contains(QStringLiteral("is not there")) && ClipFiles::isSentence(error),
             qPrintable(error));
    QVERIFY(!VideoFile::open(theFolder.path(), error));
    QVERIFY2(error.contains(QStringLiteral("is a folder")) && ClipFiles::isSentence(error),
             qPrintable(error));
    QVERIFY(refusal(QStringLiteral("http://127.0.0.1/whole.mp4")).contains(QStringLiteral("is not there")));
}

void TestBadVideos::nameDoesNotMatter()
{
    const QString plain = clip(QStringLiteral("plain.mp4"), smallClip());
    QString error;
    for (const char* name : {"plain.txt", "concat:plain.mp4", "50%d.png"}) {
        QVERIFY(QFile::copy(plain, path(QLatin1String(name))));
        const auto source = MediaFile::open(path(QLatin1String(name)), error);
        QVERIFY2(source && source->frameCount() == 120, qPrintable(error));
    }
    QVERIFY(madePicture(30, 20).save(path(QStringLiteral("picture.mp4")), "png"));
    const auto picture = MediaFile::open(path(QStringLiteral("picture.mp4")), error);
    QVERIFY2(picture && picture->times().isEmpty(), qPrintable(error));
}

void TestBadVideos::videoWithoutItsIndexIsRefused()
{
    const QByteArray whole = ClipFiles::content(clip(QStringLiteral("tail.mp4"), smallClip()));
    QVERIFY(ClipFiles::write(path(QStringLiteral("cut.mp4")), whole.left(whole.size() / 2)));
    const QString error = refusal(path(QStringLiteral("cut.mp4")));
    QVERIFY2(error.contains(QStringLiteral("damaged or cut off")) && ClipFiles::isSentence(error),
             qPrintable(error));
}

void TestBadVideos::videoOfOneFrameIsOne()
{
    ClipOptions options = smallClip();
    options.count = 1;
    QString error;
    for (const char* name : {"one.mp4", "one.mkv", "one.avi", "one.mov"}) {
        const auto video = VideoFile::open(clip(QLatin1String(name), options), error);
        QVERIFY2(video, qPrintable(error));
        QCOMPARE(video->frameCount(), 1);
        QCOMPARE(video->rateText(), QStringLiteral("one frame"));
        const auto image = video->readFrame(0, error);
        QVERIFY(image && error.isEmpty());
        QCOMPARE(ClipNumber::read(*image), 0);
    }
}

void TestBadVideos::videoWithoutFramesIsRefused()
{
    QVERIFY(HollowClip::write(path(QStringLiteral("hollow.mkv")), QSize(64, 48)));
    const QString error = refusal(path(QStringLiteral("hollow.mkv")));
    QVERIFY2(error.contains(QStringLiteral("holds no frame")) && ClipFiles::isSentence(error),
             qPrintable(error));
}

void TestBadVideos::hugeVideoIsRefused()
{
    QVERIFY(HollowClip::write(path(QStringLiteral("huge.mkv")), QSize(30000, 20000)));
    const QString error = refusal(path(QStringLiteral("huge.mkv")));
    QVERIFY2(error.contains(QStringLiteral("too large with 30000 x 20000")) && ClipFiles::isSentence(error),
             qPrintable(error));
}

void TestBadVideos::frameOutsideIsRefused()
{
    QString error;
    const auto video = VideoFile::open(clip(QStringLiteral("outside.mp4"), smallClip()), error);
    QVERIFY2(video, qPrintable(error));
    for (const int frame : {-1, 120}) {
        QVERIFY(!video->readFrame(frame, error));
        QVERIFY2(error.contains(QStringLiteral("choose one from 1 to 120")), qPrintable(error));
    }
    QVERIFY(video->readFrame(119, error));
    QCOMPARE(error, QString());
}

void TestBadVideos::stoppedOpeningGivesNothing()
{
    const QString plain = clip(QStringLiteral("stopped.mp4"), smallClip());
    QString error;
    QVERIFY(!MediaFile::open(plain, error, [](int, int) { return false; }));
    QVERIFY2(error.contains(QStringLiteral("because you stopped it")) && ClipFiles::isSentence(error),
             qPrintable(error));
    // Also while the order is learned, which needs a second run.
    const QString learned = clip(QStringLiteral("stopped.avi"), smallClip());
    int last = -1;
    const auto untilSecondRun = [&last](int aDone, int) { return aDone >= std::exchange(last, aDone); };
    QVERIFY(!MediaFile::open(learned, error, untilSecondRun));
    QVERIFY2(error.contains(QStringLiteral("because you stopped it")), qPrintable(error));
}

void TestBadVideos::progressAscends()
{
    QList<int> told;
    int count = -1;
    const MediaSource::Progress note = [&](int aDone, int aCount) {
        told << aDone;
        count = aCount;
        return true;
    };
    VideoProgress progress(note);
    QElapsedTimer timer;
    timer.start();
    constexpr double kLong = 300.0; // milliseconds
    while (double(timer.elapsed()) < kLong)
        QVERIFY(progress.report(double(timer.elapsed()) / kLong));
    QVERIFY(told.size() >= 2 && std::is_sorted(told.begin(), told.end()));
    QCOMPARE(told.front(), 0);
    QVERIFY(told.back() > told.front() && told.back() <= count);
}

void TestBadVideos::progressIsToldInIntervals()
{
    int told = 0;
    const MediaSource::Progress count = [&told](int, int) { return ++told < 4; };
    VideoProgress progress(count);
    QElapsedTimer timer;
    timer.start();
    QVERIFY(progress.report(0.5));
    QCOMPARE(told, 1);
    // However little goes on, the user is asked again, but not without a pause.
    while (progress.report(0.5))
        QVERIFY(timer.elapsed() < 10'000);
    QCOMPARE(told, 4);
    QVERIFY(timer.elapsed() >= 150);
}

MEASURE_TEST_MAIN(TestBadVideos)
#include "TestBadVideos.moc"
