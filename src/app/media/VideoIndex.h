#ifndef VIDEOINDEX_H
#define VIDEOINDEX_H

#include <QByteArray>

#include <limits>
#include <map>
#include <optional>
#include <vector>

/// What is kept of one packet of a video. Some 40 bytes, as a long video has a million of them.
struct VideoPacket
{
    static constexpr qint64 kNone = std::numeric_limits<qint64>::min();

    qint64 theShown = kNone;   // when its frame is shown, in ticks of the container
    qint64 theDecoded = kNone; // when it is decoded
    qint64 thePlace = -1;      // in the file; -1 where the container doesn't tell
    qint32 theSize = 0;
    quint32 theDigest = 0; // of its bytes
    qint32 theDuration = 0;
    bool theKey = false;    // decoding can begin here
    bool theHidden = false; // decoded since others need it, but no frame of the video
};

/// All packets of a video in the order of decoding, each named by its serial in this order, and the frames,
/// each the serial of the packet that it comes from.
class VideoIndex
{
public:
    void add(const VideoPacket& aPacket) { thePackets.push_back(aPacket); }
    /// From the packet added last on decoding needs this setup instead of the one before.
    void changeSetup(const QByteArray& aSetup) { theSetups[packetCount() - 1] = aSetup; }
    /// Makes packets findable; to be called when all are there.
    void finish();

    int packetCount() const { return int(thePackets.size()); }
    const VideoPacket& packet(int aSerial) const { return thePackets[size_t(aSerial)]; }
    /// The serial of a packet as it was read again, by its content first, since containers tell other stamps
    /// after a seek; -1 if it isn't known or could be one of several.
    int find(const VideoPacket& aPacket) const;
    /// Whether the packet at a serial is this one.
    bool isSame(int aSerial, const VideoPacket& aPacket) const;

    /// The serials in the order of their stamps; nothing where a frame has none or two have the same.
    std::optional<std::vector<int>> orderByStamps() const;
    void setOrder(const std::vector<int>& aSerials);
    int frameCount() const { return int(theSerials.size()); }
    int serialOf(int aFrame) const { return theSerials[size_t(aFrame)]; }
    /// -1 for a packet that gives no frame.
    int frameOf(int aSerial) const { return theFrames[size_t(aSerial)]; }
    /// How many frames may be decoded before one that is shown before them.
    int reorderDepth() const;

    /// The last packet not behind aLast from which decoding gives the frame: a key packet whose own frame
    /// isn't shown after it, as frames shown before their key frame need the group before. -1 if there is
    /// none, so that decoding has to begin with the file.
    int keyFor(int aFrame, int aLast) const;
    /// What a decoder has to be set up with before the packet is sent; aFirst is what the file begins with.
    /// Empty where it never changes.
    QByteArray setupFor(int aSerial, const QByteArray& aFirst) const;

private:
    bool isBefore(int aSerial, int aOther) const;

    std::vector<VideoPacket> thePackets;
    std::vector<int> theByDigest;        // serials
    std::vector<int> theSerials;         // of the frames
    std::vector<int> theFrames;          // of the packets
    std::map<int, QByteArray> theSetups; // by the serials where they begin
};

#endif
