// The tables of statistics. They are made of what the object table shows, cut as it is.
#include "LmCvManipMeasure.h"

#include "CellText.h"
#include "LmKsMeasureWidget.h"

namespace {

QString statisticText(double aNumber, const QString& aUnit)
{
    // An exponent behind the cut is lost with it.
    return CellText::cut(QString().setNum(aNumber, 'g', 6)) + QLatin1Char(' ') + aUnit;
}

} // namespace

void LmCvManipMeasure::refreshCalcTable(LmCvManipulator* aTool, const QString& aTypeName)
{
    if (Q3Table* table = theCalcTables.value(aTypeName))
        updateDataInCalcTable(table, aTool, aTypeName);
}

void LmCvManipMeasure::updateDataInCalcTable(Q3Table* aTable, LmCvManipulator*, const QString& aTypeName)
{
    // In both tables the last column on the screen is passed over, the blank one unless the user has moved
    // it.
    const Q3Table* values = theMeasureWidget->theTable;
    QHash<QString, QList<int>> positions;
    for (int position = 0; position < values->numCols() - 1; ++position)
        positions[values->horizontalHeader()->label(values->horizontalHeader()->mapToSection(position))]
            .append(position);
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
