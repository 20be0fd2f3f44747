#include "KeyframeLists.h"

#include "LmKernelObjectData.h"

#include <algorithm>

namespace {

using Keyframes = KeyframeLists::Keyframes;

template <typename Wanted>
Keyframes filtered(const Keyframes& aKeyframes, Wanted aIsWanted)
{
    Keyframes wanted;
    for (const LmParamKeyframe& keyframe : aKeyframes)
        if (aIsWanted(keyframe.getFrame()))
            wanted.append(keyframe);
    return wanted;
}

} // namespace

KeyframeLists::KeyframeLists(const LmKernelObjectData& aData)
{
    for (int param = 0; param < aData.count(); ++param)
        theLists.append(aData.getAnimationKeyframes(param));
}

KeyframeLists KeyframeLists::ofFrame(const LmKernelObjectData& aData, long long aFrame)
{
    const LmParamKeyframeVector values = aData.getKeyframesAt(aFrame);
    KeyframeLists lists;
    for (int param = 0; param < aData.count(); ++param) {
        Keyframes keyframes;
        if (aData.keyframeType(param) != ParamDescr::kWhole)
            keyframes.append(LmParamKeyframe(aFrame, values[param].getValue()));
        lists.theLists.append(keyframes);
    }
    return lists;
}

bool KeyframeLists::isEmpty() const
{
    return std::all_of(theLists.begin(), theLists.end(),
                       [](const Keyframes& aKeyframes) { return aKeyframes.isEmpty(); });
}

QSet<long long> KeyframeLists::frames() const
{
    QSet<long long> frames;
    for (const Keyframes& keyframes : theLists)
        for (const LmParamKeyframe& keyframe : keyframes)
            frames.insert(keyframe.getFrame());
    return frames;
}

KeyframeLists KeyframeLists::only(const QSet<long long>& aFrames) const
{
    KeyframeLists lists;
    for (const Keyframes& keyframes : theLists)
        lists.theLists.append(
            filtered(keyframes, [&](long long aFrame) { return aFrames.contains(aFrame); }));
    return lists;
}

KeyframeLists KeyframeLists::without(const QSet<long long>& aFrames) const
{
    KeyframeLists lists;
    for (const Keyframes& keyframes : theLists)
        lists.theLists.append(
            filtered(keyframes, [&](long long aFrame) { return !aFrames.contains(aFrame); }));
    return lists;
}

KeyframeLists KeyframeLists::shifted(long long aBy) const
{
    KeyframeLists lists = *this;
    for (Keyframes& keyframes : lists.theLists)
        for (LmParamKeyframe& keyframe : keyframes)
            keyframe.setKeyframe(keyframe.getFrame() + aBy, QVariant(keyframe.getValue()));
    return lists;
}

KeyframeLists KeyframeLists::with(const KeyframeLists& aOther, long long aFrameCount) const
{
    KeyframeLists lists = *this;
    for (int param = 0; param < std::min(count(), aOther.count()); ++param) {
        for (const LmParamKeyframe& keyframe : aOther.at(param))
            if (keyframe.getFrame() >= 0 && keyframe.getFrame() < aFrameCount)
                lists.theLists[param].append(keyframe);
        // Of several at one frame the last counts.
        lists.theLists[param] = LmKernelObjectData::inOrder(lists.theLists[param]);
    }
    return lists;
}
