#ifndef Q3TABLE_H
#define Q3TABLE_H

#include "Q3Header.h"
#include "Q3MemArray.h"

#include <QTableView>

#include <functional>

class Q3TableModel;

/// A table of texts. Columns are counted by their position on the screen in every operation: text(row, p) is
/// the cell under the p-th heading, and a heading that the user moves takes its cells along. Only the headers
/// speak of sections.
class Q3Table : public QTableView
{
    Q_OBJECT

public:
    enum SelectionMode { Single, Multi, SingleRow, MultiRow, NoSelection };

    explicit Q3Table(QWidget* aParent = nullptr, const char* aName = nullptr);
    ~Q3Table() override;

    int numRows() const;
    int numCols() const;
    /// Rows are added and removed at the end, columns at the right end.
    void setNumRows(int aCount);
    void setNumCols(int aCount);
    void removeRow(int aRow);
    void removeColumn(int aPosition);
    void removeColumns(const Q3MemArray<int>& aPositions);

    /// Empty for a cell that isn't there; setText does nothing there.
    QString text(int aRow, int aPosition) const;
    void setText(int aRow, int aPosition, const QString& aText);
    /// For cells that are costly to work out: after setStale aFill is called once, before any cell is read.
    void setFill(const std::function<void()>& aFill);
    void setStale();
    /// One label a position; those behind the list stay.
    void setColumnLabels(const QStringList& aLabels);
    /// A stretchable column or row takes up the spare room.
    void setColumnStretchable(int aPosition, bool aOn);
    void setRowStretchable(int aRow, bool aOn);
    void setReadOnly(bool aOn);
    void setSelectionMode(SelectionMode aMode);
    void setColumnMovingEnabled(bool aOn);

    int currentRow() const;    // -1 for none
    int currentColumn() const; // a position, -1 for none
    /// In a mode of rows the row is selected too.
    void setCurrentCell(int aRow, int aPosition);
    /// With one row at a time that row becomes the current one; nothing for a row that isn't there.
    void selectRow(int aRow);
    /// The flag is reserved and has no effect. The current cell stays.
    void clearSelection(bool aRepaint = true);
    bool isRowSelected(int aRow) const;

    Q3Header* horizontalHeader() const { return theHorizontalHeader; }
    Q3Header* verticalHeader() const { return theVerticalHeader; }
    /// The part of the table that shows the cells.
    QWidget* clipper() const { return viewport(); }

Q_SIGNALS:
    /// Another cell is current, or the user has pressed the current one again.
    void currentChanged(int aRow, int aPosition);

protected:
    using QTableView::currentChanged;
    void mousePressEvent(QMouseEvent* aEvent) override;

private:
    QModelIndex cell(int aRow, int aPosition) const;
    void tellCurrent(const QModelIndex& aCurrent);

    Q3TableModel* theModel;
    Q3Header* theHorizontalHeader;
    Q3Header* theVerticalHeader;
};

#endif
