#include "CmdChangeObjectColor.h"

#include "CommandText.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"

CmdChangeObjectColor::CmdChangeObjectColor(int aType, int aIdx, const QColor& aColor)
    : QUndoCommand(commandText(QT_TRANSLATE_NOOP("UndoCommand", "Colour of %1"), aType, aIdx)),
      theType(aType), theIdx(aIdx), theColor(aColor)
{
}

void CmdChangeObjectColor::exchange()
{
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    LmKernelObjectData* data = kernel->getObject(theType, theIdx);
    if (!data || data->count() <= ParamDescr::kColor) {
        setObsolete(true);
        return;
    }
    const QVariant former = data->storedValue(ParamDescr::kColor, kDefaultFrame);
    setObsolete(former == theColor);
    data->storeValue(ParamDescr::kColor, kDefaultFrame, theColor);
    const QColor color = theColor.value<QColor>();
    theColor = former;
    kernel->announceObjectColor(theType, theIdx, color);
}
