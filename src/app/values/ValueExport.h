#ifndef VALUEEXPORT_H
#define VALUEEXPORT_H

#include "PictureValues.h"

/// Values over time as a file.
namespace ValueExport {

enum Result { kWritten, kCancelled, kFailed };

/// Writes the whole file or leaves what was there; with kFailed one sentence is in aError.
Result write(const QString& aPath, Media& aMedia, const QList<ValueKey>& aKeys,
             const QHash<ValueKey, ValueSeriesPtr>& aKnown, const PictureValues::Progress& aProgress,
             QString& aError);

} // namespace ValueExport

#endif
