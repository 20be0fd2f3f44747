#include "CmdChangeObject.h"
#include "CmdRemoveObject.h"
#include "EditorFixture.h"
#include "LmCVSequence.h"
#include "LmKernelObjectData.h"
#include "TestFont.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <QToolButton>

namespace {

/// A tool that adds nothing to its base.
class PlainTool : public LmCvManipulator
{
public:
    using LmCvManipulator::LmCvManipulator;
};

LmKSKernelData& kernel()
{
    return *LmKSKernelData::getInstance();
}

} // namespace

class TestManipulator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // A tool by itself.
    void newToolIsEmpty();
    void defaultsOfTheBase();
    void eventsAreIgnoredByDefault();
    void buttonExistsOnlyAfterTheStart();
    void toolWithoutToolBarHasNoButton();
    void secondConstructorOnlyKeepsTheToolBar();
    void takenTypeLeavesTheToolInert();
    void toolThatGoesFreesItsType();
    void itemsOfAToolThatWentForgetIt();

    // Indices.
    void indexStartsFromOne();
    void gapIsNotFilled();
    void greatestIndexIsUsedAgain();
    void indexIsFoundWhateverTheLabelSays();
    void unknownItemHasNoIndex();

    // Kernel signals.
    void allElevenSignalsAreConnected();
    void signalOfAnotherTypeIsIgnored();
    void signalOfAnUnknownObjectIsIgnored();
    void ownCommandMakesNoSecondItem();
    void undoAndRedoOfACreationBringTheItemBack();
    void flagIsSetExactlyDuringAnOwnPush();
    void viewKeepsWhetherAllIsAnimated();
    void calibrationReachesItemsAndLabels();
    void calibrationOfTooSmallAWidthGivesPixelsWithUnit();

    // Commands.
    void removalShownAndColorGoThroughUndoableCommands();
    void hiddenItemIsNoLongerCurrentOrSelected();
    void animationIsSwitchedByACommand();
    void foreignItemGivesNoCommand();
    void withoutUndoStackNothingHappens();
    void undoTextsNameTheObject();

    // Values.
    void displayValueOfEachType_data();
    void displayValueOfEachType();
    void displayValueReadsTheItemDuringADrag();
    void displayValueOfAnItemWithoutRecordStays();
    void valuesByIndexAreThoseOfTheRecord();
    void animationHasOneValuePerKeyframedFrame();
    void preparedItemHasStepUnitAndZoom();
    void currentItemIsTakenOver();
    void buttonActivatesAndPutsDown();
};

void TestManipulator::newToolIsEmpty()
{
    PlainTool tool(nullptr);
    QVERIFY(!tool.theInitDone);
    QVERIFY(!tool.theToolButton && !tool.theToolBar && !tool.theCvEditor && !tool.theUndoStack);
    QVERIFY(!tool.theSelfChange);
    QCOMPARE(tool.theKernel, static_cast<QObject*>(&kernel()));
    QCOMPARE(tool.theKernelData, &kernel());
    QVERIFY(tool.theValueNames.isEmpty() && tool.theCvObjects.isEmpty());
}

void TestManipulator::defaultsOfTheBase()
{
    PlainTool tool(nullptr);
    tool.theValueNames = QStringList{QStringLiteral("A"), QStringLiteral("B")};
    QCOMPARE(tool.getSwitchModifier(), 0);
    QCOMPARE(tool.getCvObjectFlags(nullptr), 157);
    QVERIFY(tool.getCustomActions().isEmpty());
    QCOMPARE(tool.getAnimatedValueNames(), tool.theValueNames);
    QVERIFY(tool.getObjectTypeNames().isEmpty());
    QCOMPARE(&tool.getIconSet(QStringLiteral("any")), &tool.theIcon);
    QCOMPARE(&tool.getAutoCreationIconSet(QStringLiteral("any")), &tool.theIcon);
    QCOMPARE(&tool.getCursor(), &tool.theCursor);
    QVERIFY(!tool.allObjectsNeedRecalc());
    QVERIFY(tool.getObjectName(1).isEmpty());
    QVERIFY(tool.getObjectName(static_cast<const LmCvObject*>(nullptr)).isEmpty());
    QVERIFY(!tool.getCvObject(1));
    QVERIFY(!tool.abortAction());
    QCOMPARE(tool.createObjectFromContour(LmCVSequence(3, 8), QString()), -1);
    QCOMPARE(tool.createKeyframesFromContour(nullptr, LmCVSequence(3, 8), 0).size(), 0);

    QString unit = QStringLiteral("kept");
    QVERIFY(!tool.getValue(QStringLiteral("A"), nullptr, unit).isValid());
    QCOMPARE(unit, QStringLiteral("kept"));
    QStringList units{QStringLiteral("old")};
    const LmKernelObjectData empty(LmParamKeyframeVector(), {}, 0);
    const QLinkedList<QVariant> values = tool.getValues(tool.theValueNames, &empty, units);
    QCOMPARE(values.size(), 2);
    QVERIFY(!values.first().isValid() && !values.last().isValid());
    QCOMPARE(units, (QStringList{QString(), QString()}));
}

