#include "DistanceFixture.h"
#include "TestFont.h"

#include "CmdChangeObject.h"
#include "LmKernelObjectDataDescr.h"

#include <memory>

/// The ways between canvas and record after the drawing: edits, undo and redo, changes from elsewhere.
class TestDistanceEditing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { theFixture.reset(); }

    void draggedEndGoesIntoTheRecord();
    void draggedLineGoesIntoTheRecord();
    void editIsOneUndoStep();
    void editKeepsTheShownValueTheColourAndTheVisibility();
    void labelFollowsTheEdit();
    void oddLengthLosesAPixelAtTheStartOnTheWayBack();
    void clickWithoutAChangeIsNoUndoStep();
    void foreignItemIsNotStored();
    void redoneItemHasNoValueUntilTheNextFrame();
    void redoneItemHasNoValueUntilTheNextChange();
    void redoneItemTakesColourStepAndIsShown();
    void redoKeepsTheIndexAfterOthersWent();
    void undoOfARemovalBringsTheItemBack();
    void changeFromElsewhereComesToTheCanvas();
    void changeOfAnotherTypeIsIgnored();
    void ownChangeIsNotTakenTwice();
    void colourAndVisibilityComeByTheirOwnCommands();
    void calibrationChangesStepAndLabel();

private:
    DistanceFixture& fixture() { return *theFixture; }

    std::unique_ptr<DistanceFixture> theFixture;
};

// One distance from (20, 50) to (148, 50), showing its "Distance".
void TestDistanceEditing::init()
{
    theFixture = std::make_unique<DistanceFixture>();
    LmCvManipulator::theLastUsedValueName = QStringLiteral("Distance");
    theFixture->drag(QPoint(20, 50), QPoint(148, 50));
    QCOMPARE(theFixture->pos(1), QPoint(124, 80));
    QCOMPARE(theFixture->ep(1), QPoint(64, 0));
}

void TestDistanceEditing::draggedEndGoesIntoTheRecord()
{
    DistanceFixture& f = fixture();
    f.drag(QPoint(148, 50), QPoint(180, 90));
    QCOMPARE(f.itemCount(), 1);
    QCOMPARE(f.item(1)->theStart, QPoint(20, 50));
    QCOMPARE(f.item(1)->theEnd, QPoint(180, 90));
    QCOMPARE(f.pos(1), QPoint(140, 100)); // (100, 70) on the canvas
    QCOMPARE(f.ep(1), QPoint(80, 20));
}

void TestDistanceEditing::draggedLineGoesIntoTheRecord()
{
    DistanceFixture& f = fixture();
    f.drag(QPoint(84, 50), QPoint(94, 73));
    QCOMPARE(f.item(1)->theStart, QPoint(30, 73));
    QCOMPARE(f.pos(1), QPoint(134, 103));
    QCOMPARE(f.ep(1), QPoint(64, 0));
}

void TestDistanceEditing::editIsOneUndoStep()
{
    DistanceFixture& f = fixture();
    f.drag(QPoint(148, 50), QPoint(180, 90));
    QCOMPARE(f.theStack.count(), 2);
    QVERIFY2(f.theStack.text(1).contains(QStringLiteral("Distance 1")), qPrintable(f.theStack.text(1)));
    QVERIFY(f.theStack.text(1) != f.theStack.text(0));
    f.theStack.undo();
    QCOMPARE(f.pos(1), QPoint(124, 80));
    QCOMPARE(f.item(1)->theStart, QPoint(20, 50));
    QCOMPARE(f.item(1)->theEnd, QPoint(148, 50));
    QCOMPARE(f.item(1)->theDisplayValue, QStringLiteral("128.00"));
    f.theStack.redo();
    QCOMPARE(f.pos(1), QPoint(140, 100));
    QCOMPARE(f.item(1)->theStart, QPoint(20, 50));
    QCOMPARE(f.item(1)->theEnd, QPoint(180, 90));
    f.theStack.undo();
    QCOMPARE(f.item(1)->theEnd, QPoint(148, 50));
}

