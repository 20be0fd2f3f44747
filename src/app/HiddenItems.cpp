#include "HiddenItems.h"

#include "ItemRecord.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"

#include <utility>

void placeHiddenItems()
{
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    QList<QPair<int, int>> hidden;
    for (auto type = kernel->theObjects.cbegin(); type != kernel->theObjects.cend(); ++type)
        for (auto object = type->cbegin(); object != type->cend(); ++object)
            if (!ItemRecord::isShown(**object))
                hidden.append({type.key(), object.key()});
    for (const auto& [type, idx] : std::as_const(hidden))
        kernel->announceObjectChanged(type, idx);
}
