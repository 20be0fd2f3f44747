#include "FieldClip.h"

#include "ClipMuxer.h"
#include "FieldStream.h"

#include <algorithm>

namespace {

constexpr AVRational kFieldTick = {1, 50};

bool describeFields(ClipMuxer& aMuxer)
{
    AVCodecParameters* parameters = aMuxer.stream()->codecpar;
    parameters->codec_type = AVMEDIA_TYPE_VIDEO;
    parameters->codec_id = AV_CODEC_ID_H264;
    parameters->format = AV_PIX_FMT_YUV420P;
    parameters->width = FieldStream::size().width();
    parameters->height = FieldStream::size().height();
    const QByteArray sets = FieldStream::parameterSets();
    parameters->extradata =
        static_cast<uint8_t*>(av_mallocz(size_t(sets.size()) + AV_INPUT_BUFFER_PADDING_SIZE));
    if (!parameters->extradata)
        return false;
    std::copy(sets.begin(), sets.end(), parameters->extradata);
    parameters->extradata_size = int(sets.size());
    aMuxer.stream()->time_base = kFieldTick;
    return true;
}

bool writeField(ClipMuxer& aMuxer, const QByteArray& aBytes, qint64 aStamp, int aDuration, bool aIsKey)
{
    AVPacket* packet = av_packet_alloc();
    bool isGood = packet && av_new_packet(packet, int(aBytes.size())) >= 0;
    if (isGood) {
        std::copy(aBytes.begin(), aBytes.end(), packet->data);
        packet->pts = packet->dts = aStamp;
        packet->duration = aDuration;
        packet->flags = aIsKey ? AV_PKT_FLAG_KEY : 0;
        isGood = aMuxer.write(*packet, kFieldTick);
    }
    av_packet_free(&packet);
    return isGood;
}

} // namespace

bool FieldClip::write(const QString& aPath, int aCount, int aGroupSize, bool aInOnePacket)
{
    ClipMuxer muxer(aPath, QString());
    if (!muxer.stream() || !describeFields(muxer) || !muxer.begin({}))
        return false;
    const FieldStream fields(aGroupSize);
    bool isGood = true;
    for (int number = 0; number < aCount && isGood; ++number) {
        const QByteArray sets = fields.isKey(number) ? FieldStream::parameterSets() : QByteArray();
        const QByteArray top = sets + fields.field(number, false);
        const QByteArray bottom = fields.field(number, true);
        isGood = writeField(muxer, aInOnePacket ? top + bottom : top, 2 * number, aInOnePacket ? 2 : 1,
                            fields.isKey(number));
        if (isGood && !aInOnePacket)
            isGood = writeField(muxer, bottom, 2 * number + 1, 1, false);
    }
    return isGood && muxer.end();
}
