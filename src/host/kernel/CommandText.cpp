#include "CommandText.h"

#include "LmKSKernelData.h"

#include <QCoreApplication>

QString commandText(const char* aText, int aType, int aIdx)
{
    const QString object = LmKSKernelData::getInstance()->objectText(aType, aIdx);
    return QCoreApplication::translate("UndoCommand", aText).arg(object);
}
