#ifndef OUTLINESCAN_H
#define OUTLINESCAN_H

#include "OutlineEdge.h"

#include <QList>

#include <vector>

class LmCVSequence;

/// Finds the pixels of a closed outline, row by row from the top, within a field of pixels that begins at
/// (0, 0). A pixel belongs to the outline if its centre is wound around (a winding number other than 0) or if
/// an edge runs through it: in every column of a flat edge, and in every row of a steep one, the pixel whose
/// centre is nearest, of two equally near ones the lower or the right one.
///
/// Exact for outlines anywhere in the range of int, in time that grows with the rows of the field and the
/// outline's edges in them.
class OutlineScan
{
public:
    struct Run
    {
        int theFirst;
        int theEnd; // the column behind the last
    };

    OutlineScan(const LmCVSequence& aOutline, int aWidth, int aHeight);

    /// Goes to the first row, then to the next one; false when there is none.
    bool nextRow();
    int row() const { return theRow; }
    /// The row's pixels, from left to right; runs don't touch.
    const std::vector<Run>& runs() const { return theRuns; }

private:
    void findRuns();

    int theWidth;
    int theRow = 0;
    bool theStarted = false;
    std::vector<OutlineEdge> theEdges; // those that come into the field, by their first rows
    size_t theNextEdge = 0;
    std::vector<OutlineEdge> theActive; // those in the current row
    std::vector<OutlineEdge::Event> theEvents;
    std::vector<Run> theRuns;
};

#endif
