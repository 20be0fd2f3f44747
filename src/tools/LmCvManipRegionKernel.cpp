// The side of LmCvManipRegion that keeps outlines and records alike, and makes regions of contours.
#include "LmCvManipRegion.h"

#include "CmdChangeObject.h"
#include "LmAppSettings.h"
#include "LmCVSequence.h"
#include "LmCvEditor.h"
#include "LmCvRegion.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "PointMath.h"

#include <QPolygon>

namespace {

constexpr int kBytesPerNode = 3; // dragged, selected, synchro

QPolygon movedBack(const Q3PointArray& aPoints, const QPoint& aOffset)
{
    QPolygon moved;
    moved.reserve(aPoints.size());
    for (const QPoint& point : aPoints)
        moved.append(PointMath::difference(point, aOffset));
    return moved;
}

/// The centre of gravity of all points, controls included. One node has none, so its anchor stands in.
QPoint centreOf(const Q3PointArray& aPoints)
{
    if (aPoints.size() < 4)
        return aPoints.value(LmBezierPoint::kAnchor);
    LmCVSequence sequence(int(aPoints.size()), 8);
    for (int i = 0; i < aPoints.size(); ++i)
        sequence.putPoint(i, aPoints[i].x(), aPoints[i].y());
    return sequence.calculateCoG();
}

/// Whether the points, relative to their centre, have to be written. Each is compared with the former one and
/// aMove, the way of the centre from the former position: that lets pass what moved as a whole by just that
/// way, and has the points of a plainly moved outline written once more. The first point isn't looked at.
bool pointsChanged(const QPolygon& aRelative, const QPolygon& aFormer, const QPoint& aMove)
{
    if (aRelative.size() != aFormer.size())
        return true;
    for (qsizetype i = 1; i < aRelative.size(); ++i)
        if (PointMath::difference(aRelative[i], aFormer[i]) != aMove)
            return true;
    return false;
}

qsizetype pointCount(const LmParamKeyframeVector& aValues, int aParam)
{
    return aValues[aParam].getValue().value<QPolygon>().size();
}

} // namespace

/// A contour as an outline of one node per point, with the handles on the anchors.
struct LmCvManipRegion::Contour
{
    explicit Contour(const LmCVSequence& aContour)
    {
        const QPoint offset(aContour.theOffsetX, aContour.theOffsetY);
        theCentre = PointMath::sum(offset, aContour.theCoG);
        thePoints.reserve(qsizetype(aContour.theCount) * 3);
        for (int i = 0; i < aContour.theCount; ++i) {
            int x = 0;
            int y = 0;
            aContour.getPoint(i, x, y);
            const QPoint relative = PointMath::difference(PointMath::sum(offset, QPoint(x, y)), theCentre);
            thePoints << relative << relative << relative;
        }
        theStates.resize(aContour.theCount);
    }

    Q3PointArray thePoints; // relative to the centre
    Q3ValueVector<LmNodeState> theStates;
    QPoint theCentre; // canvas
};

QByteArray LmCvManipRegion::SvToBa(const Q3ValueVector<LmNodeState>& aStates)
{
    QByteArray bytes;
    bytes.reserve(aStates.size() * kBytesPerNode);
    // What is selected or dragged belongs to the person at the mouse and not to the record.
    for (const LmNodeState& state : aStates)
        bytes.append(char(LmNodeState::kDraggedNone)).append('\0').append(char(state.synchro));
    return bytes;
}

Q3ValueVector<LmNodeState> LmCvManipRegion::BaToSv(const QByteArray& aBytes)
{
    Q3ValueVector<LmNodeState> states;
    states.resize(aBytes.size() / kBytesPerNode);
    const char* byte = aBytes.constData();
    for (LmNodeState& state : states) {
        state.dragged = LmNodeState::Dragged(static_cast<signed char>(*byte++));
        state.selected = *byte++ != 0;
        state.synchro = LmBezierPoint::Synchro(static_cast<signed char>(*byte++));
    }
    return states;
}

