#include "CmdCalibrate.h"

#include "LmKSKernelData.h"

#include <QCoreApplication>

CmdCalibrate::CmdCalibrate(const QString& aName, const std::optional<LmCalibData>& aData,
                           const QString& aCurrent)
    : QUndoCommand(QCoreApplication::translate("UndoCommand", "Calibrate")), theName(aName), theData(aData),
      theCurrent(aCurrent)
{
}

void CmdCalibrate::exchange()
{
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    QString formerCurrent;
    kernel->getCurrentCalibData(formerCurrent);
    const std::optional<LmCalibData> formerData = storedData();
    // The order keeps listeners from seeing a moment without calibration between two current ones.
    if (theData)
        kernel->setCalibration(theName, *theData);
    kernel->setCurrentCalibration(theCurrent);
    if (!theData)
        kernel->removeCalibration(theName);
    QString current;
    kernel->getCurrentCalibData(current);
    setObsolete(storedData() == formerData && current == formerCurrent);
    theData = formerData;
    theCurrent = formerCurrent;
}

std::optional<LmCalibData> CmdCalibrate::storedData() const
{
    const QMap<QString, LmCalibData>& all = LmKSKernelData::getInstance()->calibrations();
    return all.contains(theName) ? std::optional<LmCalibData>(all.value(theName)) : std::nullopt;
}
