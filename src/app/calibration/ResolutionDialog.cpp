#include "ResolutionDialog.h"

#include "Calibration.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <cmath>

namespace {

/// What many programs and cameras write where they know nothing.
bool isUsualGuess(const ResolutionTag& aTag)
{
    constexpr double kGuess = 72.0;
    constexpr double kMillimetresPerInch = 25.4;
    constexpr double kRounding = 0.01; // of whole pixels per metre
    return std::abs(kMillimetresPerInch / aTag.pixelMillimetres() - kGuess) < kRounding;
}

} // namespace

ResolutionDialog::ResolutionDialog(const ResolutionTag& aTag, QWidget* aParent)
    : QDialog(aParent), theTag(aTag), theUnit(new QComboBox(this)), theName(new QLineEdit(this)),
      theMeaning(new QLabel(this))
{
    setWindowTitle(tr("Calibrate from the Picture's Resolution"));
    auto* layout = new QVBoxLayout(this);
    auto* noted = new QLabel(tr("The file says that the picture has %1.").arg(tagText(theTag)), this);
    noted->setObjectName(QStringLiteral("noted"));
    layout->addWidget(noted);
    makeFields();
    auto* form = new QFormLayout;
    form->addRow(tr("&Unit:"), theUnit);
    form->addRow(tr("&Name:"), theName);
    layout->addLayout(form);
    layout->addWidget(theMeaning);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    layout->addWidget(buttons);
    theOk = buttons->button(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &ResolutionDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &ResolutionDialog::reject);
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

void ResolutionDialog::makeFields()
{
    theUnit->setObjectName(QStringLiteral("unit"));
    theUnit->addItem(tr("mm"), 1.0);
    theUnit->addItem(tr("cm"), 10.0);
    theUnit->addItem(tr("µm"), 0.001);
    theUnit->addItem(tr("in"), 25.4);
    theName->setObjectName(QStringLiteral("name"));
    theName->setPlaceholderText(Calibration::freeName());
    theName->setMaxLength(100);
    theMeaning->setObjectName(QStringLiteral("meaning"));
    theMeaning->setWordWrap(true);
    theMeaning->setTextFormat(Qt::PlainText);
    theMeaning->setMinimumWidth(50 * theMeaning->fontMetrics().averageCharWidth());
    theMeaning->setMinimumHeight(3 * theMeaning->fontMetrics().lineSpacing());
    connect(theUnit, &QComboBox::currentIndexChanged, this, &ResolutionDialog::inputChanged);
    connect(theName, &QLineEdit::textChanged, this, &ResolutionDialog::inputChanged);
}

QString ResolutionDialog::name() const
{
    const QString typed = theName->text().simplified();
    return typed.isEmpty() ? Calibration::freeName() : typed;
}

LmCalibData ResolutionDialog::calibration() const
{
    const double millimetresPerUnit = theUnit->currentData().toDouble();
    return Calibration::fromPixelSize(theTag.pixelMillimetres() / millimetresPerUnit, theUnit->currentText());
}

QString ResolutionDialog::explanation(const LmCalibData& aData) const
{
    QStringList lines{Calibration::meaning(aData)};
    if (isUsualGuess(theTag))
        lines << tr("Many programs write this resolution when they know none; check it with a known length.");
    if (Calibration::names().contains(name()))
        lines << tr("This replaces “%1”.").arg(name());
    return lines.join(QLatin1Char('\n'));
}

void ResolutionDialog::inputChanged()
{
    const LmCalibData offered = calibration();
    theOk->setEnabled(Calibration::isUsable(offered));
    theMeaning->setText(explanation(offered));
}
