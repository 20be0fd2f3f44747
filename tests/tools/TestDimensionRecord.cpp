#include "DimensionFixture.h"
#include "TestFont.h"

#include <QDomDocument>

#include <memory>

/// The ways of a dimension's points between canvas and record: edits, undo, frames, resolution, loading.
class TestDimensionRecord : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { theFixture.reset(); }

    void draggedEndGoesIntoTheRecord();
    void draggedHeightTakesItsMiddleAlong();
    void editKeepsShownValueAndVisibility();
    void clickWithoutAChangeIsNoUndoStep();
    void foreignItemIsNotStored();
    void redoneItemHasNoValueOnItsLabel();
    void redoneItemIsShownWhateverItsRecordSays();
    void positionIsNotReadForTheItem();
    void changeFromElsewhereComesToTheCanvas();
    void changeOfAnotherTypeIsIgnored();
    void animatedDimensionFollowsTheFrames();
    void widthOnAFrameIsAKeyframe();
    void plainDimensionFollowsOnlyInTheAnimatedView();
    void otherFrameThanTheCurrentLeavesTheLabels();
    void twiceTheWidthDoublesTheDefaults();
    void loadedDimensionStandsOnTheCanvas();
    void loadedPointsOfOddCountDoNoHarm();

private:
    QDomElement saved(const QPolygon& aPoints, bool aVisible);

    std::unique_ptr<DimensionFixture> theFixture;
    QDomDocument theDocument;
};

static const QPolygon kStored({QPoint(60, 50), QPoint(60, 150), QPoint(100, 70), QPoint(200, 70)});

// On the canvas from (20, 20) to (20, 120) and from (60, 40) to (160, 40).
void TestDimensionRecord::init()
{
    theFixture = std::make_unique<DimensionFixture>();
    theFixture->drag(QPoint(20, 20), QPoint(20, 120));
    theFixture->altDrag(QPoint(60, 40), QPoint(160, 40));
    theFixture->show(1, QStringLiteral("Width1"));
    QCOMPARE(theFixture->points(1), kStored);
    QCOMPARE(theFixture->shown(1), QStringLiteral("W1: 100.00"));
}

void TestDimensionRecord::draggedEndGoesIntoTheRecord()
{
    DimensionFixture& f = *theFixture;
    f.drag(QPoint(164, 40), QPoint(140, 100)); // 80, 60, 100
    QPolygon expected = kStored;
    expected[3] = QPoint(180, 130);
    QCOMPARE(f.points(1), expected);
    QCOMPARE(f.pos(1), QPoint(60, 100));
    QCOMPARE(f.itemCount(), 1);
    QCOMPARE(f.theStack.count(), 4);
    f.theStack.undo();
    QCOMPARE(f.points(1), kStored);
    QCOMPARE(f.item(1)->thePoints[3], QPoint(160, 40));
    f.theStack.redo();
    QCOMPARE(f.item(1)->thePoints[3], QPoint(140, 100));
}

void TestDimensionRecord::draggedHeightTakesItsMiddleAlong()
{
    DimensionFixture& f = *theFixture;
    f.drag(QPoint(20, 70), QPoint(31, 75));
    QCOMPARE(f.pos(1), QPoint(71, 105));
    QCOMPARE(f.points(1).mid(0, 2), QPolygon({QPoint(71, 55), QPoint(71, 155)}));
    QCOMPARE(f.points(1).mid(2), kStored.mid(2));
}

void TestDimensionRecord::editKeepsShownValueAndVisibility()
{
    DimensionFixture& f = *theFixture;
    LmCvManipulator::theLastUsedValueName = QStringLiteral("Height");
    f.drag(QPoint(164, 40), QPoint(140, 100));
    QCOMPARE(f.stored(1112, 1, DimensionFixture::kDispv), QVariant(QStringLiteral("Width1")));
    QCOMPARE(f.stored(1112, 1, DimensionFixture::kVis), QVariant(true));
    QCOMPARE(f.shown(1), QStringLiteral("W1: 100.00"));
}

