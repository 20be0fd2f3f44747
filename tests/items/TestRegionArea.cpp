#include "../qt3/WatchedView.h"
#include "RegionFixture.h"

class TestRegionArea : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void areaHoldsPointsAndLabel();
    void areaFollowsTheHandlesSizeBelowZoomOne_data();
    void areaFollowsTheHandlesSizeBelowZoomOne();
    void areaNeverLeavesTheCanvas_data();
    void areaNeverLeavesTheCanvas();
    void emptyRegionHasTheCanvasCorner();
    void areaWithoutLabelBeginsAtTheCanvasCorner();
    void repaintedAreaHoldsWhatLiesBesideTheCanvas();
    void farRegionsHaveAnArea();
    void noEditLeavesAGhost_data();
    void noEditLeavesAGhost();

private:
    static constexpr quint32 kSeed = 20240615;
};

namespace {

QPolygon corners(int aLeft, int aTop, int aRight, int aBottom)
{
    return QPolygon(
        {QPoint(aLeft, aTop), QPoint(aRight, aTop), QPoint(aRight, aBottom), QPoint(aLeft, aBottom)});
}

} // namespace

void TestRegionArea::areaHoldsPointsAndLabel()
{
    RegionFixture f;
    f.add(QPoint(300, 400), QPoint(-50, 10), QPoint(20, 70));
    f.theItem->theLabelRect = QRect(QPoint(290, 380), QPoint(310, 395)); // within the points' reach
    QCOMPARE(QPolygon(f.theItem->areaPoints()), corners(244, 380, 326, 476));
    f.theItem->theLabelRect = QRect(QPoint(100, 200), QPoint(700, 210));
    QCOMPARE(QPolygon(f.theItem->areaPoints()), corners(100, 200, 700, 476));
    f.theItem->theLabelRect = QRect(QPoint(290, 600), QPoint(310, 620));
    QCOMPARE(QPolygon(f.theItem->areaPoints()), corners(244, 394, 326, 620));
}

void TestRegionArea::areaFollowsTheHandlesSizeBelowZoomOne_data()
{
    QTest::addColumn<double>("zoom");
    QTest::addColumn<int>("margin");
    QTest::newRow("four") << 4.0 << 6;
    QTest::newRow("plain") << 1.0 << 6;
    QTest::newRow("0.7") << 0.7 << 8; // 8.57
    QTest::newRow("half") << 0.5 << 12;
    QTest::newRow("fifth") << 0.2 << 30;
}

void TestRegionArea::areaFollowsTheHandlesSizeBelowZoomOne()
{
    QFETCH(double, zoom);
    QFETCH(int, margin);
    RegionFixture f;
    f.add(QPoint(300, 400));
    f.theItem->adjustScale(QTransform::fromScale(zoom, zoom));
    f.theItem->theLabelRect = QRect(300, 400, 1, 1);
    QCOMPARE(QPolygon(f.theItem->areaPoints()),
             corners(300 - margin, 400 - margin, 300 + margin, 400 + margin));
}

void TestRegionArea::areaNeverLeavesTheCanvas_data()
{
    QTest::addColumn<QPoint>("anchor");
    QTest::addColumn<QPolygon>("area");
    QTest::newRow("right border") << QPoint(999, 400) << corners(993, 394, 999, 406);
    QTest::newRow("just inside") << QPoint(993, 400) << corners(987, 394, 999, 406);
    QTest::newRow("farther inside") << QPoint(992, 400) << corners(986, 394, 998, 406);
    QTest::newRow("bottom border") << QPoint(500, 799) << corners(494, 793, 506, 799);
    QTest::newRow("corner") << QPoint(0, 0) << corners(0, 0, 6, 6);
    QTest::newRow("beyond right") << QPoint(1200, 400) << corners(400, 394, 999, 406);
    QTest::newRow("beyond top") << QPoint(400, -300) << corners(394, 0, 406, 400);
}

void TestRegionArea::areaNeverLeavesTheCanvas()
{
    QFETCH(QPoint, anchor);
    QFETCH(QPolygon, area);
    RegionFixture f;
    f.add(anchor);
    const QPoint inside(std::min(anchor.x(), 400), anchor.y() < 0 ? 400 : anchor.y());
    f.theItem->theLabelRect = QRect(f.theCanvas.rect().contains(anchor) ? anchor : inside, QSize(1, 1));
    QCOMPARE(QPolygon(f.theItem->areaPoints()), area);
    f.theItem->updateLabel();
    QVERIFY(f.theCanvas.rect().adjusted(0, 0, 1, 1).contains(f.theItem->areaPoints().boundingRect()));
}

void TestRegionArea::emptyRegionHasTheCanvasCorner()
{
    RegionFixture f;
    QCOMPARE(QPolygon(f.theItem->areaPoints()), corners(0, 0, 0, 0));
}

void TestRegionArea::areaWithoutLabelBeginsAtTheCanvasCorner()
{
    RegionFixture f;
    f.add(QPoint(300, 400));
    QCOMPARE(QPolygon(f.theItem->areaPoints()), corners(0, 0, 306, 406));
}

