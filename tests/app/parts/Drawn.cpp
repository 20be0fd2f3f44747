#include "Drawn.h"

#include "CmdCreateObject.h"
#include "LmCvManipulator.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "LmKernelObjectDataDescr.h"
#include "Workbench.h"

#include <QColor>

int addDistance(Workbench& aBench, const QPoint& aStart, const QPoint& aEnd)
{
    const LmKSKernelData* kernel = LmKSKernelData::getInstance();
    const LmKernelObjectDataDescr* descriptor = kernel->getDataDescriptor(kDistanceType);
    const LmCvManipulator* tool = kernel->getCvManipulator(kDistanceType);
    if (!descriptor || !tool)
        return 0;
    const QPoint middle((aStart.x() + aEnd.x()) / 2, (aStart.y() + aEnd.y()) / 2);
    LmParamKeyframeVector values = descriptor->createKeyframeVector();
    descriptor->setValue(values, QStringLiteral("vis"), true);
    descriptor->setValue(values, QStringLiteral("col"), QColor(Qt::red));
    descriptor->setValue(values, QStringLiteral("dispv"), QStringLiteral("Distance"));
    descriptor->setValue(values, QStringLiteral("pos"), middle);
    descriptor->setValue(values, QStringLiteral("ep"), aEnd - middle);
    const int idx = tool->nextObjectIdx();
    aBench.undoStack().push(new CmdCreateObject(
        kDistanceType, idx, new LmKernelObjectData(values, descriptor->getKeyframeTypes(), 0)));
    return idx;
}
