#include "ResolutionTag.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QIODevice>
#include <QtEndian>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kSquareTolerance = 0.001;
// Pieces of a header beyond this number don't come from any real program.
constexpr int kMaxPieces = 1000;

/// Exactly so many bytes from a place in the file, or none.
QByteArray bytesAt(QIODevice& aFile, qint64 aPos, qint64 aCount)
{
    if (aPos < 0 || aPos > aFile.size() - aCount || !aFile.seek(aPos))
        return QByteArray();
    const QByteArray bytes = aFile.read(aCount);
    return bytes.size() == aCount ? bytes : QByteArray();
}

quint16 bigShort(const QByteArray& aBytes, qsizetype aPos)
{
    return qFromBigEndian<quint16>(aBytes.constData() + aPos);
}

quint32 bigLong(const QByteArray& aBytes, qsizetype aPos)
{
    return qFromBigEndian<quint32>(aBytes.constData() + aPos);
}

/// TIFF's list of fields, in a file or in the note of a camera.
class TiffFields
{
public:
    explicit TiffFields(QIODevice& aFile) : theFile(aFile)
    {
        const QByteArray start = bytesAt(aFile, 0, 8);
        theBig = start.startsWith("MM");
        if (start.isEmpty() || !(theBig || start.startsWith("II")) || shortAt(start, 2) != kVersion)
            return;
        const qint64 list = longAt(start, 4);
        const QByteArray count = bytesAt(aFile, list, 2);
        if (!count.isEmpty())
            theEntries = bytesAt(aFile, list + 2, qint64(shortAt(count, 0)) * kEntrySize);
    }

    ResolutionTag tag() const
    {
        const int unit = unitNumber();
        ResolutionTag found;
        if (unit != kTiffInch && unit != kTiffCentimetre)
            return found;
        found.theAcross = ratio(kAcross);
        found.theDown = ratio(kDown);
        found.theUnit = unit == kTiffInch ? ResolutionTag::kInch : ResolutionTag::kCentimetre;
        return found;
    }

private:
    static constexpr int kVersion = 42;
    static constexpr int kEntrySize = 12;
    enum Field { kAcross = 282, kDown = 283, kUnit = 296 };
    enum FieldType { kShort = 3, kRatio = 5 };
    enum UnitNumber { kTiffInch = 2, kTiffCentimetre = 3 };

    quint16 shortAt(const QByteArray& aBytes, qsizetype aPos) const
    {
        const char* place = aBytes.constData() + aPos;
        return theBig ? qFromBigEndian<quint16>(place) : qFromLittleEndian<quint16>(place);
    }

    quint32 longAt(const QByteArray& aBytes, qsizetype aPos) const
    {
        const char* place = aBytes.constData() + aPos;
        return theBig ? qFromBigEndian<quint32>(place) : qFromLittleEndian<quint32>(place);
    }

    /// Where the entry of the field stands, -1 without one.
    qsizetype entryOf(Field aField) const
    {
        for (qsizetype pos = 0; pos < theEntries.size(); pos += kEntrySize)
            if (shortAt(theEntries, pos) == aField)
                return pos;
        return -1;
    }

    /// Inches where nothing else is said.
    int unitNumber() const
    {
        const qsizetype entry = entryOf(kUnit);
        if (entry < 0)
            return kTiffInch;
        return shortAt(theEntries, entry + 2) == kShort ? shortAt(theEntries, entry + 8) : 0;
    }

    double ratio(Field aField) const
    {
        const qsizetype entry = entryOf(aField);
        if (entry < 0 || shortAt(theEntries, entry + 2) != kRatio || longAt(theEntries, entry + 4) != 1)
            return 0.0;
        const QByteArray bytes = bytesAt(theFile, longAt(theEntries, entry + 8), 8);
        const quint32 divisor = bytes.isEmpty() ? 0 : longAt(bytes, 4);
        return divisor > 0 ? double(longAt(bytes, 0)) / divisor : 0.0;
    }

    QIODevice& theFile;
    bool theBig = false; // the high byte comes first
    QByteArray theEntries;
};

