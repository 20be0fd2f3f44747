#include "VideoFile.h"

#include "ClipFiles.h"
#include "ClipNumber.h"
#include "ClipStamps.h"
#include "ClipWriter.h"
#include "LmImage.h"
#include "TestFont.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

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

class TestVideoFlaws : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cutVideoGivesItsRestAndTellsSo_data();
    void cutVideoGivesItsRestAndTellsSo();
    void wholeVideoHasNoRemark();
    void damagedPacketSpoilsItsGroupAndNoMore_data();
    void damagedPacketSpoilsItsGroupAndNoMore();
    void videoBegunInsideAGroupHasItsWholeFrames_data();
    void videoBegunInsideAGroupHasItsWholeFrames();
    void frameOfAnotherSizeIsToldAndCut();
    void variableRateAndOblongPixelsAreTold();
    void oneKeyAtTheStartServesAllFrames();
    void leftOutFramesAreTold();

private:
    QString path(const QString& aName) const { return theFolder.filePath(aName); }
    QString clip(const QString& aName, const ClipOptions& aOptions);

    QTemporaryDir theFolder;
};

void TestVideoFlaws::initTestCase()
{
    QVERIFY2(ClipWriter::hasEncoder(QStringLiteral("libx264")), "the clips need the encoder libx264");
    QVERIFY(theFolder.isValid());
}

/// The path of a clip that was written, or an empty one.
QString TestVideoFlaws::clip(const QString& aName, const ClipOptions& aOptions)
{
    return ClipWriter::write(path(aName), aOptions) ? path(aName) : QString();
}

void TestVideoFlaws::cutVideoGivesItsRestAndTellsSo_data()
{
    QTest::addColumn<QString>("ending");
    for (const char* ending : {"mp4", "mkv", "avi"})
        QTest::newRow(ending) << QString(QLatin1String(ending));
}

void TestVideoFlaws::cutVideoGivesItsRestAndTellsSo()
{
    QFETCH(QString, ending);
    ClipOptions options = smallClip();
    if (ending == QLatin1String("mp4"))
        options.muxer[QStringLiteral("movflags")] = QStringLiteral("+faststart");
    const QByteArray whole = ClipFiles::content(clip(QStringLiteral("whole.") + ending, options));
    const QString cut = path(QStringLiteral("rest.") + ending);
    QVERIFY(ClipFiles::write(cut, whole.left(whole.size() * 6 / 10)));
    QString error;
    const auto video = VideoFile::open(cut, error);
    QVERIFY2(video, qPrintable(error));
    QVERIFY(video->frameCount() > 40 && video->frameCount() < 100);
    QVERIFY2(video->remark().contains(QStringLiteral("is cut off after")), qPrintable(video->remark()));
    for (int frame = video->frameCount() - 1; frame >= 0; --frame) {
        const auto image = video->readFrame(frame, error);
        QVERIFY(image);
        // Only the very last one may have been hit by the cut.
        QVERIFY2(frame == video->frameCount() - 1 || ClipNumber::read(*image) == frame, qPrintable(error));
        QVERIFY2(frame == video->frameCount() - 1 || error.isEmpty(), qPrintable(error));
    }
}

void TestVideoFlaws::wholeVideoHasNoRemark()
{
    QString error;
    for (const char* name : {"good.mp4", "good.mkv", "good.avi", "good.ts", "good.mov"}) {
        const auto video = VideoFile::open(clip(QLatin1String(name), smallClip()), error);
        QVERIFY2(video, qPrintable(error));
        QCOMPARE(video->remark(), QString());
        QCOMPARE(video->rateText(), QStringLiteral("25 fps"));
    }
}

void TestVideoFlaws::damagedPacketSpoilsItsGroupAndNoMore_data()
{
    QTest::addColumn<QString>("codec");
    QTest::newRow("h264") << QStringLiteral("libx264");
    QTest::newRow("mpeg4") << QStringLiteral("mpeg4");
    QTest::newRow("mpeg2") << QStringLiteral("mpeg2video");
}

