#include "LmCvManipulatorPluginInterface.h"
#include "MadeFiles.h"
#include "PluginLoader.h"
#include "Sentence.h"
#include "TestFont.h"

#include <QTemporaryDir>

/// The good plug-in, and one for each fault.
class TestPluginLoader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void goodPluginIsLoaded();
    void goodPluginIsTheSameAtEveryLoad();
    void chosenFolderComesFirstInTheSearch();
    void missingPluginIsTold();
    void pluginOfTheBuildTreeIsFoundBesideTheProgram();
    void missingEverywhereNamesTheFoldersAndTheVariable();
    void textFileIsNoPlugin();
    void cutPluginIsRefused_data();
    void cutPluginIsRefused();
    void pluginWithoutRecordIsRefused();
    void recordOfAnotherVersionIsRefused();
    void pluginOfAnotherInterfaceIsRefused();
    void instanceWithoutItsInterfaceIsRefused();
    void foundButBadPluginIsToldRatherThanPassedOver();

private:
    QString refusal(const QString& aFile);
    QString badPlugin(const char* aName) const;

    QTemporaryDir theFolder;
};

QString TestPluginLoader::refusal(const QString& aFile)
{
    QString error;
    if (PluginLoader::load(aFile, error))
        return QStringLiteral("it was loaded");
    const QString fault = sentenceFault(error);
    return fault.isEmpty() ? error : fault;
}

QString TestPluginLoader::badPlugin(const char* aName) const
{
    return QStringLiteral(MEASURETOOLS_BAD_PLUGINS "/lib%1.so").arg(QLatin1String(aName));
}

void TestPluginLoader::goodPluginIsLoaded()
{
    QString error;
    LmCvManipulatorPluginInterface* plugin =
        PluginLoader::load(QStringLiteral(MEASURETOOLS_PLUGIN_FILE), error);
    QVERIFY2(plugin, qPrintable(error));
    QVERIFY(plugin->featureList().contains(QStringLiteral("Distance")));
    QCOMPARE(PluginLoader::loadFromSearchPath(error), plugin);
}

void TestPluginLoader::goodPluginIsTheSameAtEveryLoad()
{
    QString error;
    LmCvManipulatorPluginInterface* first =
        PluginLoader::load(QStringLiteral(MEASURETOOLS_PLUGIN_FILE), error);
    QVERIFY(first);
    QCOMPARE(PluginLoader::load(QStringLiteral(MEASURETOOLS_PLUGIN_FILE), error), first);
}

