// The side of LmCvManipulator that faces the kernel: connections, commands, slots and values.
#include "LmCvManipulator.h"

#include "CmdChangeObjectColor.h"
#include "CmdRemoveObject.h"
#include "CmdSetKeyframes.h"
#include "CmdShowObject.h"
#include "CmdSwitchAnimation.h"
#include "ItemRecord.h"
#include "LmCvEditor.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"

#include <QScopedValueRollback>
#include <QToolButton>
#include <QUndoStack>

namespace {

/// Index of "dispv", the name of the value on the label, in every type's record.
constexpr int kShownValueParam = 2;

QString numberText(const QVariant& aValue)
{
    switch (aValue.typeId()) {
    case QMetaType::Int:
    case QMetaType::LongLong:
        return QString::number(aValue.toLongLong());
    case QMetaType::UInt:
    case QMetaType::ULongLong:
        return QString::number(aValue.toULongLong());
    case QMetaType::Double:
    case QMetaType::Float:
        return QString::number(aValue.toDouble(), 'f', 2);
    default:
        return aValue.toString();
    }
}

} // namespace

void LmCvManipulator::connectKernel()
{
    // By text, so that a slot of the most derived class is found, also one that stands in for a slot of the
    // base.
    struct Connection
    {
        const char* theSignal;
        const char* theSlot;
    };
    static const Connection kConnections[] = {
        {SIGNAL(signalCalibrationChanged(const QString&, const LmCalibData&)),
         SLOT(slotCalibrationChangedInKernel(const QString&, const LmCalibData&))},
        {SIGNAL(signalCurrentResChangedByCamera(QSize, QSize)),
         SLOT(slotCurrentResChangedByCameraInKernel(QSize, QSize))},
        {SIGNAL(signalCalibrationCurrent(const QString&, const LmCalibData&)),
         SLOT(slotCalibrationChangedInKernel(const QString&, const LmCalibData&))},
        {SIGNAL(signalObjectShow(const int, const int, bool)),
         SLOT(slotObjectShowInKernel(const int, const int, bool))},
        {SIGNAL(signalObjectCreated(const int, const int, const LmKernelObjectData*)),
         SLOT(slotObjectCreatedInKernel(const int, const int, const LmKernelObjectData*))},
        {SIGNAL(signalObjectRemoved(const int, const int)),
         SLOT(slotObjectRemovedInKernel(const int, const int))},
        {SIGNAL(signalObjectChanged(const int, const int, const LmKernelObjectData*)),
         SLOT(slotObjectChangedInKernel(const int, const int, const LmKernelObjectData*))},
        {SIGNAL(signalObjectColorChanged(const int, const int, const QColor&)),
         SLOT(slotObjectColorChangedInKernel(const int, const int, const QColor&))},
        {SIGNAL(signalFrameReadyStop(Int64)), SLOT(slotFrameReadyStopInKernel(Int64))},
        {SIGNAL(signalFrameReadyPlayout(Int64)), SLOT(slotFrameReadyStopInKernel(Int64))},
        {SIGNAL(signalCurrentView(const int, const int)),
         SLOT(slotCurrentViewInKernel(const int, const int))},
    };
    for (const Connection& connection : kConnections) {
        const bool connected = connect(theKernel, connection.theSignal, this, connection.theSlot);
        if (!connected)
            qWarning("%s has no slot for %s", metaObject()->className(), connection.theSignal + 1);
        Q_ASSERT(connected);
    }
}

void LmCvManipulator::removeCvObject(LmCvObject* aObject)
{
    if (const int idx = getObjectIdx(aObject); idx >= 0)
        push(new CmdRemoveObject(theObjectType, idx));
}

// A command without effect would cost the user what can be redone, so none is pushed for what the record says
// already.

void LmCvManipulator::setColorCvObject(LmCvObject* aObject, QColor aColor)
{
    const int idx = getObjectIdx(aObject);
    const LmKernelObjectData* data = theKernelData->getObject(theObjectType, idx);
    if (idx >= 0 && !(data && ItemRecord::hasColor(*data, aColor)))
        push(new CmdChangeObjectColor(theObjectType, idx, aColor));
}

void LmCvManipulator::showCvObject(LmCvObject* aObject, bool aShown)
{
    const int idx = getObjectIdx(aObject);
    const LmKernelObjectData* data = theKernelData->getObject(theObjectType, idx);
    if (idx >= 0 && !(data && ItemRecord::isShown(*data) == aShown))
        push(new CmdShowObject(theObjectType, idx, aShown));
}

void LmCvManipulator::changeAnimationCvObject(LmCvObject* aObject, bool aAnimated, bool, bool)
{
    const int idx = getObjectIdx(aObject);
    const LmKernelObjectData* data = theKernelData->getObject(theObjectType, idx);
    if (idx < 0 || (data && data->theAnimated == aAnimated))
        return;
    // The first keyframe is the place that the object has now: what is changed at another frame then is a
    // movement, and not the one place for all frames.
    const bool isFirst = data && aAnimated && data->getKeyframedFrames().isEmpty();
    if (isFirst)
        push(new CmdSetKeyframes(theObjectType, idx,
                                 KeyframeLists::ofFrame(*data, theKernelData->theCurrentFrame), true,
                                 CmdSwitchAnimation::textOf(theObjectType, idx, true)));
    else
        push(new CmdSwitchAnimation(theObjectType, idx, aAnimated));
}

