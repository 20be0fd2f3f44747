#include "LmCvDistance.h"
#include "Q3Canvas.h"
#include "TestFont.h"

#include <QFontMetrics>
#include <QRandomGenerator>

#include <cmath>

namespace {

constexpr quint32 kSeed = 4711;

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

class TestDistanceGeometry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theItem = new LmCvDistance(nullptr, &theCanvas, QStringLiteral("3"), nullptr); }
    void cleanup() { delete theItem; }

    void startsWithTheStatedValues();
    void setPointsWorkedExample();
    void wingsLieTwentyDegreesBesideTheLine();
    void lengthDecidesWhichWayTheHeadsPoint_data();
    void lengthDecidesWhichWayTheHeadsPoint();
    void lineOfLengthZeroHasNoHeads();
    void lineOfLengthZeroKeepsItsLabelPlace();
    void labelStandsOnTheLineAfterAMove();
    void labelStandsTwoPixelsHigherAfterATextChange();
    void labelSitsAtTheRoundedMiddle_data();
    void labelSitsAtTheRoundedMiddle();
    void labelBoxFitsItsText();
    void zoomChangesSizes_data();
    void zoomChangesSizes();
    void rectangleHoldsTheItemEdgesIncluded();
    void moveShiftsBothEnds();

private:
    Q3Canvas theCanvas{1000, 1000};
    LmCvDistance* theItem = nullptr;
};

void TestDistanceGeometry::startsWithTheStatedValues()
{
    QCOMPARE(theItem->rtti(), 1102);
    QCOMPARE(theItem->theStart, QPoint(0, 0));
    QCOMPARE(theItem->theEnd, QPoint(0, 0));
    QCOMPARE(theItem->theDragPoint, QPoint(0, 0));
    QVERIFY(!theItem->theMoving && !theItem->theDragging && !theItem->theNodesChanged &&
            !theItem->theEditDone);
    QCOMPARE(theItem->theArrowLength, 10.0);
    QCOMPARE(theItem->theLength, 0.0);
    QCOMPARE(theItem->theFont.family(), QStringLiteral("Lucida Grande"));
    QCOMPARE(theItem->theFont.pointSize(), LmCvObject::kDefaultFntSize);
    QCOMPARE(theItem->theFont.weight(), int(QFont::Normal));
    QVERIFY(!theItem->theFont.italic());
    QCOMPARE(theItem->theSelSize, LmCvObject::kDefaultSelSize);
    QVERIFY(!theItem->isNodesChanged());
    // The constructor builds the label last.
    QVERIFY(!theItem->theLabelRect.isEmpty());
    QCOMPARE(theItem->theLabelRect.bottom(), -2);
}

void TestDistanceGeometry::setPointsWorkedExample()
{
    // 30, 40, 50: the unit vector is (0.6, 0.8), ten of it (6, 8).
    theItem->setPoints(QPoint(100, 200), QPoint(130, 240));
    QCOMPARE(theItem->theStart, QPoint(100, 200));
    QCOMPARE(theItem->theEnd, QPoint(130, 240));
    QCOMPARE(theItem->theLength, 50.0);
    // cos 20 = 0.93969, sin 20 = 0.34202:
    // (6 * 0.93969 - 8 * 0.34202, 6 * 0.34202 + 8 * 0.93969) = (2.902, 9.570)
    QCOMPARE(theItem->theWing1, QPoint(2, 9));
    // (6 * 0.93969 + 8 * 0.34202, -6 * 0.34202 + 8 * 0.93969) = (8.374, 5.465)
    QCOMPARE(theItem->theWing2, QPoint(8, 5));
    // Exactly (16, -12) and (-6, -8) in numbers, but 10 / 50 has no exact binary form: cut toward zero may
    // lose one.
    QVERIFY2(isNear(theItem->theNormal, QPoint(16, -12)), "normal");
    QVERIFY2(isNear(theItem->theBack, QPoint(-6, -8)), "back");

    theItem->setPoints(QPoint(0, 0), QPoint(-64, 0));
    QCOMPARE(theItem->theWing1, QPoint(-9, -3)); // (-9.397, -3.420)
    QCOMPARE(theItem->theWing2, QPoint(-9, 3));
    QCOMPARE(theItem->theNormal, QPoint(0, 20)); // 10 / 64 is exact
    QCOMPARE(theItem->theBack, QPoint(10, 0));
}

