#include "ProbeTool.h"

#include "CmdChangeObject.h"
#include "CmdCreateObject.h"
#include "LmCvEditor.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "LmKernelObjectDataDescr.h"
#include "ProbeItem.h"

#include <QColor>
#include <QKeyEvent>

ProbeTool::ProbeTool(QObject* aParent, int aType) : LmCvManipulator(aParent)
{
    theObjectType = aType;
}

void ProbeTool::initManipulator(QToolBar* aToolBar)
{
    LmCvManipulator::initManipulator(aToolBar);
    theInitDone = theKernelData->registerObjectType(this, theObjectType);
    if (!theInitDone)
        return;
    auto* descriptor = new LmKernelObjectDataDescr(theObjectType, 4);
    descriptor->addParamDescr(kVisible, QStringLiteral("vis"), QMetaType::Bool, ParamDescr::kWhole);
    descriptor->addParamDescr(kColor, QStringLiteral("col"), QMetaType::QColor, ParamDescr::kWhole);
    descriptor->addParamDescr(kShownValue, QStringLiteral("dispv"), QMetaType::QString, ParamDescr::kWhole);
    descriptor->addParamDescr(kPos, QStringLiteral("pos"), QMetaType::QPoint, ParamDescr::kBlended);
    theInitDone = theKernelData->registerDataDescriptor(descriptor, theObjectType);
    if (!theInitDone)
        return;
    connectKernel();
    theValueNames = QStringList{QStringLiteral("X"), QStringLiteral("Count")};
}

void ProbeTool::setCvEditor(LmCvEditor* aEditor)
{
    LmCvManipulator::setCvEditor(aEditor);
    if (aEditor)
        connect(aEditor, SIGNAL(signalCanvasObjectChanged(LmCvObject*)), this,
                SLOT(slotCanvasObjectChanged(LmCvObject*)));
}

QVariant ProbeTool::getValue(const QString& aName, const LmCvObject* aObject, QString& aUnit)
{
    if (aName != QLatin1String("X") || !aObject)
        return QVariant();
    aUnit = QStringLiteral("px");
    return double(static_cast<const ProbeItem*>(aObject)->theCorner.x());
}

QLinkedList<QVariant> ProbeTool::getValues(const QStringList& aNames, const LmKernelObjectData* aData,
                                           QStringList& aUnits)
{
    aUnits.clear();
    QString unit;
    const double step = theKernelData->currentStep(unit);
    QLinkedList<QVariant> values;
    for (const QString& name : aNames) {
        if (name == QLatin1String("X"))
            values.append(posOf(aData).x() / (step > 0.0 ? step : 1.0));
        else if (name == QLatin1String("Count"))
            values.append(posOf(aData).x());
        else if (name == QLatin1String("Unsigned"))
            values.append(4000000000u);
        else
            values.append(QVariant());
        aUnits.append(values.last().isValid() ? unit : QString());
    }
    return values;
}

void ProbeTool::keyPressEvent(QKeyEvent* aEvent)
{
    theEvents << QStringLiteral("key %1").arg(aEvent->key());
    aEvent->ignore();
}

void ProbeTool::keyReleaseEvent(QKeyEvent* aEvent)
{
    theEvents << QStringLiteral("keyup %1").arg(aEvent->key());
}

bool ProbeTool::claimsPress(QMouseEvent*, LmCvObject* aHit)
{
    ++theClaimQuestions;
    theClaimedHit = aHit;
    return theClaims;
}

bool ProbeTool::abortAction()
{
    ++theAborts;
    return std::exchange(theHasAction, false);
}

QString ProbeTool::noted(const char* aWhat, const QPoint& aPoint)
{
    return QStringLiteral("%1 %2,%3").arg(QLatin1String(aWhat)).arg(aPoint.x()).arg(aPoint.y());
}

void ProbeTool::note(const char* aWhat, QMouseEvent* aEvent, bool aAccept)
{
    theEvents << noted(aWhat, aEvent->pos());
    theLastButtons = aEvent->buttons();
    theLastButton = aEvent->button();
    aEvent->setAccepted(aAccept);
}

ProbeItem* ProbeTool::newItem(int aIdx)
{
    auto* made = new ProbeItem(this, theCvEditor->canvas(), QString::number(aIdx), theCvEditor);
    prepareItem(made);
    theCvObjects.insert(aIdx, made);
    return made;
}

ProbeItem* ProbeTool::create(const QPoint& aCorner)
{
    const int idx = nextObjectIdx();
    ProbeItem* made = newItem(idx);
    made->place(aCorner);
    made->show();
    LmKernelObjectDataDescr* descriptor = theKernelData->getDataDescriptor(theObjectType);
    LmParamKeyframeVector values = descriptor->createKeyframeVector();
    values.setValue(kVisible, true);
    values.setValue(kColor, QColor(Qt::red));
    values.setValue(kShownValue, QStringLiteral("X"));
    values.setValue(kPos, aCorner + theKernelData->origin());
    made->setColor(Qt::red);
    pushOwn(new CmdCreateObject(theObjectType, idx,
                                new LmKernelObjectData(values, descriptor->getKeyframeTypes(), 0)));
    return made;
}

ProbeItem* ProbeTool::item(int aIdx) const
{
    return static_cast<ProbeItem*>(theCvObjects.value(aIdx));
}

LmKernelObjectData* ProbeTool::record(int aIdx) const
{
    return theKernelData->getObject(theObjectType, aIdx);
}

QPoint ProbeTool::recordedPos(int aIdx) const
{
    return posOf(record(aIdx));
}

QPoint ProbeTool::posOf(const LmKernelObjectData* aData)
{
    return aData->getKeyframe(kPos, LmKSKernelData::getInstance()->theCurrentFrame).getValue().toPoint();
}

void ProbeTool::slotCanvasObjectChanged(LmCvObject* aObject)
{
    const int idx = getObjectIdx(aObject);
    if (idx < 0)
        return;
    LmParamKeyframeVector values = theKernelData->getDataDescriptor(theObjectType)->createKeyframeVector();
    values.setValue(kPos, item(idx)->theCorner + theKernelData->origin());
    pushOwn(new CmdChangeObject(theObjectType, idx, values, false));
    updateDisplayValue(aObject, QStringLiteral("X"), true, true);
}

void ProbeTool::slotCurrentResChangedByCameraInKernel(QSize, QSize aNewSize)
{
    theSlotCalls << QStringLiteral("resolution %1").arg(aNewSize.width());
}

void ProbeTool::slotObjectCreatedInKernel(int aType, int aIdx, const LmKernelObjectData* aData)
{
    theSlotCalls << QStringLiteral("created %1 %2").arg(aType).arg(aIdx);
    if (theSelfChange || aType != theObjectType || theCvObjects.contains(aIdx) || !theCvEditor)
        return;
    ProbeItem* made = newItem(aIdx);
    made->place(posOf(aData) - theKernelData->origin());
    made->show();
}

void ProbeTool::slotObjectChangedInKernel(int aType, int aIdx, const LmKernelObjectData* aData)
{
    theSlotCalls << QStringLiteral("changed %1 %2").arg(aType).arg(aIdx);
    if (theSelfChange || aType != theObjectType || !theCvObjects.contains(aIdx))
        return;
    item(aIdx)->place(posOf(aData) - theKernelData->origin());
    updateDisplayValue(item(aIdx), QStringLiteral("X"), true, true);
}

void ProbeTool::slotFrameReadyStopInKernel(Int64 aFrame)
{
    theSlotCalls << QStringLiteral("frame %1").arg(aFrame);
}
