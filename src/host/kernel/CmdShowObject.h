#ifndef CMDSHOWOBJECT_H
#define CMDSHOWOBJECT_H

#include <QUndoCommand>

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
    bool theShown; // the state that the next exchange sets
};

#endif
