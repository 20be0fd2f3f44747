#ifndef REGIONOFINTERESTTOOL_H
#define REGIONOFINTERESTTOOL_H

#include "GestureTool.h"

#include <QRect>

class RegionFrame;

/// Pulls a rectangle on the picture for the region of interest; Shift makes it a square. Esc drops the
/// rectangle and then leaves.
class RegionOfInterestTool : public GestureTool
{
    Q_OBJECT

public:
    /// Picture pixels; a region with a shorter side is a click that trembled.
    static constexpr int kMinSide = 4;

    RegionOfInterestTool(LmCvEditor& aEditor, QObject* aParent);
    ~RegionOfInterestTool() override;

    /// The pixels from one corner to the other, both included, as far as they lie within the bounds. A square
    /// has the longer of both ways as its side where the bounds have room for it.
    static QRect pulled(const QPoint& aFrom, const QPoint& aTo, bool aSquare, const QRect& aBounds);

    bool isRunning() const override { return theState != kOff; }
    QString hint() const override;

    void mousePressEvent(QMouseEvent* aEvent) override;
    void mouseMoveEvent(QMouseEvent* aEvent) override;
    void mouseReleaseEvent(QMouseEvent* aEvent) override;
    bool abortAction() override;

Q_SIGNALS:
    /// A rectangle in canvas coordinates; the tool has given its place back.
    void chosen(const QRect& aCanvasRect);

protected:
    void begin() override;
    void end() override;

private:
    enum State { kOff, kWaiting, kPulling };

    void setState(State aState);
    void removeFrame();
    void take(const QRect& aCanvasRect);

    State theState = kOff;
    QPoint theFrom;                  // canvas
    QRect theRect;                   // canvas
    RegionFrame* theFrame = nullptr; // owned by the canvas
};

#endif
