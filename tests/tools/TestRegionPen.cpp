#include "RegionFixture.h"
#include "TestFont.h"

#include <QSignalSpy>

#include <memory>

/// The pen: clicks and pulled handles, closing, going on at either end.
class TestRegionPen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<RegionFixture>(); }
    void cleanup() { theFixture.reset(); }

    void firstClickMakesAnObjectInOneUndoStep();
    void newObjectTakesTheColorAndTheValueName();
    void clickMakesACorner();
    void pullMakesMirroredHandles();
    void eachNodeIsAnUndoStep();
    void clickOnTheFirstNodeClosesTheOutline();
    void pullOnTheClosingNodeKeepsItsOtherHandle();
    void secondClickOnALoneNodeClosesIt();
    void rightClickAddsANodeLikeAnyOther();
    void pressOnTheLastNodeGoesOnThere();
    void pressOnTheFirstNodePutsNodesInFront();
    void moveOnTheEndThatIsGoneOnWithLeavesTheOutline();
    void altPressStartsTheCurrentRegionOver();
    void pressInsideAClosedRegionDragsIt();
    void freedIndexIsUsedAgain();
    void dragOfANodeIsOneChange();
    void deleteTakesTheSelectedNodes();
    void deleteOfAllNodesRemovesTheObject();
    void deleteWithoutSelectedNodesRemovesTheObject();
    void deleteWithControlDoesNothing();
    void deleteWithTheArrowTakesSelectedNodesFirst();
    void moveWithoutAButtonLeavesTheOutline();

private:
    // (20, 20), (100, 20), (100, 80) closed; the tool is finished.
    void drawTriangle();

    std::unique_ptr<RegionFixture> theFixture;
};

void TestRegionPen::drawTriangle()
{
    theFixture->clickAll({QPoint(20, 20), QPoint(100, 20), QPoint(100, 80), QPoint(20, 20)});
}

void TestRegionPen::firstClickMakesAnObjectInOneUndoStep()
{
    RegionFixture& f = *theFixture;
    f.press(QPoint(50, 60));
    QCOMPARE(f.theStack.count(), 1);
    QCOMPARE(f.theStack.text(0), QStringLiteral("Create object"));
    f.release(QPoint(50, 60));
    QCOMPARE(f.theStack.count(), 2); // what was pulled goes out by itself, also when it is nothing
    f.theStack.undo();
    QCOMPARE(f.recordCount(), 1);
    QCOMPARE(f.item(1)->theLabel, QStringLiteral("1"));
    QCOMPARE(f.anchors(1), QList<QPoint>{QPoint(50, 60)});
    QCOMPARE(f.pos(1), QPoint(90, 90)); // the anchor in the image
    QCOMPARE(f.points(1), QPolygon(3)); // all on the anchor
    QCOMPARE(f.theEditor.theCurrentTrack, f.item(1));
    QVERIFY(f.item(1)->isActive());
    QVERIFY(f.item(1)->isVisible());
    QVERIFY(!f.theTool.theFinished);
    QVERIFY(!f.theTool.theSelfChange);
    f.theStack.undo();
    QCOMPARE(f.recordCount(), 0);
    QCOMPARE(f.itemCount(), 0);
    f.theStack.redo();
    QCOMPARE(f.anchors(1), QList<QPoint>{QPoint(50, 60)});
}

void TestRegionPen::newObjectTakesTheColorAndTheValueName()
{
    RegionFixture& f = *theFixture;
    LmCvManipulator::theLastUsedValueName = QStringLiteral("Area");
    f.calibrate(160.0, QStringLiteral("mm")); // 2.5 pixels each
    drawTriangle();
    QCOMPARE(f.stored(RegionFixture::kType, 1, RegionFixture::kDispv).toString(), QStringLiteral("Area"));
    QCOMPARE(f.stored(RegionFixture::kType, 1, RegionFixture::kCol).value<QColor>(), QColor(Qt::red));
    QVERIFY(f.stored(RegionFixture::kType, 1, RegionFixture::kVis).toBool());
    QCOMPARE(f.item(1)->getColor(), QColor(Qt::red));
    QCOMPARE(f.item(1)->theStep, 2.5);
    QCOMPARE(f.item(1)->labelText(), QStringLiteral(" 1 <384.00mm²> ")); // 80 * 60 / 2 / 2.5²
}

