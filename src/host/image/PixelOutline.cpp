#include "PixelOutline.h"

#include "LmCVSequence.h"
#include "LmImage.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cstdlib>

namespace {

bool isBefore(const QPoint& aOne, const QPoint& aOther)
{
    return aOne.y() != aOther.y() ? aOne.y() < aOther.y() : aOne.x() < aOther.x();
}

} // namespace

std::vector<PixelOutline> PixelOutlines::of(const BytePlane& aMask)
{
    const cv::Mat mask(aMask.theRows, aMask.theColumns, CV_8U, const_cast<unsigned char*>(aMask.theData),
                       aMask.theStep);
    std::vector<std::vector<cv::Point>> found;
    cv::findContours(mask, found, cv::RETR_EXTERNAL, cv::CHAIN_APPROX_SIMPLE);
    std::vector<PixelOutline> outlines;
    outlines.reserve(found.size());
    for (const std::vector<cv::Point>& points : found) {
        PixelOutline outline;
        outline.reserve(points.size());
        for (const cv::Point& point : points)
            outline.emplace_back(point.x, point.y);
        std::rotate(outline.begin(), std::min_element(outline.begin(), outline.end(), isBefore),
                    outline.end());
        outlines.push_back(std::move(outline));
    }
    std::reverse(outlines.begin(), outlines.end()); // the last found comes first
    return outlines;
}

/// The area of the polygon has half the pixels on its steps and all but one of those inside.
long long PixelOutlines::pixelCount(const PixelOutline& aOutline)
{
    long long cross = 0;
    long long steps = 0;
    for (size_t i = 0; i < aOutline.size(); ++i) {
        const QPoint here = aOutline[i];
        const QPoint next = aOutline[i + 1 < aOutline.size() ? i + 1 : 0];
        cross += qint64(here.x()) * next.y() - qint64(next.x()) * here.y();
        steps += std::max(std::abs(next.x() - here.x()), std::abs(next.y() - here.y()));
    }
    return (std::abs(cross) + steps) / 2 + 1;
}

QRect PixelOutlines::boundingRect(const PixelOutline& aOutline)
{
    QPoint least = aOutline.front();
    QPoint greatest = least;
    for (const QPoint& point : aOutline) {
        least = QPoint(std::min(least.x(), point.x()), std::min(least.y(), point.y()));
        greatest = QPoint(std::max(greatest.x(), point.x()), std::max(greatest.y(), point.y()));
    }
    return QRect(least, greatest);
}

LmCVSequence PixelOutlines::sequence(const PixelOutline& aOutline, const LmImage& aImage)
{
    LmCVSequence sequence(int(aOutline.size()), int(sizeof(cv::Point)));
    for (int i = 0; i < sequence.theCount; ++i)
        sequence.putPoint(i, aOutline[size_t(i)].x(), aOutline[size_t(i)].y());
    sequence.theOffsetX = aImage.theRoiX;
    sequence.theOffsetY = aImage.theRoiY;
    sequence.theCoG = sequence.calculateCoG();
    return sequence;
}
