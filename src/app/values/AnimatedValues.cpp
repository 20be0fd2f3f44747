#include "AnimatedValues.h"

#include "LmCvManipulator.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"

#include <algorithm>

namespace {

// The flag of tools whose values follow the frames, also by their pictures.
constexpr int kFollowsFrames = 128;

LmKSKernelData& kernel()
{
    return *LmKSKernelData::getInstance();
}

} // namespace

QStringList AnimatedValues::names(LmCvManipulator& aTool)
{
    QStringList names = aTool.theValueNames;
    const QStringList animated = aTool.getAnimatedValueNames();
    for (const QString& name : animated)
        if (!names.contains(name))
            names.append(name);
    return names;
}

AnimatedValues::Source AnimatedValues::source(LmCvManipulator& aTool, const QString& aName)
{
    if (!aTool.theValueNames.contains(aName))
        return kKeyframes;
    const bool looksAtPictures = aTool.getCvObjectFlags(nullptr) & kFollowsFrames;
    return looksAtPictures && !aTool.getAnimatedValueNames().contains(aName) ? kPictures : kEveryFrame;
}

bool AnimatedValues::isFromPictures(const ValueKey& aKey)
{
    LmCvManipulator* tool = kernel().getCvManipulator(aKey.theType);
    return tool && record(aKey.theType, aKey.theIdx) && source(*tool, aKey.theName) == kPictures;
}

bool AnimatedValues::isAnimated(const LmKernelObjectData& aRecord)
{
    if (!aRecord.theAnimated)
        return false;
    for (int param = 0; param < aRecord.count(); ++param)
        if (!aRecord.getAnimationKeyframes(param).isEmpty())
            return true;
    return false;
}

const LmKernelObjectData* AnimatedValues::record(int aType, int aIdx)
{
    const LmKernelObjectData* data = kernel().getObject(aType, aIdx);
    return data && isAnimated(*data) ? data : nullptr;
}

QList<ObjectValues> AnimatedValues::objects()
{
    QList<ObjectValues> objects;
    const QList<LmCvManipulator*> tools = kernel().getCvManipulatorList();
    for (LmCvManipulator* tool : tools) {
        const QStringList toolNames = names(*tool);
        if (toolNames.isEmpty())
            continue;
        const QMap<int, LmKernelObjectData*>& records = kernel().getObjectsOfType(tool->theObjectType);
        for (auto it = records.cbegin(); it != records.cend(); ++it)
            if (isAnimated(*it.value()))
                objects.append({tool->theObjectType, it.key(), toolNames});
    }
    return objects;
}

QList<ValueKey> AnimatedValues::keys(const QList<ObjectValues>& aObjects)
{
    QList<ValueKey> keys;
    for (const ObjectValues& object : aObjects)
        for (const QString& name : object.theNames)
            keys.append({object.theType, object.theIdx, name});
    return keys;
}

QList<ObjectValues> AnimatedValues::grouped(const QList<ValueKey>& aKeys)
{
    QList<ObjectValues> objects;
    QHash<ValueKey, qsizetype> places; // by keys without a name
    for (const ValueKey& key : aKeys) {
        const ValueKey object{key.theType, key.theIdx, QString()};
        if (!places.contains(object)) {
            places.insert(object, objects.size());
            objects.append({key.theType, key.theIdx, {}});
        }
        objects[places.value(object)].theNames.append(key.theName);
    }
    return objects;
}

ValueKey AnimatedValues::labelled(int aType, int aIdx)
{
    LmCvManipulator* tool = kernel().getCvManipulator(aType);
    const LmKernelObjectData* data = record(aType, aIdx);
    if (!tool || !data)
        return ValueKey();
    const QString shown = data->storedValue(ParamDescr::kDisplayValue, kDefaultFrame).toString();
    const QStringList all = names(*tool);
    return {aType, aIdx, all.contains(shown) ? shown : all.value(0)};
}

QString AnimatedValues::objectText(const ValueKey& aKey)
{
    return kernel().objectText(aKey.theType, aKey.theIdx);
}
