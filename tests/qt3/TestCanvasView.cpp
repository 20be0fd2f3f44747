#include "TestFont.h"
#include "WatchedView.h"

#include <QScrollBar>
#include <QSignalSpy>

#include <memory>

namespace {

const QRect kPlace(40, 40, 30, 30);

} // namespace

class TestCanvasView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void smallCanvasStandsInTheMiddle();
    void zoomKeepsThePointUnderThePointer_data();
    void zoomKeepsThePointUnderThePointer();
    void matrixWithoutInverseIsRefused();
    void matrixIsAnnouncedWhenAllHasFollowed();
    void positionsAreFloored();
    void pixelEdgesAreExactAtEveryZoom();
    void canvasMayGoBeforeItsView();
    void viewMayGoBeforeItsCanvas();
    void viewMayOwnItsCanvas();
    void viewTakesAnotherCanvas();
    void canvasResizeIsFollowed();
    void viewportIsReadyForTheMouse();
};

void TestCanvasView::smallCanvasStandsInTheMiddle()
{
    Q3Canvas canvas(100, 50);
    WatchedView view(&canvas);
    showAt(view, QSize(300, 200));
    QCOMPARE(view.canvasToViewport(), QTransform::fromTranslate(100, 75));
    QCOMPARE(view.toCanvas(QPointF(100, 75)), QPoint(0, 0));
    QVERIFY(view.setWorldMatrix(QTransform(2, 0, 0, 2, 17, -500)));
    QCOMPARE(view.toViewport(QPointF(0, 0)), QPointF(50, 50));
    QCOMPARE(view.visibleCanvasRect(), canvas.rect());
}

void TestCanvasView::zoomKeepsThePointUnderThePointer_data()
{
    QTest::addColumn<double>("zoom");
    for (const double zoom : {0.6, 1.0, 1.1, 3.7, 20.0})
        QTest::addRow("%g", zoom) << zoom;
}

void TestCanvasView::zoomKeepsThePointUnderThePointer()
{
    QFETCH(const double, zoom);
    Q3Canvas canvas(2000, 2000);
    WatchedView view(&canvas);
    showAt(view, QSize(300, 200));
    view.zoomAbout(2.0, QPointF(0.0, 0.0));
    view.scrollBy(QPoint(1500, 1700));
    const QPointF pointer(123.0, 77.0);
    const QPointF under = view.canvasToViewport().inverted().map(pointer);
    view.zoomAbout(zoom, pointer);
    QCOMPARE(view.worldMatrix(), QTransform::fromScale(zoom, zoom));
    const QPointF now = view.toViewport(under);
    QVERIFY2((now - pointer).manhattanLength() <= 1.0 + 1e-6,
             qPrintable(QStringLiteral("%1 %2").arg(now.x()).arg(now.y())));
    QCOMPARE(shown(view), repainted(view));
}

void TestCanvasView::matrixWithoutInverseIsRefused()
{
    Q3Canvas canvas(800, 600);
    WatchedView view(&canvas);
    showAt(view, QSize(300, 200));
    QVERIFY(view.setWorldMatrix(QTransform::fromScale(2.0, 2.0)));
    QSignalSpy changed(&view, &Q3CanvasView::worldMatrixChanged);
    const QTransform before = view.canvasToViewport();
    for (const QTransform& wrong :
         {QTransform::fromScale(0.0, 1.0), QTransform(1, 1, 1, 1, 0, 0), QTransform::fromScale(qQNaN(), 1.0),
          QTransform::fromScale(qInf(), qInf()), QTransform(1, 0, 0, 1, qInf(), 0),
          QTransform(1, 0, 0, 1, 0, qQNaN())})
        QVERIFY(!view.setWorldMatrix(wrong));
    view.zoomAbout(0.0, QPointF(5.0, 5.0));
    view.zoomAbout(qQNaN(), QPointF(5.0, 5.0));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(view.canvasToViewport(), before);
    QCOMPARE(view.inverseWorldMatrix(), QTransform::fromScale(0.5, 0.5));
}

void TestCanvasView::matrixIsAnnouncedWhenAllHasFollowed()
{
    Q3Canvas canvas(800, 600);
    WatchedView view(&canvas);
    showAt(view, QSize(300, 200));
    QTransform told;
    int count = 0;
    connect(&view, &Q3CanvasView::worldMatrixChanged, this, [&] {
        told = view.canvasToViewport();
        ++count;
    });
    view.zoomAbout(3.0, QPointF(200.0, 100.0));
    QCOMPARE(count, 1);
    QCOMPARE(told, view.canvasToViewport());
    QCOMPARE(told, QTransform(3, 0, 0, 3, -400, -200));
    view.zoomAbout(3.0, QPointF(10.0, 10.0));
    QCOMPARE(count, 1);
}

