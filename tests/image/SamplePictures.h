#ifndef SAMPLEPICTURES_H
#define SAMPLEPICTURES_H

#include "LmCVSequence.h"
#include "LmImage.h"

#include <QString>

#include <array>
#include <memory>
#include <vector>

/// An upright ellipse, measured by eye in an enlarged picture; a pixel reaches from its number to the next.
struct MeasuredEllipse
{
    double theX;
    double theY;
    double theRadiusX;
    double theRadiusY;

    bool holds(int aColumn, int aRow) const;
    double area() const;
};

/// The share of an outline's and an ellipse's joint area that both have, and of the ellipse that the outline
/// has.
struct Overlap
{
    double theJoint;
    double theCovered;
};

namespace SamplePictures {

/// The 24 coins of coins.png, row by row. They aren't quite elliptic: even their true outlines share no more
/// than 93 to 98 % with these.
extern const std::array<MeasuredEllipse, 24> kCoins;
/// The cell of cell.png.
extern const MeasuredEllipse kCell;
/// The surface of the coffee in coffee.png, and the cup's mouth around it.
extern const MeasuredEllipse kCoffee;
extern const MeasuredEllipse kCup;

/// A shared sample with one or three channels. Where the samples aren't there, a picture drawn of the
/// ellipses that were measured in it.
std::unique_ptr<LmImage> load(const QString& aName, int aChannels);

/// Of an outline in an image of the given size.
Overlap overlap(const LmCVSequence& aOutline, const MeasuredEllipse& aEllipse, const LmImage& aImage);
/// The pixels on and in an outline.
int pixelCount(const LmCVSequence& aOutline, const LmImage& aImage);

} // namespace SamplePictures

#endif
