#include "LmCvManipDist.h"

#include "DegreeValue.h"
#include "LmCvDistance.h"
#include "LmCvEditor.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "PointMath.h"

#include <QMouseEvent>

#include <cmath>

namespace {

constexpr int kDistanceType = 1102;

double slopeDegrees(double aDx, double aDy)
{
    return DegreeValue::ofRadians(std::asin(-aDy / std::sqrt(aDx * aDx + aDy * aDy)));
}

} // namespace

LmCvManipDist::LmCvManipDist(QObject* aParent) : LmCvObjectTool(kDistanceType, aParent)
{
    loadRulerCursor(QStringLiteral(":/DimCursor.png"));
}

LmCvManipDist::LmCvManipDist(QToolBar* aToolBar, QObject* aParent) : LmCvManipDist(aParent)
{
    LmCvManipDist::initManipulator(aToolBar);
}

LmCvManipDist::~LmCvManipDist() = default;

LmCvObjectTool::Texts LmCvManipDist::texts() const
{
    return {tr("Distance tool"),
            tr("Tool for measuring distances on the image view"),
            QStringLiteral(":/Dist.svg"),
            {tr("Distance"), tr("DX"), tr("DY"), tr("Angle")}};
}

QList<ParamDescr> LmCvManipDist::ownParams() const
{
    return {{QStringLiteral("pos"), QMetaType::QPoint, ParamDescr::kBlended},
            {QStringLiteral("ep"), QMetaType::QPoint, ParamDescr::kBlended}};
}

QString LmCvManipDist::typeName() const
{
    return tr("Distance");
}

LmCvObject* LmCvManipDist::newItem(const QString& aLabel)
{
    return new LmCvDistance(this, theCvEditor->canvas(), aLabel, theCvEditor);
}

LmCvObjectTool::NamedValues LmCvManipDist::geometryOf(const LmCvObject* aItem, const QPoint& aOrigin,
                                                      const LmKernelObjectData*) const
{
    const auto* distance = static_cast<const LmCvDistance*>(aItem);
    const QPoint middle = PointMath::middle(distance->theStart, distance->theEnd);
    return {{QStringLiteral("pos"), PointMath::sum(middle, aOrigin)},
            {QStringLiteral("ep"), PointMath::difference(distance->theEnd, middle)}};
}

void LmCvManipDist::applyGeometry(LmCvObject* aItem, const LmParamKeyframeVector& aValues,
                                  const QPoint& aOrigin) const
{
    const QPoint middle = PointMath::difference(aValues[kPos].getValue().toPoint(), aOrigin);
    const QPoint toEnd = aValues[kEp].getValue().toPoint();
    static_cast<LmCvDistance*>(aItem)->setPoints(PointMath::difference(middle, toEnd),
                                                 PointMath::sum(middle, toEnd));
}

void LmCvManipDist::mousePressEvent(QMouseEvent* aEvent)
{
    if (!canDraw()) {
        aEvent->ignore();
        return;
    }
    thePressPoint = aEvent->pos();
    theCurrent = static_cast<LmCvDistance*>(newItem(QString::number(nextObjectIdx())));
    theCurrent->setPoints(thePressPoint, thePressPoint);
    presentNewItem(theCurrent);
    aEvent->accept();
}

void LmCvManipDist::mouseMoveEvent(QMouseEvent* aEvent)
{
    if (!theCurrent) {
        aEvent->ignore();
        return;
    }
    const QPoint point = drawnPoint(*aEvent);
    theCurrent->setPoints(thePressPoint, point);
    updateDisplayValue(theCurrent, theLastUsedValueName, false, true);
    aEvent->accept();
}

void LmCvManipDist::mouseReleaseEvent(QMouseEvent* aEvent)
{
    if (!theCurrent)
        return;
    storeNewItem(std::exchange(theCurrent, nullptr), theLastUsedValueName);
    aEvent->accept();
}

void LmCvManipDist::forgetItem(const Q3CanvasItem* aItem)
{
    if (aItem == theCurrent)
        theCurrent = nullptr;
}

bool LmCvManipDist::abortAction()
{
    return discard(theCurrent);
}

bool LmCvManipDist::isAngleName(const QString& aName) const
{
    return aName == tr("Angle");
}

// aExtent runs from start to end in pixels; an invalid value for a name that isn't known.
QVariant LmCvManipDist::measured(const QString& aName, const QPoint& aExtent, double aStep) const
{
    const double dx = aExtent.x();
    const double dy = aExtent.y();
    const auto inUnits = [aStep](double aPixels) { return aStep != 0.0 ? aPixels / aStep : aPixels; };
    if (aName == tr("DY"))
        return inUnits(std::abs(dy));
    if (aName == tr("DX"))
        return inUnits(std::abs(dx));
    if (aName == tr("Distance"))
        return inUnits(std::sqrt(dx * dx + dy * dy));
    if (isAngleName(aName))
        return slopeDegrees(dx, dy);
    return QVariant();
}

QVariant LmCvManipDist::getValue(const QString& aName, const LmCvObject* aObject, QString& aUnit)
{
    aUnit = QString();
    if (!aObject || aObject->rtti() != theObjectType)
        return QVariant();
    const double step = theKernelData->currentStep(aUnit);
    const auto* distance = static_cast<const LmCvDistance*>(aObject);
    if (isAngleName(aName))
        aUnit = DegreeValue::unit();
    return measured(aName, PointMath::difference(distance->theEnd, distance->theStart), step);
}

QLinkedList<QVariant> LmCvManipDist::getValues(const QStringList& aNames, const LmKernelObjectData* aData,
                                               QStringList& aUnits)
{
    QString unit;
    const double step = theKernelData->currentStep(unit);
    const LmParamKeyframeVector keyframes = aData->getKeyframesAt(theKernelData->theCurrentFrame);
    const QPoint pos = keyframes[kPos].getValue().toPoint();
    const QPoint ep = keyframes[kEp].getValue().toPoint();
    const QPoint extent =
        PointMath::difference(PointMath::sum(pos, ep), PointMath::difference(pos, ep)); // end less start
    return valuesOf(aNames, aUnits, [&](const QString& aName, QString& aUnit) {
        aUnit = isAngleName(aName) ? DegreeValue::unit() : unit;
        return measured(aName, extent, step);
    });
}