void TestCanvasView::positionsAreFloored()
{
    Q3Canvas canvas(100, 50);
    WatchedView view(&canvas);
    showAt(view, QSize(300, 200));
    QVERIFY(view.setWorldMatrix(QTransform::fromScale(2.0, 2.0)));
    const QPointF corner = view.toViewport(QPointF(0, 0));
    QCOMPARE(view.toCanvas(corner + QPointF(1.9, 1.9)), QPoint(0, 0));
    QCOMPARE(view.toCanvas(corner + QPointF(2.0, 3.5)), QPoint(1, 1));
    QCOMPARE(view.toCanvas(corner - QPointF(0.1, 2.1)), QPoint(-1, -2));
    QVERIFY(view.toCanvas(QPointF(1e300, qQNaN())).x() > 100);
}

void TestCanvasView::pixelEdgesAreExactAtEveryZoom()
{
    Q3Canvas canvas(1000, 1000);
    WatchedView view(&canvas);
    showAt(view, QSize(300, 200));
    for (const double zoom : {0.1, 0.3, 0.7, 1.1, 3.3, 7.0}) {
        QVERIFY(view.setWorldMatrix(QTransform::fromScale(zoom, zoom)));
        for (int x = 0; x < 200; ++x)
            QCOMPARE(view.toCanvas(view.toViewport(QPointF(x, 2 * x))), QPoint(x, 2 * x));
    }
}

void TestCanvasView::canvasMayGoBeforeItsView()
{
    auto canvas = std::make_unique<Q3Canvas>(800, 600);
    new Block(kPlace, Qt::red, canvas.get());
    WatchedView view(canvas.get());
    showAt(view, QSize(300, 200));
    QVERIFY(view.horizontalScrollBar()->isVisible());
    canvas.reset();
    QVERIFY(!view.canvas());
    QImage blank(view.size(), QImage::Format_RGB32);
    blank.fill(view.palette().color(QPalette::Dark));
    QCOMPARE(shown(view), blank);
    QVERIFY(!view.horizontalScrollBar()->isVisible());
    QVERIFY(view.setWorldMatrix(QTransform::fromScale(2.0, 2.0)));
    QVERIFY(view.visibleCanvasRect().isEmpty());
}

void TestCanvasView::viewMayGoBeforeItsCanvas()
{
    Q3Canvas canvas(800, 600);
    auto* item = new Block(kPlace, Qt::red, &canvas);
    auto view = std::make_unique<WatchedView>(&canvas);
    view.reset();
    item->place(kPlace.translated(5, 5));
    canvas.update();
    canvas.resize(10, 10);
    QCOMPARE(canvas.collisions(kPlace.center()).size(), 1);
}

void TestCanvasView::viewMayOwnItsCanvas()
{
    auto view = std::make_unique<WatchedView>();
    auto* canvas = new Q3Canvas(view.get());
    canvas->resize(100, 100);
    new Block(kPlace, Qt::red, canvas);
    view->setCanvas(canvas);
    int told = 0;
    connect(canvas, &Q3Canvas::itemRemoved, view.get(), [&told] { ++told; });
    QSignalSpy removed(canvas, &Q3Canvas::itemRemoved);
    view.reset();
    QCOMPARE(removed.count(), 1);
    QCOMPARE(told, 0);
}

void TestCanvasView::viewTakesAnotherCanvas()
{
    Q3Canvas first(300, 200);
    Q3Canvas second(300, 200);
    auto* left = new Block(kPlace, Qt::red, &first);
    auto* right = new Block(kPlace, Qt::blue, &second);
    WatchedView view(&first);
    showAt(view, QSize(300, 200));
    view.setCanvas(&second);
    QCOMPARE(shown(view).pixelColor(kPlace.center()), QColor(Qt::blue));
    view.takePainted();
    left->place(kPlace.translated(50, 50));
    first.update();
    QCoreApplication::processEvents();
    QVERIFY(view.takePainted().isEmpty());
    right->place(kPlace.translated(50, 50));
    second.update();
    QCoreApplication::processEvents();
    QVERIFY(view.takePainted().contains(right->theRect));
}

void TestCanvasView::canvasResizeIsFollowed()
{
    Q3Canvas canvas(100, 100);
    WatchedView view(&canvas);
    showAt(view, QSize(300, 200));
    QCOMPARE(view.toViewport(QPointF(0, 0)), QPointF(100, 50));
    canvas.resize(200, 180);
    QCOMPARE(view.toViewport(QPointF(0, 0)), QPointF(50, 10));
    QCOMPARE(shown(view), repainted(view));
    canvas.resize(1000, 1000);
    QCOMPARE(view.toViewport(QPointF(0, 0)), QPointF(0, 0));
    QCOMPARE(shown(view), repainted(view));
}

void TestCanvasView::viewportIsReadyForTheMouse()
{
    Q3CanvasView view;
    QVERIFY(view.viewport()->hasMouseTracking());
    QVERIFY(view.viewport()->testAttribute(Qt::WA_OpaquePaintEvent));
    QCOMPARE(view.focusPolicy(), Qt::StrongFocus);
}

MEASURE_TEST_MAIN(TestCanvasView)
#include "TestCanvasView.moc"
