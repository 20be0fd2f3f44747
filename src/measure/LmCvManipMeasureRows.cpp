// The rows and columns of the object table, and how they follow the kernel.
#include "LmCvManipMeasure.h"

#include "CellText.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "LmKsMeasureWidget.h"

#include <QLinkedList>
#include <QSignalBlocker>

#include <algorithm>

namespace {

const QString kBlank = QStringLiteral(" ");

QString rowKey(const QString& aName, int aIdx)
{
    return aName + QLatin1Char(' ') + QString::number(aIdx);
}

} // namespace

int LmCvManipMeasure::findRow(const QString& aName, int aIdx) const
{
    return aName.isEmpty() ? -1 : theRows.find(rowKey(aName, aIdx));
}

int LmCvManipMeasure::findRowInTable(int, int aIdx, LmCvManipulator* aTool) const
{
    return aTool ? findRow(aTool->getObjectName(aIdx), aIdx) : -1;
}

int LmCvManipMeasure::findRowInTable(const LmCvObject* aItem) const
{
    LmCvManipulator* tool = aItem->theManipulator;
    const int index = tool ? tool->getObjectIdx(aItem) : -1;
    return index < 0 ? -1 : findRow(tool->getObjectName(aItem), index);
}

void LmCvManipMeasure::setCell(int aRow, int aPosition, const QString& aText)
{
    Q3Table* table = theMeasureWidget->theTable;
    if (table->text(aRow, aPosition) == aText)
        return;
    table->setText(aRow, aPosition, aText);
    theCells.setCell(aRow, aPosition, aText);
}

void LmCvManipMeasure::updateDataInRow(int aRow, LmCvManipulator* aTool, const LmKernelObjectData* aRecord)
{
    QStringList units;
    const QLinkedList<QVariant> values = aTool->getValues(theColumnNames, aRecord, units);
    int position = 0;
    for (const QVariant& value : values) {
        setCell(aRow, position, CellText::ofValue(value, units.value(position)));
        ++position;
    }
}

void LmCvManipMeasure::updateAllOf(int aType, LmCvManipulator* aTool)
{
    fillStaleCalcTables();
    const QMap<int, LmKernelObjectData*> records = theKernelData->getObjectsOfType(aType);
    for (auto it = records.cbegin(); it != records.cend(); ++it)
        if (const int row = findRowInTable(aType, it.key(), aTool); row >= 0)
            updateDataInRow(row, aTool, it.value());
}

void LmCvManipMeasure::setColumnCount(int aCount)
{
    theMeasureWidget->theTable->setNumCols(aCount);
    theCells.setColumnCount(aCount);
}

/// Adds the tool's value names in front of the blank column. Where all are there already and the blank column
/// is as it should be nothing is to do: taking it out and putting it back would touch every row.
void LmCvManipMeasure::mergeColumns(const LmCvManipulator& aTool)
{
    Q3Table* table = theMeasureWidget->theTable;
    const auto isNew = [this](const QString& aName) {
        return !aName.isEmpty() && !theColumnNames.contains(aName);
    };
    const bool endsBlank = !theColumnNames.isEmpty() && theColumnNames.last() == kBlank;
    const auto changes = [&](const QString& aName) { return aName == kBlank || isNew(aName); };
    if (endsBlank && theColumnNames.count(kBlank) == 1 &&
        !theCells.isFilled(int(theColumnNames.size()) - 1) &&
        std::none_of(aTool.theValueNames.begin(), aTool.theValueNames.end(), changes))
        return;
    fillStaleCalcTables();
    if (endsBlank) {
        const int last = int(theColumnNames.size()) - 1;
        table->setColumnStretchable(last, false);
        table->removeColumn(last);
        setColumnCount(last);
        theColumnNames.removeAll(kBlank);
    }
    std::copy_if(aTool.theValueNames.begin(), aTool.theValueNames.end(), std::back_inserter(theColumnNames),
                 isNew);
    theColumnNames.append(kBlank);
    const int count = int(theColumnNames.size());
    setColumnCount(count);
    table->setColumnLabels(theColumnNames);
    table->setColumnStretchable(count - 1, true);
}

void LmCvManipMeasure::appendRow(const QString& aRowKey, int aType, int aIdx)
{
    Q3Table* table = theMeasureWidget->theTable;
    const int row = table->numRows();
    table->setNumRows(row + 1);
    table->setRowStretchable(row, false);
    table->verticalHeader()->setLabel(row, aRowKey);
    theRows.append(aRowKey);
    theCells.appendRow(aRowKey.section(QLatin1Char(' '), 0, 0));
    theRowKeys.insert(aRowKey, {aType, aIdx});
}

