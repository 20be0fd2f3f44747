// The side of LmCvGestures that looks at the view and changes no object: panning, zooming, menus and the
// cursor.
#include "LmCvGestures.h"

#include "LmCvEditor.h"
#include "LmCvManipulator.h"

#include <QContextMenuEvent>
#include <QLineF>
#include <QMargins>
#include <QMouseEvent>
#include <QRegion>
#include <QWheelEvent>

#include <utility>

namespace {

constexpr double kClickReach = 3.0; // screen pixels; a shorter way is a click
constexpr int kFrameReach = 2;      // screen pixels on both sides of a line, which stands on no whole pixel
constexpr int kWheelStep = 120;     // angle units of one notch

} // namespace

bool LmCvGestures::wheel(QWheelEvent* aEvent)
{
    const int angle = aEvent->angleDelta().y();
    if ((angle > 0) != (theWheelRest > 0))
        theWheelRest = 0;
    theWheelRest += angle;
    const int steps = theWheelRest / kWheelStep;
    theWheelRest -= steps * kWheelStep;
    if (steps != 0)
        theEditor.zoomStep(steps, aEvent->position());
    aEvent->accept();
    return true;
}

bool LmCvGestures::contextMenu(QContextMenuEvent* aEvent)
{
    aEvent->accept();
    const bool byMouse = aEvent->reason() == QContextMenuEvent::Mouse;
    if (theState != kIdle || thePanning || theEditor.mouseGrabber() || (byMouse && theRightTaken))
        return true;
    const QPoint point = theEditor.toCanvas(aEvent->pos());
    if (LmCvManipulator* tool = theEditor.theCurrentManipulator) {
        QContextMenuEvent event(aEvent->reason(), point, aEvent->globalPos(), aEvent->modifiers());
        tool->contextMenuEvent(&event);
        if (event.isAccepted())
            return true;
    }
    LmCvObject* item = byMouse ? theEditor.itemAt(point) : theEditor.theCurrentTrack;
    Q_EMIT theEditor.signalContextMenu(item, point, aEvent->globalPos());
    return true;
}

bool LmCvGestures::startPan(const QMouseEvent* aEvent)
{
    const bool bySpace = theSpaceDown && aEvent->button() == Qt::LeftButton;
    if (thePanning || (!bySpace && aEvent->button() != Qt::MiddleButton))
        return false;
    thePanning = true;
    thePanButton = aEvent->button();
    thePanPos = theCurrentPos;
    updateCursor();
    return true;
}

void LmCvGestures::pan(const QPointF& aViewportPos)
{
    const QPoint delta = (aViewportPos - thePanPos).toPoint();
    const QPointF before = theEditor.toViewport(QPointF());
    theEditor.scrollBy(-delta);
    thePanPos += delta;
    // The place of the press goes with the canvas, which may have come to the end of its range.
    thePressPos += theEditor.toViewport(QPointF()) - before;
    theCurrentPoint = theEditor.toCanvas(theCurrentPos);
}

void LmCvGestures::spaceKey(bool aDown)
{
    theSpaceDown = aDown;
    if (aDown && theState != kIdle && !thePanning) {
        thePanning = true;
        thePanButton = Qt::NoButton;
        thePanPos = theCurrentPos;
    }
    if (!aDown && thePanButton == Qt::NoButton)
        thePanning = false;
    updateCursor();
}

bool LmCvGestures::movedFar() const
{
    return QLineF(thePressPos, theCurrentPos).length() >= kClickReach;
}

QRect LmCvGestures::rubberBand() const
{
    if (theState != kRubberBand || !movedFar())
        return QRect();
    const QPoint first(qMin(thePressPoint.x(), theCurrentPoint.x()),
                       qMin(thePressPoint.y(), theCurrentPoint.y()));
    const QPoint last(qMax(thePressPoint.x(), theCurrentPoint.x()),
                      qMax(thePressPoint.y(), theCurrentPoint.y()));
    return QRect(first, last);
}

void LmCvGestures::repaintFrame(const QRect& aBand)
{
    if (aBand.isNull())
        return;
    const QRect frame = theEditor.canvasToViewport().mapRect(QRectF(aBand)).toAlignedRect();
    const QMargins reach(kFrameReach, kFrameReach, kFrameReach, kFrameReach);
    theEditor.viewport()->update(QRegion(frame + reach) - QRegion(frame - reach));
}

void LmCvGestures::updateCursor()
{
    QCursor cursor = theEditor.viewport()->cursor();
    if (thePanning)
        cursor = Qt::ClosedHandCursor;
    else if (theSpaceDown)
        cursor = Qt::OpenHandCursor;
    else if (theEditor.theCurrentManipulator)
        cursor = theEditor.theCurrentManipulator->getCursor();
    else if (theState == kIdle)
        cursor = theEditor.itemAt(theCurrentPoint) ? Qt::PointingHandCursor : Qt::ArrowCursor;
    if (cursor != theEditor.viewport()->cursor())
        theEditor.viewport()->setCursor(cursor);
}

void LmCvGestures::reset()
{
    theState = kIdle;
    theItem = nullptr;
    theTool = nullptr;
    theToggleOnClick = false;
    if (thePanButton == Qt::NoButton)
        thePanning = false;
}
