#include "RegionMeasures.h"

#include "LmImage.h"
#include "LmImageProcessor.h"
#include "PointMath.h"

#include <QPolygon>

#include <algorithm>

namespace {

constexpr int kPartsPerSegment = 10;
constexpr int kValues = 256;
constexpr unsigned int kAlign = 4;
constexpr int kHistogramLimit = 100000;

LmImageProcessor& processor()
{
    return *LmImageProcessor::getInstance(nullptr);
}

LmCVSequence measuringPolygon(const QPolygon& aPoints, bool aClosed)
{
    const QPolygon polygon = processor().divideBezierCurve(aPoints, kPartsPerSegment, aClosed);
    LmCVSequence sequence(int(polygon.size()), 8);
    for (int i = 0; i < sequence.theCount; ++i)
        sequence.putPoint(i, polygon[i].x(), polygon[i].y());
    return sequence;
}

double extent(int aFirst, int aLast)
{
    return double(qint64(aLast) - aFirst + 1);
}

/// Copies a part of an image, whose region of interest is the same afterwards; false without memory.
bool copyPart(LmImage& aImage, const QRect& aPart, LmImage& aCrop)
{
    const int x = aImage.theRoiX;
    const int y = aImage.theRoiY;
    const int width = aImage.theRoiWidth;
    const int height = aImage.theRoiHeight;
    aImage.setQRoi(aPart);
    const bool copied = processor().copy(&aImage, &aCrop);
    aImage.theRoiX = x;
    aImage.theRoiY = y;
    aImage.theRoiWidth = width;
    aImage.theRoiHeight = height;
    return copied;
}

} // namespace

RegionMeasures::RegionMeasures(const QPolygon& aPoints, bool aClosed, const QPoint& aPos)
    : theClosed(aClosed), thePos(aPos), theOutline(measuringPolygon(aPoints, aClosed)),
      theBounds(theOutline.calculateBoundingRect())
{
}

double RegionMeasures::width(double aStep) const
{
    return theClosed ? inUnits(extent(theBounds.left(), theBounds.right()), aStep) : 0.0;
}

double RegionMeasures::height(double aStep) const
{
    return theClosed ? inUnits(extent(theBounds.top(), theBounds.bottom()), aStep) : 0.0;
}

double RegionMeasures::length(double aStep) const
{
    return inUnits(theOutline.calculatePerimeter(theClosed), aStep);
}

double RegionMeasures::area(double aStep) const
{
    return theClosed ? inUnits(theOutline.calculateArea(), aStep * aStep) : 0.0;
}

/// The pixels of the bounding rectangle that the image has, an empty rectangle without any.
QRect RegionMeasures::partIn(const LmImage& aImage) const
{
    const auto from = [](int aFirst, int aOffset) { return std::max<qint64>(qint64(aFirst) + aOffset, 0); };
    const auto to = [](int aLast, int aOffset, int aSize) {
        return std::min<qint64>(qint64(aLast) + aOffset, aSize - 1);
    };
    const qint64 left = from(theBounds.left(), thePos.x());
    const qint64 top = from(theBounds.top(), thePos.y());
    const qint64 right = to(theBounds.right(), thePos.x(), aImage.width());
    const qint64 bottom = to(theBounds.bottom(), thePos.y(), aImage.height());
    if (left > right || top > bottom)
        return QRect();
    return QRect(QPoint(int(left), int(top)), QPoint(int(right), int(bottom)));
}

double RegionMeasures::imageMean(LmImage* aImage, ImageChannel aChannel) const
{
    const QRect part = theClosed && aImage ? partIn(*aImage) : QRect();
    if (part.isEmpty())
        return 0.0;
    LmImage crop(part.width(), part.height(), aImage->channels(), nullptr, kAlign);
    LmImage gray(part.width(), part.height(), 1, nullptr, kAlign);
    if (!copyPart(*aImage, part, crop))
        return 0.0;
    const bool hasColours = crop.channels() >= 3;
    if (hasColours)
        processor().RGBtoHLS(&crop, nullptr);
    processor().copyChannel(&crop, hasColours ? aChannel : 0, &gray, 0);

    LmCVSequence outline = theOutline;
    // From the outline's own coordinates to those of the crop.
    outline.theOffsetX = PointMath::saturated(qint64(thePos.x()) - part.left());
    outline.theOffsetY = PointMath::saturated(qint64(thePos.y()) - part.top());
    unsigned int table[kValues];
    double mean = 0.0;
    processor().createHistogram(table, &mean, &gray, &outline, kHistogramLimit, kValues);
    return mean / 2.55; // 0 to 255 onto percent
}
