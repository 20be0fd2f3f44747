#include "OutlineScan.h"

#include "LmCVSequence.h"

#include <algorithm>

namespace {

OutlineEdge::Point pointAt(const LmCVSequence& aOutline, int aIndex)
{
    int x = 0;
    int y = 0;
    aOutline.getPoint(aIndex, x, y);
    return {qint64(x) + aOutline.theOffsetX, qint64(y) + aOutline.theOffsetY};
}

} // namespace

OutlineScan::OutlineScan(const LmCVSequence& aOutline, int aWidth, int aHeight) : theWidth(aWidth)
{
    const int count = aOutline.theCount;
    for (int i = 0; i < count; ++i) {
        const OutlineEdge::Point from = pointAt(aOutline, i);
        const OutlineEdge::Point to = pointAt(aOutline, i + 1 < count ? i + 1 : 0);
        if (OutlineEdge::reaches(from, to, aHeight))
            theEdges.emplace_back(from, to, aHeight);
    }
    std::sort(theEdges.begin(), theEdges.end(), [](const OutlineEdge& aOne, const OutlineEdge& aOther) {
        return aOne.firstRow() < aOther.firstRow();
    });
}

bool OutlineScan::nextRow()
{
    const auto isPast = [this](const OutlineEdge& aEdge) { return aEdge.lastRow() <= theRow; };
    if (theStarted)
        theActive.erase(std::remove_if(theActive.begin(), theActive.end(), isPast), theActive.end());
    // The rows of a closed outline have no gap, so a row without edges is its end.
    if (theActive.empty() && theNextEdge == theEdges.size())
        return false;
    theRow = theStarted ? theRow + 1 : theEdges.front().firstRow();
    theStarted = true;
    while (theNextEdge < theEdges.size() && theEdges[theNextEdge].firstRow() <= theRow)
        theActive.push_back(theEdges[theNextEdge++]);
    findRuns();
    return true;
}

void OutlineScan::findRuns()
{
    theEvents.clear();
    theRuns.clear();
    for (OutlineEdge& edge : theActive)
        edge.takeRow(theRow, theWidth, theEvents);
    std::sort(theEvents.begin(), theEvents.end(),
              [](const OutlineEdge::Event& aOne, const OutlineEdge::Event& aOther) {
                  return aOne.theX < aOther.theX;
              });
    int winding = 0;
    int cover = 0;
    for (size_t i = 0; i < theEvents.size(); ++i) {
        winding += theEvents[i].theWinding;
        cover += theEvents[i].theCover;
        const int from = theEvents[i].theX;
        const int to = i + 1 < theEvents.size() ? theEvents[i + 1].theX : theWidth;
        if (from == to || (winding == 0 && cover == 0))
            continue;
        if (!theRuns.empty() && theRuns.back().theEnd == from)
            theRuns.back().theEnd = to;
        else
            theRuns.push_back({from, to});
    }
}
