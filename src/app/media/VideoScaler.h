#ifndef VIDEOSCALER_H
#define VIDEOSCALER_H

#include "VideoHandles.h"

extern "C" {
#include <libswscale/swscale.h>
}

/// Converts the colours of frames of one kind to bytes of red, green and blue, or of gray.
class VideoScaler
{
public:
    /// aMostThreads is how many may share the rows of a frame.
    VideoScaler(bool aIsAccurate, int aMostThreads) : theAccurate(aIsAccurate), theMostThreads(aMostThreads)
    {
    }

    /// False if the frame has pixels of an unknown kind; may throw std::bad_alloc.
    bool convert(const AVFrame& aFrame);
    /// Of the last converted frame.
    int channels() const { return theChannels; }
    const uint8_t* row(int aY) const
    {
        return theTarget->data[0] + ptrdiff_t(aY) * ptrdiff_t(theTarget->linesize[0]);
    }

private:
    /// What a conversion is set up for.
    struct Kind
    {
        AVPixelFormat theFormat = AV_PIX_FMT_NONE;
        int theWidth = 0;
        int theHeight = 0;
        bool theFullRange = false;
        int theMatrix = 0;
        AVChromaLocation theChroma = AVCHROMA_LOC_UNSPECIFIED;

        bool operator==(const Kind& aOther) const;
    };
    struct Release
    {
        void operator()(SwsContext* aContext) const { sws_freeContext(aContext); }
    };

    static Kind kindOf(const AVFrame& aFrame);
    bool setUp(const Kind& aKind);
    bool setUpContext(const Kind& aKind);
    void setUpTarget(const Kind& aKind);

    bool theAccurate;
    int theMostThreads;
    Kind theKind;
    std::unique_ptr<SwsContext, Release> theContext;
    VideoHandles::Frame theTarget;
    int theChannels = 3;
};

#endif
