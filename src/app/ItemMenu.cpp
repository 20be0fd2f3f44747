#include "ItemMenu.h"

#include "CmdChangeObject.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmCvSelection.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "LmKernelObjectDataDescr.h"
#include "ToolSwitch.h"

#include <QActionGroup>
#include <QColorDialog>
#include <QMenu>
#include <QUndoStack>

#include <utility>

namespace {

enum Flags { kProperties = 1, kColor = 4, kHide = 8, kDelete = 16, kCustomActions = 32 };

constexpr QLatin1String kShownValue("dispv");

} // namespace

ItemMenu::ItemMenu(LmCvEditor& aEditor, ToolSwitch& aTools, const QList<QAction*>& aCanvasActions,
                   QWidget& aWindow)
    : QObject(&aWindow), theEditor(aEditor), theTools(aTools), theCanvasActions(aCanvasActions),
      theWindow(aWindow)
{
    connect(&theEditor, &LmCvEditor::signalContextMenu, this, &ItemMenu::open);
}

void ItemMenu::open(LmCvObject* aItem, const QPoint& aCanvasPoint, const QPoint& aGlobalPos)
{
    auto* menu = new QMenu(&theWindow);
    menu->setObjectName(QStringLiteral("itemMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (!aItem)
        menu->addActions(theCanvasActions);
    else if (theEditor.selection().contains(aItem) && theEditor.selection().items().size() > 1)
        fillForGroup(*menu);
    else
        fillForItem(*menu, aItem, aCanvasPoint, aGlobalPos);
    menu->popup(aGlobalPos);
}

void ItemMenu::fillForItem(QMenu& aMenu, LmCvObject* aItem, const QPoint& aCanvasPoint,
                           const QPoint& aGlobalPos)
{
    theEditor.activateItem(aItem);
    LmCvManipulator* tool = aItem->theManipulator;
    const int flags = tool->getCvObjectFlags(aItem);
    const int idx = tool->getObjectIdx(aItem);
    const LmKSKernelData* kernel = LmKSKernelData::getInstance();
    // An outline in the making has no index yet, but its label tells the next one.
    aMenu.addSection(idx >= 0 ? kernel->objectText(tool->theObjectType, idx)
                              : tr("%1 %2").arg(tool->getObjectName(aItem), aItem->theLabel));
    addValues(aMenu, aItem);
    addLook(aMenu, aItem, flags);
    if (flags & kProperties)
        addEntry(aMenu, tr("&Properties..."), tr("Shows what can be set for this object"), aItem,
                 [aGlobalPos](LmCvObject* aTarget) {
                     aTarget->theManipulator->editCvObject(aTarget, aGlobalPos);
                 });
    addAnimation(aMenu, aItem, aCanvasPoint);
    if (flags & kCustomActions)
        addCustomActions(aMenu, aItem, aGlobalPos);
    if (flags & kDelete) {
        aMenu.addSeparator();
        addEntry(aMenu, tr("&Delete"), tr("Removes this object"), aItem,
                 [](LmCvObject* aTarget) { aTarget->theManipulator->removeCvObject(aTarget); });
    }
}

void ItemMenu::fillForGroup(QMenu& aMenu)
{
    LmCvSelection& selection = theEditor.selection();
    int flags = kColor | kHide | kDelete;
    const QList<LmCvObject*> items = selection.items();
    for (LmCvObject* item : items)
        flags &= item->theManipulator->getCvObjectFlags(item);
    aMenu.addSection(tr("%n objects", nullptr, int(items.size())));
    if (flags & kColor)
        connect(aMenu.addAction(tr("Set &Color...")), &QAction::triggered, this, &ItemMenu::setGroupColor);
    if (flags & kHide)
        connect(aMenu.addAction(tr("&Hide")), &QAction::triggered, this,
                [&selection] { selection.show(false); });
    if (flags & kDelete) {
        aMenu.addSeparator();
        connect(aMenu.addAction(tr("&Delete")), &QAction::triggered, this,
                [&selection] { selection.remove(); });
    }
}

void ItemMenu::addLook(QMenu& aMenu, LmCvObject* aItem, int aFlags)
{
    if (aFlags & kColor)
        addEntry(aMenu, tr("Set &Color..."), tr("Chooses another color for this object"), aItem,
                 [this](LmCvObject* aTarget) { setColor(aTarget); });
    if (!(aFlags & kHide))
        return;
    const bool shown = aItem->isVisible();
    addEntry(aMenu, shown ? tr("&Hide") : tr("&Show"),
             shown ? tr("Hides this object; Show All Objects brings it back") : tr("Shows this object again"),
             aItem, [shown](LmCvObject* aTarget) { aTarget->theManipulator->showCvObject(aTarget, !shown); });
}

void ItemMenu::addValues(QMenu& aMenu, LmCvObject* aItem)
{
    const LmCvManipulator* tool = aItem->theManipulator;
    const LmKernelObjectData* data = record(aItem);
    const LmKernelObjectDataDescr* descriptor =
        LmKSKernelData::getInstance()->getDataDescriptor(tool->theObjectType);
    if (!data || !descriptor || descriptor->indexOf(kShownValue) < 0 || tool->theValueNames.isEmpty())
        return;
    // What hangs on all objects of a type would be out of date on the labels of the others.
    if (aItem->theManipulator->allObjectsNeedRecalc())
        return;
    const QString shown = descriptor->getValue(data->getDefaultKeyframes(), kShownValue).toString();
    QMenu* menu = aMenu.addMenu(tr("&Value on the Label"));
    auto* group = new QActionGroup(menu);
    const auto add = [&](const QString& aText, const QString& aName) {
        QAction* action = addEntry(*menu, aText, tr("Chooses what the label of this object shows"), aItem,
                                   [this, aName](LmCvObject* aTarget) { setValueName(aTarget, aName); });
        action->setCheckable(true);
        action->setChecked(aName == shown);
        group->addAction(action);
    };
    for (const QString& name : tool->theValueNames)
        add(name, name);
    menu->addSeparator();
    add(tr("None"), QString());
}

void ItemMenu::addAnimation(QMenu& aMenu, LmCvObject* aItem, const QPoint& aCanvasPoint)
{
    const LmKernelObjectData* data = record(aItem);
    if (!data)
        return;
    aMenu.addSeparator();
    const bool animated = data->theAnimated;
    QAction* action =
        addEntry(aMenu, tr("&Animated"), tr("Lets this object have another place on each frame"), aItem,
                 [animated](LmCvObject* aTarget) {
                     aTarget->theManipulator->changeAnimationCvObject(aTarget, !animated, false, false);
                 });
    action->setCheckable(true);
    action->setChecked(animated);
    // On a single picture only what is animated already can be switched.
    const bool hasFrames = LmKSKernelData::getInstance()->theFrameCount > 1;
    action->setEnabled(animated || hasFrames);
    addEntry(aMenu, tr("C&opy Path"), tr("Copies the way of the point that was clicked over the frames"),
             aItem, [this, aCanvasPoint](LmCvObject* aTarget) { copyPath(aTarget, aCanvasPoint); });
    action = addEntry(aMenu, tr("Pas&te Path"), tr("Lets the point that was clicked follow the copied path"),
                      aItem, [this, aCanvasPoint](LmCvObject* aTarget) { pastePath(aTarget, aCanvasPoint); });
    action->setEnabled(hasFrames && !LmCvManipulator::theClipboardKeyframes.isEmpty());
}

void ItemMenu::addCustomActions(QMenu& aMenu, LmCvObject* aItem, const QPoint& aGlobalPos)
{
    aMenu.addSeparator();
    const QLinkedList<QPair<QString, int>> actions = aItem->theManipulator->getCustomActions();
    for (const QPair<QString, int>& action : actions)
        addEntry(aMenu, action.first, QString(), aItem,
                 [aGlobalPos, number = action.second](LmCvObject* aTarget) {
                     aTarget->theManipulator->actionOnCvObject(aTarget, aGlobalPos, number);
                 });
}

QAction* ItemMenu::addEntry(QMenu& aMenu, const QString& aText, const QString& aTip, LmCvObject* aItem,
                            ItemAction aAction)
{
    QAction* action = aMenu.addAction(aText);
    action->setStatusTip(aTip);
    connect(action, &QAction::triggered, this, [this, aItem, run = std::move(aAction)] {
        // The item may have gone while the menu was open.
        if (theEditor.cvItems().contains(aItem))
            run(aItem);
    });
    return action;
}

void ItemMenu::setValueName(LmCvObject* aItem, const QString& aName)
{
    const LmCvManipulator* tool = aItem->theManipulator;
    const LmKernelObjectDataDescr* descriptor =
        LmKSKernelData::getInstance()->getDataDescriptor(tool->theObjectType);
    theTools.setValueName(tool, aName);
    const LmKernelObjectData* data = record(aItem);
    if (!data || descriptor->getValue(data->getDefaultKeyframes(), kShownValue).toString() == aName)
        return;
    LmParamKeyframeVector vector = descriptor->createKeyframeVector();
    if (!descriptor->setValue(vector, kShownValue, aName))
        return;
    const int idx = tool->getObjectIdx(aItem);
    auto* command = new CmdChangeObject(tool->theObjectType, idx, vector, false);
    command->setText(
        tr("Change label of %1").arg(LmKSKernelData::getInstance()->objectText(tool->theObjectType, idx)));
    theEditor.undoStack()->push(command);
}

void ItemMenu::setColor(LmCvObject* aItem)
{
    const QColor color = QColorDialog::getColor(aItem->getColor(), &theWindow, tr("Color of the Object"));
    if (color.isValid() && theEditor.cvItems().contains(aItem) && color != aItem->getColor())
        aItem->theManipulator->setColorCvObject(aItem, color);
}

void ItemMenu::setGroupColor()
{
    LmCvSelection& selection = theEditor.selection();
    const QColor present =
        selection.items().isEmpty() ? QColor() : selection.items().constFirst()->getColor();
    const QColor color = QColorDialog::getColor(present, &theWindow, tr("Color of the Objects"));
    if (color.isValid())
        selection.setColor(color);
}

void ItemMenu::copyPath(LmCvObject* aItem, const QPoint& aCanvasPoint)
{
    // A tool without a path here leaves the clipboard as it is, so only an empty one shows what it did.
    QLinkedList<LmParamKeyframe>& clipboard = LmCvManipulator::theClipboardKeyframes;
    const QLinkedList<LmParamKeyframe> former = std::exchange(clipboard, {});
    aItem->theManipulator->copyAnimKeyframes(aItem, aCanvasPoint);
    if (!clipboard.isEmpty()) {
        Q_EMIT told(tr("The path is copied."));
        return;
    }
    clipboard = former;
    Q_EMIT told(tr("There is no path here to copy; click on the line or an end of an animated distance or "
                   "angle."));
}

void ItemMenu::pastePath(LmCvObject* aItem, const QPoint& aCanvasPoint)
{
    const QUndoStack& stack = *theEditor.undoStack();
    const int before = stack.index();
    aItem->theManipulator->pasteAnimKeyframes(aItem, aCanvasPoint);
    if (stack.index() == before)
        Q_EMIT told(
            tr("Nothing here can follow a path; click on the line or an end of a distance or angle."));
}

const LmKernelObjectData* ItemMenu::record(const LmCvObject* aItem)
{
    const LmCvManipulator* tool = aItem->theManipulator;
    return LmKSKernelData::getInstance()->getObject(tool->theObjectType, tool->getObjectIdx(aItem));
}
