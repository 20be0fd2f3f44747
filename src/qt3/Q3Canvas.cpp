#include "Q3Canvas.h"

#include "CanvasPlane.h"
#include "Q3CanvasView.h"

#include <QPainter>
#include <QRegion>

#include <algorithm>

namespace {

// Beyond this number the bounding rectangle of all is repainted: testing each item against more rectangles
// would cost more than painting between them.
constexpr int kMaxChangedRects = 128;

/// QRect::intersects for areas as the slots hold them: upright, or null while nothing is drawn. Every search
/// asks it of every item, and most are turned down by the first comparisons.
bool overlaps(const QRect& aArea, const QRect& aOther)
{
    return aArea.left() <= aOther.right() && aArea.right() >= aOther.left() &&
           aArea.top() <= aOther.bottom() && aArea.bottom() >= aOther.top() && !aArea.isNull() &&
           !aOther.isNull();
}

bool touches(const QRect& aArea, const QRegion& aRegion, const QRect& aRegionBounds)
{
    if (!overlaps(aArea, aRegionBounds))
        return false;
    return aRegion.rectCount() == 1 ||
           std::any_of(aRegion.begin(), aRegion.end(),
                       [&aArea](const QRect& aRect) { return overlaps(aArea, aRect); });
}

} // namespace

Q3Canvas::Q3Canvas(QObject* aParent) : QObject(aParent), theSize(0, 0) {}

Q3Canvas::Q3Canvas(int aWidth, int aHeight) : theSize(QSize(aWidth, aHeight).expandedTo(QSize(0, 0))) {}

Q3Canvas::~Q3Canvas()
{
    const QList<Q3CanvasView*> views = std::exchange(theViews, {});
    for (Q3CanvasView* view : views)
        view->canvasGone();
    // An item that goes may take others with it, so the last one is looked up anew each time.
    while (!theSlots.empty())
        if (Q3CanvasItem* item = theSlots.back().theItem)
            delete item;
        else
            theSlots.pop_back();
}

void Q3Canvas::resize(int aWidth, int aHeight)
{
    const QSize size = QSize(aWidth, aHeight).expandedTo(QSize(0, 0));
    if (size == theSize)
        return;
    theSize = size;
    for (Q3CanvasView* view : std::as_const(theViews))
        view->canvasResized();
    Q_EMIT resized();
}

void Q3Canvas::setBackgroundColor(const QColor& aColor)
{
    if (aColor == theBackgroundColor)
        return;
    theBackgroundColor = aColor;
    setAllChanged();
}

Q3CanvasItemList Q3Canvas::allItems() const
{
    tidySlots();
    Q3CanvasItemList items;
    items.reserve(qsizetype(theSlots.size()));
    std::for_each(theSlots.rbegin(), theSlots.rend(), [&items](const Slot& aSlot) {
        if (aSlot.theItem)
            items << aSlot.theItem;
    });
    return items;
}

Q3CanvasItemList Q3Canvas::collisions(const QRect& aCanvasRect) const
{
    tidySlots();
    const QRect sought = CanvasPlane::clamped(aCanvasRect);
    Q3CanvasItemList items;
    std::for_each(theSlots.rbegin(), theSlots.rend(), [&items, &sought](const Slot& aSlot) {
        if (overlaps(aSlot.theArea, sought))
            items << aSlot.theItem;
    });
    return items;
}

Q3CanvasItemList Q3Canvas::collisions(const QPoint& aCanvasPoint) const
{
    return collisions(QRect(aCanvasPoint, aCanvasPoint));
}

void Q3Canvas::setChanged(const QRect& aCanvasRect)
{
    const QRect rect = CanvasPlane::clamped(aCanvasRect);
    if (theAllChanged || rect.isNull())
        return;
    for (const QRect& known : std::as_const(theChanged))
        if (known.contains(rect))
            return;
    theChanged << rect;
    if (theChanged.size() <= kMaxChangedRects)
        return;
    QRect all;
    for (const QRect& known : std::as_const(theChanged))
        all |= known;
    theChanged = {all};
}

void Q3Canvas::setAllChanged()
{
    theAllChanged = true;
    theChanged.clear();
}

void Q3Canvas::update()
{
    const bool all = std::exchange(theAllChanged, false);
    const QList<QRect> rects = std::exchange(theChanged, {});
    for (Q3CanvasView* view : std::as_const(theViews))
        if (all)
            view->repaintAll();
        else
            view->repaintCanvas(rects);
}

