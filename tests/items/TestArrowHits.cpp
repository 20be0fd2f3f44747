#include "LmCvArrow.h"
#include "Q3Canvas.h"
#include "Q3CanvasView.h"
#include "SegmentGeometry.h"
#include "TestFont.h"

#include <QRandomGenerator>

#include <limits>

namespace {

constexpr int kMax = std::numeric_limits<int>::max();
constexpr quint32 kSeed = 7105;

} // namespace

class TestArrowHits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { delete theItem; }

    void crossingIsRoundedToTheNearest_data();
    void crossingIsRoundedToTheNearest();
    void segmentsOnOneLineMeetInTheHalfDifference();
    void segmentsApartDoNotMeet();
    void farCrossingsAreExact();
    void shaftIsHitByTheSquaresDiagonals_data();
    void shaftIsHitByTheSquaresDiagonals();
    void shaftIsNoTargetWhileItIsNotShown();
    void labelIsHitWithoutTolerance();
    void tipIsHitAlongItsSecondBarbOnly();
    void tipIsHitByEachDiagonal();
    void hitsAreThoseOfTheTwoDiagonals();

private:
    Q3Canvas theCanvas{1000, 1000};
    Q3CanvasView theView{&theCanvas};
    LmCvArrow* theItem = nullptr;
};

// Label left 80, top 84, right 120, bottom 100; the arrow from (122, 92) to (222, 92) with the back corners
// (213, 89) and, behind the second barb, (213, 95).
void TestArrowHits::init()
{
    theItem = new LmCvArrow(nullptr, &theCanvas, QStringLiteral("Counter"), &theView);
    theItem->setStartPoint(QPoint(100, 100));
    theItem->theTextRect = QRect(QPoint(80, 84), QPoint(120, 100));
    theItem->setEndPoint(QPoint(222, 92));
    theItem->show();
    QCOMPARE(theItem->theTailPoint, QPoint(122, 92));
    QCOMPARE(theItem->theEndPoint - theItem->theBarb2, QPoint(213, 95));
}

void TestArrowHits::crossingIsRoundedToTheNearest_data()
{
    QTest::addColumn<QPoint>("end");
    QTest::addColumn<QPoint>("crossing");
    // The line from the origin to the end crosses the line y = 3 at x = 3 * end.x / end.y.
    QTest::newRow("whole") << QPoint(20, 10) << QPoint(6, 3);
    QTest::newRow("third up") << QPoint(50, 9) << QPoint(17, 3);    // 16 2/3
    QTest::newRow("third down") << QPoint(49, 9) << QPoint(16, 3);  // 16 1/3
    QTest::newRow("half") << QPoint(11, 6) << QPoint(6, 3);         // 5.5
    QTest::newRow("half, left") << QPoint(-11, 6) << QPoint(-6, 3); // away from zero
}

void TestArrowHits::crossingIsRoundedToTheNearest()
{
    QFETCH(QPoint, end);
    QFETCH(QPoint, crossing);
    const QPoint west(-100, 3);
    const QPoint east(100, 3);
    QPoint out;
    QVERIFY(LmCvArrow::linesIntersect(QPoint(0, 0), end, west, east, out));
    QCOMPARE(out, crossing);
    QVERIFY(LmCvArrow::linesIntersect(end, QPoint(0, 0), east, west, out));
    QCOMPARE(out, crossing);
    QVERIFY(LmCvArrow::linesIntersect(west, east, QPoint(0, 0), end, out));
    QCOMPARE(out, crossing);
}

void TestArrowHits::segmentsOnOneLineMeetInTheHalfDifference()
{
    QPoint out;
    QVERIFY(LmCvArrow::linesIntersect(QPoint(10, 10), QPoint(31, 17), QPoint(40, 20), QPoint(70, 30), out));
    QCOMPARE(out, QPoint(10, 3)); // of (21, 7), cut
    QVERIFY(LmCvArrow::linesIntersect(QPoint(31, 17), QPoint(10, 10), QPoint(40, 20), QPoint(70, 30), out));
    QCOMPARE(out, QPoint(-10, -3));
}

void TestArrowHits::segmentsApartDoNotMeet()
{
    QPoint out(-7, -7);
    QVERIFY(!LmCvArrow::linesIntersect(QPoint(0, 0), QPoint(9, 0), QPoint(5, 1), QPoint(5, 9), out));
    QVERIFY(!LmCvArrow::linesIntersect(QPoint(5, 1), QPoint(5, 9), QPoint(0, 0), QPoint(9, 0), out));
    QVERIFY(!LmCvArrow::linesIntersect(QPoint(0, 0), QPoint(9, 0), QPoint(0, 3), QPoint(9, 3), out));
    QCOMPARE(out, QPoint(-7, -7));
    // Touching counts.
    QVERIFY(LmCvArrow::linesIntersect(QPoint(0, 0), QPoint(9, 0), QPoint(5, 0), QPoint(5, 9), out));
    QCOMPARE(out, QPoint(5, 0));
}

void TestArrowHits::farCrossingsAreExact()
{
    QPoint out;
    const QPoint low(-kMax, -kMax);
    const QPoint high(kMax, kMax);
    QVERIFY(LmCvArrow::linesIntersect(low, high, QPoint(-kMax, kMax), QPoint(kMax, -kMax), out));
    QCOMPARE(out, QPoint(0, 0));
    const int shift = 2'000'000'000;
    const QPoint far(shift, -shift);
    QVERIFY(LmCvArrow::linesIntersect(far + QPoint(0, 0), far + QPoint(50, 9), far + QPoint(-100, 3),
                                      far + QPoint(100, 3), out));
    QCOMPARE(out, far + QPoint(17, 3));
}

