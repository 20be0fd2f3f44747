#ifndef ARMDIRECTION_H
#define ARMDIRECTION_H

#include <QPoint>

/// The direction of an angle's arm on the screen, counter-clockwise from the right.
namespace ArmDirection {

/// From 0 up to a full turn of twice aHalfTurn, by the arc sine with aPerRadian units a radian; 0 for two
/// equal points. A factor short of the exact one keeps arms to the right and left exact and lets steep ones
/// fall short of the vertical on both sides of it.
double of(const QPoint& aFrom, const QPoint& aTo, double aPerRadian, double aHalfTurn);

} // namespace ArmDirection

#endif
