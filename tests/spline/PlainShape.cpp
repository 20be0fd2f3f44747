#include "PlainShape.h"

#include "LmCvRegion.h"
#include "PlainOutline.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace {

constexpr double kPi = 3.1415926536;

int toInt(double aValue)
{
    if (std::isnan(aValue))
        return 0;
    constexpr double kLow = std::numeric_limits<int>::min();
    constexpr double kHigh = std::numeric_limits<int>::max();
    return int(std::trunc(std::min(std::max(aValue, kLow), kHigh)));
}

struct Extent
{
    explicit Extent(const QList<QPointF>& aPoints)
    {
        for (const QPointF& point : aPoints) {
            minX = std::min(minX, point.x());
            maxX = std::max(maxX, point.x());
            minY = std::min(minY, point.y());
            maxY = std::max(maxY, point.y());
        }
    }

    double minX = std::numeric_limits<double>::infinity();
    double maxX = -std::numeric_limits<double>::infinity();
    double minY = std::numeric_limits<double>::infinity();
    double maxY = -std::numeric_limits<double>::infinity();
};

double area(const QList<QPointF>& aPoints)
{
    const Extent extent(aPoints);
    return (extent.maxX - extent.minX) * (extent.maxY - extent.minY);
}

struct Squared
{
    explicit Squared(const QList<QPointF>& aPoints) : extent(aPoints)
    {
        const double w = extent.maxX - extent.minX;
        const double h = extent.maxY - extent.minY;
        if (h >= w) {
            sx = h / w;
            side = h;
        } else {
            sy = w / h;
            side = w;
        }
        for (const QPointF& point : aPoints)
            points << QPointF(sx * point.x(), sy * point.y());
        left = sx * extent.minX;
        right = sx * extent.maxX;
        top = sy * extent.minY;
        bottom = sy * extent.maxY;
    }

    // How many points lie in the rectangle, edges included, once those of earlier rectangles are gone.
    int take(double aX0, double aX1, double aY0, double aY1)
    {
        const auto inside = [&](const QPointF& aPoint) {
            return aX0 <= aPoint.x() && aPoint.x() <= aX1 && aY0 <= aPoint.y() && aPoint.y() <= aY1;
        };
        const auto rest = std::remove_if(points.begin(), points.end(), inside);
        const int taken = int(points.end() - rest);
        points.erase(rest, points.end());
        return taken;
    }

    Extent extent;
    double sx = 1.0;
    double sy = 1.0;
    double side = 0.0;
    double left, right, top, bottom;
    QList<QPointF> points;
};

bool isRectangle(const QList<QPointF>& aPoints, double aTolerance)
{
    Squared box(aPoints);
    const double d = box.side * aTolerance;
    const int top = box.take(box.left, box.right, box.top, box.top + d);
    const int bottom = box.take(box.left, box.right, box.bottom - d, box.bottom);
    const int left = box.take(box.left, box.left + d, box.top, box.bottom);
    const int right = box.take(box.right - d, box.right, box.top, box.bottom);
    const int centre = box.take(box.left + d, box.right - d, box.top + d, box.bottom - d);
    return !aPoints.isEmpty() && top > 0 && bottom > 0 && left > 0 && right > 0 && centre == 0;
}

bool hasEmptyCorners(const QList<QPointF>& aPoints, double aTolerance)
{
    Squared box(aPoints);
    const double d = box.side * aTolerance * 0.2;
    return box.take(box.left, box.left + d, box.top, box.top + d) == 0 &&
           box.take(box.right - d, box.right, box.top, box.top + d) == 0 &&
           box.take(box.left, box.left + d, box.bottom - d, box.bottom) == 0 &&
           box.take(box.right - d, box.right, box.bottom - d, box.bottom) == 0;
}

bool isRing(const QList<QPointF>& aPoints)
{
    const Squared box(aPoints);
    const double radius = box.side * 0.5;
    const double cx = (box.extent.maxX + box.extent.minX) * 0.5 * box.sx;
    const double cy = (box.extent.minY + box.extent.maxY) * 0.5 * box.sy;
    for (const QPointF& point : box.points) {
        const double dx = point.x() - cx;
        const double dy = point.y() - cy;
        const double distance = std::sqrt(dx * dx + dy * dy);
        if (distance > (0.25 + 1.0) * radius || distance < (0.25 * -1.5 + 1.0) * radius)
            return false;
    }
    return true;
}

// Each row of a table of nodes: the offsets of the three points from the centre.
using Offset = std::array<double, 2>;

QList<QPoint> aroundCentre(QPoint aCentre, const QList<Offset>& aOffsets)
{
    QList<QPoint> points;
    for (const Offset& offset : aOffsets)
        points << QPoint(toInt(aCentre.x() + offset[0]), toInt(aCentre.y() + offset[1]));
    return points;
}

