#ifndef LMCVMANIPDIM_H
#define LMCVMANIPDIM_H

#include "LmCvObjectTool.h"

class LmCvDimension;
class Q3PointArray;

/// The tool "Dimension": draws the height of a new dimension with press, drag and release, and with Alt up to
/// three widths on the current one.
///
/// A record holds the ends of all segments ("points", image coordinates), the height first. The height's
/// middle ("pos") only tells others where the dimension is; no item is made from it.
class LmCvManipDim : public LmCvObjectTool
{
    Q_OBJECT

public:
    explicit LmCvManipDim(QObject* aParent);
    /// Registered and connected when it returns, without an editor yet.
    LmCvManipDim(QToolBar* aToolBar, QObject* aParent);
    ~LmCvManipDim() override;

    /// The live figure of a drag. It knows the widths by the last digit of their names and the average under
    /// "Avg Width", without the dot; "Height" and "Avg. Width" are invalid, so that a label that shows one of
    /// them goes blank while its dimension is dragged.
    QVariant getValue(const QString& aName, const LmCvObject* aObject, QString& aUnit) override;
    using LmCvManipulator::getValues;
    /// "Height", "Avg. Width", and for any name that ends in a digit the segment of that number, 0 where the
    /// dimension has none. The average is the length between the mean first and the mean second ends of the
    /// widths: widths drawn in opposite directions cancel out.
    QLinkedList<QVariant> getValues(const QStringList& aNames, const LmKernelObjectData* aData,
                                    QStringList& aUnits) override;
    void setCvEditor(LmCvEditor* aEditor) override;
    void mousePressEvent(QMouseEvent* aEvent) override;
    void mouseReleaseEvent(QMouseEvent* aEvent) override;
    void mouseMoveEvent(QMouseEvent* aEvent) override;
    void recreateCanvasObjects(QPoint aOrigin, long long aFrame, bool aAll) override;
    bool claimsPress(QMouseEvent* aEvent, LmCvObject* aHit) override;
    bool abortAction() override;
    QString hint() const override;

    static Q3PointArray offsetPoints(const Q3PointArray& aPoints, const QPoint& aOffset);

    QString theDispValueName; // of a new dimension's label; always empty, so the label begins without a value
    LmCvDimension* theCurrent = nullptr; // being drawn, null between drawings; owned by the canvas
    int theNewSegment = 0;               // being drawn: 0 for the height of a new dimension

public Q_SLOTS:
    void slotObjectChangedInKernel(int aType, int aIdx, const LmKernelObjectData* aData) override;

protected:
    QString typeName() const override;
    Texts texts() const override;
    QList<ParamDescr> ownParams() const override;
    LmCvObject* newItem(const QString& aLabel) override;
    NamedValues geometryOf(const LmCvObject* aItem, const QPoint& aOrigin,
                           const LmKernelObjectData* aFormer) const override;
    void applyGeometry(LmCvObject* aItem, const LmParamKeyframeVector& aValues,
                       const QPoint& aOrigin) const override;
    void forgetItem(const Q3CanvasItem* aItem) override;
    QString shownText(const QString& aName, const QString& aValueText) const override;

private:
    enum Param { kPos = kFirstOwnParam, kPoints };

    LmCvDimension* currentDimension() const;
    LmCvDimension* extensible() const;
    bool showsNewSegment() const;
    bool findNewSegment();
    static QVariant measured(const QString& aName, const QString& aAverageName, const Q3PointArray& aPoints,
                             double aStep);
};

#endif
