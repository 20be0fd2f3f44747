// The side of LmCvEditor that takes events: the mouse goes to the gestures, keys to tools and commands.
#include "LmCvEditor.h"

#include "LmCvGestures.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmCvSelection.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

namespace {

/// The way of an arrow key in canvas pixels, null for other keys.
QPoint arrowKeyWay(const QKeyEvent& aEvent)
{
    const int way = aEvent.modifiers().testFlag(Qt::ShiftModifier) ? 10 : 1;
    switch (aEvent.key()) {
    case Qt::Key_Left:
        return QPoint(-way, 0);
    case Qt::Key_Right:
        return QPoint(way, 0);
    case Qt::Key_Up:
        return QPoint(0, -way);
    case Qt::Key_Down:
        return QPoint(0, way);
    default:
        return QPoint();
    }
}

} // namespace

bool LmCvEditor::viewportEvent(QEvent* aEvent)
{
    noticeToolChange();
    bool taken = false;
    switch (aEvent->type()) {
    case QEvent::MouseButtonPress:
        taken = theGestures->press(static_cast<QMouseEvent*>(aEvent));
        break;
    case QEvent::MouseButtonRelease:
        taken = theGestures->release(static_cast<QMouseEvent*>(aEvent));
        break;
    case QEvent::MouseButtonDblClick:
        taken = theGestures->doubleClick(static_cast<QMouseEvent*>(aEvent));
        break;
    case QEvent::MouseMove:
        taken = theGestures->move(static_cast<QMouseEvent*>(aEvent));
        break;
    case QEvent::Wheel:
        taken = theGestures->wheel(static_cast<QWheelEvent*>(aEvent));
        break;
    case QEvent::ContextMenu:
        taken = theGestures->contextMenu(static_cast<QContextMenuEvent*>(aEvent));
        break;
    case QEvent::Leave:
        Q_EMIT signalPointerLeft();
        if (LmCvManipulator* tool = theMouseGrabber ? theMouseGrabber : theCurrentManipulator)
            tool->mouseLeaveEvent(aEvent);
        canvas()->update();
        break;
    default:
        break;
    }
    return taken || Q3CanvasView::viewportEvent(aEvent);
}

void LmCvEditor::keyPressEvent(QKeyEvent* aEvent)
{
    noticeToolChange();
    if (aEvent->key() == Qt::Key_Space) {
        if (!aEvent->isAutoRepeat())
            theGestures->spaceKey(true);
        return;
    }
    if (aEvent->key() == Qt::Key_Escape) {
        aEvent->setAccepted(escape());
        return;
    }
    if (theCurrentManipulator) {
        theCurrentManipulator->keyPressEvent(aEvent);
        canvas()->update();
    }
    if (theCurrentManipulator ? aEvent->isAccepted() : editKey(aEvent))
        return;
    aEvent->accept();
    Q3CanvasView::keyPressEvent(aEvent);
}

/// Keys of the selection arrow.
bool LmCvEditor::editKey(QKeyEvent* aEvent)
{
    if (theSelection->targets().isEmpty())
        return false;
    if (aEvent->key() == Qt::Key_Delete || aEvent->key() == Qt::Key_Backspace) {
        slotDeleteSelected();
        return true;
    }
    const QPoint way = arrowKeyWay(*aEvent);
    if (way.isNull())
        return false;
    theGestures->abort();
    theSelection->moveBy(way);
    theSelection->finishMove();
    return true;
}

void LmCvEditor::keyReleaseEvent(QKeyEvent* aEvent)
{
    noticeToolChange();
    if (aEvent->isAutoRepeat())
        return;
    if (aEvent->key() == Qt::Key_Space)
        theGestures->spaceKey(false);
    else if (theCurrentManipulator)
        theCurrentManipulator->keyReleaseEvent(aEvent);
    else
        Q3CanvasView::keyReleaseEvent(aEvent);
    canvas()->update();
}

void LmCvEditor::focusOutEvent(QFocusEvent* aEvent)
{
    // The release of the space bar goes elsewhere now.
    theGestures->spaceKey(false);
    Q3CanvasView::focusOutEvent(aEvent);
}

void LmCvEditor::slotShowAllCvItems()
{
    theSelection->showAll();
}

void LmCvEditor::slotDeleteSelected()
{
    theGestures->abort();
    if (!deleteNodes())
        theSelection->remove();
}

/// What becomes of an item without some of its nodes is known to its tool alone, which takes Delete for it.
bool LmCvEditor::deleteNodes()
{
    LmCvManipulator* tool = theCurrentTrack ? theCurrentTrack->theManipulator : nullptr;
    if (!tool || !theSelection->items().isEmpty() || theCurrentTrack->getSelectedNodes().isEmpty())
        return false;
    QKeyEvent event(QEvent::KeyRelease, Qt::Key_Delete, Qt::NoModifier);
    event.ignore();
    tool->keyReleaseEvent(&event);
    return event.isAccepted();
}

void LmCvEditor::slotEscape()
{
    escape();
}

/// False when there was nothing to leave.
bool LmCvEditor::escape()
{
    LmCvManipulator* tool = theMouseGrabber ? theMouseGrabber : theCurrentManipulator;
    if (tool && tool->abortAction()) {
        theGestures->forget(tool);
        setMouseGrabber(nullptr, false);
        canvas()->update();
        return true;
    }
    if (theGestures->abort())
        return true;
    if (theCurrentManipulator) {
        setCurrentManipulator(nullptr);
        return true;
    }
    const bool hadTargets = !theSelection->targets().isEmpty();
    theSelection->clear();
    activateItem(nullptr);
    return hadTargets;
}
