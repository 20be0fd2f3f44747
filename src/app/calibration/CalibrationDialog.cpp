#include "CalibrationDialog.h"

#include "Calibration.h"

#include <QComboBox>
#include <QSettings>

namespace {

constexpr QLatin1String kUnitKey("calibrationUnit");

QString titleOf(CalibrationDialog::Mode aMode)
{
    return aMode == CalibrationDialog::kLength ? CalibrationDialog::tr("Calibrate by a Known Length")
                                               : CalibrationDialog::tr("Calibrate by the Size of a Pixel");
}

QString numberLabelOf(CalibrationDialog::Mode aMode)
{
    return aMode == CalibrationDialog::kLength ? CalibrationDialog::tr("&Length:")
                                               : CalibrationDialog::tr("&Size of a pixel:");
}

} // namespace

CalibrationDialog::CalibrationDialog(Mode aMode, double aPixels, QWidget* aParent)
    : CalibrationForm(numberLabelOf(aMode), aParent), theMode(aMode), thePixels(aPixels)
{
    setWindowTitle(titleOf(theMode));
    if (theMode == kLength)
        introduce(tr("The line is %1 pixels long.").arg(Calibration::numberText(thePixels)));
    unit().addItems({tr("nm"), tr("µm"), tr("mm"), tr("cm"), tr("m"), tr("km"), tr("in"), tr("ft")});
    unit().setCurrentText(QSettings().value(kUnitKey, tr("mm")).toString());
    keepRoom(40, 2);
    inputChanged();
}

LmCalibData CalibrationDialog::calibration() const
{
    const double typed = Calibration::numberFromText(number());
    const QString name = unit().currentText().simplified();
    return theMode == kLength ? Calibration::fromLength(thePixels, typed, name)
                              : Calibration::fromPixelSize(typed, name);
}

QString CalibrationDialog::explanation(const LmCalibData& aData) const
{
    if (number().isEmpty())
        return tr("Enter a number, for example 25 or 0.5.");
    if (Calibration::numberFromText(number()) <= 0.0)
        return tr("This is not a number above zero.");
    if (aData.theUnit.isEmpty())
        return tr("Enter a unit, for example mm.");
    const QString meaning = Calibration::meaning(aData);
    const QString replaced = Calibration::isUsable(aData) ? replacement() : QString();
    return replaced.isEmpty() ? meaning : meaning + QLatin1Char('\n') + replaced;
}

void CalibrationDialog::accept()
{
    QSettings().setValue(kUnitKey, calibration().theUnit);
    QDialog::accept();
}
