#ifndef CMDSWITCHANIMATION_H
#define CMDSWITCHANIMATION_H

#include <QUndoCommand>

/// Switches whether an object follows the frames. Its keyframes stay.
class CmdSwitchAnimation : public QUndoCommand
{
public:
    CmdSwitchAnimation(int aType, int aIdx, bool aAnimated);

    /// What the undo list says of it.
    static QString textOf(int aType, int aIdx, bool aAnimated);

    void redo() override { exchange(); }
    void undo() override { exchange(); }

private:
    void exchange();

    int theType;
    int theIdx;
    bool theAnimated; // the state that the next exchange sets
};

#endif
