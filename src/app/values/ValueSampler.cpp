#include "ValueSampler.h"

#include "FrameGuard.h"
#include "LmCvManipulator.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"

#include <algorithm>
#include <cmath>

namespace {

// A record finds a keyframe by walking through its list, so a long animation is measured in short stretches,
// each with a record of its own.
constexpr int kStretch = 64; // frames

bool isBefore(const LmParamKeyframe& aKeyframe, long long aFrame)
{
    return aKeyframe.getFrame() < aFrame;
}

/// The keyframes of the frames from aFirst to aLast, with the nearest one beside them on either side.
QLinkedList<LmParamKeyframe> around(const std::vector<LmParamKeyframe>& aKeyframes, int aFirst, int aLast)
{
    auto from = std::lower_bound(aKeyframes.begin(), aKeyframes.end(), aFirst, &isBefore);
    auto to = std::lower_bound(from, aKeyframes.end(), aLast, &isBefore);
    if (from != aKeyframes.begin())
        --from;
    if (to != aKeyframes.end())
        ++to;
    QLinkedList<LmParamKeyframe> part;
    for (; from != to; ++from)
        part.append(*from);
    return part;
}

/// Whether there is a number to show.
bool isNumber(const QVariant& aValue, double& aNumber)
{
    bool valid = false;
    aNumber = aValue.toDouble(&valid);
    return valid && std::isfinite(aNumber);
}

} // namespace

ValueSampler::ValueSampler(LmCvManipulator& aTool, const LmKernelObjectData& aRecord,
                           const QStringList& aNames)
    : theTool(aTool), theNames(aNames), theDefaults(aRecord.getDefaultKeyframes()),
      theKeyframed(aRecord.getKeyframedFrames()), theSeries(size_t(aNames.size()))
{
    for (int param = 0; param < aRecord.count(); ++param) {
        const QLinkedList<LmParamKeyframe>& keyframes = aRecord.getAnimationKeyframes(param);
        theTypes.append(aRecord.keyframeType(param));
        theKeyframes.emplace_back(keyframes.cbegin(), keyframes.cend());
    }
}

ValueSampler::~ValueSampler() = default;

ValueSampler::ValueSampler(ValueSampler&&) noexcept = default;

const LmKernelObjectData& ValueSampler::stretchAt(int aFrame)
{
    if (theStretch && aFrame < theStretchEnd)
        return *theStretch;
    theStretchEnd = aFrame + kStretch;
    theStretch = std::make_unique<LmKernelObjectData>(theDefaults, theTypes, 0);
    theStretch->theAnimated = true;
    for (size_t param = 0; param < theKeyframes.size(); ++param) {
        QLinkedList<LmParamKeyframe> part = around(theKeyframes[param], aFrame, theStretchEnd - 1);
        theStretch->exchangeKeyframes(int(param), part);
    }
    return *theStretch;
}

void ValueSampler::sample(int aFrame, LmImage* aImage)
{
    const LmKernelObjectData& record = stretchAt(aFrame);
    QStringList units;
    QLinkedList<QVariant> values;
    {
        const FrameGuard guard(aFrame, aImage);
        values = theTool.getValues(theNames, &record, units);
    }
    const bool keyframe = std::binary_search(theKeyframed.cbegin(), theKeyframed.cend(), aFrame);
    int at = 0;
    for (const QVariant& value : std::as_const(values)) {
        if (at < theNames.size())
            add(at, aFrame, value, units.value(at), keyframe);
        ++at;
    }
}

void ValueSampler::add(int aSeries, int aFrame, const QVariant& aValue, const QString& aUnit, bool aKeyframe)
{
    ValueSeries& series = theSeries[size_t(aSeries)];
    series.theUnit = aUnit;
    double number = 0.0;
    if (!isNumber(aValue, number))
        return;
    const bool joined = !series.theSamples.empty() && series.theSamples.back().theFrame == aFrame - 1;
    series.theSamples.push_back({number, aFrame, aKeyframe, joined});
}

ValueSeries ValueSampler::ofKeyframes(LmCvManipulator& aTool, int aIdx, const QString& aName)
{
    ValueSeries series;
    const QLinkedList<LmParamKeyframe> values = aTool.getAnimation(aName, aIdx, series.theUnit);
    const long long frameCount = LmKSKernelData::getInstance()->theFrameCount;
    bool joined = false;
    for (const LmParamKeyframe& value : values) {
        double number = 0.0;
        if (value.getFrame() < 0 || value.getFrame() >= frameCount)
            continue;
        const bool there = isNumber(value.getValue(), number);
        if (there)
            series.theSamples.push_back({number, int(value.getFrame()), true, joined});
        joined = there;
    }
    return series;
}
