#include "DistanceFixture.h"
#include "LmKernelObjectDataDescr.h"
#include "TestFont.h"

#include <QDomDocument>
#include <QMouseEvent>
#include <QToolButton>

#include <memory>

class TestDistanceStart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<ToolFixture>(); }
    void cleanup() { theFixture.reset(); }

    void constructorTouchesNeitherKernelNorToolBar();
    void initMakesTheButtonAndItsTexts();
    void initRegistersTheFiveParameters();
    void twoArgumentConstructorStartsTheTool();
    void orderOfTheHostsCallsDoesNotMatter();
    void takenTypeLeavesTheToolInert();
    void takenDescriptorLeavesTheToolInert();
    void describesItsObjects();
    void kernelSignalsWithoutAnEditorDoNoHarm();

private:
    void expectInert(LmCvManipDist& aTool);

    std::unique_ptr<ToolFixture> theFixture;
};

void TestDistanceStart::constructorTouchesNeitherKernelNorToolBar()
{
    QObject parent;
    auto* tool = new LmCvManipDist(&parent);
    QCOMPARE(tool->parent(), &parent);
    QCOMPARE(tool->theObjectType, 1102);
    QVERIFY(!tool->theInitDone);
    QVERIFY(!tool->theToolButton);
    QVERIFY(!tool->theCurrent);
    QVERIFY(tool->theValueNames.isEmpty());
    QVERIFY(!theFixture->theKernel.getCvManipulator(1102));
    QVERIFY(!theFixture->theKernel.getDataDescriptor(1102));
    QCOMPARE(&tool->getCursor(), &tool->theToolCursor);
}

void TestDistanceStart::initMakesTheButtonAndItsTexts()
{
    LmCvManipDist tool(nullptr);
    QVERIFY(!tool.theToolButton);
    theFixture->start(tool);
    QVERIFY(tool.theInitDone);
    QVERIFY(tool.theToolButton);
    QCOMPARE(tool.theToolButton->parentWidget(), &theFixture->theToolBar);
    QCOMPARE(tool.theToolButton->toolTip(), QStringLiteral("Distance tool"));
    QCOMPARE(tool.theToolButton->whatsThis(),
             QStringLiteral("Tool for measuring distances on the image view"));
    QVERIFY(tool.theToolButton->autoRaise());
    QCOMPARE(tool.theToolButton->icon().cacheKey(), tool.theToolIcon.cacheKey());
    QCOMPARE(tool.theValueNames, (QStringList{QStringLiteral("Distance"), QStringLiteral("DX"),
                                              QStringLiteral("DY"), QStringLiteral("Angle")}));
    QCOMPARE(tool.getAnimatedValueNames(), tool.theValueNames);
}

void TestDistanceStart::initRegistersTheFiveParameters()
{
    LmCvManipDist tool(nullptr);
    theFixture->start(tool);
    QCOMPARE(theFixture->theKernel.getCvManipulator(1102), &tool);
    const LmKernelObjectDataDescr* descriptor = theFixture->theKernel.getDataDescriptor(1102);
    QVERIFY(descriptor);
    QCOMPARE(descriptor->objectType(), 1102);
    struct Expected
    {
        const char* theName;
        QMetaType::Type theType;
        int theKind;
    };
    const Expected expected[] = {{"vis", QMetaType::Bool, 2},
                                 {"col", QMetaType::QColor, 2},
                                 {"dispv", QMetaType::QString, 2},
                                 {"pos", QMetaType::QPoint, 0},
                                 {"ep", QMetaType::QPoint, 0}};
    QCOMPARE(descriptor->count(), 5);
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(descriptor->param(i).theName, QLatin1String(expected[i].theName));
        QCOMPARE(descriptor->param(i).theType, expected[i].theType);
        QCOMPARE(int(descriptor->param(i).theKeyframeType), expected[i].theKind);
    }
}

void TestDistanceStart::twoArgumentConstructorStartsTheTool()
{
    QObject parent;
    LmCvManipDist tool(&theFixture->theToolBar, &parent);
    QVERIFY(tool.theInitDone);
    QVERIFY(tool.theToolButton);
    QCOMPARE(tool.theValueNames.size(), 4);
    QCOMPARE(theFixture->theKernel.getCvManipulator(1102), &tool);
    // Connected too: with stack and editor it draws.
    tool.setUndoStack(&theFixture->theStack);
    tool.setCvEditor(&theFixture->theEditor);
    theFixture->theEditor.setCurrentManipulator(&tool);
    theFixture->drag(QPoint(10, 10), QPoint(50, 10));
    QCOMPARE(tool.theCvObjects.size(), 1);
    theFixture->theStack.undo();
    QCOMPARE(tool.theCvObjects.size(), 0);
    theFixture->theStack.clear();
}

