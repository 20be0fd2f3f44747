#include "CanvasTestItems.h"
#include "Q3CanvasLine.h"
#include "Q3CanvasRectangle.h"
#include "TestFont.h"

#include <climits>

namespace {

const QRect kPlace(10, 10, 20, 20);

int pixelsOf(const QImage& aPicture, const QColor& aColor)
{
    int count = 0;
    for (int y = 0; y < aPicture.height(); ++y)
        for (int x = 0; x < aPicture.width(); ++x)
            count += aPicture.pixelColor(x, y) == aColor;
    return count;
}

} // namespace

class TestCanvasShapes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rectangleCoversItsPixels();
    void rectangleWithoutPenIsFilledWhole();
    void rectangleMovesAndTakesANewSize();
    void emptyRectangleHasNoArea();
    void widePenWidensTheArea_data();
    void widePenWidensTheArea();
    void lineMovesWithItsPosition();
    void lineOfLengthZeroHasAnArea();
    void lineToTheEndsOfTheNumbersDoesNoHarm();
    void penAndBrushAreSetForTheShape();
};

void TestCanvasShapes::rectangleCoversItsPixels()
{
    Q3Canvas canvas(60, 60);
    Q3CanvasRectangle item(kPlace, &canvas);
    item.setPen(QPen(Qt::red, 0));
    item.show();
    const QImage picture = painted(canvas);
    QCOMPARE(pixelsOf(picture, Qt::red), 2 * (kPlace.width() + kPlace.height()) - 4);
    for (const QPoint& corner :
         {kPlace.topLeft(), kPlace.topRight(), kPlace.bottomLeft(), kPlace.bottomRight()})
        QCOMPARE(picture.pixelColor(corner), QColor(Qt::red));
}

void TestCanvasShapes::rectangleWithoutPenIsFilledWhole()
{
    Q3Canvas canvas(60, 60);
    Q3CanvasRectangle item(kPlace, &canvas);
    item.setPen(Qt::NoPen);
    item.setBrush(Qt::blue);
    item.show();
    const QImage picture = painted(canvas);
    QCOMPARE(pixelsOf(picture, Qt::blue), kPlace.width() * kPlace.height());
    QCOMPARE(picture.pixelColor(kPlace.bottomRight()), QColor(Qt::blue));
    QCOMPARE(item.boundingRect(), kPlace);
}

void TestCanvasShapes::rectangleMovesAndTakesANewSize()
{
    Q3Canvas canvas(60, 60);
    Q3CanvasRectangle item(kPlace, &canvas);
    QCOMPARE(item.rect(), kPlace);
    item.show();
    item.move(30.4, 29.6);
    item.setSize(5, 7);
    QCOMPARE(item.rect(), QRect(30, 30, 5, 7));
    QCOMPARE(QPointF(item.x(), item.y()), QPointF(30.4, 29.6));
    QVERIFY(canvas.collisions(kPlace.topLeft()).isEmpty());
    QCOMPARE(canvas.collisions(QPoint(34, 36)), Q3CanvasItemList{&item});
    QCOMPARE(item.rtti(), 5);
}

void TestCanvasShapes::emptyRectangleHasNoArea()
{
    Q3Canvas canvas(60, 60);
    Q3CanvasRectangle item(20, 20, 0, -3, &canvas);
    item.show();
    QVERIFY(item.boundingRect().isNull());
    QCOMPARE(pixelsOf(painted(canvas), Qt::white), 60 * 60);
}

void TestCanvasShapes::widePenWidensTheArea_data()
{
    QTest::addColumn<int>("width");
    for (const int width : {0, 1, 2, 7, 20})
        QTest::addRow("%d", width) << width;
}

