#include "CalibrationForm.h"

#include "Calibration.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

CalibrationForm::CalibrationForm(QWidget* aParent)
    : QDialog(aParent), theIntroduction(new QLabel(this)), theFields(new QFormLayout),
      theUnit(new QComboBox(this)), theName(new QLineEdit(this)), theMeaning(new QLabel(this))
{
    theIntroduction->setObjectName(QStringLiteral("introduction"));
    theIntroduction->hide();
    theUnit->setObjectName(QStringLiteral("unit"));
    theName->setObjectName(QStringLiteral("name"));
    theName->setPlaceholderText(Calibration::freeName());
    theName->setMaxLength(100);
    theMeaning->setObjectName(QStringLiteral("meaning"));
    theMeaning->setWordWrap(true);
    theMeaning->setTextFormat(Qt::PlainText);
    theFields->addRow(tr("&Unit:"), theUnit);
    theFields->addRow(tr("&Name:"), theName);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    theOk = buttons->button(QDialogButtonBox::Ok);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(theIntroduction);
    layout->addLayout(theFields);
    layout->addWidget(theMeaning);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &CalibrationForm::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &CalibrationForm::reject);
    connect(theUnit, &QComboBox::currentTextChanged, this, &CalibrationForm::inputChanged);
    connect(theName, &QLineEdit::textChanged, this, &CalibrationForm::inputChanged);
}

QString CalibrationForm::name() const
{
    const QString typed = theName->text().simplified();
    return typed.isEmpty() ? Calibration::freeName() : typed;
}

void CalibrationForm::introduce(const QString& aText)
{
    theIntroduction->setText(aText);
    theIntroduction->show();
}

void CalibrationForm::keepRoom(int aColumns, int aLines)
{
    theMeaning->setMinimumWidth(aColumns * theMeaning->fontMetrics().averageCharWidth());
    theMeaning->setMinimumHeight(aLines * theMeaning->fontMetrics().lineSpacing());
}

void CalibrationForm::addField(const QString& aLabel, QLineEdit& aField)
{
    theFields->insertRow(0, aLabel, &aField);
    setTabOrder(&aField, theUnit);
    setTabOrder(theUnit, theName);
    aField.setFocus();
    connect(&aField, &QLineEdit::textChanged, this, &CalibrationForm::inputChanged);
}

QString CalibrationForm::replacement() const
{
    return Calibration::names().contains(name()) ? tr("This replaces “%1”.").arg(name()) : QString();
}

void CalibrationForm::inputChanged()
{
    const LmCalibData offered = calibration();
    theOk->setEnabled(Calibration::isUsable(offered) && !offered.theUnit.isEmpty());
    theMeaning->setText(explanation(offered));
}
