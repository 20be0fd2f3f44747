#include "MeasuredCells.h"
#include "TestFont.h"

#include <QRandomGenerator>

#include <cmath>

/// The numbers behind the object table, by hand and against plain texts.
class TestMeasuredCells : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingIsFoundForAnUnknownType();
    void cellsOutsideAreNothing();
    void textThatIsNoNumberFillsItsColumnAndNamesTheUnit();
    void columnIsFilledWhileAnyCellHasAText();
    void severalColumnsCountRowByRow();
    void randomSessionIsThatOfPlainTexts();

private:
    static MeasuredCells cells(const QStringList& aTexts);
};

// One column with rows of the type "T".
MeasuredCells TestMeasuredCells::cells(const QStringList& aTexts)
{
    MeasuredCells made;
    made.setColumnCount(1);
    for (int row = 0; row < aTexts.size(); ++row) {
        made.appendRow(QStringLiteral("T"));
        made.setCell(row, 0, aTexts[row]);
    }
    return made;
}

void TestMeasuredCells::nothingIsFoundForAnUnknownType()
{
    const MeasuredCells made = cells({"1 mm"});
    QVERIFY(made.statistics(QStringLiteral("T"), {0}).theFound);
    QVERIFY(!made.statistics(QStringLiteral("U"), {0}).theFound);
    QVERIFY(!made.statistics(QStringLiteral("T"), {}).theFound);
}

void TestMeasuredCells::cellsOutsideAreNothing()
{
    MeasuredCells made = cells({"1 mm", "3 mm"});
    for (const auto& [row, position] : {std::pair(-1, 0), std::pair(2, 0), std::pair(0, -1), std::pair(0, 1)})
        made.setCell(row, position, QStringLiteral("100"));
    QCOMPARE(made.statistics(QStringLiteral("T"), {0}).theMean, 2.0);
}

void TestMeasuredCells::textThatIsNoNumberFillsItsColumnAndNamesTheUnit()
{
    const MeasuredCells made = cells({"4 mm", "none cm"});
    const MeasuredCells::Statistics found = made.statistics(QStringLiteral("T"), {0});
    QCOMPARE(found.theMean, 4.0);
    QCOMPARE(found.theUnit, QStringLiteral("cm"));
    QVERIFY(made.isFilled(0));
    QVERIFY(!cells({"none cm"}).statistics(QStringLiteral("T"), {0}).theFound);
    QVERIFY(cells({"none cm"}).isFilled(0));
}

void TestMeasuredCells::columnIsFilledWhileAnyCellHasAText()
{
    MeasuredCells made = cells({"", "1", "2"});
    made.removeRow(2);
    QVERIFY(made.isFilled(0));
    made.setCell(1, 0, QString());
    QVERIFY(!made.isFilled(0));
    made.setCell(0, 0, QStringLiteral("x"));
    made.setCell(0, 0, QStringLiteral("y"));
    made.removeRow(0);
    QVERIFY(!made.isFilled(0));
}

void TestMeasuredCells::severalColumnsCountRowByRow()
{
    MeasuredCells made;
    made.setColumnCount(2);
    for (int row = 0; row < 2; ++row)
        made.appendRow(QStringLiteral("T"));
    made.setCell(0, 0, QStringLiteral("1 a"));
    made.setCell(1, 0, QStringLiteral("2 b"));
    made.setCell(0, 1, QStringLiteral("9 c"));
    const MeasuredCells::Statistics found = made.statistics(QStringLiteral("T"), {0, 1});
    QCOMPARE(found.theMean, 4.0);
    QCOMPARE(found.theUnit, QStringLiteral("b"));
}

// The same steps on columns of texts that are read again for every question.
void TestMeasuredCells::randomSessionIsThatOfPlainTexts()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    const QStringList texts{"",      "1",          "2.5 mm", "-3 cm",      "nan mm",
                            "x y z", "5000000000", " mm",    "0.01 sq. mm"};
    const QStringList types{"A", "B", "C"};
    MeasuredCells made;
    QStringList rowTypes;
    QList<QStringList> columns;
    int found = 0;
    for (int step = 0; step < 20000; ++step) {
        const int rows = int(rowTypes.size());
        const int count = int(columns.size());
        const auto row = [&] { return random.bounded(rows); };
        const auto position = [&] { return random.bounded(count); };
        const int kind = random.bounded(100);
        if (rows == 0 || kind < 5) {
            rowTypes << types[random.bounded(3)];
            made.appendRow(rowTypes.last());
            for (QStringList& column : columns)
                column << QString();
        } else if (kind < 9) {
            const int gone = row();
            made.removeRow(gone);
            rowTypes.removeAt(gone);
            for (QStringList& column : columns)
                column.removeAt(gone);
        } else if (count == 0 || kind < 11) {
            const int wanted = random.bounded(1, 7);
            made.setColumnCount(wanted);
            while (columns.size() > wanted)
                columns.removeLast();
            while (columns.size() < wanted)
                columns << QStringList(QList<QString>(rows));
        } else if (kind < 12) {
            const int gone = position();
            made.removeColumn(gone);
            columns.removeAt(gone);
        } else if (kind < 15) {
            const int from = position();
            const int to = position();
            made.moveColumn(from, to);
            columns.move(from, to);
        } else {
            const int r = row();
            const int p = position();
            const QString text = texts[random.bounded(int(texts.size()))];
            made.setCell(r, p, text);
            columns[p][r] = text;
        }
        for (int p = 0; p < columns.size(); ++p)
            QCOMPARE(made.isFilled(p), !columns[p].join(QString()).isEmpty());
        if (columns.isEmpty())
            continue;

        const QString type = types[random.bounded(3)];
        const int asked = random.bounded(int(columns.size()));
        QList<double> numbers;
        QString unit;
        for (int r = 0; r < rowTypes.size(); ++r) {
            const QStringList words = columns[asked][r].split(QLatin1Char(' '));
            if (rowTypes[r] != type || columns[asked][r].isEmpty())
                continue;
            bool isNumber = false;
            const double number = words[0].toDouble(&isNumber);
            if (isNumber)
                numbers << number;
            unit = words.value(1);
        }
        const MeasuredCells::Statistics result = made.statistics(type, {asked});
        QCOMPARE(result.theFound, !numbers.isEmpty());
        if (numbers.isEmpty())
            continue;
        ++found;
        double sum = 0.0;
        double squares = 0.0;
        for (const double number : numbers)
            sum += number;
        const double mean = sum / double(numbers.size());
        for (const double number : numbers)
            squares += std::pow(number - mean, 2.0);
        const double deviation = std::sqrt(squares / double(numbers.size()));
        QCOMPARE(result.theUnit, unit);
        QCOMPARE(result.theMean, mean); // two that are nan compare equal
        QCOMPARE(result.theDeviation, deviation);
    }
    QVERIFY(found > 1000);
}

MEASURE_TEST_MAIN(TestMeasuredCells)
#include "TestMeasuredCells.moc"