void TestManipulator::eventsAreIgnoredByDefault()
{
    PlainTool tool(nullptr);
    QMouseEvent mouse(QEvent::MouseButtonPress, QPointF(1, 1), QPointF(1, 1), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    for (const auto handler : {&LmCvManipulator::mousePressEvent, &LmCvManipulator::mouseReleaseEvent,
                               &LmCvManipulator::mouseMoveEvent, &LmCvManipulator::mouseDoubleClickEvent}) {
        mouse.accept();
        (tool.*handler)(&mouse);
        QVERIFY(!mouse.isAccepted());
    }
    QVERIFY(!tool.claimsPress(&mouse, nullptr));
    QKeyEvent key(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
    for (const auto handler : {&LmCvManipulator::keyPressEvent, &LmCvManipulator::keyReleaseEvent}) {
        key.accept();
        (tool.*handler)(&key);
        QVERIFY(!key.isAccepted());
    }
    QContextMenuEvent menu(QContextMenuEvent::Mouse, QPoint(1, 1), QPoint(1, 1));
    menu.accept();
    tool.contextMenuEvent(&menu);
    QVERIFY(!menu.isAccepted());
    QMimeData data;
    QDropEvent drop(QPointF(1, 1), Qt::CopyAction, &data, Qt::NoButton, Qt::NoModifier);
    QVERIFY(!tool.drop(&drop));
}

void TestManipulator::buttonExistsOnlyAfterTheStart()
{
    QToolBar bar;
    PlainTool tool(nullptr);
    QVERIFY(!tool.theToolButton);
    tool.initManipulator(&bar);
    QVERIFY(tool.theToolButton);
    QCOMPARE(tool.theToolBar, &bar);
    QVERIFY(bar.isAncestorOf(tool.theToolButton));
    QVERIFY(tool.theToolButton->isCheckable());
    QVERIFY(!tool.theToolButton->isChecked());
    tool.initManipulator(&bar);
    QCOMPARE(bar.findChildren<QToolButton*>(QStringLiteral("manipulator button")).size(), 1);
}

void TestManipulator::toolWithoutToolBarHasNoButton()
{
    PlainTool tool(nullptr);
    tool.initManipulator(nullptr);
    QVERIFY(!tool.theToolButton);
    QVERIFY(!tool.theToolBar);
}

void TestManipulator::secondConstructorOnlyKeepsTheToolBar()
{
    QToolBar bar;
    PlainTool tool(&bar, nullptr);
    QCOMPARE(tool.theToolBar, &bar);
    QVERIFY(!tool.theToolButton);
}

void TestManipulator::takenTypeLeavesTheToolInert()
{
    EditorFixture f;
    ProbeTool second;
    second.setCvEditor(&f.theEditor);
    second.initManipulator(&f.theBar);
    QVERIFY(!second.theInitDone);
    QVERIFY(second.theValueNames.isEmpty());
    f.theTool.create(QPoint(50, 50));
    QVERIFY(second.theSlotCalls.isEmpty());
    QCOMPARE(kernel().getCvManipulator(ProbeTool::kType), &f.theTool);
}

void TestManipulator::toolThatGoesFreesItsType()
{
    {
        ProbeTool tool;
        tool.initManipulator(nullptr);
        QCOMPARE(kernel().getCvManipulator(ProbeTool::kType), &tool);
    }
    QVERIFY(!kernel().getCvManipulator(ProbeTool::kType));
    QVERIFY(!kernel().getDataDescriptor(ProbeTool::kType));
}

void TestManipulator::itemsOfAToolThatWentForgetIt()
{
    EditorFixture f;
    auto* tool = new ProbeTool(nullptr, ProbeTool::kType + 2);
    tool->setUndoStack(&f.theStack);
    tool->setCvEditor(&f.theEditor);
    tool->initManipulator(&f.theBar);
    ProbeItem* item = tool->create(QPoint(50, 50));
    f.theEditor.theItemWatchers.append(tool);
    f.theEditor.setCurrentManipulator(tool);
    f.theEditor.setMouseGrabber(tool, true);
    delete tool;
    QVERIFY(!item->theManipulator);
    QVERIFY(!f.theEditor.theCurrentManipulator);
    QVERIFY(!f.theEditor.mouseGrabber());
    QVERIFY(f.theEditor.theItemWatchers.isEmpty());
    f.drag(QPoint(60, 60), QPoint(80, 60));
    QCOMPARE(item->theCorner, QPoint(70, 50));
}

void TestManipulator::indexStartsFromOne()
{
    EditorFixture f;
    QCOMPARE(f.theTool.nextObjectIdx(), 1);
    QCOMPARE(f.theTool.create(QPoint(10, 10))->theLabel, QStringLiteral("1"));
    QCOMPARE(f.theTool.nextObjectIdx(), 2);
}

void TestManipulator::gapIsNotFilled()
{
    EditorFixture f;
    for (const int x : {10, 40, 70})
        f.theTool.create(QPoint(x, 10));
    f.theTool.removeCvObject(f.theTool.item(1));
    QCOMPARE(f.theTool.nextObjectIdx(), 4);
}

void TestManipulator::greatestIndexIsUsedAgain()
{
    EditorFixture f;
    for (const int x : {10, 40, 70})
        f.theTool.create(QPoint(x, 10));
    f.theTool.removeCvObject(f.theTool.item(3));
    QCOMPARE(f.theTool.nextObjectIdx(), 3);
}

void TestManipulator::indexIsFoundWhateverTheLabelSays()
{
    EditorFixture f;
    ProbeItem* first = f.theTool.create(QPoint(10, 10));
    ProbeItem* second = f.theTool.create(QPoint(40, 10));
    for (const QString& label :
         {QStringLiteral("2"), QStringLiteral("text"), QString(), QStringLiteral("77")}) {
        first->theLabel = label;
        QCOMPARE(f.theTool.getObjectIdx(first), 1);
    }
    QCOMPARE(f.theTool.getObjectIdx(second), 2);
}

void TestManipulator::unknownItemHasNoIndex()
{
    EditorFixture f;
    f.theTool.create(QPoint(10, 10));
    ProbeItem foreign(&f.theTool, f.theEditor.canvas(), QStringLiteral("1"), &f.theEditor);
    QCOMPARE(f.theTool.getObjectIdx(&foreign), -1);
    QCOMPARE(f.theTool.getObjectIdx(nullptr), -1);
}

void TestManipulator::allElevenSignalsAreConnected()
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

void TestManipulator::signalOfAnotherTypeIsIgnored()
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

void TestManipulator::signalOfAnUnknownObjectIsIgnored()
{
    EditorFixture f;
    f.theTool.create(QPoint(10, 10));
    f.theTool.slotObjectShowInKernel(ProbeTool::kType, 9, false);
    f.theTool.slotObjectColorChangedInKernel(ProbeTool::kType, 9, Qt::cyan);
    f.theTool.slotObjectRemovedInKernel(ProbeTool::kType, 9);
    QCOMPARE(f.theTool.theCvObjects.size(), 1);
    QVERIFY(f.theTool.item(1)->isVisible());
}

void TestManipulator::ownCommandMakesNoSecondItem()
{
    EditorFixture f;
    f.theTool.create(QPoint(10, 10));
    QCOMPARE(f.theTool.theSlotCalls, QStringList(QStringLiteral("created 1900 1")));
    QCOMPARE(f.theEditor.cvItems().size(), 1);
}

void TestManipulator::undoAndRedoOfACreationBringTheItemBack()
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

void TestManipulator::flagIsSetExactlyDuringAnOwnPush()
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

void TestManipulator::viewKeepsWhetherAllIsAnimated()
{
    EditorFixture f;
    kernel().announceCurrentView(1, 1);
    QVERIFY(LmCvManipulator::theCurrentViewAnimated);
    kernel().announceCurrentView(1, 0);
    QVERIFY(!LmCvManipulator::theCurrentViewAnimated);
}

void TestManipulator::calibrationReachesItemsAndLabels()
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

void TestManipulator::calibrationOfTooSmallAWidthGivesPixelsWithUnit()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(100, 10));
    kernel().setCalibration(QStringLiteral("c"), LmCalibData{0.001, QStringLiteral("mm")});
    kernel().setCurrentCalibration(QStringLiteral("c"));
    QCOMPARE(item->theStep, 0.0);
    QCOMPARE(item->theUnit, QStringLiteral("mm"));
    QCOMPARE(item->theDisplayValue, QStringLiteral("100.00mm"));
}

