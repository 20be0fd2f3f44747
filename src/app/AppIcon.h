#ifndef APPICON_H
#define APPICON_H

#include <QIcon>
#include <QString>

/// One of the program's own drawings, by its name.
QIcon appIcon(const QString& aName);

#endif
