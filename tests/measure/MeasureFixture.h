#ifndef MEASUREFIXTURE_H
#define MEASUREFIXTURE_H

#include "FakeTool.h"
#include "LmCvManipAngle.h"
#include "LmCvManipDim.h"
#include "LmCvManipDist.h"
#include "LmCvManipMeasure.h"
#include "LmCvManipRegion.h"
#include "LmKsMeasureWidget.h"
#include "ToolFixture.h"

#include <QMainWindow>

/// The measurement window with its slots open to tests.
class OpenMeasure : public LmCvManipMeasure
{
public:
    using LmCvManipMeasure::LmCvManipMeasure;
    using LmCvManipMeasure::slotAfterCalibrationChangedInKernel;
    using LmCvManipMeasure::slotCanvasObjectCurrent;
    using LmCvManipMeasure::slotFrameReadyStopInKernel;
    using LmCvManipMeasure::slotManipulatorsLoadedInKernel;
    using LmCvManipMeasure::slotObjectBeforeRemoveInKernel;
    using LmCvManipMeasure::slotObjectChangedInKernel;
    using LmCvManipMeasure::slotObjectCreatedInKernel;
    using LmCvManipMeasure::slotObjectRemovedInKernel;
    using LmCvManipMeasure::slotTableCurrentChanged;
};

/// The measurement window in a main window on screen, without any tool yet.
class MeasureFixture : public ToolFixture
{
public:
    MeasureFixture();
    ~MeasureFixture();

    /// Starts the tools in this order, then the measurement window, and tells it that all are loaded. Region
    /// draws with its pen.
    void load(const QList<LmCvManipulator*>& aTools);
    /// Without telling that they are loaded.
    void loadSilently(const QList<LmCvManipulator*>& aTools);
    void showWindow();

    // Drawing with the real tools.
    void drawDistance(const QPoint& aFrom, const QPoint& aTo);
    void drawAngle(const QPoint& aVertex, const QPoint& aEnd1, const QPoint& aEnd2);
    /// A height from aTop down and level widths of these lengths.
    void drawDimension(const QPoint& aTop, int aHeight, const QList<int>& aWidths = {});
    void drawSquare(const QPoint& aCorner, int aSide);
    void hover(const QPoint& aCanvasPoint);

    // The object table as it stands on the screen.
    Q3Table& table() const { return *theMeasure->theMeasureWidget->theTable; }
    QTabWidget& tabs() const { return *theMeasure->theMeasureWidget->theTabType; }
    Q3Table& calcTable(const QString& aTypeName) const;
    static QStringList columns(const Q3Table& aTable);
    static QStringList row(const Q3Table& aTable, int aRow);
    QStringList columns() const { return columns(table()); }
    QStringList row(int aRow) const { return row(table(), aRow); }
    QStringList rowKeys() const;
    QString cell(const QString& aRowKey, const QString& aColumn) const;
    /// Average, Min, Max and Std dev. of a value.
    QStringList statistics(const QString& aTypeName, const QString& aColumn) const;
    static void moveColumn(Q3Table& aTable, const QString& aLabel, int aPosition);
    void moveColumn(const QString& aLabel, int aPosition) { moveColumn(table(), aLabel, aPosition); }
    /// The row that is selected, -1 for none; the test fails at several.
    int selectedRow() const;
    QString currentTab() const { return tabs().tabText(tabs().currentIndex()); }

    LmCvManipDist theDistance{nullptr};
    LmCvManipRegion theRegion{nullptr};
    LmCvManipAngle theAngle{nullptr};
    LmCvManipDim theDimension{nullptr};
    QMainWindow theWindow;
    OpenMeasure* theMeasure; // owned by the window

private:
    static int positionOf(const Q3Table& aTable, const QString& aLabel);
    void hold(LmCvManipulator& aTool);
};

#endif
