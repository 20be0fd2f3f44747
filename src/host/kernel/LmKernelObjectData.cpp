#include "LmKernelObjectData.h"

#include "KeyframeBlend.h"
#include "PolygonValue.h"

#include <algorithm>

namespace {

using Keyframes = QLinkedList<LmParamKeyframe>;

/// The last keyframe at or before the frame, or the end. The list is walked from its nearer end, so that
/// playing a long sequence costs least where it begins and where it ends.
Keyframes::const_iterator keyframeUpTo(const Keyframes& aKeyframes, long long aFrame)
{
    const auto end = aKeyframes.cend();
    if (aKeyframes.isEmpty() || aKeyframes.first().getFrame() > aFrame)
        return end;
    const double fromFirst = double(aFrame) - double(aKeyframes.first().getFrame());
    const double toLast = double(aKeyframes.last().getFrame()) - double(aFrame);
    if (fromFirst > toLast) {
        auto it = end;
        do
            --it;
        while (it->getFrame() > aFrame);
        return it;
    }
    auto found = aKeyframes.cbegin();
    for (auto it = found; it != end && it->getFrame() <= aFrame; ++it)
        found = it;
    return found;
}

} // namespace

LmKernelObjectData::LmKernelObjectData(const LmParamKeyframeVector& aDefaults,
                                       const QVector<ParamDescr::KeyframeType>& aTypes, int)
{
    theParams.resize(aDefaults.size());
    for (int i = 0; i < aDefaults.size(); ++i) {
        theParams[i].theType = i < aTypes.size() ? aTypes[i] : ParamDescr::kWhole;
        theParams[i].theDefault = PolygonValue::unified(aDefaults[i].getValue());
    }
}

LmParamKeyframeVector LmKernelObjectData::getKeyframesAt(long long aFrame) const
{
    LmParamKeyframeVector values(count());
    values.setFrameNumber(aFrame);
    for (int i = 0; i < count(); ++i)
        values.setValue(i, theAnimated ? valueAt(theParams[i], aFrame) : theParams[i].theDefault);
    return values;
}

LmParamKeyframeVector LmKernelObjectData::getDefaultKeyframes() const
{
    return getKeyframesAt(kDefaultFrame);
}

LmParamKeyframe LmKernelObjectData::getKeyframe(unsigned int aParam, long long aFrame) const
{
    const bool known = aParam < static_cast<unsigned int>(count());
    return LmParamKeyframe(aFrame, known ? valueAt(theParams[int(aParam)], aFrame) : QVariant());
}

Keyframes& LmKernelObjectData::getAnimationKeyframes(int aParam)
{
    static Keyframes none;
    if (aParam >= 0 && aParam < count())
        return theParams[aParam].theKeyframes;
    none.erase(none.begin(), none.end()); // whatever the last caller wrote into it
    return none;
}

const Keyframes& LmKernelObjectData::getAnimationKeyframes(int aParam) const
{
    static const Keyframes none;
    return aParam >= 0 && aParam < count() ? theParams[aParam].theKeyframes : none;
}

QList<long long> LmKernelObjectData::getKeyframedFrames() const
{
    QList<long long> frames;
    for (const Param& param : theParams)
        for (const LmParamKeyframe& keyframe : param.theKeyframes)
            frames.append(keyframe.getFrame());
    std::sort(frames.begin(), frames.end());
    frames.erase(std::unique(frames.begin(), frames.end()), frames.end());
    return frames;
}

void LmKernelObjectData::update(const LmParamKeyframeVector& aVector)
{
    for (int i = 0; i < std::min(count(), aVector.size()); ++i)
        if (aVector[i].hasValue())
            storeValue(i, aVector.getFrameNumber(), aVector[i].getValue());
}

QVariant LmKernelObjectData::storedValue(int aParam, long long aFrame) const
{
    if (aParam < 0 || aParam >= count())
        return QVariant();
    const Param& param = theParams[aParam];
    if (param.theType == ParamDescr::kWhole || aFrame < 0)
        return param.theDefault;
    const auto it = keyframeUpTo(param.theKeyframes, aFrame);
    return it != param.theKeyframes.cend() && it->getFrame() == aFrame ? it->getValue() : QVariant();
}

void LmKernelObjectData::storeValue(int aParam, long long aFrame, const QVariant& aValue)
{
    if (aParam < 0 || aParam >= count())
        return;
    Param& param = theParams[aParam];
    const QVariant value = PolygonValue::unified(aValue);
    if (param.theType == ParamDescr::kWhole || aFrame < 0) {
        param.theDefault = value;
        return;
    }
    // From the back, where an animation grows.
    Keyframes& keyframes = param.theKeyframes;
    auto behind = keyframes.end();
    while (behind != keyframes.begin() && std::prev(behind)->getFrame() > aFrame)
        --behind;
    const bool stands = behind != keyframes.begin() && std::prev(behind)->getFrame() == aFrame;
    if (stands && value.isValid())
        std::prev(behind)->setKeyframe(aFrame, value);
    else if (stands)
        keyframes.erase(std::prev(behind));
    else if (value.isValid())
        keyframes.insert(behind, LmParamKeyframe(aFrame, value));
}

void LmKernelObjectData::exchangeKeyframes(int aParam, QLinkedList<LmParamKeyframe>& aKeyframes)
{
    if (aParam >= 0 && aParam < count())
        theParams[aParam].theKeyframes.swap(aKeyframes);
}

QLinkedList<LmParamKeyframe> LmKernelObjectData::inOrder(const QLinkedList<LmParamKeyframe>& aKeyframes)
{
    QList<LmParamKeyframe> sorted;
    for (const LmParamKeyframe& keyframe : aKeyframes)
        if (keyframe.getFrame() >= 0 && keyframe.hasValue())
            sorted.append(LmParamKeyframe(keyframe.getFrame(), PolygonValue::unified(keyframe.getValue())));
    std::stable_sort(sorted.begin(), sorted.end(), [](const LmParamKeyframe& a, const LmParamKeyframe& b) {
        return a.getFrame() < b.getFrame();
    });
    Keyframes result;
    for (const LmParamKeyframe& keyframe : std::as_const(sorted)) {
        if (!result.isEmpty() && result.last().getFrame() == keyframe.getFrame())
            result.removeLast();
        result.append(keyframe);
    }
    return result;
}

QVariant LmKernelObjectData::valueAt(const Param& aParam, long long aFrame) const
{
    const Keyframes& keyframes = aParam.theKeyframes;
    if (aFrame < 0 || aParam.theType == ParamDescr::kWhole || keyframes.isEmpty())
        return aParam.theDefault;
    const auto earlier = keyframeUpTo(keyframes, aFrame);
    if (earlier == keyframes.cend())
        return keyframes.first().getValue();
    const auto later = std::next(earlier);
    const bool between = later != keyframes.cend() && earlier->getFrame() != aFrame;
    if (!between || aParam.theType == ParamDescr::kHeld)
        return earlier->getValue();
    return KeyframeBlend::at(*earlier, *later, aFrame);
}
