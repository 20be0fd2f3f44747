#include "CameraCommands.h"

#include "FileCommands.h"
#include "LiveView.h"
#include "LmKSKernelData.h"
#include "Messages.h"
#include "SystemCameras.h"
#include "WindowActions.h"
#include "Workbench.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QStatusBar>
#include <QUndoStack>

#include <algorithm>

namespace {

constexpr int kReadingTime = 12000; // ms

/// A name from outside as the text of a menu entry: its "&" are no mnemonics.
QString entryText(QString aName)
{
    return aName.replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace

CameraCommands::CameraCommands(Workbench& aBench, FileCommands& aFiles, WindowActions& aActions,
                               QMainWindow& aWindow)
    : QObject(&aWindow), theBench(aBench), theFiles(aFiles), theWindow(aWindow),
      theMenu(*aActions.theCameraMenu), theSizes(theMenu.addMenu(tr("&Resolution"))),
      theFreeze(*aActions.theFreeze), theTake(*aActions.theTakePicture), theView(new LiveView(aBench, this))
{
    theSizes->setObjectName(QStringLiteral("cameraSizes"));
    theMenu.setObjectName(QStringLiteral("cameraMenu"));
    connect(&theMenu, &QMenu::aboutToShow, this, &CameraCommands::fillCameras);
    connect(theSizes, &QMenu::aboutToShow, this, &CameraCommands::fillSizes);
    connect(&theFreeze, &QAction::triggered, theView, &LiveView::setFrozen);
    connect(&theTake, &QAction::triggered, this, &CameraCommands::takePicture);
    connect(theView, &LiveView::changed, this, &CameraCommands::updateActions);
    connect(theView, &LiveView::told, this,
            [this](const QString& aText) { theWindow.statusBar()->showMessage(aText, kReadingTime); });
    setCameras(std::make_unique<SystemCameras>());
    updateActions();
}

CameraCommands::~CameraCommands()
{
    delete theView; // it streams into the workbench
}

void CameraCommands::setCameras(std::unique_ptr<CameraList> aCameras)
{
    theCameras = std::move(aCameras);
    connect(theCameras.get(), &CameraList::changed, this, &CameraCommands::camerasChanged);
}

void CameraCommands::fillCameras()
{
    qDeleteAll(theEntries);
    theEntries.clear();
    const QList<CameraList::Camera> cameras = theCameras->cameras();
    for (const CameraList::Camera& camera : cameras) {
        auto* entry = new QAction(entryText(camera.theName), &theMenu);
        entry->setStatusTip(tr("Shows the live picture of this camera"));
        entry->setCheckable(true);
        entry->setChecked(theView->device() && camera.theId == theView->deviceId());
        connect(entry, &QAction::triggered, this, [this, id = camera.theId] { choose(id); });
        theEntries.append(entry);
    }
    if (theEntries.isEmpty()) {
        theEntries.append(new QAction(tr("No camera is connected"), &theMenu));
        theEntries.first()->setEnabled(false);
    }
    theMenu.insertActions(theMenu.actions().first(), theEntries);
}

void CameraCommands::fillSizes()
{
    theSizes->clear();
    CameraDevice* device = theView->device();
    const QList<QSize> sizes = device ? device->sizes() : QList<QSize>();
    const QSize present = LmKSKernelData::getInstance()->getCurrentImageSize();
    for (const QSize& size : sizes) {
        QAction* entry = theSizes->addAction(tr("%1 x %2").arg(size.width()).arg(size.height()));
        entry->setCheckable(true);
        entry->setChecked(size == present);
        connect(entry, &QAction::triggered, device, [device, size] { device->setSize(size); });
    }
    if (theSizes->isEmpty())
        theSizes->addAction(tr("The camera offers no choice"))->setEnabled(false);
}

void CameraCommands::choose(const QByteArray& aId)
{
    if (theView->device() && theView->deviceId() == aId)
        return;
    if (!theView->goesOnWith(aId) && !theFiles.mayLeaveWork())
        return;
    std::unique_ptr<CameraDevice> device = theCameras->open(aId);
    if (!device) {
        tellError(&theWindow, tr("This camera is not connected any more; connect it and choose it again."));
        return;
    }
    // What is changed until the first picture comes has to be asked for again.
    const QUndoStack& stack = theBench.undoStack();
    theView->start(std::move(device), aId, [this, &stack, command = stack.index(), count = stack.count()] {
        return (stack.index() == command && stack.count() == count) || theFiles.mayLeaveWork();
    });
}

void CameraCommands::camerasChanged()
{
    const QList<CameraList::Camera> cameras = theCameras->cameras();
    const bool isThere =
        std::any_of(cameras.begin(), cameras.end(), [this](const CameraList::Camera& aCamera) {
            return aCamera.theId == theView->deviceId();
        });
    if (theView->device() && !isThere)
        theView->lose(tr("it was disconnected"));
    if (theMenu.isVisible())
        fillCameras();
}

void CameraCommands::takePicture()
{
    QString error;
    if (!theView->take(error))
        tellError(&theWindow, error);
}

void CameraCommands::updateActions()
{
    const bool isLive = theView->device() && theView->isShown();
    theFreeze.setEnabled(isLive);
    theFreeze.setChecked(theView->isFrozen());
    theTake.setEnabled(theView->isShown());
    theSizes->setEnabled(isLive);
}
