#include "CanvasTestItems.h"
#include "TestFont.h"

#include <QElapsedTimer>
#include <QRegion>
#include <QSignalSpy>

#include <algorithm>
#include <climits>
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

class TestCanvas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void laterItemIsDrawnAboveEarlier();
    void greaterZIsDrawnAboveWhateverTheAge();
    void equalZGoesBackToTheOrderOfCreation();
    void orderOfManyItemsEqualsASortByZAndAge();
    void newItemIsHiddenUntilShown();
    void hiddenItemIsNeitherDrawnNorHit();
    void collisionsNameTopmostFirst();
    void areaMeetsItsLastPixelOnly();
    void onlyItemsOfTheRegionAreDrawn();
    void separateRectanglesOfTheRegionStaySeparate();
    void backgroundKeepsToTheCanvas();
    void itemLeavingIsAnnouncedOnce();
    void itemMovesToAnotherCanvas();
    void canvasDeletesItsItems();
    void itemMayTakeAnotherWithIt();
    void itemMayDeleteAnotherWhileAdvancing();
    void advanceMovesAnimatedItemsByTheirVelocity();
    void resizeIsToldOnceAndNeverNegative();
    void manyItemsGoInAnyOrder_data();
    void manyItemsGoInAnyOrder();
    void itemAtTheEndsOfTheNumbersDoesNoHarm();
};

void TestCanvas::laterItemIsDrawnAboveEarlier()
{
    Q3Canvas canvas(60, 60);
    new Block(kPlace, Qt::red, &canvas);
    new Block(kPlace, Qt::blue, &canvas);
    QCOMPARE(painted(canvas).pixelColor(kInside), QColor(Qt::blue));
    QCOMPARE(painted(canvas).pixelColor(kPlace.bottomRight() + QPoint(1, 1)), QColor(Qt::white));
}

void TestCanvas::greaterZIsDrawnAboveWhateverTheAge()
{
    Q3Canvas canvas(60, 60);
    auto* first = new Block(kPlace, Qt::red, &canvas);
    new Block(kPlace, Qt::blue, &canvas);
    first->setZ(1.0);
    QCOMPARE(painted(canvas).pixelColor(kInside), QColor(Qt::red));
    first->setZ(-1.0);
    QCOMPARE(painted(canvas).pixelColor(kInside), QColor(Qt::blue));
    first->setZ(qQNaN());
    QCOMPARE(first->z(), -1.0);
}

void TestCanvas::equalZGoesBackToTheOrderOfCreation()
{
    Q3Canvas canvas(60, 60);
    auto* first = new Block(kPlace, Qt::red, &canvas);
    auto* second = new Block(kPlace, Qt::blue, &canvas);
    first->setZ(1.0);
    QCOMPARE(canvas.allItems(), (Q3CanvasItemList{first, second}));
    first->setZ(0.0);
    QCOMPARE(canvas.allItems(), (Q3CanvasItemList{second, first}));
}

void TestCanvas::orderOfManyItemsEqualsASortByZAndAge()
{
    const auto seed = std::random_device()();
    qInfo("seed %u", seed);
    std::mt19937 random(seed);
    Q3Canvas canvas(60, 60);
    Q3CanvasItemList model; // by age
    for (int step = 0; step < 2000; ++step) {
        const auto choice = random() % 4;
        if (choice < 2 || model.isEmpty()) {
            model << new Block(kPlace, Qt::red, &canvas);
        } else if (choice == 2) {
            model.at(qsizetype(random() % quint32(model.size())))->setZ(double(random() % 5) - 2.0);
        } else {
            delete model.takeAt(qsizetype(random() % quint32(model.size())));
        }
        if (step % 50 != 0)
            continue;
        Q3CanvasItemList sorted = model;
        std::stable_sort(sorted.begin(), sorted.end(),
                         [](const auto* aFirst, const auto* aSecond) { return aFirst->z() < aSecond->z(); });
        std::reverse(sorted.begin(), sorted.end());
        QCOMPARE(canvas.allItems(), sorted);
    }
}

void TestCanvas::newItemIsHiddenUntilShown()
{
    Q3Canvas canvas(60, 60);
    auto* item = new Block(kPlace, Qt::red, &canvas);
    item->hide();
    item->place(kPlace.translated(5, 5));
    QVERIFY(canvas.collisions(kInside + QPoint(5, 5)).isEmpty());
    item->show();
    QCOMPARE(canvas.collisions(kInside + QPoint(5, 5)), Q3CanvasItemList{item});
}

void TestCanvas::hiddenItemIsNeitherDrawnNorHit()
{
    Q3Canvas canvas(60, 60);
    auto* item = new Block(kPlace, Qt::red, &canvas);
    QCOMPARE(canvas.collisions(kInside), Q3CanvasItemList{item});
    item->hide();
    QCOMPARE(painted(canvas).pixelColor(kInside), QColor(Qt::white));
    QCOMPARE(item->theDrawn, 0);
    QVERIFY(canvas.collisions(kInside).isEmpty());
    QCOMPARE(canvas.allItems(), Q3CanvasItemList{item});
}

void TestCanvas::collisionsNameTopmostFirst()
{
    Q3Canvas canvas(60, 60);
    auto* low = new Block(kPlace, Qt::red, &canvas);
    auto* high = new Block(kPlace, Qt::blue, &canvas);
    auto* aside = new Block(kPlace.translated(25, 0), Qt::blue, &canvas);
    low->setZ(3.0);
    QCOMPARE(canvas.collisions(kInside), (Q3CanvasItemList{low, high}));
    QCOMPARE(canvas.collisions(QRect(0, 0, 60, 60)), (Q3CanvasItemList{low, aside, high}));
}

