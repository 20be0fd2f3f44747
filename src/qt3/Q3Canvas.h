#ifndef Q3CANVAS_H
#define Q3CANVAS_H

#include "Q3CanvasItem.h"

#include <QColor>
#include <QObject>
#include <QSize>

#include <vector>

class QRegion;
class Q3CanvasView;

/// The plane on which items stand. It owns its items, keeps their drawing order and their areas, and tells
/// its views at `update()` which parts to paint again.
///
/// The areas lie in one array in drawing order: a scan of 50,000 of them takes less time than painting one
/// label, and an item that moves costs one write.
class Q3Canvas : public QObject
{
    Q_OBJECT

public:
    explicit Q3Canvas(QObject* aParent = nullptr);
    Q3Canvas(int aWidth, int aHeight);
    ~Q3Canvas() override;

    QSize size() const { return theSize; }
    int width() const { return theSize.width(); }
    int height() const { return theSize.height(); }
    QRect rect() const { return QRect(QPoint(0, 0), theSize); }
    virtual void resize(int aWidth, int aHeight);
    QColor backgroundColor() const { return theBackgroundColor; }
    virtual void setBackgroundColor(const QColor& aColor);

    /// All items, topmost first.
    Q3CanvasItemList allItems() const;
    /// The visible items whose area touches the rectangle or holds the point, topmost first.
    Q3CanvasItemList collisions(const QRect& aCanvasRect) const;
    Q3CanvasItemList collisions(const QPoint& aCanvasPoint) const;

    void setChanged(const QRect& aCanvasRect);
    void setAllChanged();
    /// Hands all marked areas to the views, which paint them with the next event loop turn.
    virtual void update();
    /// Moves the animated items one step: stage 0 for all, then stage 1 for all, then `update()`.
    virtual void advance();

    /// Paints background and items of an area. The painter maps canvas coordinates to the device already and
    /// clips: the background fills the region's bounding rectangle, and items are drawn whole.
    void drawArea(const QRegion& aCanvasRegion, QPainter& aPainter);

Q_SIGNALS:
    void resized();
    /// The item is about to leave the canvas; pointers to it have to go now. Its subclass parts may be gone
    /// already.
    void itemRemoved(Q3CanvasItem* aItem);

protected:
    /// Fills the rectangle with what lies behind all items: the background colour.
    virtual void drawBackground(QPainter& aPainter, const QRect& aCanvasRect);

private:
    friend class Q3CanvasItem;
    friend class Q3CanvasPolygonalItem;
    friend class Q3CanvasView;

    struct Slot
    {
        QRect theArea;         // where the item was last drawn; null while hidden
        Q3CanvasItem* theItem; // null when the item has gone
    };

    void addItem(Q3CanvasItem* aItem);
    void removeItem(Q3CanvasItem* aItem);
    void setArea(Q3CanvasItem* aItem, const QRect& aArea);
    void markSlot(const Q3CanvasItem* aItem);
    void zChanged(const Q3CanvasItem* aItem);
    Slot& slotOf(const Q3CanvasItem* aItem);
    void tidySlots() const;
    bool hasManyGaps() const { return std::size_t(theGoneCount) * 2 > theSlots.size(); }
    void addView(Q3CanvasView* aView);
    void removeView(Q3CanvasView* aView);

    QSize theSize;
    QColor theBackgroundColor = Qt::white;
    mutable std::vector<Slot> theSlots; // by z, then creation
    mutable bool theOrderDirty = false;
    mutable int theGoneCount = 0;
    quint64 theNextSerial = 1;
    QList<QRect> theChanged; // canvas coordinates, never more than a bounded number
    bool theAllChanged = false;
    QList<Q3CanvasView*> theViews; // not owned
};

#endif
