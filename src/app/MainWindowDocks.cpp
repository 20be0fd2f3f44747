// The docks of MainWindow, and where they are from one start to the next.
#include "MainWindow.h"

#include "LmAppSettings.h"
#include "LmCvEditor.h"
#include "Media.h"
#include "Messages.h"
#include "Player.h"
#include "TimelineDock.h"
#include "UndoDock.h"
#include "ValuesDock.h"

#include <QAction>
#include <QDir>
#include <QMenu>
#include <QScreen>
#include <QSettings>
#include <QStandardPaths>
#include <QToolBar>

namespace {

constexpr QLatin1String kGeometryKey("window/geometry");
constexpr QLatin1String kStateKey("window/state");
constexpr QLatin1String kExportKey("lastExport");
constexpr double kFirstHeightOfDocks = 0.45; // of the window's height; the picture has most of the rest
constexpr double kFirstSizeOfScreen = 0.8;   // of the screen's width and height

QString firstExportFile()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir(folder).filePath(MainWindow::tr("measurements") + QStringLiteral(".txt"));
}

} // namespace

void MainWindow::addDocks()
{
    addTimeline();
    addToolDocks();
    addValues();
    auto* history = new UndoDock(theBench.undoStack(), this);
    addDockWidget(Qt::RightDockWidgetArea, history);
    history->hide();
    history->toggleViewAction()->setShortcut(QKeySequence(tr("Ctrl+Shift+H")));
    history->toggleViewAction()->setStatusTip(tr("Shows or hides the list of all changes"));
    theActions.theMainBar->toggleViewAction()->setStatusTip(tr("Shows or hides the main tool bar"));
    theActions.theToolBar->toggleViewAction()->setStatusTip(
        tr("Shows or hides the bar of the measuring tools"));
    theActions.theViewMenu->addActions({history->toggleViewAction(),
                                        theActions.theMainBar->toggleViewAction(),
                                        theActions.theToolBar->toggleViewAction()});
}

void MainWindow::addTimeline()
{
    theTimeline = new TimelineDock(theBench.media(), theBench.editor(), theBench.undoStack(),
                                   *theActions.thePreviousFrame, *theActions.theNextFrame,
                                   *theActions.theFramesMenu, *this);
    addDockWidget(Qt::BottomDockWidgetArea, theTimeline, Qt::Vertical);
    theTimeline->toggleViewAction()->setShortcut(QKeySequence(tr("Ctrl+Shift+T")));
    theTimeline->toggleViewAction()->setStatusTip(tr("Shows or hides the time line of the frames"));
    theActions.theViewMenu->addAction(theTimeline->toggleViewAction());
    connect(theTimeline, &TimelineDock::failed, this,
            [this](const QString& aError) { tellError(this, aError); });
}

void MainWindow::addToolDocks()
{
    auto docks = findChildren<QDockWidget*>();
    docks.removeOne(theTimeline);
    for (QDockWidget* dock : std::as_const(docks)) {
        addDockWidget(Qt::BottomDockWidgetArea, dock, Qt::Vertical);
        dock->toggleViewAction()->setStatusTip(
            tr("Shows or hides the table of all objects and their values"));
        theActions.theViewMenu->addAction(dock->toggleViewAction());
    }
    if (!docks.isEmpty())
        docks.first()->toggleViewAction()->setShortcut(QKeySequence(tr("Ctrl+T")));
}

/// In the place of the table of all objects, which it stands beside as a tab.
void MainWindow::addValues()
{
    const auto docks = findChildren<QDockWidget*>();
    auto* values = new ValuesDock(theBench.media(), theBench.editor(), this);
    addDockWidget(Qt::BottomDockWidgetArea, values, Qt::Vertical);
    for (QDockWidget* dock : docks)
        if (dock != theTimeline)
            tabifyDockWidget(dock, values);
    values->hide();
    values->toggleViewAction()->setShortcut(QKeySequence(tr("Ctrl+Shift+G")));
    values->toggleViewAction()->setStatusTip(tr("Shows or hides the curves of the values over time"));
    theActions.theViewMenu->addAction(values->toggleViewAction());
    connect(theActions.theExportValues, &QAction::triggered, values, &ValuesDock::exportAll);
    connect(values, &ValuesDock::aboutToRead, &theTimeline->player(), &Player::stop);
    connect(values, &ValuesDock::failed, this, [this](const QString& aError) { tellError(this, aError); });
}

/// All bars and docks have to be there, since only those are put in their places.
void MainWindow::restoreLayout()
{
    const QSettings settings;
    if (!restoreGeometry(settings.value(kGeometryKey).toByteArray()))
        resize(screen()->availableSize() * kFirstSizeOfScreen);
    if (!restoreState(settings.value(kStateKey).toByteArray())) {
        const auto docks = findChildren<QDockWidget*>();
        for (QDockWidget* dock : docks)
            if (dockWidgetArea(dock) == Qt::BottomDockWidgetArea)
                resizeDocks({dock}, {int(height() * kFirstHeightOfDocks)}, Qt::Vertical);
    }
    theTimeline->followMedia();
    LmAppSettings::theLastExcelFile = settings.value(kExportKey, firstExportFile()).toString();
}

void MainWindow::saveLayout() const
{
    QSettings settings;
    settings.setValue(kGeometryKey, saveGeometry());
    settings.setValue(kStateKey, saveState());
    settings.setValue(kExportKey, LmAppSettings::theLastExcelFile);
}
