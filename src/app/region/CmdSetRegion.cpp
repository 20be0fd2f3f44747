#include "CmdSetRegion.h"

#include "GestureTool.h"
#include "HiddenItems.h"
#include "LmCvEditor.h"
#include "LmKSKernelData.h"
#include "Media.h"

#include <QCoreApplication>

#include <utility>

namespace {

QString textFor(const QRect& aRegion)
{
    return aRegion.isNull() ? QCoreApplication::translate("UndoCommand", "Clear region of interest")
                            : QCoreApplication::translate("UndoCommand", "Set region of interest");
}

} // namespace

CmdSetRegion::CmdSetRegion(Media& aMedia, const QRect& aRegion)
    : QUndoCommand(textFor(aRegion)), theMedia(aMedia), theRegion(aRegion)
{
}

void CmdSetRegion::exchange()
{
    LmCvEditor& editor = theMedia.editor();
    const LmKSKernelData* kernel = LmKSKernelData::getInstance();
    // What is being drawn or dragged has its place on the canvas as it is now.
    GestureTool::interrupt(editor);
    const QPoint viewMiddle = editor.viewport()->rect().center();
    const QPoint imagePoint = editor.toCanvas(viewMiddle) + kernel->origin();

    const QRect former = theMedia.region();
    theMedia.setRegion(theRegion);
    theRegion = former;
    placeHiddenItems();

    const QPointF place = editor.toViewport(imagePoint - kernel->origin());
    editor.scrollBy((place - viewMiddle).toPoint());
}
