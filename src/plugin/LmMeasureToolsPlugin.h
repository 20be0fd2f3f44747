#ifndef LMMEASURETOOLSPLUGIN_H
#define LMMEASURETOOLSPLUGIN_H

#include "LmCvManipulatorPluginInterface.h"

#include <QObject>

/// The root object of the plug-in: it names the tools and makes them on request.
class LmMeasureToolsPlugin : public QObject, public LmCvManipulatorPluginInterface
{
    Q_OBJECT
    Q_INTERFACES(LmCvManipulatorPluginInterface)
    Q_PLUGIN_METADATA(IID LmCvManipulatorPluginInterface_iid)

public:
    QStringList featureList() const override;
    bool createManipulator(const QString& aName, LmCvManipulator** aManipulator, QObject* aParent) override;
    bool addFeatures(const QString& aName, KsGuiMainWindow* aWindow, QMenu** aMenus, QUndoStack* aStack,
                     LmPhotoEditor* aPhotoEditor, LmCvEditor* aEditor) override;
};

#endif
