#include "LmCvArrow.h"
#include "Q3Canvas.h"
#include "Q3CanvasView.h"
#include "TestFont.h"

#include <QRandomGenerator>

#include <cmath>

namespace {

constexpr quint32 kSeed = 1105;

// A vector of the length along the way, turned by degrees clockwise on the screen, cut toward zero.
QPoint vectorAlong(const QPoint& aWay, double aLength, double aDegrees)
{
    const double direction =
        std::atan2(double(aWay.y()), double(aWay.x())) + aDegrees * std::acos(-1.0) / 180.0;
    return QPoint(int(std::trunc(aLength * std::cos(direction))),
                  int(std::trunc(aLength * std::sin(direction))));
}

// Both ways of computing may fall to different sides of an integer, then they differ by one.
bool isNear(const QPoint& aFirst, const QPoint& aSecond)
{
    return std::abs(aFirst.x() - aSecond.x()) <= 1 && std::abs(aFirst.y() - aSecond.y()) <= 1;
}

} // namespace

class TestArrowGeometry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theItem = new LmCvArrow(nullptr, &theCanvas, QStringLiteral("Counter"), &theView); }
    void cleanup() { delete theItem; }

    void startsEmptyWithBothParts();
    void startPointIsTheMiddleOfTheLowerEdge_data();
    void startPointIsTheMiddleOfTheLowerEdge();
    void tailLooksToTheTip_data();
    void tailLooksToTheTip();
    void tailStandsHalfWayUpALabelOfAnyHeight();
    void barbsLieTwentyDegreesBesideTheArrow();
    void barbsWorkedExample();
    void tipOnTheTailHasAHeadOfZeroSize();
    void rectangleHoldsThePartsThatAreShown();
    void moveTakesLabelAndTipAlong();

private:
    // Anchor (100, 100) with a label of known size: left 80, top 84, right 120, bottom 100.
    void placeKnownLabel();

    Q3Canvas theCanvas{1000, 1000};
    Q3CanvasView theView{&theCanvas};
    LmCvArrow* theItem = nullptr;
};

void TestArrowGeometry::placeKnownLabel()
{
    theItem->setStartPoint(QPoint(100, 100));
    theItem->theTextRect = QRect(QPoint(80, 84), QPoint(120, 100));
}

void TestArrowGeometry::startsEmptyWithBothParts()
{
    QCOMPARE(theItem->rtti(), 1105);
    QCOMPARE(theItem->theLabel, QStringLiteral("Counter"));
    QCOMPARE(theItem->theTextRect, QRect(QPoint(0, 0), QPoint(-1, -1)));
    QCOMPARE(theItem->theEndPoint, QPoint(0, 0));
    QCOMPARE(theItem->theTailPoint, QPoint(0, 0));
    QCOMPARE(theItem->theLastPos, QPoint(0, 0));
    QCOMPARE(theItem->theParts, 3);
    QVERIFY(!theItem->theMovingLabel && !theItem->theMovingTip);
    QCOMPARE(theItem->theFont.family(), QStringLiteral("Lucida Grande"));
    QCOMPARE(theItem->theFont.pointSize(), LmCvObject::kDefaultFntSize + 2);
    QCOMPARE(theItem->theFont.weight(), int(QFont::Normal));
    QVERIFY(!theItem->theFont.italic());
    QCOMPARE(theItem->thePointSize, LmCvObject::kDefaultFntSize + 2);
    QVERIFY(theItem->theText.isEmpty());
    QVERIFY(!theItem->theNodesChanged && !theItem->isNodesChanged());
    QCOMPARE(theItem->theHeadLength, 10.0);
    QCOMPARE(theItem->theBarb1, QPoint(0, 0));
    QCOMPARE(theItem->theBarb2, QPoint(0, 0));
    QCOMPARE(theItem->theArrowLength, 0.0);
    QVERIFY(!theItem->theDragFinished);
    QCOMPARE(theItem->theSelSize, LmCvObject::kDefaultSelSize);
}

