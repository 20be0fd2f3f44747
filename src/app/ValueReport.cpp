#include "ValueReport.h"

#include "LmCvManipulator.h"
#include "LmKSKernelData.h"

#include <QTextStream>

#include <cmath>

namespace {

const char kHeading[] = "Object\tIndex\tValue\tNumber\tUnit\n";

/// Text that keeps within its column and its line.
QString cellText(QString aText)
{
    aText.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    aText.replace(QLatin1Char('\t'), QLatin1String("\\t"));
    aText.replace(QLatin1Char('\n'), QLatin1String("\\n"));
    return aText.replace(QLatin1Char('\r'), QLatin1String("\\r"));
}

QString valueText(const QVariant& aValue)
{
    if (!aValue.isValid())
        return QString();
    if (aValue.typeId() == QMetaType::Double || aValue.typeId() == QMetaType::Float)
        return ValueReport::numberText(aValue.toDouble());
    return cellText(aValue.toString());
}

void writeObject(LmCvManipulator& aTool, int aIdx, QTextStream& aOut)
{
    const QString object = cellText(aTool.getObjectName(aIdx));
    const QStringList names = aTool.theValueNames;
    QStringList units;
    const QLinkedList<QVariant> values = aTool.getValues(names, aIdx, units);
    int at = 0;
    for (const QVariant& value : values) {
        aOut << object << '\t' << aIdx << '\t' << cellText(names.value(at)) << '\t' << valueText(value)
             << '\t' << cellText(units.value(at)) << '\n';
        ++at;
    }
}

} // namespace

QString ValueReport::numberText(double aValue)
{
    return std::isnan(aValue) ? QStringLiteral("nan") : QString::number(aValue, 'g', 15);
}

void ValueReport::write(const QList<LmCvManipulator*>& aTools, QTextStream& aOut)
{
    aOut << kHeading;
    const LmKSKernelData* kernel = LmKSKernelData::getInstance();
    for (LmCvManipulator* tool : aTools) {
        if (tool->theValueNames.isEmpty())
            continue;
        const QList<int> indices = kernel->getObjectsOfType(tool->theObjectType).keys();
        for (int idx : indices)
            writeObject(*tool, idx, aOut);
    }
}
