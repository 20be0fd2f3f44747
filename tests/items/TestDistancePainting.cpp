#include "ItemPicture.h"
#include "LmCvDistance.h"
#include "Q3Canvas.h"
#include "TestFont.h"

#include <QPainter>

#include <cmath>
#include <limits>
#include <utility>

namespace {

// A point given relative to the middle of the line in the direction of the label's text, on the picture.
QPoint besideTheLine(const LmCvDistance& aItem, const QTransform& aView, double aAlong, double aDown)
{
    const QPointF middle(std::round((aItem.theStart.x() + aItem.theEnd.x()) / 2.0),
                         std::round((aItem.theStart.y() + aItem.theEnd.y()) / 2.0));
    QPointF along = QPointF(aItem.theEnd - aItem.theStart) / aItem.theLength;
    if (along.x() < 0.0) // text reads from left to right
        along = -along;
    const QPointF down(-along.y(), along.x());
    return aView.map(middle + along * aAlong + down * aDown).toPoint();
}

} // namespace

class TestDistancePainting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { delete theItem; }

    void plainItemHasAThinLineAndWhiteHeads();
    void activeItemHasAThickLineAndFilledHeads();
    void selectedItemHasAThickLineAndWhiteHeads();
    void lineKeepsTwoScreenPixelsAtEveryZoom();
    void headsOfAShortLineLieOutside();
    void labelBoxHasTheLineColourAndItsTextPen();
    void labelLiesAlongTheLine_data();
    void labelLiesAlongTheLine();
    void lineOfLengthZeroHarmsNoPainter();
    void painterIsLeftAsItWas();
    void hiddenItemIsNotPainted();
    void extremeLinesHarmNoPainter();

private:
    Q3Canvas theCanvas{400, 400};
    LmCvDistance* theItem = nullptr;
};

// The start's head lies between (40, 100), (49, 103) and (49, 97); the label stands about x = 136.
void TestDistancePainting::init()
{
    theItem = new LmCvDistance(nullptr, &theCanvas, QStringLiteral("8"), nullptr);
    theItem->setColor(kBlue);
    theItem->setPoints(QPoint(40, 100), QPoint(232, 100));
    theItem->show();
}

void TestDistancePainting::plainItemHasAThinLineAndWhiteHeads()
{
    const QImage picture = painted(*theItem);
    QCOMPARE(drawnIn(picture, QRect(70, 0, 1, 400)), 1);
    QCOMPARE(picture.pixelColor(70, 100), kBlue);
    QCOMPARE(picture.pixelColor(47, 100), kWhite);  // the heads cover the line
    QCOMPARE(picture.pixelColor(225, 100), kWhite); // (223, 97), (232, 100), (223, 103)
    QCOMPARE(picture.pixelColor(49, 100), kBlue);   // their outline
    QCOMPARE(picture.pixelColor(36, 100), kBack);
    QCOMPARE(picture.pixelColor(236, 100), kBack);
}

void TestDistancePainting::activeItemHasAThickLineAndFilledHeads()
{
    theItem->setActive(true);
    const QImage picture = painted(*theItem);
    QCOMPARE(drawnIn(picture, QRect(70, 0, 1, 400)), 2);
    QCOMPARE(picture.pixelColor(47, 100), kBlue);
    QCOMPARE(picture.pixelColor(47, 101), kBlue);
    QCOMPARE(picture.pixelColor(225, 101), kBlue);
    QCOMPARE(countOf(kWhite, picture, QRect(30, 90, 40, 20)), 0);
}

void TestDistancePainting::selectedItemHasAThickLineAndWhiteHeads()
{
    theItem->setSelected(true);
    const QImage picture = painted(*theItem);
    QCOMPARE(drawnIn(picture, QRect(70, 0, 1, 400)), 2);
    QCOMPARE(picture.pixelColor(47, 101), kWhite);
    QCOMPARE(picture.pixelColor(225, 101), kWhite);
}

void TestDistancePainting::lineKeepsTwoScreenPixelsAtEveryZoom()
{
    theItem->setActive(true);
    for (const double zoom : {0.5, 1.0, 1.5}) {
        const QTransform view = QTransform::fromScale(zoom, zoom);
        theItem->adjustScale(view);
        QCOMPARE(drawnIn(painted(*theItem, view), QRect(int(85 * zoom), 0, 1, 400)), 2);
    }
}

void TestDistancePainting::headsOfAShortLineLieOutside()
{
    theItem->setPoints(QPoint(100, 100), QPoint(100, 129));
    QImage picture = painted(*theItem);
    QCOMPARE(picture.pixelColor(100, 93), kWhite);  // above the start
    QCOMPARE(picture.pixelColor(100, 136), kWhite); // below the end
    theItem->setPoints(QPoint(100, 100), QPoint(100, 130));
    picture = painted(*theItem);
    QCOMPARE(picture.pixelColor(100, 93), kBack);
    QCOMPARE(picture.pixelColor(100, 107), kWhite);
}

void TestDistancePainting::labelBoxHasTheLineColourAndItsTextPen()
{
    theItem->setDisplayValue(QStringLiteral("888.88"));
    QRect box = theItem->theLabelRect;
    QImage picture = painted(*theItem);
    QCOMPARE(picture.pixelColor(box.topLeft() + QPoint(1, 1)), kBlue);
    QCOMPARE(picture.pixelColor(box.bottomRight() - QPoint(1, 1)), kBlue);
    QCOMPARE(picture.pixelColor(box.center().x(), box.top() - 3), kBack);
    const QRect inside = box.adjusted(1, 1, -1, -1);
    QVERIFY(countOf(kWhite, picture, inside) > 10);
    QCOMPARE(countOf(QColor(Qt::green), picture, inside), 0);
    theItem->theTextPen = QPen(Qt::green);
    picture = painted(*theItem);
    QCOMPARE(countOf(kWhite, picture, inside), 0);
    QVERIFY(countOf(QColor(Qt::green), picture, inside) > 10);
    // An empty value gives a shorter box.
    theItem->setDisplayValue(QString());
    QCOMPARE(painted(*theItem).pixelColor(box.topLeft() + QPoint(1, 1)), kBack);
}

