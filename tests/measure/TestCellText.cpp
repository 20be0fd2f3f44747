#include "CellText.h"
#include "TestFont.h"

/// How numbers become the text of a cell.
class TestCellText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cutKeepsTwoDigitsBehindTheFirstDot_data();
    void cutKeepsTwoDigitsBehindTheFirstDot();
    void doubleHasFifteenDigits_data();
    void doubleHasFifteenDigits();
    void otherValuesAreTheirOwnText();
    void unitStandsBehindABlank();
};

void TestCellText::cutKeepsTwoDigitsBehindTheFirstDot_data()
{
    QTest::addColumn<QString>("whole");
    QTest::addColumn<QString>("cut");
    QTest::newRow("long") << "12.3456"
                          << "12.34";
    QTest::newRow("not rounded") << "0.999"
                                 << "0.99";
    QTest::newRow("negative") << "-0.999"
                              << "-0.99";
    QTest::newRow("two digits") << "12.34"
                                << "12.34";
    QTest::newRow("one digit") << "12.3"
                               << "12.3";
    QTest::newRow("dot at the end") << "12."
                                    << "12.";
    QTest::newRow("no dot") << "1234567"
                            << "1234567";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("exponent") << "1.23457e+06"
                              << "1.23";
    QTest::newRow("short exponent") << "1.5e-05"
                                    << "1.5e";
    QTest::newRow("exponent without dot") << "1e+06"
                                          << "1e+06";
    QTest::newRow("two dots") << "1.2.3456"
                              << "1.2.";
    QTest::newRow("words") << "a.bcdef ghi"
                           << "a.bc";
}

void TestCellText::cutKeepsTwoDigitsBehindTheFirstDot()
{
    QFETCH(QString, whole);
    QTEST(CellText::cut(whole), "cut");
}

void TestCellText::doubleHasFifteenDigits_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<QString>("whole");
    QTest::addColumn<QString>("cell");
    QTest::newRow("a million") << 1e6 << "1000000"
                               << "1000000";
    QTest::newRow("a million and a bit") << 1234567.891 << "1234567.891"
                                         << "1234567.89";
    QTest::newRow("below a whole number") << 28.999999999999996 << "29"
                                          << "29";
    QTest::newRow("sum of tenths") << 0.1 + 0.2 << "0.3"
                                   << "0.3";
    QTest::newRow("not rounded") << 12.3456 << "12.3456"
                                 << "12.34";
    QTest::newRow("just below") << 2.9999999 << "2.9999999"
                                << "2.99";
    QTest::newRow("tiny") << 0.000015 << "1.5e-05"
                          << "1.5e";
    QTest::newRow("huge") << 1.5e15 << "1.5e+15"
                          << "1.5e";
    QTest::newRow("zero") << 0.0 << "0"
                          << "0";
    QTest::newRow("nothing to divide by") << qQNaN() << "nan"
                                          << "nan";
}

void TestCellText::doubleHasFifteenDigits()
{
    QFETCH(double, number);
    QTEST(CellText::whole(number), "whole");
    QTEST(CellText::ofValue(number, QString()), "cell");
}

void TestCellText::otherValuesAreTheirOwnText()
{
    QCOMPARE(CellText::whole(42), QStringLiteral("42"));
    QCOMPARE(CellText::whole(4000000000u), QStringLiteral("4000000000"));
    QCOMPARE(CellText::whole(QStringLiteral("a.bcd")), QStringLiteral("a.bcd"));
    QCOMPARE(CellText::ofValue(QStringLiteral("a.bcd"), QString()), QStringLiteral("a.bc"));
    QVERIFY(CellText::whole(QVariant()).isEmpty());
    QVERIFY(CellText::ofValue(QVariant(), QString()).isEmpty());
}

void TestCellText::unitStandsBehindABlank()
{
    QCOMPARE(CellText::ofValue(12.3456, QStringLiteral("mm")), QStringLiteral("12.34 mm"));
    QCOMPARE(CellText::ofValue(12, QStringLiteral("sq. mm")), QStringLiteral("12 sq. mm"));
    QCOMPARE(CellText::ofValue(QVariant(), QStringLiteral("mm")), QStringLiteral(" mm"));
}

MEASURE_TEST_MAIN(TestCellText)
#include "TestCellText.moc"
