#include "CounterFixture.h"
#include "LmKernelObjectDataDescr.h"
#include "TestFont.h"

#include <QDomDocument>
#include <QMouseEvent>
#include <QToolButton>

#include <memory>

class TestCounterStart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<ToolFixture>(); }
    void cleanup() { theFixture.reset(); }

    void constructorTouchesNeitherKernelNorToolBar();
    void initMakesTheButtonAndItsTexts();
    void initRegistersTheSixParameters();
    void twoArgumentConstructorStartsTheTool();
    void describesItsObjects();
    void offersActionsOnWholeCounters();
    void watchesAllItemsOfTheEditor();
    void takenTypeLeavesTheToolInert();
    void takenDescriptorLeavesTheToolInert();
    void kernelSignalsWithoutAnEditorDoNoHarm();
    void editorThatGoesFirstDoesNoHarm();

private:
    void expectInert(LmCvManipCounter& aTool);

    std::unique_ptr<ToolFixture> theFixture;
};

void TestCounterStart::constructorTouchesNeitherKernelNorToolBar()
{
    QObject parent;
    auto* tool = new LmCvManipCounter(&parent);
    QCOMPARE(tool->parent(), &parent);
    QCOMPARE(tool->theObjectType, 1107);
    QVERIFY(!tool->theInitDone);
    QVERIFY(!tool->theToolButton);
    QVERIFY(!tool->theCreatedArrow);
    QVERIFY(tool->theCounters.isEmpty());
    QVERIFY(tool->theValueNames.isEmpty());
    QVERIFY(!theFixture->theKernel.getCvManipulator(1107));
    QVERIFY(!theFixture->theKernel.getDataDescriptor(1107));
    QCOMPARE(&tool->getCursor(), &tool->theCounterCursor);
    QCOMPARE(tool->theCounterCursor.hotSpot(), QPoint(16, 16));
}

void TestCounterStart::initMakesTheButtonAndItsTexts()
{
    LmCvManipCounter tool(nullptr);
    theFixture->start(tool);
    QVERIFY(tool.theInitDone);
    QVERIFY(tool.theToolButton);
    QCOMPARE(tool.theToolButton->parentWidget(), &theFixture->theToolBar);
    QCOMPARE(tool.theToolButton->toolTip(), QStringLiteral("Counter tool"));
    QCOMPARE(tool.theToolButton->whatsThis(), QStringLiteral("Tool for counting objects on the image view"));
    QCOMPARE(tool.theToolButton->icon().cacheKey(), tool.theCounterIcon.cacheKey());
    QCOMPARE(&tool.getIconSet(QStringLiteral("Counter")), &tool.theCounterIcon);
    QCOMPARE(&tool.getAutoCreationIconSet(QStringLiteral("Counter")), &tool.theAutoCreationIcon);
    for (const QIcon* icon : {&tool.theCounterIcon, &tool.theAutoCreationIcon})
        QVERIFY(!icon->pixmap(32, 32).isNull());
    QVERIFY(tool.theCounterIcon.pixmap(32, 32).toImage() !=
            tool.theAutoCreationIcon.pixmap(32, 32).toImage());
    QCOMPARE(tool.theValueNames, (QStringList{QStringLiteral("Count"), QStringLiteral("% Of Total")}));
    // The button activates the tool and puts it down.
    theFixture->theEditor.setCurrentManipulator(nullptr);
    tool.theToolButton->setChecked(true);
    QCOMPARE(theFixture->theEditor.theCurrentManipulator, &tool);
    tool.theToolButton->setChecked(false);
    QVERIFY(!theFixture->theEditor.theCurrentManipulator);
}

void TestCounterStart::initRegistersTheSixParameters()
{
    LmCvManipCounter tool(nullptr);
    theFixture->start(tool);
    QCOMPARE(theFixture->theKernel.getCvManipulator(1107), &tool);
    const LmKernelObjectDataDescr* descriptor = theFixture->theKernel.getDataDescriptor(1107);
    QVERIFY(descriptor);
    QCOMPARE(descriptor->objectType(), 1107);
    struct Expected
    {
        const char* theName;
        QMetaType::Type theType;
        int theKind;
    };
    const Expected expected[] = {{"vis", QMetaType::Bool, 2},      {"col", QMetaType::QColor, 2},
                                 {"dispv", QMetaType::QString, 2}, {"pos", QMetaType::QPolygon, 1},
                                 {"nm", QMetaType::QString, 2},    {"fnt", QMetaType::QFont, 2}};
    QCOMPARE(descriptor->count(), 6);
    for (int i = 0; i < 6; ++i) {
        QCOMPARE(descriptor->param(i).theName, QLatin1String(expected[i].theName));
        QCOMPARE(descriptor->param(i).theType, expected[i].theType);
        QCOMPARE(int(descriptor->param(i).theKeyframeType), expected[i].theKind);
    }
}

void TestCounterStart::twoArgumentConstructorStartsTheTool()
{
    QObject parent;
    LmCvManipCounter tool(&theFixture->theToolBar, &parent);
    QVERIFY(tool.theInitDone);
    QVERIFY(tool.theToolButton);
    QCOMPARE(tool.theValueNames.size(), 2);
    // Connected too: with stack and editor it counts.
    tool.setUndoStack(&theFixture->theStack);
    tool.setCvEditor(&theFixture->theEditor);
    theFixture->theEditor.setCurrentManipulator(&tool);
    theFixture->click(QPoint(50, 60));
    QCOMPARE(tool.theCounters.value(1).size(), 1);
    theFixture->theStack.undo();
    QVERIFY(tool.theCounters.isEmpty());
    theFixture->theStack.clear();
}

