// The side of LmCvManipRegion that draws: the pen's clicks and the pencil's strokes.
#include "LmCvManipRegion.h"

#include "CanvasEvent.h"
#include "LmAppSettings.h"
#include "LmCvEditor.h"
#include "LmCvRegion.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "PointMath.h"
#include "Q3CanvasLine.h"
#include "SegmentGeometry.h"

#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QUndoStack>

namespace {

uint stateOf(const QMouseEvent& aEvent)
{
    return uint(aEvent.buttons()) | uint(aEvent.modifiers());
}

/// Whether a stroke has come so far from its last node, in canvas pixels, that it gets another one: twice the
/// radius in which a node is hit.
bool isStepAway(const QPoint& aWay)
{
    constexpr float r = LmCvRegion::kDefNodeRadius;
    const auto dx = qint64(aWay.x());
    const auto dy = qint64(aWay.y());
    return float(quint64(dx * dx) + quint64(dy * dy)) >= r * (r * 4.0F);
}

} // namespace

void LmCvManipRegion::setFinished(bool aFinished)
{
    if (theFinished == aFinished)
        return;
    theFinished = aFinished;
    Q_EMIT signalHintChanged();
}

void LmCvManipRegion::startRubberLine(bool aStart, const QPoint& aPos)
{
    if (!theCvEditor)
        return;
    // A line may end while another tool holds the mouse.
    if (aStart || theCvEditor->mouseGrabber() == this)
        theCvEditor->setMouseGrabber(aStart ? this : nullptr, aStart);
    delete theRubberLine;
    theRubberLine = nullptr;
    if (aStart) {
        theRubberLine = new Q3CanvasLine(theCvEditor->canvas());
        theRubberLine->setPen(
            QPen(LmAppSettings::theGridColor, 0, Qt::DotLine, Qt::SquareCap, Qt::BevelJoin));
        theRubberLine->setPoints(aPos.x(), aPos.y(), aPos.x(), aPos.y());
        theRubberLine->show();
    }
    theCvEditor->canvas()->update();
}

bool LmCvManipRegion::claimsPress(QMouseEvent* aEvent, LmCvObject*)
{
    if (isDrawing())
        return true;
    const LmCvRegion* region = currentRegion();
    // A closed outline has no ends to go on from: its first and last node are dragged like the others.
    if (!region || region->theClosed || aEvent->button() != Qt::LeftButton ||
        CanvasEvent::holds(*aEvent, Qt::AltModifier))
        return false;
    const int node = region->pointOnNode(aEvent->pos());
    return node >= 0 && (node == 0 || node == region->nodeCount() - 1);
}

/// Ends the outline in the making as the kernel has it: what a press that still lasts has done is dropped.
void LmCvManipRegion::leaveOutline()
{
    if (isActing()) {
        startRubberLine(false, QPoint());
        theRegion->setNodesShown(true);
        if (const LmKernelObjectData* record = recordOf(getObjectIdx(theRegion)))
            showRecord(*theRegion, record->getKeyframesAt(theKernelData->theCurrentFrame));
    }
    thePressed = false;
    theRegion = nullptr;
    setFinished(true);
}

bool LmCvManipRegion::abortAction()
{
    if (!isActing())
        return false;
    LmCvRegion* region = theRegion;
    leaveOutline();
    // A lone node is no outline. When the tool is left for another one the object stays as it is.
    if (theCvEditor && theCvEditor->theCurrentManipulator == this && region->nodeCount() < 2)
        removeCvObject(region);
    return true;
}

void LmCvManipRegion::mousePressEvent(QMouseEvent* aEvent)
{
    if (!canDraw()) {
        aEvent->ignore();
        return;
    }
    theLastPress = aEvent->pos();
    thePressed = true;
    const QPoint rubberEnd = theRubberLine ? theRubberLine->endPoint() : QPoint();
    startRubberLine(false, QPoint());
    aEvent->accept();
    if (isDrawing())
        continueOutline(*aEvent, rubberEnd);
    else if (theFinished && !resumeOutline(*aEvent))
        createObject();
}

void LmCvManipRegion::continueOutline(const QMouseEvent& aEvent, QPoint aRubberEnd)
{
    const bool wasClosed = theRegion->theClosed;
    if (thePencilMode && aEvent.button() == Qt::RightButton) {
        theRegion->setClosed(true);
        setFinished(true);
    } else if (thePencilMode && CanvasEvent::holds(aEvent, Qt::ShiftModifier)) {
        theRegion->setNodesShown(false);
        theRegion->enterDrawMode(aRubberEnd, theAppend);
    } else {
        theRegion->setNodesShown(!thePencilMode);
        theRegion->enterDrawMode(theLastPress, theAppend);
    }
    if (theRegion->theClosed && !wasClosed)
        setFinished(true);
}

/// Goes on with the current region: at the end node that was pressed or, with Alt, from an empty outline.
bool LmCvManipRegion::resumeOutline(const QMouseEvent& aEvent)
{
    LmCvRegion* region = currentRegion();
    if (!region)
        return false;
    theRegion = region;
    if (CanvasEvent::holds(aEvent, Qt::AltModifier)) {
        restartOutline();
        return true;
    }
    const int node = region->pointOnNode(theLastPress);
    if (node < 0 || (node != 0 && node != region->nodeCount() - 1))
        return false;
    if (thePencilMode && region->theHandlesEnabled)
        collapseGrowingHandle(node);
    region->setNodeSelected(unsigned(node), true);
    region->setNodesShown(!thePencilMode);
    setFinished(false);
    theAppend = node != 0;
    return true;
}

