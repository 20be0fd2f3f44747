#include "MadeFiles.h"

#include <QBuffer>
#include <QFile>
#include <QImageWriter>
#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>

namespace {

void append16(QByteArray& aBytes, int aValue)
{
    char bytes[2];
    qToLittleEndian<quint16>(quint16(aValue), bytes);
    aBytes.append(bytes, 2);
}

void append32(QByteArray& aBytes, qsizetype aValue)
{
    char bytes[4];
    qToLittleEndian<quint32>(quint32(aValue), bytes);
    aBytes.append(bytes, 4);
}

QByteArray bigEndian(quint32 aValue)
{
    char bytes[4];
    qToBigEndian(aValue, bytes);
    return QByteArray(bytes, 4);
}

quint32 crcOf(const QByteArray& aBytes)
{
    quint32 crc = 0xffffffffu;
    for (const char byte : aBytes) {
        crc ^= quint8(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1u) ? 0xedb88320u : 0u);
    }
    return ~crc;
}

struct Page
{
    int theWidth;
    int theHeight;
    int theBits;
    int theChannels;
    bool theIsFloat;
    QByteArray thePixels;
};

Page pageOf(const QImage& aPicture)
{
    const bool isGray16 = aPicture.format() == QImage::Format_Grayscale16;
    const bool isGray8 = aPicture.format() == QImage::Format_Grayscale8;
    const QImage picture = isGray16 || isGray8 ? aPicture : aPicture.convertToFormat(QImage::Format_RGB888);
    Page page{picture.width(), picture.height(), isGray16 ? 16 : 8, isGray16 || isGray8 ? 1 : 3, false, {}};
    const int rowSize = page.theWidth * page.theChannels * page.theBits / 8;
    for (int y = 0; y < page.theHeight; ++y)
        page.thePixels.append(reinterpret_cast<const char*>(picture.constScanLine(y)), rowSize);
    return page;
}

void appendEntry(QByteArray& aBytes, int aTag, int aType, qsizetype aCount, qsizetype aValue)
{
    append16(aBytes, aTag);
    append16(aBytes, aType);
    append32(aBytes, aCount);
    append32(aBytes, aValue);
}

Page floatPage(int aWidth, int aHeight)
{
    return Page{aWidth, aHeight, 64, 1, true, QByteArray(aWidth * aHeight * 8, '\0')};
}

QByteArray tiffOf(const QList<Page>& aPages)
{
    constexpr int kShort = 3;
    constexpr int kLong = 4;
    constexpr int kEntries = 10;
    QByteArray bytes("II*\0", 4);
    qsizetype linkAt = bytes.size();
    append32(bytes, 0);
    for (const Page& page : aPages) {
        const qsizetype pixelsAt = bytes.size();
        bytes += page.thePixels;
        bytes.append(bytes.size() % 2, '\0');
        const qsizetype bitsAt = bytes.size();
        for (int i = 0; i < page.theChannels; ++i)
            append16(bytes, page.theBits);
        bytes.append(bytes.size() % 2, '\0');
        qToLittleEndian<quint32>(quint32(bytes.size()), bytes.data() + linkAt);
        append16(bytes, kEntries);
        appendEntry(bytes, 256, kLong, 1, page.theWidth);
        appendEntry(bytes, 257, kLong, 1, page.theHeight);
        appendEntry(bytes, 258, kShort, page.theChannels, page.theChannels == 1 ? page.theBits : bitsAt);
        appendEntry(bytes, 259, kShort, 1, 1);
        appendEntry(bytes, 262, kShort, 1, page.theChannels == 1 ? 1 : 2);
        appendEntry(bytes, 273, kLong, 1, pixelsAt);
        appendEntry(bytes, 277, kShort, 1, page.theChannels);
        appendEntry(bytes, 278, kLong, 1, page.theHeight);
        appendEntry(bytes, 279, kLong, 1, page.thePixels.size());
        appendEntry(bytes, 339, kShort, 1, page.theIsFloat ? 3 : 1);
        linkAt = bytes.size();
        append32(bytes, 0);
    }
    return bytes;
}

} // namespace

void MadeFiles::write(const QString& aPath, const QByteArray& aBytes)
{
    QFile file(aPath);
    QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(file.errorString()));
    QCOMPARE(file.write(aBytes), aBytes.size());
}

QString MadeFiles::writeIn(const QTemporaryDir& aFolder, const QString& aName, const QByteArray& aBytes)
{
    const QString path = aFolder.filePath(aName);
    write(path, aBytes);
    return path;
}

QByteArray MadeFiles::read(const QString& aPath)
{
    QFile file(aPath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray MadeFiles::encoded(const QImage& aPicture, const char* aFormat)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, aFormat);
    return writer.write(aPicture) ? buffer.data() : QByteArray();
}

QByteArray MadeFiles::tiff(const QList<QImage>& aPages)
{
    QList<Page> pages;
    for (const QImage& picture : aPages)
        pages << pageOf(picture);
    return tiffOf(pages);
}

QByteArray MadeFiles::withDamagedPage(const QList<QImage>& aPages, int aDamaged)
{
    QList<Page> pages;
    for (const QImage& picture : aPages)
        pages << (pages.size() == aDamaged ? floatPage(picture.width(), picture.height()) : pageOf(picture));
    return tiffOf(pages);
}

QByteArray MadeFiles::floatTiff(int aWidth, int aHeight)
{
    return tiffOf({floatPage(aWidth, aHeight)});
}

QByteArray MadeFiles::pngHeader(quint32 aWidth, quint32 aHeight)
{
    const auto chunk = [](const QByteArray& aName, const QByteArray& aData) {
        return bigEndian(quint32(aData.size())) + aName + aData + bigEndian(crcOf(aName + aData));
    };
    const QByteArray header = bigEndian(aWidth) + bigEndian(aHeight) + QByteArray("\x08\x02\0\0\0", 5);
    // Behind the four bytes of its own, qCompress gives the stream that a PNG file holds.
    const QByteArray fewPixels = qCompress(QByteArray(1000, '\0')).mid(4);
    return QByteArray("\x89PNG\r\n\x1a\n") + chunk("IHDR", header) + chunk("IDAT", fewPixels) +
           chunk("IEND", {});
}

QByteArray MadeFiles::turnedJpeg(const QImage& aPicture, int aOrientation)
{
    QByteArray note("Exif\0\0MM\0*\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0", 25);
    note.append(char(aOrientation));
    note.append(QByteArray(6, '\0'));
    const QByteArray plain = encoded(aPicture, "jpeg");
    QByteArray length(2, '\0');
    qToBigEndian<quint16>(quint16(note.size() + 2), length.data());
    return plain.left(2) + QByteArray("\xff\xe1") + length + note + plain.mid(2);
}
