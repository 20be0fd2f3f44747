#include "ResolutionDialog.h"

#include "Calibration.h"

#include <QComboBox>

#include <cmath>

namespace {

/// What many programs and cameras write where they know nothing.
bool isUsualGuess(const ResolutionTag& aTag)
{
    constexpr double kGuess = 72.0;
    constexpr double kMillimetresPerInch = 25.4;
    constexpr double kRounding = 1.0; // to whole pixels per centimetre
    return std::abs(kMillimetresPerInch / aTag.pixelMillimetres() - kGuess) < kRounding;
}

} // namespace

ResolutionDialog::ResolutionDialog(const ResolutionTag& aTag, QWidget* aParent)
    : CalibrationForm(QString(), aParent), theTag(aTag)
{
    setWindowTitle(tr("Calibrate from the Picture's Resolution"));
    introduce(tr("The file says that the picture has %1.").arg(tagText(theTag)));
    fillUnits();
    keepRoom(50, 3);
    inputChanged();
}

QString ResolutionDialog::tagText(const ResolutionTag& aTag)
{
    const QString across = Calibration::numberText(aTag.theAcross);
    const QString count =
        aTag.isSquare() ? across : tr("%1 x %2").arg(across, Calibration::numberText(aTag.theDown));
    switch (aTag.theUnit) {
    case ResolutionTag::kInch:
        return tr("%1 pixels per inch").arg(count);
    case ResolutionTag::kCentimetre:
        return tr("%1 pixels per centimetre").arg(count);
    case ResolutionTag::kMetre:
        break;
    }
    return tr("%1 pixels per metre").arg(count);
}

/// With their lengths in millimetres.
void ResolutionDialog::fillUnits()
{
    unit().addItem(tr("mm"), 1.0);
    unit().addItem(tr("cm"), 10.0);
    unit().addItem(tr("µm"), 0.001);
    unit().addItem(tr("in"), 25.4);
}

LmCalibData ResolutionDialog::calibration() const
{
    const double millimetresPerUnit = unit().currentData().toDouble();
    return Calibration::fromPixelSize(theTag.pixelMillimetres() / millimetresPerUnit, unit().currentText());
}

QString ResolutionDialog::explanation(const LmCalibData& aData) const
{
    QStringList lines{Calibration::meaning(aData)};
    if (isUsualGuess(theTag))
        lines << tr("Many programs write this resolution when they know none; check it with a known length.");
    if (const QString replaced = replacement(); !replaced.isEmpty())
        lines << replaced;
    return lines.join(QLatin1Char('\n'));
}
