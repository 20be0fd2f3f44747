#include "BenchState.h"
#include "HandStrokes.h"
#include "LmCvEditor.h"
#include "LmCvObject.h"
#include "RegionWindow.h"
#include "TestFont.h"

#include <QMenu>
#include <QTransform>

/// Strokes of a hand through the window with "Smooth" and "Auto Shape": each shape that is recognised, and
/// strokes that are none.
class TestHandShapes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void strokeBecomesItsShape_data();
    void strokeBecomesItsShape();
    void strokeThatIsNoShapeIsSmoothed();
    void strokeThatIsNotClosedIsSmoothed();
    void withoutAutoShapeAClosedStrokeIsSmoothed();
    void shapeIsRecognisedAtAnyZoom_data();
    void shapeIsRecognisedAtAnyZoom();
    void undoBringsBackWhatWasBefore_data();
    void undoBringsBackWhatWasBefore();
    void recognisedShapeIsEditedLikeAnyRegion();
    void nextStrokeBeginsAnotherRegion();
    void shapeFollowsWhatIsAlreadyThere();

private:
    using Stroke = QList<QPoint>;
    static Stroke turned(const Stroke& aStroke, const QPoint& aCentre, double aDegrees);
    static void addShapes();
};

// Where the strokes have been made around; one of them is turned by -8 degrees.
static const QPoint kRectangleCentre(410, 330);
constexpr double kRectangleTurn = -8.0;

TestHandShapes::Stroke TestHandShapes::turned(const Stroke& aStroke, const QPoint& aCentre, double aDegrees)
{
    QTransform turn;
    turn.translate(aCentre.x(), aCentre.y());
    turn.rotate(aDegrees);
    turn.translate(-aCentre.x(), -aCentre.y());
    Stroke result;
    for (const QPoint& point : aStroke)
        result << turn.map(QPointF(point)).toPoint();
    return result;
}

void TestHandShapes::addShapes()
{
    QTest::addColumn<QList<QPoint>>("stroke");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("nodes");
    QTest::newRow("ellipse") << HandStrokes::kEllipse << QStringLiteral("Ellipse") << 4;
    QTest::newRow("rectangle") << turned(HandStrokes::kRectangle, kRectangleCentre, -kRectangleTurn)
                               << QStringLiteral("Rectangle") << 4;
    QTest::newRow("rotated rectangle")
        << turned(HandStrokes::kRectangle, kRectangleCentre, 28.0) << QStringLiteral("Rectangle") << 4;
    QTest::newRow("rounded rectangle")
        << HandStrokes::kRoundedRectangle << QStringLiteral("Rounded rectangle") << 8;
}

static void startSketching(RegionWindow& aFixture)
{
    aFixture.openPicture(QSize(640, 520));
    aFixture.pickPencil(true, true);
}

void TestHandShapes::strokeBecomesItsShape_data()
{
    addShapes();
}

void TestHandShapes::strokeBecomesItsShape()
{
    QFETCH(QList<QPoint>, stroke);
    QFETCH(QString, name);
    QFETCH(int, nodes);
    RegionWindow f;
    startSketching(f);
    f.stroke(stroke);
    QCOMPARE(f.regionCount(), 1);
    QVERIFY2(f.report().startsWith(name + QLatin1String(": nodes ")), qPrintable(f.report()));
    QVERIFY2(f.report().contains(QStringLiteral("\u2192 %1, largest deviation ").arg(nodes)),
             qPrintable(f.report()));
    QVERIFY(f.isClosed(1));
    QCOMPARE(f.anchors(1).size(), nodes);
    QCOMPARE(f.itemNodeCount(1), nodes);
    // The shape lies where the stroke was drawn.
    const QRect box = QPolygon(f.anchors(1)).boundingRect();
    const QRect drawn = QPolygon(stroke).boundingRect();
    QVERIFY((box.center() - drawn.center()).manhattanLength() < 12);
    QVERIFY(drawn.adjusted(-12, -12, 12, 12).contains(box));
    // Finished: no rubber line, and the mouse is free.
    QVERIFY(!f.editor().mouseGrabber());
    QVERIFY(f.hint().contains(QStringLiteral("held down")));
}

void TestHandShapes::strokeThatIsNoShapeIsSmoothed()
{
    RegionWindow f;
    startSketching(f);
    f.stroke(HandStrokes::kWave);
    QVERIFY2(f.report().startsWith(QStringLiteral("Smoothed: nodes ")), qPrintable(f.report()));
    QVERIFY(!f.isClosed(1));
    QCOMPARE(f.anchors(1).first(), HandStrokes::kWave.first());
    QVERIFY(f.anchors(1).size() < HandStrokes::kWave.size() / 4);
    QCOMPARE(f.editor().mouseGrabber(), f.editor().theCurrentManipulator); // it may go on
}

