#include "TouchingObjects.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cmath>

namespace {

// A neck is narrow if it is at most this part as wide as the narrower of the two things that it joins.
constexpr float kNarrow = 0.6f;
// Half widths in pixels; a thinner thing has steps in its border as high as itself.
constexpr float kLeastHalfWidth = 2.5f;
// A bridge that keeps the middles of two things farther apart than this many half widths of theirs is more
// than a place where they touch.
constexpr double kFarthest = 2.0;

std::vector<cv::Point> cvPoints(const PixelOutline& aOutline)
{
    std::vector<cv::Point> points;
    points.reserve(aOutline.size());
    for (const QPoint& point : aOutline)
        points.emplace_back(point.x(), point.y());
    return points;
}

/// Whether the outline is longer than that of one round thing: a disc has 1, two discs at the widest
/// neck 1.33.
bool isLong(const PixelOutline& aOutline, double aPixels)
{
    constexpr double kLong = 1.2;
    double length = 0.0;
    for (size_t i = 0; i < aOutline.size(); ++i) {
        const QPoint way = aOutline[i] - aOutline[i > 0 ? i - 1 : aOutline.size() - 1];
        length += std::hypot(double(way.x()), double(way.y()));
    }
    return length * length > kLong * 4.0 * CV_PI * aPixels;
}

/// Whether the outline has bays deep enough for a neck; the most are convex and need no closer look.
bool hasBays(const PixelOutline& aOutline)
{
    const double pixels = double(PixelOutlines::pixelCount(aOutline));
    if (!isLong(aOutline, pixels))
        return false;
    std::vector<cv::Point> hull;
    cv::convexHull(cvPoints(aOutline), hull);
    PixelOutline hullOutline;
    for (const cv::Point& point : hull)
        hullOutline.emplace_back(point.x, point.y);
    constexpr double kNearlyConvex = 0.96;
    return pixels < kNearlyConvex * double(PixelOutlines::pixelCount(hullOutline));
}

/// Pixels are taken from the farthest from the border to the nearest; the basins that meet at a narrow neck
/// stay apart and all others become one.
class Basins
{
public:
    explicit Basins(const cv::Mat& aDepth) : theDepth(aDepth), theParents(aDepth.total(), -1)
    {
        std::vector<int> order;
        for (int i = 0; i < int(theParents.size()); ++i)
            if (depth(i) > 0.0f)
                order.push_back(i);
        std::stable_sort(order.begin(), order.end(),
                         [this](int aOne, int aOther) { return depth(aOne) > depth(aOther); });
        for (const int pixel : order)
            take(pixel);
    }

    /// The basin of a pixel, named by its deepest pixel, or -1.
    int basinOf(int aPixel)
    {
        if (theParents[size_t(aPixel)] < 0)
            return -1;
        int root = aPixel;
        while (theParents[size_t(root)] != root)
            root = theParents[size_t(root)];
        while (theParents[size_t(aPixel)] != root) {
            const int next = theParents[size_t(aPixel)];
            theParents[size_t(aPixel)] = root;
            aPixel = next;
        }
        return root;
    }

private:
    float depth(int aPixel) const { return theDepth.ptr<float>()[aPixel]; }

    void take(int aPixel)
    {
        theParents[size_t(aPixel)] = aPixel;
        const cv::Point place = placeOf(aPixel);
        int mine = -1;
        float deepest = 0.0f; // uphill is the way to the thing that the pixel belongs to
        for (int dy = -1; dy <= 1; ++dy)
            for (int dx = -1; dx <= 1; ++dx) {
                const int there = pixelAt(place.x + dx, place.y + dy);
                if (there < 0 || there == aPixel || theParents[size_t(there)] < 0)
                    continue;
                const int basin = basinOf(there);
                if (mine >= 0)
                    join(mine, basin, depth(aPixel));
                if (depth(there) > deepest) {
                    deepest = depth(there);
                    mine = basin;
                }
            }
        if (mine >= 0)
            theParents[size_t(aPixel)] = basinOf(mine);
    }

    cv::Point placeOf(int aPixel) const { return cv::Point(aPixel % theDepth.cols, aPixel / theDepth.cols); }

