#include "OutlineDeviation.h"

#include "BezierTerms.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace {

constexpr double kFlatness = 0.01; // pixels that a flattened segment may lie off its curve
constexpr double kMostPieces = 256.0;

Point2D toPoint2D(const QPoint& aPoint)
{
    return {double(aPoint.x()), double(aPoint.y())};
}

double distanceSqToPiece(const Point2D& aPoint, const Point2D& aStart, const Point2D& aEnd)
{
    const Point2D along = aEnd - aStart;
    const Point2D toPoint = aPoint - aStart;
    const double lengthSq = dot(along, along);
    if (lengthSq == 0.0)
        return dot(toPoint, toPoint);
    const double share = std::clamp(dot(toPoint, along) / lengthSq, 0.0, 1.0);
    return BezierTerms::lensq(toPoint - share * along);
}

/// A flattened cubic with the box around its control points.
class FlatSegment
{
public:
    explicit FlatSegment(const Point2D* aCubic) : theMin(aCubic[0]), theMax(aCubic[0])
    {
        for (int i = 1; i < 4; ++i) {
            theMin = {std::min(theMin.x, aCubic[i].x), std::min(theMin.y, aCubic[i].y)};
            theMax = {std::max(theMax.x, aCubic[i].x), std::max(theMax.y, aCubic[i].y)};
        }
        const int pieces = pieceCount(aCubic);
        for (int i = 0; i <= pieces; ++i)
            thePoints.push_back(BezierTerms::cubicPoint(aCubic, double(i) / double(pieces)));
    }

    /// The square of the distance, or aBest when that is less.
    double nearerOf(double aBest, const Point2D& aPoint) const
    {
        if (distanceSqToBox(aPoint) >= aBest)
            return aBest;
        for (std::size_t i = 1; i < thePoints.size(); ++i)
            aBest = std::min(aBest, distanceSqToPiece(aPoint, thePoints[i - 1], thePoints[i]));
        return aBest;
    }

private:
    // Equal steps of the parameter, as many as the curve's second derivative asks for.
    static int pieceCount(const Point2D* aCubic)
    {
        const Point2D first = aCubic[0] - 2.0 * aCubic[1] + aCubic[2];
        const Point2D second = aCubic[1] - 2.0 * aCubic[2] + aCubic[3];
        const double bend = 6.0 * std::max(lenPower(first), lenPower(second));
        return int(std::clamp(std::ceil(std::sqrt(bend / (8.0 * kFlatness))), 1.0, kMostPieces));
    }

    double distanceSqToBox(const Point2D& aPoint) const
    {
        const Point2D nearest(std::clamp(aPoint.x, theMin.x, theMax.x),
                              std::clamp(aPoint.y, theMin.y, theMax.y));
        return BezierTerms::lensq(aPoint - nearest);
    }

    Point2D theMin;
    Point2D theMax;
    std::vector<Point2D> thePoints;
};

std::vector<FlatSegment> flatten(const Q3PointArray& aOutlinePoints, bool aClosed)
{
    const int nodes = int(aOutlinePoints.size() / 3);
    const int count = aClosed ? nodes : nodes - 1;
    std::vector<FlatSegment> segments;
    segments.reserve(std::size_t(std::max(count, 1)));
    for (int i = 0; i < count; ++i) {
        Point2D cubic[4];
        for (int k = 0; k < 4; ++k)
            cubic[k] = toPoint2D(aOutlinePoints[(3 * i + 1 + k) % (3 * nodes)]);
        segments.emplace_back(cubic);
    }
    if (segments.empty()) { // a single anchor
        const Point2D anchor = toPoint2D(aOutlinePoints[1]);
        const Point2D cubic[4] = {anchor, anchor, anchor, anchor};
        segments.emplace_back(cubic);
    }
    return segments;
}

/// The square of the distance to the nearest segment, whose index takes the place of aNearest. The search
/// goes outwards from the segment of aNearest, where the sample before was, and ends early at aEnough:
/// whatever is found then is no greater.
double nearestSq(const Point2D& aSample, const std::vector<FlatSegment>& aSegments, int& aNearest,
                 double aEnough)
{
    const int count = int(aSegments.size());
    const int start = aNearest;
    double best = aSegments[std::size_t(start)].nearerOf(std::numeric_limits<double>::infinity(), aSample);
    for (int step = 1; step < count && best > aEnough; ++step) {
        for (const int index : {start + step, start - step}) {
            if (index < 0 || index >= count)
                continue;
            const double distanceSq = aSegments[std::size_t(index)].nearerOf(best, aSample);
            if (distanceSq < best) {
                best = distanceSq;
                aNearest = index;
            }
        }
    }
    return best;
}

} // namespace

double OutlineDeviation::largest(const Q3PointArray& aSamples, const Q3PointArray& aOutlinePoints,
                                 bool aClosed)
{
    if (aOutlinePoints.size() < 3)
        return 0.0;
    const std::vector<FlatSegment> segments = flatten(aOutlinePoints, aClosed);
    double largestSq = 0.0;
    int nearest = 0;
    for (const QPoint& sample : aSamples)
        largestSq = std::max(largestSq, nearestSq(toPoint2D(sample), segments, nearest, largestSq));
    return std::sqrt(largestSq);
}
