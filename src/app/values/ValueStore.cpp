#include "ValueStore.h"

#include "LmCvManipulator.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "Media.h"
#include "ValueSampler.h"

#include <QElapsedTimer>

namespace {

constexpr int kSliceTime = 20;  // ms; short enough for the mouse not to lag
constexpr int kNewsTime = 200;  // ms; often enough to see that it goes on
constexpr int kQuickTime = 100; // ms; what seems to be at once

LmKSKernelData& kernel()
{
    return *LmKSKernelData::getInstance();
}

} // namespace

/// The object that is being measured.
struct ValueStore::Job
{
    Job(const ObjectValues& aObject, LmCvManipulator& aTool, const LmKernelObjectData& aRecord)
        : theObject(aObject), theSampler(aTool, aRecord, aObject.theNames)
    {
    }

    ObjectValues theObject;
    ValueSampler theSampler;
    int theFrame = 0;
};

ValueStore::ValueStore(Media& aMedia, QObject* aParent) : QObject(aParent), theMedia(aMedia)
{
    theNews.setSingleShot(true);
    connect(&theNews, &QTimer::timeout, this, &ValueStore::changed);
    connect(&theSlice, &QTimer::timeout, this, &ValueStore::work);
    connect(&kernel(), &LmKSKernelData::signalObjectCreated, this, &ValueStore::forget);
    connect(&kernel(), &LmKSKernelData::signalObjectChanged, this, &ValueStore::forget);
    connect(&kernel(), &LmKSKernelData::signalObjectRemoved, this, &ValueStore::forget);
    connect(&kernel(), &LmKSKernelData::signalObjectColorChanged, this, [this] { theNews.start(0); });
    connect(&kernel(), &LmKSKernelData::signalAfterCalibrationChanged, this, &ValueStore::forgetAll);
    connect(&theMedia, &Media::opened, this, &ValueStore::forgetEverything);
    connect(&theMedia, &Media::frameCountChanged, this, &ValueStore::forgetEverything);
    connect(&theMedia, &Media::resolutionChanged, this, &ValueStore::forgetEverything);
}

ValueStore::~ValueStore() = default;

void ValueStore::forget(int aType, int aIdx)
{
    LmCvManipulator* tool = kernel().getCvManipulator(aType);
    const bool allOfType = tool && tool->allObjectsNeedRecalc();
    const QList<ValueKey> keys = theSeries.keys();
    for (const ValueKey& key : keys) {
        if (key.theType != aType || (key.theIdx != aIdx && !allOfType))
            continue;
        if (AnimatedValues::isFromPictures(key) || !AnimatedValues::record(key.theType, key.theIdx))
            theSeries.remove(key);
        else
            theStale.insert(key);
    }
    restart();
}

void ValueStore::forgetAll()
{
    const QList<ValueKey> keys = theSeries.keys();
    for (const ValueKey& key : keys) {
        if (AnimatedValues::isFromPictures(key))
            theSeries.remove(key);
        else
            theStale.insert(key);
    }
    restart();
}

void ValueStore::forgetEverything()
{
    theSeries.clear();
    theStale.clear();
    thePictureTime = -1;
    restart();
}

/// Stops what is under way, since it may be about what has just changed.
void ValueStore::restart()
{
    theSlice.stop();
    theJob.reset();
    theQueue.clear();
    theNews.start(0);
}

void ValueStore::want(const QList<ValueKey>& aKeys)
{
    theWanted = aKeys;
    QList<ValueKey> missing;
    for (const ValueKey& key : aKeys)
        if ((!theSeries.contains(key) || theStale.contains(key)) && !AnimatedValues::isFromPictures(key))
            missing.append(key);
    const QList<ObjectValues> queue = AnimatedValues::grouped(missing);
    QList<ObjectValues> present = theQueue;
    if (theJob)
        present.prepend(theJob->theObject);
    if (queue == present)
        return;
    theJob.reset();
    theQueue = queue;
    if (theQueue.isEmpty())
        theSlice.stop();
    else
        theSlice.start(0);
}

void ValueStore::work()
{
    QElapsedTimer time;
    time.start();
    while (time.elapsed() < kSliceTime) {
        if (!theJob && !startJob())
            break;
        if (theJob->theFrame < theMedia.frameCount())
            theJob->theSampler.sample(theJob->theFrame++);
        else
            finishJob();
    }
    if (theJob || !theQueue.isEmpty())
        return;
    theSlice.stop();
    theNews.start(0);
}

/// Values at keyframes come at once; the others make a job. False when there is nothing left to do.
bool ValueStore::startJob()
{
    while (!theQueue.isEmpty()) {
        ObjectValues object = theQueue.takeFirst();
        LmCvManipulator* tool = kernel().getCvManipulator(object.theType);
        const LmKernelObjectData* record = AnimatedValues::record(object.theType, object.theIdx);
        if (!tool || !record)
            continue;
        const QStringList names = std::exchange(object.theNames, QStringList());
        for (const QString& name : names) {
            const ValueKey key{object.theType, object.theIdx, name};
            if (AnimatedValues::source(*tool, name) == AnimatedValues::kEveryFrame) {
                object.theNames.append(name);
                continue;
            }
            theSeries.insert(key, std::make_shared<const ValueSeries>(
                                      ValueSampler::ofKeyframes(*tool, object.theIdx, name)));
            theStale.remove(key);
        }
        if (object.theNames.isEmpty())
            continue;
        theJob = std::make_unique<Job>(object, *tool, *record);
        return true;
    }
    return false;
}

void ValueStore::finishJob()
{
    const std::unique_ptr<Job> job = std::move(theJob);
    std::vector<ValueSeries> series = job->theSampler.take();
    for (qsizetype i = 0; i < job->theObject.theNames.size(); ++i) {
        const ValueKey key{job->theObject.theType, job->theObject.theIdx, job->theObject.theNames[i]};
        theSeries.insert(key, std::make_shared<const ValueSeries>(std::move(series[size_t(i)])));
        theStale.remove(key);
    }
    if (!theNews.isActive())
        theNews.start(kNewsTime); // many curves that come one after the other are drawn together
}

QHash<ValueKey, ValueSeriesPtr> ValueStore::known() const
{
    QHash<ValueKey, ValueSeriesPtr> known = theSeries;
    for (const ValueKey& key : theStale)
        known.remove(key);
    return known;
}

QList<ValueKey> ValueStore::missingPictures() const
{
    QList<ValueKey> missing;
    for (const ValueKey& key : theWanted)
        if (!theSeries.contains(key) && AnimatedValues::isFromPictures(key))
            missing.append(key);
    return missing;
}

bool ValueStore::arePicturesQuick() const
{
    return thePictureTime >= 0 && thePictureTime <= kQuickTime;
}

bool ValueStore::readPictures(const PictureValues::Progress& aProgress)
{
    Q_EMIT aboutToRead();
    QElapsedTimer time;
    time.start();
    QHash<ValueKey, ValueSeriesPtr> series;
    if (!PictureValues::sample(theMedia, missingPictures(), aProgress, series)) {
        thePictureTime = -1; // whoever stopped it is asked before the next time
        return false;
    }
    thePictureTime = time.elapsed();
    for (auto it = series.cbegin(); it != series.cend(); ++it) {
        theSeries.insert(it.key(), it.value());
        theStale.remove(it.key());
    }
    theNews.start(0);
    return true;
}
