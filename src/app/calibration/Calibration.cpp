#include "Calibration.h"

#include "LmKSKernelData.h"

#include <QCoreApplication>
#include <QLocale>

#include <cmath>

namespace {

/// The limit from which the kernel takes a calibration's value as one.
constexpr double kMinValue = 0.001;

double scaledImageWidth()
{
    const LmKSKernelData* kernel = LmKSKernelData::getInstance();
    return kernel->getCurrentImageSize().width() * kernel->theCalibScale;
}

} // namespace

namespace Calibration {

LmCalibData fromLength(double aPixels, double aLength, const QString& aUnit)
{
    return aPixels > 0.0 ? fromPixelSize(aLength / aPixels, aUnit) : LmCalibData{0.0, aUnit};
}

LmCalibData fromPixelSize(double aSize, const QString& aUnit)
{
    const double value = scaledImageWidth() * aSize;
    return {std::isfinite(value) && value > 0.0 ? value : 0.0, aUnit};
}

bool isUsable(const LmCalibData& aData)
{
    return aData.theValue > kMinValue;
}

double pixelSize(const LmCalibData& aData)
{
    const double width = scaledImageWidth();
    return isUsable(aData) && width > 0.0 ? aData.theValue / width : 0.0;
}

QString meaning(const LmCalibData& aData)
{
    if (!isUsable(aData))
        return QCoreApplication::translate(
                   "Calibration", "The picture would be less than 0.001 %1 wide; choose a smaller unit.")
            .arg(aData.theUnit);
    return QCoreApplication::translate("Calibration", "The picture is %1 %3 wide, a pixel %2 %3.")
        .arg(numberText(aData.theValue), numberText(pixelSize(aData)), aData.theUnit);
}

QString freeName()
{
    const QStringList taken = names();
    for (int number = 1;; ++number) {
        const QString name = QCoreApplication::translate("Calibration", "Calibration %1").arg(number);
        if (!taken.contains(name))
            return name;
    }
}

QStringList names()
{
    return LmKSKernelData::getInstance()->calibrations().keys();
}

double numberFromText(const QString& aText)
{
    bool ok = false;
    double number = QLocale().toDouble(aText.trimmed(), &ok);
    if (!ok)
        number = QString(aText).replace(QLatin1Char(','), QLatin1Char('.')).trimmed().toDouble(&ok);
    return ok && std::isfinite(number) ? number : 0.0;
}

QString numberText(double aValue)
{
    return QLocale().toString(aValue, 'g', 6);
}

} // namespace Calibration
