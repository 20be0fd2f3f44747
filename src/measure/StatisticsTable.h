#ifndef STATISTICSTABLE_H
#define STATISTICSTABLE_H

#include "Q3Table.h"

/// A table of statistics. It asks for just the room of its rows, so that the objects have the rest.
class StatisticsTable : public Q3Table
{
    Q_OBJECT

public:
    explicit StatisticsTable(QWidget* aParent);
    ~StatisticsTable() override;

    QSize sizeHint() const override;

    /// Rows no higher than a line of text needs, and headings that don't change with the current cell.
    static void makeCompact(Q3Table& aTable);
};

#endif
