#include "FrameText.h"
#include "FrameTimes.h"
#include "TestFont.h"

#include <QtTest>

/// Frames and times as people read and type them.
class TestFrameText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void timesAreReadable_data();
    void timesAreReadable();
    void typedTimesAreUnderstood_data();
    void typedTimesAreUnderstood();
    void whatIsNoTimeIsRefused_data();
    void whatIsNoTimeIsRefused();
    void framesCountFromOne();
};

void TestFrameText::timesAreReadable_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<QString>("text");
    QTest::newRow("zero") << 0.0 << "0.000 s";
    QTest::newRow("rounded") << 12.0396 << "12.040 s";
    QTest::newRow("rounded up to a minute") << 59.9999 << "1:00.000";
    QTest::newRow("minutes") << 65.25 << "1:05.250";
    QTest::newRow("hours") << 3723.5 << "1:02:03.500";
    QTest::newRow("negative") << -0.04 << "-0.040 s";
    QTest::newRow("a little below zero") << -0.0001 << "0.000 s";
}

void TestFrameText::timesAreReadable()
{
    QFETCH(double, seconds);
    QTEST(FrameText::time(seconds), "text");
}

void TestFrameText::typedTimesAreUnderstood_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("seconds");
    QTest::newRow("seconds") << " 2.5 " << 2.5;
    QTest::newRow("with the unit") << "12.040 s" << 12.04;
    QTest::newRow("minutes") << "1:05.25" << 65.25;
    QTest::newRow("hours") << "1:02:03.5" << 3723.5;
    QTest::newRow("before zero") << "-0.04" << -0.04;
}

void TestFrameText::typedTimesAreUnderstood()
{
    QFETCH(QString, text);
    double seconds = -1.0;
    QVERIFY(FrameText::fromText(text, seconds));
    QTEST(seconds, "seconds");
}

void TestFrameText::whatIsNoTimeIsRefused_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text : {"", "s", "abc", "1:", ":5", "--3", "1:-3", "1:2:3:4", "1e999", "nan", "inf"})
        QTest::newRow(text) << text;
}

void TestFrameText::whatIsNoTimeIsRefused()
{
    QFETCH(QString, text);
    double seconds = -1.0;
    QVERIFY(!FrameText::fromText(text, seconds));
}

void TestFrameText::framesCountFromOne()
{
    QCOMPARE(FrameText::frame(11, FrameTimes()), QStringLiteral("Frame 12"));
    QCOMPARE(FrameText::frame(1, FrameTimes({0.5, 0.54}, 0.001, 0.0)), QStringLiteral("Frame 2, 0.540 s"));
}

MEASURE_TEST_MAIN(TestFrameText)
#include "TestFrameText.moc"
