#ifndef LMCVMANIPCOUNTER_H
#define LMCVMANIPCOUNTER_H

#include "CounterLook.h"
#include "LmCvRecordTool.h"

class LmCvArrow;

/// The tool "Counter": counts things, one numbered mark a click.
///
/// One object of the kernel, a counter, stands for a whole group of marks on the canvas, so theCvObjects
/// stays empty. A record holds two image points per mark ("pos"), the label's anchor and the tip. The whole
/// record is written at each change, and when it comes back from the kernel all marks are made anew. A mark's
/// number is its place in the list.
class LmCvManipCounter : public LmCvRecordTool
{
    Q_OBJECT

public:
    explicit LmCvManipCounter(QObject* aParent);
    /// Registered and connected when it returns, without an editor yet.
    LmCvManipCounter(QToolBar* aToolBar, QObject* aParent);
    ~LmCvManipCounter() override;

    void initManipulator(QToolBar* aToolBar) override;
    int getCvObjectFlags(LmCvObject* aObject) override;
    QLinkedList<QPair<QString, int>> getCustomActions() override;
    QStringList getAnimatedValueNames() override;
    QIcon& getIconSet(const QString& aType) override;
    QIcon& getAutoCreationIconSet(const QString& aType) override;
    using LmCvManipulator::getValues;
    QLinkedList<QVariant> getValues(const QStringList& aNames, const LmKernelObjectData* aData,
                                    QStringList& aUnits) override;
    bool allObjectsNeedRecalc() override;
    /// The first mark of the counter.
    LmCvObject* getCvObject(int aIdx) override;
    void setCvEditor(LmCvEditor* aEditor) override;
    void mousePressEvent(QMouseEvent* aEvent) override;
    void mouseReleaseEvent(QMouseEvent* aEvent) override;
    void mouseMoveEvent(QMouseEvent* aEvent) override;
    void recreateCanvasObjects(QPoint aOrigin, long long aFrame, bool aAll) override;
    /// Takes one mark away.
    void removeCvObject(LmCvObject* aObject) override;
    // Both act on all marks of the counter.
    void setColorCvObject(LmCvObject* aObject, QColor aColor) override;
    void showCvObject(LmCvObject* aObject, bool aShown) override;
    void actionOnCvObject(LmCvObject* aObject, QPoint aPoint, int aAction) override;
    int createObjectFromContour(const LmCVSequence& aContour, QString aName) override;
    void constructDataObject(const QDomElement& aElement, QProgressDialog* aProgress) override;
    const QCursor& getCursor() const override;
    bool abortAction() override;
    QString hint() const override;

    /// A mark at the point (canvas) in the current counter, or in a new one where no mark is current. With
    /// aCheckHit a mark of the current counter that lies there is taken away instead. The index of the
    /// counter that has the new mark, -1 if none was made.
    int createCounterElement(const QPoint& aPos, bool aCheckHit);
    /// The index of the mark's counter, or -1; its number of marks and the mark's position in it, and the
    /// greatest index of all counters.
    int findCounterIndex(const LmCvArrow* aArrow, int& aCount, int& aMaxIdx, int* aPos) const;
    LmCvArrow* findCounterElementAt(QPoint aPos, int& aIdx, int& aPosInList) const;
    void renumberCanvasCounter(int aIdx);
    void removeCounter(LmCvObject* aObject);
    /// Writes all marks of a counter into its record, which is created first with aCreate.
    void updateKernelCounter(int aIdx, bool aCreate);
    /// Leaves the marks that a record tells of, as if they had all been made anew.
    void updateCanvasCounter(int aIdx, const LmParamKeyframeVector& aValues);

    QCursor theCounterCursor;
    QCursor theSpareCursor;                   // shown by nobody
    LmCvArrow* theCreatedArrow = nullptr;     // the last one; owned by the canvas, cleared when it goes
    QPoint theLastPress;                      // canvas
    QMap<int, QList<LmCvArrow*>> theCounters; // by object index; the arrows are owned by the canvas
    QIcon theCounterIcon;
    QIcon theAutoCreationIcon;

public Q_SLOTS:
    void slotCanvasObjectChanged(LmCvObject* aObject) override;
    void slotObjectCreatedInKernel(int aType, int aIdx, const LmKernelObjectData* aData) override;
    void slotObjectChangedInKernel(int aType, int aIdx, const LmKernelObjectData* aData) override;
    // These stand in for the slots of the base, which look in theCvObjects.
    void slotObjectRemovedInKernel(const int aType, const int aIdx);
    void slotObjectShowInKernel(const int aType, const int aIdx, bool aShown);
    void slotObjectColorChangedInKernel(const int aType, const int aIdx, const QColor& aColor);
    void slotCalibrationChangedInKernel(const QString& aName, const LmCalibData& aData);

protected:
    enum Param { kPos = kFirstOwnParam, kName, kFont };

    QString typeName() const override;
    Texts texts() const override;
    QList<ParamDescr> ownParams() const override;
    QList<int> shownIndexes() const override;
    void forgetItem(const Q3CanvasItem* aItem) override;
    int indexOf(const LmCvObject& aObject) const override;

private:
    CounterLook lookOf(const LmParamKeyframeVector& aValues) const;
    LmCvArrow* newMark();
    LmCvArrow* newMark(const CounterLook& aLook, qsizetype aPos);
    LmCvArrow* currentMark() const;
    int currentCounter() const;
    bool isAnyPressed() const;
    bool isAnySelected() const;
    int addMark(const QPoint& aPos, int aIdx);
    void removeMark(int aIdx, int aPos);
    void removeMarks(int aIdx);
    void releaseCurrent(const QList<LmCvArrow*>& aMarks);
    void showMarks(int aIdx, bool aShown);
    void colorMarks(int aIdx, const QColor& aColor);
    static QString nameOf(const QList<LmCvArrow*>& aMarks);
    static void giveNumber(LmCvArrow& aMark, const QString& aName, qsizetype aNumber);
    QPolygon numberedPoints(int aIdx);
    void store(int aIdx, bool aCreate, const QString& aText);
    void repaint();

    KnownLooks theKnownLooks;
};

#endif
