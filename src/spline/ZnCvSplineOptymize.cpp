#include "ZnCvSplineOptymize.h"

#include "OutlineNodes.h"
#include "PointMath.h"
#include "SplineOptymizeInternal.h"

#include <cstdio>
#include <vector>

namespace {

constexpr int kPerNode = LmBezierPoint::kPointCount;
constexpr int kPerSegment = 4;
constexpr int kFewestFitted = 4; // nodes; a shorter outline stays the polygon that it is

/// Drops the crowded nodes of an outline: a node goes when its two neighbours are close to each other.
///
/// As many steps are made as there were nodes before, each on the outline as the last one left it and each
/// one node on, also after a removal. So the node that moves into a gap is never asked itself, and the steps
/// past the end of the shrunk outline compare with nodes at (0, 0), which costs an outline that ends near the
/// canvas origin its last nodes.
void thin(LmCvRegion& aRegion, float aNeighbourDistance)
{
    const int count = aRegion.nodeCount();
    for (int i = 2; i < count; ++i) {
        const int length = OutlineNodes::manhattanLength(OutlineNodes::anchor(aRegion, i - 2),
                                                         OutlineNodes::anchor(aRegion, i));
        if (float(length) <= aNeighbourDistance)
            aRegion.removeNode(unsigned(i - 1));
    }
}

std::vector<Point2D> anchors(const LmCvRegion& aRegion)
{
    std::vector<Point2D> samples;
    samples.reserve(std::size_t(aRegion.nodeCount()));
    for (int i = 0; i < aRegion.nodeCount(); ++i) {
        const QPoint anchor = OutlineNodes::anchor(aRegion, i);
        samples.emplace_back(double(anchor.x()), double(anchor.y()));
    }
    return samples;
}

QPoint pixel(const Point2D& aPoint)
{
    return PointMath::cut(aPoint.x, aPoint.y);
}

/// The nodes between and around the segments. The outer handles of the first and the last node lie on their
/// anchors. The last node is written only behind a second segment: a stroke that one segment fits gets its
/// last node at (0, 0).
Q3PointArray nodesOf(const std::vector<Point2D>& aCubics, int aSegments)
{
    const auto control = [&](int aSegment, int aPoint) {
        return pixel(aCubics[std::size_t(aSegment) * kPerSegment + std::size_t(aPoint)]);
    };
    Q3PointArray points(kPerNode * (aSegments + 1));
    points[0] = points[1] = control(0, 0);
    points[2] = control(0, 1);
    for (int s = 1; s < aSegments; ++s) {
        points[kPerNode * s] = control(s - 1, 2);
        points[kPerNode * s + 1] = control(s, 0);
        points[kPerNode * s + 2] = control(s, 1);
    }
    if (aSegments > 1) {
        points[kPerNode * aSegments] = control(aSegments - 1, 2);
        points[kPerNode * aSegments + 1] = points[kPerNode * aSegments + 2] = control(aSegments - 1, 3);
    }
    return points;
}

} // namespace

int ZnCvSplineOptymize::optymizeSpline(LmCvRegion* aRegion, float aError, float aNeighbourDistance)
{
    if (!aRegion)
        return 0;
    thin(*aRegion, aNeighbourDistance);
    const int count = aRegion->nodeCount();
    if (count < kFewestFitted)
        return 0;

    const std::vector<Point2D> samples = anchors(*aRegion);
    std::vector<Point2D> cubics(std::size_t(count) * kPerSegment);
    const int segments = SplineOptymizeInternal().bezierFitCubicConst(
        cubics.data(), samples.data(), count, Point2D(), double(aError), unsigned(count));
    if (segments <= 0) {
        std::puts(segments == 0 ? "[SplineOptymize::optymizeSpline] Segment not found!"
                                : "[SplineOptymize::optymizeSpline] Error during optymize!");
        return segments;
    }
    OutlineNodes::replace(*aRegion, nodesOf(cubics, segments));
    return segments;
}
