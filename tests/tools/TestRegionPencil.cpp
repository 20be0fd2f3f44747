#include "Q3CanvasLine.h"
#include "RegionFixture.h"
#include "TestFont.h"

#include <QApplication>
#include <QLineF>
#include <QMouseEvent>
#include <QSignalSpy>

#include <cmath>
#include <memory>

/// The pencil: strokes, the rubber line between them, closing, smoothing and shapes.
class TestRegionPencil : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { theFixture.reset(); }

    void strokeSetsANodeEachSixPixels();
    void strokeThatNeverMovesSixPixelsLeavesOneNode();
    void outlineShowsNoNodesWhileItIsDrawn();
    void wholeStrokeIsOneChange();
    void withoutSmoothAllNodesStay();
    void strokeBackToItsStartCloses();
    void rubberLineFollowsBetweenStrokes();
    void shiftSnapsTheRubberLineAndTheNode();
    void strokesGoOnFromTheLastNode();
    void rightPressCloses();
    void rightPressSmoothsOnceMore();
    void pressOnTheFarEndCloses();
    void altPressStartsOverWithHiddenNodes();
    void shiftPressWithoutARubberLineGoesToTheOrigin();
    void endOfTheRubberLineLeavesAnotherToolsGrabAlone();
    void leavingTheViewEndsTheOutline();
    void strokeFromTheFirstNodeGrowsInFront();
    void firstNodeLosesTheHandleOfTheFormerAction();
    void moveWithAnotherButtonAddsNothing();
    void smoothLeavesFewNodesAndTellsSo();
    void reportIsInTheCalibratedUnit();
    void recognisedStrokeIsClosedAndFinished();
    void failedShapeIsSmoothed();
    void closingStrokeIsRecognised();
    void undoBetweenStrokesEndsTheRubberLine();

private:
    static QList<QPoint> circle(const QPoint& aCentre, double aRadius, double aDegrees);

    std::unique_ptr<RegionFixture> theFixture;
};

void TestRegionPencil::init()
{
    theFixture = std::make_unique<RegionFixture>();
    theFixture->pickPencil();
}

// A stroke along a circle, a point each two degrees.
QList<QPoint> TestRegionPencil::circle(const QPoint& aCentre, double aRadius, double aDegrees)
{
    QList<QPoint> points;
    for (double angle = 0.0; angle <= aDegrees; angle += 2.0)
        points.append((QPointF(aCentre) + QLineF::fromPolar(aRadius, angle).p2()).toPoint());
    return points;
}

void TestRegionPencil::strokeSetsANodeEachSixPixels()
{
    RegionFixture& f = *theFixture;
    f.press(QPoint(20, 50));
    f.move(QPoint(25, 50)); // 5 pixels
    QCOMPARE(f.anchors(1).size(), 1);
    f.move(QPoint(26, 50));
    QCOMPARE(f.anchors(1).size(), 2);
    f.move(QPoint(30, 54)); // a root of 32
    QCOMPARE(f.anchors(1).size(), 2);
    f.move(QPoint(30, 55)); // a root of 41
    f.release(QPoint(30, 55));
    QCOMPARE(f.anchors(1), (QList<QPoint>{QPoint(20, 50), QPoint(26, 50), QPoint(30, 55)}));
    for (int node = 0; node < 3; ++node) // handles collapsed
        QCOMPARE(f.item(1)->thePoints[3 * node], f.item(1)->thePoints[3 * node + 2]);
    QVERIFY(f.recordIsItem(1));
}

void TestRegionPencil::strokeThatNeverMovesSixPixelsLeavesOneNode()
{
    RegionFixture& f = *theFixture;
    f.stroke({QPoint(50, 60), QPoint(53, 62), QPoint(48, 58)});
    QCOMPARE(f.anchors(1), QList<QPoint>{QPoint(50, 60)});
    QCOMPARE(f.pos(1), QPoint(90, 90));
    QCOMPARE(f.theStack.count(), 2); // the release has sent it once more
    QVERIFY(f.recordIsItem(1));
}

void TestRegionPencil::outlineShowsNoNodesWhileItIsDrawn()
{
    RegionFixture& f = *theFixture;
    f.press(QPoint(20, 50));
    f.move(QPoint(40, 50));
    QVERIFY(!f.item(1)->theShowNodes);
    QVERIFY(!f.item(1)->theHandlesEnabled);
    f.release(QPoint(40, 50));
    QVERIFY(f.item(1)->theShowNodes);
    QVERIFY(f.item(1)->theHandlesEnabled);
}

