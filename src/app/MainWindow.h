#ifndef MAINWINDOW_H
#define MAINWINDOW_H

#include "WindowActions.h"
#include "Workbench.h"

#include <QMainWindow>

class CalibrationCommands;
class CameraCommands;
class FileCommands;
class ItemMenu;
class RecentFiles;
class RegionCommands;
class StatusInfo;
class TimelineDock;
class ToolSwitch;
class ViewZoom;

/// The one window: it makes the parts around the workbench and connects them.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget* aParent = nullptr);
    ~MainWindow() override;

    /// Opens the file, or with an empty path the sample picture if it is found; true if something is open
    /// then.
    bool openAtStart(const QString& aPathOrEmpty);

    Workbench& workbench() { return theBench; }
    WindowActions& actions() { return theActions; }
    CameraCommands& camera() { return *theCamera; }

protected:
    void showEvent(QShowEvent* aEvent) override;
    void closeEvent(QCloseEvent* aEvent) override;
    void dragEnterEvent(QDragEnterEvent* aEvent) override;
    void dropEvent(QDropEvent* aEvent) override;

private:
    void connectFileActions();
    void connectEditActions();
    void connectViewActions();
    void connectCalibration();
    void addDocks();
    void addTimeline();
    void addToolDocks();
    void addValues();
    void restoreLayout();
    void saveLayout() const;
    void pictureOpened();
    QString shownFile();
    void updateResolution();
    void updateTitle();
    void updateSelection();
    void tellStartError();

    Workbench theBench;
    WindowActions theActions;
    RecentFiles* theRecentFiles;
    FileCommands* theFiles;
    ToolSwitch* theTools;
    ViewZoom* theZoom;
    CalibrationCommands* theCalibration;
    RegionCommands* theRegion;
    StatusInfo* theStatus;
    CameraCommands* theCamera;
    TimelineDock* theTimeline = nullptr; // made with the docks
    QString theResolutionFile;           // whose note decides whether it is offered
    QString theStartError;               // why there are no tools, until it is told
};

#endif
