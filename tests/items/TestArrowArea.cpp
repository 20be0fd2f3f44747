#include "ItemPicture.h"
#include "LmCvArrow.h"
#include "Q3Canvas.h"
#include "Q3CanvasView.h"
#include "TestFont.h"

#include <QRandomGenerator>

#include <limits>

namespace {

constexpr int kMin = std::numeric_limits<int>::min();
constexpr int kMax = std::numeric_limits<int>::max();
constexpr quint32 kSeed = 6105;
constexpr int kPenReach = 4; // pixels by which a view repaints more than an item's area

} // namespace

class TestArrowArea : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { delete theItem; }

    void areaReachesTheTip_data();
    void areaReachesTheTip();
    void tipInsideTheLabelLeavesTheLabelsCorners();
    void allThatIsDrawnIsRepainted();
    void allThatIsDrawnIsRepaintedBelowZoomOne();
    void extremeCoordinatesDoNoHarm();

private:
    void checkRepaint(double aZoom);

    Q3Canvas theCanvas{1000, 1000};
    Q3CanvasView theView{&theCanvas};
    LmCvArrow* theItem = nullptr;
};

// Anchor (100, 100), label left 80, top 84, right 120, bottom 100.
void TestArrowArea::init()
{
    theItem = new LmCvArrow(nullptr, &theCanvas, QStringLiteral("Counter"), &theView);
    theItem->setColor(kBlue);
    theItem->setStartPoint(QPoint(100, 100));
    theItem->theTextRect = QRect(QPoint(80, 84), QPoint(120, 100));
    theItem->show();
}

void TestArrowArea::areaReachesTheTip_data()
{
    QTest::addColumn<QPoint>("tip");
    QTest::addColumn<QPolygon>("area");
    const QPoint topLeft(80, 84);
    const QPoint topRight(120, 84);
    const QPoint bottomRight(120, 100);
    const QPoint bottomLeft(80, 100);
    // Straight up the barbs are (3, -9) and (-3, -9): A = tip + (-9, -3), C = tip + (9, -3).
    QTest::newRow("above") << QPoint(100, 4)
                           << QPolygon({topLeft, QPoint(91, 1), QPoint(100, 4), QPoint(109, 1), topRight,
                                        bottomRight, bottomLeft});
    // To the right (9, 3) and (9, -3): A = tip + (3, -9), C = tip + (3, 9).
    QTest::newRow("right") << QPoint(222, 92)
                           << QPolygon({topLeft, topRight, QPoint(225, 83), QPoint(222, 92), QPoint(225, 101),
                                        bottomRight, bottomLeft});
    // To the left (-9, -3) and (-9, 3): A = tip + (-3, 9), C = tip + (-3, -9).
    QTest::newRow("left") << QPoint(8, 92)
                          << QPolygon({topLeft, topRight, bottomRight, bottomLeft, QPoint(5, 101),
                                       QPoint(8, 92), QPoint(5, 83)});
    // Down (-3, 9) and (3, 9): A = tip + (9, 3), C = tip + (-9, 3).
    QTest::newRow("below") << QPoint(100, 200)
                           << QPolygon({topLeft, topRight, bottomRight, QPoint(109, 203), QPoint(100, 200),
                                        QPoint(91, 203), bottomLeft});
    // From the anchor along the lower edge to the right: (9, 3) and (9, -3).
    QTest::newRow("right, at the lower edge") << QPoint(222, 100)
                                              << QPolygon({topLeft, topRight, bottomRight, QPoint(225, 91),
                                                           QPoint(222, 100), QPoint(225, 109), bottomLeft});
}

void TestArrowArea::areaReachesTheTip()
{
    QFETCH(QPoint, tip);
    QFETCH(QPolygon, area);
    theItem->setEndPoint(tip);
    QCOMPARE(QPolygon(theItem->areaPoints()), area);
}

void TestArrowArea::tipInsideTheLabelLeavesTheLabelsCorners()
{
    const QPolygon corners({QPoint(80, 84), QPoint(120, 84), QPoint(80, 100), QPoint(120, 100)});
    for (const QPoint& tip : {QPoint(104, 90), QPoint(80, 84), QPoint(120, 100), QPoint(100, 100)}) {
        theItem->setEndPoint(tip);
        QCOMPARE(QPolygon(theItem->areaPoints()), corners);
        QCOMPARE(theItem->theTailPoint, QPoint(100, 100));
    }
}

void TestArrowArea::checkRepaint(double aZoom)
{
    QRandomGenerator random(kSeed);
    const QTransform view = QTransform::fromScale(aZoom, aZoom);
    theItem->adjustScale(view);
    QImage blank(400, 400, QImage::Format_RGB32);
    blank.fill(kBack);
    for (int round = 0; round < 300; ++round) {
        // Short arrows too, whose head is longer than they are, and a text that has become much shorter.
        const QPoint anchor(random.bounded(150, 250), random.bounded(150, 250));
        theItem->setText(round % 3 ? QStringLiteral("1 #1") : QStringLiteral("1 #10000"));
        theItem->setStartPoint(anchor / aZoom);
        theItem->setText(QStringLiteral("1 #1"));
        const int reach = round % 2 ? 30 : 120;
        const QPoint away(random.bounded(-reach, reach), random.bounded(-reach, reach));
        theItem->setEndPoint((anchor + away) / aZoom);
        theItem->setActive(round % 5 == 0);
        QImage picture = painted(*theItem, view);
        const QRect repainted =
            view.mapRect(theItem->boundingRect()).adjusted(-kPenReach, -kPenReach, kPenReach, kPenReach);
        QVERIFY(picture != blank);
        QPainter(&picture).fillRect(repainted, kBack);
        QVERIFY2(picture == blank, QByteArray::number(kSeed) + ", round " + QByteArray::number(round));
    }
}

void TestArrowArea::allThatIsDrawnIsRepainted()
{
    checkRepaint(1.0);
}

void TestArrowArea::allThatIsDrawnIsRepaintedBelowZoomOne()
{
    checkRepaint(0.5);
}

void TestArrowArea::extremeCoordinatesDoNoHarm()
{
    QRandomGenerator random(kSeed);
    const QList<int> places = {kMin, kMin + 1, -1, 0, 100, kMax - 1, kMax};
    const auto place = [&] { return places[random.bounded(int(places.size()))]; };
    int node = 0;
    QPoint out;
    theItem->setText(QStringLiteral("1 #1"));
    for (int round = 0; round < 500; ++round) {
        const int x = place();
        const int y = place();
        theItem->setStartPoint(QPoint(x, y));
        theItem->setEndPoint(QPoint(place(), place()));
        theItem->moveObjectBy(QPoint(place(), place()));
        QCOMPARE(theItem->theTextRect.isValid(), true);
        QVERIFY(theItem->areaPoints().size() == 4 || theItem->areaPoints().size() == 7);
        const QPoint mouse(place(), place());
        theItem->isPointOnObject(mouse, node, 8);
        theItem->isPointOnArrow(mouse, out, 8);
        QCOMPARE(node, 0);
        theItem->adjustScale(QTransform::fromScale(0.25, 0.25));
    }
    QCOMPARE(painted(*theItem).size(), QSize(400, 400));
}

MEASURE_TEST_MAIN(TestArrowArea)
#include "TestArrowArea.moc"
