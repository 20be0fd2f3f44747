#include "ZnCvSplineTryShape.h"

#include "Turn.h"

#include <algorithm>
#include <limits>

namespace {

constexpr int kCoarseStep = 5;   // degrees
constexpr int kCoarseSteps = 16; // up to 80 degrees; the fine search reaches 85 from there

double turnedBoxArea(const double (*aPoints)[2], unsigned aCount, double aDegrees)
{
    const Turn turn(aDegrees);
    double minX = std::numeric_limits<double>::max();
    double maxX = std::numeric_limits<double>::lowest();
    double minY = minX;
    double maxY = maxX;
    for (unsigned i = 0; i < aCount; ++i) {
        const double x = turn.x(aPoints[i][0], aPoints[i][1]);
        const double y = turn.y(aPoints[i][0], aPoints[i][1]);
        minX = std::min(minX, x);
        maxX = std::max(maxX, x);
        minY = std::min(minY, y);
        maxY = std::max(maxY, y);
    }
    return (maxX - minX) * (maxY - minY);
}

void moveMeanToOrigin(double (*aPoints)[2], unsigned aCount, double& aCentreX, double& aCentreY)
{
    aCentreX = 0.0;
    aCentreY = 0.0;
    for (unsigned i = 0; i < aCount; ++i) {
        aCentreX += aPoints[i][0];
        aCentreY += aPoints[i][1];
    }
    aCentreX /= aCount;
    aCentreY /= aCount;
    for (unsigned i = 0; i < aCount; ++i) {
        aPoints[i][0] -= aCentreX;
        aPoints[i][1] -= aCentreY;
    }
}

} // namespace

double ZnCvSplineTryShape::findBBoxAngle(double (*aPoints)[2], unsigned aCount, double& aCentreX,
                                         double& aCentreY)
{
    if (aCount == 0) {
        aCentreX = aCentreY = 0.0;
        return 0.0;
    }
    moveMeanToOrigin(aPoints, aCount, aCentreX, aCentreY);

    double bestArea = turnedBoxArea(aPoints, aCount, 0.0);
    int best = 0;
    const auto tryAngle = [&](int aDegrees, int aName) {
        const double area = turnedBoxArea(aPoints, aCount, double(aDegrees));
        if (bestArea > area) {
            bestArea = area;
            best = aName;
        }
    };
    for (int i = 1; i <= kCoarseSteps; ++i)
        tryAngle(kCoarseStep * i, i);
    // One variable names the coarse step first and the fine degrees later. A coarse angle that no degree
    // around it beats keeps its step number, so a stroke drawn at a multiple of 5 degrees, say 15, is taken
    // for one at a fifth of it, 3, and its shape is judged and built in that frame.
    const int first = kCoarseStep * best - kCoarseStep;
    const int last = kCoarseStep * best + kCoarseStep;
    for (int degrees = first; degrees <= last; ++degrees)
        tryAngle(degrees, degrees);
    return double(best);
}
