#ifndef REGIONCOMMANDS_H
#define REGIONCOMMANDS_H

#include <QObject>

class Media;
class QAction;
class QRect;
class QUndoStack;
class RegionOfInterestTool;

/// The entries of the menu for the region of interest. Every change is one undo step.
class RegionCommands : public QObject
{
    Q_OBJECT

public:
    RegionCommands(Media& aMedia, QUndoStack& aStack, QAction& aSet, QAction& aClear, QObject* aParent);

    RegionOfInterestTool& tool() { return *theTool; }

private:
    void startOrLeave();
    void clear();
    void take(const QRect& aCanvasRect);
    void updateActions();

    Media& theMedia;
    QUndoStack& theStack;
    QAction& theSet;
    QAction& theClear;
    RegionOfInterestTool* theTool; // child
};

#endif
