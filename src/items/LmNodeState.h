#ifndef LMNODESTATE_H
#define LMNODESTATE_H

#include "LmBezierPoint.h"

/// How a node of an outline takes part in editing.
struct LmNodeState
{
    /// Which part of the node the mouse moves. The numbers are the indices of the points in the node.
    enum Dragged : int { kDraggedNone = -1, kDraggedLeftCtrl = 0, kDraggedAnchor = 1, kDraggedRightCtrl = 2 };

    bool selected = false;
    LmBezierPoint::Synchro synchro = LmBezierPoint::kSynchroDirection;
    Dragged dragged = kDraggedNone;
};

#endif
