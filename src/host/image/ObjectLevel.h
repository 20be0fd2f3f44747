#ifndef OBJECTLEVEL_H
#define OBJECTLEVEL_H

#include "PixelRuns.h"

#include <array>

/// How far one object stands out from the ground, and the level at which it is cut out: the one whose line
/// around the object runs along its steepest edges, at most half way up. So blurred objects keep their size,
/// and those with a relief aren't cut into pieces at the level of their brightest parts.
class ObjectLevel
{
public:
    /// aHeight says for each pixel how far it stands out; aSigma is the blur, in pixels, that it went
    /// through, and aSharp the same without that blur. The object's pixels reach at least aLowest.
    ObjectLevel(const PixelRuns& aRuns, std::size_t aObject, const BytePlane& aHeight,
                const BytePlane& aSharp, int aLowest, double aSigma);

    int contrast() const { return theContrast; }
    int cut() const { return theCut; }
    /// The level in the picture without the blur.
    int sharpCut() const { return theSharpCut; }

private:
    void count(const PixelRuns::Run& aRun, const BytePlane& aHeight);
    void countEdge(int aHere, int aThere)
    {
        if (aThere >= aHere)
            return; // each border counts once, from its higher side
        ++theBorders[std::size_t(aThere) + 1];
        --theBorders[std::size_t(aHere) + 1];
        theClimbs[std::size_t(aThere) + 1] += aHere - aThere;
        theClimbs[std::size_t(aHere) + 1] -= aHere - aThere;
    }
    void findContrast(double aSigma);
    void findCut(int aLowest);

    static constexpr std::size_t kValues = 256;
    std::array<int, kValues> theCounts{};
    // Borders between neighbours that a cut at a level runs along, and their summed differences of height:
    // what changes from the level before.
    std::array<long long, kValues + 1> theBorders{};
    std::array<long long, kValues + 1> theClimbs{};
    int thePixels = 0;
    int theContrast = 0;
    int theCut = 0;
    int theSharpCut = 0;
};

#endif
