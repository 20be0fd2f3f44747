#ifndef CMDANIMATEVIEW_H
#define CMDANIMATEVIEW_H

#include <QUndoCommand>

/// Switches whether the view shows the animation of all objects, also of those that don't follow the frames
/// by themselves.
class CmdAnimateView : public QUndoCommand
{
public:
    explicit CmdAnimateView(bool aAnimated);

    void redo() override { show(theAnimated); }
    void undo() override { show(!theAnimated); }

    /// The same without a step that could be undone, as when a project is opened.
    static void show(bool aAnimated);

private:
    bool theAnimated;
};

#endif
