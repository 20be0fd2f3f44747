#ifndef PLUGINLOADER_H
#define PLUGINLOADER_H

#include <QString>
#include <QStringList>

class LmCvManipulatorPluginInterface;

/// Finds the measuring plug-in and checks that it was built for this program before any of its code is asked
/// for.
namespace PluginLoader {

/// Folders that are searched, in order: that of the environment variable MEASURETOOLS_PLUGIN_DIR, the one
/// beside the program in a build tree, the one it is installed in.
QStringList searchPath();

/// Loads the plug-in file; null with one sentence in aError if it is missing, is no plug-in, has another
/// record or another interface. A loaded plug-in is never unloaded.
LmCvManipulatorPluginInterface* load(const QString& aFile, QString& aError);

/// Loads the plug-in from the first of the folders that holds its file; a bad one there is told, not passed
/// over.
LmCvManipulatorPluginInterface* loadFrom(const QStringList& aFolders, QString& aError);

/// Loads the plug-in from the search path.
LmCvManipulatorPluginInterface* loadFromSearchPath(QString& aError);

} // namespace PluginLoader

#endif