void TestRegionPencil::wholeStrokeIsOneChange()
{
    RegionFixture& f = *theFixture;
    f.stroke({QPoint(20, 50), QPoint(40, 50), QPoint(60, 60), QPoint(80, 90)});
    QCOMPARE(f.theStack.count(), 2); // the creation with its first node, and the rest
    f.theStack.undo();
    QCOMPARE(f.anchors(1), QList<QPoint>{QPoint(20, 50)});
    f.theStack.redo();
    QCOMPARE(f.anchors(1).size(), 4);
}

void TestRegionPencil::withoutSmoothAllNodesStay()
{
    RegionFixture& f = *theFixture;
    f.pickPencil(false, true); // shapes are looked for by smoothing alone
    QSignalSpy report(&f.theTool, &LmCvManipulator::signalReport);
    QList<QPoint> expected{QPoint(20, 50)};
    f.press(expected.last());
    for (const QPoint& point : circle(QPoint(100, 100), 60.0, 340.0)) {
        f.move(point);
        const QPoint way = point - expected.last();
        if (QPoint::dotProduct(way, way) >= 36)
            expected.append(point);
    }
    f.release(expected.last());
    QCOMPARE(f.anchors(1), expected);
    QVERIFY(!f.isClosed(1));
    QCOMPARE(report.count(), 0);
}

void TestRegionPencil::strokeBackToItsStartCloses()
{
    RegionFixture& f = *theFixture;
    f.stroke({QPoint(20, 20), QPoint(60, 20), QPoint(60, 60), QPoint(20, 60), QPoint(21, 22)});
    QVERIFY(f.isClosed(1));
    QCOMPARE(f.anchors(1).size(), 4);
    QVERIFY(f.theTool.theFinished);
    QVERIFY(!f.theTool.theRegion);
    QVERIFY(!f.theTool.theRubberLine);
    QVERIFY(!f.theEditor.mouseGrabber());
    QVERIFY(f.item(1)->theShowNodes);
    QVERIFY(f.recordIsItem(1));
}

void TestRegionPencil::rubberLineFollowsBetweenStrokes()
{
    RegionFixture& f = *theFixture;
    f.stroke({QPoint(20, 20), QPoint(60, 20)});
    Q3CanvasLine* line = f.theTool.theRubberLine;
    QVERIFY(line);
    QVERIFY(line->isVisible());
    QCOMPARE(line->pen().style(), Qt::DotLine);
    QCOMPARE(line->pen().width(), 0);
    QCOMPARE(line->pen().color(), QColor(Qt::red));
    QCOMPARE(f.theEditor.mouseGrabber(), &f.theTool);
    f.hover(QPoint(90, 40));
    QCOMPARE(line->startPoint(), QPoint(60, 20));
    QCOMPARE(line->endPoint(), QPoint(90, 40));
    QCOMPARE(f.anchors(1).size(), 2);
}

void TestRegionPencil::shiftSnapsTheRubberLineAndTheNode()
{
    RegionFixture& f = *theFixture;
    f.stroke({QPoint(20, 20), QPoint(60, 20)});
    f.hover(QPoint(100, 24), Qt::ShiftModifier);
    QCOMPARE(f.theTool.theRubberLine->endPoint(), QPoint(100, 20));
    f.press(QPoint(100, 24), Qt::ShiftModifier);
    QVERIFY(!f.theTool.theRubberLine);
    f.release(QPoint(100, 24), Qt::ShiftModifier);
    QCOMPARE(f.anchors(1).last(), QPoint(100, 20));
    f.click(QPoint(150, 33));
    QCOMPARE(f.anchors(1).last(), QPoint(150, 33));
}

void TestRegionPencil::strokesGoOnFromTheLastNode()
{
    RegionFixture& f = *theFixture;
    f.stroke({QPoint(20, 20), QPoint(60, 20)});
    f.stroke({QPoint(90, 20), QPoint(90, 50)});
    QCOMPARE(f.recordCount(), 1);
    QCOMPARE(f.anchors(1), (QList<QPoint>{QPoint(20, 20), QPoint(60, 20), QPoint(90, 20), QPoint(90, 50)}));
    QCOMPARE(f.theStack.count(), 3);
}

