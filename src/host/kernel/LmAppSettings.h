#ifndef LMAPPSETTINGS_H
#define LMAPPSETTINGS_H

#include <QColor>
#include <QString>

/// Settings of the application that the tools read and write.
struct LmAppSettings
{
    static QColor theGridColor;      // colour of new objects
    static QString theLastExcelFile; // file of the last text export
};

#endif
