#include "Q3Table.h"
#include "TestFont.h"

#include <QRandomGenerator>
#include <QSignalSpy>

/// The table of texts: cells go by the position of their heading on the screen.
class TestTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newTableIsEmpty();
    void cellsHoldTexts();
    void cellsThatArentThereAreEmpty();
    void movedHeadingTakesItsCellsAlong();
    void moveTellsSectionAndPositions();
    void labelsGoByPosition();
    void newColumnStandsAtTheRightEnd();
    void removedColumnIsTheOneAtThePosition();
    void severalColumnsGoTogether();
    void fewerColumnsTakeThoseAtTheRightEnd();
    void removedRowTakesItsTextsAndItsLabel();
    void stretchableColumnFillsTheRest();
    void stretchGoesWithItsHeading();
    void selectedRowIsTheCurrentOne();
    void currentCellIsTold();
    void blockedTableTellsNothing();
    void clickSelectsTheRow();
    void clickOnTheCurrentCellTellsItAgain();
    void clearedSelectionKeepsTheCurrentRow();
    void readOnlyTableCantBeEdited();
    void verticalHeaderIsAsWideAsItsLongestLabel();
    void headersMapSectionsAndPositions();
    void randomSessionIsThatOfAPlainTable();

private:
    // Labels a, b, c ... and cells such as b2 in rows 0, 1 and 2.
    static void fill(Q3Table& aTable, int aColumns);
    static QStringList row(const Q3Table& aTable, int aRow);
    static QStringList labels(const Q3Table& aTable);
};

void TestTable::fill(Q3Table& aTable, int aColumns)
{
    QStringList names;
    for (int i = 0; i < aColumns; ++i)
        names << QString(QChar('a' + i));
    aTable.setNumCols(aColumns);
    aTable.setColumnLabels(names);
    aTable.setNumRows(3);
    for (int r = 0; r < 3; ++r) {
        aTable.verticalHeader()->setLabel(r, QStringLiteral("row %1").arg(r));
        for (int p = 0; p < aColumns; ++p)
            aTable.setText(r, p, names[p] + QString::number(r));
    }
}

QStringList TestTable::row(const Q3Table& aTable, int aRow)
{
    QStringList texts;
    for (int p = 0; p < aTable.numCols(); ++p)
        texts << aTable.text(aRow, p);
    return texts;
}

QStringList TestTable::labels(const Q3Table& aTable)
{
    QStringList texts;
    for (int p = 0; p < aTable.numCols(); ++p)
        texts << aTable.horizontalHeader()->label(aTable.horizontalHeader()->mapToSection(p));
    return texts;
}

void TestTable::newTableIsEmpty()
{
    Q3Table table(nullptr, "values");
    QCOMPARE(table.objectName(), QStringLiteral("values"));
    QCOMPARE(table.numRows(), 0);
    QCOMPARE(table.numCols(), 0);
    QCOMPARE(table.currentRow(), -1);
    QCOMPARE(table.currentColumn(), -1);
    table.selectRow(0);
    table.setCurrentCell(0, 0);
    table.removeRow(0);
    table.removeColumn(0);
    table.setColumnStretchable(0, true);
    table.setRowStretchable(0, true);
    QCOMPARE(table.currentRow(), -1);
}

void TestTable::cellsHoldTexts()
{
    Q3Table table;
    fill(table, 4);
    QCOMPARE(table.text(1, 2), QStringLiteral("c1"));
    QCOMPARE(labels(table), (QStringList{"a", "b", "c", "d"}));
    QCOMPARE(table.verticalHeader()->label(2), QStringLiteral("row 2"));
}

void TestTable::cellsThatArentThereAreEmpty()
{
    Q3Table table;
    fill(table, 2);
    for (const auto& [r, p] : {std::pair(-1, 0), std::pair(3, 0), std::pair(0, -1), std::pair(0, 2)}) {
        table.setText(r, p, QStringLiteral("x"));
        QVERIFY(table.text(r, p).isEmpty());
    }
    QCOMPARE(row(table, 0), (QStringList{"a0", "b0"}));
    QVERIFY(table.verticalHeader()->label(3).isNull());
    QVERIFY(table.horizontalHeader()->label(-1).isNull());
    table.verticalHeader()->setLabel(7, QStringLiteral("x"));
}

