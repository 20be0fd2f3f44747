// How the gestures of LmCvGestures end: by the release of their button, by Esc, or because their item or tool
// goes.
#include "LmCvGestures.h"

#include "CanvasEvent.h"
#include "ItemRecord.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmCvSelection.h"

#include <QMouseEvent>

void LmCvGestures::finishToolAction(QMouseEvent* aEvent)
{
    LmCvManipulator* tool = theTool;
    reset();
    QMouseEvent event = CanvasEvent::at(*aEvent, theCurrentPoint);
    tool->mouseReleaseEvent(&event);
    theEditor.canvas()->update();
    aEvent->setAccepted(event.isAccepted());
}

void LmCvGestures::finishItemDrag(QMouseEvent* aEvent)
{
    LmCvObject* item = theItem;
    const bool toggles = theToggleOnClick;
    // Asked first: the release may clear it.
    const bool changed = item->isNodesChanged();
    releaseItem(aEvent);
    if (changed)
        Q_EMIT theEditor.signalCanvasObjectChanged(item);
    else if (toggles)
        toggle(item);
    theEditor.canvas()->update();
}

void LmCvGestures::finishWatchedPress(QMouseEvent* aEvent)
{
    releaseItem(aEvent);
    LmCvManipulator* watcher = theEditor.theCurrentManipulator;
    // Within the press the watcher may have been left.
    if (watcher && sendPressToTool(watcher, aEvent) && theTool)
        finishToolAction(aEvent);
}

/// The item's part of the gesture ends here, so that whatever follows may remove the item.
void LmCvGestures::releaseItem(QMouseEvent* aEvent)
{
    LmCvObject* item = theItem;
    reset();
    QMouseEvent event = CanvasEvent::at(*aEvent, theCurrentPoint);
    QPoint point = theCurrentPoint;
    item->mouseReleaseEvent(&event, point);
}

void LmCvGestures::finishRubberBand(QMouseEvent* aEvent)
{
    const QRect band = rubberBand();
    const bool add = CanvasEvent::holds(*aEvent, Qt::ShiftModifier);
    reset();
    theEditor.viewport()->update();
    LmCvSelection& selection = theEditor.selection();
    if (band.isNull()) {
        if (add)
            return;
        selection.clear();
        theEditor.activateItem(nullptr);
        return;
    }
    selection.selectIn(band, add);
    // A band around parts of the current item selects its nodes.
    if (selection.items().isEmpty() && theEditor.theCurrentTrack)
        theEditor.theCurrentTrack->selectNodes(band.topLeft(), QSize(band.width() - 1, band.height() - 1));
    theEditor.canvas()->update();
}

/// The current item counts as taken already: a Shift click on a second one makes a group of both.
void LmCvGestures::toggle(LmCvObject* aItem)
{
    LmCvSelection& selection = theEditor.selection();
    LmCvObject* current = theEditor.theCurrentTrack;
    if (current && current != aItem && selection.items().isEmpty())
        selection.toggle(current);
    selection.toggle(aItem);
}

void LmCvGestures::forget(const Q3CanvasItem* aItem)
{
    // The rest of a group goes on moving.
    if (theState == kGroupDrag ? theEditor.selection().items().isEmpty() : theItem == aItem)
        reset();
}

void LmCvGestures::forget(const LmCvManipulator* aTool)
{
    if (aTool && theTool == aTool)
        reset();
}

bool LmCvGestures::abort()
{
    LmCvObject* item = theItem;
    switch (theState) {
    case kIdle:
    case kToolAction:
        return false;
    case kItemDrag:
    case kWatchedPress: {
        QMouseEvent event(QEvent::MouseButtonRelease, theLastPoint, theLastPoint, theLastPoint, theButton,
                          Qt::NoButton, Qt::NoModifier);
        releaseItem(&event);
        ItemRecord::restore(*item);
        break;
    }
    case kGroupDrag:
        reset();
        // Restoring one member may make its tool replace others, which leave the group as they go.
        for (LmCvObject* member : theEditor.selection().items())
            if (theEditor.selection().contains(member))
                ItemRecord::restore(*member);
        break;
    case kTogglePress:
    case kGroupPress:
    case kRubberBand:
        reset();
        theEditor.viewport()->update();
        break;
    }
    theEditor.canvas()->update();
    updateCursor();
    return true;
}
