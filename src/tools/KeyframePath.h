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

/// The keyframes that have a value.
Path valued(const Path& aKeyframes);

/// A point of the record at a frame, blended where no keyframe stands.
QPoint pointAt(const LmKernelObjectData& aRecord, int aParam, long long aFrame);

/// Gives parameters of an object their paths, in this order, and lets it follow the frames: one undo step.
/// The canvas follows through the kernel's signals.
void paste(QUndoStack* aStack, int aType, int aIdx, const QList<QPair<int, Path>>& aPaths);

} // namespace KeyframePath

#endif
