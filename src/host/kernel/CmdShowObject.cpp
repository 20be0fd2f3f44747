#include "CmdShowObject.h"

#include "CommandText.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"

CmdShowObject::CmdShowObject(int aType, int aIdx, bool aShown)
    : QUndoCommand(commandText(aShown ? QT_TRANSLATE_NOOP("UndoCommand", "Show %1")
                                      : QT_TRANSLATE_NOOP("UndoCommand", "Hide %1"),
                               aType, aIdx)),
      theType(aType), theIdx(aIdx), theShown(aShown)
{
}

void CmdShowObject::exchange()
{
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    LmKernelObjectData* data = kernel->getObject(theType, theIdx);
    if (!data || data->count() <= ParamDescr::kShown) {
        setObsolete(true);
        return;
    }
    const QVariant former = data->storedValue(ParamDescr::kShown, kDefaultFrame);
    setObsolete(former == theShown);
    data->storeValue(ParamDescr::kShown, kDefaultFrame, theShown);
    // A record that doesn't say is one that was never hidden.
    const bool shown = !theShown.isValid() || theShown.toBool();
    theShown = former;
    kernel->announceObjectShow(theType, theIdx, shown);
}
