#ifndef DRAWNSCENE_H
#define DRAWNSCENE_H

#include "LmCVSequence.h"
#include "LmImage.h"

#include <QLinkedList>
#include <QPointF>
#include <QRandomGenerator>

#include <memory>
#include <vector>

/// A gray picture of things of known place and shape on a ground of known light, and what a search for them
/// found of it.
class DrawnScene
{
public:
    enum Shape { kDisc, kEllipse, kRectangle, kBlob };
    enum Light { kEven, kSlope, kVignette };

    struct Thing
    {
        Shape theShape;
        QPointF theCentre;
        double theRadius; // half the longer side
        double theTurn = 0.0;
        double theContrast = 0.0; // against the ground behind it; negative is darker
    };

    struct Outcome
    {
        int theFound = 0; // things that share at least half of the joint area with one outline
        int theMissed = 0;
        int theFalse = 0;             // outlines that are no thing
        double theLeastOverlap = 1.0; // of the found ones
        double theOverlapSum = 0.0;
    };

    DrawnScene(int aWidth, int aHeight);

    /// Things may overlap the picture's edge and each other; the later one lies on top.
    void add(const Thing& aThing) { theThings.push_back(aThing); }
    /// Puts so many things where none touches another or, where asked, the edge.
    void scatter(QRandomGenerator& aRandom, int aCount, double aRadius, double aContrast, double aGap);
    /// The ground has this value in the middle and the light changes it by up to aRange across the picture.
    void paint(QRandomGenerator& aRandom, double aGround, Light aLight, double aRange, double aNoise);

    const LmImage& image() const { return *theImage; }
    LmImage& image() { return *theImage; }
    int thingCount() const { return int(theThings.size()); }
    /// Compares with the things' pixels inside the image's region.
    Outcome judge(const QLinkedList<LmCVSequence>& aOutlines) const;

private:
    double coverage(const Thing& aThing, double aX, double aY) const;
    static bool holds(const Thing& aThing, double aX, double aY);

    std::vector<Thing> theThings;
    std::unique_ptr<LmImage> theImage;
    std::vector<int> theOwners; // per pixel: the thing's number from 1 on, or 0
};

#endif
