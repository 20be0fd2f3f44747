#ifndef VIDEODECODER_H
#define VIDEODECODER_H

#include "VideoHandles.h"

/// Turns packets into frames and knows of each frame which packet it came from: a packet carries its serial
/// through the decoder in the place of its stamp, which also keeps two frames with one stamp apart.
class VideoDecoder
{
public:
    /// aReorderDepth is how many frames may wait for one that is shown before them; a decoder that finds this
    /// out on its way drops frames. False if nothing here can decode the video.
    bool open(const AVCodecParameters& aParameters, int aReorderDepth);

    /// Forgets what was sent, to begin somewhere else.
    void flush();
    /// To be followed by receiving all frames. False if the packet is damaged. Takes over the packet's
    /// content.
    bool send(AVPacket& aPacket, int aSerial);
    /// Tells that no packet follows, so that the last frames come out.
    void drain();
    /// The next frame, whose pts is the serial of its packet; false if more packets are needed first.
    bool receive(AVFrame& aFrame);
    /// Whether receive has failed for damage since the last call.
    bool takeFailure();

    /// Passes over frames that no other frame needs, as long as it is set.
    void skipUnneeded(bool aSkip);
    int reorderDepth() const { return theContext->has_b_frames; }
    /// No codec holds more frames back for their order; decoders fail on more.
    static constexpr int kDeepestReorder = 16;
    /// How many packets after a packet an error in it is told at the latest.
    int delay() const { return theContext->thread_count; }

private:
    VideoHandles::Context theContext;
    bool theFailed = false;
};

#endif
