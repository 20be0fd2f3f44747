#ifndef PLAINOUTLINE_H
#define PLAINOUTLINE_H

#include <QList>
#include <QPoint>

class LmCvRegion;

/// What is done to the nodes of a stroke before it is fitted or recognised, written down a second time, step
/// by step and slowly, to hold the quick ways against.
namespace PlainOutline {

/// The walk over the nodes, one removal after the other.
void thin(LmCvRegion& aRegion, float aNeighbourDistance);

/// Nodes with three equal points for each point of the flattened outline.
QList<QPoint> flattened(const LmCvRegion& aRegion);

/// Each of the last anchors with each of the first. aNodes has three points per node.
bool areEndsClose(const QList<QPoint>& aNodes);

} // namespace PlainOutline

#endif
