#ifndef CMDSETANIMATION_H
#define CMDSETANIMATION_H

#include "LmParamKeyframe.h"

#include <QLinkedList>
#include <QUndoCommand>

/// Replaces the keyframes of one parameter.
class CmdSetAnimation : public QUndoCommand
{
public:
    CmdSetAnimation(int aType, int aIdx, int aParam, QLinkedList<LmParamKeyframe>& aKeyframes);

    void redo() override { exchange(); }
    void undo() override { exchange(); }

private:
    void exchange();

    int theType;
    int theIdx;
    int theParam;
    QLinkedList<LmParamKeyframe> theKeyframes; // the list that the next exchange sets
};

#endif
