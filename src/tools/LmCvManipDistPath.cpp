#include "LmCvManipDist.h"

#include "CmdSetAnimation.h"
#include "CmdSwitchAnimation.h"
#include "LmCvDistance.h"
#include "LmKernelObjectData.h"
#include "PointMath.h"

#include <QUndoStack>

namespace {

// Copying and pasting feel for the item with squares of their own, the same at every zoom.
constexpr int kArrowTolerance = 8;
constexpr int kLineTolerance = 4;

QPoint pointAt(const LmKernelObjectData& aRecord, int aParam, long long aFrame)
{
    return aRecord.getKeyframe(uint(aParam), aFrame).getValue().toPoint();
}

} // namespace

void LmCvManipDist::copyAnimKeyframes(const LmCvObject* aObject, const QPoint& aPoint)
{
    if (!aObject || aObject->rtti() != theObjectType)
        return;
    LmCvDistance* item = ownItem(aObject);
    LmKernelObjectData* record = recordOf(getObjectIdx(aObject));
    if (!item || !record)
        return;

    QPoint end;
    if (!item->isPointOnArrow(aPoint, end, kArrowTolerance)) {
        int node = 0;
        if (!item->isPointOnObject(aPoint, node, kLineTolerance))
            return;
        theClipboardKeyframes.clear();
        for (const LmParamKeyframe& keyframe : qAsConst(record->getAnimationKeyframes(kPos)))
            if (keyframe.hasValue())
                theClipboardKeyframes.append(keyframe);
        return;
    }

    const bool atStart = end == item->theStart;
    const QLinkedList<LmParamKeyframe>& toEnd = record->getAnimationKeyframes(kEp);
    theClipboardKeyframes.clear();
    if (toEnd.size() < 2)
        return;
    for (const LmParamKeyframe& keyframe : toEnd) {
        if (!keyframe.hasValue())
            continue;
        const long long frame = keyframe.getFrame();
        const QPoint pos = pointAt(*record, kPos, frame);
        const QPoint ep = keyframe.getValue().toPoint();
        const QPoint point = atStart ? PointMath::difference(pos, ep) : PointMath::sum(pos, ep);
        theClipboardKeyframes.append(LmParamKeyframe(frame, point));
    }
}

void LmCvManipDist::pasteAnimKeyframes(const LmCvObject* aObject, const QPoint& aPoint)
{
    if (!aObject || aObject->rtti() != theObjectType)
        return;
    const int index = getObjectIdx(aObject);
    LmCvDistance* item = ownItem(aObject);
    const LmKernelObjectData* record = index < 0 ? nullptr : recordOf(index);
    if (!item || !record)
        return;

    QPoint end;
    if (!item->isPointOnArrow(aPoint, end, kArrowTolerance)) {
        int node = 0;
        if (item->isPointOnObject(aPoint, node, kLineTolerance))
            pastePath(index, {{kPos, theClipboardKeyframes}});
        return;
    }

    const bool atStart = end == item->theStart;
    QLinkedList<LmParamKeyframe> posPath;
    QLinkedList<LmParamKeyframe> epPath;
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
    pastePath(index, {{kPos, posPath}, {kEp, epPath}});
}

// One undo step, also for an empty path. The canvas follows through the kernel's signals: theSelfChange stays
// clear.
void LmCvManipDist::pastePath(int aIdx, const QList<QPair<int, QLinkedList<LmParamKeyframe>>>& aPaths)
{
    if (!theUndoStack)
        return;
    theUndoStack->beginMacro(tr("Setting animation"));
    for (const auto& [param, path] : aPaths) {
        QLinkedList<LmParamKeyframe> keyframes = path;
        theUndoStack->push(new CmdSetAnimation(theObjectType, aIdx, param, keyframes));
    }
    if (!recordOf(aIdx)->theAnimated)
        theUndoStack->push(new CmdSwitchAnimation(theObjectType, aIdx, true));
    theUndoStack->endMacro();
}
