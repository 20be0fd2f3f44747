#include "ClipMuxer.h"

ClipMuxer::ClipMuxer(const QString& aPath, const QString& aContainer)
{
    const QByteArray path = aPath.toUtf8();
    const QByteArray container = aContainer.toUtf8();
    if (avformat_alloc_output_context2(&theFormat, nullptr, container.isEmpty() ? nullptr : container.data(),
                                       path.data()) < 0)
        return;
    if (avio_open(&theFormat->pb, path.data(), AVIO_FLAG_WRITE) >= 0)
        theStream = avformat_new_stream(theFormat, nullptr);
}

ClipMuxer::~ClipMuxer()
{
    if (theFormat)
        avio_closep(&theFormat->pb);
    avformat_free_context(theFormat);
}

bool ClipMuxer::wantsGlobalHeader() const
{
    return theFormat->oformat->flags & AVFMT_GLOBALHEADER;
}

bool ClipMuxer::begin(const QMap<QString, QString>& aOptions)
{
    AVDictionary* options = nullptr;
    // Without the writer's version in it the same clip has the same bytes everywhere.
    av_dict_set(&options, "fflags", "+bitexact", 0);
    for (auto option = aOptions.begin(); option != aOptions.end(); ++option)
        av_dict_set(&options, qUtf8Printable(option.key()), qUtf8Printable(option.value()), 0);
    const bool isGood = avformat_write_header(theFormat, &options) >= 0;
    av_dict_free(&options);
    return isGood;
}

bool ClipMuxer::write(AVPacket& aPacket, AVRational aTick)
{
    av_packet_rescale_ts(&aPacket, aTick, theStream->time_base);
    aPacket.stream_index = theStream->index;
    return av_interleaved_write_frame(theFormat, &aPacket) >= 0;
}

bool ClipMuxer::end()
{
    return av_write_trailer(theFormat) >= 0;
}
