#include "TestFont.h"
#include "WatchedView.h"

#include <climits>
#include <random>

namespace {

const QRect kPlace(40, 40, 30, 30);

/// Asks the painter for its matrix and marks the pixel at a canvas point as the items do: at the identity
/// matrix.
class IdentityMark : public Block
{
public:
    using Block::Block;

    void drawShape(QPainter& aPainter) override
    {
        theMatrix = aPainter.worldTransform();
        aPainter.save();
        const QPointF corner = theMatrix.map(QPointF(theRect.topLeft()));
        aPainter.resetTransform();
        aPainter.fillRect(QRectF(corner, QSizeF(10.0, 10.0)), theColor);
        aPainter.restore();
    }

    QTransform theMatrix;
};

} // namespace

class TestCanvasViewPainting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyOldAndNewPlaceAreRepainted();
    void itemMovedWithoutAWordLeavesNoGhost();
    void hiddenAndDeletedItemsVanish();
    void zChangeIsSeen();
    void invalidatedItemIsRepaintedBeforeItsUpdate();
    void nothingIsRepaintedWithoutCanvasUpdate();
    void manyUpdatesBecomeOnePaint();
    void manyChangesEqualAFullRepaint();
    void penIsRepaintedWholeAtEveryZoom_data();
    void penIsRepaintedWholeAtEveryZoom();
    void painterMapsCanvasToLogicalPixels_data();
    void painterMapsCanvasToLogicalPixels();
    void surroundingsHaveANeutralColour();
    void itemAtTheEndsOfTheNumbersIsPainted();
};

void TestCanvasViewPainting::onlyOldAndNewPlaceAreRepainted()
{
    Q3Canvas canvas(400, 300);
    auto* item = new Block(kPlace, Qt::red, &canvas);
    WatchedView view(&canvas);
    showAt(view, QSize(400, 300));
    view.takePainted();
    const QRect newPlace = kPlace.translated(250, 150);
    item->place(newPlace);
    canvas.update();
    QCoreApplication::processEvents();
    const QRegion painted = view.takePainted();
    QVERIFY(painted.contains(kPlace) && painted.contains(newPlace));
    QVERIFY(!painted.contains((kPlace.center() + newPlace.center()) / 2));
    QCOMPARE(shown(view), repainted(view));
    QCOMPARE(shown(view).pixelColor(newPlace.center()), QColor(Qt::red));
    QCOMPARE(shown(view).pixelColor(kPlace.center()), QColor(Qt::white));
}

void TestCanvasViewPainting::itemMovedWithoutAWordLeavesNoGhost()
{
    Q3Canvas canvas(400, 300);
    auto* item = new Block(kPlace, Qt::red, &canvas);
    WatchedView view(&canvas);
    showAt(view, QSize(400, 300));
    QCOMPARE(shown(view).pixelColor(kPlace.center()), QColor(Qt::red));
    view.takePainted();
    item->theRect.translate(250, 150);
    item->update();
    canvas.update();
    QCOMPARE(shown(view).pixelColor(kPlace.center()), QColor(Qt::white));
    QCOMPARE(shown(view).pixelColor(item->theRect.center()), QColor(Qt::red));
    const QRegion painted = view.takePainted();
    QVERIFY(painted.contains(kPlace) && painted.contains(item->theRect));
    QVERIFY(!painted.contains((kPlace.center() + item->theRect.center()) / 2));
}

void TestCanvasViewPainting::hiddenAndDeletedItemsVanish()
{
    Q3Canvas canvas(400, 300);
    auto* hidden = new Block(kPlace, Qt::red, &canvas);
    auto* deleted = new Block(kPlace.translated(100, 0), Qt::red, &canvas);
    WatchedView view(&canvas);
    showAt(view, QSize(400, 300));
    QCOMPARE(shown(view).pixelColor(kPlace.center()), QColor(Qt::red));
    hidden->hide();
    const QPoint gone = deleted->theRect.center();
    delete deleted;
    canvas.update();
    QCOMPARE(shown(view).pixelColor(kPlace.center()), QColor(Qt::white));
    QCOMPARE(shown(view).pixelColor(gone), QColor(Qt::white));
    hidden->show();
    canvas.update();
    QCOMPARE(shown(view).pixelColor(kPlace.center()), QColor(Qt::red));
}

