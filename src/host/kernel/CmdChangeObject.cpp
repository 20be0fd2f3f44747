#include "CmdChangeObject.h"

#include "CommandText.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "LmKernelObjectDataDescr.h"
#include "PolygonValue.h"

#include <algorithm>

CmdChangeObject::CmdChangeObject(int aType, int aIdx, const LmParamKeyframeVector& aVector, bool)
    : QUndoCommand(commandText(QT_TRANSLATE_NOOP("UndoCommand", "Change %1"), aType, aIdx)), theType(aType),
      theIdx(aIdx), theFrame(aVector.getFrameNumber()), theVector(aVector)
{
}

CmdChangeObject::~CmdChangeObject() = default;

void CmdChangeObject::redo()
{
    if (theDone)
        apply(true);
    else
        firstRedo();
}

void CmdChangeObject::undo()
{
    apply(false);
}

void CmdChangeObject::firstRedo()
{
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    LmKernelObjectData* data = kernel->getObject(theType, theIdx);
    setObsolete(!data);
    if (!data)
        return;
    const LmKernelObjectDataDescr* descriptor = kernel->getDataDescriptor(theType);
    for (int i = 0; i < std::min(data->count(), theVector.size()); ++i) {
        const QVariant value = PolygonValue::unified(theVector[i].getValue());
        if (!value.isValid() || (descriptor && !descriptor->accepts(i, value)))
            continue;
        const LmValueChange change(data->storedValue(i, theFrame), value);
        if (change.isEmpty())
            continue;
        theChanges.push_back({i, change});
        data->storeValue(i, theFrame, value);
    }
    theVector = LmParamKeyframeVector();
    theDone = true;
    // A step and told even when nothing changed: the stack has dropped what could be redone by now, and a
    // view that has drifted away comes back to the record.
    kernel->announceObjectChanged(theType, theIdx);
}

void CmdChangeObject::apply(bool aForward)
{
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    LmKernelObjectData* data = kernel->getObject(theType, theIdx);
    setObsolete(!data);
    if (!data)
        return;
    for (const Change& change : theChanges) {
        const QVariant stored = data->storedValue(change.theParam, theFrame);
        const LmValueChange& step = change.theChange;
        data->storeValue(change.theParam, theFrame, aForward ? step.forward(stored) : step.backward(stored));
    }
    kernel->announceObjectChanged(theType, theIdx);
}

qsizetype CmdChangeObject::storedSize() const
{
    qsizetype size = 0;
    for (int i = 0; i < theVector.size(); ++i)
        size += LmValueChange(QVariant(), theVector[i].getValue()).storedSize();
    for (const Change& change : theChanges)
        size += change.theChange.storedSize();
    return size;
}
