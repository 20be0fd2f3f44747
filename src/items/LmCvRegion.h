#ifndef LMCVREGION_H
#define LMCVREGION_H

#include "LmCvObject.h"
#include "LmNodeState.h"
#include "Q3ValueVector.h"

#include <QFont>

#include <array>

/// An outline on the canvas: a chain of cubic Bezier segments, open or closed, with a label above its first
/// node. The user drags nodes, handles or the whole outline.
///
/// Three points per node in thePoints: left control, anchor, right control. Segment i runs from anchor i to
/// anchor i + 1; segment -1 is the closing one, from the last anchor to the first, and is never stored. All
/// points are canvas coordinates; x() and y() only keep the last offset of setPoints.
class LmCvRegion : public LmCvObject
{
public:
    static constexpr int kRtti = 1103;
    static constexpr int kClosingSegment = -1;
    static constexpr float kDefNodeRadius = 3.0F; // canvas pixels for anchors, screen pixels for drawing

    LmCvRegion(LmCvManipulator* aTool, Q3Canvas* aCanvas, const QString& aLabel, Q3CanvasView* aView);
    ~LmCvRegion() override;

    int nodeCount() const { return int(theNodeStates.size()); }
    /// Inserts the node at aIndex, or appends it for an index that no node has. A selected node becomes the
    /// only selected one; one that is dragged becomes the current node.
    void addNode(LmBezierPoint aNode, int aIndex, LmNodeState aState);
    void removeNode(unsigned aIndex);
    void removeSelectedNodes();
    LmBezierPoint getNode(unsigned aIndex) const; // for an index out of range an invalid one at (0, 0)
    void setNode(unsigned aIndex, const LmBezierPoint& aNode); // nothing without three points
    /// Moves a handle and the other one as the node's synchro says; nothing for an index that no node has. A
    /// relative position is an offset from the anchor.
    void setNodeLeftCtrl(unsigned aIndex, QPoint aPos, bool aRelative);
    void setNodeRightCtrl(unsigned aIndex, QPoint aPos, bool aRelative);
    void setNodeSelected(unsigned aIndex, bool aSelected);
    void setNodeSynchro(unsigned aIndex, LmBezierPoint::Synchro aSynchro);
    /// aExcept is a node that is spared, -1 for none.
    void deselectAllNodes(int aExcept);
    /// Takes copies of points and states, as far as they are whole nodes, and moves them by the offset.
    void setPoints(const QPoint& aOffset, const Q3PointArray& aPoints,
                   const Q3ValueVector<LmNodeState>& aStates);
    /// Makes every segment straight.
    void makePolygon();
    static void calcOtherCtrlPoint(const QPoint& aMoved, const QPoint& aAnchor, QPoint& aOther,
                                   LmBezierPoint::Synchro aSynchro, bool aRelative);
    /// Puts other nodes in place of all, with handles that can be picked.
    void replaceNodes(const Q3PointArray& aPoints, const Q3ValueVector<LmNodeState>& aStates);
    /// Counts as a change of the geometry.
    void setClosed(bool aClosed);
    /// Whether nodes are drawn and can be picked, handles included.
    void setNodesShown(bool aShown);

    // Hit tests. Tolerances are canvas pixels.
    int pointOnNode(const QPoint& aPos) const;
    int pointOnControl(const QPoint& aPos, LmNodeState::Dragged& aDragged) const;
    bool isSegmentIntersects(int aSegment, const QPoint& aStart, const QPoint& aEnd) const;
    bool isSegmentContainsRect(int aSegment, QRect& aRect) const;
    static bool linesIntersect(QPoint a, QPoint b, QPoint c, QPoint d, QPoint& aOut);

    /// A click or a step of a stroke while the outline is drawn: closes it at the far end, or adds a node at
    /// its end (aAppend) or at its front.
    void enterDrawMode(QPoint& aPos, bool aAppend);

    int rtti() const override { return kRtti; }
    Q3PointArray areaPoints() const override; // ends at the canvas's edges
    QRect boundingRect() const override;      // holds all that is drawn
    void drawShape(QPainter& aPainter) override;
    QLinkedList<int> getSelectedNodes() override;
    void adjustScale(const QMatrix& aMatrix) override;
    bool isPointOnObject(const QPoint& aPoint, int& aSegment, int aTolerance) override;
    bool isRectContainsObject(const QRect& aRect) override;
    void mousePressEvent(QMouseEvent* aEvent, QPoint& aPos) override;
    void mouseReleaseEvent(QMouseEvent* aEvent, QPoint& aPos) override;
    void mouseMoveEvent(QMouseEvent* aEvent, QPoint& aPos) override;
    void moveObjectBy(const QPoint& aDelta) override;
    bool isNodesChanged() override { return theNodesChanged; }
    void selectNodes(const QPoint& aCorner, const QSize& aSize) override;
    void updateLabel() override;
    virtual int getCreatedNode() { return theCreatedNode; }

    Q3ValueVector<LmNodeState> theNodeStates;
    Q3PointArray thePoints;
    int theCurrentNode = -1; // under the mouse action; -1 is the whole outline
    int theCreatedNode = -1;
    QPoint thePressPos;
    QPoint theLastPos;
    QFont theFont;
    int theFontSize; // points, unscaled
    bool theNodesChanged = false;
    bool theHandlesEnabled = true; // false while the pencil draws: handles can't be picked
    bool theClosed = false;
    QRect theLabelRect;
    double theNodeDiameter = 2.0 * double(kDefNodeRadius);
    double theNodeRadius = double(kDefNodeRadius);

private:
    QPoint& point(int aNode, LmBezierPoint::Point aPoint) { return thePoints[3 * aNode + aPoint]; }
    QPoint pointAt(int aNode, LmBezierPoint::Point aPoint) const { return thePoints[3 * aNode + aPoint]; }
    bool isNode(qint64 aIndex) const { return aIndex >= 0 && aIndex < nodeCount(); }
    std::array<QPoint, 4> segmentControls(int aSegment) const;
    QRect extent() const;
    void closeAt(int aNode, LmNodeState::Dragged aDragged, const QPoint& aPos);
    void pressNode(QMouseEvent* aEvent, int aNode);
    void pressElsewhere(QMouseEvent* aEvent, const QPoint& aPos);
    void toggleNode(int aNode);
    void restartHandles(int aNode);
    void dragNode(LmNodeState::Dragged aDragged, const QPoint& aDelta);
    void moveSelectedNodesBy(const QPoint& aDelta);
    void drawOutline(QPainter& aPainter) const;
    void drawLabel(QPainter& aPainter) const;
    void drawNodes(QPainter& aPainter) const;
};

#endif
