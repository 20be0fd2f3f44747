#ifndef FITSTROKES_H
#define FITSTROKES_H

#include "Point2D.h"

#include <QRandomGenerator>

#include <vector>

/// Strokes as the fit may meet them, of any length, from a seeded generator.
namespace FitStrokes {

enum Kind {
    kNoisyCircle,
    kCusps,
    kLoops,
    kStraightWithRepeats,
    kHand,
    kNoise,
    kSpiral,
    kRectangle,
    kZigzag,
    kKindCount
};

std::vector<Point2D> make(Kind aKind, int aLength, QRandomGenerator& aRandom);

/// The stroke about the origin, aScale times as large.
std::vector<Point2D> scaled(const std::vector<Point2D>& aStroke, double aScale);

} // namespace FitStrokes

#endif
