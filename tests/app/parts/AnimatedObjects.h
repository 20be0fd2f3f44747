#ifndef ANIMATEDOBJECTS_H
#define ANIMATEDOBJECTS_H

#include <QList>
#include <QPair>
#include <QPoint>
#include <QPolygon>
#include <QSize>

class QString;
class Workbench;

/// Objects with keyframes, added by undoable commands.
namespace AnimatedObjects {

constexpr int kRegionType = 1103;
constexpr int kAngleType = 1106;
constexpr int kDimensionType = 1112;

/// Where a distance is at a frame, in image coordinates. The middle of both ends has to be whole.
struct Line
{
    int theFrame;
    QPoint theStart;
    QPoint theEnd;
};

/// Where an angle is at a frame, in image coordinates.
struct Corner
{
    int theFrame;
    QPoint theVertex;
    QPoint theEnd1;
    QPoint theEnd2;
};

/// Where the segments of a dimension are at a frame: two points each, the height first.
using Segments = QPair<int, QPolygon>;

/// Where the middle of a square is at a frame.
using Place = QPair<int, QPoint>;

/// An animated distance; its index.
int addDistance(Workbench& aBench, const QList<Line>& aLines);
/// An animated angle; its index.
int addAngle(Workbench& aBench, const QList<Corner>& aCorners);
/// An animated dimension; its index.
int addDimension(Workbench& aBench, const QList<Segments>& aSegments);
/// An animated closed square of so many pixels a side; its index.
int addSquare(Workbench& aBench, int aSide, const QList<Place>& aPlaces);

/// Writes and opens pages that are each of one gray.
void openGrays(Workbench& aBench, const QString& aPath, const QSize& aSize, const QList<int>& aGrays);

} // namespace AnimatedObjects

#endif
