#include "LmPluginRecord.h"
#include "TestFont.h"

class TestPluginRecord : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void recordHasFourLinesInOrder();
    void buildKeyNamesQtAndWordSize();
    void macroAndLibraryAgreeInOneBuild();
    void ownRecordFits();
    void moreLinesAndLineEndsDoNotMatter();
    void wrongRecordGivesOneSentence_data();
    void wrongRecordGivesOneSentence();
};

void TestPluginRecord::recordHasFourLinesInOrder()
{
    const QList<QByteArray> lines = LmPluginRecord::record().split('\n');
    QCOMPARE(lines.size(), 4);
    QCOMPARE(lines[0], QByteArray("pattern=QT_PLUGIN_VERIFICATION_DATA"));
    QCOMPARE(lines[1], QByteArray("version=4.7.0"));
    QCOMPARE(lines[2], QByteArray("debug=false"));
    QCOMPARE(lines[3], "buildkey=" + LmPluginRecord::buildKey());
}

void TestPluginRecord::buildKeyNamesQtAndWordSize()
{
    const QByteArray key = LmPluginRecord::buildKey();
    QVERIFY2(key.contains(QT_VERSION_STR), key.constData());
    QVERIFY2(key.contains(QByteArray::number(8 * int(sizeof(void*))) + " bit"), key.constData());
    QVERIFY(!key.contains('\n'));
}

void TestPluginRecord::macroAndLibraryAgreeInOneBuild()
{
    QCOMPARE(QByteArray(LM_PLUGIN_RECORD), LmPluginRecord::record());
}

void TestPluginRecord::ownRecordFits()
{
    QCOMPARE(LmPluginRecord::mismatch(LmPluginRecord::record()), QString());
}

void TestPluginRecord::moreLinesAndLineEndsDoNotMatter()
{
    const QByteArray longer = "note=none\n" + LmPluginRecord::record() + "\nplain line\n";
    QCOMPARE(LmPluginRecord::mismatch(longer), QString());
    QByteArray otherEnds = LmPluginRecord::record();
    QCOMPARE(LmPluginRecord::mismatch(otherEnds.replace('\n', "\r\n")), QString());
}

void TestPluginRecord::wrongRecordGivesOneSentence_data()
{
    QTest::addColumn<QByteArray>("record");
    QTest::addColumn<QString>("says");
    const QByteArray good = LmPluginRecord::record();
    const auto with = [good](const QByteArray& aFrom, const QByteArray& aTo) {
        return QByteArray(good).replace(aFrom, aTo);
    };
    QTest::newRow("nothing") << QByteArray() << "no plug-in record";
    QTest::newRow("other file") << QByteArray("\x7f\x45LF") << "no plug-in record";
    QTest::newRow("other pattern") << with("QT_PLUGIN", "XT_PLUGIN") << "no plug-in record";
    QTest::newRow("other version") << with("4.7.0", "5.1.0") << "5.1.0";
    QTest::newRow("debug") << with("debug=false", "debug=true") << "true";
    QTest::newRow("other build") << with(LmPluginRecord::buildKey(), "Qt 9.9.9 other 16 bit") << "Qt 9.9.9";
    QTest::newRow("no build key") << with("buildkey", "builtkey") << "unknown";
    QTest::newRow("good line comes second") << "version=1\n" + good << "version 1,";
}

void TestPluginRecord::wrongRecordGivesOneSentence()
{
    QFETCH(QByteArray, record);
    QFETCH(QString, says);
    const QString sentence = LmPluginRecord::mismatch(record);
    QVERIFY2(sentence.contains(says), qPrintable(sentence));
    QVERIFY(sentence.endsWith(QLatin1Char('.')));
    QVERIFY(!sentence.contains(QLatin1Char('\n')));
}

MEASURE_TEST_MAIN(TestPluginRecord)
#include "TestPluginRecord.moc"
