#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "ModalAnswer.h"
#include "PictureRenderer.h"
#include "RegionWindow.h"
#include "TestFont.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QWheelEvent>

/// What else a person does while an outline is in the making: the outline goes on or ends, whole in either
/// case.
class TestRegionInBetween : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theWindow = std::make_unique<RegionWindow>(); }
    void cleanup() { theWindow.reset(); }
    void wheelAndPanLeaveTheOutlineInTheMaking_data() { addTools(); }
    void wheelAndPanLeaveTheOutlineInTheMaking();
    void zoomCommandsLeaveTheOutlineInTheMaking_data() { addTools(); }
    void zoomCommandsLeaveTheOutlineInTheMaking();
    void deleteInTheMenuTakesTheLastNode_data() { addTools(); }
    void deleteInTheMenuTakesTheLastNode();
    void deleteOfEverythingEndsTheOutline_data() { addTools(); }
    void deleteOfEverythingEndsTheOutline();
    void colourIsTakenByTheOutline_data() { addTools(); }
    void colourIsTakenByTheOutline();
    void outlineThatIsHiddenIsNotGoneOnWith();
    void exportedPictureShowsNoRubberLine();
    void pointerThatLeavesEndsThePencilsOutlineAlone_data() { addTools(); }
    void pointerThatLeavesEndsThePencilsOutlineAlone();
    void windowIsClosedInTheMiddle_data() { addTools(); }
    void windowIsClosedInTheMiddle();

private:
    static void addTools();
    /// Takes the row's tool and draws two nodes with it.
    void begin();
    /// A third node, and the outline is at its end.
    void goOnAndEnd();

    std::unique_ptr<RegionWindow> theWindow;
};

static const QList<QPoint> kBegun{{60, 60}, {200, 60}};
static const QPoint kNext(200, 200);

void TestRegionInBetween::addTools()
{
    QTest::addColumn<bool>("withPencil");
    QTest::newRow("pen") << false;
    QTest::newRow("pencil") << true;
}

void TestRegionInBetween::begin()
{
    QFETCH(bool, withPencil);
    if (withPencil)
        theWindow->pickPencil();
    else
        theWindow->pickPen();
    theWindow->clickAll(kBegun);
    theWindow->move(QPoint(150, 150));
    QCOMPARE(theWindow->anchors(1), kBegun);
}

void TestRegionInBetween::goOnAndEnd()
{
    theWindow->click(kNext);
    QCOMPARE(theWindow->anchors(1), QList<QPoint>(kBegun) << kNext);
    theWindow->key(Qt::Key_Escape);
    QCOMPARE(theWindow->regionCount(), 1);
    QCOMPARE(theWindow->itemNodeCount(1), 3);
    QVERIFY(!theWindow->editor().mouseGrabber());
}

