#include "CommandLine.h"
#include "TestFont.h"

/// What the arguments mean.
class TestCommandLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingOpensAWindow();
    void oneFileOpensAWindowWithIt();
    void valuesTakeOneFile();
    void renderAndExportTakeTwoFiles_data();
    void renderAndExportTakeTwoFiles();
    void helpAndVersionTakeNone_data();
    void helpAndVersionTakeNone();
    void orderOfOptionAndFilesIsFree();
    void everythingBehindTwoDashesIsAFile();
    void wrongArgumentsAreTold_data();
    void wrongArgumentsAreTold();
    void helpNamesEveryForm();
};

void TestCommandLine::nothingOpensAWindow()
{
    const CommandLine line = CommandLine::parse({});
    QCOMPARE(line.theAction, CommandLine::kWindow);
    QVERIFY(line.needsWindow());
    QVERIFY(line.theInput.isEmpty());
}

void TestCommandLine::oneFileOpensAWindowWithIt()
{
    const CommandLine line = CommandLine::parse({QStringLiteral("a b.png")});
    QVERIFY(line.needsWindow());
    QCOMPARE(line.theInput, QStringLiteral("a b.png"));
}

void TestCommandLine::valuesTakeOneFile()
{
    const CommandLine line = CommandLine::parse({QStringLiteral("--values"), QStringLiteral("a.mtp")});
    QCOMPARE(line.theAction, CommandLine::kValues);
    QVERIFY(!line.needsWindow());
    QCOMPARE(line.theInput, QStringLiteral("a.mtp"));
    QVERIFY(line.theOutput.isEmpty());

    const CommandLine overTime =
        CommandLine::parse({QStringLiteral("--values-over-time"), QStringLiteral("a.mtp")});
    QCOMPARE(overTime.theAction, CommandLine::kValuesOverTime);
    QVERIFY(!overTime.needsWindow());
    QCOMPARE(overTime.theInput, QStringLiteral("a.mtp"));
}

void TestCommandLine::renderAndExportTakeTwoFiles_data()
{
    QTest::addColumn<QString>("argument");
    QTest::addColumn<int>("action");
    QTest::newRow("render") << QStringLiteral("--render") << int(CommandLine::kRender);
    QTest::newRow("export") << QStringLiteral("--export") << int(CommandLine::kExport);
}

void TestCommandLine::renderAndExportTakeTwoFiles()
{
    QFETCH(QString, argument);
    QFETCH(int, action);
    const CommandLine line = CommandLine::parse({argument, QStringLiteral("a.mtp"), QStringLiteral("b.png")});
    QCOMPARE(int(line.theAction), action);
    QVERIFY(!line.needsWindow());
    QCOMPARE(line.theInput, QStringLiteral("a.mtp"));
    QCOMPARE(line.theOutput, QStringLiteral("b.png"));
}

void TestCommandLine::helpAndVersionTakeNone_data()
{
    QTest::addColumn<QString>("argument");
    QTest::addColumn<int>("action");
    QTest::newRow("help") << QStringLiteral("--help") << int(CommandLine::kHelp);
    QTest::newRow("h") << QStringLiteral("-h") << int(CommandLine::kHelp);
    QTest::newRow("version") << QStringLiteral("--version") << int(CommandLine::kVersion);
    QTest::newRow("v") << QStringLiteral("-v") << int(CommandLine::kVersion);
}

void TestCommandLine::helpAndVersionTakeNone()
{
    QFETCH(QString, argument);
    QFETCH(int, action);
    QCOMPARE(int(CommandLine::parse({argument}).theAction), action);
    QCOMPARE(CommandLine::parse({argument, QStringLiteral("file")}).theAction, CommandLine::kError);
}

void TestCommandLine::orderOfOptionAndFilesIsFree()
{
    const CommandLine line =
        CommandLine::parse({QStringLiteral("a.mtp"), QStringLiteral("--render"), QStringLiteral("b.png")});
    QCOMPARE(line.theAction, CommandLine::kRender);
    QCOMPARE(line.theInput, QStringLiteral("a.mtp"));
    QCOMPARE(line.theOutput, QStringLiteral("b.png"));
}

void TestCommandLine::everythingBehindTwoDashesIsAFile()
{
    const CommandLine line =
        CommandLine::parse({QStringLiteral("--values"), QStringLiteral("--"), QStringLiteral("--odd.mtp")});
    QCOMPARE(line.theAction, CommandLine::kValues);
    QCOMPARE(line.theInput, QStringLiteral("--odd.mtp"));
}

void TestCommandLine::wrongArgumentsAreTold_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("named");
    QTest::newRow("unknown option") << QStringList{QStringLiteral("--print"), QStringLiteral("a.mtp")}
                                    << QStringLiteral("--print");
    QTest::newRow("unknown letter") << QStringList{QStringLiteral("-x")} << QStringLiteral("-x");
    QTest::newRow("two options") << QStringList{QStringLiteral("--values"), QStringLiteral("--help")}
                                 << QStringLiteral("--values and --help");
    QTest::newRow("no file") << QStringList{QStringLiteral("--values")} << QStringLiteral("--values");
    QTest::newRow("one of two files")
        << QStringList{QStringLiteral("--render"), QStringLiteral("a.mtp")} << QStringLiteral("--render");
    QTest::newRow("no table") << QStringList{QStringLiteral("--export"), QStringLiteral("a.mtp")}
                              << QStringLiteral("--export");
    QTest::newRow("a file too many") << QStringList{QStringLiteral("a.png"), QStringLiteral("b.png")}
                                     << QStringLiteral("b.png");
    QTest::newRow("empty name") << QStringList{QStringLiteral("--values"), QString()}
                                << QStringLiteral("empty");
}

void TestCommandLine::wrongArgumentsAreTold()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, named);
    const CommandLine line = CommandLine::parse(arguments);
    QCOMPARE(line.theAction, CommandLine::kError);
    QVERIFY(!line.needsWindow());
    QVERIFY2(line.theText.contains(named) && line.theText.contains(QStringLiteral("--help")),
             qPrintable(line.theText));
    QCOMPARE(line.theText, line.theText.simplified());
}

void TestCommandLine::helpNamesEveryForm()
{
    const QString help = CommandLine::helpText();
    for (const char* form : {"--values FILE", "--values-over-time FILE", "--export", "--render", "--help",
                             "--version", "[FILE]", "exit status"})
        QVERIFY2(help.contains(QLatin1String(form)), form);
    for (const QString& line : help.split(QLatin1Char('\n')))
        QVERIFY2(line.size() <= 110, qPrintable(line));
}

MEASURE_TEST_MAIN(TestCommandLine)
#include "TestCommandLine.moc"
