#include "SampleFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

QString SampleFile::find()
{
    // Beside the installed program, and from a preset's build folder.
    const QDir program(QCoreApplication::applicationDirPath());
    for (const char* folder : {"../share/measuretools/samples", "../../../resources/samples"}) {
        const QFileInfo file(program.filePath(QLatin1String(folder) + QLatin1String("/workbench.png")));
        if (file.isReadable())
            return file.canonicalFilePath();
    }
    return QString();
}
