#ifndef POINTMATH_H
#define POINTMATH_H

#include <QPoint>

/// Integer points without overflow: sums beyond the int range stay at its end.
namespace PointMath {

int saturated(qint64 aValue);

QPoint sum(const QPoint& aPoint, const QPoint& aVector);
QPoint difference(const QPoint& aTo, const QPoint& aFrom);

/// The middle of a segment, each coordinate rounded with halves away from zero.
QPoint middle(const QPoint& aStart, const QPoint& aEnd);

/// The number with its fraction dropped, toward zero on either side; 0 for what is no number.
int cut(double aValue);
QPoint cut(double aX, double aY);

/// The point pulled into +-2^29, where rectangles around it can be moved without overflow.
QPoint nearby(const QPoint& aPoint);

} // namespace PointMath

#endif
