#include "Document.h"
#include "Drawn.h"
#include "LmCvManipulator.h"
#include "LmKSKernelData.h"
#include "TestBench.h"
#include "TestFont.h"
#include "ValueReport.h"

#include <QTextStream>

#include <cmath>
#include <limits>

/// The values of all objects as text.
class TestValueReport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbersHaveFifteenDigits_data();
    void numbersHaveFifteenDigits();
    void withoutObjectsThereIsTheHeading();
    void everyObjectHasALineForEachValue();
    void withoutCalibrationNumbersArePixels();
    void distanceOfLengthZeroHasNoSlope();
    void tabsInAUnitKeepTheColumns();

private:
    QList<QStringList> report(Workbench& aBench);
};

QList<QStringList> TestValueReport::report(Workbench& aBench)
{
    QString text;
    QTextStream stream(&text);
    ValueReport::write(aBench.tools(), stream);
    stream.flush();
    QList<QStringList> rows;
    for (const QString& line : text.split(QLatin1Char('\n')))
        rows << line.split(QLatin1Char('\t'));
    // Every line ends, so behind the last one there is nothing.
    if (rows.takeLast() != QStringList{QString()})
        rows.clear();
    return rows;
}

void TestValueReport::numbersHaveFifteenDigits_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("third") << 1.0 / 3.0 << QStringLiteral("0.333333333333333");
    QTest::newRow("whole") << 42.0 << QStringLiteral("42");
    QTest::newRow("sum of tenths") << 0.1 + 0.2 << QStringLiteral("0.3");
    QTest::newRow("large") << 123456789012345.0 << QStringLiteral("123456789012345");
    QTest::newRow("no number") << std::nan("") << QStringLiteral("nan");
    QTest::newRow("endless") << std::numeric_limits<double>::infinity() << QStringLiteral("inf");
}

void TestValueReport::numbersHaveFifteenDigits()
{
    QFETCH(double, value);
    QFETCH(QString, text);
    QCOMPARE(ValueReport::numberText(value), text);
}

void TestValueReport::withoutObjectsThereIsTheHeading()
{
    TestBench bench;
    const QStringList heading{QStringLiteral("Object"), QStringLiteral("Index"), QStringLiteral("Value"),
                              QStringLiteral("Number"), QStringLiteral("Unit")};
    QCOMPARE(report(bench), QList<QStringList>{heading});
}

void TestValueReport::everyObjectHasALineForEachValue()
{
    TestBench bench;
    bench.doWork();
    const QList<QStringList> rows = report(bench);
    const QStringList names = LmKSKernelData::getInstance()->getCvManipulator(kDistanceType)->theValueNames;
    QCOMPARE(rows.size(), 1 + 2 * names.size());
    const auto row = [](int aIdx, const char* aName, const char* aNumber, const QString& aUnit) {
        return QStringList{QStringLiteral("Distance"), QString::number(aIdx), QString::fromLatin1(aName),
                           QString::fromLatin1(aNumber), aUnit};
    };
    // The picture is 120 pixels and 12 mm wide; one distance is 40 pixels to the right, the other 50 down.
    const QString mm = QStringLiteral("mm");
    QCOMPARE(rows[1], row(1, "Distance", "4", mm));
    QCOMPARE(rows[2], row(1, "DX", "4", mm));
    QCOMPARE(rows[3], row(1, "DY", "0", mm));
    QCOMPARE(rows[4][4], QStringLiteral("\u00b0"));
    QCOMPARE(rows[5], row(2, "Distance", "5", mm));
    QCOMPARE(rows[6], row(2, "DX", "0", mm));
    QCOMPARE(rows[7], row(2, "DY", "5", mm));
    QCOMPARE(rows[8], row(2, "Angle", "-90", QStringLiteral("\u00b0")));
}

void TestValueReport::withoutCalibrationNumbersArePixels()
{
    TestBench bench;
    bench.openPicture(120, 80);
    QVERIFY(addDistance(bench, QPoint(0, 0), QPoint(2, 2)));
    const QList<QStringList> rows = report(bench);
    QCOMPARE(rows[1][3], QStringLiteral("2.82842712474619"));
    QCOMPARE(rows[1][4], QString());
}

void TestValueReport::distanceOfLengthZeroHasNoSlope()
{
    TestBench bench;
    bench.openPicture(120, 80);
    QVERIFY(addDistance(bench, QPoint(7, 7), QPoint(7, 7)));
    const QList<QStringList> rows = report(bench);
    QCOMPARE(rows[1][3], QStringLiteral("0"));
    QCOMPARE(rows[4][2], QStringLiteral("Angle"));
    QCOMPARE(rows[4][3], QStringLiteral("nan"));
}

void TestValueReport::tabsInAUnitKeepTheColumns()
{
    TestBench bench;
    bench.openPicture(120, 80);
    LmKSKernelData::getInstance()->setCalibration(QStringLiteral("odd"),
                                                  LmCalibData{120.0, QStringLiteral("a\tb\n\\")});
    LmKSKernelData::getInstance()->setCurrentCalibration(QStringLiteral("odd"));
    QVERIFY(addDistance(bench, QPoint(0, 0), QPoint(8, 0)));
    const QList<QStringList> rows = report(bench);
    for (const QStringList& row : rows)
        QCOMPARE(row.size(), 5);
    QCOMPARE(rows[1][4], QStringLiteral("a\\tb\\n\\\\"));
}

MEASURE_TEST_MAIN(TestValueReport)
#include "TestValueReport.moc"
