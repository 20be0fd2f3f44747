#include "LmCvRegion.h"

#include "CanvasEvent.h"
#include "PointMath.h"
#include "SegmentGeometry.h"

#include <QMouseEvent>

namespace {

constexpr int kPressTolerance = 4; // canvas pixels at every zoom

} // namespace

void LmCvRegion::enterDrawMode(QPoint& aPos, bool aAppend)
{
    const auto dragged = aAppend ? LmNodeState::kDraggedLeftCtrl : LmNodeState::kDraggedRightCtrl;
    const int farEnd = aAppend ? 0 : nodeCount() - 1;
    if (!theClosed && nodeCount() > 0 && pointOnNode(aPos) == farEnd) {
        closeAt(farEnd, dragged, aPos);
        return;
    }
    LmBezierPoint node(true, false, LmBezierPoint::kSynchroMirror);
    node.fill(aPos);
    LmNodeState state;
    state.selected = true;
    state.synchro = LmBezierPoint::kSynchroMirror;
    state.dragged = aAppend ? LmNodeState::kDraggedRightCtrl : LmNodeState::kDraggedLeftCtrl;
    addNode(node, aAppend ? -1 : 0, state);
    updateLabel();
}

// The mouse goes on pulling the handle by which the outline arrives at its far end.
void LmCvRegion::closeAt(int aNode, LmNodeState::Dragged aDragged, const QPoint& aPos)
{
    invalidate();
    deselectAllNodes(-1);
    theClosed = true;
    theCurrentNode = aNode;
    LmNodeState& state = theNodeStates[aNode];
    state.dragged = aDragged;
    state.selected = true;
    state.synchro = LmBezierPoint::kSynchroDirection;
    theLastPos = aPos;
    if (aDragged == LmNodeState::kDraggedLeftCtrl)
        setNodeLeftCtrl(unsigned(aNode), aPos, false);
    else
        setNodeRightCtrl(unsigned(aNode), aPos, false);
    changeChunks();
}

void LmCvRegion::mousePressEvent(QMouseEvent* aEvent, QPoint& aPos)
{
    theNodesChanged = false;
    if (!isVisible()) {
        aEvent->ignore();
        return;
    }
    thePressPos = aPos;
    theLastPos = aPos;
    if (const int node = pointOnNode(aPos); node >= 0)
        pressNode(aEvent, node);
    else
        pressElsewhere(aEvent, aPos);
}

void LmCvRegion::pressElsewhere(QMouseEvent* aEvent, const QPoint& aPos)
{
    auto dragged = LmNodeState::kDraggedNone;
    if (const int node = pointOnControl(aPos, dragged); node >= 0) {
        if (aEvent->button() != Qt::LeftButton)
            return;
        deselectAllNodes(node);
        theCurrentNode = node;
        LmNodeState& state = theNodeStates[node];
        state.dragged = dragged;
        // A handle that was dragged by hand keeps the other's length from now on; Alt breaks the two apart.
        if (state.synchro == LmBezierPoint::kSynchroMirror)
            state.synchro = LmBezierPoint::kSynchroDirection;
        if (CanvasEvent::holds(*aEvent, Qt::AltModifier))
            state.synchro = LmBezierPoint::kSynchroNone;
        aEvent->accept();
        return;
    }
    int segment = 0;
    if (!isPointOnObject(aPos, segment, kPressTolerance)) {
        aEvent->ignore();
        return;
    }
    deselectAllNodes(-1);
    theCurrentNode = -1;
    aEvent->accept();
}

void LmCvRegion::pressNode(QMouseEvent* aEvent, int aNode)
{
    if (aEvent->button() == Qt::RightButton) {
        deselectAllNodes(-1);
        aEvent->accept();
        return;
    }
    if (aEvent->button() != Qt::LeftButton)
        return;
    invalidate();
    if (CanvasEvent::holds(*aEvent, Qt::ShiftModifier)) {
        toggleNode(aNode);
    } else if (theHandlesEnabled && CanvasEvent::holds(*aEvent, Qt::AltModifier)) {
        restartHandles(aNode);
    } else {
        LmNodeState& state = theNodeStates[aNode];
        if (!state.selected)
            deselectAllNodes(-1);
        state.selected = true;
        state.dragged = LmNodeState::kDraggedAnchor;
        theCurrentNode = aNode;
    }
    changeChunks();
    aEvent->accept();
}

