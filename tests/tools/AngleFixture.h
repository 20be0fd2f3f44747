#ifndef ANGLEFIXTURE_H
#define ANGLEFIXTURE_H

#include "LmCvAngle.h"
#include "LmCvManipAngle.h"
#include "LmParamKeyframeVector.h"
#include "ObjectFixture.h"

class AngleFixture : public ObjectFixture<LmCvManipAngle, LmCvAngle>
{
public:
    enum Param { kVis, kCol, kDispv, kPos, kEp1, kEp2 };

    QPoint pos(int aIdx) const { return storedPoint(aIdx, kPos); }
    QPoint ep1(int aIdx) const { return storedPoint(aIdx, kEp1); }
    QPoint ep2(int aIdx) const { return storedPoint(aIdx, kEp2); }
    QList<QPoint> storedPoints(int aIdx) const { return {pos(aIdx), ep1(aIdx), ep2(aIdx)}; }
    QList<QPoint> canvasPoints(int aIdx) const { return pointsOf(*item(aIdx)); }
    static QList<QPoint> pointsOf(const LmCvAngle& aItem)
    {
        return {aItem.theVertex, aItem.theEnd1, aItem.theEnd2};
    }

    /// Moves with no button held.
    void hover(const QPoint& aCanvasPoint, Qt::KeyboardModifiers aModifiers = {});
    /// Both strokes.
    void draw(const QPoint& aVertex, const QPoint& aEnd1, const QPoint& aEnd2);
    /// The first stroke alone: both arms end there.
    void startDrawing(const QPoint& aVertex, const QPoint& aEnd) { drag(aVertex, aEnd); }
    /// Writes a keyframe of the angle into a record, image coordinates.
    void setKeyframe(int aIdx, long long aFrame, const QPoint& aPos, const QPoint& aEp1, const QPoint& aEp2);
};

#endif
