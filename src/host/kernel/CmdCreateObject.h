#ifndef CMDCREATEOBJECT_H
#define CMDCREATEOBJECT_H

#include <QUndoCommand>

#include <memory>

class LmKernelObjectData;

/// Adds a record to the kernel. The command owns the record exactly while the kernel doesn't hold it.
class CmdCreateObject : public QUndoCommand
{
public:
    CmdCreateObject(int aType, int aIdx, LmKernelObjectData* aData);
    ~CmdCreateObject() override;

    void redo() override;
    void undo() override;

private:
    int theType;
    int theIdx;
    std::unique_ptr<LmKernelObjectData> theData; // null while the kernel holds the record
};

#endif
