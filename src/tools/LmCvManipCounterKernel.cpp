// The side of LmCvManipCounter that keeps marks and records alike, and the values of counters.
#include "LmCvManipCounter.h"

#include "CmdChangeObject.h"
#include "CmdCreateObject.h"
#include "LmCvArrow.h"
#include "LmCvEditor.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "LmKernelObjectDataDescr.h"
#include "PointMath.h"

#include <QUndoStack>

namespace {

// The font that goes into every record; a mark has it once it comes back from there.
QFont recordFont()
{
    return QFont(QStringLiteral("MS Shell Dlg"), 10);
}

} // namespace

void LmCvManipCounter::updateKernelCounter(int aIdx, bool aCreate)
{
    store(aIdx, aCreate, QString());
}

/// Numbers the marks and gives their points as a record holds them, two per mark.
QPolygon LmCvManipCounter::numberedPoints(int aIdx)
{
    const QList<LmCvArrow*> marks = theCounters.value(aIdx);
    const QString name = nameOf(marks);
    const QPoint origin = theKernelData->origin();
    theKnownLooks.notice();
    QPolygon points = theKnownLooks.knownPoints(aIdx, name, origin);
    if (points.isEmpty())
        theKnownLooks.forget(aIdx);
    points.reserve(2 * marks.size());
    for (qsizetype pos = points.size() / 2; pos < marks.size(); ++pos) {
        LmCvArrow* mark = marks[pos];
        giveNumber(*mark, name, pos + 1);
        points << PointMath::sum(PointMath::cut(mark->x(), mark->y()), origin)
               << PointMath::sum(mark->theEndPoint, origin);
    }
    theKnownLooks.learnPoints(aIdx, points, name, origin);
    return points;
}

/// aText is what the undo list says of a change, with the counter in the place of %1; empty for the usual
/// one.
void LmCvManipCounter::store(int aIdx, bool aCreate, const QString& aText)
{
    const QList<LmCvArrow*> marks = theCounters.value(aIdx);
    if (marks.isEmpty() || !descriptor())
        return;
    NamedValues values = {{QStringLiteral("pos"), QVariant::fromValue<QPolygon>(numberedPoints(aIdx))},
                          {QStringLiteral("col"), marks.first()->getColor()},
                          {QStringLiteral("nm"), nameOf(marks)},
                          {QStringLiteral("fnt"), recordFont()},
                          {QStringLiteral("vis"), true}};
    if (aCreate) {
        values << qMakePair(QStringLiteral("dispv"), QVariant(QString()));
        pushCreation(aIdx, values);
        return;
    }
    auto* command = new CmdChangeObject(theObjectType, aIdx, vectorOf(values), false);
    if (!aText.isEmpty())
        command->setText(aText.arg(theKernelData->objectText(theObjectType, aIdx)));
    pushOwn(command);
}

CounterLook LmCvManipCounter::lookOf(const LmParamKeyframeVector& aValues) const
{
    CounterLook look;
    look.thePoints = aValues[kPos].getValue().value<QPolygon>();
    look.theOrigin = theKernelData->origin();
    look.theName = aValues[kName].getValue().toString();
    look.theColor = sharedValue(aValues, kColor).value<QColor>();
    look.theFont = aValues[kFont].getValue().value<QFont>();
    look.theStep = theKernelData->currentStep(look.theUnit);
    look.theVisible = sharedValue(aValues, kVisible).toBool();
    return look;
}

LmCvArrow* LmCvManipCounter::newMark(const CounterLook& aLook, qsizetype aPos)
{
    LmCvArrow* mark = newMark();
    mark->setText(CounterLook::markText(aLook.theName, aPos + 1));
    mark->setStartPoint(aLook.anchor(aPos));
    mark->setEndPoint(aLook.tip(aPos));
    mark->setColor(aLook.theColor);
    mark->setFont(aLook.theFont);
    mark->setStep(aLook.theStep, aLook.theUnit);
    mark->adjustScale(theCvEditor->worldMatrix());
    mark->setVisible(aLook.theVisible);
    return mark;
}

void LmCvManipCounter::updateCanvasCounter(int aIdx, const LmParamKeyframeVector& aValues)
{
    if (!theCvEditor)
        return;
    const CounterLook look = lookOf(aValues);
    theKnownLooks.notice();
    // Out of the map while marks go, so that nobody finds one that has gone.
    QList<LmCvArrow*> marks = theCounters.take(aIdx);
    releaseCurrent(marks);
    // A mark made anew isn't in the group.
    const qsizetype alike = theKnownLooks.keptCount(aIdx, look);
    const qsizetype kept = isAnySelected() ? 0 : alike;
    while (marks.size() > kept)
        delete marks.takeLast();
    marks.reserve(look.markCount());
    for (qsizetype pos = kept; pos < look.markCount(); ++pos)
        marks.append(newMark(look, pos));
    theCounters.insert(aIdx, marks);
    theKnownLooks.learn(aIdx, look);
    repaint();
    tellHint();
}

