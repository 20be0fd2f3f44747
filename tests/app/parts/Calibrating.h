#ifndef CALIBRATING_H
#define CALIBRATING_H

#include "ModalAnswer.h"

class WindowFixture;

/// Calibrating in a window as a person does it.
namespace Calibrating {

/// Fills in the calibration dialog and accepts it.
ModalAnswer::Answer type(const QString& aNumber, const QString& aUnit, const QString& aName = QString());
/// Says by two clicks that 200 pixels are so many millimetres.
void calibrate(WindowFixture& aFixture, const QString& aNumber, const QString& aName = QString());
/// The name of the current calibration.
QString current(WindowFixture& aFixture);
/// Pixels per unit.
double step(WindowFixture& aFixture);

} // namespace Calibrating

#endif
