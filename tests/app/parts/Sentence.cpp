#include "Sentence.h"

QString sentenceFault(const QString& aText)
{
    const QString shown = QLatin1String(": \"") + aText + QLatin1Char('"');
    if (aText.isEmpty())
        return QStringLiteral("there is no message");
    if (aText.contains(QLatin1Char('\n')) || aText != aText.simplified())
        return QStringLiteral("more than one line") + shown;
    if (!aText.at(0).isUpper())
        return QStringLiteral("begins small") + shown;
    if (!aText.endsWith(QLatin1Char('.')) || aText.endsWith(QLatin1String("..")))
        return QStringLiteral("no full stop") + shown;
    if (aText.contains(QLatin1String(". ")))
        return QStringLiteral("more than one sentence") + shown;
    if (aText.count(QLatin1Char(';')) != 1)
        return QStringLiteral("no advice, or several") + shown;
    return QString();
}