void TestDistanceGeometry::wingsLieTwentyDegreesBesideTheLine()
{
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    for (int i = 0; i < 2000; ++i) {
        const QPoint way(random.bounded(-400, 401), random.bounded(-400, 401));
        if (QPointF(way).isNull())
            continue;
        const QPoint start(random.bounded(-500, 500), random.bounded(-500, 500));
        theItem->setPoints(start, start + way);
        const double squared = double(way.x()) * way.x() + double(way.y()) * way.y();
        const int sign = squared < 900.0 ? -1 : 1;
        QVERIFY(std::abs(theItem->theLength * theItem->theLength - squared) < 1e-6);
        QVERIFY(isNear(theItem->theWing1 * sign, vectorAlong(way, 10.0, 20.0)));
        QVERIFY(isNear(theItem->theWing2 * sign, vectorAlong(way, 10.0, -20.0)));
        QVERIFY(isNear(theItem->theNormal, vectorAlong(way, 20.0, -90.0)));
        QVERIFY(isNear(theItem->theBack, vectorAlong(way, 10.0, 180.0)));
    }
}

void TestDistanceGeometry::lengthDecidesWhichWayTheHeadsPoint_data()
{
    QTest::addColumn<QPoint>("way");
    QTest::addColumn<bool>("outward");
    QTest::newRow("29") << QPoint(29, 0) << true;
    QTest::newRow("30") << QPoint(30, 0) << false;
    QTest::newRow("29 down") << QPoint(0, 29) << true;
    QTest::newRow("30 down") << QPoint(0, 30) << false;
    QTest::newRow("30 by 18 and 24") << QPoint(-18, -24) << false;
    QTest::newRow("just below 30") << QPoint(-18, 23) << true;
}

void TestDistanceGeometry::lengthDecidesWhichWayTheHeadsPoint()
{
    QFETCH(QPoint, way);
    QFETCH(bool, outward);
    theItem->setPoints(QPoint(50, 60), QPoint(50, 60) + way);
    // Flanks of an outward head lie behind the start, seen from the end.
    QCOMPARE(QPoint::dotProduct(theItem->theWing1, way) < 0, outward);
    QCOMPARE(QPoint::dotProduct(theItem->theWing2, way) < 0, outward);
    QVERIFY(QPoint::dotProduct(theItem->theBack, way) < 0);
}

void TestDistanceGeometry::lineOfLengthZeroHasNoHeads()
{
    theItem->setPoints(QPoint(0, 0), QPoint(64, 0));
    theItem->setPoints(QPoint(40, 40), QPoint(40, 40));
    QCOMPARE(theItem->theLength, 0.0);
    QCOMPARE(theItem->theWing1, QPoint(0, 0));
    QCOMPARE(theItem->theWing2, QPoint(0, 0));
    // The rest keeps its last values.
    QCOMPARE(theItem->theNormal, QPoint(0, -20));
    QCOMPARE(theItem->theBack, QPoint(-10, 0));
}

void TestDistanceGeometry::lineOfLengthZeroKeepsItsLabelPlace()
{
    theItem->setPoints(QPoint(300, 300), QPoint(400, 300));
    const QRect before = theItem->theLabelRect;
    theItem->setPoints(QPoint(40, 40), QPoint(40, 40));
    QCOMPARE(theItem->theLabelRect, before);
    theItem->setPoints(QPoint(40, 40), QPoint(140, 40));
    QVERIFY(theItem->theLabelRect != before);
}

void TestDistanceGeometry::labelStandsOnTheLineAfterAMove()
{
    theItem->setPoints(QPoint(100, 100), QPoint(200, 150));
    QCOMPARE(theItem->theLabelRect.bottom(), 125);
    QCOMPARE(theItem->theLabelRect.center().x(), 150);
}

void TestDistanceGeometry::labelStandsTwoPixelsHigherAfterATextChange()
{
    theItem->setPoints(QPoint(100, 100), QPoint(200, 150));
    theItem->setDisplayValue(QStringLiteral("12.34mm"));
    QCOMPARE(theItem->theLabelRect.bottom(), 123);
    QCOMPARE(theItem->theLabelRect.center().x(), 150);
    theItem->setPoints(QPoint(100, 100), QPoint(200, 150));
    QCOMPARE(theItem->theLabelRect.bottom(), 125);
    theItem->updateLabel();
    QCOMPARE(theItem->theLabelRect.bottom(), 123);
}

void TestDistanceGeometry::labelSitsAtTheRoundedMiddle_data()
{
    QTest::addColumn<int>("sum");
    QTest::addColumn<int>("middle");
    QTest::newRow("even") << 100 << 50;
    QTest::newRow("odd") << 101 << 51;
    QTest::newRow("negative even") << -100 << -50;
    QTest::newRow("negative odd") << -101 << -51;
}

