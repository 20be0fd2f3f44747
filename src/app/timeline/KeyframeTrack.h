#ifndef KEYFRAMETRACK_H
#define KEYFRAMETRACK_H

#include "KeyframeLists.h"

#include <QObject>

class LmCvEditor;
class LmKernelObjectData;
class QUndoStack;

/// The keyframes of the current object, and what can be done with them; each is one undo step.
class KeyframeTrack : public QObject
{
    Q_OBJECT

public:
    KeyframeTrack(LmCvEditor& aEditor, QUndoStack& aStack, QObject* aParent);

    /// Reads the current object anew; to be called also when there are other frames.
    void follow();
    /// Whether there is a current object that has a record.
    bool hasObject() const { return record() != nullptr; }
    /// Such as "Distance 3"; empty without one.
    QString objectText() const;
    bool isAnimated() const;
    /// Ascending; empty for an object that isn't animated, whose keyframes rest. Those that lie behind the
    /// last frame, as in a video that is shorter than it was, rest as well.
    const QList<int>& frames() const { return theFrames; }
    /// The nearest keyframe before or behind a frame, or -1.
    int previous(int aFrame) const;
    int next(int aFrame) const;

    void setAnimated(bool aAnimated);
    /// Makes what the object is at the frame a keyframe, and the object animated.
    void setKeyframe(int aFrame);
    void remove(const QList<int>& aFrames);
    /// Moves keyframes together, as far as all of them stay within the sequence; those that they meet go.
    /// How far they went.
    int move(const QList<int>& aFrames, int aBy);
    void copy(const QList<int>& aFrames);
    /// Whether keyframes of an object of the same type were copied.
    bool canPaste() const;
    /// Puts the first of the copied keyframes at the frame and the others behind it. The frames where they
    /// stand; what would lie behind the last frame is left out.
    QList<int> paste(int aFrame);

Q_SIGNALS:
    /// Another object is current, or its keyframes or its animation have changed.
    void changed();

private:
    const LmKernelObjectData* record() const;
    void objectChanged(int aType, int aIdx);
    void push(const KeyframeLists& aKeyframes, bool aAnimated, const QString& aText);

    LmCvEditor& theEditor;
    QUndoStack& theStack;
    int theType = 0; // of the current object
    int theIdx = -1;
    QList<int> theFrames;
    KeyframeLists theClipboard; // shifted so that the first stands at frame 0
    int theClipboardType = 0;
};

#endif
