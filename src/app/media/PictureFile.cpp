#include "PictureFile.h"

#include "LmImage.h"
#include "MediaFile.h"
#include "PictureEnd.h"
#include "PicturePixels.h"
#include "QuietStderr.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>

#include <new>

namespace {

constexpr qint64 kBytesPerMegabyte = 1024 * 1024;
// The widest pixel that a decoder delivers: four channels of 16 bits.
constexpr qint64 kMaxBytesPerPixel = 8;

/// Formats with a signature of their own. Guessing ones without would take any file for a picture.
QByteArrayList knownFormats()
{
    return {"png", "jpeg", "tiff", "bmp", "webp", "gif", "pbm", "pgm", "ppm"};
}

QByteArray baseFormat(const QByteArray& aFormat)
{
    if (aFormat == "jpg")
        return "jpeg";
    return aFormat == "tif" ? QByteArray("tiff") : aFormat;
}

void setUp(QImageReader& aReader)
{
    aReader.setDecideFormatFromContent(true);
    aReader.setAutoTransform(true);
    QImageReader::setAllocationLimit(int(PictureFile::kMaxPixels * kMaxBytesPerPixel / kBytesPerMegabyte));
}

/// Before anything else is asked of the reader.
bool hasKnownFormat(QImageReader& aReader)
{
    setUp(aReader);
    return knownFormats().contains(baseFormat(aReader.format()));
}

/// Of the page that comes next.
QSize shownSize(const QImageReader& aReader)
{
    const QSize size = aReader.size();
    const bool turned = aReader.transformation() & QImageIOHandler::TransformationRotate90;
    return turned ? size.transposed() : size;
}

} // namespace

PictureFile::PictureFile(const QString& aPath) : thePath(QFileInfo(aPath).absoluteFilePath()) {}

PictureFile::~PictureFile() = default;

QString PictureFile::subject() const
{
    return tr("The picture %1").arg(QDir::toNativeSeparators(thePath));
}

std::unique_ptr<PictureFile> PictureFile::open(const QString& aPath, QString& aError)
{
    std::unique_ptr<PictureFile> file(new PictureFile(aPath));
    const QuietStderr quiet;
    if (!MediaFile::check(file->thePath, file->subject(), aError) || !file->checkContent(aError))
        return nullptr;
    file->theFirstPage = file->decode(0, aError);
    if (!file->theFirstPage)
        return nullptr;
    file->measurePages();
    return file;
}

/// Reads no more than the head of each page.
void PictureFile::measurePages()
{
    // Looking for a page takes longer the farther back it stands.
    constexpr int kMostLookedAt = 1000;
    theSize = theFirstPage->size();
    QImageReader reader(thePath);
    setUp(reader);
    for (int page = 1; page < qMin(theFrameCount, kMostLookedAt); ++page) {
        const QSize size = reader.jumpToImage(page) ? shownSize(reader) : QSize();
        theSizesDiffer = theSizesDiffer || (size.isValid() && size != theSize);
        const QSize shared = theSize.expandedTo(size);
        if (size.isValid() && qint64(shared.width()) * shared.height() <= kMaxPixels)
            theSize = shared;
    }
}

QString PictureFile::remark() const
{
    return theSizesDiffer
               ? tr("The pages of this file differ in size; they are cut or filled up with gray to one size.")
               : QString();
}

QStringList PictureFile::suffixes()
{
    const QByteArrayList readable = QImageReader::supportedImageFormats();
    QStringList suffixes;
    for (const char* suffix :
         {"png", "jpg", "jpeg", "tif", "tiff", "bmp", "webp", "gif", "pbm", "pgm", "ppm"})
        if (readable.contains(suffix))
            suffixes << QLatin1String(suffix);
    return suffixes;
}

bool PictureFile::isPicture(const QString& aPath)
{
    const QuietStderr quiet;
    QImageReader reader(aPath);
    return hasKnownFormat(reader);
}

QSize PictureFile::sizeOf(const QString& aPath)
{
    const QuietStderr quiet;
    QImageReader reader(aPath);
    if (!hasKnownFormat(reader))
        return QSize();
    return shownSize(reader);
}

bool PictureFile::checkContent(QString& aError)
{
    // The decoders fill what is missing at the end with gray, so the file itself is looked at first.
    if (PictureEnd::isCutOff(thePath)) {
        aError = tr("%1 is cut off; copy it again from its source.").arg(subject());
        return false;
    }
    QImageReader reader(thePath);
    if (!hasKnownFormat(reader)) {
        aError = tr("%1 is of an unknown kind; open a PNG, JPEG, TIFF, BMP or WebP file.").arg(subject());
        return false;
    }
    // Before anything else is asked, since the TIFF reader counts from where the device stands.
    theFrameCount = qMax(1, reader.imageCount());
    return true;
}

std::unique_ptr<LmImage> PictureFile::readFrame(int aFrame, QString& aError)
{
    if (aFrame < 0 || aFrame >= theFrameCount) {
        aError = tr("%1 has no page %2; choose one from 1 to %3.")
                     .arg(subject())
                     .arg(aFrame + 1)
                     .arg(theFrameCount);
        return nullptr;
    }
    aError.clear();
    std::unique_ptr<LmImage> page;
    const QuietStderr quiet;
    if (aFrame == 0 && theFirstPage)
        page = std::move(theFirstPage);
    else if (MediaFile::check(thePath, subject(), aError))
        page = decode(aFrame, aError);
    if (page && page->size() == theSize)
        return page;
    return page ? PicturePixels::fitted(*page, theSize) : PicturePixels::empty(theSize, 1);
}

std::unique_ptr<LmImage> PictureFile::decode(int aFrame, QString& aError) const
{
    QImageReader reader(thePath);
    setUp(reader);
    if (!selectPage(reader, aFrame)) {
        aError =
            tr("Page %1 of %2 is damaged; copy the file again from its source.").arg(aFrame + 1).arg(thePath);
        return nullptr;
    }
    return decodePage(reader, aError);
}

bool PictureFile::selectPage(QImageReader& aReader, int aFrame)
{
    if (aFrame == 0 || aReader.jumpToImage(aFrame))
        return true;
    // Animations can only be read from the front.
    for (int page = 0; page < aFrame; ++page)
        if (aReader.read().isNull())
            return false;
    return true;
}

std::unique_ptr<LmImage> PictureFile::decodePage(QImageReader& aReader, QString& aError) const
{
    const QSize size = aReader.size();
    const qint64 pixels = qint64(size.width()) * size.height();
    if (size.isValid() && pixels > kMaxPixels) {
        aError = tr("%1 is too large with %2 x %3 pixels; cut it to %4 million pixels or fewer.")
                     .arg(subject())
                     .arg(size.width())
                     .arg(size.height())
                     .arg(kMaxPixels / 1'000'000);
        return nullptr;
    }
    try {
        const QImage page = aReader.read();
        if (!page.isNull())
            if (auto image = PicturePixels::toLmImage(page))
                return image;
    } catch (const std::bad_alloc&) {
        aError = tr("%1 does not fit into memory; make it smaller or close other programs.").arg(subject());
        return nullptr;
    }
    aError =
        tr("%1 is damaged or has pixels of a kind that can't be shown; save it again with 8 or 16 bits per "
           "channel.")
            .arg(subject());
    return nullptr;
}
