#include "AppIcon.h"

QIcon appIcon(const QString& aName)
{
    return QIcon(QStringLiteral(":/app/%1.svg").arg(aName));
}
