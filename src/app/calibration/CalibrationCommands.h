#ifndef CALIBRATIONCOMMANDS_H
#define CALIBRATIONCOMMANDS_H

#include "LmCalibData.h"

#include <QObject>

class CalibrationTool;
class LmCvEditor;
class QActionGroup;
class QMenu;
class QUndoStack;
class QWidget;

/// Calibrating as the user does it: by a known length, by the size of a pixel, or by a calibration that has a
/// name already. Every change is one undo step; the menu always lists the named calibrations.
class CalibrationCommands : public QObject
{
    Q_OBJECT

public:
    CalibrationCommands(LmCvEditor& aEditor, QUndoStack& aStack, QMenu& aMenu, QWidget& aWindow);

    CalibrationTool& tool() { return *theTool; }

    /// Sets a calibration under the name and makes it current.
    void set(const QString& aName, const LmCalibData& aData);
    /// Makes a known calibration current, or none by an empty name.
    void makeCurrent(const QString& aName);
    /// False for an empty name and, after a message, for one that another calibration has.
    bool rename(const QString& aOldName, const QString& aNewName);
    void remove(const QString& aName);

    /// The current calibration as text for the status bar.
    static QString description();

public Q_SLOTS:
    void calibrateByLength();
    void calibrateByPixelSize();
    /// By the resolution noted in the file, which is that of the picture on the screen.
    void calibrateByResolution(const QString& aFile);
    void manage();

Q_SIGNALS:
    /// Another calibration is current, or its numbers are others.
    void changed();

private:
    void wayMeasured(double aPixels);
    void kernelChanged();
    void fillMenu();
    void addEntry(const QString& aText, const QString& aName, bool aCurrent);

    QUndoStack& theStack;
    QMenu& theMenu;
    QWidget& theWindow;
    CalibrationTool* theTool; // child
    QActionGroup* theEntries; // the named calibrations in the menu
};

#endif
