// Outlines of what is seen in a picture.
#include "LmImageProcessor.h"

#include "ImageRegion.h"
#include "LmCVSequence.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace {

using Outline = std::vector<cv::Point>;

/// The region of a gray image as OpenCV sees it, on the same bytes, which are only read.
cv::Mat regionMat(const LmImage& aImage)
{
    auto* data = const_cast<unsigned char*>(ImageRegion::row(aImage, 0));
    return cv::Mat(aImage.theRoiHeight, aImage.theRoiWidth, CV_8UC(aImage.channels()), data,
                   size_t(aImage.bytesPerLine()));
}

LmCVSequence sequenceOf(const Outline& aOutline, const LmImage& aImage)
{
    LmCVSequence sequence(int(aOutline.size()), int(sizeof(cv::Point)));
    for (int i = 0; i < sequence.theCount; ++i)
        sequence.putPoint(i, aOutline[size_t(i)].x, aOutline[size_t(i)].y);
    sequence.theOffsetX = aImage.theRoiX;
    sequence.theOffsetY = aImage.theRoiY;
    sequence.theCoG = sequence.calculateCoG();
    return sequence;
}

std::vector<Outline> outlinesOf(const cv::Mat& aMask)
{
    std::vector<Outline> outlines;
    cv::findContours(aMask, outlines, cv::RETR_EXTERNAL, cv::CHAIN_APPROX_SIMPLE);
    return outlines;
}

/// The pixels on and in an outline: its shoelace area, half its steps and one.
qint64 pixelsIn(const Outline& aOutline)
{
    qint64 twice = 2;
    qint64 cross = 0;
    for (size_t i = 0; i < aOutline.size(); ++i) {
        const cv::Point here = aOutline[i];
        const cv::Point next = aOutline[i + 1 < aOutline.size() ? i + 1 : 0];
        cross += qint64(here.x) * next.y - qint64(next.x) * here.y;
        twice += std::max(std::abs(next.x - here.x), std::abs(next.y - here.y));
    }
    return (twice + std::abs(cross)) / 2;
}

bool isCancelled(const std::atomic_bool* aCancel)
{
    return aCancel && aCancel->load();
}

} // namespace

bool LmImageProcessor::findContourSeq(QLinkedList<LmCVSequence>& aList, const LmImage* aGray, int aMinArea,
                                      int aMaxArea, bool, bool, const std::atomic_bool* aCancel)
{
    aList.clear();
    if (!aGray || aGray->channels() != 1 || ImageRegion::isEmpty(*aGray))
        return reject("findContourSeq: the image isn't a gray one with a region");
    const cv::Mat region = regionMat(*aGray);
    double least = 0.0;
    double greatest = 0.0;
    cv::minMaxLoc(region, &least, &greatest);
    if (least == greatest)
        return true;
    cv::Mat mask;
    cv::threshold(region, mask, 0.0, 255.0, cv::THRESH_BINARY | cv::THRESH_OTSU);
    if (2 * qint64(cv::countNonZero(mask)) > qint64(mask.total()))
        cv::bitwise_not(mask, mask);
    std::vector<Outline> outlines = outlinesOf(mask);
    std::reverse(outlines.begin(), outlines.end());
    if (isCancelled(aCancel))
        return false;
    for (const Outline& outline : outlines)
        if (const qint64 pixels = pixelsIn(outline); pixels >= aMinArea && pixels <= aMaxArea)
            aList.append(sequenceOf(outline, *aGray));
    return true;
}

bool LmImageProcessor::findContourAt(LmCVSequence& aContour, const LmImage* aImage, QPoint aSeed,
                                     const int aLower[3], const int aUpper[3],
                                     const std::atomic_bool* aCancel)
{
    if (!aImage || !aImage->qRoi().contains(aSeed))
        return reject("findContourAt: the seed lies outside the image's region");
    const cv::Mat region = regionMat(*aImage);
    const cv::Point seed(aSeed.x() - aImage->theRoiX, aSeed.y() - aImage->theRoiY);
    unsigned char colour[3];
    aImage->getDataAt(aSeed.x(), aSeed.y(), colour[0], colour[1], colour[2], 0);
    cv::Scalar low(0.0, 0.0, 0.0, 0.0);
    cv::Scalar high(255.0, 255.0, 255.0, 255.0);
    for (int i = 0; i < 3; ++i) {
        const int channel = region.channels() == 1 ? 0 : i;
        low[channel] = std::max(low[channel], double(colour[i]) - std::max(aLower[i], 0));
        high[channel] = std::min(high[channel], double(colour[i]) + std::max(aUpper[i], 0));
    }
    cv::Mat within;
    cv::inRange(region, low, high, within);
    constexpr unsigned char kArea = 128;
    cv::floodFill(within, seed, kArea);
    cv::compare(within, kArea, within, cv::CMP_EQ);
    if (isCancelled(aCancel))
        return false;
    const std::vector<Outline> outlines = outlinesOf(within);
    if (!outlines.empty())
        aContour = sequenceOf(outlines.front(), *aImage);
    return !outlines.empty();
}