void TestDistancePainting::labelLiesAlongTheLine_data()
{
    QTest::addColumn<QPoint>("way");
    QTest::addColumn<QTransform>("view");
    const QTransform plain;
    QTransform zoomed = QTransform::fromTranslate(-100.0, -80.0);
    zoomed.scale(1.5, 1.5);
    QTransform small = QTransform::fromTranslate(31.0, 17.0);
    small.scale(0.75, 0.75);
    for (const auto& [name, view] :
         {std::pair{"plain", plain}, std::pair{"zoomed", zoomed}, std::pair{"small", small}}) {
        const auto row = [name = QByteArray(name), view = view](const char* aWay, const QPoint& aVector) {
            QTest::newRow((name + ", " + aWay).constData()) << aVector << view;
        };
        row("right", QPoint(160, 0));
        row("left", QPoint(-160, 0));
        row("45 falling", QPoint(120, 120));
        row("45 rising", QPoint(120, -120));
        row("leftward rising", QPoint(-140, -60));
        row("leftward falling", QPoint(-60, 141));
        row("nearly vertical", QPoint(3, 160));
        row("down", QPoint(0, 160));
        row("up", QPoint(0, -160));
    }
}

void TestDistancePainting::labelLiesAlongTheLine()
{
    QFETCH(QPoint, way);
    QFETCH(QTransform, view);
    theItem->setDisplayValue(QStringLiteral("12.34"));
    theItem->setPoints(QPoint(200, 190) - way / 2, QPoint(200, 190) - way / 2 + way);
    const QImage picture = painted(*theItem, view);
    const double half = theItem->theLabelRect.width() / 2.0;
    const double high = theItem->theLabelRect.height();
    const double margin = 4.0 / view.m11(); // the turned box falls on whole pixels of the screen
    // The box stands on the line with the middle of its bottom edge at the line's middle.
    for (const double along : {-half + margin, 0.0, half - margin})
        for (const double down : {-high + margin, -high / 2, -margin})
            QVERIFY(picture.pixelColor(besideTheLine(*theItem, view, along, down)) != kBack);
    for (const double along : {-half - margin, half + margin})
        QCOMPARE(picture.pixelColor(besideTheLine(*theItem, view, along, -high / 2)), kBack);
    QCOMPARE(picture.pixelColor(besideTheLine(*theItem, view, 0.0, -high - margin)), kBack);
    QCOMPARE(picture.pixelColor(besideTheLine(*theItem, view, 0.0, margin)), kBack);
}

void TestDistancePainting::lineOfLengthZeroHarmsNoPainter()
{
    theItem->setPoints(QPoint(300, 300), QPoint(300, 300));
    theItem->updateLabel();
    const QRect box = theItem->theLabelRect;
    QCOMPARE(box.bottom(), 298);
    const QImage picture = painted(*theItem);
    // The label lies level where it stands.
    QCOMPARE(picture.pixelColor(box.topLeft() + QPoint(1, 1)), kBlue);
    QCOMPARE(picture.pixelColor(box.topRight() + QPoint(-1, 1)), kBlue);
    QCOMPARE(picture.pixelColor(100, 100), kBack);
}

void TestDistancePainting::painterIsLeftAsItWas()
{
    QImage picture(400, 400, QImage::Format_RGB32);
    QPainter painter(&picture);
    painter.setPen(QPen(Qt::yellow, 3));
    painter.setBrush(Qt::cyan);
    painter.setWorldTransform(QTransform(1.5, 0, 0, 1.5, 7, -3));
    const QPen pen = painter.pen();
    const QFont font = painter.font();
    for (const QPoint& end : {QPoint(300, 250), QPoint(40, 100)}) {
        theItem->setPoints(QPoint(40, 100), end);
        theItem->drawShape(painter);
        QCOMPARE(painter.pen(), pen);
        QCOMPARE(painter.brush(), QBrush(Qt::cyan));
        QCOMPARE(painter.font(), font);
        QCOMPARE(painter.worldTransform(), QTransform(1.5, 0, 0, 1.5, 7, -3));
    }
}

void TestDistancePainting::hiddenItemIsNotPainted()
{
    const auto shown = [this] {
        QImage picture(400, 400, QImage::Format_RGB32);
        QPainter painter(&picture);
        theCanvas.drawArea(picture.rect(), painter);
        return picture.pixelColor(70, 100);
    };
    QCOMPARE(shown(), kBlue);
    theItem->hide();
    QVERIFY(shown() != kBlue);
}

void TestDistancePainting::extremeLinesHarmNoPainter()
{
    constexpr int kMax = std::numeric_limits<int>::max();
    for (const QPoint& start : {QPoint(-kMax, -kMax), QPoint(kMax, 0), QPoint(10, 10)}) {
        for (const QPoint& end : {QPoint(kMax, kMax), QPoint(0, -kMax), QPoint(-kMax, -kMax)}) {
            theItem->setPoints(start, end);
            painted(*theItem);
        }
    }
    theItem->setPoints(QPoint(40, 100), QPoint(232, 100));
    QCOMPARE(painted(*theItem).pixelColor(70, 100), kBlue);
}

MEASURE_TEST_MAIN(TestDistancePainting)
#include "TestDistancePainting.moc"
