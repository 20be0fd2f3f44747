#include "GestureTool.h"

#include "LmCvEditor.h"

#include <QToolBar>
#include <QToolButton>

namespace {

/// The button that is on for the tool, which may have several; null without any.
QToolButton* buttonOf(const LmCvManipulator* aTool)
{
    if (!aTool || !aTool->theToolBar)
        return nullptr;
    const auto buttons = aTool->theToolBar->findChildren<QToolButton*>(QStringLiteral("manipulator button"));
    for (QToolButton* button : buttons)
        if (button->isChecked())
            return button;
    return nullptr;
}

} // namespace

GestureTool::GestureTool(LmCvEditor& aEditor, QObject* aParent) : LmCvManipulator(aParent)
{
    theCursor = QCursor(Qt::CrossCursor);
    setCvEditor(&aEditor);
    connect(&aEditor, &LmCvEditor::signalCurrentManipulatorChanged, this, &GestureTool::toolChanged);
}

GestureTool::~GestureTool() = default;

void GestureTool::start()
{
    if (isRunning())
        return;
    LmCvManipulator* former = theCvEditor->theCurrentManipulator;
    // Of two tools of this kind the second one gives back what the first one had taken the place of.
    if (const auto* gesture = qobject_cast<GestureTool*>(former)) {
        theFormerTool = gesture->theFormerTool;
        theFormerButton = gesture->theFormerButton;
    } else {
        theFormerTool = former;
        theFormerButton = buttonOf(former);
    }
    theCvEditor->setCurrentManipulator(this);
}

void GestureTool::finish()
{
    if (!isRunning())
        return;
    end();
    if (theCvEditor->theCurrentManipulator == this)
        theCvEditor->setCurrentManipulator(theFormerTool, theFormerButton);
}

void GestureTool::takeAway(Q3CanvasItem* aItem)
{
    if (!aItem)
        return;
    if (theCvEditor->mouseGrabber() == this)
        theCvEditor->setMouseGrabber(nullptr, false);
    delete aItem;
    theCvEditor->getCanvas()->update();
}

void GestureTool::toolChanged(const LmCvManipulator* aTool)
{
    if (isRunning() == (aTool == this))
        return;
    if (aTool == this)
        begin();
    else
        end();
}

void GestureTool::interrupt(LmCvEditor& aEditor)
{
    // The editor ends everything when its tool changes, and nothing less makes it do so.
    LmCvManipulator pause(nullptr);
    LmCvManipulator* tool = aEditor.theCurrentManipulator;
    QToolButton* button = buttonOf(tool);
    aEditor.setCurrentManipulator(&pause);
    aEditor.setCurrentManipulator(tool, button);
}
