#include "FrameText.h"

#include "FrameTimes.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

#include <cmath>

namespace {

constexpr int kMinute = 60; // seconds
constexpr int kHour = 60 * kMinute;

QString tr(const char* aText)
{
    return QCoreApplication::translate("FrameText", aText);
}

/// A number in the way of the locale or with a decimal point; negative or none gives false.
bool isNumber(const QString& aText, double& aNumber)
{
    bool valid = false;
    aNumber = QLocale().toDouble(aText, &valid);
    if (!valid)
        aNumber = QLocale::c().toDouble(aText, &valid);
    return valid && std::isfinite(aNumber) && aNumber >= 0.0;
}

} // namespace

QString FrameText::time(double aSeconds)
{
    const qint64 milliseconds = std::llround(std::abs(aSeconds) * 1000.0);
    const QString sign = aSeconds < 0.0 && milliseconds > 0 ? QStringLiteral("-") : QString();
    const qint64 whole = milliseconds / 1000;
    const QString rest =
        QLocale().decimalPoint() + QStringLiteral("%1").arg(milliseconds % 1000, 3, 10, QLatin1Char('0'));
    if (whole < kMinute)
        return tr("%1%2 s").arg(sign, QString::number(whole) + rest);
    const QString seconds = QStringLiteral("%1").arg(whole % kMinute, 2, 10, QLatin1Char('0')) + rest;
    if (whole < kHour)
        return QStringLiteral("%1%2:%3").arg(sign).arg(whole / kMinute).arg(seconds);
    return QStringLiteral("%1%2:%3:%4")
        .arg(sign)
        .arg(whole / kHour)
        .arg(whole % kHour / kMinute, 2, 10, QLatin1Char('0'))
        .arg(seconds);
}

bool FrameText::fromText(const QString& aText, double& aSeconds)
{
    QString text = aText.trimmed();
    const bool negative = text.startsWith(QLatin1Char('-'));
    if (negative)
        text.remove(0, 1);
    if (text.endsWith(QLatin1Char('s')))
        text = text.chopped(1).trimmed();
    const QStringList parts = text.split(QLatin1Char(':'));
    double sum = 0.0;
    for (const QString& part : parts) {
        double number = 0.0;
        if (!isNumber(part.trimmed(), number))
            return false;
        sum = sum * kMinute + number;
    }
    aSeconds = negative ? -sum : sum;
    return parts.size() <= 3;
}

QString FrameText::frame(int aFrame, const FrameTimes& aTimes)
{
    const QString number = tr("Frame %1").arg(aFrame + 1);
    return aTimes.isEmpty() ? number : tr("%1, %2").arg(number, time(aTimes.at(aFrame)));
}
