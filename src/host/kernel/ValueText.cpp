#include "ValueText.h"

#include <QByteArray>
#include <QColor>
#include <QFont>
#include <QPoint>
#include <QPolygon>
#include <QRgba64>

namespace {

/// Whether XML, or a program that tidies XML, could lose or change this character.
bool needsEscape(const QString& aText, qsizetype aAt)
{
    const QChar character = aText[aAt];
    const bool atEnd = aAt == 0 || aAt == aText.size() - 1;
    if (character == QLatin1Char(' '))
        return atEnd;
    if (character.isHighSurrogate())
        return aAt + 1 >= aText.size() || !aText[aAt + 1].isLowSurrogate();
    if (character.isLowSurrogate())
        return aAt == 0 || !aText[aAt - 1].isHighSurrogate();
    return character == QLatin1Char('\\') || character.unicode() < 0x20 || character.unicode() >= 0xfffe ||
           (character.unicode() >= 0x7f && character.unicode() < 0xa0) || character.isSpace();
}

QString escaped(const QString& aText)
{
    QString result;
    result.reserve(aText.size());
    for (qsizetype i = 0; i < aText.size(); ++i) {
        const QChar character = aText[i];
        if (!needsEscape(aText, i))
            result += character;
        else if (character == QLatin1Char('\\'))
            result += QLatin1String("\\\\");
        else
            result += QLatin1String("\\u") +
                      QString::number(character.unicode(), 16).rightJustified(4, QLatin1Char('0'));
    }
    return result;
}

/// A number of hexadecimal digits and nothing else; toUInt alone would take signs and blanks.
bool readHex(QStringView aText, quint64& aNumber)
{
    aNumber = 0;
    for (const QChar character : aText) {
        const int digit = QStringLiteral("0123456789abcdef").indexOf(character.toLower());
        if (digit < 0)
            return false;
        aNumber = aNumber * 16 + quint64(digit);
    }
    return !aText.isEmpty() && aText.size() <= 16;
}

QVariant readText(const QString& aText)
{
    QString result;
    result.reserve(aText.size());
    for (qsizetype i = 0; i < aText.size(); ++i) {
        if (aText[i] != QLatin1Char('\\')) {
            result += aText[i];
            continue;
        }
        const QStringView behind = QStringView(aText).mid(i + 1);
        quint64 code = 0;
        if (behind.startsWith(QLatin1Char('\\'))) {
            result += QLatin1Char('\\');
            i += 1;
        } else if (behind.startsWith(QLatin1Char('u')) && behind.size() >= 5 &&
                   readHex(behind.mid(1, 4), code)) {
            result += QChar(char16_t(code));
            i += 5;
        } else {
            return QVariant();
        }
    }
    return result;
}

QString colorText(const QColor& aColor)
{
    if (!aColor.isValid())
        return QStringLiteral("invalid");
    const QString name = aColor.name(QColor::HexArgb);
    if (QColor(name) == aColor)
        return name;
    const QRgba64 fine = aColor.rgba64();
    const quint64 number = quint64(fine.alpha()) << 48 | quint64(fine.red()) << 32 |
                           quint64(fine.green()) << 16 | quint64(fine.blue());
    return QLatin1Char('#') + QString::number(number, 16).rightJustified(16, QLatin1Char('0'));
}

QVariant readColor(const QString& aText)
{
    if (aText == QLatin1String("invalid"))
        return QColor();
    quint64 number = 0;
    if (!aText.startsWith(QLatin1Char('#')) || !readHex(QStringView(aText).mid(1), number))
        return QVariant();
    if (aText.size() == 9)
        return QColor::fromRgba(QRgb(number));
    if (aText.size() != 17)
        return QVariant();
    return QColor::fromRgba64(quint16(number >> 32), quint16(number >> 16), quint16(number),
                              quint16(number >> 48));
}

QVariant readFont(const QString& aText)
{
    QFont font;
    // An empty description would be taken for any font, and one without commas for a bare family name.
    return aText.contains(QLatin1Char(',')) && font.fromString(aText) ? QVariant(font) : QVariant();
}

bool readPoint(QStringView aText, QChar aBetween, QPoint& aPoint)
{
    const qsizetype at = aText.indexOf(aBetween);
    if (at < 0 || aText.endsWith(QLatin1Char(' ')) || aText.startsWith(QLatin1Char(' ')))
        return false;
    bool xRead = false;
    bool yRead = false;
    aPoint = QPoint(aText.left(at).toInt(&xRead), aText.mid(at + 1).toInt(&yRead));
    return xRead && yRead;
}

QString pointsText(const QPolygon& aPoints)
{
    QString text;
    for (const QPoint& point : aPoints) {
        if (!text.isEmpty())
            text += QLatin1Char(' ');
        text += QString::number(point.x()) + QLatin1Char(',') + QString::number(point.y());
    }
    return text;
}

QVariant readPoints(const QString& aText)
{
    QPolygon points;
    const auto pieces = QStringView(aText).tokenize(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QStringView piece : pieces) {
        QPoint point;
        if (points.size() >= ValueText::kMostPoints || !readPoint(piece, QLatin1Char(','), point))
            return QVariant();
        points.append(point);
    }
    return QVariant::fromValue<QPolygon>(points);
}

QVariant readBytes(const QString& aText)
{
    // Qt decodes shortened texts too; only what encodes to the very same text is whole.
    const QByteArray encoded = aText.toLatin1();
    const QByteArray bytes = QByteArray::fromBase64(encoded);
    return bytes.toBase64() == encoded ? QVariant(bytes) : QVariant();
}

QVariant readBool(const QString& aText)
{
    const bool shown = aText == QLatin1String("true");
    return shown || aText == QLatin1String("false") ? QVariant(shown) : QVariant();
}

} // namespace

QString ValueText::write(const QVariant& aValue)
{
    switch (aValue.typeId()) {
    case QMetaType::Bool:
        return aValue.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    case QMetaType::QByteArray:
        return QString::fromLatin1(aValue.toByteArray().toBase64());
    case QMetaType::QPoint:
        return QStringLiteral("%1 %2").arg(aValue.toPoint().x()).arg(aValue.toPoint().y());
    case QMetaType::QFont:
        return escaped(aValue.value<QFont>().toString());
    case QMetaType::QColor:
        return colorText(aValue.value<QColor>());
    case QMetaType::QPolygon:
        return pointsText(aValue.value<QPolygon>());
    default:
        return escaped(aValue.toString());
    }
}

QVariant ValueText::read(QMetaType::Type aType, const QString& aText)
{
    QPoint point;
    switch (int(aType)) {
    case QMetaType::Bool:
        return readBool(aText.trimmed());
    case QMetaType::QString:
        return readText(aText);
    case QMetaType::QByteArray:
        return readBytes(aText.trimmed());
    case QMetaType::QPoint:
        return readPoint(QStringView(aText).trimmed(), QLatin1Char(' '), point) ? QVariant(point)
                                                                                : QVariant();
    case QMetaType::QFont:
        return readFont(readText(aText).toString());
    case QMetaType::QColor:
        return readColor(aText.trimmed());
    case QMetaType::QPolygon:
        return readPoints(aText.simplified());
    default:
        return QVariant();
    }
}
