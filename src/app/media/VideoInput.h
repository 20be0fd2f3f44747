#ifndef VIDEOINPUT_H
#define VIDEOINPUT_H

#include "VideoHandles.h"
#include "VideoIndex.h"

#include <QSize>
#include <QString>

/// A video file as a row of packets, read from the front or from a place that was searched.
class VideoInput
{
public:
    enum class Result { kOpen, kUnknownKind, kDamaged, kNoVideo };
    /// How a place in the file is named when it is searched; containers differ in what they understand.
    enum class Search { kByShown, kByDecoded, kByPlace };

    /// Whether the content of a file is of a kind that is read here.
    static bool isKnown(const QString& aPath);
    Result open(const QString& aPath);
    /// Begins with the first packet again.
    bool reopen();

    AVFormatContext& format() const { return *theFormat; }
    AVStream& stream() const { return *theStream; }
    /// Of the frames as the container tells it, also where no decoder could have them; empty if it doesn't.
    QSize toldSize() const { return theToldSize; }
    /// The next packet of any stream; false at the end of the file.
    bool readAny(AVPacket& aPacket);
    /// The next packet of the video.
    bool read(AVPacket& aPacket);
    bool isOfVideo(const AVPacket& aPacket) const { return aPacket.stream_index == theStream->index; }
    /// Goes to the packet or before it; where to exactly only the next packet can tell.
    bool search(const VideoPacket& aPacket, Search aSearch);
    /// How much of the file has been read, from 0 to 1.
    double portion() const;

    static VideoPacket describe(const AVPacket& aPacket);

private:
    Result openFormat();
    static AVStream* findVideo(AVFormatContext& aFormat);

    QByteArray theUrl;
    VideoHandles::Format theFormat;
    AVStream* theStream = nullptr; // owned by theFormat
    QSize theToldSize;
};

#endif
