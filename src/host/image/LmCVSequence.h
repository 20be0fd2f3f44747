#ifndef LMCVSEQUENCE_H
#define LMCVSEQUENCE_H

#include <QList>
#include <QPoint>
#include <QRect>

/// A sequence of integer points: an outline with its measures. Points lie relative to the offset.
class LmCVSequence
{
public:
    /// aCount points at (0, 0). aDepth is the size of a point in bytes, 8 for two 32-bit coordinates.
    LmCVSequence(int aCount, int aDepth);

    /// Both ignore an index outside the sequence; getPoint then leaves its results alone.
    void putPoint(int aIndex, int aX, int aY);
    void getPoint(int aIndex, int& aX, int& aY) const;

    /// The absolute shoelace area in square pixels; 0 for fewer than three points.
    double calculateArea() const;
    /// The summed edge lengths in pixels, with the edge from the last point to the first if closed.
    double calculatePerimeter(bool aClosed) const;
    /// The centre of gravity of the enclosed area, or of the points where that area is 0 or a crossed
    /// outline's parts cancel out so far that the centre would lie outside the bounding rectangle. Rounded to
    /// whole pixels as seen from the first point (halves away from it), so that it moves along when all
    /// points are moved. (0, 0) without points.
    QPoint calculateCoG() const;
    /// The smallest rectangle of pixels that holds all points; null without points.
    QRect calculateBoundingRect() const;

    int theOffsetX = 0; // place of the image area in which the outline was found
    int theOffsetY = 0;
    QPoint theCoG;    // relative to the offset, set by whoever finds the outline
    int theCount = 0; // number of points

private:
    QList<QPoint> thePoints;
};

#endif
