#include "ItemRecord.h"

#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"

#include <QColor>

#include <algorithm>

namespace {

constexpr int kShownValueParam = 2;

bool hasLiveValue(LmCvManipulator& aTool, const LmCvObject& aItem, const QStringList& aNames)
{
    QString unit;
    return std::any_of(aNames.cbegin(), aNames.cend(),
                       [&](const QString& aName) { return aTool.getValue(aName, &aItem, unit).isValid(); });
}

} // namespace

void ItemRecord::showLiveValue(LmCvObject& aItem)
{
    LmCvManipulator* tool = aItem.theManipulator;
    if (!tool)
        return;
    const LmKSKernelData& kernel = *tool->theKernelData;
    const LmKernelObjectData* data = kernel.getObject(tool->theObjectType, tool->getObjectIdx(&aItem));
    if (!data || data->count() <= kShownValueParam)
        return;
    const QString name = data->getKeyframe(kShownValueParam, kernel.theCurrentFrame).getValue().toString();
    if (hasLiveValue(*tool, aItem, {name}) || hasLiveValue(*tool, aItem, tool->getAnimatedValueNames()))
        tool->updateDisplayValue(&aItem, name, false, false);
}

void ItemRecord::restore(LmCvObject& aItem)
{
    LmCvManipulator* tool = aItem.theManipulator;
    if (!tool)
        return;
    const LmKSKernelData& kernel = *tool->theKernelData;
    const int idx = tool->getObjectIdx(&aItem);
    const LmKernelObjectData* data = kernel.getObject(tool->theObjectType, idx);
    // The tool re-reads the record as it does after an undo. A tool that keeps its items in another way than
    // theCvObjects brings all of them back.
    if (!data || !QMetaObject::invokeMethod(tool, "slotObjectChangedInKernel", Qt::DirectConnection,
                                            Q_ARG(int, tool->theObjectType), Q_ARG(int, idx),
                                            Q_ARG(const LmKernelObjectData*, data)))
        tool->recreateCanvasObjects(kernel.origin(), kernel.theCurrentFrame, true);
}

bool ItemRecord::isShown(const LmKernelObjectData& aData)
{
    if (aData.count() <= ParamDescr::kShown)
        return true;
    const QVariant shown = aData.storedValue(ParamDescr::kShown, kDefaultFrame);
    return !shown.isValid() || shown.toBool();
}

bool ItemRecord::hasColor(const LmKernelObjectData& aData, const QColor& aColor)
{
    return aData.count() > ParamDescr::kColor &&
           aData.storedValue(ParamDescr::kColor, kDefaultFrame) == QVariant(aColor);
}