void TestPluginLoader::chosenFolderComesFirstInTheSearch()
{
    const QByteArray kept = qgetenv("MEASURETOOLS_PLUGIN_DIR");
    qputenv("MEASURETOOLS_PLUGIN_DIR", "/somewhere/else");
    const QStringList chosen = PluginLoader::searchPath();
    qunsetenv("MEASURETOOLS_PLUGIN_DIR");
    const QStringList usual = PluginLoader::searchPath();
    qputenv("MEASURETOOLS_PLUGIN_DIR", kept);
    QCOMPARE(chosen.first(), QStringLiteral("/somewhere/else"));
    QCOMPARE(chosen.mid(1), usual);
    QCOMPARE(usual.first(),
             QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/../lib")));
    QVERIFY(usual.last().endsWith(QStringLiteral("/measuretools")));
}

void TestPluginLoader::missingPluginIsTold()
{
    const QString file = theFolder.filePath(QStringLiteral("libNothing.so"));
    const QString error = refusal(file);
    QVERIFY2(error.contains(QStringLiteral("is missing")) && error.contains(file), qPrintable(error));
}

void TestPluginLoader::pluginOfTheBuildTreeIsFoundBesideTheProgram()
{
    const QByteArray kept = qgetenv("MEASURETOOLS_PLUGIN_DIR");
    qunsetenv("MEASURETOOLS_PLUGIN_DIR");
    QString error;
    const bool isBeside = PluginLoader::loadFromSearchPath(error) != nullptr;
    qputenv("MEASURETOOLS_PLUGIN_DIR", kept);
    QVERIFY2(isBeside, qPrintable(error));
}

void TestPluginLoader::missingEverywhereNamesTheFoldersAndTheVariable()
{
    const QStringList folders{theFolder.filePath(QStringLiteral("a")),
                              theFolder.filePath(QStringLiteral("b"))};
    QString error;
    QVERIFY(!PluginLoader::loadFrom(folders, error));
    QCOMPARE(sentenceFault(error), QString());
    for (const QString& named : folders + QStringList{QStringLiteral("MEASURETOOLS_PLUGIN_DIR")})
        QVERIFY2(error.contains(named), qPrintable(error));
}

void TestPluginLoader::textFileIsNoPlugin()
{
    const QString file = theFolder.filePath(QStringLiteral("libText.so"));
    MadeFiles::write(file, "This is a text and no library.\n");
    const QString error = refusal(file);
    QVERIFY2(error.contains(file) && error.contains(QStringLiteral("can't be used")), qPrintable(error));
}

void TestPluginLoader::cutPluginIsRefused_data()
{
    QTest::addColumn<qsizetype>("left");
    const qsizetype size = QFileInfo(QStringLiteral(MEASURETOOLS_PLUGIN_FILE)).size();
    for (const qsizetype left : {qsizetype(20), qsizetype(600), size / 2, size * 9 / 10, size - 1})
        QTest::addRow("%lld of %lld bytes", qlonglong(left), qlonglong(size)) << left;
}

void TestPluginLoader::cutPluginIsRefused()
{
    QFETCH(qsizetype, left);
    const QString file = theFolder.filePath(QStringLiteral("libCut.so"));
    MadeFiles::write(file, MadeFiles::read(QStringLiteral(MEASURETOOLS_PLUGIN_FILE)).left(left));
    const QString error = refusal(file);
    QVERIFY2(error.contains(QStringLiteral("can't be used")), qPrintable(error));
    // What is shorter than its own head is no library at all.
    QCOMPARE(error.contains(QStringLiteral("it is cut off")), left >= 600);
}

void TestPluginLoader::pluginWithoutRecordIsRefused()
{
    const QString error = refusal(badPlugin("NoRecordPlugin"));
    QVERIFY2(error.contains(QStringLiteral("no verification record")), qPrintable(error));
}

void TestPluginLoader::recordOfAnotherVersionIsRefused()
{
    const QString error = refusal(badPlugin("BadRecordPlugin"));
    QVERIFY2(error.contains(QStringLiteral("3.3.8")) && error.contains(QStringLiteral("4.7.0")),
             qPrintable(error));
}

void TestPluginLoader::pluginOfAnotherInterfaceIsRefused()
{
    const QString error = refusal(badPlugin("BadInterfacePlugin"));
    QVERIFY2(error.contains(QStringLiteral("org.example.OtherInterface/1.0")), qPrintable(error));
}

void TestPluginLoader::instanceWithoutItsInterfaceIsRefused()
{
    const QString error = refusal(badPlugin("BadInstancePlugin"));
    QVERIFY2(error.contains(QStringLiteral("does not have the interface")), qPrintable(error));
}

void TestPluginLoader::foundButBadPluginIsToldRatherThanPassedOver()
{
    const QString file = theFolder.filePath(QStringLiteral("libMeasureToolsPlugin.so"));
    MadeFiles::write(file, "no library");
    const QByteArray kept = qgetenv("MEASURETOOLS_PLUGIN_DIR");
    qputenv("MEASURETOOLS_PLUGIN_DIR", QFile::encodeName(theFolder.path()));
    QString error;
    LmCvManipulatorPluginInterface* plugin = PluginLoader::loadFromSearchPath(error);
    qputenv("MEASURETOOLS_PLUGIN_DIR", kept);
    QVERIFY(!plugin);
    QCOMPARE(sentenceFault(error), QString());
    QVERIFY2(error.contains(file), qPrintable(error));
}

MEASURE_TEST_MAIN(TestPluginLoader)
#include "TestPluginLoader.moc"