void Q3Canvas::advance()
{
    Q3CanvasItemList items = allItems();
    items.removeIf([](const Q3CanvasItem* aItem) { return !aItem->isAnimated(); });
    // Items may delete each other on the way.
    const auto connection = connect(this, &Q3Canvas::itemRemoved, this, [&items](Q3CanvasItem* aItem) {
        std::replace(items.begin(), items.end(), aItem, static_cast<Q3CanvasItem*>(nullptr));
    });
    for (const int stage : {0, 1})
        for (qsizetype i = 0; i < items.size(); ++i)
            if (Q3CanvasItem* item = items.at(i))
                item->advance(stage);
    disconnect(connection);
    update();
}

void Q3Canvas::drawArea(const QRegion& aCanvasRegion, QPainter& aPainter)
{
    tidySlots();
    const QRect bounds = aCanvasRegion.boundingRect();
    aPainter.save();
    // In one piece: pieces would show seams where the zoom puts their edges between two pixels.
    const QRect background = bounds & rect();
    if (!background.isEmpty())
        drawBackground(aPainter, background);
    for (std::size_t i = 0; i < theSlots.size(); ++i) // by index: drawing may add an item
        if (touches(theSlots[i].theArea, aCanvasRegion, bounds))
            theSlots[i].theItem->draw(aPainter);
    aPainter.restore();
}

void Q3Canvas::drawBackground(QPainter& aPainter, const QRect& aCanvasRect)
{
    aPainter.fillRect(aCanvasRect, theBackgroundColor);
}

void Q3Canvas::addItem(Q3CanvasItem* aItem)
{
    if (hasManyGaps())
        tidySlots();
    const Q3CanvasItem* last = theSlots.empty() ? nullptr : theSlots.back().theItem;
    theOrderDirty = theOrderDirty || (last ? last->theZ > aItem->theZ : !theSlots.empty());
    aItem->theSerial = theNextSerial++;
    aItem->theSlot = int(theSlots.size());
    theSlots.push_back({QRect(), aItem});
}

void Q3Canvas::removeItem(Q3CanvasItem* aItem)
{
    markSlot(aItem);
    slotOf(aItem) = {QRect(), nullptr};
    ++theGoneCount;
    Q_EMIT itemRemoved(aItem);
}

void Q3Canvas::setArea(Q3CanvasItem* aItem, const QRect& aArea)
{
    // An item that changed without a word before leaves no ghost at its old place.
    Slot& place = slotOf(aItem);
    setChanged(place.theArea);
    place.theArea = CanvasPlane::clamped(aArea);
    setChanged(place.theArea);
}

void Q3Canvas::markSlot(const Q3CanvasItem* aItem)
{
    setChanged(slotOf(aItem).theArea);
}

void Q3Canvas::zChanged(const Q3CanvasItem* aItem)
{
    theOrderDirty = true;
    markSlot(aItem);
}

Q3Canvas::Slot& Q3Canvas::slotOf(const Q3CanvasItem* aItem)
{
    return theSlots[std::size_t(aItem->theSlot)];
}

/// Puts the slots in drawing order. Gaps go when they are half of all or when the order is touched anyway, so
/// that each removal costs the same on average.
void Q3Canvas::tidySlots() const
{
    if (!theOrderDirty && !hasManyGaps())
        return;
    if (theGoneCount > 0)
        theSlots.erase(std::remove_if(theSlots.begin(), theSlots.end(),
                                      [](const Slot& aSlot) { return !aSlot.theItem; }),
                       theSlots.end());
    const auto drawnBefore = [](const Slot& aFirst, const Slot& aSecond) {
        const Q3CanvasItem* first = aFirst.theItem;
        const Q3CanvasItem* second = aSecond.theItem;
        return first->theZ != second->theZ ? first->theZ < second->theZ
                                           : first->theSerial < second->theSerial;
    };
    if (!std::is_sorted(theSlots.begin(), theSlots.end(), drawnBefore))
        std::sort(theSlots.begin(), theSlots.end(), drawnBefore);
    for (std::size_t i = 0; i < theSlots.size(); ++i)
        theSlots[i].theItem->theSlot = int(i);
    theGoneCount = 0;
    theOrderDirty = false;
}

void Q3Canvas::addView(Q3CanvasView* aView)
{
    theViews << aView;
}

void Q3Canvas::removeView(Q3CanvasView* aView)
{
    theViews.removeAll(aView);
}