void TestArrowHits::shaftIsHitByTheSquaresDiagonals_data()
{
    QTest::addColumn<int>("tolerance");
    QTest::addColumn<int>("above"); // farthest hit above the shaft
    QTest::addColumn<int>("below");
    // A square of 8 reaches 4 before its middle and 3 behind it.
    QTest::newRow("even 8") << 8 << 3 << 4;
    QTest::newRow("odd 7") << 7 << 3 << 3;
    QTest::newRow("even 4") << 4 << 1 << 2;
}

void TestArrowHits::shaftIsHitByTheSquaresDiagonals()
{
    QFETCH(int, tolerance);
    QFETCH(int, above);
    QFETCH(int, below);
    int node = 7;
    QVERIFY(theItem->isPointOnObject(QPoint(160, 92 - above), node, tolerance));
    QCOMPARE(node, 0);
    node = 7;
    QVERIFY(!theItem->isPointOnObject(QPoint(160, 92 - above - 1), node, tolerance));
    QCOMPARE(node, 0);
    QVERIFY(theItem->isPointOnObject(QPoint(160, 92 + below), node, tolerance));
    QVERIFY(!theItem->isPointOnObject(QPoint(160, 92 + below + 1), node, tolerance));
}

void TestArrowHits::shaftIsNoTargetWhileItIsNotShown()
{
    int node = 0;
    theItem->theParts = 2;
    QVERIFY(!theItem->isPointOnObject(QPoint(160, 92), node, 8));
    QVERIFY(theItem->isPointOnObject(QPoint(100, 92), node, 8));
    // The label stays a target even when it isn't shown.
    theItem->theParts = 1;
    QVERIFY(theItem->isPointOnObject(QPoint(160, 92), node, 8));
    QVERIFY(theItem->isPointOnObject(QPoint(100, 92), node, 8));
}

void TestArrowHits::labelIsHitWithoutTolerance()
{
    int node = 0;
    theItem->setEndPoint(QPoint(100, 300)); // away from the label's sides
    for (const QPoint& inside : {QPoint(80, 84), QPoint(120, 84), QPoint(80, 100), QPoint(110, 92)})
        QVERIFY(theItem->isPointOnObject(inside, node, 8));
    for (const QPoint& outside : {QPoint(79, 84), QPoint(121, 92), QPoint(90, 83), QPoint(85, 101)})
        QVERIFY(!theItem->isPointOnObject(outside, node, 8));
}

void TestArrowHits::tipIsHitAlongItsSecondBarbOnly()
{
    QPoint out(-7, -7);
    QVERIFY(!theItem->isPointOnArrow(QPoint(213, 89), out, 3)); // behind the first barb
    QVERIFY(!theItem->isPointOnArrow(QPoint(160, 92), out, 8)); // the shaft
    QCOMPARE(out, QPoint(-7, -7));
    QVERIFY(theItem->isPointOnArrow(QPoint(213, 95), out, 3));
    QCOMPARE(out, QPoint(222, 92));
    QVERIFY(theItem->isPointOnArrow(QPoint(222, 92), out, 3));
    QVERIFY(theItem->isPointOnArrow(QPoint(219, 93), out, 3)); // on the barb
    QVERIFY(!theItem->isPointOnArrow(QPoint(208, 97), out, 3));
}

void TestArrowHits::tipIsHitByEachDiagonal()
{
    // The back corner (213, 95) is touched by the end of one diagonal of the square of one pixel around each
    // of these: the first two by the first diagonal, the others by the second.
    QPoint out;
    for (const QPoint& point : {QPoint(212, 94), QPoint(214, 96), QPoint(212, 96), QPoint(214, 94)})
        QVERIFY(theItem->isPointOnArrow(point, out, 3));
    for (const QPoint& point : {QPoint(211, 95), QPoint(213, 97), QPoint(211, 97)})
        QVERIFY(!theItem->isPointOnArrow(point, out, 3));
}

void TestArrowHits::hitsAreThoseOfTheTwoDiagonals()
{
    QRandomGenerator random(kSeed);
    int hits = 0;
    int tipHits = 0;
    for (int round = 0; round < 5000; ++round) {
        const QPoint p(random.bounded(60, 260), random.bounded(60, 130));
        const int tol = random.bounded(2, 20);
        theItem->setEndPoint(QPoint(random.bounded(60, 260), random.bounded(60, 130)));
        const QPoint first = p - QPoint(tol / 2, tol / 2);
        const QPoint last = first + QPoint(tol - 1, tol - 1);
        const auto meets = [&](const QPoint& aFrom, const QPoint& aTo) {
            QPoint out;
            return SegmentGeometry::intersect(aFrom, aTo, first, last, out) ||
                   SegmentGeometry::intersect(aFrom, aTo, QPoint(first.x(), last.y()),
                                              QPoint(last.x(), first.y()), out);
        };
        const bool onShaft = meets(theItem->theTailPoint, theItem->theEndPoint);
        const bool onTip = meets(theItem->theEndPoint, theItem->theEndPoint - theItem->theBarb2);
        int node = 0;
        QPoint tip;
        const QByteArray where = QByteArray::number(kSeed) + ", round " + QByteArray::number(round);
        QVERIFY2(theItem->isPointOnObject(p, node, tol) == (onShaft || theItem->theTextRect.contains(p)),
                 where);
        QVERIFY2(theItem->isPointOnArrow(p, tip, tol) == onTip, where);
        hits += onShaft;
        tipHits += onTip;
    }
    QVERIFY(hits > 100 && hits < 4900);
    QVERIFY(tipHits > 20 && tipHits < 4900);
}

MEASURE_TEST_MAIN(TestArrowHits)
#include "TestArrowHits.moc"
