#ifndef PLAINVALUES_H
#define PLAINVALUES_H

#include <QString>

class LmCvManipulator;
class LmKernelObjectData;

/// What the window has to show, worked out once more and in another way: from the records, the current
/// calibration and the current frame of the kernel alone.
namespace PlainValues {

/// The pixels per unit of the current calibration and its unit; 0 without one.
double step(QString& aUnit);

/// A cell of the measurement window for a value of the object.
QString cell(LmCvManipulator& aTool, const LmKernelObjectData& aRecord, const QString& aName);
/// The value on the object's label.
QString label(LmCvManipulator& aTool, const LmKernelObjectData& aRecord);
/// The calibration's field of the status bar.
QString calibrationField();
/// The text of a scale bar over so many pixels of the view at the zoom, by trying all lengths.
QString scaleBar(double aZoom, double aRoom);

} // namespace PlainValues

#endif
