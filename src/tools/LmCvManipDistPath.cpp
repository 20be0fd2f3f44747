#include "LmCvManipDist.h"

#include "KeyframePath.h"
#include "LmCvDistance.h"
#include "LmKernelObjectData.h"
#include "PointMath.h"

using KeyframePath::kArrowTolerance;
using KeyframePath::kLineTolerance;
using KeyframePath::Path;
using KeyframePath::pointAt;

void LmCvManipDist::copyAnimKeyframes(const LmCvObject* aObject, const QPoint& aPoint)
{
    if (!aObject || aObject->rtti() != theObjectType)
        return;
    auto* item = static_cast<LmCvDistance*>(ownItem(aObject));
    LmKernelObjectData* record = recordOf(getObjectIdx(aObject));
    if (!item || !record)
        return;

    QPoint end;
    if (!item->isPointOnArrow(aPoint, end, kArrowTolerance)) {
        int node = 0;
        if (!item->isPointOnObject(aPoint, node, kLineTolerance))
            return;
        theClipboardKeyframes = KeyframePath::valued(record->getAnimationKeyframes(kPos));
        return;
    }

    const bool atStart = end == item->theStart;
    theClipboardKeyframes =
        KeyframePath::ofEnd(*record, kPos, kEp, atStart ? PointMath::difference : PointMath::sum);
}

void LmCvManipDist::pasteAnimKeyframes(const LmCvObject* aObject, const QPoint& aPoint)
{
    if (!aObject || aObject->rtti() != theObjectType)
        return;
    const int index = getObjectIdx(aObject);
    auto* item = static_cast<LmCvDistance*>(ownItem(aObject));
    const LmKernelObjectData* record = index < 0 ? nullptr : recordOf(index);
    if (!item || !record)
        return;

    QPoint end;
    if (!item->isPointOnArrow(aPoint, end, kArrowTolerance)) {
        int node = 0;
        if (item->isPointOnObject(aPoint, node, kLineTolerance))
            KeyframePath::paste(theUndoStack, tr("Setting animation"), theObjectType, index,
                                {{kPos, theClipboardKeyframes}});
        return;
    }

    const bool atStart = end == item->theStart;
    Path posPath;
    Path epPath;
    for (const LmParamKeyframe& keyframe : qAsConst(theClipboardKeyframes)) {
        const long long frame = keyframe.getFrame();
        const QPoint moved = keyframe.getValue().toPoint();
        const QPoint pos = pointAt(*record, kPos, frame);
        const QPoint ep = pointAt(*record, kEp, frame);
        const QPoint still = atStart ? PointMath::sum(pos, ep) : PointMath::difference(pos, ep);
        const QPoint newPos = PointMath::middle(still, moved);
        posPath.append(LmParamKeyframe(frame, newPos));
        epPath.append(LmParamKeyframe(frame, PointMath::difference(atStart ? still : moved, newPos)));
    }
    KeyframePath::paste(theUndoStack, tr("Setting animation"), theObjectType, index,
                        {{kPos, posPath}, {kEp, epPath}});
}
