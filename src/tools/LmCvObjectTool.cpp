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

#include <memory>

namespace {

// Properties aside, everything may be done to an object: colour (4), hide and show (8), delete (16), a
// flag that only the host reads (64), values that follow the frames (128), and a place in the measurement
// window (512).
constexpr int kObjectFlags = 732;

} // namespace

LmCvObjectTool::LmCvObjectTool(int aObjectType, QObject* aParent) : LmCvManipulator(aParent)
{
    theObjectType = aObjectType;
}

LmCvObjectTool::~LmCvObjectTool() = default;

void LmCvObjectTool::loadRulerCursor(const QString& aFile)
{
    theToolCursor = QCursor(QPixmap(aFile), 7, 24);
}

QStringList LmCvObjectTool::getObjectTypeNames()
{
    return {typeName()};
}

QString LmCvObjectTool::getObjectName(int)
{
    return typeName();
}

QString LmCvObjectTool::getObjectName(const LmCvObject*)
{
    return typeName();
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

QIcon& LmCvObjectTool::getIconSet(const QString&)
{
    return theToolIcon;
}

const QCursor& LmCvObjectTool::getCursor() const
{
    return theToolCursor;
}

void LmCvObjectTool::initManipulator(QToolBar* aToolBar)
{
    LmCvManipulator::initManipulator(aToolBar);
    if (!registerWithKernel())
        return;
    connectKernel();

    const Texts own = texts();
    theToolIcon.addFile(own.theIconFile, QSize(-1, -1), QIcon::Normal, QIcon::Off);
    if (theToolButton) {
        theToolButton->setIcon(theToolIcon);
        theToolButton->setAutoRaise(true);
        theToolButton->setToolTip(own.theToolTip);
        theToolButton->setWhatsThis(own.theHelp);
        theToolButton->setAccessibleName(own.theToolTip);
    }
    theValueNames += own.theValueNames;
}

bool LmCvObjectTool::registerWithKernel()
{
    theInitDone = theKernelData->registerObjectType(this, theObjectType);
    if (!theInitDone)
        return false;
    std::unique_ptr<LmKernelObjectDataDescr> ours(createDescriptor());
    theInitDone = theKernelData->registerDataDescriptor(ours.get(), theObjectType);
    if (theInitDone)
        ours.release(); // the kernel owns it now
    return theInitDone;
}

LmKernelObjectDataDescr* LmCvObjectTool::createDescriptor() const
{
    const QList<ParamDescr> own = geometryParams();
    auto* descr = new LmKernelObjectDataDescr(theObjectType, kFirstOwnParam + int(own.size()));
    descr->addParamDescr(kVisible, QStringLiteral("vis"), QMetaType::Bool, ParamDescr::kWhole);
    descr->addParamDescr(kColor, QStringLiteral("col"), QMetaType::QColor, ParamDescr::kWhole);
    descr->addParamDescr(kShownValue, QStringLiteral("dispv"), QMetaType::QString, ParamDescr::kWhole);
    unsigned int index = kFirstOwnParam;
    for (const ParamDescr& param : own)
        descr->addParamDescr(index++, param.theName, param.theType, param.theKeyframeType);
    return descr;
}

void LmCvObjectTool::setCvEditor(LmCvEditor* aEditor)
{
    LmCvManipulator::setCvEditor(aEditor);
    if (!aEditor)
        return;
    connect(aEditor, SIGNAL(signalCanvasObjectChanged(LmCvObject*)), this,
            SLOT(slotCanvasObjectChanged(LmCvObject*)));
    connect(aEditor->canvas(), &Q3Canvas::itemRemoved, this, &LmCvObjectTool::forgetItem);
}

void LmCvObjectTool::forgetItem(const Q3CanvasItem*) {}

bool LmCvObjectTool::canDraw() const
{
    return theInitDone && theCvEditor;
}

LmKernelObjectDataDescr* LmCvObjectTool::descriptor() const
{
    return theKernelData->getDataDescriptor(theObjectType);
}

LmKernelObjectData* LmCvObjectTool::recordOf(int aIdx) const
{
    return theKernelData->getObject(theObjectType, aIdx);
}

QVariant LmCvObjectTool::sharedValue(const LmParamKeyframeVector& aValues, CommonParam aParam) const
{
    return aValues[aParam].getValue();
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

LmParamKeyframeVector LmCvObjectTool::vectorOf(const NamedValues& aValues) const
{
    const LmKernelObjectDataDescr* descr = descriptor();
    LmParamKeyframeVector vector = descr->createKeyframeVector();
    for (const auto& [name, value] : aValues)
        if (!descr->setValue(vector, name, value))
            break;
    return vector;
}

void LmCvObjectTool::pushCreation(int aIdx, const NamedValues& aValues)
{
    auto* record = new LmKernelObjectData(vectorOf(aValues), descriptor()->getKeyframeTypes(), 0);
    pushOwn(new CmdCreateObject(theObjectType, aIdx, record));
}

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
