#ifndef CMDSETKEYFRAMES_H
#define CMDSETKEYFRAMES_H

#include "KeyframeLists.h"

#include <QUndoCommand>

/// Replaces the keyframes of all parameters of an object, and says whether it is animated then, in one step:
/// parameters that belong together, such as points and the states of their nodes, are never seen apart. One
/// that would change nothing, or has a value of a wrong type, is obsolete.
class CmdSetKeyframes : public QUndoCommand
{
public:
    CmdSetKeyframes(int aType, int aIdx, const KeyframeLists& aKeyframes, bool aAnimated,
                    const QString& aText);

    /// Whether a push would be a step. One that isn't costs the redo list all the same, so it is asked
    /// before.
    bool isPossible() const;

    void redo() override { exchange(); }
    void undo() override { exchange(); }

private:
    void exchange();

    int theType;
    int theIdx;
    KeyframeLists theKeyframes; // what the next exchange sets
    bool theAnimated;           // the same
};

#endif
