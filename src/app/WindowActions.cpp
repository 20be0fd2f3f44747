#include "WindowActions.h"

#include "AppIcon.h"

#include <QAction>
#include <QCoreApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QUndoStack>

namespace {

QString tr(const char* aText)
{
    return QCoreApplication::translate("WindowActions", aText);
}

QToolBar* addBar(QMainWindow& aWindow, Qt::ToolBarArea aArea, const QString& aName, const QString& aTitle)
{
    auto* bar = new QToolBar(aTitle, &aWindow);
    bar->setObjectName(aName);
    bar->setAccessibleName(aTitle);
    aWindow.addToolBar(aArea, bar);
    return bar;
}

} // namespace

WindowActions::WindowActions(QMainWindow& aWindow, QUndoStack& aStack) : theWindow(aWindow)
{
    makeFileActions();
    makeEditActions(aStack);
    makeViewActions();
    makeCameraActions();
    makeToolActions();
    makeMenus();
    makeToolBars();
    setPictureOpen(false);
}

QAction* WindowActions::add(const QString& aName, const QString& aText, const QKeySequence& aShortcut,
                            const QString& aTip)
{
    auto* action = new QAction(appIcon(aName), aText, &theWindow);
    action->setObjectName(aName);
    action->setShortcut(aShortcut);
    action->setStatusTip(aTip);
    theWindow.addAction(action);
    return action;
}

void WindowActions::makeFileActions()
{
    theOpen = add(QStringLiteral("open"), tr("&Open..."), QKeySequence::Open,
                  tr("Opens a picture, a video or a project"));
    theOpenFolder =
        add(QStringLiteral("open-folder"), tr("Open &Folder..."), QKeySequence(tr("Ctrl+Shift+F")),
            tr("Opens the pictures of a folder as the frames of a series"));
    theSave = add(QStringLiteral("save"), tr("&Save"), QKeySequence::Save, tr("Saves the project"));
    theSaveAs = add(QStringLiteral("save-as"), tr("Save &As..."), QKeySequence(tr("Ctrl+Shift+S")),
                    tr("Saves the project under another name"));
    theExport = add(QStringLiteral("export"), tr("&Export Picture..."), QKeySequence(tr("Ctrl+E")),
                    tr("Writes the picture with all objects drawn into it"));
    theExportValues =
        add(QStringLiteral("export-values"), tr("Export &Values over Time..."),
            QKeySequence(tr("Ctrl+Shift+E")), tr("Writes the values of all animated objects on all frames"));
    theLocate = add(QStringLiteral("locate"), tr("&Locate Picture..."), QKeySequence(tr("Ctrl+Shift+L")),
                    tr("Looks for the picture of this project, which was not found"));
    theLocate->setEnabled(false);
    theQuit = add(QStringLiteral("quit"), tr("&Quit"), QKeySequence(tr("Ctrl+Q")), tr("Closes the program"));
    theQuit->setMenuRole(QAction::QuitRole);
}

void WindowActions::makeEditActions(QUndoStack& aStack)
{
    theUndo = aStack.createUndoAction(&theWindow, tr("Undo"));
    theUndo->setObjectName(QStringLiteral("undo"));
    theUndo->setIcon(appIcon(QStringLiteral("undo")));
    theUndo->setShortcut(QKeySequence::Undo);
    theUndo->setStatusTip(tr("Takes the last change back"));
    theRedo = aStack.createRedoAction(&theWindow, tr("Redo"));
    theRedo->setObjectName(QStringLiteral("redo"));
    theRedo->setIcon(appIcon(QStringLiteral("redo")));
    theRedo->setShortcuts({QKeySequence(tr("Ctrl+Shift+Z")), QKeySequence(tr("Ctrl+Y"))});
    theRedo->setStatusTip(tr("Makes again what was undone"));
    theWindow.addActions({theUndo, theRedo});

    theSelectAll = add(QStringLiteral("select-all"), tr("Select &All"), QKeySequence::SelectAll,
                       tr("Selects all objects that are shown"));
    theDelete = add(QStringLiteral("delete"), tr("&Delete"), QKeySequence(Qt::Key_Delete),
                    tr("Removes the selected objects"));
    // The canvas itself takes the keys Delete and Esc, since a tool may have a use of its own for them. The
    // menu shows them without taking them away.
    theDelete->setShortcutContext(Qt::WidgetShortcut);
    theColor = add(QStringLiteral("color"), tr("&Color for New Objects..."), QKeySequence(tr("Ctrl+Shift+C")),
                   tr("Chooses the color that new objects have"));
}

