#include "LmCvAngle.h"
#include "Q3Canvas.h"
#include "TestFont.h"

#include <QFontMetrics>
#include <QRandomGenerator>

#include <cmath>

namespace {

constexpr quint32 kSeed = 1106;
constexpr double kPi = 3.14159265358979323846;

// A vector of the length along the way, turned by degrees clockwise on the screen, cut toward zero.
QPoint vectorAlong(const QPoint& aWay, double aLength, double aDegrees)
{
    const double direction = std::atan2(double(aWay.y()), double(aWay.x())) + aDegrees * kPi / 180.0;
    return QPoint(int(std::trunc(aLength * std::cos(direction))),
                  int(std::trunc(aLength * std::sin(direction))));
}

// Both ways of computing may fall to different sides of an integer, then they differ by one.
bool isNear(const QPoint& aFirst, const QPoint& aSecond)
{
    return std::abs(aFirst.x() - aSecond.x()) <= 1 && std::abs(aFirst.y() - aSecond.y()) <= 1;
}

} // namespace

class TestAngleGeometry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theItem = new LmCvAngle(nullptr, &theCanvas, QStringLiteral("3"), nullptr); }
    void cleanup() { delete theItem; }

    void startsWithTheStatedValues();
    void setPointsWorkedExample();
    void headsAndNormalsLieBesideTheArms();
    void headsOfShortArmsPointOutwardToo_data();
    void headsOfShortArmsPointOutwardToo();
    void armOfLengthZeroHasNoHeadAndPointsRight();
    void directionsOfTheArms_data();
    void directionsOfTheArms();
    void directionsFallShortOfTheTrueOnesByUpToHalfADegree();
    void sweepIsNeverPositive_data();
    void sweepIsNeverPositive();
    void arcKeepsItsRadiusAtEveryZoom();
    void labelStandsFourBelowTheVertex();
    void labelStaysAfterATextChange();
    void labelBoxFitsItsText();
    void zoomChangesSizes_data();
    void zoomChangesSizes();
    void rectangleHoldsTheItemEdgesIncluded();
    void moveShiftsAllThreePoints();

private:
    Q3Canvas theCanvas{1000, 1000};
    LmCvAngle* theItem = nullptr;
};

void TestAngleGeometry::startsWithTheStatedValues()
{
    QCOMPARE(theItem->rtti(), 1106);
    QCOMPARE(LmCvAngle::kArcRadius, 30U);
    for (const QPoint& point : {theItem->theVertex, theItem->theEnd1, theItem->theEnd2, theItem->theDragPoint,
                                theItem->theWing1a, theItem->theWing1b, theItem->theWing2a,
                                theItem->theWing2b, theItem->theNormal1, theItem->theNormal2})
        QCOMPARE(point, QPoint(0, 0));
    QCOMPARE(theItem->theDragNode, 0);
    QVERIFY(!theItem->theMoving && !theItem->theDragging && !theItem->theNodesChanged &&
            !theItem->theEditDone);
    for (const double number :
         {theItem->theStartAngle, theItem->theEndAngle, theItem->theLength1, theItem->theLength2})
        QCOMPARE(number, 0.0);
    QVERIFY(theItem->theArcRect.isNull());
    QCOMPARE(theItem->theArrowLength, 10.0);
    QCOMPARE(theItem->theFont.family(), QStringLiteral("Lucida Grande"));
    QCOMPARE(theItem->theFont.pointSize(), LmCvObject::kDefaultFntSize);
    QCOMPARE(theItem->theSelSize, LmCvObject::kDefaultSelSize);
    QVERIFY(!theItem->isNodesChanged());
    // The constructor builds the label last.
    QVERIFY(!theItem->theLabelRect.isEmpty());
}