ResolutionTag ofPng(QIODevice& aFile)
{
    constexpr qint64 kSignature = 8;
    constexpr int kUnitMetre = 1;
    qint64 pos = kSignature;
    for (int piece = 0; piece < kMaxPieces; ++piece) {
        const QByteArray head = bytesAt(aFile, pos, 8);
        // The note stands before the pixels.
        if (head.isEmpty() || head.endsWith("IDAT") || head.endsWith("IEND"))
            break;
        const QByteArray note =
            head.endsWith("pHYs") && bigLong(head, 0) == 9 ? bytesAt(aFile, pos + 8, 9) : QByteArray();
        if (!note.isEmpty())
            return note[8] == kUnitMetre ? ResolutionTag{double(bigLong(note, 0)), double(bigLong(note, 4)),
                                                         ResolutionTag::kMetre}
                                         : ResolutionTag();
        pos += qint64(bigLong(head, 0)) + 12;
    }
    return ResolutionTag();
}

ResolutionTag ofJfif(const QByteArray& aSegment)
{
    constexpr qsizetype kWanted = 12;
    if (aSegment.size() < kWanted || (aSegment[7] != 1 && aSegment[7] != 2))
        return ResolutionTag();
    return ResolutionTag{double(bigShort(aSegment, 8)), double(bigShort(aSegment, 10)),
                         aSegment[7] == 1 ? ResolutionTag::kInch : ResolutionTag::kCentimetre};
}

ResolutionTag ofCamera(const QByteArray& aSegment)
{
    constexpr qsizetype kName = 6;
    QByteArray fields = aSegment.mid(kName);
    QBuffer buffer(&fields);
    buffer.open(QIODevice::ReadOnly);
    return TiffFields(buffer).tag();
}

/// A camera's note counts before the plain one, which many programs fill in without knowing.
ResolutionTag ofJpeg(QIODevice& aFile)
{
    enum Marker { kScan = 0xda, kEnd = 0xd9, kPlainNote = 0xe0, kCameraNote = 0xe1 };
    ResolutionTag plain;
    qint64 pos = 2;
    for (int piece = 0; piece < kMaxPieces; ++piece) {
        const QByteArray head = bytesAt(aFile, pos, 4);
        if (head.isEmpty() || quint8(head[0]) != 0xff)
            break;
        const int marker = quint8(head[1]);
        if (marker == 0xff) { // a byte that fills up
            ++pos;
            continue;
        }
        const int length = bigShort(head, 2);
        if (marker == kScan || marker == kEnd || length < 2)
            break;
        const QByteArray segment = marker == kPlainNote || marker == kCameraNote
                                       ? bytesAt(aFile, pos + 4, length - 2)
                                       : QByteArray();
        if (marker == kPlainNote && segment.startsWith(QByteArray("JFIF\0", 5)))
            plain = ofJfif(segment);
        if (marker == kCameraNote && segment.startsWith(QByteArray("Exif\0\0", 6)))
            if (const ResolutionTag tag = ofCamera(segment); tag.isNoted())
                return tag;
        pos += 2 + length;
    }
    return plain;
}

} // namespace

ResolutionTag ResolutionTag::read(const QString& aPath)
{
    QFile file(aPath);
    if (!QFileInfo(aPath).isFile() || !file.open(QIODevice::ReadOnly))
        return ResolutionTag();
    return read(file);
}

ResolutionTag ResolutionTag::read(QIODevice& aFile)
{
    const QByteArray start = bytesAt(aFile, 0, 8);
    ResolutionTag tag;
    if (start == QByteArray("\x89PNG\r\n\x1a\n"))
        tag = ofPng(aFile);
    else if (start.startsWith("\xff\xd8"))
        tag = ofJpeg(aFile);
    else
        tag = TiffFields(aFile).tag();
    return tag.isNoted() ? tag : ResolutionTag();
}

bool ResolutionTag::isSquare() const
{
    return std::abs(theAcross - theDown) <= kSquareTolerance * std::max(theAcross, theDown);
}

double ResolutionTag::pixelMillimetres() const
{
    const double millimetres = theUnit == kInch ? 25.4 : theUnit == kCentimetre ? 10.0 : 1000.0;
    return isNoted() ? millimetres / theAcross : 0.0;
}
