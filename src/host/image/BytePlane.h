#ifndef BYTEPLANE_H
#define BYTEPLANE_H

#include <cstddef>

/// Rows of bytes that belong to somebody else: a gray picture, a mask or a part of one.
struct BytePlane
{
    const unsigned char* theData;
    int theColumns;
    int theRows;
    std::size_t theStep; // bytes from one row to the next

    const unsigned char* row(int aY) const { return theData + std::size_t(aY) * theStep; }
};

#endif
