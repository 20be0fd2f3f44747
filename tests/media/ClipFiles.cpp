#include "ClipFiles.h"

#include <QFile>

QByteArray ClipFiles::content(const QString& aPath)
{
    QFile file(aPath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool ClipFiles::write(const QString& aPath, const QByteArray& aContent)
{
    QFile file(aPath);
    return file.open(QIODevice::WriteOnly) && file.write(aContent) == aContent.size();
}

bool ClipFiles::isSentence(const QString& aText)
{
    return aText.endsWith(QLatin1Char('.')) && aText.contains(QStringLiteral("; ")) &&
           !aText.contains(QLatin1Char('%'));
}
