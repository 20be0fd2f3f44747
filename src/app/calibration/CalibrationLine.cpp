#include "CalibrationLine.h"

#include <QLineF>
#include <QPainter>

namespace {

constexpr double kBarLength = 12.0; // screen pixels
constexpr double kTopmost = 1e9;

} // namespace

CalibrationLine::CalibrationLine(Q3Canvas* aCanvas, const QPoint& aPoint, double aZoom)
    : Q3CanvasLine(aCanvas), theZoom(aZoom)
{
    setPoints(aPoint.x(), aPoint.y(), aPoint.x(), aPoint.y());
    setZ(kTopmost);
}

CalibrationLine::~CalibrationLine() = default;

void CalibrationLine::setEnd(const QPoint& aPoint)
{
    setPoints(startPoint().x(), startPoint().y(), aPoint.x(), aPoint.y());
}

void CalibrationLine::setZoom(double aZoom)
{
    invalidate();
    theZoom = aZoom;
    update();
}

double CalibrationLine::length() const
{
    return QLineF(startPoint(), endPoint()).length();
}

Q3PointArray CalibrationLine::areaPoints() const
{
    const int margin = int(kBarLength / theZoom) + 2;
    const QRect area = QRect(startPoint(), endPoint()).normalized();
    return Q3PointArray(QPolygon(area.adjusted(-margin, -margin, margin, margin)));
}

void CalibrationLine::drawShape(QPainter& aPainter)
{
    const QLineF line(startPoint(), endPoint());
    QList<QLineF> lines{line};
    if (line.length() > 0.0) {
        QLineF bar = line.normalVector();
        bar.setLength(kBarLength / 2.0 / theZoom);
        const QPointF half = bar.p2() - bar.p1();
        lines << QLineF(line.p1() - half, line.p1() + half) << QLineF(line.p2() - half, line.p2() + half);
    }
    QPen pen(Qt::black, 3.0);
    pen.setCosmetic(true);
    aPainter.setPen(pen);
    aPainter.drawLines(lines);
    pen.setColor(Qt::white);
    pen.setWidthF(1.0);
    pen.setStyle(Qt::DashLine);
    aPainter.setPen(pen);
    aPainter.drawLines(lines);
}