    int pixelAt(int aX, int aY) const
    {
        const bool inside = aX >= 0 && aY >= 0 && aX < theDepth.cols && aY < theDepth.rows;
        return inside ? aY * theDepth.cols + aX : -1;
    }

    /// Makes one of two basins that meet at a pixel, unless that is a narrow neck.
    void join(int aOne, int aOther, float aNeck)
    {
        const int one = basinOf(aOne);
        const int other = basinOf(aOther);
        if (one == other || isNeck(one, other, aNeck))
            return;
        const bool deeper = depth(one) >= depth(other);
        theParents[size_t(deeper ? other : one)] = deeper ? one : other;
    }

    bool isNeck(int aOne, int aOther, float aNeck) const
    {
        const float narrower = std::min(depth(aOne), depth(aOther));
        if (narrower < kLeastHalfWidth || aNeck > kNarrow * narrower)
            return false;
        const cv::Point way = placeOf(aOne) - placeOf(aOther);
        return std::hypot(double(way.x), double(way.y)) <= kFarthest * double(depth(aOne) + depth(aOther));
    }

    const cv::Mat& theDepth;
    std::vector<int> theParents; // -1 for what wasn't taken
};

struct Part
{
    int theBasin;
    cv::Rect theBox;
};

std::vector<PixelOutline> partsOf(Basins aBasins, cv::Mat& aMask, const QPoint& aCorner,
                                  const PixelOutline& aWhole)
{
    std::vector<Part> parts;
    std::vector<int> numbers(aMask.total(), -1); // by the basin's name
    const auto forEachPixel = [&](auto aAct) {
        for (int y = 0; y < aMask.rows; ++y)
            for (int x = 0; x < aMask.cols; ++x)
                if (const int basin = aBasins.basinOf(y * aMask.cols + x); basin >= 0)
                    aAct(x, y, basin);
    };
    forEachPixel([&](int aX, int aY, int aBasin) {
        int& number = numbers[size_t(aBasin)];
        if (number < 0) {
            number = int(parts.size());
            parts.push_back({aBasin, cv::Rect()});
        }
        parts[size_t(number)].theBox |= cv::Rect(aX, aY, 1, 1);
    });
    if (parts.size() < 2)
        return {aWhole};
    std::vector<PixelOutline> outlines;
    for (const Part& part : parts) {
        cv::Mat mask(part.theBox.size(), CV_8U);
        for (int y = 0; y < mask.rows; ++y)
            for (int x = 0; x < mask.cols; ++x) {
                const int pixel = (y + part.theBox.y) * aMask.cols + x + part.theBox.x;
                mask.ptr(y)[x] = aBasins.basinOf(pixel) == part.theBasin ? 255 : 0;
            }
        for (PixelOutline& outline : PixelOutlines::of({mask.data, mask.cols, mask.rows, mask.step})) {
            for (QPoint& point : outline)
                point += aCorner + QPoint(part.theBox.x, part.theBox.y);
            outlines.push_back(std::move(outline));
        }
    }
    return outlines;
}

} // namespace

std::vector<PixelOutline> TouchingObjects::separated(const PixelOutline& aOutline, const QSize& aField)
{
    if (!hasBays(aOutline))
        return {aOutline};
    // Threads that wind through a large box have no wide places, and would cost a look at all of the box
    // each.
    const QRect box = PixelOutlines::boundingRect(aOutline).adjusted(-1, -1, 1, 1) & QRect(QPoint(), aField);
    constexpr long long kSparse = 32;
    if (qint64(box.width()) * box.height() > kSparse * PixelOutlines::pixelCount(aOutline))
        return {aOutline};
    // The box has a pixel of ground around the object, but not where the object goes on outside.
    cv::Mat mask = cv::Mat::zeros(box.height(), box.width(), CV_8U);
    cv::fillPoly(mask, std::vector<std::vector<cv::Point>>{cvPoints(aOutline)}, 255, cv::LINE_8, 0,
                 cv::Point(-box.x(), -box.y()));
    cv::Mat depth;
    cv::distanceTransform(mask, depth, cv::DIST_L2, cv::DIST_MASK_PRECISE);
    return partsOf(Basins(depth), mask, box.topLeft(), aOutline);
}
