#ifndef RESOLUTIONDIALOG_H
#define RESOLUTIONDIALOG_H

#include "LmCalibData.h"
#include "ResolutionTag.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

/// Shows the resolution that a picture's file notes and what it makes of a pixel, and asks for the unit and a
/// name.
class ResolutionDialog : public QDialog
{
    Q_OBJECT

public:
    ResolutionDialog(const ResolutionTag& aTag, QWidget* aParent);

    /// "300 pixels per inch", or "300 x 150 pixels per inch" of pixels that aren't square.
    static QString tagText(const ResolutionTag& aTag);

    /// The name that was typed, or a free one.
    QString name() const;
    LmCalibData calibration() const;

private:
    void makeFields();
    void inputChanged();
    QString explanation(const LmCalibData& aData) const;

    const ResolutionTag theTag;
    QComboBox* theUnit;
    QLineEdit* theName;
    QLabel* theMeaning;
    QPushButton* theOk;
};

#endif