QList<QPoint> roundedNodes(QPoint aCentre, double w, double h)
{
    const int cx = aCentre.x();
    const int cy = aCentre.y();
    const double r = std::min(w, h) * 0.2;
    const double k = r * 0.5;
    const int top = toInt(cy - 0.5 * h);
    const int bottom = toInt(0.5 * h + cy);
    const int left = toInt(cx - 0.5 * w);
    const int right = toInt(0.5 * w + cx);
    const int xl = toInt(r + (cx - 0.5 * w));
    const int xr = toInt(0.5 * w + cx - r);
    const int yt = toInt(cy - 0.5 * h + r);
    const int yb = toInt(0.5 * h + cy - r);
    const auto less = [k](int aLine) { return toInt(aLine - k); };
    const auto more = [k](int aLine) { return toInt(aLine + k); };
    return {{less(xl), top},    {xl, top},    {more(xl), top},    //
            {less(xr), top},    {xr, top},    {more(xr), top},    //
            {right, less(yt)},  {right, yt},  {right, more(yt)},  //
            {right, less(yb)},  {right, yb},  {right, more(yb)},  //
            {more(xr), bottom}, {xr, bottom}, {less(xr), bottom}, //
            {more(xl), bottom}, {xl, bottom}, {less(xl), bottom}, //
            {left, more(yb)},   {left, yb},   {left, less(yb)},   //
            {left, more(yt)},   {left, yt},   {left, less(yt)}};
}

} // namespace

PlainShape::Box PlainShape::bestBox(const QList<QPointF>& aRows)
{
    QPointF centre(0.0, 0.0);
    for (const QPointF& row : aRows)
        centre += row;
    centre = QPointF(centre.x() / double(aRows.size()), centre.y() / double(aRows.size()));
    QList<QPointF> rows;
    for (const QPointF& row : aRows)
        rows << row - centre;

    double bestArea = area(rows);
    int best = 0;
    for (int i = 1; i <= 16; ++i)
        if (const double tried = area(turned(rows, 5 * i)); tried < bestArea) {
            bestArea = tried;
            best = i;
        }
    const int middle = 5 * best;
    for (int degrees = middle - 5; degrees <= middle + 5; ++degrees)
        if (const double tried = area(turned(rows, degrees)); tried < bestArea) {
            bestArea = tried;
            best = degrees;
        }
    return {double(best), centre, rows};
}

QList<QPointF> PlainShape::turned(const QList<QPointF>& aRows, double aDegrees)
{
    const double c = std::cos(aDegrees * kPi / 180);
    const double s = std::sin(aDegrees * kPi / 180);
    QList<QPointF> result;
    for (const QPointF& row : aRows)
        result << QPointF(c * row.x() + s * row.y(), c * row.y() - s * row.x());
    return result;
}

QList<QPoint> PlainShape::nodesOf(int aShape, QPoint aCentre, double aWidth, double aHeight)
{
    const double x = 0.5 * aWidth;
    const double y = 0.5 * aHeight;
    const double p = 0.275 * aWidth;
    const double q = 0.275 * aHeight;
    if (aShape == 1)
        return aroundCentre(aCentre, {{-x, -q},
                                      {-x, 0},
                                      {-x, q},
                                      {-p, y},
                                      {0, y},
                                      {p, y},
                                      {x, q},
                                      {x, 0},
                                      {x, -q},
                                      {p, -y},
                                      {0, -y},
                                      {-p, -y}});
    if (aShape == 2)
        return aroundCentre(aCentre, {{-x, -y},
                                      {-x, -y},
                                      {-x, -y},
                                      {x, -y},
                                      {x, -y},
                                      {x, -y},
                                      {x, y},
                                      {x, y},
                                      {x, y},
                                      {-x, y},
                                      {-x, y},
                                      {-x, y}});
    return roundedNodes(aCentre, aWidth, aHeight);
}

PlainShape::Recognised PlainShape::judged(const QList<QPointF>& aTurned)
{
    int shape = 0;
    if (isRing(aTurned) && isRectangle(aTurned, 0.35))
        shape = 1;
    else if (isRectangle(aTurned, 0.2))
        shape = hasEmptyCorners(aTurned, 0.2) ? 3 : 2;
    if (shape == 0)
        return {0, {}};
    const Extent extent(aTurned);
    const QPoint centre(toInt((extent.minX + extent.maxX) * 0.5), toInt(0.5 * (extent.maxY + extent.minY)));
    const float width = float(extent.maxX - extent.minX);
    const float height = float(extent.maxY - extent.minY);
    return {shape, nodesOf(shape, centre, double(width), double(height))};
}

PlainShape::Recognised PlainShape::recognised(const LmCvRegion& aRegion)
{
    if (aRegion.nodeCount() < 3)
        return {0, aRegion.thePoints};
    const QList<QPoint> dense = PlainOutline::flattened(aRegion);
    if (!PlainOutline::areEndsClose(dense))
        return {0, dense};
    QList<QPointF> rows;
    for (int i = 1; i < dense.size(); i += 3)
        rows << QPointF(dense.at(i));
    const Box box = bestBox(rows);
    const Recognised result = judged(turned(box.theRows, box.theAngle));
    if (result.theShape == 0)
        return {0, dense};
    const double r = box.theAngle * -kPi / 180;
    QList<QPoint> nodes;
    for (const QPoint& point : result.theNodes)
        nodes << QPoint(toInt(std::cos(r) * point.x() + std::sin(r) * point.y() + box.theCentre.x()),
                        toInt(std::cos(r) * point.y() - std::sin(r) * point.x() + box.theCentre.y()));
    return {result.theShape, nodes};
}
