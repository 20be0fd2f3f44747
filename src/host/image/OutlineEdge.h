#ifndef OUTLINEEDGE_H
#define OUTLINEEDGE_H

#include <QtGlobal>

#include <vector>

/// One edge of an outline, walked downward row by row. Its column is kept as a whole number and a fraction,
/// so nothing is rounded on the way.
class OutlineEdge
{
public:
    struct Point
    {
        qint64 theX;
        qint64 theY;
    };

    /// What changes at a column of a row: the winding number of the pixels from there on, and the number of
    /// edges that run through them.
    struct Event
    {
        int theX;
        int theWinding;
        int theCover;
    };

    /// An edge of a field of aHeight rows, which it must reach.
    OutlineEdge(const Point& aFrom, const Point& aTo, int aHeight);
    static bool reaches(const Point& aFrom, const Point& aTo, int aHeight);

    int firstRow() const { return theFirstRow; }
    int lastRow() const { return theLastRow; }
    /// Adds the events of the row, held in the columns from 0 to aWidth, and goes on to the next. Rows come
    /// in order from the first one.
    void takeRow(int aRow, int aWidth, std::vector<Event>& aEvents);

private:
    void stepHalfRow();
    qint64 ceiling() const { return theX + (theRest > 0 ? 1 : 0); }

    qint64 theLeft;
    qint64 theRight;
    qint64 theBottom; // the row of the lower end, in or below the field
    int theFirstRow;  // in the field
    int theLastRow;
    int theWinding;      // 0 for a level edge
    bool theSteep;       // more rows than columns
    bool theToTheRight;  // downward
    qint64 theParts = 0; // half rows from end to end; the denominator of the fraction
    qint64 theX = 0;     // column = theX + theRest / theParts, 0 <= theRest < theParts
    qint64 theRest = 0;
    qint64 theStepX = 0; // what half a row adds
    qint64 theStepRest = 0;
};

#endif
