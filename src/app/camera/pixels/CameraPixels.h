#ifndef CAMERAPIXELS_H
#define CAMERAPIXELS_H

#include "VideoPixels.h"

class QVideoFrame;

/// Turns the frames of a camera into images with colours exact enough to be measured, the same on every
/// graphics card. One thread at a time may use it.
class CameraPixels
{
public:
    /// Upright, however the camera is held. One channel for gray frames, three for all others: a camera has
    /// no transparency. Null for a frame that can't be read; may throw std::bad_alloc.
    std::unique_ptr<LmImage> convert(const QVideoFrame& aFrame);

private:
    std::unique_ptr<LmImage> convertPixels(QVideoFrame& aFrame);
    std::unique_ptr<LmImage> fromPlanes(QVideoFrame& aFrame, int aFormat);

    VideoPixels thePlanes;
};

#endif
