#include "MediaFile.h"

#include "PictureFile.h"

std::unique_ptr<MediaSource> MediaFile::open(const QString& aPath, QString& aError,
                                             const MediaSource::Progress&)
{
    return PictureFile::open(aPath, aError);
}
