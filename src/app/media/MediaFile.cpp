#include "MediaFile.h"

#include "PictureFile.h"
#include "PictureFolder.h"
#include "VideoFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

QString tr(const char* aText)
{
    return QCoreApplication::translate("MediaFile", aText);
}

} // namespace

std::unique_ptr<MediaSource> MediaFile::open(const QString& aPath, QString& aError,
                                             const MediaSource::Progress& aProgress)
{
    const QString path = QFileInfo(aPath).absoluteFilePath();
    if (QFileInfo(path).isDir())
        return PictureFolder::open(path, aError, aProgress);
    const QString subject = tr("The file %1").arg(QDir::toNativeSeparators(path));
    if (!check(path, subject, aError))
        return nullptr;
    if (PictureFile::isPicture(path))
        return PictureFile::open(path, aError);
    if (VideoFile::isVideo(path))
        return VideoFile::open(path, aError, aProgress);
    aError = tr("%1 is of an unknown kind; open a picture (PNG, JPEG, TIFF, BMP, WebP) or a video (MP4, MOV, "
                "MKV, AVI, MPEG).")
                 .arg(subject);
    return nullptr;
}

QStringList MediaFile::suffixes()
{
    return PictureFile::suffixes() + VideoFile::suffixes();
}

bool MediaFile::check(const QString& aPath, const QString& aSubject, QString& aError)
{
    const QFileInfo info(aPath);
    if (!info.exists())
        aError = tr("%1 is not there; look where it was moved or choose another one.").arg(aSubject);
    else if (info.isDir())
        aError = tr("%1 is a folder; choose a file in it.").arg(aSubject);
    else if (!info.isFile())
        aError = tr("%1 is not a plain file; choose another one.").arg(aSubject);
    else if (!QFile(aPath).open(QIODevice::ReadOnly))
        aError = tr("%1 may not be read; change its permissions or choose another one.").arg(aSubject);
    else if (info.size() == 0)
        aError = tr("%1 is empty; copy it again from its source.").arg(aSubject);
    else
        return true;
    return false;
}
