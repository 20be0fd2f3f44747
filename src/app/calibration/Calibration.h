#ifndef CALIBRATION_H
#define CALIBRATION_H

#include "LmCalibData.h"

#include <QStringList>

/// The arithmetic of calibrating. A calibration holds how wide the picture is in a unit; people know how long
/// something in the picture is, or how large a pixel is.
namespace Calibration {

/// Something aPixels long in the picture measures aLength of the unit. All numbers have to be above 0;
/// otherwise the result is not usable.
LmCalibData fromLength(double aPixels, double aLength, const QString& aUnit);
/// A pixel is aSize of the unit wide.
LmCalibData fromPixelSize(double aSize, const QString& aUnit);
/// Large enough to count as a calibration; a smaller unit helps a value that isn't.
bool isUsable(const LmCalibData& aData);
/// The size of a pixel in the calibration's unit; 0 for a calibration that isn't usable or without a picture.
double pixelSize(const LmCalibData& aData);

/// What a calibration says of picture and pixel: one sentence for a dialog.
QString meaning(const LmCalibData& aData);

/// "Calibration 1" or the next that isn't taken.
QString freeName();
/// The names of all calibrations in the order in which they are shown.
QStringList names();

/// A number as a person types it, in the way of the locale or with a decimal point or comma; 0 for no number.
double numberFromText(const QString& aText);
/// A number with up to six significant digits in the way of the locale.
QString numberText(double aValue);

} // namespace Calibration

#endif
