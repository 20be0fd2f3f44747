#ifndef CURVECOLORS_H
#define CURVECOLORS_H

#include <QColor>
#include <QList>

/// The colors of curves.
namespace CurveColors {

/// How well two colors can be told apart, from 1 to 21.
double contrast(const QColor& aOne, const QColor& aOther);

/// The wanted color, as much lighter or darker as it takes to be read on the ground.
QColor readable(const QColor& aColor, const QColor& aGround);

/// A readable color for each wanted one, where no two are the same; of equal ones the first gets what it
/// wants.
QList<QColor> distinct(const QList<QColor>& aWanted, const QColor& aGround);

} // namespace CurveColors

#endif
