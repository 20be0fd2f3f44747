#ifndef DRAWN_H
#define DRAWN_H

#include <QPoint>

class Workbench;

/// Adds a distance between two image points by an undoable command; its index, or 0 without the Distance
/// tool.
int addDistance(Workbench& aBench, const QPoint& aStart, const QPoint& aEnd);

/// The type of distances.
constexpr int kDistanceType = 1102;

#endif
