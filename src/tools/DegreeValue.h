#ifndef DEGREEVALUE_H
#define DEGREEVALUE_H

#include <QString>

/// Angles as the tools report them.
namespace DegreeValue {

/// Degrees, cut downward to tenths.
double ofRadians(double aRadians);
QString unit();

} // namespace DegreeValue

#endif
