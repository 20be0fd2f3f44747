#ifndef CELLTEXT_H
#define CELLTEXT_H

#include <QString>

class QVariant;

/// How the measurement window writes numbers.
namespace CellText {

/// A text without what stands behind the second digit after its first dot: cut and not rounded, by the look
/// of the text alone.
QString cut(const QString& aText);

/// The text of a value in full: a double with fifteen significant digits. Empty for an invalid value.
QString whole(const QVariant& aValue);

/// A value cut to two decimals, with a blank and the unit behind it if there is one.
QString ofValue(const QVariant& aValue, const QString& aUnit);

} // namespace CellText

#endif
