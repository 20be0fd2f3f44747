#include "KeyframeBlend.h"

#include <QPolygon>

#include <algorithm>
#include <climits>
#include <cmath>

namespace {

/// How far two keyframes are from a frame between them.
struct Weights
{
    double theEarlier; // frames from here to the later keyframe
    double theLater;   // frames from the earlier keyframe to here
};

/// One division at the very end: for pictures of any size the sum is exact, and so a half is really a half.
int blended(int aEarlier, int aLater, const Weights& aWeights)
{
    const double sum = aEarlier * aWeights.theEarlier + aLater * aWeights.theLater;
    const double value = std::round(sum / (aWeights.theEarlier + aWeights.theLater));
    return int(std::clamp(value, double(INT_MIN), double(INT_MAX)));
}

QPoint blended(QPoint aEarlier, QPoint aLater, const Weights& aWeights)
{
    return QPoint(blended(aEarlier.x(), aLater.x(), aWeights), blended(aEarlier.y(), aLater.y(), aWeights));
}

} // namespace

QVariant KeyframeBlend::at(const LmParamKeyframe& aEarlier, const LmParamKeyframe& aLater, long long aFrame)
{
    const QVariant& earlier = aEarlier.getValue();
    const QVariant& later = aLater.getValue();
    const Weights weights{double(aLater.getFrame() - aFrame), double(aFrame - aEarlier.getFrame())};
    if (earlier.metaType() != later.metaType())
        return earlier;
    if (earlier.metaType() == QMetaType::fromType<QPoint>())
        return blended(earlier.toPoint(), later.toPoint(), weights);
    if (earlier.metaType() != QMetaType::fromType<QPolygon>())
        return earlier;
    QPolygon points = earlier.value<QPolygon>();
    const QPolygon laterPoints = later.value<QPolygon>();
    if (points.size() != laterPoints.size())
        return earlier;
    for (qsizetype i = 0; i < points.size(); ++i)
        points[i] = blended(points[i], laterPoints[i], weights);
    return QVariant::fromValue<QPolygon>(points);
}
