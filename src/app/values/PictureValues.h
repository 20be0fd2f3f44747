#ifndef PICTUREVALUES_H
#define PICTUREVALUES_H

#include "ValueSeries.h"

#include <QList>

#include <functional>

class Media;

/// Values that are measured in the picture of each frame.
namespace PictureValues {

/// Told how much of the work is done; false stops it.
using Progress = std::function<bool(qint64 aDone, qint64 aCount)>;

/// Reads each frame once and measures all the values in it. A frame that can't be read gives no sample.
/// False, with aSeries as it was, when aProgress stops the work; nobody but aProgress may handle events
/// meanwhile.
bool sample(Media& aMedia, const QList<ValueKey>& aKeys, const Progress& aProgress,
            QHash<ValueKey, ValueSeriesPtr>& aSeries);

} // namespace PictureValues

#endif
