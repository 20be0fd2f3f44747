#include "CanvasTestItems.h"
#include "TestFont.h"

namespace {

/// A band between two points as broad as it is told, never drawn.
class Band : public Q3CanvasPolygonalItem
{
public:
    Band(const Q3PointArray& aPoints, Q3Canvas* aCanvas) : Q3CanvasPolygonalItem(aCanvas), thePoints(aPoints)
    {
        show();
    }

    Q3PointArray areaPoints() const override { return thePoints; }
    void drawShape(QPainter&) override {}

private:
    Q3PointArray thePoints;
};

const QRect kPlace(10, 10, 20, 20);

} // namespace

class TestPolygonalItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itemIsValidFromUpdateToInvalidate();
    void areaIsTheOneOfTheLastUpdate();
    void itemTakenOffTheFieldsIsNotDrawn();
    void changeChunksTakesTheNewArea();
    void fieldsCoverTheAreaWithinTheCanvas();
    void bandsSideBySideDoNotCollide();
    void crossingBandsCollide();
    void areaMovesWithTheVelocity();
    void itemWithoutCornersHasNoArea();
};

void TestPolygonalItem::itemIsValidFromUpdateToInvalidate()
{
    Q3Canvas canvas(60, 60);
    Block item(kPlace, Qt::red, &canvas);
    QVERIFY(item.isValid());
    item.invalidate();
    QVERIFY(!item.isValid());
    item.update();
    QVERIFY(item.isValid());
}

void TestPolygonalItem::areaIsTheOneOfTheLastUpdate()
{
    Q3Canvas canvas(60, 60);
    Block item(kPlace, Qt::red, &canvas);
    item.invalidate();
    item.theRect.translate(25, 0);
    QCOMPARE(canvas.collisions(kPlace.center()), Q3CanvasItemList{&item});
    item.update();
    QVERIFY(canvas.collisions(kPlace.center()).isEmpty());
    QCOMPARE(canvas.collisions(item.theRect.center()), Q3CanvasItemList{&item});
}

void TestPolygonalItem::itemTakenOffTheFieldsIsNotDrawn()
{
    Q3Canvas canvas(60, 60);
    Block item(kPlace, Qt::red, &canvas);
    item.removeFromChunks();
    painted(canvas);
    QCOMPARE(item.theDrawn, 0);
    item.addToChunks();
    painted(canvas);
    QCOMPARE(item.theDrawn, 1);
}

void TestPolygonalItem::changeChunksTakesTheNewArea()
{
    Q3Canvas canvas(60, 60);
    Block item(kPlace, Qt::red, &canvas);
    item.invalidate();
    item.theRect.translate(25, 0);
    item.changeChunks();
    QVERIFY(item.isValid());
    QCOMPARE(canvas.collisions(item.theRect.center()), Q3CanvasItemList{&item});
    item.hide();
    item.changeChunks();
    QVERIFY(canvas.collisions(canvas.rect()).isEmpty());
}

void TestPolygonalItem::fieldsCoverTheAreaWithinTheCanvas()
{
    Q3Canvas canvas(200, 100);
    Block item(QRect(60, 60, 10, 10), Qt::red, &canvas);
    QCOMPARE(item.chunks(), Q3PointArray(QPolygon{{0, 0}, {64, 0}, {0, 64}, {64, 64}}));
    item.place(QRect(-500, -500, 510, 510));
    QCOMPARE(item.chunks(), Q3PointArray(QPolygon{{0, 0}}));
    item.place(QRect(-500, -500, 10, 10));
    QVERIFY(item.chunks().isEmpty());
}

void TestPolygonalItem::bandsSideBySideDoNotCollide()
{
    Q3Canvas canvas(200, 200);
    Band first(QPolygon{{0, 0}, {10, 0}, {110, 100}, {100, 100}}, &canvas);
    Band second(QPolygon{{40, 0}, {50, 0}, {150, 100}, {140, 100}}, &canvas);
    QVERIFY(first.boundingRect().intersects(second.boundingRect()));
    const Q3CanvasItem* other = &second;
    QVERIFY(!first.collidesWith(other));
    QVERIFY(!second.collidesWith(&first));
    QVERIFY(!first.collidesWith(static_cast<const Q3CanvasItem*>(nullptr)));
}

void TestPolygonalItem::crossingBandsCollide()
{
    Q3Canvas canvas(200, 200);
    Band first(QPolygon{{0, 0}, {10, 0}, {110, 100}, {100, 100}}, &canvas);
    Band second(QPolygon{{100, 0}, {110, 0}, {10, 100}, {0, 100}}, &canvas);
    const Q3CanvasItem* other = &second;
    QVERIFY(first.collidesWith(other));
    QVERIFY(second.collidesWith(&first));
}

void TestPolygonalItem::areaMovesWithTheVelocity()
{
    Q3Canvas canvas(60, 60);
    Block item(kPlace, Qt::red, &canvas);
    item.setVelocity(3.0, -2.0);
    QCOMPARE(item.areaPointsAdvanced(), item.areaPoints());
    item.setAnimated(true);
    QCOMPARE(item.areaPointsAdvanced().boundingRect(), kPlace.translated(3, -2));
}

void TestPolygonalItem::itemWithoutCornersHasNoArea()
{
    Q3Canvas canvas(60, 60);
    Band item({}, &canvas);
    QVERIFY(item.boundingRect().isNull());
    QVERIFY(canvas.collisions(canvas.rect()).isEmpty());
}

MEASURE_TEST_MAIN(TestPolygonalItem)
#include "TestPolygonalItem.moc"