void TestDistanceEditing::editKeepsTheShownValueTheColourAndTheVisibility()
{
    DistanceFixture& f = fixture();
    LmCvManipulator::theLastUsedValueName = QStringLiteral("DY"); // chosen for later objects
    f.drag(QPoint(148, 50), QPoint(180, 90));
    QCOMPARE(f.stored(1102, 1, DistanceFixture::kDispv), QVariant(QStringLiteral("Distance")));
    QCOMPARE(f.stored(1102, 1, DistanceFixture::kCol), QVariant(QColor(Qt::red)));
    QCOMPARE(f.stored(1102, 1, DistanceFixture::kVis), QVariant(true));
}

void TestDistanceEditing::labelFollowsTheEdit()
{
    DistanceFixture& f = fixture();
    QCOMPARE(f.item(1)->theDisplayValue, QStringLiteral("128.00"));
    f.press(QPoint(148, 50));
    f.move(QPoint(116, 122)); // 96, 72, 120
    QCOMPARE(f.item(1)->theDisplayValue, QStringLiteral("120.00"));
    f.release(QPoint(116, 122));
    QCOMPARE(f.item(1)->theDisplayValue, QStringLiteral("120.00"));
}

void TestDistanceEditing::oddLengthLosesAPixelAtTheStartOnTheWayBack()
{
    DistanceFixture& f = fixture();
    f.drag(QPoint(148, 50), QPoint(149, 50));
    QCOMPARE(f.item(1)->theStart, QPoint(20, 50));
    QCOMPARE(f.pos(1), QPoint(125, 80)); // 84.5 rounds to 85
    QCOMPARE(f.ep(1), QPoint(64, 0));
    f.theStack.undo();
    f.theStack.redo();
    QCOMPARE(f.item(1)->theEnd, QPoint(149, 50));
    QCOMPARE(f.item(1)->theStart, QPoint(21, 50));
}

void TestDistanceEditing::clickWithoutAChangeIsNoUndoStep()
{
    DistanceFixture& f = fixture();
    f.click(QPoint(84, 50));
    f.click(QPoint(148, 50));
    QCOMPARE(f.theStack.count(), 1);
    QCOMPARE(f.itemCount(), 1);
}

void TestDistanceEditing::foreignItemIsNotStored()
{
    DistanceFixture& f = fixture();
    LmCvDistance stranger(&f.theTool, f.theEditor.canvas(), QStringLiteral("1"), &f.theEditor);
    stranger.setPoints(QPoint(0, 0), QPoint(10, 10));
    Q_EMIT f.theEditor.signalCanvasObjectChanged(&stranger);
    QCOMPARE(f.theStack.count(), 1);
    Q_EMIT f.theEditor.signalCanvasObjectChanged(f.item(1)); // the counter-case reaches the tool
    QCOMPARE(f.theTool.theCvObjects.key(f.item(1)), 1);
    f.item(1)->setPoints(QPoint(0, 0), QPoint(10, 10));
    Q_EMIT f.theEditor.signalCanvasObjectChanged(f.item(1));
    QCOMPARE(f.pos(1), QPoint(45, 35));
}

void TestDistanceEditing::redoneItemHasNoValueUntilTheNextFrame()
{
    DistanceFixture& f = fixture();
    LmCvManipulator::theCurrentViewAnimated = true;
    f.theStack.undo();
    f.theStack.redo();
    QCOMPARE(f.item(1)->theDisplayValue, QString());
    QCOMPARE(f.item(1)->labelText(), QStringLiteral(" 1 "));
    f.theKernel.showFrame(0, false);
    QCOMPARE(f.item(1)->theDisplayValue, QStringLiteral("128.00"));
}

