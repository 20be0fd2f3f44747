#include "CmdChangeObject.h"
#include "LmCVSequence.h"
#include "LmKernelObjectDataDescr.h"
#include "RegionFixture.h"
#include "TestFont.h"

#include <QDomDocument>

#include <limits>
#include <memory>

/// Outlines and their records: what an edit writes, and what comes back.
class TestRegionKernel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<RegionFixture>(); }
    void cleanup() { theFixture.reset(); }

    void nodeStatesKeepOnlyTheirSynchro();
    void bytesOfNodeStatesAreTakenLiterally();
    void trailingBytesAreIgnored();
    void pointsAreStoredAroundTheirCentre();
    void loneNodeIsItsOwnCentre();
    void moveOnAFullImageWritesPositionAndPoints();
    void noEditOnAFullImageWritesNeither();
    void positionIsAlwaysWrittenInARegionOfInterest();
    void firstPointAloneIsNotNoticed();
    void kernelsAnswerToAnOwnChangeIsDropped();
    void changeFromElsewhereReachesTheItem();
    void redoneCreationBecomesTheCurrentItem();
    void foreignSignalsHaveNoEffect();
    void plainRegionStandsStillWhileFramesGoBy();
    void animatedRegionFollowsTheFrames();
    void resolutionDoublesPositionAndPoints();
    void loadedRegionTakesTheNextIndex();
    void everyParameterSurvivesSavingAndLoading();
    void hiddenRegionStaysHidden();
    void unevenListsLoadWithoutHarm_data();
    void unevenListsLoadWithoutHarm();

private:
    void drawSquare(); // 40 x 40 from (20, 20), closed, corners only
    LmKernelObjectData* makeRecord(const QPolygon& aPoints, const QByteArray& aStates, const QPoint& aPos);

    std::unique_ptr<RegionFixture> theFixture;
};

void TestRegionKernel::drawSquare()
{
    theFixture->clickAll({QPoint(20, 20), QPoint(60, 20), QPoint(60, 60), QPoint(20, 60), QPoint(20, 20)});
    theFixture->item(1)->deselectAllNodes(-1);
}

void TestRegionKernel::nodeStatesKeepOnlyTheirSynchro()
{
    Q3ValueVector<LmNodeState> states(3);
    states[0].selected = true;
    states[0].dragged = LmNodeState::kDraggedRightCtrl;
    states[0].synchro = LmBezierPoint::kSynchroNone;
    states[2].synchro = LmBezierPoint::kSynchroMirror;
    const QByteArray bytes = LmCvManipRegion::SvToBa(states);
    QCOMPARE(bytes, QByteArray("\xff\x00\x00\xff\x00\x01\xff\x00\x02", 9));
    const Q3ValueVector<LmNodeState> back = LmCvManipRegion::BaToSv(bytes);
    QCOMPARE(back.size(), 3);
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(back[i].synchro, states[i].synchro);
        QVERIFY(!back[i].selected);
        QCOMPARE(back[i].dragged, LmNodeState::kDraggedNone);
    }
    QVERIFY(LmCvManipRegion::SvToBa({}).isEmpty());
    QVERIFY(LmCvManipRegion::BaToSv({}).isEmpty());
}

void TestRegionKernel::bytesOfNodeStatesAreTakenLiterally()
{
    const auto states = LmCvManipRegion::BaToSv(QByteArray("\x02\x07\xfe", 3));
    QCOMPARE(states.size(), 1);
    QCOMPARE(states[0].dragged, LmNodeState::kDraggedRightCtrl);
    QVERIFY(states[0].selected);
    QCOMPARE(int(states[0].synchro), -2);
}

void TestRegionKernel::trailingBytesAreIgnored()
{
    QCOMPARE(LmCvManipRegion::BaToSv(QByteArray(7, '\0')).size(), 2);
    QCOMPARE(LmCvManipRegion::BaToSv(QByteArray(2, '\0')).size(), 0);
}

