#ifndef Q3CANVASITEM_H
#define Q3CANVASITEM_H

#include "Q3PointArray.h"

#include <QBrush>
#include <QList>
#include <QPen>
#include <QRect>

class QPainter;
class Q3Canvas;
class Q3CanvasItem;

using Q3CanvasItemList = QList<Q3CanvasItem*>;

/// Something that stands on a canvas. A new item is hidden. The canvas owns its items and deletes those that
/// are left when it goes; deleting an item takes it off its canvas.
///
/// The virtual operations stand in the order in which subclasses of the tools replace them.
class Q3CanvasItem
{
public:
    explicit Q3CanvasItem(Q3Canvas* aCanvas);
    Q3CanvasItem(const Q3CanvasItem&) = delete;
    Q3CanvasItem& operator=(const Q3CanvasItem&) = delete;
    virtual ~Q3CanvasItem();

    double x() const { return theX; }
    double y() const { return theY; }
    double z() const { return theZ; }
    void setX(double aX) { move(aX, theY); }
    void setY(double aY) { move(theX, aY); }
    /// Items of a greater z are drawn later; among equals the younger one is drawn later.
    void setZ(double aZ);
    void move(double aX, double aY);

    virtual void moveBy(double aDx, double aDy);
    virtual void setAnimated(bool aOn);
    virtual void setVelocity(double aDx, double aDy);
    /// Stage 0 looks at the others, stage 1 moves by the velocity.
    virtual void advance(int aStage);
    virtual bool collidesWith(const Q3CanvasItem* aOther) const = 0;
    virtual void setCanvas(Q3Canvas* aCanvas);
    virtual void draw(QPainter& aPainter) = 0;
    virtual void setVisible(bool aOn);
    virtual void setSelected(bool aOn);
    virtual void setEnabled(bool aOn);
    virtual void setActive(bool aOn);
    virtual int rtti() const { return 0; }
    /// The repaint area in canvas coordinates.
    virtual QRect boundingRect() const = 0;
    /// The repaint area after the next advance.
    virtual QRect boundingRectAdvanced() const;

    void show() { setVisible(true); }
    void hide() { setVisible(false); }
    bool isAnimated() const { return theAnimated; }
    double xVelocity() const { return theXVelocity; }
    double yVelocity() const { return theYVelocity; }
    bool isVisible() const { return theVisible; }
    bool isSelected() const { return theSelected; }
    bool isEnabled() const { return theEnabled; }
    bool isActive() const { return theActiveFlag; }
    Q3Canvas* canvas() const { return theCanvas; }

protected:
    /// Marks the present area for a repaint: called before a change of what is drawn.
    virtual void markChanged() = 0;
    /// Tells the canvas the present area: called after a change of what is drawn.
    virtual void areaChanged() = 0;

private:
    friend class Q3Canvas;

    void setFlag(bool& aFlag, bool aOn);

    Q3Canvas* theCanvas;   // not owned; owns this item
    int theSlot = -1;      // place in the canvas's drawing order, kept by the canvas
    quint64 theSerial = 0; // order of arrival on the canvas, kept by the canvas
    double theX = 0.0;
    double theY = 0.0;
    double theZ = 0.0;
    double theXVelocity = 0.0;
    double theYVelocity = 0.0;
    bool theAnimated = false;
    bool theVisible = false;
    bool theSelected = false;
    bool theEnabled = false;
    bool theActiveFlag = false;
};

#endif
