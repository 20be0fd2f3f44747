#include "AnimatedObjects.h"
#include "AnimatedValues.h"
#include "BenchState.h"
#include "Drawn.h"
#include "FrameGuard.h"
#include "LmCvManipulator.h"
#include "LmImage.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "Media.h"
#include "PictureValues.h"
#include "TestBench.h"
#include "TestFont.h"
#include "ValueSampler.h"

#include <QSignalSpy>

#include <cmath>

using AnimatedObjects::kRegionType;

/// Values of objects at every frame.
class TestValueSampler : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void distanceIsThatBetweenItsKeyframes_data();
    void distanceIsThatBetweenItsKeyframes();
    void longAnimationIsThatOfTheTool();
    void keyframesAreMarked();
    void slopeOfNoLengthIsAGap();
    void pathOfARegionHasItsKeyframesOnly();
    void lightnessIsThatOfEachPage();
    void pictureThatCannotBeReadIsAGap();
    void cancelledReadingLeavesNothing();
    void counterNeedsNoPictures();
    void guardPutsEverythingBack();
    void samplingTellsNobody();
    void restingObjectHasNoValues();

private:
    static LmCvManipulator& tool(int aType)
    {
        return *LmKSKernelData::getInstance()->getCvManipulator(aType);
    }
    static ValueSeries sampled(int aType, int aIdx, const QString& aName)
    {
        const LmKernelObjectData* record = AnimatedValues::record(aType, aIdx);
        if (!record)
            return ValueSeries();
        ValueSampler sampler(tool(aType), *record, {aName});
        for (int frame = 0; frame < LmKSKernelData::getInstance()->theFrameCount; ++frame)
            sampler.sample(frame);
        return sampler.take().front();
    }
    static void open(TestBench& aBench, const QList<int>& aGrays)
    {
        AnimatedObjects::openGrays(aBench, aBench.path(QStringLiteral("grays.tif")), QSize(120, 80), aGrays);
    }
};

static const QList<int> kGrays{20, 60, 100, 140, 180, 220};
static const auto kGoOn = [](qint64, qint64) { return true; };

void TestValueSampler::distanceIsThatBetweenItsKeyframes_data()
{
    QTest::addColumn<double>("width"); // of the picture of 120 pixels, in units; 0 without calibration
    QTest::newRow("pixels") << 0.0;
    QTest::newRow("calibrated") << 30.0;
}

void TestValueSampler::distanceIsThatBetweenItsKeyframes()
{
    QFETCH(double, width);
    TestBench bench;
    open(bench, kGrays);
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    if (width > 0.0) {
        kernel->setCalibration(QStringLiteral("lens"), LmCalibData{width, QStringLiteral("mm")});
        kernel->setCurrentCalibration(QStringLiteral("lens"));
    }
    const int idx = AnimatedObjects::addDistance(
        bench, {{1, QPoint(10, 10), QPoint(30, 10)}, {4, QPoint(10, 10), QPoint(90, 70)}});
    const ValueSeries series = sampled(kDistanceType, idx, QStringLiteral("Distance"));
    QCOMPARE(series.theUnit, width > 0.0 ? QStringLiteral("mm") : QString());
    QCOMPARE(series.theSamples.size(), size_t(6));
    for (const ValueSample& sample : series.theSamples) {
        // Half the line goes from (10, 0) to (40, 30) between the frames 1 and 4.
        const double part = qBound(0, sample.theFrame - 1, 3) / 3.0;
        const double dx = 2.0 * std::round(10.0 + 30.0 * part);
        const double dy = 2.0 * std::round(30.0 * part);
        const double step = width > 0.0 ? 120.0 / width : 1.0;
        QCOMPARE(sample.theValue, std::sqrt(dx * dx + dy * dy) / step);
    }
}

void TestValueSampler::longAnimationIsThatOfTheTool()
{
    TestBench bench;
    open(bench, QList<int>(300, 50));
    QList<AnimatedObjects::Line> lines;
    for (int frame = 0; frame < 300; frame += 1 + frame % 90)
        lines.append({frame, QPoint(10, 10), QPoint(10 + 2 * (frame % 37), 10 + 2 * (frame % 11))});
    const int idx = AnimatedObjects::addDistance(bench, lines);
    const ValueSeries series = sampled(kDistanceType, idx, QStringLiteral("Distance"));
    QCOMPARE(series.theSamples.size(), size_t(300));
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    for (const ValueSample& sample : series.theSamples) {
        kernel->theCurrentFrame = quint32(sample.theFrame);
        QStringList units;
        const double value =
            tool(kDistanceType).getValues({QStringLiteral("Distance")}, idx, units).first().toDouble();
        QCOMPARE(sample.theValue, value);
    }
    kernel->theCurrentFrame = 0;
}

