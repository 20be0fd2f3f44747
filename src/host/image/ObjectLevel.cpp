#include "ObjectLevel.h"

#include <algorithm>

ObjectLevel::ObjectLevel(const PixelRuns& aRuns, std::size_t aObject, const BytePlane& aHeight,
                         const BytePlane& aSharp, int aLowest, double aSigma)
{
    for (const auto* run = aRuns.begin(aObject); run != aRuns.end(aObject); ++run)
        count(*run, aHeight);
    findContrast(aSigma);
    findCut(aLowest);
    // Blur takes height away from small objects: the highest part tells how much.
    const int core = theContrast - theContrast / 5;
    long long blurred = 0;
    long long sharp = 0;
    for (const auto* run = aRuns.begin(aObject); run != aRuns.end(aObject); ++run)
        for (int x = run->theFirst; x < run->theEnd; ++x)
            if (const int height = aHeight.row(run->theRow)[x]; height >= core) {
                blurred += height;
                sharp += aSharp.row(run->theRow)[x];
            }
    theSharpCut = blurred > 0 ? int((theCut * sharp + blurred / 2) / blurred) : theCut;
}

void ObjectLevel::count(const PixelRuns::Run& aRun, const BytePlane& aHeight)
{
    const unsigned char* row = aHeight.row(aRun.theRow);
    // At the picture's edge a pixel is its own neighbour, which counts nothing.
    const unsigned char* above = aRun.theRow > 0 ? aHeight.row(aRun.theRow - 1) : row;
    const unsigned char* below = aRun.theRow + 1 < aHeight.theRows ? aHeight.row(aRun.theRow + 1) : row;
    for (int x = aRun.theFirst; x < aRun.theEnd; ++x) {
        const int here = row[x];
        ++theCounts[std::size_t(here)];
        countEdge(here, above[x]);
        countEdge(here, below[x]);
        countEdge(here, row[x > 0 ? x - 1 : x]);
        countEdge(here, row[x + 1 < aHeight.theColumns ? x + 1 : x]);
    }
    thePixels += aRun.theEnd - aRun.theFirst;
}

void ObjectLevel::findContrast(double aSigma)
{
    // The highest quarter shows the object without its slopes, if it is so large that blur leaves it as much
    // that is level: more than 5.5 sigma in radius, 8 with the slope. A smaller one has only its top.
    const double slopesOnly = 200.0 * aSigma * aSigma;
    const int wanted = thePixels < slopesOnly ? 1 : (thePixels + 3) / 4;
    int higher = 0;
    for (std::size_t value = kValues; value-- > 0 && higher < wanted;) {
        higher += theCounts[value];
        theContrast = int(value);
    }
}

void ObjectLevel::findCut(int aLowest)
{
    // Levels nearly as steep as the best are as good, and the highest of them stays clear of the ground.
    constexpr double kAsGood = 0.9;
    const int highest = std::max(aLowest, (theContrast + 1) / 2);
    std::array<double, kValues> steepness{};
    long long borders = 0;
    long long climb = 0;
    double best = 0.0;
    for (int level = 1; level <= highest; ++level) {
        borders += theBorders[std::size_t(level)];
        climb += theClimbs[std::size_t(level)];
        if (level < aLowest || borders == 0)
            continue;
        steepness[std::size_t(level)] = double(climb) / double(borders);
        best = std::max(best, steepness[std::size_t(level)]);
    }
    for (theCut = highest; theCut > aLowest && steepness[std::size_t(theCut)] < kAsGood * best;)
        --theCut;
}
