#include "ItemPicture.h"
#include "LmCvArrow.h"
#include "Q3Canvas.h"
#include "Q3CanvasView.h"
#include "TestFont.h"

class TestArrowPainting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { delete theItem; }

    void plainMarkHasAThinLineAndAWhiteHead();
    void activeMarkHasAThickLineAndAFilledHead();
    void selectedMarkHasAThickLineAndAWhiteHead();
    void lineKeepsTwoScreenPixelsAtEveryZoom();
    void textHasTheObjectsColorAndNoBox();
    void textStandsInItsRectangle_data();
    void textStandsInItsRectangle();
    void partsAreShownOneByOne();
    void blankTextDrawsNothing();
    void markOfNoLengthHarmsNoPainter();
    void painterIsLeftAsItWas();

private:
    Q3Canvas theCanvas{400, 400};
    Q3CanvasView theView{&theCanvas};
    LmCvArrow* theItem = nullptr;
};

// The arrow runs from (100, 100) down to (100, 292); its head lies between (100, 292), (97, 283), (103, 283).
void TestArrowPainting::init()
{
    theItem = new LmCvArrow(nullptr, &theCanvas, QStringLiteral("Counter"), &theView);
    theItem->setColor(kBlue);
    theItem->setText(QStringLiteral("8 #888"));
    theItem->setStartPoint(QPoint(100, 100));
    theItem->setEndPoint(QPoint(100, 292));
    theItem->show();
}

void TestArrowPainting::plainMarkHasAThinLineAndAWhiteHead()
{
    const QImage picture = painted(*theItem);
    QCOMPARE(drawnIn(picture, QRect(0, 200, 400, 1)), 1);
    QCOMPARE(picture.pixelColor(100, 200), kBlue);
    QCOMPARE(picture.pixelColor(100, 285), kWhite); // the head covers the line
    QCOMPARE(picture.pixelColor(97, 283), kBlue);   // its outline
    QCOMPARE(picture.pixelColor(103, 283), kBlue);
    QCOMPARE(picture.pixelColor(100, 292), kBlue);
    QCOMPARE(picture.pixelColor(100, 294), kBack);
}

void TestArrowPainting::activeMarkHasAThickLineAndAFilledHead()
{
    theItem->setActive(true);
    const QImage picture = painted(*theItem);
    QCOMPARE(drawnIn(picture, QRect(0, 200, 400, 1)), 2);
    QCOMPARE(picture.pixelColor(100, 285), kBlue);
    QCOMPARE(countOf(kWhite, picture, QRect(80, 120, 40, 200)), 0);
}

void TestArrowPainting::selectedMarkHasAThickLineAndAWhiteHead()
{
    theItem->setSelected(true);
    const QImage picture = painted(*theItem);
    QCOMPARE(drawnIn(picture, QRect(0, 200, 400, 1)), 2);
    QCOMPARE(picture.pixelColor(100, 285), kWhite);
}

void TestArrowPainting::lineKeepsTwoScreenPixelsAtEveryZoom()
{
    theItem->setActive(true);
    for (const double zoom : {0.5, 1.0, 1.5}) {
        const QTransform view = QTransform::fromScale(zoom, zoom);
        theItem->adjustScale(view);
        QCOMPARE(drawnIn(painted(*theItem, view), QRect(0, int(200 * zoom), 400, 1)), 2);
    }
}

void TestArrowPainting::textHasTheObjectsColorAndNoBox()
{
    const QImage picture = painted(*theItem);
    const QRect label = theItem->theTextRect;
    QVERIFY(countOf(kBlue, picture, label) > 20);
    QVERIFY(countOf(kBack, picture, label) > label.width() * label.height() / 4);
    theItem->theTextPen = QPen(Qt::green);
    QCOMPARE(painted(*theItem), picture);
    theItem->setColor(QColor(Qt::red));
    const QImage red = painted(*theItem);
    QCOMPARE(countOf(kBlue, red, red.rect()), 0);
    QVERIFY(countOf(QColor(Qt::red), red, label) > 20);
}

void TestArrowPainting::textStandsInItsRectangle_data()
{
    QTest::addColumn<double>("zoom");
    QTest::newRow("half") << 0.5;
    QTest::newRow("one") << 1.0;
    QTest::newRow("three") << 3.0;
}

void TestArrowPainting::textStandsInItsRectangle()
{
    QFETCH(double, zoom);
    QTransform view = QTransform::fromTranslate(zoom > 1.0 ? -180.0 : 0.0, zoom > 1.0 ? -180.0 : 0.0);
    view.scale(zoom, zoom);
    theItem->theParts = LmCvArrow::kText;
    theItem->adjustScale(view);
    const QRect label = view.mapRect(theItem->theTextRect);
    const QImage picture = painted(*theItem, view);
    const int inside = drawnIn(picture, label);
    QVERIFY(inside > 50);
    QCOMPARE(drawnIn(picture, picture.rect()), inside);
    // The text itself and where it stands, drawn in the plainest way.
    QImage plain(picture.size(), picture.format());
    plain.fill(kBack);
    QPainter painter(&plain);
    painter.setWorldTransform(view);
    painter.setFont(theItem->theFont);
    painter.setPen(kBlue);
    painter.drawText(theItem->theTextRect, 65, theItem->theText);
    painter.end();
    QCOMPARE(picture, plain);
}

void TestArrowPainting::partsAreShownOneByOne()
{
    const QRect label = theItem->theTextRect.adjusted(0, 0, 0, -1);
    theItem->theParts = 1;
    QImage picture = painted(*theItem);
    QCOMPARE(drawnIn(picture, label), 0);
    QCOMPARE(picture.pixelColor(100, 200), kBlue);
    theItem->theParts = 2;
    picture = painted(*theItem);
    QVERIFY(drawnIn(picture, label) > 50);
    QCOMPARE(picture.pixelColor(100, 200), kBack);
    theItem->theParts = 0;
    picture = painted(*theItem);
    QCOMPARE(drawnIn(picture, picture.rect()), 0);
}

void TestArrowPainting::blankTextDrawsNothing()
{
    theItem->setText(QString());
    theItem->theParts = 2;
    const QImage picture = painted(*theItem);
    QCOMPARE(drawnIn(picture, picture.rect()), 0);
}

void TestArrowPainting::markOfNoLengthHarmsNoPainter()
{
    theItem->setEndPoint(QPoint(100, 100));
    QVERIFY(theItem->theBarb1.isNull());
    const QImage picture = painted(*theItem);
    QVERIFY(drawnIn(picture, theItem->theTextRect) > 50);
    QCOMPARE(drawnIn(picture, QRect(0, 102, 400, 298)), 0);
}

void TestArrowPainting::painterIsLeftAsItWas()
{
    QImage picture(400, 400, QImage::Format_RGB32);
    QPainter painter(&picture);
    const QPen pen(Qt::yellow, 3);
    const QBrush brush(Qt::cyan);
    const QFont font(QStringLiteral("DejaVu Sans"), 31);
    painter.setPen(pen);
    painter.setBrush(brush);
    painter.setFont(font);
    theItem->setActive(true);
    theItem->drawShape(painter);
    QCOMPARE(painter.pen(), pen);
    QCOMPARE(painter.brush(), brush);
    QCOMPARE(painter.font(), font);
    QVERIFY(painter.worldTransform().isIdentity());
}

MEASURE_TEST_MAIN(TestArrowPainting)
#include "TestArrowPainting.moc"
