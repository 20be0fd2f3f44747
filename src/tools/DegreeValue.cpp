#include "DegreeValue.h"

#include <QChar>

#include <cmath>

// The 0.1 of a tenth lets an angle that is a rounding error short of a tenth read as that tenth. The factor
// has ten digits here; the snapping's longer one would cut some angles differently.
double DegreeValue::ofRadians(double aRadians)
{
    return std::floor(aRadians * 57.29577951 * 10.0 + 0.1) / 10.0;
}

QString DegreeValue::unit()
{
    return QString(QChar(176));
}
