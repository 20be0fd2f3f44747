#ifndef PICTUREPIXELS_H
#define PICTUREPIXELS_H

#include <memory>

class LmImage;
class QImage;

/// Turns decoded pictures into images for measuring.
namespace PicturePixels {

/// One channel for a gray picture (also of 16 bits, of bits, or with a palette of grays), four for one with
/// transparency, three otherwise. 16 bits give their upper 8. Null for a null picture; may throw
/// std::bad_alloc.
std::unique_ptr<LmImage> toLmImage(const QImage& aPicture);

} // namespace PicturePixels

#endif
