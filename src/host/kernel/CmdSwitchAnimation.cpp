#include "CmdSwitchAnimation.h"

#include "CommandText.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"

#include <utility>

CmdSwitchAnimation::CmdSwitchAnimation(int aType, int aIdx, bool aAnimated)
    : QUndoCommand(textOf(aType, aIdx, aAnimated)), theType(aType), theIdx(aIdx), theAnimated(aAnimated)
{
}

QString CmdSwitchAnimation::textOf(int aType, int aIdx, bool aAnimated)
{
    return commandText(aAnimated ? QT_TRANSLATE_NOOP("UndoCommand", "Animate %1")
                                 : QT_TRANSLATE_NOOP("UndoCommand", "Stop animating %1"),
                       aType, aIdx);
}

void CmdSwitchAnimation::exchange()
{
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    LmKernelObjectData* data = kernel->getObject(theType, theIdx);
    setObsolete(!data || data->theAnimated == theAnimated);
    if (!data)
        return;
    std::swap(data->theAnimated, theAnimated);
    kernel->announceObjectChanged(theType, theIdx);
}
