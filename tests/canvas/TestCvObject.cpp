#include "ProbeItem.h"
#include "Q3Canvas.h"
#include "TestFont.h"

#include <QPainter>

/// A canvas that shows the colour of a pixel as it would be painted now.
class PaintedCanvas : public Q3Canvas
{
public:
    PaintedCanvas() : Q3Canvas(200, 100) {}

    QColor colorAt(const QPoint& aPoint)
    {
        QImage image(200, 100, QImage::Format_RGB32);
        QPainter painter(&image);
        drawArea(QRect(0, 0, 200, 100), painter);
        painter.end();
        return image.pixelColor(aPoint);
    }
};

class TestCvObject : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void newItemHasTheSharedLook();
    void constantsAreUsable();
    void penFollowsZoom_data();
    void penFollowsZoom();
    void zoomThatIsNoneKeepsTheSizesOfZoomOne();
    void colorReachesBothLinePensAndNotTheText();
    void colorIsPaintedAnew();
    void penStyleReachesBothLinePens();
    void selectedOrActiveItemTakesTheWidePen();
    void activeAndSelectedAreApart();
    void lockedIsKept();
    void stepZeroStillStoresTheUnit();
    void stepDoesNotBuildTheLabelAgain();
    void displayValueBuildsTheLabelAgain();
    void emptyDisplayValueGivesNoBrackets();
    void penOfTheCanvasClassIsSetApart();
    void itemWithoutNodesHasNoneSelected();

private:
    PaintedCanvas theCanvas;
    ProbeItem* theItem = nullptr; // made anew for each test, owned by the canvas
};

void TestCvObject::init()
{
    delete theItem;
    theItem = new ProbeItem(nullptr, &theCanvas, QStringLiteral("7"), nullptr);
    theItem->place(QPoint(40, 40));
    theItem->show();
}

