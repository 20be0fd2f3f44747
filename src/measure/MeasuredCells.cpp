#include "MeasuredCells.h"

#include <algorithm>
#include <cmath>

void MeasuredCells::appendRow(const QString& aTypeName)
{
    const int type = theTypeNumbers.value(aTypeName, int(theTypeNumbers.size()));
    theTypeNumbers.insert(aTypeName, type);
    theTypes.push_back(type);
}

void MeasuredCells::removeRow(int aRow)
{
    theTypes.erase(theTypes.begin() + aRow);
    for (Column& column : theColumns) {
        if (size_t(aRow) >= column.theStates.size())
            continue;
        column.theFilled -= column.theStates[size_t(aRow)] != kEmpty;
        column.theNumbers.erase(column.theNumbers.begin() + aRow);
        column.theStates.erase(column.theStates.begin() + aRow);
        column.theUnits.erase(column.theUnits.begin() + aRow);
    }
}

void MeasuredCells::setColumnCount(int aCount)
{
    theColumns.resize(size_t(aCount));
}

void MeasuredCells::removeColumn(int aPosition)
{
    theColumns.erase(theColumns.begin() + aPosition);
}

void MeasuredCells::moveColumn(int aFrom, int aTo)
{
    const auto from = theColumns.begin() + aFrom;
    const auto to = theColumns.begin() + aTo;
    if (aFrom < aTo)
        std::rotate(from, from + 1, to + 1);
    else
        std::rotate(to, from, from + 1);
}

int MeasuredCells::unitOf(const QString& aUnit)
{
    const auto known = theUnitNumbers.constFind(aUnit);
    if (known != theUnitNumbers.constEnd())
        return *known;
    theUnitTexts.push_back(aUnit);
    return theUnitNumbers.insert(aUnit, int(theUnitTexts.size()) - 1).value();
}

void MeasuredCells::setCell(int aRow, int aPosition, const QString& aText)
{
    if (aRow < 0 || aRow >= rowCount() || aPosition < 0 || size_t(aPosition) >= theColumns.size())
        return;
    Column& column = theColumns[size_t(aPosition)];
    const auto row = size_t(aRow);
    if (row >= column.theStates.size()) {
        if (aText.isEmpty())
            return;
        column.theNumbers.resize(row + 1, 0.0);
        column.theStates.resize(row + 1, kEmpty);
        column.theUnits.resize(row + 1, 0);
    }
    bool isNumber = false;
    column.theNumbers[row] = aText.section(QLatin1Char(' '), 0, 0).toDouble(&isNumber);
    column.theUnits[row] = unitOf(aText.section(QLatin1Char(' '), 1, 1));
    State& state = column.theStates[row];
    column.theFilled += int(!aText.isEmpty()) - int(state != kEmpty);
    state = aText.isEmpty() ? kEmpty : isNumber ? kNumber : kNoNumber;
}

MeasuredCells::Statistics MeasuredCells::statistics(const QString& aTypeName,
                                                    const QList<int>& aPositions) const
{
    Statistics result;
    const int type = theTypeNumbers.value(aTypeName, -1);
    std::vector<double> numbers;
    int unit = -1;
    for (size_t row = 0; row < theTypes.size(); ++row) {
        if (theTypes[row] != type)
            continue;
        for (const int position : aPositions) {
            const Column& column = theColumns[size_t(position)];
            if (row >= column.theStates.size() || column.theStates[row] == kEmpty)
                continue;
            // The last filled cell names the unit, also one that is no number.
            unit = column.theUnits[row];
            if (column.theStates[row] == kNumber)
                numbers.push_back(column.theNumbers[row]);
        }
    }
    if (numbers.empty())
        return result;
    result.theUnit = theUnitTexts[size_t(unit)];

    // A maximum never falls below 0, nor a minimum above the greatest whole number of 32 bits.
    result.theFound = true;
    result.theMin = 4294967295.0;
    double sum = 0.0;
    for (const double number : numbers) {
        sum += number;
        result.theMax = number > result.theMax ? number : result.theMax;
        result.theMin = number < result.theMin ? number : result.theMin;
    }
    result.theMean = sum / double(numbers.size());
    double squares = 0.0;
    for (const double number : numbers)
        squares += (number - result.theMean) * (number - result.theMean);
    result.theDeviation = std::sqrt(squares / double(numbers.size()));
    return result;
}
