#include "VideoOrder.h"

#include "VideoDecoder.h"
#include "VideoIndex.h"
#include "VideoInput.h"
#include "VideoProgress.h"

#include <algorithm>

namespace {

// Enough packets for several frames that are shown in another order than decoded.
constexpr int kProbePackets = 32;

/// Whether the serials are among the others, in the same order.
bool isPartOf(const std::vector<int>& aSerials, const std::vector<int>& aOthers)
{
    auto from = aOthers.begin();
    for (const int serial : aSerials) {
        from = std::find(from, aOthers.end(), serial);
        if (from == aOthers.end())
            return false;
        ++from;
    }
    return true;
}

} // namespace

VideoOrder::VideoOrder(VideoInput& aInput, VideoDecoder& aDecoder, VideoIndex& aIndex)
    : theInput(aInput), theDecoder(aDecoder), theIndex(aIndex)
{
}

bool VideoOrder::run(bool aTrustStamps, const MediaSource::Progress& aProgress)
{
    if (const auto order = theIndex.orderByStamps(); order && aTrustStamps) {
        theIndex.setOrder(*order);
        // Stamps that run back, as where two recordings were joined, are no order that a codec can have.
        const int depth = theIndex.reorderDepth();
        if (depth <= VideoDecoder::kDeepestReorder && theDecoder.open(*theInput.stream().codecpar, depth) &&
            agreesWithDecoder(*order))
            return true;
    }
    theLearned = true;
    return learn(aProgress);
}

bool VideoOrder::agreesWithDecoder(const std::vector<int>& aOrder)
{
    // Hidden packets in front give no frame to compare.
    int hidden = 0;
    while (hidden < theIndex.packetCount() && theIndex.packet(hidden).theHidden)
        ++hidden;
    const int count = std::min(hidden + kProbePackets, theIndex.packetCount());
    decode(count, MediaSource::Progress());
    std::vector<int> expected;
    std::copy_if(aOrder.begin(), aOrder.end(), std::back_inserter(expected),
                 [count](int aSerial) { return aSerial < count; });
    if (theOutput.empty())
        return false;
    if (theOutput == expected || !theDamaged)
        return theOutput == expected;
    // A damaged frame is one all the same, and told when it is asked for. But frames before the first key are
    // none where the video begins in the middle of a group.
    const int first = expected.front();
    return isPartOf(theOutput, expected) && (theOutput.front() == first || theIndex.packet(first).theKey);
}

/// A second pass is needed where the decoder noticed only on its way how far frames are shown out of the
/// order of decoding: it may have dropped some until then.
bool VideoOrder::learn(const MediaSource::Progress& aProgress)
{
    int depth = 0;
    for (bool isDone = false; !isDone;) {
        theIndex.setOrder({});
        if (!theDecoder.open(*theInput.stream().codecpar, depth))
            return true;
        depth = theDecoder.reorderDepth();
        if (!decode(theIndex.packetCount(), aProgress))
            return false;
        isDone = theDecoder.reorderDepth() <= depth;
        depth = theDecoder.reorderDepth();
    }
    theIndex.setOrder(theOutput);
    return true;
}

/// Decodes so many packets from the first on; false if stopped.
bool VideoOrder::decode(int aCount, const MediaSource::Progress& aProgress)
{
    theOutput.clear();
    theDamaged = false;
    theDamagedLater = false;
    theSeen.assign(size_t(theIndex.packetCount()), false);
    if (!theInput.reopen())
        return true;
    const VideoHandles::Packet packet(av_packet_alloc());
    VideoProgress progress(aProgress);
    for (int serial = 0; serial < aCount && theInput.read(*packet); ++serial) {
        if (!theDecoder.send(*packet, serial))
            noteDamage();
        receive();
        if (!progress.report(double(serial) / aCount))
            return false;
    }
    theDecoder.drain();
    receive();
    return true;
}

void VideoOrder::receive()
{
    const VideoHandles::Frame frame(av_frame_alloc());
    while (theDecoder.receive(*frame)) {
        const int serial = int(frame->pts);
        const bool isKnown = frame->pts >= 0 && serial < theIndex.packetCount();
        if (!isKnown || theSeen[size_t(serial)] || theIndex.packet(serial).theHidden)
            continue;
        theSeen[size_t(serial)] = true;
        theOutput.push_back(serial);
        if (theFrameSize.isEmpty())
            theFrameSize = QSize(frame->width, frame->height);
    }
    if (theDecoder.takeFailure())
        noteDamage();
}

void VideoOrder::noteDamage()
{
    theDamaged = true;
    theDamagedLater = theDamagedLater || !theOutput.empty();
}