void TestRegionPen::clickMakesACorner()
{
    RegionFixture& f = *theFixture;
    f.clickAll({QPoint(20, 20), QPoint(100, 20)});
    for (int point = 0; point < 3; ++point)
        QCOMPARE(f.item(1)->thePoints[3 + point], QPoint(100, 20));
    QCOMPARE(f.item(1)->theNodeStates[1].synchro, LmBezierPoint::kSynchroMirror);
    QVERIFY(f.recordIsItem(1));
}

void TestRegionPen::pullMakesMirroredHandles()
{
    RegionFixture& f = *theFixture;
    f.click(QPoint(20, 20));
    f.drag(QPoint(100, 50), QPoint(130, 70));
    const LmBezierPoint node = f.item(1)->getNode(1);
    QCOMPARE(node[LmBezierPoint::kAnchor], QPoint(100, 50));
    QCOMPARE(node[LmBezierPoint::kRightCtrl], QPoint(130, 70));
    QCOMPARE(node[LmBezierPoint::kLeftCtrl], QPoint(70, 30));
    QVERIFY(f.recordIsItem(1));
}

void TestRegionPen::eachNodeIsAnUndoStep()
{
    RegionFixture& f = *theFixture;
    const QList<QPoint> nodes{QPoint(20, 20), QPoint(100, 20), QPoint(100, 80), QPoint(40, 90)};
    f.clickAll(nodes);
    QCOMPARE(f.theStack.count(), 5); // the first release is one too
    for (qsizetype left = 3; left > 0; --left) {
        f.theStack.undo();
        QCOMPARE(f.anchors(1), nodes.first(left));
        QVERIFY(f.recordIsItem(1));
    }
    for (qsizetype there = 2; there <= 4; ++there) {
        f.theStack.redo();
        QCOMPARE(f.anchors(1), nodes.first(there));
        QVERIFY(f.recordIsItem(1));
    }
    f.click(QPoint(30, 60)); // the outline is still in the making
    QCOMPARE(f.recordCount(), 1);
    QCOMPARE(f.anchors(1).size(), 5);
}

void TestRegionPen::clickOnTheFirstNodeClosesTheOutline()
{
    RegionFixture& f = *theFixture;
    f.clickAll({QPoint(20, 20), QPoint(100, 20), QPoint(100, 80), QPoint(23, 20)}); // 3 pixels beside it
    QVERIFY(f.item(1)->theClosed);
    QVERIFY(f.isClosed(1));
    QVERIFY(f.theTool.theFinished);
    QCOMPARE(f.anchors(1).size(), 3);
    QVERIFY(f.recordIsItem(1));
    f.click(QPoint(150, 150));
    QCOMPARE(f.recordCount(), 2);
}

void TestRegionPen::pullOnTheClosingNodeKeepsItsOtherHandle()
{
    RegionFixture& f = *theFixture;
    f.drag(QPoint(50, 50), QPoint(60, 50));
    f.clickAll({QPoint(100, 20), QPoint(100, 80)});
    f.drag(QPoint(50, 50), QPoint(50, 80)); // its left handle
    const LmBezierPoint node = f.item(1)->getNode(0);
    QCOMPARE(node[LmBezierPoint::kLeftCtrl], QPoint(50, 80));
    // The other one keeps its length of 10 and points away.
    QCOMPARE(node[LmBezierPoint::kRightCtrl], QPoint(50, 40));
    QVERIFY(f.isClosed(1));
    QVERIFY(f.recordIsItem(1));
}

void TestRegionPen::secondClickOnALoneNodeClosesIt()
{
    RegionFixture& f = *theFixture;
    f.clickAll({QPoint(50, 50), QPoint(50, 50)});
    QCOMPARE(f.anchors(1).size(), 1);
    QVERIFY(f.isClosed(1));
    QVERIFY(f.theTool.theFinished);
}