void TestRegionKernel::pointsAreStoredAroundTheirCentre()
{
    drawSquare();
    QCOMPARE(theFixture->pos(1), QPoint(80, 70)); // the centre (40, 40) in the image
    const QPolygon points = theFixture->points(1);
    QCOMPARE(points.size(), 12);
    QCOMPARE(points[0], QPoint(-20, -20));
    QCOMPARE(points[7], QPoint(20, 20));
    QVERIFY(theFixture->recordIsItem(1));
}

void TestRegionKernel::loneNodeIsItsOwnCentre()
{
    theFixture->drag(QPoint(50, 50), QPoint(90, 50)); // handles at 90 and 10
    QCOMPARE(theFixture->pos(1), QPoint(90, 80));
    QCOMPARE(theFixture->points(1), QPolygon(QList<QPoint>{QPoint(-40, 0), QPoint(0, 0), QPoint(40, 0)}));
}

void TestRegionKernel::moveOnAFullImageWritesPositionAndPoints()
{
    RegionFixture& f = *theFixture;
    f.theImage.setQRoi(QRect());
    drawSquare();
    QCOMPARE(f.pos(1), QPoint(40, 40));
    const QPolygon before = f.points(1);
    f.item(1)->moveObjectBy(QPoint(7, 5));
    f.theTool.slotCanvasObjectChanged(f.item(1));
    QCOMPARE(f.pos(1), QPoint(47, 45));
    QCOMPARE(f.points(1), before);
    QVERIFY(f.recordIsItem(1));
    QCOMPARE(f.anchors(1)[0], QPoint(27, 25));
}

void TestRegionKernel::noEditOnAFullImageWritesNeither()
{
    RegionFixture& f = *theFixture;
    f.theImage.setQRoi(QRect());
    drawSquare();
    f.record(1)->theAnimated = true;
    f.theTool.slotCanvasObjectChanged(f.item(1));
    const LmKernelObjectData& record = *f.record(1);
    QVERIFY(!record.storedValue(RegionFixture::kPos, 0).isValid());
    QVERIFY(!record.storedValue(RegionFixture::kPoints, 0).isValid());
    QVERIFY(record.storedValue(RegionFixture::kStates, 0).isValid()); // written each time
    f.item(1)->moveObjectBy(QPoint(1, 0));
    f.theTool.slotCanvasObjectChanged(f.item(1));
    QCOMPARE(record.storedValue(RegionFixture::kPos, 0).toPoint(), QPoint(41, 40));
    QVERIFY(record.storedValue(RegionFixture::kPoints, 0).isValid()); // the same points, written again
}

void TestRegionKernel::positionIsAlwaysWrittenInARegionOfInterest()
{
    RegionFixture& f = *theFixture;
    drawSquare();
    f.record(1)->theAnimated = true;
    f.theTool.slotCanvasObjectChanged(f.item(1));
    QCOMPARE(f.record(1)->storedValue(RegionFixture::kPos, 0).toPoint(), QPoint(80, 70));
}

void TestRegionKernel::firstPointAloneIsNotNoticed()
{
    RegionFixture& f = *theFixture;
    f.theImage.setQRoi(QRect());
    drawSquare();
    f.record(1)->theAnimated = true;
    // A left handle of the first node that leaves the centre of gravity where it is after rounding.
    f.item(1)->thePoints[0] += QPoint(0, 1);
    LmCVSequence sequence(12, 8);
    for (int i = 0; i < 12; ++i)
        sequence.putPoint(i, f.item(1)->thePoints[i].x(), f.item(1)->thePoints[i].y());
    QCOMPARE(sequence.calculateCoG(), QPoint(40, 40));
    f.theTool.slotCanvasObjectChanged(f.item(1));
    QVERIFY(!f.record(1)->storedValue(RegionFixture::kPoints, 0).isValid());
    f.item(1)->thePoints[2] += QPoint(0, 1);
    f.theTool.slotCanvasObjectChanged(f.item(1));
    QVERIFY(f.record(1)->storedValue(RegionFixture::kPoints, 0).isValid());
}

