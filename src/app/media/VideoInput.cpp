#include "VideoInput.h"

extern "C" {
#include <libavutil/crc.h>
}

#include <algorithm>
#include <climits>
#include <utility>

namespace {

/// Containers of one plain file. Playlists, scripts and series of pictures, which would open other files, are
/// not among them; sound files are, so that the user can be told what is missing in them.
constexpr const char* kContainers[] = {"mov,mp4,m4a,3gp,3g2,mj2",
                                       "matroska,webm",
                                       "avi",
                                       "mpegts",
                                       "mpeg",
                                       "mpegvideo",
                                       "h264",
                                       "hevc",
                                       "m4v",
                                       "nut",
                                       "flv",
                                       "asf",
                                       "ogg",
                                       "mxf",
                                       "gxf",
                                       "dv",
                                       "ivf",
                                       "rm",
                                       "wtv",
                                       "yuv4mpegpipe",
                                       "vc1",
                                       "obu",
                                       "wav",
                                       "flac",
                                       "mp3"};

bool isContainer(const char* aName)
{
    return std::any_of(std::begin(kContainers), std::end(kContainers),
                       [aName](const char* aContainer) { return qstrcmp(aName, aContainer) == 0; });
}

/// The remarks of the library would go to the terminal, in words for its developers.
void silenceLibrary()
{
    static const bool kSilent = [] {
        av_log_set_level(AV_LOG_QUIET);
        return true;
    }();
    Q_UNUSED(kSilent);
}

/// With the protocol in front no part of the name can be taken for one.
QByteArray urlOf(const QString& aPath)
{
    return "file:" + aPath.toUtf8();
}

/// By the content alone: a name that ends in the wrong way must not matter.
const AVInputFormat* recognise(const QByteArray& aUrl)
{
    AVIOContext* io = nullptr;
    if (avio_open(&io, aUrl.constData(), AVIO_FLAG_READ) < 0)
        return nullptr;
    const AVInputFormat* format = nullptr;
    const int score = av_probe_input_buffer2(io, &format, "", nullptr, 0, 0);
    avio_closep(&io);
    return score > AVPROBE_SCORE_RETRY && format && isContainer(format->name) ? format : nullptr;
}

} // namespace

bool VideoInput::isKnown(const QString& aPath)
{
    silenceLibrary();
    return recognise(urlOf(aPath)) != nullptr;
}

VideoInput::Result VideoInput::open(const QString& aPath)
{
    silenceLibrary();
    theUrl = urlOf(aPath);
    return openFormat();
}

bool VideoInput::reopen()
{
    return openFormat() == Result::kOpen;
}

VideoInput::Result VideoInput::openFormat()
{
    const AVInputFormat* container = recognise(theUrl);
    if (!container)
        return Result::kUnknownKind;
    AVDictionary* options = nullptr;
    av_dict_set(&options, "protocol_whitelist", "file", 0);
    AVFormatContext* format = nullptr;
    const int opened = avformat_open_input(&format, theUrl.constData(), container, &options);
    av_dict_free(&options);
    if (opened < 0)
        return Result::kDamaged;
    VideoHandles::Format opening(format);
    if (const AVStream* video = findVideo(*format))
        theToldSize = QSize(video->codecpar->width, video->codecpar->height);
    if (avformat_find_stream_info(format, nullptr) < 0)
        return Result::kDamaged;
    AVStream* stream = findVideo(*format);
    if (!stream)
        return Result::kNoVideo;
    // What was open before stays until here, so that a file that has gone leaves something to ask.
    theFormat = std::move(opening);
    theStream = stream;
    return Result::kOpen;
}

/// The best stream of moving pictures; the cover of a piece of music is none.
AVStream* VideoInput::findVideo(AVFormatContext& aFormat)
{
    const auto isVideo = [](const AVStream* aStream) {
        return aStream->codecpar->codec_type == AVMEDIA_TYPE_VIDEO &&
               !(aStream->disposition & AV_DISPOSITION_ATTACHED_PIC);
    };
    const int best = av_find_best_stream(&aFormat, AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
    if (best >= 0 && isVideo(aFormat.streams[best]))
        return aFormat.streams[best];
    AVStream** const end = aFormat.streams + aFormat.nb_streams;
    AVStream** const found = std::find_if(aFormat.streams, end, isVideo);
    return found == end ? nullptr : *found;
}

bool VideoInput::readAny(AVPacket& aPacket)
{
    // Behind a damaged place readers find the next packet again, or report the same error for ever.
    constexpr int kMostErrors = 64;
    for (int error = 0; error < kMostErrors; ++error) {
        av_packet_unref(&aPacket);
        const int result = av_read_frame(theFormat.get(), &aPacket);
        if (result >= 0)
            return true;
        if (result == AVERROR_EOF)
            return false;
    }
    return false;
}

bool VideoInput::read(AVPacket& aPacket)
{
    while (readAny(aPacket))
        if (isOfVideo(aPacket) && aPacket.size > 0)
            return true;
    return false;
}

bool VideoInput::search(const VideoPacket& aPacket, Search aSearch)
{
    switch (aSearch) {
    case Search::kByShown:
        return aPacket.theShown != VideoPacket::kNone &&
               av_seek_frame(theFormat.get(), theStream->index, aPacket.theShown, AVSEEK_FLAG_BACKWARD) >= 0;
    case Search::kByDecoded:
        return aPacket.theDecoded != VideoPacket::kNone &&
               av_seek_frame(theFormat.get(), theStream->index, aPacket.theDecoded, AVSEEK_FLAG_BACKWARD) >=
                   0;
    case Search::kByPlace:
        return aPacket.thePlace >= 0 && !(theFormat->iformat->flags & AVFMT_NO_BYTE_SEEK) &&
               av_seek_frame(theFormat.get(), -1, aPacket.thePlace, AVSEEK_FLAG_BYTE) >= 0;
    }
    return false;
}

double VideoInput::portion() const
{
    const int64_t size = theFormat->pb ? avio_size(theFormat->pb) : 0;
    return size > 0 ? qBound(0.0, double(avio_tell(theFormat->pb)) / double(size), 1.0) : 0.0;
}

VideoPacket VideoInput::describe(const AVPacket& aPacket)
{
    static_assert(VideoPacket::kNone == AV_NOPTS_VALUE);
    static const AVCRC* const kTable = av_crc_get_table(AV_CRC_32_IEEE_LE);
    VideoPacket packet;
    packet.theShown = aPacket.pts;
    packet.theDecoded = aPacket.dts;
    packet.thePlace = aPacket.pos;
    packet.theSize = aPacket.size;
    packet.theDigest = av_crc(kTable, 0, aPacket.data, size_t(aPacket.size));
    packet.theDuration = qint32(qBound(int64_t(0), aPacket.duration, int64_t(INT_MAX)));
    packet.theKey = aPacket.flags & AV_PKT_FLAG_KEY;
    packet.theHidden = aPacket.flags & AV_PKT_FLAG_DISCARD;
    return packet;
}
