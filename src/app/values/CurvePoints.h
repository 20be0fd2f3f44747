#ifndef CURVEPOINTS_H
#define CURVEPOINTS_H

#include "ValueSeries.h"

#include <QList>
#include <QPointF>

#include <functional>

/// What of a series has to be drawn so that it looks like the whole. Pure arithmetic.
namespace CurvePoints {

/// The part of the axis that is shown, and how many columns of pixels it has.
struct Extent
{
    /// Where a frame stands on the axis; never descending.
    std::function<double(int)> theX;
    double theFirst = 0.0;
    double theLast = 1.0;
    int theColumns = 1;

    int columnOf(int aFrame) const;
};

/// Lines through the samples, broken where values are missing for a column or more. Of the samples in one
/// column the first, the least, the greatest and the last are there, in their order. Beside the shown part
/// one sample on either side is there, so that lines run out of the picture.
QList<QList<QPointF>> lines(const ValueSeries& aSeries, const Extent& aExtent);

/// The samples with a keyframe inside the shown part, none nearer to the one before than so many columns.
QList<QPointF> keyframes(const ValueSeries& aSeries, const Extent& aExtent, int aDistance);

} // namespace CurvePoints

#endif
