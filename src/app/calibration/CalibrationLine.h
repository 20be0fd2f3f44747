#ifndef CALIBRATIONLINE_H
#define CALIBRATIONLINE_H

#include "Q3CanvasLine.h"

/// The line that is stretched between the two clicks of a calibration: dashes of black and white, so that it
/// can be seen on every picture, with a cross bar at both ends.
class CalibrationLine : public Q3CanvasLine
{
public:
    /// aZoom is that of the view; the line's parts keep their size on the screen.
    CalibrationLine(Q3Canvas* aCanvas, const QPoint& aPoint, double aZoom);
    ~CalibrationLine() override;

    void setEnd(const QPoint& aPoint);
    void setZoom(double aZoom);
    double length() const;

    Q3PointArray areaPoints() const override;

protected:
    void drawShape(QPainter& aPainter) override;

private:
    double theZoom;
};

#endif
