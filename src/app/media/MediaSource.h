#ifndef MEDIASOURCE_H
#define MEDIASOURCE_H

#include "FrameTimes.h"

#include <QString>

#include <functional>
#include <memory>

class LmImage;

/// Where the frames on the screen come from: the pages of a picture, a series of pictures, a video. All
/// frames of a source have the same size. One thread at a time may use a source.
class MediaSource
{
public:
    /// Told how far a long opening is; false stops it.
    using Progress = std::function<bool(int aDone, int aCount)>;

    MediaSource() = default;
    virtual ~MediaSource();
    Q_DISABLE_COPY_MOVE(MediaSource)

    virtual const QString& path() const = 0;
    /// The file that holds the frame; only a series has one for each. Empty for a frame that isn't there.
    virtual QString framePath(int aFrame) const;
    virtual int frameCount() const = 0;
    /// One time a frame, or empty where frames have none.
    virtual const FrameTimes& times() const;
    /// How many frames there are in a second, as "25 fps"; empty where frames have no time.
    virtual QString rateText() const;
    /// What the user should know of the whole source, such as that it ends early: one sentence, mostly empty.
    virtual QString remark() const;

    /// The frame as an image, with colours as exact as they can be; null when it can't be read. aError then
    /// tells why in one sentence; beside an image it tells of a flaw in it, and is empty otherwise.
    virtual std::unique_ptr<LmImage> readFrame(int aFrame, QString& aError) = 0;
    /// The same frame as fast as it can be had while playing; its colours may be a shade off.
    virtual std::unique_ptr<LmImage> readQuickFrame(int aFrame, QString& aError);
};

#endif
