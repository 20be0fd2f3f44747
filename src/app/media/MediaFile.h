#ifndef MEDIAFILE_H
#define MEDIAFILE_H

#include "MediaSource.h"

#include <QStringList>

/// Opens whatever can be shown, by its content: a picture, a video, or a folder of pictures.
namespace MediaFile {

/// Null with one sentence in aError when the file can't be opened or the progress was stopped.
std::unique_ptr<MediaSource> open(const QString& aPath, QString& aError,
                                  const MediaSource::Progress& aProgress = MediaSource::Progress());
/// Endings of all files that can be opened, without dot, in lower case.
QStringList suffixes();
/// Whether there is a plain file with something in it that may be read; aError is otherwise a sentence that
/// begins with aSubject.
bool check(const QString& aPath, const QString& aSubject, QString& aError);

} // namespace MediaFile

#endif
