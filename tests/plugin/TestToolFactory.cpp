#include "LmCvManipDist.h"
#include "LmMeasureToolsPlugin.h"
#include "LmToolFactory.h"
#include "TestFont.h"

#include <memory>

namespace {

const QStringList kFeatures = {"Region", "Counter",        "Dimension",  "Distance",
                               "Angle",  "Measure_window", "Auto_create"};
const QStringList kLookUpOrder = {"Region", "Counter",        "Distance",   "Dimension",
                                  "Angle",  "Measure_window", "Auto_create"};

/// A place that no tool can have, to see whether a pointer was written.
LmCvManipulator* somewhere()
{
    static char thePlace = 0;
    return reinterpret_cast<LmCvManipulator*>(&thePlace);
}

} // namespace

class TestToolFactory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sevenNamesAreOfferedInTheirOrder();
    void toolsAreLookedUpInAnotherOrderThanOffered();
    void everyToolThatExistsIsOffered();
    void everyOfferedNameGivesATool_data();
    void everyOfferedNameGivesATool();
    void unknownNameGivesFalseAndNull_data();
    void unknownNameGivesFalseAndNull();
    void distanceIsMadeByTheConstructorWithoutToolBar();
    void toolBelongsToTheGivenParent();
    void repeatedNameGivesASecondTool();
    void noFeatureIsAddedToTheMainWindow_data();
    void noFeatureIsAddedToTheMainWindow();

private:
    LmMeasureToolsPlugin thePlugin;
};

void TestToolFactory::sevenNamesAreOfferedInTheirOrder()
{
    QCOMPARE(thePlugin.featureList(), kFeatures);
}

void TestToolFactory::toolsAreLookedUpInAnotherOrderThanOffered()
{
    QVERIFY(kLookUpOrder != thePlugin.featureList());
    QCOMPARE(LmToolFactory::toolNames(), kLookUpOrder);
}

void TestToolFactory::everyToolThatExistsIsOffered()
{
    const QStringList names = LmToolFactory::toolNames();
    QVERIFY(!names.isEmpty());
    for (const QString& name : names)
        QVERIFY2(thePlugin.featureList().contains(name), qPrintable(name));
}

void TestToolFactory::everyOfferedNameGivesATool_data()
{
    QTest::addColumn<QString>("name");
    for (const QString& name : kFeatures)
        QTest::newRow(qPrintable(name)) << name;
}

void TestToolFactory::everyOfferedNameGivesATool()
{
    QFETCH(QString, name);
    QObject parent;
    LmCvManipulator* tool = somewhere();
    QVERIFY(thePlugin.createManipulator(name, &tool, &parent));
    QCOMPARE(parent.children(), QObjectList{tool});
}

void TestToolFactory::unknownNameGivesFalseAndNull_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("empty") << QString("");
    QTest::newRow("null") << QString();
    QTest::newRow("lower case") << "distance";
    QTest::newRow("upper case") << "DISTANCE";
    QTest::newRow("blank behind") << "Distance ";
    QTest::newRow("beginning only") << "Dist";
    QTest::newRow("two names") << "Distance,Angle";
}

void TestToolFactory::unknownNameGivesFalseAndNull()
{
    QFETCH(QString, name);
    QObject parent;
    LmCvManipulator* tool = somewhere();
    QVERIFY(!thePlugin.createManipulator(name, &tool, &parent));
    QVERIFY(tool == nullptr);
    QVERIFY(parent.children().isEmpty());
}

void TestToolFactory::distanceIsMadeByTheConstructorWithoutToolBar()
{
    QObject parent;
    LmCvManipulator* tool = nullptr;
    QVERIFY(thePlugin.createManipulator("Distance", &tool, &parent));
    QVERIFY(qobject_cast<LmCvManipDist*>(tool));
    QCOMPARE(tool->theObjectType, 1102);
    QVERIFY(!tool->theInitDone);
    QVERIFY(!tool->theToolButton);
    QVERIFY(!tool->theToolBar);
}

void TestToolFactory::toolBelongsToTheGivenParent()
{
    QObject parent;
    LmCvManipulator* tool = nullptr;
    QVERIFY(thePlugin.createManipulator("Distance", &tool, &parent));
    QCOMPARE(tool->parent(), &parent);

    LmCvManipulator* orphan = nullptr;
    QVERIFY(thePlugin.createManipulator("Distance", &orphan, nullptr));
    const std::unique_ptr<LmCvManipulator> owner(orphan);
    QVERIFY(!orphan->parent());
}

void TestToolFactory::repeatedNameGivesASecondTool()
{
    QObject parent;
    LmCvManipulator* first = nullptr;
    LmCvManipulator* second = nullptr;
    QVERIFY(thePlugin.createManipulator("Distance", &first, &parent));
    QVERIFY(thePlugin.createManipulator("Distance", &second, &parent));
    QVERIFY(first != second);
    QCOMPARE(parent.children().size(), 2);
}

void TestToolFactory::noFeatureIsAddedToTheMainWindow_data()
{
    everyOfferedNameGivesATool_data();
    QTest::newRow("unknown") << "Tape";
}

void TestToolFactory::noFeatureIsAddedToTheMainWindow()
{
    QFETCH(QString, name);
    QMenu* menu = nullptr;
    QVERIFY(!thePlugin.addFeatures(name, nullptr, &menu, nullptr, nullptr, nullptr));
    QVERIFY(!menu);
}

MEASURE_TEST_MAIN(TestToolFactory)
#include "TestToolFactory.moc"
