#ifndef REGIONFIXTURE_H
#define REGIONFIXTURE_H

#include "LmCvManipRegion.h"
#include "LmCvRegion.h"
#include "ObjectFixture.h"

#include <QPolygon>

/// The tool is current with its pen.
class RegionFixture : public ObjectFixture<LmCvManipRegion, LmCvRegion>
{
public:
    enum Param { kVis, kCol, kDispv, kClosed, kPoints, kStates, kPos };

    void pickPen();
    void pickPencil();
    /// The pencil with its menu entries.
    void pickPencil(bool aSmooth, bool aAutoShape);

    QPoint pos(int aIdx) const { return storedPoint(aIdx, kPos); }
    QPolygon points(int aIdx) const { return stored(kType, aIdx, kPoints).value<QPolygon>(); }
    bool isClosed(int aIdx) const { return stored(kType, aIdx, kClosed).toBool(); }
    /// The anchors of the item, canvas points.
    QList<QPoint> anchors(int aIdx) const;
    /// Whether the record says what the item shows, up to the region of interest.
    bool recordIsItem(int aIdx) const;

    /// Clicks one node after the other with the tool in the hand.
    void clickAll(const QList<QPoint>& aCanvasPoints);
    /// Presses at the first point, moves over all and releases at the last.
    void stroke(const QList<QPoint>& aCanvasPoints);
    /// A move of the mouse with no button down.
    void hover(const QPoint& aCanvasPoint, Qt::KeyboardModifiers aModifiers = {});
    void rightClick(const QPoint& aCanvasPoint);
};

#endif
