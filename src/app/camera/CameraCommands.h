#ifndef CAMERACOMMANDS_H
#define CAMERACOMMANDS_H

#include "CameraList.h"

#include <QList>

class FileCommands;
class LiveView;
class QAction;
class QMainWindow;
class QMenu;
class Workbench;
class WindowActions;

/// What the user can do with cameras: choose one of those that are connected, freeze and take its pictures,
/// change its resolution.
class CameraCommands : public QObject
{
    Q_OBJECT

public:
    CameraCommands(Workbench& aBench, FileCommands& aFiles, WindowActions& aActions, QMainWindow& aWindow);
    ~CameraCommands() override;

    /// Other cameras than those of the system.
    void setCameras(std::unique_ptr<CameraList> aCameras);
    LiveView& view() { return *theView; }

private:
    void fillCameras();
    void fillSizes();
    void choose(const QByteArray& aId);
    void camerasChanged();
    void takePicture();
    void updateActions();

    Workbench& theBench;
    FileCommands& theFiles;
    QMainWindow& theWindow;
    QMenu& theMenu;
    QMenu* theSizes;
    QAction& theFreeze;
    QAction& theTake;
    LiveView* theView; // child
    std::unique_ptr<CameraList> theCameras;
    QList<QAction*> theEntries; // one a camera, or what stands in their place
};

#endif