void LmCvManipCounter::slotObjectCreatedInKernel(int aType, int aIdx, const LmKernelObjectData* aData)
{
    if (!theSelfChange && aType == theObjectType && !theCounters.contains(aIdx))
        updateCanvasCounter(aIdx, aData->getKeyframesAt(theKernelData->theCurrentFrame));
}

void LmCvManipCounter::slotObjectChangedInKernel(int aType, int aIdx, const LmKernelObjectData* aData)
{
    if (!theSelfChange && aType == theObjectType && theCounters.contains(aIdx))
        updateCanvasCounter(aIdx, aData->getKeyframesAt(theKernelData->theCurrentFrame));
}

void LmCvManipCounter::slotObjectRemovedInKernel(const int aType, const int aIdx)
{
    if (!theSelfChange && aType == theObjectType && theCounters.contains(aIdx))
        removeMarks(aIdx);
}

void LmCvManipCounter::slotObjectShowInKernel(const int aType, const int aIdx, bool aShown)
{
    if (!theSelfChange && aType == theObjectType && theCounters.contains(aIdx))
        showMarks(aIdx, aShown);
}

void LmCvManipCounter::slotObjectColorChangedInKernel(const int aType, const int aIdx, const QColor& aColor)
{
    if (!theSelfChange && aType == theObjectType && theCounters.contains(aIdx))
        colorMarks(aIdx, aColor);
}

void LmCvManipCounter::slotCalibrationChangedInKernel(const QString&, const LmCalibData& aData)
{
    constexpr double kLeastValue = 0.001;
    // A width that isn't a number doesn't count as too small here: what comes out is no number either.
    const double step = aData.theValue <= kLeastValue ? 0.0
                                                      : theKernelData->getCurrentImageSize().width() *
                                                            theKernelData->theCalibScale / aData.theValue;
    for (const QList<LmCvArrow*>& marks : qAsConst(theCounters))
        for (LmCvArrow* mark : marks)
            mark->setStep(step, aData.theUnit);
    repaint();
}

void LmCvManipCounter::slotCanvasObjectChanged(LmCvObject* aObject)
{
    if (const int index = getObjectIdx(aObject); index >= 0)
        store(index, false, tr("Move a mark of %1"));
}

/// At the current frame, whichever is asked for. The marks of a hidden counter stay as they are.
void LmCvManipCounter::recreateCanvasObjects(QPoint, long long, bool aAll)
{
    if (!aAll)
        return;
    const QList<int> indexes = theCounters.keys();
    for (const int index : indexes) {
        const LmKernelObjectData* record = recordOf(index);
        if (!record)
            continue;
        const LmParamKeyframeVector values = record->getKeyframesAt(theKernelData->theCurrentFrame);
        if (sharedValue(values, kVisible).toBool())
            updateCanvasCounter(index, values);
    }
}

void LmCvManipCounter::constructDataObject(const QDomElement& aElement, QProgressDialog* aProgress)
{
    const LmKernelObjectDataDescr* descr = descriptor();
    if (!descr || !theUndoStack)
        return;
    int savedIdx = 0;
    LmKernelObjectData* record = descr->createObjectDataFromXML(aElement, savedIdx, aProgress);
    if (!record)
        return;
    // The saved number isn't used. The kernel's signal makes the marks, as after an undo.
    int index = int(theCounters.size()) + 1;
    const QMap<int, LmKernelObjectData*>& records = theKernelData->getObjectsOfType(theObjectType);
    if (records.contains(index)) // a counter before it is missing
        index = records.lastKey() + 1;
    theUndoStack->push(new CmdCreateObject(theObjectType, index, record));
}

QLinkedList<QVariant> LmCvManipCounter::getValues(const QStringList& aNames, const LmKernelObjectData* aData,
                                                  QStringList& aUnits)
{
    const auto countOf = [frame = theKernelData->theCurrentFrame](const LmKernelObjectData& aRecord) {
        return int(aRecord.getKeyframesAt(frame)[kPos].getValue().value<QPolygon>().size() / 2);
    };
    aUnits.clear();
    QLinkedList<QVariant> values;
    for (const QString& name : aNames) {
        if (aData && name == tr("Count")) {
            values.append(countOf(*aData));
            aUnits.append(tr("pcs"));
        } else if (aData && name == tr("% Of Total")) {
            double total = 0.0;
            for (const LmKernelObjectData* record : theKernelData->getObjectsOfType(theObjectType))
                total += countOf(*record);
            values.append(total > 0.0 ? QVariant(countOf(*aData) / total * 100.0) : QVariant());
            aUnits.append(tr("%"));
        } else {
            values.append(QVariant());
            aUnits.append(QString());
        }
    }
    return values;
}
