#ifndef SEEDFLOOD_H
#define SEEDFLOOD_H

#include "PixelOutline.h"

#include <QPoint>

#include <array>

class LmImage;

/// The area around a seed whose pixels lie within limits per channel, connected through edges of pixels, in
/// the region of interest of an image.
///
/// A clean area is exact to the pixel. One that its own texture makes porous or ragged is smoothed: gaps and
/// bays up to a dozen pixels wide are closed and threads of few pixels cut off. It still holds the seed.
namespace SeedFlood {

/// By channel: the first for a gray image; a fourth channel has no limits.
struct Limits
{
    std::array<int, 3> theLeast;
    std::array<int, 3> theGreatest;
};

/// The outline relative to the region's corner. The seed lies in the region, in image coordinates, and within
/// the limits; the image has one, three or four channels and is only read.
PixelOutline outline(const LmImage& aImage, const QPoint& aSeed, const Limits& aLimits);

} // namespace SeedFlood

#endif
