#ifndef CMDSHOWOBJECT_H
#define CMDSHOWOBJECT_H

#include <QUndoCommand>
#include <QVariant>

/// Shows or hides an object.
class CmdShowObject : public QUndoCommand
{
public:
    CmdShowObject(int aType, int aIdx, bool aShown);

    void redo() override { exchange(); }
    void undo() override { exchange(); }

private:
    void exchange();

    int theType;
    int theIdx;
    QVariant theShown; // the state that the next exchange sets; invalid for a record without one
};

#endif
