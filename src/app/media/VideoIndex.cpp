#include "VideoIndex.h"

#include <algorithm>
#include <numeric>

namespace {

/// Two places or stamps, of which either may not be known.
template <typename Number>
bool agree(Number aFirst, Number aSecond, Number aNone)
{
    return aFirst == aNone || aSecond == aNone || aFirst == aSecond;
}

} // namespace

bool VideoIndex::isBefore(int aSerial, int aOther) const
{
    const quint32 first = packet(aSerial).theDigest;
    const quint32 second = packet(aOther).theDigest;
    return first != second ? first < second : aSerial < aOther;
}

void VideoIndex::finish()
{
    theByDigest.resize(thePackets.size());
    std::iota(theByDigest.begin(), theByDigest.end(), 0);
    std::sort(theByDigest.begin(), theByDigest.end(), [this](int a, int b) { return isBefore(a, b); });
    theFrames.assign(thePackets.size(), -1);
}

bool VideoIndex::isSame(int aSerial, const VideoPacket& aPacket) const
{
    if (aSerial < 0 || aSerial >= packetCount())
        return false;
    const VideoPacket& known = packet(aSerial);
    return known.theDigest == aPacket.theDigest && known.theSize == aPacket.theSize &&
           agree(known.thePlace, aPacket.thePlace, qint64(-1));
}

int VideoIndex::find(const VideoPacket& aPacket) const
{
    auto at = std::lower_bound(
        theByDigest.begin(), theByDigest.end(), aPacket.theDigest,
        [this](int aSerial, quint32 aDigest) { return packet(aSerial).theDigest < aDigest; });
    std::vector<int> alike;
    for (; at != theByDigest.end() && packet(*at).theDigest == aPacket.theDigest; ++at)
        if (isSame(*at, aPacket))
            alike.push_back(*at);
    if (alike.size() > 1)
        alike.erase(std::remove_if(alike.begin(), alike.end(),
                                   [&](int aSerial) {
                                       return !agree(packet(aSerial).theShown, aPacket.theShown,
                                                     VideoPacket::kNone);
                                   }),
                    alike.end());
    return alike.size() == 1 ? alike.front() : -1;
}

std::optional<std::vector<int>> VideoIndex::orderByStamps() const
{
    std::vector<int> serials;
    for (int serial = 0; serial < packetCount(); ++serial) {
        if (packet(serial).theHidden)
            continue;
        if (packet(serial).theShown == VideoPacket::kNone)
            return std::nullopt;
        serials.push_back(serial);
    }
    std::sort(serials.begin(), serials.end(),
              [this](int a, int b) { return packet(a).theShown < packet(b).theShown; });
    const auto twin = std::adjacent_find(serials.begin(), serials.end(), [this](int a, int b) {
        return packet(a).theShown == packet(b).theShown;
    });
    return twin == serials.end() ? std::make_optional(std::move(serials)) : std::nullopt;
}

void VideoIndex::setOrder(const std::vector<int>& aSerials)
{
    theSerials = aSerials;
    theFrames.assign(thePackets.size(), -1);
    for (int frame = 0; frame < frameCount(); ++frame)
        theFrames[size_t(serialOf(frame))] = frame;
}

int VideoIndex::reorderDepth() const
{
    // The frames that were decoded and wait for one before them to be shown. Groups are short, so that hardly
    // any wait at a time.
    int deepest = 0;
    std::vector<int> waiting;
    int next = 0;
    for (int serial = 0; serial < packetCount(); ++serial) {
        if (frameOf(serial) < 0)
            continue;
        waiting.push_back(frameOf(serial));
        std::push_heap(waiting.begin(), waiting.end(), std::greater<int>());
        while (!waiting.empty() && waiting.front() == next) {
            std::pop_heap(waiting.begin(), waiting.end(), std::greater<int>());
            waiting.pop_back();
            ++next;
        }
        deepest = std::max(deepest, int(waiting.size()));
    }
    return deepest;
}

int VideoIndex::keyFor(int aFrame, int aLast) const
{
    for (int serial = std::min(serialOf(aFrame), aLast); serial >= 0; --serial)
        if (packet(serial).theKey && frameOf(serial) >= 0 && frameOf(serial) <= aFrame)
            return serial;
    return -1;
}

QByteArray VideoIndex::setupFor(int aSerial, const QByteArray& aFirst) const
{
    const auto later = theSetups.upper_bound(aSerial);
    if (theSetups.empty())
        return {};
    return later == theSetups.begin() ? aFirst : std::prev(later)->second;
}
