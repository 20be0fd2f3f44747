#ifndef REGIONMEASURES_H
#define REGIONMEASURES_H

#include "LmCVSequence.h"

#include <QPoint>
#include <QRect>

class LmImage;
class QPolygon;

/// The measures of a region, taken from its record: of the polygon that cuts every segment into ten straight
/// pieces. An open region has a length and nothing else. All measures are defined for outlines of any size at
/// any place, and 0 for one without nodes.
///
/// A step is a number of pixels per unit; with 0 the measures are pixels.
class RegionMeasures
{
public:
    /// What of the colours is averaged: channels of a picture in hue, lightness and saturation.
    enum ImageChannel { kLightness = 1, kSaturation = 2 };

    /// aPoints are three points for each node, relative to aPos, which is in image coordinates.
    RegionMeasures(const QPolygon& aPoints, bool aClosed, const QPoint& aPos);

    /// Extents of the bounding rectangle with the pixels of both borders.
    double width(double aStep) const;
    double height(double aStep) const;
    /// With the closing edge in a closed region.
    double length(double aStep) const;
    double area(double aStep) const;

    /// The mean in percent over the pixels in the outline, its own line included, as far as they lie in the
    /// image; 0 without such pixels or without an image. A gray image's values serve for both channels. The
    /// image's region of interest is another one meanwhile.
    double imageMean(LmImage* aImage, ImageChannel aChannel) const;

    static double inUnits(double aPixels, double aStep) { return aStep != 0.0 ? aPixels / aStep : aPixels; }

private:
    QRect partIn(const LmImage& aImage) const;

    bool theClosed;
    QPoint thePos;
    // Not moved to their place in the image, which may lie beyond the range of int.
    LmCVSequence theOutline;
    QRect theBounds; // a width beyond that range is possible too
};

#endif
