#ifndef DEFINEDCOLOR_H
#define DEFINEDCOLOR_H

#include <array>

namespace DefinedColor {

using Yuv = std::array<int, 3>;

/// Red, green and blue of a luma and two chroma values by the definition of the matrix, whose weights of red
/// and blue are given.
inline std::array<double, 3> of(const Yuv& aYuv, double aRed, double aBlue, bool aFullRange)
{
    const double luma = aFullRange ? aYuv[0] / 255.0 : (aYuv[0] - 16) / 219.0;
    const double span = aFullRange ? 255.0 : 224.0;
    const double blueness = (aYuv[1] - 128) / span;
    const double redness = (aYuv[2] - 128) / span;
    const double red = luma + 2 * (1 - aRed) * redness;
    const double blue = luma + 2 * (1 - aBlue) * blueness;
    const double green = (luma - aRed * red - aBlue * blue) / (1 - aRed - aBlue);
    return {255 * red, 255 * green, 255 * blue};
}

} // namespace DefinedColor

#endif