void TestAngleGeometry::setPointsWorkedExample()
{
    // The arms (0, -64) and (30, 40): ten of their directions are (0, -10) and (6, 8).
    theItem->setPoints(QPoint(100, 200), QPoint(100, 136), QPoint(130, 240));
    QCOMPARE(theItem->theVertex, QPoint(100, 200));
    QCOMPARE(theItem->theEnd1, QPoint(100, 136));
    QCOMPARE(theItem->theEnd2, QPoint(130, 240));
    QCOMPARE(theItem->theLength1, 64.0);
    QCOMPARE(theItem->theLength2, 50.0);
    // cos 20 = 0.93969, sin 20 = 0.34202: (3.420, -9.397) and its mirror image
    QCOMPARE(theItem->theWing1a, QPoint(3, -9));
    QCOMPARE(theItem->theWing1b, QPoint(-3, -9));
    // (6 * 0.93969 - 8 * 0.34202, 6 * 0.34202 + 8 * 0.93969) = (2.902, 9.570)
    QCOMPARE(theItem->theWing2a, QPoint(2, 9));
    // (6 * 0.93969 + 8 * 0.34202, -6 * 0.34202 + 8 * 0.93969) = (8.374, 5.465)
    QCOMPARE(theItem->theWing2b, QPoint(8, 5));
    QCOMPARE(theItem->theNormal1, QPoint(-10, 0));
    // 10 / 50 is a little more than 0.2 in binary, so that 30 and 40 of it reach 6 and 8.
    QCOMPARE(theItem->theNormal2, QPoint(8, -6));
    QCOMPARE(theItem->theArcRect, QRect(QPoint(70, 170), QPoint(130, 230)));
    // 57 degrees a radian: a quarter turn is 28.5 pi, asin 0.8 = 0.9272952 gives 52.8558 below the level.
    QVERIFY(std::abs(theItem->theStartAngle - 28.5 * kPi) < 1e-9);
    QVERIFY(std::abs(theItem->theEndAngle - 307.14417) < 1e-4);
}

void TestAngleGeometry::headsAndNormalsLieBesideTheArms()
{
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    const auto point = [&random] { return QPoint(random.bounded(-400, 401), random.bounded(-400, 401)); };
    for (int i = 0; i < 2000; ++i) {
        const QPoint vertex = point();
        const QPoint way1 = point();
        const QPoint way2 = point();
        if (way1.isNull() || way2.isNull())
            continue;
        theItem->setPoints(vertex, vertex + way1, vertex + way2);
        QVERIFY(std::abs(theItem->theLength1 - std::hypot(way1.x(), way1.y())) < 1e-9);
        QVERIFY(std::abs(theItem->theLength2 - std::hypot(way2.x(), way2.y())) < 1e-9);
        QVERIFY(isNear(theItem->theWing1a, vectorAlong(way1, 10.0, 20.0)));
        QVERIFY(isNear(theItem->theWing1b, vectorAlong(way1, 10.0, -20.0)));
        QVERIFY(isNear(theItem->theNormal1, vectorAlong(way1, 10.0, -90.0)));
        QVERIFY(isNear(theItem->theWing2a, vectorAlong(way2, 10.0, 20.0)));
        QVERIFY(isNear(theItem->theWing2b, vectorAlong(way2, 10.0, -20.0)));
        QVERIFY(isNear(theItem->theNormal2, vectorAlong(way2, 10.0, -90.0)));
    }
}

void TestAngleGeometry::headsOfShortArmsPointOutwardToo_data()
{
    QTest::addColumn<QPoint>("way");
    QTest::newRow("1") << QPoint(1, 0);
    QTest::newRow("29") << QPoint(0, 29);
    QTest::newRow("30") << QPoint(-18, -24);
    QTest::newRow("300") << QPoint(300, 0);
}

void TestAngleGeometry::headsOfShortArmsPointOutwardToo()
{
    QFETCH(QPoint, way);
    theItem->setPoints(QPoint(50, 60), QPoint(50, 60) + way, QPoint(50, 60) - way);
    // The flanks run from the end less the wing to the end, so the wings run along the arm.
    QVERIFY(QPoint::dotProduct(theItem->theWing1a, way) > 0);
    QVERIFY(QPoint::dotProduct(theItem->theWing1b, way) > 0);
    QVERIFY(QPoint::dotProduct(theItem->theWing2a, way) < 0);
    QVERIFY(QPoint::dotProduct(theItem->theWing2b, way) < 0);
}

void TestAngleGeometry::armOfLengthZeroHasNoHeadAndPointsRight()
{
    theItem->setPoints(QPoint(10, 10), QPoint(10, -54), QPoint(-54, 10));
    theItem->setPoints(QPoint(40, 40), QPoint(40, 40), QPoint(40, 104));
    QCOMPARE(theItem->theLength1, 0.0);
    QCOMPARE(theItem->theWing1a, QPoint(0, 0));
    QCOMPARE(theItem->theWing1b, QPoint(0, 0));
    QCOMPARE(theItem->theNormal1, QPoint(0, 0));
    QCOMPARE(theItem->theStartAngle, 0.0);
    // The other arm and the label go on.
    QCOMPARE(theItem->theNormal2, QPoint(10, 0));
    QVERIFY(std::abs(theItem->theEndAngle - (360.0 - 28.5 * kPi)) < 1e-9);
    QCOMPARE(theItem->theLabelRect.center().x(), 40);
    theItem->setPoints(QPoint(7, 7), QPoint(7, 7), QPoint(7, 7));
    QCOMPARE(theItem->theWing2a, QPoint(0, 0));
    QCOMPARE(theItem->theEndAngle, 0.0);
    QCOMPARE(theItem->getAngle(), 0.0);
}

