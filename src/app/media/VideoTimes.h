#ifndef VIDEOTIMES_H
#define VIDEOTIMES_H

#include "FrameTimes.h"

class VideoIndex;

/// When the frames of a video are shown.
namespace VideoTimes {

/// From the stamps of the frames as far as there are any. aTick is the length of a tick of the stamps in
/// seconds, aFrameTime the usual time between two frames, 0 if unknown.
FrameTimes of(const VideoIndex& aIndex, double aTick, double aFrameTime);

} // namespace VideoTimes

#endif
