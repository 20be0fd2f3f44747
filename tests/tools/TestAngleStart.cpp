#include "AngleFixture.h"
#include "LmKernelObjectDataDescr.h"
#include "TestFont.h"

#include <QToolButton>

#include <memory>

/// What is the angle's own in how its tool starts.
class TestAngleStart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<ToolFixture>(); }
    void cleanup() { theFixture.reset(); }

    void constructorTouchesNeitherKernelNorToolBar();
    void initMakesTheButtonAndItsTexts();
    void initRegistersTheSixParameters();
    void twoArgumentConstructorStartsTheTool();
    void takenTypeLeavesTheToolInert();
    void describesItsObjects();

private:
    std::unique_ptr<ToolFixture> theFixture;
};

void TestAngleStart::constructorTouchesNeitherKernelNorToolBar()
{
    QObject parent;
    auto* tool = new LmCvManipAngle(&parent);
    QCOMPARE(tool->parent(), &parent);
    QCOMPARE(tool->theObjectType, 1106);
    QVERIFY(!tool->theInitDone);
    QVERIFY(!tool->theToolButton);
    QVERIFY(!tool->theCurrent);
    QCOMPARE(tool->theStage, 0);
    QVERIFY(!theFixture->theKernel.getCvManipulator(1106));
    QCOMPARE(&tool->getCursor(), &tool->theToolCursor);
    QCOMPARE(tool->theToolCursor.hotSpot(), QPoint(7, 24));
    QVERIFY(!tool->theToolCursor.pixmap().isNull());
}

void TestAngleStart::initMakesTheButtonAndItsTexts()
{
    LmCvManipAngle tool(nullptr);
    theFixture->start(tool);
    QVERIFY(tool.theInitDone);
    QCOMPARE(tool.theToolButton->toolTip(), QStringLiteral("Angle tool"));
    QCOMPARE(tool.theToolButton->whatsThis(), QStringLiteral("Tool for create angles on the image view"));
    QVERIFY(tool.theToolButton->autoRaise());
    QVERIFY(!tool.theToolIcon.pixmap(32, 32).isNull());
    QCOMPARE(tool.theToolButton->icon().cacheKey(), tool.theToolIcon.cacheKey());
    QCOMPARE(tool.theValueNames, QStringList{QStringLiteral("Angle")});
}

void TestAngleStart::initRegistersTheSixParameters()
{
    LmCvManipAngle tool(nullptr);
    theFixture->start(tool);
    QCOMPARE(theFixture->theKernel.getCvManipulator(1106), &tool);
    const LmKernelObjectDataDescr* descriptor = theFixture->theKernel.getDataDescriptor(1106);
    QVERIFY(descriptor);
    QCOMPARE(descriptor->objectType(), 1106);
    struct Expected
    {
        const char* theName;
        QMetaType::Type theType;
        int theKind;
    };
    const Expected expected[] = {{"vis", QMetaType::Bool, 2},      {"col", QMetaType::QColor, 2},
                                 {"dispv", QMetaType::QString, 2}, {"pos", QMetaType::QPoint, 0},
                                 {"ep1", QMetaType::QPoint, 0},    {"ep2", QMetaType::QPoint, 0}};
    QCOMPARE(descriptor->count(), 6);
    for (int i = 0; i < 6; ++i) {
        QCOMPARE(descriptor->param(i).theName, QLatin1String(expected[i].theName));
        QCOMPARE(descriptor->param(i).theType, expected[i].theType);
        QCOMPARE(int(descriptor->param(i).theKeyframeType), expected[i].theKind);
    }
}

void TestAngleStart::twoArgumentConstructorStartsTheTool()
{
    LmCvManipAngle tool(&theFixture->theToolBar, nullptr);
    QVERIFY(tool.theInitDone);
    QVERIFY(tool.theToolButton);
    QCOMPARE(theFixture->theKernel.getCvManipulator(1106), &tool);
}

void TestAngleStart::takenTypeLeavesTheToolInert()
{
    LmCvManipAngle first(nullptr);
    theFixture->start(first);
    LmCvManipAngle second(nullptr);
    theFixture->start(second);
    QVERIFY(!second.theInitDone);
    QVERIFY(second.theValueNames.isEmpty());
    theFixture->drag(QPoint(100, 100), QPoint(150, 100));
    QCOMPARE(theFixture->itemCount(), 0);
    QVERIFY(!theFixture->theEditor.mouseGrabber());
}

void TestAngleStart::describesItsObjects()
{
    LmCvManipAngle tool(nullptr);
    QCOMPARE(tool.getCvObjectFlags(nullptr), 732);
    QCOMPARE(tool.getObjectTypeNames(), QStringList{QStringLiteral("Angle")});
    QCOMPARE(tool.getObjectName(1), QStringLiteral("Angle"));
    QCOMPARE(tool.getObjectName(nullptr), QStringLiteral("Angle"));
    QCOMPARE(&tool.getIconSet(QStringLiteral("Region")), &tool.theToolIcon);
    QVERIFY(!tool.allObjectsNeedRecalc());
}

MEASURE_TEST_MAIN(TestAngleStart)
#include "TestAngleStart.moc"
