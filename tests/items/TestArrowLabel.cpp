#include "LmCvArrow.h"
#include "Q3Canvas.h"
#include "Q3CanvasView.h"
#include "TestFont.h"

#include <QFontMetrics>
#include <QRandomGenerator>

#include <cmath>

namespace {

constexpr quint32 kSeed = 1105;

} // namespace

/// The label of a mark: its size, its font and the zoom.
class TestArrowLabel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theItem = new LmCvArrow(nullptr, &theCanvas, QStringLiteral("Counter"), &theView); }
    void cleanup() { delete theItem; }

    void labelKeepsItsLowerLeftCornerAsItsTextGrows();
    void labelIsMeasuredAsFontMetricsDo();
    void sameTextTwiceIsNoChange();
    void emptyTextStillHasAWidthFromFourBlanks();
    void labelWithoutAViewKeepsItsRectangle();
    void headAndHitSquareGrowBelowZoomOne_data();
    void headAndHitSquareGrowBelowZoomOne();
    void zoomLeavesNoTrace();
    void fontIsTakenAtThePresentZoom();
    void fontWithoutAPointSizeIsUsable();

private:
    Q3Canvas theCanvas{1000, 1000};
    Q3CanvasView theView{&theCanvas};
    LmCvArrow* theItem = nullptr;
};

void TestArrowLabel::labelKeepsItsLowerLeftCornerAsItsTextGrows()
{
    theItem->setText(QStringLiteral("1 #1"));
    theItem->setStartPoint(QPoint(200, 300));
    const QRect before = theItem->theTextRect;
    QCOMPARE(before.bottom(), 300);
    QCOMPARE(before.left(), 200 - before.width() / 2);
    theItem->setText(QStringLiteral("1 #1000"));
    QCOMPARE(theItem->theTextRect.bottomLeft(), before.bottomLeft());
    QVERIFY(theItem->theTextRect.width() > before.width());
    QCOMPARE(QPointF(theItem->x(), theItem->y()), QPointF(200, 300));
    theItem->setText(QStringLiteral("1 #1\n1 #2"));
    QCOMPARE(theItem->theTextRect.bottomLeft(), before.bottomLeft());
    QVERIFY(theItem->theTextRect.top() < before.top());
}

void TestArrowLabel::labelIsMeasuredAsFontMetricsDo()
{
    QRandomGenerator random(kSeed);
    const QStringList families = {QStringLiteral("Lucida Grande"), QStringLiteral("MS Shell Dlg"),
                                  QStringLiteral("no such font at all")};
    for (int round = 0; round < 300; ++round) {
        const QPoint anchor(random.bounded(-3000, 3000), random.bounded(-3000, 3000));
        const int number = random.bounded(1, 20000);
        theItem->setFont(QFont(families[random.bounded(3)], random.bounded(6, 20)));
        theItem->theFont.setPointSizeF(random.bounded(50, 600) / 10.0);
        theItem->setStartPoint(anchor);
        const QString text = QString::number(random.bounded(1, 10)) + " #" + QString::number(number);
        const QRect expected = QFontMetrics(theItem->theFont).boundingRect(theItem->theTextRect, 65, text);
        theItem->setText(text);
        QVERIFY2(theItem->theTextRect == expected,
                 QByteArray::number(kSeed) + ", round " + QByteArray::number(round));
    }
}

void TestArrowLabel::sameTextTwiceIsNoChange()
{
    for (int tenths = 40; tenths < 600; tenths += 7) {
        theItem->theFont.setPointSizeF(tenths / 10.0);
        theItem->setText(QStringLiteral("3 #28"));
        const QRect once = theItem->theTextRect;
        const QRect twice = QFontMetrics(theItem->theFont).boundingRect(once, 65, theItem->theText);
        QCOMPARE(twice, once);
    }
}

void TestArrowLabel::emptyTextStillHasAWidthFromFourBlanks()
{
    for (const QString& text : {QString(), QStringLiteral("")}) {
        theItem->setText(QStringLiteral("2 #1"));
        theItem->setText(text);
        QCOMPARE(theItem->theText, QStringLiteral("    "));
        const QRect measured =
            QFontMetrics(theItem->theFont).boundingRect(QRect(), 65, QStringLiteral("    "));
        QVERIFY(measured.width() > 4);
        QCOMPARE(theItem->theTextRect.size(), measured.size());
    }
    theItem->setStartPoint(QPoint(100, 100));
    int node = 0;
    theItem->theParts = LmCvArrow::kText;
    QVERIFY(theItem->isPointOnObject(theItem->theTextRect.center(), node, 4));
}

void TestArrowLabel::labelWithoutAViewKeepsItsRectangle()
{
    LmCvArrow item(nullptr, &theCanvas, QString(), nullptr);
    item.setText(QStringLiteral("1 #1"));
    QCOMPARE(item.theText, QStringLiteral("1 #1"));
    QCOMPARE(item.theTextRect, QRect(QPoint(0, 0), QPoint(-1, -1)));
    item.adjustScale(QTransform::fromScale(0.5, 0.5));
    QCOMPARE(item.theTextRect, QRect(QPoint(0, 0), QPoint(-1, -1)));
    item.setText(QString());
    QCOMPARE(item.theText, QStringLiteral("    "));
}

