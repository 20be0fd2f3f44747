#include "CalibrationCommands.h"

#include "Calibration.h"
#include "CalibrationDialog.h"
#include "CalibrationListDialog.h"
#include "CalibrationTool.h"
#include "CmdCalibrate.h"
#include "LmKSKernelData.h"
#include "Messages.h"
#include "ResolutionDialog.h"
#include "ResolutionTag.h"

#include <QActionGroup>
#include <QMenu>
#include <QUndoStack>

namespace {

QString currentName()
{
    QString name;
    LmKSKernelData::getInstance()->getCurrentCalibData(name);
    return name;
}

} // namespace

CalibrationCommands::CalibrationCommands(LmCvEditor& aEditor, QUndoStack& aStack, QMenu& aMenu,
                                         QWidget& aWindow)
    : QObject(&aWindow), theStack(aStack), theMenu(aMenu), theWindow(aWindow),
      theTool(new CalibrationTool(aEditor, this)), theEntries(new QActionGroup(this))
{
    connect(theTool, &CalibrationTool::measured, this, &CalibrationCommands::wayMeasured);
    const LmKSKernelData* kernel = LmKSKernelData::getInstance();
    connect(kernel, &LmKSKernelData::signalCalibrationChanged, this, &CalibrationCommands::kernelChanged);
    connect(kernel, &LmKSKernelData::signalCalibrationCurrent, this, &CalibrationCommands::kernelChanged);
    // A calibration that is taken away without being the current one gives no signal.
    connect(&theStack, &QUndoStack::indexChanged, this, &CalibrationCommands::kernelChanged);
    fillMenu();
}

void CalibrationCommands::set(const QString& aName, const LmCalibData& aData)
{
    const auto& known = LmKSKernelData::getInstance()->calibrations();
    if (currentName() != aName || known.value(aName) != aData)
        theStack.push(new CmdCalibrate(aName, aData, aName));
}

void CalibrationCommands::makeCurrent(const QString& aName)
{
    const QString current = currentName();
    if (aName == current)
        return;
    // The command names a calibration that stays as it is.
    const QString unchanged = aName.isEmpty() ? current : aName;
    const LmCalibData data = LmKSKernelData::getInstance()->calibrations().value(unchanged);
    theStack.push(new CmdCalibrate(unchanged, data, aName));
}

bool CalibrationCommands::rename(const QString& aOldName, const QString& aNewName)
{
    if (aNewName.isEmpty() || aNewName == aOldName)
        return false;
    const QMap<QString, LmCalibData> known = LmKSKernelData::getInstance()->calibrations();
    if (known.contains(aNewName)) {
        tellError(&theWindow, tr("There is a calibration “%1” already; choose another name.").arg(aNewName));
        return false;
    }
    const QString current = currentName();
    theStack.beginMacro(tr("Rename calibration “%1”").arg(aOldName));
    theStack.push(
        new CmdCalibrate(aNewName, known.value(aOldName), current == aOldName ? aNewName : current));
    theStack.push(new CmdCalibrate(aOldName, std::nullopt, current == aOldName ? aNewName : current));
    theStack.endMacro();
    return true;
}

void CalibrationCommands::remove(const QString& aName)
{
    const QString current = currentName();
    theStack.push(new CmdCalibrate(aName, std::nullopt, current == aName ? QString() : current));
}

QString CalibrationCommands::description()
{
    QString name;
    const LmCalibData data = LmKSKernelData::getInstance()->getCurrentCalibData(name);
    const double pixel = Calibration::pixelSize(data);
    if (pixel <= 0.0)
        return tr("Not calibrated");
    return tr("1 px = %1 %2").arg(Calibration::numberText(pixel), data.theUnit);
}

void CalibrationCommands::calibrateByLength()
{
    theTool->start();
}

void CalibrationCommands::wayMeasured(double aPixels)
{
    CalibrationDialog dialog(CalibrationDialog::kLength, aPixels, &theWindow);
    const bool accepted = dialog.exec() == QDialog::Accepted;
    theTool->finish();
    if (accepted)
        set(dialog.name(), dialog.calibration());
}

void CalibrationCommands::calibrateByPixelSize()
{
    CalibrationDialog dialog(CalibrationDialog::kPixelSize, 0.0, &theWindow);
    if (dialog.exec() == QDialog::Accepted)
        set(dialog.name(), dialog.calibration());
}

void CalibrationCommands::calibrateByResolution(const QString& aFile)
{
    const ResolutionTag tag = ResolutionTag::read(aFile);
    if (!tag.isNoted()) {
        tellError(&theWindow,
                  tr("The picture's file notes no resolution any more; calibrate by a known length."));
        return;
    }
    if (!tag.isSquare()) {
        tellError(&theWindow, tr("The file notes %1, but pixels are taken to be square; calibrate by a known "
                                 "length.")
                                  .arg(ResolutionDialog::tagText(tag)));
        return;
    }
    ResolutionDialog dialog(tag, &theWindow);
    if (dialog.exec() == QDialog::Accepted)
        set(dialog.name(), dialog.calibration());
}

void CalibrationCommands::manage()
{
    CalibrationListDialog(*this, &theWindow).exec();
}

void CalibrationCommands::kernelChanged()
{
    fillMenu();
    Q_EMIT changed();
}

void CalibrationCommands::fillMenu()
{
    qDeleteAll(theEntries->actions());
    const QString current = currentName();
    const QStringList names = Calibration::names();
    addEntry(tr("Not Calibrated"), QString(), current.isEmpty());
    for (const QString& name : names)
        addEntry(QString(name).replace(QLatin1Char('&'), QLatin1String("&&")), name, name == current);
}

void CalibrationCommands::addEntry(const QString& aText, const QString& aName, bool aCurrent)
{
    QAction* action = theEntries->addAction(aText);
    action->setCheckable(true);
    action->setChecked(aCurrent);
    action->setData(aName);
    action->setStatusTip(aName.isEmpty() ? tr("Values are shown in pixels") : tr("Uses this calibration"));
    // Switching fills this menu anew, so it waits until the menu has finished with the entry.
    connect(
        action, &QAction::triggered, this, [this, aName] { makeCurrent(aName); }, Qt::QueuedConnection);
    theMenu.addAction(action);
}