void TestCanvasViewPainting::zChangeIsSeen()
{
    Q3Canvas canvas(400, 300);
    auto* first = new Block(kPlace, Qt::red, &canvas);
    new Block(kPlace, Qt::blue, &canvas);
    WatchedView view(&canvas);
    showAt(view, QSize(400, 300));
    QCOMPARE(shown(view).pixelColor(kPlace.center()), QColor(Qt::blue));
    first->setZ(1.0);
    canvas.update();
    QCOMPARE(shown(view).pixelColor(kPlace.center()), QColor(Qt::red));
}

void TestCanvasViewPainting::invalidatedItemIsRepaintedBeforeItsUpdate()
{
    Q3Canvas canvas(400, 300);
    auto* item = new Block(kPlace, Qt::red, &canvas);
    WatchedView view(&canvas);
    showAt(view, QSize(400, 300));
    item->invalidate();
    item->theColor = Qt::blue;
    canvas.update();
    QCOMPARE(shown(view).pixelColor(kPlace.center()), QColor(Qt::blue));
}

void TestCanvasViewPainting::nothingIsRepaintedWithoutCanvasUpdate()
{
    Q3Canvas canvas(400, 300);
    auto* item = new Block(kPlace, Qt::red, &canvas);
    WatchedView view(&canvas);
    showAt(view, QSize(400, 300));
    const int before = view.thePaintEvents;
    item->place(kPlace.translated(100, 0));
    QCoreApplication::processEvents();
    QCOMPARE(view.thePaintEvents, before);
    canvas.update();
    QCoreApplication::processEvents();
    QCOMPARE(view.thePaintEvents, before + 1);
    canvas.update();
    QCoreApplication::processEvents();
    QCOMPARE(view.thePaintEvents, before + 1);
}

void TestCanvasViewPainting::manyUpdatesBecomeOnePaint()
{
    Q3Canvas canvas(400, 300);
    auto* item = new Block(kPlace, Qt::red, &canvas);
    WatchedView view(&canvas);
    showAt(view, QSize(400, 300));
    const int before = view.thePaintEvents;
    const int drawnBefore = item->theDrawn;
    view.takePainted();
    for (int step = 0; step < 3000; ++step) {
        item->place(QRect(step % 370, step * 7 % 270, 30, 30));
        canvas.update();
    }
    QCoreApplication::processEvents();
    QCOMPARE(view.takePainted(), QRegion(view.viewport()->rect()));
    QCOMPARE(shown(view), repainted(view));
    QCOMPARE(item->theDrawn, drawnBefore + 2); // on the screen, and for the comparison
    QCOMPARE(view.thePaintEvents, before + 2);
    view.takePainted();
    item->place(kPlace);
    canvas.update();
    QCoreApplication::processEvents();
    const QRegion painted = view.takePainted();
    QVERIFY(painted.contains(kPlace.center()));
    QVERIFY(!painted.contains(kPlace.center() + QPoint(0, 50)));
}

void TestCanvasViewPainting::manyChangesEqualAFullRepaint()
{
    const auto seed = std::random_device()();
    qInfo("seed %u", seed);
    std::mt19937 random(seed);
    PictureCanvas canvas(400, 300);
    QList<Block*> items;
    for (int i = 0; i < 400; ++i)
        items << new Block(QRect(int(random() % 390), int(random() % 290), 9, 9),
                           QColor::fromHsv(i % 360, 255, 255), &canvas);
    WatchedView view(&canvas);
    showAt(view, QSize(350, 250));
    view.zoomAbout(1.3, QPointF(100.0, 100.0));
    for (const int moved : {1, 3, 60, 300}) {
        for (int i = 0; i < moved; ++i) {
            Block* item = items.at(qsizetype(random() % 400));
            item->place(QRect(int(random() % 390), int(random() % 290), 9, 9));
        }
        canvas.update();
        QCOMPARE(shown(view), repainted(view));
    }
}

void TestCanvasViewPainting::penIsRepaintedWholeAtEveryZoom_data()
{
    QTest::addColumn<double>("zoom");
    for (const double zoom : {0.1, 0.37, 1.0, 2.5, 16.0})
        QTest::addRow("%g", zoom) << zoom;
}