void TestTable::movedHeadingTakesItsCellsAlong()
{
    Q3Table table;
    fill(table, 4);
    table.horizontalHeader()->moveSection(0, 2);
    QCOMPARE(labels(table), (QStringList{"b", "c", "a", "d"}));
    QCOMPARE(row(table, 1), (QStringList{"b1", "c1", "a1", "d1"}));
    table.setText(1, 2, QStringLiteral("new"));
    table.horizontalHeader()->moveSection(2, 0);
    QCOMPARE(row(table, 1), (QStringList{"new", "b1", "c1", "d1"}));
}

void TestTable::moveTellsSectionAndPositions()
{
    Q3Table table;
    fill(table, 4);
    QSignalSpy moved(table.horizontalHeader(), SIGNAL(indexChange(int, int, int)));
    table.horizontalHeader()->moveSection(3, 1);
    QCOMPARE(moved.count(), 1);
    QCOMPARE(moved.first(), (QList<QVariant>{3, 3, 1}));
}

void TestTable::labelsGoByPosition()
{
    Q3Table table;
    fill(table, 3);
    table.horizontalHeader()->moveSection(2, 0);
    table.setColumnLabels({"x", "y"});
    QCOMPARE(labels(table), (QStringList{"x", "y", "b"}));
    QCOMPARE(row(table, 0), (QStringList{"c0", "a0", "b0"}));
    table.setColumnLabels({"1", "2", "3", "4", "5"});
    QCOMPARE(labels(table), (QStringList{"1", "2", "3"}));
}

void TestTable::newColumnStandsAtTheRightEnd()
{
    Q3Table table;
    fill(table, 3);
    table.horizontalHeader()->moveSection(2, 0);
    table.setNumCols(5);
    QCOMPARE(row(table, 0), (QStringList{"c0", "a0", "b0", "", ""}));
    table.setText(0, 4, QStringLiteral("end"));
    QCOMPARE(row(table, 0), (QStringList{"c0", "a0", "b0", "", "end"}));
}

void TestTable::removedColumnIsTheOneAtThePosition()
{
    Q3Table table;
    fill(table, 4);
    table.horizontalHeader()->moveSection(3, 0);
    table.removeColumn(1);
    QCOMPARE(labels(table), (QStringList{"d", "b", "c"}));
    QCOMPARE(row(table, 2), (QStringList{"d2", "b2", "c2"}));
    table.removeColumn(9);
    table.removeColumn(-1);
    QCOMPARE(table.numCols(), 3);
}

void TestTable::severalColumnsGoTogether()
{
    Q3Table table;
    fill(table, 5);
    table.horizontalHeader()->moveSection(4, 1); // a e b c d
    table.removeColumns(Q3MemArray<int>(QList<int>{1, 4, 2}));
    QCOMPARE(labels(table), (QStringList{"a", "c"}));
    QCOMPARE(row(table, 0), (QStringList{"a0", "c0"}));
}

void TestTable::fewerColumnsTakeThoseAtTheRightEnd()
{
    Q3Table table;
    fill(table, 4);
    table.horizontalHeader()->moveSection(0, 3);
    table.setNumCols(2);
    QCOMPARE(labels(table), (QStringList{"b", "c"}));
    table.setNumCols(-3);
    QCOMPARE(table.numCols(), 0);
    QCOMPARE(table.numRows(), 3);
}

void TestTable::removedRowTakesItsTextsAndItsLabel()
{
    Q3Table table;
    fill(table, 2);
    table.removeRow(1);
    QCOMPARE(table.numRows(), 2);
    QCOMPARE(table.verticalHeader()->label(1), QStringLiteral("row 2"));
    QCOMPARE(row(table, 1), (QStringList{"a2", "b2"}));
    table.setNumRows(1);
    QCOMPARE(row(table, 0), (QStringList{"a0", "b0"}));
    QVERIFY(table.verticalHeader()->label(1).isNull());
}

void TestTable::stretchableColumnFillsTheRest()
{
    Q3Table table;
    fill(table, 3);
    table.resize(700, 200);
    table.show();
    const int width = table.horizontalHeader()->sectionSize(0);
    table.setColumnStretchable(2, true);
    QCOMPARE(table.horizontalHeader()->sectionSize(0), width);
    QCOMPARE(table.horizontalHeader()->sectionSize(1), width);
    QCOMPARE(table.horizontalHeader()->sectionSize(2), table.viewport()->width() - 2 * width);
    table.setColumnStretchable(2, false);
    table.resize(900, 200);
    QVERIFY(table.horizontalHeader()->length() < table.viewport()->width());
}

