// The menu of the object table. Everything in it goes through the object's own tool.
#include "LmCvManipMeasure.h"

#include "LmCvEditor.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "LmKsMeasureWidget.h"
#include "Q3PopupMenu.h"
#include "QtColorPicker.h"

namespace {

enum Flag { kProperties = 1, kColor = 4, kVisibility = 8, kDelete = 16, kCustom = 32 };

// In the order of the menu; a custom action has its own number and kFirstCustomEntry.
enum Entry {
    kSetColorEntry = 0,
    kHideEntry = 1,
    kShowEntry = 2,
    kShowAllEntry = 4,
    kPropertiesEntry = 7,
    kDeleteEntry = 3,
    kFirstCustomEntry = 8
};

} // namespace

void LmCvManipMeasure::slotContextMenu(const QPoint& aGlobalPos, const int aRow)
{
    const QString key = theMeasureWidget->theTable->verticalHeader()->label(aRow);
    const Measured object = findMeasured(key);
    if (!object.theItem)
        return;
    Q3PopupMenu menu;
    const int flags = object.theTool->getCvObjectFlags(object.theItem);
    if (flags & kColor)
        menu.insertItem(tr("Set color"), kSetColorEntry);
    if (flags & kVisibility) {
        menu.insertItem(tr("Hide"), kHideEntry);
        menu.insertItem(tr("Show"), kShowEntry);
    }
    menu.insertItem(tr("Show all"), kShowAllEntry);
    if (flags & kProperties)
        menu.insertItem(tr("Properties"), kPropertiesEntry);
    if (flags & kDelete) {
        menu.insertSeparator();
        menu.insertItem(tr("Delete"), kDeleteEntry);
    }
    if (flags & kCustom) {
        menu.insertSeparator();
        const QLinkedList<QPair<QString, int>> actions = object.theTool->getCustomActions();
        for (const auto& [text, number] : actions)
            menu.insertItem(text, number + kFirstCustomEntry);
    }
    const QAction* chosen = menu.exec(aGlobalPos, menu.actions().value(0));
    act(menu.findIdForAction(chosen), key, aGlobalPos);
}

// The object may go while a menu or the colours stand. A menu that is dismissed has the number -1; it goes
// where custom actions go, which know no such action.
void LmCvManipMeasure::act(int aEntry, const QString& aRowKey, const QPoint& aGlobalPos)
{
    const QColor color = aEntry == kSetColorEntry ? QtColorPicker::getColor(aGlobalPos, true) : QColor();
    const auto [tool, item] = findMeasured(aRowKey);
    if (!item)
        return;
    switch (aEntry) {
    case kSetColorEntry:
        if (color.isValid())
            tool->setColorCvObject(item, color);
        return;
    case kHideEntry:
        tool->showCvObject(item, false);
        return;
    case kShowEntry:
        tool->showCvObject(item, true);
        return;
    case kShowAllEntry:
        if (theCvEditor)
            theCvEditor->slotShowAllCvItems();
        return;
    case kPropertiesEntry:
        tool->editCvObject(item, aGlobalPos);
        return;
    case kDeleteEntry:
        tool->removeCvObject(item);
        return;
    default:
        tool->actionOnCvObject(item, aGlobalPos, aEntry - kFirstCustomEntry);
    }
}
