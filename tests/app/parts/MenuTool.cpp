#include "MenuTool.h"

#include "ProbeItem.h"
#include "WindowFixture.h"

namespace {

constexpr int kMeasured = 512;

} // namespace

MenuTool::MenuTool(WindowFixture& aFixture, int aFlags) : theFixture(aFixture), theFlags(aFlags)
{
    setUndoStack(&aFixture.stack());
    ProbeTool::setCvEditor(&aFixture.editor());
    ProbeTool::initManipulator(aFixture.actions().theToolBar);
}

MenuTool::~MenuTool()
{
    // Its steps know a type that goes with it.
    theFixture.stack().clear();
}

int MenuTool::getCvObjectFlags(LmCvObject* aObject)
{
    return aObject ? theFlags : theFlags | kMeasured;
}

QString MenuTool::place(const QPoint& aPoint)
{
    return QStringLiteral("%1,%2").arg(aPoint.x()).arg(aPoint.y());
}

void MenuTool::editCvObject(LmCvObject* aObject, QPoint aPoint)
{
    theCalls << QStringLiteral("edit %1 at %2").arg(getObjectIdx(aObject)).arg(place(aPoint));
}

void MenuTool::actionOnCvObject(LmCvObject* aObject, QPoint aPoint, int aAction)
{
    theCalls
        << QStringLiteral("action %1 on %2 at %3").arg(aAction).arg(getObjectIdx(aObject)).arg(place(aPoint));
}
