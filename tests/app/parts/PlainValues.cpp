#include "PlainValues.h"

#include "LmCvManipulator.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "LmKernelObjectDataDescr.h"

#include <QLineF>
#include <QLocale>
#include <QPolygon>

#include <cmath>

namespace {

enum ObjectType { kDistance = 1102, kRegion = 1103, kAngle = 1106, kCounter = 1107, kDimension = 1112 };

/// A number with its unit; no number for a value that the object doesn't have.
struct Value
{
    double theNumber = std::nan("");
    QString theUnit;
    bool theWhole = false;
};

const LmKSKernelData& kernel()
{
    return *LmKSKernelData::getInstance();
}

/// A parameter at the current frame.
QVariant param(int aType, const LmKernelObjectData& aRecord, const char* aName)
{
    return kernel().getDataDescriptor(aType)->getValue(aRecord.getKeyframesAt(kernel().theCurrentFrame),
                                                       QLatin1String(aName));
}

int markCount(const LmKernelObjectData& aRecord)
{
    return int(param(kCounter, aRecord, "pos").value<QPolygon>().size() / 2);
}

double degrees(double aRadians)
{
    return std::floor(aRadians * 57.29577951 * 10.0 + 0.1) / 10.0;
}

double ofDistance(const LmKernelObjectData& aRecord, const QString& aName, double aScale)
{
    // The record holds half of the way.
    const QPointF way = 2.0 * QPointF(param(kDistance, aRecord, "ep").toPoint());
    if (aName == QLatin1String("Angle"))
        return degrees(std::asin(-way.y() / std::sqrt(way.x() * way.x() + way.y() * way.y())));
    const double pixels = aName == QLatin1String("DX")   ? std::abs(way.x())
                          : aName == QLatin1String("DY") ? std::abs(way.y())
                                                         : std::sqrt(way.x() * way.x() + way.y() * way.y());
    return pixels / aScale;
}

double ofDimension(const LmKernelObjectData& aRecord, const QString& aName, double aScale)
{
    const auto points = param(kDimension, aRecord, "points").value<QPolygon>();
    const auto length = [&](const QPointF& aFrom, const QPointF& aTo) {
        const QPointF way = aTo - aFrom;
        return std::sqrt(way.x() * way.x() + way.y() * way.y()) / aScale;
    };
    const qsizetype widths = points.size() / 2 - 1;
    if (aName == QLatin1String("Avg. Width")) {
        QPoint first;
        QPoint second;
        for (qsizetype i = 1; i <= widths; ++i) {
            first += points[2 * i];
            second += points[2 * i + 1];
        }
        const int count = int(widths);
        return count < 1 ? 0.0
                         : length(QPoint(first.x() / count, first.y() / count),
                                  QPoint(second.x() / count, second.y() / count));
    }
    const qsizetype segment = aName == QLatin1String("Height") ? 0 : aName.right(1).toInt();
    return segment > widths ? 0.0 : length(points[2 * segment], points[2 * segment + 1]);
}

Value valueOf(LmCvManipulator& aTool, const LmKernelObjectData& aRecord, const QString& aName)
{
    Value value;
    if (!aTool.theValueNames.contains(aName))
        return value;
    const double step = PlainValues::step(value.theUnit);
    const double scale = step > 0.0 ? step : 1.0;
    switch (aTool.theObjectType) {
    case kDistance:
        value.theNumber = ofDistance(aRecord, aName, scale);
        if (aName == QLatin1String("Angle"))
            value.theUnit = QChar(176);
        return value;
    case kDimension:
        value.theNumber = ofDimension(aRecord, aName, scale);
        return value;
    case kCounter: {
        double total = 0.0;
        for (const LmKernelObjectData* counter : kernel().getObjectsOfType(kCounter))
            total += markCount(*counter);
        value.theWhole = aName == QLatin1String("Count");
        value.theNumber = value.theWhole ? markCount(aRecord) : markCount(aRecord) / total * 100.0;
        value.theUnit = value.theWhole ? QStringLiteral("pcs") : QStringLiteral("%");
        return value;
    }
    }
    // The geometry of curves and angles and the colours are the tool's own matter, and tested there; here
    // the question is which record and which calibration they come from.
    QStringList units;
    const auto values = aTool.getValues({aName}, &aRecord, units);
    value.theNumber = values.first().toDouble();
    value.theUnit = units.first();
    return value;
}

} // namespace

double PlainValues::step(QString& aUnit)
{
    QString name;
    const LmCalibData data = kernel().getCurrentCalibData(name);
    aUnit = data.theUnit;
    return data.theValue > 0.001 ? kernel().getCurrentImageSize().width() / data.theValue : 0.0;
}

QString PlainValues::cell(LmCvManipulator& aTool, const LmKernelObjectData& aRecord, const QString& aName)
{
    const Value value = valueOf(aTool, aRecord, aName);
    if (std::isnan(value.theNumber) && !aTool.theValueNames.contains(aName))
        return QString();
    QString text = QString::number(value.theNumber, 'g', 15);
    // Two digits behind the point, without rounding.
    if (const qsizetype dot = text.indexOf(QLatin1Char('.')); dot >= 0)
        text.truncate(dot + 3);
    return value.theUnit.isEmpty() ? text : text + QLatin1Char(' ') + value.theUnit;
}

QString PlainValues::label(LmCvManipulator& aTool, const LmKernelObjectData& aRecord)
{
    const QString name = param(aTool.theObjectType, aRecord, "dispv").toString();
    if (!aTool.theValueNames.contains(name))
        return QString();
    const Value value = valueOf(aTool, aRecord, name);
    QString text = QString::number(value.theNumber, 'f', value.theWhole ? 0 : 2) + value.theUnit;
    if (aTool.theObjectType == kDimension && name == QLatin1String("Height"))
        text.prepend(QStringLiteral("H: "));
    else if (aTool.theObjectType == kDimension && name.startsWith(QLatin1String("Width")))
        text.prepend(QLatin1Char('W') + name.right(1) + QStringLiteral(": "));
    return text;
}

QString PlainValues::calibrationField()
{
    QString unit;
    const double pixels = step(unit);
    return pixels > 0.0 ? QStringLiteral("1 px = %1 %2").arg(QLocale().toString(1.0 / pixels, 'g', 6), unit)
                        : QStringLiteral("Not calibrated");
}

QString PlainValues::scaleBar(double aZoom, double aRoom)
{
    QString unit;
    const double pixels = step(unit);
    const double perUnit = aZoom * (pixels > 0.0 ? pixels : 1.0);
    double best = 0.0;
    double bestRatio = 1e300;
    for (int power = -15; power < 15; ++power)
        for (const int factor : {1, 2, 5}) {
            const double length = QStringLiteral("%1e%2").arg(factor).arg(power).toDouble();
            const double drawn = length * perUnit;
            const double ratio = drawn > aRoom / 5.0 ? drawn / (aRoom / 5.0) : aRoom / 5.0 / drawn;
            if (ratio < bestRatio && (pixels > 0.0 || length >= 1.0)) {
                best = length;
                bestRatio = ratio;
            }
        }
    return QLocale().toString(best, 'g', 6) + QLatin1Char(' ') + (pixels > 0.0 ? unit : QStringLiteral("px"));
}
