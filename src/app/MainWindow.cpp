#include "MainWindow.h"

#include "AppIcon.h"
#include "CalibrationCommands.h"
#include "CalibrationTool.h"
#include "CameraCommands.h"
#include "Document.h"
#include "FileCommands.h"
#include "ItemMenu.h"
#include "LiveView.h"
#include "LmCvEditor.h"
#include "LmCvObject.h"
#include "LmCvSelection.h"
#include "Media.h"
#include "Messages.h"
#include "ObjectColor.h"
#include "RecentFiles.h"
#include "RegionCommands.h"
#include "RegionOfInterestTool.h"
#include "ResolutionTag.h"
#include "SampleFile.h"
#include "ScaleBarView.h"
#include "StatusInfo.h"
#include "TimelineDock.h"
#include "ToolSwitch.h"
#include "ViewZoom.h"

#include <QAction>
#include <QCloseEvent>
#include <QMenu>
#include <QMimeData>
#include <QStatusBar>
#include <QToolBar>

namespace {

constexpr int kReadingTime = 12000; // ms

} // namespace

MainWindow::MainWindow(QWidget* aParent)
    : QMainWindow(aParent), theActions(*this, theBench.undoStack()),
      theRecentFiles(new RecentFiles(*theActions.theRecentMenu, this)),
      theFiles(new FileCommands(theBench, *theRecentFiles, *this)),
      theTools(new ToolSwitch(theBench.editor(), *theActions.theArrow, this)),
      theZoom(new ViewZoom(theBench.editor(), this)),
      theCalibration(new CalibrationCommands(theBench.editor(), theBench.undoStack(),
                                             *theActions.theCalibrationMenu, *this)),
      theRegion(new RegionCommands(theBench.media(), theBench.undoStack(), *theActions.theSetRegion,
                                   *theActions.theClearRegion, this)),
      theStatus(
          new StatusInfo(*statusBar(), theBench.editor(), theBench.media(), theCalibration->tool(), this)),
      theCamera(new CameraCommands(theBench, *theFiles, theActions, *this))
{
    setObjectName(QStringLiteral("mainWindow"));
    setWindowIcon(appIcon(QStringLiteral("measuretools")));
    setAcceptDrops(true);
    setCentralWidget(&theBench.editor());
    theBench.editor().setAccessibleName(tr("Picture"));
    theBench.document().setProgressParent(this);
    theBench.loadTools(theActions.theToolBar, theStartError);
    theTools->addTools(theBench.tools(), *theActions.theToolsMenu);
    theStatus->listenTo(theBench.tools());
    theStatus->listenTo({&theRegion->tool()});
    theTools->setToolsEnabled(false);
    new ObjectColor(*theActions.theColor, *this);
    connectFileActions();
    connectEditActions();
    connectViewActions();
    connectCalibration();
    addDocks();
    restoreLayout();
    updateTitle();
    updateSelection();
}

MainWindow::~MainWindow()
{
    // It may be reading from the media, which goes with the workbench before the window's children do.
    delete theTimeline;
    delete theCamera; // it streams into the media
    // The parts below listen to the editor, which goes with the workbench as well.
    theCalibration->tool().finish();
    theRegion->tool().finish();
    theBench.editor().disconnect(this);
    theBench.undoStack().disconnect(this);
}

bool MainWindow::openAtStart(const QString& aPathOrEmpty)
{
    if (!aPathOrEmpty.isEmpty())
        return theFiles->open(aPathOrEmpty);
    // The user didn't choose the sample, so it isn't remembered among the recent files.
    const QString sample = SampleFile::find();
    QString error;
    return !sample.isEmpty() && theBench.document().open(sample, error);
}

void MainWindow::connectFileActions()
{
    connect(theActions.theOpen, &QAction::triggered, theFiles, &FileCommands::askOpen);
    connect(theActions.theOpenFolder, &QAction::triggered, theFiles, &FileCommands::askOpenFolder);
    connect(theActions.theSave, &QAction::triggered, theFiles, &FileCommands::save);
    connect(theActions.theSaveAs, &QAction::triggered, theFiles, &FileCommands::saveAs);
    connect(theActions.theExport, &QAction::triggered, theFiles, &FileCommands::exportPicture);
    connect(theActions.theLocate, &QAction::triggered, theFiles, &FileCommands::locatePicture);
    connect(theActions.theQuit, &QAction::triggered, this, &MainWindow::close);
    connect(theActions.theAbout, &QAction::triggered, this, [this] { tellAbout(this); });
    connect(&theBench.media(), &Media::opened, this, &MainWindow::pictureOpened);
    connect(&theBench.media(), &Media::flawFound, this,
            [this](const QString& aSentence) { statusBar()->showMessage(aSentence, kReadingTime); });
    connect(&theBench.document(), &Document::changed, this, &MainWindow::updateTitle);
    connect(&theBench.undoStack(), &QUndoStack::cleanChanged, this, &MainWindow::updateTitle);
}