void TestRegionKernel::kernelsAnswerToAnOwnChangeIsDropped()
{
    RegionFixture& f = *theFixture;
    drawSquare();
    LmCvRegion* before = f.item(1);
    before->setNodeSelected(2, true); // a record knows of no selection, so its answer would clear this
    before->moveObjectBy(QPoint(7, 5));
    f.theTool.slotCanvasObjectChanged(before);
    QCOMPARE(f.item(1), before);
    QVERIFY(before->theNodeStates[2].selected);
    QVERIFY(f.recordIsItem(1));
    f.theStack.undo(); // told by the kernel and not by the tool
    QVERIFY(!before->theNodeStates[2].selected);
    QVERIFY(!f.theTool.theSelfChange);
}

void TestRegionKernel::changeFromElsewhereReachesTheItem()
{
    RegionFixture& f = *theFixture;
    drawSquare();
    const LmKernelObjectDataDescr* descriptor = f.theKernel.getDataDescriptor(RegionFixture::kType);
    LmParamKeyframeVector values = descriptor->createKeyframeVector();
    const QPolygon line(QList<QPoint>(6, QPoint(-5, 0)));
    values.setValue(RegionFixture::kPoints, QVariant::fromValue<QPolygon>(line));
    values.setValue(RegionFixture::kStates, QByteArray("\xff\x00\x00\xff\x00\x02", 6));
    values.setValue(RegionFixture::kPos, QPoint(140, 130));
    values.setValue(RegionFixture::kClosed, false);
    f.theStack.push(new CmdChangeObject(RegionFixture::kType, 1, values, false));
    QCOMPARE(f.anchors(1), (QList<QPoint>{QPoint(95, 100), QPoint(95, 100)}));
    QVERIFY(!f.item(1)->theClosed);
    QCOMPARE(f.item(1)->theNodeStates[1].synchro, LmBezierPoint::kSynchroMirror);
    f.theStack.undo();
    QCOMPARE(f.anchors(1)[2], QPoint(60, 60));
    QVERIFY(f.item(1)->theClosed);
}

void TestRegionKernel::redoneCreationBecomesTheCurrentItem()
{
    RegionFixture& f = *theFixture;
    drawSquare();
    f.theTool.removeCvObject(f.item(1));
    QVERIFY(!f.theEditor.theCurrentTrack);
    f.theStack.undo();
    QCOMPARE(f.theEditor.theCurrentTrack, f.item(1));
    QVERIFY(f.item(1)->isActive());
    QVERIFY(f.item(1)->theClosed);
    QVERIFY(f.recordIsItem(1));
    QCOMPARE(f.item(1)->labelText(), QStringLiteral(" 1 "));
}

void TestRegionKernel::foreignSignalsHaveNoEffect()
{
    RegionFixture& f = *theFixture;
    drawSquare();
    const QPolygon before = f.item(1)->thePoints;
    f.theTool.slotObjectChangedInKernel(1102, 1, f.record(1));
    f.theTool.slotObjectChangedInKernel(RegionFixture::kType, 9, f.record(1));
    f.theTool.slotObjectCreatedInKernel(1102, 9, f.record(1));
    f.theTool.slotObjectCreatedInKernel(RegionFixture::kType, 1, f.record(1));
    f.theTool.slotCanvasObjectChanged(nullptr);
    QCOMPARE(f.itemCount(), 1);
    QCOMPARE(static_cast<const QPolygon&>(f.item(1)->thePoints), before);
}

void TestRegionKernel::plainRegionStandsStillWhileFramesGoBy()
{
    RegionFixture& f = *theFixture;
    drawSquare();
    f.item(1)->moveObjectBy(QPoint(3, 3));
    f.item(1)->setDisplayValue(QStringLiteral("old"));
    f.theTool.recreateCanvasObjects(f.theKernel.origin(), 0, false);
    QCOMPARE(f.anchors(1)[0], QPoint(23, 23));
    QCOMPARE(f.item(1)->theDisplayValue, QStringLiteral("old"));
    f.theTool.recreateCanvasObjects(f.theKernel.origin(), 0, true);
    QCOMPARE(f.anchors(1)[0], QPoint(20, 20));
    QCOMPARE(f.item(1)->theDisplayValue, QString());
}