void TestCvObject::newItemHasTheSharedLook()
{
    QCOMPARE(theItem->thePen, QPen(QBrush(Qt::black), 2.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    QCOMPARE(theItem->theThinPen, QPen(QBrush(Qt::black), 0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    QCOMPARE(theItem->theTextPen.color(), QColor(Qt::white));
    QCOMPARE(theItem->thePenStyle, Qt::SolidLine);
    QCOMPARE(theItem->theLabel, QStringLiteral("7"));
    QCOMPARE(theItem->theStep, 0.0);
    QVERIFY(theItem->theUnit.isEmpty());
    QVERIFY(theItem->theDisplayValue.isEmpty());
    QVERIFY(theItem->theShowNodes);
    QVERIFY(!theItem->isActive());
    QVERIFY(!theItem->isLocked());
    QVERIFY(!theItem->theView);
    QVERIFY(!theItem->theManipulator);
}

void TestCvObject::constantsAreUsable()
{
    QCOMPARE(LmCvObject::kDefaultFntSize, 10);
    QCOMPARE(LmCvObject::kDefaultSelSize, 8);
}

void TestCvObject::penFollowsZoom_data()
{
    QTest::addColumn<double>("zoom");
    QTest::addColumn<double>("penWidth");
    QTest::addColumn<double>("fontSize");
    QTest::addColumn<int>("selSize");
    QTest::addColumn<double>("arrow");
    QTest::newRow("far out") << 0.25 << 8.0 << 40.0 << 32 << 40.0;
    QTest::newRow("tolerance is cut") << 0.3 << 2.0 / 0.3 << 10.0 / 0.3 << 26 << 10.0 / 0.3;
    QTest::newRow("just below one") << 0.999 << 2.0 / 0.999 << 10.0 / 0.999 << 8 << 10.0 / 0.999;
    QTest::newRow("one") << 1.0 << 2.0 << 10.0 << 8 << 10.0;
    QTest::newRow("zoomed in") << 4.0 << 0.5 << 10.0 << 8 << 10.0;
}

void TestCvObject::penFollowsZoom()
{
    QFETCH(double, zoom);
    const auto sizes = theItem->sizesAt(zoom);
    QTEST(theItem->thePen.widthF(), "penWidth");
    QTEST(sizes.theFontSize, "fontSize");
    QTEST(sizes.theSelSize, "selSize");
    QTEST(sizes.theArrowLength, "arrow");
    QCOMPARE(theItem->theThinPen.widthF(), 0.0);
}

void TestCvObject::zoomThatIsNoneKeepsTheSizesOfZoomOne()
{
    for (const double zoom : {0.0, -2.0, qQNaN()}) {
        const auto sizes = theItem->sizesAt(zoom);
        QCOMPARE(theItem->thePen.widthF(), 2.0);
        QCOMPARE(sizes.theFontSize, 10.0);
        QCOMPARE(sizes.theSelSize, 8);
        QCOMPARE(sizes.theArrowLength, 10.0);
    }
}

void TestCvObject::colorReachesBothLinePensAndNotTheText()
{
    theItem->setColor(Qt::green);
    QCOMPARE(theItem->getColor(), QColor(Qt::green));
    QCOMPARE(theItem->thePen.color(), QColor(Qt::green));
    QCOMPARE(theItem->theThinPen.color(), QColor(Qt::green));
    QCOMPARE(theItem->theTextPen.color(), QColor(Qt::white));
}

void TestCvObject::colorIsPaintedAnew()
{
    QCOMPARE(theCanvas.colorAt(QPoint(50, 50)), QColor(Qt::black));
    theItem->setColor(Qt::blue);
    QCOMPARE(theCanvas.colorAt(QPoint(50, 50)), QColor(Qt::blue));
}

void TestCvObject::penStyleReachesBothLinePens()
{
    theItem->setPenStyle(Qt::DashLine);
    QCOMPARE(theItem->thePenStyle, Qt::DashLine);
    QCOMPARE(theItem->thePen.style(), Qt::DashLine);
    QCOMPARE(theItem->theThinPen.style(), Qt::DashLine);
}

void TestCvObject::selectedOrActiveItemTakesTheWidePen()
{
    QCOMPARE(&theItem->currentPen(), &theItem->theThinPen);
    theItem->setSelected(true);
    QCOMPARE(&theItem->currentPen(), &theItem->thePen);
    theItem->setSelected(false);
    QCOMPARE(&theItem->currentPen(), &theItem->theThinPen);
    theItem->setActive(true);
    QCOMPARE(&theItem->currentPen(), &theItem->thePen);
}

void TestCvObject::activeAndSelectedAreApart()
{
    theItem->setActive(true);
    QVERIFY(theItem->isActive() && theItem->theActive);
    QVERIFY(!theItem->isSelected());
    theItem->setActive(false);
    theItem->setSelected(true);
    QVERIFY(!theItem->isActive());
    QVERIFY(theItem->isSelected());
}

void TestCvObject::lockedIsKept()
{
    theItem->setLocked(true);
    QVERIFY(theItem->isLocked() && theItem->theLocked);
    theItem->setLocked(false);
    QVERIFY(!theItem->isLocked());
}

void TestCvObject::stepZeroStillStoresTheUnit()
{
    theItem->setStep(4.0, QStringLiteral("mm"));
    QCOMPARE(theItem->theStep, 4.0);
    theItem->setStep(0.0, QStringLiteral("um"));
    QCOMPARE(theItem->theStep, 0.0);
    QCOMPARE(theItem->theUnit, QStringLiteral("um"));
}

void TestCvObject::stepDoesNotBuildTheLabelAgain()
{
    theItem->setStep(4.0, QStringLiteral("mm"));
    QCOMPARE(theItem->theLabelBuilds, 0);
}

void TestCvObject::displayValueBuildsTheLabelAgain()
{
    theItem->setDisplayValue(QStringLiteral("12.00mm"));
    QCOMPARE(theItem->theDisplayValue, QStringLiteral("12.00mm"));
    QCOMPARE(theItem->theLabelBuilds, 1);
    QCOMPARE(theItem->labelText(), QStringLiteral(" 7 <12.00mm> "));
}

void TestCvObject::emptyDisplayValueGivesNoBrackets()
{
    theItem->setDisplayValue(QStringLiteral("12.00mm"));
    theItem->setDisplayValue(QString());
    QCOMPARE(theItem->labelText(), QStringLiteral(" 7 "));
}

void TestCvObject::penOfTheCanvasClassIsSetApart()
{
    theItem->setPen(QPen(QColor(Qt::magenta), 5));
    QCOMPARE(theItem->pen().color(), QColor(Qt::magenta));
    QCOMPARE(theItem->getColor(), QColor(Qt::black));
}

void TestCvObject::itemWithoutNodesHasNoneSelected()
{
    QVERIFY(theItem->LmCvObject::getSelectedNodes().isEmpty());
}

MEASURE_TEST_MAIN(TestCvObject)
#include "TestCvObject.moc"
