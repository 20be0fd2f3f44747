#ifndef IMAGEREGION_H
#define IMAGEREGION_H

#include "LmImage.h"

/// The pixels of an image that lie in its region of interest.
namespace ImageRegion {

/// The first pixel of a row of the region, counted from the region's top.
inline const unsigned char* row(const LmImage& aImage, int aY)
{
    return aImage.row(aImage.theRoiY + aY) + qsizetype(aImage.theRoiX) * aImage.channels();
}

inline unsigned char* row(LmImage& aImage, int aY)
{
    return aImage.row(aImage.theRoiY + aY) + qsizetype(aImage.theRoiX) * aImage.channels();
}

inline bool isEmpty(const LmImage& aImage)
{
    return aImage.theRoiWidth <= 0 || aImage.theRoiHeight <= 0;
}

/// Whether both regions hold pixels, and as many in each direction.
inline bool sameSize(const LmImage& aSource, const LmImage& aTarget)
{
    return !isEmpty(aSource) && aSource.theRoiWidth == aTarget.theRoiWidth &&
           aSource.theRoiHeight == aTarget.theRoiHeight;
}

/// Whether the source's region holds pixels and the target's has room for them.
inline bool fits(const LmImage& aSource, const LmImage& aTarget)
{
    return !isEmpty(aSource) && aSource.theRoiWidth <= aTarget.theRoiWidth &&
           aSource.theRoiHeight <= aTarget.theRoiHeight;
}

} // namespace ImageRegion

#endif
