#include "Q3TableModel.h"

#include <QSignalBlocker>

Q3TableModel::Q3TableModel(QObject* aParent) : QAbstractTableModel(aParent) {}

Q3TableModel::~Q3TableModel() = default;

int Q3TableModel::rowCount(const QModelIndex& aParent) const
{
    return aParent.isValid() ? 0 : int(theRows.size());
}

int Q3TableModel::columnCount(const QModelIndex& aParent) const
{
    return aParent.isValid() ? 0 : int(theColumnLabels.size());
}

bool Q3TableModel::isCell(int aRow, int aColumn) const
{
    return aRow >= 0 && aRow < rowCount() && aColumn >= 0 && aColumn < columnCount();
}

void Q3TableModel::setStale()
{
    if (theStale || !theFill)
        return;
    theStale = true;
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

// Views have been told already that all cells change.
void Q3TableModel::fill()
{
    theStale = false;
    const QSignalBlocker blocker(this);
    theFill();
}

QString Q3TableModel::text(int aRow, int aColumn) const
{
    if (theStale)
        const_cast<Q3TableModel*>(this)->fill(); // what is read was always meant to be there
    return isCell(aRow, aColumn) ? theRows[size_t(aRow)].at(aColumn) : QString();
}

void Q3TableModel::setText(int aRow, int aColumn, const QString& aText)
{
    if (!isCell(aRow, aColumn) || theRows[size_t(aRow)].at(aColumn) == aText)
        return;
    theRows[size_t(aRow)][aColumn] = aText;
    const QModelIndex cell = index(aRow, aColumn);
    Q_EMIT dataChanged(cell, cell);
}

QVariant Q3TableModel::data(const QModelIndex& aIndex, int aRole) const
{
    if (aRole != Qt::DisplayRole && aRole != Qt::EditRole)
        return QVariant();
    return text(aIndex.row(), aIndex.column());
}

bool Q3TableModel::setData(const QModelIndex& aIndex, const QVariant& aValue, int aRole)
{
    if (aRole != Qt::EditRole || theReadOnly || !isCell(aIndex.row(), aIndex.column()))
        return false;
    setText(aIndex.row(), aIndex.column(), aValue.toString());
    return true;
}

Qt::ItemFlags Q3TableModel::flags(const QModelIndex& aIndex) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(aIndex);
    return theReadOnly ? flags : flags | Qt::ItemIsEditable;
}

QString Q3TableModel::label(int aSection, Qt::Orientation aOrientation) const
{
    return (aOrientation == Qt::Horizontal ? theColumnLabels : theRowLabels).value(aSection);
}

QVariant Q3TableModel::headerData(int aSection, Qt::Orientation aOrientation, int aRole) const
{
    return aRole == Qt::DisplayRole ? label(aSection, aOrientation) : QVariant();
}

bool Q3TableModel::setHeaderData(int aSection, Qt::Orientation aOrientation, const QVariant& aValue,
                                 int aRole)
{
    QStringList& labels = aOrientation == Qt::Horizontal ? theColumnLabels : theRowLabels;
    if ((aRole != Qt::DisplayRole && aRole != Qt::EditRole) || aSection < 0 || aSection >= labels.size())
        return false;
    labels[aSection] = aValue.toString();
    Q_EMIT headerDataChanged(aOrientation, aSection, aSection);
    return true;
}

bool Q3TableModel::insertRows(int aRow, int aCount, const QModelIndex& aParent)
{
    if (aParent.isValid() || aRow < 0 || aRow > rowCount() || aCount <= 0)
        return false;
    beginInsertRows(QModelIndex(), aRow, aRow + aCount - 1);
    const QStringList empty(columnCount(), QString());
    theRows.insert(theRows.begin() + aRow, size_t(aCount), empty);
    theRowLabels.insert(aRow, aCount, QString());
    endInsertRows();
    return true;
}

bool Q3TableModel::removeRows(int aRow, int aCount, const QModelIndex& aParent)
{
    if (aParent.isValid() || aRow < 0 || aCount <= 0 || aRow + aCount > rowCount())
        return false;
    beginRemoveRows(QModelIndex(), aRow, aRow + aCount - 1);
    theRows.erase(theRows.begin() + aRow, theRows.begin() + aRow + aCount);
    theRowLabels.remove(aRow, aCount);
    endRemoveRows();
    return true;
}

bool Q3TableModel::insertColumns(int aColumn, int aCount, const QModelIndex& aParent)
{
    if (aParent.isValid() || aColumn < 0 || aColumn > columnCount() || aCount <= 0)
        return false;
    beginInsertColumns(QModelIndex(), aColumn, aColumn + aCount - 1);
    for (QStringList& row : theRows)
        row.insert(aColumn, aCount, QString());
    theColumnLabels.insert(aColumn, aCount, QString());
    endInsertColumns();
    return true;
}

bool Q3TableModel::removeColumns(int aColumn, int aCount, const QModelIndex& aParent)
{
    if (aParent.isValid() || aColumn < 0 || aCount <= 0 || aColumn + aCount > columnCount())
        return false;
    beginRemoveColumns(QModelIndex(), aColumn, aColumn + aCount - 1);
    for (QStringList& row : theRows)
        row.remove(aColumn, aCount);
    theColumnLabels.remove(aColumn, aCount);
    endRemoveColumns();
    return true;
}