void TestRegionPencil::rightPressCloses()
{
    RegionFixture& f = *theFixture;
    QSignalSpy menu(&f.theEditor, &LmCvEditor::signalContextMenu);
    f.stroke({QPoint(20, 20), QPoint(60, 20), QPoint(60, 60)});
    f.rightClick(QPoint(30, 70));
    QVERIFY(f.isClosed(1));
    QCOMPARE(f.anchors(1).size(), 3);
    QVERIFY(f.theTool.theFinished);
    QVERIFY(!f.theTool.theRubberLine);
    QCOMPARE(menu.count(), 0);
    QVERIFY(f.recordIsItem(1));
}

void TestRegionPencil::rightPressSmoothsOnceMore()
{
    RegionFixture& f = *theFixture;
    f.pickPencil(true, false);
    f.stroke(circle(QPoint(150, 120), 80.0, 300.0));
    QSignalSpy report(&f.theTool, &LmCvManipulator::signalReport);
    f.rightClick(QPoint(150, 120));
    QCOMPARE(report.count(), 1);
    QVERIFY(f.isClosed(1));
    QVERIFY(f.recordIsItem(1));
}

void TestRegionPencil::pressOnTheFarEndCloses()
{
    RegionFixture& f = *theFixture;
    f.stroke({QPoint(20, 20), QPoint(60, 20), QPoint(60, 60)});
    f.click(QPoint(22, 21));
    QVERIFY(f.isClosed(1));
    QCOMPARE(f.anchors(1).size(), 3);
    QVERIFY(f.theTool.theFinished);
    QVERIFY(!f.theTool.theRubberLine);
    QVERIFY(f.recordIsItem(1));
}

void TestRegionPencil::altPressStartsOverWithHiddenNodes()
{
    RegionFixture& f = *theFixture;
    f.stroke({QPoint(20, 20), QPoint(60, 20), QPoint(60, 60)});
    f.key(Qt::Key_Escape);
    f.press(QPoint(150, 150), Qt::AltModifier);
    QCOMPARE(f.anchors(1), QList<QPoint>{QPoint(150, 150)});
    QVERIFY(f.recordIsItem(1));
    f.move(QPoint(170, 150));
    f.release(QPoint(170, 150));
    QCOMPARE(f.anchors(1).size(), 2);
    QCOMPARE(f.recordCount(), 1);
    QVERIFY(f.recordIsItem(1));
}

void TestRegionPencil::shiftPressWithoutARubberLineGoesToTheOrigin()
{
    RegionFixture& f = *theFixture;
    f.stroke({QPoint(20, 20), QPoint(60, 20)});
    f.theTool.startRubberLine(false, QPoint());
    f.press(QPoint(100, 24), Qt::ShiftModifier);
    f.release(QPoint(100, 24), Qt::ShiftModifier);
    QCOMPARE(f.anchors(1).last(), QPoint(0, 0));
}

void TestRegionPencil::endOfTheRubberLineLeavesAnotherToolsGrabAlone()
{
    RegionFixture& f = *theFixture;
    f.stroke({QPoint(20, 20), QPoint(60, 20), QPoint(20, 21)}); // closed, no line
    LmCvManipulator other(nullptr);
    f.theEditor.setMouseGrabber(&other, true);
    f.theStack.undo(); // a change from elsewhere
    QCOMPARE(f.theEditor.mouseGrabber(), &other);
    f.theEditor.setMouseGrabber(nullptr, false);
}

void TestRegionPencil::leavingTheViewEndsTheOutline()
{
    RegionFixture& f = *theFixture;
    f.stroke({QPoint(20, 20), QPoint(60, 20)});
    const int steps = f.theStack.count();
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(f.theEditor.viewport(), &leave);
    QVERIFY(f.theTool.theFinished);
    QVERIFY(!f.theTool.theRubberLine);
    QVERIFY(!f.theEditor.mouseGrabber());
    QVERIFY(!f.item(1)->theClosed);
    QCOMPARE(f.theStack.count(), steps);
    // What the record misses goes out with the next edit.
    f.item(1)->setClosed(true);
    f.theTool.slotCanvasObjectChanged(f.item(1));
    QCOMPARE(f.theStack.count(), steps + 1);
    QVERIFY(f.recordIsItem(1));
    f.stroke({QPoint(150, 150), QPoint(190, 150)});
    QCOMPARE(f.recordCount(), 2);

    f.pickPen(); // the pen's outline waits
    f.click(QPoint(20, 120));
    QApplication::sendEvent(f.theEditor.viewport(), &leave);
    QVERIFY(!f.theTool.theFinished);
}

