#include "LmCvRegion.h"
#include "PointMath.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kPerNode = LmBezierPoint::kPointCount;

// Neither stray points nor states without points get into an outline.
void keepWholeNodes(Q3PointArray& aPoints, Q3ValueVector<LmNodeState>& aStates)
{
    const qsizetype count = aPoints.size() / kPerNode;
    aPoints.resize(count * kPerNode);
    aStates.resize(count);
}

void shift(Q3PointArray& aPoints, const QPoint& aDelta)
{
    for (QPoint& point : aPoints)
        point = PointMath::sum(point, aDelta);
}

// The way of a handle of this length that points away from the way (aDx, aDy), which isn't zero.
QPoint opposite(qint64 aDx, qint64 aDy, double aLength)
{
    const double vertical = aDy < 0 ? -1.5707963267948 : 1.5707963267948;
    const double angle = aDx != 0 ? std::atan(double(aDy) / double(aDx)) : vertical;
    const double x = aLength * std::cos(angle);
    const double y = aLength * std::sin(angle);
    if (aDx < 0)
        return PointMath::cut(std::floor(x + 0.5), std::floor(y + 0.5));
    return PointMath::cut(std::ceil(-x - 0.5), std::ceil(-y - 0.5));
}

} // namespace

void LmCvRegion::addNode(LmBezierPoint aNode, int aIndex, LmNodeState aState)
{
    invalidate();
    if (!theHandlesEnabled && aState.dragged != LmNodeState::kDraggedAnchor)
        aState.dragged = LmNodeState::kDraggedNone;
    aNode.resize(kPerNode);
    const int index = isNode(aIndex) ? aIndex : nodeCount();
    thePoints.insert(kPerNode * index, kPerNode, QPoint());
    std::copy(aNode.cbegin(), aNode.cend(), thePoints.begin() + kPerNode * index);
    theNodeStates.insert(index, aState);
    if (aState.selected)
        deselectAllNodes(index);
    if (aState.dragged != LmNodeState::kDraggedNone) {
        theCurrentNode = index;
        theLastPos = aNode.at(LmBezierPoint::kAnchor);
    }
    theNodesChanged = true;
    changeChunks();
}

void LmCvRegion::removeNode(unsigned aIndex)
{
    if (!isNode(aIndex))
        return;
    invalidate();
    thePoints.remove(kPerNode * int(aIndex), kPerNode);
    theNodeStates.removeAt(int(aIndex));
    changeChunks();
}

void LmCvRegion::removeSelectedNodes()
{
    invalidate();
    int kept = 0;
    for (int i = 0; i < nodeCount(); ++i) {
        if (theNodeStates.at(i).selected)
            continue;
        theNodeStates[kept] = theNodeStates.at(i);
        for (const auto part : {LmBezierPoint::kLeftCtrl, LmBezierPoint::kAnchor, LmBezierPoint::kRightCtrl})
            point(kept, part) = pointAt(i, part);
        ++kept;
    }
    theNodeStates.resize(kept);
    thePoints.resize(kPerNode * kept);
    changeChunks();
}

LmBezierPoint LmCvRegion::getNode(unsigned aIndex) const
{
    if (!isNode(aIndex))
        return LmBezierPoint(false, false, LmBezierPoint::kSynchroDirection);
    const int index = int(aIndex);
    LmBezierPoint node(true, false, theNodeStates.at(index).synchro);
    std::copy_n(thePoints.cbegin() + kPerNode * index, kPerNode, node.begin());
    return node;
}

void LmCvRegion::setNode(unsigned aIndex, const LmBezierPoint& aNode)
{
    if (!isNode(aIndex) || aNode.size() != kPerNode)
        return;
    invalidate();
    std::copy(aNode.cbegin(), aNode.cend(), thePoints.begin() + kPerNode * int(aIndex));
    changeChunks();
}

void LmCvRegion::setNodeLeftCtrl(unsigned aIndex, QPoint aPos, bool aRelative)
{
    if (!isNode(aIndex))
        return;
    invalidate();
    const int index = int(aIndex);
    const QPoint anchor = pointAt(index, LmBezierPoint::kAnchor);
    if (aRelative)
        aPos = PointMath::sum(aPos, anchor);
    point(index, LmBezierPoint::kLeftCtrl) = aPos;
    const LmBezierPoint::Synchro synchro = theNodeStates.at(index).synchro;
    if (synchro != LmBezierPoint::kSynchroNone) {
        QPoint other = pointAt(index, LmBezierPoint::kRightCtrl);
        calcOtherCtrlPoint(aPos, anchor, other, synchro, aRelative);
        // The right handle doesn't do this: an offset for a handle that takes the other along means
        // something else on each side. Nobody gives one except with kSynchroNone.
        if (aRelative)
            other = PointMath::sum(other, aPos);
        point(index, LmBezierPoint::kRightCtrl) = other;
    }
    theNodesChanged = true;
    changeChunks();
}

