#ifndef LMCVDISTANCE_H
#define LMCVDISTANCE_H

#include "LmCvLineObject.h"

/// A measured distance on the canvas: a line with an arrow head at each end and a label along it. The user
/// drags either end or the whole line. theDragPoint is the last mouse point while the line moves, and the end
/// that stands still while the other one moves.
class LmCvDistance : public LmCvLineObject
{
public:
    static constexpr int kRtti = 1102;

    LmCvDistance(LmCvManipulator* aTool, Q3Canvas* aCanvas, const QString& aLabel, Q3CanvasView* aView);
    ~LmCvDistance() override;

    /// Sets the line; the only way in which its geometry changes.
    void setPoints(const QPoint& aStart, const QPoint& aEnd);
    /// Whether the point hits an arrow head, and at which end. At the start each flank is tested with one
    /// diagonal of the hit square, at the end the second flank with both: beside the end's first flank the
    /// line is what is hit.
    bool isPointOnArrow(const QPoint& aPoint, QPoint& aEnd, int aTol) const;

    int rtti() const override { return kRtti; }
    Q3PointArray areaPoints() const override;
    void drawShape(QPainter& aPainter) override;
    void adjustScale(const QMatrix& aMatrix) override;
    bool isPointOnObject(const QPoint& aPoint, int& aNode, int aTol) override;
    bool isRectContainsObject(const QRect& aRect) override;
    void mousePressEvent(QMouseEvent* aEvent, QPoint& aPoint) override;
    void mouseReleaseEvent(QMouseEvent* aEvent, QPoint& aPoint) override;
    void mouseMoveEvent(QMouseEvent* aEvent, QPoint& aPoint) override;
    void moveObjectBy(const QPoint& aDelta) override;
    void updateLabel() override;

    QPoint theStart;
    QPoint theEnd;
    bool theMoving = false;
    double theArrowLength = 10.0;
    QPoint theWing1; // from theStart; theEnd has the opposite
    QPoint theWing2;
    QPoint theNormal; // across the line, twice the arrow length
    QPoint theBack;   // against the line, once the arrow length
    double theLength = 0.0;

private:
    bool hasOutwardHeads() const;
    QPoint endShift() const;
    void drawHeads(QPainter& aPainter) const;
};

#endif
