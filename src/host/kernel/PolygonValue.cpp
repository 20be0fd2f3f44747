#include "PolygonValue.h"

#include <QPolygon>

QVariant PolygonValue::unified(const QVariant& aValue)
{
    const QMetaType type = aValue.metaType();
    const QMetaType polygon = QMetaType::fromType<QPolygon>();
    // Qt's own types, such as a text or a number, have no conversion to points that is worth having.
    if (!type.isValid() || type == polygon || type.id() < QMetaType::User)
        return aValue;
    if (type == QMetaType::fromType<QList<QPoint>>())
        return QVariant::fromValue<QPolygon>(QPolygon(aValue.value<QList<QPoint>>()));
    QPolygon points;
    if (QMetaType::canConvert(type, polygon) &&
        QMetaType::convert(type, aValue.constData(), polygon, &points))
        return QVariant::fromValue<QPolygon>(points);
    return aValue;
}