void LmCvRegion::setNodeRightCtrl(unsigned aIndex, QPoint aPos, bool aRelative)
{
    if (!isNode(aIndex))
        return;
    invalidate();
    const int index = int(aIndex);
    const QPoint anchor = pointAt(index, LmBezierPoint::kAnchor);
    if (aRelative)
        aPos = PointMath::sum(aPos, anchor);
    point(index, LmBezierPoint::kRightCtrl) = aPos;
    const LmBezierPoint::Synchro synchro = theNodeStates.at(index).synchro;
    if (synchro != LmBezierPoint::kSynchroNone)
        calcOtherCtrlPoint(aPos, anchor, point(index, LmBezierPoint::kLeftCtrl), synchro, aRelative);
    theNodesChanged = true;
    changeChunks();
}

void LmCvRegion::calcOtherCtrlPoint(const QPoint& aMoved, const QPoint& aAnchor, QPoint& aOther,
                                    LmBezierPoint::Synchro aSynchro, bool aRelative)
{
    const QPoint origin = aRelative ? QPoint(0, 0) : aAnchor;
    const qint64 dx = qint64(aMoved.x()) - origin.x();
    const qint64 dy = qint64(aMoved.y()) - origin.y();
    aOther = PointMath::difference(aOther, origin);
    switch (aSynchro) {
    case LmBezierPoint::kSynchroNone:
        return; // no caller asks for it
    case LmBezierPoint::kSynchroMirror:
        aOther = QPoint(PointMath::saturated(aAnchor.x() - dx), PointMath::saturated(aAnchor.y() - dy));
        return;
    case LmBezierPoint::kSynchroDirection:
        // The squares and their sum are whole numbers, exact in a double up to handles of 67 million pixels.
        const double length = std::sqrt(double(aOther.x()) * aOther.x() + double(aOther.y()) * aOther.y());
        const bool turned = dx != 0 || dy != 0;
        aOther = PointMath::sum(turned ? opposite(dx, dy, length) : aOther, aAnchor);
        return;
    }
}

void LmCvRegion::setNodeSelected(unsigned aIndex, bool aSelected)
{
    if (!theShowNodes)
        return;
    invalidate();
    if (isNode(aIndex))
        theNodeStates[int(aIndex)].selected = aSelected;
    changeChunks();
}

void LmCvRegion::setNodeSynchro(unsigned aIndex, LmBezierPoint::Synchro aSynchro)
{
    if (isNode(aIndex))
        theNodeStates[int(aIndex)].synchro = aSynchro;
}

void LmCvRegion::deselectAllNodes(int aExcept)
{
    invalidate();
    for (int i = 0; i < nodeCount(); ++i) {
        if (i == aExcept)
            continue;
        theNodeStates[i].selected = false;
        theNodeStates[i].dragged = LmNodeState::kDraggedNone;
    }
    changeChunks();
}

QLinkedList<int> LmCvRegion::getSelectedNodes()
{
    QLinkedList<int> selected;
    for (int i = 0; i < nodeCount(); ++i)
        if (theNodeStates.at(i).selected)
            selected.append(i);
    return selected;
}

void LmCvRegion::setPoints(const QPoint& aOffset, const Q3PointArray& aPoints,
                           const Q3ValueVector<LmNodeState>& aStates)
{
    invalidate();
    thePoints = aPoints;
    theNodeStates = aStates;
    keepWholeNodes(thePoints, theNodeStates);
    shift(thePoints, aOffset);
    setX(aOffset.x());
    setY(aOffset.y());
    changeChunks();
    updateLabel();
}

void LmCvRegion::replaceNodes(const Q3PointArray& aPoints, const Q3ValueVector<LmNodeState>& aStates)
{
    invalidate();
    thePoints = aPoints;
    theNodeStates = aStates;
    keepWholeNodes(thePoints, theNodeStates);
    changeChunks();
    updateLabel();
    theHandlesEnabled = true;
}

void LmCvRegion::moveObjectBy(const QPoint& aDelta)
{
    invalidate();
    shift(thePoints, aDelta);
    theNodesChanged = true;
    changeChunks();
    updateLabel();
}

void LmCvRegion::makePolygon()
{
    invalidate();
    for (int i = 0; i < nodeCount(); ++i)
        for (const auto handle : {LmBezierPoint::kLeftCtrl, LmBezierPoint::kRightCtrl})
            point(i, handle) = pointAt(i, LmBezierPoint::kAnchor);
    changeChunks();
}

void LmCvRegion::setClosed(bool aClosed)
{
    invalidate();
    theClosed = aClosed;
    theNodesChanged = true;
    changeChunks();
}

void LmCvRegion::setNodesShown(bool aShown)
{
    invalidate();
    theShowNodes = aShown;
    theHandlesEnabled = aShown;
    changeChunks();
}