void TestDimensionRecord::clickWithoutAChangeIsNoUndoStep()
{
    DimensionFixture& f = *theFixture;
    f.click(QPoint(20, 70));
    f.click(QPoint(164, 40));
    QCOMPARE(f.theStack.count(), 3);
    QCOMPARE(f.itemCount(), 1);
}

void TestDimensionRecord::foreignItemIsNotStored()
{
    DimensionFixture& f = *theFixture;
    LmCvDimension stranger(&f.theTool, f.theEditor.canvas(), QStringLiteral("1"), &f.theEditor);
    stranger.setPoints(Q3PointArray() << QPoint(0, 0) << QPoint(10, 10));
    Q_EMIT f.theEditor.signalCanvasObjectChanged(&stranger);
    QCOMPARE(f.theStack.count(), 3);
    f.item(1)->setPoints(stranger.thePoints); // the counter-case reaches the tool
    Q_EMIT f.theEditor.signalCanvasObjectChanged(f.item(1));
    QCOMPARE(f.points(1), QPolygon({QPoint(40, 30), QPoint(50, 40)}));
}

void TestDimensionRecord::redoneItemHasNoValueOnItsLabel()
{
    DimensionFixture& f = *theFixture;
    f.theTool.removeCvObject(f.item(1));
    f.theStack.undo(); // as redo of a creation does, it makes the item again
    QCOMPARE(QPolygon(f.item(1)->thePoints), kStored.translated(-40, -30));
    QCOMPARE(f.item(1)->labelText(), QStringLiteral(" 1 "));
    LmCvManipulator::theCurrentViewAnimated = true;
    f.theKernel.showFrame(0, false);
    QCOMPARE(f.shown(1), QStringLiteral("W1: 100.00"));
    f.theStack.setIndex(0);
    QCOMPARE(f.itemCount(), 0);
    f.theStack.redo();
    QCOMPARE(QPolygon(f.item(1)->thePoints), QPolygon({QPoint(20, 20), QPoint(20, 120)}));
    QCOMPARE(f.shown(1), QString());
    f.record(1)->storeValue(DimensionFixture::kDispv, -1, QStringLiteral("Height"));
    f.theStack.undo();
    f.theStack.redo();
    QCOMPARE(f.stored(DimensionFixture::kType, 1, DimensionFixture::kDispv).toString(),
             QStringLiteral("Height"));
    QCOMPARE(f.shown(1), QString());
}

void TestDimensionRecord::redoneItemIsShownWhateverItsRecordSays()
{
    DimensionFixture& f = *theFixture;
    f.record(1)->storeValue(DimensionFixture::kVis, -1, false);
    f.record(1)->storeValue(DimensionFixture::kCol, -1, QColor(1, 2, 3));
    f.theTool.removeCvObject(f.item(1));
    f.calibrate(50.0, QStringLiteral("cm"));
    f.theStack.undo();
    QVERIFY(f.item(1)->isVisible());
    QCOMPARE(f.item(1)->getColor(), QColor(1, 2, 3));
    QCOMPARE(f.item(1)->theStep, 8.0);
}

void TestDimensionRecord::positionIsNotReadForTheItem()
{
    DimensionFixture& f = *theFixture;
    f.record(1)->storeValue(DimensionFixture::kPos, -1, QPoint(999, 999));
    LmCvManipulator::theCurrentViewAnimated = true;
    f.theKernel.showFrame(0, false);
    QCOMPARE(QPolygon(f.item(1)->thePoints), kStored.translated(-40, -30));
}

void TestDimensionRecord::changeFromElsewhereComesToTheCanvas()
{
    DimensionFixture& f = *theFixture;
    const LmKernelObjectDataDescr* descriptor = f.theKernel.getDataDescriptor(1112);
    LmParamKeyframeVector vector = descriptor->createKeyframeVector();
    // Under either name of the type of point lists.
    const Q3PointArray points(QList<QPoint>{{40, 30}, {40, 60}, {50, 50}, {58, 56}});
    QVERIFY(descriptor->setValue(vector, QStringLiteral("points"), QVariant::fromValue(points)));
    f.theStack.push(new CmdChangeObject(1112, 1, vector, false));
    QCOMPARE(QPolygon(f.item(1)->thePoints), points.translated(-40, -30));
    QCOMPARE(f.shown(1), QStringLiteral("W1: 10.00"));
    f.theStack.undo();
    QCOMPARE(QPolygon(f.item(1)->thePoints), kStored.translated(-40, -30));
}

