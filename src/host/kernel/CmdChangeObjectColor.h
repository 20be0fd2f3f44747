#ifndef CMDCHANGEOBJECTCOLOR_H
#define CMDCHANGEOBJECTCOLOR_H

#include <QColor>
#include <QUndoCommand>
#include <QVariant>

/// Changes the colour of an object.
class CmdChangeObjectColor : public QUndoCommand
{
public:
    CmdChangeObjectColor(int aType, int aIdx, const QColor& aColor);

    void redo() override { exchange(); }
    void undo() override { exchange(); }

private:
    void exchange();

    int theType;
    int theIdx;
    QVariant theColor; // the colour that the next exchange sets; invalid for a record without one
};

#endif
