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
};

Q_DECLARE_METATYPE(Q3PointArray)

#endif
