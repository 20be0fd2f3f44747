#ifndef VIDEOCACHE_H
#define VIDEOCACHE_H

#include "VideoHandles.h"

#include <QtGlobal>

#include <map>

/// A decoded frame and whether its picture may be wrong.
struct VideoPicture
{
    std::shared_ptr<AVFrame> theFrame; // null where there is none
    bool theFlawed = false;
};

/// The decoded frames around the present one, within a limit of bytes. While the user goes backward the
/// frames before are worth more than those that were left behind, and the other way round.
class VideoCache
{
public:
    explicit VideoCache(qint64 aLimit) : theLimit(aLimit) {}

    void setPresent(int aFrame);
    /// Whether the way to the present frame was a small one backward.
    bool isSteppingBack() const;
    /// Takes the picture if it fits or is nearer than another that can go for it.
    void insert(int aFrame, const VideoPicture& aPicture);
    bool contains(int aFrame) const { return thePictures.count(aFrame) > 0; }
    /// Without a frame if it isn't there.
    VideoPicture find(int aFrame) const;
    qint64 bytes() const { return theBytes; }

private:
    qint64 distance(int aFrame) const;
    void evict();

    qint64 theLimit;
    qint64 theBytes = 0;
    std::map<int, VideoPicture> thePictures;
    int thePresent = 0;
    int theStep = 0; // that led to the present frame
};

#endif
