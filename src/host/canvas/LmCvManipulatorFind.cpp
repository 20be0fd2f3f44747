#include "CmdChangeObject.h"
#include "LmCVSequence.h"
#include "LmCvManipulator.h"
#include "LmImage.h"
#include "LmImageProcessor.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "PointMath.h"

#include <algorithm>

namespace {

bool holdsValues(const LmParamKeyframeVector& aVector)
{
    for (int i = 0; i < aVector.size(); ++i)
        if (aVector[i].getValue().isValid())
            return true;
    return false;
}

} // namespace

bool LmCvManipulator::findAndCreate(QPoint aPoint, bool aModify, int aIdx, int* aLower, int* aUpper,
                                    QString aName)
{
    const LmImage* image = theKernelData->getShownImage();
    if (!image || !aLower || !aUpper)
        return false;
    LmCVSequence contour(0, 8);
    const QPoint seed = PointMath::sum(aPoint, theKernelData->origin());
    if (!LmImageProcessor::getInstance(nullptr)->findContourAt(contour, image, seed, aLower, aUpper))
        return false;
    // Tools take outlines in canvas coordinates.
    contour.theOffsetX -= theKernelData->origin().x();
    contour.theOffsetY -= theKernelData->origin().y();
    if (!aModify)
        return createObjectFromContour(contour, aName) >= 0;
    modifyFromContour(contour, aIdx);
    return true;
}

void LmCvManipulator::modifyFromContour(const LmCVSequence& aContour, int aIdx)
{
    const LmKernelObjectData* record = theKernelData->getObject(theObjectType, aIdx);
    if (record && record->theAnimated) {
        const LmParamKeyframeVector keyframe =
            createKeyframesFromContour(getCvObject(aIdx), aContour, theKernelData->theCurrentFrame);
        if (holdsValues(keyframe)) {
            push(new CmdChangeObject(theObjectType, aIdx, keyframe, false));
            return;
        }
    }
    modifyObjectFromContour(aContour, aIdx);
}
