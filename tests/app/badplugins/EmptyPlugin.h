#ifndef EMPTYPLUGIN_H
#define EMPTYPLUGIN_H

#include "LmCvManipulatorPluginInterface.h"

/// The interface without any tool.
class EmptyPlugin : public LmCvManipulatorPluginInterface
{
public:
    QStringList featureList() const override { return QStringList(); }
    bool createManipulator(const QString&, LmCvManipulator** aManipulator, QObject*) override
    {
        *aManipulator = nullptr;
        return false;
    }
    bool addFeatures(const QString&, KsGuiMainWindow*, QMenu**, QUndoStack*, LmPhotoEditor*,
                     LmCvEditor*) override
    {
        return false;
    }
};

#endif
