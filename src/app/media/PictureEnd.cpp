#include "PictureEnd.h"

#include <QByteArrayView>
#include <QFile>
#include <QtEndian>

namespace {

using Byte = unsigned char;

constexpr Byte kMarker = 0xff;
constexpr Byte kStartOfImage = 0xd8;
constexpr Byte kEndOfImage = 0xd9;
constexpr Byte kStartOfScan = 0xda;
constexpr Byte kFirstRestart = 0xd0;
constexpr Byte kLastRestart = 0xd7;

Byte byteAt(QByteArrayView aData, qsizetype aAt)
{
    return Byte(aData[aAt]);
}

/// The place of the next marker's code that is neither a stuffed byte nor a restart, or the size.
qsizetype nextMarker(QByteArrayView aData, qsizetype aFrom)
{
    for (qsizetype at = aFrom; at + 1 < aData.size(); ++at) {
        const Byte code = byteAt(aData, at + 1);
        const bool isPlain = code == 0 || code == kMarker || (code >= kFirstRestart && code <= kLastRestart);
        if (byteAt(aData, at) == kMarker && !isPlain)
            return at + 1;
    }
    return aData.size();
}

/// Walks from segment to segment, so that the end of a preview inside a segment doesn't count, nor bytes
/// behind the end.
bool isJpegCutOff(QByteArrayView aData)
{
    bool scanSeen = false;
    for (qsizetype at = nextMarker(aData, 2); at < aData.size(); at = nextMarker(aData, at)) {
        const Byte code = byteAt(aData, at);
        if (code == kEndOfImage)
            return !scanSeen;
        scanSeen = scanSeen || code == kStartOfScan;
        if (at + 3 > aData.size())
            return true;
        at += 1 + qFromBigEndian<quint16>(aData.data() + at + 1);
    }
    return true;
}

bool isBmpCutOff(QByteArrayView aData, qint64 aFileSize)
{
    constexpr qsizetype kHeaderSize = 34; // up to the compression
    constexpr quint32 kPlain = 0;
    constexpr quint32 kBitFields = 3;
    if (aData.size() < kHeaderSize)
        return true;
    const char* header = aData.data();
    const quint32 compression = qFromLittleEndian<quint32>(header + 30);
    const bool isOldHeader = qFromLittleEndian<quint32>(header + 14) < 40;
    if (isOldHeader || (compression != kPlain && compression != kBitFields))
        return false;
    const qint64 start = qFromLittleEndian<quint32>(header + 10);
    const qint64 width = qFromLittleEndian<qint32>(header + 18);
    const qint64 height = qAbs(qint64(qFromLittleEndian<qint32>(header + 22)));
    const qint64 bitsPerPixel = qFromLittleEndian<quint16>(header + 28);
    const qint64 bytesPerRow = (width * bitsPerPixel + 31) / 32 * 4;
    // A size that no file can have is not a matter of a missing end; dividing keeps the product from running
    // over.
    return width > 0 && height > 0 && (aFileSize - start) / qMax(qint64(1), bytesPerRow) < height;
}

} // namespace

bool PictureEnd::isCutOff(const QString& aPath)
{
    QFile file(aPath);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray start = file.peek(64);
    if (start.startsWith("BM"))
        return isBmpCutOff(start, file.size());
    const bool isJpeg = start.size() > 2 && byteAt(start, 0) == kMarker &&
                        byteAt(start, 1) == kStartOfImage && byteAt(start, 2) == kMarker;
    return isJpeg && isJpegCutOff(file.readAll());
}