void TestTable::stretchGoesWithItsHeading()
{
    Q3Table table;
    fill(table, 3);
    table.horizontalHeader()->moveSection(2, 0);
    table.setColumnStretchable(0, true);
    QCOMPARE(table.horizontalHeader()->sectionResizeMode(2), QHeaderView::Stretch);
    QCOMPARE(table.horizontalHeader()->sectionResizeMode(0), QHeaderView::Interactive);
}

void TestTable::selectedRowIsTheCurrentOne()
{
    Q3Table table;
    fill(table, 3);
    table.setSelectionMode(Q3Table::SingleRow);
    table.selectRow(1);
    QCOMPARE(table.currentRow(), 1);
    QVERIFY(table.isRowSelected(1));
    table.selectRow(2);
    QVERIFY(!table.isRowSelected(1));
    QVERIFY(table.isRowSelected(2));
    table.selectRow(3);
    QCOMPARE(table.currentRow(), 2);
}

void TestTable::currentCellIsTold()
{
    Q3Table table;
    fill(table, 3);
    table.setSelectionMode(Q3Table::SingleRow);
    table.horizontalHeader()->moveSection(0, 2);
    QSignalSpy told(&table, SIGNAL(currentChanged(int, int)));
    table.setCurrentCell(1, 2);
    QCOMPARE(told.count(), 1);
    QCOMPARE(told.first(), (QList<QVariant>{1, 2}));
    QCOMPARE(table.currentColumn(), 2);
    QVERIFY(table.isRowSelected(1));
    table.setCurrentCell(1, 2);
    QCOMPARE(told.count(), 1);
    table.setCurrentCell(5, 0);
    QCOMPARE(table.currentRow(), 1);
}

void TestTable::blockedTableTellsNothing()
{
    Q3Table table;
    fill(table, 3);
    table.setSelectionMode(Q3Table::SingleRow);
    QSignalSpy told(&table, SIGNAL(currentChanged(int, int)));
    table.blockSignals(true);
    table.selectRow(2);
    table.removeRow(2);
    table.blockSignals(false);
    QCOMPARE(told.count(), 0);
    QCOMPARE(table.currentRow(), 1);
}

void TestTable::clickSelectsTheRow()
{
    Q3Table table;
    fill(table, 3);
    table.setSelectionMode(Q3Table::SingleRow);
    table.resize(500, 300);
    table.show();
    QSignalSpy told(&table, SIGNAL(currentChanged(int, int)));
    const QPoint second(table.horizontalHeader()->sectionViewportPosition(1) + 5,
                        table.verticalHeader()->sectionViewportPosition(1) + 5);
    QTest::mouseClick(table.clipper(), Qt::LeftButton, {}, second);
    QCOMPARE(told.count(), 1);
    QCOMPARE(told.first(), (QList<QVariant>{1, 1}));
    QVERIFY(table.isRowSelected(1));
}

void TestTable::clickOnTheCurrentCellTellsItAgain()
{
    Q3Table table;
    fill(table, 3);
    table.setSelectionMode(Q3Table::SingleRow);
    table.resize(500, 300);
    table.show();
    const auto pointIn = [&](int aRow, int aSection) {
        return QPoint(table.horizontalHeader()->sectionViewportPosition(aSection) + 5,
                      table.verticalHeader()->sectionViewportPosition(aRow) + 5);
    };
    table.setCurrentCell(1, 1);
    table.clearSelection(true);
    QSignalSpy told(&table, SIGNAL(currentChanged(int, int)));
    QTest::mouseClick(table.clipper(), Qt::LeftButton, {}, pointIn(1, 1));
    QCOMPARE(told.count(), 1);
    QCOMPARE(told.first(), (QList<QVariant>{1, 1}));
    QVERIFY(table.isRowSelected(1));
    QTest::mouseClick(table.clipper(), Qt::LeftButton, {}, pointIn(2, 1));
    QCOMPARE(told.count(), 2);
    // A press below all rows is none on the current cell.
    QTest::mouseClick(table.clipper(), Qt::LeftButton, {}, pointIn(2, 1) + QPoint(0, table.rowHeight(2)));
    QCOMPARE(told.count(), 2);
}

