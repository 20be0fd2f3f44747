#include "LiveSource.h"

#include "LmImage.h"
#include "PictureFile.h"
#include "PicturePixels.h"

#include <QBuffer>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QImageWriter>
#include <QSaveFile>
#include <QtEndian>

#include <cstring>

namespace {

std::unique_ptr<LmImage> copyOf(const LmImage& aImage)
{
    constexpr unsigned int kRowAlign = 4;
    auto copy =
        std::make_unique<LmImage>(aImage.width(), aImage.height(), aImage.channels(), nullptr, kRowAlign);
    const size_t bytes = size_t(aImage.width()) * size_t(aImage.channels());
    for (int y = 0; y < aImage.height(); ++y)
        std::memcpy(copy->row(y), aImage.row(y), bytes);
    return copy;
}

/// Without the resolution of the screen, which every picture in memory has and no camera knows of: somebody
/// might calibrate by it.
QByteArray withoutResolution(QByteArray aPng)
{
    constexpr qsizetype kFirstPiece = 33; // behind the signature and the header
    constexpr qsizetype kFrameOfPiece = 12;
    qsizetype at = kFirstPiece;
    while (at + kFrameOfPiece <= aPng.size()) {
        const auto size = qsizetype(qFromBigEndian<quint32>(aPng.constData() + at)) + kFrameOfPiece;
        const QByteArray name = aPng.mid(at + 4, 4);
        if (name == "pHYs")
            return aPng.remove(at, size);
        if (name == "IDAT")
            break;
        at += size;
    }
    return aPng;
}

/// Lossless, and quick rather than small: the stream stands meanwhile.
QByteArray pngOf(const LmImage& aImage)
{
    constexpr int kQuickest = 20; // of 100; less packs nothing, more takes its time
    const QImage view(aImage.row(0), aImage.width(), aImage.height(), aImage.bytesPerLine(),
                      aImage.channels() == 1 ? QImage::Format_Grayscale8 : QImage::Format_RGB888);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, "png");
    writer.setCompression(kQuickest);
    return writer.write(view) ? withoutResolution(bytes) : QByteArray();
}

bool write(const QByteArray& aBytes, const QString& aPath, QString& aReason)
{
    QSaveFile file(aPath);
    if (!aBytes.isEmpty() && file.open(QIODevice::WriteOnly) && file.write(aBytes) == aBytes.size() &&
        file.commit())
        return true;
    aReason = file.errorString();
    return false;
}

} // namespace

LiveSource::LiveSource(const QString& aPicturesFolder, std::unique_ptr<LmImage> aLive)
    : thePicturesFolder(aPicturesFolder), theLive(std::move(aLive))
{
    thePath = newFolder();
}

LiveSource::~LiveSource() = default;

QString LiveSource::newFolder() const
{
    const QString name = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH-mm-ss"));
    const QDir parent(QFileInfo(thePicturesFolder).absoluteFilePath());
    QString path = parent.filePath(name);
    for (int number = 2; QFileInfo::exists(path) || path == thePath; ++number)
        path = parent.filePath(QStringLiteral("%1 (%2)").arg(name).arg(number));
    return path;
}

QString LiveSource::nextFile() const
{
    QString path;
    int number = int(theFiles.size());
    do
        path = QDir(thePath).filePath(QStringLiteral("%1.png").arg(++number, 4, 10, QLatin1Char('0')));
    while (QFileInfo::exists(path));
    return path;
}

int LiveSource::takenCount() const
{
    const QMutexLocker lock(&theMutex);
    return int(theFiles.size());
}

QSize LiveSource::size() const
{
    const QMutexLocker lock(&theMutex);
    return theLive->size();
}

void LiveSource::setLive(std::unique_ptr<LmImage> aLive)
{
    const QMutexLocker lock(&theMutex);
    theLive = std::move(aLive);
}

void LiveSource::beginSeries(std::unique_ptr<LmImage> aLive)
{
    const QString folder = newFolder();
    const QMutexLocker lock(&theMutex);
    theLive = std::move(aLive);
    theFiles.clear();
    thePath = folder;
}

bool LiveSource::take(QString& aError)
{
    const bool isFirst = takenCount() == 0;
    QString reason = tr("the folder can't be made");
    const QString file = nextFile();
    if (QDir().mkpath(thePath) && write(pngOf(*theLive), file, reason)) {
        const QMutexLocker lock(&theMutex);
        theFiles << file;
        return true;
    }
    if (isFirst)
        QDir().rmdir(thePath); // goes only if it is empty
    aError = tr("The picture can't be kept in the folder %1 (%2); make room there or check its rights.")
                 .arg(QDir::toNativeSeparators(thePath), reason);
    return false;
}

std::unique_ptr<LmImage> LiveSource::readFrame(int aFrame, QString& aError)
{
    aError.clear();
    QMutexLocker lock(&theMutex);
    const std::shared_ptr<const LmImage> live = theLive;
    const QString path = theFiles.value(aFrame);
    lock.unlock();
    if (path.isEmpty())
        return copyOf(*live);
    const std::unique_ptr<PictureFile> file = PictureFile::open(path, aError);
    std::unique_ptr<LmImage> image = file ? file->readFrame(0, aError) : nullptr;
    if (image && image->size() == live->size())
        return image;
    if (image)
        aError = tr("The picture %1 has another size now; put the former one back in its place.")
                     .arg(QDir::toNativeSeparators(path));
    return PicturePixels::empty(live->size(), 1);
}