void TestRegionPen::rightClickAddsANodeLikeAnyOther()
{
    RegionFixture& f = *theFixture;
    QSignalSpy menu(&f.theEditor, &LmCvEditor::signalContextMenu);
    f.click(QPoint(20, 20));
    f.rightClick(QPoint(90, 20));
    QCOMPARE(f.anchors(1), (QList<QPoint>{QPoint(20, 20), QPoint(90, 20)}));
    QVERIFY(f.recordIsItem(1));
    f.rightClick(QPoint(20, 20));
    QVERIFY(f.isClosed(1));
    QCOMPARE(menu.count(), 0);
    f.rightClick(QPoint(150, 150)); // nothing in the making: not the tool's
    QCOMPARE(f.recordCount(), 1);
    QCOMPARE(menu.count(), 1);
}

void TestRegionPen::pressOnTheLastNodeGoesOnThere()
{
    RegionFixture& f = *theFixture;
    f.clickAll({QPoint(20, 20), QPoint(100, 20)});
    f.pickPencil();
    f.pickPen(); // ends the outline
    const int steps = f.theStack.count();
    f.click(QPoint(100, 22));
    QVERIFY(!f.theTool.theFinished);
    QVERIFY(f.theTool.theAppend);
    QCOMPARE(f.theStack.count(), steps);
    f.click(QPoint(100, 90));
    QCOMPARE(f.anchors(1), (QList<QPoint>{QPoint(20, 20), QPoint(100, 20), QPoint(100, 90)}));
    QCOMPARE(f.recordCount(), 1);
}

void TestRegionPen::pressOnTheFirstNodePutsNodesInFront()
{
    RegionFixture& f = *theFixture;
    f.clickAll({QPoint(20, 20), QPoint(100, 20)});
    f.pickPencil();
    f.pickPen();
    f.click(QPoint(20, 20));
    QVERIFY(!f.theTool.theAppend);
    f.drag(QPoint(20, 90), QPoint(10, 100));
    QCOMPARE(f.anchors(1), (QList<QPoint>{QPoint(20, 90), QPoint(20, 20), QPoint(100, 20)}));
    QCOMPARE(f.item(1)->thePoints[0], QPoint(10, 100)); // the left handle is pulled
    QVERIFY(f.recordIsItem(1));
    f.click(QPoint(100, 20)); // the far end
    QVERIFY(f.isClosed(1));
}

void TestRegionPen::moveOnTheEndThatIsGoneOnWithLeavesTheOutline()
{
    RegionFixture& f = *theFixture;
    f.clickAll({QPoint(20, 20), QPoint(100, 20)});
    f.pickPencil();
    f.pickPen();
    f.drag(QPoint(20, 20), QPoint(60, 60));
    QCOMPARE(f.anchors(1), (QList<QPoint>{QPoint(20, 20), QPoint(100, 20)}));
    QVERIFY(f.recordIsItem(1));
}

void TestRegionPen::altPressStartsTheCurrentRegionOver()
{
    RegionFixture& f = *theFixture;
    drawTriangle();
    const int steps = f.theStack.count();
    f.press(QPoint(150, 150), Qt::AltModifier);
    f.release(QPoint(150, 150), Qt::AltModifier);
    QCOMPARE(f.recordCount(), 1);
    QCOMPARE(f.anchors(1), QList<QPoint>{QPoint(150, 150)});
    QVERIFY(!f.isClosed(1));
    QVERIFY(f.recordIsItem(1));
    QVERIFY(!f.theTool.theFinished);
    f.click(QPoint(200, 150));
    QCOMPARE(f.anchors(1).size(), 2);
    while (f.theStack.index() > steps)
        f.theStack.undo();
    QCOMPARE(f.anchors(1).size(), 3);
    QVERIFY(f.isClosed(1));
}

void TestRegionPen::pressInsideAClosedRegionDragsIt()
{
    RegionFixture& f = *theFixture;
    drawTriangle();
    const QPoint before = f.pos(1);
    f.drag(QPoint(85, 40), QPoint(95, 45));
    QCOMPARE(f.recordCount(), 1);
    QCOMPARE(f.pos(1), before + QPoint(10, 5));
    QVERIFY(f.recordIsItem(1));
    f.theStack.undo();
    QCOMPARE(f.pos(1), before);
    QVERIFY(f.recordIsItem(1));
}

void TestRegionPen::freedIndexIsUsedAgain()
{
    RegionFixture& f = *theFixture;
    drawTriangle();
    f.clickAll({QPoint(150, 20), QPoint(200, 20), QPoint(150, 20)});
    QCOMPARE(f.item(2)->theLabel, QStringLiteral("2"));
    f.theTool.removeCvObject(f.item(2));
    f.click(QPoint(150, 150));
    QCOMPARE(f.item(2)->theLabel, QStringLiteral("2"));
    QCOMPARE(f.theTool.theCvObjects.keys(), (QList<int>{1, 2}));
}

