#include "LmCvManipulatorPluginInterface.h"
#include "LmPluginRecord.h"

#include <QObject>

/// Names the right interface without having it.
class BadInstancePlugin : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID LmCvManipulatorPluginInterface_iid)
};

extern "C" Q_DECL_EXPORT const char* qt_plugin_query_verification_data()
{
    static const QByteArray record = LmPluginRecord::record();
    return record.constData();
}

#include "BadInstancePlugin.moc"
