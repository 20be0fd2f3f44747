#include "Workbench.h"

#include "Document.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmCvManipulatorPluginInterface.h"
#include "LmKSKernelData.h"
#include "Media.h"
#include "PluginLoader.h"

#include <QMainWindow>
#include <QSignalBlocker>
#include <QToolBar>

Workbench::Workbench(QObject* aParent)
    : QObject(aParent), theEditor(new LmCvEditor), theMedia(std::make_unique<Media>(*theEditor, nullptr)),
      theDocument(std::make_unique<Document>(*theMedia, theUndoStack, nullptr))
{
    theEditor->setUndoStack(&theUndoStack);
    connect(theEditor, &QObject::destroyed, this, [this] { theEditor = nullptr; });
}

Workbench::~Workbench()
{
    // The parts go one after the other, and nobody who still listens may be told of the states between.
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    const QSignalBlocker quietKernel(kernel);
    const QSignalBlocker quietStack(theUndoStack);
    for (LmCvManipulator* tool : std::as_const(theTools))
        tool->blockSignals(true);
    if (theEditor) {
        theEditor->blockSignals(true);
        // A running action ends while all that it holds is still there.
        theEditor->setCurrentManipulator(nullptr);
    }
    theUndoStack.clear();
    theDocument.reset();
    theMedia.reset();
    // Items hold pointers to their tools, so the canvas goes first.
    delete theEditor;
    for (LmCvManipulator* tool : std::as_const(theTools)) {
        kernel->unregisterManipulator(tool);
        delete tool;
    }
    const QStringList calibrations = kernel->calibrations().keys();
    for (const QString& name : calibrations)
        kernel->removeCalibration(name);
    kernel->theCurrentFrame = 0;
}

bool Workbench::loadTools(QToolBar* aToolBar, QString& aError)
{
    LmCvManipulatorPluginInterface* plugin = PluginLoader::loadFromSearchPath(aError);
    if (!plugin)
        return false;
    auto* window = aToolBar ? qobject_cast<QMainWindow*>(aToolBar->window()) : nullptr;
    if (!window) {
        theHiddenWindow = std::make_unique<QMainWindow>();
        window = theHiddenWindow.get();
    }
    if (!aToolBar)
        aToolBar = window->addToolBar(QString());
    const QStringList names = plugin->featureList();
    for (const QString& name : names) {
        LmCvManipulator* tool = nullptr;
        if (!plugin->createManipulator(name, &tool, window) || !tool)
            continue;
        theTools << tool;
        tool->setUndoStack(&theUndoStack);
        tool->setCvEditor(theEditor);
        tool->initManipulator(aToolBar);
    }
    LmKSKernelData::getInstance()->announceManipulatorsLoaded();
    return true;
}