void TestHandShapes::strokeThatIsNotClosedIsSmoothed()
{
    RegionWindow f;
    startSketching(f);
    f.stroke(HandStrokes::kEllipse.mid(0, HandStrokes::kEllipse.size() * 2 / 3));
    QVERIFY2(f.report().startsWith(QStringLiteral("Smoothed: nodes ")), qPrintable(f.report()));
    QVERIFY(!f.isClosed(1));
}

void TestHandShapes::withoutAutoShapeAClosedStrokeIsSmoothed()
{
    RegionWindow f;
    f.openPicture(QSize(640, 520));
    f.pickPencil(true, false);
    f.stroke(turned(HandStrokes::kRectangle, kRectangleCentre, -kRectangleTurn));
    QVERIFY2(f.report().startsWith(QStringLiteral("Smoothed: nodes ")), qPrintable(f.report()));
}

void TestHandShapes::shapeIsRecognisedAtAnyZoom_data()
{
    QTest::addColumn<double>("zoom");
    QTest::newRow("half") << 0.5;
    QTest::newRow("full") << 1.0;
    QTest::newRow("threefold") << 3.0;
}

void TestHandShapes::shapeIsRecognisedAtAnyZoom()
{
    QFETCH(double, zoom);
    RegionWindow f;
    startSketching(f);
    f.editor().setZoom(zoom);
    f.stroke(HandStrokes::kEllipse);
    QVERIFY2(f.report().startsWith(QStringLiteral("Ellipse: ")), qPrintable(f.report()));
    QCOMPARE(f.anchors(1).size(), 4);
    QVERIFY(f.isClosed(1));
}

void TestHandShapes::undoBringsBackWhatWasBefore_data()
{
    addShapes();
    QTest::newRow("none") << HandStrokes::kWave << QStringLiteral("Smoothed") << 0;
}

void TestHandShapes::undoBringsBackWhatWasBefore()
{
    QFETCH(QList<QPoint>, stroke);
    QFETCH(QString, name);
    RegionWindow f;
    f.openPicture(QSize(640, 520));
    QCOMPARE(f.drawClosed({{20, 20}, {120, 20}, {120, 90}}), 1);
    const QString before = recordsText();
    const int steps = f.stack().count();
    f.pickPencil(true, true);
    f.stroke(stroke);
    QVERIFY2(f.report().startsWith(name), qPrintable(f.report()));
    const QString after = recordsText();
    QCOMPARE(f.stack().count(), steps + 2); // the creation with its first node, and the rest
    f.key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(f.anchors(2), (QList<QPoint>{stroke.first()}));
    QVERIFY(!f.editor().mouseGrabber());
    f.key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(recordsText(), before);
    QVERIFY(!f.item(2));
    f.stack().redo();
    f.stack().redo();
    QCOMPARE(recordsText(), after);
    QCOMPARE(f.itemNodeCount(2), f.anchors(2).size());
}

void TestHandShapes::recognisedShapeIsEditedLikeAnyRegion()
{
    RegionWindow f;
    startSketching(f);
    f.stroke(HandStrokes::kEllipse);
    f.pickArrow();
    const QPolygon before = f.points(1);
    const QPoint centre = QPolygon(f.anchors(1)).boundingRect().center();
    f.drag(centre, centre + QPoint(30, 20));
    QCOMPARE(f.points(1), before.translated(30, 20));
    const QPoint node = f.anchors(1)[2];
    f.drag(node, node + QPoint(25, 10));
    QCOMPARE(f.anchors(1)[2], node + QPoint(25, 10));
    QMenu* menu = f.contextMenu(centre + QPoint(30, 20));
    QVERIFY(menu);
    QVERIFY(f.choose(*menu, QStringLiteral("Area")));
    QVERIFY(f.item(1)->labelText().contains(QLatin1Char('<')));
}

void TestHandShapes::nextStrokeBeginsAnotherRegion()
{
    RegionWindow f;
    startSketching(f);
    f.stroke(HandStrokes::kEllipse);
    const QPolygon first = f.points(1);
    f.stroke({{20, 20}, {60, 20}, {100, 24}});
    QCOMPARE(f.regionCount(), 2);
    QCOMPARE(f.points(1), first);
    QVERIFY(!f.isClosed(2));
}

void TestHandShapes::shapeFollowsWhatIsAlreadyThere()
{
    RegionWindow f;
    startSketching(f);
    // A stroke in two parts: the second one brings it back to its start.
    const qsizetype half = HandStrokes::kEllipse.size() / 2;
    f.stroke(HandStrokes::kEllipse.mid(0, half));
    QVERIFY(f.report().startsWith(QStringLiteral("Smoothed")));
    f.stroke(HandStrokes::kEllipse.mid(half));
    QCOMPARE(f.regionCount(), 1);
    QVERIFY2(f.report().startsWith(QStringLiteral("Ellipse: ")), qPrintable(f.report()));
    QCOMPARE(f.anchors(1).size(), 4);
    QVERIFY(f.isClosed(1));
}

MEASURE_TEST_MAIN(TestHandShapes)
#include "TestHandShapes.moc"
