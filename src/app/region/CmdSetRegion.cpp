#include "CmdSetRegion.h"

#include "GestureTool.h"
#include "ItemRecord.h"
#include "LmCvEditor.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "Media.h"

#include <QCoreApplication>

#include <utility>

namespace {

QString textFor(const QRect& aRegion)
{
    return aRegion.isNull() ? QCoreApplication::translate("UndoCommand", "Clear region of interest")
                            : QCoreApplication::translate("UndoCommand", "Set region of interest");
}

/// The tools leave the items of hidden objects where they are, and there they would come back one day.
void placeHiddenItems()
{
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    QList<QPair<int, int>> hidden;
    for (auto type = kernel->theObjects.cbegin(); type != kernel->theObjects.cend(); ++type)
        for (auto object = type->cbegin(); object != type->cend(); ++object)
            if (!ItemRecord::isShown(**object))
                hidden.append({type.key(), object.key()});
    for (const auto& [type, idx] : std::as_const(hidden))
        kernel->announceObjectChanged(type, idx);
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
