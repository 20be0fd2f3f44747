#include "ClipWriter.h"

#include "ClipMuxer.h"
#include "ClipNumber.h"

extern "C" {
#include <libavutil/display.h>
#include <libavutil/opt.h>
#include <libavutil/pixdesc.h>
}

#include <algorithm>

namespace {

constexpr int kBlack = 50;
constexpr int kWhite = 205;
constexpr int kNeutral = 128;

/// One clip from its first to its last packet.
class Encoding
{
public:
    Encoding(const QString& aPath, const ClipOptions& aOptions);
    ~Encoding();
    Q_DISABLE_COPY_MOVE(Encoding)

    bool run();

private:
    bool openEncoder();
    void describePictures();
    void describeGroups();
    bool describeStream();
    bool encode(const AVFrame* aFrame);
    bool writePacket();
    qint64 stamp(qint64 aFrame) const;
    AVRational tick() const;
    void paint(int aNumber);
    void paintRow(int aPlane, int aY, int aNumber);
    int valueAt(int aPlane, int aX, int aY, int aNumber) const;

    const ClipOptions& theOptions;
    ClipMuxer theMuxer;
    AVCodecContext* theContext = nullptr;
    AVFrame* theFrame = av_frame_alloc();
    AVPacket* thePacket = av_packet_alloc();
};

Encoding::Encoding(const QString& aPath, const ClipOptions& aOptions)
    : theOptions(aOptions), theMuxer(aPath, aOptions.container)
{
}

Encoding::~Encoding()
{
    av_packet_free(&thePacket);
    av_frame_free(&theFrame);
    avcodec_free_context(&theContext);
}

bool Encoding::run()
{
    if (!theMuxer.stream() || !openEncoder() || !describeStream() || !theMuxer.begin(theOptions.muxer))
        return false;
    theFrame->format = theContext->pix_fmt;
    theFrame->width = theContext->width;
    theFrame->height = theContext->height;
    if (av_frame_get_buffer(theFrame, 0) < 0)
        return false;
    for (int number = 0; number < theOptions.count; ++number) {
        if (av_frame_make_writable(theFrame) < 0)
            return false;
        paint(number);
        theFrame->pts = number;
        if (!encode(theFrame))
            return false;
    }
    return encode(nullptr) && theMuxer.end();
}

bool Encoding::openEncoder()
{
    const AVCodec* codec = avcodec_find_encoder_by_name(qUtf8Printable(theOptions.codec));
    if (!codec)
        return false;
    theContext = avcodec_alloc_context3(codec);
    describePictures();
    describeGroups();
    theContext->thread_count = theOptions.threads;
    if (theMuxer.wantsGlobalHeader())
        theContext->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    AVDictionary* options = nullptr;
    for (auto option = theOptions.encoder.begin(); option != theOptions.encoder.end(); ++option)
        av_dict_set(&options, qUtf8Printable(option.key()), qUtf8Printable(option.value()), 0);
    const bool isOpen = avcodec_open2(theContext, codec, &options) >= 0;
    av_dict_free(&options);
    return isOpen;
}

void Encoding::describePictures()
{
    theContext->width = theOptions.size.width();
    theContext->height = theOptions.size.height();
    theContext->pix_fmt = av_get_pix_fmt(qUtf8Printable(theOptions.pixelFormat));
    theContext->sample_aspect_ratio = {theOptions.pixelAspect.width(), theOptions.pixelAspect.height()};
    theContext->time_base = {1, theOptions.rate};
    theContext->framerate = {theOptions.rate, 1};
    theContext->color_range = theOptions.fullRange ? AVCOL_RANGE_JPEG : AVCOL_RANGE_MPEG;
    if (!theOptions.matrix.isEmpty())
        theContext->colorspace = AVColorSpace(av_color_space_from_name(qUtf8Printable(theOptions.matrix)));
    // Good enough for the blocks and for flat colours, whatever the size.
    theContext->global_quality = 3 * FF_QP2LAMBDA;
    theContext->flags |= AV_CODEC_FLAG_QSCALE;
}

void Encoding::describeGroups()
{
    theContext->gop_size = theOptions.groupSize;
    theContext->keyint_min = theOptions.groupSize;
    theContext->max_b_frames = theOptions.bFrames;
    // Key frames where they are wanted and nowhere else.
    constexpr int kNoSceneCuts = 1'000'000'000;
    av_opt_set_int(theContext, "sc_threshold", kNoSceneCuts, AV_OPT_SEARCH_CHILDREN);
    av_opt_set_int(theContext, "b_strategy", 0, AV_OPT_SEARCH_CHILDREN);
    if (!theOptions.openGroups)
        theContext->flags |= AV_CODEC_FLAG_CLOSED_GOP;
    if (theOptions.codec == QLatin1String("libx264")) {
        theContext->flags &= ~AV_CODEC_FLAG_QSCALE;
        theContext->global_quality = 0;
        av_opt_set(theContext->priv_data, "preset", "ultrafast", 0);
        const QString text = QStringLiteral("scenecut=0:b-adapt=0:crf=23:open-gop=%1");
        av_opt_set(theContext->priv_data, "x264-params", qUtf8Printable(text.arg(theOptions.openGroups)), 0);
    }
}

bool Encoding::describeStream()
{
    AVStream* stream = theMuxer.stream();
    stream->time_base = tick();
    stream->avg_frame_rate = theContext->framerate;
    stream->sample_aspect_ratio = theContext->sample_aspect_ratio;
    if (theOptions.rotation != 0) {
        uint8_t* matrix = av_stream_new_side_data(stream, AV_PKT_DATA_DISPLAYMATRIX, 9 * sizeof(int32_t));
        if (!matrix)
            return false;
        av_display_rotation_set(reinterpret_cast<int32_t*>(matrix), theOptions.rotation);
    }
    return avcodec_parameters_from_context(stream->codecpar, theContext) >= 0;
}

bool Encoding::encode(const AVFrame* aFrame)
{
    if (avcodec_send_frame(theContext, aFrame) < 0)
        return false;
    int result = avcodec_receive_packet(theContext, thePacket);
    for (; result >= 0; result = avcodec_receive_packet(theContext, thePacket))
        if (!writePacket())
            return false;
    return result == (aFrame ? AVERROR(EAGAIN) : AVERROR_EOF) || result == AVERROR_EOF;
}

bool Encoding::writePacket()
{
    // The encoder counts frames: what the container shall say of them is put in only here, so that stamps may
    // be equal or as far apart as one likes.
    const qint64 frame = thePacket->pts;
    thePacket->dts = std::min(stamp(thePacket->dts), stamp(frame));
    thePacket->pts = stamp(frame);
    thePacket->duration =
        std::max(qint64(1), stamp(std::min(frame + 1, theOptions.count - 1LL)) - stamp(frame));
    if (frame + 1 == theOptions.count)
        thePacket->duration = std::max(1, tick().den / theOptions.rate);
    return theMuxer.write(*thePacket, tick());
}

AVRational Encoding::tick() const
{
    return {1, theOptions.ticksPerSecond > 0 ? theOptions.ticksPerSecond : theOptions.rate};
}

/// Of a frame's number; numbers below 0 are decoding times before the first frame.
qint64 Encoding::stamp(qint64 aFrame) const
{
    const qint64 perFrame = tick().den / theOptions.rate;
    if (theOptions.stamps.empty())
        return aFrame * tick().den / theOptions.rate;
    if (aFrame < 0)
        return theOptions.stamps.front() + aFrame * std::max(qint64(1), perFrame);
    return theOptions.stamps[size_t(std::min(aFrame, qint64(theOptions.stamps.size()) - 1))];
}

void Encoding::paint(int aNumber)
{
    const AVPixFmtDescriptor* format = av_pix_fmt_desc_get(theContext->pix_fmt);
    for (int plane = 0; plane < av_pix_fmt_count_planes(theContext->pix_fmt); ++plane) {
        const int height =
            plane == 0 ? theFrame->height : AV_CEIL_RSHIFT(theFrame->height, format->log2_chroma_h);
        for (int y = 0; y < height; ++y)
            paintRow(plane, y, aNumber);
    }
}

void Encoding::paintRow(int aPlane, int aY, int aNumber)
{
    const AVPixFmtDescriptor* format = av_pix_fmt_desc_get(theContext->pix_fmt);
    const int width = aPlane == 0 ? theFrame->width : AV_CEIL_RSHIFT(theFrame->width, format->log2_chroma_w);
    uint8_t* row = theFrame->data[aPlane] + ptrdiff_t(aY) * theFrame->linesize[aPlane];
    const int deeper = format->comp[0].depth - 8;
    for (int x = 0; x < width; ++x) {
        const int value = valueAt(aPlane, x, aY, aNumber);
        if (deeper > 0)
            reinterpret_cast<uint16_t*>(row)[x] = uint16_t(value << deeper);
        else
            row[x] = uint8_t(value);
    }
}

int Encoding::valueAt(int aPlane, int aX, int aY, int aNumber) const
{
    if (theOptions.flat)
        return (*theOptions.flat)[size_t(aPlane)];
    if (aPlane != 0)
        return kNeutral;
    const int block = ClipNumber::blockAt(aX, aY, theOptions.size);
    const int base = ClipNumber::isBlockWhite(aNumber, block) ? kWhite : kBlack;
    if (!theOptions.texture)
        return base;
    constexpr int kFine = 31;
    return base - kFine / 2 + (((aX + 3 * aNumber) ^ (aY + 2 * aNumber)) & kFine);
}

} // namespace

bool ClipWriter::write(const QString& aPath, const ClipOptions& aOptions)
{
    av_log_set_level(AV_LOG_QUIET);
    if (Encoding(aPath, aOptions).run())
        return true;
    qWarning("the clip %s can't be written with the encoder %s", qUtf8Printable(aPath),
             qUtf8Printable(aOptions.codec));
    return false;
}

bool ClipWriter::hasEncoder(const QString& aName)
{
    return avcodec_find_encoder_by_name(qUtf8Printable(aName)) != nullptr;
}
