#ifndef LMPLUGINRECORD_H
#define LMPLUGINRECORD_H

#include <QByteArray>
#include <QString>

/// The verification record of a plug-in: lines key=value that tell what it was built for. A plug-in exports it through
/// the function `qt_plugin_query_verification_data`; the application compares it with its own before it asks for the
/// instance.
namespace LmPluginRecord {

/// The build key of the Qt that this library was compiled with: Qt's version, compiler ABI and word size.
QByteArray buildKey();

/// The record that a plug-in of this build has, its lines in the order pattern, version, debug, buildkey.
QByteArray record();

/// Empty if aRecord fits this build; otherwise one sentence that says what doesn't.
QString mismatch(const QByteArray& aRecord);

} // namespace LmPluginRecord

#endif
