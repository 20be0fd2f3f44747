#ifndef LMCVANGLE_H
#define LMCVANGLE_H

#include "LmCvLineObject.h"

struct ArrowHead;

/// A measured angle on the canvas: a vertex, two arms with an arrow head at each far end, an arc that runs
/// clockwise from the first arm to the second, and an upright label below the vertex. The user drags either
/// end, the vertex by the label, or the whole angle by an arm or the inside of the arc. theDragPoint is the
/// last mouse point while the angle moves.
class LmCvAngle : public LmCvLineObject
{
public:
    static constexpr int kRtti = 1106;
    static constexpr unsigned int kArcRadius = 30; // canvas pixels at every zoom

    static constexpr double kArcUnitsPerDegree = 16.0; // as painters count arcs
    static constexpr int kFullArc = 5760;

    enum Node { kVertex = 0, kEnd1 = 1, kEnd2 = 2 };

    LmCvAngle(LmCvManipulator* aTool, Q3Canvas* aCanvas, const QString& aLabel, Q3CanvasView* aView);
    ~LmCvAngle() override;

    /// Sets the angle; the only way in which its geometry changes. An arm of length 0 has no arrow head and
    /// the direction 0.
    void setPoints(const QPoint& aVertex, const QPoint& aEnd1, const QPoint& aEnd2);
    /// Whether the point hits an arrow head, and at which end. Beside a head's first flank the arm is what is
    /// hit.
    bool isPointOnArrow(const QPoint& aPoint, QPoint& aEnd, int aTol) const;
    /// Whether the point lies on the label, edges included, which is the vertex's handle.
    bool isPointOnStart(const QPoint& aPoint) const;
    /// The sweep from the first arm to the second in degrees, over -360 up to 0, between the directions of
    /// the arc.
    double getAngle() const;

    int rtti() const override { return kRtti; }
    /// Eleven points clockwise around the square of the arc, out to each end and back.
    Q3PointArray areaPoints() const override;
    /// The area and the label, which below zoom 1 grows out of the area.
    QRect boundingRect() const override;
    void drawShape(QPainter& aPainter) override;
    void adjustScale(const QMatrix& aMatrix) override;
    bool isPointOnObject(const QPoint& aPoint, int& aNode, int aTol) override;
    bool isRectContainsObject(const QRect& aRect) override;
    void mousePressEvent(QMouseEvent* aEvent, QPoint& aPoint) override;
    void mouseReleaseEvent(QMouseEvent* aEvent, QPoint& aPoint) override;
    void mouseMoveEvent(QMouseEvent* aEvent, QPoint& aPoint) override;
    void moveObjectBy(const QPoint& aDelta) override;
    void updateLabel() override;

    QPoint theVertex;
    QPoint theEnd1;
    QPoint theEnd2;
    int theDragNode = kVertex;
    bool theMoving = false;
    double theArrowLength = 10.0;
    QPoint theWing1a; // from the flanks of theEnd1's head to theEnd1
    QPoint theWing1b;
    QPoint theWing2a; // the same of theEnd2
    QPoint theWing2b;
    QPoint theNormal1; // across the first arm, once the arrow length
    QPoint theNormal2;
    QRect theArcRect;
    double theStartAngle = 0.0; // degrees, counter-clockwise on the screen from the right
    double theEndAngle = 0.0;
    double theLength1 = 0.0;
    double theLength2 = 0.0;

private:
    void placeLabel();
    void drawArc(QPainter& aPainter) const;
    void drawHeads(QPainter& aPainter) const;
    bool isPointInSector(const QPoint& aPoint) const;
    QPolygon stations() const;
};

#endif
