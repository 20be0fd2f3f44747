// When the end of a stroke counts as come back to its start.

#include "OutlineFixture.h"
#include "TestFont.h"
#include "ZnCvSplineTryShape.h"

#include <limits>

namespace {

/// A stroke that leaves to the right, a node every 12 pixels.
QList<QPoint> leaving(int aCount)
{
    QList<QPoint> stroke;
    for (int i = 0; i < aCount; ++i)
        stroke << QPoint(100 + 12 * i, 100);
    return stroke;
}

bool isClose(const QList<QPoint>& aStroke)
{
    OutlineFixture outline;
    outline.draw(aStroke);
    return ZnCvSplineTryShape::checkIfClose(outline.theRegion, int(aStroke.size()));
}

/// A leaving stroke with two of its anchors, counted from the end and from the start, beside each other: 14
/// pixels apart, farther from all others and too far off the line to pass it.
bool isCloseWithNear(int aCount, int aFromEnd, int aFromStart)
{
    QList<QPoint> stroke = leaving(aCount);
    stroke[aCount - 1 - aFromEnd] = stroke.at(aFromStart) + QPoint(0, -14);
    return isClose(stroke);
}

} // namespace

class TestShapeClose : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void strokeThatLeavesIsOpen();
    void twentyNodesComparesTwoAtEachEnd();
    void nineNodesComparesOneAtEachEnd();
    void endsFifteenPixelsApartAreClose();
    void endsSixteenPixelsApartAreOpen();
    void endSixteenPixelsAwayBesideTheStartIsClose();
    void endPassingTheStartWithinTheRatioIsClose_data();
    void endPassingTheStartWithinTheRatioIsClose();
    void passingIsMeasuredToAnchorsUpToAndWithTheLastOne();
    void startWithoutAWayIsNotPassed();
    void missingNodesStandAtTheOrigin();
    void endsOfTheCoordinateRangeAreHarmless();
};

void TestShapeClose::strokeThatLeavesIsOpen()
{
    for (const int count : {3, 9, 10, 19, 20, 100, 2000})
        QVERIFY2(!isClose(leaving(count)), QByteArray::number(count));
}

void TestShapeClose::twentyNodesComparesTwoAtEachEnd()
{
    QVERIFY(isCloseWithNear(20, 0, 0));
    QVERIFY(isCloseWithNear(20, 1, 0));
    QVERIFY(isCloseWithNear(20, 0, 1));
    QVERIFY(isCloseWithNear(20, 1, 1));
    QVERIFY(!isCloseWithNear(20, 2, 1));
    QVERIFY(!isCloseWithNear(20, 1, 2));
    // One node less and it is one at each end.
    QVERIFY(isCloseWithNear(19, 0, 0));
    QVERIFY(!isCloseWithNear(19, 1, 0));
    QVERIFY(!isCloseWithNear(19, 1, 1));
}

void TestShapeClose::nineNodesComparesOneAtEachEnd()
{
    QVERIFY(isCloseWithNear(9, 0, 0));
    QVERIFY(!isCloseWithNear(9, 1, 0));
    QVERIFY(!isCloseWithNear(9, 1, 1));
}

void TestShapeClose::endsFifteenPixelsApartAreClose()
{
    for (const QPoint& way :
         {QPoint(-15, 0), QPoint(0, -15), QPoint(-9, -12), QPoint(12, -9), QPoint(0, 0)}) {
        QList<QPoint> stroke = leaving(9);
        stroke.last() = stroke.first() + way;
        QVERIFY(isClose(stroke));
    }
}

void TestShapeClose::endsSixteenPixelsApartAreOpen()
{
    for (const QPoint& way : {QPoint(-16, 0), QPoint(-10, -12), QPoint(-15, -1)}) {
        QList<QPoint> stroke = leaving(9);
        stroke.last() = stroke.first() + way;
        stroke[1] = stroke.first() + QPoint(20, 0);
        QVERIFY(!isClose(stroke));
    }
}

