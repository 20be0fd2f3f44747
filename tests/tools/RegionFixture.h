#ifndef REGIONFIXTURE_H
#define REGIONFIXTURE_H

#include "LmCvManipRegion.h"
#include "LmCvRegion.h"
#include "ToolFixture.h"

#include <QPolygon>

/// A Region tool, started and current with its pen. Canvas point + (40, 30) is the image point.
class RegionFixture : public ToolFixture
{
public:
    static constexpr int kType = 1103;
    enum Param { kVis, kCol, kDispv, kClosed, kPoints, kStates, kPos };

    RegionFixture() { start(theTool); }
    // The tool goes before editor and stack; commands that are out of the kernel own their records.
    ~RegionFixture() { theStack.clear(); }

    void pickPen();
    void pickPencil();
    /// The pencil with its menu entries.
    void pickPencil(bool aSmooth, bool aAutoShape);

    // Both end the program with a message where there is none.
    LmCvRegion* item(int aIdx) const;
    LmKernelObjectData* record(int aIdx) const;
    bool hasRecord(int aIdx) const { return theKernel.getObject(kType, aIdx) != nullptr; }
    int recordCount() const { return int(theKernel.getObjectsOfType(kType).size()); }
    QPoint pos(int aIdx) const { return stored(kType, aIdx, kPos).toPoint(); }
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

    LmCvManipRegion theTool{nullptr};
};

#endif
