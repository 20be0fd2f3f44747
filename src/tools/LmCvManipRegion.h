#ifndef LMCVMANIPREGION_H
#define LMCVMANIPREGION_H

#include "LmCvObjectTool.h"
#include "LmNodeState.h"
#include "Q3ValueVector.h"

class LmCvRegion;
class Q3CanvasLine;
class Q3PointArray;
class Q3PopupMenu;

/// The tool "Region": draws outlines with the pen, one node a click, and with the pencil, freehand. It is the
/// one tool with two buttons.
///
/// An outline in the making (theFinished false, theRegion set) is an object of the kernel from its first node
/// on; each click or stroke is one change of it. A record holds the outline's points ("pts") relative to
/// their centre of gravity and that centre ("pos") in image coordinates.
class LmCvManipRegion : public LmCvObjectTool
{
    Q_OBJECT

public:
    explicit LmCvManipRegion(QObject* aParent);
    /// Registered and connected when it returns, without an editor yet.
    LmCvManipRegion(QToolBar* aToolBar, QObject* aParent);
    ~LmCvManipRegion() override;

    void initManipulator(QToolBar* aToolBar) override;
    int getCvObjectFlags(LmCvObject* aObject) override;
    QStringList getAnimatedValueNames() override;
    QIcon& getIconSet(const QString& aType) override;
    QIcon& getAutoCreationIconSet(const QString& aType) override;
    using LmCvManipulator::getValues;
    QLinkedList<QVariant> getValues(const QStringList& aNames, const LmKernelObjectData* aData,
                                    QStringList& aUnits) override;
    QLinkedList<LmParamKeyframe> getAnimation(const QString& aName, int aIdx, QString& aUnit) override;
    /// Brings the tool back with the button of its mode.
    void makeCurrent() override;
    void mouseLeaveEvent(QEvent* aEvent) override;
    void mousePressEvent(QMouseEvent* aEvent) override;
    void mouseReleaseEvent(QMouseEvent* aEvent) override;
    void mouseMoveEvent(QMouseEvent* aEvent) override;
    void keyReleaseEvent(QKeyEvent* aEvent) override;
    LmParamKeyframeVector createKeyframesFromContour(LmCvObject* aObject, const LmCVSequence& aContour,
                                                     long long aFrame) override;
    int createObjectFromContour(const LmCVSequence& aContour, QString aName) override;
    void modifyObjectFromContour(const LmCVSequence& aContour, int aIdx) override;
    const QCursor& getCursor() const override;
    bool claimsPress(QMouseEvent* aEvent, LmCvObject* aHit) override;
    bool abortAction() override;
    QString hint() const override;

    /// The pencil's dotted line to the next node. While it is there the tool holds the mouse.
    void startRubberLine(bool aStart, const QPoint& aPos);
    /// Node states as the bytes of a record, three per node, and back. Only synchro goes into the record.
    static QByteArray SvToBa(const Q3ValueVector<LmNodeState>& aStates);
    static Q3ValueVector<LmNodeState> BaToSv(const QByteArray& aBytes);

    QCursor theRegionCursor; // the pen's
    QCursor thePencilCursor;
    QCursor theCrossCursor;          // shown by nobody
    LmCvRegion* theRegion = nullptr; // in the making, or the last one; owned by the canvas, cleared when it
                                     // goes
    QToolButton* thePencilButton = nullptr; // owned by the tool bar
    bool theFinished = false;               // no outline is in the making; a fresh tool waits for a button
    bool thePencilMode = false;
    QPoint theLastPress;   // canvas
    bool theAppend = true; // the outline grows at its last node, otherwise at its first
    QIcon theIcon;
    QIcon theAutoIcon;
    QIcon thePencilIcon;
    Q3CanvasLine* theRubberLine = nullptr;
    Q3PopupMenu* thePencilMenu = nullptr; // owned by the pencil button
    bool theAutoShape = false;
    bool theSmooth = false;

public Q_SLOTS:
    void slotObjectCreatedInKernel(int aType, int aIdx, const LmKernelObjectData* aData) override;
    void slotObjectChangedInKernel(int aType, int aIdx, const LmKernelObjectData* aData) override;
    /// Stands in for the slot of the base.
    void slotObjectShowInKernel(const int aType, const int aIdx, bool aShown);
    void slotToolButtonToggled(bool aToggled);
    void slotToolButtonPToggled(bool aToggled);
    void slotMenuItemActivated(int aId);

protected:
    enum Param { kClosed = kFirstOwnParam, kPoints, kStates, kPos };

    QString typeName() const override;
    Texts texts() const override;
    QList<ParamDescr> ownParams() const override;
    LmCvObject* newItem(const QString& aLabel) override;
    NamedValues geometryOf(const LmCvObject* aItem, const QPoint& aOrigin,
                           const LmKernelObjectData* aFormer) const override;
    void applyGeometry(LmCvObject* aItem, const LmParamKeyframeVector& aValues,
                       const QPoint& aOrigin) const override;
    void forgetItem(const Q3CanvasItem* aItem) override;
    void beforeChange(const LmCvObject* aItem, int aIdx, const LmKernelObjectData& aRecord) override;

private:
    struct Contour;

    void makePencilButton();
    void makePencilMenu();
    void setFinished(bool aFinished);
    bool isDrawing() const { return !theFinished && theRegion; }
    // The press that ends an outline is still to be released when theFinished is set.
    bool isActing() const { return theRegion && (!theFinished || thePressed); }
    LmCvRegion* currentRegion() const;
    void leaveOutline();
    void continueOutline(const QMouseEvent& aEvent, QPoint aRubberEnd);
    bool resumeOutline(const QMouseEvent& aEvent);
    void collapseGrowingHandle(int aNode);
    void restartOutline();
    void createObject();
    void moveStroke(const QMouseEvent& aEvent);
    void finishStroke();
    bool smoothStroke();
    void reportFit(const Q3PointArray& aStroke, int aShape);
    NamedValues contourValues(const Contour& aContour) const;
    void showRecord(LmCvRegion& aRegion, const LmParamKeyframeVector& aValues) const;
    void showContour(LmCvRegion& aRegion, const Contour& aContour) const;
    void pin(int aIdx, LmParamKeyframeVector aValues, long long aFrame);

    bool thePressed = false; // between a press and its release
};

#endif