void TestDimensionRecord::changeOfAnotherTypeIsIgnored()
{
    DimensionFixture& f = *theFixture;
    LmParamKeyframeVector values = f.record(1)->getDefaultKeyframes();
    values.setValue(DimensionFixture::kPoints,
                    QVariant::fromValue<QPolygon>(QPolygon({QPoint(1, 1), QPoint(2, 2)})));
    const LmKernelObjectData other(values, f.theKernel.getDataDescriptor(1112)->getKeyframeTypes(), 0);
    Q_EMIT f.theKernel.signalObjectChanged(1106, 1, &other);
    Q_EMIT f.theKernel.signalObjectCreated(1106, 5, &other);
    QCOMPARE(f.item(1)->thePoints.size(), 4);
    QCOMPARE(f.itemCount(), 1);
    Q_EMIT f.theKernel.signalObjectChanged(1112, 77, &other);
    f.theTool.theSelfChange = true;
    Q_EMIT f.theKernel.signalObjectChanged(1112, 1, &other);
    f.theTool.theSelfChange = false;
    QCOMPARE(f.item(1)->thePoints.size(), 4);
    Q_EMIT f.theKernel.signalObjectChanged(1112, 1, &other); // the counter-case
    QCOMPARE(f.item(1)->thePoints.size(), 2);
}

void TestDimensionRecord::animatedDimensionFollowsTheFrames()
{
    DimensionFixture& f = *theFixture;
    f.record(1)->theAnimated = true;
    f.storePoints(1, 0, kStored);
    f.storePoints(1, 10, kStored.translated(20, 10));
    f.theKernel.showFrame(5, false);
    QCOMPARE(QPolygon(f.item(1)->thePoints), kStored.translated(10 - 40, 5 - 30));
    f.theKernel.showFrame(10, true);
    QCOMPARE(QPolygon(f.item(1)->thePoints), kStored.translated(20 - 40, 10 - 30));
    QCOMPARE(f.shown(1), QStringLiteral("W1: 100.00"));
}

void TestDimensionRecord::widthOnAFrameIsAKeyframe()
{
    DimensionFixture& f = *theFixture;
    f.record(1)->theAnimated = true;
    f.storePoints(1, 0, kStored);
    f.theKernel.showFrame(4, false);
    f.altDrag(QPoint(60, 80), QPoint(90, 80));
    QCOMPARE(f.record(1)->getKeyframedFrames(), (QList<long long>{0, 4}));
    QCOMPARE(f.points(1), kStored);  // the default
    f.theKernel.showFrame(2, false); // lists of unequal length aren't blended
    QCOMPARE(f.item(1)->thePoints.size(), 4);
    f.theKernel.showFrame(4, false);
    QCOMPARE(f.item(1)->thePoints.size(), 6);
    f.theStack.undo();
    QCOMPARE(f.item(1)->thePoints.size(), 4);
}

void TestDimensionRecord::plainDimensionFollowsOnlyInTheAnimatedView()
{
    DimensionFixture& f = *theFixture;
    const Q3PointArray moved = LmCvManipDim::offsetPoints(f.item(1)->thePoints, QPoint(7, 7));
    f.item(1)->setPoints(moved);
    f.theKernel.showFrame(5, false);
    QCOMPARE(f.item(1)->thePoints, moved);
    LmCvManipulator::theCurrentViewAnimated = true;
    f.theKernel.showFrame(6, true);
    QCOMPARE(QPolygon(f.item(1)->thePoints), kStored.translated(-40, -30));
}

