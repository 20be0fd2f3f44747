#include "FieldStream.h"

#include "ClipNumber.h"

namespace {

constexpr int kBlockSize = 16; // of a macroblock, in a field half as high as its block is in the frame
constexpr int kFrameNumberBits = 4;

/// Bits from the highest on, as the stream has them.
class BitWriter
{
public:
    void put(quint32 aValue, int aBits)
    {
        for (int bit = aBits - 1; bit >= 0; --bit) {
            if (theUsed % 8 == 0)
                theBytes.append('\0');
            if ((aValue >> bit) & 1)
                theBytes.back() = char(theBytes.back() | (0x80 >> (theUsed % 8)));
            ++theUsed;
        }
    }
    /// A number as leading zeros and as many bits behind a one.
    void putCode(quint32 aValue)
    {
        int bits = 0;
        while (((aValue + 1) >> bits) > 1)
            ++bits;
        put(0, bits);
        put(aValue + 1, bits + 1);
    }
    void align()
    {
        while (theUsed % 8 != 0)
            put(0, 1);
    }
    void putBytes(int aValue, int aCount)
    {
        theBytes.append(QByteArray(aCount, char(aValue)));
        theUsed += 8 * aCount;
    }
    /// With the one bit that ends every unit.
    QByteArray finished()
    {
        put(1, 1);
        align();
        return theBytes;
    }

private:
    QByteArray theBytes;
    int theUsed = 0;
};

/// With start code, and with the bytes put between that keep a start code from arising inside.
QByteArray unit(int aHeader, const QByteArray& aContent)
{
    QByteArray bytes = QByteArray::fromHex("00000001") + char(aHeader);
    int zeros = 0;
    for (const char byte : aContent) {
        if (zeros >= 2 && byte >= 0 && byte <= 3) {
            bytes += char(3);
            zeros = 0;
        }
        zeros = byte == 0 ? zeros + 1 : 0;
        bytes += byte;
    }
    return bytes;
}

QByteArray sequenceParameters()
{
    BitWriter bits;
    bits.put(77, 8); // main profile
    bits.put(0, 8);
    bits.put(30, 8);                        // level 3
    bits.putCode(0);                        // number of the set
    bits.putCode(kFrameNumberBits - 4);     //
    bits.putCode(2);                        // frames are shown in the order of decoding
    bits.putCode(1);                        // one reference frame
    bits.put(0, 1);                         // no gaps in frame numbers
    bits.putCode(ClipNumber::kColumns - 1); // width in macroblocks
    bits.putCode(ClipNumber::kRows - 1);    // height of a field in macroblocks
    bits.put(0, 1);                         // pictures may be fields
    bits.put(0, 1);                         // no other interlacing
    bits.put(1, 1);                         // 8 x 8 direct inference
    bits.put(0, 1);                         // no cropping
    bits.put(0, 1);                         // no usability information
    return bits.finished();
}

QByteArray pictureParameters()
{
    BitWriter bits;
    bits.putCode(0); // number of the set
    bits.putCode(0); // of the sequence's
    bits.put(0, 1);  // Huffman-like coding
    bits.put(0, 1);  // no order in fields
    bits.putCode(0); // one slice group
    bits.putCode(0); // references
    bits.putCode(0);
    bits.put(0, 1); // no weights
    bits.put(0, 2);
    bits.putCode(0); // quantisers
    bits.putCode(0);
    bits.putCode(0);
    bits.put(1, 1); // deblocking can be switched off
    bits.put(0, 1);
    bits.put(0, 1);
    return bits.finished();
}

void putMacroblock(BitWriter& aBits, bool aIsWhite)
{
    constexpr int kUncompressed = 25;
    constexpr int kWhite = 205;
    constexpr int kBlack = 50;
    constexpr int kNeutral = 128;
    aBits.putCode(kUncompressed);
    aBits.align();
    aBits.putBytes(aIsWhite ? kWhite : kBlack, kBlockSize * kBlockSize);
    aBits.putBytes(kNeutral, kBlockSize * kBlockSize / 2);
}

} // namespace

QSize FieldStream::size()
{
    return QSize(ClipNumber::kColumns * kBlockSize, ClipNumber::kRows * kBlockSize * 2);
}

QByteArray FieldStream::parameterSets()
{
    constexpr int kSequence = 0x67;
    constexpr int kPicture = 0x68;
    return unit(kSequence, sequenceParameters()) + unit(kPicture, pictureParameters());
}

FieldStream::FieldStream(int aGroupSize) : theGroupSize(aGroupSize) {}

QByteArray FieldStream::field(int aNumber, bool aIsBottom) const
{
    constexpr int kRefreshUnit = 0x65;
    constexpr int kPlainUnit = 0x61;
    constexpr int kIntraOnly = 7;
    const bool isRefresh = isKey(aNumber) && !aIsBottom;
    BitWriter bits;
    bits.putCode(0); // first macroblock
    bits.putCode(kIntraOnly);
    bits.putCode(0);
    bits.put(quint32(aNumber % theGroupSize) % (1U << kFrameNumberBits), kFrameNumberBits);
    bits.put(1, 1); // a field
    bits.put(aIsBottom, 1);
    if (isRefresh) {
        bits.putCode(quint32(aNumber / theGroupSize) % 2); // different for refreshs in a row
        bits.put(0, 2);                                    // how older frames are kept
    } else {
        bits.put(0, 1); // references leave in the order in which they came
    }
    bits.putCode(0); // quantiser
    bits.putCode(1); // no deblocking
    for (int block = 0; block < ClipNumber::kColumns * ClipNumber::kRows; ++block)
        putMacroblock(bits, ClipNumber::isBlockWhite(aNumber, block));
    return unit(isRefresh ? kRefreshUnit : kPlainUnit, bits.finished());
}