void TestAngleGeometry::directionsOfTheArms_data()
{
    QTest::addColumn<QPoint>("way");
    QTest::addColumn<double>("degrees");
    // A quarter turn of a steep arm is 89.5354 and half of it 44.7677.
    QTest::newRow("right") << QPoint(100, 0) << 0.0;
    QTest::newRow("rising to the right") << QPoint(50, -50) << 44.767695;
    QTest::newRow("up") << QPoint(0, -100) << 89.535391;
    QTest::newRow("rising to the left") << QPoint(-50, -50) << 135.232305;
    QTest::newRow("left") << QPoint(-100, 0) << 180.0;
    QTest::newRow("falling to the left") << QPoint(-50, 50) << 224.767695;
    QTest::newRow("down") << QPoint(0, 100) << 270.464609;
    QTest::newRow("falling to the right") << QPoint(50, 50) << 315.232305;
}

void TestAngleGeometry::directionsOfTheArms()
{
    QFETCH(QPoint, way);
    QFETCH(double, degrees);
    const QPoint vertex(300, 300);
    theItem->setPoints(vertex, vertex + way, vertex - way);
    QVERIFY(std::abs(theItem->theStartAngle - degrees) < 1e-6);
    theItem->setPoints(vertex, vertex - way, vertex + way);
    QVERIFY(std::abs(theItem->theEndAngle - degrees) < 1e-6);
}

void TestAngleGeometry::directionsFallShortOfTheTrueOnesByUpToHalfADegree()
{
    double farthest = 0.0;
    for (int degrees = 0; degrees < 360; ++degrees) {
        const double radians = degrees * kPi / 180.0;
        const QPoint way(qRound(1e6 * std::cos(radians)), qRound(-1e6 * std::sin(radians)));
        theItem->setPoints(QPoint(0, 0), way, QPoint(1, 0));
        // The lean from the level shrinks by 57 / 57.29578; level arms are exact.
        const double lean = std::asin(std::sin(radians)) * 180.0 / kPi;
        const double shortfall = std::abs(lean) * (1.0 - 57.0 * kPi / 180.0);
        const double difference = std::abs(theItem->theStartAngle - degrees);
        QVERIFY2(std::abs(difference - shortfall) < 1e-3, qPrintable(QString::number(degrees)));
        farthest = qMax(farthest, difference);
    }
    QVERIFY(farthest > 0.46 && farthest < 0.47);
}

void TestAngleGeometry::sweepIsNeverPositive_data()
{
    QTest::addColumn<QPoint>("way1");
    QTest::addColumn<QPoint>("way2");
    QTest::addColumn<double>("sweep");
    QTest::newRow("up to right") << QPoint(0, -100) << QPoint(100, 0) << -89.535391;
    QTest::newRow("right to up") << QPoint(100, 0) << QPoint(0, -100) << 89.535391 - 360.0;
    QTest::newRow("left to right") << QPoint(-100, 0) << QPoint(100, 0) << -180.0;
    QTest::newRow("right to left") << QPoint(100, 0) << QPoint(-100, 0) << -180.0;
    QTest::newRow("both down") << QPoint(0, 100) << QPoint(0, 40) << 0.0;
}

void TestAngleGeometry::sweepIsNeverPositive()
{
    QFETCH(QPoint, way1);
    QFETCH(QPoint, way2);
    QFETCH(double, sweep);
    theItem->setPoints(QPoint(5, 5), QPoint(5, 5) + way1, QPoint(5, 5) + way2);
    QVERIFY(theItem->getAngle() <= 0.0);
    QVERIFY(std::abs(theItem->getAngle() - sweep) < 1e-6);
}

void TestAngleGeometry::arcKeepsItsRadiusAtEveryZoom()
{
    theItem->setPoints(QPoint(100, 200), QPoint(100, 100), QPoint(200, 200));
    for (const double zoom : {0.1, 1.0, 8.0}) {
        theItem->adjustScale(QTransform::fromScale(zoom, zoom));
        QCOMPARE(theItem->theArcRect, QRect(QPoint(70, 170), QPoint(130, 230)));
    }
}