void TestTable::clearedSelectionKeepsTheCurrentRow()
{
    Q3Table table;
    fill(table, 2);
    table.setSelectionMode(Q3Table::SingleRow);
    table.selectRow(1);
    table.clearSelection(true);
    QVERIFY(!table.isRowSelected(1));
    QCOMPARE(table.currentRow(), 1);
}

void TestTable::readOnlyTableCantBeEdited()
{
    Q3Table table;
    fill(table, 2);
    const QModelIndex index = table.model()->index(0, 0);
    QVERIFY(table.model()->setData(index, QStringLiteral("x")));
    QCOMPARE(table.text(0, 0), QStringLiteral("x"));
    table.setReadOnly(true);
    QVERIFY(!table.model()->setData(index, QStringLiteral("y")));
    QCOMPARE(table.editTriggers(), QAbstractItemView::NoEditTriggers);
    table.setText(0, 0, QStringLiteral("z")); // the program itself may
    QCOMPARE(table.text(0, 0), QStringLiteral("z"));
}

void TestTable::verticalHeaderIsAsWideAsItsLongestLabel()
{
    Q3Table table;
    fill(table, 2);
    table.resize(400, 300);
    table.show();
    const int before = table.verticalHeader()->width();
    table.verticalHeader()->setLabel(1, QStringLiteral("Something 12345"));
    QVERIFY(table.verticalHeader()->width() > before);
    QVERIFY(table.verticalHeader()->width() >=
            table.verticalHeader()->fontMetrics().horizontalAdvance(QStringLiteral("Something 12345")));
}

void TestTable::headersMapSectionsAndPositions()
{
    Q3Table table;
    fill(table, 3);
    Q3Header* header = table.horizontalHeader();
    header->moveSection(0, 2);
    QCOMPARE(header->mapToSection(0), 1);
    QCOMPARE(header->mapToIndex(0), 2);
    QCOMPARE(header->mapToSection(3), -1);
    QCOMPARE(header->mapToIndex(-1), -1);
    header->setLabel(0, QStringLiteral("wide"), 123);
    QCOMPARE(header->sectionSize(0), 123);
    QCOMPARE(labels(table), (QStringList{"b", "c", "wide"}));
}

// The same steps on columns that simply stand in the order of the screen.
void TestTable::randomSessionIsThatOfAPlainTable()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    Q3Table table;
    fill(table, 3);
    QList<QStringList> columns; // label, then the cells
    for (int p = 0; p < 3; ++p) {
        const QString name(QChar('a' + p));
        columns << QStringList{name, name + "0", name + "1", name + "2"};
    }
    for (int step = 0; step < 2000; ++step) {
        const int count = int(columns.size());
        const int p = count ? random.bounded(count) : 0;
        const QString text = QString::number(step);
        switch (random.bounded(6)) {
        case 0:
            if (count < 12) {
                table.setNumCols(count + 1);
                columns << QStringList{QString(), QString(), QString(), QString()};
            }
            break;
        case 1:
            if (count > 1) {
                table.removeColumn(p);
                columns.removeAt(p);
            }
            break;
        case 2:
            if (count > 0) {
                const int to = random.bounded(count);
                table.horizontalHeader()->moveSection(p, to);
                columns.move(p, to);
            }
            break;
        case 3: {
            const int r = random.bounded(3);
            table.setText(r, p, text);
            columns[p][r + 1] = text;
            break;
        }
        case 4: {
            QStringList names;
            for (QStringList& column : columns)
                names << (column[0] = text + QString::number(names.size()));
            table.setColumnLabels(names);
            break;
        }
        default: {
            Q3MemArray<int> gone;
            for (int i = 0; i < count - 1; ++i)
                if (random.bounded(8) == 0)
                    gone << i;
            table.removeColumns(gone);
            for (auto it = gone.crbegin(); it != gone.crend(); ++it)
                columns.removeAt(*it);
        }
        }
        QCOMPARE(table.numCols(), int(columns.size()));
        for (int i = 0; i < columns.size(); ++i) {
            QCOMPARE(table.horizontalHeader()->label(table.horizontalHeader()->mapToSection(i)),
                     columns[i][0]);
            for (int r = 0; r < 3; ++r)
                QCOMPARE(table.text(r, i), columns[i][r + 1]);
        }
    }
}

MEASURE_TEST_MAIN(TestTable)
#include "TestTable.moc"
