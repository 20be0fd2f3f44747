#ifndef CANVASTESTITEMS_H
#define CANVASTESTITEMS_H

#include "Q3Canvas.h"
#include "Q3CanvasPolygonalItem.h"

#include <QColor>
#include <QImage>
#include <QPainter>

/// A block of one colour that counts how often it is drawn and can change its place without telling.
class Block : public Q3CanvasPolygonalItem
{
public:
    Block(const QRect& aRect, const QColor& aColor, Q3Canvas* aCanvas)
        : Q3CanvasPolygonalItem(aCanvas), theRect(aRect), theColor(aColor)
    {
        show();
    }

    Q3PointArray areaPoints() const override
    {
        return QPolygon{theRect.topLeft(), theRect.topRight(), theRect.bottomRight(), theRect.bottomLeft()};
    }

    void drawShape(QPainter& aPainter) override
    {
        ++theDrawn;
        aPainter.fillRect(theRect, theColor);
    }

    void place(const QRect& aRect)
    {
        invalidate();
        theRect = aRect;
        update();
    }

    using Q3CanvasPolygonalItem::invalidate;
    using Q3CanvasPolygonalItem::isValid;
    using Q3CanvasPolygonalItem::update;

    QRect theRect;
    QColor theColor;
    int theDrawn = 0;
};

/// The canvas painted whole, a pixel of the picture for each of its own.
inline QImage painted(Q3Canvas& aCanvas)
{
    QImage picture(aCanvas.size(), QImage::Format_RGB32);
    picture.fill(Qt::magenta);
    QPainter painter(&picture);
    aCanvas.drawArea(aCanvas.rect(), painter);
    return picture;
}

#endif