void TestVideoFlaws::damagedPacketSpoilsItsGroupAndNoMore()
{
    QFETCH(QString, codec);
    constexpr int kDamaged = 65;
    constexpr int kGroup = 12;
    ClipOptions options = smallClip();
    options.codec = codec;
    const QString good = clip(QStringLiteral("good.mp4"), options);
    const auto places = ClipStamps::places(good);
    QCOMPARE(places.size(), size_t(120));
    QByteArray bytes = ClipFiles::content(good);
    // Behind the head of the packet, so that it stays one.
    const auto [place, size] = places[kDamaged];
    for (qint64 at = place + size / 3; at < place + size; ++at)
        bytes[at] = char(bytes[at] ^ 0x5a);
    const QString bad = path(QStringLiteral("damaged.mp4"));
    QVERIFY(ClipFiles::write(bad, bytes));
    QString error;
    const auto video = VideoFile::open(bad, error);
    QVERIFY2(video, qPrintable(error));
    QCOMPARE(video->frameCount(), 120);
    for (const bool isBackward : {false, true})
        for (int step = 0; step < 120; ++step) {
            const int frame = isBackward ? 119 - step : step;
            const auto image = video->readFrame(frame, error);
            QVERIFY(image);
            QCOMPARE(image->size(), options.size);
            const bool isHit = frame >= kDamaged && frame < (kDamaged / kGroup + 1) * kGroup;
            if (isHit) {
                QVERIFY2(error.contains(QStringLiteral("is damaged")) && ClipFiles::isSentence(error),
                         qPrintable(error));
                QVERIFY(error.startsWith(QStringLiteral("Frame %1 of ").arg(frame + 1)));
            } else {
                QVERIFY2(error.isEmpty(), qPrintable(error));
                QCOMPARE(ClipNumber::read(*image), frame);
            }
        }
}

void TestVideoFlaws::videoBegunInsideAGroupHasItsWholeFrames_data()
{
    QTest::addColumn<QString>("codec");
    QTest::addColumn<bool>("openGroups");
    for (const char* codec : {"libx264", "mpeg2video"})
        for (const bool openGroups : {false, true})
            QTest::addRow("%s %s groups", codec, openGroups ? "open" : "closed")
                << QString(QLatin1String(codec)) << openGroups;
}

/// As a recording of a broadcast does.
void TestVideoFlaws::videoBegunInsideAGroupHasItsWholeFrames()
{
    QFETCH(QString, codec);
    QFETCH(bool, openGroups);
    constexpr qsizetype kPacket = 188; // of a transport stream
    ClipOptions options = smallClip();
    options.codec = codec;
    options.bFrames = 3;
    options.openGroups = openGroups;
    const QByteArray whole = ClipFiles::content(clip(QStringLiteral("broadcast.ts"), options));
    const QString late = path(QStringLiteral("late.ts"));
    QVERIFY(ClipFiles::write(late, whole.mid(whole.size() / 3 / kPacket * kPacket)));
    QString error;
    const auto video = VideoFile::open(late, error);
    QVERIFY2(video, qPrintable(error));
    QVERIFY2(video->remark().isEmpty(), qPrintable(video->remark()));
    const int count = video->frameCount();
    QVERIFY2(count >= 60 && count <= 90, qPrintable(QString::number(count)));
    for (int step = 0; step < 2 * count; ++step) {
        const int frame = step < count ? step : step * 37 % count;
        const auto image = video->readFrame(frame, error);
        QVERIFY(image);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QCOMPARE(ClipNumber::read(*image), options.count - count + frame);
    }
}

