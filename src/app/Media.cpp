#include "Media.h"

#include "LmCvEditor.h"
#include "LmImage.h"
#include "LmKSKernelData.h"
#include "PictureFile.h"

#include <QDir>
#include <QFileInfo>

#include <cstring>

namespace {

constexpr unsigned int kPlaceholderRowAlign = 4;
// Light enough to be seen as an empty sheet, dark enough for white label text.
constexpr int kPlaceholderGray = 0x80;

} // namespace

Media::Media(LmCvEditor& aEditor, QObject* aParent) : QObject(aParent), theEditor(aEditor) {}

Media::~Media()
{
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    if (kernel->theCurrentImage != theImage.get())
        return;
    kernel->theCurrentImage = nullptr;
    kernel->theFrameCount = 0;
    kernel->theMediaFile.clear();
}

bool Media::open(const QString& aPath, QString& aError)
{
    std::unique_ptr<PictureFile> picture = PictureFile::open(aPath, aError);
    std::unique_ptr<LmImage> image = picture ? picture->readFrame(0, aError) : nullptr;
    if (!image)
        return false;
    take(std::move(picture), std::move(image), 0);
    return true;
}

bool Media::replacePlaceholder(const QString& aPath, QString& aError)
{
    std::unique_ptr<PictureFile> picture = PictureFile::open(aPath, aError);
    if (!picture)
        return false;
    const int frame = qMin(theFrame, picture->frameCount() - 1);
    std::unique_ptr<LmImage> image = picture->readFrame(frame, aError);
    if (!image)
        return false;
    if (theImage && image->size() != theImage->size()) {
        aError = tr("The picture %1 has %2 x %3 pixels instead of %4 x %5; choose the one that was measured.")
                     .arg(QDir::toNativeSeparators(aPath))
                     .arg(image->width())
                     .arg(image->height())
                     .arg(theImage->width())
                     .arg(theImage->height());
        return false;
    }
    take(std::move(picture), std::move(image), frame);
    return true;
}

void Media::openPlaceholder(const QString& aPath, QSize aSize, int aFrameCount)
{
    auto image = std::make_unique<LmImage>(aSize.width(), aSize.height(), 1, nullptr, kPlaceholderRowAlign);
    for (int y = 0; y < image->height(); ++y)
        std::memset(image->row(y), kPlaceholderGray, size_t(image->width()));
    thePicture.reset();
    announce(aPath, qMax(1, aFrameCount));
    show(std::move(image), 0);
    Q_EMIT opened();
}

void Media::take(std::unique_ptr<PictureFile> aPicture, std::unique_ptr<LmImage> aImage, int aFrame)
{
    thePicture = std::move(aPicture);
    announce(thePicture->path(), thePicture->frameCount());
    show(std::move(aImage), aFrame);
    Q_EMIT opened();
}

void Media::announce(const QString& aPath, int aFrameCount)
{
    thePath = QFileInfo(aPath).absoluteFilePath();
    theFrameCount = aFrameCount;
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    kernel->theFrameCount = aFrameCount;
    kernel->theMediaFile = thePath;
}

bool Media::showFrame(int aFrame, QString& aError)
{
    if (!isOpen() || aFrame < 0 || aFrame >= theFrameCount) {
        aError = tr("There is no frame %1; choose one from 1 to %2.").arg(aFrame + 1).arg(theFrameCount);
        return false;
    }
    std::unique_ptr<LmImage> image;
    if (thePicture) {
        image = thePicture->readFrame(aFrame, aError);
        if (!image)
            return false;
    }
    show(std::move(image), aFrame);
    return true;
}

void Media::show(std::unique_ptr<LmImage> aImage, int aFrame)
{
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    if (aImage) {
        kernel->theCurrentImage = aImage.get();
        theImage = std::move(aImage);
        theEditor.imageCanvas()->showImage(theImage.get());
    }
    theFrame = aFrame;
    kernel->showFrame(aFrame, false);
    Q_EMIT frameShown(aFrame);
}

QString Media::colorText(const QPoint& aImagePoint) const
{
    if (!theImage || !QRect(QPoint(0, 0), theImage->size()).contains(aImagePoint))
        return QString();
    unsigned char red = 0;
    unsigned char green = 0;
    unsigned char blue = 0;
    theImage->getDataAt(aImagePoint.x(), aImagePoint.y(), red, green, blue, 0);
    return tr("R %1  G %2  B %3").arg(red).arg(green).arg(blue);
}
