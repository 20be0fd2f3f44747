#ifndef CMDCHANGEOBJECT_H
#define CMDCHANGEOBJECT_H

#include "LmParamKeyframeVector.h"
#include "LmValueChange.h"

#include <QUndoCommand>

#include <vector>

/// Writes the valid values of a keyframe vector into a record at the vector's frame. Undo brings back what
/// stood there, also that no keyframe stood there. Parameters of one value for the whole object are written
/// as defaults. On an object that the kernel knows it is always a step.
class CmdChangeObject : public QUndoCommand
{
public:
    /// The flag is reserved for the host and has no effect.
    CmdChangeObject(int aType, int aIdx, const LmParamKeyframeVector& aVector, bool aReserved);
    ~CmdChangeObject() override;

    void redo() override;
    void undo() override;
    /// Bytes of point lists and byte arrays that the command keeps.
    qsizetype storedSize() const;

private:
    struct Change
    {
        int theParam;
        LmValueChange theChange;
    };

    void firstRedo();
    void apply(bool aForward);

    int theType;
    int theIdx;
    long long theFrame;
    LmParamKeyframeVector theVector; // emptied by the first redo, which turns it into theChanges
    std::vector<Change> theChanges;
    bool theDone = false;
};

#endif
