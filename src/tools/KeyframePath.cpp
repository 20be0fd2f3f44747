#include "KeyframePath.h"

#include "CmdSetAnimation.h"
#include "CmdSwitchAnimation.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"

#include <QUndoStack>

#include <algorithm>
#include <iterator>

KeyframePath::Path KeyframePath::valued(const Path& aKeyframes)
{
    Path path;
    std::copy_if(aKeyframes.begin(), aKeyframes.end(), std::back_inserter(path),
                 [](const LmParamKeyframe& aKeyframe) { return aKeyframe.hasValue(); });
    return path;
}

QPoint KeyframePath::pointAt(const LmKernelObjectData& aRecord, int aParam, long long aFrame)
{
    return aRecord.getKeyframe(uint(aParam), aFrame).getValue().toPoint();
}

KeyframePath::Path KeyframePath::ofEnd(LmKernelObjectData& aRecord, int aPointParam, int aVectorParam,
                                       QPoint (*aPlace)(const QPoint& aPoint, const QPoint& aVector))
{
    const Path& vectors = aRecord.getAnimationKeyframes(aVectorParam);
    Path path;
    if (vectors.size() < 2)
        return path;
    for (const LmParamKeyframe& keyframe : valued(vectors)) {
        const QPoint point = pointAt(aRecord, aPointParam, keyframe.getFrame());
        path.append(LmParamKeyframe(keyframe.getFrame(), aPlace(point, keyframe.getValue().toPoint())));
    }
    return path;
}

void KeyframePath::paste(QUndoStack* aStack, const QString& aText, int aType, int aIdx,
                         const QList<QPair<int, Path>>& aPaths)
{
    const LmKernelObjectData* record = LmKSKernelData::getInstance()->getObject(aType, aIdx);
    if (!aStack || !record)
        return;
    aStack->beginMacro(aText);
    for (const auto& [param, path] : aPaths) {
        Path keyframes = path;
        aStack->push(new CmdSetAnimation(aType, aIdx, param, keyframes));
    }
    if (!record->theAnimated)
        aStack->push(new CmdSwitchAnimation(aType, aIdx, true));
    aStack->endMacro();
}
