#include "ItemPicture.h"
#include "RegionFixture.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace {

/// A square outline, 100 to 300, with the label above (100, 100).
struct BlueSquare : RegionFixture
{
    BlueSquare()
    {
        theItem->setColor(kBlue);
        for (const QPoint& corner : {QPoint(100, 100), QPoint(300, 100), QPoint(300, 300), QPoint(100, 300)})
            add(corner);
        theItem->updateLabel();
    }
};

} // namespace

class TestRegionPainting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void plainOutlineIsThin();
    void selectedAndActiveOutlinesAreThick();
    void closingSegmentIsDrawnOfAClosedOutline();
    void segmentsMeetWithCapsOfTheirOwn();
    void curveLiesWhereItIsHit();
    void insideStaysUnfilled();
    void outlineKeepsTwoScreenPixelsAtEveryZoom();
    void labelStandsAboveTheFirstNode();
    void labelHasTheColourOfThePenAndItsTextPen();
    void labelNeedsTwoNodes();
    void labelKeepsItsSizeOnTheScreenBelowZoomOne();
    void painterIsLeftAsItWas();
    void extremeRegionsHarmNoPainter();
};

void TestRegionPainting::plainOutlineIsThin()
{
    BlueSquare f;
    const QImage picture = painted(*f.theItem);
    QCOMPARE(drawnIn(picture, QRect(200, 90, 1, 20)), 1);
    QCOMPARE(picture.pixelColor(200, 100), kBlue);
    QCOMPARE(picture.pixelColor(300, 200), kBlue);
    QCOMPARE(picture.pixelColor(200, 300), kBlue);
    QCOMPARE(drawnIn(picture, QRect(90, 120, 20, 160)), 0); // open on the left
}

void TestRegionPainting::selectedAndActiveOutlinesAreThick()
{
    for (const bool active : {false, true}) {
        BlueSquare f;
        f.theItem->setActive(active);
        f.theItem->setSelected(!active);
        const QImage picture = painted(*f.theItem);
        QCOMPARE(drawnIn(picture, QRect(200, 90, 1, 20)), 2);
        QCOMPARE(drawnIn(picture, QRect(290, 200, 20, 1)), 2);
    }
}

void TestRegionPainting::closingSegmentIsDrawnOfAClosedOutline()
{
    BlueSquare f;
    f.theItem->setClosed(true);
    const QImage picture = painted(*f.theItem);
    QCOMPARE(drawnIn(picture, QRect(90, 200, 20, 1)), 1);
    QCOMPARE(picture.pixelColor(100, 200), kBlue);
}

void TestRegionPainting::segmentsMeetWithCapsOfTheirOwn()
{
    RegionFixture f;
    f.theItem->setColor(kBlue);
    f.theItem->setSelected(true); // two pixels wide
    const QPoint corners[] = {{50, 300}, {150, 120}, {250, 300}};
    for (const QPoint& corner : corners)
        f.add(corner);
    QImage expected(400, 400, QImage::Format_RGB32);
    expected.fill(kBack);
    QPainter painter(&expected);
    painter.setPen(f.theItem->thePen);
    for (int i = 0; i < 2; ++i) {
        QPainterPath segment(corners[i]);
        segment.cubicTo(corners[i], corners[i + 1], corners[i + 1]);
        painter.drawPath(segment);
    }
    painter.end();
    const QRect aroundTheTip(130, 100, 40, 60);
    QCOMPARE(painted(*f.theItem).copy(aroundTheTip), expected.copy(aroundTheTip));
}

void TestRegionPainting::curveLiesWhereItIsHit()
{
    RegionFixture f;
    f.theItem->setColor(kBlue);
    f.add(QPoint(100, 200), QPoint(-30, 10), QPoint(30, -120));
    f.add(QPoint(250, 220), QPoint(-20, 90), QPoint(60, -200));
    f.theItem->setClosed(true);
    const QImage picture = painted(*f.theItem);
    int hits = 0;
    for (int y = 0; y < 400; ++y)
        for (int x = 0; x < 400; ++x) {
            if (f.theItem->theLabelRect.contains(x, y) || picture.pixelColor(x, y) != kBlue)
                continue;
            QRect around(x - 2, y - 2, 5, 5);
            QVERIFY(f.theItem->isSegmentContainsRect(0, around) ||
                    f.theItem->isSegmentContainsRect(LmCvRegion::kClosingSegment, around));
            ++hits;
        }
    QVERIFY(hits > 300);
}

void TestRegionPainting::insideStaysUnfilled()
{
    for (const bool active : {false, true}) {
        BlueSquare f;
        f.theItem->setClosed(true);
        f.theItem->setActive(active);
        QCOMPARE(drawnIn(painted(*f.theItem), QRect(110, 110, 180, 180)), 0);
    }
}

void TestRegionPainting::outlineKeepsTwoScreenPixelsAtEveryZoom()
{
    for (const double zoom : {0.2, 0.5, 1.0, 1.2}) {
        BlueSquare f;
        f.theItem->setSelected(true);
        const QTransform view = QTransform::fromScale(zoom, zoom);
        f.theItem->adjustScale(view);
        QCOMPARE(f.theItem->thePen.widthF(), 2.0 / zoom);
        const QRect across(int(280 * zoom), int(200 * zoom), int(40 * zoom), 1);
        QCOMPARE(drawnIn(painted(*f.theItem, view), across), 2);
    }
}

