#include "Media.h"

#include "GestureTool.h"
#include "HiddenItems.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmImage.h"
#include "LmKSKernelData.h"
#include "MediaFile.h"
#include "PicturePixels.h"

#include <QDir>
#include <QFileInfo>
#include <QTransform>

#include <utility>

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

bool Media::open(const QString& aPath, QString& aError, const MediaSource::Progress& aProgress)
{
    return open(MediaFile::open(aPath, aError, aProgress), aError);
}

bool Media::open(std::unique_ptr<MediaSource> aSource, QString& aError)
{
    std::unique_ptr<LmImage> image = aSource ? aSource->readFrame(0, aError) : nullptr;
    if (!image)
        return false;
    theRegion = QRect();
    take(std::move(aSource), std::move(image), 0);
    return true;
}

bool Media::replacePlaceholder(const QString& aPath, QString& aError, const MediaSource::Progress& aProgress)
{
    std::unique_ptr<MediaSource> source = MediaFile::open(aPath, aError, aProgress);
    if (!source)
        return false;
    const int frame = qMin(theFrame, source->frameCount() - 1);
    std::unique_ptr<LmImage> image = source->readFrame(frame, aError);
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
    take(std::move(source), std::move(image), frame);
    return true;
}

void Media::openPlaceholder(const QString& aPath, QSize aSize, int aFrameCount)
{
    Q_EMIT aboutToLeave();
    theSource.reset();
    theRegion = QRect();
    announce(aPath, qMax(1, aFrameCount));
    show(PicturePixels::empty(aSize, 1), 0, false);
    Q_EMIT opened();
}

void Media::take(std::unique_ptr<MediaSource> aSource, std::unique_ptr<LmImage> aImage, int aFrame)
{
    Q_EMIT aboutToLeave();
    theSource = std::move(aSource);
    announce(theSource->path(), theSource->frameCount());
    show(std::move(aImage), aFrame, false);
    Q_EMIT opened();
    if (const QString remark = theSource->remark(); !remark.isEmpty())
        Q_EMIT flawFound(remark);
}

void Media::announce(const QString& aPath, int aFrameCount)
{
    thePath = QFileInfo(aPath).absoluteFilePath();
    theFrameCount = aFrameCount;
    theKeptFrames = aFrameCount;
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
    aError.clear();
    Q_EMIT aboutToRead();
    if (theSource) {
        image = theSource->readFrame(aFrame, aError);
        if (!image)
            return false;
    }
    show(std::move(image), aFrame, false);
    if (const QString flaw = std::exchange(aError, QString()); !flaw.isEmpty())
        Q_EMIT flawFound(flaw);
    return true;
}

std::unique_ptr<LmImage> Media::readFrame(int aFrame, QString& aError)
{
    aError.clear();
    Q_EMIT aboutToRead();
    if (!theSource || aFrame < 0 || aFrame >= theFrameCount) {
        aError = tr("The frame %1 can't be read.").arg(aFrame + 1);
        return nullptr;
    }
    std::unique_ptr<LmImage> image = theSource->readFrame(aFrame, aError);
    if (image)
        image->setQRoi(theRegion);
    return image;
}

void Media::showPlayed(std::unique_ptr<LmImage> aImage, int aFrame)
{
    show(std::move(aImage), aFrame, true);
}

/// Without an image the present one stays, as on the frames of a placeholder.
void Media::show(std::unique_ptr<LmImage> aImage, int aFrame, bool aPlaying)
{
    if (aImage)
        exchangeImage(std::move(aImage));
    theFrame = aFrame;
    LmKSKernelData::getInstance()->showFrame(aFrame, aPlaying);
    Q_EMIT frameShown(aFrame);
}

void Media::exchangeImage(std::unique_ptr<LmImage> aImage)
{
    aImage->setQRoi(theRegion);
    LmKSKernelData::getInstance()->theCurrentImage = aImage.get();
    theImage = std::move(aImage);
    theEditor.imageCanvas()->showImage(theImage.get());
    Q_EMIT imageChanged();
}

void Media::showLive(std::unique_ptr<LmImage> aImage)
{
    exchangeImage(std::move(aImage));
    LmKSKernelData::getInstance()->showFrame(theFrame, true);
}

void Media::showResized(std::unique_ptr<LmImage> aImage)
{
    GestureTool::interrupt(theEditor);
    const QSize former = theImage->size();
    const QSize present = aImage->size();
    const double ratio = double(present.width()) / former.width();
    const QTransform scaling = QTransform::fromScale(ratio, ratio);
    theRegion = scaling.mapRect(theRegion).intersected(QRect(QPoint(0, 0), present));
    if (theRegion.isEmpty())
        theRegion = QRect();
    exchangeImage(std::move(aImage));
    LmKSKernelData::getInstance()->announceResolution(former, present);
    // The tools have put their objects where they are without a frame, and left the values beside them.
    show(nullptr, theFrame, false);
    placeObjects();
    placeHiddenItems();
    Q_EMIT regionChanged();
    Q_EMIT resolutionChanged(former, present);
}

void Media::followSource(int aFrame, int aKeptFrames)
{
    Q_EMIT aboutToRead(); // what is being read belongs to the former frames
    announce(theSource->path(), theSource->frameCount());
    theKeptFrames = aKeptFrames;
    theFrame = aFrame;
    LmKSKernelData::getInstance()->theCurrentFrame = quint32(aFrame);
    Q_EMIT frameCountChanged();
}

void Media::setRegion(const QRect& aRegion)
{
    if (!theImage)
        return;
    const QRect region = aRegion.intersected(QRect(QPoint(0, 0), theImage->size()));
    if (region == theRegion || (region.isEmpty() && theRegion.isNull()))
        return;
    theRegion = region.isEmpty() ? QRect() : region;
    theImage->setQRoi(theRegion);
    theEditor.imageCanvas()->showImage(theImage.get());
    placeObjects();
    Q_EMIT regionChanged();
}

/// Puts all objects where they are on the present frame, with their values.
void Media::placeObjects()
{
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    const QList<LmCvManipulator*> tools = kernel->getCvManipulatorList();
    for (LmCvManipulator* tool : tools)
        tool->recreateCanvasObjects(kernel->origin(), theFrame, true);
}

const FrameTimes& Media::times() const
{
    static const FrameTimes kNoTimes;
    return theSource ? theSource->times() : kNoTimes;
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
