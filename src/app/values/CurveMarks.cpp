#include "CurveMarks.h"

#include <QPainter>

namespace {

constexpr double kKeyframeRadius = 4.0;
constexpr double kDotRadius = 1.5;
constexpr double kRingRadius = 7.0;
constexpr double kOverCurves = 100.0; // z value

QPolygonF diamond(const QPointF& aMiddle)
{
    return QPolygonF({aMiddle + QPointF(0.0, -kKeyframeRadius), aMiddle + QPointF(kKeyframeRadius, 0.0),
                      aMiddle + QPointF(0.0, kKeyframeRadius), aMiddle + QPointF(-kKeyframeRadius, 0.0)});
}

} // namespace

CurveMarks::CurveMarks(QGraphicsItem* aChart) : QGraphicsItem(aChart)
{
    setZValue(kOverCurves);
    setAcceptedMouseButtons(Qt::NoButton);
}

void CurveMarks::setArea(const QRectF& aArea)
{
    prepareGeometryChange();
    theArea = aArea;
}

void CurveMarks::setMarks(const QList<Marks>& aMarks)
{
    theMarks = aMarks;
    update();
}

void CurveMarks::setLine(double aX, const QColor& aColor)
{
    theLine = aX;
    theLineColor = aColor;
    update();
}

void CurveMarks::setRing(const QPointF& aPlace, const QColor& aColor)
{
    if (aPlace == theRing && aColor == theRingColor)
        return;
    theRing = aPlace;
    theRingColor = aColor;
    update();
}

QRectF CurveMarks::boundingRect() const
{
    const double margin = kRingRadius + 1.0;
    return theArea.adjusted(-margin, -margin, margin, margin);
}

void CurveMarks::paint(QPainter* aPainter, const QStyleOptionGraphicsItem*, QWidget*)
{
    aPainter->setRenderHint(QPainter::Antialiasing);
    if (theLine >= theArea.left() && theLine <= theArea.right()) {
        aPainter->setPen(QPen(theLineColor, 1.5));
        aPainter->drawLine(QPointF(theLine, theArea.top()), QPointF(theLine, theArea.bottom()));
    }
    aPainter->setPen(Qt::NoPen);
    for (const Marks& marks : std::as_const(theMarks)) {
        aPainter->setBrush(marks.theColor);
        for (const QPointF& place : marks.theKeyframes)
            aPainter->drawPolygon(diamond(place));
        for (const QPointF& place : marks.theDots)
            aPainter->drawEllipse(place, kDotRadius, kDotRadius);
    }
    if (!theRingColor.isValid())
        return;
    aPainter->setBrush(Qt::NoBrush);
    aPainter->setPen(QPen(theRingColor, 2.0));
    aPainter->drawEllipse(theRing, kRingRadius - 1.0, kRingRadius - 1.0);
}
