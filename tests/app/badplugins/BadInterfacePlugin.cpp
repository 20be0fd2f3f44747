#include "LmPluginRecord.h"

#include <QObject>
#include <QtPlugin>

/// A good plug-in of another interface.
class BadInterfacePlugin : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.example.OtherInterface/1.0")
};

extern "C" Q_DECL_EXPORT const char* qt_plugin_query_verification_data()
{
    static const QByteArray record = LmPluginRecord::record();
    return record.constData();
}

#include "BadInterfacePlugin.moc"
