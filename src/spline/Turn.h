#ifndef TURN_H
#define TURN_H

#include <cmath>

/// A turn about the origin. Strokes are turned to their frame and clean shapes back with the same digits of
/// pi, so that what was turned by an angle comes back by its negative.
class Turn
{
public:
    explicit Turn(double aDegrees) : Turn(std::cos(radians(aDegrees)), std::sin(radians(aDegrees))) {}

    double x(double aX, double aY) const { return theCos * aX + theSin * aY; }
    double y(double aX, double aY) const { return theCos * aY - theSin * aX; }

private:
    Turn(double aCos, double aSin) : theCos(aCos), theSin(aSin) {}
    static double radians(double aDegrees) { return aDegrees * 3.1415926536 / 180.0; }

    double theCos;
    double theSin;
};

#endif
