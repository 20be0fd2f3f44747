#ifndef LMCVMANIPDIST_H
#define LMCVMANIPDIST_H

#include "LmCvObjectTool.h"

class LmCvDistance;

/// The tool "Distance": draws a distance with press, drag and release.
///
/// A record holds the line's middle ("pos", image coordinates, rounded) and the vector from it to the end
/// ("ep"), so a line of odd extent loses a pixel at its start when it comes back from the kernel.
class LmCvManipDist : public LmCvObjectTool
{
    Q_OBJECT

public:
    explicit LmCvManipDist(QObject* aParent);
    /// Registered and connected when it returns, without an editor yet.
    LmCvManipDist(QToolBar* aToolBar, QObject* aParent);
    ~LmCvManipDist() override;

    QVariant getValue(const QString& aName, const LmCvObject* aObject, QString& aUnit) override;
    using LmCvManipulator::getValues;
    QLinkedList<QVariant> getValues(const QStringList& aNames, const LmKernelObjectData* aData,
                                    QStringList& aUnits) override;
    void mousePressEvent(QMouseEvent* aEvent) override;
    void mouseReleaseEvent(QMouseEvent* aEvent) override;
    void mouseMoveEvent(QMouseEvent* aEvent) override;
    bool abortAction() override;

    /// Puts the path of the line's middle, or of the end whose arrow head was hit, on the keyframe clipboard
    /// in image coordinates. An end's path needs two keyframes; with fewer the clipboard is left empty.
    void copyAnimKeyframes(const LmCvObject* aObject, const QPoint& aPoint) override;
    /// Makes the middle, or the end whose arrow head was hit, follow the clipboard's path, and animates the
    /// object.
    void pasteAnimKeyframes(const LmCvObject* aObject, const QPoint& aPoint) override;

    LmCvDistance* theCurrent = nullptr; // being drawn, null between drawings; owned by the canvas

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

private:
    enum Param { kPos = kFirstOwnParam, kEp };

    QVariant measured(const QString& aName, const QPoint& aExtent, double aStep) const;
    bool isAngleName(const QString& aName) const;
};

#endif
