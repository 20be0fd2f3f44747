#include "VideoIndex.h"

#include "TestFont.h"
#include "VideoTimes.h"

#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>

namespace {

constexpr qint64 kNone = VideoPacket::kNone;

VideoPacket packet(qint64 aShown, bool aIsKey = false)
{
    VideoPacket made;
    made.theShown = aShown;
    made.theKey = aIsKey;
    return made;
}

/// Packets of the given stamps in the order of decoding, the key ones named by their serials, ordered by
/// stamp.
VideoIndex indexOf(const std::vector<qint64>& aStamps, const std::vector<int>& aKeys)
{
    VideoIndex index;
    for (size_t serial = 0; serial < aStamps.size(); ++serial)
        index.add(packet(aStamps[serial], std::count(aKeys.begin(), aKeys.end(), int(serial)) > 0));
    index.finish();
    if (const auto order = index.orderByStamps())
        index.setOrder(*order);
    return index;
}

/// The frames in the order of decoding, for times.
VideoTimes videoTimesOf(const std::vector<qint64>& aShown, const std::vector<qint64>& aDecoded)
{
    VideoIndex index;
    std::vector<int> serials;
    for (size_t serial = 0; serial < aShown.size(); ++serial) {
        VideoPacket made = packet(aShown[serial]);
        made.theDecoded = aDecoded[serial];
        index.add(made);
        serials.push_back(int(serial));
    }
    index.finish();
    index.setOrder(serials);
    return VideoTimes(index, 1.0, 2.0);
}

FrameTimes timesOf(const std::vector<qint64>& aShown, const std::vector<qint64>& aDecoded)
{
    return videoTimesOf(aShown, aDecoded).times();
}

/// Every second tick from a first one on.
std::vector<qint64> evenStamps(int aCount, qint64 aFirst = 0)
{
    std::vector<qint64> stamps;
    for (int frame = 0; frame < aCount; ++frame)
        stamps.push_back(aFirst + 2 * frame);
    return stamps;
}

std::vector<double> all(const FrameTimes& aTimes)
{
    std::vector<double> seconds;
    for (int frame = 0; frame < aTimes.count(); ++frame)
        seconds.push_back(aTimes.at(frame));
    return seconds;
}

} // namespace

class TestVideoIndex : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void singleWrongStampIsDropped_data();
    void singleWrongStampIsDropped();
    void fewMissingStampsComeFromTheirNeighbours();
    void timesOfAJoinedRecordingAreContinued();
    void framesAreOrderedByStamps();
    void missingOrEqualStampsGiveNoOrder();
    void hiddenPacketsAreNoFrames();
    void frameBeforeItsKeyNeedsTheGroupBefore();
    void hiddenKeyIsNoStart();
    void depthIsHowManyFramesWait();
    void packetIsFoundByContentPlaceAndStamp();
    void likePacketsAreFoundByStampOrNotAtAll();
    void foundIsWhatASearchOfAllFinds();
    void timesAreTheSortedStamps();
    void withoutStampsTimesOfDecodingServe();
    void gapsBetweenStampsAreFilledEvenly();
    void withoutAnyStampTheUsualDistanceServes();
};

void TestVideoIndex::framesAreOrderedByStamps()
{
    const VideoIndex index = indexOf({0, 30, 10, 20, 40}, {0});
    QCOMPARE(index.frameCount(), 5);
    const std::vector<int> serials{0, 2, 3, 1, 4};
    for (int frame = 0; frame < 5; ++frame) {
        QCOMPARE(index.serialOf(frame), serials[size_t(frame)]);
        QCOMPARE(index.frameOf(serials[size_t(frame)]), frame);
    }
}

void TestVideoIndex::missingOrEqualStampsGiveNoOrder()
{
    QVERIFY(indexOf({0, 10, 20}, {0}).orderByStamps().has_value());
    QVERIFY(!indexOf({0, kNone, 20}, {0}).orderByStamps().has_value());
    QVERIFY(!indexOf({0, 20, 20}, {0}).orderByStamps().has_value());
}