void TestManipulator::removalShownAndColorGoThroughUndoableCommands()
{
    EditorFixture f;
    f.theTool.create(QPoint(10, 10));
    f.theTool.setColorCvObject(f.theTool.item(1), Qt::green);
    QCOMPARE(f.theTool.item(1)->getColor(), QColor(Qt::green));
    f.theTool.showCvObject(f.theTool.item(1), false);
    QVERIFY(!f.theTool.item(1)->isVisible());
    f.theTool.removeCvObject(f.theTool.item(1));
    QVERIFY(!f.theTool.item(1) && f.theEditor.cvItems().isEmpty());
    QCOMPARE(f.theStack.count(), 4);

    f.theStack.undo();
    QVERIFY(f.theTool.item(1));
    f.theStack.undo();
    QVERIFY(f.theTool.item(1)->isVisible());
    f.theStack.undo();
    QCOMPARE(f.theTool.item(1)->getColor(), QColor(Qt::red));
}

void TestManipulator::hiddenItemIsNoLongerCurrentOrSelected()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(10, 10));
    f.theEditor.activateItem(item);
    f.theEditor.selection().toggle(item);
    f.theTool.showCvObject(item, false);
    QVERIFY(!f.theEditor.theCurrentTrack && !item->isActive());
    QVERIFY(f.theEditor.selection().items().isEmpty() && !item->isSelected());
}

