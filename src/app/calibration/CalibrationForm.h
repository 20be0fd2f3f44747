#ifndef CALIBRATIONFORM_H
#define CALIBRATIONFORM_H

#include "LmCalibData.h"

#include <QDialog>

class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;

/// What the dialogs that make a calibration share: a unit, a name, and what they mean for the picture, which
/// is told at once.
class CalibrationForm : public QDialog
{
    Q_OBJECT

public:
    /// The name that was typed, or a free one.
    QString name() const;
    virtual LmCalibData calibration() const = 0;

protected:
    /// With aNumberLabel there is also a field for a number, with that label, and any unit can be typed.
    CalibrationForm(const QString& aNumberLabel, QWidget* aParent);

    /// Puts a sentence above the fields.
    void introduce(const QString& aText);
    /// Room for a text from the start, so that the dialog doesn't jump while something is typed.
    void keepRoom(int aColumns, int aLines);
    /// The text in the field for a number.
    QString number() const;
    QComboBox& unit() const { return *theUnit; }
    /// A sentence if the name is one of another calibration.
    QString replacement() const;

    virtual QString explanation(const LmCalibData& aData) const = 0;
    /// To be called when the dialog is made.
    void inputChanged();

private:
    void addNumber(const QString& aLabel);

    QLineEdit* theNumber = nullptr; // null without a field for a number
    QLabel* theIntroduction;
    QFormLayout* theFields;
    QComboBox* theUnit;
    QLineEdit* theName;
    QLabel* theMeaning;
    QPushButton* theOk;
};

#endif
