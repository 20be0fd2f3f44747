#include "LmCvManipulator.h"
#include "LmCvManipulatorPluginInterface.h"
#include "LmPluginRecord.h"
#include "TestFont.h"

#include <QJsonObject>
#include <QLibrary>
#include <QPluginLoader>
#include <QPointer>

#include <memory>

class TestPluginModule : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void bothEntryFunctionsAreExported();
    void recordHasItsFourLinesInOrder();
    void recordFitsThisBuild();
    void recordStaysTheSameAtEveryCall();
    void metaDataNamesTheInterface();
    void instanceIsMadeOnceWithoutParent();
    void deletedInstanceIsFollowedByANewOne();
    void castAnswersItsThreeNames();
    void instanceHasNoSignalsSlotsOrPropertiesOfItsOwn();
    void toolOfTheModuleIsAToolOfTheProgram();
    void picturesOfTheModuleAreReachable();

private:
    using RecordFunction = const char* (*)();
    using InstanceFunction = QObject* (*)();

    QObject* instance() const { return theInstance(); }

    QLibrary theLibrary{QStringLiteral(MEASURETOOLS_PLUGIN_FILE)};
    RecordFunction theRecord = nullptr;
    InstanceFunction theInstance = nullptr;
};

void TestPluginModule::initTestCase()
{
    QVERIFY2(theLibrary.load(), qPrintable(theLibrary.errorString()));
    theRecord = reinterpret_cast<RecordFunction>(theLibrary.resolve("qt_plugin_query_verification_data"));
    theInstance = reinterpret_cast<InstanceFunction>(theLibrary.resolve("qt_plugin_instance"));
    QVERIFY(theRecord);
    QVERIFY(theInstance);
}

void TestPluginModule::bothEntryFunctionsAreExported()
{
    QVERIFY(theLibrary.resolve("qt_plugin_query_verification_data"));
    QVERIFY(theLibrary.resolve("qt_plugin_instance"));
    QVERIFY(!theLibrary.resolve("qt_plugin_query_something_else"));
}

void TestPluginModule::recordHasItsFourLinesInOrder()
{
    const QList<QByteArray> lines = QByteArray(theRecord()).trimmed().split('\n');
    QList<QByteArray> keys;
    for (const QByteArray& line : lines)
        keys.append(line.left(line.indexOf('=')));
    QCOMPARE(keys, (QList<QByteArray>{"pattern", "version", "debug", "buildkey"}));
    QCOMPARE(lines[0], QByteArray("pattern=QT_PLUGIN_VERIFICATION_DATA"));
    QCOMPARE(lines[1], QByteArray("version=4.7.0"));
    QCOMPARE(lines[2], QByteArray("debug=false"));
    QCOMPARE(lines[3], "buildkey=" + LmPluginRecord::buildKey());
    QVERIFY(!LmPluginRecord::buildKey().isEmpty());
}

void TestPluginModule::recordFitsThisBuild()
{
    QCOMPARE(LmPluginRecord::mismatch(theRecord()), QString());
    QByteArray other(theRecord());
    other.replace("buildkey=", "buildkey=another ");
    QVERIFY(!LmPluginRecord::mismatch(other).isEmpty());
}

void TestPluginModule::recordStaysTheSameAtEveryCall()
{
    const char* first = theRecord();
    QCOMPARE(theRecord(), first);
    QCOMPARE(QByteArray(first), LmPluginRecord::record());
}

void TestPluginModule::metaDataNamesTheInterface()
{
    const QJsonObject data = QPluginLoader(theLibrary.fileName()).metaData();
    QCOMPARE(data.value("IID").toString(), "com.Pelorus.plugin.CvManipulatorPluginInterface/1.0");
    QCOMPARE(data.value("className").toString(), "LmMeasureToolsPlugin");
}

void TestPluginModule::instanceIsMadeOnceWithoutParent()
{
    QObject* first = instance();
    QVERIFY(first);
    QCOMPARE(instance(), first);
    QVERIFY(!first->parent());
    QCOMPARE(QPluginLoader(theLibrary.fileName()).instance(), first);
}

void TestPluginModule::deletedInstanceIsFollowedByANewOne()
{
    const QPointer<QObject> first = instance();
    delete instance();
    QVERIFY(!first);
    QObject* second = instance();
    QVERIFY(second);
    QCOMPARE(instance(), second);
    auto* plugin = qobject_cast<LmCvManipulatorPluginInterface*>(second);
    QVERIFY(plugin);
    QCOMPARE(plugin->featureList().size(), 7);
}

void TestPluginModule::castAnswersItsThreeNames()
{
    QObject* object = instance();
    void* plugin = qobject_cast<LmCvManipulatorPluginInterface*>(object);
    QVERIFY(plugin);
    QVERIFY2(plugin != object, "the interface is the second base");
    QCOMPARE(object->qt_metacast("LmMeasureToolsPlugin"), static_cast<void*>(object));
    QCOMPARE(object->qt_metacast("LmCvManipulatorPluginInterface"), plugin);
    QCOMPARE(object->qt_metacast("com.Pelorus.plugin.CvManipulatorPluginInterface/1.0"), plugin);
    QCOMPARE(object->qt_metacast("QObject"), static_cast<void*>(object));
    QVERIFY(!object->qt_metacast("LmCvManipulator"));
    QVERIFY(!object->qt_metacast("com.Pelorus.plugin.CvManipulatorPluginInterface/2.0"));
    QVERIFY(!object->qt_metacast(""));
    QVERIFY(!object->qt_metacast(nullptr));
}

void TestPluginModule::instanceHasNoSignalsSlotsOrPropertiesOfItsOwn()
{
    const QMetaObject* own = instance()->metaObject();
    QCOMPARE(own->className(), "LmMeasureToolsPlugin");
    QCOMPARE(own->methodCount(), own->methodOffset());
    QCOMPARE(own->propertyCount(), own->propertyOffset());
}

void TestPluginModule::toolOfTheModuleIsAToolOfTheProgram()
{
    auto* plugin = qobject_cast<LmCvManipulatorPluginInterface*>(instance());
    LmCvManipulator* tool = nullptr;
    QVERIFY(plugin->createManipulator("Distance", &tool, nullptr));
    const std::unique_ptr<LmCvManipulator> owner(tool);
    QVERIFY(qobject_cast<LmCvManipulator*>(static_cast<QObject*>(tool)));
    QCOMPARE(tool->metaObject()->className(), "LmCvManipDist");
}

void TestPluginModule::picturesOfTheModuleAreReachable()
{
    QVERIFY(QFile::exists(":/DimCursor.png"));
    QVERIFY(QFile::exists(":/RegionPoly auto.svg"));
    QVERIFY(!QFile::exists(":/measuretools.svg"));
}

MEASURE_TEST_MAIN(TestPluginModule)
#include "TestPluginModule.moc"
