// The side of LmCvManipCounter that makes, finds, changes and takes away marks.
#include "LmCvManipCounter.h"

#include "CmdChangeObjectColor.h"
#include "CmdRemoveObject.h"
#include "CmdShowObject.h"
#include "ItemRecord.h"
#include "LmAppSettings.h"
#include "LmCVSequence.h"
#include "LmCvArrow.h"
#include "LmCvEditor.h"
#include "LmCvSelection.h"
#include "LmKSKernelData.h"
#include "PointMath.h"

#include <algorithm>

namespace {

constexpr QPoint kLabelWay(20, -20); // from the thing that is counted to the label of a new mark
// Sides of the hit squares, small, so that things which lie close together can all be marked.
constexpr int kMarkTolerance = 4;
constexpr int kTipTolerance = 6;

} // namespace

int LmCvManipCounter::findCounterIndex(const LmCvArrow* aArrow, int& aCount, int& aMaxIdx, int* aPos) const
{
    aCount = 0;
    aMaxIdx = 0;
    int index = -1;
    for (auto entry = theCounters.cbegin(); entry != theCounters.cend(); ++entry) {
        aMaxIdx = std::max(aMaxIdx, entry.key());
        const qsizetype pos = aArrow ? entry.value().indexOf(aArrow) : -1;
        if (pos < 0)
            continue;
        index = entry.key();
        aCount = int(entry.value().size());
        if (aPos)
            *aPos = int(pos);
    }
    return index;
}

// A mark takes points all along the line of a shaft at 45 degrees, as every clicked mark has it, however far
// away. So one click in fifteen takes a distant mark when a hundred are scattered over 800 x 600 pixels; the
// report tells.
LmCvArrow* LmCvManipCounter::findCounterElementAt(QPoint aPos, int& aIdx, int& aPosInList) const
{
    aIdx = -1;
    aPosInList = -1;
    int node = 0;
    QPoint tip;
    for (auto entry = theCounters.cbegin(); entry != theCounters.cend(); ++entry) {
        aPosInList = -1;
        for (LmCvArrow* mark : entry.value()) {
            ++aPosInList;
            if (mark->isPointOnObject(aPos, node, kMarkTolerance) ||
                mark->isPointOnArrow(aPos, tip, kTipTolerance)) {
                aIdx = entry.key();
                return mark;
            }
        }
    }
    return nullptr;
}

int LmCvManipCounter::createCounterElement(const QPoint& aPos, bool aCheckHit)
{
    if (!canDraw())
        return -1;
    const int current = currentCounter();
    int hitIdx = -1;
    int hitPos = -1;
    if (!aCheckHit || !findCounterElementAt(aPos, hitIdx, hitPos) || hitIdx != current)
        return addMark(aPos, current);
    removeMark(hitIdx, hitPos);
    Q_EMIT signalReport(
        tr("Mark %1 of counter %2 was taken away; Undo brings it back.").arg(hitPos + 1).arg(hitIdx));
    return -1;
}

LmCvArrow* LmCvManipCounter::newMark()
{
    // The name is the kind of item and not translated.
    return new LmCvArrow(this, theCvEditor->canvas(), QStringLiteral("Counter"), theCvEditor);
}

/// In the counter, or in a new one with the index -1.
int LmCvManipCounter::addMark(const QPoint& aPos, int aIdx)
{
    const bool isNew = aIdx < 0;
    const int index = !isNew ? aIdx : theCounters.isEmpty() ? 1 : theCounters.lastKey() + 1;
    QList<LmCvArrow*>& marks = theCounters[index];
    theKnownLooks.notice();
    theCreatedArrow = newMark();
    theCreatedArrow->setText(CounterLook::markText(QString::number(index), marks.size() + 1));
    theCreatedArrow->setStartPoint(PointMath::sum(aPos, kLabelWay));
    theCreatedArrow->setEndPoint(aPos);
    theCreatedArrow->setColor(isNew ? LmAppSettings::theGridColor : marks.first()->getColor());
    prepareItem(theCreatedArrow);
    theCreatedArrow->show();
    theKnownLooks.accept();
    // Before it is made current, so that whoever hears of that finds its counter.
    marks.append(theCreatedArrow);
    makeItemCurrent(theCreatedArrow);
    store(index, isNew, tr("Add a mark to %1"));
    repaint();
    return index;
}

void LmCvManipCounter::removeMark(int aIdx, int aPos)
{
    LmCvArrow* mark = theCounters.value(aIdx).value(aPos);
    if (mark == currentMark()) {
        LmCvArrow* neighbour = theCounters.value(aIdx).value(aPos > 0 ? aPos - 1 : 1);
        if (neighbour)
            neighbour->setActive(true);
        theCvEditor->setCurrentTrack(neighbour, false);
    }
    theKnownLooks.notice();
    theKnownLooks.forgetFrom(aIdx, aPos);
    theCounters[aIdx].removeAt(aPos);
    delete mark;
    if (!theCounters.value(aIdx).isEmpty()) {
        store(aIdx, false, tr("Remove a mark from %1")); // numbers the marks as well
    } else {
        theCounters.remove(aIdx);
        theKnownLooks.forget(aIdx);
        pushOwn(new CmdRemoveObject(theObjectType, aIdx));
    }
    repaint();
}

