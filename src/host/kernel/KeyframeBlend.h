#ifndef KEYFRAMEBLEND_H
#define KEYFRAMEBLEND_H

#include "LmParamKeyframe.h"

/// The values of geometry between two keyframes.
namespace KeyframeBlend {

/// The value at a frame strictly between the two: points run linearly, each coordinate rounded with halves
/// away from zero, point lists of equal length point by point. Whatever else they hold, the earlier value
/// counts.
QVariant at(const LmParamKeyframe& aEarlier, const LmParamKeyframe& aLater, long long aFrame);

} // namespace KeyframeBlend

#endif
