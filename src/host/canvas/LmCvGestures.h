#ifndef LMCVGESTURES_H
#define LMCVGESTURES_H

#include <QLinkedList>
#include <QPoint>
#include <QPointF>
#include <QRect>

class LmCvEditor;
class LmCvManipulator;
class LmCvObject;
class Q3CanvasItem;
class QContextMenuEvent;
class QMouseEvent;
class QWheelEvent;

/// Decides who gets a press on the viewport and leads the gesture to its end: a tool's action, the drag of an
/// item or of the selected group, the rubber band, or panning. Panning works in the middle of any of them.
///
/// A press goes to the first of: the mouse grabber; the current tool if it claims the press; the item under
/// the pointer; the current tool, or the rubber band without one. Ctrl lets an item of another tool be taken,
/// or a new object be begun on top of an own one.
///
/// The button that began a gesture ends it; other buttons are swallowed meanwhile.
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
    void forget(const Q3CanvasItem* aItem);
    void forget(const LmCvManipulator* aTool);
    /// Ends a rubber band or an item's drag without a change; false if neither runs.
    bool abort();
    /// The rubber band in canvas coordinates, null without one.
    QRect rubberBand() const;
    void updateCursor();

private:
    enum State {
        kIdle,
        kToolAction,   // a tool has the press
        kItemDrag,     // an item has the press
        kWatchedPress, // an item has the press; a click is a watcher's press, a longer way the item's drag
        kTogglePress,  // a click takes the item into the group or out of it, a longer way is a drag
        kGroupPress,   // a click leaves the group for the item, a longer way moves the group
        kGroupDrag,    // the selected group moves
        kRubberBand
    };

    void leftPress(QMouseEvent* aEvent);
    bool rightPress(QMouseEvent* aEvent);
    bool currentToolClaims(const QMouseEvent& aEvent) const;
    bool pressForGroup(LmCvManipulator* aTool, QMouseEvent* aEvent);
    bool pressOnItem(QMouseEvent* aEvent);
    bool sendPressToItem(LmCvObject* aItem, QMouseEvent* aEvent);
    bool sendPressToTool(LmCvManipulator* aTool, QMouseEvent* aEvent);
    bool moveTool(LmCvManipulator* aTool, QMouseEvent* aEvent);
    void leaveClick(QMouseEvent* aEvent);
    void dragItem(QMouseEvent* aEvent);
    void dragGroup();
    void finishToolAction(QMouseEvent* aEvent);
    void finishItemDrag(QMouseEvent* aEvent);
    void finishWatchedPress(QMouseEvent* aEvent);
    void finishRubberBand(QMouseEvent* aEvent);
    void releaseItem(QMouseEvent* aEvent);
    void toggle(LmCvObject* aItem);
    bool startPan(const QMouseEvent* aEvent);
    void pan(const QPointF& aViewportPos);
    bool movedFar() const;
    /// Repaints the lines of a band, not what they enclose.
    void repaintFrame(const QRect& aBand);
    void reset();

    LmCvEditor& theEditor;
    State theState = kIdle;
    Qt::MouseButton theButton = Qt::NoButton; // began the gesture
    bool thePanning = false;
    Qt::MouseButton thePanButton = Qt::NoButton; // none while the space bar pans under a gesture's button
    bool theSpaceDown = false;
    bool theRightTaken = false;         // the last right press was a tool's and opens no menu
    bool theToggleOnClick = false;      // of the drag: a click takes the item into the group or out of it
    LmCvManipulator* theTool = nullptr; // of the running action, not owned
    LmCvObject* theItem = nullptr;      // of the running drag, owned by the canvas
    QPointF thePressPos;                // viewport
    QPointF theCurrentPos;              // viewport, of the last event
    QPointF thePanPos;                  // viewport
    QPoint thePressPoint;               // canvas
    QPoint theCurrentPoint;             // canvas, of the last event
    QPoint theLastPoint;                // canvas, up to which the item or group has been dragged
    int theWheelRest = 0;               // angle that makes no whole zoom step yet
};

#endif