void TestRegionInBetween::wheelAndPanLeaveTheOutlineInTheMaking()
{
    begin();
    LmCvEditor& editor = theWindow->editor();
    QWidget* viewport = editor.viewport();
    const double zoom = editor.zoom();
    const QPointF middle = QRectF(viewport->rect()).center();
    QWheelEvent wheel(middle, viewport->mapToGlobal(middle), QPoint(), QPoint(0, 240), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(viewport, &wheel);
    QVERIFY(editor.zoom() > zoom);
    const QPointF before = editor.toViewport(QPointF(kNext));
    QTest::mousePress(viewport, Qt::MiddleButton, {}, middle.toPoint());
    QTest::mouseMove(viewport, middle.toPoint() - QPoint(30, 20));
    QTest::mouseRelease(viewport, Qt::MiddleButton, {}, middle.toPoint() - QPoint(30, 20));
    QVERIFY(editor.toViewport(QPointF(kNext)) != before);
    QCOMPARE(theWindow->anchors(1), kBegun);
    goOnAndEnd();
}

void TestRegionInBetween::zoomCommandsLeaveTheOutlineInTheMaking()
{
    begin();
    for (QAction* action : {theWindow->actions().theZoomIn, theWindow->actions().theZoomOne,
                            theWindow->actions().theZoomOut, theWindow->actions().theZoomFit}) {
        action->trigger();
        QCOMPARE(theWindow->anchors(1), kBegun);
    }
    goOnAndEnd();
}

void TestRegionInBetween::deleteInTheMenuTakesTheLastNode()
{
    begin();
    theWindow->actions().theDelete->trigger();
    QCOMPARE(theWindow->anchors(1), kBegun.mid(0, 1));
    theWindow->click(kBegun[1]);
    goOnAndEnd();
}

void TestRegionInBetween::deleteOfEverythingEndsTheOutline()
{
    begin();
    const QString drawing = theWindow->hint();
    theWindow->key(Qt::Key_A, Qt::ControlModifier);
    theWindow->actions().theDelete->trigger();
    QCOMPARE(theWindow->regionCount(), 0);
    QVERIFY(theWindow->editor().canvas()->allItems().isEmpty());
    QVERIFY(!theWindow->editor().mouseGrabber());
    QVERIFY(theWindow->hint() != drawing);
    theWindow->clickAll(kBegun);
    goOnAndEnd();
}

void TestRegionInBetween::colourIsTakenByTheOutline()
{
    begin();
    const QColor chosen(1, 2, 200);
    theWindow->regionTool()->setColorCvObject(theWindow->item(1), chosen);
    goOnAndEnd();
    QCOMPARE(theWindow->regionValue(1, QStringLiteral("col")).value<QColor>(), chosen);
}

void TestRegionInBetween::outlineThatIsHiddenIsNotGoneOnWith()
{
    RegionWindow& f = *theWindow;
    f.pickPen();
    f.clickAll(kBegun);
    // By the menu key, since the right button is the pen's.
    QWidget* viewport = f.editor().viewport();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(10, 10),
                            viewport->mapToGlobal(QPoint(10, 10)));
    QApplication::sendEvent(viewport, &event);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QVERIFY(f.choose(*menu, QStringLiteral("Hide")));
    f.click(kNext);
    QCOMPARE(f.anchors(1), kBegun);
    QCOMPARE(f.regionCount(), 2); // a new one, that can be seen
    QVERIFY(f.item(2)->isVisible());
}

void TestRegionInBetween::exportedPictureShowsNoRubberLine()
{
    RegionWindow& f = *theWindow;
    f.pickPencil();
    f.clickAll(kBegun);
    f.move(QPoint(250, 250));
    const QImage during = PictureRenderer::render(f.editor());
    // On the screen it is there all the while.
    QCOMPARE(f.editor().canvas()->allItems().size(), 2);
    for (const Q3CanvasItem* item : f.editor().canvas()->allItems())
        QVERIFY(item->isVisible());
    f.move(QPoint(300, 200));
    f.click(QPoint(300, 200));
    QCOMPARE(f.anchors(1).size(), 3);
    f.key(Qt::Key_Z, Qt::ControlModifier);
    f.key(Qt::Key_Escape);
    QCOMPARE(f.editor().canvas()->allItems().size(), 1);
    QCOMPARE(PictureRenderer::render(f.editor()), during);
}

void TestRegionInBetween::pointerThatLeavesEndsThePencilsOutlineAlone()
{
    QFETCH(bool, withPencil);
    begin();
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(theWindow->editor().viewport(), &leave);
    QVERIFY(!theWindow->editor().mouseGrabber());
    QCOMPARE(theWindow->anchors(1), kBegun);
    theWindow->click(kNext);
    QCOMPARE(theWindow->regionCount(), withPencil ? 2 : 1);
}

void TestRegionInBetween::windowIsClosedInTheMiddle()
{
    begin();
    theWindow->press(kNext);
    theWindow->move(kNext + QPoint(10, 10));
    const ModalAnswer answer(ModalAnswer::press(QMessageBox::Discard));
    QVERIFY(theWindow->window().close());
    QVERIFY(answer.isDone());
    theWindow->restart();
    QCOMPARE(theWindow->regionCount(), 0);
}

MEASURE_TEST_MAIN(TestRegionInBetween)
#include "TestRegionInBetween.moc"
