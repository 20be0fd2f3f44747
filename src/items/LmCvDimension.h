#ifndef LMCVDIMENSION_H
#define LMCVDIMENSION_H

#include "LmCvLineObject.h"

/// A dimension on the canvas: up to four separate segments with a tick across each end, a handle beyond each
/// end while the item is active, and one label along one of the segments. The user drags a segment or one of
/// its ends. theDragPoint is the last mouse point while a segment moves, and the segment's other end while an
/// end is dragged.
class LmCvDimension : public LmCvLineObject
{
public:
    static constexpr int kRtti = 1112;
    static constexpr int kCapSize = 20; // canvas pixels at zoom 1 and above, as is the next
    static constexpr int kCtrlRad = 4;

    LmCvDimension(LmCvManipulator* aTool, Q3Canvas* aCanvas, const QString& aLabel, Q3CanvasView* aView);
    ~LmCvDimension() override;

    /// Sets the ends of all segments, two points each, and with them handles and label. A last point without
    /// a second one makes no segment.
    void setPoints(const Q3PointArray& aPoints);
    /// Moves one segment; does nothing for an index without a segment.
    void moveDimBy(int aSegment, const QPoint& aDelta);
    /// The first handle whose squared distance from the point is at most aTol: unlike the hit square of the
    /// lines a tolerance of 9 reaches 3 pixels. aIndex is 0 after a miss.
    bool isPointOnCtrl(const QPoint& aPoint, int& aIndex, int aTol) const;

    int rtti() const override { return kRtti; }
    /// The upright rectangle around all segments with handles and ticks. It always reaches from 32000 or less
    /// to 0 or more in both directions.
    Q3PointArray areaPoints() const override;
    void drawShape(QPainter& aPainter) override;
    void adjustScale(const QMatrix& aMatrix) override;
    /// aSegment is the first segment that is hit; after a miss it is the count of segments.
    bool isPointOnObject(const QPoint& aPoint, int& aSegment, int aTol) override;
    bool isRectContainsObject(const QRect& aRect) override;
    void mousePressEvent(QMouseEvent* aEvent, QPoint& aPoint) override;
    void mouseReleaseEvent(QMouseEvent* aEvent, QPoint& aPoint) override;
    void mouseMoveEvent(QMouseEvent* aEvent, QPoint& aPoint) override;
    void moveObjectBy(const QPoint& aDelta) override;
    void updateLabel() override;

    int theCtrlIdx = -1; // of the dragged handle, which is also that of its point
    int theSegIdx = -1;  // of the dragged segment, -1 without one
    Q3PointArray thePoints;
    Q3PointArray theCtrlPoints; // handle centres, one for each point
    double theCtrlRad = kCtrlRad;
    double theCapSize = kCapSize; // half length of a tick

private:
    /// Two ends and the way between them.
    struct Segment
    {
        Segment(const QPoint& aStart, const QPoint& aEnd);

        QPoint theStart;
        QPoint theEnd;
        double theDx;
        double theDy;
        double theLength;
    };

    int segmentCount() const { return int(thePoints.size() / 2); }
    Segment segment(int aIndex) const;
    int labelSegment() const;
    void placeLabel(int aRaise);
    void dragHandle(QMouseEvent* aEvent, QPoint& aPoint);
    void drawSegments(QPainter& aPainter) const;
    void drawHandles(QPainter& aPainter) const;
};

#endif