void TestDistanceStart::orderOfTheHostsCallsDoesNotMatter()
{
    LmCvManipDist tool(nullptr);
    tool.initManipulator(&theFixture->theToolBar);
    tool.setCvEditor(&theFixture->theEditor);
    tool.setUndoStack(&theFixture->theStack);
    theFixture->theEditor.setCurrentManipulator(&tool);
    theFixture->drag(QPoint(10, 10), QPoint(90, 10));
    theFixture->drag(QPoint(50, 10), QPoint(50, 40));
    QCOMPARE(theFixture->theStack.count(), 2);
    QCOMPARE(theFixture->stored(1102, 1, DistanceFixture::kPos), QVariant(QPoint(90, 70)));
    theFixture->theStack.clear();
}

void TestDistanceStart::expectInert(LmCvManipDist& aTool)
{
    ToolFixture& f = *theFixture;
    QVERIFY(!aTool.theInitDone);
    QVERIFY(aTool.theValueNames.isEmpty());
    QVERIFY(aTool.theToolIcon.isNull());
    // The base has made a button, but it stays bare.
    QVERIFY(aTool.theToolButton && aTool.theToolButton->toolTip() != QStringLiteral("Distance tool"));
    for (const char* signal :
         {"2signalObjectCreated(int,int,const LmKernelObjectData*)", "2signalFrameReadyStop(Int64)"})
        QVERIFY(!QObject::disconnect(&f.theKernel, signal, &aTool, nullptr));
    f.theEditor.setCurrentManipulator(&aTool);
    f.drag(QPoint(10, 10), QPoint(50, 10));
    QCOMPARE(f.itemCount(), 0);
    QCOMPARE(f.theStack.count(), 0);
}

void TestDistanceStart::takenTypeLeavesTheToolInert()
{
    LmCvManipDist first(nullptr);
    theFixture->start(first);
    LmCvManipDist second(nullptr);
    theFixture->start(second);
    expectInert(second);
    // The counter-case: the first one is connected and draws.
    theFixture->theEditor.setCurrentManipulator(&first);
    theFixture->drag(QPoint(10, 10), QPoint(50, 10));
    QCOMPARE(first.theCvObjects.size(), 1);
    QVERIFY(
        QObject::disconnect(&theFixture->theKernel, SIGNAL(signalFrameReadyStop(Int64)), &first, nullptr));
    theFixture->theStack.clear();
}

void TestDistanceStart::takenDescriptorLeavesTheToolInert()
{
    // A descriptor whose type no tool has.
    QVERIFY(theFixture->theKernel.registerDataDescriptor(new LmKernelObjectDataDescr(1102, 0), 1102));
    LmCvManipDist tool(nullptr);
    theFixture->start(tool);
    expectInert(tool);
    QCOMPARE(theFixture->theKernel.getDataDescriptor(1102)->count(), 0);
}

void TestDistanceStart::describesItsObjects()
{
    LmCvManipDist tool(nullptr);
    QCOMPARE(tool.getCvObjectFlags(nullptr), 732);
    QCOMPARE(tool.getObjectTypeNames(), QStringList{QStringLiteral("Distance")});
    QCOMPARE(tool.getObjectName(1), QStringLiteral("Distance"));
    QCOMPARE(tool.getObjectName(nullptr), QStringLiteral("Distance"));
    QCOMPARE(&tool.getIconSet(QString()), &tool.theToolIcon);
    QCOMPARE(&tool.getIconSet(QStringLiteral("Region")), &tool.theToolIcon);
    QVERIFY(!tool.allObjectsNeedRecalc());
}

void TestDistanceStart::kernelSignalsWithoutAnEditorDoNoHarm()
{
    LmCvManipDist tool(&theFixture->theToolBar, nullptr);
    theFixture->theKernel.showFrame(3, false);
    theFixture->theKernel.announceResolution(QSize(400, 300), QSize(800, 600));
    theFixture->calibrate(10.0, QStringLiteral("mm"));
    const LmKernelObjectDataDescr* descriptor = theFixture->theKernel.getDataDescriptor(1102);
    auto* record =
        new LmKernelObjectData(descriptor->createKeyframeVector(), descriptor->getKeyframeTypes(), 0);
    QVERIFY(theFixture->theKernel.insertObject(1102, 1, record));
    QVERIFY(tool.theCvObjects.isEmpty());
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    tool.mousePressEvent(&press);
    QVERIFY(!press.isAccepted());
    delete theFixture->theKernel.takeObject(1102, 1);
}

MEASURE_TEST_MAIN(TestDistanceStart)
#include "TestDistanceStart.moc"
