#include "CmdCreateObject.h"

#include "CommandText.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"

CmdCreateObject::CmdCreateObject(int aType, int aIdx, LmKernelObjectData* aData)
    : QUndoCommand(commandText(QT_TRANSLATE_NOOP("UndoCommand", "Create %1"), aType, aIdx)), theType(aType),
      theIdx(aIdx), theData(aData)
{
}

CmdCreateObject::~CmdCreateObject() = default;

void CmdCreateObject::redo()
{
    // Handed over before the kernel's signal goes out, as a listener may remove the object at once.
    LmKernelObjectData* data = theData.release();
    if (LmKSKernelData::getInstance()->insertObject(theType, theIdx, data))
        return;
    theData.reset(data);
    setObsolete(true);
}

void CmdCreateObject::undo()
{
    theData.reset(LmKSKernelData::getInstance()->takeObject(theType, theIdx));
    setObsolete(!theData);
}
