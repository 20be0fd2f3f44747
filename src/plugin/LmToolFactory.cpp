#include "LmToolFactory.h"

#include "LmCvManipAngle.h"
#include "LmCvManipAutoCreate.h"
#include "LmCvManipCounter.h"
#include "LmCvManipDim.h"
#include "LmCvManipDist.h"
#include "LmCvManipMeasure.h"
#include "LmCvManipRegion.h"

#include <QLatin1String>

namespace {

struct ToolRow
{
    QLatin1String theName;
    LmCvManipulator* (*theMake)(QObject* aParent);
};

template <class Tool>
LmCvManipulator* make(QObject* aParent)
{
    return new Tool(aParent);
}

// One row for each tool that exists. The order is that of Region, Counter, Distance, Dimension, Angle,
// Measure_window and Auto_create.
constexpr ToolRow kTools[] = {
    {QLatin1String("Region"), make<LmCvManipRegion>},
    {QLatin1String("Counter"), make<LmCvManipCounter>},
    {QLatin1String("Distance"), make<LmCvManipDist>},
    {QLatin1String("Dimension"), make<LmCvManipDim>},
    {QLatin1String("Angle"), make<LmCvManipAngle>},
    {QLatin1String("Measure_window"), make<LmCvManipMeasure>},
    {QLatin1String("Auto_create"), make<LmCvManipAutoCreate>},
};

} // namespace

QStringList LmToolFactory::featureNames()
{
    return {QStringLiteral("Region"),     QStringLiteral("Counter"), QStringLiteral("Dimension"),
            QStringLiteral("Distance"),   QStringLiteral("Angle"),   QStringLiteral("Measure_window"),
            QStringLiteral("Auto_create")};
}

QStringList LmToolFactory::toolNames()
{
    QStringList names;
    for (const ToolRow& tool : kTools)
        names.append(tool.theName);
    return names;
}

LmCvManipulator* LmToolFactory::makeTool(const QString& aName, QObject* aParent)
{
    for (const ToolRow& tool : kTools)
        if (aName == tool.theName)
            return tool.theMake(aParent);
    return nullptr;
}