void LmCvManipCounter::renumberCanvasCounter(int aIdx)
{
    const QList<LmCvArrow*> marks = theCounters.value(aIdx);
    const QString name = nameOf(marks);
    for (qsizetype pos = 0; pos < marks.size(); ++pos)
        giveNumber(*marks[pos], name, pos + 1);
    repaint();
}

/// The first character of the first mark's text.
QString LmCvManipCounter::nameOf(const QList<LmCvArrow*>& aMarks)
{
    return aMarks.isEmpty() ? QString() : aMarks.first()->theText.left(1);
}

void LmCvManipCounter::giveNumber(LmCvArrow& aMark, const QString& aName, qsizetype aNumber)
{
    if (!CounterLook::isMarkText(aMark.theText, aName, aNumber))
        aMark.setText(CounterLook::markText(aName, aNumber));
}

void LmCvManipCounter::removeCvObject(LmCvObject* aObject)
{
    if (!aObject || aObject->rtti() != LmCvArrow::kRtti)
        return;
    int count = 0;
    int maxIdx = 0;
    int pos = -1;
    const int index = findCounterIndex(static_cast<LmCvArrow*>(aObject), count, maxIdx, &pos);
    if (index >= 0)
        removeMark(index, pos);
}

void LmCvManipCounter::removeCounter(LmCvObject* aObject)
{
    const int index = getObjectIdx(aObject);
    if (index < 0)
        return;
    removeMarks(index);
    pushOwn(new CmdRemoveObject(theObjectType, index));
}

/// Takes the counter and all its marks off the canvas.
void LmCvManipCounter::removeMarks(int aIdx)
{
    const QList<LmCvArrow*> marks = theCounters.take(aIdx);
    theKnownLooks.forget(aIdx);
    releaseCurrent(marks);
    qDeleteAll(marks);
    repaint();
    tellHint();
}

void LmCvManipCounter::releaseCurrent(const QList<LmCvArrow*>& aMarks)
{
    LmCvArrow* current = currentMark();
    if (!current || !aMarks.contains(current))
        return;
    current->setActive(false);
    theCvEditor->setCurrentTrack(nullptr, false);
}

void LmCvManipCounter::setColorCvObject(LmCvObject* aObject, QColor aColor)
{
    const int index = getObjectIdx(aObject);
    if (index < 0)
        return;
    const QColor opaque(aColor.rgb());
    const LmKernelObjectData* record = recordOf(index);
    const bool isStored = record && ItemRecord::hasColor(*record, opaque);
    // The marks of a counter have one colour. A group is coloured mark by mark, and one step does it for all.
    if (isStored && aObject->getColor() == aColor)
        return;
    colorMarks(index, aColor);
    if (!isStored)
        pushOwn(new CmdChangeObjectColor(theObjectType, index, opaque));
}

void LmCvManipCounter::colorMarks(int aIdx, const QColor& aColor)
{
    const QList<LmCvArrow*> marks = theCounters.value(aIdx);
    for (LmCvArrow* mark : marks)
        mark->setColor(aColor);
    repaint();
}

void LmCvManipCounter::showCvObject(LmCvObject* aObject, bool aShown)
{
    const int index = getObjectIdx(aObject);
    if (index < 0)
        return;
    const bool wasCurrent = theCvEditor && aObject == theCvEditor->theCurrentTrack;
    showMarks(index, aShown);
    const LmKernelObjectData* record = recordOf(index);
    if (!record || ItemRecord::isShown(*record) != aShown)
        pushOwn(new CmdShowObject(theObjectType, index, aShown));
    if (wasCurrent)
        theCvEditor->activateItem(nullptr);
}

void LmCvManipCounter::showMarks(int aIdx, bool aShown)
{
    const QList<LmCvArrow*> marks = theCounters.value(aIdx);
    // What can't be seen must not be hit by the next command for a group.
    if (!aShown && theCvEditor)
        theCvEditor->selection().leave(QSet<const LmCvObject*>(marks.cbegin(), marks.cend()));
    for (LmCvArrow* mark : marks) {
        mark->setVisible(aShown);
        if (!aShown && theCvEditor && mark != theCvEditor->theCurrentTrack)
            theCvEditor->leaveItem(mark);
    }
    repaint();
}

bool LmCvManipCounter::isAnySelected() const
{
    if (!theCvEditor)
        return false;
    const QList<LmCvObject*> selected = theCvEditor->selection().items();
    return std::any_of(selected.cbegin(), selected.cend(),
                       [this](const LmCvObject* aItem) { return aItem->theManipulator == this; });
}

int LmCvManipCounter::createObjectFromContour(const LmCVSequence& aContour, QString)
{
    const QPoint offset(aContour.theOffsetX, aContour.theOffsetY);
    return createCounterElement(PointMath::sum(offset, aContour.theCoG), false);
}
