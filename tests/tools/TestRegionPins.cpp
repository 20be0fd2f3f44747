#include "RegionFixture.h"
#include "TestFont.h"

#include <memory>

/// A change of the node count in an animated region is held to its frame by keyframes beside it.
class TestRegionPins : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { theFixture.reset(); }

    void framesBesideAChangeKeepTheirOutlines();
    void firstFrameHasNothingToKeepBefore();
    void lastFrameHasNothingToKeepBehind();
    void nextFrameOfTheSameCountIsLeftAlone();
    void plainRegionChangesItsDefaults();
    void sameCountKeepsNothing();
    void eachKeptFrameIsAnUndoStepThatSaysSo();
    void keptStatesAreNotSelected();
    void outlineChangesAtItsFrameAlone();

private:
    void addNode(long long aFrame);
    qsizetype keptPoints(long long aFrame) const;
    QList<long long> frames() const { return theFixture->record(1)->getKeyframedFrames(); }

    std::unique_ptr<RegionFixture> theFixture;
};

// A closed square in a sequence of 10 frames, animated.
void TestRegionPins::init()
{
    theFixture = std::make_unique<RegionFixture>();
    RegionFixture& f = *theFixture;
    f.clickAll({QPoint(20, 20), QPoint(60, 20), QPoint(60, 60), QPoint(20, 60), QPoint(20, 20)});
    f.theKernel.theFrameCount = 10;
    f.record(1)->theAnimated = true;
}

// As the tool does it: the item changes, then the tool is told.
void TestRegionPins::addNode(long long aFrame)
{
    RegionFixture& f = *theFixture;
    f.theKernel.showFrame(aFrame, false);
    LmBezierPoint node(true, false, LmBezierPoint::kSynchroDirection);
    node.fill(QPoint(10, 40), 3);
    f.item(1)->addNode(node, -1, LmNodeState());
    f.theTool.slotCanvasObjectChanged(f.item(1));
}

// The number of points of the keyframe at exactly this frame, -1 for none.
qsizetype TestRegionPins::keptPoints(long long aFrame) const
{
    const QVariant points = theFixture->record(1)->storedValue(RegionFixture::kPoints, aFrame);
    return points.isValid() ? points.value<QPolygon>().size() : -1;
}

void TestRegionPins::framesBesideAChangeKeepTheirOutlines()
{
    addNode(5);
    QCOMPARE(frames(), (QList<long long>{4, 5, 6}));
    QCOMPARE(keptPoints(4), 12);
    QCOMPARE(keptPoints(5), 15);
    QCOMPARE(keptPoints(6), 12);
    QCOMPARE(theFixture->record(1)->storedValue(RegionFixture::kPos, 4).toPoint(), QPoint(80, 70));
}

void TestRegionPins::firstFrameHasNothingToKeepBefore()
{
    addNode(0);
    QCOMPARE(frames(), QList<long long>{0});
}

void TestRegionPins::lastFrameHasNothingToKeepBehind()
{
    addNode(9);
    QCOMPARE(frames(), (QList<long long>{8, 9}));
}

void TestRegionPins::nextFrameOfTheSameCountIsLeftAlone()
{
    addNode(6);
    theFixture->record(1)->storeValue(RegionFixture::kPoints, 7, QVariant()); // the outline of 6 goes on
    QCOMPARE(
        theFixture->record(1)->getKeyframesAt(7)[RegionFixture::kPoints].getValue().value<QPolygon>().size(),
        15);
    theFixture->theKernel.showFrame(5, false);
    QCOMPARE(theFixture->item(1)->nodeCount(), 4);
    const int before = theFixture->theStack.count();
    addNode(5);                                         // five nodes, as frame 6 has them
    QCOMPARE(theFixture->theStack.count(), before + 2); // one kept frame and the change
    QCOMPARE(keptPoints(5), 15);
    QCOMPARE(keptPoints(4), 12);
    const qsizetype steps = theFixture->theStack.count();
    QVERIFY(!theFixture->theStack.text(int(steps) - 2).contains(QStringLiteral("frame 7")));
    QVERIFY(theFixture->theStack.text(int(steps) - 2).contains(QStringLiteral("frame 5")));
}

void TestRegionPins::plainRegionChangesItsDefaults()
{
    theFixture->record(1)->theAnimated = false;
    addNode(5);
    QVERIFY(frames().isEmpty());
    QCOMPARE(keptPoints(-1), 15);
}

void TestRegionPins::sameCountKeepsNothing()
{
    RegionFixture& f = *theFixture;
    f.theKernel.showFrame(5, false);
    f.item(1)->moveObjectBy(QPoint(5, 5));
    f.theTool.slotCanvasObjectChanged(f.item(1));
    QCOMPARE(frames(), QList<long long>{5});
}

void TestRegionPins::eachKeptFrameIsAnUndoStepThatSaysSo()
{
    QUndoStack& stack = theFixture->theStack;
    const int before = stack.count();
    addNode(5);
    QCOMPARE(stack.count(), before + 3);
    QCOMPARE(stack.text(before), QStringLiteral("Keep Region 1 at frame 7"));
    QCOMPARE(stack.text(before + 1), QStringLiteral("Keep Region 1 at frame 5"));
    QCOMPARE(stack.text(before + 2), QStringLiteral("Change Region 1"));
    stack.undo();
    QCOMPARE(frames(), (QList<long long>{4, 6}));
    QCOMPARE(theFixture->item(1)->nodeCount(), 4);
    stack.undo();
    stack.undo();
    QVERIFY(frames().isEmpty());
    stack.redo();
    stack.redo();
    stack.redo();
    QCOMPARE(frames(), (QList<long long>{4, 5, 6}));
    QCOMPARE(theFixture->item(1)->nodeCount(), 5);
}

void TestRegionPins::keptStatesAreNotSelected()
{
    QByteArray bytes = theFixture->record(1)->storedValue(RegionFixture::kStates, -1).toByteArray();
    bytes[1] = 1;
    theFixture->record(1)->storeValue(RegionFixture::kStates, -1, bytes);
    addNode(5);
    QCOMPARE(theFixture->record(1)->storedValue(RegionFixture::kStates, 4).toByteArray().at(1), '\0');
    QCOMPARE(theFixture->record(1)->storedValue(RegionFixture::kStates, 6).toByteArray().at(1), '\0');
}

void TestRegionPins::outlineChangesAtItsFrameAlone()
{
    RegionFixture& f = *theFixture;
    f.record(1)->storeValue(RegionFixture::kPos, 0, QPoint(80, 70));
    f.record(1)->storeValue(RegionFixture::kPos, 8, QPoint(160, 70));
    addNode(4);
    for (int frame = 0; frame < 10; ++frame) {
        f.theKernel.showFrame(frame, false);
        QCOMPARE(f.item(1)->nodeCount(), frame == 4 ? 5 : 4);
        if (frame != 4)
            QCOMPARE(f.anchors(1)[0], QPoint(20 + 10 * qMin(frame, 8), 20));
    }
}

MEASURE_TEST_MAIN(TestRegionPins)
#include "TestRegionPins.moc"
