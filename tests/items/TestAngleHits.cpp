#include "LmCvAngle.h"
#include "Q3Canvas.h"
#include "TestFont.h"

#include <QRandomGenerator>

#include <cmath>

namespace {

constexpr quint32 kSeed = 57;
const QPoint theMiddle(300, 300);

} // namespace

class TestAngleHits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { delete theItem; }

    void insideOfTheArcIsHit_data();
    void insideOfTheArcIsHit();
    void distanceOfThirtyIsOutsideTheSector();
    void vertexIsHitByTheArms();
    void armsAndPointerUseTwoFactors();
    void sectorAgreesWithAnotherComputation();
    void armsThatCoincideAreHitAllAround();
    void firstArmIsHitByBothDiagonals();
    void secondArmIsHitByTheFirstDiagonalAlone();
    void secondArmIsHitAlongItsWholeLengthWhereItCrossesTheFirstDiagonal();
    void hitHasNodeZero();
    void headIsHitByItsSecondFlankAlone_data();
    void headIsHitByItsSecondFlankAlone();
    void firstEndIsFoundBeforeTheSecond();
    void labelHoldsItsEdges();

private:
    bool hits(const QPoint& aWay, int aTol = 1)
    {
        int node = 0;
        return theItem->isPointOnObject(theMiddle + aWay, node, aTol);
    }

    Q3Canvas theCanvas{1000, 1000};
    LmCvAngle* theItem = nullptr;
};

// The first arm up and the second to the right: the arc spans the quarter between them.
void TestAngleHits::init()
{
    theItem = new LmCvAngle(nullptr, &theCanvas, QStringLiteral("1"), nullptr);
    theItem->setPoints(theMiddle, theMiddle + QPoint(0, -128), theMiddle + QPoint(128, 0));
    theItem->show();
}

void TestAngleHits::insideOfTheArcIsHit_data()
{
    QTest::addColumn<QPoint>("way1");
    QTest::addColumn<QPoint>("way2");
    QTest::addColumn<bool>("upperRight");
    QTest::addColumn<bool>("lowerRight");
    QTest::addColumn<bool>("upperLeft");
    const QPoint up(0, -100);
    const QPoint right(100, 0);
    const QPoint left(-100, 0);
    const QPoint down(0, 100);
    // Clockwise from the first arm to the second.
    QTest::newRow("up to right") << up << right << true << false << false;
    QTest::newRow("right to up") << right << up << false << true << true;
    QTest::newRow("up to down, over the right") << up << down << true << true << false;
    QTest::newRow("down to up, over the left") << down << up << false << false << true;
    QTest::newRow("left to right, over the top") << left << right << true << false << true;
    QTest::newRow("right to left, over the bottom") << right << left << false << true << false;
    QTest::newRow("right to down") << right << down << false << true << false;
}

void TestAngleHits::insideOfTheArcIsHit()
{
    QFETCH(QPoint, way1);
    QFETCH(QPoint, way2);
    QFETCH(bool, upperRight);
    QFETCH(bool, lowerRight);
    QFETCH(bool, upperLeft);
    theItem->setPoints(theMiddle, theMiddle + way1, theMiddle + way2);
    QCOMPARE(hits(QPoint(15, -15)), upperRight);
    QCOMPARE(hits(QPoint(15, 15)), lowerRight);
    QCOMPARE(hits(QPoint(-15, -15)), upperLeft);
}

void TestAngleHits::distanceOfThirtyIsOutsideTheSector()
{
    // 18, 24, 30
    QVERIFY(!hits(QPoint(18, -24)));
    QVERIFY(!hits(QPoint(24, -18)));
    QVERIFY(hits(QPoint(18, -23)));
    QVERIFY(hits(QPoint(23, -18)));
    QVERIFY(hits(QPoint(1, -1)));
}

void TestAngleHits::vertexIsHitByTheArms()
{
    QVERIFY(hits(QPoint(0, 0), 3));
    QVERIFY(hits(QPoint(0, 0), 8));
}

