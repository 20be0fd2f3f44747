#include "EditorFixture.h"
#include "LmKernelObjectData.h"
#include "TestFont.h"

#include <QSignalSpy>

class TestSelection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shiftClickTakesAndLeaves();
    void shiftClickAddsToTheCurrentItem();
    void shiftClickOnANodeSelectsTheNodeOnly();
    void shiftDragMovesTheItem();
    void withAToolShiftSelectsNothing();
    void bandSelectsWhatItHolds();
    void bandWithShiftAdds();
    void bandAroundNothingClears();
    void bandAroundPartsSelectsTheNodesOfTheCurrentItem();
    void bandIsPaintedOnlyWhileItIsDrawn();
};

namespace {

/// Three items in a row at x 50, 100 and 150; their middles are 10 further.
void makeThree(EditorFixture& aFixture)
{
    for (const int x : {50, 100, 150})
        aFixture.theTool.create(QPoint(x, 50));
    aFixture.theStack.clear();
}

const QPoint kFirst(60, 60);
const QPoint kSecond(110, 60);

} // namespace

void TestSelection::shiftClickTakesAndLeaves()
{
    EditorFixture f;
    makeThree(f);
    QSignalSpy changed(&f.theEditor, &LmCvEditor::signalSelectionChanged);
    f.click(kFirst, Qt::ShiftModifier);
    f.click(kSecond, Qt::ShiftModifier);
    QCOMPARE(f.theEditor.selection().items(), (QList<LmCvObject*>{f.theTool.item(1), f.theTool.item(2)}));
    QVERIFY(f.theTool.item(1)->isSelected() && f.theTool.item(2)->isSelected());
    QVERIFY(!f.theTool.item(1)->isActive());
    f.click(kFirst, Qt::ShiftModifier);
    QCOMPARE(f.theEditor.selection().items(), QList<LmCvObject*>{f.theTool.item(2)});
    QVERIFY(!f.theTool.item(1)->isSelected());
    QCOMPARE(changed.count(), 3);
    QCOMPARE(f.theStack.count(), 0);
}

void TestSelection::shiftClickAddsToTheCurrentItem()
{
    EditorFixture f;
    makeThree(f);
    f.click(kFirst);
    f.click(kSecond, Qt::ShiftModifier);
    QCOMPARE(f.theEditor.selection().items().size(), 2);
    f.theEditor.selection().clear();
    f.click(kFirst, Qt::ShiftModifier); // the current item itself
    QCOMPARE(f.theEditor.selection().items(), QList<LmCvObject*>{f.theTool.item(1)});
}

void TestSelection::shiftClickOnANodeSelectsTheNodeOnly()
{
    EditorFixture f;
    makeThree(f);
    f.click(kFirst);
    const QPoint node = f.theTool.item(1)->theCorner + QPoint(1, 1);
    f.click(node, Qt::ShiftModifier);
    QVERIFY(f.theTool.item(1)->theNodeSelected);
    QVERIFY(f.theEditor.selection().items().isEmpty());
}

void TestSelection::shiftDragMovesTheItem()
{
    EditorFixture f;
    makeThree(f);
    f.drag(kFirst, kFirst + QPoint(0, 40), Qt::ShiftModifier);
    QCOMPARE(f.theTool.recordedPos(1), QPoint(50, 90));
    QVERIFY(f.theEditor.selection().items().isEmpty());
    QCOMPARE(f.theEditor.theCurrentTrack, f.theTool.item(1));
}

void TestSelection::withAToolShiftSelectsNothing()
{
    EditorFixture f;
    makeThree(f);
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.click(kFirst, Qt::ShiftModifier);
    QVERIFY(f.theEditor.selection().items().isEmpty());
    QCOMPARE(f.theEditor.theCurrentTrack, f.theTool.item(1));
}

void TestSelection::bandSelectsWhatItHolds()
{
    EditorFixture f;
    makeThree(f);
    f.drag(QPoint(130, 90), QPoint(40, 40)); // from the lower right, and the third only cut
    QCOMPARE(f.theEditor.selection().items().size(), 2);
    QVERIFY(f.theEditor.selection().contains(f.theTool.item(1)));
    QVERIFY(f.theEditor.selection().contains(f.theTool.item(2)));
    f.theTool.item(1)->hide();
    f.drag(QPoint(40, 40), QPoint(160, 90));
    QCOMPARE(f.theEditor.selection().items(), QList<LmCvObject*>{f.theTool.item(2)});
}

void TestSelection::bandWithShiftAdds()
{
    EditorFixture f;
    makeThree(f);
    f.drag(QPoint(40, 40), QPoint(80, 90));
    f.drag(QPoint(140, 40), QPoint(180, 90), Qt::ShiftModifier);
    QCOMPARE(f.theEditor.selection().items(), (QList<LmCvObject*>{f.theTool.item(1), f.theTool.item(3)}));
    f.drag(QPoint(90, 40), QPoint(130, 90));
    QCOMPARE(f.theEditor.selection().items(), QList<LmCvObject*>{f.theTool.item(2)});
}

void TestSelection::bandAroundNothingClears()
{
    EditorFixture f;
    makeThree(f);
    f.drag(QPoint(40, 40), QPoint(80, 90));
    f.drag(QPoint(200, 200), QPoint(300, 250));
    QVERIFY(f.theEditor.selection().items().isEmpty());
    QVERIFY(!f.theTool.item(1)->isSelected());
}

void TestSelection::bandAroundPartsSelectsTheNodesOfTheCurrentItem()
{
    EditorFixture f;
    makeThree(f);
    f.click(kFirst);
    f.drag(QPoint(45, 90), QPoint(60, 65)); // from the lower left
    QCOMPARE(f.theTool.item(1)->theNodeRect, QRect(QPoint(45, 65), QPoint(60, 90)));
    QVERIFY(f.theEditor.selection().items().isEmpty());
    QCOMPARE(f.theEditor.theCurrentTrack, f.theTool.item(1));
}

void TestSelection::bandIsPaintedOnlyWhileItIsDrawn()
{
    EditorFixture f;
    const QImage before = f.theEditor.viewport()->grab().toImage();
    f.press(QPoint(50, 50));
    f.move(QPoint(150, 120));
    const QImage during = f.theEditor.viewport()->grab().toImage();
    int changed = 0;
    for (int x = 50; x <= 150; ++x)
        changed += during.pixelColor(x, 50) != before.pixelColor(x, 50);
    QVERIFY(changed > 20); // white under black dashes on a black picture
    QCOMPARE(during.pixelColor(100, 85), before.pixelColor(100, 85));
    f.release(QPoint(150, 120));
    QCOMPARE(f.theEditor.viewport()->grab().toImage(), before);
}

MEASURE_TEST_MAIN(TestSelection)
#include "TestSelection.moc"
