#ifndef LMCVGESTURES_H
#define LMCVGESTURES_H

#include <QPoint>
#include <QPointF>
#include <QRect>

class LmCvEditor;
class LmCvManipulator;
class LmCvObject;
class QContextMenuEvent;
class QKeyEvent;
class QMouseEvent;
class QWheelEvent;

/// Decides who gets a press on the viewport and leads the gesture to its end: a tool's action, the drag of an item or
/// of the selected group, the rubber band, or panning. Panning works in the middle of any of them.
///
/// A press goes to the first of: the mouse grabber; the current tool if it claims the press; the item under the
/// pointer; the current tool, or the rubber band without one. Ctrl lets an item of another tool be taken, or a new
/// object be begun on top of an own one.
class LmCvGestures
{
public:
    explicit LmCvGestures(LmCvEditor& aEditor);

    bool press(QMouseEvent* aEvent);
    bool move(QMouseEvent* aEvent);
    bool release(QMouseEvent* aEvent);
    bool doubleClick(QMouseEvent* aEvent);
    bool wheel(QWheelEvent* aEvent);
    bool contextMenu(QContextMenuEvent* aEvent);
    void spaceKey(bool aDown);
    /// The item has gone; a gesture on it ends.
    void forget(const LmCvObject* aItem);
    void forget(const LmCvManipulator* aTool);
    /// Ends a rubber band or an item's drag without a change; false if neither runs.
    bool abort();
    /// The rubber band in canvas coordinates, null without one.
    QRect rubberBand() const;

private:
    enum State
    {
        kIdle,
        kToolAction, // a tool has the press
        kItemDrag,   // an item has the press
        kGroupDrag,  // the selected group moves
        kWatchedPress, // a click is a watcher's press, a longer way the item's drag
        kRubberBand
    };

    LmCvManipulator* receiverOfPress(QMouseEvent* aEvent, const QPoint& aCanvasPoint, LmCvObject*& aItem) const;
    void startOnItem(QMouseEvent* aEvent, LmCvObject* aItem, const QPoint& aCanvasPoint);
    void startRubberBand(QMouseEvent* aEvent, const QPoint& aCanvasPoint);
    void startPan(const QPointF& aViewportPos);
    void sendMove(QMouseEvent* aEvent, const QPoint& aCanvasPoint);
    void finishItemDrag(QMouseEvent* aEvent, QPoint aCanvasPoint);
    void finishRubberBand(QMouseEvent* aEvent);
    bool movedFar(const QPointF& aViewportPos) const;
    void updateCursor(const QPoint& aCanvasPoint);

    LmCvEditor& theEditor;
    State theState = kIdle;
    bool thePanning = false;
    bool theSpaceDown = false;
    LmCvManipulator* theTool = nullptr; // of the running action, not owned
    LmCvObject* theItem = nullptr;      // of the running drag, owned by the canvas
    QPointF thePressPos;                // viewport
    QPointF thePanPos;                  // viewport
    QPoint theLastPoint;                // canvas
    QPoint theBandStart;                // canvas
    QPoint theBandEnd;                  // canvas
};

#endif
