#include "FakeTool.h"

#include "CmdChangeObject.h"
#include "CmdCreateObject.h"
#include "CmdRemoveObject.h"
#include "LmCvEditor.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "LmKernelObjectDataDescr.h"
#include "ProbeItem.h"

#include <QColor>
#include <QUndoStack>

FakeTool::FakeTool(int aType, const QString& aName, const QStringList& aValueNames)
    : LmCvManipulator(nullptr), theName(aName), theTypeNames(aName)
{
    theObjectType = aType;
    theValueNames = aValueNames;
}

void FakeTool::initManipulator(QToolBar* aToolBar)
{
    LmCvManipulator::initManipulator(aToolBar);
    auto* descriptor = new LmKernelObjectDataDescr(theObjectType, 4);
    descriptor->addParamDescr(kVisible, QStringLiteral("vis"), QMetaType::Bool, ParamDescr::kWhole);
    descriptor->addParamDescr(kColor, QStringLiteral("col"), QMetaType::QColor, ParamDescr::kWhole);
    descriptor->addParamDescr(kShownValue, QStringLiteral("dispv"), QMetaType::QString, ParamDescr::kWhole);
    descriptor->addParamDescr(kPos, QStringLiteral("pos"), QMetaType::QPoint, ParamDescr::kBlended);
    if (!theKernelData->registerObjectType(this, theObjectType) ||
        !theKernelData->registerDataDescriptor(descriptor, theObjectType))
        qFatal("the type %d is taken", theObjectType);
    theInitDone = true;
    connectKernel();
}

int FakeTool::getCvObjectFlags(LmCvObject* aObject)
{
    theNullFlagQuestions += aObject == nullptr;
    return theFlags;
}

QVariant FakeTool::valueOf(const QString& aName, const LmKernelObjectData& aData, QString& aUnit) const
{
    const QMap<int, LmKernelObjectData*>& records = theKernelData->getObjectsOfType(theObjectType);
    if (!theIsCounting) {
        const Cell cell = theCells.value(records.key(const_cast<LmKernelObjectData*>(&aData))).value(aName);
        aUnit = cell.theUnit;
        return cell.theValue;
    }
    if (aName == QLatin1String("X"))
        return posOf(aData).x();
    if (aName != QLatin1String("Share"))
        return QVariant();
    double sum = 0.0;
    for (const LmKernelObjectData* record : records)
        sum += posOf(*record).x();
    aUnit = QStringLiteral("of all");
    return 100.0 * posOf(aData).x() / sum;
}

QLinkedList<QVariant> FakeTool::getValues(const QStringList& aNames, const LmKernelObjectData* aData,
                                          QStringList& aUnits)
{
    ++theQuestions;
    aUnits.clear();
    QLinkedList<QVariant> values;
    for (const QString& name : aNames) {
        QString unit;
        values.append(valueOf(name, *aData, unit));
        aUnits.append(unit);
    }
    return values;
}

int FakeTool::create(const Cells& aCells, const QPoint& aPos)
{
    const int idx = nextObjectIdx();
    theCells[idx] = aCells;
    LmKernelObjectDataDescr* descriptor = theKernelData->getDataDescriptor(theObjectType);
    LmParamKeyframeVector values = descriptor->createKeyframeVector();
    values.setValue(kVisible, true);
    values.setValue(kColor, QColor(Qt::red));
    values.setValue(kShownValue, QString());
    values.setValue(kPos, aPos + theKernelData->origin());
    auto* record = new LmKernelObjectData(values, descriptor->getKeyframeTypes(), 0);
    theUndoStack->push(new CmdCreateObject(theObjectType, idx, record));
    return idx;
}

int FakeTool::create(const QString& aName, const QVariant& aValue, const QString& aUnit)
{
    return create(Cells{{aName, {aValue, aUnit}}});
}

void FakeTool::change(int aIdx, const QString& aName, const QVariant& aValue, const QString& aUnit)
{
    theCells[aIdx][aName] = {aValue, aUnit};
    theKernelData->announceObjectChanged(theObjectType, aIdx);
}

void FakeTool::moveTo(int aIdx, const QPoint& aCanvasPoint)
{
    LmParamKeyframeVector values = theKernelData->getDataDescriptor(theObjectType)->createKeyframeVector();
    values.setValue(kPos, aCanvasPoint + theKernelData->origin());
    if (theKernelData->getObject(theObjectType, aIdx)->theAnimated)
        values.setFrameNumber(theKernelData->theCurrentFrame);
    theUndoStack->push(new CmdChangeObject(theObjectType, aIdx, values, false));
}

void FakeTool::remove(int aIdx)
{
    theUndoStack->push(new CmdRemoveObject(theObjectType, aIdx));
}

QPoint FakeTool::posOf(const LmKernelObjectData& aData) const
{
    return aData.getKeyframesAt(theKernelData->theCurrentFrame)[kPos].getValue().toPoint();
}

void FakeTool::slotObjectCreatedInKernel(int aType, int aIdx, const LmKernelObjectData* aData)
{
    if (aType != theObjectType || !theCvEditor)
        return;
    auto* item = new ProbeItem(this, theCvEditor->canvas(), QString::number(aIdx), theCvEditor);
    prepareItem(item);
    item->place(posOf(*aData) - theKernelData->origin());
    item->show();
    theCvObjects.insert(aIdx, item);
}

void FakeTool::slotObjectChangedInKernel(int aType, int aIdx, const LmKernelObjectData* aData)
{
    if (aType == theObjectType && theCvObjects.contains(aIdx))
        static_cast<ProbeItem*>(theCvObjects[aIdx])->place(posOf(*aData) - theKernelData->origin());
}

void FakeTool::slotFrameReadyStopInKernel(Int64)
{
    for (auto it = theCvObjects.cbegin(); it != theCvObjects.cend(); ++it)
        slotObjectChangedInKernel(theObjectType, it.key(), theKernelData->getObject(theObjectType, it.key()));
}
