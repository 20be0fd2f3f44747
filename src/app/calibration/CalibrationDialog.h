#ifndef CALIBRATIONDIALOG_H
#define CALIBRATIONDIALOG_H

#include "LmCalibData.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

/// Asks for one number, its unit and, if wanted, a name, and shows at once what they mean for the picture.
class CalibrationDialog : public QDialog
{
    Q_OBJECT

public:
    enum Mode {
        kLength,   // the number is the length of a way of known pixels
        kPixelSize // the number is the size of a pixel
    };

    /// aPixels is the length of the way that was measured; it counts for kLength only.
    CalibrationDialog(Mode aMode, double aPixels, QWidget* aParent);

    /// The name that was typed, or a free one.
    QString name() const;
    LmCalibData calibration() const;

    void accept() override;

private:
    void makeFields();
    QString explanation(const LmCalibData& aData) const;
    void inputChanged();

    const Mode theMode;
    const double thePixels;
    QLineEdit* theNumber;
    QComboBox* theUnit;
    QLineEdit* theName;
    QLabel* theMeaning;
    QPushButton* theOk;
};

#endif