/// A stroke leaves its first node straight. Which handle goes is decided by the end at which the former
/// outline grew, not by the end that was pressed.
void LmCvManipRegion::collapseGrowingHandle(int aNode)
{
    LmBezierPoint node = theRegion->getNode(unsigned(aNode));
    node.setRelativeHandles(true);
    node[theAppend ? LmBezierPoint::kRightCtrl : LmBezierPoint::kLeftCtrl] = QPoint(0, 0);
    node.setRelativeHandles(false);
    theRegion->setNode(unsigned(aNode), node);
}

void LmCvManipRegion::restartOutline()
{
    theRegion->setPoints(QPoint(), Q3PointArray(), Q3ValueVector<LmNodeState>());
    theRegion->setClosed(false);
    theRegion->enterDrawMode(theLastPress, theAppend);
    slotCanvasObjectChanged(theRegion);
    setFinished(false);
    theAppend = true;
}

void LmCvManipRegion::createObject()
{
    theAppend = true;
    const int index = nextObjectIdx();
    theRegion = static_cast<LmCvRegion*>(newItem(QString::number(index)));
    theRegion->setNodesShown(!thePencilMode);
    presentNewItem(theRegion);
    theCvObjects.insert(index, theRegion);
    setFinished(false);

    const QScopedValueRollback<bool> selfChange(theSelfChange, true);
    if (theUndoStack)
        theUndoStack->beginMacro(tr("Create object"));
    pushCreation(index, {{QStringLiteral("pts"), QVariant::fromValue<QPolygon>(QPolygon(3))},
                         {QStringLiteral("nst"), SvToBa(theRegion->theNodeStates)},
                         {QStringLiteral("cl"), theRegion->theClosed},
                         {QStringLiteral("dispv"), theLastUsedValueName},
                         {QStringLiteral("col"), LmAppSettings::theGridColor},
                         {QStringLiteral("vis"), true},
                         {QStringLiteral("pos"), theKernelData->origin()}});
    theRegion->enterDrawMode(theLastPress, theAppend);
    slotCanvasObjectChanged(theRegion);
    if (theUndoStack)
        theUndoStack->endMacro();
}

void LmCvManipRegion::mouseMoveEvent(QMouseEvent* aEvent)
{
    aEvent->accept();
    if (!theRegion)
        return;
    if (thePencilMode) {
        moveStroke(*aEvent);
    } else if (theRegion->theCurrentNode >= 0) {
        // A press that went on with an outline holds no node, and the item would take its moves for a drag of
        // the whole outline.
        QPoint pos = aEvent->pos();
        theRegion->mouseMoveEvent(aEvent, pos);
        aEvent->accept();
    }
}

void LmCvManipRegion::moveStroke(const QMouseEvent& aEvent)
{
    QPoint pos = aEvent.pos();
    const LmBezierPoint end = theRegion->getNode(theAppend ? unsigned(theRegion->nodeCount() - 1) : 0U);
    const QPoint anchor = end[LmBezierPoint::kAnchor];
    const QPoint way = end.theValid ? PointMath::difference(pos, anchor) : QPoint();
    const uint state = stateOf(aEvent);
    if (state == uint(Qt::LeftButton) && isStepAway(way)) {
        const bool wasClosed = theRegion->theClosed;
        theRegion->enterDrawMode(pos, theAppend);
        if (theRegion->theClosed && !wasClosed)
            finishStroke();
        return;
    }
    if ((state & ~uint(Qt::ShiftModifier)) != 0 || !theRubberLine)
        return;
    if (CanvasEvent::holds(aEvent, Qt::ShiftModifier))
        pos = SegmentGeometry::snapped(anchor, pos);
    theRubberLine->setPoints(anchor.x(), anchor.y(), pos.x(), pos.y());
}

/// The stroke has reached the outline's other end.
void LmCvManipRegion::finishStroke()
{
    if (theSmooth)
        smoothStroke();
    theRegion->setNodesShown(true);
    slotCanvasObjectChanged(theRegion);
    theRegion = nullptr;
    setFinished(true);
}

void LmCvManipRegion::mouseReleaseEvent(QMouseEvent* aEvent)
{
    thePressed = false;
    if (thePencilMode && theSmooth && theRegion && smoothStroke()) {
        theRegion->setClosed(true);
        setFinished(true);
    }
    if (!theRegion)
        return;
    QPoint pos = aEvent->pos();
    if (thePencilMode) {
        theRegion->setNodesShown(true);
        if (!theFinished)
            startRubberLine(true, pos);
    }
    const bool changed = theRegion->isNodesChanged();
    theRegion->mouseReleaseEvent(aEvent, pos);
    if (changed)
        slotCanvasObjectChanged(theRegion);
    aEvent->accept();
}

// The stroke ends as an open outline. The record isn't changed here: the object's next edit does it.
void LmCvManipRegion::mouseLeaveEvent(QEvent*)
{
    if (!thePencilMode)
        return;
    startRubberLine(false, QPoint());
    thePressed = false;
    if (!isDrawing())
        return;
    theRegion->setClosed(false);
    setFinished(true);
}
