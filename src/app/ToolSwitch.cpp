#include "ToolSwitch.h"

#include "LmCvEditor.h"
#include "LmCvManipulator.h"

#include <QAction>
#include <QMenu>
#include <QSettings>
#include <QToolButton>

namespace {

QString settingsKey(const LmCvManipulator* aTool)
{
    return QStringLiteral("valueName/%1").arg(aTool->theObjectType);
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
    for (LmCvManipulator* tool : aTools) {
        QToolButton* button = tool->theToolButton;
        if (!button)
            continue;
        QAction* action = makeAction(tool, int(theEntries.size()) + 1);
        aMenu.addAction(action);
        theEntries.append({tool, action});
        if (button->accessibleName().isEmpty())
            button->setAccessibleName(button->toolTip());
        button->setStatusTip(action->statusTip());
    }
}

QAction* ToolSwitch::makeAction(LmCvManipulator* aTool, int aNumber)
{
    auto* action = new QAction(aTool->theToolButton->icon(), aTool->theToolButton->toolTip(), this);
    action->setStatusTip(aTool->theToolButton->whatsThis());
    action->setCheckable(true);
    if (aNumber < 10)
        action->setShortcut(QKeySequence(Qt::Key_0 + aNumber));
    connect(action, &QAction::triggered, this, [this, aTool](bool aOn) { choose(aTool, aOn); });
    return action;
}

void ToolSwitch::setToolsEnabled(bool aOn)
{
    for (const Entry& entry : theEntries) {
        entry.theAction->setEnabled(aOn);
        entry.theTool->theToolButton->setEnabled(aOn);
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
    if (theEditor.theCurrentManipulator == aTool)
        LmCvManipulator::theLastUsedValueName = aName;
}

void ToolSwitch::choose(LmCvManipulator* aTool, bool aOn)
{
    if (aOn)
        aTool->makeCurrent();
    else
        theEditor.setCurrentManipulator(nullptr);
    // An action that was triggered has switched its check mark already, whatever became of it.
    show(theEditor.theCurrentManipulator);
}

void ToolSwitch::show(LmCvManipulator* aTool)
{
    theArrow.setChecked(!aTool);
    for (const Entry& entry : theEntries) {
        entry.theAction->setChecked(entry.theTool == aTool);
        if (entry.theTool == aTool)
            LmCvManipulator::theLastUsedValueName = valueName(aTool);
    }
}
