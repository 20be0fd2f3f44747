#include "KeyframeTrack.h"

#include "CmdSetKeyframes.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"

#include <QUndoStack>

#include <algorithm>
#include <memory>

namespace {

LmKSKernelData* kernel()
{
    return LmKSKernelData::getInstance();
}

QSet<long long> frameSet(const QList<int>& aFrames)
{
    return QSet<long long>(aFrames.begin(), aFrames.end());
}

} // namespace

KeyframeTrack::KeyframeTrack(LmCvEditor& aEditor, QUndoStack& aStack, QObject* aParent)
    : QObject(aParent), theEditor(aEditor), theStack(aStack)
{
    connect(&theEditor, &LmCvEditor::signalCurrentObjectChanged, this, &KeyframeTrack::follow);
    connect(kernel(), &LmKSKernelData::signalObjectCreated, this, &KeyframeTrack::objectChanged);
    connect(kernel(), &LmKSKernelData::signalObjectChanged, this, &KeyframeTrack::objectChanged);
    connect(kernel(), &LmKSKernelData::signalObjectRemoved, this, &KeyframeTrack::objectChanged);
}

void KeyframeTrack::follow()
{
    const LmCvObject* item = theEditor.theCurrentTrack;
    const LmCvManipulator* tool = item ? item->theManipulator : nullptr;
    theType = tool ? tool->theObjectType : 0;
    theIdx = tool ? tool->getObjectIdx(item) : -1;
    theFrames.clear();
    const LmKernelObjectData* data = record();
    if (data && data->theAnimated)
        for (const long long frame : data->getKeyframedFrames())
            if (frame < kernel()->theFrameCount)
                theFrames.append(int(frame));
    Q_EMIT changed();
}

/// A new object gets its record before or after it becomes current.
void KeyframeTrack::objectChanged(int aType, int aIdx)
{
    if ((aType == theType && aIdx == theIdx) || (theIdx < 0 && theEditor.theCurrentTrack))
        follow();
}

const LmKernelObjectData* KeyframeTrack::record() const
{
    return theIdx < 0 ? nullptr : kernel()->getObject(theType, theIdx);
}

QString KeyframeTrack::objectText() const
{
    return hasObject() ? kernel()->objectText(theType, theIdx) : QString();
}

bool KeyframeTrack::isAnimated() const
{
    const LmKernelObjectData* data = record();
    return data && data->theAnimated;
}

int KeyframeTrack::previous(int aFrame) const
{
    const auto at = std::lower_bound(theFrames.begin(), theFrames.end(), aFrame);
    return at == theFrames.begin() ? -1 : *std::prev(at);
}

int KeyframeTrack::next(int aFrame) const
{
    const auto behind = std::upper_bound(theFrames.begin(), theFrames.end(), aFrame);
    return behind == theFrames.end() ? -1 : *behind;
}

void KeyframeTrack::setAnimated(bool aAnimated)
{
    LmCvObject* item = theEditor.theCurrentTrack;
    if (hasObject() && item)
        item->theManipulator->changeAnimationCvObject(item, aAnimated, false, false);
}

void KeyframeTrack::setKeyframe(int aFrame)
{
    if (const LmKernelObjectData* data = record())
        push(KeyframeLists(*data).with(KeyframeLists::ofFrame(*data, aFrame), kernel()->theFrameCount), true,
             tr("Set keyframe of %1").arg(objectText()));
}

void KeyframeTrack::remove(const QList<int>& aFrames)
{
    if (const LmKernelObjectData* data = record())
        push(KeyframeLists(*data).without(frameSet(aFrames)), data->theAnimated,
             tr("Delete keyframes of %1").arg(objectText()));
}

int KeyframeTrack::move(const QList<int>& aFrames, int aBy)
{
    const LmKernelObjectData* data = record();
    if (!data || aFrames.isEmpty())
        return 0;
    const auto [first, last] = std::minmax_element(aFrames.begin(), aFrames.end());
    const int room = int(kernel()->theFrameCount) - 1 - *last;
    const int by = std::max(std::min(aBy, std::max(room, 0)), -*first);
    if (by == 0)
        return 0;
    const KeyframeLists lists(*data);
    const QSet<long long> frames = frameSet(aFrames);
    push(lists.without(frames).with(lists.only(frames).shifted(by), kernel()->theFrameCount),
         data->theAnimated, tr("Move keyframes of %1").arg(objectText()));
    return by;
}

void KeyframeTrack::copy(const QList<int>& aFrames)
{
    const LmKernelObjectData* data = record();
    if (!data || aFrames.isEmpty())
        return;
    const int first = *std::min_element(aFrames.begin(), aFrames.end());
    theClipboard = KeyframeLists(*data).only(frameSet(aFrames)).shifted(-first);
    theClipboardType = theType;
    Q_EMIT changed();
}

bool KeyframeTrack::canPaste() const
{
    return hasObject() && theClipboardType == theType && !theClipboard.isEmpty();
}

QList<int> KeyframeTrack::paste(int aFrame)
{
    const LmKernelObjectData* data = record();
    if (!data || !canPaste())
        return {};
    const KeyframeLists pasted = theClipboard.shifted(aFrame);
    push(KeyframeLists(*data).with(pasted, kernel()->theFrameCount), true,
         tr("Paste keyframes to %1").arg(objectText()));
    const QSet<long long> places = pasted.frames();
    QList<int> frames;
    for (const int frame : std::as_const(theFrames))
        if (places.contains(frame))
            frames.append(frame);
    return frames;
}

void KeyframeTrack::push(const KeyframeLists& aKeyframes, bool aAnimated, const QString& aText)
{
    auto command = std::make_unique<CmdSetKeyframes>(theType, theIdx, aKeyframes, aAnimated, aText);
    if (command->isPossible())
        theStack.push(command.release());
}
