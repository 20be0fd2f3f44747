#include "Q3CanvasLine.h"
#include "TestFont.h"
#include "WatchedView.h"

#include <QScrollBar>

#include <random>

namespace {

const QRect kPlace(40, 40, 30, 30);

/// Whether each black pixel of one picture is found in the other one, at its place or at a neighbour's.
bool hasAllBlackNearby(const QImage& aOf, const QImage& aIn)
{
    const auto isBlack = [](const QImage& aPicture, const QPoint& aPixel) {
        return aPicture.rect().contains(aPixel) && aPicture.pixelColor(aPixel) == QColor(Qt::black);
    };
    for (int y = 0; y < aOf.height(); ++y)
        for (int x = 0; x < aOf.width(); ++x) {
            bool found = !isBlack(aOf, QPoint(x, y));
            for (int place = 0; place < 9 && !found; ++place)
                found = isBlack(aIn, QPoint(x + place % 3 - 1, y + place / 3 - 1));
            if (!found)
                return false;
        }
    return true;
}

void addLines(Q3Canvas& aCanvas, int aCount, unsigned aSeed)
{
    std::mt19937 random(aSeed);
    const auto somewhere = [&random](int aRange) { return int(random() % unsigned(aRange)); };
    for (int i = 0; i < aCount; ++i) {
        auto* line = new Q3CanvasLine(&aCanvas);
        line->setPen(QPen(Qt::black, i % 2 == 0 ? 0 : 2));
        line->setPoints(somewhere(aCanvas.width()), somewhere(aCanvas.height()), somewhere(aCanvas.width()),
                        somewhere(aCanvas.height()));
        line->show();
    }
}

} // namespace

class TestCanvasViewScrolling : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void scrolledStripsEqualAFullRepaint_data();
    void scrolledStripsEqualAFullRepaint();
    void slantedLinesStayWholeAcrossScrolledStrips_data();
    void slantedLinesStayWholeAcrossScrolledStrips();
    void scrollingPaintsOnlyTheStrip();
    void foregroundStaysWhileScrolling();
    void scrollBarsShowOnlyWhenNeeded();
    void scrollRangeReachesTheLastPixel();
    void scrollRangeForeseesTheBarsThatAreToCome();
    void turnedCanvasIsWhollyReachable();
    void ensureVisibleScrollsAsLittleAsPossible();
};

void TestCanvasViewScrolling::scrolledStripsEqualAFullRepaint_data()
{
    QTest::addColumn<double>("zoom");
    for (const double zoom : {0.25, 0.75, 1.0, 3.375})
        QTest::addRow("%g", zoom) << zoom;
}

void TestCanvasViewScrolling::scrolledStripsEqualAFullRepaint()
{
    QFETCH(const double, zoom);
    PictureCanvas canvas(1600, 1200);
    for (int i = 0; i < 200; ++i)
        new Block(QRect(i * 37 % 1500, i * 91 % 1100, 25, 13), QColor::fromHsv(i, 255, 255), &canvas);
    for (int i = 0; i < 40; ++i) {
        auto* line = new Q3CanvasLine(&canvas);
        line->setPoints(i * 40, 0, i * 40, 1200 - i);
        line->show();
    }
    WatchedView view(&canvas);
    showAt(view, QSize(300, 200));
    QVERIFY(view.setWorldMatrix(QTransform::fromScale(zoom, zoom)));
    QCOMPARE(shown(view), repainted(view));
    for (const QPoint& step : {QPoint(13, 0), QPoint(0, 29), QPoint(-5, -7), QPoint(90, 60), QPoint(1, 1)}) {
        view.scrollBy(step);
        QCOMPARE(shown(view), repainted(view));
    }
}

void TestCanvasViewScrolling::slantedLinesStayWholeAcrossScrolledStrips_data()
{
    QTest::addColumn<double>("zoom");
    for (const double zoom : {0.3, 0.77, 1.0, 3.3})
        QTest::addRow("%g", zoom) << zoom;
}

void TestCanvasViewScrolling::slantedLinesStayWholeAcrossScrolledStrips()
{
    QFETCH(const double, zoom);
    const auto seed = std::random_device()();
    qInfo("seed %u", seed);
    Q3Canvas canvas(1600, 1200);
    addLines(canvas, 20, seed);
    WatchedView view(&canvas);
    showAt(view, QSize(300, 200));
    QVERIFY(view.setWorldMatrix(QTransform::fromScale(zoom, zoom)));
    for (const QPoint& step : {QPoint(13, 0), QPoint(0, 29), QPoint(-5, -7), QPoint(90, 60), QPoint(1, 1)}) {
        view.scrollBy(step);
        // The raster engine cuts a line at the exposed strip and rounds anew from there: a pixel of it may
        // stand one beside its place, never further.
        const QImage kept = shown(view);
        const QImage fresh = repainted(view);
        QVERIFY(hasAllBlackNearby(kept, fresh) && hasAllBlackNearby(fresh, kept));
        view.viewport()->update();
        QCoreApplication::processEvents();
    }
}

