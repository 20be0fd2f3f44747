#include "ReadingOrder.h"
#include "TestFont.h"

#include <algorithm>
#include <random>

/// The order in which things that were found are numbered.
class TestReadingOrder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowsGoFromTheTopAndFromTheLeft();
    void unevenRowsStayRows();
    void tallThingKeepsTheRowsBesideIt();
    void columnGoesDown();
    void orderDoesNotHangOnTheOneBefore();
    void nothingStaysNothing();

private:
    static PixelOutline box(int aX, int aY, int aWidth, int aHeight);
    /// The upper left corners after sorting.
    static QList<QPoint> sorted(std::vector<PixelOutline> aOutlines);
};

PixelOutline TestReadingOrder::box(int aX, int aY, int aWidth, int aHeight)
{
    const int right = aX + aWidth - 1;
    const int bottom = aY + aHeight - 1;
    return {QPoint(aX, aY), QPoint(right, aY), QPoint(right, bottom), QPoint(aX, bottom)};
}

QList<QPoint> TestReadingOrder::sorted(std::vector<PixelOutline> aOutlines)
{
    ReadingOrder::sort(aOutlines);
    QList<QPoint> corners;
    for (const PixelOutline& outline : aOutlines)
        corners << outline.front();
    return corners;
}

void TestReadingOrder::rowsGoFromTheTopAndFromTheLeft()
{
    QCOMPARE(sorted({box(50, 50, 10, 10), box(10, 50, 10, 10), box(50, 10, 10, 10), box(10, 10, 10, 10)}),
             (QList<QPoint>{{10, 10}, {50, 10}, {10, 50}, {50, 50}}));
}

// The third thing of the upper row is the highest, the first of the lower row the lowest.
void TestReadingOrder::unevenRowsStayRows()
{
    QCOMPARE(sorted({box(10, 14, 20, 20), box(40, 18, 20, 20), box(70, 9, 20, 20), box(10, 52, 20, 20),
                     box(40, 43, 20, 20), box(70, 47, 20, 20)}),
             (QList<QPoint>{{10, 14}, {40, 18}, {70, 9}, {10, 52}, {40, 43}, {70, 47}}));
}

void TestReadingOrder::tallThingKeepsTheRowsBesideIt()
{
    QCOMPARE(sorted({box(100, 10, 10, 200), box(10, 12, 10, 10), box(10, 60, 10, 10), box(40, 60, 10, 10),
                     box(10, 120, 10, 10)}),
             (QList<QPoint>{{10, 12}, {100, 10}, {10, 60}, {40, 60}, {10, 120}}));
}

void TestReadingOrder::columnGoesDown()
{
    QCOMPARE(sorted({box(10, 90, 10, 10), box(12, 30, 10, 10), box(8, 60, 10, 10)}),
             (QList<QPoint>{{12, 30}, {8, 60}, {10, 90}}));
}

void TestReadingOrder::orderDoesNotHangOnTheOneBefore()
{
    std::mt19937 random(7);
    std::vector<PixelOutline> outlines;
    for (int i = 0; i < 60; ++i)
        outlines.push_back(
            box((i * 37) % 60 * 7, int(random() % 300), 3 + int(random() % 30), 3 + int(random() % 30)));
    const QList<QPoint> first = sorted(outlines);
    QCOMPARE(first.size(), 60);
    for (int round = 0; round < 20; ++round) {
        std::shuffle(outlines.begin(), outlines.end(), random);
        QCOMPARE(sorted(outlines), first);
    }
}

void TestReadingOrder::nothingStaysNothing()
{
    QVERIFY(sorted({}).isEmpty());
}

MEASURE_TEST_MAIN(TestReadingOrder)
#include "TestReadingOrder.moc"
