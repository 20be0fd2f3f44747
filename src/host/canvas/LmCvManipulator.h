#ifndef LMCVMANIPULATOR_H
#define LMCVMANIPULATOR_H

#include "LmInt64.h"
#include "LmParamKeyframe.h"
#include "LmParamKeyframeVector.h"

#include <QCursor>
#include <QIcon>
#include <QLinkedList>
#include <QMap>
#include <QObject>
#include <QPair>
#include <QPoint>
#include <QSize>
#include <QStringList>

struct LmCalibData;
class LmCVSequence;
class LmCvEditor;
class LmCvObject;
class LmKSKernelData;
class LmKernelObjectData;
class QColor;
class QContextMenuEvent;
class QDomElement;
class QDropEvent;
class QKeyEvent;
class QMouseEvent;
class QProgressDialog;
class QToolBar;
class QToolButton;
class QUndoCommand;
class QUndoStack;

/// Base class of every tool. A tool keeps the canvas items of one object type in step with the kernel's
/// records.
///
/// Stages: after the constructor a tool has its object type and cursors and touches neither kernel nor tool
/// bar; after `initManipulator` it is registered, connected and has its button; after
/// `signalManipulatorsLoaded` it may ask the kernel for the other tools. `setUndoStack` and `setCvEditor` may
/// come before or after `initManipulator`.
///
/// A tool sets `theSelfChange` around every push. The kernel's signals come back within the push, and the
/// tool's slots then return at once, since the canvas already shows the change.
class LmCvManipulator : public QObject
{
    Q_OBJECT

public:
    explicit LmCvManipulator(QObject* aParent);
    LmCvManipulator(QToolBar* aToolBar, QObject* aParent);
    ~LmCvManipulator() override;

    // The virtual operations stand in the order of the plug-in interface.
    virtual void initManipulator(QToolBar* aToolBar);
    virtual void setUndoStack(QUndoStack* aStack);
    virtual int getSwitchModifier();
    /// What may be done to an object, or with null what the tool can do: 1 properties, 4 colour, 8 hide and
    /// show, 16 delete, 32 custom actions, 128 values that follow the frames, 256 automatic creation, 512
    /// measured objects.
    virtual int getCvObjectFlags(LmCvObject* aObject);
    virtual QLinkedList<QPair<QString, int>> getCustomActions();
    virtual QStringList getAnimatedValueNames();
    virtual QStringList getObjectTypeNames();
    virtual QIcon& getIconSet(const QString& aType);
    virtual QIcon& getAutoCreationIconSet(const QString& aType);
    /// One value from the item's live geometry; invalid for a foreign item or name.
    virtual QVariant getValue(const QString& aName, const LmCvObject* aObject, QString& aUnit);
    virtual QLinkedList<QVariant> getValues(const QStringList& aNames, int aIdx, QStringList& aUnits);
    /// Values from the record at the current frame, one unit for each; both lists run parallel with the
    /// names.
    virtual QLinkedList<QVariant> getValues(const QStringList& aNames, const LmKernelObjectData* aData,
                                            QStringList& aUnits);
    virtual QLinkedList<LmParamKeyframe> getAnimation(const QString& aName, int aIdx, QString& aUnit);
    virtual bool allObjectsNeedRecalc();
    virtual QString getObjectName(int aIdx);
    virtual QString getObjectName(const LmCvObject* aObject);
    virtual LmCvObject* getCvObject(int aIdx);
    virtual void setCvEditor(LmCvEditor* aEditor);
    virtual void makeCurrent();
    virtual void mouseLeaveEvent(QEvent* aEvent);
    virtual void mousePressEvent(QMouseEvent* aEvent);
    virtual void mouseReleaseEvent(QMouseEvent* aEvent);
    virtual void mouseMoveEvent(QMouseEvent* aEvent);
    virtual void contextMenuEvent(QContextMenuEvent* aEvent);
    virtual void mouseDoubleClickEvent(QMouseEvent* aEvent);
    virtual void keyPressEvent(QKeyEvent* aEvent);
    virtual void keyReleaseEvent(QKeyEvent* aEvent);
    virtual bool drop(QDropEvent* aEvent);
    virtual void recreateCanvasObjects(QPoint aOrigin, long long aFrame, bool aAll);
    virtual void updateDisplayValue(LmCvObject* aObject, const QString& aName, bool aFromKernel,
                                    bool aRepaint);
    virtual void removeCvObject(LmCvObject* aObject);
    virtual void setColorCvObject(LmCvObject* aObject, QColor aColor);
    virtual void showCvObject(LmCvObject* aObject, bool aShown);
    /// Switches whether the object follows the frames; the two further flags are reserved for the host.
    virtual void changeAnimationCvObject(LmCvObject* aObject, bool aAnimated, bool, bool);
    virtual void editCvObject(LmCvObject* aObject, QPoint aPoint);
    virtual void actionOnCvObject(LmCvObject* aObject, QPoint aPoint, int aAction);
    virtual LmParamKeyframeVector createKeyframesFromContour(LmCvObject* aObject,
                                                             const LmCVSequence& aContour, long long aFrame);
    virtual int createObjectFromContour(const LmCVSequence& aContour, QString aName);
    virtual void modifyObjectFromContour(const LmCVSequence& aContour, int aIdx);
    virtual void constructDataObject(const QDomElement& aElement, QProgressDialog* aProgress);
    virtual void copyAnimKeyframes(const LmCvObject* aObject, const QPoint& aPoint);
    virtual void pasteAnimKeyframes(const LmCvObject* aObject, const QPoint& aPoint);
    virtual const QCursor& getCursor() const;

