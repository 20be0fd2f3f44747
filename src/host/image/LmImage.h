#ifndef LMIMAGE_H
#define LMIMAGE_H

#include <QRect>
#include <QSize>

#include <memory>

/// A picture of 8 bits per channel, channels interleaved in the order red, green, blue, alpha, rows from the
/// top.
///
/// The region of interest is a rectangle in image coordinates; it is the whole picture at first.
class LmImage
{
public:
    /// 1, 3 or 4 channels; every row begins at a multiple of aAlign bytes (0 counts as 1). Null data makes
    /// the image allocate its own zeroed rows; otherwise aData stays the caller's and must outlive the image.
    /// Wrong sizes or channel counts give an image of size 0.
    LmImage(int aWidth, int aHeight, int aChannels, unsigned char* aData, unsigned int aAlign);
    LmImage(const LmImage&) = delete;
    LmImage& operator=(const LmImage&) = delete;
    ~LmImage();

    int width() const { return theWidth; }
    int height() const { return theHeight; }
    QSize size() const { return QSize(theWidth, theHeight); }
    int channels() const { return theChannels; }
    /// Bytes from one row to the next.
    int bytesPerLine() const { return theBytesPerLine; }
    unsigned char* row(int aY) { return theData + qsizetype(aY) * theBytesPerLine; }
    const unsigned char* row(int aY) const { return theData + qsizetype(aY) * theBytesPerLine; }

    /// The part of the rectangle that lies inside the image; a null or empty one gives the whole image.
    void setQRoi(const QRect& aRect);
    QRect qRoi() const { return QRect(theRoiX, theRoiY, theRoiWidth, theRoiHeight); }

    /// The pixel at image coordinates. A gray image gives its value three times; outside the image all are 0.
    /// The last argument is the channel that a one-channel reader wants and has no effect on three-channel
    /// reads.
    void getDataAt(int aX, int aY, unsigned char& aRed, unsigned char& aGreen, unsigned char& aBlue,
                   unsigned int aChannel) const;

    int theRoiX = 0;
    int theRoiY = 0;
    int theRoiWidth = 0;
    int theRoiHeight = 0;
    int theImageSize = 0; // pixels in the image

private:
    int theWidth = 0;
    int theHeight = 0;
    int theChannels = 0;
    int theBytesPerLine = 0;
    std::unique_ptr<unsigned char[]> theOwnData; // null when the data is the caller's
    unsigned char* theData = nullptr;
};

#endif
