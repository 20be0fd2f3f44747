#ifndef STATUSINFO_H
#define STATUSINFO_H

#include <QList>
#include <QObject>
#include <QPoint>

class CalibrationTool;
class LmCvEditor;
class LmCvManipulator;
class Media;
class QLabel;
class QStatusBar;

/// The status bar: what to do next on the left; on the right the pixel under the pointer with its colour, the
/// zoom, the calibration and the frame.
class StatusInfo : public QObject
{
    Q_OBJECT

public:
    StatusInfo(QStatusBar& aBar, const LmCvEditor& aEditor, const Media& aMedia, const CalibrationTool& aTool,
               QObject* aParent);

    /// Shows the hints of the tools, and for a while what they have done.
    void listenTo(const QList<LmCvManipulator*>& aTools);
    void updateCalibration();
    /// The place in picture pixels and, where the picture is calibrated, in its unit.
    static QString positionText(const QPoint& aImagePoint);

private:
    QLabel* addField(QStatusBar& aBar, const QString& aName, const QString& aTitle,
                     const QString& aWidestText);
    QString hint() const;
    void updateHint();
    void showPointer(const QPoint& aCanvasPoint);
    void hidePointer();
    void showZoom(double aZoom);
    void updateFrame();
    void updateRegion();

    QStatusBar& theBar;
    const LmCvEditor& theEditor;
    const Media& theMedia;
    const CalibrationTool& theCalibrationTool;
    QLabel* theHint;
    QLabel* thePosition;
    QLabel* theColor;
    QLabel* theZoom;
    QLabel* theCalibration;
    QLabel* theRegion;
    QLabel* theFrame;
    QPoint thePointer; // canvas
    bool thePointerInside = false;
};

#endif