    // Operations of this host beyond the plug-in interface.
    /// Whether the tool, being current, takes a press before the item under the pointer does.
    virtual bool claimsPress(QMouseEvent* aEvent, LmCvObject* aHit);
    /// Ends a running action without leaving half an object: called for Esc and when the tool is left. True
    /// if there was an action to end.
    virtual bool abortAction();
    /// What the next click does, for the person at the mouse; the tool's help by default.
    virtual QString hint() const;
    /// The tool whose objects this one makes: itself, or null where that isn't settled.
    virtual LmCvManipulator* objectTool();

    /// Finds the thing under the point (canvas) and makes an object of it, or with aModify gives its outline
    /// to the object aIdx, as a keyframe of an animated one. The limits are three numbers each, how far red,
    /// green and blue may lie below and above the pixel's own. False when there was nothing to be found.
    bool findAndCreate(QPoint aPoint, bool aModify, int aIdx, int* aLower, int* aUpper, QString aName);
    /// The index of the item's object, or -1.
    int getObjectIdx(const LmCvObject* aObject) const { return aObject ? indexOf(*aObject) : -1; }
    /// The greatest key of theCvObjects plus 1; a gap is not filled.
    int nextObjectIdx() const;

    bool theInitDone = false;
    QToolButton* theToolButton = nullptr;    // owned by the tool bar
    QToolBar* theToolBar = nullptr;          // not owned
    LmCvEditor* theCvEditor = nullptr;       // not owned
    QUndoStack* theUndoStack = nullptr;      // not owned
    QObject* theKernel = nullptr;            // emits the kernel's signals; not owned
    LmKSKernelData* theKernelData = nullptr; // not owned
    QStringList theValueNames;
    QIcon theIcon;
    int theObjectType = 0;
    QMap<int, LmCvObject*> theCvObjects; // owned by the canvas
    QCursor theCursor;
    bool theSelfChange = false;

    static QString theLastUsedValueName;
    static QLinkedList<LmParamKeyframe> theClipboardKeyframes;
    static bool theCurrentViewAnimated;

Q_SIGNALS:
    void signalHintChanged();
    /// What the tool has just done, in one short sentence.
    void signalReport(const QString& aText);

public Q_SLOTS:
    void slotCalibrationChangedInKernel(const QString& aName, const LmCalibData& aData);
    void slotObjectShowInKernel(const int aType, const int aIdx, bool aShown);
    void slotObjectRemovedInKernel(const int aType, const int aIdx);
    void slotObjectColorChangedInKernel(const int aType, const int aIdx, const QColor& aColor);
    /// aMode is not 0 for a view that shows the animation of all objects.
    void slotCurrentViewInKernel(const int aView, const int aMode);
    /// Activates the tool with its button, and puts it down again.
    void slotToolToggled(bool aOn);

protected:
    /// Connects the kernel's eleven signals to the slots of the same names, always in the same order.
    void connectKernel();
    /// Gives a new item the step, the unit and the zoom.
    void prepareItem(LmCvObject* aItem);
    /// Makes the item the current and active one in place of the editor's current item.
    void makeItemCurrent(LmCvObject* aItem);
    /// Pushes a command with theSelfChange set. Takes the command; without an undo stack it is dropped.
    void pushOwn(QUndoCommand* aCommand);
    /// The index of an item's object; the item's key in theCvObjects by default.
    virtual int indexOf(const LmCvObject& aObject) const;
    /// The label's text for a value: the number with its unit by default. aName is the value's name.
    virtual QString shownText(const QString& aName, const QString& aValueText) const;
    /// A button as all tools have it, in no tool bar yet.
    static QToolButton* newToolButton();

private:
    void initMembers();
    QToolButton* makeToolButton();
    /// Pushes a command whose signals bring the canvas to it, as those of anybody's command do.
    void push(QUndoCommand* aCommand);
    void updateCanvas();
    void refreshLabel(int aIdx, LmCvObject* aItem);
    void modifyFromContour(const LmCVSequence& aContour, int aIdx);
};

#endif
