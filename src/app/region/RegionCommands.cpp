#include "RegionCommands.h"

#include "CmdSetRegion.h"
#include "LmImage.h"
#include "LmKSKernelData.h"
#include "Media.h"
#include "RegionOfInterestTool.h"

#include <QAction>
#include <QUndoStack>

RegionCommands::RegionCommands(Media& aMedia, QUndoStack& aStack, QAction& aSet, QAction& aClear,
                               QObject* aParent)
    : QObject(aParent), theMedia(aMedia), theStack(aStack), theSet(aSet), theClear(aClear),
      theTool(new RegionOfInterestTool(aMedia.editor(), this))
{
    connect(&theSet, &QAction::triggered, this, &RegionCommands::startOrLeave);
    connect(&theClear, &QAction::triggered, this, &RegionCommands::clear);
    connect(theTool, &RegionOfInterestTool::chosen, this, &RegionCommands::take);
    connect(theTool, &RegionOfInterestTool::signalHintChanged, this, &RegionCommands::updateActions);
    connect(&theMedia, &Media::regionChanged, this, &RegionCommands::updateActions);
    connect(&theMedia, &Media::opened, this, [this] {
        theTool->finish();
        updateActions();
    });
    updateActions();
}

void RegionCommands::startOrLeave()
{
    if (theTool->isRunning())
        theTool->finish();
    else
        theTool->start();
}

void RegionCommands::clear()
{
    if (!theMedia.region().isNull())
        theStack.push(new CmdSetRegion(theMedia, QRect()));
}

void RegionCommands::take(const QRect& aCanvasRect)
{
    const QRect whole(QPoint(0, 0), theMedia.image()->size());
    QRect region = aCanvasRect.translated(LmKSKernelData::getInstance()->origin()).intersected(whole);
    if (region == whole)
        region = QRect();
    if (region != theMedia.region())
        theStack.push(new CmdSetRegion(theMedia, region));
}

void RegionCommands::updateActions()
{
    theSet.setChecked(theTool->isRunning());
    theClear.setEnabled(!theMedia.region().isNull());
}
