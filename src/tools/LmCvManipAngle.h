#ifndef LMCVMANIPANGLE_H
#define LMCVMANIPANGLE_H

#include "LmCvObjectTool.h"

class LmCvAngle;

/// The tool "Angle": draws an angle in two strokes. The first one, with the button held down, goes from the
/// vertex to the end of the second arm; then the first arm follows the pointer until a click.
///
/// A record holds the vertex ("pos", image coordinates) and the vectors from it to both ends ("ep1", "ep2").
class LmCvManipAngle : public LmCvObjectTool
{
    Q_OBJECT

public:
    explicit LmCvManipAngle(QObject* aParent);
    /// Registered and connected when it returns, without an editor yet.
    LmCvManipAngle(QToolBar* aToolBar, QObject* aParent);
    ~LmCvManipAngle() override;

    /// The angle in radians, from 0 up to a full turn, that is swept counter-clockwise on the screen from aB
    /// to aA. An arm of length 0 points to the right.
    static double calcAngle(const QPoint& aVertex, const QPoint& aA, const QPoint& aB);

    QVariant getValue(const QString& aName, const LmCvObject* aObject, QString& aUnit) override;
    using LmCvManipulator::getValues;
    QLinkedList<QVariant> getValues(const QStringList& aNames, const LmKernelObjectData* aData,
                                    QStringList& aUnits) override;
    void mousePressEvent(QMouseEvent* aEvent) override;
    void mouseReleaseEvent(QMouseEvent* aEvent) override;
    void mouseMoveEvent(QMouseEvent* aEvent) override;
    void keyPressEvent(QKeyEvent* aEvent) override;
    /// An angle in the making is dropped.
    void removeCvObject(LmCvObject* aObject) override;
    bool abortAction() override;
    QString hint() const override;

    /// Puts the path of the vertex, or of the end of the other arm than the one whose arrow head was hit, on
    /// the keyframe clipboard in image coordinates. An end's path needs two keyframes; with fewer the
    /// clipboard is left empty.
    void copyAnimKeyframes(const LmCvObject* aObject, const QPoint& aPoint) override;
    /// Makes a part of the angle follow the clipboard's path, and animates the object: the end whose arrow
    /// head was hit, on the label the vertex with both ends left where they are, anywhere else the whole.
    void pasteAnimKeyframes(const LmCvObject* aObject, const QPoint& aPoint) override;

    enum Stage { kFirstStroke = 0, kSecondStroke = 1 };

    LmCvAngle* theCurrent = nullptr; // being drawn, null between drawings; owned by the canvas
    int theStage = kFirstStroke;     // of the drawing; the mouse is grabbed for all of the second stroke

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
    enum Param { kPos = kFirstOwnParam, kEp1, kEp2 };

    void startDrawing(const QPoint& aPoint);
    void startSecondStroke();
    void finishDrawing();
    void endDrawing();
};

#endif