void TestDimensionRecord::otherFrameThanTheCurrentLeavesTheLabels()
{
    DimensionFixture& f = *theFixture;
    f.item(1)->setDisplayValue(QStringLiteral("kept"));
    f.theTool.recreateCanvasObjects(QPoint(50, 50), -1, true);
    QCOMPARE(QPolygon(f.item(1)->thePoints), kStored.translated(-50, -50));
    QCOMPARE(f.shown(1), QStringLiteral("kept"));
    f.theTool.recreateCanvasObjects(QPoint(50, 50), 0, true);
    QCOMPARE(f.shown(1), QStringLiteral("W1: 100.00"));
}

void TestDimensionRecord::twiceTheWidthDoublesTheDefaults()
{
    DimensionFixture& f = *theFixture;
    f.record(1)->theAnimated = true;
    f.storePoints(1, 3, kStored);
    f.theKernel.announceResolution(QSize(400, 300), QSize(800, 300)); // the heights play no part
    const QPolygon doubled({QPoint(120, 100), QPoint(120, 300), QPoint(200, 140), QPoint(400, 140)});
    QCOMPARE(f.points(1), doubled);
    QCOMPARE(f.pos(1), QPoint(120, 200));
    QCOMPARE(QPolygon(f.item(1)->thePoints), doubled.translated(-40, -30));
    QCOMPARE(f.record(1)->getKeyframe(DimensionFixture::kPoints, 3).getValue().value<QPolygon>(), kStored);
    QCOMPARE(f.theStack.count(), 3);
    f.theKernel.announceResolution(QSize(800, 600), QSize(300, 225));
    QCOMPARE(f.points(1)[0], QPoint(45, 38)); // 37.5
}

QDomElement TestDimensionRecord::saved(const QPolygon& aPoints, bool aVisible)
{
    const LmKernelObjectDataDescr* descriptor = theFixture->theKernel.getDataDescriptor(1112);
    LmParamKeyframeVector values = descriptor->createKeyframeVector();
    values.setValue(DimensionFixture::kVis, aVisible);
    values.setValue(DimensionFixture::kCol, QColor(Qt::blue));
    values.setValue(DimensionFixture::kDispv, QStringLiteral("Width1"));
    values.setValue(DimensionFixture::kPos, QPoint(1, 2));
    values.setValue(DimensionFixture::kPoints, QVariant::fromValue<QPolygon>(aPoints));
    const LmKernelObjectData record(values, descriptor->getKeyframeTypes(), 0);
    return descriptor->createXML(theDocument, 77, record);
}

void TestDimensionRecord::loadedDimensionStandsOnTheCanvas()
{
    DimensionFixture& f = *theFixture;
    f.calibrate(160.0, QStringLiteral("mm"));
    f.theTool.constructDataObject(saved(kStored, false), nullptr);
    QCOMPARE(f.theTool.theCvObjects.keys(), (QList<int>{1, 2})); // the saved number isn't used
    QCOMPARE(QPolygon(f.item(2)->thePoints), kStored.translated(-40, -30));
    QCOMPARE(f.item(2)->getColor(), QColor(Qt::blue));
    QVERIFY(!f.item(2)->isVisible());
    QCOMPARE(f.item(2)->labelText(), QStringLiteral(" 2 <W1: 40.00mm> "));
    QCOMPARE(f.points(2), kStored);
    QCOMPARE(f.pos(2), QPoint(1, 2));
    QCOMPARE(f.theStack.count(), 4);
    f.theStack.undo();
    QCOMPARE(f.itemCount(), 1);
}

void TestDimensionRecord::loadedPointsOfOddCountDoNoHarm()
{
    DimensionFixture& f = *theFixture;
    f.theTool.constructDataObject(saved(kStored.mid(0, 3), true), nullptr);
    QCOMPARE(f.item(2)->thePoints.size(), 3);
    QCOMPARE(f.shown(2), QStringLiteral("W1: 0.00"));
    f.theEditor.activateItem(f.item(2));
    f.altDrag(QPoint(200, 100), QPoint(250, 100));
    QCOMPARE(f.points(2).mid(2), QPolygon({QPoint(240, 130), QPoint(290, 130)}));
}

MEASURE_TEST_MAIN(TestDimensionRecord)
#include "TestDimensionRecord.moc"
