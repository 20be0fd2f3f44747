#include "MediaSource.h"

#include "LmImage.h"

MediaSource::~MediaSource() = default;

const FrameTimes& MediaSource::times() const
{
    static const FrameTimes kNoTimes;
    return kNoTimes;
}

QString MediaSource::rateText() const
{
    return QString();
}

QString MediaSource::framePath(int aFrame) const
{
    return aFrame >= 0 && aFrame < frameCount() ? path() : QString();
}

QString MediaSource::remark() const
{
    return QString();
}

std::unique_ptr<LmImage> MediaSource::readQuickFrame(int aFrame, QString& aError)
{
    return readFrame(aFrame, aError);
}
