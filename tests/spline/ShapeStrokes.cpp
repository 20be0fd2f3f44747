#include "ShapeStrokes.h"

#include <QtMath>

#include <algorithm>
#include <limits>

namespace {

/// The place on a closed outline around the origin at a share of its way, from 0 to 1.
QPointF onEllipse(const QSizeF& aSize, double aShare)
{
    const double angle = 2.0 * M_PI * aShare;
    return QPointF(0.5 * aSize.width() * std::cos(angle), 0.5 * aSize.height() * std::sin(angle));
}

// From the top left corner clockwise.
QPointF onRectangle(const QSizeF& aSize, double aShare)
{
    const double w = aSize.width();
    const double h = aSize.height();
    double way = aShare * 2.0 * (w + h);
    if (way <= w)
        return QPointF(way - 0.5 * w, -0.5 * h);
    way -= w;
    if (way <= h)
        return QPointF(0.5 * w, way - 0.5 * h);
    way -= h;
    if (way <= w)
        return QPointF(0.5 * w - way, 0.5 * h);
    return QPointF(-0.5 * w, 0.5 * h - (way - w));
}

// The place on the rectangle, pulled onto the corner's circle.
QPointF onRoundedRectangle(const QSizeF& aSize, double aRadius, double aShare)
{
    const QPointF place = onRectangle(aSize, aShare);
    const double innerX = std::max(0.5 * aSize.width() - aRadius, 0.0);
    const double innerY = std::max(0.5 * aSize.height() - aRadius, 0.0);
    const QPointF core(std::clamp(place.x(), -innerX, innerX), std::clamp(place.y(), -innerY, innerY));
    const QPointF way = place - core;
    const double length = std::hypot(way.x(), way.y());
    return length > aRadius ? core + way * (aRadius / length) : place;
}

template <typename Place>
QList<QPoint> sampled(const ShapeStrokes::Frame& aFrame, int aCount, Place aPlace)
{
    QList<QPoint> stroke;
    for (int i = 0; i < aCount; ++i)
        stroke << aFrame.map(aPlace(aFrame.theSize, double(i) / (aCount - 1))).toPoint();
    return stroke;
}

class Maker
{
public:
    explicit Maker(QRandomGenerator& aRandom) : theRandom(aRandom)
    {
        theFrame.theCentre = QPointF(between(-300.0, 1300.0), between(-300.0, 1100.0));
        theFrame.theSize = QSizeF(between(8.0, 600.0), between(8.0, 600.0));
        theFrame.theDegrees = theRandom.bounded(2) == 0 ? theRandom.bounded(19) * 5.0 : between(0.0, 90.0);
    }

    QList<QPoint> make(ShapeStrokes::Kind aKind, int aCount)
    {
        QList<QPoint> stroke;
        for (int i = 0; i < aCount; ++i) {
            wobble();
            if (aKind == ShapeStrokes::kHuge)
                stroke << anywhere();
            else
                stroke
                    << (theFrame.map(at(aKind, theWay * i / std::max(aCount - 1, 1))) + theDrift).toPoint();
        }
        return stroke;
    }

private:
    double between(double aLow, double aHigh) { return aLow + theRandom.generateDouble() * (aHigh - aLow); }

    // A hand drifts off its line and comes back to it.
    void wobble() { theDrift = 0.7 * theDrift + QPointF(between(-1.0, 1.0), between(-1.0, 1.0)) * theWobble; }

    QPointF at(ShapeStrokes::Kind aKind, double aShare)
    {
        const QSizeF size = theFrame.theSize;
        const double share = aShare - std::floor(aShare);
        switch (aKind) {
        case ShapeStrokes::kEllipse:
            return onEllipse(size, aShare);
        case ShapeStrokes::kRectangle:
            return onRectangle(size, share);
        case ShapeStrokes::kRoundedRectangle:
            return onRoundedRectangle(size, theRoundness * std::min(size.width(), size.height()), share);
        case ShapeStrokes::kOpenArc:
            return onEllipse(size, theRoundness * aShare);
        case ShapeStrokes::kFigureOfEight:
            return QPointF(onEllipse(size, aShare).x(), onEllipse(size, 2.0 * aShare).y());
        case ShapeStrokes::kCusps: // four points, curved inward between them
            return QPointF(0.5 * size.width() * std::pow(std::cos(2.0 * M_PI * aShare), 3.0),
                           0.5 * size.height() * std::pow(std::sin(2.0 * M_PI * aShare), 3.0));
        case ShapeStrokes::kSpiral:
            return onEllipse(size * aShare, 3.0 * aShare);
        case ShapeStrokes::kStraightWithRepeats:
            return QPointF(std::floor(aShare * 20.0) * 5.0, 0.0);
        case ShapeStrokes::kFlat:
            return QPointF(onEllipse(size, aShare).x(), 0.0);
        case ShapeStrokes::kNoise:
            return QPointF(between(-0.5, 0.5) * size.width(), between(-0.5, 0.5) * size.height());
        case ShapeStrokes::kHuge:
        case ShapeStrokes::kKindCount:
            break;
        }
        return QPointF();
    }

    // Often at the very ends of what a coordinate holds.
    QPoint anywhere()
    {
        constexpr int kEnds[] = {std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), 0,
                                 1 << 30};
        const auto coordinate = [&] {
            return theRandom.bounded(2) == 0 ? kEnds[theRandom.bounded(4)] : int(theRandom.generate());
        };
        const int x = coordinate();
        return QPoint(x, coordinate());
    }

    QRandomGenerator& theRandom;
    ShapeStrokes::Frame theFrame;
    double theWobble = between(0.0, 1.5);
    double theRoundness = between(0.1, 0.9);
    double theWay = between(0.9, 1.06); // round the outline: short of the start, or a little past it
    QPointF theDrift;
};

} // namespace

QPointF ShapeStrokes::Frame::map(const QPointF& aOffset) const
{
    const double angle = qDegreesToRadians(theDegrees);
    return theCentre + QPointF(aOffset.x() * std::cos(angle) - aOffset.y() * std::sin(angle),
                               aOffset.x() * std::sin(angle) + aOffset.y() * std::cos(angle));
}

QList<QPoint> ShapeStrokes::ellipse(const Frame& aFrame, int aCount)
{
    return sampled(aFrame, aCount, onEllipse);
}

QList<QPoint> ShapeStrokes::rectangle(const Frame& aFrame, int aCount)
{
    return sampled(aFrame, aCount, onRectangle);
}

QList<QPoint> ShapeStrokes::roundedRectangle(const Frame& aFrame, double aRadius, int aCount)
{
    return sampled(aFrame, aCount, [aRadius](const QSizeF& aSize, double aShare) {
        return onRoundedRectangle(aSize, aRadius, aShare);
    });
}

QList<QPoint> ShapeStrokes::make(Kind aKind, int aCount, QRandomGenerator& aRandom)
{
    return Maker(aRandom).make(aKind, aCount);
}
