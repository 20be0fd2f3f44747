#ifndef LMCVEDITOR_H
#define LMCVEDITOR_H

#include "LmCvCanvas.h"
#include "Q3CanvasView.h"

#include <QLinkedList>

#include <memory>

class LmCvGestures;
class LmCvManipulator;
class LmCvObject;
class LmCvSelection;
class QToolButton;
class QUndoStack;

Q_MOC_INCLUDE("LmCvManipulator.h")
Q_MOC_INCLUDE("LmCvObject.h")

/// The view in which objects are measured. It routes mouse and keyboard to the current tool, to the item
/// under the pointer, or to selecting, zooming and panning. Events reach tools and items in canvas
/// coordinates.
class LmCvEditor : public Q3CanvasView
{
    Q_OBJECT

public:
    explicit LmCvEditor(QWidget* aParent = nullptr);
    ~LmCvEditor() override;

    Q3Canvas* getCanvas() const { return canvas(); }
    LmCvCanvas* imageCanvas() const { return theImageCanvas; }
    void setUndoStack(QUndoStack* aStack) { theUndoStack = aStack; }
    QUndoStack* undoStack() const { return theUndoStack; }
    LmCvSelection& selection() { return *theSelection; }

    /// Makes the item (or none) the current one; aReveal scrolls it into view. Its active state is the
    /// caller's.
    void setCurrentTrack(LmCvObject* aItem, bool aReveal);
    /// Makes the item (or none) current and active, and the former one inactive.
    void activateItem(LmCvObject* aItem);
    /// Takes the item from being current and from the group, because it is hidden.
    void leaveItem(LmCvObject* aItem);
    /// Activates a tool, or the selection arrow with null. A running action of the former tool is ended.
    /// aButton is the tool's button that is then on in the tool bar: its theToolButton by default, another
    /// one for a tool of several buttons. For the tool that is active already the buttons change only when
    /// one is given.
    void setCurrentManipulator(LmCvManipulator* aTool, QToolButton* aButton = nullptr);
    /// Sends all mouse events to the tool, whichever item lies under the mouse, until it is released with
    /// null, false.
    void setMouseGrabber(LmCvManipulator* aTool, bool aOn);
    LmCvManipulator* mouseGrabber() const { return theMouseGrabber; }
    /// The tool is about to go: drops all pointers to it, also those of its items.
    void forgetManipulator(const LmCvManipulator* aTool);

    bool setWorldMatrix(const QTransform& aMatrix) override;
    double zoom() const { return worldMatrix().m11(); }
    /// Zooms about the middle of the viewport. All zooms are kept from 0.02 to 64.
    void setZoom(double aZoom);
    /// Four steps double the zoom.
    void zoomStep(int aSteps, const QPointF& aViewportPos);
    void zoomToFit();

    /// The topmost item under the canvas point, the current one before all others; with a tool given only its
    /// items.
    LmCvObject* itemAt(const QPoint& aCanvasPoint, const LmCvManipulator* aOnlyOf = nullptr) const;
    /// The visible items whose area, grown by the tolerance of a hit, holds the point, in the order in which
    /// they are asked for a press: the current one first, then from the top down.
    QList<LmCvObject*> itemsNear(const QPoint& aCanvasPoint) const;
    /// All measuring items, topmost first.
    QList<LmCvObject*> cvItems() const;

    LmCvObject* theCurrentTrack = nullptr; // owned by the canvas, cleared when it goes
    LmCvManipulator* theCurrentManipulator =
        nullptr; // not owned, cleared when it goes; null is the selection arrow
    QLinkedList<LmCvManipulator*> theItemWatchers; // see clicks on all items

public Q_SLOTS:
    void slotShowAllCvItems();
    /// Ends a running action and, without one, goes back to the selection arrow.
    void slotEscape();
    /// Removes the selected nodes of the current item or else the selected items.
    void slotDeleteSelected();

Q_SIGNALS:
    void signalCanvasObjectChanged(LmCvObject* aItem);
    void signalCurrentObjectChanged(LmCvObject* aItem);
    void signalCurrentManipulatorChanged(LmCvManipulator* aTool);
    void signalSelectionChanged();
    /// The pointer moved over the canvas.
    void signalPointerMoved(const QPoint& aCanvasPoint);
    void signalPointerLeft();
    /// A menu is wanted for the item, or for the canvas with null.
    void signalContextMenu(LmCvObject* aItem, const QPoint& aCanvasPoint, const QPoint& aGlobalPos);
    void signalZoomChanged(double aZoom);

protected:
    bool viewportEvent(QEvent* aEvent) override;
    void keyPressEvent(QKeyEvent* aEvent) override;
    void keyReleaseEvent(QKeyEvent* aEvent) override;
    void focusOutEvent(QFocusEvent* aEvent) override;
    void drawForeground(QPainter& aPainter) override;
    bool hasForeground() const override;

private:
    /// The item's own class has gone already, so it is only compared.
    void forgetItem(const Q3CanvasItem* aItem);
    /// Ends what the former tool was doing and tells of the new one, also after theCurrentManipulator was
    /// written directly.
    void noticeToolChange();
    void checkOnly(QToolButton* aButton, const QList<LmCvManipulator*>& aTools);
    bool escape();
    bool editKey(QKeyEvent* aEvent);
    bool deleteNodes();

    LmCvCanvas* theImageCanvas; // owned as a child
    std::unique_ptr<LmCvGestures> theGestures;
    std::unique_ptr<LmCvSelection> theSelection;
    QUndoStack* theUndoStack = nullptr;         // not owned
    LmCvManipulator* theMouseGrabber = nullptr; // not owned
    LmCvManipulator* theKnownTool = nullptr;    // the current tool as last told, not owned
    QMetaObject::Connection theToolWatch;       // to the end of theKnownTool
};

#endif
