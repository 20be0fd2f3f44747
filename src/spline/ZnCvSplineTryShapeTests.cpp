#include "ZnCvSplineTryShape.h"

#include <cmath>

namespace {

/// The box of a stroke with its short side stretched to the long one, so that one tolerance serves both. A
/// flat stroke has no short side to stretch: the scale is infinite or no number, and no comparison with it
/// holds.
struct SquareBox
{
    SquareBox(double aMinX, double aMaxX, double aMinY, double aMaxY)
    {
        const double width = aMaxX - aMinX;
        const double height = aMaxY - aMinY;
        const bool upright = height >= width;
        theScaleX = upright ? height / width : 1.0;
        theScaleY = upright ? 1.0 : width / height;
        theSide = upright ? height : width;
        theLeft = theScaleX * aMinX;
        theRight = theScaleX * aMaxX;
        theTop = theScaleY * aMinY;
        theBottom = theScaleY * aMaxY;
    }

    double x(const double (&aPoint)[2]) const { return theScaleX * aPoint[0]; }
    double y(const double (&aPoint)[2]) const { return theScaleY * aPoint[1]; }

    double theScaleX;
    double theScaleY;
    double theSide;
    double theLeft;
    double theRight;
    double theTop;
    double theBottom;
};

bool isIn(double aValue, double aLow, double aHigh)
{
    return aValue >= aLow && aValue <= aHigh;
}

} // namespace

// Every point counts for one place only, a corner for the top or the bottom.
bool ZnCvSplineTryShape::testIfRectangle(double (*aPoints)[2], unsigned aCount, double aMinX, double aMaxX,
                                         double aMinY, double aMaxY, double aTolerance)
{
    const SquareBox box(aMinX, aMaxX, aMinY, aMaxY);
    const double band = box.theSide * aTolerance;
    bool onTop = false;
    bool atBottom = false;
    bool onLeft = false;
    bool onRight = false;
    for (unsigned i = 0; i < aCount; ++i) {
        const double x = box.x(aPoints[i]);
        const double y = box.y(aPoints[i]);
        const bool across = isIn(x, box.theLeft, box.theRight);
        const bool along = isIn(y, box.theTop, box.theBottom);
        if (across && isIn(y, box.theTop, box.theTop + band))
            onTop = true;
        else if (across && isIn(y, box.theBottom - band, box.theBottom))
            atBottom = true;
        else if (along && isIn(x, box.theLeft, box.theLeft + band))
            onLeft = true;
        else if (along && isIn(x, box.theRight - band, box.theRight))
            onRight = true;
        else if (isIn(x, box.theLeft + band, box.theRight - band) &&
                 isIn(y, box.theTop + band, box.theBottom - band))
            return false; // the stroke crosses the middle
    }
    return onTop && atBottom && onLeft && onRight;
}

bool ZnCvSplineTryShape::testIfRoundedRectangle(double (*aPoints)[2], unsigned aCount, double aMinX,
                                                double aMaxX, double aMinY, double aMaxY, double aTolerance)
{
    if (!testIfRectangle(aPoints, aCount, aMinX, aMaxX, aMinY, aMaxY, aTolerance))
        return false;
    const SquareBox box(aMinX, aMaxX, aMinY, aMaxY);
    const double corner = box.theSide * aTolerance * 0.2;
    for (unsigned i = 0; i < aCount; ++i) {
        const double x = box.x(aPoints[i]);
        const double y = box.y(aPoints[i]);
        const bool beside =
            isIn(x, box.theLeft, box.theLeft + corner) || isIn(x, box.theRight - corner, box.theRight);
        const bool atEnd =
            isIn(y, box.theTop, box.theTop + corner) || isIn(y, box.theBottom - corner, box.theBottom);
        if (beside && atEnd)
            return false;
    }
    return true;
}

bool ZnCvSplineTryShape::testIfEllipse(double (*aPoints)[2], unsigned aCount, double aMinX, double aMaxX,
                                       double aMinY, double aMaxY, double aTolerance)
{
    const SquareBox box(aMinX, aMaxX, aMinY, aMaxY);
    const double radius = box.theSide * 0.5;
    // Hands cut a curve short rather than overshoot it, so the band reaches farther in than out.
    const double upper = (aTolerance + 1.0) * radius;
    const double lower = (aTolerance * -1.5 + 1.0) * radius;
    const double centreX = (aMaxX + aMinX) * 0.5 * box.theScaleX;
    const double centreY = (aMinY + aMaxY) * 0.5 * box.theScaleY;
    for (unsigned i = 0; i < aCount; ++i) {
        const double dx = box.x(aPoints[i]) - centreX;
        const double dy = box.y(aPoints[i]) - centreY;
        const double distance = std::sqrt(dx * dx + dy * dy);
        if (distance > upper || distance < lower)
            return false;
    }
    // An arc may lie in the ring too. All four sides are visited and the middle is empty only for a whole
    // ellipse; how wide the sides count here is a matter of the ring, not of the tolerance.
    return testIfRectangle(aPoints, aCount, aMinX, aMaxX, aMinY, aMaxY, 0.35);
}