void TestCanvasShapes::widePenWidensTheArea()
{
    QFETCH(const int, width);
    Q3Canvas canvas(100, 100);
    const QPen pen(Qt::red, width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin);
    Q3CanvasRectangle rectangle(30, 30, 40, 40, &canvas);
    Q3CanvasLine line(&canvas);
    line.setPoints(30, 40, 60, 65);
    for (Q3CanvasPolygonalItem* item :
         {static_cast<Q3CanvasPolygonalItem*>(&rectangle), static_cast<Q3CanvasPolygonalItem*>(&line)}) {
        item->setPen(pen);
        item->show();
        const QImage picture = painted(canvas);
        const QRect area = item->boundingRect();
        int inside = 0;
        for (int y = 0; y < 100; ++y)
            for (int x = 0; x < 100; ++x)
                if (picture.pixelColor(x, y) == QColor(Qt::red)) {
                    QVERIFY2(area.contains(x, y), qPrintable(QStringLiteral("%1 %2").arg(x).arg(y)));
                    ++inside;
                }
        QVERIFY(inside > 30);
        item->hide();
    }
}

void TestCanvasShapes::lineMovesWithItsPosition()
{
    Q3Canvas canvas(100, 100);
    Q3CanvasLine line(&canvas);
    line.move(5.0, 5.0);
    line.setPoints(10, 20, 40, 20);
    line.show();
    QCOMPARE(line.startPoint(), QPoint(10, 20));
    QCOMPARE(line.endPoint(), QPoint(40, 20));
    QCOMPARE(painted(canvas).pixelColor(25, 20), QColor(Qt::black));
    line.moveBy(0.0, 50.0);
    QCOMPARE(line.startPoint(), QPoint(10, 70));
    QCOMPARE(painted(canvas).pixelColor(25, 20), QColor(Qt::white));
    QCOMPARE(painted(canvas).pixelColor(25, 70), QColor(Qt::black));
    QVERIFY(canvas.collisions(QPoint(25, 20)).isEmpty());
    QCOMPARE(canvas.collisions(QPoint(25, 70)), Q3CanvasItemList{&line});
    QCOMPARE(line.rtti(), 7);
}

void TestCanvasShapes::lineOfLengthZeroHasAnArea()
{
    Q3Canvas canvas(100, 100);
    Q3CanvasLine line(&canvas);
    line.setPoints(10, 20, 10, 20);
    line.show();
    QCOMPARE(canvas.collisions(QPoint(10, 20)), Q3CanvasItemList{&line});
    QVERIFY(canvas.collisions(QPoint(20, 20)).isEmpty());
}

void TestCanvasShapes::lineToTheEndsOfTheNumbersDoesNoHarm()
{
    Q3Canvas canvas(100, 100);
    Q3CanvasLine line(&canvas);
    line.setPoints(INT_MIN, 50, INT_MAX, 50);
    line.show();
    QCOMPARE(canvas.collisions(QPoint(50, 50)), Q3CanvasItemList{&line});
    line.moveBy(1e12, 0.0);
    QVERIFY(line.boundingRect().left() <= line.boundingRect().right());
    Q3CanvasRectangle rectangle(INT_MAX - 1, INT_MIN, INT_MAX, INT_MAX, &canvas);
    rectangle.show();
    QVERIFY(!rectangle.boundingRect().intersects(canvas.rect()));
    Q3CanvasLine near(&canvas);
    near.setPoints(10, 10, 20, 20);
    QVERIFY(!rectangle.collidesWith(&near));
    QVERIFY(near.collidesWith(&near));
}

void TestCanvasShapes::penAndBrushAreSetForTheShape()
{
    Q3Canvas canvas(60, 60);
    Q3CanvasRectangle item(kPlace, &canvas);
    item.show();
    QImage before = painted(canvas);
    QCOMPARE(before.pixelColor(kPlace.topLeft()), QColor(Qt::black));
    QCOMPARE(before.pixelColor(kPlace.center()), QColor(Qt::white));
    item.setPen(QPen(Qt::red, 0));
    item.setBrush(Qt::green);
    QCOMPARE(painted(canvas).pixelColor(kPlace.topLeft()), QColor(Qt::red));
    QCOMPARE(painted(canvas).pixelColor(kPlace.center()), QColor(Qt::green));
}

MEASURE_TEST_MAIN(TestCanvasShapes)
#include "TestCanvasShapes.moc"
