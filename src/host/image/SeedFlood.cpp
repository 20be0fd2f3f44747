#include "SeedFlood.h"

#include "DeviationCounter.h"
#include "ImageRegion.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>

namespace {

constexpr unsigned char kIn = 255;

// Radii in pixels, for the grain of photographs: pores of up to four pixels let the flood through, bays of up
// to twelve are closed, threads of up to four are cut.
constexpr int kPore = 2;
constexpr int kBay = 6;
constexpr int kThread = 2;
constexpr int kMargin = kPore + kBay + 1; // so that no step sees the end of its field

cv::Mat within(const LmImage& aImage, const SeedFlood::Limits& aLimits)
{
    auto* data = const_cast<unsigned char*>(ImageRegion::row(aImage, 0)); // only read
    const cv::Mat region(aImage.theRoiHeight, aImage.theRoiWidth, CV_8UC(aImage.channels()), data,
                         size_t(aImage.bytesPerLine()));
    cv::Scalar least = cv::Scalar::all(0.0);
    cv::Scalar greatest = cv::Scalar::all(255.0);
    for (int i = 0; i < std::min(3, aImage.channels()); ++i) {
        least[i] = aLimits.theLeast[size_t(i)];
        greatest[i] = aLimits.theGreatest[size_t(i)];
    }
    cv::Mat mask;
    cv::inRange(region, least, greatest, mask);
    return mask;
}

/// Keeps the set pixels that are connected to the seed, which is one of them; gives the rectangle around
/// them.
cv::Rect keepConnected(cv::Mat& aMask, const cv::Point& aSeed)
{
    constexpr unsigned char kKept = 128;
    cv::Rect box;
    cv::floodFill(aMask, aSeed, kKept, &box);
    cv::compare(aMask, kKept, aMask, cv::CMP_EQ);
    return box;
}

void fillHoles(cv::Mat& aMask)
{
    std::vector<std::vector<cv::Point>> outlines;
    cv::findContours(aMask, outlines, cv::RETR_EXTERNAL, cv::CHAIN_APPROX_SIMPLE);
    cv::fillPoly(aMask, outlines, kIn);
}

cv::Mat disc(int aRadius)
{
    return cv::getStructuringElement(cv::MORPH_ELLIPSE, cv::Size(2 * aRadius + 1, 2 * aRadius + 1));
}

/// The part of a mask in a rectangle with the margin around it, empty where the mask ends.
cv::Mat withMargin(const cv::Mat& aMask, const cv::Rect& aBox)
{
    const cv::Rect wide = aBox + cv::Size(2 * kMargin, 2 * kMargin) - cv::Point(kMargin, kMargin);
    const cv::Rect inside = wide & cv::Rect(0, 0, aMask.cols, aMask.rows);
    cv::Mat part;
    cv::copyMakeBorder(aMask(inside), part, inside.y - wide.y, wide.br().y - inside.br().y, inside.x - wide.x,
                       wide.br().x - inside.br().x, cv::BORDER_CONSTANT | cv::BORDER_ISOLATED, 0);
    return part;
}

/// How much the area's neighbouring pixels vary beyond even slopes, in the channel that varies most.
double textureOf(const LmImage& aImage, const cv::Mat& aArea, const cv::Rect& aBox)
{
    double texture = 0.0;
    const int channels = aImage.channels();
    for (int channel = 0; channel < std::min(channels, 3); ++channel) {
        DeviationCounter counter;
        for (int y = aBox.y; y < aBox.br().y; ++y) {
            const unsigned char* area = aArea.ptr(y);
            const unsigned char* value = ImageRegion::row(aImage, y) + channel;
            for (qsizetype x = aBox.x + 1; x + 1 < aBox.br().x; ++x)
                if (area[x - 1] && area[x] && area[x + 1])
                    counter.add(value[(x - 1) * channels] - 2 * value[x * channels] +
                                value[(x + 1) * channels]);
        }
        texture = std::max(texture, counter.sigma() / DeviationCounter::kSecondDifference);
    }
    return texture;
}

/// Whether texture breaks the area up: small gaps are a good part of it.
bool isBroken(const LmImage& aImage, const cv::Mat& aArea, const cv::Rect& aBox)
{
    constexpr double kCleanTexture = 1.5; // gray levels; below it a picture is drawn or free of grain
    constexpr double kCompact = 0.95;
    if (textureOf(aImage, aArea, aBox) < kCleanTexture)
        return false;
    cv::Mat closed = withMargin(aArea, aBox);
    cv::morphologyEx(closed, closed, cv::MORPH_CLOSE, disc(kPore));
    fillHoles(closed);
    return cv::countNonZero(aArea(aBox)) < kCompact * cv::countNonZero(closed);
}

/// The set pixel nearest to a place, or the place itself if none lies near.
cv::Point nearestSet(const cv::Mat& aMask, const cv::Point& aPlace)
{
    cv::Point nearest = aPlace;
    int least = kBay * kBay + 1;
    const cv::Rect around(aPlace.x - kBay, aPlace.y - kBay, 2 * kBay + 1, 2 * kBay + 1);
    const cv::Rect near = around & cv::Rect(0, 0, aMask.cols, aMask.rows);
    for (int y = near.y; y < near.br().y; ++y)
        for (int x = near.x; x < near.br().x; ++x) {
            const cv::Point way = cv::Point(x, y) - aPlace;
            if (aMask.ptr(y)[x] && way.dot(way) < least) {
                least = way.dot(way);
                nearest = cv::Point(x, y);
            }
        }
    return nearest;
}

/// Part of a region's mask.
struct Part
{
    cv::Mat theMask;
    cv::Point theCorner;
};

/// The connected area with its gaps closed; an empty mask if nothing but threads is left.
Part smoothed(const cv::Mat& aWithin, const cv::Point& aSeed)
{
    cv::Mat mask;
    cv::dilate(aWithin, mask, disc(kPore));
    const cv::Rect box = keepConnected(mask, aSeed);
    const cv::Point corner = box.tl() - cv::Point(kMargin, kMargin);
    // Once more with room around it: at the region's edge the area is closed as if it went on outside.
    mask = withMargin(aWithin, box);
    cv::dilate(mask, mask, disc(kPore));
    keepConnected(mask, aSeed - corner);
    fillHoles(mask);
    cv::erode(mask, mask, disc(kPore));
    cv::morphologyEx(mask, mask, cv::MORPH_CLOSE, disc(kBay));
    fillHoles(mask);
    cv::morphologyEx(mask, mask, cv::MORPH_OPEN, disc(kThread));
    mask = mask(cv::Rect(-corner, aWithin.size()) & cv::Rect(cv::Point(), mask.size())).clone();
    const Part part{mask, cv::Point(std::max(0, corner.x), std::max(0, corner.y))};
    const cv::Point seed = aSeed - part.theCorner;
    const cv::Point start = nearestSet(mask, seed);
    if (!mask.ptr(start.y)[start.x])
        return {};
    cv::line(mask, start, seed, kIn, 1, cv::LINE_4);
    keepConnected(mask, seed);
    return part;
}

} // namespace

PixelOutline SeedFlood::outline(const LmImage& aImage, const QPoint& aSeed, const Limits& aLimits)
{
    const cv::Point seed(aSeed.x() - aImage.theRoiX, aSeed.y() - aImage.theRoiY);
    const cv::Mat mask = within(aImage, aLimits);
    cv::Mat area = mask.clone();
    const cv::Rect box = keepConnected(area, seed);
    Part part;
    if (isBroken(aImage, area, box))
        part = smoothed(mask, seed);
    if (part.theMask.empty())
        part = {area(box), box.tl()};
    PixelOutline found =
        PixelOutlines::of({part.theMask.data, part.theMask.cols, part.theMask.rows, part.theMask.step})
            .front();
    for (QPoint& point : found)
        point += QPoint(part.theCorner.x, part.theCorner.y);
    return found;
}