void TestArrowLabel::headAndHitSquareGrowBelowZoomOne_data()
{
    QTest::addColumn<double>("zoom");
    QTest::addColumn<double>("head");
    QTest::addColumn<double>("points");
    QTest::addColumn<int>("square");
    QTest::addColumn<double>("pen");
    QTest::newRow("three") << 3.0 << 10.0 << 12.0 << 8 << 2.0 / 3.0;
    QTest::newRow("one") << 1.0 << 10.0 << 12.0 << 8 << 2.0;
    QTest::newRow("half") << 0.5 << 20.0 << 24.0 << 16 << 4.0;
    QTest::newRow("three tenths") << 0.3 << 10.0 / 0.3 << 40.0 << 26 << 2.0 / 0.3;
}

void TestArrowLabel::headAndHitSquareGrowBelowZoomOne()
{
    QFETCH(double, zoom);
    QFETCH(double, head);
    QFETCH(double, points);
    QFETCH(int, square);
    QFETCH(double, pen);
    QCOMPARE(LmCvObject::kDefaultFntSize, 10); // the figures below rest on these
    QCOMPARE(LmCvObject::kDefaultSelSize, 8);
    theItem->setText(QStringLiteral("1 #1"));
    theItem->setStartPoint(QPoint(200, 200));
    theItem->setEndPoint(QPoint(200, 400));
    const QPoint corner = theItem->theTextRect.bottomLeft();
    theItem->adjustScale(QTransform::fromScale(zoom, zoom));
    QCOMPARE(theItem->theHeadLength, head);
    QVERIFY(std::abs(theItem->theFont.pointSizeF() - points) < 0.01);
    QCOMPARE(theItem->theSelSize, square);
    QCOMPARE(theItem->thePen.widthF(), pen);
    QCOMPARE(theItem->theThinPen.widthF(), 0.0);
    QCOMPARE(theItem->thePointSize, 12);
    QCOMPARE(theItem->theTextRect.bottomLeft(), corner);
    // Straight down: the head's length times the sine and the cosine of 20 degrees.
    QCOMPARE(theItem->theBarb1, QPoint(int(-0.34202014 * head), int(0.93969262 * head)));
    QCOMPARE(theItem->theTextRect,
             QFontMetrics(theItem->theFont).boundingRect(theItem->theTextRect, 65, theItem->theText));
}

void TestArrowLabel::zoomLeavesNoTrace()
{
    theItem->setText(QStringLiteral("1 #1"));
    theItem->setStartPoint(QPoint(200, 200));
    theItem->setEndPoint(QPoint(250, 410));
    theItem->adjustScale(QTransform::fromScale(0.37, 0.37));
    const QRect label = theItem->theTextRect;
    const QPoint barb = theItem->theBarb1;
    const double points = theItem->theFont.pointSizeF();
    for (const double zoom : {0.02, 7.0, 0.9, 0.37})
        theItem->adjustScale(QTransform::fromScale(zoom, zoom));
    QCOMPARE(theItem->theTextRect, label);
    QCOMPARE(theItem->theBarb1, barb);
    QCOMPARE(theItem->theFont.pointSizeF(), points);
}

void TestArrowLabel::fontIsTakenAtThePresentZoom()
{
    theItem->setText(QStringLiteral("1 #1"));
    theItem->adjustScale(QTransform::fromScale(0.5, 0.5));
    theItem->setFont(QFont(QStringLiteral("MS Shell Dlg"), 10));
    QCOMPARE(theItem->theFont.family(), QStringLiteral("MS Shell Dlg"));
    QCOMPARE(theItem->thePointSize, 10);
    QCOMPARE(theItem->theFont.pointSizeF(), 20.0);
    QCOMPARE(theItem->theTextRect,
             QFontMetrics(theItem->theFont).boundingRect(theItem->theTextRect, 65, theItem->theText));
    theItem->adjustScale(QTransform());
    QCOMPARE(theItem->theFont.pointSizeF(), 10.0);
}

void TestArrowLabel::fontWithoutAPointSizeIsUsable()
{
    QFont inPixels(QStringLiteral("Lucida Grande"));
    inPixels.setPixelSize(40);
    theItem->setFont(inPixels);
    QVERIFY(theItem->thePointSize > 10);
    QVERIFY(theItem->theFont.pointSizeF() > 10.0);
    QFont tiny(QStringLiteral("Lucida Grande"));
    tiny.setPointSizeF(0.2);
    theItem->setFont(tiny);
    QCOMPARE(theItem->thePointSize, 1);
    theItem->adjustScale(QTransform::fromScale(0.5, 0.5));
    QCOMPARE(theItem->theFont.pointSizeF(), 2.0);
}

MEASURE_TEST_MAIN(TestArrowLabel)
#include "TestArrowLabel.moc"
