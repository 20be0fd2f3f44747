#ifndef CONTOURSEARCH_H
#define CONTOURSEARCH_H

#include "PixelOutline.h"

#include <atomic>

class LmImage;

/// Finds the objects that stand out from the ground in the region of interest of a gray image: those that
/// leave the surface of the ground farther than its noise ever does, each cut out at a level of its own, and
/// taken apart where round things touch.
namespace ContourSearch {

/// The image has one channel and a region. The outlines, relative to the region's corner, of all objects that
/// have from aMinArea to aMaxArea pixels, in reading order. None when
/// aCancel became true.
std::vector<PixelOutline> outlines(const LmImage& aGray, int aMinArea, int aMaxArea,
                                   const std::atomic_bool* aCancel);

} // namespace ContourSearch

#endif
