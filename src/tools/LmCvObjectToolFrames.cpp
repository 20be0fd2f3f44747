// The side of LmCvObjectTool that follows frames and the resolution of the image.
#include "LmCvObjectTool.h"

#include "LmCvEditor.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"

#include <QPolygon>

#include <algorithm>
#include <limits>

namespace {

// Held at the ends of the range of int.
int scaled(int aCoordinate, double aRatio)
{
    using Range = std::numeric_limits<int>;
    return qRound(std::clamp(aCoordinate * aRatio, double(Range::min()), double(Range::max())));
}

QPoint scaled(const QPoint& aPoint, double aRatio)
{
    return QPoint(scaled(aPoint.x(), aRatio), scaled(aPoint.y(), aRatio));
}

// A point or each point of a list times the ratio; an invalid variant for a value without points.
QVariant scaled(const QVariant& aValue, double aRatio)
{
    if (aValue.typeId() == QMetaType::QPoint)
        return scaled(aValue.toPoint(), aRatio);
    if (aValue.typeId() != QMetaType::QPolygon)
        return QVariant();
    QPolygon points = aValue.value<QPolygon>();
    for (QPoint& point : points)
        point = scaled(point, aRatio);
    return QVariant::fromValue<QPolygon>(points);
}

} // namespace

void LmCvObjectTool::slotFrameReadyStopInKernel(Int64 aFrame)
{
    if (!theSelfChange)
        recreateCanvasObjects(theKernelData->origin(), aFrame, theCurrentViewAnimated);
}

void LmCvObjectTool::recreateCanvasObjects(QPoint aOrigin, long long aFrame, bool aAll)
{
    const QMap<int, LmKernelObjectData*> records = theKernelData->getObjectsOfType(theObjectType);
    for (auto it = theCvObjects.cbegin(); it != theCvObjects.cend(); ++it) {
        const LmKernelObjectData* record = records.value(it.key());
        if (!record || (!record->theAnimated && !aAll))
            continue;
        const LmParamKeyframeVector values = record->getKeyframesAt(aFrame);
        applyGeometry(it.value(), values, aOrigin);
        // The default keyframes are no frame of their own: there the labels stay as they are.
        if (aFrame == Int64(theKernelData->theCurrentFrame))
            updateDisplayValue(it.value(), sharedValue(values, kShownValue).toString(), true, false);
    }
    if (theCvEditor)
        theCvEditor->canvas()->update();
}

void LmCvObjectTool::slotCurrentResChangedByCameraInKernel(QSize aOldSize, QSize aNewSize)
{
    if (aOldSize.width() <= 0)
        return;
    // Only the default keyframes are rescaled: the keyframes of an animated object keep their old scale.
    const double ratio = double(aNewSize.width()) / aOldSize.width();
    const QMap<int, LmKernelObjectData*> records = theKernelData->getObjectsOfType(theObjectType);
    for (auto it = theCvObjects.cbegin(); it != theCvObjects.cend(); ++it) {
        LmKernelObjectData* record = records.value(it.key());
        if (!record)
            continue;
        LmParamKeyframeVector values = record->getDefaultKeyframes();
        for (int param = kFirstOwnParam; param < values.size(); ++param) {
            const QVariant value = scaled(values[param].getValue(), ratio);
            if (value.isValid())
                values.setValue(param, value);
        }
        record->update(values);
    }
    recreateCanvasObjects(theKernelData->origin(), kDefaultFrame, true);
}
