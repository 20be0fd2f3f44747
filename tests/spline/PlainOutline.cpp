#include "PlainOutline.h"

#include "LmCvRegion.h"

#include <algorithm>
#include <limits>

namespace {

qint64 length(const QPoint& aFrom, const QPoint& aTo)
{
    const qint64 sum = std::abs(qint64(aTo.x()) - aFrom.x()) + std::abs(qint64(aTo.y()) - aFrom.y());
    return std::min<qint64>(sum, std::numeric_limits<int>::max());
}

} // namespace

void PlainOutline::thin(LmCvRegion& aRegion, float aNeighbourDistance)
{
    const int count = aRegion.nodeCount();
    for (int i = 2; i < count; ++i) {
        const QPoint before = aRegion.getNode(unsigned(i - 2)).at(1);
        const QPoint behind = aRegion.getNode(unsigned(i)).at(1);
        if (float(length(before, behind)) <= aNeighbourDistance)
            aRegion.removeNode(unsigned(i - 1));
    }
}

QList<QPoint> PlainOutline::flattened(const LmCvRegion& aRegion)
{
    QList<QPoint> corners;
    for (int i = 0; i + 1 < aRegion.nodeCount(); ++i) {
        Q3PointArray controls(4);
        std::copy_n(aRegion.thePoints.cbegin() + 3 * i + 1, 4, controls.begin());
        corners << controls.cubicBezier();
        corners.removeLast();
    }
    corners << aRegion.thePoints.at(aRegion.thePoints.size() - 2);
    if (aRegion.theClosed)
        corners << aRegion.thePoints.at(1);
    QList<QPoint> nodes;
    for (const QPoint& corner : corners)
        nodes << corner << corner << corner;
    return nodes;
}

bool PlainOutline::areEndsClose(const QList<QPoint>& aNodes)
{
    const int m = int(aNodes.size()) / 3;
    const int k = std::max(m / 10, 1);
    const auto anchor = [&](int aNode) { return aNode < m ? aNodes.at(3 * aNode + 1) : QPoint(0, 0); };
    for (int a = 0; a < k; ++a)
        for (int b = 0; b < k; ++b) {
            const double dx = double(anchor(b).x()) - anchor(m - 1 - a).x();
            const double dy = double(anchor(b).y()) - anchor(m - 1 - a).y();
            if (dx * dx + dy * dy <= 225.0)
                return true;
        }
    for (int a = 0; a < k; ++a)
        for (int b = 1; b <= k; ++b) {
            const QPoint end = anchor(m - 1 - a);
            const float ratio = (float(length(end, anchor(0))) + float(length(end, anchor(b)))) /
                                float(length(anchor(0), anchor(b)));
            if (double(ratio) <= 1.4)
                return true;
        }
    return false;
}
