// The tables of statistics. They are made of what the object table shows, cut as it is.
#include "LmCvManipMeasure.h"

#include "CellText.h"
#include "LmKsMeasureWidget.h"

#include <QPointer>

namespace {

QString statisticText(double aNumber, const QString& aUnit)
{
    // An exponent behind the cut is lost with it.
    return CellText::cut(QString().setNum(aNumber, 'g', 6)) + QLatin1Char(' ') + aUnit;
}

} // namespace

void LmCvManipMeasure::refreshCalcTable(const QString& aTypeName)
{
    if (Q3Table* table = theCalcTables.value(aTypeName))
        theRowKeys.size() < kManyRows ? updateDataInCalcTable(table, nullptr, aTypeName) : table->setStale();
}

// What statistics say is settled when they are refreshed. Called before cells or columns change without that.
void LmCvManipMeasure::fillStaleCalcTables() const
{
    for (const Q3Table* table : theCalcTables)
        table->text(0, 0);
}

// Statistics cost a pass over all rows, so with many rows they are made when somebody looks at them.
void LmCvManipMeasure::fillWhenRead(Q3Table* aTable, const QString& aTypeName)
{
    aTable->setFill([tool = QPointer<LmCvManipMeasure>(this), aTable, aTypeName] {
        if (tool)
            tool->updateDataInCalcTable(aTable, nullptr, aTypeName);
    });
}

void LmCvManipMeasure::updateDataInCalcTable(Q3Table* aTable, LmCvManipulator*, const QString& aTypeName)
{
    // In both tables the last column on the screen is passed over, the blank one unless the user has moved
    // it.
    QHash<QString, QList<int>> positions;
    for (int position = 0; position < theColumnNames.size() - 1; ++position)
        positions[theColumnNames[position]].append(position);
    for (int position = 0; position < aTable->numCols() - 1; ++position) {
        const Q3Header* header = aTable->horizontalHeader();
        const MeasuredCells::Statistics found =
            theCells.statistics(aTypeName, positions.value(header->label(header->mapToSection(position))));
        const double numbers[] = {found.theMean, found.theMin, found.theMax, found.theDeviation};
        for (int row = 0; row < 4; ++row)
            aTable->setText(row, position,
                            found.theFound ? statisticText(numbers[row], found.theUnit) : QString());
    }
}
