#ifndef CMDREMOVEOBJECT_H
#define CMDREMOVEOBJECT_H

#include <QUndoCommand>

#include <memory>

class LmKernelObjectData;

/// Removes a record from the kernel and keeps it while it is out. An unknown object makes the command
/// obsolete.
class CmdRemoveObject : public QUndoCommand
{
public:
    CmdRemoveObject(int aType, int aIdx);
    ~CmdRemoveObject() override;

    void redo() override;
    void undo() override;

private:
    int theType;
    int theIdx;
    std::unique_ptr<LmKernelObjectData> theData; // null while the kernel holds the record
};

#endif