void TestVideoIndex::hiddenPacketsAreNoFrames()
{
    VideoIndex index;
    for (const qint64 stamp : {-20, -10, 0, 10}) {
        VideoPacket made = packet(stamp, stamp == -20);
        made.theHidden = stamp < 0;
        index.add(made);
    }
    index.finish();
    const auto order = index.orderByStamps();
    QVERIFY(order.has_value());
    QCOMPARE(*order, (std::vector<int>{2, 3}));
    index.setOrder(*order);
    QCOMPARE(index.frameOf(0), -1);
    QCOMPARE(index.frameOf(3), 1);
}

void TestVideoIndex::frameBeforeItsKeyNeedsTheGroupBefore()
{
    // The second key, packet 3, is shown after the packets 4 and 5, which need the group before.
    const VideoIndex index = indexOf({0, 10, 20, 50, 30, 40, 60}, {0, 3});
    QCOMPARE(index.keyFor(6, index.serialOf(6)), 3);
    QCOMPARE(index.keyFor(5, index.serialOf(5)), 3);
    QCOMPARE(index.keyFor(4, index.serialOf(4)), 0);
    QCOMPARE(index.keyFor(3, index.serialOf(3)), 0);
    QCOMPARE(index.keyFor(6, 2), 0);
    QCOMPARE(index.keyFor(6, -1), -1);
}

void TestVideoIndex::hiddenKeyIsNoStart()
{
    VideoIndex index;
    for (const qint64 stamp : {-10, 0, 10}) {
        VideoPacket made = packet(stamp, stamp < 0);
        made.theHidden = stamp < 0;
        index.add(made);
    }
    index.finish();
    index.setOrder(*index.orderByStamps());
    QCOMPARE(index.keyFor(1, index.serialOf(1)), -1);
}

void TestVideoIndex::depthIsHowManyFramesWait()
{
    QCOMPARE(indexOf({0, 10, 20, 30}, {0}).reorderDepth(), 0);
    QCOMPARE(indexOf({0, 30, 10, 20}, {0}).reorderDepth(), 1);
    QCOMPARE(indexOf({0, 40, 20, 10, 30}, {0}).reorderDepth(), 2);
}

void TestVideoIndex::packetIsFoundByContentPlaceAndStamp()
{
    VideoIndex index;
    for (int serial = 0; serial < 4; ++serial) {
        VideoPacket made = packet(serial * 10);
        made.theDigest = quint32(serial % 2);
        made.thePlace = serial * 100;
        made.theSize = 7;
        index.add(made);
    }
    index.finish();
    VideoPacket wanted = index.packet(3);
    QCOMPARE(index.find(wanted), 3);
    wanted.theShown = kNone; // as some containers do after a seek
    QCOMPARE(index.find(wanted), 3);
    wanted.theSize = 8;
    QCOMPARE(index.find(wanted), -1);
    wanted = index.packet(2);
    wanted.theDigest = 5;
    QCOMPARE(index.find(wanted), -1);
    QVERIFY(index.isSame(1, index.packet(1)) && !index.isSame(1, index.packet(3)));
    QVERIFY(!index.isSame(4, index.packet(3)) && !index.isSame(-1, index.packet(3)));
}

void TestVideoIndex::likePacketsAreFoundByStampOrNotAtAll()
{
    VideoIndex index;
    for (int serial = 0; serial < 3; ++serial)
        index.add(packet(serial * 10)); // without places
    index.finish();
    QCOMPARE(index.find(index.packet(1)), 1);
    QCOMPARE(index.find(packet(kNone)), -1);
    QCOMPARE(index.find(packet(15)), -1);
}

