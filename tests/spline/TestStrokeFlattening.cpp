// Outlines turned into dense polylines before they are recognised.

#include "OutlineFixture.h"
#include "TestFont.h"
#include "ZnCvSplineTryShape.h"

class TestStrokeFlattening : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void curvedSegmentsAreFlattened();
    void closedOutlineComesBackToItsFirstAnchor();
    void repeatedAnchorsStay();
    void oneNodeStaysOneNode();
};

void TestStrokeFlattening::curvedSegmentsAreFlattened()
{
    OutlineFixture outline;
    outline.setNodes({{0, 0},
                      {100, 100},
                      {200, 100},
                      {300, 200},
                      {300, 300},
                      {300, 400}, //
                      {290, 500},
                      {300, 500},
                      {310, 500}});
    Q3PointArray first;
    first << QPoint(100, 100) << QPoint(200, 100) << QPoint(300, 200) << QPoint(300, 300);
    Q3PointArray second;
    second << QPoint(300, 300) << QPoint(300, 400) << QPoint(290, 500) << QPoint(300, 500);
    QList<QPoint> expected = first.cubicBezier();
    QVERIFY(expected.size() > 4);
    expected.removeLast();
    expected << second.cubicBezier();
    outline.theRegion->theHandlesEnabled = false;
    QCOMPARE(ZnCvSplineTryShape::recreateSpline(outline.theRegion, 3), int(expected.size()));
    QCOMPARE(outline.points(), withoutHandles(expected));
    QVERIFY(outline.hasFreshStates() && outline.isWhole());
    QVERIFY(outline.theRegion->theHandlesEnabled);
}

void TestStrokeFlattening::closedOutlineComesBackToItsFirstAnchor()
{
    OutlineFixture outline;
    const QList<QPoint> stroke{{100, 100}, {400, 120}, {250, 380}};
    outline.draw(stroke);
    outline.theRegion->theClosed = true;
    QCOMPARE(ZnCvSplineTryShape::recreateSpline(outline.theRegion, 3), 4);
    QCOMPARE(outline.anchors(), (stroke + QList<QPoint>{{100, 100}}));
    QVERIFY(outline.theRegion->theClosed);
}

void TestStrokeFlattening::repeatedAnchorsStay()
{
    OutlineFixture outline;
    const QList<QPoint> stroke{{100, 100}, {100, 100}, {130, 100}, {130, 100}, {130, 100}, {160, 120}};
    outline.draw(stroke);
    QCOMPARE(ZnCvSplineTryShape::recreateSpline(outline.theRegion, 6), 6);
    QCOMPARE(outline.anchors(), stroke);
}

void TestStrokeFlattening::oneNodeStaysOneNode()
{
    OutlineFixture outline;
    outline.draw({{100, 100}});
    QCOMPARE(ZnCvSplineTryShape::recreateSpline(outline.theRegion, 1), 1);
    QCOMPARE(outline.points(), withoutHandles({{100, 100}}));
}

MEASURE_TEST_MAIN(TestStrokeFlattening)
#include "TestStrokeFlattening.moc"
