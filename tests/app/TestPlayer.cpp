#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "MadeFiles.h"
#include "Media.h"
#include "Player.h"
#include "TestFont.h"
#include "TestSamples.h"
#include "TimelineDock.h"
#include "TimelineWindow.h"

#include <QAction>
#include <QComboBox>
#include <QSignalSpy>
#include <QStatusBar>
#include <QtTest>

namespace {

constexpr int kLast = TimelineWindow::kPages - 1;

Player& player(WindowFixture& aFixture)
{
    return aFixture.window().findChild<TimelineDock*>()->player();
}

QAction& playAction(WindowFixture& aFixture)
{
    return *aFixture.window().findChild<QAction*>(QStringLiteral("play"));
}

/// Notes which frames were played and on which the player stood.
class FrameWatch : public QObject
{
public:
    explicit FrameWatch(LmKSKernelData& aKernel)
    {
        connect(&aKernel, &LmKSKernelData::signalFrameReadyPlayout, this,
                [this](Int64 aFrame) { thePlayed.append(aFrame); });
        connect(&aKernel, &LmKSKernelData::signalFrameReadyStop, this,
                [this](Int64 aFrame) { theStopped.append(aFrame); });
    }

    QList<long long> thePlayed;
    QList<long long> theStopped;
};

} // namespace

/// Playing a sequence of pages, which have a tenth of a second each.
class TestPlayer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void playsToTheEndAndStandsThere();
    void playsEveryFrameWhereThereIsTime();
    void fromTheLastFrameItBeginsAgain();
    void loopGoesRoundAndRound();
    void playAndStopAreOneAction();
    void askingForAFrameStops();
    void pressOnThePictureStops();
    void keyThatChangesObjectsStops_data();
    void keyThatChangesObjectsStops();
    void damagedPageIsPlayedOver();
    void speedChangedAtTheSeamOfALoopKeepsTheRound();
    void otherFileStops();
    void singlePictureIsNotPlayed();
    void speedChangesAtOnceAndStaysInItsBounds();
    void timeIsKeptAtEverySpeed();
    void objectsFollowWhilePlaying();
};

void TestPlayer::playsToTheEndAndStandsThere()
{
    TimelineWindow f;
    player(f).setSpeed(8.0);
    const FrameWatch watch(f.kernel());
    playAction(f).trigger();
    QVERIFY(player(f).isPlaying());
    QTRY_VERIFY(!player(f).isPlaying());
    QCOMPARE(f.kernel().theCurrentFrame, unsigned(kLast));
    QCOMPARE(watch.theStopped, QList<long long>{kLast});
    QVERIFY(std::is_sorted(watch.thePlayed.begin(), watch.thePlayed.end()));
    QCOMPARE(watch.thePlayed.last(), kLast);
}

void TestPlayer::playsEveryFrameWhereThereIsTime()
{
    TimelineWindow f;
    const FrameWatch watch(f.kernel());
    f.goTo(kLast - 3);
    player(f).play();
    QTRY_VERIFY(!player(f).isPlaying());
    QCOMPARE(player(f).droppedFrames() + int(watch.thePlayed.size()), 3);
}

void TestPlayer::fromTheLastFrameItBeginsAgain()
{
    TimelineWindow f;
    f.goTo(kLast);
    player(f).setSpeed(8.0);
    player(f).play();
    QVERIFY(player(f).isPlaying());
    QCOMPARE(f.kernel().theCurrentFrame, 0U);
    QTRY_COMPARE(f.kernel().theCurrentFrame, unsigned(kLast));
    player(f).stop();
}

void TestPlayer::loopGoesRoundAndRound()
{
    TimelineWindow f;
    f.window().findChild<QAction*>(QStringLiteral("loop"))->setChecked(true);
    player(f).setSpeed(8.0);
    const FrameWatch watch(f.kernel());
    player(f).play();
    QTRY_VERIFY(watch.thePlayed.count(0) >= 2);
    QVERIFY(player(f).isPlaying());
    player(f).stop();
    QVERIFY(!player(f).isPlaying());
    QCOMPARE(watch.theStopped.size(), 1);
}

void TestPlayer::playAndStopAreOneAction()
{
    TimelineWindow f;
    QCOMPARE(playAction(f).text(), QStringLiteral("&Play"));
    f.key(Qt::Key_P, Qt::ControlModifier);
    QVERIFY(player(f).isPlaying());
    QCOMPARE(playAction(f).text(), QStringLiteral("Sto&p"));
    f.key(Qt::Key_P, Qt::ControlModifier);
    QVERIFY(!player(f).isPlaying());
    QCOMPARE(playAction(f).text(), QStringLiteral("&Play"));
}

void TestPlayer::askingForAFrameStops()
{
    TimelineWindow f;
    player(f).play();
    f.key(Qt::Key_PageDown);
    QVERIFY(!player(f).isPlaying());
    const unsigned frame = f.kernel().theCurrentFrame;
    player(f).play();
    f.goTo(5);
    QVERIFY(!player(f).isPlaying());
    QVERIFY(frame < 5);
    // A frame that was being read must not come afterwards.
    QCoreApplication::processEvents();
    QCOMPARE(f.kernel().theCurrentFrame, 5U);
}