void TestRegionPencil::strokeFromTheFirstNodeGrowsInFront()
{
    RegionFixture& f = *theFixture;
    f.stroke({QPoint(60, 20), QPoint(100, 20)});
    f.key(Qt::Key_Escape);
    f.press(QPoint(60, 20));
    f.move(QPoint(57, 24)); // 5 pixels from the first node
    QCOMPARE(f.anchors(1).size(), 2);
    f.move(QPoint(54, 20));
    f.move(QPoint(40, 30));
    f.release(QPoint(40, 30));
    QCOMPARE(f.anchors(1), (QList<QPoint>{QPoint(40, 30), QPoint(54, 20), QPoint(60, 20), QPoint(100, 20)}));
    QVERIFY(f.recordIsItem(1));
    f.hover(QPoint(20, 20));
    QCOMPARE(f.theTool.theRubberLine->startPoint(), QPoint(40, 30));
}

void TestRegionPencil::firstNodeLosesTheHandleOfTheFormerAction()
{
    RegionFixture& f = *theFixture;
    f.pickPen();
    f.drag(QPoint(60, 60), QPoint(80, 70));
    f.drag(QPoint(150, 60), QPoint(170, 70));
    f.pickPencil();
    QVERIFY(f.theTool.theAppend);
    // At the first node, where the outline then grows by its left handle, the right one goes.
    f.press(QPoint(60, 60));
    LmBezierPoint node = f.item(1)->getNode(0);
    QCOMPARE(node[LmBezierPoint::kRightCtrl], QPoint(60, 60));
    QCOMPARE(node[LmBezierPoint::kLeftCtrl], QPoint(40, 50));
    QVERIFY(f.item(1)->theNodeStates[0].selected);
    f.release(QPoint(60, 60));
    f.key(Qt::Key_Escape); // nothing was drawn, so the handle is there again
    QVERIFY(f.recordIsItem(1));
    QCOMPARE(f.item(1)->getNode(0)[LmBezierPoint::kRightCtrl], QPoint(80, 70));
    QVERIFY(!f.theTool.theAppend);
    // And at the last one the left handle, since the last action was at the front.
    f.press(QPoint(150, 60));
    node = f.item(1)->getNode(1);
    QCOMPARE(node[LmBezierPoint::kLeftCtrl], QPoint(150, 60));
    QCOMPARE(node[LmBezierPoint::kRightCtrl], QPoint(170, 70));
    f.release(QPoint(150, 60));
}

void TestRegionPencil::moveWithAnotherButtonAddsNothing()
{
    RegionFixture& f = *theFixture;
    f.press(QPoint(20, 20));
    f.move(QPoint(60, 20), Qt::ShiftModifier);
    f.move(QPoint(60, 20), Qt::ControlModifier);
    QCOMPARE(f.anchors(1).size(), 1);
    f.release(QPoint(60, 20));
    QCOMPARE(f.theTool.theRubberLine->endPoint(), QPoint(60, 20));
    f.hover(QPoint(70, 20), Qt::ControlModifier);
    QCOMPARE(f.theTool.theRubberLine->endPoint(), QPoint(60, 20));
}

void TestRegionPencil::smoothLeavesFewNodesAndTellsSo()
{
    RegionFixture& f = *theFixture;
    f.pickPencil(true, false);
    QSignalSpy report(&f.theTool, &LmCvManipulator::signalReport);
    const QList<QPoint> points = circle(QPoint(150, 120), 80.0, 300.0);
    f.stroke(points);
    QVERIFY2(f.anchors(1).size() <= 12, qPrintable(QString::number(f.anchors(1).size())));
    QVERIFY(f.anchors(1).size() >= 4);
    QVERIFY(!f.isClosed(1));
    QVERIFY(!f.theTool.theFinished);
    QVERIFY(f.recordIsItem(1));
    // Each flattened point of the outline lies near the circle.
    for (int segment = 0; segment + 1 < f.item(1)->nodeCount(); ++segment) {
        const Q3PointArray all = f.item(1)->thePoints;
        for (const QPoint& point : Q3PointArray(QPolygon(all.mid(3 * segment + 1, 4))).cubicBezier())
            QVERIFY(std::abs(QLineF(QPoint(150, 120), point).length() - 80.0) < 3.0);
    }
    QCOMPARE(report.count(), 1);
    const QString text = report.first().first().toString();
    QVERIFY2(text.startsWith(QStringLiteral("Smoothed: nodes ")), qPrintable(text));
    QVERIFY2(text.contains(QStringLiteral(" → %1, ").arg(f.item(1)->nodeCount())), qPrintable(text));
    QVERIFY2(text.endsWith(QStringLiteral(" px")), qPrintable(text));
}

