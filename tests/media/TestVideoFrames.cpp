#include "VideoFile.h"

#include "ClipNumber.h"
#include "ClipStamps.h"
#include "ClipWriter.h"
#include "LmImage.h"
#include "SampleClips.h"
#include "TestFont.h"

#include <QRandomGenerator>
#include <QtTest>

class TestVideoFrames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyFrameIsItselfAfterSeeksAndSteps_data() { addClips(); }
    void everyFrameIsItselfAfterSeeksAndSteps();
    void everyFrameIsItselfForwardAndBackward_data() { addClips(); }
    void everyFrameIsItselfForwardAndBackward();
    void roomForTwoFramesIsEnough_data() { addClips(); }
    void roomForTwoFramesIsEnough();
    void timesAreThoseOfTheContainer_data() { addClips(); }
    void timesAreThoseOfTheContainer();
    void frameHasTheSameBytesHoweverItIsReached_data() { addClips(); }
    void frameHasTheSameBytesHoweverItIsReached();

private:
    void addClips();
    std::unique_ptr<VideoFile> open(const QString& aName, qint64 aCacheLimit = VideoFile::kCacheBytes);
    int numberOf(VideoFile& aVideo, int aFrame);

    SampleClips theClips;
    SampleClips::Clip theClip;
    quint32 theSeed = 0;
};

void TestVideoFrames::initTestCase()
{
    QVERIFY2(ClipWriter::hasEncoder(QStringLiteral("libx264")), "the clips need the encoder libx264");
    QVERIFY(theClips.write());
    theSeed = QRandomGenerator::global()->generate();
    qInfo("seed %u", theSeed);
}

void TestVideoFrames::addClips()
{
    QTest::addColumn<QString>("name");
    const QStringList names = theClips.names();
    for (const QString& name : names)
        QTest::newRow(qPrintable(name)) << name;
}

/// The clip of the test's row.
std::unique_ptr<VideoFile> TestVideoFrames::open(const QString& aName, qint64 aCacheLimit)
{
    theClip = theClips.clip(aName);
    QString error;
    std::unique_ptr<VideoFile> video =
        VideoFile::open(theClip.thePath, error, MediaSource::Progress(), aCacheLimit);
    if (!video)
        qWarning("%s", qUtf8Printable(error));
    return video;
}

/// The number on the frame, counted from the first that is shown; -1 where there is a flaw.
int TestVideoFrames::numberOf(VideoFile& aVideo, int aFrame)
{
    QString error;
    const std::unique_ptr<LmImage> image = aVideo.readQuickFrame(aFrame, error);
    if (!image || !error.isEmpty()) {
        qWarning("frame %d: %s", aFrame, qUtf8Printable(error));
        return -1;
    }
    return ClipNumber::read(*image) - theClip.theFirst;
}

void TestVideoFrames::everyFrameIsItselfAfterSeeksAndSteps()
{
    QFETCH(QString, name);
    const auto video = open(name);
    QVERIFY(video);
    QCOMPARE(video->frameCount(), theClip.theCount);
    QRandomGenerator random(theSeed);
    int frame = 0;
    for (int step = 0; step < 1000; ++step) {
        const int way = random.bounded(4);
        frame =
            way < 2 ? random.bounded(theClip.theCount) : qBound(0, frame + 2 * way - 5, theClip.theCount - 1);
        QCOMPARE(numberOf(*video, frame), frame);
    }
}

void TestVideoFrames::everyFrameIsItselfForwardAndBackward()
{
    QFETCH(QString, name);
    const auto video = open(name);
    QVERIFY(video);
    for (int frame = 0; frame < video->frameCount(); ++frame)
        QCOMPARE(numberOf(*video, frame), frame);
    const auto again = open(name);
    for (int frame = video->frameCount() - 1; frame >= 0; --frame)
        QCOMPARE(numberOf(*again, frame), frame);
}

void TestVideoFrames::roomForTwoFramesIsEnough()
{
    QFETCH(QString, name);
    // A frame of 64 x 48 pixels with the margins that decoders want.
    constexpr qint64 kLimit = 40'000;
    const auto video = open(name, kLimit);
    QVERIFY(video);
    QRandomGenerator random(theSeed);
    qint64 most = 0;
    int frame = 0;
    for (int step = 0; step < 200; ++step) {
        const int way = random.bounded(4);
        frame =
            way < 2 ? random.bounded(theClip.theCount) : qBound(0, frame + 2 * way - 5, theClip.theCount - 1);
        QCOMPARE(numberOf(*video, frame), frame);
        most = qMax(most, video->cachedBytes());
    }
    QVERIFY(most <= kLimit);
}

void TestVideoFrames::timesAreThoseOfTheContainer()
{
    QFETCH(QString, name);
    const auto video = open(name);
    QVERIFY(video);
    std::vector<double> told = ClipStamps::read(theClip.thePath, theClip.theDecoded);
    QCOMPARE(video->times().count(), theClip.theCount);
    // Of two fields that are told alone the first one's time counts.
    const size_t fields = told.size() == 2 * size_t(theClip.theCount) ? 2 : 1;
    QCOMPARE(told.size(), size_t(theClip.theCount) * fields);
    for (int frame = 0; frame < theClip.theCount; ++frame)
        QCOMPARE(video->times().at(frame), told[size_t(frame) * fields]);
}

void TestVideoFrames::frameHasTheSameBytesHoweverItIsReached()
{
    QFETCH(QString, name);
    const auto video = open(name);
    QVERIFY(video);
    const auto bytes = [](VideoFile& aVideo, int aFrame) {
        QString error;
        const std::unique_ptr<LmImage> image = aVideo.readFrame(aFrame, error);
        return image ? QByteArray(reinterpret_cast<const char*>(image->row(0)),
                                  qsizetype(image->bytesPerLine()) * image->height())
                     : QByteArray();
    };
    std::vector<QByteArray> inOrder;
    for (int frame = 0; frame < video->frameCount(); ++frame)
        inOrder.push_back(bytes(*video, frame));
    QRandomGenerator random(theSeed);
    constexpr qint64 kRoomForFew = 100'000;
    const auto other = open(name, kRoomForFew);
    for (int step = 0; step < 60; ++step) {
        const int frame = random.bounded(video->frameCount());
        QVERIFY(!inOrder[size_t(frame)].isEmpty());
        QVERIFY2(bytes(*other, frame) == inOrder[size_t(frame)], qPrintable(QString::number(frame)));
    }
}

MEASURE_TEST_MAIN(TestVideoFrames)
#include "TestVideoFrames.moc"
