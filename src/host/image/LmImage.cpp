#include "LmImage.h"

#include <algorithm>
#include <climits>
#include <new>

LmImage::LmImage(int aWidth, int aHeight, int aChannels, unsigned char* aData, unsigned int aAlign)
{
    const bool channelsKnown = aChannels == 1 || aChannels == 3 || aChannels == 4;
    if (aWidth <= 0 || aHeight <= 0 || !channelsKnown)
        return;
    const qint64 align = std::max(aAlign, 1u);
    const qint64 bytesPerLine = (qint64(aWidth) * aChannels + align - 1) / align * align;
    if (bytesPerLine > INT_MAX || qint64(aWidth) * aHeight > INT_MAX)
        return;
    if (!aData) {
        theOwnData.reset(new (std::nothrow) unsigned char[size_t(bytesPerLine) * size_t(aHeight)]());
        if (!theOwnData)
            return;
    }
    theData = aData ? aData : theOwnData.get();
    theWidth = aWidth;
    theHeight = aHeight;
    theChannels = aChannels;
    theBytesPerLine = int(bytesPerLine);
    theImageSize = aWidth * aHeight;
    setQRoi(QRect());
}

LmImage::~LmImage() = default;

void LmImage::setQRoi(const QRect& aRect)
{
    // Only corners are compared: the width of a rectangle from one end of the number range to the other
    // overflows.
    const bool whole = aRect.isEmpty();
    const int left = whole ? 0 : std::max(0, aRect.left());
    const int top = whole ? 0 : std::max(0, aRect.top());
    const int right = whole ? theWidth - 1 : std::min(theWidth - 1, aRect.right());
    const int bottom = whole ? theHeight - 1 : std::min(theHeight - 1, aRect.bottom());
    const bool outside = left > right || top > bottom;
    theRoiX = outside ? 0 : left;
    theRoiY = outside ? 0 : top;
    theRoiWidth = outside ? 0 : right - left + 1;
    theRoiHeight = outside ? 0 : bottom - top + 1;
}

void LmImage::getDataAt(int aX, int aY, unsigned char& aRed, unsigned char& aGreen, unsigned char& aBlue,
                        unsigned int) const
{
    aRed = aGreen = aBlue = 0;
    if (aX < 0 || aY < 0 || aX >= theWidth || aY >= theHeight)
        return;
    const unsigned char* pixel = row(aY) + qsizetype(aX) * theChannels;
    const bool gray = theChannels == 1;
    aRed = pixel[0];
    aGreen = gray ? pixel[0] : pixel[1];
    aBlue = gray ? pixel[0] : pixel[2];
}
