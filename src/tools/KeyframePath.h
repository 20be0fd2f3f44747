#ifndef KEYFRAMEPATH_H
#define KEYFRAMEPATH_H

#include "LmParamKeyframe.h"

#include <QLinkedList>
#include <QList>
#include <QPair>
#include <QPoint>

class LmKernelObjectData;
class QUndoStack;

/// Points over the frames, as tools copy them from one object to another.
namespace KeyframePath {

using Path = QLinkedList<LmParamKeyframe>;

// Copying and pasting feel for the item with squares of their own, the same at every zoom.
constexpr int kArrowTolerance = 8;
constexpr int kLineTolerance = 4;

/// The keyframes that have a value.
Path valued(const Path& aKeyframes);

/// A point of the record at a frame, blended where no keyframe stands.
QPoint pointAt(const LmKernelObjectData& aRecord, int aParam, long long aFrame);

/// The path of an end whose vector from another point has the keyframes: at each of them aPlace(point,
/// vector). Empty with fewer than two keyframes, since an end that doesn't move has no path.
Path ofEnd(LmKernelObjectData& aRecord, int aPointParam, int aVectorParam,
           QPoint (*aPlace)(const QPoint& aPoint, const QPoint& aVector));

/// Gives parameters of an object their paths, in this order, and lets it follow the frames: one undo step.
/// The canvas follows through the kernel's signals.
void paste(QUndoStack* aStack, const QString& aText, int aType, int aIdx,
           const QList<QPair<int, Path>>& aPaths);

} // namespace KeyframePath

#endif
