#include "CmdSetAnimation.h"

#include "CommandText.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "LmKernelObjectDataDescr.h"

CmdSetAnimation::CmdSetAnimation(int aType, int aIdx, int aParam, QLinkedList<LmParamKeyframe>& aKeyframes)
    : QUndoCommand(commandText(QT_TRANSLATE_NOOP("UndoCommand", "Set keyframes of %1"), aType, aIdx)),
      theType(aType), theIdx(aIdx), theParam(aParam), theKeyframes(LmKernelObjectData::inOrder(aKeyframes))
{
}

bool CmdSetAnimation::isPossible(const LmKernelObjectData* aData) const
{
    if (!aData || theParam < 0 || theParam >= aData->count() ||
        aData->keyframeType(theParam) == ParamDescr::kWhole)
        return false;
    const LmKernelObjectDataDescr* descriptor = LmKSKernelData::getInstance()->getDataDescriptor(theType);
    return !descriptor || descriptor->accepts(theParam, theKeyframes);
}

void CmdSetAnimation::exchange()
{
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    LmKernelObjectData* data = kernel->getObject(theType, theIdx);
    setObsolete(!isPossible(data));
    if (isObsolete())
        return;
    data->exchangeKeyframes(theParam, theKeyframes);
    kernel->announceObjectChanged(theType, theIdx);
}
