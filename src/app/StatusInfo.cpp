#include "StatusInfo.h"

#include "CalibrationCommands.h"
#include "CalibrationTool.h"
#include "ElidedLabel.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmImage.h"
#include "LmKSKernelData.h"
#include "Media.h"

#include <QLabel>
#include <QLocale>
#include <QStatusBar>

StatusInfo::StatusInfo(QStatusBar& aBar, const LmCvEditor& aEditor, const Media& aMedia,
                       const CalibrationTool& aTool, QObject* aParent)
    : QObject(aParent), theBar(aBar), theEditor(aEditor), theMedia(aMedia), theCalibrationTool(aTool),
      theHint(new ElidedLabel(&aBar))
{
    theHint->setObjectName(QStringLiteral("hint"));
    theHint->setAccessibleName(tr("What to do next"));
    aBar.addWidget(theHint, 1);
    thePosition =
        addField(aBar, QStringLiteral("position"), tr("Position"), tr("%1, %2 px").arg(88888).arg(88888));
    theColor = addField(aBar, QStringLiteral("pixelColor"), tr("Color of the pixel"),
                        QStringLiteral("R 888  G 888  B 888"));
    theZoom = addField(aBar, QStringLiteral("zoom"), tr("Zoom"), QStringLiteral("8888 %"));
    theCalibration = addField(aBar, QStringLiteral("calibration"), tr("Calibration"), QString());
    theRegion = addField(aBar, QStringLiteral("region"), tr("Region of interest"), QString());
    theFrame = addField(aBar, QStringLiteral("frame"), tr("Frame"), QString());

    connect(&aEditor, &LmCvEditor::signalPointerMoved, this, &StatusInfo::showPointer);
    connect(&aEditor, &LmCvEditor::signalPointerLeft, this, &StatusInfo::hidePointer);
    connect(&aEditor, &LmCvEditor::signalZoomChanged, this, &StatusInfo::showZoom);
    connect(&aEditor, &LmCvEditor::signalCurrentManipulatorChanged, this, &StatusInfo::updateHint);
    connect(&aTool, &CalibrationTool::signalHintChanged, this, &StatusInfo::updateHint);
    connect(&theMedia, &Media::opened, this, &StatusInfo::updateHint);
    connect(&theMedia, &Media::opened, this, &StatusInfo::updateFrame);
    connect(&theMedia, &Media::frameShown, this, &StatusInfo::updateFrame);
    connect(&theMedia, &Media::opened, this, &StatusInfo::updateRegion);
    connect(&theMedia, &Media::regionChanged, this, &StatusInfo::updateRegion);
    showZoom(aEditor.zoom());
    updateCalibration();
    updateFrame();
    updateRegion();
    updateHint();
}

QLabel* StatusInfo::addField(QStatusBar& aBar, const QString& aName, const QString& aTitle,
                             const QString& aWidestText)
{
    auto* label = new QLabel(&aBar);
    label->setObjectName(aName);
    label->setAccessibleName(aTitle);
    label->setToolTip(aTitle);
    label->setTextFormat(Qt::PlainText);
    // The widest usual text has its room from the start, so that the fields don't dance.
    const int gap = label->fontMetrics().horizontalAdvance(QLatin1Char('0'));
    label->setContentsMargins(gap, 0, gap, 0);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(aWidestText) + 2 * gap);
    aBar.addPermanentWidget(label);
    return label;
}

QString StatusInfo::hint() const
{
    if (!theMedia.isOpen())
        return tr("Open a picture, a video or a project, or drop one here.");
    if (theCalibrationTool.isRunning())
        return theCalibrationTool.hint();
    if (const LmCvManipulator* tool = theEditor.theCurrentManipulator)
        return tool->hint();
    return tr("Click an object to select it, drag to select several; right click for more.");
}

void StatusInfo::listenTo(const QList<LmCvManipulator*>& aTools)
{
    constexpr int kReadingTime = 6000; // ms
    for (const LmCvManipulator* tool : aTools) {
        connect(tool, &LmCvManipulator::signalHintChanged, this, &StatusInfo::updateHint);
        connect(tool, &LmCvManipulator::signalReport, &theBar,
                [this](const QString& aText) { theBar.showMessage(aText, kReadingTime); });
    }
}

void StatusInfo::updateHint()
{
    theHint->setText(hint());
    theHint->setToolTip(hint());
}

QString StatusInfo::positionText(const QPoint& aImagePoint)
{
    QString text = tr("%1, %2 px").arg(aImagePoint.x()).arg(aImagePoint.y());
    QString unit;
    const double step = LmKSKernelData::getInstance()->currentStep(unit);
    if (step > 0.0) {
        const QLocale locale;
        text += tr(" (%1, %2 %3)")
                    .arg(locale.toString(aImagePoint.x() / step, 'f', 2),
                         locale.toString(aImagePoint.y() / step, 'f', 2), unit);
    }
    return text;
}

void StatusInfo::showPointer(const QPoint& aCanvasPoint)
{
    const LmImage* image = LmKSKernelData::getInstance()->theCurrentImage;
    const QPoint imagePoint = aCanvasPoint + LmKSKernelData::getInstance()->origin();
    thePointer = aCanvasPoint;
    thePointerInside = image && image->qRoi().contains(imagePoint);
    thePosition->setText(thePointerInside ? positionText(imagePoint) : QString());
    theColor->setText(thePointerInside ? theMedia.colorText(imagePoint) : QString());
}

void StatusInfo::hidePointer()
{
    thePointerInside = false;
    thePosition->clear();
    theColor->clear();
}

void StatusInfo::showZoom(double aZoom)
{
    const double percent = aZoom * 100.0;
    theZoom->setText(tr("%1 %").arg(QLocale().toString(percent, 'f', percent < 10.0 ? 1 : 0)));
}

void StatusInfo::updateCalibration()
{
    QString name;
    LmKSKernelData::getInstance()->getCurrentCalibData(name);
    theCalibration->setText(theMedia.isOpen() ? CalibrationCommands::description() : QString());
    theCalibration->setToolTip(name.isEmpty() ? tr("Calibration") : tr("Calibration: %1").arg(name));
    if (thePointerInside)
        showPointer(thePointer);
}

void StatusInfo::updateFrame()
{
    const bool several = theMedia.frameCount() > 1;
    theFrame->setText(several ? tr("Frame %1 of %2").arg(theMedia.frame() + 1).arg(theMedia.frameCount())
                              : QString());
    theFrame->setVisible(several);
    updateCalibration();
}

void StatusInfo::updateRegion()
{
    const QSize size = theMedia.region().size();
    theRegion->setText(tr("Region %1 x %2 px").arg(size.width()).arg(size.height()));
    theRegion->setVisible(!theMedia.region().isNull());
    // Another pixel is under the pointer now, which only its next move tells.
    hidePointer();
}
