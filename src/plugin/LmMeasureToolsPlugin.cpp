#include "LmMeasureToolsPlugin.h"

#include "LmToolFactory.h"

QStringList LmMeasureToolsPlugin::featureList() const
{
    return LmToolFactory::featureNames();
}

bool LmMeasureToolsPlugin::createManipulator(const QString& aName, LmCvManipulator** aManipulator,
                                             QObject* aParent)
{
    *aManipulator = LmToolFactory::makeTool(aName, aParent);
    return *aManipulator != nullptr;
}

bool LmMeasureToolsPlugin::addFeatures(const QString&, KsGuiMainWindow*, QMenu**, QUndoStack*, LmPhotoEditor*,
                                       LmCvEditor*)
{
    return false;
}
