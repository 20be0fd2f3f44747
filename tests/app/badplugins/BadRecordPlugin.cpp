#include "EmptyPlugin.h"

#include "LmPluginRecord.h"

#include <QObject>

/// Right in everything but its record, which is that of another version.
class BadRecordPlugin : public QObject, public EmptyPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID LmCvManipulatorPluginInterface_iid)
    Q_INTERFACES(LmCvManipulatorPluginInterface)
};

extern "C" Q_DECL_EXPORT const char* qt_plugin_query_verification_data()
{
    static const QByteArray record = LmPluginRecord::record().replace("version=4.7.0", "version=3.3.8");
    return record.constData();
}

#include "BadRecordPlugin.moc"