void TestRegionArea::repaintedAreaHoldsWhatLiesBesideTheCanvas()
{
    RegionFixture f;
    f.add(QPoint(-200, 400));
    f.add(QPoint(300, 1000));
    f.theItem->updateLabel();
    const QRect area = f.theItem->boundingRect();
    QVERIFY(area.contains(QRect(QPoint(-206, 394), QPoint(306, 1006))));
    QVERIFY(area.contains(f.theItem->theLabelRect));
    QVERIFY(f.theCanvas.collisions(QPoint(-200, 400)).contains(f.theItem));
    RegionFixture inside;
    inside.add(QPoint(300, 400), QPoint(-50, 10), QPoint(20, 70));
    inside.theItem->updateLabel();
    QCOMPARE(inside.theItem->boundingRect(),
             QRect(inside.theItem->areaPoints().at(0), inside.theItem->areaPoints().at(2)));
}

void TestRegionArea::farRegionsHaveAnArea()
{
    for (const QPoint& far : {QPoint(kMax, kMax), QPoint(kMin, kMin), QPoint(kMin, kMax), QPoint(kMax, 0)}) {
        RegionFixture f;
        LmBezierPoint node(true, false, LmBezierPoint::kSynchroNone);
        node.fill(far);
        f.theItem->addNode(node, -1, LmNodeState());
        f.theItem->addNode(node, -1, LmNodeState());
        f.theItem->updateLabel();
        f.theItem->adjustScale(QTransform::fromScale(0.01, 0.01));
        for (const QPoint& corner : f.theItem->areaPoints())
            QVERIFY(corner.x() >= 0 && corner.x() <= 1000 && corner.y() >= 0 && corner.y() <= 800);
        QVERIFY(f.theItem->boundingRect().isValid());
        QVERIFY(f.theItem->theLabelRect.isValid());
    }
}

void TestRegionArea::noEditLeavesAGhost_data()
{
    QTest::addColumn<double>("zoom");
    for (const double zoom : {0.2, 0.7, 1.0, 4.0})
        QTest::newRow(QByteArray::number(zoom).constData()) << zoom;
}

// After each edit the screen, of which only the marked parts were painted, equals a whole repaint; points
// also lie beside the canvas.
void TestRegionArea::noEditLeavesAGhost()
{
    QFETCH(double, zoom);
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    RegionFixture f;
    f.theCanvas.resize(600, 500);
    WatchedView view(&f.theCanvas);
    view.setWorldMatrix(QTransform::fromScale(zoom, zoom));
    showAt(view, QSize(420, 360));
    f.theItem->adjustScale(view.worldMatrix());
    f.theItem->setColor(Qt::red);
    f.theItem->setActive(true);
    // A third of the view each way; at zoom 0.2 the canvas ends inside it.
    const auto seenPoint = [&] {
        return view.toCanvas(QPoint(random.bounded(150, 290), random.bounded(100, 220)));
    };
    int partial = 0;
    for (int i = 0; i < 60; ++i) {
        view.takePainted();
        const int nodes = f.theItem->nodeCount();
        const auto node = unsigned(random.bounded(nodes + 1));
        switch (i < 4 ? 0 : random.bounded(16)) {
        case 0: {
            QPoint point = seenPoint();
            f.theItem->enterDrawMode(point, random.bounded(2) == 0);
            break;
        }
        case 1:
            f.theItem->setNodeLeftCtrl(node, seenPoint(), false);
            break;
        case 2: {
            const QPoint from = f.anchor(random.bounded(nodes));
            f.press(from);
            f.move(seenPoint());
            f.release(from);
            break;
        }
        case 3:
            f.theItem->setNodeSelected(node, random.bounded(2) == 0);
            break;
        case 4:
            f.theItem->moveObjectBy(randomPoint(random, 5));
            break;
        case 5:
            f.theItem->setClosed(random.bounded(2) == 0);
            f.theItem->setSelected(random.bounded(2) == 0);
            break;
        case 6:
            f.theItem->setDisplayValue(QString::number(random.bounded(100000)));
            break;
        case 7:
            if (nodes > 3)
                f.theItem->removeNode(node);
            break;
        case 8:
            f.theItem->setNode(node, LmBezierPoint(Q3PointArray(
                                         QPolygon(QList<QPoint>{seenPoint(), seenPoint(), seenPoint()}))));
            break;
        case 9:
            f.theItem->setNodeRightCtrl(node, seenPoint(), false);
            break;
        case 10:
            f.theItem->makePolygon();
            break;
        case 11:
            f.theItem->selectNodes(seenPoint(), QSize(60, -60));
            break;
        case 12:
            f.theItem->setPoints(randomPoint(random, 5), f.theItem->thePoints, f.theItem->theNodeStates);
            break;
        case 13:
            f.theItem->setNodesShown(random.bounded(2) == 0);
            break;
        case 14:
            if (nodes > 4)
                f.theItem->replaceNodes(Q3PointArray(QPolygon(f.theItem->thePoints.mid(3))),
                                        f.theItem->theNodeStates.mid(1));
            break;
        default:
            if (nodes > 4 && f.theItem->getSelectedNodes().size() < nodes - 2)
                f.theItem->removeSelectedNodes();
        }
        f.theCanvas.update();
        const QImage screen = shown(view);
        const QRegion painted = view.takePainted();
        partial += !painted.isEmpty() && painted.boundingRect() != view.viewport()->rect();
        QCOMPARE(screen, repainted(view));
    }
    QVERIFY2(partial > 40, qPrintable(QString::number(partial)));
}

MEASURE_TEST_MAIN(TestRegionArea)
#include "TestRegionArea.moc"
