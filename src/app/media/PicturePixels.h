#ifndef PICTUREPIXELS_H
#define PICTUREPIXELS_H

#include <memory>

class LmImage;
class QImage;
class QSize;

/// Turns decoded pictures into images for measuring.
namespace PicturePixels {

/// One channel for a gray picture (also of 16 bits, of bits, or with a palette of grays), four for one with
/// transparency, three otherwise. 16 bits give their upper 8. Null for a null picture; may throw
/// std::bad_alloc.
std::unique_ptr<LmImage> toLmImage(const QImage& aPicture);

/// A gray image, in the place of a picture that can't be had.
std::unique_ptr<LmImage> empty(const QSize& aSize, int aChannels);

/// The image in one of another size, cut or filled up with gray on the right and below.
std::unique_ptr<LmImage> fitted(const LmImage& aImage, const QSize& aSize);

} // namespace PicturePixels

#endif
