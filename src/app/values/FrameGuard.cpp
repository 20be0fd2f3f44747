#include "FrameGuard.h"

#include "LmKSKernelData.h"

FrameGuard::FrameGuard(int aFrame, LmImage* aImage)
    : theFrame(LmKSKernelData::getInstance()->theCurrentFrame),
      theImage(LmKSKernelData::getInstance()->theCurrentImage)
{
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    kernel->theCurrentFrame = quint32(aFrame);
    if (aImage)
        kernel->theCurrentImage = aImage;
}

FrameGuard::~FrameGuard()
{
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    kernel->theCurrentFrame = theFrame;
    kernel->theCurrentImage = theImage;
}
