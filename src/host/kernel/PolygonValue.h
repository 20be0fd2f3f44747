#ifndef POLYGONVALUE_H
#define POLYGONVALUE_H

#include <QVariant>

/// The several types under which a list of points travels in a QVariant: QPolygon, its base QList<QPoint>
/// (which is what `polygon << point` makes of it), and every type with a registered conversion to QPolygon.
namespace PolygonValue {

/// The value as a real QPolygon if it is a list of points under another type; any other value as it is.
QVariant unified(const QVariant& aValue);

} // namespace PolygonValue

#endif
