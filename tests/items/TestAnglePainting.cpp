#include "ItemPicture.h"
#include "LmCvAngle.h"
#include "Q3Canvas.h"
#include "TestFont.h"

#include <QRandomGenerator>

#include <cmath>
#include <iterator>
#include <limits>

namespace {

constexpr quint32 kSeed = 360;

} // namespace

class TestAnglePainting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { delete theItem; }

    void plainItemHasThinArmsAndWhiteHeads();
    void activeItemHasThickArmsAndFilledHeads();
    void selectedItemHasThickArmsAndWhiteHeads();
    void headsOfShortArmsPointOutward();
    void arcRunsClockwiseFromTheFirstArm_data();
    void arcRunsClockwiseFromTheFirstArm();
    void arcIsThinAndOfTheSameRadiusAtEveryZoom();
    void labelStandsUprightBelowTheVertex_data();
    void labelStandsUprightBelowTheVertex();
    void labelTextHasItsPen();
    void painterIsLeftAsItWas();
    void armsOfLengthZeroHarmNoPainter();
    void randomAndExtremeAnglesHarmNoPainter();

private:
    Q3Canvas theCanvas{400, 400};
    LmCvAngle* theItem = nullptr;
};

// The first arm up, the second to the right; the heads' flanks end 9 behind the tips and 3 beside the arms.
void TestAnglePainting::init()
{
    theItem = new LmCvAngle(nullptr, &theCanvas, QStringLiteral("8"), nullptr);
    theItem->setColor(kBlue);
    theItem->setPoints(QPoint(200, 200), QPoint(200, 60), QPoint(340, 200));
    theItem->show();
}

void TestAnglePainting::plainItemHasThinArmsAndWhiteHeads()
{
    const QImage picture = painted(*theItem);
    QCOMPARE(drawnIn(picture, QRect(190, 120, 21, 1)), 1);
    QCOMPARE(picture.pixelColor(200, 120), kBlue);
    QCOMPARE(drawnIn(picture, QRect(290, 190, 1, 21)), 1);
    QCOMPARE(picture.pixelColor(290, 200), kBlue);
    QCOMPARE(picture.pixelColor(200, 66), kWhite); // the heads cover the arms
    QCOMPARE(picture.pixelColor(334, 200), kWhite);
    QCOMPARE(picture.pixelColor(200, 69), kBlue); // their outline
    QCOMPARE(picture.pixelColor(200, 57), kBack);
}

void TestAnglePainting::activeItemHasThickArmsAndFilledHeads()
{
    theItem->setActive(true);
    const QImage picture = painted(*theItem);
    QCOMPARE(drawnIn(picture, QRect(190, 120, 21, 1)), 2);
    QCOMPARE(drawnIn(picture, QRect(290, 190, 1, 21)), 2);
    QCOMPARE(picture.pixelColor(200, 66), kBlue);
    QCOMPARE(picture.pixelColor(334, 200), kBlue);
    QCOMPARE(countOf(kWhite, picture, QRect(190, 50, 160, 153)), 0);
}

void TestAnglePainting::selectedItemHasThickArmsAndWhiteHeads()
{
    theItem->setSelected(true);
    const QImage picture = painted(*theItem);
    QCOMPARE(drawnIn(picture, QRect(190, 120, 21, 1)), 2);
    QCOMPARE(picture.pixelColor(201, 66), kWhite);
    QCOMPARE(picture.pixelColor(334, 201), kWhite);
}

void TestAnglePainting::headsOfShortArmsPointOutward()
{
    theItem->setPoints(QPoint(200, 200), QPoint(200, 180), QPoint(220, 200));
    const QImage picture = painted(*theItem);
    QCOMPARE(picture.pixelColor(200, 186), kWhite);
    QCOMPARE(picture.pixelColor(214, 200), kWhite);
    QCOMPARE(picture.pixelColor(200, 176), kBack); // nothing beyond the end
    QCOMPARE(picture.pixelColor(224, 200), kBack);
}

void TestAnglePainting::arcRunsClockwiseFromTheFirstArm_data()
{
    QTest::addColumn<QPoint>("way1");
    QTest::addColumn<QPoint>("way2");
    QTest::addColumn<QString>("quarters"); // upper right, lower right, lower left, upper left
    QTest::newRow("up to right") << QPoint(0, -140) << QPoint(140, 0) << "1000";
    QTest::newRow("right to up") << QPoint(140, 0) << QPoint(0, -140) << "0111";
    QTest::newRow("left to right") << QPoint(-140, 0) << QPoint(140, 0) << "1001";
    QTest::newRow("right to left") << QPoint(140, 0) << QPoint(-140, 0) << "0110";
    QTest::newRow("down to up") << QPoint(0, 140) << QPoint(0, -140) << "0011";
    QTest::newRow("both up") << QPoint(0, -140) << QPoint(0, -140) << "0000";
}

void TestAnglePainting::arcRunsClockwiseFromTheFirstArm()
{
    QFETCH(QPoint, way1);
    QFETCH(QPoint, way2);
    QFETCH(QString, quarters);
    theItem->setPoints(QPoint(200, 200), QPoint(200, 200) + way1, QPoint(200, 200) + way2);
    const QImage picture = painted(*theItem);
    // 30 * cos 45 = 21.2
    QString drawn;
    for (const QPoint& way : {QPoint(21, -21), QPoint(21, 21), QPoint(-21, 21), QPoint(-21, -21)})
        drawn += drawnIn(picture, QRect(QPoint(198, 198) + way, QSize(5, 5))) > 0 ? '1' : '0';
    QCOMPARE(drawn, quarters);
}

