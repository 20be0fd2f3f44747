#ifndef Q3CANVASRECTANGLE_H
#define Q3CANVASRECTANGLE_H

#include "Q3CanvasPolygonalItem.h"

/// A rectangle with its upper left corner at the item's position, drawn with the item's pen and brush.
class Q3CanvasRectangle : public Q3CanvasPolygonalItem
{
public:
    explicit Q3CanvasRectangle(Q3Canvas* aCanvas);
    Q3CanvasRectangle(const QRect& aRect, Q3Canvas* aCanvas);
    Q3CanvasRectangle(int aX, int aY, int aWidth, int aHeight, Q3Canvas* aCanvas);
    ~Q3CanvasRectangle() override;

    int width() const { return theSize.width(); }
    int height() const { return theSize.height(); }
    QSize size() const { return theSize; }
    void setSize(int aWidth, int aHeight);
    QRect rect() const;

    int rtti() const override { return 5; }
    Q3PointArray areaPoints() const override;

protected:
    void drawShape(QPainter& aPainter) override;

private:
    QSize theSize;
};

#endif
