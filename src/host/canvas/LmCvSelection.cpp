#include "LmCvSelection.h"

#include "ItemRecord.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"

#include <QColor>
#include <QSet>
#include <QUndoStack>

#include <utility>

namespace {

/// False for a hidden item of which no record says that it is hidden, or whose tool can't push a command.
bool showsByCommand(const LmCvObject& aItem)
{
    const LmCvManipulator* tool = aItem.theManipulator;
    if (!tool || !tool->theUndoStack)
        return false;
    const LmKernelObjectData* data =
        tool->theKernelData->getObject(tool->theObjectType, tool->getObjectIdx(&aItem));
    return !data || !ItemRecord::isShown(*data);
}

} // namespace

LmCvSelection::LmCvSelection(LmCvEditor& aEditor) : theEditor(aEditor) {}

bool LmCvSelection::contains(const LmCvObject* aItem) const
{
    return theItems.contains(aItem);
}

QList<LmCvObject*> LmCvSelection::targets() const
{
    if (theItems.isEmpty() && theEditor.theCurrentTrack)
        return {theEditor.theCurrentTrack};
    return theItems;
}

void LmCvSelection::clear()
{
    set({});
}

void LmCvSelection::toggle(LmCvObject* aItem)
{
    QList<LmCvObject*> items = theItems;
    if (!items.removeOne(aItem))
        items.append(aItem);
    set(items);
}

void LmCvSelection::leave(const QSet<const LmCvObject*>& aItems)
{
    QList<LmCvObject*> items = theItems;
    if (items.removeIf([&aItems](const LmCvObject* aItem) { return aItems.contains(aItem); }) > 0)
        set(items);
}

void LmCvSelection::selectIn(const QRect& aCanvasRect, bool aAdd)
{
    QList<LmCvObject*> items = aAdd ? theItems : QList<LmCvObject*>();
    const QSet<LmCvObject*> known(items.cbegin(), items.cend());
    for (Q3CanvasItem* candidate : theEditor.canvas()->collisions(aCanvasRect))
        if (auto* item = dynamic_cast<LmCvObject*>(candidate))
            if (!known.contains(item) && item->isRectContainsObject(aCanvasRect))
                items.append(item);
    set(items);
}

void LmCvSelection::selectAll()
{
    QList<LmCvObject*> items = theEditor.cvItems();
    items.removeIf([](const LmCvObject* aItem) { return !aItem->isVisible(); });
    set(items);
}

void LmCvSelection::forget(const Q3CanvasItem* aItem)
{
    const auto isGone = [aItem](const LmCvObject* aKnown) { return aKnown == aItem; };
    // Mostly it is the one whose turn it is, and thousands of others need no look.
    if (theInTurn != aItem)
        theWaiting.removeIf(isGone);
    if (theItems.removeIf(isGone) > 0)
        Q_EMIT theEditor.signalSelectionChanged();
}

void LmCvSelection::set(const QList<LmCvObject*>& aItems)
{
    if (aItems == theItems)
        return;
    const QSet<LmCvObject*> kept(aItems.cbegin(), aItems.cend());
    for (LmCvObject* item : std::as_const(theItems))
        if (!kept.contains(item))
            item->setSelected(false);
    theItems = aItems;
    for (LmCvObject* item : std::as_const(theItems))
        item->setSelected(true);
    theEditor.canvas()->update();
    Q_EMIT theEditor.signalSelectionChanged();
}

void LmCvSelection::moveBy(const QPoint& aDelta)
{
    for (LmCvObject* item : targets())
        item->moveObjectBy(aDelta);
    theEditor.canvas()->update();
}

void LmCvSelection::finishMove()
{
    QList<LmCvObject*> moved = targets();
    moved.removeIf([](LmCvObject* aItem) { return !aItem->isNodesChanged(); });
    asOneStep(tr("Move %n objects", nullptr, int(moved.size())), moved,
              [this](LmCvObject* aItem) { Q_EMIT theEditor.signalCanvasObjectChanged(aItem); });
}

void LmCvSelection::remove()
{
    const QList<LmCvObject*> doomed = targets();
    clear();
    asOneStep(tr("Delete %n objects", nullptr, int(doomed.size())), doomed,
              [](LmCvObject* aItem) { aItem->theManipulator->removeCvObject(aItem); });
}

void LmCvSelection::setColor(const QColor& aColor)
{
    QList<LmCvObject*> items = targets();
    items.removeIf([&aColor](LmCvObject* aItem) { return aItem->getColor() == aColor; });
    asOneStep(tr("Colour %n objects", nullptr, int(items.size())), items,
              [&aColor](LmCvObject* aItem) { aItem->theManipulator->setColorCvObject(aItem, aColor); });
}

void LmCvSelection::show(bool aShown)
{
    QList<LmCvObject*> items = targets();
    items.removeIf([aShown](const LmCvObject* aItem) { return aItem->isVisible() == aShown; });
    const int count = int(items.size());
    // Hidden items leave the group one by one; the group is dropped first, so that it changes once.
    if (!aShown)
        clear();
    asOneStep(aShown ? tr("Show %n objects", nullptr, count) : tr("Hide %n objects", nullptr, count), items,
              [aShown](LmCvObject* aItem) {
                  // A tool may have shown or hidden several items at once, as those of one counter.
                  if (aItem->isVisible() != aShown)
                      aItem->theManipulator->showCvObject(aItem, aShown);
              });
}

void LmCvSelection::showAll()
{
    QList<LmCvObject*> items = theEditor.cvItems();
    items.removeIf([](const LmCvObject* aItem) { return aItem->isVisible() || !showsByCommand(*aItem); });
    asOneStep(tr("Show %n objects", nullptr, int(items.size())), items, [](LmCvObject* aItem) {
        if (!aItem->isVisible())
            aItem->theManipulator->showCvObject(aItem, true);
    });
    for (LmCvObject* item : theEditor.cvItems())
        item->setVisible(true);
    theEditor.canvas()->update();
}

void LmCvSelection::asOneStep(const QString& aText, QList<LmCvObject*> aItems,
                              const std::function<void(LmCvObject*)>& aStep)
{
    aItems.removeIf([](const LmCvObject* aItem) { return !aItem->theManipulator; });
    QUndoStack* stack = aItems.size() > 1 ? theEditor.undoStack() : nullptr;
    if (stack)
        stack->beginMacro(aText);
    // A step may take items with it that still wait for theirs.
    theWaiting = std::move(aItems);
    while (!theWaiting.isEmpty()) {
        theInTurn = theWaiting.takeFirst();
        aStep(theInTurn);
    }
    theInTurn = nullptr;
    if (stack)
        stack->endMacro();
}
