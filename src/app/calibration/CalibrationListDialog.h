#ifndef CALIBRATIONLISTDIALOG_H
#define CALIBRATIONLISTDIALOG_H

#include <QDialog>

class CalibrationCommands;
class QListWidget;
class QPushButton;

/// The named calibrations of the picture, to be switched, renamed and removed. Every change takes effect at
/// once and can be undone.
class CalibrationListDialog : public QDialog
{
    Q_OBJECT

public:
    CalibrationListDialog(CalibrationCommands& aCommands, QWidget* aParent);

private:
    QPushButton* addButton(class QLayout& aLayout, const QString& aName, const QString& aText,
                           void (CalibrationListDialog::*aSlot)());
    void fill();
    void selectionChanged();
    QString chosenName() const;
    void use();
    void useNone();
    void rename();
    void remove();

    CalibrationCommands& theCommands;
    QListWidget* theList;
    QPushButton* theUse;
    QPushButton* theNone;
    QPushButton* theRename;
    QPushButton* theRemove;
};

#endif
