#ifndef CMDSETREGION_H
#define CMDSETREGION_H

#include <QRect>
#include <QUndoCommand>

class Media;

/// Limits the frames to a part of the picture, or shows the whole again. What stood in the middle of the view
/// stays there as far as the scroll range allows.
class CmdSetRegion : public QUndoCommand
{
public:
    /// The region in image coordinates, null for the whole picture.
    CmdSetRegion(Media& aMedia, const QRect& aRegion);

    void redo() override { exchange(); }
    void undo() override { exchange(); }

private:
    void exchange();

    Media& theMedia;
    QRect theRegion; // what the next exchange sets
};

#endif
