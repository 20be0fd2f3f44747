#include "LmImageProcessor.h"

#include "ImageRegion.h"

#include <cstring>

namespace {

/// BT.601 in whole thousandths, so that every result is the exactly rounded one.
unsigned char luma(const unsigned char* aPixel)
{
    return static_cast<unsigned char>((299 * aPixel[0] + 587 * aPixel[1] + 114 * aPixel[2] + 500) / 1000);
}

/// The source's region into the top left corner of the target's, which has as many channels.
void copyRows(const LmImage& aSource, LmImage& aTarget)
{
    const size_t bytes = size_t(aSource.theRoiWidth) * size_t(aSource.channels());
    // Source and target may be the same rows, so memmove.
    for (int y = 0; y < aSource.theRoiHeight; ++y)
        std::memmove(ImageRegion::row(aTarget, y), ImageRegion::row(aSource, y), bytes);
}

} // namespace

LmImageProcessor* LmImageProcessor::getInstance(void (*aLog)(const QString&))
{
    static LmImageProcessor processor;
    if (aLog && !processor.theLog)
        processor.theLog = aLog;
    return &processor;
}

bool LmImageProcessor::reject(const char* aWhat) const
{
    if (theLog)
        theLog(QString::fromLatin1(aWhat));
    return false;
}

bool LmImageProcessor::copy(const LmImage* aSource, LmImage* aTarget)
{
    if (!aSource || !aTarget || !ImageRegion::sameSize(*aSource, *aTarget) ||
        aSource->channels() != aTarget->channels())
        return reject("copy: the regions or channels of the two images differ");
    copyRows(*aSource, *aTarget);
    return true;
}

bool LmImageProcessor::copyChannel(const LmImage* aSource, int aSourceChannel, LmImage* aTarget,
                                   int aTargetChannel)
{
    if (!aSource || !aTarget || !ImageRegion::sameSize(*aSource, *aTarget))
        return reject("copyChannel: the regions of the two images differ");
    if (aSourceChannel < 0 || aSourceChannel >= aSource->channels() || aTargetChannel < 0 ||
        aTargetChannel >= aTarget->channels())
        return reject("copyChannel: an image has no such channel");
    // Bytes may alias anything, so what the inner loop needs is read before it.
    const qsizetype width = aSource->theRoiWidth;
    const int fromStep = aSource->channels();
    const int toStep = aTarget->channels();
    for (int y = 0; y < aSource->theRoiHeight; ++y) {
        const unsigned char* from = ImageRegion::row(*aSource, y) + aSourceChannel;
        unsigned char* to = ImageRegion::row(*aTarget, y) + aTargetChannel;
        for (qsizetype x = 0; x < width; ++x)
            to[x * toStep] = from[x * fromStep];
    }
    return true;
}

bool LmImageProcessor::RGBtoGrayscale(const LmImage* aSource, LmImage* aTarget)
{
    if (!aSource || !aTarget || !ImageRegion::fits(*aSource, *aTarget) || aTarget->channels() != 1)
        return reject("RGBtoGrayscale: the target isn't a gray image with a region that has room");
    if (aSource->channels() == 1) {
        copyRows(*aSource, *aTarget);
        return true;
    }
    for (int y = 0; y < aSource->theRoiHeight; ++y) {
        const unsigned char* from = ImageRegion::row(*aSource, y);
        unsigned char* to = ImageRegion::row(*aTarget, y);
        for (int x = 0; x < aSource->theRoiWidth; ++x)
            to[x] = luma(from + qsizetype(x) * aSource->channels());
    }
    return true;
}
