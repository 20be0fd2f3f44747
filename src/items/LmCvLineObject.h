#ifndef LMCVLINEOBJECT_H
#define LMCVLINEOBJECT_H

#include "LmCvObject.h"

#include <QBrush>
#include <QFont>

struct TurnedLabel;

/// An object of straight lines with a label: what distances, angles and dimensions share beside their
/// geometry. All points are canvas coordinates.
class LmCvLineObject : public LmCvObject
{
public:
    LmCvLineObject(LmCvManipulator* aTool, Q3Canvas* aCanvas, const QString& aLabel, Q3CanvasView* aView);
    ~LmCvLineObject() override;

    /// SegmentGeometry::intersect.
    static bool linesIntersect(QPoint a, QPoint b, QPoint c, QPoint d, QPoint& aOut);

    bool isNodesChanged() override { return theNodesChanged; }

    QPoint theDragPoint;
    bool theDragging = false; // a part of the object follows the mouse
    bool theNodesChanged = false;
    QFont theFont;
    QRect theLabelRect; // before it is turned
    bool theEditDone = false;
    int theSelSize; // canvas pixels, side of the hit square

protected:
    /// Gives font and hit square their sizes at the zoom, and returns them all.
    ScaledSizes takeScale(const QMatrix& aMatrix);
    /// A press or a release of an edit takes its event.
    void startEdit(QMouseEvent* aEvent);
    void finishEdit(QMouseEvent* aEvent);
    TurnedLabel label() const;
    /// Arrow heads are filled while the object is the current one.
    QBrush headBrush() const;
};

#endif
