#ifndef LMCVMANIPULATORPLUGININTERFACE_H
#define LMCVMANIPULATORPLUGININTERFACE_H

#include <QStringList>
#include <QtPlugin>

class KsGuiMainWindow;
class LmCvEditor;
class LmCvManipulator;
class LmPhotoEditor;
class QMenu;
class QUndoStack;

/// What a plug-in with tools offers to the application.
class LmCvManipulatorPluginInterface
{
public:
    virtual ~LmCvManipulatorPluginInterface();

    /// The names that createManipulator answers.
    virtual QStringList featureList() const = 0;
    /// Makes a new tool, which aParent owns. An unknown name gives false and a null pointer.
    virtual bool createManipulator(const QString& aName, LmCvManipulator** aManipulator,
                                   QObject* aParent) = 0;
    /// Adds menus or dialogs of its own to the main window; true if it did.
    virtual bool addFeatures(const QString& aName, KsGuiMainWindow* aWindow, QMenu** aMenus,
                             QUndoStack* aStack, LmPhotoEditor* aPhotoEditor, LmCvEditor* aEditor) = 0;
};

#define LmCvManipulatorPluginInterface_iid "com.Pelorus.plugin.CvManipulatorPluginInterface/1.0"
Q_DECLARE_INTERFACE(LmCvManipulatorPluginInterface, LmCvManipulatorPluginInterface_iid)

#endif