void LmCvRegion::toggleNode(int aNode)
{
    LmNodeState& state = theNodeStates[aNode];
    state.selected = !state.selected;
    state.dragged = state.selected ? LmNodeState::kDraggedAnchor : LmNodeState::kDraggedNone;
    theCurrentNode = state.selected ? aNode : -1;
}

// Puts both handles on the anchor; the mouse pulls a new mirrored pair out of it.
void LmCvRegion::restartHandles(int aNode)
{
    LmNodeState& state = theNodeStates[aNode];
    deselectAllNodes(state.selected ? aNode : -1);
    state.selected = true;
    theCurrentNode = aNode;
    state.synchro = LmBezierPoint::kSynchroNone;
    setNodeLeftCtrl(unsigned(aNode), QPoint(0, 0), true);
    setNodeRightCtrl(unsigned(aNode), QPoint(0, 0), true);
    state.synchro = LmBezierPoint::kSynchroMirror;
    state.dragged = LmNodeState::kDraggedRightCtrl;
}

void LmCvRegion::mouseMoveEvent(QMouseEvent* aEvent, QPoint& aPos)
{
    aEvent->ignore();
    if (!isVisible())
        return;
    const LmNodeState::Dragged dragged =
        isNode(theCurrentNode) ? theNodeStates.at(theCurrentNode).dragged : LmNodeState::kDraggedNone;
    const bool handle = dragged == LmNodeState::kDraggedLeftCtrl || dragged == LmNodeState::kDraggedRightCtrl;
    if (handle && CanvasEvent::holds(*aEvent, Qt::ShiftModifier))
        aPos = SegmentGeometry::snapped(pointAt(theCurrentNode, LmBezierPoint::kAnchor), aPos);
    const QPoint delta = PointMath::difference(aPos, theLastPos);
    theLastPos = aPos;
    if (theCurrentNode < 0) {
        moveObjectBy(delta);
        aEvent->accept();
        return;
    }
    // Nothing to drag also where a change from outside, undo for example, took the node away on the way.
    if (dragged == LmNodeState::kDraggedNone)
        return;
    dragNode(dragged, delta);
    aEvent->accept();
}

void LmCvRegion::dragNode(LmNodeState::Dragged aDragged, const QPoint& aDelta)
{
    const int node = theCurrentNode;
    switch (aDragged) {
    case LmNodeState::kDraggedNone:
        return;
    case LmNodeState::kDraggedLeftCtrl:
        setNodeLeftCtrl(unsigned(node), PointMath::sum(pointAt(node, LmBezierPoint::kLeftCtrl), aDelta),
                        false);
        return;
    case LmNodeState::kDraggedRightCtrl:
        setNodeRightCtrl(unsigned(node), PointMath::sum(pointAt(node, LmBezierPoint::kRightCtrl), aDelta),
                         false);
        return;
    case LmNodeState::kDraggedAnchor:
        moveSelectedNodesBy(aDelta);
        return;
    }
}

void LmCvRegion::moveSelectedNodesBy(const QPoint& aDelta)
{
    invalidate();
    for (int i = 0; i < nodeCount(); ++i) {
        if (!theNodeStates.at(i).selected)
            continue;
        for (const auto part : {LmBezierPoint::kLeftCtrl, LmBezierPoint::kAnchor, LmBezierPoint::kRightCtrl})
            point(i, part) = PointMath::sum(pointAt(i, part), aDelta);
        theNodesChanged = true;
    }
    changeChunks();
    updateLabel();
}

void LmCvRegion::mouseReleaseEvent(QMouseEvent*, QPoint&)
{
    if (isVisible())
        theCurrentNode = -1;
    theCreatedNode = -1;
    theNodesChanged = false;
}
