#ifndef LMCVARROW_H
#define LMCVARROW_H

#include "LmCvObject.h"

#include <QFont>

/// One mark of a counter: a short label and an arrow from it to the thing that is counted. The user drags the
/// tip alone or the whole mark. Where the arrow leaves the label follows from where the tip lies.
///
/// The item's position is the label's anchor, the middle of its lower edge as it was placed. All points are
/// canvas coordinates.
class LmCvArrow : public LmCvObject
{
public:
    static constexpr int kRtti = 1105;
    enum Part { kShaft = 1, kText = 2 };

    LmCvArrow(LmCvManipulator* aTool, Q3Canvas* aCanvas, const QString& aLabel, Q3CanvasView* aView);
    ~LmCvArrow() override;

    /// Places the label with the middle of its lower edge on the point; the tip stays.
    void setStartPoint(const QPoint& aPoint);
    /// Places the tip; the arrow leaves the label at the side that looks to it.
    void setEndPoint(const QPoint& aPoint);
    /// An empty text becomes four blanks, so that there is a label to be hit. The label keeps its lower left
    /// corner and grows up and to the right.
    void setText(const QString& aText);
    /// Takes the font in its own size, times the present zoom of the label.
    void setFont(const QFont& aFont);
    /// Whether the point hits the tip, which aOut then is. Only the second barb is a handle.
    bool isPointOnArrow(const QPoint& aPoint, QPoint& aOut, int aTol) const;
    /// SegmentGeometry::intersect.
    static bool linesIntersect(QPoint a, QPoint b, QPoint c, QPoint d, QPoint& aOut);

    int rtti() const override { return kRtti; }
    void moveBy(double aDx, double aDy) override;
    void setVisible(bool aOn) override;
    void setColor(const QColor& aColor) override;
    void setStep(double aStep, const QString& aUnit) override;
    QRect boundingRect() const override;
    Q3PointArray areaPoints() const override;
    void drawShape(QPainter& aPainter) override;
    void adjustScale(const QMatrix& aMatrix) override;
    bool isPointOnObject(const QPoint& aPoint, int& aNode, int aTol) override;
    bool isRectContainsObject(const QRect& aRect) override;
    void mousePressEvent(QMouseEvent* aEvent, QPoint& aPoint) override;
    void mouseReleaseEvent(QMouseEvent* aEvent, QPoint& aPoint) override;
    void mouseMoveEvent(QMouseEvent* aEvent, QPoint& aPoint) override;
    void moveObjectBy(const QPoint& aDelta) override;
    bool isNodesChanged() override { return theNodesChanged; }

    /// How often any mark has been set in place, tip, text, font, colour, calibration or visibility, or been
    /// pressed. Whoever finds the number that he left knows that the marks still are as he left them.
    static quint64 changeCount() { return theChangeCount; }

    QRect theTextRect;
    QPoint theEndPoint;  // the tip
    QPoint theTailPoint; // where the arrow leaves the label
    QPoint theLastPos;   // of a drag
    int theParts = kShaft | kText;
    bool theMovingLabel = false; // a drag moves the whole mark
    bool theMovingTip = false;
    QFont theFont;
    int thePointSize; // of theFont without the zoom
    QString theText;
    bool theNodesChanged = false;
    double theHeadLength = 10.0;
    QPoint theBarb1; // from the head's back corners to the tip
    QPoint theBarb2;
    double theArrowLength = 0.0;
    bool theDragFinished = false; // a drag has ended since the last press
    int theSelSize;               // canvas pixels, side of the hit square

private:
    void fitLabel();
    void fitArrow();
    QPoint tailFor(const QPoint& aTip) const;
    bool isBesideLabel(const QPoint& aPoint) const;
    void startDrag(QMouseEvent* aEvent);

    // Of which the barbs have been worked out.
    QPoint theFittedTip;
    double theFittedLength = 0.0;
    static quint64 theChangeCount;
};

#endif