LmCvObjectTool::NamedValues LmCvManipRegion::geometryOf(const LmCvObject* aItem, const QPoint& aOrigin,
                                                        const LmKernelObjectData* aFormer) const
{
    const auto& region = static_cast<const LmCvRegion&>(*aItem);
    const QPoint centre = centreOf(region.thePoints);
    const QPolygon relative = movedBack(region.thePoints, centre);
    bool writePos = true;
    bool writePoints = true;
    if (aFormer && relative.size() >= 4) {
        const LmParamKeyframeVector former = aFormer->getKeyframesAt(theKernelData->theCurrentFrame);
        // The former position is an image point and the centre a canvas point, so with a region of interest
        // away from the image's corner the position is written each time.
        const QPoint move = PointMath::difference(centre, former[kPos].getValue().toPoint());
        writePos = !move.isNull();
        writePoints = pointsChanged(relative, former[kPoints].getValue().value<QPolygon>(), move);
    }
    NamedValues values;
    if (writePos)
        values << qMakePair(QStringLiteral("pos"), QVariant(PointMath::sum(centre, aOrigin)));
    if (writePoints)
        values << qMakePair(QStringLiteral("pts"), QVariant::fromValue<QPolygon>(relative));
    values << qMakePair(QStringLiteral("nst"), QVariant(SvToBa(region.theNodeStates)))
           << qMakePair(QStringLiteral("cl"), QVariant(region.theClosed));
    return values;
}

void LmCvManipRegion::applyGeometry(LmCvObject* aItem, const LmParamKeyframeVector& aValues,
                                    const QPoint& aOrigin) const
{
    auto* region = static_cast<LmCvRegion*>(aItem);
    const QPoint offset = PointMath::difference(aValues[kPos].getValue().toPoint(), aOrigin);
    region->setPoints(offset, Q3PointArray(aValues[kPoints].getValue().value<QPolygon>()),
                      BaToSv(aValues[kStates].getValue().toByteArray()));
    region->setClosed(aValues[kClosed].getValue().toBool());
}

/// Brings an outline back to its record. One that shows it already keeps its selected nodes.
void LmCvManipRegion::showRecord(LmCvRegion& aRegion, const LmParamKeyframeVector& aValues) const
{
    LmCvRegion recorded(nullptr, nullptr, QString(), nullptr);
    applyGeometry(&recorded, aValues, theKernelData->origin());
    if (aRegion.thePoints == recorded.thePoints && aRegion.theClosed == recorded.theClosed &&
        SvToBa(aRegion.theNodeStates) == SvToBa(recorded.theNodeStates))
        return;
    applyGeometry(&aRegion, aValues, theKernelData->origin());
    aRegion.theNodesChanged = false;
}

/// Between keyframes points are blended one by one, which has no meaning for outlines of different node
/// counts. So a change of the count is held to its frame: the frames beside it keep what they show now as
/// keyframes of their own.
void LmCvManipRegion::beforeChange(const LmCvObject* aItem, int aIdx, const LmKernelObjectData& aRecord)
{
    const Int64 frame = theKernelData->theCurrentFrame;
    const qsizetype size = static_cast<const LmCvRegion*>(aItem)->thePoints.size();
    if (!aRecord.theAnimated || frame == 0 || pointCount(aRecord.getKeyframesAt(frame), kPoints) == size)
        return;
    const LmParamKeyframeVector before = aRecord.getKeyframesAt(frame - 1);
    if (frame + 1 < theKernelData->theFrameCount) {
        const LmParamKeyframeVector after = aRecord.getKeyframesAt(frame + 1);
        if (pointCount(after, kPoints) != size)
            pin(aIdx, after, frame + 1);
    }
    pin(aIdx, before, frame - 1);
}

void LmCvManipRegion::pin(int aIdx, LmParamKeyframeVector aValues, long long aFrame)
{
    aValues.setFrameNumber(aFrame);
    aValues.setValue(kStates, SvToBa(BaToSv(aValues[kStates].getValue().toByteArray())));
    auto* command = new CmdChangeObject(theObjectType, aIdx, aValues, false);
    // People count frames from 1.
    command->setText(tr("Keep %1 %2 at frame %3").arg(getObjectName(aIdx)).arg(aIdx).arg(aFrame + 1));
    pushOwn(command);
}

