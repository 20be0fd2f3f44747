#ifndef REGIONSHAPES_H
#define REGIONSHAPES_H

#include <QPolygon>
#include <QRect>

/// Points of regions as their records hold them, three for each node.
namespace RegionShapes {

/// Nodes without handles.
inline QPolygon corners(const QPolygon& aAnchors)
{
    QPolygon points;
    for (const QPoint& anchor : aAnchors)
        points << anchor << anchor << anchor;
    return points;
}

/// Corners whose border pixels are those of the rectangle.
inline QPolygon rectangle(const QRect& aRect)
{
    return corners(QPolygon({aRect.topLeft(), aRect.topRight(), aRect.bottomRight(), aRect.bottomLeft()}));
}

} // namespace RegionShapes

#endif
