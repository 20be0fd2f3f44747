#ifndef CALIBRATIONTOOL_H
#define CALIBRATIONTOOL_H

#include "LmCvManipulator.h"

#include <QPointer>

class CalibrationLine;

/// Measures a way on the picture for a calibration: two clicks with a line between them that follows the
/// mouse, or one drag. Shift snaps to the eight main directions. It makes no objects and has no button among
/// the measuring tools.
class CalibrationTool : public LmCvManipulator
{
    Q_OBJECT

public:
    CalibrationTool(LmCvEditor& aEditor, QObject* aParent);
    ~CalibrationTool() override;

    /// Becomes the current tool and waits for the first click.
    void start();
    bool isRunning() const { return theState != kOff; }
    /// What the user is to do next.
    QString hint() const override;
    /// Takes the line away and gives the former tool back.
    void finish();

    void mousePressEvent(QMouseEvent* aEvent) override;
    void mouseMoveEvent(QMouseEvent* aEvent) override;
    void mouseReleaseEvent(QMouseEvent* aEvent) override;
    bool abortAction() override;

Q_SIGNALS:
    void hintChanged();
    /// A way was chosen, its length in picture pixels; the line stays until finish().
    void measured(double aPixels);

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
    void toolChanged(LmCvManipulator* aTool);

    State theState = kOff;
    CalibrationLine* theLine = nullptr; // owned by the canvas
    QPointer<LmCvManipulator> theFormerTool;
};

#endif
