#include "CellText.h"

#include <QVariant>

namespace {

constexpr int kDecimals = 2;
constexpr int kSignificantDigits = 15; // so many come back from a double as they were typed

} // namespace

QString CellText::cut(const QString& aText)
{
    const qsizetype dot = aText.indexOf(QLatin1Char('.'));
    return dot < 0 ? aText : aText.left(dot + 1 + kDecimals);
}

QString CellText::whole(const QVariant& aValue)
{
    if (aValue.typeId() == QMetaType::Double)
        return QString::number(aValue.toDouble(), 'g', kSignificantDigits);
    return aValue.toString();
}

QString CellText::ofValue(const QVariant& aValue, const QString& aUnit)
{
    const QString text = cut(whole(aValue));
    return aUnit.isEmpty() ? text : text + QLatin1Char(' ') + aUnit;
}
