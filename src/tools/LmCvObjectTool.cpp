#include "LmCvObjectTool.h"

#include "CanvasEvent.h"
#include "CmdChangeObject.h"
#include "CmdCreateObject.h"
#include "LmAppSettings.h"
#include "LmCvEditor.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "LmKernelObjectDataDescr.h"
#include "SegmentGeometry.h"

#include <QMouseEvent>
#include <QPixmap>
#include <QToolButton>

namespace {

// Properties aside, everything may be done to an object: colour (4), hide and show (8), delete (16), a
// flag that only the host reads (64), values that follow the frames (128), and a place in the measurement
// window (512).
constexpr int kObjectFlags = 732;

} // namespace

LmCvObjectTool::LmCvObjectTool(int aObjectType, QObject* aParent) : LmCvRecordTool(aObjectType, aParent) {}

LmCvObjectTool::~LmCvObjectTool() = default;

void LmCvObjectTool::loadRulerCursor(const QString& aFile)
{
    theToolCursor = QCursor(QPixmap(aFile), 7, 24);
}

QPoint LmCvObjectTool::drawnPoint(const QMouseEvent& aEvent) const
{
    const QPoint point = aEvent.pos();
    return CanvasEvent::holds(aEvent, Qt::ShiftModifier) ? SegmentGeometry::snapped(thePressPoint, point)
                                                         : point;
}

int LmCvObjectTool::getCvObjectFlags(LmCvObject*)
{
    return kObjectFlags;
}

const QCursor& LmCvObjectTool::getCursor() const
{
    return theToolCursor;
}

void LmCvObjectTool::initManipulator(QToolBar* aToolBar)
{
    LmCvRecordTool::initManipulator(aToolBar);
    if (theInitDone && theToolButton)
        theToolButton->setAutoRaise(true);
}

QList<int> LmCvObjectTool::shownIndexes() const
{
    return theCvObjects.keys();
}

LmCvObject* LmCvObjectTool::ownItem(const LmCvObject* aObject) const
{
    return theCvObjects.value(getObjectIdx(aObject));
}

QLinkedList<QVariant> LmCvObjectTool::valuesOf(const QStringList& aNames, QStringList& aUnits,
                                               const Measure& aMeasure)
{
    aUnits.clear();
    QLinkedList<QVariant> values;
    const bool isNothingAsked = aNames.isEmpty() || aNames == QStringList(QString());
    for (const QString& name : isNothingAsked ? QStringList(QString()) : aNames) {
        QString unit;
        const QVariant value = isNothingAsked ? QVariant() : aMeasure(name, unit);
        values.append(value);
        aUnits.append(value.isValid() ? unit : QString());
    }
    return values;
}

void LmCvObjectTool::presentNewItem(LmCvObject* aItem)
{
    aItem->setColor(LmAppSettings::theGridColor);
    prepareItem(aItem);
    makeItemCurrent(aItem);
    aItem->show();
}

bool LmCvObjectTool::remove(LmCvObject* aItem)
{
    if (!aItem)
        return false;
    delete aItem;
    if (theCvEditor)
        theCvEditor->canvas()->update();
    return true;
}

void LmCvObjectTool::beforeChange(const LmCvObject*, int, const LmKernelObjectData&) {}

void LmCvObjectTool::storeNewItem(LmCvObject* aItem, const QString& aShownValue)
{
    if (!descriptor())
        return;
    // Undo may have been used since the press, so that the label gets its number anew.
    const int index = nextObjectIdx();
    aItem->theLabel = QString::number(index);
    theCvObjects.insert(index, aItem);

    NamedValues values = geometryOf(aItem, theKernelData->origin(), nullptr);
    values << qMakePair(QStringLiteral("dispv"), QVariant(aShownValue))
           << qMakePair(QStringLiteral("col"), QVariant(LmAppSettings::theGridColor))
           << qMakePair(QStringLiteral("vis"), QVariant(true));
    pushCreation(index, values);
    updateDisplayValue(aItem, aShownValue, true, true);
}

LmCvObject* LmCvObjectTool::itemFromRecord(int aIdx, const LmParamKeyframeVector& aValues)
{
    LmCvObject* item = newItem(QString::number(aIdx));
    applyGeometry(item, aValues, theKernelData->origin());
    item->setColor(sharedValue(aValues, kColor).value<QColor>());
    prepareItem(item);
    return item;
}

