#ifndef PIXELOUTLINE_H
#define PIXELOUTLINE_H

#include "BytePlane.h"

#include <QPoint>
#include <QRect>

#include <vector>

class LmCVSequence;
class LmImage;

/// The closed polygon through the centres of the border pixels of an object of pixels, 8-connected, without
/// the points inside straight runs. Lines of one pixel are walked there and back.
using PixelOutline = std::vector<QPoint>;

namespace PixelOutlines {

/// The outer outlines of the objects of a mask, from top to bottom and from left to right by their topmost
/// pixels, with which they begin. Pixels that touch at a corner are one object; objects in holes have none.
std::vector<PixelOutline> of(const BytePlane& aMask);

/// The number of pixels on and inside an outline, holes included.
long long pixelCount(const PixelOutline& aOutline);

QRect boundingRect(const PixelOutline& aOutline);

/// The outline as others get it, relative to the corner of the image's region, with its centre of gravity.
LmCVSequence sequence(const PixelOutline& aOutline, const LmImage& aImage);

} // namespace PixelOutlines

#endif
