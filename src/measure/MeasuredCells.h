#ifndef MEASUREDCELLS_H
#define MEASUREDCELLS_H

#include <QHash>
#include <QList>
#include <QString>

#include <vector>

/// The cells of the object table as numbers, so that statistics needn't read all texts again. Columns are
/// counted by their positions on the screen, like those of the table.
class MeasuredCells
{
public:
    struct Statistics
    {
        bool theFound = false; // otherwise there is nothing to tell
        double theMean = 0.0;
        double theMin = 0.0;
        double theMax = 0.0;
        double theDeviation = 0.0; // of the population
        QString theUnit;
    };

    void appendRow(const QString& aTypeName);
    void removeRow(int aRow);
    /// Columns are added and removed at the right end.
    void setColumnCount(int aCount);
    void removeColumn(int aPosition);
    void moveColumn(int aFrom, int aTo);
    /// aText is a number and, behind a blank, its unit. Nothing for a cell that isn't there.
    void setCell(int aRow, int aPosition, const QString& aText);
    /// Whether any cell of the column has a text.
    bool isFilled(int aPosition) const { return theColumns[size_t(aPosition)].theFilled > 0; }
    /// Over the cells of columns in the rows of one type, row by row. Several columns have one heading when
    /// the user has moved the blank one and a further blank one came.
    Statistics statistics(const QString& aTypeName, const QList<int>& aPositions) const;

private:
    enum State : unsigned char { kEmpty, kNoNumber, kNumber };
    struct Column
    {
        std::vector<double> theNumbers;
        std::vector<State> theStates;
        std::vector<int> theUnits; // of theUnitTexts
        int theFilled = 0;
    };

    int unitOf(const QString& aUnit);
    int rowCount() const { return int(theTypes.size()); }

    std::vector<Column> theColumns;
    std::vector<int> theTypes; // by row, of theTypeNumbers
    QHash<QString, int> theTypeNumbers;
    QHash<QString, int> theUnitNumbers;
    std::vector<QString> theUnitTexts;
};

#endif
