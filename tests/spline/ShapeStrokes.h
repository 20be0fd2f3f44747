#ifndef SHAPESTROKES_H
#define SHAPESTROKES_H

#include <QList>
#include <QPoint>
#include <QPointF>
#include <QRandomGenerator>
#include <QSizeF>

/// Strokes as the recogniser may meet them.
namespace ShapeStrokes {

/// A place, a size and a turn in degrees, clockwise on the screen.
struct Frame
{
    QPointF theCentre;
    QSizeF theSize;
    double theDegrees = 0.0;

    QPointF map(const QPointF& aOffset) const;
};

/// Closed outlines with aCount samples, whole pixels, the last one on the first.
QList<QPoint> ellipse(const Frame& aFrame, int aCount);
QList<QPoint> rectangle(const Frame& aFrame, int aCount);
/// Corners are quarters of circles of that radius.
QList<QPoint> roundedRectangle(const Frame& aFrame, double aRadius, int aCount);

enum Kind {
    kEllipse,
    kRectangle,
    kRoundedRectangle,
    kOpenArc,
    kFigureOfEight,
    kCusps,
    kSpiral,
    kStraightWithRepeats,
    kFlat,
    kNoise,
    kHuge,
    kKindCount
};

/// A stroke of about aCount samples with a hand's wobble and at a random place, size and turn.
QList<QPoint> make(Kind aKind, int aCount, QRandomGenerator& aRandom);

} // namespace ShapeStrokes

#endif
