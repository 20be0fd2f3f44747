#ifndef Q3TABLEMODEL_H
#define Q3TABLEMODEL_H

#include <QAbstractTableModel>
#include <QStringList>

#include <functional>
#include <vector>

/// The texts of a table and of its two headers. Rows and columns are sections: where a heading stands on the
/// screen is the header's matter.
class Q3TableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit Q3TableModel(QObject* aParent);
    ~Q3TableModel() override;

    int rowCount(const QModelIndex& aParent = QModelIndex()) const override;
    int columnCount(const QModelIndex& aParent = QModelIndex()) const override;
    QVariant data(const QModelIndex& aIndex, int aRole) const override;
    bool setData(const QModelIndex& aIndex, const QVariant& aValue, int aRole) override;
    Qt::ItemFlags flags(const QModelIndex& aIndex) const override;
    QVariant headerData(int aSection, Qt::Orientation aOrientation, int aRole) const override;
    bool setHeaderData(int aSection, Qt::Orientation aOrientation, const QVariant& aValue,
                       int aRole) override;
    bool insertRows(int aRow, int aCount, const QModelIndex& aParent = QModelIndex()) override;
    bool removeRows(int aRow, int aCount, const QModelIndex& aParent = QModelIndex()) override;
    bool insertColumns(int aColumn, int aCount, const QModelIndex& aParent = QModelIndex()) override;
    bool removeColumns(int aColumn, int aCount, const QModelIndex& aParent = QModelIndex()) override;

    /// Empty for a cell that isn't there; setText does nothing there.
    QString text(int aRow, int aColumn) const;
    void setText(int aRow, int aColumn, const QString& aText);
    /// A null string for a section without a label.
    QString label(int aSection, Qt::Orientation aOrientation) const;
    void setReadOnly(bool aOn) { theReadOnly = aOn; }
    /// Cells that are costly to work out: after setStale aFill is called once, before any cell is read.
    void setFill(const std::function<void()>& aFill) { theFill = aFill; }
    void setStale();

private:
    bool isCell(int aRow, int aColumn) const;
    void fill();

    std::function<void()> theFill;
    bool theStale = false;
    std::vector<QStringList> theRows;
    QStringList theRowLabels;
    QStringList theColumnLabels;
    bool theReadOnly = false;
};

#endif
