#include "Q3PointArray.h"

#include <QPainterPath>

Q3PointArray Q3PointArray::cubicBezier() const
{
    Q3PointArray line;
    if (size() < 4)
        return line;
    QPainterPath curve(at(0));
    curve.cubicTo(at(1), at(2), at(3));
    line << at(0);
    // A curve of four equal points is no part of a path, so there may be no polygon.
    for (const QPolygonF& piece : curve.toSubpathPolygons())
        for (const QPointF& exact : piece)
            if (const QPoint point = exact.toPoint(); point != line.constLast())
                line << point;
    if (line.size() == 1)
        line << at(3);
    return line;
}
