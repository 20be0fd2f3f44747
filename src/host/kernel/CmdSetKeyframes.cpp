#include "CmdSetKeyframes.h"

#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "LmKernelObjectDataDescr.h"

#include <utility>

CmdSetKeyframes::CmdSetKeyframes(int aType, int aIdx, const KeyframeLists& aKeyframes, bool aAnimated,
                                 const QString& aText)
    : QUndoCommand(aText), theType(aType), theIdx(aIdx), theKeyframes(aKeyframes), theAnimated(aAnimated)
{
    for (int param = 0; param < theKeyframes.count(); ++param)
        theKeyframes.at(param) = LmKernelObjectData::inOrder(theKeyframes.at(param));
}

bool CmdSetKeyframes::isPossible() const
{
    const LmKSKernelData* kernel = LmKSKernelData::getInstance();
    const LmKernelObjectData* data = kernel->getObject(theType, theIdx);
    const LmKernelObjectDataDescr* descriptor = kernel->getDataDescriptor(theType);
    if (!data || !descriptor || data->count() != theKeyframes.count())
        return false;
    bool isOther = data->theAnimated != theAnimated;
    for (int param = 0; param < data->count(); ++param) {
        const KeyframeLists::Keyframes& keyframes = theKeyframes.at(param);
        if (!descriptor->accepts(param, keyframes))
            return false;
        isOther = isOther || !(keyframes == data->getAnimationKeyframes(param));
    }
    return isOther;
}

void CmdSetKeyframes::exchange()
{
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    setObsolete(!isPossible());
    if (isObsolete())
        return;
    LmKernelObjectData* data = kernel->getObject(theType, theIdx);
    for (int param = 0; param < data->count(); ++param)
        data->exchangeKeyframes(param, theKeyframes.at(param));
    std::swap(data->theAnimated, theAnimated);
    kernel->announceObjectChanged(theType, theIdx);
}
