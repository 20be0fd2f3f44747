#ifndef ZNCVSPLINETRYSHAPE_H
#define ZNCVSPLINETRYSHAPE_H

#include <QPoint>

class LmCvRegion;

/// Recognises an ellipse, a rectangle or a rounded rectangle in a freehand stroke that comes back to its
/// start, and puts the clean shape, turned as the stroke was, in its place. Lengths are canvas pixels, angles
/// degrees.
class ZnCvSplineTryShape
{
public:
    enum Shape { kNoShape = 0, kEllipse = 1, kRectangle = 2, kRoundedRectangle = 3 };

    /// The shape that the region now is. Without one the region is left as a dense polyline of its curve.
    static int tryAssignShape(LmCvRegion* aRegion);

    /// Flattens the outline into one node per point of its polyline; the new number of nodes.
    static int recreateSpline(LmCvRegion* aRegion, int aNodeCount);
    static bool checkIfClose(LmCvRegion* aRegion, int aNodeCount);
    /// Moves the points' mean to the origin and searches the turn with the least bounding box. Where the fine
    /// search improves nothing, the result is the number of the coarse step instead of its angle.
    static double findBBoxAngle(double (*aPoints)[2], unsigned aCount, double& aCentreX, double& aCentreY);
    /// Turns the points by the angle and, when they are a shape, gives the region its nodes, not turned back
    /// yet.
    static int findShape(double (*aPoints)[2], unsigned aCount, double aAngle, LmCvRegion* aRegion);

    static bool testIfEllipse(double (*aPoints)[2], unsigned aCount, double aMinX, double aMaxX, double aMinY,
                              double aMaxY, double aTolerance);
    static bool testIfRoundedRectangle(double (*aPoints)[2], unsigned aCount, double aMinX, double aMaxX,
                                       double aMinY, double aMaxY, double aTolerance);
    static bool testIfRectangle(double (*aPoints)[2], unsigned aCount, double aMinX, double aMaxX,
                                double aMinY, double aMaxY, double aTolerance);

    static void getEllipse(QPoint aCentre, double aWidth, double aHeight, LmCvRegion* aRegion);
    static void getRoundedRectangle(QPoint aCentre, double aWidth, double aHeight, LmCvRegion* aRegion);
    static void getRectangle(QPoint aCentre, double aWidth, double aHeight, LmCvRegion* aRegion);
};

#endif
