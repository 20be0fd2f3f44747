#ifndef KEYFRAMELISTS_H
#define KEYFRAMELISTS_H

#include "LmParamKeyframe.h"
#include "LmParamKeyframeVector.h"

#include <QLinkedList>
#include <QList>
#include <QSet>

class LmKernelObjectData;

/// The keyframes of all parameters of an object, one list a parameter, and what can be done with them by
/// frames. Parameters of one value for the whole object have an empty list.
class KeyframeLists
{
public:
    using Keyframes = QLinkedList<LmParamKeyframe>;

    KeyframeLists() = default;
    explicit KeyframeLists(const LmKernelObjectData& aData);

    int count() const { return int(theLists.size()); }
    const Keyframes& at(int aParam) const { return theLists[aParam]; }
    Keyframes& at(int aParam) { return theLists[aParam]; }
    bool isEmpty() const;
    /// The frames that hold a keyframe of any parameter.
    QSet<long long> frames() const;

    /// Only those at the frames, or all but those.
    KeyframeLists only(const QSet<long long>& aFrames) const;
    KeyframeLists without(const QSet<long long>& aFrames) const;
    KeyframeLists shifted(long long aBy) const;
    /// Both together; where both have a keyframe at a frame that of the other counts. Of the other's those
    /// before frame 0 and from aFrameCount on are left out.
    KeyframeLists with(const KeyframeLists& aOther, long long aFrameCount) const;
    /// A keyframe at the frame of every parameter of the object that can have one.
    static KeyframeLists ofFrame(const LmKernelObjectData& aData, long long aFrame);

private:
    QList<Keyframes> theLists;
};

#endif
