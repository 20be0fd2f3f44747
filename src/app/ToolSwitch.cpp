#include "ToolSwitch.h"

#include "LmCvEditor.h"
#include "LmCvManipulator.h"

#include <QAction>
#include <QMenu>
#include <QSettings>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>

namespace {

QString settingsKey(const LmCvManipulator* aTool)
{
    return QStringLiteral("valueName/%1").arg(aTool->theObjectType);
}

/// The tool's own button and those that it added to the tool bar behind it.
QList<QToolButton*> buttonsOf(const LmCvManipulator* aTool, const QList<LmCvManipulator*>& aTools)
{
    if (!aTool->theToolButton || !aTool->theToolBar)
        return {};
    const auto all = aTool->theToolBar->findChildren<QToolButton*>(QStringLiteral("manipulator button"));
    QList<QToolButton*> own{aTool->theToolButton};
    for (qsizetype i = all.indexOf(aTool->theToolButton) + 1; i < all.size(); ++i) {
        const auto isFirst = [&](const LmCvManipulator* aOther) { return aOther->theToolButton == all[i]; };
        if (std::any_of(aTools.cbegin(), aTools.cend(), isFirst))
            break;
        own.append(all[i]);
    }
    return own;
}

} // namespace

ToolSwitch::ToolSwitch(LmCvEditor& aEditor, QAction& aArrow, QObject* aParent)
    : QObject(aParent), theEditor(aEditor), theArrow(aArrow)
{
    connect(&theArrow, &QAction::triggered, this, [this] { choose(nullptr, false); });
    connect(&theEditor, &LmCvEditor::signalCurrentManipulatorChanged, this, &ToolSwitch::show);
}

void ToolSwitch::addTools(const QList<LmCvManipulator*>& aTools, QMenu& aMenu)
{
    for (LmCvManipulator* tool : aTools)
        for (QToolButton* button : buttonsOf(tool, aTools))
            addButton(tool, button, aMenu);
}

void ToolSwitch::addButton(LmCvManipulator* aTool, QToolButton* aButton, QMenu& aMenu)
{
    QAction* action = makeAction(aButton, int(theEntries.size()) + 1);
    aMenu.addAction(action);
    if (aButton->menu())
        aMenu.addMenu(aButton->menu());
    theEntries.append({aTool, aButton, action});
    if (aButton->accessibleName().isEmpty())
        aButton->setAccessibleName(aButton->toolTip());
    aButton->setStatusTip(action->statusTip());
    // A tool that goes on with another of its buttons, or with objects of another tool, stays the current
    // one.
    connect(aTool, &LmCvManipulator::signalHintChanged, this,
            [this] { show(theEditor.theCurrentManipulator); });
    connect(aButton, &QToolButton::toggled, this, [this] { show(theEditor.theCurrentManipulator); });
}

QAction* ToolSwitch::makeAction(QToolButton* aButton, int aNumber)
{
    auto* action = new QAction(aButton->icon(), aButton->toolTip(), this);
    action->setStatusTip(aButton->whatsThis());
    action->setCheckable(true);
    if (aNumber < 10)
        action->setShortcut(QKeySequence(Qt::Key_0 + aNumber));
    connect(action, &QAction::triggered, this, [this, aButton](bool aOn) { choose(aButton, aOn); });
    return action;
}

void ToolSwitch::setToolsEnabled(bool aOn)
{
    for (const Entry& entry : theEntries) {
        entry.theAction->setEnabled(aOn);
        entry.theButton->setEnabled(aOn);
        // A menu's entry can take the tool as well.
        if (entry.theButton->menu())
            entry.theButton->menu()->menuAction()->setEnabled(aOn);
    }
}

QString ToolSwitch::valueName(const LmCvManipulator* aTool) const
{
    const QVariant chosen = QSettings().value(settingsKey(aTool));
    const QString name = chosen.toString();
    // A name kept from a run in another language says nothing to the tool.
    if (chosen.isValid() && (name.isEmpty() || aTool->theValueNames.contains(name)))
        return name;
    return aTool->theValueNames.value(0);
}

void ToolSwitch::setValueName(const LmCvManipulator* aTool, const QString& aName)
{
    QSettings().setValue(settingsKey(aTool), aName);
    LmCvManipulator* current = theEditor.theCurrentManipulator;
    if (current && current->objectTool() == aTool)
        LmCvManipulator::theLastUsedValueName = aName;
}

void ToolSwitch::choose(QToolButton* aButton, bool aOn)
{
    if (aOn)
        aButton->setChecked(true);
    else
        theEditor.setCurrentManipulator(nullptr);
    // An action that was triggered has switched its check mark already, whatever became of it.
    show(theEditor.theCurrentManipulator);
}

void ToolSwitch::show(LmCvManipulator* aTool)
{
    theArrow.setChecked(!aTool);
    for (const Entry& entry : theEntries) {
        entry.theAction->setChecked(entry.theTool == aTool && entry.theButton->isChecked());
        entry.theAction->setIcon(entry.theButton->icon());
        if (entry.theTool == aTool)
            if (const LmCvManipulator* maker = aTool->objectTool())
                LmCvManipulator::theLastUsedValueName = valueName(maker);
    }
}
