#ifndef VALUESCSV_H
#define VALUESCSV_H

#include "PictureValues.h"

class QTextStream;

/// Values over time as comma-separated text: object, name, frame from 1 on, time in seconds (empty where
/// frames have none), value in full precision, unit, and whether the object has a keyframe there as 1 or 0.
/// Frames without a value have no line.
namespace ValuesCsv {

/// A heading line, then a line for each value and frame. What is known already isn't worked out again. False
/// when aProgress stops it; nobody but aProgress may handle events meanwhile.
bool write(Media& aMedia, const QList<ValueKey>& aKeys, const QHash<ValueKey, ValueSeriesPtr>& aKnown,
           const PictureValues::Progress& aProgress, QTextStream& aOut);

/// A cell of text, in quotes where it needs them.
QString cell(const QString& aText);

} // namespace ValuesCsv

#endif