void WindowActions::makeViewActions()
{
    theZoomIn =
        add(QStringLiteral("zoom-in"), tr("Zoom &In"), QKeySequence(), tr("Shows the picture larger"));
    theZoomIn->setShortcuts({QKeySequence(tr("Ctrl++")), QKeySequence(tr("Ctrl+="))});
    theZoomOut = add(QStringLiteral("zoom-out"), tr("Zoom &Out"), QKeySequence(tr("Ctrl+-")),
                     tr("Shows the picture smaller"));
    theZoomFit = add(QStringLiteral("zoom-fit"), tr("&Fit to Window"), QKeySequence(tr("Ctrl+0")),
                     tr("Shows the whole picture"));
    theZoomOne = add(QStringLiteral("zoom-one"), tr("Actual &Size"), QKeySequence(tr("Ctrl+1")),
                     tr("Shows one picture pixel as one pixel of the screen"));
    theShowAll = add(QStringLiteral("show-all"), tr("Show &All Objects"), QKeySequence(tr("Ctrl+H")),
                     tr("Shows the hidden objects again"));
    theSetRegion =
        add(QStringLiteral("set-region"), tr("Set &Region of Interest"), QKeySequence(tr("Ctrl+R")),
            tr("Limits view and work to a part of the picture: drag a rectangle around it"));
    theSetRegion->setCheckable(true);
    theClearRegion = add(QStringLiteral("clear-region"), tr("&Clear Region of Interest"),
                         QKeySequence(tr("Ctrl+Shift+R")), tr("Shows the whole picture again"));
    theScaleBar = add(QStringLiteral("scale-bar"), tr("Scale &Bar"), QKeySequence(tr("Ctrl+B")),
                      tr("Shows or hides a bar of known length, also in exported pictures"));
    theScaleBar->setCheckable(true);
    thePreviousFrame = add(QStringLiteral("previous-frame"), tr("&Previous Frame"),
                           QKeySequence(Qt::Key_PageUp), tr("Goes one frame back"));
    theNextFrame = add(QStringLiteral("next-frame"), tr("&Next Frame"), QKeySequence(Qt::Key_PageDown),
                       tr("Goes one frame on"));
}

void WindowActions::makeCameraActions()
{
    theFreeze = add(QStringLiteral("camera-freeze"), tr("&Freeze"), QKeySequence(tr("Ctrl+F")),
                    tr("Holds the live picture of the camera, and lets it go on"));
    theFreeze->setCheckable(true);
    theTakePicture = add(QStringLiteral("camera-take"), tr("&Take Picture"), QKeySequence(tr("Ctrl+Return")),
                         tr("Keeps the live picture of the camera as a frame of a series"));
}

