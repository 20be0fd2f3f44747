#include "OutlineEdge.h"

#include <algorithm>

namespace {

// Holds the product of the extents of an edge of any size.
__extension__ typedef __int128 Wide;

void addCover(qint64 aFirst, qint64 aLast, int aWidth, std::vector<OutlineEdge::Event>& aEvents)
{
    const qint64 first = std::max<qint64>(aFirst, 0);
    const qint64 end = std::min<qint64>(aLast + 1, aWidth);
    if (first >= end)
        return;
    aEvents.push_back({int(first), 0, 1});
    aEvents.push_back({int(end), 0, -1});
}

} // namespace

bool OutlineEdge::reaches(const Point& aFrom, const Point& aTo, int aHeight)
{
    return std::min(aFrom.theY, aTo.theY) < aHeight && std::max(aFrom.theY, aTo.theY) >= 0;
}

OutlineEdge::OutlineEdge(const Point& aFrom, const Point& aTo, int aHeight)
    : theLeft(std::min(aFrom.theX, aTo.theX)), theRight(std::max(aFrom.theX, aTo.theX))
{
    const bool downward = aFrom.theY <= aTo.theY;
    const Point upper = downward ? aFrom : aTo;
    const Point lower = downward ? aTo : aFrom;
    const qint64 dx = lower.theX - upper.theX;
    const qint64 dy = lower.theY - upper.theY;
    theBottom = lower.theY;
    theFirstRow = int(std::max<qint64>(upper.theY, 0));
    theLastRow = int(std::min<qint64>(lower.theY, aHeight - 1));
    theWinding = dy == 0 ? 0 : downward ? 1 : -1;
    theSteep = dy > theRight - theLeft;
    theToTheRight = dx > 0;
    if (dy == 0)
        return;
    theParts = 2 * dy;
    const auto floorOf = [this](Wide aNumerator, qint64& aRest) {
        Wide whole = aNumerator / theParts;
        if (whole * theParts > aNumerator)
            --whole;
        aRest = qint64(aNumerator - whole * theParts);
        return qint64(whole);
    };
    theStepX = floorOf(dx, theStepRest);
    // Half a row above the centres of the first row.
    theX = upper.theX + floorOf(Wide(2 * (theFirstRow - upper.theY) - 1) * dx, theRest);
}

void OutlineEdge::stepHalfRow()
{
    theX += theStepX;
    theRest += theStepRest;
    if (theRest >= theParts) {
        theRest -= theParts;
        ++theX;
    }
}

void OutlineEdge::takeRow(int aRow, int aWidth, std::vector<Event>& aEvents)
{
    if (theWinding == 0) {
        addCover(theLeft, theRight, aWidth, aEvents);
        return;
    }
    const qint64 floorAbove = theX;
    const qint64 ceilingAbove = ceiling();
    stepHalfRow();
    // The lower end is left to the edge that goes on from it.
    if (aRow < theBottom && ceiling() < aWidth)
        aEvents.push_back({int(std::max<qint64>(ceiling(), 0)), theWinding, 0});
    if (theSteep) {
        const qint64 nearest = theX + (2 * theRest >= theParts ? 1 : 0);
        addCover(nearest, nearest, aWidth, aEvents);
    }
    stepHalfRow();
    if (theSteep)
        return;
    // The columns in which the edge lies at most half a row above the centres and less than that below them.
    const qint64 first = theToTheRight ? ceilingAbove : theX + 1;
    const qint64 last = theToTheRight ? ceiling() - 1 : floorAbove;
    addCover(std::max(first, theLeft), std::min(last, theRight), aWidth, aEvents);
}
