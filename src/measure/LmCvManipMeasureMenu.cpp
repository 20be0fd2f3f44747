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
    const auto key = theRowKeys.constFind(theMeasureWidget->theTable->verticalHeader()->label(aRow));
    LmCvManipulator* tool =
        key == theRowKeys.constEnd() ? nullptr : theKernelData->getCvManipulator(key->first);
    LmCvObject* item = tool ? tool->getCvObject(key->second) : nullptr;
    if (!item)
        return;
    Q3PopupMenu menu;
    const int flags = tool->getCvObjectFlags(item);
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
        const QLinkedList<QPair<QString, int>> actions = tool->getCustomActions();
        for (const auto& [text, number] : actions)
            menu.insertItem(text, number + kFirstCustomEntry);
    }
    const QAction* chosen = menu.exec(aGlobalPos, menu.actions().value(0));
    act(menu.findIdForAction(chosen), *tool, item, aGlobalPos);
}

// A menu that is dismissed has the number -1; it goes where custom actions go, which know no such action.
void LmCvManipMeasure::act(int aEntry, LmCvManipulator& aTool, LmCvObject* aItem, const QPoint& aGlobalPos)
{
    switch (aEntry) {
    case kSetColorEntry: {
        const QColor color = QtColorPicker::getColor(aGlobalPos, true);
        if (color.isValid())
            aTool.setColorCvObject(aItem, color);
        return;
    }
    case kHideEntry:
        aTool.showCvObject(aItem, false);
        return;
    case kShowEntry:
        aTool.showCvObject(aItem, true);
        return;
    case kShowAllEntry:
        if (theCvEditor)
            theCvEditor->slotShowAllCvItems();
        return;
    case kPropertiesEntry:
        aTool.editCvObject(aItem, aGlobalPos);
        return;
    case kDeleteEntry:
        aTool.removeCvObject(aItem);
        return;
    default:
        aTool.actionOnCvObject(aItem, aGlobalPos, aEntry - kFirstCustomEntry);
    }
}
