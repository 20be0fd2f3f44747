#ifndef ARROWHEAD_H
#define ARROWHEAD_H

#include <QPoint>

class QPainter;

/// The two flanks of an arrow head, as vectors from its tip.
struct ArrowHead
{
    ArrowHead() = default;
    /// Flanks 20 degrees to both sides of a vector that points from the tip along the line, as long as the
    /// vector; each coordinate cut toward zero.
    ArrowHead(double aAlongX, double aAlongY);

    ArrowHead turnedRound() const;
    /// Draws the filled head with the painter's pen and brush.
    void draw(QPainter& aPainter, const QPoint& aTip) const;

    QPoint theWing1;
    QPoint theWing2;
};

#endif