void LmCvManipMeasure::removeRow(int aRow)
{
    Q3Table* table = theMeasureWidget->theTable;
    const QString key = table->verticalHeader()->label(aRow);
    theRowKeys.remove(key);
    theRows.remove(aRow, key);
    theCells.removeRow(aRow);
    const QSignalBlocker blocker(table);
    table->removeRow(aRow);
}

void LmCvManipMeasure::slotObjectCreatedInKernel(const int aType, const int aIdx,
                                                 const LmKernelObjectData* aData)
{
    LmCvManipulator* tool = measuringTool(aType);
    if (!tool)
        return;
    Q3Table* table = theMeasureWidget->theTable;
    const QString name = tool->getObjectName(aIdx);
    {
        const QSignalBlocker blocker(table);
        mergeColumns(*tool);
        if (name.isEmpty())
            return;
        const int row = table->numRows();
        appendRow(rowKey(name, aIdx), aType, aIdx);
        if (tool->allObjectsNeedRecalc())
            updateAllOf(aType, tool);
        updateDataInRow(row, tool, aData);
        table->selectRow(row);
    }
    refreshCalcTable(name);
    showCalcTable(name);
}

void LmCvManipMeasure::slotObjectChangedInKernel(const int aType, const int aIdx,
                                                 const LmKernelObjectData* aData)
{
    LmCvManipulator* tool = measuringTool(aType);
    const int row = findRowInTable(aType, aIdx, tool);
    if (row < 0)
        return;
    if (tool->allObjectsNeedRecalc())
        updateAllOf(aType, tool);
    else
        updateDataInRow(row, tool, aData);
    refreshCalcTable(tool->getObjectName(aIdx));
}

void LmCvManipMeasure::slotObjectBeforeRemoveInKernel(const int aType, const int aIdx)
{
    LmCvManipulator* tool = measuringTool(aType);
    const int row = findRowInTable(aType, aIdx, tool);
    if (row < 0)
        return;
    removeRow(row);
    refreshCalcTable(tool->getObjectName(aIdx));
    Q3Table* table = theMeasureWidget->theTable;
    if (table->numRows() == 0)
        return;
    const int neighbour = std::min(row, table->numRows() - 1);
    table->selectRow(neighbour);
    slotTableCurrentChanged(neighbour, 0);
}

void LmCvManipMeasure::slotObjectRemovedInKernel(const int aType, const int)
{
    LmCvManipulator* tool = measuringTool(aType);
    if (!tool)
        return;
    if (tool->allObjectsNeedRecalc())
        updateAllOf(aType, tool);
    removeEmptyColumn();
}

void LmCvManipMeasure::removeEmptyColumn()
{
    Q3Table* table = theMeasureWidget->theTable;
    const Q3Header* header = table->horizontalHeader();
    const int count = table->numCols();
    QLinkedList<QPair<int, QString>> empty;
    for (int position = 0; position < count; ++position) {
        const QString label = header->label(header->mapToSection(position));
        if (label != kBlank && !theCells.isFilled(position))
            empty.append({position, label});
    }
    if (empty.isEmpty())
        return;
    fillStaleCalcTables();
    Q3MemArray<int> positions;
    for (const auto& [position, label] : empty) {
        theColumnNames.removeAll(label);
        positions.append(position);
    }
    table->removeColumns(positions);
    for (auto position = positions.crbegin(); position != positions.crend(); ++position)
        theCells.removeColumn(*position);
    setColumnCount(count - int(empty.size()));
}

void LmCvManipMeasure::slotAfterCalibrationChangedInKernel(const QString&, const LmCalibData&)
{
    rewriteRows(kMeasuredFlag, false);
}

// The window follows a video only when it stops. Still objects keep their rows.
void LmCvManipMeasure::slotFrameReadyStopInKernel(Int64)
{
    rewriteRows(kMeasuredFlag | kFollowsFramesFlag, true);
}

/// Writes the rows of all objects or of the animated ones anew, over all tools with the flags, and their
/// statistics.
void LmCvManipMeasure::rewriteRows(int aFlags, bool aOnlyAnimated)
{
    for (auto type = theKernelData->theObjects.cbegin(); type != theKernelData->theObjects.cend(); ++type) {
        LmCvManipulator* tool = measuringTool(type.key());
        if (!tool || (tool->getCvObjectFlags(nullptr) & aFlags) != aFlags)
            continue;
        for (auto record = type->cbegin(); record != type->cend(); ++record)
            if ((*record)->theAnimated || !aOnlyAnimated)
                updateDataInRow(findRowInTable(type.key(), record.key(), tool), tool, *record);
        const QStringList typeNames = tool->getObjectTypeNames();
        for (const QString& typeName : typeNames)
            refreshCalcTable(typeName);
    }
}

// A hidden object keeps its row and counts like any other.
void LmCvManipMeasure::slotObjectShowInKernel(const int, const int, bool) {}
