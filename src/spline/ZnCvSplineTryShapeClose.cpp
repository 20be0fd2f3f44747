#include "ZnCvSplineTryShape.h"

#include "OutlineNodes.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace {

constexpr int kNearEnds = 15;         // pixels
constexpr float kPassingRatio = 1.4F; // of the way over the end point to the straight way

bool areNear(const QPoint& aFirst, const QPoint& aSecond)
{
    const qint64 dx = std::abs(qint64(aSecond.x()) - aFirst.x());
    const qint64 dy = std::abs(qint64(aSecond.y()) - aFirst.y());
    // Compared one by one first, since the squares of the longest ways are beyond 64 bits.
    return dx <= kNearEnds && dy <= kNearEnds && dx * dx + dy * dy <= kNearEnds * kNearEnds;
}

float length(const QPoint& aFrom, const QPoint& aTo)
{
    return float(OutlineNodes::manhattanLength(aFrom, aTo));
}

/// Some consecutive anchors of the stroke and the box around them. Whole runs that lie too far apart are
/// passed over, since comparing each of the first anchors with each of the last takes seconds in a long
/// stroke.
class Run
{
public:
    explicit Run(const QPoint& aFirst) : theLeast(aFirst), theMost(aFirst) { append(aFirst); }

    static constexpr std::size_t kLength = 64;

    void append(const QPoint& aAnchor)
    {
        theAnchors.push_back(aAnchor);
        theLeast = QPoint(std::min(theLeast.x(), aAnchor.x()), std::min(theLeast.y(), aAnchor.y()));
        theMost = QPoint(std::max(theMost.x(), aAnchor.x()), std::max(theMost.y(), aAnchor.y()));
    }
    const std::vector<QPoint>& anchors() const { return theAnchors; }

    /// The two nearest points of both boxes; an edge that they share is any point on it.
    static std::pair<QPoint, QPoint> nearest(const Run& a, const Run& b)
    {
        const auto pair = [](int aLow, int aHigh, int bLow, int bHigh) {
            if (aHigh < bLow)
                return std::pair(aHigh, bLow);
            if (bHigh < aLow)
                return std::pair(aLow, bHigh);
            return std::pair(std::max(aLow, bLow), std::max(aLow, bLow));
        };
        const auto x = pair(a.theLeast.x(), a.theMost.x(), b.theLeast.x(), b.theMost.x());
        const auto y = pair(a.theLeast.y(), a.theMost.y(), b.theLeast.y(), b.theMost.y());
        return {QPoint(x.first, y.first), QPoint(x.second, y.second)};
    }

private:
    std::vector<QPoint> theAnchors;
    QPoint theLeast;
    QPoint theMost;
};

using Runs = std::vector<Run>;

/// The anchors of aCount nodes from aFirst on, forward or backward.
Runs runsFrom(const LmCvRegion& aRegion, int aFirst, int aCount, int aStep)
{
    Runs runs;
    for (int i = 0; i < aCount; ++i) {
        const QPoint anchor = OutlineNodes::anchor(aRegion, aFirst + aStep * i);
        if (runs.empty() || runs.back().anchors().size() == Run::kLength)
            runs.emplace_back(anchor);
        else
            runs.back().append(anchor);
    }
    return runs;
}

bool haveNearPair(const Run& aEnd, const Run& aStart)
{
    const auto [inEnd, inStart] = Run::nearest(aEnd, aStart);
    if (!areNear(inEnd, inStart))
        return false;
    for (const QPoint& end : aEnd.anchors())
        for (const QPoint& start : aStart.anchors())
            if (areNear(end, start))
                return true;
    return false;
}

/// Whether an end lies beside a way from the start to a later anchor, given that way's length. Where that
/// length is 0 the ratio is infinite, or no number, and doesn't count.
bool isPassing(float aFromStart, float aToLater, float aWay)
{
    return (aFromStart + aToLater) / aWay <= kPassingRatio;
}

bool havePassingPair(const Run& aEnd, const Run& aLater, const Run& aStart)
{
    const QPoint start = aStart.anchors().front();
    float longestWay = 0.0F;
    for (const QPoint& later : aLater.anchors())
        longestWay = std::max(longestWay, length(start, later));
    // No pair has a smaller ratio than this, as every step of the computation keeps the order of numbers. A
    // run that never leaves the start passes nothing.
    const auto [inEnd, inLater] = Run::nearest(aEnd, aLater);
    const auto [toStart, atStart] = Run::nearest(aEnd, aStart);
    if (!isPassing(length(toStart, atStart), length(inEnd, inLater), longestWay))
        return false;
    for (const QPoint& end : aEnd.anchors())
        for (const QPoint& later : aLater.anchors())
            if (isPassing(length(start, end), length(later, end), length(start, later)))
                return true;
    return false;
}

template <typename Test>
bool anyPair(const Runs& aEnds, const Runs& aStarts, Test aTest)
{
    return std::any_of(aEnds.begin(), aEnds.end(), [&](const Run& aEnd) {
        return std::any_of(aStarts.begin(), aStarts.end(),
                           [&](const Run& aStart) { return aTest(aEnd, aStart); });
    });
}

} // namespace

bool ZnCvSplineTryShape::checkIfClose(LmCvRegion* aRegion, int aNodeCount)
{
    const int examined = aNodeCount / 10 == 0 ? 1 : aNodeCount / 10;
    const Runs ends = runsFrom(*aRegion, aNodeCount - 1, examined, -1);
    if (anyPair(ends, runsFrom(*aRegion, 0, examined, 1), haveNearPair))
        return true;
    // An end that comes to lie beside the first stretch counts too, so the start is compared with the anchors
    // behind it, one farther than above.
    const Run start(OutlineNodes::anchor(*aRegion, 0));
    return anyPair(ends, runsFrom(*aRegion, 1, examined, 1),
                   [&](const Run& aEnd, const Run& aLater) { return havePassingPair(aEnd, aLater, start); });
}
