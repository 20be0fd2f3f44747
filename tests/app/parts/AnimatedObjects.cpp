#include "AnimatedObjects.h"

#include "CmdCreateObject.h"
#include "Document.h"
#include "Drawn.h"
#include "LmCvManipulator.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "LmKernelObjectDataDescr.h"
#include "MadeFiles.h"
#include "Workbench.h"

#include <QColor>
#include <QImage>

#include <memory>

namespace {

using Values = QList<QPair<QString, QVariant>>;

LmKSKernelData& kernel()
{
    return *LmKSKernelData::getInstance();
}

std::unique_ptr<LmKernelObjectData> newRecord(int aType, const QString& aShown, const Values& aValues)
{
    const LmKernelObjectDataDescr* descriptor = kernel().getDataDescriptor(aType);
    if (!descriptor)
        qFatal("there is no such type");
    LmParamKeyframeVector values = descriptor->createKeyframeVector();
    Values all{{QStringLiteral("vis"), true},
               {QStringLiteral("col"), QColor(Qt::red)},
               {QStringLiteral("dispv"), aShown}};
    all.append(aValues);
    for (const auto& [name, value] : std::as_const(all))
        if (!descriptor->setValue(values, name, value))
            qFatal("the type has no such parameter");
    auto record = std::make_unique<LmKernelObjectData>(values, descriptor->getKeyframeTypes(), 0);
    record->theAnimated = true;
    return record;
}

void setKeyframe(LmKernelObjectData& aRecord, int aType, const QString& aName, int aFrame,
                 const QVariant& aValue)
{
    aRecord.storeValue(kernel().getDataDescriptor(aType)->indexOf(aName), aFrame, aValue);
}

int create(Workbench& aBench, int aType, std::unique_ptr<LmKernelObjectData> aRecord)
{
    const int idx = kernel().getCvManipulator(aType)->nextObjectIdx();
    aBench.undoStack().push(new CmdCreateObject(aType, idx, aRecord.release()));
    return idx;
}

} // namespace

int AnimatedObjects::addDistance(Workbench& aBench, const QList<Line>& aLines)
{
    auto record = newRecord(kDistanceType, QStringLiteral("Distance"),
                            {{QStringLiteral("pos"), QPoint()}, {QStringLiteral("ep"), QPoint()}});
    for (const Line& line : aLines) {
        const QPoint middle = (line.theStart + line.theEnd) / 2;
        setKeyframe(*record, kDistanceType, QStringLiteral("pos"), line.theFrame, middle);
        setKeyframe(*record, kDistanceType, QStringLiteral("ep"), line.theFrame, line.theEnd - middle);
    }
    return create(aBench, kDistanceType, std::move(record));
}

int AnimatedObjects::addAngle(Workbench& aBench, const QList<Corner>& aCorners)
{
    auto record = newRecord(kAngleType, QStringLiteral("Angle"),
                            {{QStringLiteral("pos"), QPoint()},
                             {QStringLiteral("ep1"), QPoint()},
                             {QStringLiteral("ep2"), QPoint()}});
    for (const Corner& corner : aCorners) {
        const auto set = [&](const char* aName, const QPoint& aPoint) {
            setKeyframe(*record, kAngleType, QLatin1String(aName), corner.theFrame, aPoint);
        };
        set("pos", corner.theVertex);
        set("ep1", corner.theEnd1 - corner.theVertex);
        set("ep2", corner.theEnd2 - corner.theVertex);
    }
    return create(aBench, kAngleType, std::move(record));
}

int AnimatedObjects::addDimension(Workbench& aBench, const QList<Segments>& aSegments)
{
    const auto variant = [](const QPolygon& aPoints) { return QVariant::fromValue<QPolygon>(aPoints); };
    auto record = newRecord(
        kDimensionType, QStringLiteral("Height"),
        {{QStringLiteral("pos"), QPoint()}, {QStringLiteral("points"), variant(aSegments.value(0).second)}});
    for (const Segments& segments : aSegments) {
        const QPolygon& points = segments.second;
        setKeyframe(*record, kDimensionType, QStringLiteral("pos"), segments.first,
                    (points.value(0) + points.value(1)) / 2);
        setKeyframe(*record, kDimensionType, QStringLiteral("points"), segments.first, variant(points));
    }
    return create(aBench, kDimensionType, std::move(record));
}

int AnimatedObjects::addSquare(Workbench& aBench, int aSide, const QList<Place>& aPlaces)
{
    const int half = aSide / 2;
    QPolygon points; // each corner with both of its handles on it
    for (const QPoint& corner : {QPoint(-half, -half), QPoint(aSide - half - 1, -half),
                                 QPoint(aSide - half - 1, aSide - half - 1), QPoint(-half, aSide - half - 1)})
        points << corner << corner << corner;
    auto record = newRecord(kRegionType, QStringLiteral("Area"),
                            {{QStringLiteral("cl"), true},
                             {QStringLiteral("pts"), QVariant::fromValue<QPolygon>(points)},
                             {QStringLiteral("nst"), QByteArray("\xff\0\1\xff\0\1\xff\0\1\xff\0\1", 12)},
                             {QStringLiteral("pos"), aPlaces.value(0).second}});
    for (const Place& place : aPlaces)
        setKeyframe(*record, kRegionType, QStringLiteral("pos"), place.first, place.second);
    return create(aBench, kRegionType, std::move(record));
}

void AnimatedObjects::openGrays(Workbench& aBench, const QString& aPath, const QSize& aSize,
                                const QList<int>& aGrays)
{
    QList<QImage> pages;
    for (const int gray : aGrays) {
        QImage page(aSize, QImage::Format_Grayscale8);
        page.fill(gray);
        pages << page;
    }
    MadeFiles::write(aPath, MadeFiles::tiff(pages));
    QString error;
    if (!aBench.document().open(aPath, error))
        qFatal("%s", qPrintable(error));
}