void TestPlayer::pressOnThePictureStops()
{
    TimelineWindow f;
    player(f).play();
    f.press(QPoint(20, 20));
    QVERIFY(!player(f).isPlaying());
    f.release(QPoint(20, 20));
    QVERIFY(!player(f).isPlaying());
}

void TestPlayer::keyThatChangesObjectsStops_data()
{
    QTest::addColumn<int>("key");
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Down, Qt::Key_Delete, Qt::Key_Escape})
        QTest::addRow("%x", int(key)) << int(key);
}

void TestPlayer::keyThatChangesObjectsStops()
{
    QFETCH(int, key);
    TimelineWindow f;
    player(f).play();
    f.key(Qt::Key(key));
    QVERIFY(!player(f).isPlaying());
}

void TestPlayer::damagedPageIsPlayedOver()
{
    WindowFixture f;
    const QImage page = madePicture(400, 300);
    const QString path = f.path(QStringLiteral("damaged.tif"));
    MadeFiles::write(path, MadeFiles::withDamagedPage({page, page, page, page}, 2));
    QVERIFY(f.window().openAtStart(path));
    const FrameWatch watch(f.kernel());
    player(f).play();
    QTRY_VERIFY(!player(f).isPlaying());
    QCOMPARE(f.kernel().theCurrentFrame, 3U);
    QCOMPARE(watch.theStopped, QList<long long>{3});
    // And stepped over, told.
    f.key(Qt::Key_PageUp);
    QCOMPARE(f.kernel().theCurrentFrame, 2U);
    QVERIFY(f.window().statusBar()->currentMessage().contains(QStringLiteral("damaged")));
    f.key(Qt::Key_PageUp);
    QCOMPARE(f.kernel().theCurrentFrame, 1U);
}

void TestPlayer::speedChangedAtTheSeamOfALoopKeepsTheRound()
{
    TimelineWindow f;
    player(f).setLooping(true);
    player(f).setSpeed(1.0);
    const FrameWatch watch(f.kernel());
    f.goTo(kLast - 1);
    player(f).play();
    QTRY_COMPARE(f.kernel().theCurrentFrame, unsigned(kLast)); // the player waits for the first frame now
    player(f).setSpeed(2.0);
    QTRY_VERIFY(watch.thePlayed.size() >= 3);
    player(f).stop();
    QCOMPARE(watch.thePlayed[1], 0);
    QVERIFY2(watch.thePlayed[2] < kLast / 2, qPrintable(QString::number(watch.thePlayed[2])));
}

void TestPlayer::otherFileStops()
{
    TimelineWindow f;
    player(f).play();
    QVERIFY(f.window().openAtStart(f.picturePath()));
    QVERIFY(!player(f).isPlaying());
    QCoreApplication::processEvents();
    QCOMPARE(f.kernel().theCurrentFrame, 0U);
    QVERIFY(!playAction(f).isEnabled());
}

void TestPlayer::singlePictureIsNotPlayed()
{
    WindowFixture f;
    QVERIFY(!playAction(f).isEnabled());
    player(f).play();
    QVERIFY(!player(f).isPlaying());
}

void TestPlayer::speedChangesAtOnceAndStaysInItsBounds()
{
    TimelineWindow f;
    player(f).setSpeed(100.0);
    QCOMPARE(player(f).speed(), Player::kFastest);
    player(f).setSpeed(0.0);
    QCOMPARE(player(f).speed(), Player::kSlowest);
    player(f).play(); // a frame lasts 0.8 s now
    auto* speeds = f.window().findChild<QComboBox*>(QStringLiteral("speed"));
    QCOMPARE(speeds->count(), 7);
    speeds->setCurrentIndex(speeds->count() - 1);
    QCOMPARE(player(f).speed(), Player::kFastest);
    QTRY_VERIFY_WITH_TIMEOUT(!player(f).isPlaying(), 2000);
}

void TestPlayer::timeIsKeptAtEverySpeed()
{
    TimelineWindow f;
    for (const double speed : {2.0, 4.0}) {
        f.goTo(0);
        player(f).setSpeed(speed);
        QElapsedTimer clock;
        clock.start();
        player(f).play();
        QTRY_VERIFY(!player(f).isPlaying());
        // Never too early; how late depends on the machine.
        QVERIFY(double(clock.elapsed()) >= kLast * 1000.0 / Player::kPictureRate / speed - 2.0);
    }
}

void TestPlayer::objectsFollowWhilePlaying()
{
    TimelineWindow f;
    f.drawMoving({kLast});
    f.goTo(0);
    const Q3CanvasItem* item = f.distanceTool()->getCvObject(1);
    const int start = item->boundingRect().left();
    QList<long long> ways;
    const FrameWatch watch(f.kernel());
    QObject listener;
    connect(&f.kernel(), &LmKSKernelData::signalFrameReadyPlayout, &listener,
            [&] { ways.append(item->boundingRect().left() - start); });
    player(f).setSpeed(4.0);
    player(f).play();
    QTRY_VERIFY(!player(f).isPlaying());
    QVERIFY(!ways.isEmpty());
    QCOMPARE(ways, watch.thePlayed); // a pixel a frame
}

MEASURE_TEST_MAIN(TestPlayer)
#include "TestPlayer.moc"
