#include "CalibrationDialog.h"

#include "Calibration.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QVBoxLayout>

namespace {

constexpr QLatin1String kUnitKey("calibrationUnit");

QString titleOf(CalibrationDialog::Mode aMode)
{
    return aMode == CalibrationDialog::kLength ? CalibrationDialog::tr("Calibrate by a Known Length")
                                               : CalibrationDialog::tr("Calibrate by the Size of a Pixel");
}

} // namespace

CalibrationDialog::CalibrationDialog(Mode aMode, double aPixels, QWidget* aParent)
    : QDialog(aParent), theMode(aMode), thePixels(aPixels), theNumber(new QLineEdit(this)),
      theUnit(new QComboBox(this)), theName(new QLineEdit(this)), theMeaning(new QLabel(this))
{
    setWindowTitle(titleOf(theMode));
    auto* layout = new QVBoxLayout(this);
    if (theMode == kLength)
        layout->addWidget(
            new QLabel(tr("The line is %1 pixels long.").arg(Calibration::numberText(thePixels)), this));
    makeFields();
    auto* form = new QFormLayout;
    form->addRow(theMode == kLength ? tr("&Length:") : tr("&Size of a pixel:"), theNumber);
    form->addRow(tr("&Unit:"), theUnit);
    form->addRow(tr("&Name:"), theName);
    layout->addLayout(form);
    layout->addWidget(theMeaning);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    layout->addWidget(buttons);
    theOk = buttons->button(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &CalibrationDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &CalibrationDialog::reject);
    inputChanged();
}

void CalibrationDialog::makeFields()
{
    theNumber->setObjectName(QStringLiteral("number"));
    theNumber->setFocus();
    theUnit->setObjectName(QStringLiteral("unit"));
    theUnit->setEditable(true);
    theUnit->addItems({tr("nm"), tr("µm"), tr("mm"), tr("cm"), tr("m"), tr("km"), tr("in"), tr("ft")});
    theUnit->setCurrentText(QSettings().value(kUnitKey, tr("mm")).toString());
    theName->setObjectName(QStringLiteral("name"));
    theName->setPlaceholderText(Calibration::freeName());
    theName->setMaxLength(100);
    theMeaning->setWordWrap(true);
    theMeaning->setTextFormat(Qt::PlainText);
    // Room for two lines from the start, so that the dialog doesn't jump while something is typed.
    theMeaning->setMinimumWidth(40 * theMeaning->fontMetrics().averageCharWidth());
    theMeaning->setMinimumHeight(2 * theMeaning->fontMetrics().lineSpacing());
    connect(theNumber, &QLineEdit::textChanged, this, &CalibrationDialog::inputChanged);
    connect(theUnit, &QComboBox::currentTextChanged, this, &CalibrationDialog::inputChanged);
    connect(theName, &QLineEdit::textChanged, this, &CalibrationDialog::inputChanged);
}

QString CalibrationDialog::name() const
{
    const QString typed = theName->text().simplified();
    return typed.isEmpty() ? Calibration::freeName() : typed;
}

LmCalibData CalibrationDialog::calibration() const
{
    const double number = Calibration::numberFromText(theNumber->text());
    const QString unit = theUnit->currentText().simplified();
    return theMode == kLength ? Calibration::fromLength(thePixels, number, unit)
                              : Calibration::fromPixelSize(number, unit);
}

QString CalibrationDialog::explanation(const LmCalibData& aData) const
{
    if (theNumber->text().trimmed().isEmpty())
        return tr("Enter a number, for example 25 or 0.5.");
    if (Calibration::numberFromText(theNumber->text()) <= 0.0)
        return tr("This is not a number above zero.");
    if (aData.theUnit.isEmpty())
        return tr("Enter a unit, for example mm.");
    QString text = Calibration::meaning(aData);
    if (Calibration::isUsable(aData) && Calibration::names().contains(name()))
        text += QLatin1Char('\n') + tr("This replaces “%1”.").arg(name());
    return text;
}

void CalibrationDialog::inputChanged()
{
    const LmCalibData typed = calibration();
    theOk->setEnabled(Calibration::isUsable(typed) && !typed.theUnit.isEmpty());
    theMeaning->setText(explanation(typed));
}

void CalibrationDialog::accept()
{
    QSettings().setValue(kUnitKey, calibration().theUnit);
    QDialog::accept();
}