void WindowActions::makeToolActions()
{
    theArrow = add(QStringLiteral("select"), tr("&Select"), QKeySequence(Qt::Key_Escape),
                   tr("Click selects an object, a drag over the picture selects several"));
    theArrow->setShortcutContext(Qt::WidgetShortcut);
    theArrow->setCheckable(true);
    theArrow->setChecked(true);
    theKnownLength = add(QStringLiteral("calibrate"), tr("By a Known &Length"), QKeySequence(tr("Ctrl+L")),
                         tr("Calibrates the picture: click both ends of something whose length is known"));
    theKnownLength->setCheckable(true);
    thePixelSize =
        add(QStringLiteral("pixel-size"), tr("By the Size of a &Pixel..."), QKeySequence(tr("Ctrl+Shift+P")),
            tr("Calibrates the picture by a pixel size that is known"));
    theResolution = add(QStringLiteral("resolution"), tr("From the Picture's &Resolution..."),
                        QKeySequence(tr("Ctrl+Shift+D")),
                        tr("Calibrates the picture by the resolution that is noted in its file"));
    theResolution->setEnabled(false);
    theCalibrations = add(QStringLiteral("calibrations"), tr("&Manage Calibrations..."),
                          QKeySequence(tr("Ctrl+Shift+K")), tr("Switches, renames and removes calibrations"));
    theAbout = add(QStringLiteral("measuretools"), tr("&About MeasureTools"), QKeySequence(Qt::Key_F1),
                   tr("Tells the version of this program"));
    theAbout->setMenuRole(QAction::AboutRole);
}

void WindowActions::makeMenus()
{
    QMenuBar& bar = *theWindow.menuBar();
    QMenu* file = bar.addMenu(tr("&File"));
    file->addActions({theOpen, theOpenFolder});
    theRecentMenu = file->addMenu(tr("Open &Recent"));
    file->addSeparator();
    file->addActions({theSave, theSaveAs, theExport, theExportValues});
    file->addSeparator();
    file->addAction(theLocate);
    file->addSeparator();
    file->addAction(theQuit);

    QMenu* edit = bar.addMenu(tr("&Edit"));
    edit->addActions({theUndo, theRedo});
    edit->addSeparator();
    edit->addActions({theSelectAll, theDelete});
    edit->addSeparator();
    edit->addAction(theColor);

    theViewMenu = bar.addMenu(tr("&View"));
    theViewMenu->addActions({theZoomIn, theZoomOut, theZoomFit, theZoomOne});
    theViewMenu->addSeparator();
    theViewMenu->addActions({theSetRegion, theClearRegion});
    theViewMenu->addSeparator();
    theViewMenu->addActions({theShowAll, theScaleBar});
    theViewMenu->addSeparator();

    theFramesMenu = bar.addMenu(tr("F&rames"));
    theFramesMenu->addActions({thePreviousFrame, theNextFrame});
    theFramesMenu->addSeparator();

    theCameraMenu = bar.addMenu(tr("Ca&mera"));
    theCameraMenu->addSeparator();
    theCameraMenu->addActions({theFreeze, theTakePicture});

    theToolsMenu = bar.addMenu(tr("&Tools"));
    theToolsMenu->addAction(theArrow);
    theToolsMenu->addSeparator();

    theCalibrationMenu = bar.addMenu(tr("&Calibration"));
    theCalibrationMenu->addActions({theKnownLength, thePixelSize, theResolution, theCalibrations});
    theCalibrationMenu->addSeparator();

    bar.addMenu(tr("&Help"))->addAction(theAbout);
}

void WindowActions::makeToolBars()
{
    theMainBar = addBar(theWindow, Qt::TopToolBarArea, QStringLiteral("mainBar"), tr("Main Tool Bar"));
    theMainBar->addActions({theOpen, theSave});
    theMainBar->addSeparator();
    theMainBar->addActions({theUndo, theRedo});
    theMainBar->addSeparator();
    theMainBar->addActions({theKnownLength, theColor});
    theMainBar->addSeparator();
    theMainBar->addActions({theZoomIn, theZoomOut, theZoomFit, theZoomOne});

    theToolBar = addBar(theWindow, Qt::LeftToolBarArea, QStringLiteral("toolBar"), tr("Measuring Tools"));
    theToolBar->addAction(theArrow);
}

void WindowActions::setPictureOpen(bool aOpen)
{
    for (QAction* action :
         {theSave, theSaveAs, theExport, theExportValues, theSelectAll, theZoomIn, theZoomOut, theZoomFit,
          theZoomOne, theShowAll, theSetRegion, theKnownLength, thePixelSize, theCalibrations})
        action->setEnabled(aOpen);
}