void TestRegionPen::dragOfANodeIsOneChange()
{
    RegionFixture& f = *theFixture;
    drawTriangle();
    const int steps = f.theStack.count();
    f.drag(QPoint(100, 80), QPoint(120, 110));
    QCOMPARE(f.theStack.count(), steps + 1);
    QCOMPARE(f.anchors(1)[2], QPoint(120, 110));
    QVERIFY(f.recordIsItem(1));
    f.click(QPoint(120, 110)); // changes nothing
    QCOMPARE(f.theStack.count(), steps + 1);
}

void TestRegionPen::deleteTakesTheSelectedNodes()
{
    RegionFixture& f = *theFixture;
    f.clickAll({QPoint(20, 20), QPoint(100, 20), QPoint(100, 80), QPoint(20, 80), QPoint(20, 20)});
    f.click(QPoint(100, 80));
    f.key(Qt::Key_Delete);
    QCOMPARE(f.anchors(1), (QList<QPoint>{QPoint(20, 20), QPoint(100, 20), QPoint(20, 80)}));
    QVERIFY(f.recordIsItem(1));
    f.theStack.undo();
    QCOMPARE(f.anchors(1).size(), 4);
}

void TestRegionPen::deleteOfAllNodesRemovesTheObject()
{
    RegionFixture& f = *theFixture;
    drawTriangle();
    for (int node = 0; node < 3; ++node) {
        f.item(1)->theNodeStates[node].selected = true;
    }
    f.key(Qt::Key_Delete);
    QCOMPARE(f.recordCount(), 0);
    QVERIFY(!f.theTool.theRegion);
    f.theStack.undo();
    QCOMPARE(f.anchors(1).size(), 3);
    QCOMPARE(f.theEditor.theCurrentTrack, f.item(1));
}

void TestRegionPen::deleteWithoutSelectedNodesRemovesTheObject()
{
    RegionFixture& f = *theFixture;
    drawTriangle();
    f.item(1)->deselectAllNodes(-1);
    f.key(Qt::Key_Delete);
    QCOMPARE(f.recordCount(), 0);
}

void TestRegionPen::deleteWithControlDoesNothing()
{
    RegionFixture& f = *theFixture;
    drawTriangle();
    for (const auto modifier : {Qt::ControlModifier, Qt::AltModifier}) {
        QKeyEvent event(QEvent::KeyRelease, Qt::Key_Delete, modifier);
        event.ignore();
        f.theTool.keyReleaseEvent(&event);
        QVERIFY(event.isAccepted());
    }
    QKeyEvent other(QEvent::KeyRelease, Qt::Key_A, Qt::NoModifier);
    other.ignore();
    f.theTool.keyReleaseEvent(&other);
    QVERIFY(!other.isAccepted());
    QCOMPARE(f.anchors(1).size(), 3);
}

void TestRegionPen::deleteWithTheArrowTakesSelectedNodesFirst()
{
    RegionFixture& f = *theFixture;
    drawTriangle();
    f.theEditor.setCurrentManipulator(nullptr);
    f.click(QPoint(100, 80));
    f.key(Qt::Key_Delete);
    QCOMPARE(f.anchors(1), (QList<QPoint>{QPoint(20, 20), QPoint(100, 20)}));
    QVERIFY(f.recordIsItem(1));
    f.key(Qt::Key_Delete); // no node is selected any more
    QCOMPARE(f.recordCount(), 0);
}

void TestRegionPen::moveWithoutAButtonLeavesTheOutline()
{
    RegionFixture& f = *theFixture;
    f.clickAll({QPoint(20, 20), QPoint(100, 20)});
    const Q3PointArray before = f.item(1)->thePoints;
    f.hover(QPoint(60, 60));
    f.hover(QPoint(90, 90));
    QCOMPARE(static_cast<const QPolygon&>(f.item(1)->thePoints), static_cast<const QPolygon&>(before));
}

MEASURE_TEST_MAIN(TestRegionPen)
#include "TestRegionPen.moc"
