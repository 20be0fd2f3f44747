#include "LmPluginRecord.h"

#include <QCoreApplication>
#include <QMap>

namespace {

QString tr(const char* aText)
{
    return QCoreApplication::translate("LmPluginRecord", aText);
}

/// Lines without "=" are passed over; of a repeated key the first counts.
QMap<QByteArray, QByteArray> parsed(const QByteArray& aRecord)
{
    QMap<QByteArray, QByteArray> values;
    for (const QByteArray& line : aRecord.split('\n')) {
        const qsizetype equals = line.indexOf('=');
        if (equals > 0 && !values.contains(line.left(equals)))
            values.insert(line.left(equals), line.mid(equals + 1).trimmed());
    }
    return values;
}

} // namespace

QByteArray LmPluginRecord::buildKey()
{
    return QByteArrayLiteral(LM_PLUGIN_BUILD_KEY);
}

QByteArray LmPluginRecord::record()
{
    return QByteArrayLiteral(LM_PLUGIN_RECORD);
}

QString LmPluginRecord::mismatch(const QByteArray& aRecord)
{
    const QMap<QByteArray, QByteArray> wanted = parsed(record());
    const QMap<QByteArray, QByteArray> found = parsed(aRecord);
    const auto differs = [&](const QByteArray& aKey) { return found.value(aKey) != wanted.value(aKey); };
    const auto sentence = [&](const QString& aText, const QByteArray& aKey) {
        const QString value = QString::fromUtf8(found.value(aKey));
        return aText.arg(value.isEmpty() ? tr("unknown") : value, QString::fromUtf8(wanted.value(aKey)));
    };
    if (differs("pattern"))
        return tr("The file has no plug-in record.");
    if (differs("version"))
        return sentence(tr("The plug-in has the interface version %1, but this program needs %2."),
                        "version");
    if (differs("debug"))
        return sentence(tr("The plug-in's debug setting is %1, but this program's is %2."), "debug");
    if (differs("buildkey"))
        return sentence(tr("The plug-in was built for %1, but this program for %2."), "buildkey");
    return QString();
}
