#ifndef Q3CANVASLINE_H
#define Q3CANVASLINE_H

#include "Q3CanvasPolygonalItem.h"

/// A straight line between two points, drawn with the item's pen. Moving the item moves both points.
class Q3CanvasLine : public Q3CanvasPolygonalItem
{
public:
    explicit Q3CanvasLine(Q3Canvas* aCanvas);
    ~Q3CanvasLine() override;

    void setPoints(int aX1, int aY1, int aX2, int aY2);
    QPoint startPoint() const { return moved(theLineStart); }
    QPoint endPoint() const { return moved(theLineEnd); }

    int rtti() const override { return 7; }
    Q3PointArray areaPoints() const override;

protected:
    void drawShape(QPainter& aPainter) override;

private:
    QPoint moved(const QPoint& aPoint) const;

    QPoint theOrigin; // the item's position when the points were set
    QPoint theLineStart;
    QPoint theLineEnd;
};

#endif
