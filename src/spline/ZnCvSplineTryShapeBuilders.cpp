#include "ZnCvSplineTryShape.h"

#include "OutlineNodes.h"
#include "PointMath.h"

#include <algorithm>

using PointMath::cut;

// The handles of a quarter of a circle are 0.55 of its radius long, 0.275 of the whole width.
void ZnCvSplineTryShape::getEllipse(QPoint aCentre, double aWidth, double aHeight, LmCvRegion* aRegion)
{
    const int cx = aCentre.x();
    const int cy = aCentre.y();
    const int left = cut(cx - 0.5 * aWidth);
    const int right = cut(cx + 0.5 * aWidth);
    const int top = cut(cy - 0.5 * aHeight);
    const int bottom = cut(cy + 0.5 * aHeight);
    const int handleLeft = cut(cx - 0.275 * aWidth);
    const int handleRight = cut(cx + 0.275 * aWidth);
    const int handleTop = cut(cy - 0.275 * aHeight);
    const int handleBottom = cut(cy + 0.275 * aHeight);
    Q3PointArray points;
    points << QPoint(left, handleTop) << QPoint(left, cy) << QPoint(left, handleBottom);
    points << QPoint(handleLeft, bottom) << QPoint(cx, bottom) << QPoint(handleRight, bottom);
    points << QPoint(right, handleBottom) << QPoint(right, cy) << QPoint(right, handleTop);
    points << QPoint(handleRight, top) << QPoint(cx, top) << QPoint(handleLeft, top);
    OutlineNodes::replace(*aRegion, points);
}

// The lines on which the nodes lie are whole pixels before the handles are measured from them. So the handles
// of the right and lower nodes may be a pixel shorter or longer than those of the left and upper ones.
void ZnCvSplineTryShape::getRoundedRectangle(QPoint aCentre, double aWidth, double aHeight,
                                             LmCvRegion* aRegion)
{
    const int cx = aCentre.x();
    const int cy = aCentre.y();
    const double radius = std::min(aWidth, aHeight) * 0.2;
    const double handle = radius * 0.5;
    const int top = cut(cy - 0.5 * aHeight);
    const int bottom = cut(0.5 * aHeight + cy);
    const int left = cut(cx - 0.5 * aWidth);
    const int right = cut(0.5 * aWidth + cx);
    const int innerLeft = cut(radius + (cx - 0.5 * aWidth));
    const int innerRight = cut(0.5 * aWidth + cx - radius);
    const int innerTop = cut(cy - 0.5 * aHeight + radius);
    const int innerBottom = cut(0.5 * aHeight + cy - radius);

    Q3PointArray points;
    // Nodes of the upper and lower edge, the handles aWay times their length along it.
    const auto addAcross = [&](int aX, int aY, double aWay) {
        points << QPoint(cut(aX - aWay * handle), aY) << QPoint(aX, aY)
               << QPoint(cut(aX + aWay * handle), aY);
    };
    const auto addAlong = [&](int aX, int aY, double aWay) {
        points << QPoint(aX, cut(aY - aWay * handle)) << QPoint(aX, aY)
               << QPoint(aX, cut(aY + aWay * handle));
    };
    addAcross(innerLeft, top, 1.0);
    addAcross(innerRight, top, 1.0);
    addAlong(right, innerTop, 1.0);
    addAlong(right, innerBottom, 1.0);
    addAcross(innerRight, bottom, -1.0);
    addAcross(innerLeft, bottom, -1.0);
    addAlong(left, innerBottom, -1.0);
    addAlong(left, innerTop, -1.0);
    OutlineNodes::replace(*aRegion, points);
}

void ZnCvSplineTryShape::getRectangle(QPoint aCentre, double aWidth, double aHeight, LmCvRegion* aRegion)
{
    const int left = cut(aCentre.x() - 0.5 * aWidth);
    const int right = cut(aCentre.x() + 0.5 * aWidth);
    const int top = cut(aCentre.y() - 0.5 * aHeight);
    const int bottom = cut(aCentre.y() + 0.5 * aHeight);
    Q3PointArray points;
    for (const QPoint& corner :
         {QPoint(left, top), QPoint(right, top), QPoint(right, bottom), QPoint(left, bottom)})
        points << corner << corner << corner;
    OutlineNodes::replace(*aRegion, points);
}