void TestRegionPencil::reportIsInTheCalibratedUnit()
{
    theFixture.reset(); // a type has one tool
    const auto reported = [](double aWidth) {
        RegionFixture f;
        f.pickPencil(true, false);
        if (aWidth > 0.0)
            f.calibrate(aWidth, QStringLiteral("mm"));
        QSignalSpy report(&f.theTool, &LmCvManipulator::signalReport);
        f.stroke(circle(QPoint(150, 120), 80.0, 300.0));
        return report.first().first().toString();
    };
    const auto number = [](const QString& aText) {
        return aText.section(QLatin1Char(' '), -2, -2).toDouble();
    };
    const QString pixels = reported(0.0);
    const QString fine = reported(4000.0); // ten units a pixel
    QVERIFY2(fine.endsWith(QStringLiteral(" mm")), qPrintable(fine));
    QVERIFY(number(pixels) > 0.0);
    QVERIFY(std::abs(number(fine) - 10.0 * number(pixels)) < 0.06); // both are rounded to hundredths
}

void TestRegionPencil::recognisedStrokeIsClosedAndFinished()
{
    RegionFixture& f = *theFixture;
    f.pickPencil(true, true);
    QSignalSpy report(&f.theTool, &LmCvManipulator::signalReport);
    f.stroke(circle(QPoint(150, 120), 80.0, 352.0)); // ends 11 pixels before its start
    QCOMPARE(f.anchors(1).size(), 4);
    QVERIFY(f.isClosed(1));
    QVERIFY(f.theTool.theFinished);
    QVERIFY(!f.theTool.theRubberLine);
    QVERIFY(!f.theEditor.mouseGrabber());
    QVERIFY(f.recordIsItem(1));
    QVERIFY(report.first().first().toString().startsWith(QStringLiteral("Ellipse: nodes ")));
    f.theStack.undo();
    f.theStack.undo();
    QCOMPARE(f.recordCount(), 0);
}

void TestRegionPencil::failedShapeIsSmoothed()
{
    RegionFixture& f = *theFixture;
    f.pickPencil(true, true);
    QList<QPoint> wave;
    for (int x = 0; x < 200; x += 3)
        wave.append(QPoint(40 + x, 100 + qRound(30.0 * std::sin(x / 20.0))));
    f.stroke(wave);
    QVERIFY(!f.isClosed(1));
    QVERIFY(!f.theTool.theFinished);
    QVERIFY(f.theTool.theRubberLine);
    QVERIFY(f.anchors(1).size() < 20);
    QVERIFY(f.anchors(1).size() > 3);
    QVERIFY(f.recordIsItem(1));
}

void TestRegionPencil::closingStrokeIsRecognised()
{
    RegionFixture& f = *theFixture;
    f.pickPencil(true, true);
    f.stroke(circle(QPoint(150, 120), 80.0, 360.0)); // meets its first node
    QVERIFY(f.isClosed(1));
    QCOMPARE(f.anchors(1).size(), 4);
    QVERIFY(f.theTool.theFinished);
    QVERIFY(!f.theTool.theRegion);
    QVERIFY(f.recordIsItem(1));
}

void TestRegionPencil::undoBetweenStrokesEndsTheRubberLine()
{
    RegionFixture& f = *theFixture;
    f.stroke({QPoint(20, 20), QPoint(60, 20)});
    f.stroke({QPoint(90, 20), QPoint(90, 50)});
    f.theStack.undo();
    QVERIFY(!f.theTool.theRubberLine);
    QVERIFY(!f.theEditor.mouseGrabber());
    QCOMPARE(f.anchors(1).size(), 2);
    f.stroke({QPoint(60, 60), QPoint(80, 60)}); // goes on
    QCOMPARE(f.anchors(1), (QList<QPoint>{QPoint(20, 20), QPoint(60, 20), QPoint(60, 60), QPoint(80, 60)}));
}

MEASURE_TEST_MAIN(TestRegionPencil)
#include "TestRegionPencil.moc"
