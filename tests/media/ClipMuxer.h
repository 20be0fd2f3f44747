#ifndef CLIPMUXER_H
#define CLIPMUXER_H

#include <QMap>
#include <QString>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

/// A file of one video stream in the making. Every step returns false after one has failed.
class ClipMuxer
{
public:
    ClipMuxer(const QString& aPath, const QString& aContainer);
    ~ClipMuxer();
    Q_DISABLE_COPY_MOVE(ClipMuxer)

    bool wantsGlobalHeader() const;
    /// The stream, to be described before begin; null if there is no such container.
    AVStream* stream() { return theStream; }
    bool begin(const QMap<QString, QString>& aOptions);
    /// Takes over what the packet holds; its stamps are in ticks of aTick.
    bool write(AVPacket& aPacket, AVRational aTick);
    bool end();

private:
    AVFormatContext* theFormat = nullptr;
    AVStream* theStream = nullptr; // owned by the format
};

#endif