void TestArrowGeometry::startPointIsTheMiddleOfTheLowerEdge_data()
{
    QTest::addColumn<QSize>("label");
    QTest::addColumn<QRect>("placed");
    QTest::newRow("even width") << QSize(40, 16) << QRect(QPoint(180, 285), QPoint(219, 300));
    QTest::newRow("odd width") << QSize(41, 17) << QRect(QPoint(180, 284), QPoint(220, 300));
    QTest::newRow("no size") << QSize(0, 0) << QRect(QPoint(200, 301), QPoint(199, 300));
}

void TestArrowGeometry::startPointIsTheMiddleOfTheLowerEdge()
{
    QFETCH(QSize, label);
    QFETCH(QRect, placed);
    theItem->theTextRect = QRect(QPoint(7, 9), label);
    theItem->setEndPoint(QPoint(500, 400));
    theItem->setStartPoint(QPoint(200, 300));
    QCOMPARE(theItem->theTextRect, placed);
    QCOMPARE(QPointF(theItem->x(), theItem->y()), QPointF(200, 300));
    QCOMPARE(theItem->theEndPoint, QPoint(500, 400));
    QCOMPARE(theItem->theTailPoint, QPoint(200, 300)); // the arrow is fitted to the new place
}

void TestArrowGeometry::tailLooksToTheTip_data()
{
    QTest::addColumn<QPoint>("tip");
    QTest::addColumn<QPoint>("tail");
    const QPoint above(100, 84);
    const QPoint right(122, 92); // (16 + 1) / 2 above the anchor
    const QPoint left(78, 92);
    const QPoint anchor(100, 100);
    QTest::newRow("above") << QPoint(100, 20) << above;
    QTest::newRow("above and far to the right") << QPoint(400, 83) << above;
    QTest::newRow("above and far to the left") << QPoint(-400, 83) << above;
    QTest::newRow("right, at the upper edge") << QPoint(121, 84) << right;
    QTest::newRow("right, just above the lower edge") << QPoint(300, 99) << right;
    QTest::newRow("right, at the lower edge") << QPoint(300, 100) << anchor;
    QTest::newRow("left, at the upper edge") << QPoint(79, 84) << left;
    QTest::newRow("left, just above the lower edge") << QPoint(-300, 99) << left;
    QTest::newRow("left, at the lower edge") << QPoint(-300, 100) << anchor;
    QTest::newRow("on the right edge") << QPoint(120, 90) << anchor;
    QTest::newRow("on the left edge") << QPoint(80, 90) << anchor;
    QTest::newRow("inside") << QPoint(104, 90) << anchor;
    QTest::newRow("below") << QPoint(90, 160) << anchor;
    QTest::newRow("below and to the side") << QPoint(700, 160) << anchor;
}

void TestArrowGeometry::tailLooksToTheTip()
{
    QFETCH(QPoint, tip);
    QFETCH(QPoint, tail);
    placeKnownLabel();
    theItem->setEndPoint(tip);
    QCOMPARE(theItem->theEndPoint, tip);
    QCOMPARE(theItem->theTailPoint, tail);
    const double expected = std::hypot(tip.x() - tail.x(), tip.y() - tail.y());
    QVERIFY(std::abs(theItem->theArrowLength - expected) < 1e-9);
}

void TestArrowGeometry::tailStandsHalfWayUpALabelOfAnyHeight()
{
    theItem->setStartPoint(QPoint(100, 100));
    for (int height = 2; height < 40; ++height) {
        theItem->theTextRect = QRect(QPoint(80, 101 - height), QPoint(120, 100));
        theItem->setEndPoint(QPoint(500, 99));
        QCOMPARE(theItem->theTailPoint, QPoint(122, 100 - height / 2));
    }
}

void TestArrowGeometry::barbsWorkedExample()
{
    placeKnownLabel();
    // Straight down: 10 times the sine and the cosine of 20 degrees, 3.42 and 9.40.
    theItem->setEndPoint(QPoint(100, 200));
    QCOMPARE(theItem->theArrowLength, 100.0);
    QCOMPARE(theItem->theBarb1, QPoint(-3, 9));
    QCOMPARE(theItem->theBarb2, QPoint(3, 9));
    theItem->setEndPoint(QPoint(100, -16));
    QCOMPARE(theItem->theBarb1, QPoint(3, -9));
    QCOMPARE(theItem->theBarb2, QPoint(-3, -9));
    theItem->setEndPoint(QPoint(222, 92));
    QCOMPARE(theItem->theBarb1, QPoint(9, 3));
    QCOMPARE(theItem->theBarb2, QPoint(9, -3));
}

