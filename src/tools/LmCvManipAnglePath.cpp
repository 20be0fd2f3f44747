// The side of LmCvManipAngle that copies the paths of vertex and ends.
#include "LmCvManipAngle.h"

#include "KeyframePath.h"
#include "LmCvAngle.h"
#include "LmKernelObjectData.h"
#include "PointMath.h"

using KeyframePath::kArrowTolerance;
using KeyframePath::kLineTolerance;
using KeyframePath::Path;
using KeyframePath::pointAt;

namespace {

// The vectors from the record's vertex to a path.
Path vectorsTo(const Path& aPath, const LmKernelObjectData& aRecord, int aVertexParam)
{
    Path vectors;
    for (const LmParamKeyframe& keyframe : aPath) {
        const QPoint vertex = pointAt(aRecord, aVertexParam, keyframe.getFrame());
        vectors.append(LmParamKeyframe(keyframe.getFrame(),
                                       PointMath::difference(keyframe.getValue().toPoint(), vertex)));
    }
    return vectors;
}

// The vectors from a path to the record's end, which stays where it is while the vertex moves.
Path vectorsFrom(const Path& aPath, const LmKernelObjectData& aRecord, int aVertexParam, int aVectorParam)
{
    Path vectors;
    for (const LmParamKeyframe& keyframe : aPath) {
        const long long frame = keyframe.getFrame();
        const QPoint end =
            PointMath::sum(pointAt(aRecord, aVertexParam, frame), pointAt(aRecord, aVectorParam, frame));
        vectors.append(LmParamKeyframe(frame, PointMath::difference(end, keyframe.getValue().toPoint())));
    }
    return vectors;
}

} // namespace

void LmCvManipAngle::copyAnimKeyframes(const LmCvObject* aObject, const QPoint& aPoint)
{
    auto* item = static_cast<LmCvAngle*>(ownItem(aObject));
    LmKernelObjectData* record = recordOf(getObjectIdx(aObject));
    if (!item || !record)
        return;

    QPoint end;
    if (!item->isPointOnArrow(aPoint, end, kArrowTolerance)) {
        int node = 0;
        if (item->isPointOnObject(aPoint, node, kLineTolerance) || item->isPointOnStart(aPoint))
            theClipboardKeyframes = KeyframePath::valued(record->getAnimationKeyframes(kPos));
        return;
    }
    // Crosswise: an arm gives the path of its partner, so that copying and pasting at one arrow head lets
    // that arm follow the other.
    const Param other = end == item->theEnd1 ? kEp2 : kEp1;
    theClipboardKeyframes = KeyframePath::ofEnd(*record, kPos, other, PointMath::sum);
}

void LmCvManipAngle::pasteAnimKeyframes(const LmCvObject* aObject, const QPoint& aPoint)
{
    const int index = getObjectIdx(aObject);
    const auto* item = static_cast<const LmCvAngle*>(ownItem(aObject));
    const LmKernelObjectData* record = recordOf(index);
    if (!item || !record)
        return;

    QList<QPair<int, Path>> paths;
    QPoint end;
    if (theClipboardKeyframes.isEmpty()) {
        // No path, no command for it: the object only begins to follow the frames.
    } else if (item->isPointOnArrow(aPoint, end, kArrowTolerance)) {
        paths = {{end == item->theEnd1 ? kEp1 : kEp2, vectorsTo(theClipboardKeyframes, *record, kPos)}};
    } else {
        paths = {{kPos, theClipboardKeyframes}};
        if (item->isPointOnStart(aPoint))
            for (const int vector : {kEp1, kEp2})
                paths.append({vector, vectorsFrom(theClipboardKeyframes, *record, kPos, vector)});
    }
    KeyframePath::paste(theUndoStack, tr("Setting animation"), theObjectType, index, paths);
}
