#include "CanvasTestItems.h"
#include "TestFont.h"

#include <QRegion>
#include <QSignalSpy>

#include <algorithm>
#include <climits>
#include <random>

namespace {

const QRect kPlace(10, 10, 20, 20);
const QPoint kInside(15, 15);

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
    void moveGivesExactlyThePositionAskedFor();
    void collisionsNameTopmostFirst();
    void areaMeetsItsLastPixelOnly();
    void onlyItemsOfTheRegionAreDrawn();
    void separateRectanglesOfTheRegionStaySeparate();
    void backgroundKeepsToTheCanvas();
    void resizeIsToldOnceAndNeverNegative();
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

void TestCanvas::moveGivesExactlyThePositionAskedFor()
{
    Q3Canvas canvas(60, 60);
    Block item(kPlace, Qt::red, &canvas);
    item.move(1e9 + 0.3, -1e9 - 0.3);
    item.move(0.1, 0.7);
    QVERIFY(item.x() == 0.1 && item.y() == 0.7);
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
