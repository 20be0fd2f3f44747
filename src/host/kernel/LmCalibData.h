#ifndef LMCALIBDATA_H
#define LMCALIBDATA_H

#include <QString>

/// A calibration: how wide the image is in a unit.
struct LmCalibData
{
    /// The width of the image at a calibration scale of 1, in theUnit; 0.001 or less: not calibrated.
    double theValue = 0.0;
    QString theUnit; // text shown behind every value

    bool operator==(const LmCalibData& aOther) const
    {
        return theValue == aOther.theValue && theUnit == aOther.theUnit;
    }
    bool operator!=(const LmCalibData& aOther) const { return !(*this == aOther); }
};

#endif
