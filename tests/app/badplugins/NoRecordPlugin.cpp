#include "EmptyPlugin.h"

#include <QObject>

/// Right in everything, but without a record.
class NoRecordPlugin : public QObject, public EmptyPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID LmCvManipulatorPluginInterface_iid)
    Q_INTERFACES(LmCvManipulatorPluginInterface)
};

#include "NoRecordPlugin.moc"
