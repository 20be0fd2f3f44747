#include "VideoReader.h"

#include "VideoDecoder.h"
#include "VideoIndex.h"

#include <algorithm>
#include <utility>

namespace {

// Frames that come out this far behind the wanted one tell that it doesn't come.
constexpr int kMostDisorder = 16;
// Going on is quicker than a new start for this many packets, whatever the distance of the keys.
constexpr int kNearPackets = 8;
// Frames before a wanted one that are decoded whole, for the next steps back.
constexpr int kKeptBefore = 8;

} // namespace

VideoReader::VideoReader(VideoInput& aInput, VideoDecoder& aDecoder, const VideoIndex& aIndex, bool aMaySkip,
                         qint64 aCacheLimit)
    : theInput(aInput), theDecoder(aDecoder), theIndex(aIndex), theMaySkip(aMaySkip), theCache(aCacheLimit),
      thePacket(av_packet_alloc())
{
}

VideoPicture VideoReader::read(int aFrame)
{
    theCache.setPresent(aFrame);
    theFound = theCache.find(aFrame);
    if (!theFound.theFrame && theDamaged.count(aFrame) == 0) {
        if (!canGoOn(aFrame) || !decodeUntil(aFrame))
            decodeAnew(aFrame);
        if (!theFound.theFrame)
            theDamaged.insert(aFrame);
    }
    return std::exchange(theFound, VideoPicture());
}

/// Whether the frame comes out next, or soon and before any later start would give it.
bool VideoReader::canGoOn(int aFrame) const
{
    if (theNext < 0 || aFrame <= theLastFrame || aFrame < theFirstFrame)
        return false;
    const int serial = theIndex.serialOf(aFrame);
    return serial < theNext + kNearPackets || theIndex.keyFor(aFrame, serial) < theNext;
}

/// From the key packet before the frame; where it doesn't come from there, as after a key whose group is
/// damaged or that needs a while until all is right, from ones further back.
void VideoReader::decodeAnew(int aFrame)
{
    constexpr int kMostStarts = 4;
    // Beyond it a damaged frame would be searched for minutes.
    constexpr int kMostPacketsFromFront = 3000;
    int key = theIndex.keyFor(aFrame, theIndex.serialOf(aFrame));
    const bool isFrontTheOnlyKey = key <= 0;
    for (int start = 0; start < kMostStarts && key > 0; ++start) {
        if (begin(key) && decodeUntil(aFrame))
            return;
        for (int back = 0; back <= start && key > 0; ++back)
            key = theIndex.keyFor(aFrame, key - 1);
    }
    if ((isFrontTheOnlyKey || theIndex.serialOf(aFrame) < kMostPacketsFromFront) && begin(0))
        decodeUntil(aFrame);
}

bool VideoReader::begin(int aSerial)
{
    theNext = -1;
    theErrors.clear();
    theLastFrame = -1;
    theStart = aSerial;
    theDecoder.flush();
    if (!approach(aSerial))
        return false;
    addSetup(aSerial);
    theFirstFrame = aSerial == 0 ? 0 : theIndex.frameOf(aSerial);
    return true;
}

/// A container tells a change of the setup once, with the packet where it happens: not to those who pass over
/// it, and not the old one to those who go back.
void VideoReader::addSetup(int aSerial)
{
    const AVCodecParameters& parameters = *theInput.stream().codecpar;
    const QByteArray setup = theIndex.setupFor(
        aSerial, QByteArray(reinterpret_cast<const char*>(parameters.extradata), parameters.extradata_size));
    uint8_t* place = setup.isEmpty() ? nullptr
                                     : av_packet_new_side_data(thePacket.get(), AV_PKT_DATA_NEW_EXTRADATA,
                                                               size_t(setup.size()));
    if (place)
        std::copy(setup.begin(), setup.end(), place);
}

/// Makes the packet the next one.
bool VideoReader::approach(int aSerial)
{
    constexpr int kMostKeysBack = 3;
    int entry = aSerial;
    for (int back = 0; back < kMostKeysBack && entry >= 0; ++back) {
        if (search(entry, aSerial))
            return true;
        entry = aSerial > 0 ? theIndex.keyFor(theIndex.frameOf(aSerial), entry - 1) : -1;
    }
    theNext = -1; // before the first
    return theInput.reopen() && readNext() && goForward(aSerial);
}

/// Enters the file at a packet and goes on to a later one.
bool VideoReader::search(int aEntry, int aSerial)
{
    for (auto way = theSearches.begin(); way != theSearches.end(); ++way)
        if (theInput.search(theIndex.packet(aEntry), *way) && recognise() && goForward(aSerial)) {
            // What works in this file is tried first from now on.
            std::rotate(theSearches.begin(), way, way + 1);
            return true;
        }
    return false;
}

