#ifndef REGIONSCENE_H
#define REGIONSCENE_H

#include "BenchScene.h"

#include <QEvent>
#include <QPolygon>

#include <memory>

class LmCvManipulator;

/// A workbench with regions instead of distances and the Region tool in the hand. Mouse events go to the
/// viewport at canvas points.
class RegionScene : public BenchScene
{
public:
    static constexpr int kRegion = 1103; // object type
    static constexpr int kNodes = 10;    // of each region of a canvas of many

    /// Spread over the picture, 60 to 300 pixels wide and high; the one in the middle of the list is current.
    explicit RegionScene(int aCount, bool aAnimated = false);
    /// One region nearly as large as the picture.
    static std::unique_ptr<RegionScene> ofOne(int aNodes);

    void createRegions(int aCount, bool aAnimated = false);
    LmCvManipulator& tool();
    // As the record has them.
    int nodeCount(int aIdx);
    QPoint firstAnchor(int aIdx);
    void pickPencil(bool aSmooth, bool aAutoShape);

    void press(const QPoint& aCanvasPoint) { send(QEvent::MouseButtonPress, aCanvasPoint); }
    void move(const QPoint& aCanvasPoint) { send(QEvent::MouseMove, aCanvasPoint); }
    void release(const QPoint& aCanvasPoint) { send(QEvent::MouseButtonRelease, aCanvasPoint); }

    int theCurrent = 0;

private:
    QVariant stored(int aIdx, int aParam);
    QPolygon points(int aIdx);
    void add(const QPolygon& aPoints, const QPoint& aPos, bool aAnimated);
    void take(int aIdx);
    void send(QEvent::Type aType, const QPoint& aCanvasPoint);
};

#endif
