#include "CalibrationForm.h"

#include "Calibration.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

/// The fields are made in the order in which Tab goes through them.
CalibrationForm::CalibrationForm(const QString& aNumberLabel, QWidget* aParent)
    : QDialog(aParent), theIntroduction(new QLabel(this)), theFields(new QFormLayout)
{
    if (!aNumberLabel.isEmpty())
        addNumber(aNumberLabel);
    theUnit = new QComboBox(this);
    theUnit->setEditable(!aNumberLabel.isEmpty());
    theName = new QLineEdit(this);
    theMeaning = new QLabel(this);
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

void CalibrationForm::addNumber(const QString& aLabel)
{
    theNumber = new QLineEdit(this);
    theNumber->setObjectName(QStringLiteral("number"));
    theNumber->setFocus();
    theFields->addRow(aLabel, theNumber);
    connect(theNumber, &QLineEdit::textChanged, this, &CalibrationForm::inputChanged);
}

QString CalibrationForm::number() const
{
    return theNumber ? theNumber->text().trimmed() : QString();
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
