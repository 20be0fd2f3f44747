#include "PictureValues.h"

#include "AnimatedValues.h"
#include "LmCvManipulator.h"
#include "LmImage.h"
#include "LmKSKernelData.h"
#include "Media.h"
#include "ValueSampler.h"

namespace {

struct Measured
{
    int theType;
    int theIdx;
    ValueSampler theSampler;
};

std::vector<Measured> samplersFor(const QList<ValueKey>& aKeys)
{
    std::vector<Measured> samplers;
    const QList<ObjectValues> objects = AnimatedValues::grouped(aKeys);
    for (const ObjectValues& object : objects) {
        LmCvManipulator* tool = LmKSKernelData::getInstance()->getCvManipulator(object.theType);
        const LmKernelObjectData* record = AnimatedValues::record(object.theType, object.theIdx);
        if (tool && record)
            samplers.push_back(
                {object.theType, object.theIdx, ValueSampler(*tool, *record, object.theNames)});
    }
    return samplers;
}

} // namespace

bool PictureValues::sample(Media& aMedia, const QList<ValueKey>& aKeys, const Progress& aProgress,
                           QHash<ValueKey, ValueSeriesPtr>& aSeries)
{
    std::vector<Measured> samplers = samplersFor(aKeys);
    const int count = aMedia.source() ? aMedia.frameCount() : 0;
    for (int frame = 0; frame < count; ++frame) {
        if (!aProgress(frame, count))
            return false;
        QString error;
        const std::unique_ptr<LmImage> image = aMedia.readFrame(frame, error);
        // What stands in for a damaged picture has no values.
        if (!image || !error.isEmpty())
            continue;
        for (Measured& measured : samplers)
            measured.theSampler.sample(frame, image.get());
    }
    for (Measured& measured : samplers) {
        const QStringList names = measured.theSampler.names();
        std::vector<ValueSeries> series = measured.theSampler.take();
        for (qsizetype i = 0; i < names.size(); ++i)
            aSeries.insert({measured.theType, measured.theIdx, names[i]},
                           std::make_shared<const ValueSeries>(std::move(series[size_t(i)])));
    }
    return true;
}
