#include "ArrowHead.h"

#include "PointMath.h"

#include <QPainter>
#include <QTransform>

namespace {

constexpr double kFlankDegrees = 20.0;

QPoint turned(double aX, double aY, double aDegrees)
{
    qreal x = 0.0;
    qreal y = 0.0;
    QTransform().rotate(aDegrees).map(aX, aY, &x, &y);
    return PointMath::cut(x, y);
}

} // namespace

ArrowHead::ArrowHead(double aAlongX, double aAlongY)
    : theWing1(turned(aAlongX, aAlongY, kFlankDegrees)), theWing2(turned(aAlongX, aAlongY, -kFlankDegrees))
{
}

ArrowHead ArrowHead::turnedRound() const
{
    ArrowHead head;
    head.theWing1 = -theWing1;
    head.theWing2 = -theWing2;
    return head;
}

void ArrowHead::draw(QPainter& aPainter, const QPoint& aTip) const
{
    const QPoint corners[] = {PointMath::sum(aTip, theWing1), aTip, PointMath::sum(aTip, theWing2)};
    aPainter.drawPolygon(corners, 3, Qt::OddEvenFill);
}
