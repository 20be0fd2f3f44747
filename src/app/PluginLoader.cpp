#include "PluginLoader.h"

#include "LmCvManipulatorPluginInterface.h"
#include "LmPluginRecord.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonObject>
#include <QLibrary>
#include <QPluginLoader>

#include <cstring>
#include <link.h>

namespace {

const char kPluginFile[] = "libMeasureToolsPlugin.so";
const char kPluginDirVariable[] = "MEASURETOOLS_PLUGIN_DIR";
const char kRecordFunction[] = "qt_plugin_query_verification_data";

using RecordFunction = const char* (*)();

QString tr(const char* aText)
{
    return QCoreApplication::translate("PluginLoader", aText);
}

QString refused(const QString& aFile, const QString& aWhy)
{
    return tr("The plug-in %1 can't be used: %2; install the one that belongs to this program.")
        .arg(QDir::toNativeSeparators(aFile), aWhy);
}

/// A sentence of another library as a part of one of ours: in one line, small and without its stop.
QString asClause(QString aText)
{
    aText = aText.simplified();
    while (aText.endsWith(QLatin1Char('.')))
        aText.chop(1);
    if (!aText.isEmpty())
        aText[0] = aText.at(0).toLower();
    return aText;
}

/// Loading what is left of a file that was copied in part would end the program.
bool isCutOff(const QString& aFile)
{
    constexpr unsigned char kOwnClass = sizeof(void*) == 8 ? ELFCLASS64 : ELFCLASS32;
    ElfW(Ehdr) head;
    QFile file(aFile);
    if (!file.open(QIODevice::ReadOnly) ||
        file.read(reinterpret_cast<char*>(&head), sizeof head) < qint64(sizeof head) ||
        std::memcmp(head.e_ident, ELFMAG, SELFMAG) != 0 || head.e_ident[EI_CLASS] != kOwnClass)
        return false;
    // The table of sections is the last thing in the file.
    const auto size = quint64(file.size());
    return head.e_shoff > size || size - head.e_shoff < quint64(head.e_shnum) * head.e_shentsize;
}

bool checkRecord(const QString& aFile, QString& aError)
{
    if (isCutOff(aFile)) {
        aError = refused(aFile, tr("it is cut off"));
        return false;
    }
    QLibrary library(aFile);
    if (!library.load()) {
        aError = refused(aFile, asClause(library.errorString()));
        return false;
    }
    const auto record = reinterpret_cast<RecordFunction>(library.resolve(kRecordFunction));
    if (!record) {
        aError = refused(aFile, tr("it has no verification record"));
        return false;
    }
    const QString mismatch = LmPluginRecord::mismatch(QByteArray(record()));
    if (!mismatch.isEmpty())
        aError = refused(aFile, asClause(mismatch));
    return mismatch.isEmpty();
}

} // namespace

QStringList PluginLoader::searchPath()
{
    QStringList folders;
    const QString chosen = qEnvironmentVariable(kPluginDirVariable);
    if (!chosen.isEmpty())
        folders << chosen;
    const QDir program(QCoreApplication::applicationDirPath());
    folders << program.absoluteFilePath(QStringLiteral("../lib"));
    // Beside the program first, so that a moved installation still finds its own.
    folders << program.absoluteFilePath(QStringLiteral("../" MEASURETOOLS_RELATIVE_PLUGIN_DIR));
    folders << QStringLiteral(MEASURETOOLS_INSTALLED_PLUGIN_DIR);
    for (QString& folder : folders)
        folder = QDir::cleanPath(folder);
    folders.removeDuplicates();
    return folders;
}

LmCvManipulatorPluginInterface* PluginLoader::load(const QString& aFile, QString& aError)
{
    if (!QFileInfo(aFile).isFile()) {
        aError = tr("The plug-in %1 is missing; install it again.").arg(QDir::toNativeSeparators(aFile));
        return nullptr;
    }
    if (!checkRecord(aFile, aError))
        return nullptr;
    QPluginLoader loader(aFile);
    const QString iid = loader.metaData().value(QLatin1String("IID")).toString();
    if (iid != QLatin1String(LmCvManipulatorPluginInterface_iid)) {
        aError = refused(aFile, iid.isEmpty() ? tr("it names no interface")
                                              : tr("it has the other interface %1").arg(iid));
        return nullptr;
    }
    auto* plugin = qobject_cast<LmCvManipulatorPluginInterface*>(loader.instance());
    if (!plugin)
        aError = refused(aFile, tr("it does not have the interface that it names"));
    return plugin;
}

LmCvManipulatorPluginInterface* PluginLoader::loadFrom(const QStringList& aFolders, QString& aError)
{
    for (const QString& folder : aFolders) {
        const QString file = QDir(folder).filePath(QLatin1String(kPluginFile));
        if (QFileInfo(file).isFile())
            return load(file, aError);
    }
    aError = tr("The plug-in %1 is missing in %2; install it or name its folder in %3.")
                 .arg(QLatin1String(kPluginFile), aFolders.join(QLatin1String(", ")),
                      QLatin1String(kPluginDirVariable));
    return nullptr;
}

LmCvManipulatorPluginInterface* PluginLoader::loadFromSearchPath(QString& aError)
{
    return loadFrom(searchPath(), aError);
}
