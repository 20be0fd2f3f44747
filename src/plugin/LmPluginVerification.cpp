#include "LmPluginRecord.h"

/// Read by the application before it asks for the instance.
extern "C" Q_DECL_EXPORT const char* qt_plugin_query_verification_data()
{
    return LM_PLUGIN_RECORD;
}
