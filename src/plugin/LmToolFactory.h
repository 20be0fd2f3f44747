#ifndef LMTOOLFACTORY_H
#define LMTOOLFACTORY_H

#include <QStringList>

class LmCvManipulator;
class QObject;

/// Makes the tools of the plug-in by their feature names.
namespace LmToolFactory {

/// All names, in the order in which they are offered.
QStringList featureNames();

/// The names that have a tool, in the order in which they are looked up.
QStringList toolNames();

/// A new tool with that parent at every call; null for a name that has no tool. Upper and lower case differ.
LmCvManipulator* makeTool(const QString& aName, QObject* aParent);

} // namespace LmToolFactory

#endif
