#ifndef Q3CANVASPOLYGONALITEM_H
#define Q3CANVASPOLYGONALITEM_H

#include "Q3CanvasItem.h"

/// An item whose repaint area is a polygon. Drawing isn't clipped to that area.
///
/// Whoever changes what the item shows calls `invalidate()` before the change and `update()` after it; the
/// canvas repaints both areas at its next `update()`.
class Q3CanvasPolygonalItem : public Q3CanvasItem
{
public:
    explicit Q3CanvasPolygonalItem(Q3Canvas* aCanvas);
    ~Q3CanvasPolygonalItem() override;

    bool collidesWith(const Q3CanvasItem* aOther) const override;
    void draw(QPainter& aPainter) override;
    QRect boundingRect() const override;

    /// The corners of the canvas's square fields of 64 pixels that the area touches.
    virtual Q3PointArray chunks() const;
    virtual void addToChunks();
    virtual void removeFromChunks();
    virtual void changeChunks();
    virtual bool collidesWith(const Q3CanvasPolygonalItem* aOther) const;
    virtual void setPen(QPen aPen);
    virtual void setBrush(QBrush aBrush);
    /// The corners of the repaint area in canvas coordinates.
    virtual Q3PointArray areaPoints() const = 0;
    /// The same after the next advance.
    virtual Q3PointArray areaPointsAdvanced() const;
    virtual void drawShape(QPainter& aPainter) = 0;

    QPen pen() const { return thePolygonPen; }
    QBrush brush() const { return theBrush; }

protected:
    /// Marks the area that the item was last drawn in. A second call before `update()` does nothing.
    void invalidate();
    /// Takes the new area into the canvas and marks it.
    void update();
    bool isValid() const { return theValid; }

    void markChanged() override;
    void areaChanged() override;

private:
    QPen thePolygonPen;
    QBrush theBrush;
    bool theValid = false;
};

#endif