void LmCvObjectTool::slotObjectCreatedInKernel(int aType, int aIdx, const LmKernelObjectData* aData)
{
    if (!theCvEditor || theSelfChange || aType != theObjectType || theCvObjects.contains(aIdx))
        return;
    // The label has only its number until the next change or frame, and the object is shown whatever "vis"
    // says.
    LmCvObject* item = itemFromRecord(aIdx, aData->getKeyframesAt(theKernelData->theCurrentFrame));
    item->show();
    theCvObjects.insert(aIdx, item);
    theCvEditor->canvas()->update();
}

void LmCvObjectTool::slotCanvasObjectChanged(LmCvObject* aObject)
{
    if (!aObject || aObject->rtti() != theObjectType)
        return;
    const int index = getObjectIdx(aObject);
    const LmKernelObjectData* record = index < 0 ? nullptr : recordOf(index);
    if (!record || !descriptor())
        return;

    const Int64 frame = theKernelData->theCurrentFrame;
    NamedValues values = geometryOf(aObject, theKernelData->origin(), record);
    beforeChange(aObject, index, *record);
    values << qMakePair(QStringLiteral("col"), QVariant(aObject->getColor()))
           << qMakePair(QStringLiteral("dispv"),
                        QVariant(sharedValue(record->getKeyframesAt(frame), kShownValue).toString()));
    LmParamKeyframeVector vector = vectorOf(values);
    if (record->theAnimated)
        vector.setFrameNumber(frame);
    const QString shownValue = sharedValue(vector, kShownValue).toString();
    pushOwn(new CmdChangeObject(theObjectType, index, vector, false));
    updateDisplayValue(aObject, shownValue, true, true);
}

void LmCvObjectTool::slotObjectChangedInKernel(int aType, int aIdx, const LmKernelObjectData* aData)
{
    if (theSelfChange || aType != theObjectType)
        return;
    LmCvObject* item = theCvObjects.value(aIdx);
    if (!item)
        return;
    const LmParamKeyframeVector values = aData->getKeyframesAt(theKernelData->theCurrentFrame);
    applyGeometry(item, values, theKernelData->origin());
    updateDisplayValue(item, sharedValue(values, kShownValue).toString(), true, true);
}

void LmCvObjectTool::recreateCanvasObjects(QPoint aOrigin, long long aFrame, bool aAll)
{
    const QMap<int, LmKernelObjectData*> records = theKernelData->getObjectsOfType(theObjectType);
    for (auto it = theCvObjects.cbegin(); it != theCvObjects.cend(); ++it) {
        const LmKernelObjectData* record = records.value(it.key());
        if (!record || (!record->theAnimated && !aAll))
            continue;
        const LmParamKeyframeVector values = record->getKeyframesAt(aFrame);
        applyGeometry(it.value(), values, aOrigin);
        // The default keyframes are no frame of their own: there the labels stay as they are.
        if (aFrame == Int64(theKernelData->theCurrentFrame))
            updateDisplayValue(it.value(), sharedValue(values, kShownValue).toString(), true, false);
    }
    if (theCvEditor)
        theCvEditor->canvas()->update();
}

void LmCvObjectTool::constructDataObject(const QDomElement& aElement, QProgressDialog* aProgress)
{
    const LmKernelObjectDataDescr* descr = descriptor();
    if (!descr || !canDraw())
        return;
    int savedIdx = 0;
    LmKernelObjectData* record = descr->createObjectDataFromXML(aElement, savedIdx, aProgress);
    if (!record)
        return;
    // The saved number isn't used, so that a loaded object never collides with one on the canvas.
    const int index = nextObjectIdx();
    const LmParamKeyframeVector values = record->getDefaultKeyframes();
    LmCvObject* item = itemFromRecord(index, values);
    item->setVisible(sharedValue(values, kVisible).toBool());
    theCvObjects.insert(index, item);
    pushOwn(new CmdCreateObject(theObjectType, index, record));
    updateDisplayValue(item, descr->getValue(values, QStringLiteral("dispv")).toString(), true, false);
    theCvEditor->canvas()->update();
}
