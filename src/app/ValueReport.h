#ifndef VALUEREPORT_H
#define VALUEREPORT_H

#include <QList>
#include <QString>

class LmCvManipulator;
class QTextStream;

/// The values of all objects as tab-separated text.
namespace ValueReport {

/// A number with fifteen significant digits; "nan" for what isn't one.
QString numberText(double aValue);

/// A heading line, then a line per value: object, index, value name, value in full precision, unit.
void write(const QList<LmCvManipulator*>& aTools, QTextStream& aOut);

} // namespace ValueReport

#endif