void TestRegionPainting::labelStandsAboveTheFirstNode()
{
    BlueSquare f;
    const QRect box = f.theItem->theLabelRect;
    QCOMPARE(box.center(), QPoint(100, 85));
    const QRect text = QFontMetrics(f.theItem->theFont).boundingRect(QStringLiteral(" 7 "));
    QCOMPARE(box.size(), text.size() + QSize(2, 0));
    f.theItem->setDisplayValue(QStringLiteral("1.5"));
    QCOMPARE(f.theItem->theLabelRect.width(),
             QFontMetrics(f.theItem->theFont).boundingRect(QStringLiteral(" 7 <1.5> ")).width() + 2);
    QCOMPARE(f.theItem->theLabelRect.center(), QPoint(100, 85));
}

void TestRegionPainting::labelHasTheColourOfThePenAndItsTextPen()
{
    BlueSquare f;
    f.theItem->setDisplayValue(QStringLiteral("888.88"));
    const QRect box = f.theItem->theLabelRect;
    QImage picture = painted(*f.theItem);
    QCOMPARE(picture.pixelColor(box.topLeft() + QPoint(1, 1)), kBlue);
    QCOMPARE(picture.pixelColor(box.bottomRight() - QPoint(1, 1)), kBlue);
    QVERIFY(countOf(kWhite, picture, box) > 10);
    QCOMPARE(drawnIn(picture, QRect(box.left(), box.top() - 6, box.width(), 5)), 0);
    f.theItem->theTextPen = QPen(Qt::green);
    f.theItem->theThinPen.setColor(Qt::red); // the outline of the box; its filling follows the thick pen
    picture = painted(*f.theItem);
    QCOMPARE(countOf(kWhite, picture, box), 0);
    QVERIFY(countOf(QColor(Qt::green), picture, box) > 10);
    QCOMPARE(picture.pixelColor(box.topLeft()), QColor(Qt::red));
    QCOMPARE(picture.pixelColor(box.topLeft() + QPoint(1, 1)), kBlue);
}

void TestRegionPainting::labelNeedsTwoNodes()
{
    RegionFixture f;
    f.theItem->setColor(kBlue);
    QPoint first(100, 100);
    f.theItem->enterDrawMode(first, true);
    QCOMPARE(f.theItem->theLabelRect.center(), QPoint(100, 85));
    QCOMPARE(drawnIn(painted(*f.theItem), QRect(0, 0, 400, 400)), 0);
    QPoint second(300, 100);
    f.theItem->enterDrawMode(second, true);
    QVERIFY(countOf(kBlue, painted(*f.theItem), f.theItem->theLabelRect) > 50);
}

void TestRegionPainting::labelKeepsItsSizeOnTheScreenBelowZoomOne()
{
    BlueSquare f;
    const int plain = f.theItem->theLabelRect.width();
    for (const double zoom : {0.5, 1.0, 4.0}) {
        f.theItem->adjustScale(QTransform::fromScale(zoom, zoom));
        QCOMPARE(f.theItem->theFont.pointSizeF(), 10.0 / std::min(zoom, 1.0));
        QCOMPARE(f.theItem->theFontSize, 10);
        // The two pixels of margin are canvas pixels.
        const double onScreen = f.theItem->theLabelRect.width() * std::min(zoom, 1.0);
        QVERIFY(std::abs(onScreen - plain) <= 3.0);
    }
}

void TestRegionPainting::painterIsLeftAsItWas()
{
    BlueSquare f;
    f.theItem->selectNodes(QPoint(0, 0), QSize(200, 200));
    QImage picture(400, 400, QImage::Format_RGB32);
    QPainter painter(&picture);
    painter.setPen(QPen(Qt::yellow, 3));
    painter.setBrush(Qt::cyan);
    painter.setWorldTransform(QTransform(1.5, 0, 0, 1.5, 7, -3));
    const QPen pen = painter.pen();
    const QFont font = painter.font();
    for (const bool active : {false, true}) {
        f.theItem->setActive(active);
        f.theItem->drawShape(painter);
        QCOMPARE(painter.pen(), pen);
        QCOMPARE(painter.brush(), QBrush(Qt::cyan));
        QCOMPARE(painter.font(), font);
        QCOMPARE(painter.worldTransform(), QTransform(1.5, 0, 0, 1.5, 7, -3));
    }
}

void TestRegionPainting::extremeRegionsHarmNoPainter()
{
    const QPoint corners[] = {{kMin, kMin}, {kMax, kMax}, {kMin, kMax}, {0, 0}, {kMax, 0}};
    RegionFixture f;
    f.theItem->setActive(true);
    f.theItem->setClosed(true);
    for (const QPoint& a : corners)
        for (const QPoint& b : corners)
            for (const double zoom : {0.01, 1.0, 16.0}) {
                const QTransform view = QTransform::fromScale(zoom, zoom);
                f.theItem->replaceNodes(Q3PointArray(QPolygon({a, b, a, b, a, b, a, a, a})), {});
                for (LmNodeState& state : f.theItem->theNodeStates)
                    state.selected = true;
                f.theItem->adjustScale(view);
                QCOMPARE(painted(*f.theItem, view).size(), QSize(400, 400));
            }
    // What comes next is drawn as ever.
    BlueSquare square;
    QCOMPARE(painted(*square.theItem).pixelColor(200, 100), kBlue);
}

MEASURE_TEST_MAIN(TestRegionPainting)
#include "TestRegionPainting.moc"
