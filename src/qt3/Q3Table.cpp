#include "Q3Table.h"

#include "Q3TableModel.h"

#include <QItemSelectionModel>
#include <QMouseEvent>

#include <algorithm>
#include <functional>

namespace {

QHeaderView::ResizeMode resizeMode(bool aStretchable, QHeaderView::ResizeMode aOtherwise)
{
    return aStretchable ? QHeaderView::Stretch : aOtherwise;
}

} // namespace

Q3Table::Q3Table(QWidget* aParent, const char* aName)
    : QTableView(aParent), theModel(new Q3TableModel(this)),
      theHorizontalHeader(new Q3Header(Qt::Horizontal, this)),
      theVerticalHeader(new Q3Header(Qt::Vertical, this))
{
    if (aName)
        setObjectName(QLatin1String(aName));
    setHorizontalHeader(theHorizontalHeader);
    setVerticalHeader(theVerticalHeader);
    setModel(theModel);
    setWordWrap(false);
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this, &Q3Table::tellCurrent);
}

Q3Table::~Q3Table() = default;

int Q3Table::numRows() const
{
    return theModel->rowCount();
}

int Q3Table::numCols() const
{
    return theModel->columnCount();
}

void Q3Table::setNumRows(int aCount)
{
    const int count = std::max(aCount, 0);
    if (count > numRows())
        theModel->insertRows(numRows(), count - numRows());
    else if (count < numRows())
        theModel->removeRows(count, numRows() - count);
}

void Q3Table::setNumCols(int aCount)
{
    const int count = std::max(aCount, 0);
    if (count > numCols())
        theModel->insertColumns(numCols(), count - numCols());
    while (numCols() > count)
        removeColumn(numCols() - 1);
}

void Q3Table::removeRow(int aRow)
{
    theModel->removeRows(aRow, 1);
}

void Q3Table::removeColumn(int aPosition)
{
    theModel->removeColumns(theHorizontalHeader->mapToSection(aPosition), 1);
}

void Q3Table::removeColumns(const Q3MemArray<int>& aPositions)
{
    Q3MemArray<int> positions = aPositions;
    std::sort(positions.begin(), positions.end(), std::greater<>()); // the rest keep their positions
    for (const int position : qAsConst(positions))
        removeColumn(position);
}

QModelIndex Q3Table::cell(int aRow, int aPosition) const
{
    return theModel->index(aRow, theHorizontalHeader->mapToSection(aPosition));
}

QString Q3Table::text(int aRow, int aPosition) const
{
    return theModel->text(aRow, theHorizontalHeader->mapToSection(aPosition));
}

void Q3Table::setText(int aRow, int aPosition, const QString& aText)
{
    theModel->setText(aRow, theHorizontalHeader->mapToSection(aPosition), aText);
}

void Q3Table::setFill(const std::function<void()>& aFill)
{
    theModel->setFill(aFill);
}

void Q3Table::setStale()
{
    theModel->setStale();
}

void Q3Table::setColumnLabels(const QStringList& aLabels)
{
    for (int position = 0; position < std::min(int(aLabels.size()), numCols()); ++position)
        theHorizontalHeader->setLabel(theHorizontalHeader->mapToSection(position), aLabels[position]);
}

void Q3Table::setColumnStretchable(int aPosition, bool aOn)
{
    const int section = theHorizontalHeader->mapToSection(aPosition);
    if (section >= 0)
        theHorizontalHeader->setSectionResizeMode(section, resizeMode(aOn, QHeaderView::Interactive));
}

void Q3Table::setRowStretchable(int aRow, bool aOn)
{
    const QHeaderView::ResizeMode mode = resizeMode(aOn, QHeaderView::Fixed);
    // Setting a mode lays the whole header out again.
    if (aRow >= 0 && aRow < numRows() && theVerticalHeader->sectionResizeMode(aRow) != mode)
        theVerticalHeader->setSectionResizeMode(aRow, mode);
}

void Q3Table::setReadOnly(bool aOn)
{
    theModel->setReadOnly(aOn);
    setEditTriggers(aOn ? NoEditTriggers : DoubleClicked | EditKeyPressed | AnyKeyPressed);
}

void Q3Table::setSelectionMode(SelectionMode aMode)
{
    const bool rows = aMode == SingleRow || aMode == MultiRow;
    const bool several = aMode == Multi || aMode == MultiRow;
    setSelectionBehavior(rows ? SelectRows : SelectItems);
    QTableView::setSelectionMode(aMode == NoSelection ? QTableView::NoSelection
                                 : several            ? ExtendedSelection
                                                      : SingleSelection);
}

void Q3Table::setColumnMovingEnabled(bool aOn)
{
    theHorizontalHeader->setSectionsMovable(aOn);
}

int Q3Table::currentRow() const
{
    return currentIndex().row();
}

int Q3Table::currentColumn() const
{
    return theHorizontalHeader->mapToIndex(currentIndex().column());
}

void Q3Table::setCurrentCell(int aRow, int aPosition)
{
    const QModelIndex index = cell(aRow, aPosition);
    if (index.isValid())
        setCurrentIndex(index);
}

void Q3Table::selectRow(int aRow)
{
    if (aRow >= 0 && aRow < numRows())
        selectionModel()->setCurrentIndex(theModel->index(aRow, std::max(currentIndex().column(), 0)),
                                          QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void Q3Table::clearSelection(bool)
{
    QTableView::clearSelection();
}

bool Q3Table::isRowSelected(int aRow) const
{
    return selectionModel()->rowIntersectsSelection(aRow);
}

// The selection may have been cleared since, and the current cell stays: a press on it is a choice all the
// same.
void Q3Table::mousePressEvent(QMouseEvent* aEvent)
{
    const QPersistentModelIndex former = currentIndex();
    QTableView::mousePressEvent(aEvent);
    if (former.isValid() && currentIndex() == former && indexAt(aEvent->pos()) == former)
        tellCurrent(former);
}

void Q3Table::tellCurrent(const QModelIndex& aCurrent)
{
    if (aCurrent.isValid())
        Q_EMIT currentChanged(aCurrent.row(), theHorizontalHeader->mapToIndex(aCurrent.column()));
}
