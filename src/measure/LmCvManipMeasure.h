#ifndef LMCVMANIPMEASURE_H
#define LMCVMANIPMEASURE_H

#include "LmCvManipulator.h"
#include "MeasuredCells.h"
#include "RowIndex.h"

class LmKsMeasureWidget;
class Q3Table;
class QIODevice;
class QTextStream;

/// The tool "Measure_window". It draws nothing: it owns the window in which every object of every measuring
/// tool has a row with its values, and every type of object a tab with their statistics.
///
/// A row is tied to its object by the text of its heading alone, the row key ("Region 3"). Columns are value
/// names, merged over the tools, and a last blank one that fills the rest of the width.
class LmCvManipMeasure : public LmCvManipulator
{
    Q_OBJECT

public:
    explicit LmCvManipMeasure(QObject* aParent);
    ~LmCvManipMeasure() override;

    void initManipulator(QToolBar* aToolBar) override;
    void setCvEditor(LmCvEditor* aEditor) override;

    /// The row of an object, or -1. The type isn't looked at.
    int findRowInTable(int aType, int aIdx, LmCvManipulator* aTool) const;
    int findRowInTable(const LmCvObject* aItem) const;
    /// Writes the values of a record, one for each of theColumnNames; nothing for a row that isn't there.
    void updateDataInRow(int aRow, LmCvManipulator* aTool, const LmKernelObjectData* aRecord);
    /// Removes the columns in which no cell is filled any more.
    void removeEmptyColumn();
    /// Fills a table of statistics from what the object table shows of the type.
    void updateDataInCalcTable(Q3Table* aTable, LmCvManipulator* aTool, const QString& aTypeName);
    /// Writes the values of all rows as tab-separated text in the locale's encoding; false if the file can't
    /// be opened.
    bool saveDataAsText(const QString& aPath);
    /// The same to an open device. Also called by name, by a program that doesn't know this class.
    Q_INVOKABLE void writeDataAsText(QIODevice* aDevice);

    LmKsMeasureWidget* theMeasureWidget = nullptr; // owned by the dock
    QCursor theMeasureCursor;                      // shown by nobody
    QStringList theColumnNames;                    // in the order of the screen, the blank one included
    QMap<QString, QPair<int, int>> theRowKeys;     // row key to type and index
    QMap<QString, Q3Table*> theCalcTables;         // type name to statistics; owned by the tabs

protected Q_SLOTS:
    void slotAfterCalibrationChangedInKernel(const QString& aName, const LmCalibData& aData);
    void slotObjectShowInKernel(const int aType, const int aIdx, bool aShown);
    void slotObjectCreatedInKernel(const int aType, const int aIdx, const LmKernelObjectData* aData);
    void slotObjectBeforeRemoveInKernel(const int aType, const int aIdx);
    void slotObjectRemovedInKernel(const int aType, const int aIdx);
    void slotObjectChangedInKernel(const int aType, const int aIdx, const LmKernelObjectData* aData);
    void slotFrameReadyStopInKernel(Int64 aFrame);
    void slotManipulatorsLoadedInKernel();
    void slotCanvasObjectCurrent(LmCvObject* aItem);
    void slotTableCurrentChanged(int aRow, int aPosition);
    void slotColumnMoved(int aSection, int aFromPosition, int aToPosition);
    void slotExportData();
    void slotContextMenu(const QPoint& aGlobalPos, const int aRow);

private:
    // Of getCvObjectFlags.
    enum Flag { kFollowsFramesFlag = 128, kMeasuredFlag = 512 };
    static constexpr int kManyRows = 100; // from here on statistics wait until they are read

    struct Measured
    {
        LmCvManipulator* theTool = nullptr;
        LmCvObject* theItem = nullptr; // null where there is no object
    };

    void makeDock();
    void makeCalcTable(LmCvManipulator& aTool, const QString& aTypeName);
    LmCvManipulator* measuringTool(int aType) const; // null for a type that has no place in this window
    Measured findMeasured(const QString& aRowKey) const;
    int findRow(const QString& aName, int aIdx) const;
    void mergeColumns(const LmCvManipulator& aTool);
    void appendRow(const QString& aRowKey, int aType, int aIdx);
    void removeRow(int aRow);
    void setColumnCount(int aCount);
    void setCell(int aRow, int aPosition, const QString& aText);
    void updateAllOf(int aType, LmCvManipulator* aTool);
    void refreshCalcTable(const QString& aTypeName);
    void fillStaleCalcTables() const;
    void fillWhenRead(Q3Table* aTable, const QString& aTypeName);
    void showCalcTable(const QString& aTypeName);
    void rewriteRows(int aFlags, bool aOnlyAnimated);
    void act(int aEntry, const QString& aRowKey, const QPoint& aGlobalPos);
    void writeRow(QTextStream& aStream, const QString& aRowKey);
    bool askForExportFile(QString& aPath);

    MeasuredCells theCells; // what theTable shows, as numbers
    RowIndex theRows;
};

#endif
