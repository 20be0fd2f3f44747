#include "PictureFolder.h"

#include "LmImage.h"
#include "PictureFile.h"
#include "PicturePixels.h"

#include <QCollator>
#include <QDir>
#include <QFileInfo>
#include <QLocale>

#include <algorithm>

namespace {

/// The names of all files in the folder that may be pictures, "10" behind "9".
QStringList pictureNames(const QString& aFolder)
{
    QStringList patterns;
    for (const QString& suffix : PictureFile::suffixes())
        patterns << QStringLiteral("*.") + suffix;
    QStringList names = QDir(aFolder).entryList(patterns, QDir::Files | QDir::Readable);
    // The same order whatever the language is; the plain C locale knows no numbers.
    QCollator collator(QLocale(QLocale::English, QLocale::UnitedStates));
    collator.setNumericMode(true);
    std::sort(names.begin(), names.end(), collator);
    return names;
}

} // namespace

PictureFolder::PictureFolder(const QString& aPath) : thePath(QFileInfo(aPath).absoluteFilePath()) {}

PictureFolder::~PictureFolder() = default;

QString PictureFolder::subject() const
{
    return tr("The folder %1").arg(QDir::toNativeSeparators(thePath));
}

std::unique_ptr<PictureFolder> PictureFolder::open(const QString& aPath, QString& aError,
                                                   const Progress& aProgress)
{
    std::unique_ptr<PictureFolder> folder(new PictureFolder(aPath));
    if (!folder->collect(aProgress)) {
        aError = tr("%1 was not opened because you stopped it; nothing has changed.").arg(folder->subject());
        return nullptr;
    }
    if (!folder->theFiles.isEmpty())
        return folder;
    aError =
        tr("%1 holds no pictures; choose a folder with the pictures of a series.").arg(folder->subject());
    return nullptr;
}

/// Reads no more than the beginning of each file.
bool PictureFolder::collect(const Progress& aProgress)
{
    const QStringList names = pictureNames(thePath);
    for (int i = 0; i < names.size(); ++i) {
        if (aProgress && !aProgress(i, int(names.size())))
            return false;
        const QString file = QDir(thePath).filePath(names[i]);
        const QSize size = PictureFile::sizeOf(file);
        if (theFiles.isEmpty())
            theSize = size;
        if (size.isValid() && size == theSize)
            theFiles << file;
        else
            ++theLeftOut;
    }
    return true;
}

QString PictureFolder::remark() const
{
    if (theLeftOut == 0)
        return QString();
    return tr(
        "%n picture(s) of this folder were left out, since they have another size than the first one or "
        "can't be read.",
        nullptr, theLeftOut);
}

std::unique_ptr<LmImage> PictureFolder::readFrame(int aFrame, QString& aError)
{
    aError.clear();
    if (aFrame < 0 || aFrame >= frameCount()) {
        aError = tr("%1 has no picture %2; choose one from 1 to %3.")
                     .arg(subject())
                     .arg(aFrame + 1)
                     .arg(frameCount());
        return nullptr;
    }
    const std::unique_ptr<PictureFile> file = PictureFile::open(theFiles[aFrame], aError);
    std::unique_ptr<LmImage> image = file ? file->readFrame(0, aError) : nullptr;
    if (image && image->size() == theSize)
        return image;
    if (image)
        aError = tr("The picture %1 has another size now; put the former one back in its place.")
                     .arg(QDir::toNativeSeparators(theFiles[aFrame]));
    return PicturePixels::empty(theSize, 1);
}