void TestAngleHits::armsAndPointerUseTwoFactors()
{
    // An arm along (8, -100) has the direction 85.426 and, with 57 degrees a radian, counts as 84.985. The
    // pointer at (2, -24), 85.236, lies clockwise of the arm's line, between the two.
    const QPoint steep = theMiddle + QPoint(8, -100);
    theItem->setPoints(theMiddle, theMiddle + QPoint(-128, 0), steep);
    QVERIFY(std::abs(theItem->theEndAngle - 84.985) < 1e-3);
    QVERIFY(hits(QPoint(2, -24)));
    QVERIFY(!hits(QPoint(3, -24))); // 82.9
    theItem->setPoints(theMiddle, steep, theMiddle + QPoint(128, 0));
    QVERIFY(!hits(QPoint(2, -24)));
    QVERIFY(hits(QPoint(3, -24)));
}

void TestAngleHits::sectorAgreesWithAnotherComputation()
{
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    const auto way = [&random](int aReach) {
        return QPoint(random.bounded(-aReach, aReach + 1), random.bounded(-aReach, aReach + 1));
    };
    int inside = 0;
    int outside = 0;
    for (int i = 0; i < 20000; ++i) {
        const QPoint way1 = way(200);
        const QPoint way2 = way(200);
        const QPoint place = way(31);
        if (place.isNull())
            continue;
        theItem->setPoints(theMiddle, theMiddle + way1, theMiddle + way2);
        int node = 0;
        // The clockwise way from the first arm to the pointer against the one to the second arm.
        const double degrees = std::atan2(-double(place.y()), double(place.x())) * 180.0 / std::acos(-1.0);
        const auto clockwise = [this](double aTo) {
            const double turn = std::fmod(theItem->theStartAngle - aTo + 720.0, 360.0);
            return turn == 0.0 ? 360.0 : turn;
        };
        const double toPlace = clockwise(degrees);
        const double toSecond = clockwise(theItem->theEndAngle);
        const bool isClose = std::hypot(place.x(), place.y()) < 30.0;
        if (std::abs(toPlace - toSecond) < 1e-6 || std::abs(toPlace - 360.0) < 1e-6)
            continue;
        const bool expected = isClose && toPlace < toSecond;
        if (expected)
            QVERIFY(theItem->isPointOnObject(theMiddle + place, node, 1));
        else
            // Far from both arms the sector alone decides.
            QVERIFY(!theItem->isPointOnObject(theMiddle + place, node, 1) ||
                    std::abs(QPointF::dotProduct(QPointF(place.y(), -place.x()), way1)) <=
                        2.0 * theItem->theLength1 ||
                    std::abs(QPointF::dotProduct(QPointF(place.y(), -place.x()), way2)) <=
                        2.0 * theItem->theLength2);
        ++(expected ? inside : outside);
    }
    QVERIFY(inside > 5000 && outside > 5000);
}

void TestAngleHits::armsThatCoincideAreHitAllAround()
{
    theItem->setPoints(theMiddle, theMiddle + QPoint(60, 80), theMiddle + QPoint(60, 80));
    for (const QPoint& place : {QPoint(20, 0), QPoint(-20, 0), QPoint(0, -20), QPoint(0, 20)})
        QVERIFY(hits(place));
    QVERIFY(!hits(QPoint(-30, 0)));
}

void TestAngleHits::firstArmIsHitByBothDiagonals()
{
    // Along the first diagonal of the square, 100 out of the sector; two below it the second one crosses.
    theItem->setPoints(theMiddle, theMiddle + QPoint(200, 200), theMiddle + QPoint(-200, 0));
    QVERIFY(hits(QPoint(100, 100), 8));
    QVERIFY(hits(QPoint(100, 102), 8));
    QVERIFY(!hits(QPoint(100, 110), 8));
    theItem->setPoints(theMiddle, theMiddle + QPoint(200, -200), theMiddle + QPoint(-200, 0));
    QVERIFY(hits(QPoint(100, -102), 8)); // the first one crosses
}

void TestAngleHits::secondArmIsHitByTheFirstDiagonalAlone()
{
    theItem->setPoints(theMiddle, theMiddle + QPoint(-200, 0), theMiddle + QPoint(200, 200));
    QVERIFY(hits(QPoint(100, 100), 8));  // both on one line
    QVERIFY(!hits(QPoint(100, 102), 8)); // the second diagonal would cross
    QVERIFY(!hits(QPoint(102, 100), 8));
}

