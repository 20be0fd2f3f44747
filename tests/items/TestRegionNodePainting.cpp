#include "ItemPicture.h"
#include "RegionFixture.h"

namespace {

/// The smallest rectangle around all pixels that were drawn.
QRect drawnRect(const QImage& aPicture, const QRect& aWithin)
{
    QRect drawn;
    for (int y = aWithin.top(); y <= aWithin.bottom(); ++y)
        for (int x = aWithin.left(); x <= aWithin.right(); ++x)
            if (aPicture.pixelColor(x, y) != kBack)
                drawn |= QRect(x, y, 1, 1);
    return drawn;
}

QRect around(const QPoint& aPoint, int aReach)
{
    return QRect(aPoint - QPoint(aReach, aReach), aPoint + QPoint(aReach, aReach));
}

/// One active node with its handles 40 pixels to the left and 30 down.
struct BlueNode : RegionFixture
{
    explicit BlueNode(bool aSelected)
    {
        theItem->setColor(kBlue);
        add(QPoint(100, 100), QPoint(-40, 0), QPoint(0, 30));
        theItem->setNodeSelected(0, aSelected);
        theItem->setActive(true);
    }
};

} // namespace

class TestRegionNodePainting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nodesAreDrawnOfAnActiveRegionOnly();
    void hiddenNodesAreNotDrawn();
    void plainAnchorIsWhite();
    void selectedNodeIsFilledAndShowsItsHandles();
    void nodesKeepTheirSizeOnTheScreen_data();
    void nodesKeepTheirSizeOnTheScreen();
    void nodesLieOnTheOutlineAtEveryZoom();
};

void TestRegionNodePainting::nodesAreDrawnOfAnActiveRegionOnly()
{
    const QRect all(0, 0, 400, 400);
    BlueNode f(true);
    QVERIFY(!drawnRect(painted(*f.theItem, QTransform()), all).isEmpty());
    f.theItem->setActive(false);
    QVERIFY(drawnRect(painted(*f.theItem, QTransform()), all).isEmpty());
    f.theItem->setSelected(true);
    QVERIFY(drawnRect(painted(*f.theItem, QTransform()), all).isEmpty());
}

void TestRegionNodePainting::hiddenNodesAreNotDrawn()
{
    BlueNode f(true);
    f.theItem->theShowNodes = false;
    QVERIFY(drawnRect(painted(*f.theItem, QTransform()), QRect(0, 0, 400, 400)).isEmpty());
}

void TestRegionNodePainting::plainAnchorIsWhite()
{
    BlueNode f(false);
    const QImage picture = painted(*f.theItem, QTransform());
    QCOMPARE(picture.pixelColor(100, 100), kWhite);
    QCOMPARE(picture.pixelColor(97, 100), kBlue); // its outline
    // No handles: the circle is all there is.
    QCOMPARE(drawnRect(picture, QRect(0, 0, 400, 400)), QRect(97, 97, 7, 7));
    QCOMPARE(picture.pixelColor(97, 97), kBack); // and it is round
}

void TestRegionNodePainting::selectedNodeIsFilledAndShowsItsHandles()
{
    BlueNode f(true);
    const QImage picture = painted(*f.theItem, QTransform());
    QCOMPARE(picture.pixelColor(100, 100), kBlue);
    for (const QPoint& handle : {QPoint(60, 100), QPoint(100, 130)}) {
        for (int dx = -3; dx <= 3; ++dx)
            for (int dy = -3; dy <= 3; ++dy)
                QCOMPARE(picture.pixelColor(handle + QPoint(dx, dy)), kBlue);
    }
    for (int x = 64; x < 97; ++x)
        QCOMPARE(picture.pixelColor(x, 100), kBlue);
    for (int y = 104; y < 127; ++y)
        QCOMPARE(picture.pixelColor(100, y), kBlue);
    QCOMPARE(drawnRect(picture, QRect(0, 0, 400, 400)), QRect(QPoint(57, 97), QPoint(103, 133)));
    QCOMPARE(drawnRect(picture, QRect(66, 90, 25, 20)).height(), 1);
}

void TestRegionNodePainting::nodesKeepTheirSizeOnTheScreen_data()
{
    QTest::addColumn<double>("zoom");
    QTest::addColumn<QPoint>("scrolled");
    QTest::addColumn<int>("ratio");
    for (const double zoom : {0.2, 0.5, 1.0, 1.7, 4.0})
        for (const int ratio : {1, 2}) {
            const QByteArray name = QByteArray::number(zoom) + ", ratio " + QByteArray::number(ratio);
            QTest::newRow(name.constData()) << zoom << QPoint(-31, 17) << ratio;
        }
}

void TestRegionNodePainting::nodesKeepTheirSizeOnTheScreen()
{
    QFETCH(double, zoom);
    QFETCH(QPoint, scrolled);
    QFETCH(int, ratio);
    RegionFixture f;
    f.theItem->setColor(kBlue);
    const QPoint anchor(qRound(200 / zoom), qRound(150 / zoom));
    f.add(anchor, QPoint(-qRound(60 / zoom), 0), QPoint(0, qRound(60 / zoom)));
    f.theItem->setNodeSelected(0, true);
    f.theItem->setActive(true);
    const QTransform view =
        QTransform::fromScale(zoom, zoom) * QTransform::fromTranslate(scrolled.x(), scrolled.y());
    f.theItem->adjustScale(view);
    const QImage picture = painted(*f.theItem, view, ratio);
    for (const QPoint& handle : {f.left(0), f.right(0)}) {
        const QPointF exact = view.map(QPointF(handle));
        const QPoint centre(qRound(exact.x()), qRound(exact.y()));
        const QRect box((centre - QPoint(3, 3)) * ratio, QSize(6, 6) * ratio);
        // The frame adds one pixel of the device to the right and to the bottom.
        const QRect seen = drawnRect(picture, around(box.center(), 12 * ratio)) &
                           around(box.center(), 5 * ratio); // without the line to the anchor
        QVERIFY(seen.contains(box));
        const int across = handle == f.left(0) ? seen.height() : seen.width();
        QCOMPARE(across, 6 * ratio + 1);
    }
}

void TestRegionNodePainting::nodesLieOnTheOutlineAtEveryZoom()
{
    for (const double zoom : {0.3, 1.0, 3.7}) {
        RegionFixture f;
        f.theItem->setColor(kBlue);
        for (const QPoint& screen : {QPoint(50, 80), QPoint(300, 90), QPoint(210, 350)})
            f.add(screen / zoom);
        f.theItem->setActive(true);
        const QTransform view = QTransform::fromScale(zoom, zoom) * QTransform::fromTranslate(-13, 11);
        f.theItem->adjustScale(view);
        const QImage picture = painted(*f.theItem, view);
        for (int i = 0; i < 3; ++i)
            QCOMPARE(picture.pixelColor(view.map(QPointF(f.anchor(i))).toPoint()), kWhite);
    }
}

MEASURE_TEST_MAIN(TestRegionNodePainting)
#include "TestRegionNodePainting.moc"
