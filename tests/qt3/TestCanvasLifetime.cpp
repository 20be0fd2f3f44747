#include "CanvasTestItems.h"
#include "TestFont.h"

#include <QElapsedTimer>
#include <QSignalSpy>

#include <algorithm>
#include <memory>
#include <random>

namespace {

const QRect kPlace(10, 10, 20, 20);
const QPoint kInside(15, 15);

/// Takes another item with it when it goes.
class Owner : public Block
{
public:
    Owner(Q3Canvas* aCanvas, Block* aOwned) : Block(kPlace, Qt::red, aCanvas), theOwned(aOwned) {}
    ~Owner() override { delete theOwned; }

private:
    Block* theOwned; // owned by this and by nobody else while this lives
};

/// Deletes another item when it advances.
class Hunter : public Block
{
public:
    Hunter(Q3Canvas* aCanvas, Q3CanvasItem* aPrey) : Block(kPlace, Qt::red, aCanvas), thePrey(aPrey)
    {
        setAnimated(true);
    }

    void advance(int aStage) override
    {
        if (aStage == 0)
            delete std::exchange(thePrey, nullptr);
        Block::advance(aStage);
    }

private:
    Q3CanvasItem* thePrey;
};

} // namespace

class TestCanvasLifetime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itemLeavingIsAnnouncedOnce();
    void itemMovesToAnotherCanvas();
    void canvasDeletesItsItems();
    void itemMayTakeAnotherWithIt();
    void itemMayDeleteAnotherWhileAdvancing();
    void advanceMovesAnimatedItemsByTheirVelocity();
    void manyItemsGoInAnyOrder_data();
    void manyItemsGoInAnyOrder();
};

void TestCanvasLifetime::itemLeavingIsAnnouncedOnce()
{
    Q3Canvas canvas(60, 60);
    Q3CanvasItem* item = new Block(kPlace, Qt::red, &canvas);
    Q3CanvasItemList gone;
    connect(&canvas, &Q3Canvas::itemRemoved, this, [&](Q3CanvasItem* aItem) {
        gone << aItem;
        QVERIFY(!canvas.allItems().contains(aItem));
        QVERIFY(canvas.collisions(kInside).isEmpty());
    });
    delete item;
    QCOMPARE(gone, Q3CanvasItemList{item});
}

void TestCanvasLifetime::itemMovesToAnotherCanvas()
{
    Q3Canvas from(60, 60);
    Q3Canvas onto(60, 60);
    auto* item = new Block(kPlace, Qt::red, &from);
    auto* younger = new Block(kPlace, Qt::green, &onto);
    item->setZ(-1.0);
    QSignalSpy left(&from, &Q3Canvas::itemRemoved);
    item->setCanvas(&onto);
    QCOMPARE(left.count(), 1);
    QVERIFY(from.allItems().isEmpty());
    QCOMPARE(onto.collisions(kInside), (Q3CanvasItemList{younger, item}));
    item->setCanvas(nullptr);
    QCOMPARE(onto.allItems(), Q3CanvasItemList{younger});
    item->place(kPlace.translated(1, 1));
    delete item;
}

void TestCanvasLifetime::canvasDeletesItsItems()
{
    auto canvas = std::make_unique<Q3Canvas>(60, 60);
    for (int i = 0; i < 5; ++i)
        new Block(kPlace, Qt::red, canvas.get());
    QSignalSpy removed(canvas.get(), &Q3Canvas::itemRemoved);
    canvas.reset();
    QCOMPARE(removed.count(), 5);
}

void TestCanvasLifetime::itemMayTakeAnotherWithIt()
{
    auto canvas = std::make_unique<Q3Canvas>(60, 60);
    auto* owned = new Block(kPlace, Qt::red, canvas.get());
    new Owner(canvas.get(), owned);
    QSignalSpy removed(canvas.get(), &Q3Canvas::itemRemoved);
    canvas.reset();
    QCOMPARE(removed.count(), 2);
}

void TestCanvasLifetime::itemMayDeleteAnotherWhileAdvancing()
{
    Q3Canvas canvas(60, 60);
    auto* prey = new Block(kPlace, Qt::red, &canvas);
    prey->setAnimated(true);
    auto* hunter = new Hunter(&canvas, prey);
    hunter->setVelocity(2.0, 0.0);
    canvas.advance();
    QCOMPARE(canvas.allItems(), Q3CanvasItemList{hunter});
    QCOMPARE(hunter->x(), 2.0);
}

void TestCanvasLifetime::advanceMovesAnimatedItemsByTheirVelocity()
{
    Q3Canvas canvas(60, 60);
    auto* moving = new Block(kPlace, Qt::red, &canvas);
    auto* standing = new Block(kPlace, Qt::red, &canvas);
    moving->setVelocity(1.5, -2.0);
    standing->setVelocity(1.5, -2.0);
    moving->setAnimated(true);
    QCOMPARE(moving->boundingRectAdvanced(), kPlace.translated(2, -2));
    QCOMPARE(standing->boundingRectAdvanced(), kPlace);
    canvas.advance();
    canvas.advance();
    QCOMPARE(QPointF(moving->x(), moving->y()), QPointF(3.0, -4.0));
    QCOMPARE(QPointF(standing->x(), standing->y()), QPointF(0.0, 0.0));
}

void TestCanvasLifetime::manyItemsGoInAnyOrder_data()
{
    QTest::addColumn<QString>("order");
    for (const char* order : {"oldest first", "youngest first", "shuffled", "with the canvas"})
        QTest::newRow(order) << QString::fromLatin1(order);
}

void TestCanvasLifetime::manyItemsGoInAnyOrder()
{
    QFETCH(const QString, order);
    constexpr int kCount = 20000;
    auto canvas = std::make_unique<Q3Canvas>(1000, 1000);
    Q3CanvasItemList items;
    for (int i = 0; i < kCount; ++i) {
        items << new Block(QRect(i % 1000, i / 1000, 5, 5), Qt::red, canvas.get());
        items.last()->setZ(i % 3);
    }
    const auto seed = std::random_device()();
    qInfo("seed %u", seed);
    if (order == QLatin1String("youngest first"))
        std::reverse(items.begin(), items.end());
    if (order == QLatin1String("shuffled"))
        std::shuffle(items.begin(), items.end(), std::mt19937(seed));
    int removed = 0;
    connect(canvas.get(), &Q3Canvas::itemRemoved, this, [&removed] { ++removed; });
    QElapsedTimer clock;
    clock.start();
    if (order != QLatin1String("with the canvas")) {
        for (Q3CanvasItem* item : std::as_const(items)) {
            delete item;
            if (removed % 1000 == 0)
                QCOMPARE(canvas->allItems().size(), qsizetype(kCount - removed));
        }
    }
    canvas.reset();
    QCOMPARE(removed, kCount);
    // Linear work takes milliseconds even under a sanitizer; shifting all slots for each item takes minutes
    // there.
    QVERIFY2(clock.elapsed() < 5000, qPrintable(QString::number(clock.elapsed())));
}

MEASURE_TEST_MAIN(TestCanvasLifetime)
#include "TestCanvasLifetime.moc"
