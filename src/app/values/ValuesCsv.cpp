#include "ValuesCsv.h"

#include "AnimatedValues.h"
#include "LmCvManipulator.h"
#include "LmKSKernelData.h"
#include "Media.h"
#include "ValueReport.h"
#include "ValueSampler.h"

#include <QTextStream>

namespace {

constexpr int kFramesBetweenLooks = 64;

/// One export: what is known and how far it is.
class Writer
{
public:
    Writer(Media& aMedia, const QHash<ValueKey, ValueSeriesPtr>& aKnown,
           const PictureValues::Progress& aProgress, QTextStream& aOut)
        : theMedia(aMedia), theKnown(aKnown), theProgress(aProgress), theOut(aOut)
    {
    }

    bool write(const QList<ValueKey>& aKeys);

private:
    bool readPictures(const QList<ValueKey>& aKeys);
    bool workOut(const ObjectValues& aObject);
    bool sample(const ObjectValues& aObject, LmCvManipulator& aTool, const QStringList& aNames);
    void writeSeries(const ValueKey& aKey, const ValueSeries& aSeries);
    bool goOn(qint64 aDoneOfStep) { return theProgress(theDone + aDoneOfStep, theWork); }

    Media& theMedia;
    QHash<ValueKey, ValueSeriesPtr> theKnown;
    const PictureValues::Progress& theProgress;
    QTextStream& theOut;
    qint64 theDone = 0; // frames of all steps
    qint64 theWork = 0;
};

bool Writer::write(const QList<ValueKey>& aKeys)
{
    const QList<ObjectValues> objects = AnimatedValues::grouped(aKeys);
    theWork = (objects.size() + 1) * qint64(theMedia.frameCount());
    theOut << "object,name,frame,time,value,unit,keyframe\n";
    if (!readPictures(aKeys))
        return false;
    for (const ObjectValues& object : objects) {
        if (!workOut(object))
            return false;
        for (const QString& name : object.theNames) {
            const ValueKey key{object.theType, object.theIdx, name};
            if (const ValueSeriesPtr series = theKnown.take(key))
                writeSeries(key, *series);
        }
    }
    return true;
}

bool Writer::readPictures(const QList<ValueKey>& aKeys)
{
    QList<ValueKey> missing;
    for (const ValueKey& key : aKeys)
        if (AnimatedValues::isFromPictures(key) && !theKnown.contains(key))
            missing.append(key);
    const auto progress = [this](qint64 aDone, qint64) { return goOn(aDone); };
    if (!missing.isEmpty() && !PictureValues::sample(theMedia, missing, progress, theKnown))
        return false;
    theDone += theMedia.frameCount();
    return true;
}

/// Adds what isn't known of the object.
bool Writer::workOut(const ObjectValues& aObject)
{
    LmCvManipulator* tool = LmKSKernelData::getInstance()->getCvManipulator(aObject.theType);
    QStringList names;
    for (const QString& name : aObject.theNames) {
        const ValueKey key{aObject.theType, aObject.theIdx, name};
        if (!tool || theKnown.contains(key))
            continue;
        if (AnimatedValues::source(*tool, name) == AnimatedValues::kEveryFrame)
            names.append(name);
        else if (AnimatedValues::source(*tool, name) == AnimatedValues::kKeyframes)
            theKnown.insert(key, std::make_shared<const ValueSeries>(
                                     ValueSampler::ofKeyframes(*tool, aObject.theIdx, name)));
    }
    const bool done = names.isEmpty() || sample(aObject, *tool, names);
    theDone += theMedia.frameCount();
    return done && goOn(0);
}

bool Writer::sample(const ObjectValues& aObject, LmCvManipulator& aTool, const QStringList& aNames)
{
    const LmKernelObjectData* record = AnimatedValues::record(aObject.theType, aObject.theIdx);
    if (!record)
        return true;
    ValueSampler sampler(aTool, *record, aNames);
    for (int frame = 0; frame < theMedia.frameCount(); ++frame) {
        if (frame % kFramesBetweenLooks == 0 && !goOn(frame))
            return false;
        sampler.sample(frame);
    }
    std::vector<ValueSeries> series = sampler.take();
    for (qsizetype i = 0; i < aNames.size(); ++i)
        theKnown.insert({aObject.theType, aObject.theIdx, aNames[i]},
                        std::make_shared<const ValueSeries>(std::move(series[size_t(i)])));
    return true;
}

void Writer::writeSeries(const ValueKey& aKey, const ValueSeries& aSeries)
{
    const QString head = ValuesCsv::cell(AnimatedValues::objectText(aKey)) + QLatin1Char(',') +
                         ValuesCsv::cell(aKey.theName) + QLatin1Char(',');
    const QString unit = ValuesCsv::cell(aSeries.theUnit);
    const FrameTimes& times = theMedia.times();
    for (const ValueSample& sample : aSeries.theSamples) {
        theOut << head << sample.theFrame + 1 << ',';
        if (!times.isEmpty())
            theOut << ValueReport::numberText(times.at(sample.theFrame));
        theOut << ',' << ValueReport::numberText(sample.theValue) << ',' << unit << ','
               << (sample.theKeyframe ? '1' : '0') << '\n';
    }
}

} // namespace

QString ValuesCsv::cell(const QString& aText)
{
    const auto needsQuotes = [](QChar aCharacter) {
        return aCharacter == QLatin1Char(',') || aCharacter == QLatin1Char('"') ||
               aCharacter == QLatin1Char('\n') || aCharacter == QLatin1Char('\r');
    };
    if (std::none_of(aText.cbegin(), aText.cend(), needsQuotes))
        return aText;
    QString doubled = aText;
    doubled.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + doubled + QLatin1Char('"');
}

bool ValuesCsv::write(Media& aMedia, const QList<ValueKey>& aKeys,
                      const QHash<ValueKey, ValueSeriesPtr>& aKnown, const PictureValues::Progress& aProgress,
                      QTextStream& aOut)
{
    return Writer(aMedia, aKnown, aProgress, aOut).write(aKeys);
}
