#include "VideoFile.h"

#include "ClipFiles.h"
#include "ClipNumber.h"
#include "ClipWriter.h"
#include "LmImage.h"
#include "TestFont.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

constexpr int kCount = 60;

/// The second part of a video has other stamps than the first.
ClipOptions partClip(qint64 aFirstStamp)
{
    ClipOptions options;
    options.codec = QStringLiteral("libx264");
    options.size = QSize(96, 64);
    options.count = kCount;
    options.texture = true;
    options.ticksPerSecond = 1000;
    for (int frame = 0; frame < kCount; ++frame)
        options.stamps.push_back(aFirstStamp + frame * 40);
    return options;
}

} // namespace

/// Videos that were made by putting one recording behind another.
class TestVideoJoints : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void overlappingRecordingsComeOneAfterTheOther();
    void timesGoOnWhereTheyStartAnew();
    void everyPartHasItsSetup();

private:
    QByteArray part(const QString& aName, const ClipOptions& aOptions);
    std::unique_ptr<VideoFile> open(const QString& aName, const QByteArray& aContent);

    QTemporaryDir theFolder;
};

void TestVideoJoints::initTestCase()
{
    QVERIFY2(ClipWriter::hasEncoder(QStringLiteral("libx264")), "the clips need the encoder libx264");
    QVERIFY(theFolder.isValid());
}

QByteArray TestVideoJoints::part(const QString& aName, const ClipOptions& aOptions)
{
    const QString path = theFolder.filePath(aName);
    return ClipWriter::write(path, aOptions) ? ClipFiles::content(path) : QByteArray();
}

std::unique_ptr<VideoFile> TestVideoJoints::open(const QString& aName, const QByteArray& aContent)
{
    const QString path = theFolder.filePath(aName);
    QString error;
    auto video = ClipFiles::write(path, aContent) ? VideoFile::open(path, error) : nullptr;
    if (!video)
        qWarning("%s", qUtf8Printable(error));
    return video;
}

void TestVideoJoints::overlappingRecordingsComeOneAfterTheOther()
{
    const auto video =
        open(QStringLiteral("overlapping.ts"),
             part(QStringLiteral("first.ts"), partClip(0)) + part(QStringLiteral("second.ts"), partClip(13)));
    QVERIFY(video);
    const int count = video->frameCount();
    QCOMPARE(count, 2 * kCount);
    QString error;
    for (const int frame : {0, 20, 40})
        QCOMPARE(ClipNumber::read(*video->readFrame(frame, error)), frame);
    QCOMPARE(ClipNumber::read(*video->readFrame(count - 1, error)), kCount - 1);
}

void TestVideoJoints::timesGoOnWhereTheyStartAnew()
{
    const auto video = open(QStringLiteral("anew.ts"), part(QStringLiteral("first.ts"), partClip(0)) +
                                                           part(QStringLiteral("second.ts"), partClip(13)));
    QVERIFY(video);
    const FrameTimes& times = video->times();
    for (int frame = 1; frame < times.count(); ++frame)
        QVERIFY2(std::abs(times.at(frame) - times.at(frame - 1) - 0.04) < 1e-4,
                 qPrintable(QStringLiteral("frame %1: %2 after %3")
                                .arg(frame)
                                .arg(times.at(frame))
                                .arg(times.at(frame - 1))));
    QVERIFY2(video->remark().contains(QStringLiteral("start again at frame 61; from there on")),
             qPrintable(video->remark()));
}

/// The second recording was made with another encoder, so that its frames are garbage with the first one's
/// setup; the container tells the change where it happens only.
void TestVideoJoints::everyPartHasItsSetup()
{
    constexpr qsizetype kFileHead = 13;
    const QByteArray first = part(QStringLiteral("first.flv"), partClip(0));
    ClipOptions other = partClip(kCount * 40);
    other.encoder[QStringLiteral("preset")] = QStringLiteral("medium");
    const auto video =
        open(QStringLiteral("setups.flv"), first + part(QStringLiteral("second.flv"), other).mid(kFileHead));
    QVERIFY(video);
    QCOMPARE(video->frameCount(), 2 * kCount);
    for (const int frame : {0, 65, 10, 100, 119, 40, 62, 59, 60, 3, 90}) {
        QString error;
        const auto image = video->readFrame(frame, error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QCOMPARE(ClipNumber::read(*image), frame % kCount);
    }
}

MEASURE_TEST_MAIN(TestVideoJoints)
#include "TestVideoJoints.moc"
