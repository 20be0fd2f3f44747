#include "CalibrationListDialog.h"

#include "Calibration.h"
#include "CalibrationCommands.h"
#include "LmKSKernelData.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

CalibrationListDialog::CalibrationListDialog(CalibrationCommands& aCommands, QWidget* aParent)
    : QDialog(aParent), theCommands(aCommands), theList(new QListWidget(this))
{
    setWindowTitle(tr("Calibrations"));
    theList->setObjectName(QStringLiteral("calibrationList"));
    theList->setAccessibleName(tr("Calibrations of this picture"));
    auto* column = new QVBoxLayout;
    theUse = addButton(*column, QStringLiteral("use"), tr("&Use"), &CalibrationListDialog::use);
    theNone = addButton(*column, QStringLiteral("none"), tr("Use &None"), &CalibrationListDialog::useNone);
    theRename =
        addButton(*column, QStringLiteral("rename"), tr("Re&name..."), &CalibrationListDialog::rename);
    theRemove = addButton(*column, QStringLiteral("remove"), tr("&Remove"), &CalibrationListDialog::remove);
    column->addStretch();
    auto* row = new QHBoxLayout;
    row->addWidget(theList, 1);
    row->addLayout(column);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(row);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::rejected, this, &CalibrationListDialog::reject);
    connect(theList, &QListWidget::currentRowChanged, this, &CalibrationListDialog::selectionChanged);
    connect(theList, &QListWidget::itemActivated, this, &CalibrationListDialog::use);
    fill();
}

QPushButton* CalibrationListDialog::addButton(QLayout& aLayout, const QString& aName, const QString& aText,
                                              void (CalibrationListDialog::*aSlot)())
{
    auto* button = new QPushButton(aText, this);
    button->setObjectName(aName);
    button->setAutoDefault(false);
    aLayout.addWidget(button);
    connect(button, &QPushButton::clicked, this, aSlot);
    return button;
}

void CalibrationListDialog::fill()
{
    const LmKSKernelData* kernel = LmKSKernelData::getInstance();
    QString current;
    kernel->getCurrentCalibData(current);
    const QString kept = theList->currentItem() ? chosenName() : current;
    theList->clear();
    const auto& calibrations = kernel->calibrations();
    for (auto it = calibrations.cbegin(); it != calibrations.cend(); ++it) {
        const QString pixel = Calibration::numberText(Calibration::pixelSize(it.value()));
        auto* item = new QListWidgetItem(tr("%1 (a pixel is %2 %3)").arg(it.key(), pixel, it.value().theUnit),
                                         theList);
        item->setData(Qt::UserRole, it.key());
        QFont font = item->font();
        font.setBold(it.key() == current);
        item->setFont(font);
        if (it.key() == kept)
            theList->setCurrentItem(item);
    }
    theNone->setEnabled(!current.isEmpty());
    selectionChanged();
}

void CalibrationListDialog::selectionChanged()
{
    QString current;
    LmKSKernelData::getInstance()->getCurrentCalibData(current);
    const bool chosen = theList->currentItem();
    theUse->setEnabled(chosen && chosenName() != current);
    theRename->setEnabled(chosen);
    theRemove->setEnabled(chosen);
}

QString CalibrationListDialog::chosenName() const
{
    return theList->currentItem() ? theList->currentItem()->data(Qt::UserRole).toString() : QString();
}

void CalibrationListDialog::use()
{
    theCommands.makeCurrent(chosenName());
    fill();
}

void CalibrationListDialog::useNone()
{
    theCommands.makeCurrent(QString());
    fill();
}

void CalibrationListDialog::rename()
{
    const QString oldName = chosenName();
    bool ok = false;
    const QString newName =
        QInputDialog::getText(this, tr("Rename Calibration"), tr("Name:"), QLineEdit::Normal, oldName, &ok)
            .simplified();
    if (!ok || !theCommands.rename(oldName, newName))
        return;
    fill();
    for (int row = 0; row < theList->count(); ++row)
        if (theList->item(row)->data(Qt::UserRole).toString() == newName)
            theList->setCurrentRow(row);
}

void CalibrationListDialog::remove()
{
    theCommands.remove(chosenName());
    fill();
}
