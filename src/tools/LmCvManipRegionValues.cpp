// The values of regions at a frame and over their keyframes.
#include "LmCvManipRegion.h"

#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "RegionMeasures.h"

#include <QPolygon>

#include <cmath>

namespace {

const QChar kSquare(0xB2);

RegionMeasures measuresOf(const LmParamKeyframe& aClosed, const LmParamKeyframe& aPoints,
                          const LmParamKeyframe& aPos)
{
    return RegionMeasures(aPoints.getValue().value<QPolygon>(), aClosed.getValue().toBool(),
                          aPos.getValue().toPoint());
}

/// A measure of the outline; an invalid value for a name of another kind.
QVariant outlineValue(const QString& aName, const RegionMeasures& aMeasures, double aStep)
{
    if (aName == LmCvManipRegion::tr("Area"))
        return aMeasures.area(aStep);
    if (aName == LmCvManipRegion::tr("Length/Perim."))
        return aMeasures.length(aStep);
    if (aName == LmCvManipRegion::tr("Width"))
        return aMeasures.width(aStep);
    if (aName == LmCvManipRegion::tr("Height"))
        return aMeasures.height(aStep);
    return QVariant();
}

QString outlineUnit(const QString& aName, const QString& aUnit)
{
    return aName == LmCvManipRegion::tr("Area") ? aUnit + kSquare : aUnit;
}

/// In percent, of the image on screen; an invalid value for a name of another kind.
QVariant imageValue(const QString& aName, const RegionMeasures& aMeasures, LmImage* aImage)
{
    if (aName == LmCvManipRegion::tr("Avg. lightness"))
        return aMeasures.imageMean(aImage, RegionMeasures::kLightness);
    if (aName == LmCvManipRegion::tr("Avg. saturation"))
        return aMeasures.imageMean(aImage, RegionMeasures::kSaturation);
    return QVariant();
}

double distanceBetween(const QPoint& aFrom, const QPoint& aTo)
{
    const double dx = double(qint64(aTo.x()) - aFrom.x());
    const double dy = double(qint64(aTo.y()) - aFrom.y());
    return std::sqrt(dx * dx + dy * dy);
}

} // namespace

QLinkedList<QVariant> LmCvManipRegion::getValues(const QStringList& aNames, const LmKernelObjectData* aData,
                                                 QStringList& aUnits)
{
    QString unit;
    const double step = theKernelData->currentStep(unit);
    const LmParamKeyframeVector keyframes = aData->getKeyframesAt(theKernelData->theCurrentFrame);
    const RegionMeasures measures = measuresOf(keyframes[kClosed], keyframes[kPoints], keyframes[kPos]);
    return valuesOf(aNames, aUnits, [&](const QString& aName, QString& aUnit) {
        const QVariant ofOutline = outlineValue(aName, measures, step);
        aUnit = ofOutline.isValid() ? outlineUnit(aName, unit) : QStringLiteral("%");
        return ofOutline.isValid() ? ofOutline : imageValue(aName, measures, theKernelData->theCurrentImage);
    });
}

QStringList LmCvManipRegion::getAnimatedValueNames()
{
    return {tr("Position"), tr("Way dist."), tr("Width"), tr("Height"), tr("Length/Perim."), tr("Area")};
}

QLinkedList<LmParamKeyframe> LmCvManipRegion::getAnimation(const QString& aName, int aIdx, QString& aUnit)
{
    aUnit = QString();
    QLinkedList<LmParamKeyframe> animation;
    const LmKernelObjectData* record = recordOf(aIdx);
    if (!record || !getAnimatedValueNames().contains(aName))
        return animation;
    const QList<long long> frames = record->getKeyframedFrames();
    if (frames.isEmpty())
        return animation;
    QString unit;
    const double step = theKernelData->currentStep(unit);
    aUnit = outlineUnit(aName, unit);

    const QPoint first = record->getKeyframesAt(frames.first())[kPos].getValue().toPoint();
    QPoint previous = first;
    double way = 0.0;
    for (const long long frame : frames) {
        const LmParamKeyframeVector keyframes = record->getKeyframesAt(frame);
        const QPoint pos = keyframes[kPos].getValue().toPoint();
        way += distanceBetween(previous, pos);
        previous = pos;
        QVariant value;
        if (aName == tr("Position"))
            value = RegionMeasures::inUnits(distanceBetween(first, pos), step);
        else if (aName == tr("Way dist."))
            value = RegionMeasures::inUnits(way, step);
        else
            value = outlineValue(aName, measuresOf(keyframes[kClosed], keyframes[kPoints], keyframes[kPos]),
                                 step);
        animation.append(LmParamKeyframe(frame, value));
    }
    return animation;
}