void MainWindow::connectEditActions()
{
    LmCvEditor& editor = theBench.editor();
    connect(theActions.theSelectAll, &QAction::triggered, this,
            [&editor] { editor.selection().selectAll(); });
    connect(theActions.theDelete, &QAction::triggered, &editor, &LmCvEditor::slotDeleteSelected);
    connect(&editor, &LmCvEditor::signalSelectionChanged, this, &MainWindow::updateSelection);
    connect(&editor, &LmCvEditor::signalCurrentObjectChanged, this, &MainWindow::updateSelection);
    auto* menu = new ItemMenu(editor, *theTools,
                              {theActions.theShowAll, theActions.theSelectAll, theActions.theZoomFit}, *this);
    connect(menu, &ItemMenu::told, this,
            [this](const QString& aText) { statusBar()->showMessage(aText, 5000); });
}

void MainWindow::connectViewActions()
{
    connect(theActions.theZoomIn, &QAction::triggered, theZoom, &ViewZoom::in);
    connect(theActions.theZoomOut, &QAction::triggered, theZoom, &ViewZoom::out);
    connect(theActions.theZoomFit, &QAction::triggered, theZoom, &ViewZoom::fit);
    connect(theActions.theZoomOne, &QAction::triggered, theZoom, &ViewZoom::one);
    connect(&theBench.media(), &Media::regionChanged, theZoom, &ViewZoom::refit);
    connect(&theBench.media(), &Media::resolutionChanged, theZoom, &ViewZoom::refit);
    connect(&theBench.media(), &Media::imageChanged, theStatus, &StatusInfo::updateCalibration);
    connect(theActions.theScaleBar, &QAction::toggled, theFiles, &FileCommands::setScaleBar);
    (new ScaleBarView(theBench.editor(), theBench.media()))->obey(*theActions.theScaleBar);
    connect(theActions.theShowAll, &QAction::triggered, &theBench.editor(), &LmCvEditor::slotShowAllCvItems);
}

void MainWindow::connectCalibration()
{
    connect(theActions.theKnownLength, &QAction::triggered, theCalibration,
            &CalibrationCommands::calibrateByLength);
    connect(theActions.thePixelSize, &QAction::triggered, theCalibration,
            &CalibrationCommands::calibrateByPixelSize);
    connect(theActions.theResolution, &QAction::triggered, this,
            [this] { theCalibration->calibrateByResolution(shownFile()); });
    connect(theActions.theCalibrations, &QAction::triggered, theCalibration, &CalibrationCommands::manage);
    connect(theCalibration, &CalibrationCommands::changed, theStatus, &StatusInfo::updateCalibration);
    connect(&theBench.media(), &Media::frameShown, this, [this] {
        // While playing only a series has another file on each frame.
        if (shownFile() != theResolutionFile)
            updateResolution();
    });
    const CalibrationTool& tool = theCalibration->tool();
    connect(&tool, &CalibrationTool::signalHintChanged, this,
            [this, &tool] { theActions.theKnownLength->setChecked(tool.isRunning()); });
}

void MainWindow::pictureOpened()
{
    theCalibration->tool().finish();
    theActions.setPictureOpen(true);
    updateResolution();
    theTools->setToolsEnabled(true);
    theZoom->fit();
}

QString MainWindow::shownFile()
{
    const Media& media = theBench.media();
    return media.source() ? media.source()->framePath(media.frame()) : media.path();
}

void MainWindow::updateResolution()
{
    theResolutionFile = shownFile();
    theActions.theResolution->setEnabled(ResolutionTag::read(theResolutionFile).isNoted());
}

void MainWindow::updateTitle()
{
    const Document& document = theBench.document();
    const QString name = document.displayName();
    setWindowTitle(name.isEmpty() ? tr("MeasureTools") : tr("%1[*] - MeasureTools").arg(name));
    setWindowModified(document.isModified());
    theActions.theLocate->setEnabled(document.isPictureMissing());
}

void MainWindow::updateSelection()
{
    theActions.theDelete->setEnabled(!theBench.editor().selection().targets().isEmpty());
}

void MainWindow::showEvent(QShowEvent* aEvent)
{
    QMainWindow::showEvent(aEvent);
    if (!theStartError.isEmpty())
        QMetaObject::invokeMethod(this, &MainWindow::tellStartError, Qt::QueuedConnection);
}

void MainWindow::tellStartError()
{
    const QString error = std::exchange(theStartError, QString());
    if (!error.isEmpty())
        tellError(this, error);
}

void MainWindow::closeEvent(QCloseEvent* aEvent)
{
    if (!theFiles->mayLeaveWork()) {
        aEvent->ignore();
        return;
    }
    theCamera->view().stop();
    saveLayout();
    QMainWindow::closeEvent(aEvent);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* aEvent)
{
    if (!FileCommands::draggedFile(aEvent->mimeData()).isEmpty())
        aEvent->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* aEvent)
{
    const QString path = FileCommands::draggedFile(aEvent->mimeData());
    if (path.isEmpty())
        return;
    aEvent->acceptProposedAction();
    // Opening may ask something, and the program the file comes from waits until the drop is over.
    QMetaObject::invokeMethod(
        this, [this, path] { theFiles->open(path); }, Qt::QueuedConnection);
}
