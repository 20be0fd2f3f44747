// The current object in the table and on the canvas, and headings that the user moves.
#include "LmCvManipMeasure.h"

#include "LmCvEditor.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "LmKsMeasureWidget.h"

#include <QScopedValueRollback>
#include <QSignalBlocker>

LmCvManipMeasure::Measured LmCvManipMeasure::findMeasured(const QString& aRowKey) const
{
    const auto key = theRowKeys.constFind(aRowKey);
    if (key == theRowKeys.constEnd())
        return {};
    LmCvManipulator* tool = theKernelData->getCvManipulator(key->first);
    return {tool, tool ? tool->getCvObject(key->second) : nullptr};
}

void LmCvManipMeasure::slotTableCurrentChanged(int aRow, int)
{
    LmCvObject* item = findMeasured(theMeasureWidget->theTable->verticalHeader()->label(aRow)).theItem;
    if (!item || !theCvEditor)
        return;
    {
        const QScopedValueRollback<bool> selfChange(theSelfChange, true);
        makeItemCurrent(item);
        theCvEditor->getCanvas()->update();
    }
    if (item->theManipulator)
        showCalcTable(item->theManipulator->getObjectName(item));
}

void LmCvManipMeasure::slotCanvasObjectCurrent(LmCvObject* aItem)
{
    if (theSelfChange)
        return;
    Q3Table* table = theMeasureWidget->theTable;
    const int row = aItem ? findRowInTable(aItem) : -1;
    if (row < 0) {
        table->clearSelection(true);
        return;
    }
    {
        const QSignalBlocker blocker(table);
        table->selectRow(row);
        table->setCurrentCell(row, 0);
    }
    showCalcTable(aItem->theManipulator->getObjectName(aItem));
}

// The cells stay as they are; later values go by the new order.
void LmCvManipMeasure::slotColumnMoved(int, int aFromPosition, int aToPosition)
{
    fillStaleCalcTables();
    theCells.moveColumn(aFromPosition, aToPosition);
    const Q3Table* table = theMeasureWidget->theTable;
    const Q3Header* header = table->horizontalHeader();
    theColumnNames.clear();
    for (int position = 0; position < table->numCols(); ++position) {
        const QString label = header->label(header->mapToSection(position));
        if (!label.isNull())
            theColumnNames.append(label);
    }
}
