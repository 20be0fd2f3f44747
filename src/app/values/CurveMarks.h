#ifndef CURVEMARKS_H
#define CURVEMARKS_H

#include <QColor>
#include <QGraphicsItem>
#include <QList>
#include <QPolygonF>

/// What stands over the curves of a chart: the marks of keyframes, single values between gaps, the line of
/// the present frame and a ring about the value under the pointer. All places are in the chart.
class CurveMarks : public QGraphicsItem
{
public:
    struct Marks
    {
        QColor theColor;
        QPolygonF theKeyframes;
        QPolygonF theDots;
    };

    explicit CurveMarks(QGraphicsItem* aChart);

    void setArea(const QRectF& aArea);
    void setMarks(const QList<Marks>& aMarks);
    /// The line of the present frame; outside the area there is none.
    void setLine(double aX, const QColor& aColor);
    double line() const { return theLine; }
    void setRing(const QPointF& aPlace, const QColor& aColor);
    void hideRing() { setRing(QPointF(), QColor()); }

    QRectF boundingRect() const override;
    void paint(QPainter* aPainter, const QStyleOptionGraphicsItem* aOption, QWidget* aWidget) override;

private:
    QRectF theArea;
    QList<Marks> theMarks;
    double theLine = -1.0;
    QColor theLineColor;
    QPointF theRing;
    QColor theRingColor; // invalid without a ring
};

#endif
