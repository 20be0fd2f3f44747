#ifndef LMPLUGINRECORD_H
#define LMPLUGINRECORD_H

#include <QByteArray>
#include <QString>
#include <QtGlobal>

// What the including source was compiled for. These are macros and no functions, so that a plug-in tells its
// own build and not that of the library it happens to run with.
#define LM_RECORD_TEXT_OF(aNumber) #aNumber
#define LM_RECORD_TEXT(aNumber) LM_RECORD_TEXT_OF(aNumber)
#if defined(Q_CC_MSVC)
#define LM_RECORD_COMPILER "msvc"
#elif defined(__GXX_ABI_VERSION)
#define LM_RECORD_COMPILER "gxx-abi-" LM_RECORD_TEXT(__GXX_ABI_VERSION)
#else
#define LM_RECORD_COMPILER "unknown"
#endif
#if QT_POINTER_SIZE == 8
#define LM_RECORD_WORD_SIZE "64 bit"
#else
#define LM_RECORD_WORD_SIZE "32 bit"
#endif
#define LM_PLUGIN_BUILD_KEY "Qt " QT_VERSION_STR " " LM_RECORD_COMPILER " " LM_RECORD_WORD_SIZE

/// The record of the including source as a string literal, its lines in the order pattern, version, debug,
/// buildkey.
#define LM_PLUGIN_RECORD                                                                                     \
    "pattern=QT_PLUGIN_VERIFICATION_DATA\n"                                                                  \
    "version=4.7.0\n"                                                                                        \
    "debug=false\n"                                                                                          \
    "buildkey=" LM_PLUGIN_BUILD_KEY

/// The verification record of a plug-in: lines key=value that tell what it was built for. A plug-in exports
/// it through the function `qt_plugin_query_verification_data`, which returns LM_PLUGIN_RECORD; the
/// application compares it with its own before it asks for the instance.
namespace LmPluginRecord {

/// The build key of this library: Qt's version, compiler ABI and word size.
QByteArray buildKey();

/// The record that a plug-in of this build has.
QByteArray record();

/// Empty if aRecord fits this build; otherwise one sentence that says what doesn't.
QString mismatch(const QByteArray& aRecord);

} // namespace LmPluginRecord

#endif