void TestValueSampler::keyframesAreMarked()
{
    TestBench bench;
    open(bench, kGrays);
    const int idx = AnimatedObjects::addDistance(
        bench, {{1, QPoint(10, 10), QPoint(30, 10)}, {4, QPoint(10, 10), QPoint(90, 70)}});
    QList<int> marked;
    for (const ValueSample& sample : sampled(kDistanceType, idx, QStringLiteral("DX")).theSamples) {
        if (sample.theKeyframe)
            marked << sample.theFrame;
        QCOMPARE(sample.theJoined, sample.theFrame > 0);
    }
    QCOMPARE(marked, (QList<int>{1, 4}));
}

void TestValueSampler::slopeOfNoLengthIsAGap()
{
    TestBench bench;
    open(bench, kGrays);
    const int idx = AnimatedObjects::addDistance(bench, {{0, QPoint(10, 10), QPoint(30, 10)},
                                                         {2, QPoint(40, 40), QPoint(40, 40)},
                                                         {4, QPoint(10, 10), QPoint(30, 10)}});
    const ValueSeries series = sampled(kDistanceType, idx, QStringLiteral("Angle"));
    QList<int> frames;
    QList<int> unjoined;
    for (const ValueSample& sample : series.theSamples) {
        QVERIFY(std::isfinite(sample.theValue));
        frames << sample.theFrame;
        if (!sample.theJoined)
            unjoined << sample.theFrame;
    }
    QCOMPARE(frames, (QList<int>{0, 1, 3, 4, 5}));
    QCOMPARE(unjoined, (QList<int>{0, 3}));
    QCOMPARE(series.theUnit, QStringLiteral("\u00b0"));
}

void TestValueSampler::pathOfARegionHasItsKeyframesOnly()
{
    TestBench bench;
    open(bench, kGrays);
    const int idx =
        AnimatedObjects::addSquare(bench, 10, {{0, {20, 20}}, {2, {23, 24}}, {5, {20, 20}}, {9, {80, 20}}});
    LmCvManipulator& regions = tool(kRegionType);
    QCOMPARE(AnimatedValues::source(regions, QStringLiteral("Way dist.")), AnimatedValues::kKeyframes);
    const ValueSeries way = ValueSampler::ofKeyframes(regions, idx, QStringLiteral("Way dist."));
    const ValueSeries position = ValueSampler::ofKeyframes(regions, idx, QStringLiteral("Position"));
    // Frame 9 lies behind the last page.
    const QList<QPair<int, double>> wanted{{0, 0.0}, {2, 5.0}, {5, 10.0}};
    QList<QPair<int, double>> found;
    for (const ValueSample& sample : way.theSamples) {
        found.append({sample.theFrame, sample.theValue});
        QVERIFY(sample.theKeyframe);
        QCOMPARE(sample.theJoined, sample.theFrame > 0);
    }
    QCOMPARE(found, wanted);
    QCOMPARE(position.theSamples.back().theValue, 0.0);
}

void TestValueSampler::lightnessIsThatOfEachPage()
{
    TestBench bench;
    open(bench, kGrays);
    const QRect interest(20, 10, 60, 50);
    bench.media().setRegion(interest);
    const ValueKey key{kRegionType, AnimatedObjects::addSquare(bench, 10, {{0, {40, 30}}, {5, {60, 30}}}),
                       QStringLiteral("Avg. lightness")};
    QVERIFY(AnimatedValues::isFromPictures(key));
    const QString before = benchState(bench);
    QHash<ValueKey, ValueSeriesPtr> series;
    QVERIFY(PictureValues::sample(bench.media(), {key}, kGoOn, series));
    QCOMPARE(benchState(bench), before);
    QCOMPARE(series.size(), 1);
    const std::vector<ValueSample>& samples = series.value(key)->theSamples;
    QCOMPARE(samples.size(), size_t(kGrays.size()));
    for (const ValueSample& sample : samples)
        QCOMPARE(sample.theValue, kGrays[sample.theFrame] / 2.55);
    QCOMPARE(series.value(key)->theUnit, QStringLiteral("%"));
}

void TestValueSampler::pictureThatCannotBeReadIsAGap()
{
    TestBench bench;
    open(bench, kGrays);
    const int idx = AnimatedObjects::addSquare(bench, 10, {{0, {40, 30}}, {5, {60, 30}}});
    const LmKernelObjectData* record = AnimatedValues::record(kRegionType, idx);
    ValueSampler sampler(tool(kRegionType), *record, {QStringLiteral("Avg. lightness")});
    for (const int frame : {0, 1, 3}) {
        QString error;
        const std::unique_ptr<LmImage> image = bench.media().readFrame(frame, error);
        QVERIFY2(image, qPrintable(error));
        sampler.sample(frame, image.get());
    }
    const ValueSeries series = sampler.take().front();
    QCOMPARE(series.theSamples.size(), size_t(3));
    QVERIFY(series.theSamples[1].theJoined);
    QVERIFY(!series.theSamples[2].theJoined);

    QString error;
    QVERIFY(!bench.media().readFrame(6, error));
    QVERIFY(!error.isEmpty());
    QVERIFY(!bench.media().readFrame(-1, error));
    bench.media().openPlaceholder(QStringLiteral("gone.tif"), QSize(120, 80), 6);
    QVERIFY(!bench.media().readFrame(0, error));
}