void TestDistanceGeometry::labelSitsAtTheRoundedMiddle()
{
    QFETCH(int, sum);
    QFETCH(int, middle);
    theItem->setPoints(QPoint(-300, -300), QPoint(sum + 300, sum + 300));
    QCOMPARE(theItem->theLabelRect.bottom(), middle);
    QCOMPARE(theItem->theLabelRect.center().x(), middle);
}

void TestDistanceGeometry::labelBoxFitsItsText()
{
    const QFontMetrics metrics(theItem->theFont);
    QCOMPARE(theItem->theLabelRect.size(), metrics.boundingRect(QStringLiteral(" 3 ")).size());
    theItem->setDisplayValue(QStringLiteral("7.00cm"));
    QCOMPARE(theItem->theLabelRect.size(), metrics.boundingRect(QStringLiteral(" 3 <7.00cm> ")).size());
    theItem->setDisplayValue(QString());
    QCOMPARE(theItem->theLabelRect.size(), metrics.boundingRect(QStringLiteral(" 3 ")).size());
}

void TestDistanceGeometry::zoomChangesSizes_data()
{
    QTest::addColumn<double>("zoom");
    QTest::addColumn<double>("penWidth");
    QTest::addColumn<double>("growth");
    QTest::newRow("0.5") << 0.5 << 4.0 << 2.0;
    QTest::newRow("1") << 1.0 << 2.0 << 1.0;
    QTest::newRow("4") << 4.0 << 0.5 << 1.0;
    QTest::newRow("0.3") << 0.3 << 2.0 / 0.3 << 1.0 / 0.3;
}

void TestDistanceGeometry::zoomChangesSizes()
{
    QFETCH(double, zoom);
    QFETCH(double, penWidth);
    QFETCH(double, growth);
    theItem->setPoints(QPoint(100, 100), QPoint(612, 100));
    const int width = theItem->theLabelRect.width();
    theItem->adjustScale(QTransform::fromScale(zoom, zoom));
    QVERIFY(std::abs(theItem->thePen.widthF() - penWidth) < 1e-9);
    QCOMPARE(theItem->theThinPen.widthF(), 0.0);
    QVERIFY(std::abs(theItem->theArrowLength - 10.0 * growth) < 1e-9);
    QVERIFY(std::abs(theItem->theFont.pointSizeF() - LmCvObject::kDefaultFntSize * growth) < 0.01);
    QCOMPARE(theItem->theSelSize, int(LmCvObject::kDefaultSelSize / qMin(zoom, 1.0)));
    // Points and label were set again: the wing by the new length, the label by the new font, two pixels up.
    QVERIFY(isNear(theItem->theWing1, vectorAlong(QPoint(1, 0), 10.0 * growth, 20.0)));
    QVERIFY(isNear(theItem->theNormal, QPoint(0, -int(20.0 * growth))));
    QCOMPARE(theItem->theLabelRect.width() > width, zoom < 1.0);
    QCOMPARE(theItem->theLabelRect.bottom(), 98);
    theItem->adjustScale(QTransform());
    QCOMPARE(theItem->theArrowLength, 10.0);
    QCOMPARE(theItem->theLabelRect.width(), width);
}

void TestDistanceGeometry::rectangleHoldsTheItemEdgesIncluded()
{
    theItem->setPoints(QPoint(10, 20), QPoint(50, 30));
    QVERIFY(theItem->isRectContainsObject(QRect(QPoint(10, 20), QPoint(50, 30))));
    QVERIFY(!theItem->isRectContainsObject(QRect(QPoint(11, 20), QPoint(50, 30))));
    QVERIFY(!theItem->isRectContainsObject(QRect(QPoint(10, 20), QPoint(49, 30))));
    QVERIFY(!theItem->isRectContainsObject(QRect(QPoint(10, 20), QPoint(50, 29))));
}

void TestDistanceGeometry::moveShiftsBothEnds()
{
    theItem->setPoints(QPoint(10, 20), QPoint(60, 30));
    theItem->moveObjectBy(QPoint(-7, 5));
    QCOMPARE(theItem->theStart, QPoint(3, 25));
    QCOMPARE(theItem->theEnd, QPoint(53, 35));
    QVERIFY(theItem->isNodesChanged());
}

MEASURE_TEST_MAIN(TestDistanceGeometry)
#include "TestDistanceGeometry.moc"
