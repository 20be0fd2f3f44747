#ifndef LMIMAGEPROCESSOR_H
#define LMIMAGEPROCESSOR_H

#include <QLinkedList>
#include <QPoint>
#include <QString>

#include <atomic>

class LmCVSequence;
class LmImage;
class QPolygon;

/// Operations on images. All of them work on the regions of interest of their images and do nothing,
/// returning false, for images whose sizes or channel counts don't fit each other.
class LmImageProcessor
{
public:
    /// The one processor. The first call may give a function that takes messages for a log; null keeps
    /// silent.
    static LmImageProcessor* getInstance(void (*aLog)(const QString&));

    /// Copies the source's region of interest into the target's; sizes and channels must be equal.
    bool copy(const LmImage* aSource, LmImage* aTarget);
    /// Copies one channel of the source into one channel of the target.
    bool copyChannel(const LmImage* aSource, int aSourceChannel, LmImage* aTarget, int aTargetChannel);
    /// Luma by ITU-R BT.601, 0.299 R + 0.587 G + 0.114 B rounded, of a 3 or 4 channel image; copies a gray
    /// one. The target's region is at least as large as the source's; the result goes to its top left corner
    /// and leaves the rest of it alone.
    bool RGBtoGrayscale(const LmImage* aSource, LmImage* aTarget);
    /// Hue, lightness and saturation as channels 0, 1 and 2, each on 0 to 255 (a full turn of hue is 256), of
    /// an image of 3 or 4 channels into one of as many; alpha stays. Without a target in place.
    bool RGBtoHLS(LmImage* aSource, LmImage* aTarget);

    /// The outline that Bezier nodes describe, as a polygon. aPoints holds whole nodes of three points, left
    /// control, anchor, right control; points left over at the end count as none. Every segment is sampled at
    /// aParts + 1 equal steps of its parameter (fewer than one part counts as one), each sample rounded to
    /// the nearest pixel with halves away from zero, exactly so for up to 128 parts. Segments share their end
    /// points.
    ///
    /// Closed adds the segment from the last node to the first, but not the first anchor once more: the edge
    /// that closes a polygon is its last piece, so area, closed perimeter and bounding rectangle are those of
    /// the closed outline. One closed node is the loop of its two handles; one open node is its anchor.
    QPolygon divideBezierCurve(const QPolygon& aPoints, int aParts, bool aClosed);

    /// Counts the values of a gray image in an outline, which is closed and lies relative to the image's
    /// region of interest, with the outline's own offset added. Both the pixels that it winds around and
    /// those that its edges run through count, and only as far as they lie in the region. So an outline
    /// without area still has its line, or its one point, and the parts of a crossed one count once.
    ///
    /// aTable gets aBins counters over the values 0 to 255, and aMean the exact mean of the values, 0 without
    /// pixels; null for what isn't wanted. The limit is a number of pixels from which on an estimate would do
    /// for the caller; no estimate is made, whatever it says. Anything but a gray image, an outline and at
    /// least one bin is refused with zeros.
    bool createHistogram(unsigned int* aTable, double* aMean, const LmImage* aGray,
                         const LmCVSequence* aOutline, int aLimit, int aBins);

    /// The outlines of the objects that stand out from the background in the region of interest of a gray
    /// image, holes filled, row by row as a person would count them. Objects have
    /// from aMinArea to aMaxArea pixels, both included, with those of their holes.
    ///
    /// Each outline is the closed polygon through the centres of the border pixels, 8-connected, without the
    /// points inside straight runs; an object of one pixel is one point. Points lie relative to the corner of
    /// the region, which is the offset, and theCoG is set. The list is cleared first. False, with nothing
    /// found, for anything but a gray image with a region, when aCancel became true, or when memory ran out;
    /// true also without objects. The two flags are reserved and have no effect.
    bool findContourSeq(QLinkedList<LmCVSequence>& aList, const LmImage* aGray, int aMinArea, int aMaxArea,
                        bool aReserved, bool aReservedToo, const std::atomic_bool* aCancel = nullptr);

    /// The outline of the area around a seed pixel, in image coordinates: the pixels connected to it through
    /// common edges whose every channel lies between the seed's value less aLower and plus aUpper, inside the
    /// region of interest. A gray image has its value in all three channels; alpha is ignored. Limits count
    /// from 0 on. The area is exact unless it has a texture that makes it porous: then gaps and bays up to a
    /// dozen pixels wide are closed and threads of few pixels cut. It always holds the seed. The outline is
    /// as those of findContourSeq. False, with aContour unchanged, for no image, a seed outside the region,
    /// when aCancel became true, or when memory ran out.
    bool findContourAt(LmCVSequence& aContour, const LmImage* aImage, QPoint aSeed, const int aLower[3],
                       const int aUpper[3], const std::atomic_bool* aCancel = nullptr);

private:
    LmImageProcessor() = default;
    bool reject(const char* aWhat) const;

    void (*theLog)(const QString&) = nullptr;
};

#endif