void TestVideoIndex::foundIsWhatASearchOfAllFinds()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    VideoIndex index;
    for (int serial = 0; serial < 300; ++serial) {
        VideoPacket made = packet(random.bounded(200));
        made.theDigest = quint32(random.bounded(100));
        made.theSize = random.bounded(2);
        made.thePlace = random.bounded(4) == 0 ? -1 : serial;
        index.add(made);
    }
    index.finish();
    int found = 0;
    for (int serial = 0; serial < 300; ++serial) {
        const VideoPacket& wanted = index.packet(serial);
        std::vector<int> alike;
        for (int other = 0; other < 300; ++other)
            if (index.isSame(other, wanted))
                alike.push_back(other);
        std::vector<int> exact;
        std::copy_if(alike.begin(), alike.end(), std::back_inserter(exact),
                     [&](int aOther) { return index.packet(aOther).theShown == wanted.theShown; });
        const int expected = alike.size() == 1 || exact.size() == 1 ? serial : -1;
        QCOMPARE(index.find(wanted), expected);
        found += expected >= 0;
    }
    QVERIFY(found > 0);
}

void TestVideoIndex::timesAreTheSortedStamps()
{
    QCOMPARE(all(timesOf({5, 7, 8}, {kNone, kNone, kNone})), (std::vector<double>{5, 7, 8}));
    QCOMPARE(all(timesOf({5, 8, 7}, {0, 1, 2})), (std::vector<double>{5, 7, 8}));
}

void TestVideoIndex::withoutStampsTimesOfDecodingServe()
{
    QCOMPARE(all(timesOf({kNone, 9, kNone}, {0, 2, 1})), (std::vector<double>{0, 1, 2}));
}

void TestVideoIndex::gapsBetweenStampsAreFilledEvenly()
{
    QCOMPARE(all(timesOf({kNone, 10, kNone, kNone, 16, kNone}, std::vector<qint64>(6, kNone))),
             (std::vector<double>{8, 10, 12, 14, 16, 18}));
    // A stamp that goes back counts as none.
    QCOMPARE(all(timesOf({10, 3, 14, kNone}, std::vector<qint64>(4, kNone))),
             (std::vector<double>{10, 12, 14, 16}));
}

void TestVideoIndex::withoutAnyStampTheUsualDistanceServes()
{
    QCOMPARE(all(timesOf({kNone, kNone, kNone}, std::vector<qint64>(3, kNone))),
             (std::vector<double>{0, 2, 4}));
}

void TestVideoIndex::singleWrongStampIsDropped_data()
{
    QTest::addColumn<int>("frame");
    QTest::addColumn<qint64>("stamp");
    QTest::newRow("far too early") << 30 << qint64(0);
    QTest::newRow("far too late") << 10 << qint64(1'000'000);
    QTest::newRow("negative") << 38 << qint64(-5000);
}

void TestVideoIndex::singleWrongStampIsDropped()
{
    QFETCH(int, frame);
    QFETCH(qint64, stamp);
    const std::vector<qint64> right = evenStamps(40);
    std::vector<qint64> stamps = right;
    stamps[size_t(frame)] = stamp;
    const VideoTimes times = videoTimesOf(stamps, right);
    QCOMPARE(times.restart(), 0);
    QCOMPARE(all(times.times()), std::vector<double>(right.begin(), right.end()));
}

void TestVideoIndex::fewMissingStampsComeFromTheirNeighbours()
{
    const std::vector<qint64> right = evenStamps(40);
    std::vector<qint64> stamps = right;
    stamps[0] = stamps[17] = stamps[18] = stamps[39] = VideoPacket::kNone;
    // The packets are decoded two frames before they are shown.
    const VideoTimes times = videoTimesOf(stamps, evenStamps(40, -4));
    QCOMPARE(all(times.times()), std::vector<double>(right.begin(), right.end()));
}

void TestVideoIndex::timesOfAJoinedRecordingAreContinued()
{
    std::vector<qint64> stamps = evenStamps(40);
    const std::vector<qint64> second = evenStamps(50, 1);
    stamps.insert(stamps.end(), second.begin(), second.end());
    const VideoTimes times = videoTimesOf(stamps, stamps);
    QCOMPARE(times.restart(), 40);
    const std::vector<qint64> wanted = evenStamps(90);
    QCOMPARE(all(times.times()), std::vector<double>(wanted.begin(), wanted.end()));
}

MEASURE_TEST_MAIN(TestVideoIndex)
#include "TestVideoIndex.moc"
