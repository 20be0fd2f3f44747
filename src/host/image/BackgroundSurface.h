#ifndef BACKGROUNDSURFACE_H
#define BACKGROUNDSURFACE_H

#include <QRect>

#include <vector>

class LmImage;

/// The light of the ground behind the objects in the region of interest of a gray image, estimated on a grid
/// of square blocks of pixels: a smooth surface over the whole region that follows the ground where it is
/// seen and bridges what stands in front of it.
///
/// Ground is what one smooth surface explains best, with the region's frame counting as much as its area, so
/// that things filling most of a closely drawn region are still things.
class BackgroundSurface
{
public:
    /// The region holds at least one pixel.
    explicit BackgroundSurface(const LmImage& aGray);

    int columns() const { return theColumns; }
    int rows() const { return theRows; }
    /// Side of a block in pixels; the last column and row may reach beyond the region.
    int blockSide() const { return theBlockSide; }
    /// The ground's values at the centres of the blocks, row by row.
    const std::vector<unsigned char>& values() const { return theValues; }
    /// Whether a block shows the ground.
    bool isGround(int aColumn, int aRow) const
    {
        return theGround[size_t(aRow) * size_t(theColumns) + size_t(aColumn)];
    }

private:
    void takeBlocks(const LmImage& aGray);
    void fit();
    void followGround();

    int theColumns = 0;
    int theRows = 0;
    int theBlockSide = 1;
    std::vector<float> theBlocks;  // the median of each block
    std::vector<float> theSurface; // the ground at each block
    std::vector<unsigned char> theValues;
    std::vector<bool> theGround;
    double theSpread = 0.0; // of the ground's blocks about the surface, as a standard deviation
};

#endif