void TestDistanceEditing::redoneItemHasNoValueUntilTheNextChange()
{
    DistanceFixture& f = fixture();
    f.theStack.undo();
    f.theStack.redo();
    QCOMPARE(f.item(1)->theStart, QPoint(20, 50));
    QCOMPARE(f.item(1)->theDisplayValue, QString());
    f.item(1)->moveObjectBy(QPoint(3, 4));
    Q_EMIT f.theEditor.signalCanvasObjectChanged(f.item(1));
    QCOMPARE(f.item(1)->theDisplayValue, QStringLiteral("128.00"));
}

void TestDistanceEditing::redoneItemTakesColourStepAndIsShown()
{
    DistanceFixture& f = fixture();
    f.record(1)->storeValue(DistanceFixture::kVis, -1, false);
    f.record(1)->storeValue(DistanceFixture::kCol, -1, QColor(1, 2, 3));
    f.theStack.undo();
    f.calibrate(50.0, QStringLiteral("cm"));
    f.theStack.redo();
    QVERIFY(f.item(1)->isVisible()); // whatever "vis" says
    QCOMPARE(f.item(1)->getColor(), QColor(1, 2, 3));
    QCOMPARE(f.item(1)->theStep, 8.0);
    QCOMPARE(f.item(1)->theUnit, QStringLiteral("cm"));
}

void TestDistanceEditing::redoKeepsTheIndexAfterOthersWent()
{
    DistanceFixture& f = fixture();
    f.drag(QPoint(20, 100), QPoint(120, 100));
    f.theStack.undo();
    delete f.theKernel.takeObject(1102, 1); // from elsewhere
    QCOMPARE(f.theTool.nextObjectIdx(), 1);
    f.theStack.redo();
    QCOMPARE(f.theTool.theCvObjects.keys(), QList<int>{2});
    QCOMPARE(f.item(2)->theLabel, QStringLiteral("2"));
    QVERIFY(f.hasRecord(2));
}

void TestDistanceEditing::undoOfARemovalBringsTheItemBack()
{
    DistanceFixture& f = fixture();
    f.theTool.removeCvObject(f.item(1));
    QCOMPARE(f.itemCount(), 0);
    QVERIFY(f.theTool.theCvObjects.isEmpty());
    QVERIFY(!f.theEditor.theCurrentTrack);
    f.theStack.undo();
    QCOMPARE(f.itemCount(), 1);
    QCOMPARE(f.item(1)->theEnd, QPoint(148, 50));
}

void TestDistanceEditing::changeFromElsewhereComesToTheCanvas()
{
    DistanceFixture& f = fixture();
    const LmKernelObjectDataDescr* descriptor = f.theKernel.getDataDescriptor(1102);
    LmParamKeyframeVector vector = descriptor->createKeyframeVector();
    QVERIFY(descriptor->setValue(vector, QStringLiteral("pos"), QPoint(100, 100)));
    QVERIFY(descriptor->setValue(vector, QStringLiteral("ep"), QPoint(3, 4)));
    QVERIFY(descriptor->setValue(vector, QStringLiteral("dispv"), QStringLiteral("DY")));
    f.theStack.push(new CmdChangeObject(1102, 1, vector, false));
    QCOMPARE(f.item(1)->theStart, QPoint(57, 66)); // (60, 70) on the canvas less (3, 4)
    QCOMPARE(f.item(1)->theEnd, QPoint(63, 74));
    QCOMPARE(f.item(1)->theDisplayValue, QStringLiteral("8.00"));
    f.theStack.undo();
    QCOMPARE(f.item(1)->theEnd, QPoint(148, 50));
    QCOMPARE(f.item(1)->theDisplayValue, QStringLiteral("128.00"));
}

