#ifndef OUTLINEDEVIATION_H
#define OUTLINEDEVIATION_H

#include "Q3PointArray.h"

/// How far a smoothed outline lies from the stroke that it replaced.
namespace OutlineDeviation {

/// The greatest distance, in canvas pixels, of a sample to the outline with three points per node; 0 without
/// samples or nodes. The outline is measured along its flattened segments.
double largest(const Q3PointArray& aSamples, const Q3PointArray& aOutlinePoints, bool aClosed);

} // namespace OutlineDeviation

#endif
