#include "EditorFixture.h"
#include "TestFont.h"

#include <QMap>
#include <QPaintEvent>

#include <functional>

class TestEditorPaint : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatAToolChangesIsShownAfterEachEvent_data();
    void whatAToolChangesIsShownAfterEachEvent();
    void rubberBandRepaintsItsLinesOnly();
};

namespace {

/// Moves its item with every event of a kind and leaves it to the editor to show it.
class MovingTool : public ProbeTool
{
public:
    MovingTool() : ProbeTool(nullptr, ProbeTool::kType + 2) {}

    void mouseLeaveEvent(QEvent*) override { moveItem(); }
    void keyPressEvent(QKeyEvent*) override { moveItem(); }
    void mouseDoubleClickEvent(QMouseEvent* aEvent) override
    {
        moveItem();
        aEvent->accept();
    }

private:
    void moveItem() { item(1)->place(item(1)->theCorner + QPoint(5, 0)); }
};

/// Keeps what is painted of the widget.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget* aWidget) { aWidget->installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* aEvent) override
    {
        if (aEvent->type() == QEvent::Paint)
            thePainted += static_cast<QPaintEvent*>(aEvent)->region();
        return false;
    }

    QRegion thePainted;
};

} // namespace

void TestEditorPaint::whatAToolChangesIsShownAfterEachEvent_data()
{
    QTest::addColumn<QString>("event");
    for (const char* event : {"leave", "key", "double click"})
        QTest::newRow(event) << QString::fromLatin1(event);
}

void TestEditorPaint::whatAToolChangesIsShownAfterEachEvent()
{
    EditorFixture f;
    MovingTool tool;
    tool.setUndoStack(&f.theStack);
    tool.setCvEditor(&f.theEditor);
    tool.initManipulator(&f.theBar);
    ProbeItem* item = tool.create(QPoint(50, 50));
    f.theEditor.setCurrentManipulator(&tool);
    QWidget* viewport = f.theEditor.viewport();
    QEvent leave(QEvent::Leave);
    const QMap<QString, std::function<void()>> events{
        {QStringLiteral("leave"), [&] { QCoreApplication::sendEvent(viewport, &leave); }},
        {QStringLiteral("key"), [&] { QTest::keyPress(viewport, Qt::Key_A); }},
        {QStringLiteral("double click"),
         [&] {
             QTest::mouseEvent(QTest::MouseDClick, viewport, Qt::LeftButton, Qt::NoModifier,
                               f.toViewport(EditorFixture::kEmpty));
         }},
    };
    QFETCH(QString, event);
    QVERIFY(events.contains(event));
    f.theEditor.canvas()->update();
    QCoreApplication::processEvents();
    PaintWatch watch(viewport);
    const QRect former = item->square();
    events[event]();
    QVERIFY(item->square() != former);
    QCoreApplication::processEvents();
    QVERIFY(watch.thePainted.contains(f.toViewport(item->square().center())));
    f.theStack.clear();
}

void TestEditorPaint::rubberBandRepaintsItsLinesOnly()
{
    EditorFixture f;
    const QPoint from(50, 40);
    const QPoint first(250, 200);
    const QPoint second(300, 240);
    f.press(from);
    f.move(first);
    QCoreApplication::processEvents();
    PaintWatch watch(f.theEditor.viewport());
    f.move(second);
    QCoreApplication::processEvents();
    for (const QPoint& end : {first, second}) {
        const QPoint corner = f.toViewport(from);
        const QPoint last = f.toViewport(end + QPoint(1, 1)); // lines stand on the band's outer edges
        for (int x = corner.x(); x <= last.x(); ++x)
            QVERIFY(watch.thePainted.contains(QPoint(x, corner.y())) &&
                    watch.thePainted.contains(QPoint(x, last.y())));
        for (int y = corner.y(); y <= last.y(); ++y)
            QVERIFY(watch.thePainted.contains(QPoint(corner.x(), y)) &&
                    watch.thePainted.contains(QPoint(last.x(), y)));
    }
    const QRect inside(f.toViewport(from + QPoint(10, 10)), f.toViewport(first - QPoint(10, 10)));
    QVERIFY(!watch.thePainted.intersects(inside));
    f.release(second);
}

MEASURE_TEST_MAIN(TestEditorPaint)
#include "TestEditorPaint.moc"
