#include "FitStrokes.h"

#include <QtMath>

namespace {

class Maker
{
public:
    explicit Maker(QRandomGenerator& aRandom) : theRandom(aRandom) {}

    double between(double aLow, double aHigh) { return aLow + theRandom.generateDouble() * (aHigh - aLow); }
    double noise() { return between(-theNoise, theNoise); }

    /// aShare runs from 0 to 1 along the stroke.
    Point2D at(FitStrokes::Kind aKind, double aShare, int aIndex)
    {
        const double angle = 2.0 * M_PI * aShare;
        switch (aKind) {
        case FitStrokes::kNoisyCircle:
            return {theSize * std::cos(angle) + noise(), theSize * std::sin(angle) + noise()};
        case FitStrokes::kCusps: // the path of a point on a rolling wheel
            return {theSize * 0.3 * (4.0 * angle - std::sin(4.0 * angle)),
                    theSize * 0.3 * (1.0 - std::cos(4.0 * angle))};
        case FitStrokes::kLoops:
            return {theSize * std::sin(3.0 * angle), theSize * std::sin(2.0 * angle) + noise()};
        case FitStrokes::kStraightWithRepeats:
            return {std::floor(aShare * theSize), std::floor(aShare * theSize * 0.5)};
        case FitStrokes::kHand:
            return wander();
        case FitStrokes::kNoise:
            return {between(-theSize, theSize), between(-theSize, theSize)};
        case FitStrokes::kSpiral:
            return {theSize * aShare * std::cos(5.0 * angle), theSize * aShare * std::sin(5.0 * angle)};
        case FitStrokes::kRectangle:
            return {std::clamp(theSize * std::cos(angle), -0.6 * theSize, 0.6 * theSize) + noise(),
                    std::clamp(theSize * std::sin(angle), -0.4 * theSize, 0.4 * theSize)};
        case FitStrokes::kZigzag:
            return {theSize * aShare, aIndex % 2 == 0 ? noise() : 0.3 * theSize};
        case FitStrokes::kKindCount:
            break;
        }
        return {};
    }

private:
    // Steps of about 6 whose direction bends slowly.
    Point2D wander()
    {
        theTurn = 0.8 * theTurn + between(-0.08, 0.08);
        theDirection += theTurn + between(-0.03, 0.03);
        const double step = between(5.0, 7.0);
        thePlace = thePlace + Point2D(step * std::cos(theDirection), step * std::sin(theDirection));
        return thePlace;
    }

    QRandomGenerator& theRandom;
    double theSize = between(5.0, 400.0);
    double theNoise = between(0.0, 3.0);
    double theTurn = 0.0;
    double theDirection = between(0.0, 6.0);
    Point2D thePlace;
};

} // namespace

std::vector<Point2D> FitStrokes::make(Kind aKind, int aLength, QRandomGenerator& aRandom)
{
    Maker maker(aRandom);
    const bool whole = aRandom.bounded(2) == 0; // as recorded from a mouse
    std::vector<Point2D> stroke;
    for (int i = 0; i < aLength; ++i) {
        const Point2D point = maker.at(aKind, double(i) / std::max(aLength - 1, 1), i);
        stroke.push_back(whole ? Point2D(std::round(point.x), std::round(point.y)) : point);
    }
    return stroke;
}

std::vector<Point2D> FitStrokes::scaled(const std::vector<Point2D>& aStroke, double aScale)
{
    std::vector<Point2D> result;
    for (const Point2D& point : aStroke)
        result.push_back(aScale * point);
    return result;
}
