#ifndef LMPARAMKEYFRAMEVECTOR_H
#define LMPARAMKEYFRAMEVECTOR_H

#include "LmParamKeyframe.h"

#include <QList>

/// The values of all parameters of one object at one frame, in the order of its descriptor. A new vector
/// belongs to the default keyframes, frame -1.
class LmParamKeyframeVector
{
public:
    LmParamKeyframeVector() = default;
    explicit LmParamKeyframeVector(int aCount) : theKeyframes(aCount) {}

    int size() const { return int(theKeyframes.size()); }
    LmParamKeyframe& operator[](int aParam) { return theKeyframes[aParam]; }
    const LmParamKeyframe& operator[](int aParam) const { return theKeyframes[aParam]; }
    void setValue(int aParam, const QVariant& aValue) { theKeyframes[aParam].setKeyframe(theFrame, aValue); }

    /// The frame of the vector and of all its keyframes.
    void setFrameNumber(long long aFrame);
    long long getFrameNumber() const { return theFrame; }
    bool operator==(const LmParamKeyframeVector& aOther) const
    {
        return theFrame == aOther.theFrame && theKeyframes == aOther.theKeyframes;
    }

private:
    QList<LmParamKeyframe> theKeyframes;
    long long theFrame = kDefaultFrame;
};

#endif
