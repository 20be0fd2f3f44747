#ifndef CANVASPLANE_H
#define CANVASPLANE_H

#include <QPoint>
#include <QRect>
#include <QRectF>

class QPolygon;

/// The part of the plane on which rectangles are computed with. Points may lie anywhere in the range of int;
/// areas end here, so that widths, margins and shifts of one billion pixels stay within an int.
namespace CanvasPlane {

constexpr int kFarthest = 1 << 29;

/// The nearest coordinate; 0 for a number that is none.
int coordinate(double aValue);
QPoint point(double aX, double aY);
/// The rectangle cut off at the ends of the plane; a null rectangle for an empty one.
QRect clamped(const QRect& aRect);
/// The whole pixels that the rectangle touches, cut off at the ends of the plane.
QRect alignedOut(const QRectF& aRect);
/// The pixels of the polygon's corners and all between; null without corners.
QRect boundsOf(const QPolygon& aPolygon);
/// The same rectangle in the coordinates of the painter, where a pixel is as wide as its right edge less its
/// left.
QRectF exact(const QRect& aRect);

} // namespace CanvasPlane

#endif
