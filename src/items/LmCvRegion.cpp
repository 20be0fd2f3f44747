#include "LmCvRegion.h"

#include "CanvasPlane.h"
#include "PointMath.h"
#include "Q3Canvas.h"
#include "TurnedLabel.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <utility>

namespace {

constexpr int kLabelRaise = 15; // canvas pixels from the first anchor up to the label's middle

// The box of an anchor or a handle around its place on the screen.
QRect nodeBox(const QPoint& aCentre)
{
    constexpr int kRadius = int(LmCvRegion::kDefNodeRadius);
    const QPoint corner = aCentre - QPoint(kRadius, kRadius);
    return QRect(corner, corner + QPoint(5, 5));
}

// The top left and the bottom right corner of what holds all points, of which there is at least one.
std::pair<QPoint, QPoint> outermost(const Q3PointArray& aPoints)
{
    QPoint topLeft = aPoints.first();
    QPoint bottomRight = topLeft;
    for (const QPoint& point : aPoints) {
        topLeft = QPoint(std::min(topLeft.x(), point.x()), std::min(topLeft.y(), point.y()));
        bottomRight = QPoint(std::max(bottomRight.x(), point.x()), std::max(bottomRight.y(), point.y()));
    }
    return {topLeft, bottomRight};
}

QSize planeOf(const Q3Canvas* aCanvas)
{
    return aCanvas ? aCanvas->size() : QSize(0, 0);
}

QPoint onScreen(const QTransform& aToScreen, const QPoint& aCanvasPoint)
{
    const QPointF exact = aToScreen.map(QPointF(aCanvasPoint));
    return CanvasPlane::point(exact.x(), exact.y());
}

} // namespace

LmCvRegion::LmCvRegion(LmCvManipulator* aTool, Q3Canvas* aCanvas, const QString& aLabel, Q3CanvasView* aView)
    : LmCvObject(aTool, aCanvas, aLabel, aView), theFont(QStringLiteral("Lucida Grande"), kDefaultFntSize),
      theFontSize(theFont.pointSize())
{
}

LmCvRegion::~LmCvRegion() = default;

void LmCvRegion::adjustScale(const QMatrix& aMatrix)
{
    invalidate();
    scaleTo(aMatrix);
    const double zoom = aMatrix.m11();
    const double shrinking = zoom > 0.0 && zoom < 1.0 ? zoom : 1.0;
    theNodeDiameter = 2.0 * double(kDefNodeRadius) / shrinking;
    theNodeRadius = double(kDefNodeRadius) / shrinking;
    theFont.setPointSizeF(theFontSize / shrinking);
    changeChunks();
    updateLabel();
}

void LmCvRegion::updateLabel()
{
    if (thePoints.size() < 2)
        return;
    invalidate();
    theLabelRect = TurnedLabel::boxOf(labelText(), theFont).adjusted(-1, 0, 1, 0);
    const QPoint anchor = PointMath::nearby(pointAt(0, LmBezierPoint::kAnchor));
    theLabelRect.moveCenter(anchor - QPoint(0, kLabelRaise));
    changeChunks();
}

// Holds handles and label with the outline, and also (0, 0) while there is no label yet.
QRect LmCvRegion::extent() const
{
    const QSize plane = planeOf(canvas());
    int left = plane.width();
    int top = plane.height();
    int right = 0;
    int bottom = 0;
    const auto hold = [&](const QPoint& aTopLeft, const QPoint& aBottomRight) {
        left = std::min(left, aTopLeft.x());
        top = std::min(top, aTopLeft.y());
        right = std::max(right, aBottomRight.x());
        bottom = std::max(bottom, aBottomRight.y());
    };
    if (!thePoints.isEmpty()) {
        // The reach of a node is added to the ends alone: a stroke asks this of all its points at each move.
        const int margin = PointMath::saturated(qint64(theNodeDiameter));
        const QPoint reach(margin, margin);
        const auto [topLeft, bottomRight] = outermost(thePoints);
        hold(PointMath::difference(topLeft, reach), PointMath::sum(bottomRight, reach));
    }
    hold(theLabelRect.topLeft(), theLabelRect.bottomRight());
    return QRect(QPoint(left, top), QPoint(right, bottom));
}

Q3PointArray LmCvRegion::areaPoints() const
{
    const QSize plane = planeOf(canvas());
    const QRect whole = extent();
    const int left = std::max(whole.left(), 0);
    const int top = std::max(whole.top(), 0);
    const int right = std::min(whole.right(), plane.width() - 1);
    const int bottom = std::min(whole.bottom(), plane.height() - 1);
    Q3PointArray corners;
    corners << QPoint(left, top) << QPoint(right, top) << QPoint(right, bottom) << QPoint(left, bottom);
    return corners;
}

// Nodes can be dragged off the picture; there too they must be found and leave no trace behind.
QRect LmCvRegion::boundingRect() const
{
    return CanvasPlane::clamped(extent());
}

void LmCvRegion::drawShape(QPainter& aPainter)
{
    aPainter.save();
    aPainter.setPen(linePen());
    aPainter.setFont(theFont);
    aPainter.setBrush(QBrush(Qt::white, Qt::NoBrush));
    if (nodeCount() >= 2) {
        drawOutline(aPainter);
        drawLabel(aPainter);
    }
    if (theActive && theShowNodes)
        drawNodes(aPainter);
    aPainter.restore();
}

void LmCvRegion::drawOutline(QPainter& aPainter) const
{
    // Each segment is a stroke of its own, with the pen's caps where two meet.
    QPainterPath outline;
    const auto add = [&](int aSegment) {
        const std::array<QPoint, 4> controls = segmentControls(aSegment);
        outline.moveTo(controls[0]);
        outline.cubicTo(controls[1], controls[2], controls[3]);
    };
    for (int i = 0; i < nodeCount() - 1; ++i)
        add(i);
    if (theClosed)
        add(kClosingSegment);
    aPainter.drawPath(outline);
}

void LmCvRegion::drawLabel(QPainter& aPainter) const
{
    aPainter.setPen(theThinPen);
    aPainter.save();
    aPainter.setBrush(QBrush(thePen.color()));
    aPainter.drawRects(&theLabelRect, 1);
    aPainter.setPen(theTextPen);
    aPainter.drawText(theLabelRect, Qt::AlignHCenter | Qt::AlignBottom, labelText());
    aPainter.restore();
}

// In screen pixels, so that squares and circles are crisp and of one size at every zoom.
void LmCvRegion::drawNodes(QPainter& aPainter) const
{
    const QTransform toScreen = aPainter.worldTransform();
    const QBrush white(Qt::white);
    const QBrush filled(linePen().color());
    aPainter.setPen(theThinPen);
    aPainter.setWorldTransform(QTransform());
    for (int i = 0; i < nodeCount(); ++i) {
        const QPoint anchor = onScreen(toScreen, pointAt(i, LmBezierPoint::kAnchor));
        const bool selected = theNodeStates.at(i).selected;
        aPainter.setBrush(selected ? filled : white);
        if (selected) {
            const QPoint left = onScreen(toScreen, pointAt(i, LmBezierPoint::kLeftCtrl));
            const QPoint right = onScreen(toScreen, pointAt(i, LmBezierPoint::kRightCtrl));
            aPainter.drawLine(left, anchor);
            aPainter.drawLine(anchor, right);
            aPainter.drawRect(nodeBox(left));
            aPainter.drawRect(nodeBox(right));
        }
        aPainter.drawEllipse(nodeBox(anchor));
    }
    aPainter.setWorldTransform(toScreen);
}
