#ifndef CALIBRATIONDIALOG_H
#define CALIBRATIONDIALOG_H

#include "CalibrationForm.h"

/// Asks for one number, its unit and, if wanted, a name, and shows at once what they mean for the picture.
class CalibrationDialog final : public CalibrationForm
{
    Q_OBJECT

public:
    enum Mode {
        kLength,   // the number is the length of a way of known pixels
        kPixelSize // the number is the size of a pixel
    };

    /// aPixels is the length of the way that was measured; it counts for kLength only.
    CalibrationDialog(Mode aMode, double aPixels, QWidget* aParent);

    LmCalibData calibration() const override;

    void accept() override;

private:
    QString explanation(const LmCalibData& aData) const override;

    const Mode theMode;
    const double thePixels;
};

#endif
