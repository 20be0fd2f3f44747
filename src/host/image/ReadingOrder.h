#ifndef READINGORDER_H
#define READINGORDER_H

#include "PixelOutline.h"

/// The order in which a person would count things: row by row from the top, and from left to right in each.
namespace ReadingOrder {

/// A row holds what has its middle no more than an object's usual height below the top of the row's highest
/// object. Outlines of one place are told apart by their first points.
void sort(std::vector<PixelOutline>& aOutlines);

} // namespace ReadingOrder

#endif