void TestVideoFlaws::frameOfAnotherSizeIsToldAndCut()
{
    ClipOptions options = smallClip();
    options.count = 24;
    const QByteArray first = ClipFiles::content(clip(QStringLiteral("first.ts"), options));
    options.size = QSize(128, 48);
    for (int frame = 0; frame < options.count; ++frame)
        options.stamps.push_back(frame + 24);
    const QByteArray second = ClipFiles::content(clip(QStringLiteral("second.ts"), options));
    QVERIFY(ClipFiles::write(path(QStringLiteral("both.ts")), first + second));
    QString error;
    const auto video = VideoFile::open(path(QStringLiteral("both.ts")), error);
    QVERIFY2(video, qPrintable(error));
    QCOMPARE(video->frameCount(), 48);
    // Of the last frames before the joint the container itself says that something may be missing.
    for (const int frame : {30, 10, 47, 0, 24, 20}) {
        const auto image = video->readFrame(frame, error);
        QVERIFY(image);
        QCOMPARE(image->size(), QSize(96, 64));
        QVERIFY2(error.contains(QStringLiteral("another size")) == (frame >= 24), qPrintable(error));
        QVERIFY2(error.isEmpty() == (frame < 24), qPrintable(error));
        // Cut on the right, filled up at the bottom.
        const unsigned char* last = image->row(63);
        QCOMPARE(last[0] == 0x80 && last[3 * 95] == 0x80, frame >= 24);
    }
}

void TestVideoFlaws::variableRateAndOblongPixelsAreTold()
{
    ClipOptions options = smallClip();
    options.pixelAspect = QSize(16, 15);
    options.ticksPerSecond = 1000;
    for (int frame = 0; frame < options.count; ++frame)
        options.stamps.push_back(frame < 60 ? frame * 40 : 60 * 40 + (frame - 60) * 80);
    QString error;
    const auto video = VideoFile::open(clip(QStringLiteral("odd.mkv"), options), error);
    QVERIFY2(video, qPrintable(error));
    QVERIFY2(video->rateText().startsWith(QStringLiteral("variable rate, 16.")),
             qPrintable(video->rateText()));
    QVERIFY2(video->remark().contains(QStringLiteral("not equally far apart")), qPrintable(video->remark()));
    QVERIFY2(video->remark().contains(QStringLiteral("not square (16 : 15)")), qPrintable(video->remark()));
}

void TestVideoFlaws::oneKeyAtTheStartServesAllFrames()
{
    ClipOptions options = smallClip();
    options.size = QSize(64, 48);
    options.texture = false;
    options.count = 3300;
    options.groupSize = 10000;
    options.encoder[QStringLiteral("preset")] = QStringLiteral("ultrafast");
    const QString file = clip(QStringLiteral("onekey.mkv"), options);
    QString error;
    const auto video = VideoFile::open(file, error, MediaSource::Progress(), 1 << 20);
    QVERIFY2(video, qPrintable(error));
    QCOMPARE(video->frameCount(), options.count);
    for (const int frame : {3200, 3050, 3299, 10}) {
        const auto image = video->readFrame(frame, error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QCOMPARE(ClipNumber::read(*image), frame);
    }
}

/// Of a video whose order only a decoder knows.
void TestVideoFlaws::leftOutFramesAreTold()
{
    ClipOptions options = smallClip();
    options.ticksPerSecond = 1000;
    for (int frame = 0; frame < options.count; ++frame)
        options.stamps.push_back(frame / 2 * 80);
    const QString good = clip(QStringLiteral("twins.mkv"), options);
    QString error;
    const auto whole = VideoFile::open(good, error);
    QVERIFY2(whole, qPrintable(error));
    QVERIFY(!whole->remark().contains(QStringLiteral("missing")));
    const auto [place, size] = ClipStamps::places(good)[65];
    QByteArray bytes = ClipFiles::content(good);
    // A container tells the place of the block, whose content follows behind a short head.
    constexpr qint64 kHead = 8;
    for (qint64 at = place + kHead; at < place + size; ++at)
        bytes[at] = '\0';
    const QString bad = path(QStringLiteral("gap.mkv"));
    QVERIFY(ClipFiles::write(bad, bytes));
    const auto video = VideoFile::open(bad, error);
    QVERIFY2(video, qPrintable(error));
    QCOMPARE(video->frameCount(), options.count - 1);
    QVERIFY2(video->remark().contains(QStringLiteral("so frames may be missing; copy it again")),
             qPrintable(video->remark()));
    QCOMPARE(ClipNumber::read(*video->readFrame(80, error)), 81);
}

MEASURE_TEST_MAIN(TestVideoFlaws)
#include "TestVideoFlaws.moc"