void TestShapeClose::endSixteenPixelsAwayBesideTheStartIsClose()
{
    QList<QPoint> stroke = leaving(9);
    stroke[1] = stroke.first() + QPoint(20, 0);
    stroke.last() = stroke.first() + QPoint(16, 0);
    QVERIFY(isClose(stroke)); // (16 + 4) / 20
}

void TestShapeClose::endPassingTheStartWithinTheRatioIsClose_data()
{
    QTest::addColumn<QPoint>("end");
    QTest::addColumn<bool>("close");
    // The first stretch is 100 pixels to the right from (0, 0).
    QTest::newRow("on it") << QPoint(50, 0) << true;
    QTest::newRow("beside it, 140 round") << QPoint(40, 20) << true;
    QTest::newRow("beside it, 142 round") << QPoint(40, 21) << false;
    QTest::newRow("behind it, 140 round") << QPoint(120, 0) << true;
    QTest::newRow("behind it, 142 round") << QPoint(121, 0) << false;
    QTest::newRow("before it, 140 round") << QPoint(-20, 0) << true;
    QTest::newRow("before it, 142 round") << QPoint(-21, 0) << false;
}

void TestShapeClose::endPassingTheStartWithinTheRatioIsClose()
{
    QFETCH(QPoint, end);
    QFETCH(bool, close);
    QList<QPoint> stroke = leaving(9);
    const QPoint start = stroke.first();
    stroke[1] = start + QPoint(100, 0);
    stroke.last() = start + end;
    QCOMPARE(isClose(stroke), close);
}

void TestShapeClose::passingIsMeasuredToAnchorsUpToAndWithTheLastOne()
{
    // Of 20 nodes the near ends are 0 and 1, but ways are measured from the start to 1 and to 2.
    QList<QPoint> stroke = leaving(20);
    const QPoint start = stroke.first();
    stroke[1] = start + QPoint(0, 60);
    stroke[2] = start + QPoint(400, 0);
    stroke[3] = start + QPoint(0, 3000);
    stroke[18] = start + QPoint(200, 0);
    stroke[19] = start + QPoint(0, -5000);
    QVERIFY(isClose(stroke));
    stroke[18] = start + QPoint(0, 2000); // only beside the way to the anchor behind
    QVERIFY(!isClose(stroke));
}

void TestShapeClose::startWithoutAWayIsNotPassed()
{
    // Division by a way of no length: no ratio that counts.
    QList<QPoint> stroke = leaving(9);
    stroke[1] = stroke.first();
    QVERIFY(!isClose(stroke));
}

void TestShapeClose::missingNodesStandAtTheOrigin()
{
    OutlineFixture outline;
    outline.draw({{500, 500}, {520, 500}});
    QVERIFY(ZnCvSplineTryShape::checkIfClose(outline.theRegion, 1)); // one node is near itself
    // Asked for nodes that aren't there, the end is at (0, 0): near a start there, far from another.
    QVERIFY(!ZnCvSplineTryShape::checkIfClose(outline.theRegion, 9));
    outline.draw({{9, 12}, {29, 12}});
    QVERIFY(ZnCvSplineTryShape::checkIfClose(outline.theRegion, 9));
}

void TestShapeClose::endsOfTheCoordinateRangeAreHarmless()
{
    constexpr int kLeast = std::numeric_limits<int>::min();
    constexpr int kMost = std::numeric_limits<int>::max();
    QVERIFY(!isClose({{kLeast, kLeast}, {kLeast, kLeast}, {kMost, kMost}}));
    QVERIFY(isClose({{kLeast, kLeast}, {kMost, kMost}, {kLeast, kLeast}}));
    // Ways are held at the greatest int: twice as far over the end as straight.
    QVERIFY(!isClose({{kLeast, kLeast}, {kMost, kMost}, {kMost, kLeast}}));
}

MEASURE_TEST_MAIN(TestShapeClose)
#include "TestShapeClose.moc"
