#ifndef VALUETEXT_H
#define VALUETEXT_H

#include <QMetaType>
#include <QString>
#include <QVariant>

/// The text of a parameter's value in a saved document, both ways without loss.
///
/// bool true or false; QString with everything that XML can't carry as \uXXXX and a backslash as \\;
/// QByteArray in base 64; QPoint "12 34"; QPolygon "1,2 3,4"; QFont as its own description; QColor
/// "#aarrggbb", "#" with sixteen digits where it is finer than that, or "invalid".
namespace ValueText {

/// A list of more points than this in a document can only be a mistake.
constexpr int kMostPoints = 10'000'000;

QString write(const QVariant& aValue);

/// The value that the text stands for; invalid for a text that write() can't have made of a value of that
/// type.
QVariant read(QMetaType::Type aType, const QString& aText);

} // namespace ValueText

#endif