void TestCanvasViewPainting::penIsRepaintedWholeAtEveryZoom()
{
    QFETCH(const double, zoom);
    // An item whose area is the bare line and whose pen has two screen pixels, as the measuring items have.
    struct Stroke : public Block
    {
        using Block::Block;
        double theWidth = 2.0;
        void drawShape(QPainter& aPainter) override
        {
            aPainter.setPen(QPen(QBrush(Qt::red), theWidth, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
            aPainter.drawLine(theRect.topLeft(), theRect.bottomRight());
        }
    };
    Q3Canvas canvas(int(400 / zoom), int(300 / zoom));
    const auto scaled = [zoom](int aX, int aY, int aWidth, int aHeight) {
        return QRect(int(aX / zoom), int(aY / zoom), int(aWidth / zoom) + 1, int(aHeight / zoom) + 1);
    };
    auto* stroke = new Stroke(scaled(50, 50, 100, 60), Qt::red, &canvas);
    stroke->theWidth = 2.0 / zoom;
    stroke->update();
    WatchedView view(&canvas);
    showAt(view, QSize(400, 300));
    QVERIFY(view.setWorldMatrix(QTransform::fromScale(zoom, zoom)));
    QCOMPARE(shown(view), repainted(view));
    const QList<QRect> places{scaled(90, 51, 100, 60), scaled(200, 150, 3, 90), scaled(20, 150, 120, 0)};
    for (const QRect& place : places) {
        stroke->place(place);
        canvas.update();
        QCOMPARE(shown(view), repainted(view));
    }
}

void TestCanvasViewPainting::painterMapsCanvasToLogicalPixels_data()
{
    QTest::addColumn<double>("ratio");
    for (const double ratio : {1.0, 2.0, 3.0})
        QTest::addRow("%g", ratio) << ratio;
}

void TestCanvasViewPainting::painterMapsCanvasToLogicalPixels()
{
    QFETCH(const double, ratio);
    Q3Canvas canvas(800, 600);
    auto* mark = new IdentityMark(QRect(100, 90, 20, 20), Qt::red, &canvas);
    WatchedView view(&canvas);
    showAt(view, QSize(300, 200));
    QVERIFY(view.setWorldMatrix(QTransform::fromScale(1.5, 1.5)));
    view.scrollBy(QPoint(31, 17));
    const QSize size = view.viewport()->size();
    QImage picture(size * ratio, QImage::Format_RGB32);
    picture.setDevicePixelRatio(ratio);
    view.viewport()->render(&picture);
    QCOMPARE(mark->theMatrix, view.canvasToViewport());
    const QRect expected(QPoint(150 - 31, 135 - 17) * ratio, QSize(10, 10) * ratio);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            QCOMPARE(picture.pixelColor(x, y), QColor(expected.contains(x, y) ? Qt::red : Qt::white));
}

void TestCanvasViewPainting::surroundingsHaveANeutralColour()
{
    Q3Canvas canvas(100, 50);
    canvas.setBackgroundColor(Qt::yellow);
    WatchedView view(&canvas);
    showAt(view, QSize(300, 200));
    const QColor neutral = view.palette().color(QPalette::Dark);
    const QImage picture = shown(view);
    const QRect middle(100, 75, 100, 50);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            QCOMPARE(picture.pixel(x, y), (middle.contains(x, y) ? QColor(Qt::yellow) : neutral).rgb());
}

void TestCanvasViewPainting::itemAtTheEndsOfTheNumbersIsPainted()
{
    Q3Canvas canvas(800, 600);
    auto* item = new Block(QRect(0, 0, 10, 10), Qt::red, &canvas);
    WatchedView view(&canvas);
    showAt(view, QSize(300, 200));
    item->invalidate();
    item->theRect = QRect(QPoint(INT_MIN / 2 + 1, 50), QPoint(INT_MAX / 2 - 1, 60));
    item->update();
    canvas.update();
    QCOMPARE(shown(view).pixelColor(100, 55), QColor(Qt::red));
    view.zoomAbout(1e6, QPointF(10.0, 10.0));
    view.zoomAbout(1e-6, QPointF(10.0, 10.0));
    canvas.update();
    QCOMPARE(shown(view), repainted(view));
    QVERIFY(view.visibleCanvasRect().contains(canvas.rect().center()));
}

MEASURE_TEST_MAIN(TestCanvasViewPainting)
#include "TestCanvasViewPainting.moc"
