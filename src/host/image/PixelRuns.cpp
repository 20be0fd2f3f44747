#include "PixelRuns.h"

#include <cstdint>
#include <cstring>

PixelRuns::PixelRuns(const BytePlane& aMask)
{
    size_t above = 0;
    for (int y = 0; y < aMask.theRows; ++y) {
        const size_t here = theRuns.size();
        takeRow(aMask.row(y), aMask.theColumns, y);
        joinRows(above, here);
        above = here;
    }
    groupByObject();
}

void PixelRuns::takeRow(const unsigned char* aRow, int aColumns, int aY)
{
    int x = 0;
    while (x < aColumns) {
        // Most of a mask is empty: eight pixels at a time.
        std::uint64_t eight = 0;
        while (x + 8 <= aColumns && (std::memcpy(&eight, aRow + x, 8), eight == 0))
            x += 8;
        while (x < aColumns && !aRow[x])
            ++x;
        if (x == aColumns)
            return;
        const int first = x;
        while (x < aColumns && aRow[x])
            ++x;
        theParents.push_back(theRuns.size());
        theRuns.push_back({aY, first, x});
    }
}

void PixelRuns::joinRows(size_t aAbove, size_t aHere)
{
    size_t above = aAbove;
    for (size_t here = aHere; here < theRuns.size(); ++here) {
        const Run& run = theRuns[here];
        while (above < aHere && theRuns[above].theEnd < run.theFirst)
            ++above;
        for (size_t touching = above; touching < aHere && theRuns[touching].theFirst <= run.theEnd;
             ++touching) {
            const size_t one = rootOf(touching);
            const size_t other = rootOf(here);
            theParents[one > other ? one : other] = one > other ? other : one;
        }
    }
}

size_t PixelRuns::rootOf(size_t aRun)
{
    while (theParents[aRun] != aRun)
        aRun = theParents[aRun] = theParents[theParents[aRun]];
    return aRun;
}

/// Sorts the runs by objects, in the order in which they stand.
void PixelRuns::groupByObject()
{
    std::vector<size_t> objects(theRuns.size());
    theBegins.assign(1, 0);
    for (size_t i = 0; i < theRuns.size(); ++i) {
        const size_t root = rootOf(i);
        if (root == i) {
            objects[i] = theBegins.size() - 1;
            theBegins.push_back(0);
        } else {
            objects[i] = objects[root];
        }
        ++theBegins[objects[i] + 1];
    }
    for (size_t i = 1; i < theBegins.size(); ++i)
        theBegins[i] += theBegins[i - 1];
    std::vector<size_t> next(theBegins.begin(), theBegins.end() - 1);
    std::vector<Run> sorted(theRuns.size());
    for (size_t i = 0; i < theRuns.size(); ++i)
        sorted[next[objects[i]]++] = theRuns[i];
    theRuns.swap(sorted);
    std::vector<size_t>().swap(theParents);
}
