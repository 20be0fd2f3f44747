#include "LmCvGestures.h"

#include "CanvasEvent.h"
#include "ItemRecord.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmCvSelection.h"

#include <QMouseEvent>

LmCvGestures::LmCvGestures(LmCvEditor& aEditor) : theEditor(aEditor) {}

bool LmCvGestures::press(QMouseEvent* aEvent)
{
    theCurrentPos = aEvent->position();
    theCurrentPoint = theEditor.toCanvas(theCurrentPos);
    theRightTaken = false;
    // A button can't go down twice: its release went astray, as into a dialog that opened in between.
    if (theState != kIdle && aEvent->button() == theButton && !abort())
        reset();
    if (startPan(aEvent) || thePanning || theState != kIdle)
        return true;
    theButton = aEvent->button();
    thePressPos = theCurrentPos;
    thePressPoint = theLastPoint = theCurrentPoint;
    if (theButton == Qt::LeftButton) {
        leftPress(aEvent);
        return true;
    }
    return theButton == Qt::RightButton && rightPress(aEvent);
}

/// Goes to a tool in the middle of an action alone; otherwise it is left to the menu.
bool LmCvGestures::rightPress(QMouseEvent* aEvent)
{
    LmCvManipulator* tool = theEditor.mouseGrabber();
    if (!tool && currentToolClaims(*aEvent))
        tool = theEditor.theCurrentManipulator;
    if (!tool)
        return false;
    theRightTaken = true;
    sendPressToTool(tool, aEvent);
    return true;
}

void LmCvGestures::leftPress(QMouseEvent* aEvent)
{
    if (LmCvManipulator* grabber = theEditor.mouseGrabber()) {
        sendPressToTool(grabber, aEvent);
        return;
    }
    LmCvManipulator* tool = theEditor.theCurrentManipulator;
    if (currentToolClaims(*aEvent)) {
        sendPressToTool(tool, aEvent);
        return;
    }
    if (pressForGroup(tool, aEvent) || pressOnItem(aEvent))
        return;
    if (tool)
        sendPressToTool(tool, aEvent);
    else
        theState = kRubberBand;
}

bool LmCvGestures::currentToolClaims(const QMouseEvent& aEvent) const
{
    LmCvManipulator* tool = theEditor.theCurrentManipulator;
    if (!tool)
        return false;
    QMouseEvent question = CanvasEvent::at(aEvent, theCurrentPoint);
    return tool->claimsPress(&question, theEditor.itemAt(theCurrentPoint, tool));
}

/// With the selection arrow Shift on an item makes or changes the group, and a group is taken by any of its
/// items. The current item gets its Shift press itself, since it may have nodes to select.
bool LmCvGestures::pressForGroup(LmCvManipulator* aTool, QMouseEvent* aEvent)
{
    LmCvObject* hit = aTool ? nullptr : theEditor.itemAt(theCurrentPoint);
    if (!hit)
        return false;
    const LmCvSelection& selection = theEditor.selection();
    if (CanvasEvent::holds(*aEvent, Qt::ShiftModifier)) {
        if (hit == theEditor.theCurrentTrack)
            return false;
        theState = kTogglePress;
    } else if (selection.contains(hit) && selection.items().size() > 1) {
        theState = kGroupPress;
    } else {
        return false;
    }
    theItem = hit;
    return true;
}

bool LmCvGestures::pressOnItem(QMouseEvent* aEvent)
{
    LmCvManipulator* tool = theEditor.theCurrentManipulator;
    const bool reversed = tool && CanvasEvent::holds(*aEvent, Qt::ControlModifier);
    for (LmCvObject* item : theEditor.itemsNear(theCurrentPoint)) {
        if (tool && (item->theManipulator == tool) == reversed)
            continue;
        if (!sendPressToItem(item, aEvent))
            continue;
        if (tool && !reversed && theEditor.theItemWatchers.contains(tool)) {
            theState = kWatchedPress;
            return true;
        }
        if (!tool && !theToggleOnClick)
            theEditor.selection().clear();
        theEditor.activateItem(item);
        return true;
    }
    return false;
}

bool LmCvGestures::sendPressToItem(LmCvObject* aItem, QMouseEvent* aEvent)
{
    QMouseEvent event = CanvasEvent::press(*aEvent, thePressPoint, theButton);
    event.ignore();
    QPoint point = thePressPoint;
    const QLinkedList<int> nodesBefore = aItem->getSelectedNodes();
    aItem->mousePressEvent(&event, point);
    if (!event.isAccepted())
        return false;
    theState = kItemDrag;
    theItem = aItem;
    theLastPoint = thePressPoint;
    // A Shift click that selected one of the item's nodes is used up by that.
    theToggleOnClick = !theEditor.theCurrentManipulator && CanvasEvent::holds(*aEvent, Qt::ShiftModifier) &&
                       aItem->getSelectedNodes() == nodesBefore;
    theEditor.canvas()->update();
    return true;
}

