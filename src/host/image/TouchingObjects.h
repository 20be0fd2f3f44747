#ifndef TOUCHINGOBJECTS_H
#define TOUCHINGOBJECTS_H

#include "PixelOutline.h"

#include <QSize>

/// Separates round things that touch or overlap a little: where two wide places of an object are joined by a
/// narrow and short neck.
namespace TouchingObjects {

/// The outlines of the parts of an object in a field of the given size; the one outline for a single thing.
/// What the field's edge cuts off counts as going on outside.
std::vector<PixelOutline> separated(const PixelOutline& aOutline, const QSize& aField);

} // namespace TouchingObjects

#endif
