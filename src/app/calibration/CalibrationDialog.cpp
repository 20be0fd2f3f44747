#include "CalibrationDialog.h"

#include "Calibration.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSettings>

namespace {

constexpr QLatin1String kUnitKey("calibrationUnit");

QString titleOf(CalibrationDialog::Mode aMode)
{
    return aMode == CalibrationDialog::kLength ? CalibrationDialog::tr("Calibrate by a Known Length")
                                               : CalibrationDialog::tr("Calibrate by the Size of a Pixel");
}

} // namespace

CalibrationDialog::CalibrationDialog(Mode aMode, double aPixels, QWidget* aParent)
    : CalibrationForm(aParent), theMode(aMode), thePixels(aPixels), theNumber(new QLineEdit(this))
{
    setWindowTitle(titleOf(theMode));
    if (theMode == kLength)
        introduce(tr("The line is %1 pixels long.").arg(Calibration::numberText(thePixels)));
    makeFields();
    keepRoom(40, 2);
    inputChanged();
}

void CalibrationDialog::makeFields()
{
    theNumber->setObjectName(QStringLiteral("number"));
    addField(theMode == kLength ? tr("&Length:") : tr("&Size of a pixel:"), *theNumber);
    unit().setEditable(true);
    unit().addItems({tr("nm"), tr("µm"), tr("mm"), tr("cm"), tr("m"), tr("km"), tr("in"), tr("ft")});
    unit().setCurrentText(QSettings().value(kUnitKey, tr("mm")).toString());
}

LmCalibData CalibrationDialog::calibration() const
{
    const double number = Calibration::numberFromText(theNumber->text());
    const QString name = unit().currentText().simplified();
    return theMode == kLength ? Calibration::fromLength(thePixels, number, name)
                              : Calibration::fromPixelSize(number, name);
}

QString CalibrationDialog::explanation(const LmCalibData& aData) const
{
    if (theNumber->text().trimmed().isEmpty())
        return tr("Enter a number, for example 25 or 0.5.");
    if (Calibration::numberFromText(theNumber->text()) <= 0.0)
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
