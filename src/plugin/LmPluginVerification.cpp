#include "LmPluginRecord.h"

#include <QtGlobal>

/// Read by the application before it asks for the instance. The text lives as long as the library.
extern "C" Q_DECL_EXPORT const char* qt_plugin_query_verification_data()
{
    static const QByteArray theRecord = LmPluginRecord::record();
    return theRecord.constData();
}
