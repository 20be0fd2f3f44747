#ifndef VIDEOREADER_H
#define VIDEOREADER_H

#include "VideoCache.h"
#include "VideoInput.h"

#include <QtGlobal>

#include <array>
#include <set>
#include <utility>
#include <vector>

class VideoDecoder;
class VideoIndex;

/// Gets any frame of a video: searches a key packet before it, recognises where the file was really entered,
/// and decodes until the wanted frame itself comes out. Nothing is counted on the way.
class VideoReader
{
public:
    /// aMaySkip tells that packets are frames and no fields, so that any can be passed over alone.
    VideoReader(VideoInput& aInput, VideoDecoder& aDecoder, const VideoIndex& aIndex, bool aMaySkip,
                qint64 aCacheLimit);

    /// Without a frame if it can't be decoded.
    VideoPicture read(int aFrame);
    qint64 cachedBytes() const { return theCache.bytes(); }

private:
    bool canGoOn(int aFrame) const;
    void decodeAnew(int aFrame);
    bool begin(int aSerial);
    void addSetup(int aSerial);
    bool approach(int aSerial);
    bool search(int aEntry, int aSerial);
    bool recognise();
    bool goForward(int aSerial);
    bool readNext();

    bool decodeUntil(int aFrame);
    void sendNext(int aFrame);
    bool isWorthSkipping(int aSerial, int aFrame) const;
    void receive(int aFrame, int aLastSent);
    void noteFailure(int aSerial);
    void take(const AVFrame& aFrame, int aWanted);
    void noteError(int aFirst, int aLast);
    bool isAffected(int aSerial) const;

    VideoInput& theInput;
    VideoDecoder& theDecoder;
    const VideoIndex& theIndex;
    const bool theMaySkip;
    VideoCache theCache;
    VideoPicture theFound; // the wanted frame, also where the cache has no room for it

    std::array<VideoInput::Search, 3> theSearches{
        VideoInput::Search::kByShown, VideoInput::Search::kByDecoded, VideoInput::Search::kByPlace};
    VideoHandles::Packet thePacket;
    int theNext = -1;      // serial of the packet to be sent next, which is in thePacket; -1 when not running
    int theFirstFrame = 0; // frames before it lack what they were made from
    int theStart = 0;      // serial of the packet with which decoding began
    int theLastFrame = -1; // that came out
    std::vector<std::pair<int, int>> theErrors; // serials, first and last, since decoding began here
    std::set<int> theDamaged;
};

#endif