void TestCanvas::areaMeetsItsLastPixelOnly()
{
    Q3Canvas canvas(60, 60);
    new Block(kPlace, Qt::red, &canvas);
    QCOMPARE(canvas.collisions(kPlace.topLeft()).size(), 1);
    QCOMPARE(canvas.collisions(kPlace.bottomRight()).size(), 1);
    QVERIFY(canvas.collisions(kPlace.topLeft() - QPoint(1, 0)).isEmpty());
    QVERIFY(canvas.collisions(kPlace.bottomRight() + QPoint(0, 1)).isEmpty());
}

void TestCanvas::onlyItemsOfTheRegionAreDrawn()
{
    Q3Canvas canvas(200, 60);
    auto* here = new Block(kPlace, Qt::red, &canvas);
    auto* there = new Block(kPlace.translated(100, 0), Qt::blue, &canvas);
    QImage picture(canvas.size(), QImage::Format_RGB32);
    QPainter painter(&picture);
    canvas.drawArea(QRect(0, 0, 40, 60), painter);
    QCOMPARE(here->theDrawn, 1);
    QCOMPARE(there->theDrawn, 0);
}

void TestCanvas::separateRectanglesOfTheRegionStaySeparate()
{
    Q3Canvas canvas(200, 60);
    auto* left = new Block(kPlace, Qt::red, &canvas);
    auto* middle = new Block(kPlace.translated(80, 0), Qt::green, &canvas);
    auto* right = new Block(kPlace.translated(160, 0), Qt::blue, &canvas);
    QImage picture(canvas.size(), QImage::Format_RGB32);
    QPainter painter(&picture);
    canvas.drawArea(QRegion(left->theRect) + QRegion(right->theRect), painter);
    QCOMPARE(left->theDrawn, 1);
    QCOMPARE(middle->theDrawn, 0);
    QCOMPARE(right->theDrawn, 1);
}

void TestCanvas::backgroundKeepsToTheCanvas()
{
    Q3Canvas canvas(30, 20);
    canvas.setBackgroundColor(Qt::yellow);
    QImage picture(50, 50, QImage::Format_RGB32);
    picture.fill(Qt::black);
    QPainter painter(&picture);
    canvas.drawArea(picture.rect(), painter);
    QCOMPARE(picture.pixelColor(29, 19), QColor(Qt::yellow));
    QCOMPARE(picture.pixelColor(30, 19), QColor(Qt::black));
    QCOMPARE(picture.pixelColor(29, 20), QColor(Qt::black));
}

void TestCanvas::itemLeavingIsAnnouncedOnce()
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

void TestCanvas::itemMovesToAnotherCanvas()
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

void TestCanvas::canvasDeletesItsItems()
{
    auto canvas = std::make_unique<Q3Canvas>(60, 60);
    for (int i = 0; i < 5; ++i)
        new Block(kPlace, Qt::red, canvas.get());
    QSignalSpy removed(canvas.get(), &Q3Canvas::itemRemoved);
    canvas.reset();
    QCOMPARE(removed.count(), 5);
}

void TestCanvas::itemMayTakeAnotherWithIt()
{
    auto canvas = std::make_unique<Q3Canvas>(60, 60);
    auto* owned = new Block(kPlace, Qt::red, canvas.get());
    new Owner(canvas.get(), owned);
    QSignalSpy removed(canvas.get(), &Q3Canvas::itemRemoved);
    canvas.reset();
    QCOMPARE(removed.count(), 2);
}

void TestCanvas::itemMayDeleteAnotherWhileAdvancing()
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

void TestCanvas::advanceMovesAnimatedItemsByTheirVelocity()
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

void TestCanvas::resizeIsToldOnceAndNeverNegative()
{
    Q3Canvas canvas;
    QVERIFY(canvas.rect().isEmpty());
    QSignalSpy resized(&canvas, &Q3Canvas::resized);
    canvas.resize(40, 30);
    canvas.resize(40, 30);
    QCOMPARE(resized.count(), 1);
    QCOMPARE(canvas.rect(), QRect(0, 0, 40, 30));
    canvas.resize(-5, 10);
    QCOMPARE(canvas.size(), QSize(0, 10));
}

void TestCanvas::manyItemsGoInAnyOrder_data()
{
    QTest::addColumn<QString>("order");
    for (const char* order : {"oldest first", "youngest first", "shuffled", "with the canvas"})
        QTest::newRow(order) << QString::fromLatin1(order);
}

void TestCanvas::manyItemsGoInAnyOrder()
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

void TestCanvas::itemAtTheEndsOfTheNumbersDoesNoHarm()
{
    Q3Canvas canvas(60, 60);
    auto* item = new Block(QRect(QPoint(INT_MIN, INT_MIN), QPoint(INT_MAX, INT_MAX)), Qt::red, &canvas);
    QCOMPARE(canvas.collisions(kInside), Q3CanvasItemList{item});
    item->setAnimated(true);
    item->setVelocity(1e300, -1e300);
    QVERIFY(item->boundingRectAdvanced().width() > 0);
    canvas.advance();
    item->moveBy(qQNaN(), 0.0);
    canvas.setChanged(QRect(QPoint(INT_MIN, INT_MIN), QPoint(INT_MAX, INT_MAX)));
    QCOMPARE(canvas.collisions(QRect(QPoint(INT_MIN, INT_MIN), QPoint(INT_MAX, INT_MAX))),
             Q3CanvasItemList{item});
    item->place(QRect(QPoint(INT_MAX - 1, INT_MAX - 1), QPoint(INT_MAX, INT_MAX)));
    QVERIFY(canvas.collisions(canvas.rect()).isEmpty());
    QVERIFY(!item->chunks().size());
}

MEASURE_TEST_MAIN(TestCanvas)
#include "TestCanvas.moc"
