#ifndef ROWINDEX_H
#define ROWINDEX_H

#include <QHash>
#include <QString>

#include <vector>

/// Finds the row of a key without reading all headings. Rows are appended and removed and never change their
/// order, so each has a serial number that grows from row to row.
class RowIndex
{
public:
    /// The row of a key, of several with that key the first; -1 for none.
    int find(const QString& aKey) const;
    void append(const QString& aKey);
    void remove(int aRow, const QString& aKey);

private:
    std::vector<qint64> theSerials; // by row
    QMultiHash<QString, qint64> theKeys;
    qint64 theNext = 0;
};

#endif