void TestAngleHits::secondArmIsHitAlongItsWholeLengthWhereItCrossesTheFirstDiagonal()
{
    struct Row
    {
        QPoint theWay;  // of the second arm, in eight steps
        QPoint theSide; // from the arm
        bool theHit;
    };
    // A square of 8 reaches 4 before its middle and 3 behind it.
    const Row rows[] = {{{25, 0}, {0, 4}, true},   {{25, 0}, {0, -3}, true},  {{25, 0}, {0, 5}, false},
                        {{0, 25}, {4, 0}, true},   {{0, 25}, {-3, 0}, true},  {{0, 25}, {-4, 0}, false},
                        {{25, -25}, {3, 3}, true}, {{25, 25}, {1, 0}, false}, {{25, 25}, {0, 0}, true}};
    for (const Row& row : rows) {
        theItem->setPoints(theMiddle, theMiddle - QPoint(100, 90), theMiddle + 8 * row.theWay);
        for (int step = 2; step < 8; ++step)
            QCOMPARE(hits(step * row.theWay + row.theSide, 8), row.theHit);
    }
}

void TestAngleHits::hitHasNodeZero()
{
    for (const QPoint& way : {QPoint(10, -10), QPoint(60, 0), QPoint(-90, 90)}) {
        int node = 7;
        theItem->isPointOnObject(theMiddle + way, node, 8);
        QCOMPARE(node, 0);
    }
}

void TestAngleHits::headIsHitByItsSecondFlankAlone_data()
{
    QTest::addColumn<bool>("swapped");
    QTest::newRow("up first") << false;
    QTest::newRow("right first") << true;
}

void TestAngleHits::headIsHitByItsSecondFlankAlone()
{
    QFETCH(bool, swapped);
    const QPoint up = theMiddle + QPoint(0, -128);
    const QPoint right = theMiddle + QPoint(128, 0);
    if (swapped)
        theItem->setPoints(theMiddle, right, up);
    // Seen along the arm the second flank lies to the right: ways to its tip, and to the tip of the first.
    const QPoint tips[] = {up + QPoint(3, 9), right + QPoint(-9, 3)};
    const QPoint others[] = {up + QPoint(-3, 9), right + QPoint(-9, -3)};
    for (int i = 0; i < 2; ++i) {
        const QPoint expected = i == 0 ? up : right;
        // Squares of side 3 around the points beside the tip meet it with one of their diagonals' ends.
        for (const QPoint& beside : {QPoint(-1, -1), QPoint(1, 1), QPoint(1, -1), QPoint(-1, 1)}) {
            QPoint end(-1, -1);
            QVERIFY(theItem->isPointOnArrow(tips[i] + beside, end, 3));
            QCOMPARE(end, expected);
            QVERIFY(!theItem->isPointOnArrow(others[i] + beside, end, 3));
        }
    }
}

void TestAngleHits::firstEndIsFoundBeforeTheSecond()
{
    // Two arms on one line: the first end lies on the second one's flank.
    theItem->setPoints(theMiddle, theMiddle + QPoint(122, 0), theMiddle + QPoint(128, 0));
    QPoint end;
    QVERIFY(theItem->isPointOnArrow(theMiddle + QPoint(122, 0), end, 8));
    QCOMPARE(end, theItem->theEnd1);
    QVERIFY(theItem->isPointOnArrow(theMiddle + QPoint(127, 1), end, 8));
    QCOMPARE(end, theItem->theEnd2);
}

void TestAngleHits::labelHoldsItsEdges()
{
    const QRect box = theItem->theLabelRect;
    for (const QPoint& corner : {box.topLeft(), box.topRight(), box.bottomLeft(), box.bottomRight()})
        QVERIFY(theItem->isPointOnStart(corner));
    QVERIFY(!theItem->isPointOnStart(box.topLeft() - QPoint(1, 0)));
    QVERIFY(!theItem->isPointOnStart(box.topLeft() - QPoint(0, 1)));
    QVERIFY(!theItem->isPointOnStart(box.bottomRight() + QPoint(1, 0)));
    QVERIFY(!theItem->isPointOnStart(box.bottomRight() + QPoint(0, 1)));
    QVERIFY(!theItem->isPointOnStart(theMiddle));
}

MEASURE_TEST_MAIN(TestAngleHits)
#include "TestAngleHits.moc"
