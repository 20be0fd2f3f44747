#include "LmAppSettings.h"
#include "LmCVSequence.h"
#include "RegionFixture.h"
#include "TestFont.h"

#include <memory>

/// Regions made of contours that were found in the image.
class TestRegionContours : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<RegionFixture>(); }
    void cleanup() { theFixture.reset(); }

    void contourBecomesAClosedRegionOfItsPoints();
    void oneCommandMakesTheObjectComplete();
    void newRegionIsCurrentAndShowsItsValue();
    void changedRegionTakesTheContour();
    void changedRegionKeepsItsColorOnTheCanvasOnly();
    void animatedRegionTakesTheContourAtItsFrame();
    void unknownIndexChangesNothing();
    void keyframesOfAContour();
    void contourOfNoPointsIsAnEmptyRegion();

private:
    static LmCVSequence triangle();

    std::unique_ptr<RegionFixture> theFixture;
};

// (110, 120), (140, 120), (110, 150) on the canvas.
LmCVSequence TestRegionContours::triangle()
{
    LmCVSequence contour(3, 8);
    contour.theOffsetX = 100;
    contour.theOffsetY = 110;
    contour.putPoint(0, 10, 10);
    contour.putPoint(1, 40, 10);
    contour.putPoint(2, 10, 40);
    contour.theCoG = QPoint(20, 20);
    return contour;
}

void TestRegionContours::contourBecomesAClosedRegionOfItsPoints()
{
    RegionFixture& f = *theFixture;
    QCOMPARE(f.theTool.createObjectFromContour(triangle(), QStringLiteral("ignored")), 1);
    QCOMPARE(f.anchors(1), (QList<QPoint>{QPoint(110, 120), QPoint(140, 120), QPoint(110, 150)}));
    QCOMPARE(f.item(1)->thePoints.size(), 9);
    for (int node = 0; node < 3; ++node) {
        QCOMPARE(f.item(1)->thePoints[3 * node], f.item(1)->thePoints[3 * node + 1]);
        QCOMPARE(f.item(1)->thePoints[3 * node + 2], f.item(1)->thePoints[3 * node + 1]);
        QCOMPARE(f.item(1)->theNodeStates[node].synchro, LmBezierPoint::kSynchroDirection);
        QVERIFY(!f.item(1)->theNodeStates[node].selected);
    }
    QVERIFY(f.item(1)->theClosed);
    QCOMPARE(f.pos(1), QPoint(120 + 40, 130 + 30));
    QCOMPARE(f.points(1)[0], QPoint(-10, -10));
    QVERIFY(f.recordIsItem(1));
    QCOMPARE(f.theTool.createObjectFromContour(triangle(), QString()), 2);
}

void TestRegionContours::oneCommandMakesTheObjectComplete()
{
    RegionFixture& f = *theFixture;
    f.theTool.createObjectFromContour(triangle(), QString());
    QCOMPARE(f.theStack.count(), 1);
    f.theStack.undo();
    QCOMPARE(f.itemCount(), 0);
    QCOMPARE(f.recordCount(), 0);
    f.theStack.redo();
    QCOMPARE(f.anchors(1)[1], QPoint(140, 120));
    QVERIFY(f.recordIsItem(1));
}

void TestRegionContours::newRegionIsCurrentAndShowsItsValue()
{
    RegionFixture& f = *theFixture;
    LmCvManipulator::theLastUsedValueName = QStringLiteral("Area");
    f.theTool.createObjectFromContour(triangle(), QString());
    QCOMPARE(f.theEditor.theCurrentTrack, f.item(1));
    QVERIFY(f.item(1)->isActive());
    QVERIFY(f.item(1)->isVisible());
    QCOMPARE(f.item(1)->theDisplayValue, QStringLiteral("450.00²"));
    QCOMPARE(f.item(1)->getColor(), QColor(Qt::red));
}

void TestRegionContours::changedRegionTakesTheContour()
{
    RegionFixture& f = *theFixture;
    f.clickAll({QPoint(20, 20), QPoint(60, 20)});
    f.theTool.modifyObjectFromContour(triangle(), 1);
    QCOMPARE(f.anchors(1), (QList<QPoint>{QPoint(110, 120), QPoint(140, 120), QPoint(110, 150)}));
    QVERIFY(f.item(1)->theClosed);
    QVERIFY(f.recordIsItem(1));
    f.theStack.undo();
    QCOMPARE(f.anchors(1), (QList<QPoint>{QPoint(20, 20), QPoint(60, 20)}));
    QVERIFY(!f.item(1)->theClosed);
}

void TestRegionContours::changedRegionKeepsItsColorOnTheCanvasOnly()
{
    RegionFixture& f = *theFixture;
    f.theTool.createObjectFromContour(triangle(), QString());
    LmAppSettings::theGridColor = QColor(Qt::blue);
    LmCvManipulator::theLastUsedValueName = QStringLiteral("Width");
    f.theTool.modifyObjectFromContour(triangle(), 1);
    QCOMPARE(f.stored(RegionFixture::kType, 1, RegionFixture::kCol).value<QColor>(), QColor(Qt::blue));
    QCOMPARE(f.item(1)->getColor(), QColor(Qt::red));
    QCOMPARE(f.stored(RegionFixture::kType, 1, RegionFixture::kDispv).toString(), QStringLiteral("Width"));
    QCOMPARE(f.item(1)->theDisplayValue, QStringLiteral("31.00"));
}

void TestRegionContours::animatedRegionTakesTheContourAtItsFrame()
{
    RegionFixture& f = *theFixture;
    f.clickAll({QPoint(20, 20), QPoint(60, 20)});
    f.record(1)->theAnimated = true;
    f.theKernel.showFrame(4, false);
    f.theTool.modifyObjectFromContour(triangle(), 1);
    QCOMPARE(f.record(1)->getKeyframedFrames(), QList<long long>{4});
    QCOMPARE(f.points(1).size(), 6);
}

void TestRegionContours::unknownIndexChangesNothing()
{
    theFixture->theTool.modifyObjectFromContour(triangle(), 7);
    QCOMPARE(theFixture->theStack.count(), 0);
    QCOMPARE(theFixture->itemCount(), 0);
}

void TestRegionContours::keyframesOfAContour()
{
    RegionFixture& f = *theFixture;
    const LmParamKeyframeVector values = f.theTool.createKeyframesFromContour(nullptr, triangle(), 12);
    QCOMPARE(values.getFrameNumber(), 12);
    QCOMPARE(values[RegionFixture::kPoints].getValue().value<QPolygon>().size(), 9);
    QCOMPARE(values[RegionFixture::kStates].getValue().toByteArray().size(), 9);
    QCOMPARE(values[RegionFixture::kPos].getValue().toPoint(), QPoint(160, 160));
    for (const int param : {0, 1, 2, 3})
        QVERIFY(!values[param].getValue().isValid());
    QCOMPARE(f.itemCount(), 0);
    QCOMPARE(f.theStack.count(), 0);
}

void TestRegionContours::contourOfNoPointsIsAnEmptyRegion()
{
    RegionFixture& f = *theFixture;
    QCOMPARE(f.theTool.createObjectFromContour(LmCVSequence(0, 8), QString()), 1);
    QCOMPARE(f.item(1)->nodeCount(), 0);
    f.theEditor.grab();
    f.click(QPoint(50, 50));
    QCOMPARE(f.recordCount(), 2);
}

MEASURE_TEST_MAIN(TestRegionContours)
#include "TestRegionContours.moc"