void TestManipulator::animationIsSwitchedByACommand()
{
    EditorFixture f;
    f.theTool.create(QPoint(10, 10));
    f.theTool.changeAnimationCvObject(f.theTool.item(1), true, false, false);
    QVERIFY(f.theTool.record(1)->theAnimated);
    f.theStack.undo();
    QVERIFY(!f.theTool.record(1)->theAnimated);
}

void TestManipulator::foreignItemGivesNoCommand()
{
    EditorFixture f;
    ProbeItem foreign(&f.theTool, f.theEditor.canvas(), QStringLiteral("1"), &f.theEditor);
    f.theTool.removeCvObject(&foreign);
    f.theTool.setColorCvObject(&foreign, Qt::green);
    f.theTool.showCvObject(&foreign, true);
    f.theTool.changeAnimationCvObject(&foreign, true, false, false);
    f.theTool.removeCvObject(nullptr);
    QCOMPARE(f.theStack.count(), 0);
}

void TestManipulator::withoutUndoStackNothingHappens()
{
    EditorFixture f;
    f.theTool.create(QPoint(10, 10));
    f.theTool.setUndoStack(nullptr);
    f.theTool.removeCvObject(f.theTool.item(1));
    f.theTool.pushOwn(new CmdRemoveObject(ProbeTool::kType, 1));
    QVERIFY(f.theTool.item(1) && f.theTool.record(1));
}

void TestManipulator::undoTextsNameTheObject()
{
    EditorFixture f;
    QCOMPARE(kernel().objectText(ProbeTool::kType, 3), QStringLiteral("Probe 3"));
}

void TestManipulator::displayValueOfEachType_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::newRow("double") << "X"
                            << "25.00mm";
    QTest::newRow("integer") << "Count"
                             << "100mm";
    QTest::newRow("unsigned") << "Unsigned"
                              << "4000000000mm";
    QTest::newRow("null") << "unknown"
                          << "";
    QTest::newRow("no name") << ""
                             << "";
}

void TestManipulator::displayValueOfEachType()
{
    QFETCH(QString, name);
    EditorFixture f;
    kernel().setCalibration(QStringLiteral("c"), LmCalibData{100.0, QStringLiteral("mm")});
    kernel().setCurrentCalibration(QStringLiteral("c"));
    ProbeItem* item = f.theTool.create(QPoint(100, 10));
    item->setDisplayValue(QStringLiteral("stale"));
    f.theTool.updateDisplayValue(item, name, true, true);
    QTEST(item->theDisplayValue, "text");
}

void TestManipulator::displayValueReadsTheItemDuringADrag()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(100, 10));
    item->place(QPoint(130, 10));
    f.theTool.updateDisplayValue(item, QStringLiteral("X"), false, true);
    QCOMPARE(item->theDisplayValue, QStringLiteral("130.00px"));
    f.theTool.updateDisplayValue(item, QStringLiteral("X"), true, true);
    QCOMPARE(item->theDisplayValue, QStringLiteral("100.00"));
}

