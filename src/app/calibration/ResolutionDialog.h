#ifndef RESOLUTIONDIALOG_H
#define RESOLUTIONDIALOG_H

#include "CalibrationForm.h"
#include "ResolutionTag.h"

/// Shows the resolution that a picture's file notes and what it makes of a pixel, and asks for the unit and a
/// name.
class ResolutionDialog final : public CalibrationForm
{
    Q_OBJECT

public:
    ResolutionDialog(const ResolutionTag& aTag, QWidget* aParent);

    /// "300 pixels per inch", or "300 x 150 pixels per inch" of pixels that aren't square.
    static QString tagText(const ResolutionTag& aTag);

    LmCalibData calibration() const override;

private:
    void fillUnits();
    QString explanation(const LmCalibData& aData) const override;

    const ResolutionTag theTag;
};

#endif