void TestDistanceEditing::changeOfAnotherTypeIsIgnored()
{
    DistanceFixture& f = fixture();
    LmParamKeyframeVector values = f.record(1)->getDefaultKeyframes();
    values.setValue(DistanceFixture::kPos, QPoint(0, 0));
    const LmKernelObjectData other(values, f.theKernel.getDataDescriptor(1102)->getKeyframeTypes(), 0);
    Q_EMIT f.theKernel.signalObjectCreated(1106, 5, &other);
    QCOMPARE(f.itemCount(), 1);
    Q_EMIT f.theKernel.signalObjectChanged(1106, 1, &other);
    QCOMPARE(f.item(1)->theStart, QPoint(20, 50));
    Q_EMIT f.theKernel.signalObjectColorChanged(1106, 1, QColor(Qt::blue));
    QCOMPARE(f.item(1)->getColor(), QColor(Qt::red));
    Q_EMIT f.theKernel.signalObjectShow(1106, 1, false);
    QVERIFY(f.item(1)->isVisible());
    Q_EMIT f.theKernel.signalObjectRemoved(1106, 1);
    QCOMPARE(f.itemCount(), 1);
    // Unknown objects of the own type do no harm; a known one is taken.
    Q_EMIT f.theKernel.signalObjectChanged(1102, 77, &other);
    Q_EMIT f.theKernel.signalObjectRemoved(1102, 77);
    QCOMPARE(f.itemCount(), 1);
    Q_EMIT f.theKernel.signalObjectChanged(1102, 1, &other);
    QVERIFY(f.item(1)->theStart != QPoint(20, 50));
    // A second creation under a known index makes no second item.
    Q_EMIT f.theKernel.signalObjectCreated(1102, 1, &other);
    QCOMPARE(f.itemCount(), 1);
}

void TestDistanceEditing::ownChangeIsNotTakenTwice()
{
    DistanceFixture& f = fixture();
    LmParamKeyframeVector values = f.record(1)->getDefaultKeyframes();
    values.setValue(DistanceFixture::kPos, QPoint(0, 0));
    const LmKernelObjectData other(values, f.theKernel.getDataDescriptor(1102)->getKeyframeTypes(), 0);
    f.theTool.theSelfChange = true;
    Q_EMIT f.theKernel.signalObjectChanged(1102, 1, &other);
    Q_EMIT f.theKernel.signalObjectCreated(1102, 9, &other);
    QCOMPARE(f.item(1)->theStart, QPoint(20, 50));
    f.item(1)->setPoints(QPoint(1, 1), QPoint(9, 9));
    LmCvManipulator::theCurrentViewAnimated = true;
    f.theKernel.showFrame(0, false);
    f.theTool.theSelfChange = false;
    QCOMPARE(f.item(1)->theStart, QPoint(1, 1));
    QCOMPARE(f.itemCount(), 1);
}

void TestDistanceEditing::colourAndVisibilityComeByTheirOwnCommands()
{
    DistanceFixture& f = fixture();
    f.theTool.setColorCvObject(f.item(1), QColor(Qt::blue));
    QCOMPARE(f.item(1)->getColor(), QColor(Qt::blue));
    QCOMPARE(f.stored(1102, 1, DistanceFixture::kCol), QVariant(QColor(Qt::blue)));
    f.theTool.showCvObject(f.item(1), false);
    QVERIFY(!f.item(1)->isVisible());
    f.theStack.undo();
    f.theStack.undo();
    QCOMPARE(f.item(1)->getColor(), QColor(Qt::red));
    QVERIFY(f.item(1)->isVisible());
}

void TestDistanceEditing::calibrationChangesStepAndLabel()
{
    DistanceFixture& f = fixture();
    f.calibrate(100.0, QStringLiteral("mm"));
    QCOMPARE(f.item(1)->theStep, 4.0);
    QCOMPARE(f.item(1)->theUnit, QStringLiteral("mm"));
    QCOMPARE(f.item(1)->theDisplayValue, QStringLiteral("32.00mm"));
    f.calibrate(0.001, QStringLiteral("mm")); // too small to count
    QCOMPARE(f.item(1)->theStep, 0.0);
    QCOMPARE(f.item(1)->theUnit, QStringLiteral("mm"));
    QCOMPARE(f.item(1)->theDisplayValue, QStringLiteral("128.00mm"));
}

MEASURE_TEST_MAIN(TestDistanceEditing)
#include "TestDistanceEditing.moc"
