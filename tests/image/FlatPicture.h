#ifndef FLATPICTURE_H
#define FLATPICTURE_H

#include "LmCVSequence.h"
#include "LmImage.h"

#include <array>
#include <functional>
#include <memory>
#include <vector>

/// Pictures of two flat colours, and a slow way to tell what a flood of one of them must be.
namespace FlatPicture {

using Limits = std::array<int, 3>;
constexpr Limits kOne{1, 1, 1}; // what a click without a drag asks for

using Places = std::function<bool(int, int)>; // by column and row
using Mask = std::vector<bool>;               // of an image's pixels, row by row

/// The thing's places in one colour and all others in the other, with another alpha in every pixel.
std::unique_ptr<LmImage> draw(const QSize& aSize, int aChannels, const Places& aIsThing);
/// The pixels on and in an outline.
Mask pixelsOf(const LmCVSequence& aOutline, const LmImage& aImage);
/// The places connected to the seed through edges in the image's region, and all that can't be reached from
/// the region's border around them.
Mask filledFlood(const LmImage& aImage, QPoint aSeed, const Places& aIsIn);

} // namespace FlatPicture

#endif
