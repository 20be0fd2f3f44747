#include "VideoCache.h"

#include <algorithm>

namespace {

qint64 bytesOf(const AVFrame& aFrame)
{
    qint64 bytes = qint64(sizeof(AVFrame));
    for (const AVBufferRef* buffer : aFrame.buf)
        bytes += buffer ? qint64(buffer->size) : 0;
    return bytes;
}

} // namespace

void VideoCache::setPresent(int aFrame)
{
    if (aFrame != thePresent)
        theStep = aFrame - thePresent;
    thePresent = aFrame;
}

bool VideoCache::isSteppingBack() const
{
    constexpr int kSmall = 32;
    return theStep < 0 && theStep >= -kSmall;
}

qint64 VideoCache::distance(int aFrame) const
{
    // How much farther a frame counts that the user is going away from.
    constexpr qint64 kBehind = 4;
    const qint64 ahead = theStep < 0 ? thePresent - aFrame : aFrame - thePresent;
    return ahead >= 0 ? ahead : -ahead * kBehind;
}

void VideoCache::insert(int aFrame, const VideoPicture& aPicture)
{
    if (contains(aFrame))
        return;
    thePictures.emplace(aFrame, aPicture);
    theBytes += bytesOf(*aPicture.theFrame);
    while (theBytes > theLimit)
        evict();
}

void VideoCache::evict()
{
    // The farthest is the first or the last.
    const auto first = thePictures.begin();
    const auto last = std::prev(thePictures.end());
    const auto farthest = distance(first->first) > distance(last->first) ? first : last;
    theBytes -= bytesOf(*farthest->second.theFrame);
    thePictures.erase(farthest);
}

VideoPicture VideoCache::find(int aFrame) const
{
    const auto found = thePictures.find(aFrame);
    return found == thePictures.end() ? VideoPicture() : found->second;
}
