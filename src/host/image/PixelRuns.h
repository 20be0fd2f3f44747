#ifndef PIXELRUNS_H
#define PIXELRUNS_H

#include "BytePlane.h"

#include <vector>

/// The set pixels of a mask as runs in rows, grouped into objects: runs that touch each other by an edge or a
/// corner belong together. Takes one look at every pixel and memory for the runs alone.
class PixelRuns
{
public:
    struct Run
    {
        int theRow;
        int theFirst;
        int theEnd; // the column behind the last
    };

    /// Every byte of the mask but 0 is set.
    explicit PixelRuns(const BytePlane& aMask);

    /// Objects come in the order of their topmost, then leftmost pixels.
    size_t objectCount() const { return theBegins.size() - 1; }
    const Run* begin(size_t aObject) const { return theRuns.data() + theBegins[aObject]; }
    const Run* end(size_t aObject) const { return theRuns.data() + theBegins[aObject + 1]; }

private:
    void takeRow(const unsigned char* aRow, int aColumns, int aY);
    void joinRows(size_t aAbove, size_t aHere);
    size_t rootOf(size_t aRun);
    void groupByObject();

    std::vector<Run> theRuns;
    std::vector<size_t> theParents; // while runs are joined: an earlier run of the same object
    std::vector<size_t> theBegins;  // the first run of each object, and the end
};

#endif