void LmCvManipRegion::slotObjectCreatedInKernel(int aType, int aIdx, const LmKernelObjectData* aData)
{
    const bool isKnown = theCvObjects.contains(aIdx);
    LmCvObjectTool::slotObjectCreatedInKernel(aType, aIdx, aData);
    if (LmCvObject* item = isKnown ? nullptr : theCvObjects.value(aIdx))
        makeItemCurrent(item);
}

void LmCvManipRegion::slotObjectChangedInKernel(int aType, int aIdx, const LmKernelObjectData* aData)
{
    LmCvObjectTool::slotObjectChangedInKernel(aType, aIdx, aData);
    // The outline under the rubber line may just have been replaced.
    if (!theSelfChange && aType == theObjectType && theCvObjects.contains(aIdx) && thePencilMode)
        startRubberLine(false, QPoint());
}

void LmCvManipRegion::slotObjectShowInKernel(const int aType, const int aIdx, bool aShown)
{
    // Nobody goes on with an outline that can't be seen.
    if (!aShown && aType == theObjectType && theRegion && theCvObjects.value(aIdx) == theRegion)
        leaveOutline();
    LmCvObjectTool::slotObjectShowInKernel(aType, aIdx, aShown);
}

LmCvObjectTool::NamedValues LmCvManipRegion::contourValues(const Contour& aContour) const
{
    return {{QStringLiteral("pts"), QVariant::fromValue<QPolygon>(aContour.thePoints)},
            {QStringLiteral("nst"), SvToBa(aContour.theStates)},
            {QStringLiteral("cl"), true},
            {QStringLiteral("dispv"), theLastUsedValueName},
            {QStringLiteral("col"), LmAppSettings::theGridColor},
            {QStringLiteral("vis"), true},
            {QStringLiteral("pos"), PointMath::sum(aContour.theCentre, theKernelData->origin())}};
}

void LmCvManipRegion::showContour(LmCvRegion& aRegion, const Contour& aContour) const
{
    aRegion.setPoints(aContour.theCentre, aContour.thePoints, aContour.theStates);
    aRegion.setClosed(true);
}

int LmCvManipRegion::createObjectFromContour(const LmCVSequence& aContour, QString)
{
    if (!canDraw())
        return -1;
    const Contour contour(aContour);
    const int index = nextObjectIdx();
    auto* region = static_cast<LmCvRegion*>(newItem(QString::number(index)));
    showContour(*region, contour);
    presentNewItem(region);
    theCvObjects.insert(index, region);
    theCvEditor->canvas()->update();
    pushCreation(index, contourValues(contour));
    updateDisplayValue(region, theLastUsedValueName, true, true);
    return index;
}

/// In the record the object takes the colour and the value name of new objects; its item keeps the colour
/// that it has.
void LmCvManipRegion::modifyObjectFromContour(const LmCVSequence& aContour, int aIdx)
{
    auto* region = static_cast<LmCvRegion*>(theCvObjects.value(aIdx));
    const LmKernelObjectData* record = recordOf(aIdx);
    if (!region || !record || !canDraw())
        return;
    const Contour contour(aContour);
    showContour(*region, contour);
    theCvEditor->canvas()->update();
    LmParamKeyframeVector values = vectorOf(contourValues(contour));
    values.setFrameNumber(record->theAnimated ? Int64(theKernelData->theCurrentFrame) : kDefaultFrame);
    pushOwn(new CmdChangeObject(theObjectType, aIdx, values, false));
    updateDisplayValue(region, theLastUsedValueName, true, true);
}

LmParamKeyframeVector LmCvManipRegion::createKeyframesFromContour(LmCvObject*, const LmCVSequence& aContour,
                                                                  long long aFrame)
{
    if (!descriptor())
        return LmParamKeyframeVector();
    const Contour contour(aContour);
    LmParamKeyframeVector values =
        vectorOf({{QStringLiteral("pts"), QVariant::fromValue<QPolygon>(contour.thePoints)},
                  {QStringLiteral("nst"), SvToBa(contour.theStates)},
                  {QStringLiteral("pos"), PointMath::sum(contour.theCentre, theKernelData->origin())}});
    values.setFrameNumber(aFrame);
    return values;
}
