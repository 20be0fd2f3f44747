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

MeasuredCells::Statistics MeasuredCells::statistics(const QString& aTypeName, int aPosition) const
{
    Statistics result;
    const int type = theTypeNumbers.value(aTypeName, -1);
    if (type < 0)
        return result;
    const Column& column = theColumns[size_t(aPosition)];
    const auto counts = [&](size_t aRow) {
        return theTypes[aRow] == type && column.theStates[aRow] == kNumber;
    };

    // A maximum never falls below 0, nor a minimum above the greatest whole number of 32 bits.
    double sum = 0.0;
    double least = 4294967295.0;
    double most = 0.0;
    int count = 0;
    for (size_t row = 0; row < column.theStates.size(); ++row) {
        if (!counts(row))
            continue;
        const double number = column.theNumbers[row];
        sum += number;
        most = number > most ? number : most;
        least = number < least ? number : least;
        ++count;
    }
    if (count == 0)
        return result;
    const double mean = sum / count;
    double squares = 0.0;
    for (size_t row = 0; row < column.theStates.size(); ++row)
        if (counts(row))
            squares += (column.theNumbers[row] - mean) * (column.theNumbers[row] - mean);
    result = {true, mean, least, most, std::sqrt(squares / count), QString()};

    // The last filled cell names the unit, also one that is no number.
    for (size_t row = column.theStates.size(); row-- > 0;) {
        if (theTypes[row] != type || column.theStates[row] == kEmpty)
            continue;
        result.theUnit = theUnitTexts[size_t(column.theUnits[row])];
        break;
    }
    return result;
}