bool LmCvGestures::sendPressToTool(LmCvManipulator* aTool, QMouseEvent* aEvent)
{
    // Before the call, since the tool may end its own action within the press.
    theState = kToolAction;
    theTool = aTool;
    QMouseEvent event = CanvasEvent::press(*aEvent, thePressPoint, theButton);
    aTool->mousePressEvent(&event);
    theEditor.canvas()->update();
    aEvent->setAccepted(event.isAccepted());
    if (!event.isAccepted())
        reset();
    return event.isAccepted();
}

bool LmCvGestures::move(QMouseEvent* aEvent)
{
    const QRect formerBand = rubberBand();
    theCurrentPos = aEvent->position();
    theCurrentPoint = theEditor.toCanvas(theCurrentPos);
    Q_EMIT theEditor.signalPointerMoved(theCurrentPoint);
    if (thePanning) {
        pan(theCurrentPos);
        return true;
    }
    if ((theState == kTogglePress || theState == kGroupPress || theState == kWatchedPress) && movedFar())
        leaveClick(aEvent);
    switch (theState) {
    case kIdle:
        updateCursor();
        return moveTool(theEditor.mouseGrabber(), aEvent);
    case kToolAction:
        return moveTool(theTool, aEvent);
    case kItemDrag:
        dragItem(aEvent);
        return true;
    case kGroupDrag:
        dragGroup();
        return true;
    case kRubberBand:
        repaintFrame(formerBand);
        repaintFrame(rubberBand());
        return true;
    case kWatchedPress:
    case kTogglePress:
    case kGroupPress:
        return true;
    }
    return false;
}

bool LmCvGestures::moveTool(LmCvManipulator* aTool, QMouseEvent* aEvent)
{
    if (!aTool)
        return false;
    QMouseEvent event = CanvasEvent::at(*aEvent, theCurrentPoint);
    aTool->mouseMoveEvent(&event);
    theEditor.canvas()->update();
    aEvent->setAccepted(event.isAccepted());
    return true;
}

/// The press has become more than a click: the drag begins where the button went down.
void LmCvGestures::leaveClick(QMouseEvent* aEvent)
{
    LmCvObject* item = theItem;
    const LmCvSelection& selection = theEditor.selection();
    const bool moveGroup =
        theState == kGroupPress || (selection.contains(item) && selection.items().size() > 1);
    if (theState != kWatchedPress && moveGroup) {
        theState = kGroupDrag;
        return;
    }
    if (theState == kWatchedPress)
        theState = kItemDrag;
    else if (!sendPressToItem(item, aEvent))
        reset();
    theToggleOnClick = false;
    if (theItem)
        theEditor.activateItem(theItem);
}

void LmCvGestures::dragItem(QMouseEvent* aEvent)
{
    // The pointer may move within one canvas pixel; that is no change of the item.
    if (theCurrentPoint == theLastPoint)
        return;
    theLastPoint = theCurrentPoint;
    QMouseEvent event = CanvasEvent::at(*aEvent, theCurrentPoint);
    QPoint point = theCurrentPoint;
    theItem->mouseMoveEvent(&event, point);
    if (theItem)
        ItemRecord::showLiveValue(*theItem);
    theEditor.canvas()->update();
}

void LmCvGestures::dragGroup()
{
    if (theCurrentPoint == theLastPoint)
        return;
    theEditor.selection().moveBy(theCurrentPoint - theLastPoint);
    theLastPoint = theCurrentPoint;
}

bool LmCvGestures::release(QMouseEvent* aEvent)
{
    theCurrentPos = aEvent->position();
    theCurrentPoint = theEditor.toCanvas(theCurrentPos);
    if (thePanning && aEvent->button() == thePanButton) {
        thePanning = false;
        updateCursor();
        return true;
    }
    if (theState == kIdle || aEvent->button() != theButton)
        return true;
    LmCvObject* item = theItem;
    switch (theState) {
    case kIdle:
        break;
    case kToolAction:
        finishToolAction(aEvent);
        break;
    case kItemDrag:
        finishItemDrag(aEvent);
        break;
    case kWatchedPress:
        finishWatchedPress(aEvent);
        break;
    case kTogglePress:
        reset();
        toggle(item);
        break;
    case kGroupPress:
        reset();
        theEditor.selection().clear();
        theEditor.activateItem(item);
        break;
    case kGroupDrag:
        dragGroup();
        reset();
        if (theLastPoint != thePressPoint)
            theEditor.selection().finishMove();
        break;
    case kRubberBand:
        finishRubberBand(aEvent);
        break;
    }
    updateCursor();
    return true;
}

bool LmCvGestures::doubleClick(QMouseEvent* aEvent)
{
    LmCvManipulator* grabber = theEditor.mouseGrabber();
    if (LmCvManipulator* tool = grabber ? grabber : theEditor.theCurrentManipulator) {
        QMouseEvent event = CanvasEvent::at(*aEvent, theEditor.toCanvas(aEvent->position()));
        tool->mouseDoubleClickEvent(&event);
        theEditor.canvas()->update();
        if (event.isAccepted())
            return true;
    }
    // To everyone else the second click of two quick ones is a press like any other.
    return press(aEvent);
}
