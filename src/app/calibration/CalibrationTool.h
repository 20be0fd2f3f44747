#ifndef CALIBRATIONTOOL_H
#define CALIBRATIONTOOL_H

#include "GestureTool.h"

class CalibrationLine;

/// Measures a way on the picture for a calibration: two clicks with a line between them that follows the
/// mouse, or one drag. Shift snaps to the eight main directions.
class CalibrationTool : public GestureTool
{
    Q_OBJECT

public:
    CalibrationTool(LmCvEditor& aEditor, QObject* aParent);
    ~CalibrationTool() override;

    bool isRunning() const override { return theState != kOff; }
    /// What the user is to do next.
    QString hint() const override;

    void mousePressEvent(QMouseEvent* aEvent) override;
    void mouseMoveEvent(QMouseEvent* aEvent) override;
    void mouseReleaseEvent(QMouseEvent* aEvent) override;
    bool abortAction() override;

Q_SIGNALS:
    /// A way was chosen, its length in picture pixels; the line stays until finish().
    void measured(double aPixels);

protected:
    void begin() override;
    void end() override;

private:
    enum State {
        kOff,
        kWantFirst,
        kWantSecond,
        kDone // the line stands, the dialog asks for its length
    };

    void setState(State aState);
    void startLine(const QPoint& aCanvasPoint);
    void takeSecond();
    void removeLine();
    bool isLongEnough() const;

    State theState = kOff;
    CalibrationLine* theLine = nullptr; // owned by the canvas
};

#endif