void TestRegionKernel::animatedRegionFollowsTheFrames()
{
    RegionFixture& f = *theFixture;
    drawSquare();
    f.record(1)->theAnimated = true;
    f.record(1)->storeValue(RegionFixture::kPos, 0, QPoint(80, 70));
    f.record(1)->storeValue(RegionFixture::kPos, 10, QPoint(180, 70));
    f.theKernel.showFrame(5, true);
    QCOMPARE(f.anchors(1)[0], QPoint(70, 20));
    f.theKernel.showFrame(10, false);
    QCOMPARE(f.anchors(1)[0], QPoint(120, 20));
    QVERIFY(f.item(1)->isNodesChanged());
}

void TestRegionKernel::resolutionDoublesPositionAndPoints()
{
    RegionFixture& f = *theFixture;
    f.theImage.setQRoi(QRect());
    drawSquare();
    f.theKernel.theCurrentFrame = 3;
    f.record(1)->storeValue(RegionFixture::kPos, 3, QPoint(5, 5));
    f.theTool.slotCurrentResChangedByCameraInKernel(QSize(640, 480), QSize(1280, 480));
    QCOMPARE(f.pos(1), QPoint(80, 80));
    QCOMPARE(f.points(1)[0], QPoint(-40, -40));
    QCOMPARE(f.points(1)[7], QPoint(40, 40));
    QCOMPARE(f.anchors(1)[2], QPoint(120, 120)); // rebuilt on the canvas
    QCOMPARE(f.record(1)->storedValue(RegionFixture::kPos, 3).toPoint(), QPoint(5, 5));
}

LmKernelObjectData* TestRegionKernel::makeRecord(const QPolygon& aPoints, const QByteArray& aStates,
                                                 const QPoint& aPos)
{
    const LmKernelObjectDataDescr* descriptor = theFixture->theKernel.getDataDescriptor(RegionFixture::kType);
    LmParamKeyframeVector values = descriptor->createKeyframeVector();
    values.setValue(RegionFixture::kVis, true);
    values.setValue(RegionFixture::kCol, QColor(Qt::blue));
    values.setValue(RegionFixture::kDispv, QStringLiteral("Area"));
    values.setValue(RegionFixture::kClosed, true);
    values.setValue(RegionFixture::kPoints, QVariant::fromValue<QPolygon>(aPoints));
    values.setValue(RegionFixture::kStates, aStates);
    values.setValue(RegionFixture::kPos, aPos);
    return new LmKernelObjectData(values, descriptor->getKeyframeTypes(), 0);
}

void TestRegionKernel::loadedRegionTakesTheNextIndex()
{
    RegionFixture& f = *theFixture;
    drawSquare();
    QDomDocument document;
    const QDomElement element =
        f.theKernel.getDataDescriptor(RegionFixture::kType)->createXML(document, 5, *f.record(1));
    f.theTool.removeCvObject(f.item(1));
    f.theTool.constructDataObject(element, nullptr);
    QCOMPARE(f.theTool.theCvObjects.keys(), QList<int>{1});
    QCOMPARE(f.item(1)->theLabel, QStringLiteral("1"));
    QCOMPARE(f.anchors(1)[2], QPoint(60, 60));
    QVERIFY(f.item(1)->theClosed);
    QVERIFY(!f.item(1)->isActive());
    QVERIFY(f.recordIsItem(1));
    f.theTool.constructDataObject(element, nullptr);
    QCOMPARE(f.theTool.theCvObjects.keys(), (QList<int>{1, 2}));
}