void TestManipulator::displayValueOfAnItemWithoutRecordStays()
{
    EditorFixture f;
    ProbeItem foreign(&f.theTool, f.theEditor.canvas(), QStringLiteral("1"), &f.theEditor);
    foreign.setDisplayValue(QStringLiteral("kept"));
    f.theTool.updateDisplayValue(&foreign, QStringLiteral("X"), true, true);
    QCOMPARE(foreign.theDisplayValue, QStringLiteral("kept"));
    f.theTool.updateDisplayValue(nullptr, QStringLiteral("X"), true, true);
}

void TestManipulator::valuesByIndexAreThoseOfTheRecord()
{
    EditorFixture f;
    f.theTool.create(QPoint(100, 10));
    QStringList units;
    const QStringList names{QStringLiteral("Count"), QStringLiteral("unknown")};
    const QLinkedList<QVariant> values = f.theTool.getValues(names, 1, units);
    QCOMPARE(values.size(), 2);
    QCOMPARE(values.first(), QVariant(100));
    QVERIFY(!values.last().isValid());
    QCOMPARE(units.size(), 2);
    QVERIFY(f.theTool.getValues(names, 9, units).isEmpty());
    QVERIFY(units.isEmpty());
}

void TestManipulator::animationHasOneValuePerKeyframedFrame()
{
    EditorFixture f;
    f.theTool.create(QPoint(100, 10));
    f.theTool.changeAnimationCvObject(f.theTool.item(1), true, false, false);
    LmKernelObjectData* record = f.theTool.record(1);
    record->storeValue(ProbeTool::kPos, 8, QPoint(300, 10));
    record->storeValue(ProbeTool::kPos, 2, QPoint(200, 10));
    kernel().theCurrentFrame = 5;
    QString unit;
    const QLinkedList<LmParamKeyframe> animation = f.theTool.getAnimation(QStringLiteral("Count"), 1, unit);
    QCOMPARE(animation.size(), 2);
    QCOMPARE(animation.first(), LmParamKeyframe(2, 200));
    QCOMPARE(animation.last(), LmParamKeyframe(8, 300));
    QCOMPARE(kernel().theCurrentFrame, 5u);
    QVERIFY(f.theTool.getAnimation(QStringLiteral("Count"), 9, unit).isEmpty());
    kernel().theCurrentFrame = 0;
}

void TestManipulator::preparedItemHasStepUnitAndZoom()
{
    EditorFixture f;
    kernel().setCalibration(QStringLiteral("c"), LmCalibData{100.0, QStringLiteral("mm")});
    kernel().setCurrentCalibration(QStringLiteral("c"));
    f.theEditor.setZoom(0.5);
    ProbeItem item(&f.theTool, f.theEditor.canvas(), QStringLiteral("1"), &f.theEditor);
    f.theTool.prepareItem(&item);
    QCOMPARE(item.theStep, 4.0);
    QCOMPARE(item.theUnit, QStringLiteral("mm"));
    QCOMPARE(item.theScale, 0.5);
}

void TestManipulator::currentItemIsTakenOver()
{
    EditorFixture f;
    ProbeItem* first = f.theTool.create(QPoint(10, 10));
    ProbeItem* second = f.theTool.create(QPoint(40, 10));
    f.theTool.makeItemCurrent(first);
    QSignalSpy spy(&f.theEditor, &LmCvEditor::signalCurrentObjectChanged);
    f.theTool.makeItemCurrent(second);
    QVERIFY(!first->isActive());
    QVERIFY(second->isActive());
    QCOMPARE(f.theEditor.theCurrentTrack, second);
    QCOMPARE(spy.count(), 1);
}

void TestManipulator::buttonActivatesAndPutsDown()
{
    EditorFixture f;
    QTest::mouseClick(f.theTool.theToolButton, Qt::LeftButton);
    QCOMPARE(f.theEditor.theCurrentManipulator, &f.theTool);
    QTest::mouseClick(f.theOtherTool.theToolButton, Qt::LeftButton);
    QCOMPARE(f.theEditor.theCurrentManipulator, &f.theOtherTool);
    QVERIFY(!f.theTool.theToolButton->isChecked());
    QTest::mouseClick(f.theOtherTool.theToolButton, Qt::LeftButton);
    QVERIFY(!f.theEditor.theCurrentManipulator);
    f.theTool.makeCurrent();
    QCOMPARE(f.theEditor.theCurrentManipulator, &f.theTool);
    QVERIFY(f.theTool.theToolButton->isChecked());
}

MEASURE_TEST_MAIN(TestManipulator)
#include "TestManipulator.moc"
