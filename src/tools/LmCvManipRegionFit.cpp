// The side of LmCvManipRegion that turns a stroke into few nodes or a regular shape and tells what became of
// it.
#include "LmCvManipRegion.h"

#include "LmCvRegion.h"
#include "LmKSKernelData.h"
#include "OutlineDeviation.h"
#include "ZnCvSplineOptymize.h"
#include "ZnCvSplineTryShape.h"

#include <QLocale>

namespace {

constexpr float kFitError = 0.5F;          // squared canvas pixels
constexpr float kNeighbourDistance = 5.0F; // canvas pixels

Q3PointArray anchorsOf(const LmCvRegion& aRegion)
{
    Q3PointArray anchors;
    anchors.reserve(aRegion.nodeCount());
    for (qsizetype i = LmBezierPoint::kAnchor; i < aRegion.thePoints.size(); i += 3)
        anchors.append(aRegion.thePoints[i]);
    return anchors;
}

} // namespace

/// True when the stroke has become a regular shape.
bool LmCvManipRegion::smoothStroke()
{
    const Q3PointArray stroke = anchorsOf(*theRegion);
    const int shape = theAutoShape ? ZnCvSplineTryShape::tryAssignShape(theRegion) : 0;
    if (shape == ZnCvSplineTryShape::kNoShape)
        ZnCvSplineOptymize::optymizeSpline(theRegion, kFitError, kNeighbourDistance);
    reportFit(stroke, shape);
    return shape != ZnCvSplineTryShape::kNoShape;
}

void LmCvManipRegion::reportFit(const Q3PointArray& aStroke, int aShape)
{
    if (aStroke.size() < 2)
        return;
    const bool closed = theRegion->theClosed || aShape != ZnCvSplineTryShape::kNoShape;
    double deviation = OutlineDeviation::largest(aStroke, theRegion->thePoints, closed);
    QString unit;
    const double step = theKernelData->currentStep(unit);
    if (step > 0.0)
        deviation /= step;
    else
        unit = tr("px");
    QString what;
    switch (aShape) {
    case ZnCvSplineTryShape::kEllipse:
        what = tr("Ellipse");
        break;
    case ZnCvSplineTryShape::kRectangle:
        what = tr("Rectangle");
        break;
    case ZnCvSplineTryShape::kRoundedRectangle:
        what = tr("Rounded rectangle");
        break;
    default:
        what = tr("Smoothed");
    }
    Q_EMIT signalReport(tr("%1: nodes %2 → %3, largest deviation %4 %5")
                            .arg(what)
                            .arg(aStroke.size())
                            .arg(theRegion->nodeCount())
                            .arg(QLocale().toString(deviation, 'f', 2), unit));
}
