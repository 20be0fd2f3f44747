#ifndef CMDSETANIMATION_H
#define CMDSETANIMATION_H

#include "LmParamKeyframe.h"

#include <QLinkedList>
#include <QUndoCommand>

class LmKernelObjectData;

/// Replaces the keyframes of one parameter. Keyframes without a value are left out, and of several at one
/// frame the last counts. A parameter of another type, or of one value for the whole object, makes the
/// command obsolete.
class CmdSetAnimation : public QUndoCommand
{
public:
    CmdSetAnimation(int aType, int aIdx, int aParam, QLinkedList<LmParamKeyframe>& aKeyframes);

    void redo() override { exchange(); }
    void undo() override { exchange(); }

private:
    bool isPossible(const LmKernelObjectData* aData) const;
    void exchange();

    int theType;
    int theIdx;
    int theParam;
    QLinkedList<LmParamKeyframe> theKeyframes; // the list that the next exchange sets
};

#endif