void TestAngleGeometry::labelStandsFourBelowTheVertex()
{
    theItem->setPoints(QPoint(100, 200), QPoint(150, 200), QPoint(100, 150));
    // By halves of whole pixels: a box of an even height stands one lower.
    for (const int height : {14, 15, 16, 17}) {
        theItem->theLabelRect.setHeight(height);
        theItem->setPoints(QPoint(100, 200), QPoint(150, 200), QPoint(100, 150));
        QCOMPARE(theItem->theLabelRect.top(), height % 2 == 1 ? 204 : 205);
        QCOMPARE(theItem->theLabelRect.height(), height);
        QCOMPARE(theItem->theLabelRect.center().x(), 100);
    }
}

void TestAngleGeometry::labelStaysAfterATextChange()
{
    theItem->setPoints(QPoint(100, 200), QPoint(150, 200), QPoint(100, 150));
    theItem->setDisplayValue(QStringLiteral("90.00"));
    const QRect afterText = theItem->theLabelRect;
    QCOMPARE(afterText.center().x(), 100);
    QVERIFY(afterText.top() == 204 || afterText.top() == 205);
    theItem->setPoints(QPoint(100, 200), QPoint(150, 200), QPoint(100, 150));
    QCOMPARE(theItem->theLabelRect, afterText);
}

void TestAngleGeometry::labelBoxFitsItsText()
{
    const QFontMetrics metrics(theItem->theFont);
    QCOMPARE(theItem->theLabelRect.size(), metrics.boundingRect(QStringLiteral(" 3 ")).size());
    theItem->setDisplayValue(QStringLiteral("7.00"));
    QCOMPARE(theItem->theLabelRect.size(), metrics.boundingRect(QStringLiteral(" 3 <7.00> ")).size());
}

void TestAngleGeometry::zoomChangesSizes_data()
{
    QTest::addColumn<double>("zoom");
    QTest::addColumn<double>("growth");
    QTest::newRow("0.5") << 0.5 << 2.0;
    QTest::newRow("1") << 1.0 << 1.0;
    QTest::newRow("4") << 4.0 << 1.0;
}

void TestAngleGeometry::zoomChangesSizes()
{
    QFETCH(double, zoom);
    QFETCH(double, growth);
    theItem->setPoints(QPoint(100, 100), QPoint(228, 100), QPoint(100, 228));
    theItem->adjustScale(QTransform::fromScale(zoom, zoom));
    QCOMPARE(theItem->thePen.widthF(), 2.0 / zoom);
    QCOMPARE(theItem->theArrowLength, 10.0 * growth);
    QCOMPARE(theItem->theFont.pointSizeF(), LmCvObject::kDefaultFntSize * growth);
    QCOMPARE(theItem->theSelSize, int(LmCvObject::kDefaultSelSize * growth));
    // Points and label are set again.
    QCOMPARE(theItem->theNormal1, QPoint(0, -int(10.0 * growth)));
    QCOMPARE(theItem->theNormal2, QPoint(int(10.0 * growth), 0));
    QCOMPARE(theItem->theLabelRect.size(),
             QFontMetrics(theItem->theFont).boundingRect(QStringLiteral(" 3 ")).size());
    QCOMPARE(theItem->theEnd2, QPoint(100, 228));
}

void TestAngleGeometry::rectangleHoldsTheItemEdgesIncluded()
{
    theItem->setPoints(QPoint(100, 100), QPoint(200, 120), QPoint(120, 200));
    QVERIFY(theItem->isRectContainsObject(QRect(QPoint(100, 100), QPoint(200, 200))));
    QVERIFY(!theItem->isRectContainsObject(QRect(QPoint(101, 100), QPoint(200, 200))));
    QVERIFY(!theItem->isRectContainsObject(QRect(QPoint(100, 100), QPoint(199, 200))));
    QVERIFY(!theItem->isRectContainsObject(QRect(QPoint(100, 100), QPoint(200, 199))));
}

void TestAngleGeometry::moveShiftsAllThreePoints()
{
    theItem->setPoints(QPoint(100, 100), QPoint(200, 120), QPoint(120, 200));
    theItem->moveObjectBy(QPoint(-7, 30));
    QCOMPARE(theItem->theVertex, QPoint(93, 130));
    QCOMPARE(theItem->theEnd1, QPoint(193, 150));
    QCOMPARE(theItem->theEnd2, QPoint(113, 230));
    QCOMPARE(theItem->theArcRect.center(), QPoint(93, 130));
    QCOMPARE(theItem->theLabelRect.center().x(), 93);
    QVERIFY(theItem->isNodesChanged());
}

MEASURE_TEST_MAIN(TestAngleGeometry)
#include "TestAngleGeometry.moc"
