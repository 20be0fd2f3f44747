#ifndef VIDEOINDEXER_H
#define VIDEOINDEXER_H

#include "MediaSource.h"
#include "VideoHandles.h"

class VideoIndex;
class VideoInput;

/// Reads a video once from its first to its last packet, without decoding it.
class VideoIndexer
{
public:
    VideoIndexer(VideoInput& aInput, VideoIndex& aIndex);

    /// False if the progress was stopped.
    bool run(const MediaSource::Progress& aProgress);
    /// Whether every packet stands for one frame as far as can be told without decoding: none for a field,
    /// none for a picture that is never shown.
    bool isPlain() const { return thePlain; }
    /// When the last packet of any stream ends, in seconds; 0 if nothing has a stamp.
    double end() const { return theEnd; }

private:
    void add(const AVPacket& aPacket);
    bool isWholeFrame(const AVPacket& aPacket);
    void noteEnd(const AVPacket& aPacket);

    VideoInput& theInput;
    VideoIndex& theIndex;
    VideoHandles::Context theContext; // what the parser knows of the stream
    VideoHandles::Parser theParser;   // null for codecs without
    bool thePlain = true;
    double theEnd = 0.0;
};

#endif
