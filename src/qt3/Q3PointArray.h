#ifndef Q3POINTARRAY_H
#define Q3POINTARRAY_H

#include <QMetaType>
#include <QPolygon>

/// A list of integer points: a QPolygon under the name that the tools use.
class Q3PointArray : public QPolygon
{
public:
    using QPolygon::QPolygon;
    Q3PointArray() = default;
    Q3PointArray(const QPolygon& aPolygon) : QPolygon(aPolygon) {}

    /// The cubic Bezier curve of the first four points as a polyline of rounded points, within half a pixel
    /// of the curve that a painter draws. It begins with the first and ends with the fourth point, also where
    /// the whole curve is one point (then both); otherwise no point is repeated next to itself. Empty for
    /// fewer than four points.
    Q3PointArray cubicBezier() const;
};

Q_DECLARE_METATYPE(Q3PointArray)

#endif