void TestRegionKernel::everyParameterSurvivesSavingAndLoading()
{
    RegionFixture& f = *theFixture;
    f.drag(QPoint(50, 50), QPoint(90, 60));
    f.clickAll({QPoint(120, 50), QPoint(120, 90), QPoint(50, 50)});
    f.theTool.setColorCvObject(f.item(1), QColor(Qt::green));
    QDomDocument document;
    const LmKernelObjectDataDescr* descriptor = f.theKernel.getDataDescriptor(RegionFixture::kType);
    f.theTool.constructDataObject(descriptor->createXML(document, 1, *f.record(1)), nullptr);
    for (int param = 0; param < 7; ++param)
        QCOMPARE(f.record(2)->storedValue(param, -1), f.record(1)->storedValue(param, -1));
    QCOMPARE(static_cast<const QPolygon&>(f.item(2)->thePoints),
             static_cast<const QPolygon&>(f.item(1)->thePoints));
    QCOMPARE(f.item(2)->getColor(), QColor(Qt::green));
}

void TestRegionKernel::hiddenRegionStaysHidden()
{
    RegionFixture& f = *theFixture;
    drawSquare();
    f.theTool.showCvObject(f.item(1), false);
    QDomDocument document;
    f.theTool.constructDataObject(
        f.theKernel.getDataDescriptor(RegionFixture::kType)->createXML(document, 1, *f.record(1)), nullptr);
    QVERIFY(!f.item(2)->isVisible());
}

void TestRegionKernel::unevenListsLoadWithoutHarm_data()
{
    using Range = std::numeric_limits<int>;
    QTest::addColumn<QPolygon>("points");
    QTest::addColumn<QByteArray>("states");
    QTest::addColumn<QPoint>("pos");
    const QPolygon three(QList<QPoint>{QPoint(-5, 0), QPoint(0, 0), QPoint(5, 0)});
    QPolygon wide;
    for (int i = 0; i < 6; ++i)
        wide << QPoint(i % 2 ? Range::max() : Range::min(), i % 3 ? Range::min() : Range::max());
    QTest::newRow("nothing") << QPolygon() << QByteArray() << QPoint();
    QTest::newRow("one node") << three << QByteArray(3, '\0') << QPoint(90, 90);
    QTest::newRow("four points") << QPolygon(three + QPolygon(1)) << QByteArray(6, '\0') << QPoint(90, 90);
    QTest::newRow("no states") << QPolygon(three + three) << QByteArray() << QPoint(90, 90);
    QTest::newRow("too many states") << three << QByteArray(30, '\x7f') << QPoint(90, 90);
    QTest::newRow("ends of the range") << wide << QByteArray(6, '\1') << QPoint(Range::max(), Range::min());
}

void TestRegionKernel::unevenListsLoadWithoutHarm()
{
    QFETCH(QPolygon, points);
    QFETCH(QByteArray, states);
    QFETCH(QPoint, pos);
    RegionFixture& f = *theFixture;
    const std::unique_ptr<LmKernelObjectData> record(makeRecord(points, states, pos));
    QDomDocument document;
    const LmKernelObjectDataDescr* descriptor = f.theKernel.getDataDescriptor(RegionFixture::kType);
    f.theTool.constructDataObject(descriptor->createXML(document, 1, *record), nullptr);
    LmCvRegion* region = f.item(1);
    QCOMPARE(region->nodeCount(), int(points.size()) / 3);
    QCOMPARE(region->thePoints.size(), 3 * region->nodeCount());
    f.theEditor.grab(); // painted
    f.press(QPoint(50, 60));
    f.move(QPoint(70, 90));
    f.release(QPoint(70, 90));
    QStringList units;
    QCOMPARE(f.theTool.getValues(f.theTool.theValueNames, f.record(1), units).size(), 6);
    f.theEditor.setZoom(0.3);
    f.theEditor.grab();
    f.theTool.slotCanvasObjectChanged(region);
    f.theStack.undo();
    QCOMPARE(region->thePoints.size(), 3 * region->nodeCount());
}

MEASURE_TEST_MAIN(TestRegionKernel)
#include "TestRegionKernel.moc"
