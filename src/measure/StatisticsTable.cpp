#include "StatisticsTable.h"

#include <QScrollBar>

namespace {

constexpr int kRoomAroundLine = 6; // pixels, with the line of the grid

} // namespace

StatisticsTable::StatisticsTable(QWidget* aParent) : Q3Table(aParent)
{
    makeCompact(*this);
}

StatisticsTable::~StatisticsTable() = default;

QSize StatisticsTable::sizeHint() const
{
    const int height = horizontalHeader()->sizeHint().height() + verticalHeader()->length() +
                       horizontalScrollBar()->sizeHint().height() + 2 * frameWidth();
    return QSize(Q3Table::sizeHint().width(), height);
}

void StatisticsTable::makeCompact(Q3Table& aTable)
{
    const int height = aTable.fontMetrics().height() + kRoomAroundLine;
    aTable.verticalHeader()->setMinimumSectionSize(height);
    aTable.verticalHeader()->setDefaultSectionSize(height);
    aTable.horizontalHeader()->setHighlightSections(false);
}
