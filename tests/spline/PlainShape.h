#ifndef PLAINSHAPE_H
#define PLAINSHAPE_H

#include <QList>
#include <QPoint>
#include <QPointF>

class LmCvRegion;

/// Recognition written down a second time, step by step and slowly, to hold the quick one against bit by bit.
namespace PlainShape {

struct Box
{
    double theAngle;
    QPointF theCentre;
    QList<QPointF> theRows; // moved, not turned
};
Box bestBox(const QList<QPointF>& aRows);

struct Recognised
{
    int theShape;
    QList<QPoint> theNodes;
};

/// The nodes of a shape around aCentre.
QList<QPoint> nodesOf(int aShape, QPoint aCentre, double aWidth, double aHeight);
/// The shape of points that are turned already; the nodes are not turned back.
Recognised judged(const QList<QPointF>& aTurned);
QList<QPointF> turned(const QList<QPointF>& aRows, double aDegrees);
/// All of it. Without a shape the nodes are the flattened ones, or those of the region when it has too few.
Recognised recognised(const LmCvRegion& aRegion);

} // namespace PlainShape

#endif
