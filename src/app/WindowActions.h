#ifndef WINDOWACTIONS_H
#define WINDOWACTIONS_H

#include <QKeySequence>
#include <QString>

class QAction;
class QMainWindow;
class QMenu;
class QToolBar;
class QUndoStack;

/// The window's actions with their texts, shortcuts, tips and icons, and the menus and tool bars in which
/// they stand. What they do is connected by the window. Everything is owned by the window as its parent.
class WindowActions
{
public:
    WindowActions(QMainWindow& aWindow, QUndoStack& aStack);

    /// Switches what makes no sense without a picture.
    void setPictureOpen(bool aOpen);

    QAction* theOpen = nullptr;
    QAction* theOpenFolder = nullptr;
    QAction* theSave = nullptr;
    QAction* theSaveAs = nullptr;
    QAction* theExport = nullptr;
    QAction* theExportValues = nullptr;
    QAction* theLocate = nullptr;
    QAction* theQuit = nullptr;
    QAction* theUndo = nullptr;
    QAction* theRedo = nullptr;
    QAction* theSelectAll = nullptr;
    QAction* theDelete = nullptr;
    QAction* theColor = nullptr;
    QAction* theZoomIn = nullptr;
    QAction* theZoomOut = nullptr;
    QAction* theZoomFit = nullptr;
    QAction* theZoomOne = nullptr;
    QAction* theShowAll = nullptr;
    QAction* theSetRegion = nullptr;
    QAction* theClearRegion = nullptr;
    QAction* theScaleBar = nullptr;
    QAction* thePreviousFrame = nullptr;
    QAction* theNextFrame = nullptr;
    QAction* theFreeze = nullptr;
    QAction* theTakePicture = nullptr;
    QAction* theArrow = nullptr;
    QAction* theKnownLength = nullptr;
    QAction* thePixelSize = nullptr;
    QAction* theResolution = nullptr;
    QAction* theCalibrations = nullptr;
    QAction* theAbout = nullptr;

    QMenu* theRecentMenu = nullptr;
    QMenu* theViewMenu = nullptr;   // the window adds its docks and bars at the end
    QMenu* theFramesMenu = nullptr; // the time line adds its actions at the end
    QMenu* theCameraMenu = nullptr; // the cameras are added at the beginning
    QMenu* theToolsMenu = nullptr;
    QMenu* theCalibrationMenu = nullptr; // the named calibrations are added at the end
    QToolBar* theMainBar = nullptr;
    QToolBar* theToolBar = nullptr; // of the measuring tools

private:
    QAction* add(const QString& aName, const QString& aText, const QKeySequence& aShortcut,
                 const QString& aTip);
    void makeFileActions();
    void makeEditActions(QUndoStack& aStack);
    void makeViewActions();
    void makeCameraActions();
    void makeToolActions();
    void makeMenus();
    void makeToolBars();

    QMainWindow& theWindow;
};

#endif