void TestAnglePainting::arcIsThinAndOfTheSameRadiusAtEveryZoom()
{
    theItem->setActive(true);
    for (const double zoom : {0.4, 1.0, 3.0}) {
        theItem->adjustScale(QTransform::fromScale(zoom, zoom));
        const QImage picture = painted(*theItem);
        // On the way from the vertex up to the right nothing but the arc lies across a level line.
        for (int y = 176; y < 184; ++y) {
            const int x = 200 + qRound(std::sqrt(900.0 - (200 - y) * (200 - y)));
            QVERIFY(drawnIn(picture, QRect(x - 1, y, 3, 1)) > 0);
            QVERIFY(drawnIn(picture, QRect(206, y, 40, 1)) <= 3);
        }
    }
}

void TestAnglePainting::labelStandsUprightBelowTheVertex_data()
{
    QTest::addColumn<QPoint>("way1");
    QTest::addColumn<QPoint>("way2");
    QTest::addColumn<QPointF>("shift");
    QTest::newRow("up and right") << QPoint(0, -140) << QPoint(140, 0) << QPointF(0, 0);
    QTest::newRow("slanting") << QPoint(-100, -60) << QPoint(90, -120) << QPointF(0, 0);
    QTest::newRow("slanting, between pixels") << QPoint(-100, -60) << QPoint(90, -120) << QPointF(0.4, 0.6);
}

void TestAnglePainting::labelStandsUprightBelowTheVertex()
{
    QFETCH(QPoint, way1);
    QFETCH(QPoint, way2);
    QFETCH(QPointF, shift);
    theItem->setDisplayValue(QStringLiteral("90.00"));
    theItem->setPoints(QPoint(200, 200), QPoint(200, 200) + way1, QPoint(200, 200) + way2);
    const QRect box = theItem->theLabelRect;
    QVERIFY(box.top() == 204 || box.top() == 205);
    const QImage picture = painted(*theItem, QTransform::fromTranslate(shift.x(), shift.y()));
    const QRect inside = box.adjusted(2, 2, -2, -2);
    for (const QPoint& corner :
         {inside.topLeft(), inside.topRight(), inside.bottomLeft(), inside.bottomRight()})
        QCOMPARE(picture.pixelColor(corner), kBlue);
    const QRect around = box.adjusted(-3, -3, 3, 3);
    QCOMPARE(drawnIn(picture, QRect(around.left(), around.bottom(), around.width(), 1)), 0);
    QCOMPARE(drawnIn(picture, QRect(around.left(), around.top() + 5, 1, around.height() - 5)), 0);
    QCOMPARE(drawnIn(picture, QRect(around.right(), around.top() + 5, 1, around.height() - 5)), 0);
}

void TestAnglePainting::labelTextHasItsPen()
{
    theItem->setDisplayValue(QStringLiteral("888.88"));
    const QRect inside = theItem->theLabelRect.adjusted(1, 1, -1, -1);
    QVERIFY(countOf(kWhite, painted(*theItem), inside) > 10);
    theItem->theTextPen = QPen(Qt::green);
    const QImage picture = painted(*theItem);
    QCOMPARE(countOf(kWhite, picture, inside), 0);
    QVERIFY(countOf(QColor(Qt::green), picture, inside) > 10);
}

void TestAnglePainting::painterIsLeftAsItWas()
{
    QImage picture(400, 400, QImage::Format_RGB32);
    QPainter painter(&picture);
    painter.setPen(QPen(Qt::yellow, 3));
    painter.setBrush(Qt::cyan);
    painter.setWorldTransform(QTransform(1.5, 0, 0, 1.5, 7, -3));
    const QPen pen = painter.pen();
    const QFont font = painter.font();
    theItem->drawShape(painter);
    QCOMPARE(painter.pen(), pen);
    QCOMPARE(painter.brush(), QBrush(Qt::cyan));
    QCOMPARE(painter.font(), font);
    QCOMPARE(painter.worldTransform(), QTransform(1.5, 0, 0, 1.5, 7, -3));
}

void TestAnglePainting::armsOfLengthZeroHarmNoPainter()
{
    theItem->setPoints(QPoint(200, 200), QPoint(200, 200), QPoint(200, 200));
    const QImage picture = painted(*theItem);
    QCOMPARE(picture.pixelColor(theItem->theLabelRect.topLeft() + QPoint(1, 1)), kBlue);
    QCOMPARE(drawnIn(picture, QRect(0, 0, 400, 190)), 0);
    // One arm goes on without the other: none points right, so the arc fills three quarters.
    theItem->setPoints(QPoint(200, 200), QPoint(200, 200), QPoint(200, 60));
    QVERIFY(drawnIn(painted(*theItem), QRect(176, 176, 6, 6)) > 0);
}

void TestAnglePainting::randomAndExtremeAnglesHarmNoPainter()
{
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    constexpr int kMin = std::numeric_limits<int>::min();
    constexpr int kMax = std::numeric_limits<int>::max();
    const auto coordinate = [&random] {
        const int choices[] = {
            0, random.bounded(-3, 4), random.bounded(-500, 501), random.bounded(1 << 20), kMin, kMax};
        return choices[random.bounded(int(std::size(choices)))];
    };
    const auto point = [&] { return QPoint(coordinate(), coordinate()); };
    for (int i = 0; i < 300; ++i) {
        theItem->setPoints(point(), point(), point());
        painted(*theItem, QTransform::fromScale(0.5, 0.5));
    }
    theItem->setPoints(QPoint(200, 200), QPoint(200, 60), QPoint(340, 200));
    QCOMPARE(painted(*theItem).pixelColor(200, 120), kBlue);
}

MEASURE_TEST_MAIN(TestAnglePainting)
#include "TestAnglePainting.moc"
