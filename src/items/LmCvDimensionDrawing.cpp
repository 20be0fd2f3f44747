// How a dimension looks, and how much of the canvas it takes.
#include "LmCvDimension.h"

#include "PointMath.h"
#include "TurnedLabel.h"

#include <QList>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kShortest = 0.00001; // pixels; a shorter segment has no direction
constexpr int kFarOut = 32000;        // start of the search for the least coordinate

int rounded(double aValue)
{
    return PointMath::cut(std::floor(aValue + 0.5));
}

// The smallest upright rectangle of the points taken in. The corners start crossed over: without points they
// stay so, and since the far one starts at 0, the rectangle of a dimension left of or above the canvas
// reaches back to its edge.
class Bounds
{
public:
    void takeIn(const QPoint& aPoint)
    {
        theLeast = QPoint(std::min(theLeast.x(), aPoint.x()), std::min(theLeast.y(), aPoint.y()));
        theMost = QPoint(std::max(theMost.x(), aPoint.x()), std::max(theMost.y(), aPoint.y()));
    }
    void takeInBothSides(const QPoint& aPoint, const QPoint& aWay)
    {
        takeIn(PointMath::sum(aPoint, aWay));
        takeIn(PointMath::difference(aPoint, aWay));
    }
    Q3PointArray corners() const
    {
        Q3PointArray corners;
        corners << theLeast << QPoint(theMost.x(), theLeast.y()) << theMost
                << QPoint(theLeast.x(), theMost.y());
        return corners;
    }

private:
    QPoint theLeast{kFarOut, kFarOut};
    QPoint theMost{0, 0};
};

} // namespace

Q3PointArray LmCvDimension::areaPoints() const
{
    Bounds bounds;
    for (int i = 0; i < segmentCount(); ++i) {
        const Segment line = segment(i);
        if (line.theLength < kShortest)
            continue;
        const double toHandle = 2.0 * theCtrlRad / line.theLength;
        const QPoint beyond(rounded(line.theDx * toHandle), rounded(line.theDy * toHandle));
        bounds.takeIn(PointMath::difference(line.theStart, beyond));
        bounds.takeIn(PointMath::sum(line.theEnd, beyond));
        const double toTick = theCapSize / line.theLength;
        const QPoint across(PointMath::saturated(-qint64(rounded(line.theDy * toTick))),
                            rounded(line.theDx * toTick));
        bounds.takeInBothSides(line.theStart, across);
        bounds.takeInBothSides(line.theEnd, across);
    }
    return bounds.corners();
}

void LmCvDimension::drawShape(QPainter& aPainter)
{
    if (segmentCount() == 0)
        return; // there is no place for the label
    aPainter.save();
    aPainter.setPen(linePen());
    drawSegments(aPainter);
    aPainter.setPen(theThinPen);
    if (theActive)
        drawHandles(aPainter);
    const Segment along = segment(labelSegment());
    label().draw(aPainter, PointMath::middle(along.theStart, along.theEnd),
                 TurnedLabel::angleOf(along.theStart, along.theEnd));
    aPainter.restore();
}

void LmCvDimension::drawSegments(QPainter& aPainter) const
{
    QList<QLine> lines;
    lines.reserve(5 * qsizetype(segmentCount()));
    for (int i = 0; i < segmentCount(); ++i) {
        const Segment line = segment(i);
        lines << QLine(line.theStart, line.theEnd);
        if (line.theLength == 0.0)
            continue;
        const double f = theCapSize / line.theLength;
        const QPoint tick(PointMath::cut(std::floor(0.5 - f * line.theDy)), rounded(line.theDx * f));
        for (const QPoint& end : {line.theStart, line.theEnd})
            lines << QLine(end, PointMath::sum(end, tick)) << QLine(end, PointMath::difference(end, tick));
    }
    aPainter.drawLines(lines.constData(), int(lines.size()));
}

void LmCvDimension::drawHandles(QPainter& aPainter) const
{
    const int side = PointMath::cut(2.0 * theCtrlRad);
    aPainter.setBrush(Qt::white);
    for (const QPoint& centre : theCtrlPoints) {
        const QPoint corner = PointMath::cut(centre.x() - theCtrlRad, centre.y() - theCtrlRad);
        aPainter.drawEllipse(QRectF(corner, QSizeF(side, side)));
    }
}