/// Finds out where the file was entered. Packets there may be unknown: the first can be the rest of one, and
/// equal ones don't tell which they are.
bool VideoReader::recognise()
{
    constexpr int kMostUnknown = 200;
    theNext = -1;
    for (int unknown = 0; unknown < kMostUnknown && theNext < 0 && theInput.read(*thePacket); ++unknown)
        theNext = theIndex.find(VideoInput::describe(*thePacket));
    return theNext >= 0;
}

bool VideoReader::goForward(int aSerial)
{
    while (theNext < aSerial && readNext()) {
    }
    return theNext == aSerial;
}

/// False if the packet isn't the one that the index has next.
bool VideoReader::readNext()
{
    const int expected = theNext + 1;
    const bool isThere = theInput.read(*thePacket);
    const bool isRight = isThere ? theIndex.isSame(expected, VideoInput::describe(*thePacket))
                                 : expected == theIndex.packetCount();
    theNext = isRight ? expected : -1;
    return isRight;
}

bool VideoReader::decodeUntil(int aFrame)
{
    // Also where nothing comes out any more the end is known: with all that a decoder may hold back, and two
    // packets a frame.
    const int held = 2 * (theDecoder.delay() + VideoDecoder::kDeepestReorder + kMostDisorder);
    const int last = theIndex.serialOf(aFrame) + held;
    while (!theFound.theFrame && theNext >= 0 && theNext <= last && theLastFrame <= aFrame + kMostDisorder)
        if (theNext < theIndex.packetCount()) {
            sendNext(aFrame);
        } else {
            theDecoder.drain();
            receive(aFrame, theNext - 1);
            theNext = -1;
        }
    return theFound.theFrame != nullptr;
}

void VideoReader::sendNext(int aFrame)
{
    const int serial = theNext;
    theDecoder.skipUnneeded(isWorthSkipping(serial, aFrame));
    if (thePacket->flags & AV_PKT_FLAG_CORRUPT)
        noteError(serial, serial);
    if (!theDecoder.send(*thePacket, serial))
        noteFailure(serial);
    receive(aFrame, serial);
    readNext();
}

/// Frames that nothing else needs are passed over on a long way, but not where the user may step back to
/// them.
bool VideoReader::isWorthSkipping(int aSerial, int aFrame) const
{
    const int frame = theIndex.frameOf(aSerial);
    return theMaySkip && frame >= 0 && frame < aFrame - kKeptBefore && !theCache.isSteppingBack();
}

/// Errors are noted before the frames that come out behind them.
void VideoReader::receive(int aFrame, int aLastSent)
{
    const VideoHandles::Frame frame(av_frame_alloc());
    while (theDecoder.receive(*frame)) {
        if (theDecoder.takeFailure())
            noteFailure(aLastSent);
        take(*frame, aFrame);
    }
    if (theDecoder.takeFailure())
        noteFailure(aLastSent);
}

/// A decoder with several threads tells later which packet it can't read.
void VideoReader::noteFailure(int aSerial)
{
    noteError(std::max(theStart, aSerial - theDecoder.delay()), aSerial);
}

void VideoReader::take(const AVFrame& aFrame, int aWanted)
{
    const int serial = int(aFrame.pts);
    const int frame = serial >= 0 && serial < theIndex.packetCount() ? theIndex.frameOf(serial) : -1;
    if (frame < theFirstFrame)
        return;
    const bool isWrong = aFrame.decode_error_flags != 0 || (aFrame.flags & AV_FRAME_FLAG_CORRUPT);
    if (isWrong && aFrame.pict_type != AV_PICTURE_TYPE_B) // others are made from it
        noteError(serial, serial);
    theLastFrame = std::max(theLastFrame, frame);
    VideoPicture picture;
    picture.theFrame.reset(av_frame_clone(&aFrame), VideoHandles::Release());
    picture.theFlawed = isWrong || isAffected(serial);
    if (!picture.theFrame)
        return;
    theCache.insert(frame, picture);
    if (frame == aWanted && !theFound.theFrame)
        theFound = picture;
}

/// Somewhere from the first to the last packet one is damaged.
void VideoReader::noteError(int aFirst, int aLast)
{
    for (int serial = aFirst; serial <= aLast; ++serial)
        if (theIndex.frameOf(serial) >= 0 && theIndex.frameOf(serial) < theFirstFrame)
            return; // only what is missing before the beginning
    // Most packets of a bad stretch follow each other.
    if (!theErrors.empty() && aFirst <= theErrors.back().second + 1 && aLast + 1 >= theErrors.back().first)
        theErrors.back() = {std::min(theErrors.back().first, aFirst),
                            std::max(theErrors.back().second, aLast)};
    else
        theErrors.emplace_back(aFirst, aLast);
}

/// Whether an error lies between the frame and the key packet that it follows from.
bool VideoReader::isAffected(int aSerial) const
{
    if (theErrors.empty())
        return false;
    const int key = theIndex.keyFor(theIndex.frameOf(aSerial), aSerial);
    return std::any_of(theErrors.begin(), theErrors.end(), [&](const std::pair<int, int>& aError) {
        return aError.first <= aSerial && aError.second >= key;
    });
}