void TestCounterStart::describesItsObjects()
{
    LmCvManipCounter tool(nullptr);
    QCOMPARE(tool.getObjectName(1), QStringLiteral("Counter"));
    QCOMPARE(tool.getObjectName(static_cast<const LmCvObject*>(nullptr)), QStringLiteral("Counter"));
    QCOMPARE(tool.getObjectTypeNames(), QStringList{QStringLiteral("Counter")});
    QCOMPARE(tool.getCvObjectFlags(nullptr), 804);
    QVERIFY(tool.allObjectsNeedRecalc());
    QVERIFY(tool.getAnimatedValueNames().isEmpty());
}

void TestCounterStart::offersActionsOnWholeCounters()
{
    LmCvManipCounter tool(nullptr);
    const QLinkedList<QPair<QString, int>> expected = {
        {QStringLiteral("Hide whole counter"), 1},
        {QStringLiteral("Show whole counter"), 2},
        {QStringLiteral("Remove whole counter"), 0},
    };
    QCOMPARE(tool.getCustomActions(), expected);
}

void TestCounterStart::watchesAllItemsOfTheEditor()
{
    {
        LmCvManipCounter tool(nullptr);
        theFixture->start(tool);
        QCOMPARE(theFixture->theEditor.theItemWatchers, QLinkedList<LmCvManipulator*>{&tool});
        tool.setCvEditor(&theFixture->theEditor);
        QCOMPARE(theFixture->theEditor.theItemWatchers.size(), 1);
    }
    QVERIFY(theFixture->theEditor.theItemWatchers.isEmpty());
}

void TestCounterStart::expectInert(LmCvManipCounter& aTool)
{
    ToolFixture& f = *theFixture;
    f.start(aTool);
    QVERIFY(!aTool.theInitDone);
    QVERIFY(aTool.theValueNames.isEmpty());
    QVERIFY(aTool.theCounterIcon.isNull() && aTool.theAutoCreationIcon.isNull());
    f.click(QPoint(50, 60));
    QMouseEvent press(QEvent::MouseButtonPress, QPoint(50, 60), QPoint(50, 60), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    aTool.mousePressEvent(&press);
    QVERIFY(!press.isAccepted());
    QCOMPARE(aTool.createCounterElement(QPoint(50, 60), false), -1);
    aTool.constructDataObject(QDomElement(), nullptr);
    QCOMPARE(f.itemCount(), 0);
    QCOMPARE(f.theStack.count(), 0);
    QVERIFY(aTool.theCounters.isEmpty());
}

void TestCounterStart::takenTypeLeavesTheToolInert()
{
    LmCvManipCounter first(nullptr);
    first.initManipulator(nullptr);
    LmCvManipCounter second(nullptr);
    expectInert(second);
    QCOMPARE(theFixture->theKernel.getCvManipulator(1107), &first);
}

void TestCounterStart::takenDescriptorLeavesTheToolInert()
{
    auto* taken = new LmKernelObjectDataDescr(1107, 1);
    QVERIFY(theFixture->theKernel.registerDataDescriptor(taken, 1107));
    LmCvManipCounter tool(nullptr);
    expectInert(tool);
    QCOMPARE(theFixture->theKernel.getDataDescriptor(1107), taken);
    // The tool takes what stands under its type with it.
}

void TestCounterStart::kernelSignalsWithoutAnEditorDoNoHarm()
{
    LmCvManipCounter tool(nullptr);
    tool.initManipulator(nullptr);
    LmKSKernelData& kernel = theFixture->theKernel;
    const LmKernelObjectDataDescr* descr = kernel.getDataDescriptor(1107);
    kernel.insertObject(1107, 1,
                        new LmKernelObjectData(descr->createKeyframeVector(), descr->getKeyframeTypes(), 0));
    kernel.announceObjectChanged(1107, 1);
    kernel.announceObjectShow(1107, 1, false);
    kernel.announceObjectColor(1107, 1, QColor(Qt::red));
    LmCvManipulator::theCurrentViewAnimated = true;
    kernel.showFrame(3, false);
    kernel.announceResolution(QSize(800, 600), QSize(400, 300));
    theFixture->calibrate(100.0, QStringLiteral("mm"));
    delete kernel.takeObject(1107, 1);
    QVERIFY(tool.theCounters.isEmpty());
    QCOMPARE(tool.createCounterElement(QPoint(1, 1), true), -1);
    QVERIFY(!tool.abortAction());
}

void TestCounterStart::editorThatGoesFirstDoesNoHarm()
{
    LmCvManipCounter tool(nullptr);
    auto editor = std::make_unique<LmCvEditor>();
    tool.setUndoStack(&theFixture->theStack);
    tool.setCvEditor(editor.get());
    tool.initManipulator(nullptr);
    QCOMPARE(tool.createCounterElement(QPoint(20, 30), false), 1);
    editor.reset();
    QVERIFY(tool.theCounters.isEmpty());
    QVERIFY(!tool.theCreatedArrow);
    theFixture->theKernel.announceObjectChanged(1107, 1);
    theFixture->calibrate(100.0, QStringLiteral("mm"));
    theFixture->theStack.undo();
    QVERIFY(!theFixture->theKernel.getObject(1107, 1));
    theFixture->theStack.clear();
}

MEASURE_TEST_MAIN(TestCounterStart)
#include "TestCounterStart.moc"
