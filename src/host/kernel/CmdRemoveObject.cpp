#include "CmdRemoveObject.h"

#include "CommandText.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"

CmdRemoveObject::CmdRemoveObject(int aType, int aIdx)
    : QUndoCommand(commandText(QT_TRANSLATE_NOOP("UndoCommand", "Delete %1"), aType, aIdx)), theType(aType),
      theIdx(aIdx)
{
}

CmdRemoveObject::~CmdRemoveObject() = default;

void CmdRemoveObject::redo()
{
    theData.reset(LmKSKernelData::getInstance()->takeObject(theType, theIdx));
    setObsolete(!theData);
}

void CmdRemoveObject::undo()
{
    // Handed over before the kernel's signal goes out, as a listener may remove the object at once.
    LmKernelObjectData* data = theData.release();
    if (LmKSKernelData::getInstance()->insertObject(theType, theIdx, data))
        return;
    theData.reset(data);
    setObsolete(true);
}
