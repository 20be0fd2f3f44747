#ifndef VIDEOSCALER_H
#define VIDEOSCALER_H

extern "C" {
#include <libavutil/frame.h>
#include <libswscale/swscale.h>
}

#include <QtGlobal>

#include <memory>
#include <vector>

/// Converts the colours of frames of one kind to bytes of red, green and blue, or of gray.
class VideoScaler
{
public:
    explicit VideoScaler(bool aIsAccurate) : theAccurate(aIsAccurate) {}

    /// False if the frame has pixels of an unknown kind.
    bool convert(const AVFrame& aFrame);
    /// Of the last converted frame.
    int channels() const { return theChannels; }
    const uint8_t* row(int aY) const { return theRows.data() + size_t(aY) * size_t(theBytesPerRow); }

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

    bool theAccurate;
    Kind theKind;
    std::unique_ptr<SwsContext, Release> theContext;
    std::vector<uint8_t> theRows;
    int theBytesPerRow = 0;
    int theChannels = 3;
};

#endif