void TestArrowGeometry::barbsLieTwentyDegreesBesideTheArrow()
{
    QRandomGenerator random(kSeed);
    placeKnownLabel();
    for (int round = 0; round < 2000; ++round) {
        const QPoint tip(random.bounded(-500, 500), random.bounded(-500, 500));
        theItem->theHeadLength = random.bounded(1, 400) / 10.0;
        theItem->setEndPoint(tip);
        const QPoint way = tip - theItem->theTailPoint;
        const QByteArray where = QByteArray::number(kSeed) + ", round " + QByteArray::number(round);
        if (way.isNull())
            continue;
        QVERIFY2(isNear(theItem->theBarb1, vectorAlong(way, theItem->theHeadLength, 20.0)), where);
        QVERIFY2(isNear(theItem->theBarb2, vectorAlong(way, theItem->theHeadLength, -20.0)), where);
    }
}

void TestArrowGeometry::tipOnTheTailHasAHeadOfZeroSize()
{
    placeKnownLabel();
    theItem->setEndPoint(QPoint(100, 200));
    theItem->setEndPoint(QPoint(100, 100));
    QCOMPARE(theItem->theTailPoint, QPoint(100, 100));
    QCOMPARE(theItem->theArrowLength, 0.0);
    QCOMPARE(theItem->theBarb1, QPoint(0, 0));
    QCOMPARE(theItem->theBarb2, QPoint(0, 0));
    QVERIFY(!theItem->areaPoints().isEmpty());
}

void TestArrowGeometry::rectangleHoldsThePartsThatAreShown()
{
    placeKnownLabel();
    theItem->setEndPoint(QPoint(200, 150));
    const QRect all(QPoint(80, 84), QPoint(200, 150));
    const QRect arrowOnly(QPoint(100, 100), QPoint(200, 150));
    const QRect labelOnly(QPoint(80, 84), QPoint(120, 100));
    QVERIFY(theItem->isRectContainsObject(all));
    QVERIFY(!theItem->isRectContainsObject(arrowOnly));
    QVERIFY(!theItem->isRectContainsObject(labelOnly));
    QVERIFY(!theItem->isRectContainsObject(all.adjusted(0, 0, -1, 0)));
    QVERIFY(!theItem->isRectContainsObject(all.adjusted(0, 1, 0, 0)));
    theItem->theParts = 1;
    QVERIFY(theItem->isRectContainsObject(arrowOnly));
    QVERIFY(!theItem->isRectContainsObject(arrowOnly.adjusted(1, 0, 0, 0)));
    theItem->theParts = 2;
    QVERIFY(theItem->isRectContainsObject(labelOnly));
    QVERIFY(!theItem->isRectContainsObject(arrowOnly));
    theItem->theParts = 0;
    QVERIFY(!theItem->isRectContainsObject(all));
}

void TestArrowGeometry::moveTakesLabelAndTipAlong()
{
    placeKnownLabel();
    theItem->setEndPoint(QPoint(222, 92));
    theItem->theLastPos = QPoint(1, 2);
    theItem->moveObjectBy(QPoint(-30, 45));
    QCOMPARE(theItem->theTextRect, QRect(QPoint(50, 129), QPoint(90, 145)));
    QCOMPARE(QPointF(theItem->x(), theItem->y()), QPointF(70, 145));
    QCOMPARE(theItem->theEndPoint, QPoint(192, 137));
    QCOMPARE(theItem->theTailPoint, QPoint(92, 137));
    QCOMPARE(theItem->theBarb1, QPoint(9, 3));
    QCOMPARE(theItem->theLastPos, QPoint(1, 2));
    QVERIFY(theItem->isNodesChanged());
}

MEASURE_TEST_MAIN(TestArrowGeometry)
#include "TestArrowGeometry.moc"
