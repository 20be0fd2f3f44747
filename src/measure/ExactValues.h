#ifndef EXACTVALUES_H
#define EXACTVALUES_H

#include <QObject>
#include <QStringList>

class LmCvManipMeasure;

/// The values of the object table in full precision: a tool tip over a cell shows its value, and Ctrl+C
/// copies rows for a spreadsheet. They are read from the tools when they are asked for; the table holds cut
/// ones.
class ExactValues : public QObject
{
    Q_OBJECT

public:
    /// Belongs to the tool and listens to its table.
    explicit ExactValues(LmCvManipMeasure& aTool);
    ~ExactValues() override;

    /// The value of a cell with its unit; empty for a cell without a value or without an object.
    QString cellText(int aRow, int aPosition) const;
    /// The selected rows, or all if none is selected, as numbers separated by tabs, with a line of headings
    /// that name the units. A name whose values have several units has a column for each.
    QString copiedText() const;

protected:
    bool eventFilter(QObject* aObject, QEvent* aEvent) override;

private:
    struct Row
    {
        QString theKey;
        QStringList theNumbers; // as texts, one for each name that was asked for
        QStringList theUnits;
    };

    bool read(int aRow, const QStringList& aNames, Row& aResult) const;
    QList<Row> copiedRows(const QStringList& aNames) const;

    LmCvManipMeasure& theTool;
};

#endif