void TestValueSampler::cancelledReadingLeavesNothing()
{
    TestBench bench;
    open(bench, kGrays);
    const ValueKey key{kRegionType, AnimatedObjects::addSquare(bench, 10, {{0, {40, 30}}}),
                       QStringLiteral("Avg. saturation")};
    const QString before = benchState(bench);
    QHash<ValueKey, ValueSeriesPtr> series;
    int asked = 0;
    QVERIFY(!PictureValues::sample(
        bench.media(), {key}, [&asked](qint64 aDone, qint64) { return ++asked, aDone < 3; }, series));
    QCOMPARE(asked, 4);
    QVERIFY(series.isEmpty());
    QCOMPARE(benchState(bench), before);
}

void TestValueSampler::counterNeedsNoPictures()
{
    TestBench bench;
    LmCvManipulator& counter = tool(1107);
    QCOMPARE(AnimatedValues::source(counter, counter.theValueNames.value(0)), AnimatedValues::kEveryFrame);
    LmCvManipulator& regions = tool(kRegionType);
    QCOMPARE(AnimatedValues::source(regions, QStringLiteral("Area")), AnimatedValues::kEveryFrame);
    QCOMPARE(AnimatedValues::source(regions, QStringLiteral("Avg. lightness")), AnimatedValues::kPictures);
}

void TestValueSampler::guardPutsEverythingBack()
{
    TestBench bench;
    open(bench, kGrays);
    QString error;
    QVERIFY(bench.media().showFrame(2, error));
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    LmImage* shown = kernel->theCurrentImage;
    LmImage other(4, 4, 1, nullptr, 1);
    {
        const FrameGuard guard(5, &other);
        QCOMPARE(kernel->theCurrentFrame, 5U);
        QCOMPARE(kernel->theCurrentImage, &other);
        const FrameGuard within(1);
        QCOMPARE(kernel->theCurrentFrame, 1U);
        QCOMPARE(kernel->theCurrentImage, &other);
    }
    QCOMPARE(kernel->theCurrentFrame, 2U);
    QCOMPARE(kernel->theCurrentImage, shown);
}

void TestValueSampler::samplingTellsNobody()
{
    TestBench bench;
    open(bench, kGrays);
    const int idx = AnimatedObjects::addSquare(bench, 10, {{0, {40, 30}}, {5, {60, 30}}});
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    QList<QSignalSpy*> spies;
    QObject owner;
    for (int i = kernel->metaObject()->methodOffset(); i < kernel->metaObject()->methodCount(); ++i) {
        const QMetaMethod method = kernel->metaObject()->method(i);
        if (method.methodType() == QMetaMethod::Signal) {
            spies << new QSignalSpy(kernel, method);
            spies.last()->setParent(&owner);
        }
    }
    QVERIFY(spies.size() >= 14);
    const QSignalSpy shown(&bench.media(), &Media::frameShown);
    QCOMPARE(sampled(kRegionType, idx, QStringLiteral("Area")).theSamples.size(), size_t(6));
    QHash<ValueKey, ValueSeriesPtr> series;
    QVERIFY(PictureValues::sample(bench.media(), {{kRegionType, idx, QStringLiteral("Avg. lightness")}},
                                  kGoOn, series));
    for (const QSignalSpy* spy : std::as_const(spies))
        QCOMPARE(spy->count(), 0);
    QCOMPARE(shown.count(), 0);
}

void TestValueSampler::restingObjectHasNoValues()
{
    TestBench bench;
    open(bench, kGrays);
    const int resting = ::addDistance(bench, QPoint(0, 0), QPoint(20, 0));
    QVERIFY(!AnimatedValues::record(kDistanceType, resting));
    const int noKeyframes = AnimatedObjects::addDistance(bench, {});
    QVERIFY(!AnimatedValues::record(kDistanceType, noKeyframes));
    QVERIFY(AnimatedValues::objects().isEmpty());
    const int animated = AnimatedObjects::addDistance(bench, {{0, QPoint(0, 0), QPoint(20, 0)}});
    const QList<ObjectValues> objects = AnimatedValues::objects();
    QCOMPARE(objects.size(), 1);
    QCOMPARE(objects[0].theIdx, animated);
    QCOMPARE(objects[0].theNames, tool(kDistanceType).theValueNames);
}

MEASURE_TEST_MAIN(TestValueSampler)
#include "TestValueSampler.moc"