void LmCvManipulator::pushOwn(QUndoCommand* aCommand)
{
    const QScopedValueRollback<bool> selfChange(theSelfChange, true);
    push(aCommand);
}

void LmCvManipulator::push(QUndoCommand* aCommand)
{
    if (theUndoStack)
        theUndoStack->push(aCommand);
    else
        delete aCommand;
}

QVariant LmCvManipulator::getValue(const QString&, const LmCvObject*, QString&)
{
    return QVariant();
}

QLinkedList<QVariant> LmCvManipulator::getValues(const QStringList& aNames, int aIdx, QStringList& aUnits)
{
    if (const LmKernelObjectData* data = theKernelData->getObject(theObjectType, aIdx))
        return getValues(aNames, data, aUnits);
    aUnits.clear();
    return {};
}

QLinkedList<QVariant> LmCvManipulator::getValues(const QStringList& aNames, const LmKernelObjectData*,
                                                 QStringList& aUnits)
{
    aUnits.clear();
    QLinkedList<QVariant> values;
    for (qsizetype i = 0; i < aNames.size(); ++i) {
        values.append(QVariant());
        aUnits.append(QString());
    }
    return values;
}

QLinkedList<LmParamKeyframe> LmCvManipulator::getAnimation(const QString& aName, int aIdx, QString& aUnit)
{
    aUnit.clear();
    QLinkedList<LmParamKeyframe> animation;
    const LmKernelObjectData* data = theKernelData->getObject(theObjectType, aIdx);
    if (!data)
        return animation;
    QVector<ParamDescr::KeyframeType> types;
    for (int param = 0; param < data->count(); ++param)
        types.append(data->keyframeType(param));

    QStringList units;
    getValues(QStringList(aName), data, units);
    aUnit = units.value(0);
    for (const long long frame : data->getKeyframedFrames()) {
        // A record without keyframes has the values of this frame at every frame, so also at the current one.
        const LmKernelObjectData still(data->getKeyframesAt(frame), types, 0);
        const QLinkedList<QVariant> values = getValues(QStringList(aName), &still, units);
        animation.append(LmParamKeyframe(frame, values.isEmpty() ? QVariant() : values.first()));
    }
    return animation;
}

void LmCvManipulator::updateDisplayValue(LmCvObject* aObject, const QString& aName, bool aFromKernel,
                                         bool aRepaint)
{
    if (!aObject)
        return;
    QVariant value;
    QString unit;
    if (aFromKernel) {
        const LmKernelObjectData* data = theKernelData->getObject(theObjectType, getObjectIdx(aObject));
        if (!data)
            return;
        QStringList units;
        const QLinkedList<QVariant> values = getValues(QStringList(aName), data, units);
        value = values.isEmpty() ? QVariant() : values.first();
        unit = units.value(0);
    } else {
        value = getValue(aName, aObject, unit);
    }
    aObject->setDisplayValue(value.isNull() ? QString() : shownText(aName, numberText(value) + unit));
    if (aRepaint)
        updateCanvas();
}

QString LmCvManipulator::shownText(const QString&, const QString& aValueText) const
{
    return aValueText;
}

void LmCvManipulator::slotCalibrationChangedInKernel(const QString&, const LmCalibData&)
{
    QString unit;
    const double step = theKernelData->currentStep(unit);
    for (auto entry = theCvObjects.cbegin(); entry != theCvObjects.cend(); ++entry) {
        entry.value()->setStep(step, unit);
        refreshLabel(entry.key(), entry.value());
    }
    updateCanvas();
}

void LmCvManipulator::refreshLabel(int aIdx, LmCvObject* aItem)
{
    const LmKernelObjectData* data = theKernelData->getObject(theObjectType, aIdx);
    if (!data || data->count() <= kShownValueParam)
        return;
    const LmParamKeyframe shown = data->getKeyframe(kShownValueParam, theKernelData->theCurrentFrame);
    updateDisplayValue(aItem, shown.getValue().toString(), true, false);
}

void LmCvManipulator::slotObjectShowInKernel(const int aType, const int aIdx, bool aShown)
{
    LmCvObject* item = aType == theObjectType ? theCvObjects.value(aIdx) : nullptr;
    if (!item)
        return;
    item->setVisible(aShown);
    // What can't be seen must not be hit by the next command for the current item or the group.
    if (!aShown && theCvEditor)
        theCvEditor->leaveItem(item);
    updateCanvas();
}

void LmCvManipulator::slotObjectRemovedInKernel(const int aType, const int aIdx)
{
    if (aType != theObjectType || !theCvObjects.contains(aIdx))
        return;
    delete theCvObjects.take(aIdx);
    updateCanvas();
}

void LmCvManipulator::slotObjectColorChangedInKernel(const int aType, const int aIdx, const QColor& aColor)
{
    LmCvObject* item = aType == theObjectType ? theCvObjects.value(aIdx) : nullptr;
    if (!item)
        return;
    item->setColor(aColor);
    updateCanvas();
}

void LmCvManipulator::slotCurrentViewInKernel(const int, const int aMode)
{
    theCurrentViewAnimated = aMode != 0;
}

void LmCvManipulator::slotToolToggled(bool aOn)
{
    if (!theCvEditor)
        return;
    if (aOn)
        theCvEditor->setCurrentManipulator(this, theToolButton);
    else if (theCvEditor->theCurrentManipulator == this)
        theCvEditor->setCurrentManipulator(nullptr);
}

void LmCvManipulator::updateCanvas()
{
    if (theCvEditor && theCvEditor->canvas())
        theCvEditor->canvas()->update();
}
