#include "CurvePoints.h"

#include <algorithm>
#include <cmath>

namespace {

using Sample = std::vector<ValueSample>::const_iterator;

Sample firstShown(const ValueSeries& aSeries, const CurvePoints::Extent& aExtent)
{
    return std::partition_point(
        aSeries.theSamples.begin(), aSeries.theSamples.end(),
        [&](const ValueSample& aSample) { return aExtent.theX(aSample.theFrame) < aExtent.theFirst; });
}

Sample behindShown(const ValueSeries& aSeries, const CurvePoints::Extent& aExtent)
{
    return std::partition_point(
        aSeries.theSamples.begin(), aSeries.theSamples.end(),
        [&](const ValueSample& aSample) { return aExtent.theX(aSample.theFrame) <= aExtent.theLast; });
}

QPointF point(const ValueSample& aSample, const CurvePoints::Extent& aExtent)
{
    return QPointF(aExtent.theX(aSample.theFrame), aSample.theValue);
}

bool isLess(const ValueSample& aOne, const ValueSample& aOther)
{
    return aOne.theValue < aOther.theValue;
}

/// The samples from aFrom to aTo stand in one column.
void addColumn(Sample aFrom, Sample aTo, const CurvePoints::Extent& aExtent, QList<QPointF>& aLine)
{
    const auto [least, greatest] = std::minmax_element(aFrom, aTo, &isLess);
    const Sample places[] = {aFrom, std::min(least, greatest), std::max(least, greatest), std::prev(aTo)};
    Sample before = aTo;
    for (const Sample& place : places) {
        if (place != before)
            aLine.append(point(*place, aExtent));
        before = place;
    }
}

} // namespace

int CurvePoints::Extent::columnOf(int aFrame) const
{
    const double part = (theX(aFrame) - theFirst) / (theLast - theFirst);
    return int(std::floor(std::clamp(part, -1.0, 2.0) * theColumns));
}

QList<QList<QPointF>> CurvePoints::lines(const ValueSeries& aSeries, const Extent& aExtent)
{
    Sample from = firstShown(aSeries, aExtent);
    Sample to = behindShown(aSeries, aExtent);
    if (from != aSeries.theSamples.begin())
        --from;
    if (to != aSeries.theSamples.end())
        ++to;
    QList<QList<QPointF>> lines;
    int lastColumn = 0;
    while (from != to) {
        const int column = aExtent.columnOf(from->theFrame);
        const Sample behind = std::find_if(from, to, [&](const ValueSample& aSample) {
            return aExtent.columnOf(aSample.theFrame) != column;
        });
        if (lines.isEmpty() || (!from->theJoined && column - lastColumn > 1))
            lines.append(QList<QPointF>());
        addColumn(from, behind, aExtent, lines.last());
        lastColumn = column;
        from = behind;
    }
    return lines;
}

QList<QPointF> CurvePoints::keyframes(const ValueSeries& aSeries, const Extent& aExtent, int aDistance)
{
    QList<QPointF> points;
    int lastColumn = 0;
    const Sample to = behindShown(aSeries, aExtent);
    for (Sample sample = firstShown(aSeries, aExtent); sample != to; ++sample) {
        if (!sample->theKeyframe)
            continue;
        const int column = aExtent.columnOf(sample->theFrame);
        if (!points.isEmpty() && column - lastColumn < aDistance)
            continue;
        points.append(point(*sample, aExtent));
        lastColumn = column;
    }
    return points;
}
