#include "LmParamKeyframeVector.h"

void LmParamKeyframeVector::setFrameNumber(long long aFrame)
{
    theFrame = aFrame;
    for (LmParamKeyframe& keyframe : theKeyframes)
        keyframe.setKeyframe(aFrame, keyframe.getValue());
}
