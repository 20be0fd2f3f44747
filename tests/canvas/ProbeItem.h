#ifndef PROBEITEM_H
#define PROBEITEM_H

#include "LmCvObject.h"

#include <QStringList>

/// A square of 20 canvas pixels that is dragged as a whole. Its upper left 5 by 5 pixels are a node that
/// Shift selects. It counts what it is asked.
class ProbeItem : public LmCvObject
{
public:
    static constexpr int kSide = 20;
    static constexpr int kNodeSide = 5;

    using LmCvObject::LmCvObject;

    void place(const QPoint& aCorner);
    QRect square() const { return QRect(theCorner, QSize(kSide, kSide)); }

    int rtti() const override { return 1900; }
    Q3PointArray areaPoints() const override;
    QLinkedList<int> getSelectedNodes() override;
    void adjustScale(const QMatrix& aMatrix) override;
    bool isPointOnObject(const QPoint& aPoint, int& aNode, int aTol) override;
    bool isRectContainsObject(const QRect& aRect) override;
    void mousePressEvent(QMouseEvent* aEvent, QPoint& aPoint) override;
    void mouseReleaseEvent(QMouseEvent* aEvent, QPoint& aPoint) override;
    void mouseMoveEvent(QMouseEvent* aEvent, QPoint& aPoint) override;
    void moveObjectBy(const QPoint& aDelta) override;
    bool isNodesChanged() override { return theNodesChanged; }
    void selectNodes(const QPoint& aCorner, const QSize& aSize) override;
    void updateLabel() override { ++theLabelBuilds; }
    ScaledSizes sizesAt(double aZoom) { return scaleTo(QMatrix::fromScale(aZoom, aZoom)); }
    const QPen& currentPen() const { return linePen(); }

    QPoint theCorner;
    bool theMoving = false;
    bool theNodesChanged = false;
    bool theNodeSelected = false;
    bool theRefusesPress = false;
    QPoint theLastPoint;
    QPoint thePressPoint;  // of the last press that it was asked for
    double theScale = 0.0; // of the last adjustScale
    QRect theNodeRect;     // of the last selectNodes
    int theLabelBuilds = 0;
    int theHitQuestions = 0;
    int thePresses = 0;
    int theReleases = 0;
    int theMoves = 0;

protected:
    void drawShape(QPainter& aPainter) override;
};

#endif
