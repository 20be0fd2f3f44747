#include "TestFont.h"

#include <QFont>
#include <QFontInfo>

void useTestFont()
{
    QFont::insertSubstitution(QStringLiteral("Lucida Grande"), QStringLiteral("DejaVu Sans"));
}

QString resolvedLabelFamily()
{
    return QFontInfo(QFont(QStringLiteral("Lucida Grande"), 10)).family();
}
