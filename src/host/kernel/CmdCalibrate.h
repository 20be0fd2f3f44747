#ifndef CMDCALIBRATE_H
#define CMDCALIBRATE_H

#include "LmCalibData.h"

#include <QUndoCommand>

#include <optional>

/// Sets a named calibration (or takes it away) and makes a calibration current, as one step.
class CmdCalibrate : public QUndoCommand
{
public:
    /// No data takes the calibration aName away. aCurrent is the name that is current afterwards, empty for
    /// none.
    CmdCalibrate(const QString& aName, const std::optional<LmCalibData>& aData, const QString& aCurrent);

    void redo() override { exchange(); }
    void undo() override { exchange(); }

private:
    void exchange();
    std::optional<LmCalibData> storedData() const;

    QString theName;
    std::optional<LmCalibData> theData; // what the next exchange sets
    QString theCurrent;                 // the same
};

#endif