void TestCanvasViewScrolling::scrollingPaintsOnlyTheStrip()
{
    Q3Canvas canvas(800, 600);
    WatchedView view(&canvas);
    showAt(view, QSize(300, 200));
    view.takePainted();
    view.scrollBy(QPoint(0, 11));
    QCoreApplication::processEvents();
    const QRect seen = view.viewport()->rect();
    QCOMPARE(view.takePainted(), QRegion(QRect(0, seen.height() - 11, seen.width(), 11)));
}

void TestCanvasViewScrolling::foregroundStaysWhileScrolling()
{
    Q3Canvas canvas(800, 600);
    new Block(kPlace, Qt::red, &canvas);
    WatchedView view(&canvas);
    showAt(view, QSize(300, 200));
    view.theForeground = true;
    view.viewport()->update();
    QCOMPARE(shown(view).pixelColor(15, 15), QColor(Qt::cyan));
    view.scrollBy(QPoint(30, 25));
    QCOMPARE(shown(view).pixelColor(15, 15), QColor(Qt::cyan));
    QCOMPARE(shown(view), repainted(view));
}

void TestCanvasViewScrolling::scrollBarsShowOnlyWhenNeeded()
{
    Q3Canvas canvas(300, 200);
    WatchedView view(&canvas);
    showAt(view, QSize(300, 200));
    QVERIFY(!view.horizontalScrollBar()->isVisible() && !view.verticalScrollBar()->isVisible());
    canvas.resize(301, 200); // the horizontal bar takes room from the height
    QCoreApplication::processEvents();
    QVERIFY(view.horizontalScrollBar()->isVisible() && view.verticalScrollBar()->isVisible());
    canvas.resize(300, 200);
    QCoreApplication::processEvents();
    QVERIFY(!view.horizontalScrollBar()->isVisible() && !view.verticalScrollBar()->isVisible());
    canvas.resize(250, 400);
    QCoreApplication::processEvents();
    QVERIFY(!view.horizontalScrollBar()->isVisible() && view.verticalScrollBar()->isVisible());
}

void TestCanvasViewScrolling::scrollRangeReachesTheLastPixel()
{
    Q3Canvas canvas(800, 600);
    WatchedView view(&canvas);
    showAt(view, QSize(300, 200));
    view.scrollBy(QPoint(100000, 100000));
    QCOMPARE(view.toViewport(QPointF(800, 600)),
             QPointF(view.viewport()->width(), view.viewport()->height()));
    QCOMPARE(view.visibleCanvasRect().bottomRight(), canvas.rect().bottomRight());
    view.scrollBy(QPoint(-100000, -100000));
    QCOMPARE(view.toViewport(QPointF(0, 0)), QPointF(0, 0));
}

void TestCanvasViewScrolling::scrollRangeForeseesTheBarsThatAreToCome()
{
    Q3Canvas canvas(300, 200);
    WatchedView view(&canvas);
    showAt(view, QSize(300, 200));
    QVERIFY(view.setWorldMatrix(QTransform::fromScale(2.0, 2.0)));
    view.scrollBy(QPoint(100000, 100000));
    QCoreApplication::processEvents();
    QVERIFY(view.viewport()->width() < 300 && view.viewport()->height() < 200);
    QCOMPARE(view.toViewport(QPointF(300, 200)),
             QPointF(view.viewport()->width(), view.viewport()->height()));
}

void TestCanvasViewScrolling::turnedCanvasIsWhollyReachable()
{
    Q3Canvas canvas(600, 500);
    new Block(QRect(590, 0, 10, 10), Qt::red, &canvas);
    WatchedView view(&canvas);
    showAt(view, QSize(200, 200));
    QVERIFY(view.setWorldMatrix(QTransform().rotate(30.0).scale(1.0, 1.0)));
    for (const QPoint& corner : {QPoint(0, 0), QPoint(599, 0), QPoint(0, 499), QPoint(599, 499)}) {
        view.ensureVisible(corner);
        QVERIFY(view.viewport()->rect().contains(view.toViewport(QPointF(corner)).toPoint()));
        QCOMPARE(shown(view), repainted(view));
    }
}

void TestCanvasViewScrolling::ensureVisibleScrollsAsLittleAsPossible()
{
    Q3Canvas canvas(1000, 1000);
    WatchedView view(&canvas);
    showAt(view, QSize(300, 200));
    const QTransform before = view.canvasToViewport();
    view.ensureVisible(QPoint(100, 100));
    QCOMPARE(view.canvasToViewport(), before);
    view.ensureVisible(QPoint(500, 100));
    const QPoint pixel = view.toViewport(QPointF(500, 100)).toPoint();
    QCOMPARE(pixel, QPoint(view.viewport()->width() - 21, 100));
    view.ensureVisible(QPoint(300, 700));
    QCOMPARE(view.toViewport(QPointF(300, 700)).toPoint().y(), view.viewport()->height() - 21);
    view.ensureVisible(QPoint(999, 999));
    QVERIFY(view.viewport()->rect().contains(view.toViewport(QPointF(999, 999)).toPoint()));
}

MEASURE_TEST_MAIN(TestCanvasViewScrolling)
#include "TestCanvasViewScrolling.moc"
