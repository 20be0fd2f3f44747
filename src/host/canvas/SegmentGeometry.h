#ifndef SEGMENTGEOMETRY_H
#define SEGMENTGEOMETRY_H

#include <QPoint>

/// Geometry of straight segments on the canvas, shared by all items.
namespace SegmentGeometry {

/// Whether segment ab meets segment cd, touching included, in exact integer arithmetic at any int
/// coordinates. On true aOut is the crossing, rounded with halves away from zero; for segments on one line,
/// or one of length 0 that both tests let through, it is half the vector from a to b, cut toward zero, which
/// is no point of either.
bool intersect(const QPoint& a, const QPoint& b, const QPoint& c, const QPoint& d, QPoint& aOut);

/// Forces a point onto one of the eight directions around the anchor. Horizontal and vertical catch 18
/// degrees to each side, the diagonals the rest: fewer surprises for lines that are meant to be oblique. A
/// point on the anchor stays.
QPoint snapped(const QPoint& aAnchor, const QPoint& aPoint);

} // namespace SegmentGeometry

/// The square that a hit test lays around the pointer; lines are tested against its two diagonals.
struct HitSquare
{
    /// aTol is the side in pixels.
    HitSquare(const QPoint& aCentre, int aTol);

    bool firstDiagonalMeets(const QPoint& aStart, const QPoint& aEnd) const;
    bool secondDiagonalMeets(const QPoint& aStart, const QPoint& aEnd) const;
    bool anyDiagonalMeets(const QPoint& aStart, const QPoint& aEnd) const;

    QPoint theTopLeft;
    QPoint theBottomRight;
};

#endif
