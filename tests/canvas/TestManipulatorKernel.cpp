#include "CmdRemoveObject.h"
#include "EditorFixture.h"
#include "LmKernelObjectData.h"
#include "TestFont.h"

namespace {

LmKSKernelData& kernel()
{
    return *LmKSKernelData::getInstance();
}

} // namespace

class TestManipulatorKernel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void allElevenSignalsAreConnected();
    void signalOfAnotherTypeIsIgnored();
    void signalOfAnUnknownObjectIsIgnored();
    void ownCommandMakesNoSecondItem();
    void undoAndRedoOfACreationBringTheItemBack();
    void flagIsSetExactlyDuringAnOwnPush();
    void viewKeepsWhetherAllIsAnimated();
    void calibrationReachesItemsAndLabels();
    void calibrationOfTooSmallAWidthGivesPixelsWithUnit();
};

void TestManipulatorKernel::allElevenSignalsAreConnected()
{
    EditorFixture f;
    ProbeTool& tool = f.theTool;
    ProbeItem* item = tool.create(QPoint(100, 10));
    tool.theSlotCalls.clear();

    kernel().announceResolution(QSize(400, 300), QSize(800, 600));
    kernel().showFrame(3, false);
    kernel().showFrame(4, true);
    kernel().announceObjectChanged(ProbeTool::kType, 1);
    QCOMPARE(tool.theSlotCalls, (QStringList{QStringLiteral("resolution 800"), QStringLiteral("frame 3"),
                                             QStringLiteral("frame 4"), QStringLiteral("changed 1900 1")}));

    kernel().setCalibration(QStringLiteral("c"), LmCalibData{100.0, QStringLiteral("mm")});
    QCOMPARE(item->theStep, 0.0); // known, not current
    kernel().setCurrentCalibration(QStringLiteral("c"));
    QCOMPARE(item->theStep, 4.0);
    kernel().setCalibration(QStringLiteral("c"), LmCalibData{200.0, QStringLiteral("mm")});
    QCOMPARE(item->theStep, 2.0);

    kernel().announceObjectShow(ProbeTool::kType, 1, false);
    QVERIFY(!item->isVisible());
    kernel().announceObjectColor(ProbeTool::kType, 1, Qt::cyan);
    QCOMPARE(item->getColor(), QColor(Qt::cyan));
    kernel().announceCurrentView(0, 1);
    QVERIFY(LmCvManipulator::theCurrentViewAnimated);

    delete kernel().takeObject(ProbeTool::kType, 1);
    QVERIFY(!tool.item(1));
    tool.theSlotCalls.clear();
    f.theStack.clear();
    tool.create(QPoint(10, 10));
    QCOMPARE(tool.theSlotCalls, QStringList(QStringLiteral("created 1900 1")));
    kernel().theCurrentFrame = 0;
}

void TestManipulatorKernel::signalOfAnotherTypeIsIgnored()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(10, 10));
    const QColor color = item->getColor();
    constexpr int kOther = ProbeTool::kType + 1;
    kernel().announceObjectShow(kOther, 1, false);
    kernel().announceObjectColor(kOther, 1, Qt::cyan);
    f.theTool.slotObjectRemovedInKernel(kOther, 1);
    QVERIFY(item->isVisible());
    QCOMPARE(item->getColor(), color);
    QCOMPARE(f.theTool.item(1), item);
}

void TestManipulatorKernel::signalOfAnUnknownObjectIsIgnored()
{
    EditorFixture f;
    f.theTool.create(QPoint(10, 10));
    f.theTool.slotObjectShowInKernel(ProbeTool::kType, 9, false);
    f.theTool.slotObjectColorChangedInKernel(ProbeTool::kType, 9, Qt::cyan);
    f.theTool.slotObjectRemovedInKernel(ProbeTool::kType, 9);
    QCOMPARE(f.theTool.theCvObjects.size(), 1);
    QVERIFY(f.theTool.item(1)->isVisible());
}

void TestManipulatorKernel::ownCommandMakesNoSecondItem()
{
    EditorFixture f;
    f.theTool.create(QPoint(10, 10));
    QCOMPARE(f.theTool.theSlotCalls, QStringList(QStringLiteral("created 1900 1")));
    QCOMPARE(f.theEditor.cvItems().size(), 1);
}

void TestManipulatorKernel::undoAndRedoOfACreationBringTheItemBack()
{
    EditorFixture f;
    f.theTool.create(QPoint(10, 10));
    for (int round = 0; round < 2; ++round) {
        f.theStack.undo();
        QVERIFY(f.theEditor.cvItems().isEmpty());
        QVERIFY(!f.theTool.record(1));
        f.theStack.redo();
        QCOMPARE(f.theEditor.cvItems().size(), 1);
        QCOMPARE(f.theTool.item(1)->theCorner, QPoint(10, 10));
        QVERIFY(f.theTool.record(1));
    }
}

void TestManipulatorKernel::flagIsSetExactlyDuringAnOwnPush()
{
    EditorFixture f;
    f.theTool.create(QPoint(10, 10));
    bool during = false;
    const auto connection = connect(&kernel(), &LmKSKernelData::signalObjectRemoved, this,
                                    [&] { during = f.theTool.theSelfChange; });
    f.theTool.pushOwn(new CmdRemoveObject(ProbeTool::kType, 1));
    QVERIFY(during);
    QVERIFY(!f.theTool.theSelfChange);
    f.theStack.undo();
    f.theTool.removeCvObject(f.theTool.item(1));
    QVERIFY(!during);
    disconnect(connection);

    // Within a macro of the tool itself the flag stays as the tool has set it.
    f.theTool.create(QPoint(10, 10));
    f.theTool.theSelfChange = true;
    f.theTool.pushOwn(new CmdRemoveObject(ProbeTool::kType, 1));
    QVERIFY(f.theTool.theSelfChange);
    f.theTool.theSelfChange = false;
}

void TestManipulatorKernel::viewKeepsWhetherAllIsAnimated()
{
    EditorFixture f;
    kernel().announceCurrentView(1, 1);
    QVERIFY(LmCvManipulator::theCurrentViewAnimated);
    kernel().announceCurrentView(1, 0);
    QVERIFY(!LmCvManipulator::theCurrentViewAnimated);
}

void TestManipulatorKernel::calibrationReachesItemsAndLabels()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(100, 10));
    ProbeItem* other = f.theTool.create(QPoint(200, 10));
    kernel().setCalibration(QStringLiteral("c"), LmCalibData{100.0, QStringLiteral("mm")});
    kernel().setCurrentCalibration(QStringLiteral("c"));
    QCOMPARE(item->theStep, 4.0); // 400 pixels for 100 mm
    QCOMPARE(item->theUnit, QStringLiteral("mm"));
    QCOMPARE(item->theDisplayValue, QStringLiteral("25.00mm"));
    QCOMPARE(other->theDisplayValue, QStringLiteral("50.00mm"));
}

void TestManipulatorKernel::calibrationOfTooSmallAWidthGivesPixelsWithUnit()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(100, 10));
    kernel().setCalibration(QStringLiteral("c"), LmCalibData{0.001, QStringLiteral("mm")});
    kernel().setCurrentCalibration(QStringLiteral("c"));
    QCOMPARE(item->theStep, 0.0);
    QCOMPARE(item->theUnit, QStringLiteral("mm"));
    QCOMPARE(item->theDisplayValue, QStringLiteral("100.00mm"));
}

MEASURE_TEST_MAIN(TestManipulatorKernel)
#include "TestManipulatorKernel.moc"
